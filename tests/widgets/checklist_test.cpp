#include <algorithm>
#include <climits>
#include <string>
#include <vector>

#include "Galdren_Tools.h"
#include "tests/support/controls.h"
#include "tests/support/spy.h"
#include "tests/support/window.h"

using namespace galdren_test;

namespace {

/// A list of named items, ready but for `Init`.
struct Named : CheckLists {
    explicit Named(int count, unsigned long flag = 0) {
        Place(*this, nullptr, 20, 50, 310, 93, flag);
        Line_Height = 20;
        names.assign(static_cast<std::size_t>(count), "item");
        names.push_back(count % 2 ? nullptr : "");  // either ends a list
        List = names.data();
    }
    std::vector<const char*> names;
};

}  // namespace

TEST(Check_Lists, Show_Their_Value) {
    Test_Window window(400, 200);
    const struct {
        int count;
        unsigned long flag;
        int value, adjusted;
        std::string first, drawn, after;  // until the first paint, item k of a mask follows k << k
    } table[] = {{10, 0, 0x3FF, 5, "1 2 3 4 5 6 7 9 ", "0 1 2 3 4 5 6 7 8 9 ", "0 2 "},
                 {33, 0, 32, 1, "5 32 ", "5 ", "0 32 "},
                 {500, 0, 2, INT_MIN, "1 33 ", "1 33 ", "31 "},
                 {10, CHECKLIST_SINGLE, 0, 9, "0 ", "0 ", "9 "},
                 {10, CHECKLIST_SINGLE, 7, 10, "7 ", "7 ", "7 "},
                 {10, CHECKLIST_SINGLE, 7, -1, "7 ", "7 ", "7 "},
                 {10, FLAG_PASSIVE, 1, 2, "", "", ""}};
    for (const auto& row : table) {
        Named list(row.count, row.flag);
        const auto checked = [&list] {
            std::string items;
            for (int k = 0; k < std::min<int>(list.Count, 35); ++k)
                if (list.Check[k].Value) items += std::to_string(k) + ' ';
            return items;
        };
        list.Value = row.value;
        list.Init(window);
        EXPECT_EQ(checked(), row.first);
        list.Draw();
        EXPECT_EQ(checked(), row.drawn);
        list.Value = row.adjusted;
        EXPECT_EQ(window.Changed([&] { list.Adjust(); }) != Nothing, row.drawn != row.after);
        EXPECT_EQ(checked(), row.after);
        EXPECT_EQ(list.Last_Value, row.drawn == row.after ? row.value : row.adjusted);
    }
}

TEST(Check_Lists, Read_The_Value_With_The_Item_Under_The_Pointer) {
    constexpr unsigned char Enabled[33] = {1, 1, 0, 1};
    Test_Window window(400, 200);
    Named list(33);
    list.Enabled = Enabled, list.Value = 5;
    list.Init(window);
    const struct {
        int item, select, read;
    } table[] = {{3, 1, 13}, {0, 1, 4}, {2, 1, 1} /* disabled, for the application to look at */, {32, 1, 4}};
    for (const auto& [item, select, read] : table) {
        window.Point_At(list.Label[item].X + 10, list.Label[item].Y + 7);
        EXPECT_EQ(list.Select(EVENT_PRESS | EVENT_LEFT), select) << item;
        EXPECT_EQ(list.Read(), read) << item;
    }
}

/// A label that is longer than its column reaches over a box of the next one when it is painted again.
TEST(Check_Lists, Bring_Boxes_Back_That_A_Long_Label_Covered) {
    Test_Window window(400, 200);
    static const char* const labels[] = {"a label that is longer than its column", "b", "c", "d", nullptr};
    Named list(4);
    list.List = labels, list.Width = 200, list.Height = 60;
    list.Init(window);
    list.Draw();
    for (int value : {1, 0, 1, 8}) {
        window.Point_At(list.Label[0].X + 3, list.Label[0].Y + 3);
        list.Select(EVENT_MOVE);
        list.Value = value;
        list.Adjust();
        const Picture adjusted(window);
        list.Check[2].Draw();
        EXPECT_TRUE(Same(adjusted, Picture(window)));
        window.Point_At(0, 0);
        list.Select(EVENT_MOVE);
    }
}

TEST(Check_Lists, Without_Items_Are_Boxes) {
    Test_Window window(400, 200);
    Report_Catcher reports;
    Named list(0);
    list.Set_Name("%s", "Name");
    list.Init(window);
    list.Set_Name("%s", "Another");  // shown after the next Init
    EXPECT_STREQ(list.Box.Name, "Name");
    EXPECT_TRUE(Same(window.After([&] { list.Draw(); }), window.After([&] { list.Box.Draw(); })));
    list.List = nullptr;
    list.Init(window);
    EXPECT_EQ(reports.Take(),
              "11:Problems in CheckLists::Init()|11:device->List is empty|"
              "11:type: CheckLists\n  name: Another");
    EXPECT_EQ(list.Flag, FLAG_PASSIVE | FLAG_NO_BODY);
    list.Flag = 0, list.Value = 1;
    list.Draw(), list.Adjust(), list.Deselect();
    EXPECT_EQ(list.Select(EVENT_MOVE), 0);
    EXPECT_EQ(list.Read(), -1);
}

TEST(Check_Lists, Tell_Of_Lack_Of_Memory) {
    Test_Window window(400, 200);
    Report_Catcher reports;
    bool told = false;
    for (int passed = 0; passed < 60 && !told; ++passed) {
        Named list(10);
        Call_Spy spy;
        spy.Fail_Allocation(passed);
        list.Init(window), list.Draw();
        told = reports.Take() == "1:CheckLists: no memory for 10 items\n   name: (null)";
    }
    EXPECT_TRUE(told);
}
