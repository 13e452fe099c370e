#include <algorithm>
#include <cctype>
#include <cstdarg>
#include <cstdlib>
#include <cstring>
#include <string_view>

#include "tools/base.h"
#include "tools/font_cache.h"
#include "tools/keyboard.h"
#include "tools/sharing.h"
#include "widgets/text.h"
#include "widgets/text_parts.h"

using namespace galdren;

namespace {

constexpr int Key_Backspace = 8;
constexpr int Key_Enter = 13;
constexpr int Key_Escape = 27;
constexpr int Key_Paste = KEY_CONTROL | 'V';
constexpr int Key_Keypad_Point = KEY_KEYPAD | VK_DECIMAL;

/// A navigation key, on its own or on the keypad without NumLock.
enum class Motion { None, Left, Right, Home, End, Up, Down, Delete };

Motion Motion_Of(int key) {
    struct Row {
        int key;
        int keypad;
        Motion motion;
    };
    static constexpr Row Motions[] = {
        {KEY_NAVIGATION | VK_LEFT, KEY_KEYPAD | VK_NUMPAD4, Motion::Left},
        {KEY_NAVIGATION | VK_RIGHT, KEY_KEYPAD | VK_NUMPAD6, Motion::Right},
        {KEY_NAVIGATION | VK_HOME, KEY_KEYPAD | VK_NUMPAD7, Motion::Home},
        {KEY_NAVIGATION | VK_END, KEY_KEYPAD | VK_NUMPAD1, Motion::End},
        {KEY_NAVIGATION | VK_UP, KEY_KEYPAD | VK_NUMPAD8, Motion::Up},
        {KEY_NAVIGATION | VK_DOWN, KEY_KEYPAD | VK_NUMPAD2, Motion::Down},
        {KEY_NAVIGATION | VK_DELETE, KEY_KEYPAD | VK_DELETE, Motion::Delete},
    };
    for (const Row& row : Motions) {
        if (key == row.key || key == row.keypad) return row.motion;
    }
    return Motion::None;
}

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

/// The clipboard for a scope; it stays closed when another window has it open.
class Open_Clipboard {
  public:
    explicit Open_Clipboard(HWND window) : opened(OpenClipboard(window) != 0) {}
    ~Open_Clipboard() {
        if (opened) CloseClipboard();
    }
    Open_Clipboard(const Open_Clipboard&) = delete;
    Open_Clipboard& operator=(const Open_Clipboard&) = delete;
    HGLOBAL Text() const { return opened ? GetClipboardData(CF_TEXT) : nullptr; }

  private:
    bool opened;
};

/// Global memory locked for a scope.
class Locked_Memory {
  public:
    explicit Locked_Memory(HGLOBAL block)
        : handle(block), bytes(block ? static_cast<const char*>(GlobalLock(block)) : nullptr) {}
    ~Locked_Memory() {
        if (bytes) GlobalUnlock(handle);
    }
    Locked_Memory(const Locked_Memory&) = delete;
    Locked_Memory& operator=(const Locked_Memory&) = delete;
    const char* begin() const { return bytes; }
    /// The end of the text, or of the block when it does not end itself.
    const char* end() const { return bytes ? std::find(bytes, bytes + GlobalSize(handle), '\0') : nullptr; }

  private:
    HGLOBAL handle;
    const char* bytes;
};

/// What of the input line fits into its box.
struct Visible_Input {
    char text[Texts::Line_Room];  ///< what is shown, "#" for every character of a password
    char before_caret[Texts::Line_Room];
};

/// Begins as far left as the cursor allows.
Visible_Input Fit_Input(const Texts& field, const char* line, int cursor, int room) {
    Visible_Input all{};
    std::strncpy(all.text, line, sizeof all.text - 1);
    if (Has_Flag(field, TEXT_PASSWORD)) std::fill_n(all.text, std::strlen(all.text), '#');
    std::copy_n(all.text, cursor, all.before_caret);
    int first = 0;
    for (int beyond = cursor; first < beyond;) {
        const int middle = (first + beyond) / 2;
        if (Width_Of(field.Bold_Font, all.before_caret + middle) <= room) {
            beyond = middle;
        } else {
            first = middle + 1;
        }
    }
    Visible_Input visible{};
    std::strcpy(visible.text, all.text + first);
    std::strcpy(visible.before_caret, all.before_caret + first);
    return visible;
}

}  // namespace

void Texts::Read(const char* format, ...) {
    Check(*this, "Text::Read");
    if (!Has_Size(*this)) return;
    // Formatted before the line goes: it may be among the arguments.
    char text[Line_Room] = {};
    va_list arguments;
    va_start(arguments, format);
    if (format) Format_Line(text, format, arguments);
    va_end(arguments);
    const bool keeps_cursor = Has_Flag(*this, TEXT_REPORT_CHANGES) && Is_Reading(*this);
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
    if (Take(key)) Read_Echo(Line, Cursor_Pos);
}

/// Acts on a key.
/// @return whether the input line has to be painted
bool Texts::Take(int key) {
    if (!Is_Reading(*this)) return false;
    Cursor_Pos = Low_16(std::clamp<int>(Cursor_Pos, 0, Input_Length(*this)));
    switch (Motion_Of(key)) {
        case Motion::Left:
            return Move_To(Cursor_Pos - 1);
        case Motion::Right:
            return Move_To(Cursor_Pos + 1);
        case Motion::Home:
            return Move_To(0);
        case Motion::End:
            return Move_To(Line_Room);
        case Motion::Up:
            return Recall_Older();
        case Motion::Down:
            return Recall_Newer();
        case Motion::Delete:
            return Erase(Cursor_Pos);
        default:
            break;
    }
    switch (key) {
        case Key_Enter:
        case KEY_KEYPAD | Key_Enter:
            return Enter();
        case Key_Backspace:
            return Cursor_Pos > 0 && Erase(Cursor_Pos - 1);
        case Key_Escape:
            return Escape();
        case Key_Paste:
            return Paste();
        case Key_Keypad_Point:
            return Insert('.');
        default:
            return key >= ' ' && key <= UCHAR_MAX && Insert(static_cast<char>(key));
    }
}

