/// @file
/// Buttons as the items of a list, of which there may be thousands.
#pragma once

#include <windows.h>

#include <cstddef>
#include <span>

class Buttons;

namespace galdren {

/// Initialises the buttons of a list, which differ in name, value and place at most unless the application
/// made them differ. They get no regions: nobody reads those of items, and Windows gives a process no more
/// than 10,000 handles.
void Init_Without_Regions(std::span<Buttons* const> buttons, HWND window);

/// All that decides how a button looks, its place aside.
struct Look_Of_Button {
    const unsigned long* body;
    HFONT font;
    std::size_t name;  ///< hash of the caption
    unsigned long flag, color;
    int width, height, border;
    short value, lamp;
    bool highlighted;
    bool operator==(const Look_Of_Button&) const = default;
};

/// Brings the fields of a button to what `Draw` makes them, for one that need not be painted.
/// @param inside  whether the pointer is inside it
/// @return how it looks
Look_Of_Button Settle_Look(Buttons& button, bool inside);

}  // namespace galdren
