#include "host/inspector.h"

#include <windowsx.h>

#include <memory>
#include <utility>
#include <vector>

#include "host/client.h"
#include "host/event_name.h"
#include "host/host.h"
#include "host/inspector_panel.h"
#include "tools/paint_count.h"
#include "tools/ring.h"

using namespace galdren;

namespace {

/// An area of logical pixels in those of the system, in the client area and on the screen.
/// @{
RECT On_Client(HWND window, const RECT& area) {
    return Mirror(window, Flip(area, Client_Area(window).bottom));
}
RECT On_Screen(HWND window, const RECT& area) {
    RECT moved = On_Client(window, area);
    MapWindowPoints(window, nullptr, reinterpret_cast<POINT*>(&moved), 2);
    return moved;
}
/// @}

/// Belongs to a host, whether it is on or off, and remembers no control of it.
class Inspector final : public Host_Service {
  public:
    explicit Inspector(Host& inspected) : host(inspected), next(std::exchange(First, this)) {}
    ~Inspector() override;

    /// The inspector of a host; null when it never had one.
    static Inspector* Of(const Host& host);

    bool Is_On() const { return panel != nullptr; }
    void Switch(bool on);

    bool Message(UINT message, WPARAM wparam, LPARAM lparam, LRESULT& result) override;
    void Changed(Part_Change, Part_Place) override {
        if (panel) panel->Ask();
    }

  private:
    HWND Window() const { return host.Parts().Window(); }
    void Follow_Pointer(UINT message, LPARAM lparam);
    void Begin_Event(const char* name);
    void End_Event();
    void Refresh();
    Part_Place Pointed_At() const;
    RECT Visible_Area(Part_Place place) const;
    void Outline(const RECT& area);
    void Withdraw_Outline();

    static Inspector* First;

    Host& host;
    Inspector* next;
    std::unique_ptr<Inspector_Panel> panel;  // null while it is off
    POINT pointer{};                         // on the screen
    bool pointed = false;                    // the pointer is in the window
    RECT outlined{};                         // what has the outline, in logical pixels
    const char* event = nullptr;             // what is being handled, or was last
    bool counts = false;                     // it is being handled
    std::vector<Fact> about_part;            // what is shown
    Paint_Count before;                      // when it began
    Paint_Count cost;                        // of the last one
};

Inspector* Inspector::First = nullptr;

Inspector::~Inspector() {
    Switch(false);
    Inspector** link = &First;
    while (*link != this)
        link = &(*link)->next;
    *link = next;
}

Inspector* Inspector::Of(const Host& host) {
    Inspector* found = First;
    while (found && &found->host != &host)
        found = found->next;
    return found;
}

void Inspector::Switch(bool on) {
    if (on == Is_On() || (on && !Window())) return;
    if (!on) {
        panel.reset();
        Withdraw_Outline();
        return;
    }
    panel = std::make_unique<Inspector_Panel>(Window(), [this] { Refresh(); });
    event = nullptr;
    counts = false;
    pointed = GetCursorPos(&pointer) && WindowFromPoint(pointer) == Window();
    about_part = Facts_Of_Part(host.Parts(), {});
    Refresh();
}

bool Inspector::Message(UINT message, WPARAM, LPARAM lparam, LRESULT&) {
    if (!panel) return false;
    if (message == WM_DESTROY) {
        Switch(false);
        return false;
    }
    Follow_Pointer(message, lparam);
    if (const char* const name = Event_Name(message)) Begin_Event(name);
    return false;
}

void Inspector::Follow_Pointer(UINT message, LPARAM lparam) {
    if (message == WM_MOUSELEAVE) pointed = false;
    if (message != WM_MOUSEMOVE) return;
    pointer = {GET_X_LPARAM(lparam), GET_Y_LPARAM(lparam)};
    ClientToScreen(Window(), &pointer);
    pointed = true;
}

/// What is still to be painted does not count for this event.
void Inspector::Begin_Event(const char* name) {
    UpdateWindow(Window());
    if (!panel) return;  // the application's drawing has switched it off
    before = Tools_Paint_Count();
    event = name;
    counts = true;
    panel->Ask();
}

/// What the event made invalid does count.
void Inspector::End_Event() {
    if (!std::exchange(counts, false)) return;
    UpdateWindow(Window());
    const Paint_Count after = Tools_Paint_Count();
    cost = {after.paints - before.paints, after.copies - before.copies, after.bytes - before.bytes};
}

void Inspector::Refresh() {
    End_Event();
    if (!panel) return;
    const Part_Place place = Pointed_At();
    const RECT area = Visible_Area(place);
    Outline(area);
    if (!panel) return;
    // What was shown stays to be read when the pointer leaves.
    if (pointed) about_part = Facts_Of_Part(host.Parts(), place);
    std::vector<Fact> facts = about_part;
    for (Fact& fact : Facts_Of_Event(event, cost))
        facts.push_back(std::move(fact));
    panel->Show(facts);
    panel->Keep_Clear_Of(On_Screen(Window(), area));
}

Part_Place Inspector::Pointed_At() const {
    if (!pointed) return {};
    const Part_Window& parts = host.Parts();
    const POINT logical = From_Screen(Window(), pointer);
    const int control = parts.Control_At(logical);
    if (control < 0) return {};
    const Part_Owner owner = parts.Owner(control);
    return {control, owner.parts->At(*owner.control, logical)};
}

/// What is to be seen of a part, in logical pixels; nothing without a control.
RECT Inspector::Visible_Area(Part_Place place) const {
    if (place.control < 0) return {};
    const Part_Owner owner = host.Parts().Owner(place.control);
    const RECT described = owner.parts->Describe(*owner.control, place.part).area;
    const RECT area = Is_Empty(described) ? owner.control->Rect : described;
    const RECT client = Client_Area(Window());
    RECT visible{};
    IntersectRect(&visible, &area, &client);
    return visible;
}

/// Has the outline just inside this area, in logical pixels, where it can be seen whatever the area; nowhere
/// when it is empty.
void Inspector::Outline(const RECT& area) {
    if (Same(area, outlined)) return;
    Withdraw_Outline();
    UpdateWindow(Window());
    if (!panel || Is_Empty(area)) return;
    for (Inspector* other = First; other; other = other->next)
        other->Withdraw_Outline();
    outlined = area;
    RECT inner = area;
    InflateRect(&inner, -Ring_Width, -Ring_Width);
    Set_Outline(Window(), Is_Empty(inner) ? area : inner);
}

/// Has what the outline covers painted with the next WM_PAINT.
void Inspector::Withdraw_Outline() {
    if (Is_Empty(outlined)) return;
    RECT covered = std::exchange(outlined, RECT{});
    InflateRect(&covered, Ring_Width, Ring_Width);  // it is around what is very small
    Clear_Outline(Window());
    const RECT stale = On_Client(Window(), covered);
    InvalidateRect(Window(), &stale, FALSE);
}

}  // namespace

void Inspect(Host& host, bool on) {
    Inspector* inspector = Inspector::Of(host);
    if (!inspector && on) {
        auto made = std::make_unique<Inspector>(host);
        inspector = made.get();
        host.Serve(std::move(made));
    }
    if (inspector) inspector->Switch(on);
}

bool Is_Inspected(const Host& host) {
    const Inspector* const inspector = Inspector::Of(host);
    return inspector && inspector->Is_On();
}
