// The shading of bodies.

#include <memory>

#include "Galdren_Tools.h"
#include "bench.h"

namespace {

constexpr short Width = 1920;
constexpr short Height = 1080;
constexpr double Bytes = 4.0 * Width * Height;

/// Memory for the buffer is taken anew each time, as a control does.
bench::Result Write_Shading() {
    Tools control;
    control.Width = Width;
    control.Height = Height;
    std::unique_ptr<unsigned long[]> pixels;
    const bench::Work work{[&] { pixels.reset(control.Inside_3D(Colors(170, 170, 170))); }, 1,
                           [&] { pixels.reset(); }};
    const bench::Summary time = bench::Time(work);
    bench::Require(pixels && (pixels[Width * (Height / 2) + Width / 2] & 0xff) == 170, "no shading was made");
    const auto rate = [](double microseconds) { return Bytes / microseconds / 1000; };
    return {{rate(time.median), rate(time.high), rate(time.low)}, {}};
}

const bench::Register rows[] = {
    bench::Register({"shading: a buffer of 1920 x 1080 written", "GB/s", bench::At_Least(1), Write_Shading}),
};

}  // namespace
