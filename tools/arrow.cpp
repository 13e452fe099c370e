#include <algorithm>
#include <array>
#include <new>
#include <vector>

#include "tools/back_buffer.h"
#include "tools/base.h"
#include "tools/cleanup.h"
#include "tools/lock.h"
#include "tools/scopes.h"
#include "tools/surface.h"

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

    bool operator==(const Arrow_Shape&) const = default;
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
    int count;
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
    return {{{3, {inner.tip, inner.low, inner.high}, Dark_Grey},
             {4, {outer.tip, outer.high, inner.high, inner.tip}, shades.high},
             {4, {outer.low, outer.high, inner.high, inner.low}, shades.base},
             {4, {outer.tip, outer.low, inner.low, inner.tip}, shades.low}}};
}

/// An arrow as pixels, to be stamped on what is there: eight polygons would take four times as long.
struct Stamp {
    Arrow_Shape shape{};
    int left = 0;  ///< from the tip of the zone
    int top = 0;
    int width = 0;
    int height = 0;
    std::vector<unsigned long> hole;  ///< see `Canvas::Stamp`
    std::vector<unsigned long> colors;
};

/// The smallest rectangle around the corners, as place and size of the stamp.
void Enclose(Stamp& stamp, const Facets& facets) {
    POINT low = facets[0].corners[0];
    POINT high = low;
    for (const Facet& facet : facets) {
        for (int i = 0; i < facet.count; ++i) {
            const POINT& corner = facet.corners[static_cast<std::size_t>(i)];
            low = {std::min(low.x, corner.x), std::min(low.y, corner.y)};
            high = {std::max(high.x, corner.x), std::max(high.y, corner.y)};
        }
    }
    stamp.left = low.x;
    stamp.top = high.y;
    stamp.width = high.x - low.x + 1;
    stamp.height = high.y - low.y + 1;
}

void Paint_Facet(HDC dc, const Stamp& stamp, Facet facet) {
    for (POINT& corner : facet.corners)
        corner = {corner.x - stamp.left, stamp.top - corner.y};
    const Selection brush(dc, GetStockObject(DC_BRUSH));
    const Selection pen(dc, GetStockObject(DC_PEN));
    SetDCBrushColor(dc, facet.color);
    SetDCPenColor(dc, facet.color);
    Polygon(dc, facet.corners.data(), facet.count);
}

/// Paints the polygons once, on a ground that is in none of their colours, and keeps the pixels.
/// @return false when the memory cannot be had
bool Cut(Stamp& stamp, const Arrow_Shape& shape) try {
    constexpr unsigned long Around = 0xFF00FF;
    const Facets facets = Facets_Of(shape);
    Enclose(stamp, facets);
    const Back_Buffer picture({stamp.width, stamp.height});
    if (!picture.Usable()) return false;
    const auto count = static_cast<std::size_t>(stamp.width) * static_cast<std::size_t>(stamp.height);
    std::fill_n(picture.Row(0), count, Around);
    for (const Facet& facet : facets)
        Paint_Facet(picture.Context(), stamp, facet);
    GdiFlush();
    const unsigned long* const pixels = picture.Row(0);
    stamp.hole.assign(count, 0);
    stamp.colors.assign(pixels, pixels + count);
    for (std::size_t i = 0; i < count; ++i) {
        if ((pixels[i] & 0xFFFFFF) != Around) continue;
        stamp.hole[i] = 0xFFFFFFFF;
        stamp.colors[i] = 0;
    }
    stamp.shape = shape;
    return true;
} catch (const std::bad_alloc&) {
    return false;
}

/// The stamps that were used last.
struct Stamps {
    std::array<Stamp, 16> kept;
    std::size_t next = 0;  ///< the one to be replaced
};

Stamps& The_Stamps() {
    static Immortal<Stamps> stamps;
    return *stamps;
}

/// Null when the arrow is too large to be kept, or there is no memory.
const Stamp* Stamp_Of(const Arrow_Shape& shape) {
    constexpr int Largest = 64;
    if (shape.size > Largest || shape.inset < 0) return nullptr;
    Stamps& stamps = The_Stamps();
    const auto found = std::find_if(stamps.kept.begin(), stamps.kept.end(),
                                    [&](const Stamp& stamp) { return stamp.shape == shape; });
    if (found != stamps.kept.end()) return &*found;
    Stamp& stamp = stamps.kept[stamps.next];
    stamp.shape = {};
    if (!Cut(stamp, shape)) return nullptr;
    stamps.next = (stamps.next + 1) % stamps.kept.size();
    return &stamp;
}

void Free_Stamps() {
    const Drawing_Lock lock;
    for (Stamp& stamp : The_Stamps().kept)
        stamp = Stamp{};
}

const Cleanup Stamps_Cleanup(Free_Stamps);

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

    if (const Stamp* stamp = Stamp_Of(shape)) {
        canvas.Stamp(stamp->hole.data(), stamp->colors.data(), stamp->width, stamp->height,
                     zone.x + stamp->left, zone.y + stamp->top);
        Current_Color = Shades_Of_Facets[direction].low;
        return;
    }
    for (const Facet& facet : Facets_Of(shape)) {
        const auto corner = [&](std::size_t i) {
            return POINT{zone.x + facet.corners[i].x, zone.y + facet.corners[i].y};
        };
        if (facet.count == 3) {
            canvas.Polygon({corner(0), corner(1), corner(2)}, facet.color);
        } else {
            canvas.Polygon({corner(0), corner(1), corner(2), corner(3)}, facet.color);
        }
    }
}

}  // namespace galdren

using namespace galdren;

void Tools::Arrow(short direction, short inset, short size, short x, short w, short y, short h) {
    if (size <= inset) return;
    Canvas canvas(*this);
    Paint_Arrow(canvas, direction, inset, size, {x, x + w, y, y + h});
}
