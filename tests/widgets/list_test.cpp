#include <functional>
#include <iterator>
#include <random>
#include <string>

#include "Galdren_Tools.h"
#include "tests/support/controls.h"
#include "tests/support/window.h"

using namespace galdren_test;

namespace {

constexpr short Left = 10, Bottom = 20;
constexpr unsigned long Column = FLAG_VERTICAL;

/// A list of named items, ready but for `Init`.
struct Named : Lists {
    Named(unsigned long flag, int width, int height, int count) {
        Place(*this, nullptr, Left, Bottom, width, height, flag);
        EXPECT_EQ(Grow(count, 0), 1);
        for (int i = 0; i < count; ++i)
            Item[i]->Name = i % 4 == 0 ? "Wide & item" : "Item";
    }
};

/// The left mouse button, held for real: lists ask the system.
struct Held_Button {
    Held_Button() { mouse_event(MOUSEEVENTF_LEFTDOWN, 0, 0, 0, 0); }
    ~Held_Button() { mouse_event(MOUSEEVENTF_LEFTUP, 0, 0, 0, 0); }
};

}  // namespace

TEST(Lists, Light_Up_What_Can_Be_Pressed) {
    Test_Window window(300, 200);
    Named list(Column, 200, 150, 9);
    list.Init(window), list.Draw();
    window.Point_At(Left + 100, Bottom + 130);
    EXPECT_TRUE(list.Select(EVENT_PRESS | EVENT_LEFT) == 1 && list.Item[0]->Hover == 1);
    // The item under the pointer becomes passive: it is shown plain once the pointer has left.
    list.Item[0]->Flag |= FLAG_PASSIVE;
    window.Point_At(0, 0);
    EXPECT_NE(window.Changed([&] { list.Select(EVENT_MOVE); }), Nothing);
    EXPECT_EQ(window.Changed([&] { list.Select(EVENT_MOVE); }), Nothing);
    list.Item[0]->Flag &= ~FLAG_PASSIVE;
    window.Point_At(Left + 100, Bottom + 130);
    EXPECT_NE(window.Changed([&] { list.Select(EVENT_MOVE); }), Nothing) << "it lights up again";
    // An item that reaches the outermost row is painted, and known to `Read`, but takes no clicks.
    list.Scroll_Bar.Start_Val += 1, list.Scroll_Bar.Val += 1;
    list.Draw();
    window.Point_At(Left + 100, Bottom + 130);
    EXPECT_TRUE(list.Item[0]->Shown == 1 && list.Select(EVENT_PRESS) == 0 && list.Read() == 0);
    list.Flag |= FLAG_PASSIVE;
    EXPECT_TRUE(list.Select(EVENT_TEST) == 0 && list.Select(EVENT_PRESS) == 0 && list.Read() == -1);
}

TEST(Lists, Move_The_Mark) {
    const struct {
        unsigned long flag;
        short from, to;
        const char *drawn, *adjusted;  // the values of the items
        bool paints;
    } table[] = {{0, 0, 2, "100000000", "001000000", true},
                 {0, 2, 2, "001000000", "001000000", false},
                 {0, 1, 99, "010000000", "000000000", true},
                 {0, -1, 8, "000000000", "000000001", false},  // out of view
                 {0, -7, 32767, "000000000", "000000000", false},
                 {FLAG_NO_BODY, 0, 1, "100500000", "010500000", false},
                 {FLAG_PASSIVE, 0, 1, "100000000", "100000000", false},
                 {FLAG_STATIC, 0, 1, "100000000", "010000000", true}};
    Test_Window window(300, 200);
    for (const auto& [flag, from, to, drawn, adjusted, paints] : table) {
        SCOPED_TRACE(testing::Message() << flag << ' ' << from << ' ' << to);
        Named list(flag | Column, 200, 150, 9);
        const auto values = [&] {
            std::string all;
            for (int i = 0; i < 9; ++i)
                all += std::to_string(list.Item[i]->Value);
            return all;
        };
        list.Current = from;
        list.Init(window);
        list.Item[3]->Value = 5;  // stays until the next `Draw` that shows anything
        list.Draw();
        EXPECT_EQ(values(), drawn);
        list.Current = to;
        EXPECT_EQ(window.Changed([&] { list.Adjust(); }) != Nothing, paints);
        EXPECT_EQ(values(), adjusted);
    }
}

