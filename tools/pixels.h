/// @file
/// Loops over pixels in memory, and the two orders of bytes that colours have.
#pragma once

#include <windows.h>

#include <cstddef>

namespace galdren {

/// A colour in the pixel form, in which memory has it: blue in the lowest byte.
enum class Pixel : unsigned long {};

/// Red and blue change places between the GDI form, with red in the lowest byte, and the pixel form.
constexpr unsigned long Exchange_Red_And_Blue(unsigned long color) {
    return (color & 0xFF00FF00) | (color & 0xFF) << 16 | (color >> 16 & 0xFF);
}

/// The pixel of a colour in the GDI form.
constexpr Pixel Pixel_Of(unsigned long gdi_color) {
    return Pixel{Exchange_Red_And_Blue(gdi_color & 0xFFFFFF)};
}

/// Pixels in rows from the top down.
struct Raster {
    unsigned long* first;
    int pitch;  ///< pixels from one row to the next

    unsigned long* At(int x, int y) const { return first + std::ptrdiff_t{y} * pitch + x; }
};

/// Fills a rectangle, right and bottom not included.
void Fill_Pixels(const Raster& raster, const RECT& box, Pixel pixel);

/// Copies `columns` x `rows` pixels. The two places must not overlap.
void Copy_Pixels(const unsigned long* from, int from_pitch, unsigned long* to, int to_pitch, int columns,
                 int rows);

/// Describes pixels of 32 bits in rows from the top down.
BITMAPINFO Top_Down_Info(LONG width, LONG rows);

/// Copies pixels from (left, top) of a raster to a place on a context.
void Put_Pixels(HDC dc, POINT place, const Raster& raster, int left, int top, SIZE size);

/// Copies them into a rectangle of any context, in its logical units. Never mirrored.
/// @return false when nothing was copied
bool Stretch_Pixels(HDC dc, RECT place, const Raster& raster, int left, int top, SIZE size);

}  // namespace galdren
