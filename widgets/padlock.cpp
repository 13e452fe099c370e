#include "widgets/padlock.h"

#include <algorithm>
#include <cstddef>

namespace galdren {

namespace {

// Grey levels, rows from the top.
// clang-format off
constexpr unsigned char Padlock_16[16 * 16] = {
    255, 255, 255, 255, 255, 255, 235, 205, 205, 235, 255, 255, 255, 255, 255, 255,
    255, 255, 255, 255, 255, 173,  17,   0,   0,  17, 173, 255, 255, 255, 255, 255,
    255, 255, 255, 255, 173,   0,   0,   0,   0,   0,   0, 173, 255, 255, 255, 255,
    255, 255, 255, 173,   0,   0,   0, 144, 144,   0,   0,   0, 173, 255, 255, 255,
    255, 255, 235,  17,   0,   0, 173, 255, 255, 173,   0,   0,  17, 235, 255, 255,
    255, 255, 205,   0,   0, 144, 255, 255, 255, 255, 144,   0,   0, 205, 255, 255,
    255, 255, 205,   0,   0, 205, 255, 255, 255, 255, 205,   0,   0, 205, 255, 255,
    255, 255,   0,   0,   0,   0,   0,   0,   0,   0,   0,   0,   0,   0, 255, 255,
    255, 255,   0,   0,   0,   0,   0, 144, 144,   0,   0,   0,   0,   0, 255, 255,
    255, 255,   0,   0,   0,   0, 144, 255, 255, 144,   0,   0,   0,   0, 255, 255,
    255, 255,   0,   0,   0,   0, 144, 255, 255, 144,   0,   0,   0,   0, 255, 255,
    255, 255,   0,   0,   0,   0,  17, 235, 235,  17,   0,   0,   0,   0, 255, 255,
    255, 255,   0,   0,   0,   0,   0, 205, 205,   0,   0,   0,   0,   0, 255, 255,
    255, 255,   0,   0,   0,   0,   0, 114, 114,   0,   0,   0,   0,   0, 255, 255,
    255, 255,   0,   0,   0,   0,   0,   0,   0,   0,   0,   0,   0,   0, 255, 255,
    255, 255, 255, 255, 255, 255, 255, 255, 255, 255, 255, 255, 255, 255, 255, 255,
};

constexpr unsigned char Padlock_10[10 * 10] = {
    255, 255, 255, 210, 137, 137, 210, 255, 255, 255,
    255, 253, 208,  49,  12,  12,  50, 208, 253, 255,
    255, 228,  47,  21, 157, 157,  21,  47, 228, 255,
    255, 194,   1, 149, 251, 251, 148,   1, 194, 255,
    255, 111,   0,  72,  95,  95,  71,   0, 112, 255,
    255,  63,   0,   0,  59,  59,   0,   0,  64, 255,
    255,  63,   0,   0, 160, 160,   0,   0,  64, 255,
    255,  63,   0,   2,  82,  82,   2,   0,  64, 255,
    255,  63,   0,   0,   0,   0,   0,   0,  64, 255,
    255, 183, 159, 159, 159, 159, 159, 159, 183, 255,
};

constexpr unsigned char Padlock_8[8 * 8] = {
    254, 251, 204, 125, 125, 205, 251, 254,
    252, 203,  80,  63,  63,  80, 203, 252,
    245, 132,  66, 190, 190,  66, 132, 245,
    229,  76,  52, 118, 118,  51,  77, 229,
    216,  37,   0,  63,  63,   0,  38, 216,
    216,  37,   0, 103, 103,   0,  38, 216,
    216,  37,   0,  26,  26,   0,  38, 216,
    235, 146, 127, 127, 127, 127, 146, 235,
};
// clang-format on

constexpr unsigned char Thumb_Level = 216;

/// The pixels of a padlock. Its white surroundings take the colour of the locked thumb.
template <std::size_t Count>
struct Pixels {
    unsigned long pixels[Count];
    explicit Pixels(const unsigned char (&greys)[Count]) {
        std::transform(greys, greys + Count, pixels,
                       [](unsigned char grey) { return 0x01010101UL * std::min(grey, Thumb_Level); });
    }
};

}  // namespace

Padlock Padlock_For(int room) {
    static const Pixels large(Padlock_16);
    static const Pixels medium(Padlock_10);
    static const Pixels small_one(Padlock_8);
    if (room >= 16) return {16, large.pixels};
    if (room >= 10) return {10, medium.pixels};
    return room >= 8 ? Padlock{8, small_one.pixels} : Padlock{0, nullptr};
}

}  // namespace galdren
