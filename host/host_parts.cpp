// The host as keys, screen readers and tests see it: what they do to a part goes the way of the pointer.
#include <memory>

#include "host/beneath.h"
#include "host/client.h"
#include "host/host.h"
#include "host/parts_view.h"
#include "host/watch.h"

using namespace galdren;

namespace {

/// The code of the key that a movement stands for.
int Key_Of(Part_Move move) {
    switch (move) {
        case Part_Move::Left:
            return KEY_NAVIGATION | VK_LEFT;
        case Part_Move::Right:
            return KEY_NAVIGATION | VK_RIGHT;
        case Part_Move::Up:
            return KEY_NAVIGATION | VK_UP;
        case Part_Move::Down:
            return KEY_NAVIGATION | VK_DOWN;
        case Part_Move::Page_Up:
            return KEY_NAVIGATION | VK_PRIOR;
        case Part_Move::Page_Down:
            return KEY_NAVIGATION | VK_NEXT;
        case Part_Move::Home:
            return KEY_NAVIGATION | VK_HOME;
        case Part_Move::End:
            return KEY_NAVIGATION | VK_END;
    }
    return 0;
}

}  // namespace

Part_Window& Host::Parts() { return *parts; }

/// The control of a part that can be pressed or changed now; null when it cannot.
Host::Entry* Host::Workable(Part_Place place) {
    if (place.control < 0 || static_cast<std::size_t>(place.control) >= entries.Count()) return nullptr;
    Entry& entry = entries[static_cast<std::size_t>(place.control)];
    return Takes_Events(entry) && Has_Size(*entry.control) ? &entry : nullptr;
}

/// Tells the control below the pointer that it is there, after it was shown somewhere else.
void Host::Point_Again() {
    const POINT logical = From_Screen(window, pointer);
    Hand_Over(logical);
    const Entry* const entry = entries.Find(current);
    if (!entry) return;
    const Pointer_Scope there(pointer);
    inside = Is_Inside(*current, logical);
    Tell(*entry, EVENT_MOVE, true);
}

/// What a click on the middle of a part does. The control and the application see the pointer there, and the
/// button held.
bool Host::Press_Part(Part_Place place) {
    Entry* const entry = Workable(place);
    // While a button of the mouse is held the pointer belongs to what it went down on.
    if (!entry || !entry->calls->select || held) return false;
    Tools& control = *entry->control;
    const Class_Parts& described = entry->calls->parts();
    described.Bring_Into_View(control, place.part);
    const Part part = described.Describe(control, place.part);
    if (Is_Empty(part.area) || part.state & PART_PASSIVE) return false;

    const Watch watch(*this, *entry);
    const bool had_pointer = current != nullptr;
    const Pointer_Scope there(To_Screen(window, Middle(part.area)));
    BUTTON_PRESS(1);
    int answered = 0;
    {
        const Paint_Batch batch(window);
        if (current != &control) Leave();
        current = &control;
        answered = Tell(*entry, EVENT_PRESS | EVENT_LEFT, true);
    }
    // What was painted may have changed the host.
    if (const Entry* const pressed = watch.Control()) {
        if (pressed->calls->input)
            keys->Set_Focus({static_cast<int>(entries.Number_Of(*pressed)), place.part});
        if (answered) Notify(*pressed, {Host_Event::Press, answered, 1});
    }
    BUTTON_RELEASE(1);
    if (!watch.Has_Host()) return true;
    const Paint_Batch batch(window);
    if (const Entry* const left = watch.Control()) Let_Go(*left);
    if (had_pointer && !held) Point_Again();
    return true;
}

/// Tells a control that it has neither the pointer nor a button that is held.
void Host::Let_Go(const Entry& entry) {
    if (current == entry.control) current = nullptr;
    const Pointer_Scope away(Nowhere);
    Tell(entry, EVENT_MOVE, true);
}

/// Changes a part, with the pointer on it, and tells the application.
/// @param change  answers whether it did
bool Host::Change_Part(Part_Place place, const Host_Event& event,
                       const std::function<bool(const Class_Parts&, Tools&)>& change) {
    Entry* const entry = Workable(place);
    if (!entry || held) return false;
    Tools& control = *entry->control;
    const Class_Parts& described = entry->calls->parts();
    described.Bring_Into_View(control, place.part);
    const RECT area = described.Describe(control, place.part).area;
    const Watch watch(*this, *entry);
    const Pointer_Scope there(Is_Empty(area) ? Nowhere : To_Screen(window, Middle(area)));
    if (!Beneath_Others(*entry, [&] { return change(described, control) ? 1 : 0; })) return false;
    if (const Entry* const changed = watch.Control()) Notify(*changed, event);
    // What has lit up because the pointer was shown there goes back.
    const Entry* const left = watch.Control();
    if (!left || !left->calls->select) return true;
    const Pointer_Scope back(current == &control ? pointer : Nowhere);
    Tell(*left, EVENT_MOVE, true);
    return true;
}

HWND Host::Parts_View::Window() const { return host.window; }

int Host::Parts_View::Count() const { return static_cast<int>(host.entries.Count()); }

Part_Owner Host::Parts_View::Owner(int number) const {
    const Entry& entry = host.entries[static_cast<std::size_t>(number)];
    Part_Owner owner;
    owner.control = entry.control;
    owner.parts = &entry.calls->parts();
    if (entry.extras) {
        if (!entry.extras->description.empty()) owner.description = entry.extras->description.c_str();
        owner.mnemonic = entry.extras->mnemonic;
    }
    owner.serial = entry.serial;
    owner.shown = !entry.hidden;
    owner.enabled = !entry.disabled;
    return owner;
}

int Host::Parts_View::Number_Of(unsigned serial) const { return host.entries.Number_Of(serial); }

int Host::Parts_View::Control_At(POINT place) const {
    const Entry* const top = host.entries.Topmost(place);
    return top ? static_cast<int>(host.entries.Number_Of(*top)) : -1;
}

Part_Place Host::Parts_View::Focus() const { return host.keys->Focus(); }

bool Host::Parts_View::Set_Focus(Part_Place place) {
    if (place.control < 0) host.Focus(nullptr);
    return host.keys->Set_Focus(place);
}

bool Host::Parts_View::Press(Part_Place place) { return host.Press_Part(place); }

bool Host::Parts_View::Step(Part_Place place, Part_Move move) {
    Host_Event event{Host_Event::Key, 1};
    event.key = Key_Of(move);
    return host.Change_Part(place, event, [&](const Class_Parts& described, Tools& control) {
        return described.Step(control, place.part, move);
    });
}

bool Host::Parts_View::Set_Value(Part_Place place, const char* text) {
    return host.Change_Part(place, {Host_Event::Set, 1}, [&](const Class_Parts& described, Tools& control) {
        return described.Set_Value(control, place.part, text);
    });
}
