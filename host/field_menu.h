/// @file
/// The context menu of text fields.
#pragma once

#include <windows.h>

#include "../widgets/text.h"

namespace galdren {

/// Shows the menu and waits until it is gone. Meanwhile anything may happen to the field.
/// @param screen  where
/// @return the key that does what was chosen; 0 for nothing
int Ask_Field_Menu(HWND window, POINT screen, Texts& field);

}  // namespace galdren
