// Screen readers: what they are answered about a window, what they can do there, and what they are told.
#include "parts/access.h"

#include <atomic>
#include <cstdio>
#include <cstring>
#include <functional>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#include "parts/access_object.h"
#include "parts/classes.h"
#include "tests/support/controls.h"
#include "tests/support/reader.h"
#include "tests/support/window.h"

namespace galdren_test {
namespace {

constexpr int Width = 500;
constexpr int Height = 300;

/// The controls of a window. It writes down what is to be done to them.
class Panel final : public Part_Window {
  public:
    explicit Panel(HWND shown_in) : window(shown_in) {}

    template <class Control>
    Part_Owner& Add(Control& control) {
        owners.push_back({&control, &Parts_Of(&control), nullptr, 0, ++last_serial, true, true});
        return owners.back();
    }
    void Remove(int number) { owners.erase(owners.begin() + number); }

    HWND Window() const override { return window; }
    int Count() const override { return static_cast<int>(owners.size()); }
    Part_Owner Owner(int number) const override { return owners.at(static_cast<std::size_t>(number)); }
    int Number_Of(unsigned serial) const override {
        for (int number = 0; number < Count(); ++number)
            if (Owner(number).serial == serial) return number;
        return -1;
    }
    int Control_At(POINT place) const override {
        for (int number = Count() - 1; number >= 0; --number)
            if (Owner(number).shown && PtInRect(&Owner(number).control->Rect, place)) return number;
        return -1;
    }
    Part_Place Focus() const override { return focus; }
    bool Set_Focus(Part_Place place) override {
        if (!Owner(place.control).enabled) return false;
        focus = place;
        return true;
    }
    bool Press(Part_Place place) override {
        log += "press " + std::to_string(place.control) + '.' + std::to_string(place.part) + ' ';
        if (on_press) on_press();
        return true;
    }
    bool Step(Part_Place, Part_Move) override { return false; }
    bool Set_Value(Part_Place place, const char* text) override {
        const Part_Owner owner = Owner(place.control);
        return owner.parts->Set_Value(*owner.control, place.part, text);
    }

    HWND window;
    std::vector<Part_Owner> owners;
    unsigned last_serial = 0;
    Part_Place focus;
    std::string log;
    std::function<void()> on_press;
};

/// A window that screen readers are served in.
class Served_Window {
  public:
    explicit Served_Window(LONG_PTR style = 0) {
        SetWindowLongPtrA(window, GWL_EXSTYLE, GetWindowLongPtrA(window, GWL_EXSTYLE) | style);
        SetWindowTextA(window, "Panel");
        SetWindowLongPtrA(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
        SetWindowLongPtrA(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&Receive));
    }
    ~Served_Window() { window.Close(); }

    template <class Control>
    Part_Owner& Add(Control& control, const char* name, int x, int y, int width, int height,
                    unsigned long flag = 0) {
        Place(control, name, x, y, width, height, flag);
        control.Init(window);
        return panel.Add(control);
    }

    Test_Window window{Width, Height};
    Panel panel{window};
    std::unique_ptr<Access> access = std::make_unique<Access>(panel);

