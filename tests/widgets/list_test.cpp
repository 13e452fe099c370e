#include <algorithm>
#include <functional>
#include <random>
#include <string>
#include <vector>

#include "Galdren_Tools.h"
#include "tests/support/spy.h"
#include "tests/support/window.h"

using namespace galdren_test;

namespace {

constexpr short Left = 10, Bottom = 20;
constexpr unsigned long Column = FLAG_VERTICAL;

/// A list of named items, ready but for `Init`.
struct Named : Lists {
    Named(unsigned long flag, int width, int height, int count, bool named = true) {
        X = Left, Y = Bottom, Width = static_cast<short>(width), Height = static_cast<short>(height);
        Flag = flag, Font_Name = "Arial", Font_Size = 9;
        EXPECT_EQ(Grow(count, 0), 1);
        for (int i = 0; named && i < count; ++i)
            Item[i]->Name = i % 4 == 0 ? "Wide & item" : "Item";
    }
};

/// The left mouse button, held for real: lists ask the system.
struct Held_Button {
    Held_Button() { mouse_event(MOUSEEVENTF_LEFTDOWN, 0, 0, 0, 0); }
    ~Held_Button() { mouse_event(MOUSEEVENTF_LEFTUP, 0, 0, 0, 0); }
};

}  // namespace

