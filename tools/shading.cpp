#include "tools/shading.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <compare>
#include <cstddef>
#include <cstring>
#include <new>

#include "tools/arithmetic.h"
#include "tools/dimensions.h"
#include "tools/look.h"
#include "tools/sharing.h"
#include "util/error.h"
#include "util/program.h"

namespace galdren {

namespace {

/// What shading depends on.
struct Shading {
    int width;            ///< at least 1
    int height;           ///< at least 1
    int border;           ///< not negative
    int ramp;             ///< strength in percent
    unsigned long color;  ///< pixel form

    auto operator<=>(const Shading&) const = default;
};

using Shading_Pool = Pool<Thing::Array, Shading, const void*>;

/// No channel has room for a larger offset.
constexpr int Farthest = 255;

/// The pixel of every offset from a colour, the most negative one first.
std::array<unsigned long, 2 * Farthest + 1> Make_Ramp(unsigned long color) {
    std::array<unsigned long, 2 * Farthest + 1> pixels;
    int offset = -Farthest;
    const auto channel = [&](int shift) {
        const int level = static_cast<int>(color >> shift & 0xFF) + offset;
        return static_cast<unsigned long>(std::clamp(level, 0, 255)) << shift;
    };
    for (unsigned long& pixel : pixels) {
        pixel = channel(16) | channel(8) | channel(0) | (color & 0xFF000000);
        ++offset;
    }
    return pixels;
}

/// Part of the offset that position `i` of `count` brings; none where there is no room for a body.
float Share_Of_Offset(int i, int count, int ramp) {
    const auto whole = static_cast<float>(ramp);
    return count < 1 ? 0.0F : static_cast<float>(i) * (whole / static_cast<float>(count)) - whole / 2;
}

Shading Shading_Of(const Tools_Fields& control, const Colors& color) {
    const int border = Magnitude(control.Border);
    const Theme& theme = Theme_Of(control);
    return {std::max(int{control.Width}, 1), std::max(int{control.Height}, 1),
            border ? border : Scaled(control, Magnitude(BORDER)), theme.Ramp,
            Body_Color(theme, color).get_invert()};
}

std::size_t Pixels_Of(const Shading& shading) {
    return std::size_t(shading.width) * std::size_t(shading.height);
}

constexpr std::size_t Most_Pixels = std::size_t{8192} * 8192;

/// @param margin  outside of which it is black
unsigned long* Make_Body(const Shading& shading, int margin) {
    if (Pixels_Of(shading) > Most_Pixels) return nullptr;
    auto* pixels = new (std::nothrow) unsigned long[Pixels_Of(shading)]();
    if (!pixels) return nullptr;
    const auto ramp = Make_Ramp(shading.color);
    const int columns = shading.width - 2 * shading.border;
    const int rows = shading.height - 2 * shading.border;
    for (int y = margin; y < shading.height - margin; ++y) {
        const float row_offset = Share_Of_Offset(y - shading.border, rows, shading.ramp);
        unsigned long* const row = pixels + std::ptrdiff_t{y} * shading.width;
        for (int x = margin; x < shading.width - margin; ++x) {
            const auto offset =
                static_cast<int>(Share_Of_Offset(x - shading.border, columns, shading.ramp) + row_offset);
            const int place = std::clamp(offset, -Farthest, Farthest) + Farthest;
            row[x] = ramp[static_cast<std::size_t>(place)];
        }
    }
    return pixels;
}

/// Whether the limit was reported since the last control that stands alone was initialised.
std::atomic<bool> Limit_Reported;

}  // namespace

bool May_Generate(const Tools_Fields& control) {
    if (Pixels_Of(Shading_Of(control, control.Color)) <= Most_Pixels) return true;
    if (Limit_Reported.exchange(true)) return false;
    Error_Fct(hwnd, ERROR_LEVEL_MEMORY, "Tools: no picture of %d x %d pixels is generated\n   name: %s",
              int{control.Width}, int{control.Height}, control.Name ? control.Name : "(null)");
    return false;
}

void Expect_Other_Control() { Limit_Reported = false; }

unsigned long* Make_Shading(const Tools_Fields& control, const Colors& color) {
    const Shading shading = Shading_Of(control, color);
    return Make_Body(shading, shading.border);
}

void Renew_Shading(const Tools_Fields& control, unsigned long*& own, const Colors& color) {
    Release_Array(own);
    const Shading shading = Shading_Of(control, color);
    const void* shared = The<Shading_Pool>().Acquire(shading, [&] { return Make_Body(shading, 0); });
    own = static_cast<unsigned long*>(const_cast<void*>(shared));
}

int Pixels_Of_Shading(const void* buffer) {
    const Shading* made = buffer ? The<Shading_Pool>().Key_Of(buffer) : nullptr;
    return made ? made->width * made->height : 0;
}

void Share_Array(const void* array) { Share(Thing::Array, array); }

void Share_Among(const void* array, unsigned holders) { Share(Thing::Array, array, holders); }

void Release_Array(const void* array) {
    if (The<Shading_Pool>().Release(array)) delete[] static_cast<const unsigned char*>(array);
}

}  // namespace galdren
