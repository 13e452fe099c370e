#include "widgets/color_value.h"

#include <algorithm>

#include "tools/arithmetic.h"
#include "util/color_space.h"

namespace galdren {

namespace {

float Channel_Of(unsigned long value, int shift) {
    return (static_cast<float>(value >> shift & 0xFF) + 0.5F) / 255.0F;
}

unsigned long Pack(float channel, int shift) {
    const int step = std::clamp(Truncate(double{channel} * 255.0), 0, 255);
    return static_cast<unsigned long>(step) << shift;
}

}  // namespace

Channels RGB_Of(unsigned long value) {
    return {Channel_Of(value, 0), Channel_Of(value, 8), Channel_Of(value, 16)};
}

Channels HLS_Of(unsigned long value) {
    const auto [red, green, blue] = RGB_Of(value);
    Channels hls{};
    RGB_to_HLS(red, green, blue, &hls[0], &hls[1], &hls[2]);
    return hls;
}

unsigned long From_RGB(const Channels& rgb) {
    return Pack(rgb[0], 0) | Pack(rgb[1], 8) | Pack(rgb[2], 16) | 0xFF000000;
}

unsigned long From_HLS(const Channels& hls) {
    Channels rgb{};
    HLS_to_RGB(hls[0], hls[1], hls[2], &rgb[0], &rgb[1], &rgb[2]);
    return From_RGB(rgb);
}

}  // namespace galdren
