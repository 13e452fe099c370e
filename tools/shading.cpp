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

/// Rows of pixels, top-down.
struct Bitmap {
    unsigned long* pixels;
    int width;
    unsigned long& At(int x, int y) const {
        return pixels[std::size_t(y) * std::size_t(width) + std::size_t(x)];
    }
};

void Shade(const Bitmap& bitmap, const Shading& shading) {
    const Ramp ramp(shading.color);
    const int columns = shading.width - 2 * shading.border;
    const int rows = shading.height - 2 * shading.border;
    for (int j = 0; j < rows && columns > 0; ++j) {
        const float row_offset = Share_Of_Offset(j, rows);
        unsigned long* row = &bitmap.At(shading.border, shading.border + j);
        for (int i = 0; i < columns; ++i) {
            row[i] = ramp[static_cast<int>(Share_Of_Offset(i, columns) + row_offset)];
        }
    }
}

/// The frame as `Paint_Frame` paints it.
void Draw_Rings(const Bitmap& picture, const Shading& shading) {
    const auto along = [&](int ring, unsigned long bottom_right, unsigned long top_left) {
        const int right = shading.width - ring;
        const int bottom = shading.height - ring;
        for (int x = ring; x <= right; ++x) {
            picture.At(x, bottom) = bottom_right;
            picture.At(x, ring) = top_left;
        }
        for (int y = ring + 1; y <= bottom; ++y) {
            picture.At(right, y) = bottom_right;
            picture.At(ring, y) = top_left;
        }
    };
    along(0, 0, 0);
    for (int ring = 1; ring <= shading.border; ++ring) {
        const Ring_Shades shades = Shades_Of_Ring(Colors(static_cast<unsigned int>(shading.frame_color)),
                                                  shading.frame == Frame_Look::Sunken, shading.border, ring);
        // Red and blue are exchanged in the pixel form, here and, with the same call, back again.
        along(ring, shades.bottom_right.get(), shades.top_left.get());
    }
}

/// Where the picture is worth its memory: a larger body takes so long that the frame does not count. The
/// frame must leave room for a body.
bool Has_Picture(const Shading& shading) {
    constexpr int Most_Pixels = 128 * 128;
    return shading.frame != Frame_Look::None && shading.width * shading.height <= Most_Pixels &&
           2 * shading.border + 2 <= std::min(shading.width, shading.height);
}

std::size_t Pixels_Of_Body(const Shading& shading) {
    return std::size_t(shading.width) * std::size_t(shading.height);
}

std::size_t Pixels_Of_Picture(const Shading& shading) {
    return Has_Picture(shading) ? std::size_t(shading.width + 1) * std::size_t(shading.height + 1) : 0;
}

/// Copies the body into the picture and puts the frame around it.
void Make_Picture(const Bitmap& body, const Shading& shading) {
    const Bitmap picture{body.pixels + Pixels_Of_Body(shading), shading.width + 1};
    for (int y = 0; y < shading.height; ++y) {
        std::copy_n(&body.At(0, y), shading.width, &picture.At(0, y));
    }
    Draw_Rings(picture, shading);
}

Shading Shading_Of(const Tools& control, const Colors& color) {
    const int border = Magnitude(control.Border);
    return {std::max(int{control.Width}, 1),
            std::max(int{control.Height}, 1),
            border ? border : Magnitude(BORDER),
            color.get_invert(),
            Frame_Look::None,
            0};
}

/// The shading with a frame in the control's own colour, where the channels of that are bytes.
Shading Framed(Shading shading, const Tools& control, Frame_Look frame) {
    const Colors& color = control.Color;
    const bool bytes = Colors(static_cast<unsigned int>(color.get())) == color;
    if (bytes && frame != Frame_Look::None) {
        shading.frame = frame;
        shading.frame_color = color.get_invert();
    }
    return shading;
}

}  // namespace

bool Shading::operator<(const Shading& other) const {
    return std::tie(width, height, border, color, frame, frame_color) <
           std::tie(other.width, other.height, other.border, other.color, other.frame, other.frame_color);
}

unsigned long* Make_Shading(const Shading& shading) {
    constexpr std::size_t Most_Pixels = std::size_t{8192} * 8192;
    if (Pixels_Of_Body(shading) > Most_Pixels) return nullptr;
    const std::size_t count = Pixels_Of_Body(shading) + Pixels_Of_Picture(shading);
    auto* pixels = new (std::nothrow) unsigned long[count]();
    if (!pixels) return nullptr;
    const Bitmap body{pixels, shading.width};
    Shade(body, shading);
    if (Has_Picture(shading)) Make_Picture(body, shading);
    return pixels;
}

unsigned long* Acquire_Shading(const Shading& shading) {
    const void* pixels = Shadings().Acquire(shading, [&]() -> const void* { return Make_Shading(shading); });
    return static_cast<unsigned long*>(const_cast<void*>(pixels));
}

const Shading* Made_For(const void* buffer) { return buffer ? Shadings().Key_Of(buffer) : nullptr; }

const unsigned long* Framed_Picture(const unsigned long* buffer, const Shading& wanted) {
    const Shading* made = Made_For(buffer);
    if (!made || !Has_Picture(*made)) return nullptr;
    Shading same_body = wanted;
    same_body.color = made->color;
    return same_body < *made || *made < same_body ? nullptr : buffer + Pixels_Of_Body(*made);
}

void Renew_Shading(const Tools& control, unsigned long*& own, const Colors& color, Frame_Look frame) {
    Release_Array(own);
    own = Acquire_Shading(Framed(Shading_Of(control, color), control, frame));
}

bool Paint_Framed_Body(Canvas& canvas, const Tools& control, const unsigned long* body, Frame_Look frame) {
    const Shading wanted = Framed(Shading_Of(control, control.Color), control, frame);
    const unsigned long* picture = Framed_Picture(body, wanted);
    if (!picture) return false;
    const int rim = Has_Flag(control, FLAG_NO_RIM) ? 1 : 0;
    canvas.Pixels(picture, control.Width + 1, control.Height + 1, rim, rim, Area_Of(control).Inset(rim));
    return true;
}

void Share_Array(const void* array) { Share(Thing::Array, array); }

void Release_Array(const void* array) {
    if (Shadings().Release(array)) delete[] static_cast<const unsigned char*>(array);
}

}  // namespace galdren

using namespace galdren;

unsigned long* Tools::Inside_3D(Colors c) { return Make_Shading(Shading_Of(*this, c)); }
