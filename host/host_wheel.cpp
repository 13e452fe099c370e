// The wheels: what scrolls rows goes by the system's lines a notch, values go by a step.
#include <algorithm>

#include "host/client.h"
#include "host/host.h"

using namespace galdren;

namespace {

/// What the user has chosen for a notch: lines of a wheel, characters of one that is tilted.
UINT Notch_Lines(bool across) {
    UINT lines = 3;
    SystemParametersInfoA(across ? SPI_GETWHEELSCROLLCHARS : SPI_GETWHEELSCROLLLINES, 0, &lines, 0);
    return lines;
}

/// Steps of a bar that bring another page into view, a step of which stays.
int Page_Steps(const Sliders& bar) {
    const int length = bar.Flag & FLAG_VERTICAL ? bar.Height : bar.Width;
    return bar.Step >= 1 ? std::max(static_cast<int>(static_cast<float>(length) / bar.Step) - 1, 1) : 1;
}

/// Steps of a control for a notch.
int Notch_Steps(const Entry& entry, bool across) {
    constexpr UINT Most_Lines = 1000;
    const Sliders* const bar =
        entry.calls->rows_bar ? entry.calls->rows_bar(*entry.control, across) : nullptr;
    if (!bar) return 1;
    const UINT lines = Notch_Lines(across);
    return lines == WHEEL_PAGESCROLL ? Page_Steps(*bar) : static_cast<int>(std::min(lines, Most_Lines));
}

/// Where the pointer has to be for a control to scroll across, and how its `Scroll` counts then.
struct Way_Across {
    const Sliders* bar = nullptr;  // to be pointed at; null for none
    int sign = 0;                  // 0 when nothing lies across
};

Way_Across Find_Way_Across(const Entry& entry) {
    if (const auto lies_across = entry.calls->lies_across)
        return {nullptr, lies_across(*entry.control) ? -1 : 0};
    const Sliders* const bar = entry.calls->rows_bar ? entry.calls->rows_bar(*entry.control, true) : nullptr;
    if (!bar || bar->Width < 1 || bar->Height < 1) return {};
    // A row of items is all that its list scrolls; others scroll what the pointer is on.
    return entry.calls->is_list ? Way_Across{nullptr, -1} : Way_Across{bar, 1};
}

}  // namespace

/// Whole steps of a control that a movement of the wheel makes, with what was left of those before.
int Host::Wheel_Steps(const Entry& entry, int delta, bool across) {
    const bool is_other = wheel_control != entry.control || wheel_across != across;
    if (is_other) wheel_rest = 0;
    wheel_control = entry.control;
    wheel_across = across;
    wheel_rest += delta * Notch_Steps(entry, across);
    const int steps = wheel_rest / WHEEL_DELTA;
    wheel_rest %= WHEEL_DELTA;
    return steps;
}

bool Host::On_Wheel(int delta, POINT screen, bool across) {
    POINT client = screen;
    ScreenToClient(window, &client);
    const RECT area = Client_Area(window);
    const Entry* entry = PtInRect(&area, client) ? entries.At(To_Logical(window, client)) : nullptr;
    if (!entry || !entry->calls->scroll) return false;
    const Way_Across way = across ? Find_Way_Across(*entry) : Way_Across{nullptr, 1};
    if (way.sign == 0) return false;
    Set_Pointer(screen);
    const int steps = Wheel_Steps(*entry, delta, across);
    if (steps == 0) return true;
    {
        const Pointer_Scope on_bar(way.bar ? To_Screen(window, Middle(way.bar->Rect)) : screen);
        entry->calls->scroll(*entry->control, way.sign * steps);
    }
    Host_Event event{Host_Event::Wheel, 1};
    event.steps = steps;
    Notify(*entry, event);
    return true;
}
