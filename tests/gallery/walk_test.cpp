// The gallery and the examples worked by keys and mouse, and watched as a screen reader does.
#include <gtest/gtest.h>

#include <algorithm>
#include <initializer_list>
#include <string>
#include <vector>

#include "tests/support/keys.h"
#include "tests/support/program.h"
#include "tests/support/reader.h"

namespace galdren_test {
namespace {

/// A gallery that is shown, and the user before it.
class Gallery {
  public:
    explicit Gallery(const std::string& page)
        : program("gallery.exe --log --page " + page), window(program.Window()) {
        EXPECT_TRUE(Says("page " + page));
    }
    HWND Window() const { return window; }
    /// All that the gallery has said so far.
    const std::string& Output() { return program.Output(); }
    /// Waits until the gallery says this line, after all those that were waited for before.
    bool Says(const std::string& line) {
        return Wait_Until([&] { return Heard(line); });
    }
    /// A control on the window, by its name; not the label before it.
    Spoken Named(const std::string& name) const {
        const Spoken root(window);
        long number = root.Count();
        while (number > 1 && root.Child(number).Name() != name)
            --number;
        return root.Child(number);
    }
    /// Moves the pointer to a place of the screen and waits until the gallery says this line. The display
    /// may lose a move, or tell of an older one after it; a hand would move on.
    bool Move_To(POINT screen, const std::string& line) {
        constexpr DWORD pause = 30;
        return Wait_Until([&] {
            SetCursorPos(screen.x ^= 1, screen.y);
            Sleep(pause);
            return Heard(line);
        });
    }
    bool Point_At(const std::string& control) {
        return Move_To(Named(control).Middle(), "over \"" + control + '"');
    }
    /// Asks the gallery to end; its exit code.
    DWORD Close() {
        PostMessageA(window, WM_CLOSE, 0, 0);
        return program.Exit_Code();
    }

  private:
    bool Heard(const std::string& line) {
        const std::size_t found = Output().find('\n' + line + "\r\n", read);
        if (found == std::string::npos) return false;
        read = found + 1 + line.size();
        return true;
    }

    Program program;
    HWND window;
    std::size_t read = 0;  // of the output
};

/// The part that has the keyboard, and the control that it belongs to; nothing while none has.
struct Focused {
    Spoken control, part;
};

Spoken Focus_Of(const Spoken& spoken) {
    VARIANT answer;
    VariantInit(&answer);
    spoken->get_accFocus(&answer);
    return spoken.Named(answer);
}

Focused Focus_In(const Spoken& root) {
    const Spoken control = Focus_Of(root);
    const bool has_parts = control && control.Id().lVal == CHILDID_SELF;
    return {control, has_parts ? Focus_Of(control) : control};
}

/// Where a control is, as a text to compare.
std::string Spot_Of(const Spoken& control) {
    if (!control) return "nowhere";
    const RECT place = control.Place();
    return std::to_string(place.left) + ' ' + std::to_string(place.top);
}

/// Keys that change what has the keyboard: each where those before lead nowhere.
std::vector<int> Keys_For(const Focused& focused) {
    switch (focused.part.Role()) {
        case ROLE_SYSTEM_PUSHBUTTON:
        case ROLE_SYSTEM_CHECKBUTTON:
            return {VK_SPACE};
        case ROLE_SYSTEM_TEXT:
            return {'7', VK_RETURN};
        case ROLE_SYSTEM_OUTLINEITEM:
        case ROLE_SYSTEM_SLIDER:
        case ROLE_SYSTEM_SCROLLBAR:
        case ROLE_SYSTEM_SPINBUTTON:
            return {VK_RIGHT, VK_LEFT};
        case ROLE_SYSTEM_PAGETAB:
            if (focused.control.Role() == ROLE_SYSTEM_PAGETAB) return {VK_SPACE};
            return {VK_RIGHT, VK_LEFT, VK_SPACE};
        default:
            return {VK_DOWN, VK_UP};
    }
}

/// What a screen reader could not use: parts that can be worked and have no name, and such as are not where
/// they say they are.
std::string Faults_Of(const Spoken& parent, const Spoken& part) {
    const long state = part.State();
    if (!(state & STATE_SYSTEM_FOCUSABLE) || state & STATE_SYSTEM_OFFSCREEN) return {};
    const RECT place = part.Place(), outer = parent.Place();
    RECT common;
    std::string faults;
    if (part.Name() == "(none)") faults += " name";
    if (!IntersectRect(&common, &place, &outer) || !EqualRect(&common, &place)) faults += " place";
    if (part.Count() == 0 && parent.At(part.Middle()).Name() != part.Name()) faults += " hit";
    return faults.empty() ? faults : part.Line() + ':' + faults + '\n';
}

/// The user of a gallery who has no mouse.
class Typist {
  public:
    explicit Typist(Gallery& used) : gallery(used), root(used.Window()) {}