void Texts::Note_Change() {
    if (Has_Flag(*this, TEXT_REPORT_CHANGES)) Mode |= TEXT_CHANGED;
}

bool Texts::Move_To(int position) {
    Cursor_Pos = Low_16(std::clamp(position, 0, Input_Length(*this)));
    return true;
}

bool Texts::Erase(int position) {
    const int length = Input_Length(*this);
    if (position < length) std::copy(Line + position + 1, Line + length + 1, Line + position);
    Cursor_Pos = Low_16(position);
    Note_Change();
    return true;
}

bool Texts::Insert(char character) {
    if (!Accepts(*this, character) || Input_Length(*this) >= Longest_Input) return false;
    if (Has_Flag(*this, TEXT_INTEGER) && std::strtol(Line, nullptr, 10) == 0) {
        // What is typed over a zero replaces it.
        std::fill_n(Line, Line_Room, '\0');
        Cursor_Pos = 0;
    }
    std::copy_backward(Line + Cursor_Pos, Line + Line_Room - 2, Line + Line_Room - 1);
    Line[Cursor_Pos++] = character;
    Line[Line_Room - 1] = '\0';
    Note_Change();
    return true;
}

bool Texts::Enter() {
    const std::string_view line(Line, static_cast<std::size_t>(Input_Length(*this)));
    if (!Has_Flag(*this, TEXT_SINGLE_LINE) && Scroll_1(1)) Lines[0] = Duplicate(line);
    Scroll_2(1);
    if (History) History[0] = Duplicate(line);
    Mode |= TEXT_ENTERED;
    V_Slider.Val = 0.0F;
    return false;
}

bool Texts::Escape() {
    Mode = 0;
    if (Has_Flag(*this, TEXT_V_BAR | TEXT_H_BAR)) Rescale_Cursor();
    Draw();
    return false;
}

bool Texts::Recall_Older() {
    Note_Change();
    const char* entry = History_Entry(*this, History_Pos);
    if (!entry) return false;
    ++History_Pos;
    Recall(*this, entry);
    return true;
}

/// Goes back by one entry, so that Up and then Down show the same one twice.
bool Texts::Recall_Newer() {
    Note_Change();
    const char* entry = History_Entry(*this, History_Pos - 1);
    if (entry) --History_Pos;
    Recall(*this, entry ? entry : "");
    return true;
}

/// Takes the clipboard's text as if it were typed.
bool Texts::Paste() {
    bool changed = false;
    if (IsClipboardFormatAvailable(CF_TEXT)) {
        const Open_Clipboard clipboard(Window);
        const Locked_Memory text(clipboard.Text());
        bool full = false;
        for (const char character : text) {
            const auto key = static_cast<unsigned char>(character);
            // There may be a megabyte of what has no room.
            if (key >= ' ' && (full || !Accepts(*this, character))) continue;
            changed = Take(key) || changed;
            if (!Is_Reading(*this)) break;
            full = Input_Length(*this) >= Longest_Input;
        }
    }
    Note_Change();
    return changed && Is_Reading(*this);  // an Escape in the text has painted the field without its line
}

void Texts::Scroll_2(int n) {
    if (n < 1 || Has_Flag(*this, FLAG_PASSIVE) || !Ensure_Array(History, Most_History)) return;
    Free_Texts(History, Most_History - n, Most_History);
    Move_Entries(History, Most_History, n);
}

void Texts::Show_Caret(Text_Caret how) {
    Check(*this, "Texts::Show_Caret");
    const bool changes = Caret != how;
    Caret = how;
    if (changes && Has_Size(*this) && Is_Reading(*this)) Read_Echo(Line, Cursor_Pos);
}

void Texts::Read_Echo(char* const text, short cursor) {
    constexpr int Text_Gap = 4;
    constexpr int Caret_Gap = 3;
    constexpr unsigned long Caret_Yellow = 0x00FFFF;
    const Area box = Input_Area(*this);
    const int border = Frame_Width(*this);
    if (box.right < box.left) return;
    Canvas canvas(*this, {Common(Area_Of(*this), Input_Area(*this))});
    Paint_Body(canvas, *this, Select_State == Hover_Highlighted, nullptr, Flag, border + 1, box);

    const Canvas::Narrow_Clip clip = canvas.Narrow(box.Inset(border));
    const int length = static_cast<int>(strnlen(text, Line_Room - 1));
    const Visible_Input visible =
        Fit_Input(*this, text, std::clamp<int>(cursor, 0, length), box.right - box.left - 4 * border);
    const int left = box.left + border;
    if (Caret == CARET_SHOWN || (Caret == CARET_AT_POINTER && Select_State == Hover_Highlighted)) {
        const int caret = left + Width_Of(Bold_Font, visible.before_caret) + Caret_Gap;
        canvas.Column(caret, box.bottom + border + 2, box.top - border - 2, Caret_Yellow);
        canvas.Column(caret + 1, box.bottom + border + 2, box.top - border - 2, Caret_Yellow);
    }
    const int height = Metrics_Of(Bold_Font).tmHeight;
    const int y = box.bottom + (box.top - box.bottom - height) / 2;
    canvas.Write_Run(Bold_Font, visible.text, left + Text_Gap, y, Black);
}
