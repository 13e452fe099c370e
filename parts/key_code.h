/// @file
/// Messages of the keyboard turned into what a key means in a window with controls.
#pragma once

#include <windows.h>

#include <optional>

#include "part.h"

namespace galdren {

/// The code of a key message, as `Parse_Keyboard` gives it. Escape is 27, a key like any other: nothing is
/// closed.
int Key_Code(HWND window, UINT message, WPARAM wparam, LPARAM lparam);

/// What a key means to what it is pressed in, so that each key acts once. The parser gives digits when their
/// key goes down, and tells the keypad's keys from the others; here each is the character that the keyboard's
/// layout makes of it.
/// @param code  the `Key_Code` of the message
/// @return the code, or 0 when this message of the key means nothing
int Typed_Key(UINT message, WPARAM wparam, int code);

/// Where an arrow and its like leads, with Shift or without; nothing for any other key. Without NumLock the
/// keypad has them too.
/// @param code  a `Key_Code`
std::optional<Part_Move> Move_Of(int code);

/// Whether a message comes from a key that is held down and repeats.
inline bool Is_Repeated(LPARAM lparam) { return (lparam & 1 << 30) != 0; }

}  // namespace galdren