TEST(Lists, Scroll_By_Bar_And_Wheel) {
    Test_Window window(420, 200);
    for (const bool column : {true, false}) {
        Named list(column ? Column : 0, column ? 200 : 390, column ? 150 : 60, 40);
        list.Init(window);
        window.Refill();
        list.Draw();
        const short& moving = column ? list.Item_Y : list.Item_X;
        const int step = column ? -list.Item_DY : list.Item_DX, first = moving;
        const int sign = column ? 1 : -1;  // a column moves up to show what follows, a row to the left
        const auto point_at_bar = [&](int along) {
            const Sliders& bar = list.Scroll_Bar;
            window.Point_At(bar.X + (column ? 8 : along), bar.Y + (column ? along : 8));
        };
        const int length = column ? list.Scroll_Bar.Height : list.Scroll_Bar.Width;
        const auto expect = [&](int value) {
            EXPECT_EQ(moving, value);
            const Picture shown(window);
            EXPECT_TRUE(Same(shown, window.After([&] { list.Draw(); }))) << "as when painted anew";
        };
        list.Scroll(sign);
        EXPECT_EQ(moving, first) << "the pointer is elsewhere";
        window.Point_At(Left + 1, Bottom + 1);
        list.Scroll(3 * sign);
        expect(first + sign * 3 * step);
        list.Scroll(-100 * sign);
        point_at_bar(column ? 4 : length - 4);
        EXPECT_EQ(list.Select(EVENT_PRESS | EVENT_LEFT), 0) << "no button is held";
        EXPECT_EQ(moving, first) << "the arrow steps the bar alone";
        list.Scroll_Bar.Val = static_cast<float>(first);
        const Held_Button held;
        EXPECT_EQ(list.Select(EVENT_PRESS | EVENT_LEFT), 0);
        EXPECT_EQ(moving, first + sign * step);
        for (const int along : {50, 63, 40, length / 2, 20, length - 20}) {
            point_at_bar(along);
            EXPECT_EQ(list.Select(EVENT_DRAG | EVENT_LEFT), 0);
            window.Point_At(0, 0);
            list.Select(EVENT_MOVE);
            expect(static_cast<int>(list.Scroll_Bar.Val));
        }
        EXPECT_EQ(moving, list.Scroll_Bar.End_Val) << "column: the beginning, row: the end";
    }
}

TEST(Lists, Reach_The_Last_Of_2000_Items) {
    constexpr int Many = 2000, Height = 560;  // the last is 52,000 pixels down, which 16 bits do not hold
    Test_Window window(300, 600);
    // The last items look like those of a list that has no others.
    Named list(Column, 200, Height, Many), last(Column, 200, Height, 32);
    list.Current = last.Current = -1;
    list.Init(window), last.Init(window);
    window.Point_At(Left + 100, Bottom + 20);
    list.Scroll(Many), last.Scroll(Many);
    EXPECT_EQ(list.Item[Many - 1]->Y, Bottom + 11);
    EXPECT_EQ(list.Select(EVENT_PRESS), 1);
    EXPECT_EQ(list.Read(), Many - 1);
    const auto items_only = [&](Lists& of) {
        of.Scroll_Bar.Flag |= FLAG_NO_BODY;
        return window.After([&] { of.Draw(); });
    };
    EXPECT_TRUE(Same(items_only(list), items_only(last)));
}