  private:
    static LRESULT CALLBACK Receive(HWND window, UINT message, WPARAM wparam, LPARAM lparam) {
        auto& self = *reinterpret_cast<Served_Window*>(GetWindowLongPtrA(window, GWLP_USERDATA));
        LRESULT result = 0;
        if (self.access && self.access->Message(message, wparam, lparam, result)) return result;
        return DefWindowProcA(window, message, wparam, lparam);
    }
};

/// Two rows, of which the first is an open branch.
class Tree_Stub final : public Class_Parts {
  public:
    const char* Name() const override { return "Tree"; }
    int Count(const Tools&) const override { return 2; }
    Part Describe(const Tools& control, int part) const override {
        Part row;
        row.role = part == Whole ? Part_Role::Tree : Part_Role::Tree_Row;
        row.area = control.Rect;
        row.name = "Files";
        if (part == Whole) return row;
        row.use = Part_Use::Choose;
        row.name = part ? "src" : "C:";
        row.state = part ? PART_CLOSED : PART_OPEN | PART_CHOSEN;
        row.level = part + 1;
        row.area.top += part ? 0 : 20;
        row.area.bottom = row.area.top + 20;
        return row;
    }
};

/// A window with parts of most roles.
class Full_Window : public Served_Window {
  public:
    explicit Full_Window(LONG_PTR style = 0) : Served_Window(style) {
        Add(box, nullptr, 5, 5, 240, 98, FLAG_STATIC).description = "Options";
        Add(apply, "Apply", 10, 10, 80, 24).mnemonic = 'A';
        Add(keep, "Keep \xE9", 100, 10, 80, 24, BUTTON_LAMP);
        Add(locked, "Locked", 190, 10, 50, 24, FLAG_PASSIVE);
        Add(title, "Title", 10, 40, 80, 24);
        Add(entry, nullptr, 100, 40, 120, 24, TEXT_SINGLE_LINE);
        Add(secret, "Key", 10, 70, 120, 24, TEXT_SINGLE_LINE | TEXT_PASSWORD);
        options.List = option_names;
        Add(options, "Show", 10, 110, 100, 60);
        Name_Items(formats, {"PNG", "JPEG", "TIFF", "Targa"});
        formats.Current = 1;
        formats.Item_Height = 26;
        Add(formats, "Formats", 250, 10, 100, 100, FLAG_VERTICAL);
        formats.Draw();
        Name_Items(selector, {"PNG", "JPEG", "TIFF"});
        Add(selector, "Unit", 360, 10, 120, 24);
        depth.End_Val = 100, depth.Val = 40, depth.Num_Width = 40, depth.Format = "%.0f %%";
        Add(depth, "Depth", 360, 70, 120, 24);
        Add(hidden, "Hidden", 360, 100, 60, 24).shown = false;
        Add(disabled, "Disabled", 430, 100, 60, 24).enabled = false;
        Add(tree, "Files", 130, 130, 100, 60).parts = &tree_parts;
        entry.Read("%s", "abc");
        secret.Read("%s", "letmein");
        keep.Value = 1;
    }

