#include <algorithm>
#include <array>

#include "tools/base.h"

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

/// One polygon of an arrow.
struct Facet {
    int count;
    std::array<POINT, 4> corners;
    unsigned long color;
};

/// In the order of painting: the triangle, then the facets around it.
using Arrow_Facets = std::array<Facet, 4>;

Arrow_Facets Emboss(const Triangle& outer, const Triangle& inner, const Facet_Shades& shades) {
    return {{{3, {inner.tip, inner.low, inner.high}, Dark_Grey},
             {4, {outer.tip, outer.high, inner.high, inner.tip}, shades.high},
             {4, {outer.low, outer.high, inner.high, inner.low}, shades.base},
             {4, {outer.tip, outer.low, inner.low, inner.tip}, shades.low}}};
}

Arrow_Facets Facets_Of(short direction, int inset, int size, const Area& area) {
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
    return Emboss(outer, inner, Shades_Of_Facets[direction]);
}

/// Paints the facets of one colour of two arrows in one go.
void Paint_Facets(Canvas& canvas, const Arrow_Facets& one, const Arrow_Facets& other, unsigned long color) {
    std::array<POINT, 24> corners;
    std::array<int, 6> counts;
    std::size_t used = 0;
    std::size_t polygons = 0;
    for (const Arrow_Facets* arrow : {&one, &other}) {
        for (const Facet& facet : *arrow) {
            if (facet.color != color) continue;
            std::copy_n(facet.corners.begin(), facet.count, corners.begin() + static_cast<int>(used));
            used += static_cast<std::size_t>(facet.count);
            counts[polygons++] = facet.count;
        }
    }
    canvas.Polygons({corners.data(), used}, {counts.data(), polygons}, color);
}

}  // namespace

void Paint_Arrow(Canvas& canvas, short direction, int inset, int size, const Area& area) {
    if (size <= inset || direction < ARROW_LEFT || direction > ARROW_UP) return;
    for (const Facet& facet : Facets_Of(direction, inset, size, area)) {
        const int count = facet.count;
        canvas.Polygons({facet.corners.data(), static_cast<std::size_t>(count)}, {&count, 1}, facet.color);
    }
}

void Paint_Arrow_Pair(Canvas& canvas, bool upright, int inset, int size, const Area& area) {
    const short start = upright ? ARROW_DOWN : ARROW_LEFT;
    const short end = upright ? ARROW_UP : ARROW_RIGHT;
    const int length = upright ? area.top - area.bottom : area.right - area.left;
    if (2 * size >= length) {
        Paint_Arrow(canvas, start, inset, size, area);
        Paint_Arrow(canvas, end, inset, size, area);
    } else if (size > inset) {
        // They lie apart, and in both the colours come in the same order.
        const Arrow_Facets one = Facets_Of(start, inset, size, area);
        const Arrow_Facets other = Facets_Of(end, inset, size, area);
        for (const unsigned long color : {Dark_Grey, one[1].color, one[3].color})
            Paint_Facets(canvas, one, other, color);
    }
}

}  // namespace galdren

using namespace galdren;

void Tools::Arrow(short direction, short inset, short size, short x, short w, short y, short h) {
    if (size <= inset) return;
    Canvas canvas(*this);
    Paint_Arrow(canvas, direction, inset, size, {x, x + w, y, y + h});
}
