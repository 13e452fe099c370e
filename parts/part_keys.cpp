#include "parts/part_keys.h"

#include <algorithm>
#include <string>
#include <string_view>
#include <utility>

#include "parts/key_code.h"
#include "tools/keyboard.h"
#include "tools/look.h"
#include "tools/ring.h"
#include "util/wide.h"

namespace {

constexpr DWORD Longest_Pause = 1000;  // in typing a name, in milliseconds

bool Is_Enter(int code) { return code == VK_RETURN || code == (KEY_KEYPAD | VK_RETURN); }

bool Is_Tab(int code) { return (code & ~KEY_SHIFT) == VK_TAB; }

bool Is_Character(int code) { return code >= ' ' && code <= 0xFF; }

/// Which way a key turns the tabs: 1 to the next, -1 to the previous one, 0 for any other key.
int Turn_Of(int code) {
    switch (code) {
        case KEY_CONTROL | VK_TAB:
        case KEY_CONTROL | KEY_NAVIGATION | VK_NEXT:
        case KEY_CONTROL | KEY_KEYPAD | VK_NUMPAD3:
            return 1;
        case KEY_CONTROL | KEY_SHIFT | VK_TAB:
        case KEY_CONTROL | KEY_NAVIGATION | VK_PRIOR:
        case KEY_CONTROL | KEY_KEYPAD | VK_NUMPAD9:
            return -1;
        default:
            return 0;
    }
}

/// A text in small letters.
std::wstring Small(std::string_view text) {
    std::wstring wide = galdren::To_Wide(text);
    CharLowerBuffW(wide.data(), static_cast<DWORD>(wide.size()));
    return wide;
}

bool Same(const RECT& a, const RECT& b) {
    return a.left == b.left && a.top == b.top && a.right == b.right && a.bottom == b.bottom;
}

Part Describe(const Part_Owner& owner, int part) { return owner.parts->Describe(*owner.control, part); }

int Count(const Part_Owner& owner) { return owner.parts->Count(*owner.control); }

bool Is_Pressed_By_Space(Part_Use use) {
    return use == Part_Use::Press || use == Part_Use::Toggle || use == Part_Use::Choose;
}

bool Is_Open_To_Keys(const Part_Owner& owner) {
    const Tools& control = *owner.control;
    return owner.shown && owner.enabled && owner.takes_focus && control.Width > 0 && control.Height > 0 &&
           !(control.Flag & FLAG_PASSIVE);
}

bool Works(const Part_Owner& owner, int part) {
    const Part described = Describe(owner, part);
    return described.use != Part_Use::None && !(described.state & PART_PASSIVE);
}

/// The first part that works, from one on; `Whole` when there is none.
int Walk(const Part_Owner& owner, int part, Part_Move move) {
    for (int left = Count(owner); left > 0; --left) {
        if (Works(owner, part)) return part;
        const int next = owner.parts->Next(*owner.control, part, move);
        if (next == part) break;
        part = next;
    }
    return Whole;
}

/// The direction in which a key goes on from a part that does not work.
Part_Move Onward(Part_Move move) {
    switch (move) {
        case Part_Move::Page_Up:
        case Part_Move::End:
            return Part_Move::Up;
        case Part_Move::Page_Down:
        case Part_Move::Home:
            return Part_Move::Down;
        default:
            return move;
    }
}

Part_Move Opposite(Part_Move direction) {
    switch (direction) {
        case Part_Move::Left:
            return Part_Move::Right;
        case Part_Move::Right:
            return Part_Move::Left;
        case Part_Move::Up:
            return Part_Move::Down;
        default:
            return Part_Move::Up;
    }
}

/// The first part that works, from the one on to which a key leads, else the nearest one before; `Whole` when
/// there is none.
int Nearest(const Part_Owner& owner, int part, Part_Move move) {
    const int found = Walk(owner, part, Onward(move));
    return found == Whole ? Walk(owner, part, Opposite(Onward(move))) : found;
}

/// The part of a control that gets the keyboard when it goes to `part`; nothing when it cannot have it.
std::optional<int> Taker(const Part_Owner& owner, int part) {
    if (!Is_Open_To_Keys(owner)) return {};
    const int count = Count(owner);
    const bool is_one = part >= 0 && part < count;
    if (count > 0 && !is_one) {
        part = Nearest(owner, owner.parts->First(*owner.control), Part_Move::Home);
        if (part == Whole) return {};
        return part;
    }
    if (count == 0) part = Whole;
    if (!Works(owner, part)) return {};
    return part;
}

}  // namespace

