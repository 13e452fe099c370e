/// @file
/// Sizes and places of the items of a layout, worked out from what they need.
#pragma once

#include <windows.h>

#include <vector>

#include "layout.h"

class Part_Window;

namespace galdren {

/// Pixels of the window that a length of the design takes. Every length of a design goes through here.
int Pixels(int design);

/// Notes what an item and all in it need, and which of them take no room.
void Measure(Layout_Item& item, const Part_Window& window);

/// A control and the rectangle that it is to cover, y downward from the top of the client area.
struct Placed_Control {
    unsigned serial;
    RECT area;
};

/// Adds the controls of an item that was measured, in an area that has what it needs.
void Arrange(const Layout_Item& item, const RECT& area, std::vector<Placed_Control>& placed);

}  // namespace galdren
