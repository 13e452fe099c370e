#include "host/host.h"

#include <windowsx.h>

#include <algorithm>
#include <optional>

#include "parts/key_code.h"

using galdren::Meet;

namespace {

/// A position that is over no control: what the controls are shown while the pointer is not theirs.
constexpr POINT Nowhere{-32768, -32768};

constexpr int Button_Count = 3;
constexpr WPARAM Button_Keys[Button_Count] = {MK_LBUTTON, MK_MBUTTON, MK_RBUTTON};
constexpr int Button_Events[Button_Count] = {EVENT_LEFT, EVENT_MIDDLE, EVENT_RIGHT};

/// The event word for `Select`: the kind and the buttons held.
int Event_Word(int kind, WPARAM keys) {
    int event = kind;
    for (int i = 0; i < Button_Count; ++i) {
        if (keys & Button_Keys[i]) event |= Button_Events[i];
    }
    return event;
}

POINT Position_Of(LPARAM lparam) { return {GET_X_LPARAM(lparam), GET_Y_LPARAM(lparam)}; }

void Set_Pointer(POINT screen) {
    ZCursor_X = screen.x;
    ZCursor_Y = screen.y;
}

/// Shows another pointer position to the controls for a scope.
class Pointer_Scope {
  public:
    explicit Pointer_Scope(POINT screen) : before{ZCursor_X, ZCursor_Y} { Set_Pointer(screen); }
    ~Pointer_Scope() { Set_Pointer(before); }
    Pointer_Scope(const Pointer_Scope&) = delete;
    Pointer_Scope& operator=(const Pointer_Scope&) = delete;

  private:
    POINT before;
};

/// The surface of a window for a scope, with painting limited to a rectangle in logical pixels. What is
/// painted may set and reset clips of its own, which are narrowed to it.
class Clip_Scope {
  public:
    Clip_Scope(HWND window, const RECT& area) {
        Begin_Draw(window, nullptr);
        dc = Z_DC;
        saved = SaveDC(dc);
        Clip_Rect(area.left, area.top - 1, area.right - area.left, area.bottom - area.top);
        SetMetaRgn(dc);
    }
    ~Clip_Scope() {
        RestoreDC(dc, saved);
        End_Draw();
    }
    Clip_Scope(const Clip_Scope&) = delete;
    Clip_Scope& operator=(const Clip_Scope&) = delete;
    explicit operator bool() const { return dc != nullptr; }

  private:
    HDC dc;
    int saved;
};

RECT Client_Area(HWND window) {
    RECT client{};
    GetClientRect(window, &client);
    return client;
}

/// Turns a rectangle of a client area of this height from y down to y up, or back.
RECT Flip(const RECT& area, LONG height) {
    return {area.left, height - area.bottom, area.right, height - area.top};
}

/// The controls count columns from the left in every window; the system counts from the right in one whose
/// layout runs from right to left.
bool Is_Mirrored(HWND window) { return (GetWindowLongA(window, GWL_EXSTYLE) & WS_EX_LAYOUTRTL) != 0; }

POINT To_Logical(HWND window, POINT client) {
    const RECT all = Client_Area(window);
    return {Is_Mirrored(window) ? all.right - 1 - client.x : client.x, all.bottom - 1 - client.y};
}

/// Turns an area of a client area from columns counted by us to columns counted by the system, or back.
RECT Mirror(HWND window, const RECT& area) {
    const LONG width = Client_Area(window).right;
    return Is_Mirrored(window) ? RECT{width - area.right, area.top, width - area.left, area.bottom} : area;
}

class Paint_Scope {
  public:
    explicit Paint_Scope(HWND painted) : window(painted) {
        BeginPaint(window, &paint);
        area = Mirror(window, paint.rcPaint);
        if (Is_Mirrored(window)) SetLayout(paint.hdc, 0);
    }
    ~Paint_Scope() { EndPaint(window, &paint); }
    Paint_Scope(const Paint_Scope&) = delete;
    Paint_Scope& operator=(const Paint_Scope&) = delete;
    HDC Context() const { return paint.hdc; }
    const RECT& Area() const { return area; }

