/// @file
/// Where characters stand in a piece of text, and a piece of which a part is selected.
#pragma once

#include <string_view>

#include "tools/canvas.h"
#include "widgets/input_line.h"

namespace galdren {

/// Where the character at a byte index stands, from the left of the piece on.
int Place_Of(HFONT font, std::string_view text, int at);

/// Whether letters of a piece of text may run from right to left, so that it does not begin at its left edge.
bool Runs_Back(std::string_view text);

/// The byte index of the character that begins nearest to a place.
int Nearest_To(HFONT font, std::string_view text, int x);

/// Writes a piece of a line, not clipped.
/// @param selected  what of it is shown as selected; may be beyond it
/// @param rows      of the ground of what is selected; the columns are not used
/// @return its width
int Write_Span(Canvas& canvas, HFONT font, std::string_view text, POINT place, unsigned long color,
               Text_Span selected, const Area& rows);

}  // namespace galdren
