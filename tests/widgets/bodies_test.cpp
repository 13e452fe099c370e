#include <algorithm>
#include <memory>
#include <string>

#include "Galdren_Tools.h"
#include "tests/support/spy.h"
#include "tests/support/window.h"

using namespace galdren_test;

/// A body is painted from shading that was made for another border, without a gap.
TEST(Bodies, Have_No_Bands_At_Another_Border) {
    Test_Window window(300, 200);
    const auto black_inside = [&](auto&& change, unsigned long flag, short border) {
        Boxs box;
        box.X = 20, box.Y = 20, box.Width = 200, box.Height = 120, box.Flag = flag | FLAG_NO_RIM,
        box.Border = border;
        box.Init(window);
        change(box);
        window.Point_At(0, 0);
        const Picture picture = window.After([&] { box.Draw(); });
        int black = 0;
        for (int x = 20; x <= 220; ++x) {
            for (int y = 20; y <= 140; ++y)
                black += picture.At(x, y) == 0;
        }
        return black;
    };
    const auto nothing = [](Boxs&) {};
    const short usual = BORDER;
    EXPECT_EQ(black_inside([&](Boxs& box) { box.Border = 2, box.Init(window); }, 0, 8), 0);
    EXPECT_EQ(black_inside([&](Boxs&) { BORDER = 1; }, 0, 0), 0);
    BORDER = usual;
    EXPECT_EQ(black_inside(nothing, 0, -2), 0);
    // The inner frame has a black rim of its own.
    const int rim = black_inside(nothing, FLAG_INNER_FRAME, 0);
    EXPECT_EQ(black_inside(nothing, FLAG_INNER_FRAME, 8), rim);

    Tools tools;
    tools.Width = 40, tools.Height = 30, tools.Border = 5;
    const std::unique_ptr<unsigned long[]> shading(tools.Inside_3D(Colors(200, 200, 200)));
    EXPECT_EQ(shading[0], 0u) << "what an application asks for stays black outside the border";
    EXPECT_EQ(shading[4 * 40 + 20], 0u);
    EXPECT_NE(shading[5 * 40 + 5], 0u);
}

/// `Draw` and `Select` show the pixels that the fields point at.
TEST(Bodies, Are_The_Pixels_Of_Their_Buffers) {
    Test_Window window(300, 200);
    Buttons button;
    button.X = 20, button.Y = 20, button.Width = 100, button.Height = 25;
    button.Init(window);
    window.Point_At(0, 0);
    button.Draw();
    std::fill_n(button.Cur_Graph_Normal, 100 * 25, 0x123456UL);
    EXPECT_EQ(window.After([&] { button.Draw(); }).At(60, 30), 0x123456u);
    window.Point_At(60, 30), button.Select(EVENT_MOVE);
    window.Point_At(0, 0), button.Select(EVENT_MOVE);
    EXPECT_EQ(Picture(window).At(60, 30), 0x123456u);
}

/// Generated pictures have one limit, which counts pixels, and one report for a control with its parts.
TEST(Bodies, Are_Flat_Where_A_Picture_Would_Be_Too_Large) {
    Test_Window window(300, 200);
    Report_Catcher reports;
    const auto reported = [&](auto&& control, int width, int height) {
        control.Width = static_cast<short>(width), control.Height = static_cast<short>(height);
        control.Color = Colors(10, 200, 30);
        control.Init(window), control.Draw();
        const std::string text = reports.Take();
        return std::count(text.begin(), text.end(), '|') + !text.empty();
    };
    EXPECT_EQ(reported(Buttons(), 32767, 30), 0);
    EXPECT_EQ(reported(Buttons(), 24000, 24000), 1);
    EXPECT_EQ(reported(Boxs(), 24000, 24000), 1);
    EXPECT_EQ(reported(Hue_Edit(), 24000, 24000), 1);
    EXPECT_EQ(reported(Color_Edit(), 24000, 24000), 1);
    window.Point_At(0, 0);
    Buttons button;
    button.X = 50, button.Width = button.Height = 24000, button.Color = Colors(10, 200, 30),
    button.Init(window);
    EXPECT_EQ(window.After([&] { button.Draw(); }).At(100, 100), 0x0AC81Eu);
}
