#include <algorithm>
#include <cstdio>
#include <functional>
#include <limits>
#include <map>
#include <string>
#include <variant>
#include <vector>

#include "Galdren_Tools.h"
#include "parts/classes.h"
#include "tests/support/controls.h"
#include "tests/support/directories.h"
#include "tests/support/window.h"

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

/// A control with its description, as a host has it.
struct Subject {
    template <class Control>
    Subject(Control& made) : control(&made), parts(&Parts_Of(&made)), draw([&made] { made.Draw(); }) {
        if constexpr (requires { made.Select(0); })
            select = [&made](int event) { return made.Select(event); };
    }

    std::string Text(int part) const { return Text_Of(parts->Describe(*control, part)); }
    RECT Area(int part) const { return parts->Describe(*control, part).area; }
    bool Shows(int part) const { return !(parts->Describe(*control, part).state & PART_OUT_OF_VIEW); }

    Tools* control;
    const Class_Parts* parts;
    std::function<void()> draw;
    std::function<int(int)> select = [](int) { return 0; };
};

POINT Middle(const RECT& area) { return {(area.left + area.right) / 2, (area.top + area.bottom) / 2}; }

/// Does what a host does for a click on the middle of a part.
void Press(const Test_Window& window, const Subject& subject, int part) {
    const POINT middle = Middle(subject.Area(part));
    window.Point_At(middle.x, middle.y);
    if (subject.select(EVENT_PRESS | EVENT_LEFT)) subject.parts->Store(*subject.control, EVENT_PRESS);
    window.Point_At(-1, -1);
    subject.select(EVENT_MOVE);
}

/// One control of every kind in a window, shown.
class Parts : public testing::Test {
  protected:
    Parts() {
        static constexpr const char* Extras[] = {"Grid", "Axes", "Legend", "Stamp", nullptr};
        static constexpr unsigned char Enabled[] = {1, 1, 0, 1};
        Show("box", box, "Box", 0, 0, 60, 30, 0);
        Show("label", label, "Volume", 0, 40, 60, 30, 0);
        Show("button", button, "Apply", 0, 80, 60, 30, 0);
        Show("lamp", lamp, "Mute", 0, 120, 60, 30, BUTTON_LAMP);
        Show("lights", lights, "Lights", 0, 160, 60, 30, BUTTON_LAMP | BUTTON_LAMP_COLORS);
        Show("tab", tab, "Page", 0, 200, 60, 30, 0);
        checks.List = single.List = Extras, checks.Enabled = Enabled, checks.Value = 1, single.Value = 2;
        Show("checks", checks, "Extras", 70, 0, 160, 70, 0);
        Show("single", single, nullptr, 70, 80, 160, 100, CHECKLIST_SINGLE | CHECKLIST_ONE_COLUMN);
        bar.Start_Val = 0, bar.End_Val = 100, bar.Val = 20, bar.Step = 5;
        Show("bar", bar, nullptr, 240, 0, 200, 20, 0);
        gain.Start_Val = 0, gain.End_Val = 100, gain.Val = 20, gain.Step = 2;
        gain.Format = "%.0f dB", gain.Num_Width = 60;
        Show("gain", gain, "Gain", 240, 30, 200, 30, 0);
        log.Start_Val = 1000, log.End_Val = 1, log.Val = 10;
        Show("log", log, nullptr, 240, 70, 200, 20, VALUATOR_LOG_10 | SLIDER_REVERSED);
        locked.Start_Val = 0, locked.End_Val = 1, locked.Val = 0.5F;
        Show("locked", locked, "Fixed", 240, 100, 200, 20, VALUATOR_LOCKED);
        Name_Items(choice, {"PNG", "JPEG", "TIFF", "Targa"});
        choice.Item[0]->Flag |= FLAG_PASSIVE, choice.Item[3]->Flag |= FLAG_PASSIVE;
        choice.Current = 1;
        Show("choice", choice, "Format", 240, 130, 200, 50, 0);
        Name_Items(list, {"a", "b", "c", "d", "e", "f", "g", "h", "i", "j", "k", "l"});
        list.Item[1]->Flag |= FLAG_PASSIVE;
        Show("list", list, "Names", 450, 0, 120, 150, FLAG_VERTICAL);
        Name_Items(row, {"left", "middle", "right"});
        row.Current = 2;
        Show("row", row, nullptr, 240, 190, 200, 40, 0);
        Name_Items(tabs, {"One", "Two", "Three"});
        Show("tabs", tabs, nullptr, 0, 240, 240, 30, 0);
        Show("hue", hue, "Hue", 0, 280, 240, 40, 0);
        color.Value = 0xFF204080;
        Show("color", color, nullptr, 0, 330, 240, 100, COLOR_EDIT_MODE_BUTTON);
        Show("line", line, nullptr, 250, 240, 180, 30, TEXT_SINGLE_LINE | TEXT_INTEGER | TEXT_REPORT_CHANGES);
        line.Read("%d", 12);
        Show("secret", secret, nullptr, 250, 280, 180, 30, TEXT_SINGLE_LINE | TEXT_PASSWORD);
        secret.Read("hush");
        Show("output", output, "Log", 250, 320, 180, 110, TEXT_V_BAR);
        for (int i = 0; i < 40; ++i)
            output.Write("%cline %d", TEXT_BLUE, i);
    }