TEST(Lists, Follow_The_Pointer_And_Tell_The_Item) {
    struct Row {
        int x, y;  // from the list's corner
        bool inside;
        int select, read;
    };
    // Items stand 26 apart from 120 downwards; the sixth begins below the inner area.
    const Row table[] = {
        {100, 130, true, 1, 0}, {100, 145, true, 1, 0},  {100, 146, true, 0, -1}, {26, 94, true, 1, 1},
        {25, 94, true, 0, -1},  {195, 119, true, 1, 1},  {196, 119, true, 0, -1}, {100, 80, true, 0, -1},
        {100, 16, true, 1, 4},  {100, 15, true, 0, 5},   {100, 0, true, 0, 5},    {100, -1, false, 0, -1},
        {10, 70, true, 0, -1},  {200, 150, true, 0, -1}, {201, 70, false, 0, -1}, {100, 130, true, 1, 0},
        {-5, 70, false, 0, -1}, {100, 120, true, 1, 0},
    };
    Test_Window window(300, 200);
    Named list(Column, 200, 150, 9);
    list.Init(window);
    list.Item[2]->Flag |= FLAG_PASSIVE;
    list.Draw();
    const Buttons& passive = *list.Item[2];
    const int inset = BORDER + 1;  // its body is painted every time, while the pointer is on the list
    const Area passive_body{passive.X + inset, passive.X + passive.Width - inset, passive.Y + inset,
                            passive.Y + passive.Height - inset};
    for (const Row& row : table) {
        SCOPED_TRACE(&row - table);
        window.Point_At(Left + row.x, Bottom + row.y);
        EXPECT_EQ(window.Changed([&] { EXPECT_EQ(list.Select(EVENT_TEST), row.inside); }), Nothing);
        EXPECT_EQ(list.Select(EVENT_MOVE), row.select);
        for (int i = 0; i < 9; ++i) {
            const bool lit = row.select && row.read == i;
            const bool told = i != 2 && (!row.inside || i < 5);
            EXPECT_EQ(list.Item[i]->Hover == 1, lit) << i;
            EXPECT_TRUE(!told || lit || list.Item[i]->Hover == 2) << i;
        }
        for (const int event : {0, 1, 2}) {
            // The bar takes presses and drags for itself.
            const bool taken = row.x == 10 && event != 0;
            EXPECT_EQ(window.Changed([&] { EXPECT_EQ(list.Select(event), row.select); }),
                      taken || !row.inside ? Nothing : passive_body);
        }
        EXPECT_EQ(list.Read(), row.read);
    }
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
    struct Row {
        unsigned long flag;
        short from, to;
        bool paints;
    };
    const Row table[] = {{0, 0, 2, true},       {0, 2, 2, false}, {0, 1, 99, true}, {0, -1, 8, false},
                         {0, -7, 32767, false}, {1, 0, 1, false}, {2, 0, 1, false}, {0x10, 0, 1, true}};
    Test_Window window(300, 200);
    for (const Row& row : table) {
        SCOPED_TRACE(&row - table);
        Named list(row.flag | Column, 200, 150, 9);
        list.Current = row.from;
        list.Init(window);
        list.Item[3]->Value = 5;  // stays until the next `Draw`
        const auto values = [&](int marked, int third) {
            for (int i = 0; i < 9; ++i)
                EXPECT_EQ(list.Item[i]->Value, i == 3 ? third : i == marked) << i;
        };
        values(row.from, 5);
        list.Draw();
        const bool passive = row.flag & FLAG_PASSIVE, hidden = row.flag & FLAG_NO_BODY;
        values(row.from, hidden ? 5 : 0);
        list.Current = row.to;
        EXPECT_EQ(window.Changed([&] { list.Adjust(); }) != Nothing, row.paints);
        EXPECT_EQ(list.Last_Current, passive ? row.from : row.to);
        values(passive ? row.from : row.to, hidden ? 5 : 0);
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
        const int from = (column ? Bottom : Left) + BORDER + 2;
        const int to = (column ? Bottom + list.Height : Left + list.Width) - BORDER - 1;
        const auto expect = [&](int value) {
            EXPECT_EQ(moving, value);
            for (int i = 0; i < list.Nb_Item; ++i) {
                const Buttons& item = *list.Item[i];
                const int place = value + i * (list.Item_DX + list.Item_DY);
                EXPECT_EQ(column ? item.Y : item.X, place);
                const int end = place + (column ? item.Height : item.Width);
                EXPECT_EQ(item.Shown, place >= from && end <= to);
            }
            const Picture shown(window);  // before it is painted anew
            EXPECT_TRUE(Same(shown, window.After([&] { list.Draw(); })));
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

TEST(Lists, Share_Items_With_A_Copy_That_Shows_Others) {
    Test_Window window(260, 300);
    Named list(Column, 200, 150, 20);
    list.Y = 120;
    list.Init(window), list.Draw();
    Lists copy = list;
    window.Point_At(Left + 1, list.Y + 1);
    list.Scroll(6);
    copy.Current = 7;
    EXPECT_EQ(window.Changed([&] { copy.Adjust(); }), Nothing) << "it is shown by the other list only";
    Named alone(Column, 200, 150, 20);
    alone.Y = 120, alone.Current = 7, alone.Init(window);
    for (Lists* const drawn : {&copy, static_cast<Lists*>(&list)}) {
        drawn->Current = 7;
        const Picture picture = window.After([&] { drawn->Draw(); });
        EXPECT_TRUE(Same(picture, window.After([&] { alone.Draw(); })));
        alone.Scroll(6);
    }
}

TEST(Lists, Stay_Small_And_Fast_With_20000_Items) {
    constexpr int Many = 20000, Height = 560;
    Test_Window window(300, 600);
    std::vector<std::string> names;
    for (int i = 0; i < Many; ++i)
        names.push_back("Item " + std::to_string(i));
    Named empty(Column, 200, Height, 0);
    empty.Init(window), empty.Draw();
    const int objects = Gdi_Objects();
    Named list(Column, 200, Height, Many, false);
    for (int i = 0; i < Many; ++i)
        list.Item[i]->Name = names[static_cast<std::size_t>(i)].c_str();
    list.Init(window), list.Draw();
    window.Point_At(Left + 100, Bottom + 300);
    // A step costs the calls that one of a short list costs.
    Named few(Column, 200, Height, 40);
    few.Init(window), few.Draw();
    long long calls[2][3];
    for (Lists* const scrolled : {static_cast<Lists*>(&few), static_cast<Lists*>(&list)}) {
        Call_Spy spy;
        scrolled->Scroll(2);
        int n = 0;
        for (const char* function : {"ExtTextOutW", "SetDIBitsToDevice", "CreateRectRgn"})
            calls[scrolled == &list][n++] = spy.Count(function);
    }
    for (int n = 0; n < 3; ++n)
        EXPECT_EQ(calls[0][n], calls[1][n]) << n;
    for (int i = 1; i < 300; ++i) {
        list.Scroll_Bar.Step = static_cast<float>(i * 61 % 140);
        list.Scroll(i % 7 * 3);
    }
    EXPECT_LE(Gdi_Objects() - objects, 100);
    list.Scroll_Bar.Step = 26;
    list.Scroll(Many);
    EXPECT_EQ(list.Item[Many - 1]->Y, Bottom + 11);
    window.Point_At(Left + 100, Bottom + 20);
    EXPECT_EQ(list.Select(EVENT_PRESS), 1);
    EXPECT_EQ(list.Read(), Many - 1);
    // The last items look like those of a list that has no others.
    Named last(Column, 200, Height, 30);
    for (int i = 0; i < 30; ++i)
        last.Item[i]->Name = names[static_cast<std::size_t>(Many - 30 + i)].c_str();
    last.Current = -1, last.Init(window), last.Scroll(Many);
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
            alone.X = item.X, alone.Y = item.Y, alone.Width = item.Width, alone.Height = item.Height;
            alone.Name = item.Name, alone.Font_Name = item.Font_Name, alone.Font_Size = item.Font_Size;
            alone.Room = item.Room, alone.Border = item.Border, alone.Flag = item.Flag;
            alone.Color = item.Color, alone.Value = i == 2;
            alone.Init(window);
            EXPECT_TRUE(Same(window.After([&] { item.Draw(); }), window.After([&] { alone.Draw(); }))) << i;
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
        Lists lists[2];
        std::string names[60];
        for (int k = 0; k < 2; ++k) {
            Lists& list = lists[k];
            list.X = static_cast<short>(10 + 300 * k), list.Y = 10, list.Width = 280, list.Height = 380;
            list.Flag = FLAG_VERTICAL, list.Font_Name = "Arial", list.Font_Size = 9;
            list.Grow(60, 0);
            for (std::size_t i = 0; i < 60; ++i)
                list.Item[i]->Name = (names[i] = "Item " + std::to_string(i)).c_str();
            list.Init(window);
        }
        if (held) Begin_Hold(window);
        lists[0].Draw(), lists[1].Draw();
        std::mt19937 random(11);
        for (int step = 0; step < 400; ++step) {
            const std::size_t k = random() % 2;
            Lists& list = lists[k];
            const int at = static_cast<int>(300 * k) + 60;
            window.Point_At(at, static_cast<int>(random() % 360) + 20);
            const std::size_t item = random() % 60;
            switch (random() % 6) {
                case 0:
                    names[item] += '!', list.Item[item]->Name = names[item].c_str();
                    break;
                case 1:
                    list.Current = static_cast<short>(item), list.Adjust();
                    break;
                case 2:
                    list.Color = Colors(static_cast<unsigned char>(100 + random() % 100));
                    break;
                case 3:
                    list.Y = static_cast<short>(10 + random() % 8), list.Init(window), list.Draw();
                    break;
                default:
                    list.Select(EVENT_MOVE);
            }
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
