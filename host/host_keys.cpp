// The keyboard: which control has it, and who gets a key first.
#include <algorithm>

#include "host/client.h"
#include "host/host.h"
#include "host/watch.h"
#include "parts/key_code.h"

using namespace galdren;

namespace {

bool Is_Tab(int code) { return (code & ~KEY_SHIFT) == VK_TAB; }

bool Is_Enter(int key) { return key == VK_RETURN || key == (KEY_KEYPAD | VK_RETURN); }

/// Whether a key is meant for the application rather than for the text in which it is pressed.
bool Is_Command(UINT message, int code) {
    if (message == WM_CHAR) return false;
    if (message == WM_SYSKEYDOWN || code & (KEY_CONTROL | KEY_ALT)) return true;
    const int key = code & 0xFF;
    const bool edits = (key >= VK_PRIOR && key <= VK_DOWN) || key == VK_INSERT || key == VK_DELETE;
    return code & KEY_NAVIGATION && !edits;
}

/// Whether a key is the first message of a character that is typed with AltGr, which the system shows as Ctrl
/// and Alt: the character waits already.
bool Is_Of_Alt_Gr(HWND window, UINT message, int code) {
    constexpr int alt_gr = KEY_CONTROL | KEY_ALT;
    MSG character;
    return message == WM_KEYDOWN && (code & alt_gr) == alt_gr &&
           PeekMessageW(&character, window, WM_CHAR, WM_DEADCHAR, PM_NOREMOVE | PM_QS_POSTMESSAGE);
}

/// The text field of an entry that takes what is typed only while it reads; null for other controls.
Texts* Field_Of(const Entry& entry) {
    return entry.calls->field ? entry.calls->field(*entry.control) : nullptr;
}

bool Is_Reading(const Entry& entry) {
    const Texts* const field = Field_Of(entry);
    return !field || field->Mode & TEXT_READING;
}

bool Is_Single_Line(const Entry& entry) {
    const Texts* const field = Field_Of(entry);
    return field && field->Flag & TEXT_SINGLE_LINE;
}

/// Whether the host may begin and end reading in a field: handlers that know nothing of events do so.
bool Is_Plain(const Entry& entry) { return entry.handlers && entry.handlers->kind == Handlers::Kind::Plain; }

/// The system would beep at the character of a key that it finds no menu for.
void Drop_System_Character(HWND window, UINT message) {
    MSG character;
    if (message == WM_SYSKEYDOWN) PeekMessageA(&character, window, WM_SYSCHAR, WM_SYSCHAR, PM_REMOVE);
}

}  // namespace

void Host::Set_On_Key(std::function<bool(int)> take) {
    on_key = take ? std::make_shared<const std::function<bool(int)>>(std::move(take)) : nullptr;
}

void Host::Set_Default(const Tools* button) { keys->Set_Default(button); }

void Host::Set_Cancel(const Tools* button) { keys->Set_Cancel(button); }

void Host::Focus(const Tools* control) {
    wanted_serial = 0;
    pressed_serial = 0;
    if (!control) {
        focus_serial = 0;
        keys->Set_Focus({});
        return;
    }
    const Entry* const entry = entries.Find(control);
    if (!entry) return;
    const unsigned serial = entry->serial;
    // One that is not initialised yet gets it by `Init_All`.
    if (!keys->Set_Focus({entries.Number_Of(serial), Whole})) wanted_serial = serial;
}

const Tools* Host::Focused() const {
    const int number = focus_serial ? entries.Number_Of(focus_serial) : -1;
    return number < 0 ? nullptr : entries[static_cast<std::size_t>(number)].control;
}

/// Takes note of the part that has got the keyboard. A control that cannot have it for a while keeps its
/// claim.
void Host::Follow_Focus(Part_Place place) {
    Finish_Composing();
    if (place.control >= 0) {
        const Entry& entry = entries[static_cast<std::size_t>(place.control)];
        wanted_serial = 0;
        focus_serial = entry.serial;
        Begin_Reading(entry);
        if (keys->Is_Led_By_Key()) Select_Line(entry);
    }
    Tell_Services(Part_Change::Focus, place);
    Follow_Caret();
}

/// Has an entry field take what is typed.
void Host::Begin_Reading(const Entry& entry) {
    if (!Is_Single_Line(entry) || Is_Plain(entry)) return;
    Texts& field = *Field_Of(entry);
    if (field.Mode == 0 && field.Window) field.Read("%s", field.Line);
}

/// Has the next letter take the place of all that is in an entry field, as people expect where a key has led
/// them.
void Host::Select_Line(const Entry& entry) {
    Texts* const field = Edited_Field(&entry);
    if (field && Is_Single_Line(entry) && Is_Reading(entry)) field->Input(KEY_CONTROL | 'A');
}

