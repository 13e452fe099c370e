#include "tools/input.h"

#include <windows.h>

#include <algorithm>
#include <iterator>

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
    // Each modifier by its number, by an older one, and by those of the keys on either side.
    constexpr int Modifiers[][4] = {{VK_SHIFT, 64, VK_LSHIFT, VK_RSHIFT},
                                    {VK_CONTROL, 32, VK_LCONTROL, VK_RCONTROL},
                                    {VK_MENU, VK_MENU, VK_LMENU, VK_RMENU}};
    for (const auto& names : Modifiers) {
        if (std::find(std::begin(names), std::end(names), key) != std::end(names))
            return GetKeyState(names[0]) & 0xFF & ~Toggle_Bit;
    }
    return 0;
}
