#include <algorithm>
#include <climits>
#include <deque>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "tests/support/painter.h"
#include "tests/support/spy.h"
#include "tests/support/window.h"

using namespace galdren_test;

namespace {

constexpr COLORREF Black = 0, Blue = RGB(64, 64, 230), Red = RGB(230, 100, 100), Yellow = RGB(255, 255, 0);

/// "item 1", "item 2", ..., every fourth with a tab, ended by null or by an empty text.
const char* const* Names(int count) {
    static std::deque<std::string> texts;
    static std::map<int, std::vector<const char*>> lists;
    std::vector<const char*>& list = lists[count];
    if (!list.empty()) return list.data();
    for (int i = 0; i < count; ++i)
        list.push_back(texts.emplace_back((i % 4 ? "item " : "i\tt ") + std::to_string(i)).c_str());
    list.push_back(count % 2 ? nullptr : "");
    return list.data();
}

void Fill_In(CheckLists& list, int count, unsigned long flag = 0) {
    list.X = 20, list.Y = 50, list.Width = 310, list.Height = 93, list.Line_Height = 20;
    list.Font_Name = "Arial", list.Font_Size = 9, list.Flag = flag, list.List = Names(count);
}

void Point_At(const Test_Window& window, const CheckLists& list, int item, int x = 10) {
    window.Point_At(list.Label[item].X + x, list.Label[item].Y + 7);
}

void Paint_Label(Painter& painter, const CheckLists& list, int item, COLORREF color) {
    const Buttons& box = list.Check[item];
    painter.Tabbed(list.Font, color, box.X + box.Width + SPACE, box.Y - 1, list.List[item]);
}

/// What `Draw` gives, followed by `Select` on the item `lit` if that is not negative.
Picture Reference(Test_Window& window, const CheckLists& list, int lit = -1) {
    return window.After([&] {
        Painter painter(window);
        painter.Clip(list);
        if (!(list.Flag & 0x10)) painter.Box(list.Box, false);
        for (int k = 0; k < list.Count; ++k) {
            Buttons box = list.Check[k];
            const bool blue = list.Flag & 0x20 || (list.Enabled && !list.Enabled[k]);
            const int x0 = box.X, x1 = box.X + box.Width, y0 = box.Y, y1 = box.Y + box.Height;
            box.Flag = blue ? 0x20 : 0;
            Paint_Label(painter, list, k, blue ? Blue : Black);
            painter.Button(box, false);
            if (box.Value && !blue) painter.Fill(Yellow, x0 + 3, x1 - 2, y0 + 2, y1 - 3);
            if (k != lit || blue) continue;
            Paint_Label(painter, list, k, Red);
            painter.Body(box, true, box.Cur_Graph_Select, 3, x0, x1, y0, y1);
        }
    });
}

}  // namespace

TEST(Check_Lists, Lay_Items_Out_In_Columns) {
    struct Row {
        int count, height, border, line;
        unsigned long flag;
        int rows, column_width, x, y;  // of the first item
    };
    const Row table[] = {{10, 93, 0, 20, 0, 4, 100, 25, 116},  // 4, 4 and 2
                         {10, 93, 0, -20, CHECKLIST_ONE_COLUMN, 10, 300, 25, 177},
                         {10, 49, 0, 20, 0, 1, 30, 25, 64},
                         {4, 10, 0, 20, 0, 1, 75, 25, 45},
                         {500, 93, 0, 20, 0, 4, 2, 25, 116},
                         {8, 93, -6, 20, 0, 3, 98, 28, 106}};
    Test_Window window(400, 200);
    CheckLists list;
    for (const Row& row : table) {
        Fill_In(list, row.count, row.flag);
        list.Height = static_cast<short>(row.height), list.Border = static_cast<short>(row.border);
        list.Line_Height = static_cast<short>(row.line);
        list.Init(window);
        ASSERT_EQ(list.Count, row.count);
        const int side = list.Font_Height - 2;
        for (int k = 0; k < row.count; ++k) {
            const int x = row.x + k / row.rows * row.column_width, y = row.y - k % row.rows * 20;
            const RECT label{x, y, x + row.column_width + 1, y + 21};
            const RECT box{x + 1, y + 1, x + side + 2, y + side + 2};
            EXPECT_TRUE(EqualRect(&list.Label[k].Rect, &label) && EqualRect(&list.Check[k].Rect, &box)) << k;
        }
    }
    // A name takes a row of its own and, at the left, its width and a space.
    Fill_In(list, 10);
    list.Border = 0;
    list.Init(window);
    const POINT unnamed{list.Label[0].X, list.Label[0].Y};
    Begin_Draw(window, nullptr);
    const int shift = Text_Width(list.Font, "Name") + SPACE;
    End_Draw();
    list.Name = "Name", list.Height = static_cast<short>(list.Height + list.Font_Height + 6);
    for (const unsigned long flag : {0UL, CHECKLIST_NAME_LEFT, CHECKLIST_NO_TITLE_ROW}) {
        list.Flag = flag;
        list.Init(window);
        EXPECT_EQ(list.Label[0].X - unnamed.x, flag == CHECKLIST_NAME_LEFT ? shift : 0);
        EXPECT_EQ(list.Label[0].Y == unnamed.y, flag != CHECKLIST_NO_TITLE_ROW);
    }
}