    const char* option_names[3] = {"Grid", "Ruler", nullptr};
    Boxs box, tree;
    Buttons apply, keep, locked, hidden, disabled;
    Labels title;
    Texts entry, secret;
    CheckLists options;
    Lists formats;
    Selects selector;
    Valuators depth;
    const Tree_Stub tree_parts;
};

/// Numbers of the children of a full window.
enum Child { Box = 1, Apply, Keep, Locked, Title, Entry, Secret, Options, Formats, Unit, Depth, Hidden };

TEST(Access, Tells_What_A_Window_Is_Made_Of) {
    Full_Window served;
    EXPECT_EQ(Read_Aloud(Spoken(served.window)),
              "Panel: client, focusable\n"
              "  Options: pane\n"
              "  Apply: push button, focusable (Press)\n"
              "  Keep \xC3\xA9: check button, checked, focusable (Uncheck)\n"
              "  Locked: push button, unavailable\n"
              "  Title: static text, read only\n"
              "  Title: text, focusable = abc\n"
              "  Key: text, focusable, protected = 80070005\n"
              "  Show: grouping, focusable\n"
              "    Grid: check button, focusable (Check)\n"
              "    Ruler: check button, focusable (Check)\n"
              "  Formats: list, focusable = JPEG\n"
              "    PNG: list item, focusable, selectable (Select)\n"
              "    JPEG: list item, selected, focusable, selectable (Select)\n"
              "    TIFF: list item, offscreen, focusable, selectable (Select)\n"
              "    Targa: list item, offscreen, focusable, selectable (Select)\n"
              "  Unit: spin box, focusable = PNG\n"
              "  Depth: slider, focusable = 40 %\n"
              "  Hidden: push button, invisible\n"
              "  Disabled: push button, unavailable\n"
              "  Files: outline, focusable\n"
              "    C:: outline item, selected, expanded, focusable, selectable = 0 (Close)\n"
              "    src: outline item, collapsed, focusable, selectable = 1 (Open)\n");
    const Spoken root(served.window);
    EXPECT_EQ(root.Child(Apply).Shortcut(), "Alt+A");
    EXPECT_EQ(root.Child(Keep).Shortcut(), "80020003");
}

/// Calls `visit(parent, child)` for all below an object.
void For_All_Below(const Spoken& parent, const std::function<void(const Spoken&, const Spoken&)>& visit) {
    for (long number = 1; number <= parent.Count(); ++number) {
        const Spoken child = parent.Child(number);
        visit(parent, child);
        For_All_Below(child, visit);
    }
}

bool Is_Inside(const RECT& inner, const RECT& outer) {
    return inner.left >= outer.left && inner.top >= outer.top && inner.right <= outer.right &&
           inner.bottom <= outer.bottom;
}

TEST(Access, Finds_Every_Part_Where_It_Says_It_Is) {
    for (const long style : {0L, WS_EX_LAYOUTRTL}) {
        Full_Window served(style);
        RECT frame;
        GetWindowRect(served.window, &frame);
        const Spoken root(served.window);
        const RECT apply = root.Child(Apply).Place();
        EXPECT_EQ(apply.left, frame.left + served.apply.X);
        EXPECT_EQ(frame.bottom - apply.bottom, served.apply.Y);
        int found = 0;
        For_All_Below(root, [&](const Spoken& parent, const Spoken& child) {
            const RECT place = child.Place();
            EXPECT_EQ(IsRectEmpty(&place) != 0, (child.State() & STATE_SYSTEM_OFFSCREEN) != 0);
            if (child.State() & (STATE_SYSTEM_OFFSCREEN | STATE_SYSTEM_INVISIBLE)) return;
            EXPECT_TRUE(Is_Inside(place, parent.Place())) << child.Line();
            // In the middle of a control with parts there may be one of these.
            if (child.Count() > 0 || child.Role() == ROLE_SYSTEM_PANE) return;
            EXPECT_EQ(root.At(child.Middle()).Line(), child.Line());
            ++found;
        });
        EXPECT_EQ(found, 15);
    }
    Full_Window served;
    const Spoken list = Spoken(served.window).Child(Formats);
    EXPECT_EQ(Found_At(list.Child(2).Middle()).Name(), "JPEG");
    const Spoken root(served.window);
    const RECT button = root.Child(Hidden + 1).Place();
    EXPECT_EQ(root.At({button.left, button.top}).Name(), "Disabled");
    EXPECT_EQ(root.At({button.left, button.top - 1}).Name(), "Panel");
    EXPECT_EQ(root.At({button.right - 1, button.bottom - 1}).Name(), "Disabled");
    EXPECT_EQ(root.At({button.right, button.bottom - 1}).Name(), "Panel");
}

TEST(Access, Presses_What_Can_Be_Pressed) {
    Full_Window served;
    const Spoken root(served.window);
    std::string wanted;
    For_All_Below(root, [&](const Spoken&, const Spoken& child) {
        EXPECT_EQ(child.Act(), child.Action() == "80020003" ? DISP_E_MEMBERNOTFOUND : S_OK) << child.Line();
    });
    EXPECT_EQ(served.panel.log, "") << "a press may open a dialog, and is not waited for";
    Pump();
    EXPECT_EQ(served.panel.log,
              "press 1.-1 press 2.-1 press 7.0 press 7.1 press 8.0 press 8.1 press 8.2 press 8.3 "
              "press 13.0 press 13.1 ");

    served.panel.log.clear();
    const Spoken item = root.Child(Formats).Child(2);
    ASSERT_EQ(item.Act(), S_OK);
    ASSERT_EQ(root.Child(Apply).Act(), S_OK);
    served.panel.Remove(Formats - 1);
    served.panel.Remove(Box - 1);
    Pump();
    EXPECT_EQ(served.panel.log, "press 0.-1 ") << "the list is gone, the button has another number";
}

TEST(Access, Sets_Values_That_Fit) {
    Full_Window served;
    const Spoken root(served.window);
    const struct {
        Child child;
        const wchar_t* text;
        HRESULT wanted;
        const char* value;
    } rows[] = {
        {Depth, L"75", S_OK, "75 %"},
        {Depth, L"abc", E_INVALIDARG, "75 %"},
        {Depth, L"", E_INVALIDARG, "75 %"},
        {Unit, L"TIFF", S_OK, "TIFF"},
        {Unit, L"tiff", E_INVALIDARG, "TIFF"},
        {Entry, L"d\u00E9j\u00E0", S_OK, "d\xC3\xA9j\xC3\xA0"},
        {Entry, L"\u65E5", E_INVALIDARG, "d\xC3\xA9j\xC3\xA0"},
        {Entry, L"", S_OK, ""},
        {Secret, L"other", S_OK, "80070005"},
        {Formats, L"PNG", S_OK, "PNG"},
        {Apply, L"1", DISP_E_MEMBERNOTFOUND, "80020003"},
        {Locked, L"1", E_ACCESSDENIED, "80020003"},
        {Hidden, L"1", E_ACCESSDENIED, "80020003"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(root.Child(row.child).Set_Value(row.text), row.wanted) << row.child << " " << row.value;
        EXPECT_EQ(root.Child(row.child).Value(), row.value);
    }
    EXPECT_STREQ(served.secret.Line, "other");
    Set_Text_Code_Page(CP_UTF8);
    EXPECT_EQ(root.Child(Entry).Set_Value(L"\u65E5\u0301\U0001F600"), S_OK);
    EXPECT_EQ(root.Child(Entry).Value(), "\xE6\x97\xA5\xCC\x81\xF0\x9F\x98\x80");
    Set_Text_Code_Page(0);
    EXPECT_EQ(root.Child(Depth)->put_accValue(Number(CHILDID_SELF), nullptr), DISP_E_MEMBERNOTFOUND);
}

TEST(Access, Moves_Focus_And_Selection) {
    Full_Window served;
    const Spoken root(served.window);
    const Spoken list = root.Child(Formats);
    const auto focus = [](const Spoken& object) {
        VARIANT answer;
        object->get_accFocus(&answer);
        const Spoken found = object.Named(answer);
        return found ? found.Name() : "none";
    };
    SetFocus(nullptr);
    EXPECT_EQ(focus(root), "none");
    EXPECT_EQ(root->accSelect(SELFLAG_TAKEFOCUS, Number(Apply)), S_OK);
    EXPECT_EQ(GetFocus(), served.window);
    EXPECT_EQ(focus(root), "Apply");
    EXPECT_TRUE(root.Child(Apply).State() & STATE_SYSTEM_FOCUSED);
    EXPECT_EQ(focus(list), "none");

    EXPECT_EQ(list->accSelect(SELFLAG_TAKEFOCUS | SELFLAG_TAKESELECTION, Number(3)), S_OK);
    EXPECT_EQ(focus(root), "Formats");
    EXPECT_EQ(focus(list), "TIFF");
    EXPECT_EQ(served.panel.log, "press 8.2 ");
    VARIANT chosen;
    EXPECT_EQ(list->get_accSelection(&chosen), S_OK);
    EXPECT_EQ(list.Named(chosen).Name(), "JPEG");
    EXPECT_EQ(root->get_accSelection(&chosen), S_FALSE);
    EXPECT_EQ(chosen.vt, VT_EMPTY);

    for (const long flags : {0, SELFLAG_ADDSELECTION, SELFLAG_TAKEFOCUS | SELFLAG_EXTENDSELECTION, -1})
        EXPECT_EQ(list->accSelect(flags, Number(1)), E_INVALIDARG) << flags;
    EXPECT_EQ(root->accSelect(SELFLAG_TAKESELECTION, Number(Apply)), E_INVALIDARG);
    EXPECT_EQ(root->accSelect(SELFLAG_TAKEFOCUS, Number(Hidden + 1)), E_INVALIDARG);
}

TEST(Access, Goes_From_Part_To_Part) {
    Full_Window served;
    const Spoken root(served.window);
    const Spoken list = root.Child(Formats);
    const struct {
        const Spoken* from;
        long child;
        long direction;
        const char* wanted;
    } rows[] = {
        {&root, CHILDID_SELF, NAVDIR_FIRSTCHILD, "Options"},
        {&root, CHILDID_SELF, NAVDIR_LASTCHILD, "Files"},
        {&root, CHILDID_SELF, NAVDIR_NEXT, "none"},
        {&root, Apply, NAVDIR_NEXT, "Keep \xC3\xA9"},
        {&root, Options, NAVDIR_NEXT, "Formats"},
        {&root, Box, NAVDIR_PREVIOUS, "none"},
        {&root, Apply, NAVDIR_FIRSTCHILD, "none"},
        {&list, CHILDID_SELF, NAVDIR_LASTCHILD, "Targa"},
        {&list, CHILDID_SELF, NAVDIR_PREVIOUS, "Show"},
        {&list, 4, NAVDIR_NEXT, "none"},
        {&list, 2, NAVDIR_DOWN, "TIFF"},
        {&list, 1, NAVDIR_UP, "none"},
    };
    for (const auto& row : rows) {
        VARIANT answer;
        const HRESULT result = (*row.from)->accNavigate(row.direction, Number(row.child), &answer);
        const Spoken there = row.from->Named(answer);
        EXPECT_EQ(there ? there.Name() : "none", row.wanted) << row.child << " to " << row.direction;
        EXPECT_EQ(result, there ? S_OK : S_FALSE);
    }
    IDispatch* parent = nullptr;
    ASSERT_EQ(list->get_accParent(&parent), S_OK);
    const Held<IDispatch> kept(parent);
    EXPECT_EQ(parent, root.operator->()) << "one object for each thing, however it is found";
    VARIANT answer;
    EXPECT_EQ(root->accNavigate(99, Number(1), &answer), E_INVALIDARG);
}

/// The questions of an object whose answer is another than `wanted`. All of them take a child, but those at
/// the end.
std::string Answers_Other_Than(HRESULT wanted, IAccessible& object, VARIANT child, bool all) {
    BSTR text = nullptr;
    VARIANT variant;
    IDispatch* dispatch = nullptr;
    long a = 0, b = 0, c = 0, d = 0;
    const std::pair<const char*, HRESULT> answers[] = {
        {"child", object.get_accChild(child, &dispatch)},
        {"name", object.get_accName(child, &text)},
        {"value", object.get_accValue(child, &text)},
        {"description", object.get_accDescription(child, &text)},
        {"role", object.get_accRole(child, &variant)},
        {"state", object.get_accState(child, &variant)},
        {"help", object.get_accHelp(child, &text)},
        {"topic", object.get_accHelpTopic(&text, child, &a)},
        {"shortcut", object.get_accKeyboardShortcut(child, &text)},
        {"action", object.get_accDefaultAction(child, &text)},
        {"select", object.accSelect(SELFLAG_TAKEFOCUS, child)},
        {"location", object.accLocation(&a, &b, &c, &d, child)},
        {"navigate", object.accNavigate(NAVDIR_NEXT, child, &variant)},
        {"act", object.accDoDefaultAction(child)},
        {"set value", object.put_accValue(child, nullptr)},
        {"count", all ? object.get_accChildCount(&a) : wanted},
        {"parent", all ? object.get_accParent(&dispatch) : wanted},
        {"focus", all ? object.get_accFocus(&variant) : wanted},
        {"selection", all ? object.get_accSelection(&variant) : wanted},
        {"hit", all ? object.accHitTest(0, 0, &variant) : wanted},
    };
    std::string others;
    for (const auto& [question, answer] : answers)
        if (answer != wanted) others += std::string(question) + ' ';
    EXPECT_TRUE(!text && !dispatch);
    return others;
}

TEST(Access, Refuses_Children_That_Do_Not_Exist) {
    Full_Window served;
    const Spoken root(served.window);
    const Spoken list = root.Child(Formats);
    for (const Spoken* object : {&root, &list}) {
        for (const long child : {-1L, object->Count() + 1, LONG_MAX, LONG_MIN})
            EXPECT_EQ(Answers_Other_Than(E_INVALIDARG, *object->operator->(), Number(child), false), "");
        for (const VARTYPE type : {VT_EMPTY, VT_I2, VT_BSTR, VT_DISPATCH, VT_BYREF}) {
            VARIANT child{};
            child.vt = type;
            EXPECT_EQ(Answers_Other_Than(E_INVALIDARG, *object->operator->(), child, false), "") << type;
        }
    }
    EXPECT_EQ(root->get_accName(Number(1), nullptr), E_INVALIDARG);
    EXPECT_EQ(root->get_accRole(Number(1), nullptr), E_INVALIDARG);
    EXPECT_EQ(root->get_accChild(Number(1), nullptr), E_INVALIDARG);
    EXPECT_EQ(root->get_accChildCount(nullptr), E_INVALIDARG);
    EXPECT_EQ(root->accLocation(nullptr, nullptr, nullptr, nullptr, Number(1)), E_INVALIDARG);
    Pump();
    EXPECT_EQ(served.panel.log, "");
}

/// Runs a function on threads of its own while this one handles its messages.
void Run_On_Threads(int count, const std::function<void()>& work) {
    std::atomic<int> running = count;
    std::vector<std::thread> threads;
    for (int i = 0; i < count; ++i) {
        threads.emplace_back([&] {
            work();
            --running;
        });
    }
    while (running > 0) {
        MsgWaitForMultipleObjects(0, nullptr, FALSE, 10, QS_ALLINPUT);
        Pump();
    }
    for (std::thread& thread : threads)
        thread.join();
}

TEST(Access, Keeps_No_Object_And_Answers_Nothing_After_The_End) {
    const struct {
        const char* what;
        void (*end)(Full_Window&);
    } ends[] = {
        {"the control goes", [](Full_Window& served) { served.panel.Remove(Formats - 1); }},
        {"the server goes", [](Full_Window& served) { served.access.reset(); }},
        {"the window goes", [](Full_Window& served) { served.window.Close(); }},
        {"all goes in a press",
         [](Full_Window& served) {
             served.panel.on_press = [&] {
                 served.access.reset();
                 served.window.Close();
             };
             Spoken(served.window).Child(Apply).Act();
             Pump();
         }},
    };
    for (const auto& [what, end] : ends) {
        SCOPED_TRACE(what);
        Full_Window served;
        {
            const Spoken list = Spoken(served.window).Child(Formats);
            EXPECT_EQ(galdren::Access_Object::Alive(), 1);
            end(served);
            EXPECT_EQ(Answers_Other_Than(CO_E_OBJNOTCONNECTED, *list.operator->(), Number(0), true), "");
            std::string others;
            Run_On_Threads(1, [&] {
                others = Answers_Other_Than(CO_E_OBJNOTCONNECTED, *list.operator->(), Number(1), true);
            });
            EXPECT_EQ(others, "") << "on another thread";
        }
        EXPECT_EQ(galdren::Access_Object::Alive(), 0);
    }
}

UINT Carrying_Message() { return RegisterWindowMessageA("Galdren_Access_Call"); }

TEST(Access, Answers_Four_Threads_At_Once) {
    constexpr int rounds = 50;
    Full_Window served;
    std::atomic<int> right = 0, wrong = 0;
    {
        const Spoken root(served.window);
        const Spoken list = root.Child(Formats);
        Run_On_Threads(4, [&] {
            for (int round = 0; round < rounds; ++round) {
                const bool is_right = list.Child(3).Name() == "TIFF" && root.Count() == 14 &&
                                      root.Child(Formats).Role() == ROLE_SYSTEM_LIST &&
                                      root.Child(Depth).Set_Value(L"50") == S_OK &&
                                      root.Child(Apply).Act() == S_OK;
                ++(is_right ? right : wrong);
                PostMessageA(served.window, Carrying_Message(), static_cast<WPARAM>(round), 0);
            }
        });
    }
    Pump();
    EXPECT_EQ(right, 4 * rounds);
    EXPECT_EQ(wrong, 0);
    EXPECT_EQ(served.panel.log.size(), 4 * rounds * std::strlen("press 1.-1 "));
    EXPECT_EQ(galdren::Access_Object::Alive(), 0);
}

TEST(Access, Does_Not_Wait_For_Ever_For_A_Busy_Window) {
    Full_Window served;
    const Spoken root(served.window);
    std::string name;
    const Spoken apply = root.Child(Apply);
    std::thread asking([&] { name = apply.Name(); });
    asking.join();
    EXPECT_EQ(name, "800705B4");
    Pump();
    EXPECT_EQ(apply.Name(), "Apply");
}

TEST(Access, Tells_Of_Changes) {
    Full_Window served;
    Listener listener;
    served.access->Tell(Part_Change::Focus, {Apply - 1, Whole});
    served.access->Tell(Part_Change::Focus, {Formats - 1, 2});
    served.access->Tell(Part_Change::Focus, {});
    served.access->Tell(Part_Change::Value, {Depth - 1, Whole});
    served.access->Tell(Part_Change::State, {Options - 1, 1});
    served.access->Tell(Part_Change::Chosen, {Formats - 1, 0});
    served.access->Tell(Part_Change::Shown, {Formats - 1, Whole});
    served.access->Tell(Part_Change::Hidden, {Apply - 1, Whole});
    EXPECT_EQ(listener.Take(),
              "focus Apply, focus TIFF, focus Panel, value Depth, state Ruler, chosen PNG, shown Formats, "
              "hidden Apply");
}

constexpr char Window_Variable[] = "GALDREN_TEST_WINDOW";

/// What the second process does, which is this program with another filter.
TEST(Access_Client, DISABLED_Works_A_Window_Of_Another_Process) {
    CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
    const char* number = std::getenv(Window_Variable);
    ASSERT_NE(number, nullptr);
    const HWND window = reinterpret_cast<HWND>(std::stoull(number));
    {
        const Spoken root(window);
        ASSERT_TRUE(root);
        EXPECT_EQ(root.Count(), 14);
        EXPECT_EQ(root.Child(Apply).Line(), "Apply: push button, focusable (Press)");
        EXPECT_EQ(root.Child(Apply).Act(), S_OK);
        EXPECT_EQ(root.Child(Depth).Set_Value(L"75"), S_OK);
        EXPECT_EQ(Found_At(root.Child(Formats).Child(2).Middle()).Name(), "JPEG");
        EXPECT_EQ(root.Child(Formats).Child(9).Name(), "80070057");
        // It is the window's to let go of what is kept here.
        static const Spoken kept = root.Child(Formats);
    }
    std::_Exit(testing::Test::HasFailure() ? 1 : 0);
}

/// Runs this program once more with the client's test, and answers its exit code.
DWORD Run_Client(HWND window) {
    SetEnvironmentVariableA(Window_Variable,
                            std::to_string(reinterpret_cast<std::uintptr_t>(window)).c_str());
    char program[MAX_PATH];
    GetModuleFileNameA(nullptr, program, sizeof program);
    std::string line =
        '"' + std::string(program) + "\" --gtest_filter=Access_Client.* --gtest_also_run_disabled_tests";
    STARTUPINFOA start{};
    start.cb = sizeof start;
    PROCESS_INFORMATION client{};
    if (!CreateProcessA(nullptr, line.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr, &start, &client))
        return ~0U;
    while (MsgWaitForMultipleObjects(1, &client.hProcess, FALSE, 30000, QS_ALLINPUT) == WAIT_OBJECT_0 + 1)
        Pump();
    DWORD code = ~0U;
    GetExitCodeProcess(client.hProcess, &code);
    CloseHandle(client.hThread);
    CloseHandle(client.hProcess);
    return code;
}

TEST(Access, Serves_Another_Process) {
    Full_Window served;
    EXPECT_EQ(Run_Client(served.window), 0U);
    EXPECT_EQ(served.panel.log, "press 1.-1 ");
    EXPECT_EQ(served.depth.Val, 75.0F);
    served.access.reset();
    EXPECT_EQ(galdren::Access_Object::Alive(), 0);
}

}  // namespace
}  // namespace galdren_test
