#include "tools/pixels.h"

#include <algorithm>
#include <cstring>

namespace galdren {

void Fill_Pixels(const Raster& raster, const RECT& box, Pixel pixel) {
    const auto columns = static_cast<std::size_t>(box.right - box.left);
    const auto value = static_cast<unsigned long>(pixel);
    unsigned long* row = raster.At(box.left, box.top);
    if (columns == 1) {
        // The upright edges of frames: a loop made for vectors takes three times as long.
        for (LONG y = box.top; y < box.bottom; ++y, row += raster.pitch)
            *row = value;
        return;
    }
    for (LONG y = box.top; y < box.bottom; ++y, row += raster.pitch)
        std::fill_n(row, columns, value);
}

void Copy_Pixels(const unsigned long* from, int from_pitch, unsigned long* to, int to_pitch, int columns,
                 int rows) {
    const auto bytes = static_cast<std::size_t>(columns) * sizeof *from;
    for (int row = 0; row < rows; ++row, from += from_pitch, to += to_pitch)
        std::memcpy(to, from, bytes);
}

BITMAPINFO Top_Down_Info(LONG width, LONG rows) {
    BITMAPINFO info{};
    info.bmiHeader = {sizeof info.bmiHeader, width, -rows, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
    return info;
}

void Put_Pixels(HDC dc, POINT place, const Raster& raster, int left, int top, SIZE size) {
    const BITMAPINFO info = Top_Down_Info(raster.pitch, size.cy);
    SetDIBitsToDevice(dc, place.x, place.y, static_cast<DWORD>(size.cx), static_cast<DWORD>(size.cy), left, 0,
                      0, static_cast<UINT>(size.cy), raster.At(0, top), &info, DIB_RGB_COLORS);
}

namespace {

/// A context that does not count columns from the right, for a scope.
class Unmirrored {
  public:
    /// @param place  a rectangle in logical units, which stays where it is
    Unmirrored(HDC turned, RECT& place) : dc(turned), layout(GetLayout(dc)) {
        if (layout == GDI_ERROR || !(layout & LAYOUT_RTL)) return;
        POINT sides[2] = {{place.left, place.top}, {place.right, place.top}};
        LPtoDP(dc, sides, 2);
        SetLayout(dc, 0);
        // The column before the one that does not belong to it any more.
        ++sides[0].x, ++sides[1].x;
        DPtoLP(dc, sides, 2);
        place.left = sides[1].x;
        place.right = sides[0].x;
        turns = true;
    }
    ~Unmirrored() {
        if (turns) SetLayout(dc, layout);
    }
    Unmirrored(const Unmirrored&) = delete;
    Unmirrored& operator=(const Unmirrored&) = delete;

  private:
    HDC dc;
    DWORD layout;
    bool turns = false;
};

}  // namespace

bool Stretch_Pixels(HDC dc, RECT place, const Raster& raster, int left, int top, SIZE size) {
    const int mode = SetStretchBltMode(dc, HALFTONE);
    if (mode == 0) return false;
    POINT origin{};
    SetBrushOrgEx(dc, 0, 0, &origin);
    const Unmirrored unmirrored(dc, place);
    const BITMAPINFO info = Top_Down_Info(raster.pitch, size.cy);
    // Printers and metafiles take pixels in this form alone.
    const int rows =
        StretchDIBits(dc, place.left, place.top, place.right - place.left, place.bottom - place.top, left, 0,
                      size.cx, size.cy, raster.At(0, top), &info, DIB_RGB_COLORS, SRCCOPY);
    SetBrushOrgEx(dc, origin.x, origin.y, nullptr);
    SetStretchBltMode(dc, mode);
    return rows > 0;
}

}  // namespace galdren
