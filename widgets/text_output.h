/// @file
/// The output of a text field on its picture.
#pragma once

#include "widgets/text.h"

namespace galdren {

/// Paints the output lines, and notes their widths.
/// @param picture  what the kept picture shows
void Paint_Output(Texts& field, Output_Picture& picture);

}  // namespace galdren
