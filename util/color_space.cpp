#include "util/color_space.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr float Sixth = 1.0F / 6.0F;

/// One channel of a colour at `hue`, which is the channel's own distance around the circle: it climbs from
/// `low` to `high` over the first sixth, stays for two, and falls over the next.
float Channel(float low, float high, float hue) {
    hue -= std::floor(hue);
    float climbed = 0.0F;
    if (hue < Sixth) {
        climbed = hue * 6.0F;
    } else if (hue < 0.5F) {
        climbed = 1.0F;
    } else if (hue < 4.0F * Sixth) {
        climbed = (4.0F * Sixth - hue) * 6.0F;
    }
    const float channel = low + (high - low) * climbed;
    // What misses full strength by rounding alone has it: callers that truncate would lose a step.
    constexpr float Nearly_Full = 1.0F - 1e-6F;
    return channel > Nearly_Full ? 1.0F : channel;
}

}  // namespace

void RGB_to_HLS(float r, float g, float b, float* h, float* l, float* s) {
    for (float* channel : {&r, &g, &b})
        *channel = std::min(*channel, 1.0F);
    const float high = std::max({r, g, b});
    const float low = std::min({r, g, b});
    const float range = high - low;
    const float sum = high + low;
    *l = sum / 2.0F;
    if (!(range > 0.0F)) {
        *h = *s = 0.0F;
        return;
    }
    *s = std::min(range / (*l <= 0.5F ? sum : 2.0F - sum), 1.0F);  // rounding may bring it beyond
    float sextant = 0.0F;                                          // 0 at red, 2 at green, 4 at blue
    if (high == r) {
        sextant = (g - b) / range;
    } else if (high == g) {
        sextant = 2.0F + (b - r) / range;
    } else {
        sextant = 4.0F + (r - g) / range;
    }
    *h = sextant < 0.0F ? sextant / 6.0F + 1.0F : sextant / 6.0F;
}

void HLS_to_RGB(float h, float l, float s, float* r, float* g, float* b) {
    const float high = l <= 0.5F ? l * (1.0F + s) : l + s * (1.0F - l);
    const float low = 2.0F * l - high;
    *r = Channel(low, high, h + 1.0F / 3.0F);
    *g = Channel(low, high, h);
    *b = Channel(low, high, h - 1.0F / 3.0F);
}