/// Gives a control that was pressed the keyboard. Of a control with parts, the part that was pressed gets it
/// when the button goes up: what is brought into view must not move away from below the pointer.
/// @return whether a field of `TEXT_EDITING` takes what is typed from now on
bool Host::Focus_By_Press(const Entry& entry, POINT logical) {
    const Class_Parts& described = entry.calls->parts();
    const unsigned serial = entry.serial;
    if (described.Count(*entry.control) > 0) {
        pressed_serial = serial;
        pressed_part = described.At(*entry.control, logical);
        return false;
    }
    pressed_serial = 0;
    const bool read = Is_Reading(entry);
    if (keys->Set_Focus({entries.Number_Of(serial), Whole}) && Is_Single_Line(entry)) Begin_Reading(entry);
    Follow_Caret();
    return !read && Edited_Field(&entry) && Is_Reading(entry);
}

void Host::Focus_By_Release() {
    const unsigned serial = std::exchange(pressed_serial, 0);
    const int number = serial ? entries.Number_Of(serial) : -1;
    if (number >= 0) keys->Set_Focus({number, pressed_part});
}

/// The control that has the keyboard, when it takes what is typed.
Host::Entry* Host::Key_Taker() {
    const int number = keys->Focus().control;
    if (number < 0) return nullptr;
    Entry& entry = entries[static_cast<std::size_t>(number)];
    return entry.calls->input ? &entry : nullptr;
}

bool Host::Can_Have_Keys(std::size_t number) const {
    const Entry& entry = entries[number];
    const bool hears = Takes_Events(entry) && Has_Size(*entry.control);
    return hears && (entry.calls->select || entry.calls->input) && keys->Can_Have(static_cast<int>(number));
}

/// Whether anybody does something with keys. Who did last time is asked first.
bool Host::Wants_Keys() {
    if (on_key) return true;
    if (key_user < entries.Count() && Can_Have_Keys(key_user)) return true;
    for (key_user = 0; key_user < entries.Count(); ++key_user) {
        if (Can_Have_Keys(key_user)) return true;
    }
    return false;
}

/// Offers a key to the application.
/// @return whether it took it; the host may be gone then
bool Host::Offer(UINT message, int code) const {
    const HWND served = window;
    const std::shared_ptr<const std::function<bool(int)>> take = on_key;
    if (!code || !take || !(*take)(code)) return false;
    Drop_System_Character(served, message);
    return true;
}

/// Has a key work the parts. The host may be gone then.
/// @return whether it meant anything
bool Host::Work_Parts(UINT message, int key, bool repeated) {
    const HWND served = window;
    const Watch watch(*this);
    takes_tab = Is_Tab(key);
    const bool taken = key && keys->Take(key, repeated);
    if (watch.Has_Host()) takes_tab = false;
    if (!taken) return false;
    Drop_System_Character(served, message);
    return true;
}

/// Gives a control what is typed. The host may be gone then.
void Host::Type(Entry& taker, int key) {
    taker.calls->input(*taker.control, key);
    Tell_Typed(taker, key);
}

/// Tells the handler of what was typed last. The host may be gone then.
void Host::Tell_Typed(Entry& taker, int key) {
    const Watch watch(*this);
    Host_Event event{Host_Event::Key};
    event.key = key;
    Texts* const field = Field_Of(taker);
    if (field && taker.handlers && !Is_Plain(taker)) event.answer = field->Update() ? 1 : 0;
    Notify(taker, event);
    if (watch.Has_Host()) Follow_Caret();
}

bool Host::On_Key(UINT message, WPARAM wparam, LPARAM lparam) {
    if (!Wants_Keys()) return false;
    if (message == WM_CHAR && On_Character(message, wparam)) return true;
    const int code = Key_Code(window, message, wparam, lparam);
    if (Text_Taker() && Is_Of_Alt_Gr(window, message, code)) return false;
    const int key = Typed_Key(message, wparam, code);
    const bool repeated = Is_Repeated(lparam);
    if (Is_Tab(code) && Work_Parts(message, code, repeated)) return true;

    const bool is_command = Is_Command(message, code);
    if ((is_command || !Key_Taker()) && Offer(message, code)) return true;

    Entry* const taker = Key_Taker();
    const bool types = taker && Is_Reading(*taker);
    // Of a line that is entered where no handler hears of it only the default button tells.
    const bool for_default = types && Is_Enter(key) && Is_Single_Line(*taker) && !taker->handlers;
    const bool parts_first = !types || is_command || key == VK_ESCAPE || for_default;
    if (parts_first && !Is_Tab(code) && Work_Parts(message, key, repeated)) return true;
    if (!taker || !key) return false;

    const Watch watch(*this);
    const bool enters = types && Is_Enter(key) && Is_Single_Line(*taker) && !for_default;
    Type(*taker, key);
    if (enters && watch.Has_Host()) Work_Parts(message, key, repeated);  // the default button
    // What the system does with Alt and a key, such as closing the window, it does whoever has the focus.
    return message != WM_SYSKEYDOWN;
}
