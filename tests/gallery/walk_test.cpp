// The gallery worked by keys and mouse, and watched as a screen reader does.
#include <gtest/gtest.h>

#include <algorithm>
#include <initializer_list>
#include <string>
#include <vector>

#include "tests/support/keys.h"
#include "tests/support/program.h"
#include "tests/support/reader.h"
#include "tests/support/window.h"

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

/// The control that has the keyboard; nothing while none has.
Spoken Focus_In(const Spoken& root) {
    VARIANT answer;
    VariantInit(&answer);
    root->get_accFocus(&answer);
    return root.Named(answer);
}

/// Where a control is, as a text to compare.
std::string Spot_Of(const Spoken& control) {
    if (!control) return "nowhere";
    const RECT place = control.Place();
    return std::to_string(place.left) + ' ' + std::to_string(place.top);
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

/// Goes over a page with Tab. @return the places of the controls that it comes to
std::vector<std::string> Tab_Over(const Spoken& root) {
    constexpr std::size_t most_controls = 50;  // a question takes milliseconds
    std::vector<std::string> reached;
    while (reached.size() < most_controls) {
        const std::string before = Spot_Of(Focus_In(root));
        Type_Keys({VK_TAB});
        if (!Wait_Until([&] { return Spot_Of(Focus_In(root)) != before; }, 2000)) break;
        const Spoken control = Focus_In(root);
        if (control.Name() == "Pages") break;
        reached.push_back(Spot_Of(control));
    }
    return reached;
}

/// @return lines of the controls on a page that Tab does not reach, and of those that cannot be read
std::string Faults_Of_Page(const Spoken& root, const std::vector<std::string>& reached) {
    constexpr long most_controls = 50, most_parts = 12;
    std::string faults;
    for (long number = 1; number <= std::min(root.Count(), most_controls); ++number) {
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

TEST(Walk_Test, Every_Page_Of_The_Gallery_Is_Reached_And_Read) {
    constexpr const char* pages[] = {"boxes",     "labels", "buttons",     "checklists", "sliders",
                                     "selectors", "lists",  "tabs",        "entries",    "console",
                                     "colors",    "icons",  "directories", "dialogs",    "stress"};
    CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
    Gallery gallery("boxes");
    const Spoken root(gallery.Window());
    std::size_t count = 0;
    for (const char* page : pages) {
        SCOPED_TRACE(page);
        if (page != pages[0]) Type_Keys({KEY_CONTROL | VK_TAB});
        ASSERT_TRUE(page == pages[0] || gallery.Says(std::string("page ") + page));
        const std::vector<std::string> reached = Tab_Over(root);
        EXPECT_EQ(Faults_Of_Page(root, reached), "");
        count += reached.size();
    }
    EXPECT_GT(count, 150u) << "controls of all pages";
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
    const auto type = [&](int key, const char* said) {
        Type_Keys({key});
        EXPECT_TRUE(gallery.Says(said)) << said;
    };
    type(VK_F7, "theme dark");
    EXPECT_TRUE(Wait_Until([&] { return On_Screen(gallery.Window()).At(1, 1) == 0x2A2A2A; }, 3000));
    type(VK_F7, "theme system"), type(VK_F7, "theme plain");
    type(VK_F8, "scale 125");
    type(VK_F8, "scale 150"), type(VK_F8, "scale 200"), type(VK_F8, "scale 100");
    type(VK_F12, "inspector on"), type(VK_F12, "inspector off");
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

}  // namespace
}  // namespace galdren_test
