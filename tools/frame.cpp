#include "tools/frame.h"

#include <algorithm>

#include "tools/globals.h"
#include "tools/shading.h"

namespace galdren {

namespace {

/// Colours of one ring of a shaded frame.
struct Ring_Shades {
    Colors bottom_right;
    Colors top_left;
};

/// @param ring  1 for the outermost of `width` rings
Ring_Shades Shades_Of_Ring(Colors color, bool sunken, int width, int ring) {
    constexpr int Contrast = 80;
    constexpr int Extra_Dark = 40;
    const int step = Contrast / width;
    const int offset = sunken ? step * ring : Contrast - step * (ring - 1);
    Colors light = color;
    Colors dark = color;
    light += static_cast<short>(offset);
    dark += static_cast<short>(sunken ? -(offset + Extra_Dark) : -offset);
    return sunken ? Ring_Shades{light, dark} : Ring_Shades{dark, light};
}

}  // namespace

void Paint_Frame(Canvas& canvas, Colors color, unsigned long flags, bool sunken, int width,
                 const Area& area) {
    if (!(flags & FLAG_NO_RIM)) canvas.Outline(area, Black);
    for (int ring = 1; ring <= width; ++ring) {
        const Ring_Shades shades = Shades_Of_Ring(color, sunken, width, ring);
        const Area edge = area.Inset(ring);
        canvas.Row(edge.left, edge.right, edge.bottom, shades.bottom_right.get());
        canvas.Column(edge.right, edge.bottom, edge.top, shades.bottom_right.get());
        canvas.Column(edge.left, edge.bottom, edge.top, shades.top_left.get());
        canvas.Row(edge.left, edge.right + 1, edge.top, shades.top_left.get());
    }
}

void Paint_Outline(Canvas& canvas, const Area& area) { canvas.Outline(area.Inset(1), Outline_Blue); }

bool Fits_Size(const Tools_Fields& control, const void* buffer) {
    if (buffer != control.Cur_Graph_Normal && buffer != control.Cur_Graph_Select) return true;
    const int made = Pixels_Of_Shading(buffer);
    return control.Width * control.Height <= (made ? made : control.Last_Width * control.Last_Height);
}

namespace {

/// Insets that overlap turn a body round; it stays within the control.
void Paint_Flat_Body(Canvas& canvas, const Area& inside, const Area& control, unsigned long color) {
    Current_Color = color;
    const Area body =
        Common(Upright(inside), {control.left, control.right + 1, control.bottom - 1, control.top});
    if (body.left < body.right && body.bottom < body.top) canvas.Box(body, color);
}

}  // namespace

void Paint_Body(Canvas& canvas, const Tools_Fields& control, bool highlighted, const void* buffer,
                unsigned long flags, int inset, const Area& area) {
    if (flags & FLAG_STATIC) return;
    const Area body = area.Inset(inset);
    if (buffer && Fits_Size(control, buffer)) {
        if (body.right < body.left || body.top < body.bottom) return;
        canvas.Pixels(buffer, control.Width, control.Height, inset, inset - 1, body);
    } else {
        const Colors flat = highlighted ? Highlight_Color() : control.Color;
        Paint_Flat_Body(canvas, {body.left, body.right + 1, body.bottom - 1, body.top}, area, flat.get());
    }
}

}  // namespace galdren
