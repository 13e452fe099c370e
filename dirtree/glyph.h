/// @file
/// Glyphs of the directory tree: the lead of a row and the folders, drawn with lines.
///
/// They belong between `Begin_Draw` and `End_Draw`. (x, y) is the bottom-left corner of a glyph. The leads
/// leave `Current_Color` blue, the folders leave it white. They have the scale and the theme of `box`, which
/// may be null.
#pragma once

#include "../widgets/box.h"

/// @name Leads
/// The mark of a node with the connector lines of its row.
/// @param more   not 0 when siblings follow below; only the leaf shows it
/// @param x_end  where the branch towards the item ends
/// @param y_top  where the line up to the parent ends, which is not painted
/// @{

/// A node without children: the lines alone.
GALDREN_TOOLS_API void Icon_Lead_Leaf(Boxs* box, char more, short x, short x_end, short y, short y_top);
/// A node that cannot be opened: a red crossed ring.
GALDREN_TOOLS_API void Icon_Lead_No_Access(Boxs* box, char more, short x, short x_end, short y, short y_top);
/// An open node: a box with a minus sign.
GALDREN_TOOLS_API void Icon_Lead_Expand(Boxs* box, char more, short x, short x_end, short y, short y_top);
/// A closed node: a box with a plus sign.
GALDREN_TOOLS_API void Icon_Lead_Collapse(Boxs* box, char more, short x, short x_end, short y, short y_top);
/// @}

/// A closed folder of 16 x 13 pixels.
GALDREN_TOOLS_API void Icon_Dir_Close(Boxs* box, short x, short y);
/// An open folder, whose flap reaches two pixels to the left of `x`.
GALDREN_TOOLS_API void Icon_Dir_Open(Boxs* box, short x, short y);
