/// @file
/// Where the parts of a text field are.
#pragma once

#include "tools/area.h"
#include "tools/look.h"
#include "widgets/text.h"

namespace galdren {

/// The band under the top edge that shows the name.
Area Title_Area(const Texts& field);

/// Columns between the left edge of the output and its lines.
inline int Output_Margin(const Texts& field) { return Scaled(field, 2); }

/// Where the output lines stand: the columns left..right-1 and the rows bottom+1..top.
Area Output_Area(const Texts& field);

/// The box of the input line.
Area Input_Area(const Texts& field);

/// Places the input line: it is the whole field when there is nothing else, else it stands at the bottom.
void Set_Input_Box(Texts& field);

/// Puts the bars beside the output as it is now.
/// @param lines    number of output lines
/// @param longest  width of the longest one, in pixels
void Place_Bars(Texts& field, int lines, int longest);

/// How far the output is scrolled right and up, in pixels.
POINT Scrolled_By(const Texts& field);

inline bool Has_V_Bar(const Texts& field) { return (field.Flag & TEXT_V_BAR) != 0; }
inline bool Has_H_Bar(const Texts& field) { return (field.Flag & TEXT_H_BAR) != 0; }

/// Calls `act` with every bar that is configured.
template <class Act>
void For_Bars(Texts& field, Act act) {
    if (Has_V_Bar(field)) act(field.V_Slider);
    if (Has_H_Bar(field)) act(field.H_Slider);
}

}  // namespace galdren
