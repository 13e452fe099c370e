#include "parts/key_code.h"

#include "tools/input.h"
#include "tools/keyboard.h"

namespace {

bool Is_Digit(int code) { return code >= '0' && code <= '9'; }

/// AltGr is Ctrl and Alt to the system.
bool Is_Alt_Gr_Down() { return getkey(VK_CONTROL) && getkey(VK_MENU); }

}  // namespace

namespace galdren {

int Key_Code(HWND window, UINT message, WPARAM wparam, LPARAM lparam) {
    // The parser would have the window closed.
    if (message == WM_CHAR && wparam == VK_ESCAPE) return VK_ESCAPE;
    return Parse_Keyboard(window, message, wparam, lparam);
}

int Typed_Key(UINT message, WPARAM wparam, int code) {
    if (message == WM_CHAR) {
        const int character = wparam > 0xFF ? 0 : static_cast<int>(wparam);
        return Is_Digit(character) || (character >= ' ' && Is_Alt_Gr_Down()) ? character : code;
    }
    const int key = code & ~KEY_SHIFT;
    if (Is_Digit(key) || key & KEY_KEYPAD_DIGIT) return 0;  // the character follows
    constexpr char Operators[] = "*+,-./";
    const int operation = key - (KEY_KEYPAD | VK_MULTIPLY);
    return operation >= 0 && operation <= VK_DIVIDE - VK_MULTIPLY ? Operators[operation] : code;
}

}  // namespace galdren
