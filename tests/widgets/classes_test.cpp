// What holds for every class: what it shares with copies, what it reports, and that it gives everything back.
#include <algorithm>
#include <functional>
#include <memory>
#include <string>

#include "Galdren_Tools.h"
#include "tests/support/controls.h"
#include "tests/support/spy.h"
#include "tests/support/window.h"

using namespace galdren_test;

namespace {

constexpr int Left = 100, Bottom = 90;

/// Everything that a control paints at a place, also under the pointer and when it changes.
template <class Control>
void Use(const Test_Window& window, Control& control) {
    control.Draw();
    if constexpr (requires { control.Set("C:\\"); }) control.Set("C:\\");
    if constexpr (requires { control.Write("line"); }) {
        control.Read("input");
        for (int i = 0; i < 30; ++i)
            control.Write("Line %d", i);
    }
    for (const POINT at : {POINT{1, 1}, POINT{control.Width / 2, control.Height / 2},
                           POINT{control.Width - 1, control.Height - 1}, POINT{-50, -50}}) {
        window.Point_At(Left + at.x, Bottom + at.y);
        if constexpr (requires { control.Select(0); })
            control.Select(EVENT_MOVE), control.Select(EVENT_PRESS | EVENT_LEFT);
        if constexpr (requires { control.Deselect(); }) control.Deselect();
        if constexpr (requires { control.Scroll(1); }) control.Scroll(1);
        if constexpr (requires { control.Adjust(); }) control.Adjust();
        if constexpr (requires { control.Read(); }) control.Read();
    }
    control.Draw();
}

template <class Control>
void Put(Control& control, int width, int height) {
    Place(control, "Some caption", Left, Bottom, width, height);
    Furnish(control, 9);
    if constexpr (requires { control.V_Slider; }) control.Flag |= TEXT_V_BAR;
}

/// What `use` takes of the system is given back, but for what the library keeps from the first times.
void Expect_All_Given_Back(const std::function<void()>& use) {
    const auto use_and_clean_up = [&] { use(), Tools_Lib_Cleanup(); };
    use_and_clean_up(), use_and_clean_up();
    const int objects = Gdi_Objects(), blocks = Live_Blocks();
    use_and_clean_up();
    EXPECT_EQ(Gdi_Objects(), objects);
    EXPECT_EQ(Live_Blocks(), blocks);
}

}  // namespace

template <class Control>
struct Any_Class : testing::Test {
    Test_Window window{420, 420};
    Report_Catcher reports;
};
using All = testing::Types<Boxs, Buttons, Labels, TabItems, Tabs, Sliders, Valuators, CheckLists, Lists,
                           Selects, Texts, Hue_Edit, Color_Edit, DirTrees>;
TYPED_TEST_SUITE(Any_Class, All);

TYPED_TEST(Any_Class, Shares_With_Copies_That_Go_In_Any_Order) {
    Test_Window& window = this->window;
    Expect_All_Given_Back([&] {
        int order[] = {0, 1, 2};
        do {
            std::unique_ptr<TypeParam> copies[3];
            for (auto& copy : copies) {
                copy = std::make_unique<TypeParam>();
                Put(*copy, 200, 100);
                copy->Set_Name("%s", "Name"), copy->Init(window);
            }
            copies[1] = std::make_unique<TypeParam>(*copies[0]);
            *copies[2] = *copies[1];
            const TypeParam& self = *copies[2];
            *copies[2] = self;
            EXPECT_EQ(copies[2]->Name, copies[0]->Name);
            window.Point_At(-50, -50);
            const auto shown = [&](int copy) { return window.After([&] { copies[copy]->Draw(); }); };
            const Picture before = shown(0);
            EXPECT_TRUE(Same(shown(2), before));
            if constexpr (requires { copies[1]->Item; }) Name_Items(*copies[1], {"its", "own"});
            copies[1]->Set_Name("%s", "another");
            copies[1]->Width = static_cast<short>(copies[1]->Width + 9), ++copies[1]->Font_Size;
            copies[1]->Init(window), copies[1]->Draw();
            EXPECT_TRUE(Same(shown(0), before)) << "what a copy changes is its own";
            for (const int victim : order) {
                for (const auto& copy : copies) {
                    if (!copy) continue;
                    EXPECT_STREQ(copy->Name, copy == copies[1] ? "another" : "Name");
                    Use(window, *copy);
                }
                copies[victim].reset();
            }
        } while (std::next_permutation(std::begin(order), std::end(order)));
        this->reports.Take();
    });
}

