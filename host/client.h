/// @file
/// Places on a window and in its client area, and where the controls see the pointer.
///
/// Logical pixels are those of the controls: (0, 0) is the bottom-left one, and `RECT::top` has the lower y.
#pragma once

#include <windows.h>

#include "../tools/input.h"
#include "../tools/tools.h"

namespace galdren {

/// A position that is over no control: what the controls are shown while the pointer is not theirs.
constexpr POINT Nowhere{-32768, -32768};

inline void Set_Pointer(POINT screen) {
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

inline bool Is_Empty(const RECT& area) { return area.left >= area.right || area.top >= area.bottom; }

inline bool Same(const RECT& a, const RECT& b) {
    return a.left == b.left && a.top == b.top && a.right == b.right && a.bottom == b.bottom;
}

inline POINT Middle(const RECT& area) { return {(area.left + area.right) / 2, (area.top + area.bottom) / 2}; }

inline RECT Client_Area(HWND window) {
    RECT client{};
    GetClientRect(window, &client);
    return client;
}

/// Turns a rectangle of a client area of this height from y down to y up, or back.
inline RECT Flip(const RECT& area, LONG height) {
    return {area.left, height - area.bottom, area.right, height - area.top};
}

/// The controls count columns from the left in every window; the system counts from the right in one whose
/// layout runs from right to left.
inline bool Is_Mirrored(HWND window) { return (GetWindowLongA(window, GWL_EXSTYLE) & WS_EX_LAYOUTRTL) != 0; }

/// Turns a point of the client area into logical pixels, or back.
inline POINT To_Logical(HWND window, POINT client) {
    const RECT all = Client_Area(window);
    return {Is_Mirrored(window) ? all.right - 1 - client.x : client.x, all.bottom - 1 - client.y};
}

/// The same, and where the point is on the screen: for every move of the pointer, with the fewest questions
/// to the system.
inline POINT To_Logical(HWND window, POINT client, POINT& screen) {
    // A pixel further in a mirrored window is one to the left. Three points, for two would be taken for a
    // rectangle.
    POINT points[] = {client, {client.x + 1, client.y}, client};
    MapWindowPoints(window, nullptr, points, 3);
    screen = points[0];
    const bool is_mirrored = points[1].x < points[0].x;
    const RECT all = Client_Area(window);
    return {is_mirrored ? all.right - 1 - client.x : client.x, all.bottom - 1 - client.y};
}

inline POINT To_Screen(HWND window, POINT logical) {
    POINT point = To_Logical(window, logical);
    ClientToScreen(window, &point);
    return point;
}

inline POINT From_Screen(HWND window, POINT screen) {
    ScreenToClient(window, &screen);
    return To_Logical(window, screen);
}

/// Turns an area of a client area from columns counted by us to columns counted by the system, or back.
inline RECT Mirror(HWND window, const RECT& area) {
    const LONG width = Client_Area(window).right;
    return Is_Mirrored(window) ? RECT{width - area.right, area.top, width - area.left, area.bottom} : area;
}

inline bool Has_Size(const Tools& control) { return control.Width > 0 && control.Height > 0; }

inline bool Is_Inside(const Tools& control, POINT logical) {
    return Has_Size(control) && PtInRect(&control.Rect, logical);
}

}  // namespace galdren
