// What consists of items: check lists, lists, selectors, rows of tabs, directory browsers.
#include <filesystem>

#include "tests/pictures/looks.h"
#include "tests/support/directories.h"

using namespace galdren_test;

namespace {

constexpr unsigned long Column = FLAG_VERTICAL;
constexpr unsigned long Flat = FLAG_OWN_IMAGES;  // without shading, which makes the files large

template <class List, unsigned long Flag, int Count>
void Fill_List(List& list) {
    constexpr const char* names[] = {"Zero", "One & more", "Two", "T\tree", "Four", "Five", "Six"};
    list.Flag |= Flag;
    list.Grow(Count, 0);
    for (int i = 0; i < Count; ++i)
        list.Item[i]->Name = names[i % 7];
}

template <class List>
Looks<List> List_Looks() {
    return Flags<List>({0, FLAG_PASSIVE, FLAG_STATIC, FLAG_OUTLINE, FLAG_INNER_FRAME, FLAG_TEXT_LEFT}) +
           Looks<List>{
               {"no name", 0, [](auto& l) { l.Name = nullptr; }},
               {"bright, the second", FLAG_RAISED,
                [](auto& l) { l.Current = 1, l.Color = Colors(90, 200, 120); }},
               {"clipped", 0, [](auto& l) { Clip(l); }},
               {"image", 0,
                [](auto& l) { l.Frame.Width = l.Width, l.Frame.Height = l.Height, Give_Image(l.Frame); }},
               {"15 points", 0, [](auto& l) { l.Font_Size = 15; }},
           };
}

/// The pointer goes on the third item, or the first when that is not in view.
void Point_At_Item(const Lists& list, const Cell& cell) {
    cell.Point_At(*list.Item[list.Item[2]->Shown ? 2 : 0]);
}

std::string Sample_Path() { return "C:\\!pictures\\"; }

void Open_Sample(DirTrees& tree, const Cell&) {
    tree.Set((Sample_Path() + "Alpha\\Deep").c_str()), tree.Draw();
}

void Press_Row(DirTrees& tree, const Cell& cell, int row, int column) {
    cell.Point_At(tree.List_Box, 2 * SPACE + 18 * column + 8, tree.List_Box.Height - SPACE - 18 * row - 9);
    tree.Select(EVENT_PRESS | EVENT_LEFT);
    cell.Point_Away();
    tree.Select(EVENT_MOVE);
}

}  // namespace

TEST(Pictures, Check_Lists) {
    static constexpr const char* labels[] = {"one", "t\two", "a & b", "four", "five", nullptr};
    static constexpr unsigned char enabled[] = {1, 1, 0, 1, 0};
    const Looks<CheckLists> looks{
        {"some disabled", 0, [](auto& l) { l.Enabled = enabled; }},
        {"clipped", 0, [](auto& l) { Clip(l); }},
        {"thick border", 0, [](auto& l) { l.Border = 6, l.Color = Colors(240, 90, 10); }},
    };
    const Steps<CheckLists> steps{
        nullptr,
        [](auto& l, auto& at) { at.Point_At(l.Label[3], 12, 7), l.Select(EVENT_MOVE); },
        [](auto& l, auto& at) {
            at.Point_At(l.Label[2], 12, 7), l.Draw(), l.Select(EVENT_MOVE), at.Point_Away(),
                l.Select(EVENT_MOVE);
        },
        [](auto& l, auto& at) {
            at.Point_At(l.Label[3], 12, 7), l.Select(EVENT_MOVE), l.Value = 3, l.Adjust(), l.Deselect();
        },
    };
    Sheet sheet("checklists", 130, 80);
    const auto fill = [](auto& l) { l.List = labels, l.Value = 0x15; };
    const auto fill_flat = [](auto& l) { l.List = labels, l.Value = 0x15, l.Flag |= Flat; };
    sheet.Add_All<CheckLists>(fill, Flags<CheckLists>({0, CHECKLIST_SINGLE, FLAG_NO_BODY}), steps);
    sheet.Add_All<CheckLists>(fill_flat,
                              Flags<CheckLists>({FLAG_PASSIVE, CHECKLIST_ONE_COLUMN, FLAG_STATIC,
                                                 FLAG_OUTLINE, CHECKLIST_NO_TITLE_ROW, CHECKLIST_NAME_LEFT}) +
                                  looks + Fonts<CheckLists>(),
                              steps);
    sheet.Expect_Recorded();
}

TEST(Pictures, Lists) {
    const Steps<Lists> steps{
        nullptr,
        [](auto& l, auto& at) { Point_At_Item(l, at), l.Select(EVENT_MOVE); },
        [](auto& l, auto& at) { Point_At_Item(l, at), l.Draw(), l.Current = 2, l.Adjust(), l.Deselect(); },
        [](auto& l, auto& at) { at.Point_At(l), l.Scroll(l.Flag & Column ? 2 : -2); },
    };
    const Looks<Lists> few = Flags<Lists>({0, FLAG_NO_BODY, FLAG_STATIC, FLAG_INNER_FRAME});
    Sheet columns("lists", 90, 96), rows("lists-in-rows", 160, 56);
    columns.Add_All<Lists>(Fill_List<Lists, Column, 3>, few, steps);
    columns.Add_All<Lists>(Fill_List<Lists, Column, 12>, few, steps);
    columns.Add_All<Lists>(Fill_List<Lists, Column | Flat, 12>, List_Looks<Lists>(), steps);
    rows.Add_All<Lists>(Fill_List<Lists, Flat, 3>, few, steps);
    rows.Add_All<Lists>(Fill_List<Lists, 0, 12>, few, steps);
    rows.Add_All<Lists>(Fill_List<Lists, Flat, 12>, List_Looks<Lists>(), steps);
    columns.Expect_Recorded(), rows.Expect_Recorded();
}

