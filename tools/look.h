/// @file
/// What surrounds a control and so says how it is painted: the scale and the theme of its window.
#pragma once

#include <algorithm>

#include "tools/arithmetic.h"
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

/// Height of the font of a control. What stands for none grows with the scale, as a size that is given does.
inline short Font_Points(const Tools_Fields& control) {
    constexpr int Default_Points = 12;
    const bool is_default = control.Font_Size < 1 && control.Scale != 0 && control.Scale != Unscaled;
    return is_default ? Within_16(Scaled(control, Default_Points)) : control.Font_Size;
}

/// What becomes of pictures, which are not painted at scales between: every pixel is painted `times` by
/// `times`, or one of `part` by `part`. One of the two is 1.
struct Zoom {
    int times = 1;
    int part = 1;

    int Of(int length) const { return length * times / part; }
    /// Which of the picture's pixels comes to stand at a place.
    int From(int place) const { return place * part / times; }
    /// Where the next pixel but those left out follows.
    int End_Of(int pixel) const { return (pixel / part + 1) * times; }
};

/// The largest zoom of a picture made at one scale that keeps within its size at another.
constexpr Zoom Zoom_Between(unsigned short made, unsigned short shown) {
    const int from = made ? made : Unscaled;
    const int to = shown ? shown : Unscaled;
    return to >= from ? Zoom{to / from, 1} : Zoom{1, (from + to - 1) / to};
}

/// The theme of a control that has none.
extern const Theme Plain_Theme;

inline const Theme& Theme_Of(const Tools_Fields& control) {
    return control.Look ? *control.Look : Plain_Theme;
}

/// Whether theme or scale are others than those of the last generation of images.
inline bool Is_Redressed(const Tools_Fields& control) {
    return control.Look != control.Last_Look || control.Scale != control.Last_Scale;
}

/// Colour of bodies under the pointer, before they are made readable.
inline Colors Highlight_Color(const Tools_Fields& control) {
    return Colors(static_cast<unsigned int>(Theme_Of(control).Highlight));
}

/// The colour of a body in a theme, for a control of `color`: readable behind both captions of the theme.
Colors Body_Color(const Theme& theme, const Colors& color);

/// Ink of `color` on a ground, as readable there as the theme asks for.
unsigned long Ink_On(const Theme& theme, unsigned long ground, unsigned long color);

}  // namespace galdren
