#include <algorithm>
#include <climits>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string_view>

#include "tools/base.h"
#include "tools/font_cache.h"
#include "tools/keyboard.h"
#include "widgets/text.h"

using namespace galdren;

namespace {

constexpr int Key_Backspace = 8;
constexpr int Key_Enter = 13;
constexpr int Key_Escape = 27;

int Input_Length(const Texts& field) {
    return static_cast<int>(std::find(field.Line, field.Line + Texts::Line_Room - 1, '\0') - field.Line);
}

/// Puts a line of the history into the input line. What cannot be shown becomes a blank.
void Recall(Texts& field, const char* entry) {
    constexpr unsigned char Delete_Character = 127;
    std::strncpy(field.Line, entry, Texts::Line_Room - 1);
    for (char* at = field.Line; *at; ++at) {
        const auto byte = static_cast<unsigned char>(*at);
        if (byte < ' ' || byte == Delete_Character) *at = ' ';
    }
    field.Cursor_Pos = Low_16(Input_Length(field));
}

const char* History_Entry(const Texts& field, int index) {
    return field.History && index >= 0 && index < Texts::Most_History ? field.History[index] : nullptr;
}

/// What the clipboard holds as text, for a scope; nothing when another window has it open.
class Clipboard_Text {
  public:
    explicit Clipboard_Text(HWND window)
        : opened(OpenClipboard(window) != 0),
          block(opened ? GetClipboardData(CF_TEXT) : nullptr),
          bytes(block ? static_cast<const char*>(GlobalLock(block)) : nullptr) {}
    ~Clipboard_Text() {
        if (bytes) GlobalUnlock(block);
        if (opened) CloseClipboard();
    }
    Clipboard_Text(const Clipboard_Text&) = delete;
    Clipboard_Text& operator=(const Clipboard_Text&) = delete;
    /// It may be the block that ends, and not the text.
    std::string_view Get() const { return {bytes, bytes ? strnlen(bytes, GlobalSize(block)) : 0}; }

  private:
    bool opened;
    HGLOBAL block;
    const char* bytes;
};

void Note_Change(Texts& field) {
    if (Has_Flag(field, TEXT_REPORT_CHANGES)) field.Mode |= TEXT_CHANGED;
}

// Edits, which answer whether the input line has to be painted.

bool Move_To(Texts& field, int position) {
    field.Cursor_Pos = Low_16(std::clamp(position, 0, Input_Length(field)));
    return true;
}

bool Erase(Texts& field, int position) {
    const int length = Input_Length(field);
    char* const line = field.Line;
    if (position < length) std::copy(line + position + 1, line + length + 1, line + position);
    field.Cursor_Pos = Low_16(position);
    Note_Change(field);
    return true;
}

bool Insert(Texts& field, char character) {
    char* const line = field.Line;
    if (!field.Accepts(character) || Input_Length(field) >= Texts::Longest_Input) return false;
    if (Has_Flag(field, TEXT_INTEGER) && std::strtol(line, nullptr, 10) == 0) {
        // What is typed over a zero replaces it.
        std::fill_n(line, Texts::Line_Room, '\0');
        field.Cursor_Pos = 0;
    }
    char* const end = line + Texts::Line_Room - 1;
    std::copy_backward(line + field.Cursor_Pos, end - 1, end);
    line[field.Cursor_Pos++] = character;
    *end = '\0';
    Note_Change(field);
    return true;
}

bool Recall_Older(Texts& field) {
    Note_Change(field);
    const char* entry = History_Entry(field, field.History_Pos);
    if (!entry) return false;
    ++field.History_Pos;
    Recall(field, entry);
    return true;
}

/// Goes back by one entry, so that Up and then Down show the same one twice.
bool Recall_Newer(Texts& field) {
    Note_Change(field);
    const char* entry = History_Entry(field, field.History_Pos - 1);
    if (entry) --field.History_Pos;
    Recall(field, entry ? entry : "");
    return true;
}

/// The box of the input line.
Area Input_Area(const Texts& field) {
    return {field.Input_Box[0], field.Input_Box[1], field.Input_Box[3], field.Input_Box[2]};
}

Reach Input_Reach(const Texts& field) { return {Common(Area_Of(field), Input_Area(field))}; }

/// The first character from which a text fits into `room`.
int First_Visible(HFONT font, const char* text, int length, int room) {
    int first = 0;
    for (int beyond = length; first < beyond;) {
        const int middle = (first + beyond) / 2;
        if (Width_Of(font, text + middle) <= room) {
            beyond = middle;
        } else {
            first = middle + 1;
        }
    }
    return first;
}

}  // namespace

