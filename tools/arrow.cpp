#include "tools/base.h"

namespace galdren {

namespace {

constexpr unsigned long Dark_Grey = 0x6E6E6E;
constexpr unsigned long Light_Grey = 0xD8D8D8;

enum Direction : short { Left, Right, Down, Up };

/// Colours of the facets: the upper (or right) side, the base, the lower (or left) side.
struct Facets {
    unsigned long high;
    unsigned long base;
    unsigned long low;
};

constexpr Facets Facet_Colors[] = {
    {Light_Grey, Black, Black},       // left
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

}  // namespace galdren

using namespace galdren;

void Tools::Arrow(short direction, short inset, short size, short x, short w, short y, short h) {
    if (size <= inset || direction < Left || direction > Up) return;
    const Axis axis = direction == Left || direction == Right
                          ? Axis{true, direction == Left ? x : x + w, direction == Left ? 1 : -1, y + h / 2,
                                 y + (h - size) / 2}
                          : Axis{false, direction == Down ? y : y + h, direction == Down ? 1 : -1, x + w / 2,
                                 x + (w - size) / 2};
    constexpr int Bevel_At_Tip = 3;
    constexpr int Bevel_At_Base = 1;
    constexpr int Bevel_At_Side = 2;
    const Triangle outer = axis.Make(inset, size, inset, size);
    const Triangle inner = axis.Make(inset + Bevel_At_Tip, size - Bevel_At_Base, inset + Bevel_At_Side, size);
    Canvas canvas(*this);
    Paint_Embossed(canvas, outer, inner, Facet_Colors[direction]);
}