    template <class Control>
    void Show(const char* key, Control& control, const char* name, int x, int y, int width, int height,
              unsigned long flag) {
        Place(control, name, x, y, width, height, flag), control.Border = 2;
        control.Init(window);
        control.Draw();
        all.emplace(key, control);
        window.Point_At(-1, -1);
        all.at(key).select(EVENT_MOVE);
    }

    Test_Window window{600, 440};
    std::map<std::string, Subject> all;
    Boxs box;
    Labels label;
    Buttons button, lamp, lights;
    TabItems tab;
    CheckLists checks, single;
    Sliders bar;
    Valuators gain, log, locked;
    Selects choice;
    Lists list, row;
    Tabs tabs;
    Hue_Edit hue;
    Color_Edit color;
    Texts line, secret, output;
};

}  // namespace

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
        {"line", {"Field = 12"}},
        {"secret", {"Field secret"}},
        {"output",
         {"Console 'Log' read-only = line 32\nline 33\nline 34\nline 35\nline 36\nline 37\nline 38\nline "
          "39"}},
    };
    for (const auto& [key, subject] : all) {
        SCOPED_TRACE(key);
        const Class_Parts& parts = *subject.parts;
        std::vector<std::string> got;
        for (int part = Whole; part < parts.Count(*subject.control); ++part) {
            got.push_back(subject.Text(part));
            const RECT area = subject.Area(part);
            RECT common;
            IntersectRect(&common, &area, &subject.control->Rect);
            EXPECT_TRUE(EqualRect(&common, &area)) << got.back();
            if (part != Whole && subject.Shows(part)) {
                EXPECT_EQ(parts.At(*subject.control, Middle(area)), part) << got.back();
            }
        }
        EXPECT_EQ(got, wanted.at(key));
        EXPECT_EQ(parts.At(*subject.control, {1 << 30, -(1 << 30)}), Whole);
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
        {"tab", Whole, "Tab 'Page'"},
        {"checks", 0, "Check_Box 'Grid'"},
        {"checks", 3, "Check_Box 'Stamp' checked"},
        {"checks", 2, "Check_Box 'Legend' passive"},
        {"single", 1, "Radio_Button 'Axes' checked"},
        {"bar", Whole, "Bar = 50.4 [0 .. 100]: 50.4"},
        {"gain", Whole, "Slider 'Gain' = 50 dB [0 .. 100]: 50.48"},
        {"locked", Whole, "Slider 'Fixed' read-only = 0.5 [0 .. 1]: 0.5"},
        {"list", 3, "Item 'd' chosen"},
        {"list", 1, "Item 'b' passive"},
        {"row", 0, "Item 'left' chosen"},
        {"tabs", 2, "Tab 'Three' chosen"},
        {"tabs", 1, "Tab 'Two' chosen"},
        {"hue", Whole, "Slider 'Hue' = #00FFFC [0 .. 100]: 49.84"},
        {"color", 2, "Slider 'Blue' = 128 [0 .. 255]: 128"},
        {"color", 3, "Button 'HLS'"},
        {"color", 1, "Slider 'Lightness' = 50 % [0 .. 100]: 50.39"},
    };
    for (const Row& row : table) {
        SCOPED_TRACE(&row - table);
        const Subject& subject = all.at(row.key);
        Press(window, subject, row.part);
        EXPECT_EQ(subject.Text(row.part), row.after);
        const Picture adjusted(window);
        subject.draw();
        EXPECT_TRUE(Same(adjusted, Picture(window)));
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
    constexpr float Infinity = std::numeric_limits<float>::infinity();
    const Row table[] = {
        {"button", Whole, Right, false, "Button 'Apply'"},
        {"button", Whole, "1", false, "Button 'Apply'"},
        {"lights", Whole, "1", false, "Button 'Lights'"},
        {"lamp", Whole, "1", true, "Check_Box 'Mute' checked"},
        {"lamp", Whole, "on", false, "Check_Box 'Mute' checked"},
        {"checks", 1, "1", true, "Check_Box 'Axes' checked"},
        {"checks", Whole, "", false, "Group 'Extras'"},
        {"checks", 1, "1", true, "Check_Box 'Axes' checked"},
        {"checks", 0, "0", true, "Check_Box 'Grid'"},
        {"checks", 2, "1", false, "Check_Box 'Legend' passive"},
        {"single", 2, "0", false, "Radio_Button 'Legend' checked"},
        {"single", 3, "1", true, "Radio_Button 'Stamp' checked"},
        {"single", 2, "0", true, "Radio_Button 'Legend'"},
        {"bar", Whole, Right, true, "Bar = 25 [0 .. 100]: 25"},
        {"bar", Whole, Down, true, "Bar = 20 [0 .. 100]: 20"},
        {"bar", Whole, Page_Up, true, "Bar = 70 [0 .. 100]: 70"},
        {"bar", Whole, Home, true, "Bar = 0 [0 .. 100]: 0"},
        {"bar", Whole, "200", true, "Bar = 100 [0 .. 100]: 100"},
        {"gain", Whole, "40", true, "Slider 'Gain' = 40 dB [0 .. 100]: 40"},
        {"gain", Whole, " 41 dB ", true, "Slider 'Gain' = 41 dB [0 .. 100]: 41"},
        {"gain", Whole, "-1e300", true, "Slider 'Gain' = 0 dB [0 .. 100]: 0"},
        {"gain", Whole, "42 %", true, "Slider 'Gain' = 42 dB [0 .. 100]: 42"},
        {"gain", Whole, "43 Hz", false, "Slider 'Gain' = 42 dB [0 .. 100]: 42"},
        {"gain", Whole, "abc", false, "Slider 'Gain' = 42 dB [0 .. 100]: 42"},
        {"gain", Whole, "nan", false, "Slider 'Gain' = 42 dB [0 .. 100]: 42"},
        {"gain", Whole, "inf", false, "Slider 'Gain' = 42 dB [0 .. 100]: 42"},
        {"gain", Whole, "1e999", false, "Slider 'Gain' = 42 dB [0 .. 100]: 42"},
        {"gain", Whole, "", false, "Slider 'Gain' = 42 dB [0 .. 100]: 42"},
        {"gain", Whole, Left, true, "Slider 'Gain' = 40 dB [0 .. 100]: 40"},
        {"log", Whole, Up, true, "Slider = 8.70964 [1 .. 1000]: 8.71"},
        {"log", Whole, Home, true, "Slider = 1000 [1 .. 1000]: 1000"},
        {"log", Whole, End, true, "Slider = 1 [1 .. 1000]: 1"},
        {"locked", Whole, End, false, "Slider 'Fixed' read-only = 0.5 [0 .. 1]: 0.5"},
        {"locked", Whole, "1", false, "Slider 'Fixed' read-only = 0.5 [0 .. 1]: 0.5"},
        {"choice", Whole, Left, true, "Select 'Format' = TIFF"},
        {"choice", Whole, Down, true, "Select 'Format' = JPEG"},
        {"choice", Whole, End, true, "Select 'Format' = TIFF"},
        {"choice", Whole, Page_Up, true, "Select 'Format' = JPEG"},
        {"choice", Whole, "TIFF", true, "Select 'Format' = TIFF"},
        {"choice", Whole, "PNG", false, "Select 'Format' = TIFF"},
        {"choice", Whole, Home, true, "Select 'Format' = JPEG"},
        {"choice", Whole, Page_Down, true, "Select 'Format' = TIFF"},
        {"list", Whole, "l", true, "List 'Names' = l"},
        {"list", 11, "a", false, "Item 'l' chosen"},
        {"list", Whole, "b", false, "List 'Names' = l"},
        {"list", 0, "a", false, "Item 'a' out-of-view"},
        {"tabs", Whole, "Two", true, "Tab_Set = Two"},
        {"tabs", Whole, "Four", false, "Tab_Set = Two"},
        {"hue", Whole, End, true, "Slider 'Hue' = #FF000F [0 .. 100]: 99.02"},
        {"hue", Whole, Left, true, "Slider 'Hue' = #FF002D [0 .. 100]: 97.05"},
        {"hue", Whole, "#FF0000", true, "Slider 'Hue' = #FF0000 [0 .. 100]: 0"},
        {"hue", Whole, "33.4", true, "Slider 'Hue' = #00FF01 [0 .. 100]: 33.4"},
        {"hue", Whole, "#FF00", false, "Slider 'Hue' = #00FF01 [0 .. 100]: 33.4"},
        {"hue", Whole, "#-F0000", false, "Slider 'Hue' = #00FF01 [0 .. 100]: 33.4"},
        {"color", 0, Up, false, "Slider 'Red' = 128 [0 .. 255]: 128"},
        {"color", 0, Home, true, "Slider 'Red' = 0 [0 .. 255]: 0"},
        {"color", 1, Right, true, "Slider 'Green' = 69 [0 .. 255]: 69"},
        {"color", 2, "300", true, "Slider 'Blue' = 255 [0 .. 255]: 255"},
        {"color", 3, "1", false, "Button 'RGB'"},
        {"color", Whole, "#010203", true, "Group = #010203"},
        {"color", 2, End, true, "Slider 'Blue' = 255 [0 .. 255]: 255"},
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
        const Subject& subject = all.at(row.key);
        const Class_Parts& parts = *subject.parts;
        const auto* move = std::get_if<Part_Move>(&row.change);
        EXPECT_EQ(move ? parts.Step(*subject.control, row.part, *move)
                       : parts.Set_Value(*subject.control, row.part, std::get<const char*>(row.change)),
                  row.taken);
        if (row.after) {
            EXPECT_EQ(subject.Text(row.part), row.after);
        }
        const Picture shown(window);
        subject.draw();
        EXPECT_TRUE(Same(shown, Picture(window)));
    }
    // Back to what a control noted last, with something else shown since.
    const auto shows_after = [&](const char* key, const std::function<void()>& change) {
        change();
        const Picture shown(window);
        all.at(key).draw();
        EXPECT_TRUE(Same(shown, Picture(window))) << key;
    };
    shows_after("hue", [&] {
        const std::string noted = all.at("hue").Text(Whole);
        Parts_Of(&hue).Set_Value(hue, Whole, "#0000FF");
        Parts_Of(&hue).Set_Value(hue, Whole, "33.4");
        Parts_Of(&hue).Set_Value(hue, Whole, "#00FF01");
        EXPECT_EQ(all.at("hue").Text(Whole), noted);
    });
    shows_after("choice", [&] {
        choice.Scroll(-1);
        Parts_Of(&choice).Step(choice, Whole, Home);
    });
    EXPECT_STREQ(secret.Line, "%s%n");
    EXPECT_STREQ(line.Update(), "-34") << "the application is told";
    EXPECT_EQ(output.V_Slider.Val, output.V_Slider.End_Val);
    // Nothing is taken by what is passive, and nothing that has no number.
    for (const auto& [key, subject] : all) {
        SCOPED_TRACE(key);
        subject.control->Flag |= FLAG_PASSIVE;
        for (int part = Whole; part < subject.parts->Count(*subject.control); ++part) {
            const std::string before = subject.Text(part);
            for (const char* text : {"0", "1", "7", "JPEG", "a", "One", "#0000FF"})
                EXPECT_FALSE(subject.parts->Set_Value(*subject.control, part, text)) << text;
            for (const Part_Move move : {Left, Right, Up, Down, Page_Up, Page_Down, Home, End})
                EXPECT_FALSE(subject.parts->Step(*subject.control, part, move));
            for (const int event : {EVENT_PRESS, EVENT_DRAG})
                EXPECT_FALSE(subject.parts->Store(*subject.control, event));
            EXPECT_EQ(subject.Text(part), before);
            EXPECT_NE(before.find("passive"), std::string::npos);
        }
    }
    gain.Flag &= ~FLAG_PASSIVE;
    gain.Start_Val = Infinity, gain.End_Val = std::numeric_limits<float>::quiet_NaN();
    Parts_Of(&gain).Set_Value(gain, Whole, "1");
    Parts_Of(&gain).Describe(gain, Whole);
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
    for (const Row& row : table) {
        SCOPED_TRACE(&row - table);
        const Subject& subject = all.at(row.key);
        EXPECT_EQ(subject.parts->Next(*subject.control, row.from, row.move), row.to);
    }
    EXPECT_EQ(Parts_Of(&single).First(single), 2);
    EXPECT_EQ(Parts_Of(&row).First(row), 2);
    EXPECT_EQ(Parts_Of(&gain).First(gain), Whole);
}

