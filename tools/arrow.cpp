#include "tools/arrow.h"

#include <array>

#include "tools/frame.h"

namespace galdren {

namespace {

/// Colours of the facets: the upper (or right) side, the base, the lower (or left) side.
struct Facet_Shades {
    unsigned long high;
    unsigned long base;
    unsigned long low;
};

constexpr Facet_Shades Shades_Of_Facets[] = {
    {Light_Grey, Black, Black},
    {Light_Grey, Light_Grey, Black},  // right
    {Black, Light_Grey, Light_Grey},  // down
    {Black, Light_Grey, Light_Grey},  // up
};

/// Which arrow it is, wherever it stands.
struct Arrow_Shape {
    short direction;
    int inset;
    int size;
    int center;  ///< across the axis, from the lower (or left) edge of the arrow's zone

    bool Is_Horizontal() const { return direction == ARROW_LEFT || direction == ARROW_RIGHT; }
    int Inward() const { return direction == ARROW_LEFT || direction == ARROW_DOWN ? 1 : -1; }

    /// A point by its depth behind the tip of the zone and its place across.
    POINT At(int depth, int across) const {
        const int along = Inward() * depth;
        return Is_Horizontal() ? POINT{along, across} : POINT{across, along};
    }
};

/// A triangle by its tip and the two ends of its base.
struct Triangle {
    POINT tip;
    POINT high;  ///< upper or right end
    POINT low;   ///< lower or left end

    Triangle(const Arrow_Shape& shape, int tip_depth, int base_depth, int margin)
        : tip(shape.At(tip_depth, shape.center)),
          high(shape.At(base_depth, shape.size - margin)),
          low(shape.At(base_depth, margin)) {}
};

/// One polygon of an arrow, y upward from the tip of its zone.
struct Facet {
    std::array<POINT, 4> corners;
    unsigned long color;
};

/// In the order of painting: the triangle, then the facets around it.
using Facets = std::array<Facet, 4>;

Facets Facets_Of(const Arrow_Shape& shape) {
    constexpr int Bevel_At_Tip = 3;
    constexpr int Bevel_At_Base = 1;
    constexpr int Bevel_At_Side = 2;
    const Triangle outer(shape, shape.inset, shape.size, shape.inset);
    const Triangle inner(shape, shape.inset + Bevel_At_Tip, shape.size - Bevel_At_Base,
                         shape.inset + Bevel_At_Side);
    const Facet_Shades& shades = Shades_Of_Facets[shape.direction];
    return {{{{inner.tip, inner.low, inner.high, inner.high}, Dark_Grey},
             {{outer.tip, outer.high, inner.high, inner.tip}, shades.high},
             {{outer.low, outer.high, inner.high, inner.low}, shades.base},
             {{outer.tip, outer.low, inner.low, inner.tip}, shades.low}}};
}

}  // namespace

void Paint_Arrow(Canvas& canvas, short direction, int inset, int size, const Area& area) {
    if (size <= inset || direction < ARROW_LEFT || direction > ARROW_UP) return;
    const Arrow_Shape any{direction, inset, size, 0};
    const bool horizontal = any.Is_Horizontal();
    const int near_end = horizontal ? area.left : area.bottom;
    const int far_end = horizontal ? area.right : area.top;
    const int tip = any.Inward() > 0 ? near_end : far_end;
    const int across = horizontal ? area.top - area.bottom : area.right - area.left;
    const int low = (across - size) / 2;
    const POINT zone = horizontal ? POINT{tip, area.bottom + low} : POINT{area.left + low, tip};
    const Arrow_Shape shape{direction, inset, size, across / 2 - low};

    for (const Facet& facet : Facets_Of(shape)) {
        const auto corner = [&](std::size_t i) {
            return POINT{zone.x + facet.corners[i].x, zone.y + facet.corners[i].y};
        };
        canvas.Polygon({corner(0), corner(1), corner(2), corner(3)}, facet.color);
    }
}

}  // namespace galdren
