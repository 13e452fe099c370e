/// @file
/// What is selected of the output of a text field.
#pragma once

#include <string>

#include "widgets/input_line.h"
#include "widgets/text.h"

namespace galdren {

/// What is selected of an output line; perhaps beyond its end.
Text_Span Selected_Of(const Output_Picture& output, int line);

/// The place in the output that is nearest to a point of the window.
Output_Spot Nearest_Spot(const Texts& field, POINT place);

/// Selects from one place to another.
void Select_Output(Output_Picture& output, Output_Spot from, Output_Spot to);
/// Selects the word at a place.
void Select_Word(const Texts& field, Output_Picture& output, Output_Spot spot);
/// Selects a line.
void Select_Line(const Texts& field, Output_Picture& output, int line);
/// Selects all lines.
void Select_All(const Texts& field, Output_Picture& output);

/// What is selected, without codes and with the oldest line first.
std::string Selected_Text(const Texts& field, const Output_Picture& output);

}  // namespace galdren
