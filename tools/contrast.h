/// @file
/// How well one colour is seen on another, and which colours are readable.
#pragma once

#include "tools/colors.h"

namespace galdren {

constexpr unsigned long Black = 0x000000;
constexpr unsigned long White = 0xFFFFFF;

/// A colour in the GDI form.
inline Colors Color_Of(unsigned long gdi_color) { return Colors(static_cast<unsigned int>(gdi_color)); }

/// Relative luminance of a colour, with `offset` added to each channel.
float Luminance(const Colors& color, int offset = 0);

/// Contrast of two luminances, from 1 to 21.
float Contrast(float one, float other);

/// The same of two colours in the GDI form, in hundredths.
int Contrast_In_Hundredths(unsigned long one, unsigned long other);

/// Whether a colour in the GDI form is further from black than from white.
bool Is_Bright(unsigned long color);

/// `part` of `whole` of the way from one colour to another.
Colors Mixed(const Colors& from, const Colors& to, int part, int whole);

/// The colour nearest to `color`, on its way to black or to white, that satisfies `is_readable`.
template <class Is_Readable>
Colors Moved(const Colors& color, unsigned long goal, Is_Readable is_readable) {
    constexpr int Steps = 64;
    const Colors end = Color_Of(goal);
    int least = 0;
    for (int most = Steps; least < most;) {
        const int middle = (least + most) / 2;
        if (is_readable(Mixed(color, end, middle, Steps))) {
            most = middle;
        } else {
            least = middle + 1;
        }
    }
    return Mixed(color, end, least, Steps);
}

/// Ink moved away from its ground until it has a contrast, in hundredths; as it is for 0. All in the GDI
/// form.
unsigned long Readable_Ink(unsigned long ink, unsigned long ground, int least);

}  // namespace galdren
