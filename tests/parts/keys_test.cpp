#include <algorithm>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "Galdren_Tools.h"
#include "parts/classes.h"
#include "parts/key_code.h"
#include "parts/part_keys.h"
#include "tests/support/code_page.h"
#include "tests/support/controls.h"
#include "tests/support/window.h"

using namespace galdren_test;

namespace {

constexpr int Shift = KEY_SHIFT, Control = KEY_CONTROL, Alt = KEY_ALT, Keypad = KEY_KEYPAD;
constexpr int Left = KEY_NAVIGATION | VK_LEFT, Right = KEY_NAVIGATION | VK_RIGHT, Up = KEY_NAVIGATION | VK_UP;
constexpr int Down = KEY_NAVIGATION | VK_DOWN, Home = KEY_NAVIGATION | VK_HOME, End = KEY_NAVIGATION | VK_END;
constexpr int Page_Up = KEY_NAVIGATION | VK_PRIOR, Page_Down = KEY_NAVIGATION | VK_NEXT;
constexpr int Tab = VK_TAB, Enter = VK_RETURN, Esc = VK_ESCAPE, Space = VK_SPACE;

/// A window that does little more than to write down what keys ask of it.
class Keyed_Window final : public Part_Window {
  public:
    struct Control {
        Part_Owner owner;
        std::function<int(int)> select;
        std::string name;
    };

    template <class Made>
    Part_Owner& Add(Made& made, std::string name) {
        Part_Owner owner;
        owner.control = &made;
        owner.parts = &Parts_Of(&made);
        owner.serial = ++serials;
        std::function<int(int)> select = [](int) { return 0; };
        if constexpr (requires { made.Select(0); })
            select = [&made](int event) { return made.Select(event); };
        controls.push_back({owner, select, std::move(name)});
        return controls.back().owner;
    }
    void Remove(const std::string& name) {
        std::erase_if(controls, [&](const Control& control) { return control.name == name; });
    }
    Part_Owner& operator[](const std::string& name) {
        return std::find_if(controls.begin(), controls.end(),
                            [&](const Control& control) { return control.name == name; })
            ->owner;
    }
    int Number(const std::string& name) { return Number_Of((*this)[name].serial); }

    /// The part that has the keyboard, such as "list 3".
    std::string Focused() const {
        const Part_Place place = Focus();
        if (place.control < 0) return "none";
        return controls[static_cast<std::size_t>(place.control)].name + Part_Text(place);
    }
    /// What has been done since the last call.
    std::string Done() { return std::exchange(done, {}); }
    /// Takes keys, and tells where the keyboard is then and what was done.
    std::string After(std::initializer_list<int> codes) {
        for (const int code : codes)
            if (!keys->Take(code)) done += " no";
        return Focused() + ":" + Done();
    }

    HWND Window() const override { return window; }
    int Count() const override { return static_cast<int>(controls.size()); }
    Part_Owner Owner(int number) const override {
        return controls.at(static_cast<std::size_t>(number)).owner;
    }
    int Number_Of(unsigned serial) const override {
        const auto found = std::find_if(controls.begin(), controls.end(), [&](const Control& control) {
            return control.owner.serial == serial;
        });
        return found == controls.end() ? -1 : static_cast<int>(found - controls.begin());
    }
    int Control_At(POINT) const override { return -1; }
    Part_Place Focus() const override { return keys ? keys->Focus() : Part_Place{}; }
    bool Set_Focus(Part_Place place) override { return keys->Set_Focus(place); }
    bool Press(Part_Place place) override {
        const Control pressed = controls.at(static_cast<std::size_t>(place.control));
        const RECT area = pressed.owner.parts->Describe(*pressed.owner.control, place.part).area;
        done += " press " + pressed.name + Part_Text(place);
        window.Point_At((area.left + area.right) / 2, (area.bottom + area.top) / 2);
        if (pressed.select(EVENT_PRESS | EVENT_LEFT))
            pressed.owner.parts->Store(*pressed.owner.control, EVENT_PRESS);
        window.Point_At(-1, -1);
        pressed.select(EVENT_MOVE);
        if (on_press) on_press();
        return true;
    }
    bool Step(Part_Place place, Part_Move move) override {
        const Control& stepped = controls.at(static_cast<std::size_t>(place.control));
        if (!stepped.owner.parts->Step(*stepped.owner.control, place.part, move)) return false;
        done += " step " + stepped.name;
        return true;
    }
    bool Set_Value(Part_Place, const char*) override { return false; }

