#include "tools/pixels.h"

#include <algorithm>
#include <cstring>

namespace galdren {

void Fill_Pixels(const Raster& raster, const RECT& box, Pixel pixel) {
    const auto columns = static_cast<std::size_t>(box.right - box.left);
    unsigned long* row = raster.At(box.left, box.top);
    for (LONG y = box.top; y < box.bottom; ++y, row += raster.pitch)
        std::fill_n(row, columns, static_cast<unsigned long>(pixel));
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

}  // namespace galdren