// A control paints nothing when all of its members are hidden: no member has been forgotten.
TEST_F(Parts, Have_All_Members_That_Paint) {
    for (const auto& [key, named] : all) {
        SCOPED_TRACE(key);
        const Subject& subject = named;
        subject.control->Veil = VEIL_HIDDEN;
        subject.parts->For_Members(*subject.control, [](Tools& member) { member.Veil = VEIL_HIDDEN; });
        const RECT area = subject.control->Rect;
        EXPECT_EQ(window.Changed([&] {
            for (int x = area.left; x < area.right; x += 7) {
                window.Point_At(x, (area.top + area.bottom) / 2);
                subject.select(EVENT_MOVE);
            }
            subject.draw();
        }),
                  Nothing);
    }
}

TEST(Parts_Of_Lists, Come_Into_View_In_Lists_Of_Any_Length) {
    for (const unsigned long flag : {0UL, FLAG_VERTICAL, FLAG_VERTICAL | FLAG_INNER_FRAME}) {
        SCOPED_TRACE(flag);
        const int many = flag == FLAG_VERTICAL ? 20000 : 4000;
        Test_Window window(320, 240);
        Lists list;
        Place(list, flag ? "Title" : nullptr, 10, 20, 200, 150, flag);
        list.Grow(many, 0);
        std::vector<std::string> names;
        for (int i = 0; i < many; ++i)
            names.push_back(std::to_string(i));
        for (int i = 0; i < many; ++i)
            list.Item[i]->Name = names[static_cast<std::size_t>(i)].c_str();
        list.Init(window);
        list.Draw();
        const Subject subject(list);
        const int page = subject.parts->Next(list, 0, Part_Move::Page_Down);
        for (const int item : {0, 3, page, page + 1, many - 1, many - 2, 3456, 3455, 3456 + page, 1, 0}) {
            SCOPED_TRACE(item);
            const float before = list.Scroll_Bar.Val;
            const bool shown = subject.Shows(item);
            subject.parts->Bring_Into_View(list, item);
            EXPECT_EQ(list.Scroll_Bar.Val == before, shown) << "it moves only when it has to";
            ASSERT_TRUE(subject.Shows(item));
            EXPECT_EQ(subject.parts->At(list, Middle(subject.Area(item))), item);
            EXPECT_TRUE(subject.Shows(item ? item - 1 : 1) || subject.Shows(item + 1 < many ? item + 1 : 0));
            Press(window, subject, item);
            EXPECT_EQ(list.Current, item);
            const Picture scrolled(window);
            list.Draw();
            EXPECT_TRUE(Same(scrolled, Picture(window)));
        }
        // An item that shows takes clicks, wherever it is scrolled to.
        subject.parts->Bring_Into_View(list, many / 2);
        for (int pixel = 0; pixel < 60; ++pixel) {
            list.Scroll_Bar.Val += 1;
            list.Draw();
            for (int item = many / 2 - page; item < many / 2 + page; ++item) {
                const POINT middle = Middle(subject.Area(item));
                window.Point_At(middle.x, middle.y);
                EXPECT_EQ(subject.Shows(item), list.Select(EVENT_MOVE) == 1) << item << " after " << pixel;
            }
        }
        const float there = list.Scroll_Bar.Val;
        for (const int item : {-1, many, std::numeric_limits<int>::max(), std::numeric_limits<int>::min()}) {
            list.Bring_Into_View(item);
            EXPECT_EQ(list.Item_Place(item).right, 0);
        }
        EXPECT_EQ(list.Scroll_Bar.Val, there);
        list.Scroll_Bar.Val = 1e30F;  // it belongs to the application, too
        EXPECT_EQ(subject.parts->At(list, {20, 30}), Whole);
        list.Bring_Into_View(7);
        EXPECT_TRUE(subject.Shows(7));
    }
}

