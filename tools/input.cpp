#include "tools/input.h"

#include <windows.h>

int ZCursor_X = 0;
int ZCursor_Y = 0;
unsigned int Button_State = 0;

namespace {

/// Bit of a button in `Button_State`; 0 for a number that names no button.
unsigned int Button_Bit(int button) {
    constexpr unsigned int Bits[] = {0, 1, 4, 2};
    return button >= 0 && button <= 3 ? Bits[button] : 0;
}

}  // namespace

void BUTTON_PRESS(int button) { Button_State |= Button_Bit(button); }

void BUTTON_RELEASE(int button) { Button_State &= ~Button_Bit(button); }

void STATE_MASK(int mask) { Button_State = static_cast<unsigned int>(mask); }

int getbutton(int vk) {
    if (vk != VK_LBUTTON && vk != VK_RBUTTON && vk != VK_MBUTTON) return 0;
    return GetAsyncKeyState(vk) < 0 ? 1 : 0;
}

int getkey(int key) {
    constexpr int Toggle_Bit = 1;
    int modifier = 0;
    switch (key) {
        case VK_SHIFT:
        case 64:
        case VK_LSHIFT:
        case VK_RSHIFT:
            modifier = VK_SHIFT;
            break;
        case VK_CONTROL:
        case 32:
        case VK_LCONTROL:
        case VK_RCONTROL:
            modifier = VK_CONTROL;
            break;
        case VK_MENU:
        case VK_LMENU:
        case VK_RMENU:
            modifier = VK_MENU;
            break;
        default:
            return 0;
    }
    return GetKeyState(modifier) & 0xFF & ~Toggle_Bit;
}