void Texts::Read(const char* format, ...) {
    Check(*this, "Text::Read");
    if (!Has_Size(*this)) return;
    // Formatted before the line goes: it may be among the arguments.
    char text[Line_Room] = {};
    va_list arguments;
    va_start(arguments, format);
    if (format && std::vsnprintf(text, sizeof text, format, arguments) < 0) text[0] = '\0';
    va_end(arguments);
    const bool keeps_cursor = Has_Flag(*this, TEXT_REPORT_CHANGES) && Mode & TEXT_READING;
    std::strncpy(Line, text, Line_Room);
    History_Pos = 0;
    Mode = TEXT_READING;
    if (!keeps_cursor) Cursor_Pos = Low_16(Input_Length(*this));
    Draw();
}

char* Texts::Update() {
    if (!Has_Size(*this) || Mode < TEXT_ENTERED) return nullptr;
    Mode = Mode & TEXT_ENTERED ? 0 : Mode & TEXT_READING;
    return Line;
}

void Texts::Input(int key) {
    Check(*this, "Text::Input");
    if (!Has_Size(*this) || Has_Flag(*this, FLAG_NO_BODY | FLAG_PASSIVE)) return;
    if (Take(key)) Read_Echo();
}

/// Acts on a key.
/// @return whether the input line has to be painted
bool Texts::Take(int key) {
    if (!(Mode & TEXT_READING)) return false;
    Cursor_Pos = Low_16(std::clamp<int>(Cursor_Pos, 0, Input_Length(*this)));
    switch (key) {
        case KEY_NAVIGATION | VK_LEFT:
        case KEY_KEYPAD | VK_NUMPAD4:
            return Move_To(*this, Cursor_Pos - 1);
        case KEY_NAVIGATION | VK_RIGHT:
        case KEY_KEYPAD | VK_NUMPAD6:
            return Move_To(*this, Cursor_Pos + 1);
        case KEY_NAVIGATION | VK_HOME:
        case KEY_KEYPAD | VK_NUMPAD7:
            return Move_To(*this, 0);
        case KEY_NAVIGATION | VK_END:
        case KEY_KEYPAD | VK_NUMPAD1:
            return Move_To(*this, Line_Room);
        case KEY_NAVIGATION | VK_UP:
        case KEY_KEYPAD | VK_NUMPAD8:
            return Recall_Older(*this);
        case KEY_NAVIGATION | VK_DOWN:
        case KEY_KEYPAD | VK_NUMPAD2:
            return Recall_Newer(*this);
        case KEY_NAVIGATION | VK_DELETE:
        case KEY_KEYPAD | VK_DELETE:
            return Erase(*this, Cursor_Pos);
        case Key_Backspace:
            return Cursor_Pos > 0 && Erase(*this, Cursor_Pos - 1);
        case Key_Enter:
        case KEY_KEYPAD | Key_Enter:
            return Enter();
        case Key_Escape:
            Mode = 0;
            Rescale_Cursor();
            Draw();
            return false;
        case KEY_CONTROL | 'V':
            return Paste();
        case KEY_KEYPAD | VK_DECIMAL:
            return Insert(*this, '.');
        default:
            return key >= ' ' && key <= UCHAR_MAX && Insert(*this, static_cast<char>(key));
    }
}

