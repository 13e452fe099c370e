#include <string>

#include "Galdren_Tools.h"
#include "tests/support/controls.h"
#include "tests/support/window.h"

using namespace galdren_test;

namespace {

constexpr short Left = 20, Bottom = 30;
constexpr int All_Skipped = 0x1F;

/// A selector of five items, ready but for `Init`.
struct Five : Selects {
    Five(unsigned long flag, int width, int height) {
        Place(*this, nullptr, Left, Bottom, width, height, flag);
        Name_Items(*this, {"Zero", "One & more", "Two", nullptr, "Four"});
    }
    void Stand(int current, int skipped) {
        Current = static_cast<short>(current);
        for (int i = 0; i < 5; ++i)
            Item[i]->Flag = (Item[i]->Flag & ~FLAG_PASSIVE) | (skipped >> i & 1 ? FLAG_PASSIVE : 0);
    }
};

}  // namespace

TEST(Selectors, Step_When_An_Arrow_Is_Pressed) {
    const struct {
        int column;    // or row
        int distance;  // of the pointer from the start of the value area (190 long, arrows of 24)
        int from, skipped, to;
    } table[] = {{0, 23, 3, 0, 2},  {0, 23, 0, 0, 4},    {0, 24, 3, 0, 3}, {0, 166, 3, 0, 3},
                 {0, 167, 4, 0, 0}, {0, 167, 1, 0xC, 4}, {1, 23, 3, 0, 4}, {1, 24, 3, 0, 3},
                 {1, 167, 0, 0, 4}, {0, 167, 99, 0, 0},  {0, 0, -7, 0, 4}, {0, 0, 2, All_Skipped, 2}};
    Test_Window window(260, 260);
    for (const auto& [column, distance, from, skipped, to] : table) {
        SCOPED_TRACE(testing::Message() << column << ' ' << distance << ' ' << from);
        Five s(column ? FLAG_VERTICAL : 0, column ? 24 : 200, column ? 200 : 24);
        s.Init(window);
        s.Stand(from, skipped);
        window.Point_At(Left + (column ? 7 : 5 + distance), Bottom + (column ? 5 + distance : 7));
        EXPECT_EQ(s.Select(EVENT_PRESS | EVENT_LEFT), 1);
        EXPECT_EQ(s.Read(), to);
        EXPECT_EQ(s.Last_Current, 0) << "shown by Adjust";
        s.Adjust();
        EXPECT_EQ(s.Last_Current, to);
        EXPECT_EQ(s.Read(), to);
    }
}

TEST(Selectors, Scroll_Past_An_End_To_The_Other) {
    const struct {
        int steps, from, skipped, to;
    } table[] = {{1, 3, 0, 2},     {1, 0, 0, 4},      {-1, 4, 0, 0},  {3, 1, 0, 4},
                 {-3, 3, 0, 0},    {3, 4, 0x10, 1},   {1, 3, 0x6, 0}, {0, 2, 0x4, 2},
                 {32767, 2, 0, 4}, {-32768, 2, 0, 0}, {1, 99, 0, 0},  {1, 2, All_Skipped, 2}};
    Test_Window window(260, 100);
    Five s(0, 200, 24);
    s.Init(window);
    for (const auto& [steps, from, skipped, to] : table) {
        s.Stand(from, skipped);
        EXPECT_EQ(s.Scroll(static_cast<short>(steps)), to) << steps << ' ' << from;
    }
    s.Stand(2, 0), s.Flag = FLAG_PASSIVE;
    EXPECT_EQ(s.Scroll(1), 2);
    EXPECT_EQ(s.Read(), -1);
    s.Flag = 0;
    s.Stand(0, 0x3);
    EXPECT_NE(window.Changed([&] { s.Adjust(); }), Nothing);
    EXPECT_EQ(s.Read(), 2);
    EXPECT_EQ(window.Changed([&] { s.Adjust(); }), Nothing);
    s.Flag = FLAG_NO_BODY, s.Current = 4;
    EXPECT_EQ(window.Changed([&] { s.Adjust(), s.Draw(); }), Nothing);
    s.Grow(0, 0);
    EXPECT_EQ(s.Scroll(1), 0);
}