/// Each of the first allocations fails once, on a window and in a batch.
TYPED_TEST(Any_Class, Survives_Lack_Of_Memory_And_Gives_Everything_Back) {
    Test_Window& window = this->window;
    const auto use = [&] {
        TypeParam control;
        Put(control, 130, 66);
        control.Init(window), Use(window, control);
        control.Clear(), control.Alloc_Graph_Normal(1), control.Alloc_Graph_Select(2);
        control.Set_Name("%d", 5), control.Set_Name("%d", 6);
        const TypeParam copy(control);
        control.Init(window), Use(window, control);
    };
    Expect_All_Given_Back([&] {
        for (int passed = 0; passed < 40; ++passed) {
            Call_Spy spy;
            spy.Fail_Allocation(passed);
            if (passed % 2) Begin_Batch(window);
            use();
            if (passed % 2) End_Batch();
            Tools_Lib_Cleanup();
        }
        this->reports.Take();
    });
}

TYPED_TEST(Any_Class, Paints_Nothing_Without_A_Size) {
    for (const POINT size : {POINT{0, 66}, POINT{130, 0}}) {
        TypeParam control;
        if constexpr (requires { control.Deselect(); }) control.Deselect();
        Put(control, 130, 66), control.Init(this->window);
        control.Width = static_cast<short>(size.x), control.Height = static_cast<short>(size.y);
        EXPECT_EQ(this->window.Changed([&] { Use(this->window, control); }), Nothing) << size.x;
    }
}

/// Calls that are reported by a class which calls itself `name` in them.
template <class Control>
void Expect_Misuse(const std::string& name, const std::string& type) {
    Report_Catcher reports;
    const auto expect = [&](const std::string& call_name, auto call) {
        for (const std::string reason : {"bad data in device's structure", "you must call *_Init() first"}) {
            Control control;
            control.Width = control.Height = 40, control.Name = "100%s";
            if (reason.starts_with("bad")) control.Set_Name("%s", "100%s");
            call(control);
            // The first is its own; those of its parts may follow.
            const std::string told = reports.Take(),
                              type_and_name = "type: " + call_name + "   name: 100%s\n";
            EXPECT_TRUE(told.starts_with("11:Tools: WARNING ! |11:   " + reason + "|11:   " + type_and_name))
                << told;
            call(control);
            EXPECT_EQ(reports.Take(), "") << told;
        }
    };
    expect("Tools::Clear", [](Control& c) { c.Clear(); });
    expect(name + "::Draw", [](Control& c) { c.Draw(); });
    if constexpr (requires(Control & c) { c.Select(0); } && !std::is_same_v<Control, Valuators>)
        expect(name + "::Select", [](Control& c) { c.Select(EVENT_MOVE); });
    if constexpr (requires(Control & c) { c.Adjust(); })
        expect(name + "::Adjust", [](Control& c) { c.Adjust(); });
    if constexpr (requires(Control & c) { c.Read(); } && !std::is_same_v<Control, DirTrees>)
        expect(name + "::Read", [](Control& c) { c.Read(); });
    if constexpr (requires(Control & c) { c.Scroll(1); } && !std::is_same_v<Control, Texts>)
        expect(type + "::Scroll", [](Control& c) { c.Scroll(1); });
    if constexpr (requires(Control & c) { c.Input('a'); })
        expect(name + "::Input", [](Control& c) { c.Input('a'); });
    Test_Window window(100, 100);
    Control control;
    control.Name = "n";
    control.Init(nullptr);
    EXPECT_EQ(reports.Take(), "") << "without a size nothing is asked for";
    control.Width = control.Height = 40;
    Furnish(control);
    control.Init(nullptr);
    EXPECT_EQ(reports.Take(), "11:Tools: WARNING ! |11:   you must provide a window|11:   type: " + type +
                                  "::Init   name: n");
    control.Draw(), reports.Take(), control.Init(window), control.X = 5, control.Init(nullptr);
    EXPECT_TRUE(control.Window == HWND{window} && control.Rect.right == 46);
    EXPECT_EQ(reports.Take(), "");
}

