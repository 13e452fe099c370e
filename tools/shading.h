/// @file
/// The shading of bodies, shared by all controls of equal size, border and colour.
#pragma once

#include "tools/fields.h"

namespace galdren {

/// Whether pictures of a control's size may be generated: not where they would take more memory than any
/// display needs. That is reported, once for a control and its parts.
bool May_Generate(const Tools_Fields& control);

/// Makes the report anew for the next control.
void Expect_Other_Control();

/// A diagonal ramp of a colour inside the border of a control, for the caller alone; outside it is black.
/// Null when the memory cannot be had, or for more pixels than may be generated.
unsigned long* Make_Shading(const Tools_Fields& control, const Colors& color);

/// Replaces generated shading by that of `color` at the control's present size, as its theme has it. The ramp
/// goes on outside the border, for a body may be painted with another one.
void Renew_Shading(const Tools_Fields& control, unsigned long*& own, const Colors& color);

/// Number of pixels of generated shading; 0 when the buffer is none.
int Pixels_Of_Shading(const void* buffer);

/// Notes one more holder of an array of bytes or pixels, or as many.
void Share_Array(const void* array);
void Share_Among(const void* array, unsigned holders);

/// Releases an array of bytes or pixels, unless a copy still shares it.
void Release_Array(const void* array);

}  // namespace galdren
