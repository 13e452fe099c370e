/// @file
/// A ring around what the keyboard works, above everything that controls paint.
#pragma once

#include <windows.h>

#include "api.h"

/// Shows a ring of two pixels, dark outside and light inside, around a rectangle of a window. It is on the
/// window alone, not in pictures that are held, and stays above whatever members paint. There is one ring in
/// a process, as there is one keyboard: one shown before is forgotten, and what it covered is to be painted
/// anew by whoever showed it.
/// @param area  what is inside the ring, like `Tools::Rect`: logical pixels, `top` the lower y
GALDREN_TOOLS_API void Set_Ring(HWND window, const RECT& area);

/// Forgets the ring of a window; one of another window stays.
GALDREN_TOOLS_API void Clear_Ring(HWND window);

namespace galdren {

/// Width of the ring in pixels.
constexpr int Ring_Width = 2;

/// Whether a window has the ring.
bool Has_Ring(HWND window);

/// Paints the ring again where something was painted.
/// @param dc       a context of the window, in pixels of the client area
/// @param painted  in pixels of the client area, y downward
void Paint_Ring(HWND window, HDC dc, const RECT& painted);

}  // namespace galdren
