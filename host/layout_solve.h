/// @file
/// Sizes and places of the items of a layout, worked out from what they need.
#pragma once

#include <windows.h>

#include <vector>

#include "layout.h"

class Part_Window;

namespace galdren {

/// Notes what an item and all in it need at a scale, in percent, and which of them take no room.
void Measure(Layout_Item& item, const Part_Window& window, int scale);

/// A control and the rectangle that it is to cover, y downward from the top of the client area.
struct Placed_Control {
    unsigned serial;
    RECT area;
};

/// Adds the controls of an item that was measured, in an area that has what it needs.
void Arrange(const Layout_Item& item, const RECT& area, std::vector<Placed_Control>& placed);

}  // namespace galdren