// However little room there is, what shows is found and pressed where it is.
TEST(Parts_Of_Any_Size, Are_Pressed_Where_They_Are) {
    static constexpr const char* Labels_Of_Items[] = {"a", "bb", "ccc", nullptr};
    const auto name = [](auto& control) {
        if constexpr (requires { control.List; }) {
            control.List = Labels_Of_Items;
        } else {
            Name_Items(control, {"a", "bb", "ccc"});
        }
    };
    Test_Window window(120, 120);
    int pressed = 0;
    const auto try_all = [&](auto kind, unsigned long flag, int width, int height) {
        decltype(kind) control;
        name(control);
        Place(control, nullptr, 10, 10, width, height, flag);
        control.Init(window);
        control.Draw();
        const Subject subject(control);
        for (int part = 0; part < subject.parts->Count(control); ++part) {
            subject.parts->Bring_Into_View(control, part);
            if (!subject.Shows(part)) continue;
            SCOPED_TRACE(testing::Message() << subject.parts->Name() << ' ' << flag << ' ' << width << " x "
                                            << height << ": " << part);
            ++pressed;
            EXPECT_EQ(subject.parts->At(control, Middle(subject.Area(part))), part);
            const unsigned before = subject.parts->Describe(control, part).state;
            Press(window, subject, part);
            const bool was_front = before & PART_CHOSEN;
            EXPECT_TRUE(was_front || subject.parts->Describe(control, part).state != before);
        }
    };
    for (int width = 1; width < 100; width += 9) {
        for (int height = 1; height < 100; height += 7) {
            try_all(Lists(), 0, width, height);
            try_all(Lists(), FLAG_VERTICAL, width, height);
            try_all(Lists(), FLAG_VERTICAL | FLAG_INNER_FRAME, width, height);
            try_all(CheckLists(), 0, width, height);
            try_all(CheckLists(), CHECKLIST_ONE_COLUMN, width, height);
            try_all(Tabs(), 0, width, height);
        }
    }
    EXPECT_GT(pressed, 1000);
}

