#include "tools/contrast.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace galdren {

namespace {

/// Light that each level of a channel gives, 1 for the brightest.
struct Light_Of_Levels {
    std::array<float, 256> light;
    Light_Of_Levels() {
        for (std::size_t level = 0; level < light.size(); ++level) {
            const float share = static_cast<float>(level) / 255;
            light[level] = share <= 0.03928F ? share / 12.92F : std::pow((share + 0.055F) / 1.055F, 2.4F);
        }
    }
};

}  // namespace

float Luminance(const Colors& color, int offset) {
    static const Light_Of_Levels levels;
    const auto light = [offset](int channel) {
        return levels.light[static_cast<std::size_t>(std::clamp(channel + offset, 0, 255))];
    };
    return 0.2126F * light(color.Red) + 0.7152F * light(color.Green) + 0.0722F * light(color.Blue);
}

float Contrast(float one, float other) {
    return (std::max(one, other) + 0.05F) / (std::min(one, other) + 0.05F);
}

int Contrast_In_Hundredths(unsigned long one, unsigned long other) {
    return static_cast<int>(Contrast(Luminance(Color_Of(one)), Luminance(Color_Of(other))) * 100);
}

bool Is_Bright(unsigned long color) {
    return Contrast_In_Hundredths(color, Black) > Contrast_In_Hundredths(color, White);
}

Colors Mixed(const Colors& from, const Colors& to, int part, int whole) {
    const auto channel = [&](int one, int other) { return one + (other - one) * part / whole; };
    Colors mixed(channel(from.Red, to.Red), channel(from.Green, to.Green), channel(from.Blue, to.Blue));
    mixed.Alpha = from.Alpha;
    return mixed;
}

unsigned long Readable_Ink(unsigned long ink, unsigned long ground, int least) {
    const auto is_readable = [=](unsigned long color) {
        return Contrast_In_Hundredths(color, ground) >= least;
    };
    if (least <= 0 || is_readable(ink)) return ink;
    const Colors moved = Moved(Color_Of(ink), Is_Bright(ground) ? Black : White,
                               [&](const Colors& color) { return is_readable(color.get()); });
    return moved.get();
}

}  // namespace galdren