Part_Keys::Part_Keys(Part_Window& served, std::function<void(const RECT&)> paint)
    : window(served), repaint(std::move(paint)) {}

Part_Keys::~Part_Keys() {
    if (ring) Clear_Ring(ring_window);
}

Part_Place Part_Keys::Focus() const {
    const int control = number < 0 ? -1 : window.Number_Of(serial);
    if (control < 0 || !Can_Have(control)) return {};
    const Part_Owner owner = window.Owner(control);
    const int count = Count(owner);
    if (count == 0) return {control, Whole};
    return {control, part < 0 ? Taker(owner, Whole).value_or(Whole) : std::min(part, count - 1)};
}

bool Part_Keys::Set_Focus(Part_Place place) {
    const bool stays = place.control >= 0 && place.control == Focus().control && place.part == Whole;
    return stays || Go_To(place, place.part != Whole);
}

/// See `Set_Focus`; for `Whole` the part may be brought into view, too.
bool Part_Keys::Go_To(Part_Place place, bool into_view) {
    if (place.control >= 0) {
        if (place.control >= window.Count()) return false;
        const Part_Owner owner = window.Owner(place.control);
        const std::optional<int> taker = Taker(owner, place.part);
        if (!taker) return false;
        place.part = *taker;
        if (into_view && place.part != Whole) owner.parts->Bring_Into_View(*owner.control, place.part);
    }
    Remember(place);
    Update();
    return true;
}

/// See `Go_To`, for a key that leads to a control.
bool Part_Keys::Lead_To(int control) {
    led = true;
    const bool gone = Go_To({control, Whole}, true);
    led = false;
    return gone;
}

void Part_Keys::Remember(Part_Place place) {
    number = place.control;
    part = place.part;
    if (number >= 0) serial = window.Owner(number).serial;
}

bool Part_Keys::Can_Have(int control) const {
    return control >= 0 && control < window.Count() && Taker(window.Owner(control), Whole).has_value();
}

void Part_Keys::Set_Active(bool now_active) {
    active = now_active;
    Update();
}

void Part_Keys::Hide_Ring() {
    uses_keys = false;
    typed.clear();
    Update();
}

void Part_Keys::Show_Ring() {
    uses_keys = true;
    Update();
}

void Part_Keys::Update() {
    if (const int now = number < 0 ? -1 : window.Number_Of(serial); now >= 0) number = now;
    const Part_Place focus = Focus();
    const Part_Place shown = active ? focus : Part_Place{};
    Place_Caret(shown.control);
    Place_Ring(shown);
    Tell_Focus(focus);
}

/// Tells of another part than the one told of before; also when the keyboard is nowhere because the control
/// that had it was hidden, disabled or removed.
void Part_Keys::Tell_Focus(Part_Place place) {
    const Part_Place now{place.control < 0 ? 0 : static_cast<int>(serial), place.part};
    if (std::exchange(told, now) == now) return;
    if (on_focus) on_focus(place);
}

void Part_Keys::Place_Caret(int control) {
    const auto show = [this](int in, Text_Caret how) {
        const Part_Owner owner = window.Owner(in);
        owner.parts->Show_Caret(*owner.control, how);
    };
    const std::optional<unsigned> next =
        control < 0 ? std::nullopt : std::optional(window.Owner(control).serial);
    if (caret == next) return;
    const int before = caret ? window.Number_Of(*caret) : -1;
    caret = next;
    if (before >= 0) show(before, CARET_AWAY);
    if (control >= 0) show(control, CARET_SHOWN);
}

