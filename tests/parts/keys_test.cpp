// What each key does in a window with controls.
#include <algorithm>
#include <functional>
#include <map>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include "tests/support/code_page.h"
#include "tests/support/controls.h"
#include "tests/support/hosted.h"

using namespace galdren_test;

namespace {

constexpr int Shift = KEY_SHIFT, Control = KEY_CONTROL, Alt = KEY_ALT, Keypad = KEY_KEYPAD;
constexpr int Left = KEY_NAVIGATION | VK_LEFT, Right = KEY_NAVIGATION | VK_RIGHT, Up = KEY_NAVIGATION | VK_UP;
constexpr int Down = KEY_NAVIGATION | VK_DOWN, Home = KEY_NAVIGATION | VK_HOME, End = KEY_NAVIGATION | VK_END;
constexpr int Page_Up = KEY_NAVIGATION | VK_PRIOR, Page_Down = KEY_NAVIGATION | VK_NEXT;
constexpr int Tab = VK_TAB, Enter = VK_RETURN, Esc = VK_ESCAPE, Space = VK_SPACE;
constexpr int F1 = KEY_NAVIGATION | VK_F1;

/// A window whose handlers write down what keys do.
class Keys : public testing::Test, protected Hosted_Window {
  protected:
    Keys() : Hosted_Window(640, 400) {
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
        Painted();
    }

    template <class Made>
    void Show(Made& control, const char* name, int x, int y, int width, int height) {
        Place(control, control.Name, x, y, width, height, control.Flag), control.Border = 2;
        names[&control] = name;
        if constexpr (std::is_same_v<Made, Texts>) {
            host->Add(control);
        } else {
            host->Add(control, [this](Made& told, const Host_Event& event) { Note(told, event); });
        }
        control.Init(window);
    }
    void Note(const Tools& told, const Host_Event& event) {
        done += (event.kind == Host_Event::Press ? " press " : " step ") + names[&told];
        const bool is_item = &told == &checks || &told == &single || &told == &list;
        if (is_item) done += ' ' + std::to_string(host->Parts().Focus().part);
        if (&told == &tabs) done += ' ' + std::to_string(tabs.Value);
        if (on_press) on_press();
    }
    int Number(const Tools& control) {
        int number = 0;
        while (host->Parts().Owner(number).control != &control)
            ++number;
        return number;
    }
    /// The part that has the keyboard, such as "list 3".
    std::string Focused() {
        const Part_Place place = host ? host->Parts().Focus() : Part_Place{};
        if (place.control < 0) return "none";
        const std::string name = names[host->Parts().Owner(place.control).control];
        return place.part == Whole ? name : name + ' ' + std::to_string(place.part);
    }
    bool Can_Start(const Tools& control, int part = Whole) {
        return host->Parts().Set_Focus({Number(control), part});
    }
    void Start(const Tools& control, int part = Whole) { EXPECT_TRUE(Can_Start(control, part)); }

    /// Sends the messages of a key.
    /// @return whether it meant anything
    bool Take(int code, bool repeated = false) {
        const int held = code & (Shift | Control | Alt);
        const auto key = static_cast<WPARAM>(code & 0xFF);
        const bool is_character = code == Esc || (code >= Space && code <= 0xFF);
        const bool is_extended = (code & KEY_NAVIGATION && code != F1) || code == (Keypad | Enter);
        const UINT message = is_character ? WM_CHAR : held & Alt ? WM_SYSKEYDOWN : WM_KEYDOWN;
        Hold_Keys(held);
        const bool taken =
            host->Message(message, key, (is_extended ? 1 << 24 : 0) | (repeated ? 1 << 30 : 0), result);
        if (host && (key == VK_TAB || key == VK_RETURN)) Send(WM_CHAR, key);  // which nobody needs any more
        Hold_Keys(0);
        return taken;
    }
    /// Takes keys, and tells where the keyboard is then and what was done.
    std::string After(std::initializer_list<int> codes) {
        for (const int code : codes)
            if (!Take(code)) done += " no";
        return Focused() + ":" + std::exchange(done, {});
    }

