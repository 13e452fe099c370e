#include "parts/access_spot.h"

#include "parts/access_terms.h"
#include "parts/by_name.h"
#include "util/wide.h"

namespace galdren {

namespace {

RECT Client_On_Screen(HWND window) {
    RECT client{};
    GetClientRect(window, &client);
    // As a rectangle, so that the left edge of a mirrored window is on the left.
    MapWindowPoints(window, nullptr, reinterpret_cast<POINT*>(&client), 2);
    return client;
}

bool Has_System_Focus(const Part_Window& window) { return GetFocus() == window.Window(); }

long Role_Of_Client(HWND window) {
    const bool is_dialog = GetClassLongPtrA(window, GCW_ATOM) == reinterpret_cast<ULONG_PTR>(WC_DIALOG);
    return is_dialog ? ROLE_SYSTEM_DIALOG : ROLE_SYSTEM_CLIENT;
}

long State_Of_Client(const Part_Window& window) {
    long state = STATE_SYSTEM_FOCUSABLE;
    if (!IsWindowVisible(window.Window())) state |= STATE_SYSTEM_INVISIBLE;
    if (!IsWindowEnabled(window.Window())) state |= STATE_SYSTEM_UNAVAILABLE;
    if (window.Focus().control < 0 && Has_System_Focus(window)) state |= STATE_SYSTEM_FOCUSED;
    return state;
}

std::wstring Title_Of(HWND window) {
    std::wstring title(static_cast<std::size_t>(GetWindowTextLengthW(window)) + 1, L'\0');
    const int length = GetWindowTextW(window, title.data(), static_cast<int>(title.size()));
    title.resize(static_cast<std::size_t>(length));
    return title;
}

/// A part of a control as a client names it: CHILDID_SELF for `Whole`, and controls of a window alike.
Access_Answer Number_Of(int part) { return long{part + 1}; }

}  // namespace

HRESULT Access_Spot::Find(unsigned serial, long child) {
    if (serial) {
        place.control = window.Number_Of(serial);
        if (place.control < 0) return CO_E_OBJNOTCONNECTED;
        owner = window.Owner(place.control);
    }
    if (child < 0 || child > Children()) return E_INVALIDARG;
    if (child == CHILDID_SELF) return S_OK;
    if (serial) {
        place.part = child - 1;
    } else {
        place.control = child - 1;
        owner = window.Owner(place.control);
    }
    return S_OK;
}

std::wstring Access_Spot::Name() const {
    return Is_Client() ? Title_Of(window.Window()) : To_Wide(Name_Of_Part(window, place));
}

std::wstring Access_Spot::Description() const {
    return Is_Client() ? std::wstring() : To_Wide(Described().selected);
}

long Access_Spot::Role() const {
    return Is_Client() ? Role_Of_Client(window.Window()) : Role_Of(Described());
}

long Access_Spot::State() const {
    if (Is_Client()) return State_Of_Client(window);
    const Part part = Described();
    long state = State_Of(part, owner);
    if (Can_Have_Focus(part)) state |= STATE_SYSTEM_FOCUSABLE;
    if (window.Focus() == place && Has_System_Focus(window)) state |= STATE_SYSTEM_FOCUSED;
    return state;
}

bool Access_Spot::Can_Have_Focus(const Part& part) const {
    if (!Is_Ready(part, owner) || !owner.takes_focus) return false;
    if (place.part != Whole || Parts() == 0) return part.use != Part_Use::None;
    // Keys come to a control with parts by the one that they begin with.
    const int first = owner.parts->First(*owner.control);
    return owner.parts->Describe(*owner.control, first).use != Part_Use::None;
}

RECT Access_Spot::Location() const {
    const RECT client = Client_On_Screen(window.Window());
    if (Is_Client()) return client;
    const RECT area = Described().area;
    if (IsRectEmpty(&area)) return {};
    return {client.left + area.left, client.bottom - area.bottom, client.left + area.right,
            client.bottom - area.top};
}

HRESULT Access_Spot::Value(Access_Answer& answer) const {
    if (Is_Client()) return DISP_E_MEMBERNOTFOUND;
    const Part part = Described();
    if (part.state & PART_PROTECTED) return E_ACCESSDENIED;
    if (Has_Value(part)) {
        answer = To_Wide(part.value);
    } else if (part.level > 0) {
        answer = std::to_wstring(part.level - 1);  // rows of trees tell their depth this way
    } else {
        return DISP_E_MEMBERNOTFOUND;
    }
    return S_OK;
}

const wchar_t* Access_Spot::Action() const {
    if (Is_Client()) return nullptr;
    const Part part = Described();
    return Is_Ready(part, owner) ? Action_Of(part) : nullptr;
}

wchar_t Access_Spot::Mnemonic() const {
    return place.part == Whole ? static_cast<wchar_t>(owner.mnemonic) : L'\0';
}

int Access_Spot::Children() const {
    if (Is_Client()) return window.Count();
    return place.part == Whole ? Parts() : 0;
}

/// A control as a client names it: by its object, or by its number where it has none.
Access_Answer Access_Spot::Control(int number) const {
    const Part_Owner found = window.Owner(number);
    if (found.parts->Count(*found.control) > 0) return link.Object(found.serial);
    return Number_Of(number);
}

Access_Answer Access_Spot::Object() const {
    if (Is_Client()) return Client_Object();
    if (Children() == 0) return {};
    return link.Object(owner.serial);
}

Access_Answer Access_Spot::Client_Object() const { return link.Object(0); }

HRESULT Access_Spot::Focus(Access_Answer& answer) const {
    if (!Has_System_Focus(window)) return S_FALSE;
    const Part_Place focus = window.Focus();
    if (!Is_Client() && focus.control != place.control) return S_FALSE;
    answer = Is_Client() && focus.control >= 0 ? Control(focus.control) : Number_Of(focus.part);
    return S_OK;
}

HRESULT Access_Spot::Selection(Access_Answer& answer) const {
    if (Is_Client() || Parts() == 0) return S_FALSE;
    const int first = owner.parts->First(*owner.control);
    if (!(owner.parts->Describe(*owner.control, first).state & PART_CHOSEN)) return S_FALSE;
    answer = Number_Of(first);
    return S_OK;
}

HRESULT Access_Spot::Hit(POINT point, Access_Answer& answer) const {
    const RECT client = Client_On_Screen(window.Window());
    if (!PtInRect(&client, point)) return S_FALSE;
    const POINT logical{point.x - client.left, client.bottom - 1 - point.y};
    if (Is_Client()) {
        const int number = window.Control_At(logical);
        answer = number < 0 ? Number_Of(Whole) : Control(number);
        return S_OK;
    }
    const RECT area = Described().area;
    if (!owner.shown || !PtInRect(&area, logical)) return S_FALSE;
    answer = Number_Of(owner.parts->At(*owner.control, logical));
    return S_OK;
}

HRESULT Access_Spot::Navigate(long direction, Access_Answer& answer) const {
    Part_Move move{};
    switch (direction) {
        case NAVDIR_FIRSTCHILD:
            return Go_To_End(false, answer);
        case NAVDIR_LASTCHILD:
            return Go_To_End(true, answer);
        case NAVDIR_NEXT:
            return Go_To_Sibling(1, answer);
        case NAVDIR_PREVIOUS:
            return Go_To_Sibling(-1, answer);
        case NAVDIR_LEFT:
            move = Part_Move::Left;
            break;
        case NAVDIR_RIGHT:
            move = Part_Move::Right;
            break;
        case NAVDIR_UP:
            move = Part_Move::Up;
            break;
        case NAVDIR_DOWN:
            move = Part_Move::Down;
            break;
        default:
            return E_INVALIDARG;
    }
    if (Is_Client() || place.part == Whole) return S_FALSE;
    const int there = owner.parts->Next(*owner.control, place.part, move);
    if (there == place.part) return S_FALSE;
    answer = Number_Of(there);
    return S_OK;
}

HRESULT Access_Spot::Go_To_End(bool last, Access_Answer& answer) const {
    if (Children() == 0) return S_FALSE;
    const int child = last ? Children() - 1 : 0;
    answer = Is_Client() ? Control(child) : Number_Of(child);
    return S_OK;
}

HRESULT Access_Spot::Go_To_Sibling(int step, Access_Answer& answer) const {
    if (Is_Client()) return S_FALSE;
    const bool inside = place.part != Whole;
    const int sibling = (inside ? place.part : place.control) + step;
    if (sibling < 0 || sibling >= (inside ? Parts() : window.Count())) return S_FALSE;
    answer = inside ? Number_Of(sibling) : Control(sibling);
    return S_OK;
}

HRESULT Access_Spot::Take_Focus() const {
    const HWND handle = window.Window();
    if (!Is_Client() && !window.Set_Focus(place)) return E_INVALIDARG;
    if (GetFocus() != handle) SetFocus(handle);
    return S_OK;
}

HRESULT Access_Spot::Take_Selection() const {
    if (Is_Client()) return E_INVALIDARG;
    const Part part = Described();
    if (!Can_Be_Chosen(part) || !Is_Ready(part, owner)) return E_INVALIDARG;
    if (part.state & PART_CHOSEN) return S_OK;
    return window.Press(place) ? S_OK : E_FAIL;
}

HRESULT Access_Spot::Press() const {
    if (!Action()) return E_FAIL;
    window.Set_Focus(place);  // as by a click, where keys can work it
    return window.Press(place) ? S_OK : E_FAIL;
}

HRESULT Access_Spot::Set_Value(const std::wstring& value) const {
    if (Is_Client()) return DISP_E_MEMBERNOTFOUND;
    const Part part = Described();
    if (!Is_Ready(part, owner) || part.state & PART_READ_ONLY) return E_ACCESSDENIED;
    std::string text;
    if (!Narrow(value, text)) return E_INVALIDARG;
    if (window.Set_Value(place, text.c_str())) return S_OK;
    return Has_Value(part) ? E_INVALIDARG : DISP_E_MEMBERNOTFOUND;
}

}  // namespace galdren
