// Screen readers: what they are answered about a window, what they can do there, and what they are told.
#include <atomic>
#include <cstring>
#include <functional>
#include <string>
#include <thread>
#include <vector>

#include "parts/access_object.h"
#include "tests/support/controls.h"
#include "tests/support/hosted.h"
#include "tests/support/reader.h"

namespace galdren_test {
namespace {

constexpr int Width = 600;
constexpr int Height = 400;
constexpr char Not_Supported[] = "80020003";  // by an object, as text

/// A window with parts of most roles, which serves screen readers.
class Full_Window : public Hosted_Window {
  public:
    explicit Full_Window(LONG_PTR extended_style = 0) : Hosted_Window(Width, Height, extended_style) {
        Connect();
        SetWindowTextA(window, "Panel");
        Serve_Screen_Readers(*host);
        Add(box, nullptr, 5, 5, 240, 98, FLAG_STATIC);
        Place(apply, "Apply", 10, 10, 80, 24);
        host->Add(apply, [this](Buttons&) {
            log += "apply ";
            if (on_press) on_press();
        });
        Add(keep, "Keep \xE9", 100, 10, 80, 24, BUTTON_LAMP);
        Add(locked, "Locked", 190, 10, 50, 24, FLAG_PASSIVE);
        Add(title, "Title", 10, 40, 80, 24);
        Add(entry, nullptr, 100, 40, 120, 24, TEXT_SINGLE_LINE);
        Add(secret, "Key", 10, 70, 120, 24, TEXT_SINGLE_LINE | TEXT_PASSWORD);
        options.List = option_names, side.List = side_names;
        Add(options, "Show", 10, 110, 100, 60);
        Name_Items(formats, {"PNG", "JPEG", "TIFF", "Targa"});
        formats.Current = 1, formats.Item_Height = 26;
        Add(formats, "Formats", 250, 10, 100, 100, FLAG_VERTICAL);
        Name_Items(selector, {"PNG", "JPEG", "TIFF"});
        Add(selector, "Unit", 360, 10, 120, 24);
        depth.End_Val = 100, depth.Val = 40, depth.Num_Width = 40, depth.Format = "%.0f %%";
        Add(depth, "Depth", 360, 70, 120, 24);
        Add(hidden, "Hidden", 360, 100, 60, 24);
        Add(disabled, "Disabled", 430, 100, 60, 24);
        Add(side, "Side", 10, 180, 100, 60, CHECKLIST_SINGLE);
        Name_Items(tabs, {"General", "Page", "Print"});
        Add(tabs, nullptr, 130, 250, 240, 30);
        color.Value = 0xFF4080C0;
        Add(color, "Color", 130, 290, 200, 100);
        Add(tree, "Files", 380, 150, 200, 240);
        host->Init_All();
        entry.Read("%s", "abc"), secret.Read("%s", "letmein"), tree.Set(nullptr);
        host->Describe(box, "Options"), host->Set_Mnemonic(apply, 'A');
        host->Set_Shown(hidden, false), host->Set_Enabled(disabled, false);
        keep.Value = 1;
        UpdateWindow(window);
    }
    ~Full_Window() override { window.Close(); }

    /// Goes to the middle of a part and clicks.
    void Click_On(const Spoken& part) {
        POINT middle = part.Middle();
        ScreenToClient(window, &middle);
        middle.y = Height - 1 - middle.y;
        Send(WM_MOUSEMOVE, 0, middle);
        Click(middle);
    }
    /// What the application sees of it.
    std::string Values() {
        std::string values = log + (tree.Read() ? tree.Read() : "") + ' ' + std::to_string(color.Value);
        for (const int value : {keep.Value + 0, options.Value + 0, side.Value + 0, formats.Current + 0,
                                tabs.Value + 0, static_cast<int>(depth.Val)})
            values += ' ' + std::to_string(value);
        return values;
    }

