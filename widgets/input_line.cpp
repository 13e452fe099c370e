#include "widgets/input_line.h"

#include <algorithm>
#include <climits>
#include <cstdlib>

#include "tools/arithmetic.h"
#include "tools/keyboard.h"
#include "widgets/text_lines.h"

namespace galdren {

namespace {

constexpr int Key_Backspace = 8;

bool Is_One_Of(char character, std::string_view set) { return set.find(character) != set.npos; }

/// What cannot be shown becomes a blank.
char Shown(char character) {
    constexpr unsigned char Delete_Character = 127;
    const auto byte = static_cast<unsigned char>(character);
    return byte < ' ' || byte == Delete_Character ? ' ' : character;
}

}  // namespace

Input_Line::Input_Line(Text_Fields& fields, unsigned long style) : field(fields), flag(style) {
    // The application may have written another line.
    field.Cursor_Pos = Low_16(std::clamp<int>(field.Cursor_Pos, 0, Length()));
}

int Input_Line::Length() const {
    return static_cast<int>(std::find(field.Line, field.Line + Text_Fields::Line_Room - 1, '\0') -
                            field.Line);
}

bool Passes_Filters(unsigned long flag, char character) {
    if (flag & TEXT_FLOAT && !Is_One_Of(character, "0123456789+-.e")) return false;
    if (flag & TEXT_INTEGER && !Is_One_Of(character, "0123456789+-")) return false;
    return !(flag & TEXT_HEXADECIMAL) || Is_One_Of(character, "0123456789abcdefABCDEF");
}

bool Input_Line::Take(int key) {
    switch (key) {
        case KEY_NAVIGATION | VK_LEFT:
        case KEY_KEYPAD | VK_NUMPAD4:
            return Move_To(field.Cursor_Pos - 1);
        case KEY_NAVIGATION | VK_RIGHT:
        case KEY_KEYPAD | VK_NUMPAD6:
            return Move_To(field.Cursor_Pos + 1);
        case KEY_NAVIGATION | VK_HOME:
        case KEY_KEYPAD | VK_NUMPAD7:
            return Move_To(0);
        case KEY_NAVIGATION | VK_END:
        case KEY_KEYPAD | VK_NUMPAD1:
            return Move_To(Length());
        case KEY_NAVIGATION | VK_UP:
        case KEY_KEYPAD | VK_NUMPAD8:
            return Recall_Older();
        case KEY_NAVIGATION | VK_DOWN:
        case KEY_KEYPAD | VK_NUMPAD2:
            return Recall_Newer();
        case KEY_NAVIGATION | VK_DELETE:
        case KEY_KEYPAD | VK_DELETE:
            return Erase(field.Cursor_Pos);
        case Key_Backspace:
            return field.Cursor_Pos > 0 && Erase(field.Cursor_Pos - 1);
        case KEY_KEYPAD | VK_DECIMAL:
            return Insert('.');
        default:
            return key >= ' ' && key <= UCHAR_MAX && Insert(static_cast<char>(key));
    }
}

void Input_Line::Remember() {
    const Kept_Texts history = History_Of(field);
    if (!history.Make()) return;
    history.Begin();
    history.Put(Text());
}

void Input_Line::Note_Change() {
    if (flag & TEXT_REPORT_CHANGES) field.Mode |= TEXT_CHANGED;
}

bool Input_Line::Move_To(int position) {
    field.Cursor_Pos = Low_16(std::clamp(position, 0, Length()));
    return true;
}

bool Input_Line::Erase(int position) {
    const int length = Length();
    char* const line = field.Line;
    if (position < length) std::copy(line + position + 1, line + length + 1, line + position);
    field.Cursor_Pos = Low_16(position);
    Note_Change();
    return true;
}

bool Input_Line::Insert(char character) {
    char* const line = field.Line;
    if (!Passes_Filters(flag, character) || Is_Full()) return false;
    if (flag & TEXT_INTEGER && std::strtol(line, nullptr, 10) == 0) {
        // What is typed over a zero replaces it.
        std::fill_n(line, Text_Fields::Line_Room, '\0');
        field.Cursor_Pos = 0;
    }
    char* const end = line + Text_Fields::Line_Room - 1;
    std::copy_backward(line + field.Cursor_Pos, end - 1, end);
    line[field.Cursor_Pos++] = character;
    *end = '\0';
    Note_Change();
    return true;
}

bool Input_Line::Recall_Older() {
    Note_Change();
    const char* const entry = History_Of(field).At(field.History_Pos);
    if (!entry) return false;
    ++field.History_Pos;
    Recall(entry);
    return true;
}

/// Goes back by one entry, so that Up and then Down show the same one twice.
bool Input_Line::Recall_Newer() {
    Note_Change();
    const char* const entry = History_Of(field).At(field.History_Pos - 1);
    if (entry) --field.History_Pos;
    Recall(entry ? entry : "");
    return true;
}

void Input_Line::Recall(std::string_view entry) {
    char* const end = field.Line + entry.copy(field.Line, Text_Fields::Line_Room - 1);
    std::transform(field.Line, end, field.Line, Shown);
    std::fill(end, field.Line + Text_Fields::Line_Room, '\0');
    field.Cursor_Pos = Low_16(Length());
}

}  // namespace galdren