TEST(Check_Lists, Show_Their_Value) {
    Test_Window window(400, 200);
    struct Row {
        int count;
        unsigned long flag;
        int value, adjusted;
        std::string first, drawn, after;  // until the first paint, item k of a mask follows k << k
    };
    const Row table[] = {{10, 0, 0x3FF, 5, "1 2 3 4 5 6 7 9 ", "0 1 2 3 4 5 6 7 8 9 ", "0 2 "},
                         {33, 0, 32, 1, "5 32 ", "5 ", "0 32 "},
                         {500, 0, 2, INT_MIN, "1 33 ", "1 33 ", "31 "},
                         {10, CHECKLIST_SINGLE, 0, 9, "0 ", "0 ", "9 "},
                         {10, CHECKLIST_SINGLE, 7, 10, "7 ", "7 ", "7 "},
                         {10, CHECKLIST_SINGLE, 7, -1, "7 ", "7 ", "7 "},
                         {10, FLAG_PASSIVE, 1, 2, "", "", ""}};
    for (const Row& row : table) {
        CheckLists list;
        const auto checked = [&list] {
            std::string items;
            for (int k = 0; k < std::min<int>(list.Count, 35); ++k)
                if (list.Check[k].Value) items += std::to_string(k) + ' ';
            return items;
        };
        Fill_In(list, row.count, row.flag);
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

TEST(Check_Lists, Paint_What_Plain_Calls_Paint) {
    constexpr unsigned char Enabled[] = {1, 1, 0, 1, 1, 1, 0, 1, 1, 1};
    for (const int variant : {0, 1, 2, 3, 4, 5, 6, 7}) {
        Test_Window window(variant & 1 ? 800 : 340, 200);
        for (const unsigned long flag : {0x0UL, 0x4UL, 0x10UL, 0x20UL, 0x2100UL, CHECKLIST_SINGLE}) {
            SCOPED_TRACE(testing::Message() << std::hex << flag << ", variant " << variant);
            CheckLists list;
            Fill_In(list, 10, flag);
            list.Value = flag == CHECKLIST_SINGLE ? 4 : 0x1A5;
            if (variant & 1) list.Enabled = Enabled, list.Name = "Name";
            if (variant & 2) list.Clip_X = 60, list.Clip_Y = 40, list.Clip_Width = 90, list.Clip_Height = 60;
            if (variant & 2) list.Font_Size = 0, list.Line_Height = 0;
            list.Init(window);
            const auto draw = [&] {
                if (variant & 4) Begin_Batch(window);
                list.Draw();
                if (variant & 4) End_Batch();
            };
            for (const int item : {-1, 5, -1, 6, -1}) {
                if (flag == 0x20 && item >= 0) continue;
                item < 0 ? window.Point_At(0, 0) : Point_At(window, list, item);
                const Picture drawn = window.After([&] { draw(), list.Select(EVENT_MOVE); });
                EXPECT_TRUE(Same(drawn, Reference(window, list, item)));
            }
            if (flag == 0x20) {  // every box gets a full frame, whatever it was before
                const Buttons& box = list.Check[5];
                list.Flag = 0, list.Draw(), list.Flag = flag, draw();
                list.Value ^= 3, list.Adjust();
                EXPECT_TRUE(box.Flag == 0 && (variant & 2 || Picture(window).At(box.X, box.Y) == 0));
                continue;
            }
            // The box of an item under the pointer becomes plain when another one changes.
            Point_At(window, list, 5, 30);
            const Picture adjusted = window.After([&] {
                draw(), list.Select(EVENT_MOVE);
                list.Value ^= 3;
                list.Adjust();
            });
            const Picture wanted = window.After([&] {
                draw();
                Painter painter(window);
                painter.Clip(list);
                Paint_Label(painter, list, 5, Red);
            });
            EXPECT_TRUE(Same(adjusted, wanted));
        }
    }
}

TEST(Check_Lists, Follow_The_Pointer) {
    constexpr int Beside = -1, Frame = -2;
    constexpr unsigned char Enabled[33] = {1, 1, 0, 1};
    Test_Window window(400, 200);
    CheckLists list;
    Fill_In(list, 33);
    list.Enabled = Enabled, list.Value = 5;
    list.Init(window);
    struct Row {
        int item;
        unsigned long flag;
        short hover, hover_after;  // of the item, or of item 1
        int event, result, read;
        bool paints;
    };
    const Row table[] = {{3, 0, 0, 1, EVENT_MOVE, 1, 13, true},
                         {3, CHECKLIST_SINGLE, 1, 1, EVENT_PRESS | EVENT_LEFT, 1, 3, false},
                         {3, 0, 2, 2, EVENT_TEST, 1, 13, false},
                         {3, FLAG_PASSIVE, 0, 0, EVENT_MOVE, 0, -1, false},
                         {3, FLAG_NO_BODY, 0, 1, EVENT_MOVE, 1, 13, false},
                         {2, 0, 0, 1, EVENT_MOVE, 1, 1, false},  // disabled, for the application to look at
                         {32, 0, 0, 1, EVENT_MOVE, 1, 4, false},
                         {Beside, 0, 1, 2, EVENT_DRAG, 0, -1, true},
                         {Beside, FLAG_NO_BODY, 1, 2, EVENT_MOVE, 0, -1, false},
                         {Frame, 0, 2, 2, EVENT_TEST, 1, -1, false},
                         {Frame, 0, 1, 2, EVENT_MOVE, 0, -1, true}};
    for (const Row& row : table) {
        SCOPED_TRACE(testing::Message() << "item " << row.item << ", flag " << row.flag);
        short& hover = list.Hover_List[std::max(row.item, 1)];
        std::fill_n(list.Hover_List, 33, short{0});
        hover = row.hover, list.Flag = row.flag;
        row.item < 0 ? window.Point_At(row.item == Frame ? 21 : 10, 60) : Point_At(window, list, row.item);
        EXPECT_EQ(list.Read(), row.read);
        Call_Spy spy;
        const Area painted = window.Changed([&] { EXPECT_EQ(list.Select(row.event), row.result); });
        EXPECT_EQ(painted != Nothing, row.paints);
        EXPECT_EQ(spy.Count("GetDC"), row.paints) << "one surface for all, and none for nothing";
        EXPECT_EQ(hover, row.hover_after);
        const bool lit = hover == 1 && list.Enabled[row.item] && row.flag != FLAG_NO_BODY;
        EXPECT_EQ(window.Changed([&] { list.Deselect(); }) != Nothing, lit);
        EXPECT_EQ(hover, row.hover_after);
    }
}

/// A label that is longer than its column reaches over a box of the next one when it is painted again.
TEST(Check_Lists, Bring_Boxes_Back_That_A_Long_Label_Covered) {
    Test_Window window(400, 200);
    static const char* const labels[] = {"a label that is longer than its column", "b", "c", "d", nullptr};
    CheckLists list;
    Fill_In(list, 4);
    list.List = labels, list.Width = 200, list.Height = 60;
    list.Init(window);
    list.Draw();
    Point_At(window, list, 2, 2);
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
    CheckLists list;
    Fill_In(list, 0);
    list.Draw(), list.Adjust();
    EXPECT_NE(reports.Take().find("type: CheckList::Draw   name: (null)\n"), std::string::npos);
    list.Draw();
    EXPECT_EQ(reports.Take(), "");
    list.Set_Name("%s", "Name");
    list.Init(window);
    list.Set_Name("%s", "Another");  // shown after the next Init
    EXPECT_STREQ(list.Box.Name, "Name");
    EXPECT_TRUE(Same(window.After([&] { list.Draw(); }), Reference(window, list)));
    list.List = nullptr;
    list.Init(window);
    EXPECT_EQ(reports.Take(),
              "11:Problems in CheckLists::Init()|11:device->List is empty|"
              "11:type: CheckLists\n  name: Another");
    EXPECT_EQ(list.Flag, 3U);
    list.Flag = 0, list.Value = 1;
    list.Draw(), list.Adjust(), list.Deselect();
    EXPECT_EQ(list.Select(EVENT_MOVE), 0);
    EXPECT_EQ(list.Read(), -1);
}

TEST(Check_Lists, Share_Items_And_Give_Everything_Back) {
    Test_Window window(400, 200);
    const auto all = [&] {
        int order[] = {0, 1, 2};
        do {
            std::unique_ptr<CheckLists> copies[3];
            for (auto& copy : copies) {
                copy = std::make_unique<CheckLists>();
                Fill_In(*copy, 500);
                copy->Set_Name("%s", "Name");
                copy->Init(window);
            }
            copies[1] = std::make_unique<CheckLists>(*copies[0]);
            *copies[2] = *copies[1];
            EXPECT_EQ(copies[2]->Check, copies[0]->Check);
            copies[2]->List = Names(3);  // used from the next Init on
            copies[2]->Draw();
            copies[2]->Init(window);
            for (const int victim : order) {
                for (const auto& copy : copies) {
                    if (!copy) continue;
                    copy->Value = ~copy->Value;
                    Point_At(window, *copy, 2, 2);
                    EXPECT_EQ(copy->Select(EVENT_MOVE), 1);
                    copy->Adjust(), copy->Draw();
                }
                copies[victim].reset();
            }
        } while (std::next_permutation(std::begin(order), std::end(order)));
    };
    all();
    const int before = Gdi_Objects();
    const int blocks = Live_Blocks();
    all();
    EXPECT_EQ(Gdi_Objects(), before);
    EXPECT_EQ(Live_Blocks(), blocks);
    CheckLists list;
    Fill_In(list, 500);
    list.Init(window);
    EXPECT_LT(Gdi_Objects(), before + 10) << "none for an item";
}

TEST(Check_Lists, Survive_Failures_And_Odd_Sizes) {
    Test_Window window(400, 200);
    Report_Catcher reports;
    const auto use = [&](int height, int border, int line) {
        CheckLists list;
        Fill_In(list, 10);
        list.Height = static_cast<short>(height), list.Border = static_cast<short>(border);
        list.Line_Height = static_cast<short>(line), list.Value = 1023;
        list.Init(window);
        window.Point_At(30, 60);
        list.Draw(), list.Select(EVENT_MOVE), list.Adjust(), list.Deselect(), list.Read();
        for (int i = 0; i < list.Count; ++i) {  // one of them may have no text
            window.Point_At(list.Label[i].X + 2, list.Label[i].Y + 2);
            list.Select(EVENT_MOVE);
        }
    };
    for (const int height : {-1, 1, 9, SHRT_MAX})
        for (const int border : {0, 40, SHRT_MIN, SHRT_MAX})
            for (const int line : {0, 1, SHRT_MIN, SHRT_MAX})
                use(height, border, line);
    bool told = false;
    for (int passed = 0; passed < 60; ++passed) {
        Call_Spy spy;
        spy.Fail_Allocation(passed);
        use(93, 0, 20);
        told = told || reports.Take() == "1:CheckLists: no memory for 10 items\n   name: (null)";
    }
    EXPECT_TRUE(told);
}
