#include "tools/paint_count.h"

#include "tools/lock.h"

namespace {

Paint_Count Total;

}  // namespace

namespace galdren {

void Count_Paint() { ++Total.paints; }

void Count_Copy(SIZE copied) {
    constexpr unsigned long long Pixel_Size = 4;
    ++Total.copies;
    Total.bytes += Pixel_Size * static_cast<unsigned long>(copied.cx) * static_cast<unsigned long>(copied.cy);
}

}  // namespace galdren

Paint_Count Tools_Paint_Count() {
    const galdren::Drawing_Lock lock;
    return Total;
}
