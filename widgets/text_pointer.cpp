// Selection in a text field: by the pointer, and what is done with it.
#include <new>
#include <string>

#include "tools/base.h"
#include "tools/clipboard.h"
#include "tools/input.h"
#include "tools/window.h"
#include "widgets/input_line.h"
#include "widgets/input_view.h"
#include "widgets/text_command.h"
#include "widgets/text_places.h"
#include "widgets/text_selection.h"

using namespace galdren;

namespace {

/// Counts presses that follow each other at one place as quickly as those of a double click: 1, 2, 3 and 1
/// again.
int Count_Press(Edit_State& state, POINT place) {
    const auto now = static_cast<DWORD>(GetMessageTime());
    const bool again = state.presses > 0 && now - state.pressed_at <= GetDoubleClickTime() &&
                       std::abs(place.x - state.pressed.x) <= GetSystemMetrics(SM_CXDOUBLECLK) / 2 &&
                       std::abs(place.y - state.pressed.y) <= GetSystemMetrics(SM_CYDOUBLECLK) / 2;
    state.pressed_at = now;
    state.pressed = place;
    state.presses = again ? state.presses % 3 + 1 : 1;
    return state.presses;
}

bool Is_In(const Area& area, POINT place) { return !(area.right < area.left) && area.Holds(place); }

bool Is_Left(int event) { return (event & EVENT_LEFT) != 0; }

}  // namespace

/// Follows the pointer with caret and selection.
/// @return whether the event was for these
bool Texts::Select_Text(int event) {
    const int kind = Event_Kind(event);
    if (kind == EVENT_MOVE) Edits.dragged = Edit_State::Nothing;
    if (!Is_Left(event) || (kind != EVENT_PRESS && kind != EVENT_DRAG)) return false;
    const std::optional<POINT> place = Find_Pointer(Window);
    if (!place) return false;
    if (kind == EVENT_PRESS) return Press_Text(*place);
    if (Edits.dragged == Edit_State::Input_Text) return Select_Input(*place, true), true;
    if (Edits.dragged != Edit_State::Output_Text) return false;
    Drag_Output(*place);
    return true;
}

/// Whether there is text at a place that can be selected.
bool Texts::Is_Text_At(POINT place) const {
    if (!Has_Flag(*this, TEXT_EDITING) || Has_Flag(*this, FLAG_NO_BODY | FLAG_PASSIVE)) return false;
    if (Mode & TEXT_READING && Is_In(Input_Area(*this), place)) return true;
    return !Has_Flag(*this, TEXT_SINGLE_LINE) && Lines && Lines[0] && Is_In(Output_Area(*this), place);
}

bool Texts::Is_Selecting() const { return Edits.dragged != Edit_State::Nothing; }

bool Texts::Press_Text(POINT place) {
    Edits.dragged = Edit_State::Nothing;
    if (!Is_Text_At(place)) return false;
    const int presses = Count_Press(Edits, place);
    const bool extends = getkey(VK_SHIFT) != 0;
    if (Mode & TEXT_READING && Is_In(Input_Area(*this), place)) {
        Edits.dragged = Edit_State::Input_Text;
        Deselect_Output();
        Input_Line line(*this, Flag, Edits);
        if (presses == 1) {
            Select_Input(place, extends);
        } else if (presses == 3 || Has_Flag(*this, TEXT_PASSWORD)) {
            line.Select(0, line.Length());
        } else {
            const Text_Span word = Word_Around(line.Text(), line.Cursor());
            line.Select(word.from, word.to);
        }
        Read_Echo();
        return true;
    }
    Edits.dragged = Edit_State::Output_Text;
    const Output_Spot spot = Nearest_Spot(*this, place);
    if (presses == 1) {
        Select_Output(Picture, extends && Picture.from.line >= 0 ? Picture.from : spot, spot);
    } else if (presses == 2) {
        Select_Word(*this, Picture, spot);
    } else {
        Select_Line(*this, Picture, spot.line);
    }
    Re_Write();
    return true;
}

/// Puts the caret where the pointer is.
/// @param extends  the selection
void Texts::Select_Input(POINT place, bool extends) {
    Input_Line line(*this, Flag, Edits);
    const int to = Input_View(*this, line, Edits).Nearest(place.x);
    const int other = Cursor_Pos + Selected;
    if (to == Cursor_Pos && (extends || Selected == 0)) return;
    line.Select(extends ? other : to, to);
    Read_Echo();
}