  private:
    HWND window;
    PAINTSTRUCT paint{};
    RECT area{};
};

bool Is_Empty(const RECT& area) { return area.left >= area.right || area.top >= area.bottom; }

long long Pixels(const RECT& area) {
    return static_cast<long long>(area.right - area.left) * (area.bottom - area.top);
}

bool Same(const RECT& a, const RECT& b) {
    return a.left == b.left && a.top == b.top && a.right == b.right && a.bottom == b.bottom;
}

bool Is_Shown(const Tools& control) { return control.Width > 0 && control.Height > 0; }

bool Is_Inside(const Tools& control, POINT logical) {
    return Is_Shown(control) && PtInRect(&control.Rect, logical);
}

/// Whether a key is meant for the application rather than for the text in which it is pressed.
bool Is_Command(UINT message, int code) {
    if (message == WM_CHAR) return false;
    if (message == WM_SYSKEYDOWN || code & (KEY_CONTROL | KEY_ALT)) return true;
    const int key = code & 0xFF;
    const bool edits = (key >= VK_PRIOR && key <= VK_DOWN) || key == VK_INSERT || key == VK_DELETE;
    return code & KEY_NAVIGATION && !edits;
}

}  // namespace

Host::~Host() {
    if (holds) End_Hold(window);
}

void Host::Hold() {
    if (!std::exchange(holds, true)) Begin_Hold(window);
    stale = true;
}

void Host::Set_Background(Colors color) {
    background = color;
    stale = true;
}

void Host::Set_On_Paint(std::function<void()> draw) {
    stale = true;
    on_paint = std::make_shared<const std::function<void()>>(std::move(draw));
}

void Host::Set_On_Key(std::function<bool(int)> take) {
    on_key = take ? std::make_shared<const std::function<bool(int)>>(std::move(take)) : nullptr;
}

/// Has all that is known of the entries worked out anew.
void Host::Forget_Entries() {
    stale = true;
    numbers.clear();
    numbered = 0;
    noted.clear();
}

void Host::Remove(const Tools& control) {
    const auto is_wanted = [&](const Entry& entry) { return entry.control == &control; };
    if (std::erase_if(entries, is_wanted) > 0) Forget_Entries();
    if (current == &control) current = nullptr;
    if (focused == &control) focused = nullptr;
    if (wheel_control == &control) wheel_control = nullptr;
}

void Host::Clear() {
    entries.clear();
    Forget_Entries();
    current = nullptr;
    focused = nullptr;
    wheel_control = nullptr;
}

void Host::Init_All() {
    stale = true;
    for (const Entry& entry : entries)
        entry.calls->init(*entry.control, window);
}

void Host::Refresh(const Tools& control) {
    const RECT area = Mirror(window, Flip(control.Rect, Client_Area(window).bottom));
    InvalidateRect(window, &area, FALSE);
    if (holds && !Is_Empty(control.Rect)) Mark(control.Rect);
}

void Host::Refresh() {
    stale = true;
    InvalidateRect(window, nullptr, FALSE);
}

/// Notes a part that is to be painted anew. Those that meet are painted as one, and so are many.
void Host::Mark(const RECT& area) {
    constexpr std::size_t Most_Marks = 16;
    for (RECT& mark : marked) {
        if (!Meet(mark, area) && marked.size() < Most_Marks) continue;
        const RECT before = mark;
        UnionRect(&mark, &before, &area);
        return;
    }
    marked.push_back(area);
}

