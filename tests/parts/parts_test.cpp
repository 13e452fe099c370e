// What controls are made of, and how their parts are found, pressed and changed.
#include <cstdio>
#include <functional>
#include <iterator>
#include <limits>
#include <map>
#include <string>
#include <variant>
#include <vector>

#include "tests/support/controls.h"
#include "tests/support/directories.h"
#include "tests/support/every_class.h"
#include "tests/support/hosted.h"

using namespace galdren_test;

namespace {

/// A part as text, such as "Check_Box 'Grid' checked" or "Slider 'Gain' = 40 % [0 .. 100]: 40".
std::string Text_Of(const Part& part) {
    static constexpr const char* Roles[] = {
        "Pane",    "Text",  "Button", "Check_Box", "Radio_Button", "Bar", "Slider", "Select", "Field",
        "Console", "Group", "List",   "Item",      "Tab_Set",      "Tab", "Tree",   "Row"};
    static constexpr const char* States[] = {"passive",   "checked", "pressed", "chosen", "out-of-view",
                                             "read-only", "secret",  "open",    "closed"};
    std::string text = Roles[static_cast<int>(part.role)];
    if (!part.name.empty()) text += " '" + part.name + "'";
    for (unsigned bit = 0; bit < std::size(States); ++bit) {
        if (part.state >> bit & 1) text += std::string(" ") + States[bit];
    }
    if (!part.value.empty()) text += " = " + part.value;
    char range[100];
    std::snprintf(range, sizeof range, " [%g .. %g]: %.4g", part.least, part.most, part.number);
    return part.has_range ? text + range : text;
}

POINT Middle(const RECT& area) { return {(area.left + area.right) / 2, (area.top + area.bottom) / 2}; }

/// A window with controls, the parts of which are asked about.
class Parted_Window : public Hosted_Window {
  public:
    using Hosted_Window::Hosted_Window;

    /// Adds a control and shows it.
    void Show(auto& control) {
        host->Add(control);
        control.Init(window);
        All_Painted();
    }
    Part_Owner Owner(int control = 0) { return host->Parts().Owner(control); }
    Part Describe(Part_Place place) {
        const Part_Owner owner = Owner(place.control);
        return owner.parts->Describe(*owner.control, place.part);
    }
    std::string Text(Part_Place place) { return Text_Of(Describe(place)); }
    bool Shows(Part_Place place) { return !(Describe(place).state & PART_OUT_OF_VIEW); }
    /// Whether a part is found in the middle of where it says it is.
    bool Is_Found(Part_Place place) {
        const Part_Owner owner = Owner(place.control);
        return owner.parts->At(*owner.control, Middle(Describe(place).area)) == place.part;
    }
    bool Press(Part_Place place) { return host->Parts().Press(place); }
    /// Passes when painting everything anew changes nothing.
    testing::AssertionResult Is_As_Painted() {
        const Picture before = Painted();
        return Same(before, All_Painted());
    }
};

/// One control of every kind in a window, shown.
class Parts : public testing::Test, protected Parted_Window, protected Every_Class {
  protected:
    Parts() : Parted_Window(600, 440) {
        Show_In(*host);
        Each([this](const char* key, auto& control) {
            numbers[key] = static_cast<int>(paints.size());
            paints.emplace_back([&control] {
                control.Draw();
                if constexpr (requires { control.Select(0); }) control.Select(EVENT_MOVE);
            });
        });
        All_Painted();
    }

    /// Passes when a control looks as it does when it is drawn once more.
    testing::AssertionResult Is_As_Drawn(const char* key) {
        const Picture before = Painted();
        paints[static_cast<std::size_t>(numbers.at(key))]();
        return Same(before, Picture(window));
    }