const std::string Long_Name = "directory with a name that is longer than can be pressed ";

class Parts_Of_Trees : public testing::TestWithParam<int> {};

TEST_P(Parts_Of_Trees, Are_Rows_And_A_Button) {
    Sample_Directories sample;
    for (int i = 0; i < 60; ++i) {
        const std::string name = Long_Name + std::to_string(100 + i) + "\\";
        sample.Add(name), sample.Add(name + "inner\\");
    }
    Test_Window window(620, 400);
    DirTrees tree;
    Place(tree, nullptr, 10, 20, GetParam(), 360, 0);
    tree.Init(window);
    EXPECT_EQ(Parts_Of(&tree).Count(tree), 1);
    tree.Set(sample.Plain().c_str());
    window.Point_At(-1, -1);
    tree.Draw();
    const Subject subject(tree);
    const Class_Parts& parts = *subject.parts;
    const int parent = parts.First(tree);
    EXPECT_STREQ(Parts_Of(&tree).Describe(tree, Whole).value.c_str(), tree.Read());
    EXPECT_FALSE(parts.Step(tree, parent, Part_Move::Right)) << "it is open";
    EXPECT_TRUE(parts.Step(tree, parent, Part_Move::Left));
    EXPECT_TRUE(parts.Step(tree, parent, Part_Move::Right));
    const int row = parent + 31;
    EXPECT_EQ(parts.Next(tree, row, Part_Move::Left), parent);
    EXPECT_EQ(parts.Next(tree, parent, Part_Move::Right), parent + 1);
    EXPECT_EQ(parts.Next(tree, row, Part_Move::Right), row);
    EXPECT_EQ(parts.Next(tree, 0, Part_Move::Left), 0);
    EXPECT_EQ(parts.Next(tree, 0, Part_Move::End), tree.Nb_Row - 1);
    EXPECT_EQ(parts.Next(tree, tree.Nb_Row - 1, Part_Move::Down), tree.Nb_Row);
    EXPECT_EQ(subject.Text(row), "Row '" + Long_Name + "130' out-of-view closed");

    // Every row can be brought into view, and only what has to move does.
    const int page = parts.Next(tree, row, Part_Move::Page_Down) - row;
    for (const int next : {row, row + page, row - 1, tree.Nb_Row - 1, 0, row}) {
        SCOPED_TRACE(next);
        parts.Bring_Into_View(tree, next);
        ASSERT_TRUE(subject.Shows(next));
        const RECT area = subject.Area(next);
        EXPECT_EQ(area.bottom - area.top, int{DirTrees::Row_Pitch});
        EXPECT_EQ(parts.At(tree, Middle(area)), next);
        EXPECT_EQ(parts.At(tree, {area.left, area.top}), next);
        EXPECT_NE(parts.At(tree, {area.left - 1, area.top}), next);
        const float scrolled = tree.Vertical_Bar.Val;
        parts.Bring_Into_View(tree, next);
        EXPECT_EQ(tree.Vertical_Bar.Val, scrolled);
        const Picture moved(window);
        tree.Draw();
        EXPECT_TRUE(Same(moved, Picture(window)));
    }
    for (const int count = tree.Nb_Row; tree.Vertical_Bar.Val > 0; tree.Vertical_Bar.Val -= 5) {
        tree.Draw();
        for (int shown = 0; shown < count; ++shown) {
            if (!subject.Shows(shown)) continue;
            const POINT middle = Middle(subject.Area(shown));
            ASSERT_EQ(parts.At(tree, middle), shown);
            if (shown % 7) continue;
            window.Point_At(middle.x, middle.y);
            tree.Select(EVENT_PRESS | EVENT_LEFT);
            ASSERT_EQ(tree.Current, tree.Row[shown].node);
        }
        window.Point_At(-1, -1);
    }
    parts.Bring_Into_View(tree, row);
    Press(window, subject, row);
    EXPECT_EQ(subject.Text(row), "Row '" + Long_Name + "130' chosen closed");
    EXPECT_EQ(parts.First(tree), row);
    EXPECT_EQ(parts.Describe(tree, row).level, parts.Describe(tree, parent).level + 1);

    // A copy has rows of its own once the tree changes.
    DirTrees copy(tree);
    EXPECT_TRUE(Parts_Of(&copy).Step(copy, row, Part_Move::Right));
    EXPECT_EQ(copy.Nb_Row, tree.Nb_Row + 1);
    EXPECT_EQ(copy.Row[row + 1].node->name, std::string("inner"));
    EXPECT_TRUE(Parts_Of(&copy).Step(copy, row, Part_Move::Left));
    EXPECT_FALSE(Parts_Of(&copy).Step(copy, row, Part_Move::Left));
    EXPECT_FALSE(tree.Open_Row(row, false));
    for (const int none :
         {-1, tree.Nb_Row, std::numeric_limits<int>::max(), std::numeric_limits<int>::min()}) {
        tree.Bring_Into_View(none);
        EXPECT_FALSE(tree.Open_Row(none, true));
        EXPECT_EQ(tree.Row_Place(none).right, 0);
    }
    const int button = tree.Nb_Row;
    EXPECT_EQ(subject.Text(button), "Button 'Refresh'");
    EXPECT_EQ(parts.At(tree, Middle(subject.Area(button))), button);
    tree.Veil = VEIL_HIDDEN;
    parts.For_Members(tree, [](Tools& member) { member.Veil = VEIL_HIDDEN; });
    EXPECT_EQ(window.Changed([&] {
        Press(window, subject, button);
        parts.Step(tree, row, Part_Move::Right);
        parts.Bring_Into_View(tree, 0);
    }),
              Nothing);
}

