#include "gallery/artwork.h"

#include <cmath>

namespace gallery {

namespace {

struct Scene {
    Colors sky_top, sky_bottom, sun, far_hills, near_hills;
};

const Scene day{{96, 160, 220}, {214, 232, 244}, {255, 244, 190}, {120, 160, 140}, {84, 128, 88}};
const Scene dusk{{72, 52, 110}, {248, 150, 96}, {255, 226, 130}, {108, 64, 96}, {60, 40, 66}};

Colors Between(const Colors& a, const Colors& b, double part) {
    const auto mix = [part](short from, short to) { return static_cast<int>(from + (to - from) * part); };
    return {mix(a.Red, b.Red), mix(a.Green, b.Green), mix(a.Blue, b.Blue)};
}

/// Colour of the scene at (x, y), both from 0 to 1, y downward; `aspect` is width over height.
Colors Look_At(const Scene& scene, double x, double y, double aspect) {
    if (y > 0.78 + 0.08 * std::sin(x * 9 + 2)) return scene.near_hills;
    if (y > 0.60 + 0.10 * std::sin(x * 6 + 0.5)) return scene.far_hills;
    if (std::hypot((x - 0.72) * aspect, y - 0.36) < 0.2) return scene.sun;
    return Between(scene.sky_top, scene.sky_bottom, y / 0.7);
}

void Paint_Scene(const Tools& control, const Scene& scene, unsigned long* pixels) {
    const double aspect = static_cast<double>(control.Width) / control.Height;
    for (int row = 0; row < control.Height; ++row) {
        for (int column = 0; column < control.Width; ++column) {
            const Colors color = Look_At(scene, static_cast<double>(column) / control.Width,
                                         static_cast<double>(row) / control.Height, aspect);
            *pixels++ = color.get_invert();
        }
    }
}

}  // namespace

void Paint_Day(Tools& control) {
    if (control.Alloc_Graph_Normal(0)) Paint_Scene(control, day, control.Graph_Normal);
}

void Paint_Dusk(Tools& control) {
    if (control.Alloc_Graph_Select(0)) Paint_Scene(control, dusk, control.Graph_Select);
}

}  // namespace gallery
