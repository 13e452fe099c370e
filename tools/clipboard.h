/// @file
/// Text on the clipboard. Neither reading nor writing waits for a window that has it open.
#pragma once

#include <windows.h>

#include <string>
#include <string_view>

namespace galdren {

/// What the clipboard holds as text, in the code page of texts and up to the first zero; nothing when another
/// window has it open, and without memory.
/// @param window  that asks
std::string Clipboard_Text(HWND window);

/// Whether it holds text.
bool Has_Clipboard_Text();

/// Puts a text on the clipboard, as UTF-16 and as bytes for programs that ask for these.
/// @return false when it cannot be had, or without memory; then it keeps what it has
bool Set_Clipboard_Text(HWND window, std::string_view text);

}  // namespace galdren
