#include "tools/base.h"

namespace galdren {

namespace {

/// Colours of the facets: the upper (or right) side, the base, the lower (or left) side.
struct Facets {
    unsigned long high;
    unsigned long base;
    unsigned long low;
};

constexpr Facets Facet_Colors[] = {
    {Light_Grey, Black, Black},
    {Light_Grey, Light_Grey, Black},  // right
    {Black, Light_Grey, Light_Grey},  // down
    {Black, Light_Grey, Light_Grey},  // up
};

/// A triangle by its tip and the two ends of its base.
struct Triangle {
    POINT tip;
    POINT high;  ///< upper or right end
    POINT low;   ///< lower or left end
};

/// The box an arrow stands in, seen along its own axis.
struct Axis {
    bool horizontal;
    int tip;     ///< the end of the box that the arrow points to
    int inward;  ///< 1 or -1: from the tip into the box
    int center;  ///< across the axis
    int low;     ///< lower (or left) edge of the arrow's zone

    POINT At(int depth, int across) const {
        const int along = tip + inward * depth;
        return horizontal ? POINT{along, across} : POINT{across, along};
    }

    Triangle Make(int tip_depth, int base_depth, int margin, int size) const {
        return {At(tip_depth, center), At(base_depth, low + size - margin), At(base_depth, low + margin)};
    }
};

void Paint_Embossed(Canvas& canvas, const Triangle& outer, const Triangle& inner, const Facets& facets) {
    canvas.Polygon({inner.tip, inner.low, inner.high}, Dark_Grey);
    canvas.Polygon({outer.tip, outer.high, inner.high, inner.tip}, facets.high);
    canvas.Polygon({outer.low, outer.high, inner.high, inner.low}, facets.base);
    canvas.Polygon({outer.tip, outer.low, inner.low, inner.tip}, facets.low);
}

}  // namespace

void Paint_Arrow(Canvas& canvas, short direction, int inset, int size, const Area& area) {
    if (size <= inset || direction < ARROW_LEFT || direction > ARROW_UP) return;
    const bool horizontal = direction == ARROW_LEFT || direction == ARROW_RIGHT;
    const bool at_start = direction == ARROW_LEFT || direction == ARROW_DOWN;
    const int near_end = horizontal ? area.left : area.bottom;
    const int far_end = horizontal ? area.right : area.top;
    const int low = horizontal ? area.bottom : area.left;
    const int across = horizontal ? area.top - area.bottom : area.right - area.left;
    const Axis axis{horizontal, at_start ? near_end : far_end, at_start ? 1 : -1, low + across / 2,
                    low + (across - size) / 2};

    constexpr int Bevel_At_Tip = 3;
    constexpr int Bevel_At_Base = 1;
    constexpr int Bevel_At_Side = 2;
    const Triangle outer = axis.Make(inset, size, inset, size);
    const Triangle inner = axis.Make(inset + Bevel_At_Tip, size - Bevel_At_Base, inset + Bevel_At_Side, size);
    Paint_Embossed(canvas, outer, inner, Facet_Colors[direction]);
}

}  // namespace galdren

using namespace galdren;

void Tools::Arrow(short direction, short inset, short size, short x, short w, short y, short h) {
    if (size <= inset) return;
    Canvas canvas(*this);
    Paint_Arrow(canvas, direction, inset, size, {x, x + w, y, y + h});
}
