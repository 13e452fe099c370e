/// @file
/// Captions.
#pragma once

#include "tools/canvas.h"

namespace galdren {

/// The flags of a caption: it is white on a control that is down.
inline unsigned long Caption_Flags(const Tools_Fields& control, bool down) {
    const unsigned long flags = control.Flag & ~FLAG_TEXT_WHITE;
    return down ? flags | FLAG_TEXT_WHITE : flags;
}

/// A caption; see `Tools::Text`. Null and the empty text paint nothing.
void Paint_Caption(Canvas& canvas, HFONT font, const char* text, unsigned long flags, const Area& area,
                   int border);

/// Whether all that `Paint_Caption` may paint of the name of a control lies in `body`, all four edges of that
/// included.
bool Caption_Stays_Inside(const Tools_Fields& control, unsigned long flags, const Area& body);

/// All that `Paint_Caption` may paint for a control. Stacked text may be longer than its area is high.
Reach Caption_Reach(const Tools_Fields& control, HFONT font, const char* text, unsigned long flags,
                    const Area& area, int border);

/// One line of text, placed in `area` by the placement bits in `flags`.
void Paint_Line(Canvas& canvas, HFONT font, const char* text, unsigned long flags, const Area& area,
                unsigned long color);

/// Text from top to bottom: its first 128 characters, one a line, in a column one average character wide
/// with another of room on either side, placed by the placement bits in `flags`.
/// @param border  margin above and below
/// @param margin  margin at the side the column stands at
/// @param format  further bits for DrawText
void Paint_Stacked(Canvas& canvas, HFONT font, const char* text, unsigned long flags, const Area& area,
                   int border, int margin, UINT format, unsigned long color);

}  // namespace galdren
