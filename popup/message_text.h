/// @file
/// The text of a message, as lines of a text field.
#pragma once

#include "widgets/text.h"

namespace galdren {

/// Appends a text in which "%%" means "%", up to the length of a line. It is data: any other "%" stands for
/// itself.
void Write_Text(Texts& field, const char* text);

/// Appends the lines of a text that are not empty, and ends each with a zero. Only the lines that the field
/// will keep are written.
void Write_Lines(Texts& field, char* text);

}  // namespace galdren
