#include "tools/keyboard.h"

#include <span>

#include "tools/input.h"

namespace {

/// Where a key comes from: extended or plain in WM_KEYDOWN, with Alt, or in a dialog.
enum Source { Extended = 1, Plain = 2, With_Alt = 4, In_Dialog = 8 };

/// The virtual keys `first` to `last`, each of which gives its own number with `bits`. VK_PRIOR to VK_DOWN
/// are Page Up, Page Down, End, Home and the arrows, VK_SUBTRACT to VK_DIVIDE also the decimal key.
struct Key_Range {
    int first, last;
    int bits;
    int sources;

    /// Whether the character that follows tells nothing new.
    bool Swallows() const { return bits == 0 || bits == KEY_KEYPAD; }
};

/// Beside letters, digits and `Keypad_Without_Numlock`.
constexpr Key_Range Key_Ranges[] = {
    {VK_PRIOR, VK_DOWN, KEY_NAVIGATION, Extended | With_Alt | In_Dialog},
    {VK_INSERT, VK_DELETE, KEY_NAVIGATION, Extended | With_Alt | In_Dialog},
    {VK_F1, VK_F12, KEY_NAVIGATION, Plain | With_Alt},
    {VK_SCROLL, VK_SCROLL, KEY_NAVIGATION, Plain},
    {VK_BACK, VK_TAB, 0, Plain},
    {VK_RETURN, VK_RETURN, 0, Plain},
    {VK_RETURN, VK_RETURN, KEY_KEYPAD, Extended},
    {VK_DELETE, VK_DELETE, KEY_KEYPAD, Plain},
    {VK_MULTIPLY, VK_ADD, KEY_KEYPAD, Extended | Plain},
    {VK_SUBTRACT, VK_DIVIDE, KEY_KEYPAD, Extended | Plain},
    {VK_NUMPAD0, VK_NUMPAD9, KEY_KEYPAD_DIGIT, Plain},
};

struct Pair {
    int from, to;
};

/// Without NumLock the keypad's digits are the navigation keys, though not extended.
constexpr Pair Keypad_Without_Numlock[] = {
    {VK_PRIOR, VK_NUMPAD9}, {VK_NEXT, VK_NUMPAD3}, {VK_END, VK_NUMPAD1},
    {VK_HOME, VK_NUMPAD7},  {VK_LEFT, VK_NUMPAD4}, {VK_UP, VK_NUMPAD8},
    {VK_RIGHT, VK_NUMPAD6}, {VK_DOWN, VK_NUMPAD2}, {VK_INSERT, VK_NUMPAD0},
};

/// The keypad with Alt held, by scan word.
constexpr Pair Keypad_With_Alt[] = {
    {8247, VK_MULTIPLY}, {8263, VK_NUMPAD7}, {8264, VK_NUMPAD8}, {8265, VK_NUMPAD9}, {8266, VK_SUBTRACT},
    {8267, VK_NUMPAD4},  {8268, VK_NUMPAD5}, {8269, VK_NUMPAD6}, {8270, VK_ADD},     {8271, VK_NUMPAD1},
    {8272, VK_NUMPAD2},  {8273, VK_NUMPAD3}, {8274, VK_NUMPAD0}, {8275, VK_DECIMAL}, {8501, VK_DIVIDE},
};

/// Scan word of the 5 of the keypad, which without NumLock is no navigation key.
constexpr int Keypad_5 = 76;

struct Dialog_Key {
    int key;
    char alone, with_shift;
};

constexpr Dialog_Key Dialog_Keys[] = {
    {'0', '0', ')'}, {'1', '1', '!'}, {'2', '2', '@'},  {'3', '3', '#'}, {'4', '4', '$'},
    {'5', '5', '%'}, {'6', '6', '^'}, {'7', '7', '&'},  {'8', '8', '*'}, {'9', '9', '('},
    {187, '=', '+'}, {189, '-', '_'}, {220, '\\', '|'},
};

constexpr int Letter_Case = 'a' - 'A';

/// Set when a key that went down gave its code already, so that its character gives none.
bool Key_Swallow = false;

constexpr bool Is_Digit(int key) { return key >= '0' && key <= '9'; }
constexpr bool Is_Capital(int key) { return key >= 'A' && key <= 'Z'; }

int Scan_Word(long long lparam) { return static_cast<int>(lparam >> 16 & 0xFFFF); }
bool Is_Extended(long long lparam) { return (lparam & 1 << 24) != 0; }

/// The range that holds a key from `source`; null when there is none.
const Key_Range* Find(Source source, int key) {
    for (const Key_Range& range : Key_Ranges) {
        if (range.sources & source && key >= range.first && key <= range.last) return &range;
    }
    return nullptr;
}

/// What the table gives for `from`; 0 when it is not in the table.
int Look_Up(std::span<const Pair> table, int from) {
    for (const Pair& pair : table) {
        if (pair.from == from) return pair.to;
    }
    return 0;
}

/// The bits of those modifiers among `asked` that are down. Each one asked for may be a request to another
/// process, so nobody asks for more than it needs.
int Modifiers(int asked = KEY_SHIFT | KEY_CONTROL | KEY_ALT) {
    int held = 0;
    if (asked & KEY_SHIFT && getkey(VK_SHIFT)) held |= KEY_SHIFT;
    if (asked & KEY_CONTROL && getkey(VK_CONTROL)) held |= KEY_CONTROL;
    if (asked & KEY_ALT && getkey(VK_MENU)) held |= KEY_ALT;
    return held;
}

int Ask_To_Close(HWND window) {
    PostMessageA(window, WM_CLOSE, 0, 0);
    return 0;
}

/// Digits give their code when the key goes down, letters only with Ctrl: other letters are characters.
int Parse_Letter_Or_Digit(int key) {
    if (!Is_Digit(key) && !Is_Capital(key)) return 0;
    const int control = Modifiers(KEY_CONTROL);
    if (Is_Capital(key) && !control) return 0;
    Key_Swallow = control != 0;
    return key | control | Modifiers(KEY_SHIFT | KEY_ALT);
}

int Parse_Key_Down(int key, long long lparam) {
    // Not every key that gave its code has a character; the next key must not lose its own for that.
    Key_Swallow = false;
    if (Scan_Word(lparam) == Keypad_5) return Modifiers() | KEY_KEYPAD | VK_NUMPAD5;
    const bool extended = Is_Extended(lparam);
    if (!extended) {
        if (key == VK_SHIFT || key == VK_CONTROL) return key;
        const int digit = Look_Up(Keypad_Without_Numlock, key);
        if (digit) return Modifiers() | KEY_KEYPAD | digit;
    }
    const Key_Range* range = Find(extended ? Extended : Plain, key);
    if (!range) return extended ? 0 : Parse_Letter_Or_Digit(key);
    Key_Swallow = range->Swallows();
    return Modifiers() | range->bits | key;
}

int Parse_Key_Up(int key) {
    // The system tells of them only when they go up.
    const bool prints = key == VK_PRINT || key == VK_SNAPSHOT;
    return prints ? Modifiers() | KEY_NAVIGATION | VK_PRINT : 0;
}

int Parse_Character(HWND window, int character) {
    if (character == VK_ESCAPE) return Ask_To_Close(window);
    if (Key_Swallow) {
        Key_Swallow = false;
        return 0;
    }
    return Is_Digit(character) ? 0 : character | Modifiers(KEY_CONTROL | KEY_ALT);
}

int Parse_System_Key(int key, long long lparam) {
    const int keypad = Look_Up(Keypad_With_Alt, Scan_Word(lparam));
    if (keypad) return KEY_ALT | KEY_KEYPAD | keypad;
    if (key == VK_MENU) return key;
    if (key == VK_RETURN || key == VK_SEPARATOR)
        return Modifiers() | VK_RETURN | (Is_Extended(lparam) ? KEY_KEYPAD : 0);
    const Key_Range* range = Find(With_Alt, key);
    return Modifiers() | (range ? range->bits : 0) | key;
}

/// Letters are small ones unless Shift is down.
int Parse_Dialog_Letter(int key, bool shift) {
    if (shift && key >= 'a' && key <= 'z') return key - Letter_Case;
    if (!shift && Is_Capital(key)) return key + Letter_Case;
    return key;
}

int Parse_Dialog_Key(HWND window, int key) {
    if (key == VK_ESCAPE) return Ask_To_Close(window);
    if (const Key_Range* range = Find(In_Dialog, key)) return range->bits | key;
    if (key == VK_NUMPAD0) return '0';
    if (key == VK_NUMPAD9) return '9';
    const bool shift = Modifiers(KEY_SHIFT) != 0;
    for (const Dialog_Key& known : Dialog_Keys) {
        if (key == known.key) return shift ? known.with_shift : known.alone;
    }
    return Parse_Dialog_Letter(key, shift) | Modifiers(KEY_CONTROL | KEY_ALT);
}

/// A code has no room for characters beyond, which come to windows that were made for UTF-16.
constexpr unsigned long long Last_Character = 0xFF;

}  // namespace

int Parse_Keyboard(HWND window, unsigned int message, unsigned long long wparam, long long lparam) {
    if (wparam > Last_Character) return 0;
    const int key = static_cast<int>(wparam);
    switch (message) {
        case WM_KEYDOWN:
            return Parse_Key_Down(key, lparam);
        case WM_KEYUP:
            return Parse_Key_Up(key);
        case WM_CHAR:
            return Parse_Character(window, key);
        case WM_SYSKEYDOWN:
            return Parse_System_Key(key, lparam);
        default:
            return 0;
    }
}

int Parse_Dialog(HWND window, unsigned int message, unsigned long long wparam, long long) {
    if (message != WM_KEYDOWN || wparam > Last_Character) return 0;
    return Parse_Dialog_Key(window, static_cast<int>(wparam));
}