    Test_Window window{640, 400};
    std::function<void()> on_press;
    std::vector<RECT> repainted;
    std::unique_ptr<Part_Keys> keys =
        std::make_unique<Part_Keys>(*this, [this](const RECT& area) { repainted.push_back(area); });

  private:
    static std::string Part_Text(Part_Place place) {
        return place.part == Whole ? std::string() : ' ' + std::to_string(place.part);
    }
    std::vector<Control> controls;
    std::string done;
    unsigned serials = 0;
};

class Keys : public testing::Test {
  protected:
    Keys() {
        Name_Items(tabs, {"One", "Two", "Three"});
        tabs.Item[1]->Flag |= FLAG_PASSIVE;
        Show(tabs, "tabs", 0, 360, 300, 30);
        Show(label, "label", 0, 320, 60, 30);
        Show(apply, "apply", 70, 320, 60, 30);
        mute.Flag = BUTTON_LAMP;
        Show(mute, "mute", 140, 320, 60, 30);
        static constexpr const char* Extras[] = {"Grid", "Axes", "Legend", "Stamp", nullptr};
        static constexpr unsigned char Enabled[] = {0, 1, 0, 1};
        checks.List = single.List = Extras, checks.Enabled = Enabled;
        checks.Flag = CHECKLIST_ONE_COLUMN, single.Flag = CHECKLIST_ONE_COLUMN | CHECKLIST_SINGLE;
        Show(checks, "checks", 0, 200, 100, 110);
        Show(single, "single", 110, 200, 100, 110);
        Name_Items(list, {"-", "amber", "Apple", "azure", "blue", "BLACK", "brown", "cyan", "-", "-"});
        for (const int passive : {0, 8, 9})
            list.Item[passive]->Flag |= FLAG_PASSIVE;
        list.Flag = FLAG_VERTICAL, list.Current = -1;
        Show(list, "list", 220, 200, 100, 90);
        gain.Start_Val = 0, gain.End_Val = 100, gain.Val = 50;
        Show(gain, "gain", 330, 200, 100, 30);
        color.Flag = COLOR_EDIT_MODE_BUTTON;
        Show(color, "color", 440, 200, 180, 110);
        entry.Flag = TEXT_SINGLE_LINE;
        Show(entry, "entry", 0, 150, 200, 30);
        entry.Read("text");
        log.Flag = TEXT_V_BAR;
        Show(log, "log", 220, 50, 200, 130);
        Show(ok, "ok", 0, 0, 60, 30);
        Show(cancel, "cancel", 70, 0, 60, 30);
    }

    template <class Made>
    void Show(Made& control, const char* name, int x, int y, int width, int height) {
        Place(control, control.Name, x, y, width, height, control.Flag), control.Border = 2;
        control.Init(window.Window());
        control.Draw();
        window.Add(control, name);
    }

    void Start(const std::string& name, int part = Whole) {
        EXPECT_TRUE(keys.Set_Focus({window.Number(name), part}));
    }

    Keyed_Window window;
    Part_Keys& keys = *window.keys;
    Tabs tabs;
    Labels label;
    Buttons apply, mute, ok, cancel;
    CheckLists checks, single;
    Lists list;
    Valuators gain;
    Color_Edit color;
    Texts entry, log;
};

}  // namespace

TEST_F(Keys, Tab_Goes_All_Round_What_Keys_Can_Work) {
    std::vector<std::string> on, back;
    for (int i = 0; i < 11; ++i)
        on.push_back(window.After({Tab}));
    EXPECT_EQ(on, (std::vector<std::string>{"tabs 0:", "apply:", "mute:", "checks 1:", "single 0:", "list 1:",
                                            "gain:", "color 0:", "entry:", "ok:", "cancel:"}));
    for (int i = 0; i < 11; ++i)
        back.push_back(window.After({Shift | Tab}));
    std::rotate(on.begin(), on.end() - 1, on.end());
    std::reverse(on.begin() + 1, on.end());
    std::rotate(on.begin(), on.begin() + 1, on.end());
    EXPECT_EQ(back, on);

    for (int i = 0; i < 40; ++i)
        log.Write("%d", i);
    window["apply"].shown = window["mute"].enabled = false;
    checks.Flag |= FLAG_PASSIVE, gain.Width = 0, single.Value = 2, tabs.Value = 2;
    single.Adjust(), tabs.Adjust();
    list.Grow(0, 0);
    Start("tabs");
    EXPECT_EQ(window.After({Tab}), "single 2:");
    EXPECT_EQ(window.After({Tab, Tab, Tab}), "log:");
    EXPECT_EQ(window.After({Tab, Tab, Tab}), "tabs 2:");
    EXPECT_FALSE(keys.Set_Focus({window.Number("gain"), Whole}));
    EXPECT_FALSE(keys.Set_Focus({window.Number("tabs"), 1}));
    EXPECT_FALSE(keys.Set_Focus({99, Whole}));
    EXPECT_EQ(window.Focused(), "tabs 2");
    EXPECT_TRUE(keys.Set_Focus({}));
    EXPECT_EQ(window.After({Space, Down, Enter, 'a', Shift | Tab}), "cancel: no no no no");
}

