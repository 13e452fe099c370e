#include "tools/shading.h"

#include <algorithm>
#include <array>
#include <new>
#include <tuple>

#include "tools/base.h"
#include "tools/dimensions.h"
#include "tools/sharing.h"

namespace galdren {

namespace {

using Shading_Pool = Pool<Thing::Array, Shading, const void*>;

Shading_Pool& Shadings() {
    static Immortal<Shading_Pool> shadings;
    return *shadings;
}

/// The ramp runs from -100 to nearly +100 over both directions together.
constexpr int Lowest_Offset = -100;
constexpr int Highest_Offset = 100;

/// The pixel of every offset from a colour.
class Ramp {
  public:
    explicit Ramp(unsigned long color) {
        for (int offset = Lowest_Offset; offset <= Highest_Offset; ++offset) {
            pixels[static_cast<std::size_t>(offset - Lowest_Offset)] =
                Add(color, 16, offset) | Add(color, 8, offset) | Add(color, 0, offset) | (color & 0xFF000000);
        }
    }
    unsigned long operator[](int offset) const {
        return pixels[static_cast<std::size_t>(offset - Lowest_Offset)];
    }

  private:
    static unsigned long Add(unsigned long color, int shift, int offset) {
        const int channel = static_cast<int>(color >> shift & 0xFF) + offset;
        return static_cast<unsigned long>(std::clamp(channel, 0, 255)) << shift;
    }
    std::array<unsigned long, Highest_Offset - Lowest_Offset + 1> pixels;
};

/// Part of the offset that position `i` of `count` brings.
float Share_Of_Offset(int i, int count) {
    return static_cast<float>(i) * (100.0F / static_cast<float>(count)) - 50.0F;
}

void Shade(unsigned long* pixels, const Shading& shading) {
    const Ramp ramp(shading.color);
    const int columns = shading.width - 2 * shading.border;
    const int rows = shading.height - 2 * shading.border;
    for (int j = 0; j < rows; ++j) {
        const float row_offset = Share_Of_Offset(j, rows);
        const auto first =
            std::size_t(shading.border + j) * std::size_t(shading.width) + std::size_t(shading.border);
        for (int i = 0; i < columns; ++i) {
            pixels[first + std::size_t(i)] = ramp[static_cast<int>(Share_Of_Offset(i, columns) + row_offset)];
        }
    }
}

Shading Shading_Of(const Tools& control, const Colors& color) {
    const int border = Magnitude(control.Border);
    return {std::max(int{control.Width}, 1), std::max(int{control.Height}, 1),
            border ? border : Magnitude(BORDER), color.get_invert()};
}

}  // namespace

bool Shading::operator<(const Shading& other) const {
    return std::tie(width, height, border, color) <
           std::tie(other.width, other.height, other.border, other.color);
}

unsigned long* Make_Shading(const Shading& shading) {
    constexpr std::size_t Most_Pixels = std::size_t{8192} * 8192;
    const std::size_t count = std::size_t(shading.width) * std::size_t(shading.height);
    if (count > Most_Pixels) return nullptr;
    auto* pixels = new (std::nothrow) unsigned long[count]();
    if (pixels) Shade(pixels, shading);
    return pixels;
}

unsigned long* Acquire_Shading(const Shading& shading) {
    const void* pixels = Shadings().Acquire(shading, [&]() -> const void* { return Make_Shading(shading); });
    return static_cast<unsigned long*>(const_cast<void*>(pixels));
}

void Renew_Shading(const Tools& control, unsigned long*& own, const Colors& color) {
    Release_Array(own);
    own = Acquire_Shading(Shading_Of(control, color));
}

void Share_Array(const void* array) { Share(Thing::Array, array); }

void Release_Array(const void* array) {
    if (Shadings().Release(array)) delete[] static_cast<const unsigned char*>(array);
}

}  // namespace galdren

using namespace galdren;

unsigned long* Tools::Inside_3D(Colors c) { return Make_Shading(Shading_Of(*this, c)); }
