/// @file
/// A ring around what the keyboard works, and an outline around what an inspector tells about, above
/// everything that controls paint.
#pragma once

#include <windows.h>

#include "api.h"

/// Shows a ring of two lines, dark outside and light inside, around a rectangle of a window. It is on the
/// window alone, not in pictures that are held, and stays above whatever members paint. There is one ring in
/// a process, as there is one keyboard: one shown before is forgotten, and what it covered is to be painted
/// anew by whoever showed it.
/// @param area  what is inside the ring, like `Tools::Rect`: logical pixels, `top` the lower y
/// @param line  thickness of each line in pixels; below 1 counts as 1
GALDREN_TOOLS_API void Set_Ring(HWND window, const RECT& area, int line = 1);

/// Forgets the ring of a window; one of another window stays.
GALDREN_TOOLS_API void Clear_Ring(HWND window);

/// Shows an outline, red outside and light inside, as `Set_Ring` does a ring, and above it. There is one
/// outline in a process, as there is one pointer.
GALDREN_TOOLS_API void Set_Outline(HWND window, const RECT& area);

/// Forgets the outline of a window; one of another window stays.
GALDREN_TOOLS_API void Clear_Outline(HWND window);

namespace galdren {

/// Width of a ring with lines of one pixel, and of the outline.
constexpr int Ring_Width = 2;

/// Whether a window has the ring or the outline.
bool Has_Rings(HWND window);

/// Paints ring and outline again where something was painted.
/// @param dc       a context of the window, in pixels of the client area
/// @param painted  in pixels of the client area, y downward
void Paint_Rings(HWND window, HDC dc, const RECT& painted);

}  // namespace galdren