TEST_F(Keys, Do_What_The_Part_Is_For) {
    struct Row {
        const char* control;
        int part;
        std::vector<int> codes;
        const char* result;
    };
    keys.Set_Default(&ok), keys.Set_Cancel(&cancel);
    const Row rows[] = {
        {"apply", Whole, {Space, Enter, Keypad | Enter}, "apply: press apply press apply press apply"},
        {"apply", Whole, {Down, Home, 'a', Control | Enter, KEY_NAVIGATION | VK_F1}, "apply: no no no no no"},
        {"apply", Whole, {Esc}, "apply: press cancel"},
        {"mute", Whole, {Space, Enter}, "mute: press mute press ok"},
        {"checks", 1, {Space, Down, Space}, "checks 3: press checks 1 press checks 3"},
        {"checks", 3, {Up, Up, Home, End, Right, Enter}, "checks 3: press ok"},
        {"single", 0, {Down, End, End}, "single 3: press single 1 press single 3"},
        {"single", 3, {Space}, "single 3: press single 3"},
        {"list", 1, {Down}, "list 2: press list 2"},
        {"list", 2, {Home, Home, Enter}, "list 1: press list 1 press ok"},
        {"list", 1, {End, Down, Shift | Page_Down}, "list 7: press list 7"},
        {"list", 7, {Page_Up, Keypad | VK_NUMPAD8}, "list 4: press list 5 press list 4"},
        {"tabs", 0, {Right, Right, Left}, "tabs 0: press tabs 2 press tabs 0"},
        {"gain",
         Whole,
         {Right, Up, Left, Down, Enter},
         "gain: step gain step gain step gain step gain press ok"},
        {"gain", Whole, {Space, '+'}, "gain: no no"},
        {"color", 0, {Down, Right, End, Up}, "color 0: step color step color"},
        {"color", 2, {Down, Down, Space, Up}, "color 2: press color 3"},
        {"entry", Whole, {Enter, Esc, Space, 'x', Left}, "entry: press ok press cancel no no no"},
    };
    for (const Row& row : rows) {
        Start(row.control, row.part);
        window.Done();
        std::string result;
        for (const int code : row.codes)
            result += window.After({code}).substr(window.Focused().size() + 1);
        EXPECT_EQ(window.Focused() + ":" + result, row.result);
    }
    EXPECT_EQ(list.Current, 4);
    ok.Flag |= FLAG_PASSIVE, window["cancel"].shown = false;
    Start("entry");
    EXPECT_EQ(window.After({Enter, Esc}), "entry: no no") << "buttons that cannot be pressed";
    Start("apply");
    EXPECT_TRUE(keys.Take(Enter, true));
    EXPECT_EQ(window.Done(), "") << "held down";
    Start("list", 1);
    EXPECT_TRUE(keys.Take(Down, true));
    EXPECT_EQ(window.Done(), " press list 2");
}

TEST_F(Keys, What_Gets_The_Keyboard_Comes_Into_View) {
    list.Current = 7;
    float before = list.Scroll_Bar.Val;
    const auto scrolled = [&] { return std::exchange(before, list.Scroll_Bar.Val) != list.Scroll_Bar.Val; };
    Start("list");
    EXPECT_EQ(window.Focused(), "list 7");
    EXPECT_FALSE(scrolled()) << "the mouse may have pressed its bar";
    Start("gain");
    EXPECT_EQ(window.After({Shift | Tab}), "list 7:");
    EXPECT_TRUE(scrolled());
    Start("list", 1);
    EXPECT_TRUE(scrolled());
    Start("list");
    EXPECT_EQ(window.Focused(), "list 1") << "it stays";
}

