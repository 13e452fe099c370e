/// @file
/// A colour as the colour editors take it: packed, as channels, as a pixel.
#pragma once

#include <array>

namespace galdren {

/// Red, green and blue, or hue, lightness and saturation; each from 0 to 1.
using Channels = std::array<float, 3>;

/// Channels of a colour in the GDI form, each in the middle of its step, so that truncation brings it back.
Channels RGB_Of(unsigned long value);
Channels HLS_Of(unsigned long value);

/// The colour in the GDI form, with alpha 255. What is out of range counts as its nearer end, NaN as 0.
unsigned long From_RGB(const Channels& rgb);
unsigned long From_HLS(const Channels& hls);

}  // namespace galdren
