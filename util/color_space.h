/// @file
/// Conversion between red, green, blue and hue, lightness, saturation.
#pragma once

#include "api.h"

extern "C" {

/// Converts a colour to hue, lightness and saturation.
/// All values run from 0 to 1; a channel above counts as 1. A grey has hue 0 and saturation 0.
/// @param r, g, b  red, green, blue
/// @param h, l, s  receive hue, lightness, saturation; none may be null
GALDREN_UTIL_API void RGB_to_HLS(float r, float g, float b, float* h, float* l, float* s);

/// Converts hue, lightness and saturation back to a colour. All values run from 0 to 1; a hue outside
/// wraps around the circle. A channel that only rounding keeps from 1 is 1.
/// @param h, l, s  hue, lightness, saturation
/// @param r, g, b  receive red, green, blue; none may be null
GALDREN_UTIL_API void HLS_to_RGB(float h, float l, float s, float* r, float* g, float* b);
}
