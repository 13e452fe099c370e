// Painting: what is painted anew, and in what order.
#include <optional>

#include "host/client.h"
#include "host/host.h"

using namespace galdren;

namespace {

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

/// Adds a bit to the flags of a control for a scope.
class Flag_Scope {
  public:
    Flag_Scope(Tools& changed, unsigned long bit) : control(changed), before(changed.Flag) {
        control.Flag |= bit;
    }
    ~Flag_Scope() { control.Flag = before; }
    Flag_Scope(const Flag_Scope&) = delete;
    Flag_Scope& operator=(const Flag_Scope&) = delete;

  private:
    Tools& control;
    unsigned long before;
};

/// A batch that does not go to its window, for a scope.
class Print_Scope {
  public:
    Print_Scope(HWND window, const Colors& ground) : begun(Begin_Print(window, ground.get()) != 0) {}
    ~Print_Scope() {
        if (begun) End_Batch();
    }
    Print_Scope(const Print_Scope&) = delete;
    Print_Scope& operator=(const Print_Scope&) = delete;
    explicit operator bool() const { return begun; }

  private:
    bool begun;
};

long long Pixels(const RECT& area) {
    return static_cast<long long>(area.right - area.left) * (area.bottom - area.top);
}

}  // namespace

/// @cond
/// Has the controls without highlight and caret for a scope. They remember what they show, and go on from
/// that in the window: so it is their members that take both away and give them back, on a print that is
/// shown in between. A control that is held stays as it is, for it would think that it was let go.
class Host::Print_Look {
  public:
    explicit Print_Look(Host& printed) : host(printed), focus(host.focus_serial) {
        host.printing = true;
        if (const Texts* const field = Field()) caret = static_cast<Text_Caret>(field->Caret);
        Show_Caret(CARET_AWAY);
        Tell_Of_Pointer(Nowhere);
    }
    ~Print_Look() {
        Tell_Of_Pointer(host.pointer);
        Show_Caret(caret);
        host.printing = false;
    }
    Print_Look(const Print_Look&) = delete;
    Print_Look& operator=(const Print_Look&) = delete;

  private:
    /// The text field that has the keyboard focus; null when none has.
    Texts* Field() const {
        const Entry* const entry = host.entries.With_Serial(focus);
        return entry && entry->calls->field ? entry->calls->field(*entry->control) : nullptr;
    }
    void Show_Caret(Text_Caret how) const {
        Texts* const field = Field();
        if (field && field->Caret != how) field->Show_Caret(how);
    }
    void Tell_Of_Pointer(POINT screen) const {
        const Entry* const entry = host.held ? nullptr : host.entries.Find(host.current);
        if (!entry) return;
        const Pointer_Scope shown(screen);
        entry->calls->select(*entry->control, EVENT_MOVE);
    }

    Host& host;
    unsigned focus;
    Text_Caret caret = CARET_AWAY;
};
/// @endcond

bool Host::Paint_Into(HDC target, const RECT& place) {
    if (!window || printing) return false;
    Follow_Pages();
    const Print_Scope print(window, Ground());
    if (!print) return false;
    const Print_Look look(*this);
    Paint_Area(Client_Area(window));
    return Show_Batch(target, place) != 0;
}

void Host::Refresh(const Tools& control) { Refresh_Area(control.Rect); }

/// Has an area painted anew, in logical pixels.
void Host::Refresh_Area(const RECT& logical) {
    if (!window || Is_Empty(logical)) return;
    const RECT area = Mirror(window, Flip(logical, Client_Area(window).bottom));
    InvalidateRect(window, &area, FALSE);
    if (holds) Mark(logical);
}

/// Has painted anew what the ring of the keyboard has covered: by Tab at once, for nothing else goes on then,
/// and a WM_PAINT takes longer than all else that the key does.
void Host::Uncover(const RECT& logical) {
    if (!takes_tab || !window || (holds && stale)) return Refresh_Area(logical);
    const RECT client = Client_Area(window);
    RECT visible{};
    if (IntersectRect(&visible, &logical, &client)) Paint_Area(visible);
}

void Host::Refresh() {
    stale = true;
    if (window) InvalidateRect(window, nullptr, FALSE);
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

/// The members of controls that are disabled do not paint into the picture, but have the window painted where
/// they have changed.
void Host::Mark_Disabled(const RECT& area) {
    if (disabled == 0) return;
    for (const std::size_t number : entries.Painted_In(area)) {
        if (entries[number].disabled) Mark(Painted_Area(entries[number]));
    }
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
    Mark_Disabled(wanted);
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
    const Paint_Batch batch(window, Flip(area, Client_Area(window).bottom), Ground().get());
    Paint_Ground(area);
    std::optional<Clip_Scope> clip;
    if (clips) clip.emplace(window, area);
    for (const std::size_t number : entries.Painted_In(area)) {
        if (number >= entries.Count()) break;  // a control removed some
        Draw(entries[number]);
    }
    return area;
}

void Host::Draw(const Entry& entry) {
    if (entry.disabled) return Draw_Disabled(entry);
    // Only the control that has the pointer may light up, whatever lies above or beside it.
    const bool may_light_up = entry.control == current && (!printing || held);
    const Pointer_Scope shown(may_light_up ? pointer : Nowhere);
    entry.calls->draw(*entry.control);
}

/// A control as a passive one, blended with what is behind it.
void Host::Draw_Disabled(const Entry& entry) {
    Tools& control = *entry.control;
    const RECT client = Client_Area(window);
    const RECT area = Painted_Area(entry);
    RECT visible{};
    IntersectRect(&visible, &area, &client);
    const bool blends = blend.Keep(window, visible);
    Set_Veil(entry, VEIL_NONE);
    {
        const Pointer_Scope away(Nowhere);
        const Flag_Scope passive(control, FLAG_PASSIVE);
        entry.calls->draw(control);
    }
    Set_Veil(entry, VEIL_LATER);
    if (blends) blend.Mix(window, fade.share);
}

/// Grows an area until it holds the controls that meet it.
/// @return false, with the area as it was, when it would become much larger
bool Host::Grow_To_Controls(RECT& area) const {
    constexpr long long Worth_Clipping = 20'000;  // pixels
    const RECT client = Client_Area(window);
    RECT grown = area;
    for (;;) {
        const RECT before = grown;
        for (const std::size_t number : entries.Painted_In(grown)) {
            if (!Is_Seen(entries[number])) continue;
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

void Host::Paint_Ground(const RECT& area) const {
    const std::shared_ptr<const std::function<void()>> own_drawing = on_paint;
    if (!own_drawing || !*own_drawing) return;
    if (const Clip_Scope clip(window, area); clip) (*own_drawing)();
}
