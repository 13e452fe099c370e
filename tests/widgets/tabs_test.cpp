#include <random>
#include <string>

#include "Galdren_Tools.h"
#include "tests/support/controls.h"
#include "tests/support/window.h"

using namespace galdren_test;

namespace {

constexpr short Left = 30, Bottom = 25;

/// A set ready but for `Init`.
struct Row : Tabs {
    explicit Row(int count, int width = 300, int height = 40, unsigned long flag = 0) {
        Place(*this, "Caption", Left, Bottom, width, height, flag);
        Font_Size = 10;
        EXPECT_EQ(Grow(count, 0), 1);
        for (int i = 0; i < count; ++i)
            Item[i]->Name = i % 2 ? "Odd" : "Even & long";
    }
    void Turn(int front) { Value = static_cast<short>(front); }
};

}  // namespace

TEST(Tab_Items, Are_Painted_Of_Public_Parts) {
    Test_Window window(200, 90);
    TabItems t;
    Place(t, nullptr, Left, Bottom, 100, 37), t.Init(window);
    const Picture drawn = window.After([&] { t.Draw(); }), parts = window.After([&] {
        t.Cadre(0, 0, 1, Left, Left + 100, Bottom, Bottom + 37);
        t.Fill_Select(0, nullptr, 0, 1, Left + t.Slant, Left + 100 - t.Slant, Bottom, Bottom + 37);
    });
    EXPECT_TRUE(Same(parts, drawn));
    t.Flag = FLAG_OUTLINE;
    const Picture thin = window.After([&] { t.Cadre_Outline(Left, Left + 100, Bottom, Bottom + 37); });
    EXPECT_TRUE(Same(window.After([&] { t.Draw(); }), thin));
}

/// A tab that lights up paints over the end of its neighbour.
TEST(Tab_Sets, Show_The_Same_After_A_Press_As_Painted_Anew) {
    Test_Window window(420, 120);
    Row s(6, 380, 30);
    s.Init(window), s.Draw();
    std::mt19937 random(5);
    for (int i = 0; i < 300; ++i) {
        window.Point_At(Left + static_cast<int>(random() % 400), Bottom + static_cast<int>(random() % 40));
        s.Select(EVENT_MOVE);
        const int pressed = s.Read();
        if (i % 2 || pressed < 0 || pressed == s.Value) continue;
        s.Turn(pressed), s.Adjust();
        const Picture adjusted(window);
        s.Draw();
        ASSERT_TRUE(Same(adjusted, Picture(window))) << i;
    }
    s.Turn(0);
    const auto turn_to = [&](int front) { return window.Changed([&] { s.Turn(front), s.Adjust(); }); };
    EXPECT_EQ(turn_to(s.Last_Value), Nothing);
    s.Flag = FLAG_NO_BODY;
    EXPECT_EQ(turn_to(2), Nothing);
    s.Flag = FLAG_OUTLINE;
    EXPECT_EQ(window.Changed([&] { s.Draw(), s.Turn(5), s.Adjust(); }), Nothing);
    EXPECT_EQ(s.Item[5]->Shape, TAB_LEFT_STRAIGHT | TAB_RIGHT_STRAIGHT);
    EXPECT_EQ(s.Item[5]->Value, 1);
    s.Flag = FLAG_PASSIVE;
    EXPECT_EQ(window.Changed([&] { s.Turn(0), s.Adjust(), s.Select(EVENT_PRESS); }), Nothing);
    EXPECT_EQ(s.Read(), -1);
}