/// Selects up to the pointer; beyond the edge the output scrolls.
void Texts::Drag_Output(POINT place) {
    const Area output = Output_Area(*this);
    const int lines = place.y > output.top ? 1 : place.y <= output.bottom ? -1 : 0;
    if (lines != 0 && Has_V_Bar(*this)) Scroll_Bar(V_Slider, -lines);
    const Output_Spot spot = Nearest_Spot(*this, place);
    if (lines == 0 && spot.line == Picture.to.line && spot.at == Picture.to.at) return;
    Select_Output(Picture, Picture.from, spot);
    Re_Write();
}

void Texts::Deselect_Output() {
    if (!Picture.Has_Selection()) return;
    Select_Output(Picture, {}, {});
    Re_Write();
}

/// Copies what is selected.
/// @return false when nothing was, or the clipboard cannot be had
bool Texts::Copy() {
    try {
        if (Picture.Has_Selection()) return Set_Clipboard_Text(Window, Selected_Text(*this, Picture));
    } catch (const std::bad_alloc&) {
        return false;
    }
    const Input_Line line(*this, Flag, Edits);
    const Text_Span selected = line.Selection();
    if (selected.Is_Empty() || Has_Flag(*this, TEXT_PASSWORD)) return false;
    return Set_Clipboard_Text(Window, line.Text().substr(static_cast<std::size_t>(selected.from),
                                                         static_cast<std::size_t>(selected.Length())));
}

bool Texts::Can_Take(int key) {
    const Text_Command command = Command_Of(key);
    const bool works =
        Has_Size(*this) && Has_Flag(*this, TEXT_EDITING) && !Has_Flag(*this, FLAG_NO_BODY | FLAG_PASSIVE);
    const bool reads = works && Mode & TEXT_READING;
    const Input_Line line(*this, Flag, Edits);
    const bool selected = !line.Selection().Is_Empty();
    const bool shown = selected && !Has_Flag(*this, TEXT_PASSWORD);
    switch (command) {
        case Text_Command::Copy:
            return works && (Picture.Has_Selection() || (reads && shown));
        case Text_Command::Cut:
            return reads && shown;
        case Text_Command::Paste:
            return reads && Has_Clipboard_Text();
        case Text_Command::Undo:
            return reads && line.Can_Go(-1);
        case Text_Command::Redo:
            return reads && line.Can_Go(1);
        case Text_Command::Select_All:
            return works && (reads ? line.Length() > 0 : Lines && Lines[0]);
        case Text_Command::None:
            return reads && (key != (KEY_NAVIGATION | VK_DELETE) || selected || Cursor_Pos < line.Length());
    }
    return false;
}

/// Does what a key of all text fields means.
/// @return whether the input line has to be painted
bool Texts::Obey(int key) {
    if (!Can_Take(key)) return false;
    Input_Line line(*this, Flag, Edits);
    switch (Command_Of(key)) {
        case Text_Command::Copy:
            return Copy(), false;
        case Text_Command::Cut:
            Deselect_Output();
            return Copy() && line.Erase_Selection();
        case Text_Command::Paste:
            return Paste();
        case Text_Command::Undo:
            return line.Go(-1);
        case Text_Command::Redo:
            return line.Go(1);
        case Text_Command::Select_All:
            break;
        case Text_Command::None:
            return false;
    }
    if (Mode & TEXT_READING) {
        Deselect_Output();
        line.Select(0, line.Length());
        return true;
    }
    Select_All(*this, Picture);
    Re_Write();
    return false;
}

void Texts::Insert(const char* text) {
    Check(*this, "Texts::Insert");
    const bool works =
        Has_Size(*this) && !Has_Flag(*this, FLAG_NO_BODY | FLAG_PASSIVE) && Mode & TEXT_READING;
    if (works && text && Input_Line(*this, Flag, Edits).Insert_All(text)) Read_Echo();
}

bool Texts::Find_Caret(RECT& area) {
    if (!Has_Size(*this) || !(Mode & TEXT_READING) || Has_Flag(*this, FLAG_NO_BODY)) return false;
    const Area caret = Input_View(*this, Input_Line(*this, Flag, Edits), Edits).Caret();
    area = {caret.left, caret.bottom, caret.right + 1, caret.top + 1};
    return true;
}