TEST(Misuse, Is_Reported_Once) {
    Expect_Misuse<Boxs>("Box", "Boxs"), Expect_Misuse<Buttons>("Button", "Buttons");
    Expect_Misuse<Labels>("Labels", "Labels"), Expect_Misuse<CheckLists>("CheckList", "CheckLists");
    Expect_Misuse<Sliders>("Sliders", "Sliders"), Expect_Misuse<Valuators>("Valuator", "Valuators");
    Expect_Misuse<Lists>("List", "Lists"), Expect_Misuse<Selects>("Selects", "Selects");
    Expect_Misuse<TabItems>("TabItems", "TabItems"), Expect_Misuse<Tabs>("Tabs", "Tabs");
    Expect_Misuse<Texts>("Text", "Texts"), Expect_Misuse<DirTrees>("DirTrees", "DirTrees");
    Expect_Misuse<Hue_Edit>("Hue_Edit", "Hue_Edit"), Expect_Misuse<Color_Edit>("Color_Edit", "Color_Edit");
}

/// Lists, selectors and tabs have items, which copies share until one of them is grown.
/// @param item_line   where a report says that there is no memory for an item
/// @param array_line  where one says so of the array
template <class Control>
void Expect_Growth(const std::string& item_line, const std::string& array_line, unsigned long own_flag) {
    Report_Catcher reports;
    const auto no_memory = [](const std::string& line, const char* count) {
        return "1:line " + line + " \nmemory error in realloc (var=this->Item, dim=" + count + "x8)";
    };
    Expect_All_Given_Back([&] {
        Control first;
        Name_Items(first, {"One", "Two", "Three", "Four"});
        const auto* kept = first.Item[1];
        EXPECT_EQ(first.Grow(6, 0x12), 1);
        EXPECT_EQ(first.Item[5]->Flag, own_flag | 0x12);
        EXPECT_EQ(first.Item[1], kept);
        Control copy(first);
        EXPECT_EQ(copy.Grow(3, 0), 1);  // from now on it has its own
        EXPECT_TRUE(first.Item[5] && !copy.Item[3]);
        EXPECT_STREQ(copy.Item[1]->Name, "Two");
        Call_Spy spy;
        spy.Fail_Allocation(1);  // the first new item
        EXPECT_EQ(copy.Grow(5, 0), 0);
        EXPECT_TRUE(copy.Item[2] && !copy.Item[3]);
        EXPECT_EQ(reports.Take(), no_memory(item_line, "6"));
        spy.Fail_Allocation();
        EXPECT_EQ(copy.Grow(1, 0), 0);
        EXPECT_EQ(copy.Item, nullptr);
        EXPECT_EQ(reports.Take(), no_memory(array_line, "2"));
    });
}

TEST(Items, Grow_And_Are_Shared) {
    Expect_Growth<Lists>("158  of .\\list.cpp", "155  of .\\list.cpp", 0x400000);
    Expect_Growth<Selects>("218  of .\\select.cpp", "215  of .\\select.cpp", 0x400000);
    Expect_Growth<Tabs>("96   of tabs", "93   of tabs", 0);
    Report_Catcher reports;
    Lists list;
    Selects selector;
    Tabs tabs;
    EXPECT_TRUE(!list.Grow(40000, 0) && !selector.Grow(40000, 0)) << "more than the count can say";
    EXPECT_NE(reports.Take().find("dim=40001x8"), std::string::npos);
    EXPECT_TRUE(list.Grow(-1, 0) && selector.Grow(-32768, 0));
    EXPECT_TRUE(!list.Item && !selector.Item);
    EXPECT_EQ(tabs.Grow(-1, 0), 0);
    EXPECT_EQ(reports.Take(), "11:Tabs: there cannot be -1 tabs\n   name: (null)");
}
