/// @file
/// What surrounds a control and so says how it is painted: the scale and the theme of its window.
#pragma once

#include <algorithm>

#include "tools/fields.h"

namespace galdren {

/// The scale at which sizes are as they are designed, in percent.
constexpr int Unscaled = 100;

/// A length of `pixels` at 96 dots per inch, at a scale in percent, of which 0 is 100: rounded, halves away
/// from 0.
constexpr int Scaled(unsigned short scale, int pixels) {
    if (scale == 0 || scale == Unscaled) return pixels;
    const int half = pixels < 0 ? -Unscaled / 2 : Unscaled / 2;
    return (pixels * scale + half) / Unscaled;
}

/// The same at the scale of a control.
inline int Scaled(const Tools_Fields& control, int pixels) { return Scaled(control.Scale, pixels); }

/// The thickness of what is a line of one pixel when nothing is scaled: two from 150 % on, and never none.
inline int Line_Width(const Tools_Fields& control) { return std::max(Scaled(control, 1), 1); }

/// The theme of a control that has none.
extern const Theme Plain_Theme;

inline const Theme& Theme_Of(const Tools_Fields& control) {
    return control.Look ? *control.Look : Plain_Theme;
}

/// Colour of bodies under the pointer, before they are made readable.
inline Colors Highlight_Color(const Tools_Fields& control) {
    return Colors(static_cast<unsigned int>(Theme_Of(control).Highlight));
}

/// The colour of a body in a theme, for a control of `color`: readable behind both captions of the theme.
Colors Body_Color(const Theme& theme, const Colors& color);

/// Ink of `color` on the window: readable there.
unsigned long Ink_On_Window(const Theme& theme, unsigned long color);

}  // namespace galdren