bool Host::Message(UINT message, WPARAM wparam, LPARAM lparam, LRESULT& result) {
    if (!window) return false;
    // The callbacks run last in every branch, so that one of them may even destroy the host; but that of
    // `Set_On_Paint` cannot be the last.
    const auto taken = [&result](LRESULT value) {
        result = value;
        return true;
    };
    switch (message) {
        case WM_ERASEBKGND:
            return taken(1);
        case WM_PAINT:
            taken(0);
            Paint();
            return true;
        case WM_SIZE:
            // The origin is at the bottom: a new height moves everything.
            Refresh();
            return false;
        case WM_DISPLAYCHANGE:
        case WM_SETTINGCHANGE:
            stale = true;  // text may look otherwise from now on
            return false;
        case WM_NCDESTROY:
            if (std::exchange(holds, false)) End_Hold(window);
            return false;
        case WM_MOUSEMOVE:
            return On_Move(wparam, Position_Of(lparam)) && taken(0);
        case WM_MOUSELEAVE:
            On_Leave();
            return taken(0);
        case WM_LBUTTONDOWN:
        case WM_LBUTTONDBLCLK:
            return On_Press(1, wparam, Position_Of(lparam)) && taken(0);
        case WM_MBUTTONDOWN:
        case WM_MBUTTONDBLCLK:
            return On_Press(2, wparam, Position_Of(lparam)) && taken(0);
        case WM_RBUTTONDOWN:
        case WM_RBUTTONDBLCLK:
            return On_Press(3, wparam, Position_Of(lparam)) && taken(0);
        case WM_LBUTTONUP:
            return On_Release(1, wparam, Position_Of(lparam)) && taken(0);
        case WM_MBUTTONUP:
            return On_Release(2, wparam, Position_Of(lparam)) && taken(0);
        case WM_RBUTTONUP:
            return On_Release(3, wparam, Position_Of(lparam)) && taken(0);
        case WM_CAPTURECHANGED:
            return On_Capture_Lost(reinterpret_cast<HWND>(lparam)) && taken(0);
        case WM_MOUSEWHEEL:
            return On_Wheel(wparam, Position_Of(lparam)) && taken(0);
        case WM_KEYDOWN:
        case WM_KEYUP:
        case WM_CHAR:
        case WM_SYSKEYDOWN:
            return On_Key(message, wparam, lparam) && taken(0);
        default:
            return false;
    }
}

const Host::Entry* Host::Find(const Tools* control) const {
    for (; numbered < entries.size(); ++numbered)
        numbers.try_emplace(entries[numbered].control, numbered);
    const auto found = numbers.find(control);
    return found == numbers.end() ? nullptr : &entries[found->second];
}

bool Host::Is_As_Noted(std::size_t number) const {
    return Same(noted[number], entries[number].control->Rect);
}

/// Whether each control is where it was when the index was made.
bool Host::Are_Places_Noted() const {
    if (noted.size() != entries.size()) return false;
    const auto is_as_noted = [this](std::size_t number) { return Is_As_Noted(number); };
    const unsigned now = Tools_Placements();
    if (now == placements) return std::all_of(untold.begin(), untold.end(), is_as_noted);
    for (std::size_t i = 0; i < entries.size(); ++i) {
        if (!Is_As_Noted(i)) return false;
    }
    placements = now;
    return true;
}

/// The index of the hit rectangles as they are now.
const galdren::Place_Index& Host::Places() const {
    if (Are_Places_Noted()) return index;
    placements = Tools_Placements();
    // Nothing is noted until all is done, for memory may run out on the way.
    std::vector<RECT> places = std::exchange(noted, {});
    places.clear();
    places.reserve(entries.size());
    untold.clear();
    unplaced.clear();
    alone = entries.size();
    for (std::size_t i = 0; i < entries.size(); ++i) {
        places.push_back(entries[i].control->Rect);
        if (!entries[i].calls->tells_of_moves) untold.push_back(i);
        if (Is_Empty(places[i])) unplaced.push_back(i);
    }
    index.Make(places);
    noted = std::move(places);
    return index;
}

/// The topmost control at a place that gets events; null over bare ground and over a passive control.
const Host::Entry* Host::At(POINT logical) const {
    const galdren::Place_Index& places = Places();
    const Entry* top = nullptr;
    if (alone < entries.size() && Is_Inside(*entries[alone].control, logical)) {
        top = &entries[alone];
    } else {
        std::size_t least = 0;
        places.Search({logical.x, logical.y, logical.x + 1, logical.y + 1}, least, [&](std::size_t number) {
            const Entry& entry = entries[number];
            if (!entry.calls->select || !Is_Inside(*entry.control, logical)) return;
            top = &entry;
            least = number + 1;
        });
        alone = top && !Is_Below(*top, true) ? Number_Of(*top) : entries.size();
    }
    return top && !(top->control->Flag & FLAG_PASSIVE) ? top : nullptr;
}

