// Follows the size of the window with the controls of a layout.
#include <algorithm>
#include <unordered_map>
#include <utility>

#include "host/client.h"
#include "host/host.h"
#include "host/layout.h"
#include "host/layout_solve.h"

namespace galdren {

namespace {

short To_Field(LONG length) { return static_cast<short>(std::clamp<LONG>(length, -32768, 32767)); }

/// Gives a control the fields of an area of a client area of this height.
/// @return whether one has changed
bool Put(Tools& control, const RECT& area, LONG height) {
    const short wanted[] = {To_Field(area.left), To_Field(height - area.bottom),
                            To_Field(area.right - area.left - 1), To_Field(area.bottom - area.top - 1)};
    short* const fields[] = {&control.X, &control.Y, &control.Width, &control.Height};
    bool changed = false;
    for (int i = 0; i < 4; ++i)
        changed |= std::exchange(*fields[i], wanted[i]) != wanted[i];
    return changed;
}

/// The size of a window around a client area.
SIZE With_Frame(HWND window, SIZE client) {
    const auto style = static_cast<DWORD>(GetWindowLongA(window, GWL_STYLE));
    const auto more = static_cast<DWORD>(GetWindowLongA(window, GWL_EXSTYLE));
    RECT area{0, 0, client.cx, client.cy};
    AdjustWindowRectEx(&area, style, !(style & WS_CHILD) && GetMenu(window), more);
    if (style & WS_VSCROLL) area.right += GetSystemMetrics(SM_CXVSCROLL);
    if (style & WS_HSCROLL) area.bottom += GetSystemMetrics(SM_CYHSCROLL);
    return {area.right - area.left, area.bottom - area.top};
}

/// Lays out the controls of its host whenever the window has another size, or a control is hidden or shown.
class Layout_Service final : public Host_Service {
  public:
    Layout_Service(Host& served, Layout_Item layout) : host(served), root(std::move(layout)) {
        std::unordered_map<const Tools*, unsigned> serials;
        for (int i = 0; i < host.Parts().Count(); ++i) {
            const Part_Owner owner = host.Parts().Owner(i);
            serials.emplace(owner.control, owner.serial);
        }
        Find_Controls(root, serials);
    }

    bool Message(UINT message, WPARAM wparam, LPARAM lparam, LRESULT&) override {
        if (message == WM_GETMINMAXINFO) Limit(*reinterpret_cast<MINMAXINFO*>(lparam));
        if (message == WM_SIZE && wparam != SIZE_MINIMIZED) stale = true;
        if (stale || scale != host.Scale()) Lay_Out();
        return false;
    }

    /// Where controls give their room away the next message lays out: many may come and go with one.
    void Changed(Part_Change change, Part_Place) override {
        if (!follows || (change != Part_Change::Shown && change != Part_Change::Hidden)) return;
        stale = true;
        host.Refresh();
    }

    SIZE Needed() {
        Measure(root, host.Parts(), host.Scale());
        return root.needed;
    }

    void Lay_Out() {
        const HWND window = host.Parts().Window();
        if (!window || IsIconic(window)) return;
        stale = false;
        scale = host.Scale();
        const RECT client = Client_Area(window);
        const SIZE needed = Needed();
        std::vector<Placed_Control> placed;
        Arrange(root, {0, 0, std::max(client.right, needed.cx), std::max(client.bottom, needed.cy)}, placed);
        const unsigned run = ++runs;
        for (const Placed_Control& control : placed) {
            Place(window, control, client.bottom);
            if (run != runs) return;  // an `Init` has changed the size of the window, and all was laid out
        }
    }

  private:
    void Find_Controls(Layout_Item& item, const std::unordered_map<const Tools*, unsigned>& serials) {
        follows |= item.if_shown;
        if (const auto found = serials.find(item.control); found != serials.end())
            item.serial = found->second;
        for (Layout_Item& inner : item.items)
            Find_Controls(inner, serials);
    }

    void Place(HWND window, const Placed_Control& placed, LONG height) {
        const int number = host.Parts().Number_Of(placed.serial);
        if (number < 0) return;  // the `Init` of another has removed it
        Tools& control = *host.Parts().Owner(number).control;
        const bool changed = Put(control, placed.area, height);
        if (changed || control.Window != window) host.Init(control);
    }

    void Limit(MINMAXINFO& limits) {
        const HWND window = host.Parts().Window();
        if (!window) return;
        const SIZE least = With_Frame(window, Needed());
        POINT& smallest = limits.ptMinTrackSize;
        POINT& largest = limits.ptMaxTrackSize;
        smallest = {std::max(smallest.x, least.cx), std::max(smallest.y, least.cy)};
        largest = {std::max(largest.x, smallest.x), std::max(largest.y, smallest.y)};
    }

    Host& host;
    Layout_Item root;
    bool follows = false;  // an item gives its room away
    bool stale = false;
    int scale = 0;  // at which all was laid out
    unsigned runs = 0;
};

}  // namespace

}  // namespace galdren

SIZE Layout::Lay_Out(Host& host, Item layout) {
    auto service = std::make_unique<galdren::Layout_Service>(host, std::move(layout));
    galdren::Layout_Service& served = *service;
    const SIZE needed = served.Needed();
    host.Serve(std::move(service));
    served.Lay_Out();
    host.Refresh();
    return needed;
}
