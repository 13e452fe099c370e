/// @file
/// Keyboard messages turned into key codes: one integer for each key, which the controls understand. Plain
/// state of the process, for the thread that runs the windows; nothing is locked.
///
/// The low eight bits of a code are a character or the number of a virtual key; the bits above say which,
/// and which modifiers were down. A code fits in 16 bits.
#pragma once

#include <windows.h>

#include "api.h"

constexpr int KEY_SHIFT = 256;            ///< Shift was down
constexpr int KEY_CONTROL = 512;          ///< Ctrl was down
constexpr int KEY_ALT = 1024;             ///< Alt was down
constexpr int KEY_NAVIGATION = 0x800;     ///< a virtual key that moves or edits, or a function key
constexpr int KEY_KEYPAD = 0x1000;        ///< a virtual key of the numeric keypad
constexpr int KEY_KEYPAD_DIGIT = 0x2000;  ///< a digit of the numeric keypad, typed with NumLock on

/// Key code of a message of an ordinary window; docs/keys.md has the tables.
///
/// It is to see each of the messages WM_KEYDOWN, WM_KEYUP, WM_CHAR and WM_SYSKEYDOWN once and in their order:
/// a key that goes down may have its code already, and the character that follows then gives none. Escape
/// posts WM_CLOSE to the window.
/// @param window   the window that got the message
/// @param message  any message
/// @param wparam   of the message: the virtual key or the character
/// @param lparam   of the message
/// @return the code, or 0 when the message gives none
GALDREN_TOOLS_API int Parse_Keyboard(HWND window, unsigned int message, unsigned long long wparam,
                                     long long lparam);

/// Key code of a message of a dialog, where only WM_KEYDOWN gives codes: a dialog has no characters, so
/// letters, digits and some signs are made from the keys, as a US keyboard has them. Escape posts WM_CLOSE to
/// the dialog. Parameters and result are those of `Parse_Keyboard`.
GALDREN_TOOLS_API int Parse_Dialog(HWND window, unsigned int message, unsigned long long wparam,
                                   long long lparam);