/// The rectangle of a control with what it may paint around it.
RECT Host::Painted_Area(const Entry& entry) {
    RECT area = entry.control->Rect;
    InflateRect(&area, entry.calls->overhang, entry.calls->overhang);
    return area;
}

/// Whether a control lies above another.
/// @param hidden  counts those that have no size now
bool Host::Is_Below(const Entry& entry, bool hidden) const {
    bool found = false;
    std::size_t least = Number_Of(entry) + 1;
    Places().Search(entry.control->Rect, least, [&](std::size_t number) {
        if (!hidden && !Is_Shown(*entries[number].control)) return;
        found = true;
        least = entries.size();
    });
    return found;
}

/// One call of `Select`. When it may have painted over controls above, these are brought back before
/// anything reaches the screen.
int Host::Tell(const Entry& entry, int event, bool repaints) {
    if (!repaints || !Is_Below(entry, false)) return answer = entry.calls->select(*entry.control, event);
    const Paint_Batch batch(window);
    answer = entry.calls->select(*entry.control, event);
    Paint_Area(Painted_Area(entry));
    return answer;
}

/// Takes the highlight from the control that has it. `Select` with the pointer far away does it for every
/// class, also when the pointer is still inside and another control is now above.
void Host::Leave() {
    const Entry* left = Find(std::exchange(current, nullptr));
    if (!left) return;
    const Pointer_Scope away(Nowhere);
    Tell(*left, EVENT_MOVE, true);
}

/// Hands the pointer to the control under it. While a button is held it stays with the control pressed.
/// @return true when the control is another one than before
bool Host::Hand_Over(POINT logical) {
    if (held) return false;
    const Entry* under = At(logical);
    Tools* const next = under ? under->control : nullptr;
    if (next == current) return false;
    Leave();
    current = next;
    return true;
}

/// Notes where the pointer is and tells the control that has it.
/// @return what its `Select` answers; 0 without a control
int Host::Point(POINT client, int event) {
    pointer = client;
    ClientToScreen(window, &pointer);
    Set_Pointer(pointer);
    const POINT logical = To_Logical(window, client);
    const bool entered = Hand_Over(logical);
    const Entry* entry = Find(current);
    if (!entry) return 0;
    const bool was_inside = std::exchange(inside, Is_Inside(*current, logical));
    return Tell(*entry, event, entered || inside != was_inside);
}

void Host::Notify(const Entry& entry, void (Handlers::*callback)(Tools&) const) {
    // The entry may be gone before the callback returns, and the callback with it.
    const std::shared_ptr<const Handlers> handlers = entry.handlers;
    if (handlers) ((*handlers).*callback)(*entry.control);
}

