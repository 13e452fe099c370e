#include <algorithm>
#include <cstring>
#include <string>

#include "Galdren_Tools.h"
#include "tests/support/controls.h"
#include "tests/support/spy.h"
#include "tests/support/window.h"

using namespace galdren_test;

namespace {

constexpr short Left = 30, Bottom = 20;

/// A bar from 0 to 100, or back when it is reversed, ready but for `Init`.
template <class Bar>
struct Sample : Bar {
    Sample(unsigned long flag, int length, int thickness, float value = 50) {
        const bool upright = flag & FLAG_VERTICAL;
        Place(*this, nullptr, Left, Bottom, upright ? thickness : length, upright ? length : thickness, flag);
        (flag & SLIDER_REVERSED ? this->Start_Val : this->End_Val) = 100;
        this->Val = value;
    }
};

/// Puts the pointer `distance` from the start end of a bar.
void Point_Along(const Test_Window& window, const Tools& bar, int distance) {
    const bool upright = bar.Flag & FLAG_VERTICAL;
    window.Point_At(bar.X + (upright ? 3 : distance), bar.Y + (upright ? distance : 3));
}

}  // namespace

TEST(Sliders, Without_Room_Have_No_Positions) {
    Test_Window window(300, 260);
    for (const short border : {short{1}, short{32767}}) {
        Sample<Sliders> s(0, 65, 16);
        s.Border = border, s.Tab[0] = 7;
        s.Init(window);
        EXPECT_LE(s.Tab_Num, 1);
        EXPECT_EQ(s.Tab[0], 7);
    }
}

TEST(Bars, Have_A_Small_Height_For_Layouts) { EXPECT_EQ(VAL_SMALL, 18); }

TEST(Bars, Show_The_Part_That_Is_Visible) {
    const struct {
        int length;
        float part, total;
        int slider, valuator;  // half of their thumbs; the valuator is 40 longer
    } table[] = {{200, 10, 100, 16, 16}, {200, 80, 100, 62, 88}, {200, -80, 100, 62, 88},
                 {200, 5, -4, 78, 110},  {200, 1, 0, 78, 110},   {44, 1, 2, 0, 16},
                 {47, 2, 1, 1, 33}};
    for (const auto& [length, part, total, slider, valuator] : table) {
        Sample<Sliders> s(0, length, 16);
        Sample<Valuators> v(0, length + 40, 16);
        v.Num_Width = 8, v.State = STATE_READY;
        s.Larg_Adjust(part, total), v.Larg_Adjust(part, total);
        EXPECT_EQ(s.Curs_Half, slider);
        EXPECT_EQ(v.Curs_Half, valuator);
    }
}

TEST(Valuators, Go_By_Powers_Of_Ten) {
    Test_Window window(400, 60);
    Sample<Valuators> v(VALUATOR_LOG_10, 337, 26, 10);
    v.Start_Val = 1, v.End_Val = 1000;
    v.Init(window);
    EXPECT_EQ(v.Tab_Num, 301);
    EXPECT_FLOAT_EQ(v.Tab[100], 10);
    EXPECT_FLOAT_EQ(v.Tab[300], 1000);
    Point_Along(window, v, 218);
    EXPECT_FLOAT_EQ(v.Read(), 100);
    EXPECT_FLOAT_EQ(v.Scroll(-1), 11.481536F);  // 0.06 of a power further
    v.Lock(8);
    EXPECT_EQ(v.Read(), v.Val);
    EXPECT_EQ(v.Scroll(3), v.Val);
    v.Lock(8), v.Lock(0);
    EXPECT_EQ(v.Flag, VALUATOR_LOG_10);
    v.Width = 37;
    v.Init(window);
    EXPECT_EQ(v.Tab_Num, 1);
    EXPECT_EQ(v.Read(), v.Tab[0]);
}

TEST(Bars, Step_By_Arrows_And_Wheel) {
    Test_Window window(300, 60);
    const struct {
        bool reversed;
        int distance;           // of the pressed place
        float from, to, shown;  // the last after the owner's `Adjust`
    } presses[] = {{false, 15, 50, 49, 49},  {false, 15, 0.5F, 0, 0},   {false, 16, 50, 50, 50},
                   {false, 184, 50, 50, 50}, {false, 185, 50, 51, 51},  {false, 185, 100, 100, 100},
                   {true, 15, 50, 51, 51},   {true, 15, 100, 101, 100}, {true, 185, 50, 49, 49},
                   {true, 185, 0, -1, 0}};
    for (const auto& [reversed, distance, from, to, shown] : presses) {
        Sample<Sliders> s(reversed ? SLIDER_REVERSED : 0, 200, 16, from);
        s.Init(window);
        Point_Along(window, s, distance);
        EXPECT_EQ(s.Select(EVENT_PRESS | EVENT_LEFT), 1);
        EXPECT_EQ(s.Val, to);
        s.Adjust();
        EXPECT_EQ(s.Val, shown);
    }
    constexpr unsigned long Off = FLAG_PASSIVE, Back = SLIDER_REVERSED;
    const struct {
        unsigned long flag;
        int steps;  // of the wheel
        float from, slider, valuator;
    } turns[] = {{0, 1, 50, 49, 48},    {0, -1, 50, 51, 52}, {0, 3, 1, 0, 0},
                 {0, -3, 99, 100, 100}, {0, 0, 70, 70, 70},  {Off, 1, 50, 50, 50},
                 {Back, 1, 50, 51, 52}, {Back, 3, 1, 4, 7},  {Back, -3, 99, 96, 93}};
    for (const auto& [flag, steps, from, slider, valuator] : turns) {
        Sample<Sliders> s(flag, 200, 16, from);
        Sample<Valuators> v(flag, 200, 26, from);
        s.Init(window), v.Init(window);
        EXPECT_EQ(s.Scroll(steps), slider);
        EXPECT_FLOAT_EQ(v.Scroll(steps), valuator);
    }
}