    std::map<const Tools*, std::string> names;
    std::string done;
    std::function<void()> on_press;
    Tabs tabs;
    Labels label;
    Buttons apply, mute, ok, cancel;
    CheckLists checks, single;
    Lists list;
    Valuators gain;
    Color_Edit color;
    Texts entry, log;
};

TEST_F(Keys, Tab_Goes_All_Round_What_Keys_Can_Work) {
    std::vector<std::string> on, back;
    for (int i = 0; i < 11; ++i)
        on.push_back(After({Tab}));
    EXPECT_EQ(on, (std::vector<std::string>{"tabs 0:", "apply:", "mute:", "checks 1:", "single 0:", "list 1:",
                                            "gain:", "color 0:", "entry:", "ok:", "cancel:"}));
    for (int i = 0; i < 11; ++i)
        back.push_back(After({Shift | Tab}));
    std::reverse(on.begin(), on.end() - 1);
    EXPECT_EQ(back, on);

    for (int i = 0; i < 40; ++i)
        log.Write("%d", i);
    host->Set_Shown(apply, false), host->Set_Enabled(mute, false);
    checks.Flag |= FLAG_PASSIVE, gain.Width = 0, single.Value = 2, tabs.Value = 2;
    single.Adjust(), tabs.Adjust();
    list.Grow(0, 0);
    Start(tabs);
    EXPECT_EQ(After({Tab}), "single 2:");
    EXPECT_EQ(After({Tab, Tab, Tab}), "log:");
    EXPECT_EQ(After({Tab, Tab, Tab}), "tabs 2:");
    EXPECT_FALSE(Can_Start(gain) || Can_Start(tabs, 1) || host->Parts().Set_Focus({99}));
    EXPECT_EQ(Focused(), "tabs 2");
    EXPECT_TRUE(host->Parts().Set_Focus({}));
    EXPECT_EQ(After({Space, Down, Enter, 'a', Shift | Tab}), "cancel: no no no no");
}

TEST_F(Keys, Do_What_The_Part_Is_For) {
    struct Row {
        const Tools& control;
        int part;
        std::vector<int> codes;
        const char* result;
    };
    host->Set_Default(&ok), host->Set_Cancel(&cancel);
    const Row rows[] = {
        {apply, Whole, {Space, Enter, Keypad | Enter}, "apply: press apply press apply press apply"},
        {apply, Whole, {Down, Home, 'a', Control | Enter, F1}, "apply: no no no no no"},
        {apply, Whole, {Esc}, "apply: press cancel"},
        {mute, Whole, {Space, Enter}, "mute: press mute press ok"},
        {checks, 1, {Space, Down, Space}, "checks 3: press checks 1 press checks 3"},
        {checks, 3, {Up, Up, Home, End, Right, Enter}, "checks 3: press ok"},
        {single, 0, {Down, End, End}, "single 3: press single 1 press single 3"},
        {single, 3, {Space}, "single 3: press single 3"},
        {list, 1, {Down}, "list 2: press list 2"},
        {list, 2, {Home, Home, Enter}, "list 1: press list 1 press ok"},
        {list, 1, {End, Down, Shift | Page_Down}, "list 7: press list 7"},
        {list, 7, {Page_Up, Keypad | VK_UP}, "list 4: press list 5 press list 4"},
        {tabs, 0, {Right, Right, Left}, "tabs 0: press tabs 2 press tabs 0"},
        {gain,
         Whole,
         {Right, Up, Left, Down, Enter},
         "gain: step gain step gain step gain step gain press ok"},
        {gain, Whole, {Space, '+'}, "gain: no no"},
        {color, 0, {Down, Right, End, Up}, "color 0: step color step color"},
        {color, 2, {Down, Down, Up}, "color 2:"},
        {color, 3, {Space, Space}, "color 3:"},  // the other mode, and back: nothing that is told
        {entry, Whole, {Enter, Esc, Space, 'x', Left}, "entry: press ok press cancel"},
    };
    for (const Row& row : rows) {
        Start(row.control, row.part);
        done.clear();
        for (const int code : row.codes)
            if (!Take(code)) done += " no";
        EXPECT_EQ(After({}), row.result);
    }
    EXPECT_EQ(list.Current, 4);
    EXPECT_STREQ(entry.Line, "text x");
    ok.Flag |= FLAG_PASSIVE, host->Set_Shown(cancel, false);
    Start(mute);
    EXPECT_EQ(After({Enter, Esc}), "mute: no no") << "buttons that cannot be pressed";
    Start(apply);
    EXPECT_TRUE(Take(Enter, true));
    EXPECT_EQ(After({}), "apply:") << "held down";
    Start(list, 1);
    EXPECT_TRUE(Take(Down, true));
    EXPECT_EQ(After({}), "list 2: press list 2");
}

TEST_F(Keys, What_Gets_The_Keyboard_Comes_Into_View) {
    list.Current = 7;
    float before = list.Scroll_Bar.Val;
    const auto scrolled = [&] { return std::exchange(before, list.Scroll_Bar.Val) != list.Scroll_Bar.Val; };
    Start(list);
    EXPECT_EQ(Focused(), "list 7");
    EXPECT_FALSE(scrolled()) << "the mouse may have pressed its bar";
    Start(gain);
    EXPECT_EQ(After({Shift | Tab}), "list 7:");
    EXPECT_TRUE(scrolled());
    Start(list, 1);
    EXPECT_TRUE(scrolled());
    Start(list);
    EXPECT_EQ(Focused(), "list 1") << "it stays";
}

TEST_F(Keys, Typing_Goes_To_Names_In_Lists) {
    const struct {
        unsigned page;
        const char *fourth, *fifth;
        std::vector<int> codes;
        const char* wanted;
    } rows[] = {
        {0, "blue", "BLACK", {'b'}, "list 4"},
        {0, "blue", "BLACK", {'B'}, "list 4"},
        {0, "blue", "BLACK", {'b', 'b'}, "list 5"},
        {0, "blue", "BLACK", {'b', 'b', 'b', 'b'}, "list 4"},
        {0, "blue", "BLACK", {'b', 'l'}, "list 4"},
        {0, "blue", "BLACK", {'b', 'l', 'a'}, "list 5"},
        {0, "blue", "BLACK", {'a', 'p', 'P'}, "list 2"},
        {0, "blue", "BLACK", {'a', Down, 'c'}, "list 7"},
        {0, "blue", "BLACK", {'b', 'x'}, "list 4"},
        {0, "blue", "BLACK", {'-'}, "list 1"},
        {0, "blue", "BLACK", {'c', 'y', ' '}, "list 7"},
        // A small letter finds the capital one.
        {65001, "\xC3\x89 1", "\xC3\x89 2", {0xC3, 0xA9}, "list 4"},
        {65001, "\xC3\x89 1", "\xC3\x89 2", {0xC3, 0xA9, 0xC3, 0xA9}, "list 5"},
        // The second bytes are letters that differ by case.
        {932, "\x83\x62", "\x83\x42", {0x83, 0x42}, "list 5"},
    };
    for (const auto& row : rows) {
        const Other_Page page(row.page);
        list.Item[4]->Name = row.fourth, list.Item[5]->Name = row.fifth;
        Start(list, 1);
        Take(F1);  // what was typed before is over
        for (const int code : row.codes)
            Take(code);
        EXPECT_EQ(Focused(), row.wanted) << &row - rows;
    }
    EXPECT_EQ(list.Current, 5);
}

TEST_F(Keys, Letters_With_Alt_And_Turned_Tabs) {
    host->Set_Mnemonic(label, 'V'), host->Set_Mnemonic(mute, 'M'), host->Set_Mnemonic(single, 'M');
    host->Set_Mnemonic(gain, '5');
    EXPECT_EQ(After({Alt | 'V'}), "apply:") << "what follows the label";
    EXPECT_EQ(After({Alt | 'M'}), "mute: press mute");
    EXPECT_EQ(After({Alt | Shift | 'M'}), "single 0:");
    EXPECT_EQ(After({Alt | '5'}), "gain:");
    EXPECT_EQ(After({Alt | 'X', Control | Alt | 'M', 'M'}), "gain: no no no");
    host->Set_Enabled(mute, false), host->Set_Shown(label, false);
    EXPECT_EQ(After({Alt | 'M', Alt | 'M', Alt | 'V'}), "single 0: no");

    EXPECT_EQ(After({Control | Tab}), "single 0: press tabs 2");
    EXPECT_EQ(After({Control | Page_Down, Control | Shift | Tab}), "single 0: press tabs 0 press tabs 2");
    Start(tabs);
    EXPECT_EQ(After({Control | Page_Up}), "tabs 0: press tabs 0");
    Start(gain);
    on_press = [&] { host->Set_Shown(gain, false); };
    EXPECT_EQ(After({Control | Tab}), "tabs 2: press tabs 2") << "the page that had the keyboard has gone";
    host->Remove(tabs);
    EXPECT_EQ(After({Control | Tab}), "none: no");
}

TEST_F(Keys, What_Is_Pressed_May_Change_Everything) {
    host->Set_Default(&apply);
    Start(apply);
    on_press = [&] { host->Remove(apply); };
    EXPECT_EQ(After({Space}), "none: press apply");
    EXPECT_EQ(After({Tab}), "mute:") << "what followed it";
    EXPECT_EQ(After({Enter}), "mute: no") << "the default button is gone";
    on_press = [&] { host->Remove(mute); };
    EXPECT_EQ(After({Space, Shift | Tab}), "tabs 0: press mute") << "what preceded it";
    Start(gain);
    host->Remove(checks);
    EXPECT_EQ(Focused(), "gain") << "it has another number now";
    host->Set_Enabled(gain, false);
    EXPECT_EQ(After({Right, Space}), "none: no no");
    host->Set_Enabled(gain, true);
    EXPECT_EQ(Focused(), "gain");
    Start(list, 7);
    list.Grow(3, 0);
    EXPECT_EQ(Focused(), "list 2");
    EXPECT_EQ(After({Up}), "list 1: press list 1");
    on_press = [&] { host.reset(); };
    Start(ok);
    EXPECT_TRUE(Take(Space));
    EXPECT_FALSE(host);
}

TEST_F(Keys, Ring_And_Caret_Show_Where_They_Act) {
    const auto has_ring = [this](const Tools& control) {
        const Picture shown = Painted();
        const int x = control.Rect.right, y = (control.Rect.top + control.Rect.bottom) / 2;
        return shown.At(x, y) == 0xFFFFFF && shown.At(x + 1, y) == 0;
    };
    entry.Caret = CARET_AWAY;
    Start(apply);
    Send(WM_SETFOCUS);
    EXPECT_FALSE(has_ring(apply)) << "no key yet";
    Take(Tab);
    EXPECT_TRUE(has_ring(mute));
    Start(entry);
    EXPECT_TRUE(has_ring(entry));
    EXPECT_FALSE(has_ring(mute));
    EXPECT_EQ(entry.Caret, CARET_SHOWN);
    Click({5, 5});  // on a button: the ring goes, and the keyboard with it
    EXPECT_FALSE(has_ring(ok));
    EXPECT_EQ(entry.Caret, CARET_AWAY);
    Start(entry);
    Send(WM_KILLFOCUS);
    EXPECT_EQ(entry.Caret, CARET_AWAY);
    Send(WM_SETFOCUS);
    EXPECT_EQ(entry.Caret, CARET_SHOWN);
    host->Set_Shown(entry, false);
    EXPECT_EQ(entry.Caret, CARET_AWAY);
    host->Set_Scale(200);
    Start(cancel);
    Take(Shift | Tab);
    const Picture thick = Painted();
    EXPECT_EQ(thick.At(ok.Rect.right + 1, 9), 0xFFFFFFu);
    EXPECT_EQ(thick.At(ok.Rect.right + 3, 9), 0u);
}

TEST_F(Keys, Are_Nobodys_Where_No_Control_Is_Worked_By_Them) {
    const auto codes = {Tab, Shift | Tab, Alt | 'A', Control | Tab, Enter, Esc, Down};
    host->Clear();
    EXPECT_EQ(After(codes), "none: no no no no no no no");
    host->Add(label);
    EXPECT_EQ(After(codes), "none: no no no no no no no");
    host->Add(apply);
    EXPECT_EQ(After({Tab, Tab}), "apply: no") << "nowhere else to go";
}

}  // namespace
