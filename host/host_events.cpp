// What the application and the services hear of an event, and what the host stores by itself.
#include "host/beneath.h"
#include "host/client.h"
#include "host/host.h"
#include "host/watch.h"

using galdren::From_Screen;
using galdren::Handlers;

namespace {

bool Is_By_Pointer(const Host_Event& event) {
    return event.kind == Host_Event::Press || event.kind == Host_Event::Drag;
}

/// Whether an event is of the middle or the right button, which mean nothing to the library.
bool Is_Of_Other_Button(const Host_Event& event) { return event.button > 1; }

/// Shows no button as held for a scope. Handlers that cannot see what happened tell a drag from the wheel by
/// the buttons, and any may be held while the wheel is turned.
class No_Buttons {
  public:
    explicit No_Buttons(bool hides) : before(Button_State), hidden(hides && before) {
        if (hidden) Button_State = 0;
    }
    ~No_Buttons() {
        if (hidden) Button_State = before;
    }
    No_Buttons(const No_Buttons&) = delete;
    No_Buttons& operator=(const No_Buttons&) = delete;

  private:
    unsigned before;
    bool hidden;
};

/// What has become of a part that was pressed or changed.
Part_Change Change_Of(const Part& part) {
    switch (part.role) {
        case Part_Role::List_Item:
        case Part_Role::Tab:
        case Part_Role::Tree_Row:
            return Part_Change::Chosen;
        case Part_Role::Button:
        case Part_Role::Check_Box:
        case Part_Role::Radio_Button:
            return Part_Change::State;
        default:
            return Part_Change::Value;
    }
}

}  // namespace

/// Tells the application what happened to a control, and does what it leaves to the host. The host may be
/// gone then.
/// @return whether the application has taken the event, so that nobody else is to see it
bool Host::Notify(const Entry& told, const Host_Event& event) {
    const Watch watch(*this, told);
    Tools& control = *told.control;
    // The entry may be gone before the callback returns, and the callback with it.
    const std::shared_ptr<const Handlers> handlers = told.handlers;
    const Handlers::Kind kind = handlers ? handlers->kind : Handlers::Kind::Told;
    bool taken = false;
    if (kind == Handlers::Kind::Asked) {
        taken = handlers->Call(control, event);
    } else if (kind == Handlers::Kind::Plain && !Is_Of_Other_Button(event)) {
        const No_Buttons none(!Is_By_Pointer(event));
        handlers->Call(control, event);
    }
    const Entry* entry = watch.Control();
    if (!entry || Is_Of_Other_Button(event)) return taken;
    if (!taken && kind != Handlers::Kind::Plain) {
        const bool stored = Store(*entry, event);
        const bool tells = stored || event.kind != Host_Event::Drag;
        if (handlers && kind == Handlers::Kind::Told && tells) handlers->Call(control, event);
    }
    if (!watch.Has_Host()) return taken;
    Follow_Pages();
    // The ring does not show while the mouse drags.
    if (event.kind != Host_Event::Drag) keys->Update();
    if (const Entry* const left = watch.Control()) Tell_Of_Pointed(*left);
    return taken;
}

/// Stores the value that an event has brought, where the control has not done so itself.
/// @return whether there was one
bool Host::Store(const Entry& entry, const Host_Event& event) {
    if (event.kind == Host_Event::Key) {
        if (event.answer) Begin_Reading(entry);  // the line that was entered has ended it
        return true;
    }
    if (!Is_By_Pointer(event)) return true;
    const int kind = event.kind == Host_Event::Press ? EVENT_PRESS : EVENT_DRAG;
    return Beneath_Others(entry, [&] { return entry.calls->parts().Store(*entry.control, kind) ? 1 : 0; }) !=
           0;
}

/// Tells the services of the part of a control that the pointer is on, which has changed.
void Host::Tell_Of_Pointed(const Entry& entry) const {
    if (services.empty()) return;
    const POINT place = From_Screen(window, {ZCursor_X, ZCursor_Y});
    Tell_Of_Part(entry, entry.calls->parts().At(*entry.control, place));
}

void Host::Tell_Changed(const Tools& control) {
    Follow_Pages();
    keys->Update();
    const Entry* const entry = services.empty() ? nullptr : entries.Find(&control);
    if (entry) Tell_Of_Part(*entry, entry->calls->parts().First(control));
}

/// Tells the services of a part that has changed.
void Host::Tell_Of_Part(const Entry& entry, int part) const {
    const Part_Place place{static_cast<int>(entries.Number_Of(entry)), part};
    Tell_Services(Change_Of(entry.calls->parts().Describe(*entry.control, part)), place);
}

void Host::Tell_Services(Part_Change change, Part_Place place) const {
    for (const std::unique_ptr<Host_Service>& service : services)
        service->Changed(change, place);
}
