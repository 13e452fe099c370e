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
inline Area Common(const Area& a, const Area& b) {
    return {std::max(a.left, b.left), std::min(a.right, b.right), std::max(a.bottom, b.bottom),
            std::min(a.top, b.top)};
}

/// An area that is filled without its right column and bottom row, turned the right way round: one that was
/// not ends a pixel further.
inline Area Upright(const Area& area) {
    Area box = area;
    if (box.left > box.right) box = {box.right + 1, box.left + 1, box.bottom, box.top};
    if (box.bottom > box.top) box = {box.left, box.right, box.top - 1, box.bottom - 1};
    return box;
}

/// The pixels of an area, all four edges included, in a client area of this height, y downward.
inline RECT Device_Of(const Area& area, LONG client_height) {
    return {area.left, client_height - 1 - area.top, area.right + 1, client_height - area.bottom};
}

/// The pixels of a rectangle as the controls keep their `Rect`, as an area.
inline Area Area_Of(const RECT& rect) {
    return {static_cast<int>(rect.left), static_cast<int>(rect.right) - 1, static_cast<int>(rect.top),
            static_cast<int>(rect.bottom) - 1};
}

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

inline RECT Box_Of(SIZE size) { return {0, 0, size.cx, size.cy}; }

inline SIZE Size_Of(const RECT& box) { return {box.right - box.left, box.bottom - box.top}; }
/// @}

/// Where text goes in its area, in either direction; the start is left or top.
enum class Place { Start, Middle, End };

/// Distance of something `length` long from the start of a `room`.
inline int Offset(Place place, int room, int length) {
    if (place == Place::Middle) return room / 2 - length / 2;
    return place == Place::End ? room - length : 0;
}

}  // namespace galdren
