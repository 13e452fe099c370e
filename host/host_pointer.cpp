// The pointer: which control has it, and what that one is told.
#include "host/beneath.h"
#include "host/client.h"
#include "host/host.h"
#include "host/watch.h"

using namespace galdren;

namespace {

constexpr int Button_Count = 3;
constexpr WPARAM Button_Keys[Button_Count] = {MK_LBUTTON, MK_MBUTTON, MK_RBUTTON};
constexpr int Button_Events[Button_Count] = {EVENT_LEFT, EVENT_MIDDLE, EVENT_RIGHT};
constexpr int Right_Button = 3;

/// The event word for `Select`: the kind and the buttons held.
int Event_Word(int kind, WPARAM keys) {
    int event = kind;
    for (int i = 0; i < Button_Count; ++i) {
        if (keys & Button_Keys[i]) event |= Button_Events[i];
    }
    return event;
}

/// The first of the buttons held; 0 for none.
int Button_Of(WPARAM keys) {
    for (int i = 0; i < Button_Count; ++i) {
        if (keys & Button_Keys[i]) return i + 1;
    }
    return 0;
}

}  // namespace

/// One call of `Select`.
int Host::Tell(const Entry& entry, int event, bool repaints) {
    const auto select = [&] { return answer = entry.calls->select(*entry.control, event); };
    return repaints ? Beneath_Others(entry, select) : select();
}

/// Takes the highlight from the control that has it. `Select` with the pointer far away does it for every
/// class, also when the pointer is still inside and another control is now above.
void Host::Leave() {
    const Entry* left = entries.Find(std::exchange(current, nullptr));
    if (!left) return;
    const Pointer_Scope away(Nowhere);
    Tell(*left, EVENT_MOVE, true);
}

/// Hands the pointer to the control under it. While a button is held it stays with the control pressed.
/// @return true when the control is another one than before
bool Host::Hand_Over(POINT logical) {
    if (held) return false;
    const Entry* under = entries.At(logical);
    Tools* const next = under ? under->control : nullptr;
    if (next == current) return false;
    Leave();
    current = next;
    return true;
}

/// Notes where the pointer is and tells the control that has it.
/// @return what its `Select` answers; 0 without a control
int Host::Point(POINT client, int event) {
    const POINT logical = To_Logical(window, client, pointer);
    Set_Pointer(pointer);
    const bool entered = Hand_Over(logical);
    const Entry* entry = entries.Find(current);
    if (!entry) return 0;
    const bool was_inside = std::exchange(inside, Is_Inside(*current, logical));
    return Tell(*entry, event, entered || inside != was_inside);
}

bool Host::On_Move(WPARAM buttons, POINT client) {
    if (!tracking) {
        TRACKMOUSEEVENT request{sizeof request, TME_LEAVE, window, 0};
        tracking = TrackMouseEvent(&request) != 0;
    }
    const int word = Event_Word(0, buttons);
    const int answered = Point(client, word ? EVENT_DRAG | word : EVENT_MOVE);
    const Entry* entry = entries.Find(current);
    if (!entry) return false;
    const int button = Button_Of(buttons);
    if (Edited_Field(entry)) Go_On_Selecting();
    if (answered && held && button) Notify(*entry, {Host_Event::Drag, answered, button});
    return true;
}

void Host::On_Leave() {
    tracking = false;
    if (held) return;
    Leave();
    // An `Adjust` of the application must not light a control up where the pointer has been. Another window
    // may have noted the pointer already; that stays.
    if (ZCursor_X == pointer.x && ZCursor_Y == pointer.y) Set_Pointer(Nowhere);
}

bool Host::On_Press(int button, WPARAM buttons, POINT client, bool second) {
    BUTTON_PRESS(button);
    if (Wants_Keys()) SetFocus(window);
    keys->Hide_Ring();
    const int answered = Point(client, Event_Word(EVENT_PRESS, buttons));
    if (!held) SetCapture(window);
    held |= 1u << button;
    const Entry* entry = entries.Find(current);
    if (!entry) return false;
    if (button == 1 && Focus_By_Press(*entry, To_Logical(window, client))) {
        // The press goes into the text that is read from now on.
        Point(client, Event_Word(EVENT_PRESS, buttons));
        entry = entries.Find(current);
        if (!entry) return false;
    }
    if (!answered) return true;
    const Watch watch(*this);
    const bool taken = Notify(*entry, {Host_Event::Press, answered, button, second});
    if (button == Right_Button && watch.Has_Host()) right_taken = taken;
    return true;
}

bool Host::On_Release(int button, WPARAM buttons, POINT client) {
    BUTTON_RELEASE(button);
    const bool had_control = current != nullptr;
    const unsigned held_before = std::exchange(held, held & ~(1u << button));
    Point(client, Event_Word(EVENT_MOVE, buttons));
    if (held_before && !held) ReleaseCapture();
    if (button == 1) Focus_By_Release();
    // The system makes WM_CONTEXTMENU of a right button that goes up and that nobody takes.
    if (button == Right_Button) return std::exchange(right_taken, false);
    return had_control || current;
}

bool Host::On_Capture_Lost(HWND now) {
    if (!held || now == window) return false;
    for (int button = 1; button <= Button_Count; ++button) {
        if (held & (1u << button)) BUTTON_RELEASE(button);
    }
    held = 0;
    // The pointer may be over any window now; the next move says so if it is over this one.
    Leave();
    return true;
}
