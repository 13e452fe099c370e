/// @file
/// What an inspector tells about a part.
#pragma once

#include <string>
#include <vector>

#include "../parts/part_window.h"
#include "../tools/paint_count.h"

namespace galdren {

/// A line that is shown.
struct Fact {
    const char* title;
    std::string text;
};

/// What there is to know about a part, in the same lines for each; without a control they are empty.
std::vector<Fact> Facts_Of_Part(const Part_Window& window, Part_Place place);

/// What an event has cost, and the GDI objects of the process.
/// @param event  what it was; null without one
std::vector<Fact> Facts_Of_Event(const char* event, const Paint_Count& cost);

}  // namespace galdren
