/// @file
/// Keys for tests.
#pragma once

#include <initializer_list>

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

/// Types keys as a person does: each goes down and up again, for the window that has the keyboard then.
/// @param keys  virtual keys, with the modifiers that are held (KEY_SHIFT and its like)
inline void Type_Keys(std::initializer_list<int> keys) {
    const auto send = [](int key, DWORD flags) {
        INPUT input{};
        input.type = INPUT_KEYBOARD;
        input.ki.wVk = static_cast<WORD>(key);
        input.ki.wScan = static_cast<WORD>(MapVirtualKeyA(input.ki.wVk, MAPVK_VK_TO_VSC));
        input.ki.dwFlags = flags;
        SendInput(1, &input, sizeof input);
    };
    constexpr int modifiers[][2] = {{KEY_SHIFT, VK_SHIFT}, {KEY_CONTROL, VK_CONTROL}, {KEY_ALT, VK_MENU}};
    for (const int key : keys) {
        for (const auto& [bit, modifier] : modifiers)
            if (key & bit) send(modifier, 0);
        send(key & 0xFF, 0);
        send(key & 0xFF, KEYEVENTF_KEYUP);
        for (const auto& [bit, modifier] : modifiers)
            if (key & bit) send(modifier, KEYEVENTF_KEYUP);
    }
}

}  // namespace galdren_test
