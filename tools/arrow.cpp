#include "tools/arrow.h"

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

/// An arrow in its zone, which is `size` long and across.
struct Arrow_Shape {
    short direction;
    int inset;
    int size;
    POINT zone;  ///< the corner at its tip, low across
    int center;  ///< across the axis, from the lower (or left) edge of the zone

    /// A point by its depth behind the tip of the zone and its place across.
    POINT At(int depth, int across) const {
        const int along = direction == ARROW_LEFT || direction == ARROW_DOWN ? depth : -depth;
        const bool horizontal = direction == ARROW_LEFT || direction == ARROW_RIGHT;
        return horizontal ? POINT{zone.x + along, zone.y + across} : POINT{zone.x + across, zone.y + along};
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

}  // namespace

void Paint_Arrow(Canvas& canvas, short direction, int inset, int size, const Area& area) {
    if (size <= inset || direction < ARROW_LEFT || direction > ARROW_UP) return;
    const bool horizontal = direction == ARROW_LEFT || direction == ARROW_RIGHT;
    const int across = horizontal ? area.top - area.bottom : area.right - area.left;
    const int low = (across - size) / 2;
    POINT zone{area.left + low, direction == ARROW_DOWN ? area.bottom : area.top};
    if (horizontal) zone = {direction == ARROW_LEFT ? area.left : area.right, area.bottom + low};
    const Arrow_Shape shape{direction, inset, size, zone, across / 2 - low};

    constexpr int Bevel_At_Tip = 3;
    constexpr int Bevel_At_Base = 1;
    constexpr int Bevel_At_Side = 2;
    const Triangle outer(shape, inset, size, inset);
    const Triangle inner(shape, inset + Bevel_At_Tip, size - Bevel_At_Base, inset + Bevel_At_Side);
    const Facet_Shades& shades = Shades_Of_Facets[direction];
    canvas.Polygon({inner.tip, inner.low, inner.high}, Dark_Grey);
    canvas.Polygon({outer.tip, outer.high, inner.high, inner.tip}, shades.high);
    canvas.Polygon({outer.low, outer.high, inner.high, inner.low}, shades.base);
    canvas.Polygon({outer.tip, outer.low, inner.low, inner.tip}, shades.low);
}

}  // namespace galdren
