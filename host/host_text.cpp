// Text fields: characters of every language, the input method, the menu, the cursor and the caret.
#include "host/client.h"
#include "host/host.h"
#include "host/input_method.h"
#include "host/watch.h"
#include "parts/typed_text.h"
#include "util/wide.h"

using namespace galdren;

/// The entry whose field takes what is typed and reads; null when there is none.
Host::Entry* Host::Text_Taker() {
    Entry* const taker = Key_Taker();
    const Texts* const field = taker && taker->calls->field ? taker->calls->field(*taker->control) : nullptr;
    return !taker || (field && !(field->Mode & TEXT_READING)) ? nullptr : taker;
}

Texts* Host::Edited_Field(const Entry* entry) {
    Texts* const field = entry && entry->calls->field ? entry->calls->field(*entry->control) : nullptr;
    return field && field->Flag & TEXT_EDITING ? field : nullptr;
}

/// Gives a field characters beyond ASCII. The host may be gone then.
/// @return whether the message brought such, or a part of one
bool Host::On_Character(UINT message, WPARAM wparam) {
    Entry* const taker = Text_Taker();
    const std::optional<std::string> text = taker ? typed->Take(window, message, wparam) : std::nullopt;
    if (!text) return false;
    if (!text->empty()) Type_Text(*taker, *text);
    return true;
}

/// A character from a program that sends it whole, which asks first whether there is anybody.
bool Host::On_Whole_Character(WPARAM wparam, LPARAM lparam, LRESULT& result) {
    if (!Text_Taker()) return false;
    result = wparam == UNICODE_NOCHAR;
    if (wparam == UNICODE_NOCHAR || On_Character(WM_UNICHAR, wparam)) return true;
    return On_Key(WM_CHAR, wparam, lparam);
}

/// Gives a control text in the code page. The host may be gone then.
void Host::Type_Text(Entry& taker, const std::string& text) {
    const Watch watch(*this, taker);
    for (const char byte : text) {
        const Entry* const left = watch.Control();
        if (!left) return;
        left->calls->input(*left->control, static_cast<unsigned char>(byte));
    }
    if (Entry* const left = watch.Control()) Tell_Typed(*left, static_cast<unsigned char>(text.back()));
}

void Host::On_Composition_Start() {
    const Entry* const taker = Text_Taker();
    composing_serial = taker ? taker->serial : 0;
    Texts* const field = taker && taker->calls->field ? taker->calls->field(*taker->control) : nullptr;
    RECT caret{};
    if (!field || !field->Find_Caret(caret)) return;
    Place_Composition(window, To_Logical(window, {caret.left, caret.bottom - 1}), field->Bold_Font);
}

/// What was composed goes to the field in which that began, once.
bool Host::On_Composition(WPARAM wparam, LPARAM lparam, LRESULT& result) {
    Entry* const taker = entries.With_Serial(composing_serial);
    if (!taker || !(lparam & GCS_RESULTSTR)) return false;
    const HWND served = window;
    const std::string text = From_Wide(Composed_Text(window));
    if (!text.empty()) Type_Text(*taker, text);
    const LPARAM rest = lparam & ~LPARAM{GCS_RESULTSTR};
    result = 0;
    if (rest && IsWindow(served)) {
        const auto procedure = IsWindowUnicode(served) ? DefWindowProcW : DefWindowProcA;
        result = procedure(served, WM_IME_COMPOSITION, wparam, rest);
    }
    return true;
}

/// Has what is composed become text before the keyboard goes elsewhere.
void Host::Finish_Composing() {
    if (composing_serial) Finish_Composition(window);
}

/// The menu of the field under the pointer, or for the keyboard of the one that has it. The host may be gone
/// then.
/// @param screen  (-1, -1) for the keyboard
bool Host::On_Context_Menu(POINT screen) {
    const bool by_keys = screen.x == -1 && screen.y == -1;
    const Entry* const entry = by_keys ? Key_Taker() : entries.At(From_Screen(window, screen));
    Texts* const field = Edited_Field(entry);
    if (!field || !Takes_Events(*entry)) return false;
    RECT place = field->Rect;
    if (by_keys) {
        field->Find_Caret(place);
        screen = To_Screen(window, {place.left, place.top});
    } else if (!field->Is_Text_At(From_Screen(window, screen))) {
        return false;
    }
    const Watch watch(*this, *entry);
    const int key = field->Ask_Menu(screen);
    Entry* const left = watch.Control();
    if (left && key) Type(*left, key);
    return true;
}

/// The I-beam over text that can be selected, unless the application shows a cursor of its own.
bool Host::On_Set_Cursor(LPARAM lparam) {
    if (LOWORD(lparam) != HTCLIENT || Wait_Count != 0 || Cursor_Shape != 0) return false;
    POINT place{};
    GetCursorPos(&place);
    place = From_Screen(window, place);
    const Texts* const field = Edited_Field(held ? entries.Find(current) : entries.At(place));
    if (!field || !(held || field->Is_Text_At(place))) return false;
    SetCursor(LoadCursorA(nullptr, IDC_IBEAM));
    return true;
}

/// After a drag in a field. It is repeated while the pointer is held still, for a text beyond whose edge that
/// is goes on scrolling.
void Host::Go_On_Selecting() {
    Follow_Caret();
    const Texts* const field = Edited_Field(entries.Find(current));
    if (held && field && field->Is_Selecting()) SetTimer(window, Timer(), Texts::Scroll_Pause, nullptr);
}

bool Host::On_Timer(UINT_PTR timer) {
    if (timer != Timer()) return false;
    KillTimer(window, timer);
    const Texts* const field = Edited_Field(entries.Find(current));
    if (!held || !field || !field->Is_Selecting()) return true;
    POINT client = pointer;
    ScreenToClient(window, &client);
    Point(client, EVENT_DRAG | EVENT_LEFT);
    Go_On_Selecting();
    return true;
}

/// Keeps the system's caret, which nobody sees, where the caret of the field is: magnifiers and screen
/// readers follow it.
void Host::Follow_Caret() {
    Texts* const field = window && GetFocus() == window ? Edited_Field(Key_Taker()) : nullptr;
    RECT caret{};
    if (!field || !field->Find_Caret(caret)) {
        if (std::exchange(caret_height, 0)) DestroyCaret();
        return;
    }
    const int height = static_cast<int>(caret.bottom - caret.top);
    if (std::exchange(caret_height, height) != height) CreateCaret(window, nullptr, 1, height);
    const POINT place = To_Logical(window, {caret.left, caret.bottom - 1});
    SetCaretPos(place.x, place.y);
    const POINT selection{field->Cursor_Pos, field->Selected};
    const bool known = selection.x == told_caret.x && selection.y == told_caret.y;
    told_caret = selection;
    if (!known) Tell_Services(Part_Change::Text_Selection, keys->Focus());
}
