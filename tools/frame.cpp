#include "tools/frame.h"

#include <algorithm>
#include <array>

#include "tools/globals.h"
#include "tools/shading.h"

namespace galdren {

namespace {

struct Ring_Shades {
    Colors bottom_right;
    Colors top_left;
};

/// @param ring  1 for the outermost of `width` rings
Ring_Shades Shades_Of_Ring(Colors color, int relief, bool sunken, int width, int ring) {
    constexpr int Extra_Dark = 40;
    const int step = relief / width;
    const int offset = sunken ? step * ring : relief - step * (ring - 1);
    Colors light = color;
    Colors dark = color;
    light += static_cast<short>(offset);
    dark += static_cast<short>(sunken ? -(offset + Extra_Dark) : -offset);
    return sunken ? Ring_Shades{light, dark} : Ring_Shades{dark, light};
}

/// Insets that overlap turn a body round; it stays within the control.
void Paint_Flat_Body(Canvas& canvas, const Area& inside, const Area& control, unsigned long color) {
    Current_Color = color;
    const Area body =
        Common(Upright(inside), {control.left, control.right + 1, control.bottom - 1, control.top});
    if (body.left < body.right && body.bottom < body.top) canvas.Box(body, color);
}

/// Colours of the facets: the upper (or right) side, the base, the lower (or left) side.
struct Facet_Shades {
    unsigned long high;
    unsigned long base;
    unsigned long low;
};

Facet_Shades Shades_Of_Facets(short direction, const Theme& theme) {
    const unsigned long light = theme.Edge_Light;
    const unsigned long dark = theme.Rim;
    if (direction == ARROW_LEFT) return {light, dark, dark};
    return direction == ARROW_RIGHT ? Facet_Shades{light, light, dark} : Facet_Shades{dark, light, light};
}

}  // namespace

void Paint_Frame(Canvas& canvas, Colors color, unsigned long flags, bool sunken, int width,
                 const Area& area) {
    const Theme& theme = canvas.Look();
    const int rim = canvas.Line();
    if (!(flags & FLAG_NO_RIM)) canvas.Outline(area, theme.Rim, rim);
    color = Body_Color(theme, color);
    for (int ring = 1; ring <= width; ++ring) {
        const Ring_Shades shades = Shades_Of_Ring(color, theme.Relief, sunken, width, ring);
        const Area edge = area.Inset(rim - 1 + ring);
        canvas.Row(edge.left, edge.right, edge.bottom, shades.bottom_right.get());
        canvas.Column(edge.right, edge.bottom, edge.top, shades.bottom_right.get());
        canvas.Column(edge.left, edge.bottom, edge.top, shades.top_left.get());
        canvas.Row(edge.left, edge.right + 1, edge.top, shades.top_left.get());
    }
}

void Paint_Outline(Canvas& canvas, const Area& area) {
    canvas.Outline(area.Inset(canvas.Line()), canvas.Look().Caption_Outline, canvas.Line());
}

bool Fits_Size(const Tools_Fields& control, const void* buffer) {
    if (buffer != control.Cur_Graph_Normal && buffer != control.Cur_Graph_Select) return true;
    const int made = Pixels_Of_Shading(buffer);
    return control.Width * control.Height <= (made ? made : control.Last_Width * control.Last_Height);
}

const Given_Image* Zoomed_Image(const Tools_Fields& control, const void* buffer) {
    for (const Given_Image* image : {&control.Given_Normal, &control.Given_Select}) {
        if (buffer && buffer == image->Pixels && image->Is_Zoomed) return image;
    }
    return nullptr;
}

void Paint_Zoomed(Canvas& canvas, const Tools_Fields& control, const Given_Image& image, POINT corner,
                  const Area& area) {
    const Zoom zoom = Zoom_Between(image.Scale, control.Scale);
    corner.x += Offset(Place::Middle, control.Width, zoom.Of(image.Width));
    corner.y += Offset(Place::Middle, control.Height, zoom.Of(image.Height));
    canvas.Zoomed_Pixels(image.Pixels, {image.Width, image.Height}, zoom, corner, area);
}

void Paint_Body(Canvas& canvas, const Tools_Fields& control, bool highlighted, const void* buffer,
                unsigned long flags, int inset, const Area& area) {
    if (flags & FLAG_STATIC) return;
    const Area body = area.Inset(inset);
    const Given_Image* const zoomed = Zoomed_Image(control, buffer);
    if (buffer && !zoomed && Fits_Size(control, buffer)) {
        if (body.right < body.left || body.top < body.bottom) return;
        canvas.Pixels(buffer, control.Width, control.Height, inset, inset - 1, body);
    } else {
        const Theme& theme = Theme_Of(control);
        const Colors flat = Body_Color(theme, highlighted ? Highlight_Color(control) : control.Color);
        Paint_Flat_Body(canvas, {body.left, body.right + 1, body.bottom - 1, body.top}, area, flat.get());
        if (zoomed) Paint_Zoomed(canvas, control, *zoomed, {area.left, area.bottom + 1}, body);
    }
}

void Paint_Arrow(Canvas& canvas, short direction, int inset, int size, const Area& area) {
    if (size <= inset || direction < ARROW_LEFT || direction > ARROW_UP) return;
    const bool horizontal = direction == ARROW_LEFT || direction == ARROW_RIGHT;
    const bool towards_start = direction == ARROW_LEFT || direction == ARROW_DOWN;
    const int across = horizontal ? area.top - area.bottom : area.right - area.left;
    // The arrow stands in a zone of `size` x `size` at its end of the area.
    const int low = (across - size) / 2;
    const int center = across / 2 - low;
    // A point by its depth behind the tip of the zone and its place across.
    const auto at = [&](int depth, int place) {
        const int start = (horizontal ? area.left : area.bottom) + depth;
        const int end = (horizontal ? area.right : area.top) - depth;
        const int along = towards_start ? start : end;
        return horizontal ? POINT{along, area.bottom + low + place} : POINT{area.left + low + place, along};
    };
    // A triangle by its tip and the two ends of its base, the upper (or right) one first.
    const auto triangle = [&](int tip_depth, int base_depth, int margin) {
        return std::array{at(tip_depth, center), at(base_depth, size - margin), at(base_depth, margin)};
    };

    const int bevel_at_tip = canvas.Scaled(3);
    const int bevel_at_base = canvas.Line();
    const int bevel_at_side = canvas.Scaled(2);
    const auto [tip, high, low_end] = triangle(inset, size, inset);
    const auto [inner_tip, inner_high, inner_low] =
        triangle(inset + bevel_at_tip, size - bevel_at_base, inset + bevel_at_side);
    const Facet_Shades shades = Shades_Of_Facets(direction, canvas.Look());
    canvas.Polygon({inner_tip, inner_low, inner_high}, canvas.Look().Edge_Dark);
    canvas.Polygon({tip, high, inner_high, inner_tip}, shades.high);
    canvas.Polygon({low_end, high, inner_high, inner_low}, shades.base);
    canvas.Polygon({tip, low_end, inner_low, inner_tip}, shades.low);
}

}  // namespace galdren
