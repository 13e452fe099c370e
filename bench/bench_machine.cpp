// The machine itself: how far the other rows can be trusted, and what nobody can do without.

#include <vector>

#include "bench.h"

namespace {

using bench::Result;
using bench::Stage;

/// The same arithmetic each time. On a machine that does nothing else the 90th percentile is close to the
/// median.
Result Fixed_Work() {
    constexpr int Steps = 1'000'000;
    volatile unsigned value = 1;
    const auto calculate = [&] {
        for (int i = 0; i < Steps; ++i)
            value = value * 1664525U + 1013904223U;
    };
    return {bench::Time({calculate, 1}), {}};
}

/// The pixels that a step changes have to get to the window: those of the moved rows of a list, or a console.
template <int width, int height>
Result Copy() {
    constexpr int Steps = 40;
    const Stage stage;
    std::vector<DWORD> pixels(std::size_t{width} * height);
    BITMAPINFO info{};
    info.bmiHeader = {sizeof info.bmiHeader, width, -height, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
    DWORD color = 0;
    const auto copy = [&] {
        const HDC dc = GetDC(stage.Get());
        for (int i = 0; i < Steps; ++i) {
            pixels[0] = ++color;
            SetDIBitsToDevice(dc, 0, 0, width, height, 0, 0, 0, height, pixels.data(), &info, DIB_RGB_COLORS);
        }
        ReleaseDC(stage.Get(), dc);
        bench::Flush();
    };
    const bench::Summary time = bench::Time({copy, Steps, [&] { stage.Raise(); }});
    bench::Require(stage.Pixel(0, 0) == RGB(color >> 16 & 0xFF, color >> 8 & 0xFF, color & 0xFF),
                   "nothing was copied");
    return {time, {}};
}

const bench::Register rows[] = {
    bench::Register({"machine: a fixed piece of arithmetic", "us", bench::No_Target(), Fixed_Work}),
    bench::Register({"machine: 366 x 380 pixels to the window", "us", bench::No_Target(), Copy<366, 380>}),
    bench::Register({"machine: 620 x 400 pixels to the window", "us", bench::No_Target(), Copy<620, 400>}),
};

}  // namespace
