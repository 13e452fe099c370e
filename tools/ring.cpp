#include "tools/ring.h"

#include "tools/area.h"
#include "tools/lock.h"
#include "tools/window.h"

namespace {

using namespace galdren;

/// The ring that is shown.
struct Ring {
    HWND window = nullptr;  // null while there is none
    RECT area{};            // see `Set_Ring`
};

Ring The_Ring;

/// Fills what a frame of one pixel has in common with a rectangle.
void Paint_Frame(HDC dc, const RECT& frame, const RECT& limit) {
    const auto brush = static_cast<HBRUSH>(GetStockObject(DC_BRUSH));
    for (const RECT& side : {RECT{frame.left, frame.top, frame.right, frame.top + 1},
                             RECT{frame.left, frame.bottom - 1, frame.right, frame.bottom},
                             RECT{frame.left, frame.top, frame.left + 1, frame.bottom},
                             RECT{frame.right - 1, frame.top, frame.right, frame.bottom}}) {
        const RECT shown = Common(side, limit);
        if (!Is_Empty(shown)) FillRect(dc, &shown, brush);
    }
}

}  // namespace

namespace galdren {

bool Has_Ring(HWND window) { return window && The_Ring.window == window; }

void Paint_Ring(HWND window, HDC dc, const RECT& painted) {
    const Ring& ring = The_Ring;
    if (!Has_Ring(window) || !dc) return;
    constexpr COLORREF Light = RGB(255, 255, 255);
    constexpr COLORREF Dark = RGB(0, 0, 0);
    const LONG height = Client_Size(window).cy;
    RECT frame{ring.area.left, height - ring.area.bottom, ring.area.right, height - ring.area.top};
    // The context may be one that is not reset for the next who takes it.
    const COLORREF before = SetDCBrushColor(dc, Light);
    InflateRect(&frame, 1, 1);
    Paint_Frame(dc, frame, painted);
    SetDCBrushColor(dc, Dark);
    InflateRect(&frame, 1, 1);
    Paint_Frame(dc, frame, painted);
    SetDCBrushColor(dc, before);
}

}  // namespace galdren

void Set_Ring(HWND window, const RECT& area) {
    const Drawing_Lock lock;
    The_Ring = {window, area};
    const SIZE client = Client_Size(window);
    Paint_Ring(window, Window_Context(window).Get(), {0, 0, client.cx, client.cy});
}

void Clear_Ring(HWND window) {
    const Drawing_Lock lock;
    if (The_Ring.window == window) The_Ring = {};
}
