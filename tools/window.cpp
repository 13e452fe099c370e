#include "tools/window.h"

#include <algorithm>

#include "tools/input.h"

namespace galdren {

namespace {

bool Is_Mirrored(HWND window) { return (GetWindowLongA(window, GWL_EXSTYLE) & WS_EX_LAYOUTRTL) != 0; }

/// A context of the system's cache. We leave it as it came, so it need not be reset, which takes ten times as
/// long as all else.
HDC Take_Cached(HWND window) {
    const LONG style = GetWindowLongA(window, GWL_STYLE);
    DWORD flags = DCX_CACHE | DCX_NORESETATTRS;
    if (style & WS_CLIPSIBLINGS) flags |= DCX_CLIPSIBLINGS;
    if (style & WS_CLIPCHILDREN && !(style & WS_MINIMIZE)) flags |= DCX_CLIPCHILDREN;
    return GetDCEx(window, nullptr, flags);
}

}  // namespace

SIZE Client_Size(HWND window) {
    RECT client{};
    if (window) GetClientRect(window, &client);
    return {client.right, client.bottom};
}

void Map_Logical(HDC dc, SIZE client) {
    const int width = std::max(static_cast<int>(client.cx), 1);
    const int height = std::max(static_cast<int>(client.cy), 1);
    SetLayout(dc, 0);
    SetMapMode(dc, MM_ANISOTROPIC);
    SetWindowExtEx(dc, width, height, nullptr);
    SetViewportExtEx(dc, width, -height, nullptr);
    SetViewportOrgEx(dc, 0, height - 1, nullptr);
}

Window_Context::Window_Context(HWND owner) : window(owner) {
    if (!owner) return;
    const bool is_mirrored = Is_Mirrored(owner);
    const auto contexts = GetClassLongPtrA(owner, GCL_STYLE) & (CS_OWNDC | CS_CLASSDC | CS_PARENTDC);
    dc = contexts || is_mirrored ? GetDC(owner) : Take_Cached(owner);
    if (!dc) return;
    if (contexts & (CS_OWNDC | CS_CLASSDC)) {
        saved = SaveDC(dc);
        SetMapMode(dc, MM_TEXT);
        SetWindowOrgEx(dc, 0, 0, nullptr);
        SetViewportOrgEx(dc, 0, 0, nullptr);
    }
    if (is_mirrored) SetLayout(dc, 0);
}

Window_Context::~Window_Context() {
    if (saved) RestoreDC(dc, saved);
    if (dc) ReleaseDC(window, dc);
}

void Invalidate(HWND window, const Area& area) {
    if (!window) return;
    const SIZE client = Client_Size(window);
    RECT box = Device_Of(area, client.cy);
    if (Is_Mirrored(window)) box = {client.cx - box.right, box.top, client.cx - box.left, box.bottom};
    InvalidateRect(window, &box, FALSE);
}

std::optional<POINT> Find_Pointer(HWND window) {
    const SIZE client = Client_Size(window);
    if (client.cx < 1 || client.cy < 1) return std::nullopt;
    // In a mirrored window columns are counted from the right: a pixel further, they are fewer. Three points,
    // for two would be taken for a rectangle.
    const POINT tip{ZCursor_X, ZCursor_Y};
    POINT points[] = {tip, {tip.x + 1, tip.y}, tip};
    MapWindowPoints(nullptr, window, points, 3);
    const bool mirrored = points[1].x < points[0].x;
    return POINT{mirrored ? client.cx - 1 - points[0].x : points[0].x, client.cy - 1 - points[0].y};
}

}  // namespace galdren
