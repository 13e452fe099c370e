#include <random>

#include "Galdren_Tools.h"
#include "tests/support/window.h"

using namespace galdren_test;

namespace {

constexpr int Left = 100, Bottom = 90;

const char* const Labels_Of_List[] = {"First item", "Second", "The third item", "4", ""};

/// Fills in what a class needs to show anything.
void Furnish(Tools&) {}
void Furnish(Valuators& valuator) { valuator.Format = "%.1f", valuator.Num_Width = 40, valuator.End_Val = 9; }
void Furnish(Sliders& slider) { slider.End_Val = 9, slider.Val = 3; }
void Furnish(CheckLists& list) { list.List = Labels_Of_List, list.Value = 5; }
void Furnish(Lists& list) {
    if (!list.Item) list.Grow(9, 0);
    for (int i = 0; i < 9; ++i)
        list.Item[i]->Name = "Item";
}
void Furnish(Selects& selector) {
    if (!selector.Item) selector.Grow(3, 0);
    for (int i = 0; i < 3; ++i)
        selector.Item[i]->Name = "Choice";
    selector.Value_Width = 90;
}
void Furnish(Texts& field) { field.Flag |= TEXT_V_BAR; }

void Show(Tools&) {}
void Show(Texts& field) {
    field.Read("input");
    for (int i = 0; i < 30; ++i)
        field.Write("Line %d", i);
}
void Show(DirTrees& tree) { tree.Set("C:\\"); }

/// Everything that a control paints at a place, also under the pointer and when it changes.
template <class Control>
void Use(const Test_Window& window, Control& control) {
    control.Draw();
    Show(control);
    for (const POINT at : {POINT{1, 1}, POINT{control.Width / 2, control.Height / 2},
                           POINT{control.Width - 1, control.Height - 1}, POINT{-50, -50}}) {
        window.Point_At(Left + at.x, Bottom + at.y);
        for (const int event : {EVENT_MOVE + 0, EVENT_PRESS | EVENT_LEFT})
            control.Select(event);
        if constexpr (requires { control.Scroll(1); }) control.Scroll(1);
        if constexpr (requires { control.Adjust(); }) control.Adjust();
    }
    control.Draw();
}

template <class Control>
void Place(Control& control, int width, int height, unsigned long flag) {
    control.X = Left, control.Y = Bottom, control.Flag = flag;
    control.Width = static_cast<short>(width), control.Height = static_cast<short>(height);
    control.Name = "Some caption", control.Font_Name = "Arial", control.Font_Size = 10;
    Furnish(control);
}

bool Inside(const Area& painted, int width, int height) {
    return painted == Nothing || (painted.left >= Left && painted.right <= Left + width &&
                                  painted.bottom >= Bottom && painted.top <= Bottom + height);
}

}  // namespace

template <class Control>
struct Made_Of_Parts : testing::Test {};
using Classes =
    testing::Types<Sliders, Valuators, CheckLists, Lists, Selects, Texts, Hue_Edit, Color_Edit, DirTrees>;
TYPED_TEST_SUITE(Made_Of_Parts, Classes);

/// What a control is made of is cut at its rectangle, right column and top row included.
TYPED_TEST(Made_Of_Parts, Stay_In_The_Rectangle_However_Small) {
    Test_Window window(420, 420);
    const auto check = [&](int width, int height, unsigned long flag) {
        TypeParam control;
        Place(control, width, height, flag);
        const Area painted = window.Changed([&] { control.Init(window), Use(window, control); });
        EXPECT_TRUE(Inside(painted, width, height))
            << width << " x " << height << " flag " << std::hex << flag;
    };
    for (const SIZE size : {SIZE{130, 66}, SIZE{57, 57}, SIZE{22, 38}, SIZE{13, 48}, SIZE{30, 26},
                            SIZE{68, 4}, SIZE{104, 1}, SIZE{130, 3}, SIZE{120, 8}, SIZE{120, 40}, SIZE{1, 1}})
        check(size.cx, size.cy, 0);
    std::mt19937 random(7);
    for (int i = 0; i < 60; ++i)
        check(1 + static_cast<int>(random() % 90), 1 + static_cast<int>(random() % 70),
              random() & (FLAG_VERTICAL | FLAG_RAISED | FLAG_TEXT_LEFT));
}

/// The text clip rectangle holds for a control with all its parts.
TYPED_TEST(Made_Of_Parts, Keep_To_The_Clip_Rectangle) {
    Test_Window window(420, 420);
    TypeParam control;
    Place(control, 260, 200, 0);
    control.Init(window);
    const Picture whole = window.After([&] { Use(window, control); });
    TypeParam clipped;
    Place(clipped, 260, 200, 0);
    clipped.Clip_X = Left + 20, clipped.Clip_Y = Bottom + 30, clipped.Clip_Width = 150,
    clipped.Clip_Height = 90;
    const Picture part = window.After([&] { clipped.Init(window), Use(window, clipped); });
    const Area inside{Left + 20, Left + 169, Bottom + 31, Bottom + 120};
    EXPECT_EQ(part.Painted(), inside);
    int differing = 0;
    for (int x = inside.left; x <= inside.right; ++x) {
        for (int y = inside.bottom; y <= inside.top; ++y)
            differing += part.At(x, y) != whole.At(x, y);
    }
    EXPECT_EQ(differing, 0);
}
