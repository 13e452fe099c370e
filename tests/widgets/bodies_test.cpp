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

namespace {

/// The pixel of an image that this test made, by column and row from the top.
std::uint32_t Pixel_Of_Image(int x, int y) { return static_cast<std::uint32_t>(0x400000 + 256 * y + x); }

template <class Control>
void Give_Image(Control& control) {
    ASSERT_TRUE(control.Alloc_Graph_Normal(0));
    for (int y = 0; y < control.Height; ++y) {
        for (int x = 0; x < control.Width; ++x)
            control.Graph_Normal[y * control.Width + x] = Pixel_Of_Image(x, y);
    }
}

template <class Control>
void Put_To_Scale(Control& control, int percent, int width, int height) {
    control.Scale = static_cast<unsigned short>(percent);
    control.Width = static_cast<short>(width * percent / 100);
    control.Height = static_cast<short>(height * percent / 100);
    control.Border = static_cast<short>(3 * percent / 100);
    control.Init(nullptr);
}

}  // namespace

/// An image has the pixels that it was given with, whatever the scale is then.
TEST(Bodies, Show_Images_By_Whole_Factors) {
    Test_Window window(300, 250);
    window.Point_At(0, 0);
    const auto check = [&](auto control) {
        constexpr int Ground = 0x33AA55;
        control.Set_Color(0x33, 0xAA, 0x55);
        control.X = control.Y = 10, control.Width = 60, control.Height = 40, control.Border = 3;
        Give_Image(control);
        control.Init(window);
        const unsigned long* const image = control.Graph_Normal;
        const Picture plain = window.After([&] { control.Draw(); });
        // The scale, the size at 100 %, by how much pixels are enlarged, and which ones of how many are
        // shown.
        struct Case {
            int scale, width, height, times, part;
        };
        for (const Case& shown : {Case{200, 60, 40, 2, 1},
                                  {150, 60, 40, 1, 1},
                                  {399, 60, 40, 3, 1},
                                  {200, 90, 60, 2, 1},
                                  {100, 90, 60, 1, 1},
                                  {50, 160, 120, 1, 2},
                                  {90, 90, 60, 1, 2}}) {
            SCOPED_TRACE(shown.scale);
            Put_To_Scale(control, shown.scale, shown.width, shown.height);
            const Picture picture = window.After([&] { control.Draw(); });
            const int width = 60 * shown.times / shown.part, height = 40 * shown.times / shown.part;
            const int left = control.Width / 2 - width / 2, bottom = control.Height / 2 - height / 2;
            const int inset = control.Border + (shown.scale + 50) / 100;
            for (int y = inset; y < control.Height - inset; ++y) {
                for (int x = inset; x < control.Width - inset; ++x) {
                    const int column = x - left, row = bottom + height - y;
                    const bool inside = column >= 0 && column < width && row >= 0 && row < height;
                    const int from_x = column * shown.part / shown.times;
                    const int from_y = row * shown.part / shown.times;
                    ASSERT_EQ(picture.At(10 + x, 10 + y), inside ? Pixel_Of_Image(from_x, from_y) : Ground)
                        << x << ' ' << y;
                }
            }
        }
        Put_To_Scale(control, 100, 60, 40);
        EXPECT_TRUE(Same(window.After([&] { control.Draw(); }), plain));
        EXPECT_EQ(control.Graph_Normal, image);
        Put_To_Scale(control, 200, 30, 20);
        Give_Image(control);
        control.Init(nullptr);
        EXPECT_EQ(window.After([&] { control.Draw(); }).At(10 + 20, 10 + 30), Pixel_Of_Image(20, 10))
            << "one that is given at a scale is shown there as it is";
    };
    check(Boxs());
    check(Buttons());
}

/// The bodies of tabs and the ground of lists have ways of their own to paint an image: it is twice as large
/// at 200 %, and is not read where it ends.
TEST(Bodies, Of_Tabs_And_Lists_Show_Images_At_A_Scale) {
    Test_Window window(300, 250);
    window.Point_At(0, 0);
    constexpr int slant = 6;
    // The image of a tab begins at its top, that of a list a row above its edge.
    const auto check = [&](auto& control, Tools& body, int left, int bottom) {
        control.X = control.Y = 10, control.Width = body.Width = 60, control.Height = body.Height = 40,
        control.Border = 3, control.Set_Color(0x33, 0xAA, 0x55);
        Give_Image(body);
        control.Init(window);
        const Picture plain = window.After([&] { control.Draw(); });
        EXPECT_EQ(plain.At(10 + left + 20, bottom + 10), Pixel_Of_Image(20, 29));
        if constexpr (requires { control.Slant; }) control.Slant = 2 * slant;
        Put_To_Scale(control, 200, 60, 40);
        const Picture doubled = window.After([&] { control.Draw(); });
        for (int y = 20; y < 60; ++y) {
            for (int x = 20; x < 80; ++x)
                ASSERT_EQ(doubled.At(10 + 2 * left + x, bottom + y),
                          plain.At(10 + left + x / 2, bottom + y / 2))
                    << x << ' ' << y;
        }
        Put_To_Scale(control, 100, 60, 40);
        body.Width = 200, body.Height = 100;
        EXPECT_EQ(window.After([&] { control.Draw(); }).At(10 + left + 20, bottom + 10), 0x33AA55u);
    };
    TabItems tab;
    tab.Slant = slant, tab.Value = 1;
    check(tab, tab, slant, 10);
    Lists list;
    check(list, list.Frame, 0, 11);
}