// Long names do not fit, and can be pressed at their beginning only.
INSTANTIATE_TEST_SUITE_P(Narrow_And_Wide, Parts_Of_Trees, testing::Values(200, 600));

// Whatever state a control is in, it answers, changes nothing and survives.
template <class Control>
void Ask_All(Control& control) {
    const Class_Parts& parts = Parts_Of(&control);
    const int count = parts.Count(control);
    EXPECT_LE(count, 4);
    for (const int part :
         {Whole, 0, 1, 3, count, -7, std::numeric_limits<int>::max(), std::numeric_limits<int>::min()}) {
        parts.Describe(control, part);
        parts.Bring_Into_View(control, part);
        for (int move = 0; move <= static_cast<int>(Part_Move::End); ++move) {
            const int next = parts.Next(control, part, static_cast<Part_Move>(move));
            EXPECT_TRUE(next >= Whole && next < std::max(count, 1));
        }
        if (control.State & STATE_READY) continue;
        EXPECT_TRUE(IsRectEmpty(&static_cast<const RECT&>(parts.Describe(control, part).area)));
        EXPECT_TRUE(parts.Describe(control, part).state & PART_OUT_OF_VIEW);
        EXPECT_FALSE(parts.Step(control, part, Part_Move::End));
        for (const char* text : {"1", "#112233", "", static_cast<const char*>(nullptr)})
            EXPECT_FALSE(parts.Set_Value(control, part, text));
    }
    if (!(control.State & STATE_READY)) {
        EXPECT_FALSE(parts.Store(control, EVENT_PRESS));
    }
    EXPECT_EQ(parts.At(control, {-5, -5}), Whole);
    EXPECT_LT(parts.First(control), std::max(count, 1));
    int members = 0;
    parts.For_Members(control, [&](Tools&) { ++members; });
    EXPECT_LE(members, 10);
}

