#include "tools/ring.h"

#include <algorithm>

#include "tools/area.h"
#include "tools/lock.h"
#include "tools/window.h"

namespace {

using namespace galdren;

/// A ring or an outline that is shown.
struct Ring {
    COLORREF outside;
    HWND window = nullptr;  // null while there is none
    RECT area{};            // see `Set_Ring`
    int line = 1;           // thickness of each of its lines
};

Ring The_Ring{RGB(0, 0, 0)};
Ring The_Outline{RGB(224, 0, 0)};

/// Fills what a frame has in common with a rectangle.
void Paint_Frame(HDC dc, const RECT& frame, int line, const RECT& limit) {
    const auto brush = static_cast<HBRUSH>(GetStockObject(DC_BRUSH));
    for (const RECT& side : {RECT{frame.left, frame.top, frame.right, frame.top + line},
                             RECT{frame.left, frame.bottom - line, frame.right, frame.bottom},
                             RECT{frame.left, frame.top, frame.left + line, frame.bottom},
                             RECT{frame.right - line, frame.top, frame.right, frame.bottom}}) {
        const RECT shown = Common(side, limit);
        if (!Is_Empty(shown)) FillRect(dc, &shown, brush);
    }
}

void Paint(const Ring& ring, HDC dc, const RECT& painted) {
    constexpr COLORREF Light = RGB(255, 255, 255);
    const LONG height = Client_Size(ring.window).cy;
    RECT frame{ring.area.left, height - ring.area.bottom, ring.area.right, height - ring.area.top};
    // The context may be one that is not reset for the next who takes it.
    const COLORREF before = SetDCBrushColor(dc, Light);
    InflateRect(&frame, ring.line, ring.line);
    Paint_Frame(dc, frame, ring.line, painted);
    SetDCBrushColor(dc, ring.outside);
    InflateRect(&frame, ring.line, ring.line);
    Paint_Frame(dc, frame, ring.line, painted);
    SetDCBrushColor(dc, before);
}

void Show(Ring& ring, HWND window, const RECT& area, int line) {
    const Drawing_Lock lock;
    ring.window = window;
    ring.area = area;
    ring.line = std::max(line, 1);
    const SIZE client = Client_Size(window);
    Paint_Rings(window, Window_Context(window).Get(), {0, 0, client.cx, client.cy});
}

void Forget(Ring& ring, HWND window) {
    const Drawing_Lock lock;
    if (ring.window == window) ring.window = nullptr;
}

}  // namespace

namespace galdren {

bool Has_Rings(HWND window) { return window && (The_Ring.window == window || The_Outline.window == window); }

void Paint_Rings(HWND window, HDC dc, const RECT& painted) {
    if (!Has_Rings(window) || !dc) return;
    for (const Ring& ring : {The_Ring, The_Outline}) {
        if (ring.window == window) Paint(ring, dc, painted);
    }
}

}  // namespace galdren

void Set_Ring(HWND window, const RECT& area, int line) { Show(The_Ring, window, area, line); }

void Clear_Ring(HWND window) { Forget(The_Ring, window); }

void Set_Outline(HWND window, const RECT& area) { Show(The_Outline, window, area, 1); }

void Clear_Outline(HWND window) { Forget(The_Outline, window); }