/// Takes the clipboard's text as if it were typed.
bool Texts::Paste() {
    bool changed = false;
    if (IsClipboardFormatAvailable(CF_TEXT)) {
        const Clipboard_Text text(Window);
        bool full = false;
        for (const char character : text.Get()) {
            const auto key = static_cast<unsigned char>(character);
            // There may be a megabyte of what has no room.
            if (key >= ' ' && (full || !Accepts(character))) continue;
            changed = Take(key) || changed;
            if (!(Mode & TEXT_READING)) break;
            full = Input_Length(*this) >= Longest_Input;
        }
    }
    Note_Change(*this);
    return changed;
}

/// The frame of the input line and what is in it, while reading.
void Texts::Paint_Input() {
    constexpr int Rings = 2;
    if (!(Mode & TEXT_READING)) return;
    Canvas canvas(*this, Input_Reach(*this));
    const Area box = Input_Area(*this);
    if (box.left <= box.right)
        Paint_Frame(canvas, Color, 1, true, Rings, {box.left, box.right, box.bottom, box.top - 1});
    Read_Echo();
}

bool Texts::Accepts(char character) const {
    const auto is_one_of = [character](const char* set) { return character && std::strchr(set, character); };
    if (Has_Flag(*this, TEXT_FLOAT) && !is_one_of("0123456789+-.e")) return false;
    if (Has_Flag(*this, TEXT_INTEGER) && !is_one_of("0123456789+-")) return false;
    return !Has_Flag(*this, TEXT_HEXADECIMAL) || is_one_of("0123456789abcdefABCDEF");
}

void Texts::Show_Caret(Text_Caret how) {
    Check(*this, "Texts::Show_Caret");
    const bool changes = Caret != how;
    Caret = how;
    if (changes && Has_Size(*this)) Read_Echo();
}

/// What is in the input line, while reading. A console that only writes has none, and its box would stand on
/// the output.
void Texts::Read_Echo() {
    constexpr int Text_Gap = 4;
    constexpr int Caret_Gap = 3;
    const Area box = Input_Area(*this);
    const int border = Frame_Width(*this);
    if (!(Mode & TEXT_READING) || box.right < box.left) return;
    Canvas canvas(*this, Input_Reach(*this));
    Paint_Body(canvas, *this, Select_State == Hover_Highlighted, nullptr, Flag, border + 1, box);

    char text[Line_Room] = {};
    std::copy_n(Line, Input_Length(*this), text);
    if (Has_Flag(*this, TEXT_PASSWORD)) std::fill_n(text, Input_Length(*this), '#');
    char before_caret[Line_Room] = {};
    const int cursor = std::clamp<int>(Cursor_Pos, 0, Input_Length(*this));
    std::copy_n(text, cursor, before_caret);
    const int room = box.right - box.left - 4 * border;
    const int first = First_Visible(Bold_Font, before_caret, cursor, room);

    const Canvas::Narrow_Clip clip = canvas.Narrow(box.Inset(border));
    const int left = box.left + border;
    if (Caret == CARET_SHOWN || (Caret == CARET_AT_POINTER && Select_State == Hover_Highlighted)) {
        const int caret = left + Width_Of(Bold_Font, before_caret + first) + Caret_Gap;
        canvas.Column(caret, box.bottom + border + 2, box.top - border - 2, canvas.Look().Mark);
        canvas.Column(caret + 1, box.bottom + border + 2, box.top - border - 2, canvas.Look().Mark);
    }
    const int height = Metrics_Of(Bold_Font).tmHeight;
    const int y = box.bottom + (box.top - box.bottom - height) / 2;
    canvas.Write_Run(Bold_Font, text + first, left + Text_Gap, y, canvas.Look().Caption);
}
