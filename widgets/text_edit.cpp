// The input line of a text field: what it reads, its keys and how it looks.
#include <algorithm>
#include <cstdarg>
#include <cstdio>
#include <string>
#include <string_view>

#include "tools/base.h"
#include "tools/canvas.h"
#include "tools/clipboard.h"
#include "tools/code_page.h"
#include "tools/keyboard.h"
#include "widgets/input_line.h"
#include "widgets/input_view.h"
#include "widgets/text_command.h"
#include "widgets/text_lines.h"
#include "widgets/text_places.h"

using namespace galdren;

namespace {

constexpr int Key_Enter = 13;
constexpr int Key_Escape = 27;

Reach Input_Reach(const Texts& field) { return {Common(Area_Of(field), Input_Area(field))}; }

}  // namespace

void Texts::Read(const char* format, ...) {
    Check(*this, "Text::Read");
    if (!Has_Size(*this)) return;
    // Formatted before the line goes: it may be among the arguments.
    char text[Formatted_Room] = {};
    va_list arguments;
    va_start(arguments, format);
    if (format && std::vsnprintf(text, sizeof text, format, arguments) < 0) text[0] = '\0';
    va_end(arguments);
    const bool keeps_cursor = Has_Flag(*this, TEXT_REPORT_CHANGES) && Mode & TEXT_READING;
    const std::string_view whole = Whole_Characters(text, Line_Room - 1);
    std::fill(Line + whole.copy(Line, whole.size()), Line + Line_Room, '\0');
    Edits.begun[0] = '\0';
    History_Pos = Selected = 0;
    Mode = TEXT_READING;
    if (!keeps_cursor) Cursor_Pos = Low_16(Input_Line(*this, Flag, Edits).Length());
    Draw();
}

char* Texts::Update() {
    if (!Has_Size(*this) || Mode < TEXT_ENTERED) return nullptr;
    Mode = Mode & TEXT_ENTERED ? 0 : Mode & TEXT_READING;
    return Line;
}

bool Texts::Accepts(char character) const { return Passes_Filters(Flag, {&character, 1}); }

void Texts::Input(int key) {
    Check(*this, "Text::Input");
    if (!Has_Size(*this) || Has_Flag(*this, FLAG_NO_BODY | FLAG_PASSIVE)) return;
    if (Take(key)) Read_Echo();
}

/// Acts on a key.
/// @return whether the input line has to be painted
bool Texts::Take(int key) {
    const bool edits = Has_Flag(*this, TEXT_EDITING);
    if (edits && Command_Of(key) != Text_Command::None) return Obey(key);
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
            return Paste_As_Typed();
        default:
            return Input_Line(*this, Flag, Edits).Take(key);
    }
}

/// Takes the input line over into output and history.
void Texts::Enter() {
    Input_Line line(*this, Flag, Edits);
    const Output_Lines output(*this, Picture);
    if (!Has_Flag(*this, TEXT_SINGLE_LINE) && Can_Write()) {
        output.Begin();
        output.Put(line.Text(), true);  // what is typed never acts as a code
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

/// Puts the clipboard's text into the line, up to its first line break.
bool Texts::Paste() {
    const std::string text = Clipboard_Text(Window);
    const std::string_view line = std::string_view(text).substr(0, text.find_first_of("\r\n"));
    return !line.empty() && Input_Line(*this, Flag, Edits).Insert_All(line);
}

/// Takes the clipboard's text as if it were typed, control characters as the keys that they are.
bool Texts::Paste_As_Typed() {
    bool changed = false;
    const std::string text = Clipboard_Text(Window);
    bool full = false;
    for (std::string_view rest = text; !rest.empty() && Mode & TEXT_READING;) {
        const std::string_view character = rest.substr(0, static_cast<std::size_t>(Character_Length(rest)));
        rest.remove_prefix(character.size());
        const bool is_control = static_cast<unsigned char>(character[0]) < ' ';
        // There may be a megabyte of what has no room.
        if (!is_control && (full || !Passes_Filters(Flag, character))) continue;
        for (const char byte : character)
            changed = Take(static_cast<unsigned char>(byte)) || changed;
        full = Input_Line(*this, Flag, Edits).Is_Full();
    }
    Input_Line(*this, Flag, Edits).Note_Change();
    return changed;
}

/// The frame of the input line and what is in it, while reading.
void Texts::Paint_Input() {
    if (!(Mode & TEXT_READING)) return;
    Canvas canvas(*this, Input_Reach(*this));
    const Area box = Input_Area(*this);
    if (box.left <= box.right)
        Paint_Frame(canvas, Color, 1, true, canvas.Scaled(2), {box.left, box.right, box.bottom, box.top - 1});
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
    const Area box = Input_Area(*this);
    if (!(Mode & TEXT_READING) || box.right < box.left) return;
    Canvas canvas(*this, Input_Reach(*this));
    Paint_Body(canvas, *this, Select_State == Hover_Highlighted, nullptr, Flag,
               Frame_Width(*this) + canvas.Line(), box);
    Input_View(*this, Input_Line(*this, Flag, Edits), Edits).Paint(canvas);
}