void Part_Keys::Place_Ring(Part_Place place) {
    std::optional<RECT> next;
    int line = 1;
    if (uses_keys && place.control >= 0 && window.Window()) {
        const Part_Owner owner = window.Owner(place.control);
        const RECT area = Describe(owner, place.part).area;
        next = IsRectEmpty(&area) ? owner.control->Rect : area;
        line = galdren::Line_Width(*owner.control);
    }
    if (ring.has_value() == next.has_value() && (!ring || Same(*ring, *next))) return;
    const std::optional<RECT> before = std::exchange(ring, next);
    const int width_before = 2 * std::exchange(ring_line, line);
    if (next) {
        ring_window = window.Window();
        Set_Ring(ring_window, *next, line);
    } else {
        Clear_Ring(ring_window);
    }
    if (!before) return;
    RECT covered = *before;
    InflateRect(&covered, width_before, width_before);
    repaint(covered);
}

bool Part_Keys::Take(int code, bool repeated) {
    const std::weak_ptr<const bool> here = life;
    if (!Is_Character(code)) typed.clear();
    repeats = repeated;
    const bool taken = Act(code);
    if (here.expired()) return true;
    if (taken || Is_Tab(code)) uses_keys = true;
    Update();
    return taken;
}

bool Part_Keys::Act(int code) {
    if (Is_Tab(code)) return Go_On((code & KEY_SHIFT) != 0);
    if (const int turn = Turn_Of(code)) return Turn_Tab(turn < 0);
    if (code & KEY_CONTROL) return false;
    const Part_Place place = Focus();
    if (const auto move = galdren::Move_Of(code)) return place.control >= 0 && Move(place, *move);
    if (Is_Character(code) && place.control >= 0 && Type(place, static_cast<char>(code))) return true;
    if (code & KEY_ALT) return Go_To_Mnemonic(code & ~(KEY_ALT | KEY_SHIFT));
    if (code == VK_ESCAPE) return Press_Button(cancel_button);
    if (Is_Enter(code)) return Enter(place);
    return code == VK_SPACE && place.control >= 0 && Is_Pressed_By_Space(Use_Of(place)) && Press(place);
}

Part_Use Part_Keys::Use_Of(Part_Place place) const {
    return Describe(window.Owner(place.control), place.part).use;
}

/// Presses a part, unless the key is held down and did so before.
/// @return whether it could be pressed
bool Part_Keys::Press(Part_Place place) {
    if (repeats) return true;
    const std::weak_ptr<const bool> here = life;
    return window.Press(place) || here.expired();
}

bool Part_Keys::Press_Button(const Tools* button) {
    if (!button) return false;
    for (int control = 0; control < window.Count(); ++control) {
        const Part_Owner owner = window.Owner(control);
        if (owner.control == button) return Is_Open_To_Keys(owner) && Press({control, Whole});
    }
    return false;
}

bool Part_Keys::Enter(Part_Place place) {
    const Part_Use use = place.control < 0 ? Part_Use::None : Use_Of(place);
    if (use == Part_Use::Press) return Press(place);
    return Press_Button(default_button) || (use == Part_Use::Choose && Press(place));
}

bool Part_Keys::Move(Part_Place place, Part_Move move) {
    const std::weak_ptr<const bool> here = life;
    if (window.Step(place, move) || here.expired()) return true;
    if (!(Focus() == place)) return true;  // the application has changed the controls
    const Part_Owner owner = window.Owner(place.control);
    if (Count(owner) == 0) return false;
    const int there = Nearest(owner, owner.parts->Next(*owner.control, place.part, move), move);
    return there == Whole || Choose({place.control, there});
}

/// Goes to a part of the control that has the keyboard, and presses it when that is its use.
/// @return true
bool Part_Keys::Choose(Part_Place place) {
    if (!Set_Focus(place)) return true;
    const Part chosen = Describe(window.Owner(place.control), place.part);
    const bool is_on = (chosen.state & (PART_CHOSEN | PART_CHECKED)) != 0;
    if (chosen.use == Part_Use::Choose && !is_on) window.Press(place);
    return true;
}

