#include "widgets/text_places.h"

#include <algorithm>
#include <iterator>

#include "tools/base.h"
#include "tools/canvas.h"
#include "tools/dimensions.h"
#include "tools/look.h"
#include "widgets/items.h"
#include "widgets/scroll.h"

namespace galdren {

namespace {

/// Height of the title band.
int Title_Height(const Texts& field) { return Scaled(field, 20); }

/// What a bar takes away from the output.
int Bar_Room(const Texts& field) { return Scaled(field, SPACE) + Scaled(field, CURSEUR); }

bool Stands_At(const Tools& control, const Area& place) {
    const Area now = Area_Of(control);
    return now.left == place.left && now.right == place.right && now.bottom == place.bottom &&
           now.top == place.top;
}

/// Sets a bar over `total` pixels of which `visible` show. One that is not needed is an empty outline. A bar
/// that stands so already is left alone: it may be in a drag.
void Fit_Bar(const Texts& field, Sliders& bar, unsigned long direction, const Area& place, int visible,
             int total) {
    // The bit that means hexadecimal input here would turn a bar round.
    unsigned long flag = (field.Flag & ~(SLIDER_REVERSED | FLAG_VERTICAL)) | direction;
    const bool needed = total > visible;
    if (!needed) flag |= Unused_Bar;
    const float end = needed ? static_cast<float>(total - visible) : 0.0F;
    Copy_Surroundings(bar, field);
    if (bar.Window == field.Window && bar.Flag == flag && bar.End_Val == end && Stands_At(bar, place)) return;
    Set_Bar(bar, field, place, flag, {0.0F, end, static_cast<float>(field.Line_Height)});
    bar.Color = Colors(170, 170, 170);
    if (needed) Size_Thumb(bar, visible, total);
    bar.Init(field.Window);
}

/// How far a bar that works has scrolled, in pixels.
int Scrolled(bool configured, const Sliders& bar) {
    return configured && !Has_Flag(bar, FLAG_PASSIVE) ? Pixels_Scrolled(bar) : 0;
}

}  // namespace

Area Title_Area(const Texts& field) {
    const Area all = Area_Of(field);
    const int space = Scaled(field, SPACE);
    const int top = all.top - space;
    return {all.left + space, all.right - space, top - Title_Height(field), top};
}

Area Output_Area(const Texts& field) {
    const int border = Frame_Width(field);
    const Area all = Area_Of(field);
    const int line = Line_Width(field);
    Area area{all.left + border + line, all.right - border, all.bottom + border, all.top - border - line};
    if (field.Name) area.top -= Scaled(field, SPACE) + Title_Height(field);
    if (Has_V_Bar(field)) area.left += Bar_Room(field);
    if (Has_H_Bar(field)) area.bottom += Bar_Room(field);
    const bool has_input = field.Mode & TEXT_READING || Has_Flag(field, TEXT_INPUT_ROOM);
    if (has_input) area.bottom += 3 * border + field.Line_Height;
    return area;
}

Area Input_Area(const Texts& field) {
    return {field.Input_Box[0], field.Input_Box[1], field.Input_Box[3], field.Input_Box[2]};
}

void Set_Input_Box(Texts& field) {
    const Area all = Area_Of(field);
    const int border = Frame_Width(field);
    Area box = all;
    if (!Has_Flag(field, TEXT_SINGLE_LINE)) {
        box.left += 2 * border;
        box.right -= 2 * border;
        box.bottom += 2 * border;
        box.top = all.bottom + 4 * border + field.Line_Height - 1;
    }
    const int edges[] = {box.left, box.right, box.top, box.bottom};
    std::transform(std::begin(edges), std::end(edges), field.Input_Box, Low_16);
}

void Place_Bars(Texts& field, int lines, int longest) {
    if (!field.Window) return;
    const Area output = Output_Area(field);
    const int thickness = field.Bar_Dim ? Magnitude(field.Bar_Dim) : Scaled(field, CURSEUR);
    if (Has_V_Bar(field)) {
        const int left = field.X + Scaled(field, SPACE);
        Fit_Bar(field, field.V_Slider, FLAG_VERTICAL, {left, left + thickness, output.bottom + 1, output.top},
                output.top - output.bottom, lines * field.Line_Height);
    }
    if (Has_H_Bar(field)) {
        const int bottom = output.bottom - Frame_Width(field) - Scaled(field, CURSEUR);
        Fit_Bar(field, field.H_Slider, 0, {output.left, output.right - 1, bottom, bottom + thickness},
                output.right - output.left, longest);
    }
}

POINT Scrolled_By(const Texts& field) {
    return {Scrolled(Has_H_Bar(field), field.H_Slider), Scrolled(Has_V_Bar(field), field.V_Slider)};
}

}  // namespace galdren
