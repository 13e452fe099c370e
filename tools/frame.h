/// @file
/// Frames, bodies and arrows.
#pragma once

#include "tools/canvas.h"

namespace galdren {

/// The shaded frame; see `Tools::Cadre`. Its rim is a line wide.
void Paint_Frame(Canvas& canvas, Colors color, unsigned long flags, bool sunken, int width, const Area& area);

/// Where the second, inset frame stands in an area.
inline Area Inner_Frame_Of(const Tools_Fields& control, const Area& area) {
    const int margin = Scaled(control, 5);
    return {area.left + margin, area.right - margin - 1, area.bottom + margin, area.top - margin - 1};
}

/// The outline; see `Tools::Cadre_Outline`.
void Paint_Outline(Canvas& canvas, const Area& area);

/// Whether `buffer` may be read at the control's present size: generated shading was made for another one
/// when `Init` did not renew it, and an image for the size that `Init` saw.
bool Fits_Size(const Tools_Fields& control, const void* buffer);

/// What is known of a buffer that is an image given at another scale; null for any other buffer.
const Given_Image* Zoomed_Image(const Tools_Fields& control, const void* buffer);

/// Paints an image that was given at another scale in the middle of its control, where that is in an area.
/// @param corner  bottom-left pixel of an image as large as the control
void Paint_Zoomed(Canvas& canvas, const Tools_Fields& control, const Given_Image& image, POINT corner,
                  const Area& area);

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
