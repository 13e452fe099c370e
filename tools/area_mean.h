/// @file
/// Pixels of a picture at another size: each is the mean of what it covers.
#pragma once

#include <algorithm>
#include <cstddef>

namespace galdren {

/// What the pixel at `place` of `count` is made of along one direction of a picture of `length`. Lengths are
/// counted so that none is broken: a pixel of the picture has `count` of them, the new one `length`.
struct Stretch {
    Stretch(long long place, int count, int length)
        : begin(place * length),
          end(begin + length),
          unit(count),
          first(static_cast<int>(begin / unit)),
          last(static_cast<int>((end - 1) / unit)) {}

    /// How much of one of its pixels is in it.
    unsigned long long Share_Of(int pixel) const {
        return static_cast<unsigned long long>(std::min((pixel + 1) * unit, end) -
                                               std::max(pixel * unit, begin));
    }

    long long begin, end, unit;
    int first;  ///< pixel of the picture
    int last;
};

/// The mean of a rectangle of a picture, by area and opacity.
/// @param pixels  rows of `width`, the highest byte of each being its opacity
inline unsigned long Area_Mean(const unsigned long* pixels, int width, const Stretch& across,
                               const Stretch& down) {
    unsigned long long channels[3] = {};
    unsigned long long weights = 0;
    unsigned long long areas = 0;
    for (int y = down.first; y <= down.last; ++y) {
        const unsigned long* const row = pixels + std::ptrdiff_t{y} * width;
        for (int x = across.first; x <= across.last; ++x) {
            const unsigned long long area = down.Share_Of(y) * across.Share_Of(x);
            const unsigned long long weight = area * (row[x] >> 24);
            for (int i = 0; i < 3; ++i)
                channels[i] += weight * (row[x] >> 8 * i & 0xFF);
            weights += weight;
            areas += area;
        }
    }
    if (weights == 0) return 0;
    unsigned long pixel = static_cast<unsigned long>((weights + areas / 2) / areas) << 24;
    for (int i = 0; i < 3; ++i)
        pixel |= static_cast<unsigned long>((channels[i] + weights / 2) / weights) << 8 * i;
    return pixel;
}

}  // namespace galdren
