/// @file
/// Rectangles: areas in logical pixels, y upward, and boxes in pixels of the client area, y downward.
#pragma once

#include <windows.h>

#include <algorithm>

namespace galdren {

/// A rectangle in logical pixels, edges as the controls give them.
struct Area {
    int left;
    int right;
    int bottom;
    int top;

    /// Whether `inner`, which has to be a proper rectangle, lies inside; common edges count.
    bool Holds(const Area& inner) const {
        return left <= inner.left && inner.left <= inner.right && inner.right <= right &&
               bottom <= inner.bottom && inner.bottom <= inner.top && inner.top <= top;
    }
    bool Holds(const POINT& point) const { return Holds({point.x, point.x, point.y, point.y}); }
    Area Inset(int margin) const { return {left + margin, right - margin, bottom + margin, top - margin}; }
};

/// What two areas have in common; turned round when they have nothing.
Area Common(const Area& a, const Area& b);

/// An area that is filled without its right column and bottom row, turned the right way round: one that was
/// not ends a pixel further.
Area Upright(const Area& area);

/// The pixels of an area, all four edges included, in a client area of this height, y downward.
RECT Device_Of(const Area& area, LONG client_height);

/// The pixels of a rectangle as the controls keep their `Rect`, as an area.
Area Area_Of(const RECT& rect);

/// Rectangles in pixels, y downward, right and bottom not included. Cheaper than calls of the system, of
/// which a paint would make dozens.
/// @{
inline bool Is_Empty(const RECT& box) { return box.left >= box.right || box.top >= box.bottom; }

/// Empty when they have nothing in common.
inline RECT Common(const RECT& a, const RECT& b) {
    return {std::max(a.left, b.left), std::max(a.top, b.top), std::min(a.right, b.right),
            std::min(a.bottom, b.bottom)};
}

/// Makes `box` large enough to have `other` inside, which is not empty.
inline void Include(RECT& box, const RECT& other) {
    if (Is_Empty(box)) {
        box = other;
        return;
    }
    box = {std::min(box.left, other.left), std::min(box.top, other.top), std::max(box.right, other.right),
           std::max(box.bottom, other.bottom)};
}

inline bool Is_Inside(const RECT& inner, const RECT& outer) {
    return inner.left >= outer.left && inner.top >= outer.top && inner.right <= outer.right &&
           inner.bottom <= outer.bottom;
}

inline RECT Whole(SIZE size) { return {0, 0, size.cx, size.cy}; }

inline SIZE Size_Of(const RECT& box) { return {box.right - box.left, box.bottom - box.top}; }
/// @}

/// Where text goes in its area, in either direction; the start is left or top.
enum class Place { Start, Middle, End };

/// Distance of something `length` long from the start of a `room`.
int Offset(Place place, int room, int length);

}  // namespace galdren
