/// @file
/// Frames, bodies and arrows.
#pragma once

#include "tools/canvas.h"

namespace galdren {

constexpr unsigned long Black = 0x000000;
constexpr unsigned long White = 0xFFFFFF;
constexpr unsigned long Light_Grey = 0xD8D8D8;    // the lit side of an edge
constexpr unsigned long Dark_Grey = 0x6E6E6E;     // its side in the shade
constexpr unsigned long Outline_Blue = 0xE64040;  // red 64, green 64, blue 230

/// Colour of a highlighted body.
inline Colors Highlight_Color() { return {230, 100, 100}; }

/// The shaded frame; see `Tools::Cadre`.
void Paint_Frame(Canvas& canvas, Colors color, unsigned long flags, bool sunken, int width, const Area& area);

/// Where the second, inset frame stands in an area.
inline Area Inner_Frame_Of(const Area& area) {
    constexpr int Margin = 5;
    return {area.left + Margin, area.right - Margin - 1, area.bottom + Margin, area.top - Margin - 1};
}

/// The blue outline; see `Tools::Cadre_Outline`.
void Paint_Outline(Canvas& canvas, const Area& area);

/// Whether `buffer` may be read at the control's present size: generated shading was made for another one
/// when `Init` did not renew it, and an image for the size that `Init` saw.
bool Fits_Size(const Tools_Fields& control, const void* buffer);

/// The body; see `Tools::Fill_Select`.
void Paint_Body(Canvas& canvas, const Tools_Fields& control, bool highlighted, const void* buffer,
                unsigned long flags, int inset, const Area& area);

/// The buffer that a control is painted from.
inline const unsigned long* Body_Of(const Tools_Fields& control, bool highlighted) {
    return highlighted ? control.Cur_Graph_Select : control.Cur_Graph_Normal;
}

/// The body as the control itself has it.
inline void Paint_Body(Canvas& canvas, const Tools_Fields& control, bool highlighted, int inset,
                       const Area& area) {
    Paint_Body(canvas, control, highlighted, Body_Of(control, highlighted), control.Flag, inset, area);
}

/// An embossed arrow in an area; see `Tools::Arrow`.
void Paint_Arrow(Canvas& canvas, short direction, int inset, int size, const Area& area);

}  // namespace galdren