/// Items share what they are painted from, whatever each has of its own.
TEST(Lists, Show_Every_Item_As_If_It_Stood_Alone) {
    Test_Window window(300, 600);
    const std::function<void(Buttons&)> kinds[] = {
        [](Buttons& item) { item.Color = Colors(10, 200, 90); },
        [](Buttons& item) { item.Color = Colors(300, 20, 20); },
        [](Buttons& item) { item.Flag |= FLAG_STATIC; },
        [](Buttons& item) { item.Flag |= FLAG_OWN_IMAGES; },
        [](Buttons& item) { item.Width = 250, item.Height = 30, item.Alloc_Graph_Normal(0x4080C0); },
        [](Buttons& item) { item.Width = 250, item.Height = 30, item.Alloc_Graph_Select(0xC08040); },
        [&](Buttons& item) { item.Width = item.Height = 25, item.Init(window); },
        [](Buttons& item) { item.Font_Size_Last = 9, item.Last_Width = 3, item.Last_Color = 7; },
    };
    constexpr int Many = 2 * int(std::size(kinds)) + 2;
    Buttons kept;
    {
        Named list(Column, 200, 560, Many);
        for (int i = 1; i + 1 < Many; i += 2)
            kinds[i / 2](*list.Item[i]);
        list.Current = 2;
        list.Init(window), list.Draw();
        for (int i = 0; i < Many; ++i) {
            Buttons& item = *list.Item[i];
            Buttons alone;
            if (i % 2 && i + 1 < Many) kinds[i / 2](alone);
            alone.X = item.X, alone.Y = item.Y, alone.Width = item.Width, alone.Height = item.Height;
            alone.Name = item.Name, alone.Font_Name = item.Font_Name, alone.Font_Size = item.Font_Size;
            alone.Room = item.Room, alone.Border = item.Border, alone.Flag = item.Flag;
            alone.Color = item.Color, alone.Value = i == 2;
            alone.Init(window);
            for (const int lit : {0, 1}) {
                window.Point_At(lit * (item.X + 9), item.Y + 9);
                EXPECT_TRUE(Same(window.After([&] { item.Draw(); }), window.After([&] { alone.Draw(); })))
                    << i << ' ' << lit;
            }
            EXPECT_EQ(item.Region, nullptr);
        }
        kept = *list.Item[4];
    }
    // What the items shared goes with the last that holds it, not before.
    const HFONT font = kept.Font;
    EXPECT_NE(window.Changed([&] { kept.Draw(); }), Nothing);
    kept = Buttons();
    EXPECT_EQ(GetObjectType(font), 0U);
}

/// Rows that are moved as pixels show what painting all of them would, whoever painted in between.
TEST(Lists, Scroll_As_If_Painted_Anew) {
    for (const bool held : {false, true}) {
        Test_Window window(620, 420);
        Named lists[] = {Named(Column, 280, 380, 60), Named(Column, 280, 380, 60)};
        std::string names[60];
        std::mt19937 random(11);
        const auto chance = [&](unsigned below) { return static_cast<int>(random() % below); };
        const std::function<void(Lists&)> steps[] = {
            [&](Lists& list) {
                std::string& name = names[chance(60)];
                name += '!', list.Item[&name - names]->Name = name.c_str();
            },
            [&](Lists& list) { list.Current = static_cast<short>(chance(60)), list.Adjust(); },
            [&](Lists& list) { list.Color = Colors(static_cast<unsigned char>(100 + chance(100))); },
            [&](Lists& list) {
                list.Y = static_cast<short>(Bottom + chance(8)), list.Init(window), list.Draw();
            },
            [](Lists& list) { list.Select(EVENT_MOVE); },
        };
        lists[1].X = 310;
        if (held) Begin_Hold(window);
        for (Lists& list : lists)
            list.Init(window), list.Draw();
        for (int step = 0; step < 400; ++step) {
            Lists& list = lists[chance(2)];
            window.Point_At(list.X + 50, Bottom + 10 + chance(360));
            steps[random() % std::size(steps)](list);
            const float before = list.Scroll_Bar.Val;
            list.Scroll(static_cast<int>(random() % 7) - 3);
            // Painted anew, the list begins again with nothing kept.
            if (list.Scroll_Bar.Val == before || random() % 5) continue;
            const Picture shown(window);
            list.Draw();
            ASSERT_TRUE(Same(shown, Picture(window))) << held << " step " << step;
        }
        if (held) End_Hold(window);
    }
}
