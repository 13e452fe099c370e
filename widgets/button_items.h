/// @file
/// Buttons as the items of a list, of which there may be thousands.
#pragma once

#include <span>

#include "widgets/button.h"

namespace galdren {

/// Initialises the buttons of a list, which differ in name, value and place at most unless the application
/// made them differ. They get no regions: nobody reads those of items, and Windows gives a process no more
/// than 10,000 handles.
void Init_Without_Regions(std::span<Buttons* const> buttons, HWND window);

}  // namespace galdren
