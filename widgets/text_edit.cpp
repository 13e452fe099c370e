// The input line of a text field: what it reads, its keys and how it looks.
#include <algorithm>
#include <cstdarg>
#include <cstdio>
#include <cstring>

#include "tools/base.h"
#include "tools/canvas.h"
#include "tools/clipboard.h"
#include "tools/font_cache.h"
#include "tools/keyboard.h"
#include "widgets/input_line.h"
#include "widgets/text_lines.h"
#include "widgets/text_places.h"

using namespace galdren;

namespace {

constexpr int Key_Enter = 13;
constexpr int Key_Escape = 27;

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
    if (!keeps_cursor) Cursor_Pos = Low_16(Input_Line(*this, Flag).Length());
    Draw();
}

char* Texts::Update() {
    if (!Has_Size(*this) || Mode < TEXT_ENTERED) return nullptr;
    Mode = Mode & TEXT_ENTERED ? 0 : Mode & TEXT_READING;
    return Line;
}

bool Texts::Accepts(char character) const { return Passes_Filters(Flag, character); }

void Texts::Input(int key) {
    Check(*this, "Text::Input");
    if (!Has_Size(*this) || Has_Flag(*this, FLAG_NO_BODY | FLAG_PASSIVE)) return;
    if (Take(key)) Read_Echo();
}

/// Acts on a key.
/// @return whether the input line has to be painted
bool Texts::Take(int key) {
    if (!(Mode & TEXT_READING)) return false;
    switch (key) {
        case Key_Enter:
        case KEY_KEYPAD | Key_Enter:
            Enter();
            return false;
        case Key_Escape:
            Escape();
            return false;
        case KEY_CONTROL | 'V':
            return Paste();
        default:
            return Input_Line(*this, Flag).Take(key);
    }
}

/// Takes the input line over into output and history.
void Texts::Enter() {
    Input_Line line(*this, Flag);
    const Output_Lines output(*this, Picture);
    if (!Has_Flag(*this, TEXT_SINGLE_LINE) && Can_Write()) {
        output.Begin();
        output.Put(line.Text());
    }
    line.Remember();
    Mode |= TEXT_ENTERED;
    V_Slider.Val = 0.0F;
}

void Texts::Escape() {
    Mode = 0;
    Rescale_Cursor();
    Draw();
}

/// Takes the clipboard's text as if it were typed.
bool Texts::Paste() {
    bool changed = false;
    const Clipboard_Text text(Window);
    bool full = false;
    for (const char character : text.Get()) {
        const auto key = static_cast<unsigned char>(character);
        // There may be a megabyte of what has no room.
        if (key >= ' ' && (full || !Accepts(character))) continue;
        changed = Take(key) || changed;
        if (!(Mode & TEXT_READING)) break;
        full = Input_Line(*this, Flag).Is_Full();
    }
    Input_Line(*this, Flag).Note_Change();
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
    constexpr unsigned long Caret_Yellow = 0x00FFFF;
    const Area box = Input_Area(*this);
    const int border = Frame_Width(*this);
    if (!(Mode & TEXT_READING) || box.right < box.left) return;
    Canvas canvas(*this, Input_Reach(*this));
    Paint_Body(canvas, *this, Select_State == Hover_Highlighted, nullptr, Flag, border + 1, box);

    const int length = Input_Line(*this, Flag).Length();
    char text[Line_Room] = {};
    std::copy_n(Line, length, text);
    if (Has_Flag(*this, TEXT_PASSWORD)) std::fill_n(text, length, '#');
    char before_caret[Line_Room] = {};
    const int cursor = std::clamp<int>(Cursor_Pos, 0, length);
    std::copy_n(text, cursor, before_caret);
    const int room = box.right - box.left - 4 * border;
    const int first = First_Visible(Bold_Font, before_caret, cursor, room);

    const Canvas::Narrow_Clip clip = canvas.Narrow(box.Inset(border));
    const int left = box.left + border;
    if (Caret == CARET_SHOWN || (Caret == CARET_AT_POINTER && Select_State == Hover_Highlighted)) {
        const int caret = left + Width_Of(Bold_Font, before_caret + first) + Caret_Gap;
        canvas.Column(caret, box.bottom + border + 2, box.top - border - 2, Caret_Yellow);
        canvas.Column(caret + 1, box.bottom + border + 2, box.top - border - 2, Caret_Yellow);
    }
    const int height = Metrics_Of(Bold_Font).tmHeight;
    const int y = box.bottom + (box.top - box.bottom - height) / 2;
    canvas.Write_Run(Bold_Font, text + first, left + Text_Gap, y, Black);
}
