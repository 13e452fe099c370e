/// @file
/// Painting helpers on the surface in use. All of them belong between `Begin_Draw` and `End_Draw`, paint in
/// `Current_Color` and leave selected what was selected; `Draw_Box` changes the colour of the stock DC brush.
#pragma once

#include "api.h"

/// Line from the current position to (x, y), which becomes the current position and is not painted.
/// @param width  width of the line in pixels
GALDREN_TOOLS_API void Draw_Line(int x, int y, int width);

/// Filled rectangle with the corners (left, bottom) and (right, top). The column `right` and the row
/// `bottom` are not painted.
GALDREN_TOOLS_API void Draw_Box(int left, int top, int right, int bottom);

/// Outline of one pixel through (x_a, y_a), (x_a, y_b), (x_b, y_b), (x_b, y_a), all four painted.
GALDREN_TOOLS_API void Draw_Frame(int x_a, int y_a, int x_b, int y_b);