bool Host::On_Move(WPARAM keys, POINT client) {
    if (!tracking) {
        TRACKMOUSEEVENT request{sizeof request, TME_LEAVE, window, 0};
        tracking = TrackMouseEvent(&request) != 0;
    }
    const int buttons = Event_Word(0, keys);
    const int answer = Point(client, buttons ? EVENT_DRAG | buttons : EVENT_MOVE);
    const Entry* entry = Find(current);
    if (!entry) return false;
    if (answer && held && (keys & MK_LBUTTON)) Notify(*entry, &Handlers::Change);
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

bool Host::On_Press(int button, WPARAM keys, POINT client) {
    BUTTON_PRESS(button);
    if (Wants_Keys()) SetFocus(window);
    const int answer = Point(client, Event_Word(EVENT_PRESS, keys));
    if (!held) SetCapture(window);
    held |= 1u << button;
    const Entry* entry = Find(current);
    if (!entry) return false;
    if (button == 1 && Takes_Keys(*entry)) focused = current;
    if (answer && button == 1) Notify(*entry, &Handlers::Press);
    return true;
}

bool Host::On_Release(int button, WPARAM keys, POINT client) {
    BUTTON_RELEASE(button);
    const bool had_control = current != nullptr;
    const unsigned held_before = std::exchange(held, held & ~(1u << button));
    Point(client, Event_Word(EVENT_MOVE, keys));
    if (held_before && !held) ReleaseCapture();
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

bool Host::On_Wheel(WPARAM wparam, POINT screen) {
    POINT client = screen;
    ScreenToClient(window, &client);
    const RECT area = Client_Area(window);
    const Entry* entry = PtInRect(&area, client) ? At(To_Logical(window, client)) : nullptr;
    if (!entry || !entry->calls->scroll) return false;
    Set_Pointer(screen);
    if (std::exchange(wheel_control, entry->control) != entry->control) wheel_rest = 0;
    wheel_rest += GET_WHEEL_DELTA_WPARAM(wparam);
    const int steps = wheel_rest / WHEEL_DELTA;
    wheel_rest %= WHEEL_DELTA;
    if (steps == 0) return true;
    entry->calls->scroll(*entry->control, steps);
    Notify(*entry, &Handlers::Change);
    return true;
}

void Host::Focus(const Tools* control) {
    const Entry* entry = Find(control);
    if (!control || (entry && entry->calls->input)) focused = control;
}

bool Host::Takes_Keys(const Entry& entry) {
    return entry.calls->input && Is_Shown(*entry.control) && !(entry.control->Flag & FLAG_PASSIVE);
}

/// The control that gets the keys now.
const Host::Entry* Host::Key_Taker() const {
    const Entry* entry = Find(focused);
    return entry && Takes_Keys(*entry) ? entry : nullptr;
}

bool Host::Wants_Keys() const { return on_key || std::any_of(entries.begin(), entries.end(), Takes_Keys); }

/// Gives the focus to the next control that takes keys, in the order of addition, and after the last to the
/// first.
/// @return false when there is no other to go to
bool Host::Move_Focus(bool back) {
    std::vector<const Tools*> takers;
    for (const Entry& entry : entries) {
        if (Takes_Keys(entry)) takers.push_back(entry.control);
    }
    if (takers.empty()) return false;
    if (back) std::reverse(takers.begin(), takers.end());
    const auto now = std::find(takers.begin(), takers.end(), focused);
    const auto next = now == takers.end() || now + 1 == takers.end() ? takers.begin() : now + 1;
    return std::exchange(focused, *next) != *next;
}

/// Offers a key to the application.
/// @return whether it took it; the host may be gone then
bool Host::Offer(UINT message, int code) const {
    const HWND served = window;
    const std::shared_ptr<const std::function<bool(int)>> take = on_key;
    if (!code || !take || !(*take)(code)) return false;
    // The system would beep at the character of a key that it finds no menu for.
    MSG character;
    if (message == WM_SYSKEYDOWN) PeekMessageA(&character, served, WM_SYSCHAR, WM_SYSCHAR, PM_REMOVE);
    return true;
}

bool Host::On_Key(UINT message, WPARAM wparam, LPARAM lparam) {
    if (!Wants_Keys()) return false;
    const int code = galdren::Key_Code(window, message, wparam, lparam);
    if ((code & ~KEY_SHIFT) == VK_TAB && Move_Focus((code & KEY_SHIFT) != 0)) return true;
    const bool for_application = !Key_Taker() || Is_Command(message, code);
    if (for_application && Offer(message, code)) return true;
    const Entry* taker = Key_Taker();
    const int key = taker ? galdren::Typed_Key(message, wparam, code) : 0;
    if (!key) return false;
    taker->calls->input(*taker->control, key);
    Notify(*taker, &Handlers::Change);
    // What the system does with Alt and a key, such as closing the window, it does whoever has the focus.
    return message != WM_SYSKEYDOWN;
}

void Host::Paint() {
    const Paint_Scope paint(window);
    if (IsRectEmpty(&paint.Area())) return;
    if (holds) {
        Paint_Held(paint.Context(), paint.Area());
    } else {
        Paint_Area(Flip(paint.Area(), Client_Area(window).bottom));
    }
}

/// Paints what has changed, and shows a part of the picture, in pixels of the client area with y downward.
/// The callbacks that paint may resize the window or change the host, which is then painted again.
void Host::Paint_Held(HDC target, const RECT& area) {
    const RECT client = Client_Area(window);
    const bool resized = !Same(std::exchange(held_client, client), client);
    if (std::exchange(stale, false) || resized) {
        marked.clear();
        Paint_Area(client);
        // Without a picture all of this is on the window, but nowhere else.
        if (!Show_Hold(window, target, RECT{})) stale = true;
        return;
    }
    const RECT wanted = Flip(area, client.bottom);
    const RECT painted = Paint_Marked();
    RECT both{};
    UnionRect(&both, &painted, &wanted);
    if (Same(both, painted) || Show_Hold(window, target, area)) return;
    stale = true;
    Paint_Area(wanted);
}

/// Paints what is marked.
/// @return an area that was painted
RECT Host::Paint_Marked() {
    if (marked.empty()) return {};
    const Paint_Batch batch(window);
    RECT painted{};
    for (const RECT& area : std::exchange(marked, {}))
        painted = Paint_Area(area);
    return painted;
}

/// Paints a part of the client area anew, in logical pixels with the lower y in `top`. What is painted twice
/// must be painted from the ground up, since smoothed text written over itself grows bolder, and a control
/// may be painted over those above it. So controls that reach out of the area are painted whole, with all
/// that they meet; or if these go on and on, each as far as it is in the area, which takes longer for one
/// control.
/// @return what has been painted
RECT Host::Paint_Area(RECT area) {
    const bool clips = !Grow_To_Controls(area);
    const Paint_Batch batch(window, Flip(area, Client_Area(window).bottom), background.get());
    Paint_Ground(area);
    std::optional<Clip_Scope> clip;
    if (clips) clip.emplace(window, area);
    for (const std::size_t number : Painted_In(area)) {
        if (number >= entries.size()) break;  // a control removed some
        Tools& control = *entries[number].control;
        // Only the control that has the pointer may light up, whatever lies above or beside it.
        const Pointer_Scope shown(&control == current ? pointer : Nowhere);
        entries[number].calls->draw(control);
    }
    return area;
}

/// Grows an area until it holds the controls that meet it.
/// @return false, with the area as it was, when it would become much larger
bool Host::Grow_To_Controls(RECT& area) const {
    constexpr long long Worth_Clipping = 20'000;  // pixels
    const RECT client = Client_Area(window);
    RECT grown = area;
    for (;;) {
        const RECT before = grown;
        for (const std::size_t number : Painted_In(grown)) {
            if (!Is_Shown(*entries[number].control)) continue;
            const RECT control = Painted_Area(entries[number]);
            RECT visible{};
            if (IntersectRect(&visible, &control, &client)) UnionRect(&grown, &grown, &visible);
        }
        if (Same(grown, before)) break;
        if (Pixels(grown) > 2 * Pixels(area) + Worth_Clipping) return false;
    }
    area = grown;
    return true;
}

/// The numbers of the controls that may paint in an area, in the order in which they paint.
std::vector<std::size_t> Host::Painted_In(const RECT& area) const {
    RECT around = area;
    InflateRect(&around, Most_Overhang, Most_Overhang);
    std::vector<std::size_t> found;
    std::size_t least = 0;
    Places().Search(around, least, [&](std::size_t number) {
        if (!Is_Empty(noted[number]) && Meet(Painted_Area(entries[number]), area)) found.push_back(number);
    });
    // One that was never initialised has no area yet, and reports that.
    found.insert(found.end(), unplaced.begin(), unplaced.end());
    std::sort(found.begin(), found.end());
    return found;
}

void Host::Paint_Ground(const RECT& area) const {
    const std::shared_ptr<const std::function<void()>> own_drawing = on_paint;
    if (!own_drawing || !*own_drawing) return;
    if (const Clip_Scope clip(window, area); clip) (*own_drawing)();
}