template <class Control>
struct Parts_Of_Any : testing::Test {};
using Classes = testing::Types<Boxs, Buttons, CheckLists, Color_Edit, DirTrees, Hue_Edit, Labels, Lists,
                               Selects, Sliders, TabItems, Tabs, Texts, Valuators>;
TYPED_TEST_SUITE(Parts_Of_Any, Classes);

TYPED_TEST(Parts_Of_Any, Answer_In_Any_State) {
    Test_Window window(200, 100);
    TypeParam control;
    EXPECT_STRNE(Parts_Of(&control).Name(), "Tools");
    Ask_All(control);
    control.Flag = 0xFFFFFFFF & ~FLAG_PASSIVE;
    Ask_All(control);
    control.Flag = 0;
    const std::string name(1000, 'x');
    Place(control, name.c_str(), 10, 10, 0, 0, 0);
    EXPECT_LT(Parts_Of(&control).Describe(control, Whole).name.size(), 500U);
    Ask_All(control);
    control.Width = 150, control.Height = 80;
    if constexpr (requires { control.Grow(2, 0); }) control.Grow(2, 0);
    Ask_All(control);
    control.Init(window);
    if constexpr (requires { control.Draw(); }) control.Draw();
    Ask_All(control);
    if constexpr (requires { control.Grow(1, 0); }) {
        control.Grow(1, 0);
        Ask_All(control);
        control.Grow(3, 0);
        Ask_All(control);
        control.Grow(0, 0);
        Ask_All(control);
    }
    control.Width = 0;
    const RECT area = Parts_Of(&control).Describe(control, Whole).area;
    EXPECT_TRUE(IsRectEmpty(&area));
}