TEST(Pictures, Selectors) {
    const Looks<Selects> more = Flags<Selects>({FLAG_NO_BODY, SELECTOR_NO_FRAME, FLAG_TEXT_RIGHT,
                                                FLAG_TEXT_RIGHT | FLAG_OUTLINE, FLAG_TEXT_BOTTOM}) +
                                Looks<Selects>{
                                    {"wide value", 0, [](auto& s) { s.Value_Width = 60; }},
                                    {"small arrows", 0, [](auto& s) { s.Arrow_Size = 14; }},
                                };
    const Steps<Selects> steps{
        nullptr,
        [](auto& s, auto& at) { at.Point_At(s), s.Select(EVENT_MOVE); },
        [](auto& s, auto& at) {
            at.Point_At(s.Value_Box, 3, 3), s.Select(EVENT_PRESS | EVENT_LEFT), s.Adjust(), s.Deselect();
        },
        [](auto& s, auto&) { s.Scroll(-1); },
    };
    Sheet sheet("selectors", 150, 40);
    sheet.Add_All<Selects>(Fill_List<Selects, Flat, 5>, List_Looks<Selects>() + more, steps);
    sheet.Add_All<Selects>(Fill_List<Selects, Column | FLAG_TEXT_LEFT, 5>, Flags<Selects>({0, FLAG_OUTLINE}),
                           steps);
    sheet.Add_All<Selects>(Fill_List<Selects, 0, 5>, Flags<Selects>({0, FLAG_STATIC}), steps);
    sheet.Expect_Recorded();
}

TEST(Pictures, Tabs) {
    const auto dress = [](auto& t) {
        Fill_List<Tabs, 0, 4>(t);
        t.Tab_Height = t.Height, t.Y = static_cast<short>(t.Y + t.Height - 28), t.Height = 28;
        t.Item[1]->Color = Colors(10, 200, 90), t.Item[2]->Flag |= FLAG_PASSIVE;
    };
    const Looks<Tabs> looks{
        {"second", 0, [](auto& t) { t.Value = 1; }},
        {"last", 0, [](auto& t) { t.Value = 3; }},
        {"none", 0, [](auto& t) { t.Value = -1; }},
        {"page clipped", 0,
         [](auto& t) { Clip(t), t.Clip_Y = static_cast<short>(t.Y - 30), t.Clip_Height = 40; }},
        {"15 points", 0, [](auto& t) { t.Font_Size = 15; }},
    };
    const Steps<Tabs> steps{
        nullptr,
        [](auto& t, auto&) { t.Page(0), t.Draw(); },
        [](auto& t, auto& at) {
            t.Page(60), at.Point_At(*t.Item[1]), t.Draw(), at.Point_At(*t.Item[0]), t.Select(EVENT_MOVE);
        },
        [](auto& t, auto&) { t.Page(0), t.Draw(), t.Value = 2, t.Adjust(); },
        [](auto& t, auto& at) { at.Point_At(*t.Item[1]), t.Draw(), t.Deselect(); },
    };
    Sheet sheet("tabs", 240, 84);
    sheet.Add_All<Tabs>(
        dress, Flags<Tabs>({0, FLAG_NO_BODY, FLAG_PASSIVE, FLAG_STATIC, FLAG_OUTLINE}) + looks, steps);
    sheet.Expect_Recorded();
}

TEST(Pictures, Directory_Browsers) {
    for (const char* name : {"Alpha\\Deep\\Deeper", "Beta & more\\In",
                             "Gamma with a long name that needs the bar", "Delta\\Four"})
        std::filesystem::create_directories(Sample_Path() + name);
    const Looks<DirTrees> looks{
        {"plain"},
        {"bright", 0, [](auto& t) { t.Color = Colors(222, 172, 84), t.Name = nullptr; }},
        {"low", 0, [](auto& t) { t.Height = 130; }},
    };
    const Steps<DirTrees> steps{
        nullptr,
        Open_Sample,
        [](auto& t, auto& at) {
            Open_Sample(t, at), at.Point_At(t.Horizontal_Bar), t.Scroll(3), at.Point_At(t.List_Box),
                t.Scroll(-2);
        },
        [](auto& t, auto& at) {
            Open_Sample(t, at), Press_Row(t, at, 3, 2), Press_Row(t, at, 4, 2), Press_Row(t, at, 5, 5);
        },
        [](auto& t, auto& at) { Open_Sample(t, at), at.Point_At(t.Refresh), t.Select(EVENT_MOVE); },
    };
    Sheet sheet("directory-browsers", 230, 280);
    sheet.Add_All<DirTrees>(nullptr, looks, steps);
    sheet.Expect_Recorded();
    Remove_Directory(Sample_Path());
}
