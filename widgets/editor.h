/// @file
/// What the hue editor and the colour editor do the same.
#pragma once

#include "tools/base.h"
#include "widgets/valuator.h"

namespace galdren {

/// The ends of the values in a trough.
constexpr float Trough_Start = 0.0F;
constexpr float Trough_End = 0.99F;

/// Between the parts of an editor.
constexpr int Part_Gap = 2;

/// Binds an editor to its window and gives it colour and font.
void Bind_Editor(Tools& editor, HWND window);

/// What frame and swatch leave for the troughs inside a frame of this width. Its width may be negative.
Area Room_In_Frame(const Tools& editor, int border);

/// Place of the swatch, to the right of `room`.
Area Swatch_Area(const Area& room);

/// Gives a part frame, colour and font of its editor, but not the style of the font.
void Copy_Look(Tools& part, const Tools& editor, int border);

/// Gives a part a name that outlives it.
void Name_Part(Tools& part, const char* name);

/// Moves the thumb of a trough to a value, when it stands elsewhere.
void Move_Thumb(Valuators& trough, float value);

}  // namespace galdren
