/// @file
/// The input method of a window: what is composed before it becomes text. Loaded when it is used first, for
/// applications link the host, and would have to link its library too.
#pragma once

#include <windows.h>

#include <string>

namespace galdren {

/// Has what is composed stand at a place.
/// @param place  top left of the caret, in pixels of the client area
/// @param font   in which it is shown; null leaves that to the system
void Place_Composition(HWND window, POINT place, HFONT font);

/// The text that WM_IME_COMPOSITION brings with GCS_RESULTSTR.
std::wstring Composed_Text(HWND window);

/// Has what is composed become text now.
void Finish_Composition(HWND window);

}  // namespace galdren
