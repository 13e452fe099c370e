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

std::optional<Part_Move> Move_Of(int code) {
    struct Row {
        int key, on_keypad;
        Part_Move move;
    };
    constexpr Row Rows[] = {
        {VK_LEFT, VK_NUMPAD4, Part_Move::Left},     {VK_RIGHT, VK_NUMPAD6, Part_Move::Right},
        {VK_UP, VK_NUMPAD8, Part_Move::Up},         {VK_DOWN, VK_NUMPAD2, Part_Move::Down},
        {VK_PRIOR, VK_NUMPAD9, Part_Move::Page_Up}, {VK_NEXT, VK_NUMPAD3, Part_Move::Page_Down},
        {VK_HOME, VK_NUMPAD7, Part_Move::Home},     {VK_END, VK_NUMPAD1, Part_Move::End},
    };
    const int alone = code & ~KEY_SHIFT;
    for (const Row& row : Rows) {
        if (alone == (KEY_NAVIGATION | row.key) || alone == (KEY_KEYPAD | row.on_keypad)) return row.move;
    }
    return {};
}

}  // namespace galdren