TEST_F(Keys, Typing_Goes_To_Names_In_Lists) {
    const std::pair<std::vector<int>, const char*> rows[] = {
        {{'b'}, "list 4"},
        {{'B'}, "list 4"},
        {{'b', 'b'}, "list 5"},
        {{'b', 'b', 'b', 'b'}, "list 4"},
        {{'b', 'l'}, "list 4"},
        {{'b', 'l', 'a'}, "list 5"},
        {{'a', 'p', 'P'}, "list 2"},
        {{'a'}, "list 2"},
        {{'a', Down, 'c'}, "list 7"},
        {{'b', 'x'}, "list 4"},
        {{'-'}, "list 1"},
        {{'c', 'y', ' '}, "list 7"},
    };
    for (const auto& [codes, wanted] : rows) {
        Start("list", 1);
        keys.Hide_Ring();  // what was typed before is over
        for (const int code : codes)
            keys.Take(code);
        EXPECT_EQ(window.Focused(), wanted);
        window.Done();
    }
    EXPECT_EQ(list.Current, 7);
}

TEST_F(Keys, Typing_Takes_Characters_Of_Several_Bytes) {
    const struct {
        unsigned page;
        const char *first, *second, *typed, *wanted;
    } rows[] = {
        {65001, "\xC3\x89 1", "\xC3\x89 2", "\xC3\xA9", "list 4"},  // a small letter finds the capital one
        {65001, "\xC3\x89 1", "\xC3\x89 2", "\xC3\xA9\xC3\xA9", "list 5"},
        {65001, "\xE6\x97\xA5 1", "\xE6\x97\xA5 2", "\xE6\x97\xA5 2", "list 5"},
        {932, "\x83\x62", "\x83\x42", "\x83\x42",
         "list 5"},  // the second bytes are letters that differ by case
        {1251, "\xCC 1", "\xCC 2", "\xEC", "list 4"},
    };
    for (const auto& row : rows) {
        const Other_Page page(row.page);
        list.Item[4]->Name = row.first, list.Item[5]->Name = row.second;
        Start("list", 1);
        keys.Hide_Ring();
        for (const char* at = row.typed; *at; ++at)
            EXPECT_TRUE(keys.Take(static_cast<unsigned char>(*at)));
        EXPECT_EQ(window.Focused(), row.wanted) << row.typed;
        window.Done();
    }
}

TEST_F(Keys, Letters_With_Alt_And_Turned_Tabs) {
    window["label"].mnemonic = 'V', window["mute"].mnemonic = 'M', window["single"].mnemonic = 'M';
    window["gain"].mnemonic = '5';
    EXPECT_EQ(window.After({Alt | 'V'}), "apply:") << "what follows the label";
    EXPECT_EQ(window.After({Alt | 'M'}), "mute: press mute");
    EXPECT_EQ(window.After({Alt | Shift | 'M'}), "single 0:");
    EXPECT_EQ(window.After({Alt | '5'}), "gain:");
    EXPECT_EQ(window.After({Alt | 'X', Control | Alt | 'M', Alt, 'M'}), "gain: no no no no");
    window["mute"].enabled = window["label"].shown = false;
    EXPECT_EQ(window.After({Alt | 'M', Alt | 'M', Alt | 'V'}), "single 0: no");

    EXPECT_EQ(window.After({Control | Tab}), "single 0: press tabs 2");
    EXPECT_EQ(window.After({Control | Page_Down, Control | Shift | Tab}),
              "single 0: press tabs 0 press tabs 2");
    Start("tabs");
    EXPECT_EQ(window.After({Control | Page_Up}), "tabs 0: press tabs 0");
    Start("gain");
    window.on_press = [&] { window["gain"].shown = false; };
    EXPECT_EQ(window.After({Control | Tab}), "tabs 2: press tabs 2")
        << "the page that had the keyboard has gone";
    window.Remove("tabs");
    EXPECT_EQ(window.After({Control | Tab}), "none: no");
}

TEST_F(Keys, What_Is_Pressed_May_Change_Everything) {
    keys.Set_Default(&apply);
    Start("apply");
    window.on_press = [&] { window.Remove("apply"); };
    EXPECT_EQ(window.After({Space}), "none: press apply");
    EXPECT_EQ(window.After({Tab}), "mute:") << "what followed it";
    EXPECT_EQ(window.After({Enter}), "mute: no") << "the default button is gone";
    window.on_press = [&] { window.Remove("mute"); };
    EXPECT_EQ(window.After({Space, Shift | Tab}), "tabs 0: press mute") << "what preceded it";
    Start("gain");
    window.Remove("checks");
    EXPECT_EQ(window.Focused(), "gain") << "it has another number now";
    window["gain"].enabled = false;
    EXPECT_EQ(window.After({Right, Space}), "none: no no");
    window["gain"].enabled = true;
    EXPECT_EQ(window.Focused(), "gain");
    Start("list", 7);
    list.Grow(3, 0);
    EXPECT_EQ(window.Focused(), "list 2");
    EXPECT_EQ(window.After({Up}), "list 1: press list 1");
    window.on_press = [&] { window.keys.reset(); };
    Start("ok");
    EXPECT_TRUE(keys.Take(Space));
    EXPECT_EQ(window.Focused(), "none");
}