using Both = testing::Types<Sliders, Valuators>;
template <class Bar>
class Grab : public testing::Test {};
TYPED_TEST_SUITE(Grab, Both);

TYPED_TEST(Grab, Is_Kept_From_Press_To_Release) {
    const struct {
        int event, inside, kept, loose;  // the answers with the flag and without
    } table[] = {{EVENT_DRAG, 1, 0, 1}, {EVENT_PRESS, 0, 0, 0}, {EVENT_PRESS, 1, 1, 1}, {EVENT_DRAG, 0, 1, 0},
                 {EVENT_TEST, 0, 0, 0}, {EVENT_DRAG, 1, 1, 1},  {EVENT_MOVE, 0, 0, 0},  {EVENT_DRAG, 1, 0, 1},
                 {EVENT_TEST, 1, 1, 1}, {EVENT_PRESS, 1, 1, 1}, {EVENT_MOVE, 1, 0, 0}};
    Test_Window window(300, 60);
    for (const unsigned long flag : {0UL, 0UL | SLIDER_KEEP_GRAB}) {
        Sample<TypeParam> bar(flag, 200, 20);
        bar.Init(window);
        for (const auto& [event, inside, kept, loose] : table) {
            Point_Along(window, bar, inside ? 100 : -9);
            EXPECT_EQ(bar.Select(event | EVENT_LEFT), flag ? kept : loose) << event << ' ' << inside;
        }
        Point_Along(window, bar, 100);
        bar.Select(EVENT_PRESS), bar.Deselect();
        EXPECT_EQ(bar.Capture, 0);
        bar.Flag = FLAG_PASSIVE;
        EXPECT_EQ(bar.Select(EVENT_PRESS), 0);
        EXPECT_EQ(bar.Select(EVENT_TEST), 1);
    }
}

TYPED_TEST(Grab, Without_A_Range_Stands_At_The_Start) {
    Test_Window window(300, 100);
    for (const unsigned long flag : {0UL, FLAG_VERTICAL, 0UL | VALUATOR_LOG_10, 0UL | SLIDER_REVERSED}) {
        Sample<TypeParam> bar(flag, 70, 20, 5);
        bar.Start_Val = bar.End_Val = 5;
        bar.Init(window);
        const Picture without = window.After([&] { bar.Draw(); });
        bar.End_Val = flag & SLIDER_REVERSED ? 4 : 6;
        EXPECT_TRUE(Same(without, window.After([&] { bar.Draw(); }))) << flag;
    }
}

TEST(Valuators, Print_Only_One_Number) {
    Test_Window window(300, 60);
    Report_Catcher reports;
    const auto picture = [&](const char* format) {
        Sample<Valuators> v(0, 250, 26, 1.0F / 3);
        v.Format = format, v.Num_Width = 120, v.Name = "n";
        v.Init(window);
        return window.After([&] { v.Draw(), v.Adjust(); });
    };
    const Picture plain = picture("%g");
    for (const char* format :
         {"%s", "%n", "%d", "%f %f", "", "text", "%", "%*f", "%.*f", "%.99999f", "%Lf", "100%%"}) {
        EXPECT_TRUE(Same(picture(format), plain)) << format;
        EXPECT_EQ(reports.Take(),
                  "11:Valuators: the format \"" + std::string(format) + "\" is not one number\n   name: n");
    }
    for (const char* format : {"%5.1f %%", "%+.2e", "x%gy", "%lE", "%99.99f", "%#A"}) {
        EXPECT_FALSE(Same(picture(format), plain)) << format;
        EXPECT_EQ(reports.Take(), "");
    }
    // A text that changes where it stands shows at the next paint.
    char format[40] = "%.1f";
    Sample<Valuators> v(0, 250, 26, 1.0F / 3);
    v.Format = format, v.Num_Width = 120, v.Name = "n";
    v.Init(window);
    for (const char* text : {"%.2f", "%s", "%.3f", "the value is %.2f", "the value is %s"}) {
        const Picture changed = window.After([&] { v.Draw(), std::strcpy(format, text), v.Adjust(); });
        EXPECT_TRUE(Same(changed, picture(text))) << text;
    }
}