/// What a character does to a part, apart from Space.
bool Part_Keys::Type(Part_Place place, char character) {
    const Part described = Describe(window.Owner(place.control), place.part);
    if (GetTickCount() - typed_at > Longest_Pause) typed.clear();
    if (character == ' ' && typed.empty()) return false;
    if (character == '+' && described.state & PART_CLOSED) return Move(place, Part_Move::Right);
    if (character == '-' && described.state & PART_OPEN) return Move(place, Part_Move::Left);
    const bool has_names = described.role == Part_Role::List_Item || described.role == Part_Role::Tree_Row;
    return has_names && Search(place, character);
}

/// Goes to the next part whose name begins with what has been typed.
bool Part_Keys::Search(Part_Place place, char character) {
    constexpr wchar_t Broken = 0xFFFD;
    typed += character;
    typed_at = GetTickCount();
    const std::wstring all = Small(typed);
    if (all.back() == Broken) return true;  // its other bytes follow
    const bool goes_on = all.find_first_not_of(all.front()) == std::wstring::npos;
    const std::wstring beginning = goes_on ? all.substr(0, 1) : all;
    const Part_Owner owner = window.Owner(place.control);
    const int count = Count(owner);
    const int start = place.part + (goes_on ? 1 : 0);
    for (int i = 0; i < count; ++i) {
        const int next = (start + i) % count;
        const Part described = Describe(owner, next);
        if (described.use == Part_Use::None || described.state & PART_PASSIVE) continue;
        if (Small(described.name).starts_with(beginning)) return Choose({place.control, next});
    }
    return false;
}

bool Part_Keys::Go_On(bool back) {
    const int count = window.Count();
    const int before = Focus().control;
    int start = number < 0 ? -1 : window.Number_Of(serial);
    // What followed a control that was removed has its number now.
    if (start < 0) start = std::clamp(number, 0, count) - (back ? 0 : 1);
    for (int i = 1; i <= count; ++i) {
        const int control = (start + (back ? count - i : i) + count) % count;
        if (Can_Have(control)) return control != before && Lead_To(control);
    }
    return false;
}

bool Part_Keys::Go_To_Mnemonic(int letter) {
    const int count = window.Count();
    const int start = Focus().control;
    for (int i = 1; i <= count; ++i) {
        const int control = (start + i) % count;
        const Part_Owner owner = window.Owner(control);
        if (owner.mnemonic == 0 || owner.mnemonic != letter || !owner.shown) continue;
        const bool is_label = Describe(owner, Whole).role == Part_Role::Text;
        const int target = is_label ? Behind(control) : control;
        if (target != Focus().control && !Lead_To(target)) continue;
        const Part_Place place = Focus();
        if (!is_label && place.part == Whole && Is_Pressed_By_Space(Use_Of(place))) Press(place);
        return true;
    }
    return false;
}

/// The first control behind another that keys can work; the number of controls when there is none.
int Part_Keys::Behind(int control) const {
    do {
        ++control;
    } while (control < window.Count() && !Can_Have(control));
    return control;
}

/// The tab set whose tabs are turned; -1 when there is none.
int Part_Keys::Tab_Set() const {
    const auto is_tab_set = [this](int control) {
        const Part_Owner owner = window.Owner(control);
        return Is_Open_To_Keys(owner) && Describe(owner, Whole).role == Part_Role::Tab_Set &&
               Can_Have(control);
    };
    const int focus = Focus().control;
    if (focus >= 0 && is_tab_set(focus)) return focus;
    for (int control = 0; control < window.Count(); ++control) {
        if (is_tab_set(control)) return control;
    }
    return -1;
}

bool Part_Keys::Turn_Tab(bool back) {
    const std::weak_ptr<const bool> here = life;
    const int set = Tab_Set();
    if (set < 0) return false;
    const Part_Owner owner = window.Owner(set);
    const int count = Count(owner);
    const int front = owner.parts->First(*owner.control);
    for (int i = 1; i < count; ++i) {
        const int tab = (front + (back ? count - i : i)) % count;
        if (!Works(owner, tab)) continue;
        const bool had_focus = Focus().control >= 0;
        if (Focus().control == set) Set_Focus({set, tab});
        window.Press({set, tab});
        // What had the keyboard may be on the page that has gone.
        if (!here.expired() && had_focus && Focus().control < 0)
            Set_Focus({window.Number_Of(owner.serial), tab});
        return true;
    }
    return false;
}