TEST_F(Keys, Ring_And_Caret_Show_Where_They_Act) {
    std::vector<std::pair<int, int>> told;
    keys.Set_On_Focus([&](Part_Place place) { told.emplace_back(place.control, place.part); });
    const auto ring_at = [](const Tools& control, const Keyed_Window& of) {
        const Picture shown(of.window);
        const int x = control.Rect.right, y = (control.Rect.top + control.Rect.bottom) / 2;
        return shown.At(x, y) == 0xFFFFFF && shown.At(x + 1, y) == 0;
    };
    window.window.Refill();
    entry.Caret = CARET_AWAY;
    Start("apply");
    keys.Set_Active(true);
    EXPECT_FALSE(ring_at(apply, window)) << "no key yet";
    keys.Take(Tab);
    EXPECT_TRUE(ring_at(mute, window));
    EXPECT_TRUE(window.repainted.empty());
    Start("entry");
    EXPECT_TRUE(ring_at(entry, window));
    ASSERT_EQ(window.repainted.size(), 1U);
    EXPECT_EQ(window.repainted[0].left, mute.Rect.left - 2);
    EXPECT_EQ(window.repainted[0].top, mute.Rect.top - 2);
    EXPECT_EQ(entry.Caret, CARET_SHOWN);
    keys.Hide_Ring();
    EXPECT_EQ(window.repainted.size(), 2U);
    EXPECT_EQ(entry.Caret, CARET_SHOWN);
    keys.Set_Active(false);
    EXPECT_EQ(entry.Caret, CARET_AWAY);
    keys.Set_Active(true);
    EXPECT_EQ(entry.Caret, CARET_SHOWN);
    window.window.Refill();
    keys.Take(Shift | Tab);
    EXPECT_EQ(entry.Caret, CARET_AWAY);
    keys.Take(Tab);
    window["entry"].shown = false;
    keys.Update();
    EXPECT_EQ(entry.Caret, CARET_AWAY);
    EXPECT_EQ(window.repainted.size(), 4U);
    const int color_number = window.Number("color"), entry_number = window.Number("entry");
    EXPECT_EQ(told, (std::vector<std::pair<int, int>>{{window.Number("apply"), Whole},
                                                      {window.Number("mute"), Whole},
                                                      {entry_number, Whole},
                                                      {color_number, 0},
                                                      {entry_number, Whole},
                                                      {-1, Whole}}));

    Keyed_Window lonely;
    lonely.Add(apply, "apply");
    lonely.keys->Set_Active(true);
    EXPECT_EQ(lonely.After({Tab, Tab}), "apply: no") << "nowhere to go";
    EXPECT_TRUE(ring_at(apply, lonely));
}

namespace {

/// Items without end, which count how often they are asked.
class Counting_Parts final : public Class_Parts {
  public:
    const char* Name() const override { return "Counting"; }
    int Count(const Tools&) const override { return 20'000; }
    Part Describe(const Tools&, int) const override {
        ++asked;
        Part part;
        part.role = Part_Role::List_Item, part.use = use, part.name = "a";
        return part;
    }
    mutable int asked = 0;
    Part_Use use = Part_Use::Choose;
};

}  // namespace

TEST(Many_Keys, Ask_For_Few_Parts) {
    Keyed_Window window;
    Boxs item;
    item.Width = item.Height = 10;
    item.Init(window.Window());
    const Counting_Parts parts;
    for (int i = 0; i < 2; ++i)
        window.Add(item, "items").parts = &parts;
    EXPECT_TRUE(window.keys->Take(Tab));
    for (const int code : {Tab, Down, End, Page_Up, Space, int{'a'}}) {
        EXPECT_TRUE(window.keys->Take(code));
        EXPECT_LT(std::exchange(parts.asked, 0), 20) << code;
    }

    Keyed_Window crowd;
    std::vector<Boxs> boxes(20'000);
    EXPECT_EQ(crowd.After({Tab, Shift | Tab, Alt | 'A', Control | Tab, Enter, Esc, Down}),
              "none: no no no no no no no")
        << "no controls at all";
    for (Boxs& box : boxes)
        crowd.Add(box, "box");
    EXPECT_EQ(crowd.After({Tab, Shift | Tab, Alt | 'A', Control | Tab, Enter, Esc, Down}),
              "none: no no no no no no no")
        << "none for keys";
}
