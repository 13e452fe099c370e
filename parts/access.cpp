#include "parts/access.h"

#include "parts/access_link.h"
#include "parts/access_object.h"
#include "parts/access_system.h"

namespace {

DWORD Event_Of(Part_Change change) {
    switch (change) {
        case Part_Change::Focus:
            return EVENT_OBJECT_FOCUS;
        case Part_Change::Value:
            return EVENT_OBJECT_VALUECHANGE;
        case Part_Change::State:
            return EVENT_OBJECT_STATECHANGE;
        case Part_Change::Chosen:
            return EVENT_OBJECT_SELECTION;
        case Part_Change::Shown:
            return EVENT_OBJECT_SHOW;
        case Part_Change::Hidden:
            return EVENT_OBJECT_HIDE;
        case Part_Change::Text_Selection:
            return EVENT_OBJECT_TEXTSELECTIONCHANGED;
    }
    return 0;
}

}  // namespace

Access::~Access() { Disconnect(); }

bool Access::Message(UINT message, WPARAM wparam, LPARAM lparam, LRESULT& result) {
    if (message == WM_GETOBJECT) return Hand_Out_Object(wparam, static_cast<LONG>(lparam), result);
    if (message == WM_SETFOCUS) Tell(Part_Change::Focus, served.Focus());
    if (message == WM_NCDESTROY) Disconnect();
    // Kept here, for the call may end this object.
    const std::shared_ptr<galdren::Access_Link> asked = link;
    if (!asked || !asked->Take(message, wparam)) return false;
    result = 0;
    return true;
}

/// Controls have their serial numbers as ids, so that events on their parts can name them.
bool Access::Knows(LONG id) const {
    return id == OBJID_CLIENT || (id > 0 && served.Number_Of(static_cast<unsigned>(id)) >= 0);
}

bool Access::Hand_Out_Object(WPARAM wparam, LONG id, LRESULT& result) {
    if (!served.Window() || !Knows(id)) return false;
    const HRESULT done = galdren::Without_Exceptions([&] {
        if (!link) link = std::make_shared<galdren::Access_Link>(served);
        const galdren::Object_Holder object =
            link->Object(id == OBJID_CLIENT ? 0 : static_cast<unsigned>(id));
        result = galdren::Hand_Out(wparam, object.get());
        return result ? S_OK : E_FAIL;
    });
    return done == S_OK;
}

void Access::Tell(Part_Change change, Part_Place place) const {
    const DWORD event = Event_Of(change);
    const HWND window = served.Window();
    if (!window || !IsWinEventHookInstalled(event)) return;
    if (place.control < 0) return NotifyWinEvent(event, window, OBJID_CLIENT, CHILDID_SELF);
    const Part_Owner owner = served.Owner(place.control);
    const bool has_parts = owner.parts->Count(*owner.control) > 0;
    if (!has_parts) return NotifyWinEvent(event, window, OBJID_CLIENT, place.control + 1);
    NotifyWinEvent(event, window, static_cast<LONG>(owner.serial), place.part + 1);
}

void Access::Disconnect() {
    if (link) link->Cut();
    link.reset();
}
