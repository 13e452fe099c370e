/// @file
/// Fonts shared by all controls that ask for the same words and size.
#pragma once

#include <windows.h>

namespace galdren {

/// The font that `Z_Create_Font` would make, shared with every other holder.
HFONT Acquire_Font(HWND window, const char* face, const char* weight, const char* style, short points);

/// Notes one more holder of a font, made by either function.
void Share_Font(HFONT font);

}  // namespace galdren
