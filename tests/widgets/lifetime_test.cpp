#include <algorithm>
#include <functional>
#include <string>
#include <type_traits>
#include <typeinfo>
#include <utility>
#include <vector>

#include "Galdren_Tools.h"
#include "tests/support/controls.h"
#include "tests/support/spy.h"
#include "tests/support/window.h"

using namespace galdren_test;

namespace {

void Fill_In(Tools& control) {
    Place(control, nullptr, 20, 10, 80, 30);
    control.Font_Weight = "bold", control.Font_Size = 10;
    control.Set_Name("%s", "Name");
}

}  // namespace

/// Neither a report of misuse nor another name that the application puts in its place loses the text; an
/// image for both states is one image.
TEST(Names_And_Images, Are_Freed_Whatever_Becomes_Of_The_Fields) {
    const auto live = [] {
        const Report_Catcher reports;
        Tools named;
        named.Set_Name("%s", "freed with the control");
        named.Width = named.Height = 9;
        named.Alloc_Graph_Normal(0), named.Graph_Select = named.Graph_Normal;
        named.Clear();
        EXPECT_EQ(named.State, STATE_WARNED);
        Tools copy(named);
        copy.Name = "a constant";
        named = copy;
        copy.Set_Name("%s", "other");
        EXPECT_STREQ(named.Name, "a constant");
    };
    live();
    const int blocks = Live_Blocks();
    live();
    EXPECT_EQ(Live_Blocks(), blocks);
}

TEST(Names, Belong_To_The_Control_Only_When_Set) {
    Tools t;
    EXPECT_EQ(t.Set_Name("%s-%d", "axis", 3), 1);
    EXPECT_EQ(t.Set_Name("%s", t.Name), 1);  // from itself
    EXPECT_STREQ(t.Name, "axis-3");
    EXPECT_EQ(t.State, STATE_OWNS_NAME);
    for (const std::size_t length : {0U, 1023U, 1024U, 100000U}) {
        EXPECT_EQ(t.Set_Name("%s", std::string(length, 'n').c_str()), 1);
        EXPECT_EQ(t.Name, std::string(std::min<std::size_t>(length, 1023), 'n'));
    }
    EXPECT_EQ(t.Set_Name(nullptr), 0);
    EXPECT_EQ(t.State, 0);
    for (const unsigned char state : {std::uint8_t{0}, std::uint8_t{STATE_READY}}) {
        t.Name = "the application's", t.State = state;
        EXPECT_EQ(t.Set_Name(nullptr), 0);
        EXPECT_EQ(t.Name == nullptr, state != 0);
    }
}

TEST(Images, Are_Allocated_And_Freed_Once) {
    Tools t;
    EXPECT_EQ(t.Alloc_Graph_Normal(7), 1);  // nothing usable, no failure
    t.Width = 10, t.Height = 4;
    EXPECT_EQ(t.Alloc_Graph_Normal(0xFF00FF00), 1);
    EXPECT_EQ(t.Alloc_Graph_Select(0x01020304), 1);
    EXPECT_EQ(std::count(t.Graph_Normal, t.Graph_Normal + 40, 0xFF00FF00), 40);
    EXPECT_EQ(std::count(t.Graph_Select, t.Graph_Select + 40, 0x01020304U), 40);
    EXPECT_EQ(t.Free(new char[3]), nullptr);
    EXPECT_EQ(t.Free(nullptr), nullptr);
    Report_Catcher reports;
    Call_Spy spy;
    spy.Fail_Allocation();
    EXPECT_EQ(t.Alloc_Graph_Normal(1), 0);
    EXPECT_EQ(t.Graph_Normal, nullptr);
    EXPECT_EQ(reports.Take(), "1:line 311  of .\\tools.cpp \nmemory error in new");
    spy.Fail_Allocation();
    EXPECT_EQ(t.Alloc_Graph_Select(1), 0);
    EXPECT_EQ(reports.Take(), "1:line 336  of .\\tools.cpp \nmemory error in new");
    for (const bool owned : {false, true}) {
        t.Name = "the application's";
        if (owned) t.Set_Name("%s", "the control's");
        spy.Fail_Allocation();
        EXPECT_EQ(t.Set_Name("name"), 0);
        EXPECT_EQ(t.Name == nullptr, owned) << "only what the control owned is gone";
        EXPECT_EQ(t.State, 0);
        EXPECT_EQ(reports.Take(), "1:line 451  of .\\tools.cpp \nmemory error in new");
    }
}

/// Generated pictures have one limit, which counts pixels, and one report for a control with its parts.
TEST(Images, Are_Flat_Where_They_Would_Be_Too_Large) {
    Test_Window window(300, 200);
    Report_Catcher reports;
    const auto reported = [&](auto&& control, int width, int height) {
        control.Width = static_cast<short>(width), control.Height = static_cast<short>(height);
        control.Color = Colors(10, 200, 30);
        control.Init(window), control.Draw();
        const std::string text = reports.Take();
        return std::count(text.begin(), text.end(), '|') + !text.empty();
    };
    EXPECT_EQ(reported(Buttons(), 32767, 30), 0);
    EXPECT_EQ(reported(Buttons(), 24000, 24000), 1);
    EXPECT_EQ(Picture(window).At(100, 100), 0x0AC81Eu);
    EXPECT_EQ(reported(Boxs(), 24000, 24000), 1);
    EXPECT_EQ(reported(Hue_Edit(), 24000, 24000), 1);
    EXPECT_EQ(reported(Color_Edit(), 24000, 24000), 1);
}