    std::string log;
    std::function<void()> on_press;
    const char* option_names[3] = {"Grid", "Ruler", nullptr};
    const char* side_names[4] = {"Left", "Middle", "Right", nullptr};
    Boxs box;
    Buttons apply, keep, locked, hidden, disabled;
    Labels title;
    Texts entry, secret;
    CheckLists options, side;
    Lists formats;
    Selects selector;
    Valuators depth;
    DirTrees tree;
    Tabs tabs;
    Color_Edit color;

  private:
    template <class Control>
    void Add(Control& control, const char* name, int x, int y, int width, int height,
             unsigned long flag = 0) {
        Place(control, name, x, y, width, height, flag);
        host->Add(control);
    }
};

/// Numbers of the children of a full window.
enum Child : long {
    Box = 1,
    Apply,
    Keep,
    Locked,
    Title,
    Entry,
    Secret,
    Options,
    Formats,
    Unit,
    Depth,
    Hidden,
    Disabled,
    Side,
    Pages,
    Swatch,
    Files
};

TEST(Access, Tells_What_A_Window_Is_Made_Of) {
    Full_Window served;
    const std::string said = Read_Aloud(Spoken(served.window));
    EXPECT_EQ(said.substr(0, said.find("  Files")),
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
              "  Side: grouping, focusable\n"
              "    Left: radio button, checked, focusable (Check)\n"
              "    Middle: radio button, focusable (Check)\n"
              "    Right: radio button, focusable (Check)\n"
              "  (none): page tab list, focusable = General\n"
              "    General: page tab, selected, focusable, selectable (Select)\n"
              "    Page: page tab, focusable, selectable (Select)\n"
              "    Print: page tab, focusable, selectable (Select)\n"
              "  Color: grouping, focusable = #C08040\n"
              "    Red: slider, focusable = 192\n"
              "    Green: slider, focusable = 128\n"
              "    Blue: slider, focusable = 64\n");
    for (const char* row : {"  Files: outline, focusable\n",
                            "    My Computer: outline item, expanded, focusable, selectable = 0 (Close)\n",
                            "(C:): outline item, collapsed, focusable, selectable = 1 (Open)\n"})
        EXPECT_NE(said.find(row), std::string::npos) << row << said;
    const Spoken root(served.window);
    EXPECT_EQ(root.Child(Apply).Shortcut(), "Alt+A");
    EXPECT_EQ(root.Child(Keep).Shortcut(), Not_Supported);
    EXPECT_EQ(root.Child(Entry).Description(), Not_Supported);
    served.entry.Flag |= TEXT_EDITING, served.entry.Selected = -2;
    EXPECT_EQ(root.Child(Entry).Description(), "bc") << "what is selected";
}

bool Is_Inside(const RECT& inner, const RECT& outer) {
    return inner.left >= outer.left && inner.top >= outer.top && inner.right <= outer.right &&
           inner.bottom <= outer.bottom;
}

/// How many below an object were found at the places that they tell.
int Find_All_Below(const Spoken& parent, const Spoken& root) {
    int found = 0;
    for (long number = 1; number <= parent.Count(); ++number) {
        const Spoken child = parent.Child(number);
        const RECT place = child.Place();
        found += Find_All_Below(child, root);
        EXPECT_EQ(IsRectEmpty(&place) != 0, (child.State() & STATE_SYSTEM_OFFSCREEN) != 0);
        if (child.State() & (STATE_SYSTEM_OFFSCREEN | STATE_SYSTEM_INVISIBLE)) continue;
        EXPECT_TRUE(Is_Inside(place, parent.Place())) << child.Line();
        // In the middle of a control with parts there may be one of these.
        if (child.Count() > 0 || child.Role() == ROLE_SYSTEM_PANE) continue;
        EXPECT_EQ(root.At(child.Middle()).Line(), child.Line());
        ++found;
    }
    return found;
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
        EXPECT_GE(Find_All_Below(root, root), 25);
        const RECT button = root.Child(Disabled).Place();
        EXPECT_EQ(root.At({button.left, button.top}).Name(), "Disabled");
        EXPECT_EQ(root.At({button.left, button.top - 1}).Name(), "Panel");
        EXPECT_EQ(root.At({button.right - 1, button.bottom - 1}).Name(), "Disabled");
        EXPECT_EQ(root.At({button.right, button.bottom - 1}).Name(), "Panel");
    }
}

TEST(Access, Actions_Do_What_Clicks_Do) {
    Full_Window asked;
    const std::string before = asked.Values();
    int pressed = 0, changed = 0;
    for (long control = 1; control <= Spoken(asked.window).Count(); ++control) {
        const long count = Spoken(asked.window).Child(control).Count();
        for (long inside = 0; inside <= count; ++inside) {
            const auto part_in = [&](const Full_Window& served) {
                const Spoken owner = Spoken(served.window).Child(control);
                return inside ? owner.Child(inside) : owner;
            };
            const auto result_of = [&](const std::function<void(Full_Window&)>& press) {
                Full_Window served;
                SetFocus(served.window);
                press(served);
                Pump();
                EXPECT_EQ(Button_State, 0U);
                changed += served.Values() != before;
                return part_in(served).Line() + served.Values();
            };
            const Spoken part = part_in(asked);
            SCOPED_TRACE(part.Line());
            if (part.Action() == Not_Supported) {
                EXPECT_EQ(part.Act(), DISP_E_MEMBERNOTFOUND);
                continue;
            }
            if (part.State() & STATE_SYSTEM_OFFSCREEN) continue;
            ++pressed;
            const std::string by_action = result_of([&](Full_Window& served) {
                EXPECT_EQ(part_in(served).Act(), S_OK);
                EXPECT_EQ(served.Values(), before) << "a press may open a dialog, and is not waited for";
            });
            EXPECT_EQ(by_action, result_of([&](Full_Window& served) { served.Click_On(part_in(served)); }));
        }
    }
    EXPECT_GE(pressed, 15);
    EXPECT_GE(changed, 2 * 10) << "all but what was chosen already";
}

TEST(Access, Presses_Of_What_Has_Gone_Meanwhile_Are_Forgotten) {
    Full_Window served;
    const Spoken root(served.window);
    const Spoken item = root.Child(Formats).Child(1);
    ASSERT_EQ(item.Act(), S_OK);
    ASSERT_EQ(root.Child(Apply).Act(), S_OK);
    served.host->Remove(served.formats);
    served.host->Remove(served.box);
    Pump();
    EXPECT_EQ(served.log, "apply ") << "the button has another number";
    EXPECT_EQ(served.formats.Current, 1);
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
        {Apply, L"1", DISP_E_MEMBERNOTFOUND, Not_Supported},
        {Locked, L"1", E_ACCESSDENIED, Not_Supported},
        {Hidden, L"1", E_ACCESSDENIED, Not_Supported},
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
    EXPECT_EQ(root->put_accName(Number(Apply), nullptr), DISP_E_MEMBERNOTFOUND);
}

TEST(Access, Moves_Focus_And_Selection) {
    Full_Window served;
    const Spoken root(served.window);
    const Spoken list = root.Child(Formats);
    using Question = HRESULT (STDMETHODCALLTYPE IAccessible::*)(VARIANT*);
    const auto name_of = [](Question question, const Spoken& object) {
        VARIANT answer;
        VariantInit(&answer);
        const HRESULT result = (object.operator->()->*question)(&answer);
        const Spoken found = object.Named(answer);
        EXPECT_EQ(result, found ? S_OK : S_FALSE);
        return found ? found.Name() : "none";
    };
    constexpr Question focus = &IAccessible::get_accFocus, selection = &IAccessible::get_accSelection;
    SetFocus(nullptr);
    EXPECT_EQ(name_of(focus, root), "none");
    EXPECT_EQ(root->accSelect(SELFLAG_TAKEFOCUS, Number(Apply)), S_OK);
    EXPECT_EQ(GetFocus(), served.window);
    EXPECT_EQ(name_of(focus, root), "Apply");
    EXPECT_TRUE(root.Child(Apply).State() & STATE_SYSTEM_FOCUSED);
    EXPECT_EQ(name_of(focus, list), "none");

    LRESULT answer = 0;
    EXPECT_FALSE(served.host->Message(WM_GETOBJECT, 0, OBJID_CURSOR, answer)) << "what it has no object for";
    EXPECT_EQ(list->accSelect(SELFLAG_TAKEFOCUS | SELFLAG_TAKESELECTION, Number(3)), S_OK);
    EXPECT_EQ(name_of(focus, root), "Formats");
    EXPECT_EQ(name_of(focus, list), "TIFF");
    EXPECT_EQ(name_of(selection, list), "TIFF");
    EXPECT_EQ(name_of(selection, root), "none");
    EXPECT_EQ(name_of(selection, root.Child(Files)), "none") << "no directory is chosen";

    for (const long flags : {0, SELFLAG_ADDSELECTION, SELFLAG_TAKEFOCUS | SELFLAG_EXTENDSELECTION, -1})
        EXPECT_EQ(list->accSelect(flags, Number(1)), E_INVALIDARG) << flags;
    EXPECT_EQ(root->accSelect(SELFLAG_TAKESELECTION, Number(Apply)), E_INVALIDARG);
    EXPECT_EQ(root->accSelect(SELFLAG_TAKEFOCUS, Number(Disabled)), E_INVALIDARG);
}

TEST(Access, Goes_From_Part_To_Part) {
    Full_Window served;
    const Spoken root(served.window);
    const Spoken list = root.Child(Formats), tabs = root.Child(Pages);
    const struct {
        const Spoken& from;
        long child;
        long direction;
        const char* wanted;
    } rows[] = {
        {root, CHILDID_SELF, NAVDIR_FIRSTCHILD, "Options"},
        {root, CHILDID_SELF, NAVDIR_LASTCHILD, "Files"},
        {root, CHILDID_SELF, NAVDIR_NEXT, "none"},
        {root, Options, NAVDIR_NEXT, "Formats"},
        {root, Box, NAVDIR_PREVIOUS, "none"},
        {root, Apply, NAVDIR_FIRSTCHILD, "none"},
        {list, CHILDID_SELF, NAVDIR_PREVIOUS, "Show"},
        {list, 4, NAVDIR_NEXT, "none"},
        {list, 2, NAVDIR_DOWN, "TIFF"},
        {list, 2, NAVDIR_UP, "PNG"},
        {tabs, 1, NAVDIR_RIGHT, "Page"},
        {tabs, 3, NAVDIR_LEFT, "Page"},
    };
    VARIANT answer;
    for (const auto& [from, child, direction, wanted] : rows) {
        const HRESULT result = from->accNavigate(direction, Number(child), &answer);
        const Spoken there = from.Named(answer);
        EXPECT_EQ(there ? there.Name() : "none", wanted) << child << " to " << direction;
        EXPECT_EQ(result, there ? S_OK : S_FALSE);
    }
    EXPECT_EQ(root->accNavigate(99, Number(1), &answer), E_INVALIDARG);
    IDispatch* parent = nullptr;
    ASSERT_EQ(list->get_accParent(&parent), S_OK);
    EXPECT_EQ(parent, root.operator->()) << "one object for each thing, however it is found";
    parent->Release();
    ASSERT_TRUE(root->get_accParent(&parent) == S_OK && parent);
    HWND framed = nullptr;
    EXPECT_EQ(WindowFromAccessibleObject(static_cast<IAccessible*>(parent), &framed), S_OK);
    EXPECT_EQ(framed, served.window);
    parent->Release();
}

/// The questions of an object whose answer is another than `wanted`; all but the last take a child.
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
    VARIANT none{};
    for (const Spoken* object : {&root, &list}) {
        for (const long child : {-1L, object->Count() + 1, LONG_MAX, LONG_MIN})
            EXPECT_EQ(Answers_Other_Than(E_INVALIDARG, *object->operator->(), Number(child), false), "");
        for (const VARTYPE type : {VT_EMPTY, VT_I2, VT_BSTR, VT_DISPATCH, VT_BYREF}) {
            none.vt = type;
            EXPECT_EQ(Answers_Other_Than(E_INVALIDARG, *object->operator->(), none, false), "") << type;
        }
    }
    EXPECT_EQ(root->get_accName(Number(1), nullptr), E_INVALIDARG);
    EXPECT_EQ(root->get_accChildCount(nullptr), E_INVALIDARG);
    EXPECT_EQ(root->accLocation(nullptr, nullptr, nullptr, nullptr, Number(1)), E_INVALIDARG);
    Pump();
    EXPECT_EQ(served.log, "");
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
        {"the control goes", [](Full_Window& served) { served.host->Remove(served.formats); }},
        {"the host goes", [](Full_Window& served) { served.host.reset(); }},
        {"the window goes", [](Full_Window& served) { served.window.Close(); }},
        {"all goes in a press",
         [](Full_Window& served) {
             served.on_press = [&] {
                 served.host.reset();
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

TEST(Access, Answers_Four_Threads_At_Once) {
    constexpr int rounds = 50;
    Full_Window served;
    std::atomic<int> right = 0;
    Run_On_Threads(
        4, [&, list = Spoken(served.window).Child(Formats), apply = Spoken(served.window).Child(Apply)] {
            for (int round = 0; round < rounds; ++round) {
                right += list.Child(3).Name() == "TIFF" && apply.Act() == S_OK;
                PostMessageA(served.window, RegisterWindowMessageA("Galdren_Access_Call"), 7,
                             0);  // by somebody else
            }
        });
    Pump();
    EXPECT_EQ(right, 4 * rounds);
    EXPECT_EQ(served.log.size(), 4 * rounds * std::strlen("apply "));
    EXPECT_EQ(galdren::Access_Object::Alive(), 0);
}

TEST(Access, Does_Not_Wait_For_Ever_For_A_Busy_Window) {
    Full_Window served;
    const Spoken apply = Spoken(served.window).Child(Apply);
    std::string name;
    std::thread([&] { name = apply.Name(); }).join();
    EXPECT_EQ(name, "800705B4");
    Pump();
    EXPECT_EQ(apply.Name(), "Apply");
}

TEST(Access, Tells_Of_What_Changes) {
    Full_Window scene;
    const Spoken root(scene.window);
    scene.entry.Flag |= TEXT_EDITING, SetFocus(scene.window);
    Listener listener;
    const struct {
        const char* what;
        std::function<void()> act;
        const char* heard;
    } rows[] = {
        {"pressed", [&] { root.Child(Apply).Act(); }, "focus Apply, state Apply"},
        {"item", [&] { root.Child(Formats).Child(1).Act(); }, "focus PNG, chosen PNG"},
        {"value", [&] { root.Child(Depth).Set_Value(L"50"); }, "value Depth"},
        {"hidden", [&] { scene.host->Set_Shown(scene.apply, false); }, "hidden Apply"},
        {"shown", [&] { scene.host->Set_Shown(scene.apply, true); }, "shown Apply"},
        {"focus", [&] { scene.host->Focus(&scene.entry); }, "focus Title, caret Title"},
        {"typed", [&] { scene.Send(WM_CHAR, 'x'); }, "value Title, caret Title"},
    };
    for (const auto& [what, act, heard] : rows) {
        listener.Take();
        act();
        Pump();
        EXPECT_EQ(listener.Take(), heard) << what;
    }
}

}  // namespace
}  // namespace galdren_test
