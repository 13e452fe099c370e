// Icons from the cache, beside a plain copy of as many pixels to the window.

#include <string>

#include "Galdren_Util.h"
#include "scene.h"

namespace {

using bench::Require;
using bench::Result;
using bench::Stage;

constexpr int Side = 16;
constexpr int Columns = 20;
constexpr int Count = 20 * Columns;

POINT Place(int index) { return {index % Columns * Side, index / Columns * Side}; }

/// Takes the surface for a run, as a control does that draws many icons.
template <class Draw>
bench::Work Draw_All(const Stage& stage, Draw draw) {
    return {[&stage, draw] {
                Begin_Draw(stage.Get(), nullptr);
                for (int i = 0; i < Count; ++i)
                    draw(Place(i));
                End_Draw();
            },
            Count, [&stage] { stage.Raise(); }};
}

struct Owned_Box : Boxs {
    explicit Owned_Box(const Stage& stage) {
        bench::Place(*this, {0, 0, Stage::Width, Stage::Height});
        Init(stage.Get());
    }
};

/// Asks for so many names that `last` is the last one that the cache takes.
void Fill_Cache(const char* last) {
    constexpr int Most = 255;
    Icon_Cleanup();
    const int level = Error_Set_Level(-1);
    for (int i = 1; i < Most; ++i)
        Icon_Read(nullptr, ("icon_none" + std::to_string(i) + ".rgb").c_str());
    Icon_Read(nullptr, last);
    Error_Set_Level(level);
}

template <bool full_cache>
Result Draw_Icons() {
    constexpr const char* Name = "icon_fixed.rgb";
    const Stage ours;
    const Stage native;
    Owned_Box box(ours);
    if (full_cache) Fill_Cache(Name);
    Require(Icon_Read(&box, Name), "the icon is not beside the DLL");

    static DWORD pixels[Side * Side];
    for (DWORD& pixel : pixels)
        pixel = RGB(200, 40, 40);
    BITMAPINFO info{};
    info.bmiHeader = {sizeof info.bmiHeader, Side, -Side, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
    const auto copy = [&info](POINT at) {
        SetDIBitsToDevice(Z_DC, at.x, at.y + Side - 1, Side, Side, 0, 0, 0, Side, pixels, &info,
                          DIB_RGB_COLORS);
    };
    const auto draw = [&box](POINT at) {
        Icon_Draw_Image(&box, static_cast<short>(at.x), static_cast<short>(at.y), "bench", Name);
    };
    const Result result = bench::Compare(Draw_All(ours, draw), Draw_All(native, copy));
    const int middle = Stage::Height - 1 - 12 * Side;
    Require(ours.Pixel(8, middle) != Stage::Background && native.Pixel(8, middle) != Stage::Background,
            "nothing was painted");
    Icon_Cleanup();
    return result;
}

const bench::Register rows[] = {
    bench::Register({"icon: 16 x 16, drawn from the cache", "us", bench::Of_Native(3), Draw_Icons<false>}),
    bench::Register({"icon: the same, the last of 255 names", "us", bench::Of_Native(3), Draw_Icons<true>}),
};

}  // namespace