    std::map<std::string, int> numbers;
    std::vector<std::function<void()>> paints;
};

TEST_F(Parts, Are_Described_And_Found_Where_They_Are) {
    const std::map<std::string, std::vector<std::string>> wanted = {
        {"box", {"Pane 'Box'"}},
        {"label", {"Text 'Volume'"}},
        {"button", {"Button 'Apply'"}},
        {"lamp", {"Check_Box 'Mute'"}},
        {"lights", {"Button 'Lights'"}},
        {"tab", {"Tab 'Page'"}},
        {"checks",
         {"Group 'Extras'", "Check_Box 'Grid' checked", "Check_Box 'Axes'", "Check_Box 'Legend' passive",
          "Check_Box 'Stamp'"}},
        {"single",
         {"Group", "Radio_Button 'Grid'", "Radio_Button 'Axes'", "Radio_Button 'Legend' checked",
          "Radio_Button 'Stamp'"}},
        {"bar", {"Bar = 20 [0 .. 100]: 20"}},
        {"gain", {"Slider 'Gain' = 20 dB [0 .. 100]: 20"}},
        {"log", {"Slider = 10 [1 .. 1000]: 10"}},
        {"locked", {"Slider 'Fixed' read-only = 0.5 [0 .. 1]: 0.5"}},
        {"choice", {"Select 'Format' = JPEG"}},
        {"list",
         {"List 'Names' = a", "Item 'a' chosen", "Item 'b' passive", "Item 'c'", "Item 'd'",
          "Item 'e' out-of-view", "Item 'f' out-of-view", "Item 'g' out-of-view", "Item 'h' out-of-view",
          "Item 'i' out-of-view", "Item 'j' out-of-view", "Item 'k' out-of-view", "Item 'l' out-of-view"}},
        {"row", {"List = right", "Item 'left'", "Item 'middle'", "Item 'right' chosen"}},
        {"tabs", {"Tab_Set = One", "Tab 'One' chosen", "Tab 'Two'", "Tab 'Three'"}},
        {"hue", {"Slider 'Hue' = #FF0000 [0 .. 100]: 0"}},
        {"color",
         {"Group = #804020", "Slider 'Red' = 128 [0 .. 255]: 128", "Slider 'Green' = 64 [0 .. 255]: 64",
          "Slider 'Blue' = 32 [0 .. 255]: 32", "Button 'RGB'"}},
        {"hls",
         {"Group = #804020", "Slider 'Hue' = 6 % [0 .. 100]: 5.556",
          "Slider 'Lightness' = 32 % [0 .. 100]: 31.57", "Slider 'Saturation' = 60 % [0 .. 100]: 59.63"}},
        {"line", {"Field = 12"}},
        {"secret", {"Field secret"}},
        {"output",
         {"Console 'Log' read-only = line 32\nline 33\nline 34\nline 35\nline 36\nline 37\nline 38\nline "
          "39"}},
    };
    for (const auto& [key, number] : numbers) {
        SCOPED_TRACE(key);
        const Part_Owner owner = Owner(number);
        std::vector<std::string> got;
        for (int part = Whole; part < owner.parts->Count(*owner.control); ++part) {
            const Part described = Describe({number, part});
            got.push_back(Text_Of(described));
            RECT common;
            IntersectRect(&common, &described.area, &owner.control->Rect);
            EXPECT_TRUE(EqualRect(&common, &described.area)) << got.back();
            EXPECT_TRUE(part == Whole || !Shows({number, part}) || Is_Found({number, part})) << got.back();
        }
        EXPECT_EQ(got, wanted.at(key));
        EXPECT_EQ(owner.parts->At(*owner.control, {1 << 30, -(1 << 30)}), Whole);
    }
    // However little room there is, what shows is found, and what is pressed is chosen.
    for (int size = 1; size < 50; ++size) {
        for (Tools* control : std::initializer_list<Tools*>{&checks, &single, &list, &row, &tabs}) {
            control->Width = static_cast<short>(2 * size), control->Height = static_cast<short>(size);
            host->Init(*control);
        }
        for (const char* key : {"checks", "single", "list", "row", "tabs"}) {
            SCOPED_TRACE(testing::Message() << key << ' ' << size);
            for (int part = 0; part < 3; ++part) {
                const Part_Place place{numbers.at(key), part};
                const Part_Owner owner = Owner(place.control);
                owner.parts->Bring_Into_View(*owner.control, part);
                if (!Shows(place) || Describe(place).state & PART_PASSIVE) continue;
                EXPECT_TRUE(Is_Found(place));
                const unsigned before = Describe(place).state;
                Press(place);
                EXPECT_TRUE(Describe(place).state != before || before & (PART_CHOSEN | PART_CHECKED));
            }
        }
    }
}

TEST_F(Parts, Do_When_Pressed_What_They_Say) {
    struct Row {
        const char* key;
        int part;
        const char* after;
    };
    const Row table[] = {
        {"button", Whole, "Button 'Apply'"},
        {"lights", Whole, "Button 'Lights'"},
        {"lamp", Whole, "Check_Box 'Mute' checked"},
        {"lamp", Whole, "Check_Box 'Mute'"},
        {"checks", 0, "Check_Box 'Grid'"},
        {"checks", 3, "Check_Box 'Stamp' checked"},
        {"checks", 2, "Check_Box 'Legend' passive"},
        {"single", 1, "Radio_Button 'Axes' checked"},
        {"bar", Whole, "Bar = 50.4 [0 .. 100]: 50.4"},
        {"gain", Whole, "Slider 'Gain' = 50 dB [0 .. 100]: 50.48"},
        {"locked", Whole, "Slider 'Fixed' read-only = 0.5 [0 .. 1]: 0.5"},
        {"list", 3, "Item 'd' chosen"},
        {"list", 1, "Item 'b' passive"},
        {"tabs", 2, "Tab 'Three' chosen"},
        {"hue", Whole, "Slider 'Hue' = #00FFFC [0 .. 100]: 49.84"},
        {"color", 2, "Slider 'Blue' = 128 [0 .. 255]: 128"},
        {"color", 3, "Button 'HLS'"},
        {"color", 1, "Slider 'Lightness' = 50 % [0 .. 100]: 50.39"},
    };
    for (const auto& [key, part, after] : table) {
        const Part_Place place{numbers.at(key), part};
        Press(place);
        EXPECT_EQ(Text(place), after);
        EXPECT_TRUE(Is_As_Drawn(key)) << after;
    }
}

TEST_F(Parts, Take_Keys_As_The_Wheel_And_Texts_As_Far_As_They_Are_Values) {
    using enum Part_Move;
    struct Row {
        const char* key;
        int part;
        std::variant<Part_Move, const char*> change;
        bool taken;
        const char* after;
    };
    const Row table[] = {
        {"button", Whole, Right, false, "Button 'Apply'"},
        {"lamp", Whole, "1", true, "Check_Box 'Mute' checked"},
        {"lamp", Whole, "on", false, "Check_Box 'Mute' checked"},
        {"checks", 1, "1", true, "Check_Box 'Axes' checked"},
        {"checks", 0, "0", true, "Check_Box 'Grid'"},
        {"checks", 2, "1", false, "Check_Box 'Legend' passive"},
        {"single", 2, "0", false, "Radio_Button 'Legend' checked"},
        {"single", 3, "1", true, "Radio_Button 'Stamp' checked"},
        {"single", 2, "0", true, "Radio_Button 'Legend'"},
        {"bar", Whole, Right, true, "Bar = 25 [0 .. 100]: 25"},
        {"bar", Whole, Down, true, "Bar = 20 [0 .. 100]: 20"},
        {"bar", Whole, Page_Up, true, "Bar = 70 [0 .. 100]: 70"},
        {"bar", Whole, Page_Down, true, "Bar = 20 [0 .. 100]: 20"},
        {"bar", Whole, Home, true, "Bar = 0 [0 .. 100]: 0"},
        {"bar", Whole, "200", true, "Bar = 100 [0 .. 100]: 100"},
        {"gain", Whole, " 41 dB ", true, "Slider 'Gain' = 41 dB [0 .. 100]: 41"},
        {"gain", Whole, "-1e300", true, "Slider 'Gain' = 0 dB [0 .. 100]: 0"},
        {"gain", Whole, "42 %", true, "Slider 'Gain' = 42 dB [0 .. 100]: 42"},
        {"gain", Whole, "43 Hz", false, "Slider 'Gain' = 42 dB [0 .. 100]: 42"},
        {"gain", Whole, "abc", false, "Slider 'Gain' = 42 dB [0 .. 100]: 42"},
        {"gain", Whole, "nan", false, "Slider 'Gain' = 42 dB [0 .. 100]: 42"},
        {"gain", Whole, "1e999", false, "Slider 'Gain' = 42 dB [0 .. 100]: 42"},
        {"gain", Whole, Left, true, "Slider 'Gain' = 40 dB [0 .. 100]: 40"},
        {"log", Whole, Up, true, "Slider = 8.70964 [1 .. 1000]: 8.71"},
        {"log", Whole, Home, true, "Slider = 1000 [1 .. 1000]: 1000"},
        {"locked", Whole, End, false, "Slider 'Fixed' read-only = 0.5 [0 .. 1]: 0.5"},
        {"locked", Whole, "1", false, "Slider 'Fixed' read-only = 0.5 [0 .. 1]: 0.5"},
        {"choice", Whole, Left, true, "Select 'Format' = TIFF"},
        {"choice", Whole, Page_Up, true, "Select 'Format' = JPEG"},
        {"choice", Whole, End, true, "Select 'Format' = TIFF"},
        {"choice", Whole, "TIFF", true, "Select 'Format' = TIFF"},
        {"choice", Whole, "PNG", false, "Select 'Format' = TIFF"},
        {"choice", Whole, Home, true, "Select 'Format' = JPEG"},
        {"choice", Whole, Page_Down, true, "Select 'Format' = TIFF"},
        {"list", Whole, "l", true, "List 'Names' = l"},
        {"list", Whole, "b", false, "List 'Names' = l"},
        {"list", 0, "a", false, "Item 'a'"},
        {"tabs", Whole, "Two", true, "Tab_Set = Two"},
        {"tabs", Whole, "Four", false, "Tab_Set = Two"},
        {"hue", Whole, End, true, "Slider 'Hue' = #FF000F [0 .. 100]: 99.02"},
        {"hue", Whole, Left, true, "Slider 'Hue' = #FF002D [0 .. 100]: 97.05"},
        {"hue", Whole, "#FF0000", true, "Slider 'Hue' = #FF0000 [0 .. 100]: 0"},
        {"hue", Whole, "33.4", true, "Slider 'Hue' = #00FF01 [0 .. 100]: 33.4"},
        {"hue", Whole, "#FF00", false, "Slider 'Hue' = #00FF01 [0 .. 100]: 33.4"},
        {"color", 0, Up, false, "Slider 'Red' = 128 [0 .. 255]: 128"},
        {"color", 0, Home, true, "Slider 'Red' = 0 [0 .. 255]: 0"},
        {"color", 1, Right, true, "Slider 'Green' = 69 [0 .. 255]: 69"},
        {"color", 2, "300", true, "Slider 'Blue' = 255 [0 .. 255]: 255"},
        {"color", 2, "50 %", false, "Slider 'Blue' = 255 [0 .. 255]: 255"},
        {"hls", 2, "25 %", true, "Slider 'Saturation' = 25 % [0 .. 100]: 24.84"},
        {"color", Whole, "#010203", true, "Group = #010203"},
        {"line", Whole, "-34", true, "Field = -34"},
        {"line", Whole, "3.4", false, "Field = -34"},
        {"line", Whole, Left, false, "Field = -34"},
        {"secret", Whole, "%s\n", false, "Field secret"},
        {"secret", Whole, "%s%n", true, "Field secret"},
        {"output", Whole, "text", false, nullptr},
        {"output", Whole, Right, false, nullptr},
        {"output", Whole, Home, true, nullptr},
    };
    for (const Row& row : table) {
        SCOPED_TRACE(&row - table);
        const Part_Place place{numbers.at(row.key), row.part};
        const auto* const move = std::get_if<Part_Move>(&row.change);
        EXPECT_EQ(move ? host->Parts().Step(place, *move)
                       : host->Parts().Set_Value(place, std::get<const char*>(row.change)),
                  row.taken);
        if (row.after) {
            EXPECT_EQ(Text(place), row.after);
        }
        EXPECT_TRUE(Is_As_Drawn(row.key));
    }
    EXPECT_STREQ(secret.Line, "%s%n");
    EXPECT_STREQ(line.Update(), "-34") << "the application is told";
    EXPECT_EQ(output.V_Slider.Val, output.V_Slider.End_Val);
    output.Flag |= TEXT_H_BAR, output.V_Slider.Val = 0, output.Init(window);
    output.Write("%s", std::string(200, 'x').c_str());
    for (const Part_Move move : {Right, Right, Left})
        EXPECT_TRUE(host->Parts().Step({numbers.at("output")}, move));
    EXPECT_EQ(output.H_Slider.Val, output.H_Slider.Step) << "to the right and back";
    // Back to what a control noted last, with something else shown since.
    const Part_Place at_hue{numbers.at("hue")};
    const std::string noted = Text(at_hue);
    for (const char* color : {"#0000FF", "33.4", "#00FF01"})
        EXPECT_TRUE(host->Parts().Set_Value(at_hue, color));
    EXPECT_EQ(Text(at_hue), noted);
    EXPECT_TRUE(Is_As_Drawn("hue"));
    choice.Scroll(-1);
    host->Parts().Step({numbers.at("choice")}, Home);
    EXPECT_TRUE(Is_As_Drawn("choice"));
    // Nothing is taken by what is passive, and nothing that has no number.
    for (const auto& [key, number] : numbers) {
        SCOPED_TRACE(key);
        const Part_Owner owner = Owner(number);
        owner.control->Flag |= FLAG_PASSIVE;
        for (int part = Whole; part < owner.parts->Count(*owner.control); ++part) {
            const std::string before = Text({number, part});
            for (const char* text : {"0", "1", "7", "JPEG", "a", "One", "#0000FF"})
                EXPECT_FALSE(owner.parts->Set_Value(*owner.control, part, text)) << text;
            for (const Part_Move move : {Left, Right, Up, Down, Page_Up, Page_Down, Home, End})
                EXPECT_FALSE(owner.parts->Step(*owner.control, part, move));
            EXPECT_FALSE(owner.parts->Store(*owner.control, EVENT_PRESS));
            EXPECT_EQ(Text({number, part}), before);
            EXPECT_NE(before.find("passive"), std::string::npos);
        }
    }
    gain.Flag &= ~FLAG_PASSIVE;
    gain.Start_Val = std::numeric_limits<float>::infinity();
    gain.End_Val = std::numeric_limits<float>::quiet_NaN();
    host->Parts().Set_Value({numbers.at("gain")}, "1");
    Text({numbers.at("gain")});
}

TEST_F(Parts, Are_Reached_By_Arrows) {
    using enum Part_Move;
    struct Row {
        const char* key;
        int from;
        Part_Move move;
        int to;
    };
    constexpr int Far = std::numeric_limits<int>::max();
    const Row table[] = {
        {"list", Whole, Down, 0},    {"list", 11, Down, 11},  {"list", 0, Up, 0},
        {"list", 3, Up, 2},          {"list", 0, Down, 1},    {"list", 0, Page_Down, 3},
        {"list", 10, Page_Down, 11}, {"list", 9, Page_Up, 6}, {"list", 5, Home, 0},
        {"list", 5, End, 11},        {"list", Far, Down, 0},  {"list", -Far, Up, 0},
        {"checks", 0, Right, 2},     {"checks", 3, Left, 1},  {"checks", 2, Right, 2},
        {"checks", 0, Down, 1},      {"single", 0, Right, 1}, {"tabs", 0, Right, 1},
        {"tabs", 1, Left, 0},        {"color", 0, Down, 1},   {"row", 0, Page_Down, 2},
        {"gain", 0, Down, Whole},
    };
    const auto next = [this](const char* key, int from, Part_Move move) {
        const Part_Owner owner = Owner(numbers.at(key));
        return owner.parts->Next(*owner.control, from, move);
    };
    for (const Row& row : table)
        EXPECT_EQ(next(row.key, row.from, row.move), row.to) << &row - table;
    tabs.Grow(20, 0), tabs.Init(window);
    EXPECT_EQ(next("tabs", 3, Page_Down), 13);
    for (const auto& [key, first] : {std::pair("single", 2), std::pair("row", 2), std::pair("gain", Whole)}) {
        const Part_Owner owner = Owner(numbers.at(key));
        EXPECT_EQ(owner.parts->First(*owner.control), first) << key;
    }
}

// A control paints nothing when all of its members are hidden: no member has been forgotten.
TEST_F(Parts, Have_All_Members_That_Paint) {
    for (const auto& [key, number] : numbers) {
        Tools& control = *Owner(number).control;
        host->Set_Shown(control, false);
        EXPECT_EQ(window.Changed([&, number = number] {
            for (int x = control.Rect.left; x < control.Rect.right; x += 7) {
                window.Point_At(x, (control.Rect.top + control.Rect.bottom) / 2);
                paints[static_cast<std::size_t>(number)]();
            }
        }),
                  Nothing)
            << key;
    }
}

TEST(Parts_Of_Lists, Come_Into_View_In_Long_Lists) {
    constexpr int Most = std::numeric_limits<int>::max(), many = 4000;
    for (const unsigned long flag : {0UL, FLAG_VERTICAL, FLAG_VERTICAL | FLAG_INNER_FRAME}) {
        SCOPED_TRACE(flag);
        Parted_Window shown(320, 240);
        Lists list;
        Place(list, flag ? "Title" : nullptr, 10, 20, 200, 150, flag);
        list.Grow(many, 0);
        shown.Show(list);
        const int page = shown.Owner().parts->Next(list, 0, Part_Move::Page_Down);
        for (const int item : {0, 3, page, page + 1, many - 1, many - 2, 3456, 3455, 3456 + page, 1, 0}) {
            SCOPED_TRACE(item);
            const float before = list.Scroll_Bar.Val;
            const bool showed = shown.Shows({0, item});
            list.Bring_Into_View(item);
            EXPECT_EQ(list.Scroll_Bar.Val == before, showed) << "it moves only when it has to";
            EXPECT_TRUE(shown.Shows({0, item}) && shown.Is_Found({0, item}));
            EXPECT_TRUE(shown.Shows({0, item ? item - 1 : 1}) || shown.Shows({0, (item + 1) % many}));
            shown.Press({0, item});
            EXPECT_EQ(list.Current, item);
            EXPECT_TRUE(shown.Is_As_Painted());
        }
        // An item that shows takes clicks, wherever it is scrolled to.
        list.Bring_Into_View(many / 2);
        for (int step = 0; step < 60 * 2 * page; ++step) {
            const int item = many / 2 - page + step % (2 * page);
            if (item == many / 2 - page) list.Scroll_Bar.Val += 1, list.Draw();
            const POINT middle = Middle(shown.Describe({0, item}).area);
            shown.window.Point_At(middle.x, middle.y);
            EXPECT_EQ(shown.Shows({0, item}), list.Select(EVENT_MOVE) == 1) << item << " after " << step;
        }
        for (const int item : {-1, many, Most, -Most}) {
            const float there = list.Scroll_Bar.Val;
            list.Bring_Into_View(item);
            EXPECT_TRUE(list.Item_Place(item).right == 0 && list.Scroll_Bar.Val == there);
        }
        list.Scroll_Bar.Val = 1e30F;  // it belongs to the application, too
        EXPECT_EQ(shown.Owner().parts->At(list, {20, 30}), Whole);
        list.Bring_Into_View(7);
        EXPECT_TRUE(shown.Shows({0, 7}));
    }
}

// Long names do not fit into the narrow one, and can be pressed at their beginning only.
TEST(Parts_Of_Trees, Are_Rows_And_A_Button) {
    const std::string long_name = "directory with a name that is longer than can be pressed ";
    Sample_Directories sample;
    for (int i = 100; i < 160; ++i) {
        const std::string name = long_name + std::to_string(i) + "\\";
        sample.Add(name), sample.Add(name + "inner\\");
    }
    for (const int width : {200, 600}) {
        SCOPED_TRACE(width);
        Parted_Window shown(620, 400);
        DirTrees tree;
        Place(tree, nullptr, 10, 20, width, 360);
        shown.Show(tree);
        const Class_Parts& parts = *shown.Owner().parts;
        EXPECT_EQ(parts.Count(tree), 1);
        tree.Set(sample.Plain().c_str());
        shown.All_Painted();
        const int parent = parts.First(tree), row = parent + 31, last = tree.Nb_Row - 1;
        EXPECT_EQ(shown.Describe({0}).value, tree.Read());
        EXPECT_FALSE(parts.Step(tree, parent, Part_Move::Right)) << "it is open";
        EXPECT_TRUE(parts.Step(tree, parent, Part_Move::Left) && parts.Step(tree, parent, Part_Move::Right));
        EXPECT_EQ(parts.Next(tree, row, Part_Move::Left), parent);
        EXPECT_EQ(parts.Next(tree, parent, Part_Move::Right), parent + 1);
        EXPECT_EQ(parts.Next(tree, row, Part_Move::Right), row);
        EXPECT_EQ(parts.Next(tree, 0, Part_Move::End), last);
        EXPECT_EQ(parts.Next(tree, last, Part_Move::Down), last + 1);
        EXPECT_EQ(shown.Text({0, row}), "Row '" + long_name + "130' out-of-view closed");
        EXPECT_EQ(shown.Text({0, last + 1}), "Button 'Refresh'");
        EXPECT_TRUE(shown.Is_Found({0, last + 1}));

        shown.Wheel(WM_MOUSEWHEEL, -120, {100, 200}), shown.Wheel(WM_MOUSEHWHEEL, 120, {100, 200});
        EXPECT_EQ(tree.Vertical_Bar.Val, 3 * tree.Vertical_Bar.Step) << "lines, as the system has them";
        EXPECT_EQ(tree.Horizontal_Bar.Val, width == 200 ? 3 * tree.Horizontal_Bar.Step : 0);

        // Every row can be brought into view, and only what has to move does.
        const int page = parts.Next(tree, row, Part_Move::Page_Down) - row;
        EXPECT_EQ(page, 13) << "one of 14 rows stays in view";
        for (const int next : {row, row + page, row - 1, last, 0, row}) {
            SCOPED_TRACE(next);
            parts.Bring_Into_View(tree, next);
            EXPECT_TRUE(shown.Shows({0, next}) && shown.Is_Found({0, next}));
            const RECT area = shown.Describe({0, next}).area;
            EXPECT_EQ(area.bottom - area.top, int{DirTrees::Row_Pitch});
            EXPECT_EQ(parts.At(tree, {area.left, area.top}), next);
            EXPECT_NE(parts.At(tree, {area.left - 1, area.top}), next);
            const float scrolled = tree.Vertical_Bar.Val;
            parts.Bring_Into_View(tree, next);
            EXPECT_EQ(tree.Vertical_Bar.Val, scrolled);
            EXPECT_TRUE(shown.Is_As_Painted());
            shown.Press({0, next});
            EXPECT_EQ(tree.Current, tree.Row[next].node);
        }
        shown.host->Focus(&tree);
        shown.Send(WM_CHAR, '+');
        EXPECT_EQ(shown.Text({0, row}), "Row '" + long_name + "130' chosen open");
        shown.Send(WM_CHAR, '-');
        EXPECT_EQ(shown.Text({0, row}), "Row '" + long_name + "130' chosen closed");
        EXPECT_EQ(parts.First(tree), row);
        EXPECT_EQ(shown.Describe({0, row}).level, shown.Describe({0, parent}).level + 1);
        DirTrees copy(tree);  // which has rows of its own once it changes
        EXPECT_TRUE(parts.Step(copy, row, Part_Move::Right));
        EXPECT_EQ(copy.Row[row + 1].node->name, std::string("inner"));
        EXPECT_EQ(copy.Nb_Row, tree.Nb_Row + 1);
        for (const int none : {-1, tree.Nb_Row + 0})
            EXPECT_TRUE(!tree.Open_Row(none, true) && tree.Row_Place(none).right == 0);
        shown.host->Set_Shown(tree, false);
        EXPECT_EQ(shown.window.Changed([&] { tree.Draw(), tree.Bring_Into_View(0); }), Nothing);
    }
}

template <class Control>
struct Parts_Of_Any : testing::Test {};
using Classes = testing::Types<Boxs, Buttons, CheckLists, Color_Edit, DirTrees, Hue_Edit, Labels, Lists,
                               Selects, Sliders, TabItems, Tabs, Texts, Valuators>;
TYPED_TEST_SUITE(Parts_Of_Any, Classes);

// Before `Init` there is nothing to see and nothing to change.
TYPED_TEST(Parts_Of_Any, Wait_For_Init) {
    TypeParam control;
    const std::string name(1000, 'x');
    Place(control, name.c_str(), 10, 10, 150, 80);
    if constexpr (requires { control.Grow(2, 0); }) control.Grow(2, 0);
    const Class_Parts& parts = Parts_Of(&control);
    EXPECT_STRNE(parts.Name(), "Tools");
    for (const int part : {Whole, 0, 3, -7, std::numeric_limits<int>::max()}) {
        const Part described = parts.Describe(control, part);
        EXPECT_LT(described.name.size(), 500U);
        EXPECT_TRUE(IsRectEmpty(&described.area) && described.state & PART_OUT_OF_VIEW);
        EXPECT_FALSE(parts.Step(control, part, Part_Move::End) || parts.Store(control, EVENT_PRESS));
        for (const char* text : {"1", "#112233", "", static_cast<const char*>(nullptr)})
            EXPECT_FALSE(parts.Set_Value(control, part, text));
    }
    EXPECT_EQ(parts.At(control, {15, 15}), Whole);
    const Test_Window window(200, 100);
    static const char* const names[] = {"one", nullptr};
    if constexpr (requires { control.List; }) control.List = names;
    control.Init(window);
    control.Width = 0;
    EXPECT_TRUE(parts.Describe(control, Whole).state & PART_OUT_OF_VIEW);
}

}  // namespace