    /// Goes over the page with Tab, and works every control that it comes to.
    /// @return lines of those that Tab does not reach, to which no key does anything, or that cannot be read
    std::string Work_Page() {
        constexpr std::size_t most_controls = 50;  // a question takes milliseconds
        constexpr long most_parts = 12;
        std::string faults;
        std::vector<std::string> reached;
        while (reached.size() < most_controls && Tab()) {
            const Spoken control = Focus_In(root).control;
            if (control.Name() == "Pages") break;
            reached.push_back(Spot_Of(control));
            // What is read only is there to be read; a console of output is scrolled, of which nothing is
            // told.
            const bool is_fixed = control.State() & STATE_SYSTEM_READONLY;
            if (!is_fixed && !Work()) faults += "unmoved: " + Focus_In(root).part.Line() + '\n';
        }
        worked += reached.size();
        const long all = std::min<long>(root.Count(), most_controls);
        for (long number = 1; number <= all; ++number) {
            const Spoken control = root.Child(number);
            faults += Faults_Of(root, control);
            for (long part = 1; part <= std::min(control.Count(), most_parts); ++part)
                faults += Faults_Of(control, control.Child(part));
            if (!(control.State() & STATE_SYSTEM_FOCUSABLE) || control.Name() == "Pages") continue;
            if (std::find(reached.begin(), reached.end(), Spot_Of(control)) == reached.end())
                faults += "not reached: " + control.Line() + '\n';
        }
        return faults;
    }

    /// Number of controls that it has come to.
    std::size_t Worked() const { return worked; }

  private:
    bool Tab() {
        const std::string before = Spot_Of(Focus_In(root).control);
        Type_Keys({VK_TAB});
        return Wait_Until([&] { return Spot_Of(Focus_In(root).control) != before; }, 2000);
    }

    /// What there is to see of the control that has the keyboard, and all that the gallery has said.
    std::string Seen() {
        const Focused now = Focus_In(root);
        return (now.part ? now.control.Line() + '\n' + now.part.Line() : "") + '\n' + gallery.Output();
    }

    bool Work() {
        for (const int key : Keys_For(Focus_In(root))) {
            const std::string before = Seen();
            Type_Keys({key});
            if (!Wait_Until([&] { return Seen() != before; }, 1000)) continue;
            Close_Dialog();
            return true;
        }
        return false;
    }

    /// Answers the dialog that a button has opened.
    void Close_Dialog() {
        const auto is_back = [this] {
            return Focus_In(root).part && GetForegroundWindow() == gallery.Window();
        };
        Wait_Until([&] { return is_back() || IsWindowVisible(FindWindowA("#32770", nullptr)); });
        if (is_back()) return;
        Type_Keys({VK_ESCAPE});
        Wait_Until(is_back);
    }

