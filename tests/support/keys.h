/// @file
/// Modifier keys for tests.
#pragma once

#include "Galdren_Tools.h"

namespace galdren_test {

/// From now on the keys of `modifiers` (KEY_SHIFT and its like) are down for this thread, and no others.
inline void Hold_Keys(int modifiers) {
    constexpr BYTE down = 0x80;
    BYTE keys[256] = {};
    if (modifiers & KEY_SHIFT) keys[VK_SHIFT] = down;
    if (modifiers & KEY_CONTROL) keys[VK_CONTROL] = down;
    if (modifiers & KEY_ALT) keys[VK_MENU] = down;
    SetKeyboardState(keys);
}

}  // namespace galdren_test