TEST(Init, Forgets_Withdrawn_Images_Whatever_Way_It_Takes) {
    Test_Window window(300, 200);
    Report_Catcher reports;
    enum Way { Static, No_Body, No_Width, No_Window, No_Number, Ways };
    const auto set = [&](auto& control, int way) {
        control.Flag = way == Static ? FLAG_STATIC : way == No_Body ? FLAG_NO_BODY : 0;
        control.Width = way == No_Width ? 0 : 80;
        if constexpr (requires { control.Num_Width; }) control.Num_Width = way == No_Number ? -1 : 0;
        if (way == No_Window) control.Window = nullptr;
        control.Init(way == No_Window ? nullptr : static_cast<HWND>(window));
    };
    const auto bodies = [](const auto& control) -> std::vector<unsigned long*> {
        if constexpr (requires { control.Normal_Up; })
            return {control.Normal_Up, control.Normal_Down, control.Select_Up, control.Select_Down};
        return {control.Cur_Graph_Normal, control.Cur_Graph_Select};
    };
    const auto check = [&](auto control, int way) {
        SCOPED_TRACE(testing::Message() << typeid(control).name() << ", " << way);
        Fill_In(control);
        control.Alloc_Graph_Normal(0x102030), control.Alloc_Graph_Select(0x405060);
        set(control, Ways);
        // A slider does not take them by itself.
        control.Cur_Graph_Normal = control.Graph_Normal, control.Cur_Graph_Select = control.Graph_Select;
        const auto normal = std::exchange(control.Graph_Normal, nullptr);
        const auto select = std::exchange(control.Graph_Select, nullptr);
        set(control, way);
        for (const unsigned long* body : bodies(control))
            EXPECT_TRUE(body != normal && body != select);
        control.Draw(), control.Adjust();
        // The next image may come to stand where the one before stood.
        control.Graph_Normal = normal, control.Graph_Select = select;
        set(control, Ways);
        if constexpr (!std::is_same_v<decltype(control), Sliders>) {
            EXPECT_TRUE(control.Cur_Graph_Normal == normal && control.Cur_Graph_Select == select);
        }
    };
    for (int way = 0; way < Ways; ++way)
        check(Boxs(), way), check(Buttons(), way), check(Valuators(), way), check(Sliders(), way);
}

/// The parts of a control that stops forget too.
TEST(Init, Has_Parts_Forget_Withdrawn_Images) {
    Test_Window window(300, 200);
    const auto check = [&](auto control, auto part_of) {
        SCOPED_TRACE(typeid(control).name());
        Fill_In(control), Furnish(control, 1);
        control.Flag = FLAG_OWN_IMAGES;
        auto& part = part_of(control);
        part.Flag |= FLAG_OWN_IMAGES;
        unsigned long* const image = part.Graph_Normal = new unsigned long[81 * 31];
        control.Init(window);
        ASSERT_EQ(part.Cur_Graph_Normal, image);
        part.Graph_Normal = static_cast<unsigned long*>(part.Free(part.Graph_Normal));
        control.Width = 0;
        control.Init(window);
        EXPECT_NE(part.Cur_Graph_Normal, image);
    };
    const auto frame = [](auto& control) -> auto& { return control.Frame; };
    const auto item = [](auto& control) -> auto& { return *control.Item[0]; };
    const auto box = [](auto& control) -> auto& { return control.Box; };
    check(Lists(), frame), check(Lists(), item), check(Selects(), frame), check(Selects(), item);
    check(Tabs(), box), check(CheckLists(), box), check(Hue_Edit(), frame), check(Color_Edit(), frame);
}

TEST(Failures, Of_A_Font_Are_Reported_Once) {
    Test_Window window(300, 200);
    Report_Catcher reports;
    Call_Spy spy;
    Boxs box, stock;
    Fill_In(box), Fill_In(stock);
    stock.Font_Name = stock.Font_Weight = nullptr, stock.Font_Size = 0;
    stock.Init(window);
    spy.Fail("CreateFontIndirectW");
    box.Init(window);
    EXPECT_EQ(box.Font, nullptr);
    EXPECT_EQ(reports.Take(),
              "7:WARNING: in Z_Create_Font()|7:Unable to allocate font:(name:Arial height:-13 weight:700 )");
    const Picture in_stock_font = window.After([&] { stock.Draw(); });
    EXPECT_TRUE(Same(window.After([&] { box.Draw(); }), in_stock_font));
    spy.Fail("CreateFontIndirectW");
    EXPECT_EQ(Z_Create_Font(window, "Other", nullptr, nullptr, 33), nullptr);
    EXPECT_EQ(reports.Take(), "");
    box.Init(window);
    const HFONT made = box.Font;
    EXPECT_NE(made, nullptr);
    box.Font_Size = 14, box.Init(window);
    EXPECT_NE(box.Font, made) << "of another size";
}

/// The last of this program: what it loses stays lost.
TEST(Failures, Of_All_Memory_Leave_Copies_What_They_Share) {
    constexpr int Many = 300;
    const auto run = [](bool starved) {
        std::vector<Tools> sources(Many), copies;
        for (Tools& source : sources)
            source.Set_Name("%d", static_cast<int>(&source - sources.data()));
        copies.reserve(Many);
        {
            Call_Spy spy;
            if (starved) spy.Fail_Every_Allocation();
            for (const Tools& source : sources)
                copies.push_back(source);
        }
        sources = {};
        for (int i = 0; i < Many; ++i)
            EXPECT_EQ(copies[static_cast<std::size_t>(i)].Name, std::to_string(i));
    };
    const int blocks = Live_Blocks();
    run(true);
    EXPECT_LE(Live_Blocks(), blocks + Many) << "a name each";
    const int left = Live_Blocks();
    run(false);
    constexpr int Met_By_Chance = Many / 10;  // one or two on average, with two blocks each
    EXPECT_LE(Live_Blocks(), left + Met_By_Chance) << "names that share the place of a lost one";
}