    Gallery& gallery;
    Spoken root;
    std::size_t worked = 0;
};

TEST(Walk_Test, Every_Page_Of_The_Gallery_Is_Worked_By_Keys) {
    constexpr const char* pages[] = {"boxes",     "labels", "buttons",     "checklists", "sliders",
                                     "selectors", "lists",  "tabs",        "entries",    "console",
                                     "colors",    "icons",  "directories", "dialogs",    "stress"};
    CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
    Gallery gallery("boxes");
    Typist typist(gallery);
    for (const char* page : pages) {
        SCOPED_TRACE(page);
        if (page != pages[0]) Type_Keys({KEY_CONTROL | VK_TAB});
        ASSERT_TRUE(page == pages[0] || gallery.Says(std::string("page ") + page));
        EXPECT_EQ(typist.Work_Page(), "");
    }
    EXPECT_GT(typist.Worked(), 150u) << "controls of all pages";
    EXPECT_EQ(gallery.Close(), 0u);
}

TEST(Walk_Test, Bars_Follow_Wheel_And_Drag_Beyond_The_Window) {
    CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
    Gallery gallery("sliders");
    ASSERT_TRUE(gallery.Point_At("Reversed"));
    mouse_event(MOUSEEVENTF_WHEEL, 0, 0, 2 * WHEEL_DELTA, 0);
    EXPECT_TRUE(gallery.Says("wheel \"Reversed\": Val 42"));
    ASSERT_TRUE(gallery.Point_At("Drag keeps the grab"));
    const RECT bar = gallery.Named("Drag keeps the grab").Place();
    mouse_event(MOUSEEVENTF_LEFTDOWN, 0, 0, 0, 0);
    EXPECT_TRUE(gallery.Move_To({1270, bar.top - 70}, "drag \"Drag keeps the grab\": Val 100"));
    EXPECT_TRUE(gallery.Move_To({0, bar.bottom + 70}, "drag \"Drag keeps the grab\": Val 0"));
    mouse_event(MOUSEEVENTF_LEFTUP, 0, 0, 0, 0);
    EXPECT_TRUE(gallery.Point_At("Reversed")) << "no longer held";
    EXPECT_EQ(gallery.Close(), 0u);
}

TEST(Walk_Test, Keys_And_Size_Change_How_The_Gallery_Looks) {
    CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
    Gallery gallery("buttons");
    RECT plain{};
    GetClientRect(gallery.Window(), &plain);
    const auto ground = [&] {
        POINT corner{1, 1};
        ClientToScreen(gallery.Window(), &corner);
        const HDC screen = GetDC(nullptr);
        const COLORREF color = GetPixel(screen, corner.x, corner.y);
        ReleaseDC(nullptr, screen);
        return color;
    };
    const COLORREF plain_ground = ground();
    const auto is_scaled = [&](int percent) {
        RECT client{};
        GetClientRect(gallery.Window(), &client);
        return client.right == plain.right * percent / 100;
    };
    const auto type = [&](int key, const char* said) {
        Type_Keys({key});
        EXPECT_TRUE(gallery.Says(said)) << said;
    };
    type(VK_F7, "theme dark");
    EXPECT_TRUE(Wait_Until([&] { return ground() == 0x2A2A2A; }, 3000));
    type(VK_F7, "theme system"), type(VK_F7, "theme plain");
    EXPECT_TRUE(Wait_Until([&] { return ground() == plain_ground; }, 3000));
    type(VK_F8, "scale 125");
    EXPECT_TRUE(Wait_Until([&] { return is_scaled(125); }, 3000));
    type(VK_F8, "scale 150"), type(VK_F8, "scale 200"), type(VK_F8, "scale 100");
    EXPECT_TRUE(Wait_Until([&] { return is_scaled(100); }, 3000));
    const auto is_inspected = [] { return FindWindowA("Galdren_Inspector", nullptr) != nullptr; };
    EXPECT_TRUE(gallery.Point_At("Plain"));
    type(VK_F12, "inspector on");
    EXPECT_TRUE(Wait_Until(is_inspected, 3000));
    type(VK_F12, "inspector off");
    EXPECT_TRUE(Wait_Until([&] { return !is_inspected(); }, 3000));
    const RECT before = gallery.Named("Plain").Place();
    RECT frame{};
    GetWindowRect(gallery.Window(), &frame);
    SetWindowPos(gallery.Window(), nullptr, 0, 0, frame.right - frame.left + 100,
                 frame.bottom - frame.top + 60, SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
    RECT now{};
    EXPECT_TRUE(Wait_Until([&] { return (now = gallery.Named("Plain").Place()).left != before.left; }));
    EXPECT_EQ(now.left - before.left, 50) << "centred";
    EXPECT_EQ(now.top, before.top);
    EXPECT_EQ(gallery.Close(), 0u);
}

#ifdef WITH_EXAMPLES

/// What a screen reader says of a program's window and all in it.
std::string Spoken_In(HWND window) { return Read_Aloud(Spoken(window)); }

TEST(Walk_Test, Examples_Are_Worked_By_Keys) {
    struct Step {
        std::vector<int> keys;
        const char* heard;  // is to be among what a screen reader says afterwards
    };
    struct Example {
        const char* program;
        std::vector<Step> steps;
    };
    constexpr int tab = VK_TAB, back = KEY_SHIFT | VK_TAB;
    const Example examples[] = {
        {"settings",
         {{{'X'}, "Title: text, focused, focusable = Harbour at dawnx"},
          {{tab, '1', '2'}, "Copies: text, focused, focusable = 12"},
          {{tab, VK_RIGHT, tab, VK_HOME}, "Quality: slider, focused, focusable = 1 %"},
          {{tab, VK_DOWN, VK_DOWN, VK_SPACE, tab, VK_UP, tab, VK_SPACE},
           "Replace old pictures: check button, focused, checked"},
          {{KEY_ALT | 'T', VK_RETURN}, "Harbour at dawnx, 12 x 1280 x 720, JPEG at 1 %, replaces"},
          {{}, "with Legend"},
          {{KEY_ALT | 'D'}, "Copies: text, focusable = 1\n"}}},
        {"color_picker",
         {{{tab, VK_HOME, VK_DOWN, VK_END}, "#00FF"},
          {{VK_RETURN}, "#00FFB4: push button"},
          {{KEY_ALT | 'R', tab, VK_SPACE}, "#3278B4: static text"}}},
        {"log_console",
         {{{KEY_ALT | 'R'}, "Run: check button, focused, focusable (Check)"},
          {{back, 'H', 'I', VK_RETURN, VK_ESCAPE}, "\nhi"},
          {{KEY_ALT | 'C'}, "0 lines: static text"}}},
        {"directory_picker",
         {{{}, "(C:): outline item"},
          {{back, VK_HOME, VK_DOWN, 'W'}, "c:\\windows\\: static text"},
          {{KEY_ALT | 'O'}, "Directory picker: client, unavailable"}}},
    };
    CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
    for (const Example& example : examples) {
        SCOPED_TRACE(example.program);
        Program program(example.program + std::string(".exe"));
        const HWND window = program.Window();
        ASSERT_TRUE(Wait_Until([&] { return GetForegroundWindow() == window; }));
        for (const Step& step : example.steps) {
            for (const int key : step.keys)
                Type_Keys({key});
            std::string said;
            EXPECT_TRUE(Wait_Until(
                [&] { return (said = Spoken_In(window)).find(step.heard) != std::string::npos; }, 3000))
                << step.heard << " is not in\n"
                << said;
        }
        const bool asks = !IsWindowEnabled(window);
        if (asks) {
            EXPECT_TRUE(Wait_Until([&] { return GetForegroundWindow() != window; }));
            Type_Keys({'Y'});
        } else {
            PostMessageA(window, WM_CLOSE, 0, 0);
        }
        EXPECT_EQ(program.Exit_Code(), 0u);
        EXPECT_EQ(program.Output(), asks ? "c:\\windows\\\r\n" : "");
    }
}

#endif

}  // namespace
}  // namespace galdren_test
