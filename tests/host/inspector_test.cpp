// The inspector: what it tells, its outline, and how it ends.
#include <memory>
#include <string>

#include "tests/support/controls.h"
#include "tests/support/hosted.h"

namespace galdren_test {
namespace {

constexpr int width = 320;
constexpr int height = 200;
constexpr std::uint32_t red = 0xE00000;

/// The window of the inspector of a window; null when there is none.
HWND Panel_Of(HWND inspected) {
    HWND panel = nullptr;
    do {
        panel = FindWindowExA(nullptr, panel, "Galdren_Inspector", nullptr);
    } while (panel && GetWindow(panel, GW_OWNER) != inspected);
    return panel;
}

/// A window with a button, a list and a bar.
struct Inspected : Hosted_Window {
    Inspected() : Hosted_Window(width, height) {
        // A window that opens below the pointer hears of it.
        SetCursorPos(0, 0);
        Pump();
        Place(button, "Apply", 10, 10, 80, 30, FLAG_RAISED | FLAG_TEXT_LEFT);
        Place(list, nullptr, 120, 10, 100, 120, FLAG_VERTICAL);
        Place(bar, nullptr, 10, 150, 200, 20);
        list.Grow(30, 0);
        list.Current = 1;
        for (int i = 0; i < 30; ++i)
            list.Item[i]->Set_Name("Row %d", i);
        bar.End_Val = 100, bar.Val = 40;
        host->Add(button), host->Add(list), host->Add(bar);
        host->Init_All();
        Connect();
        All_Painted();
    }
    void Point_At(int x, int y) {
        Send(WM_MOUSEMOVE, 0, {x, y});
        Pump();
    }
    /// Whether the inspector shows these lines, such as "Class: Boxs\n", one after the other.
    testing::AssertionResult Tells(const std::string& lines) const {
        char text[2048] = "";
        const HWND panel = Panel_Of(window);
        if (panel) GetWindowTextA(panel, text, sizeof text);
        const bool tells = ('\n' + std::string(text)).find('\n' + lines) != std::string::npos;
        return (tells ? testing::AssertionSuccess() : testing::AssertionFailure()) << lines << "in\n" << text;
    }
    bool Is_Outlined(int left, int bottom, int right, int top) const {
        const Picture shown(window);
        return shown.At(left, bottom) == red && shown.At(right - 1, top - 1) == red &&
               shown.At(left + 1, bottom + 1) == 0xFFFFFF;
    }

    Buttons button;
    Lists list;
    Sliders bar;
};

TEST(Inspector, Tells_About_The_Part_Under_The_Pointer) {
    Inspected under;
    Inspect(*under.host, true);
    under.Point_At(50, 25);
    EXPECT_TRUE(
        under.Tells("Class: Buttons\nName: Apply\nRole: button\nNumber: control 0\n"
                    "Rectangle: x 10, y 10, 81 x 31\nFlag: 0x82000\nBits: text left, raised\n"
                    "Fields: Value 0\n"));
    EXPECT_TRUE(under.Tells("Font: Arial 9\n"));
    EXPECT_FALSE(under.Tells("GDI objects: 0\n")) << "a window has some, whether the system tells or not";
    const RECT second = under.list.Item_Place(1);
    under.Point_At(second.left + 9, second.top + 9);
    EXPECT_TRUE(under.Tells("Class: Lists\nName: Row 1\nRole: list item\nNumber: control 1, part 1 of 30\n"));
    EXPECT_TRUE(under.Tells("Fields: Current 1\n") && under.Tells("State: chosen\n"));
    under.Point_At(150, 160);
    EXPECT_TRUE(under.Tells("Class: Sliders\n") && under.Tells("Fields: Val 40, Start_Val 0, End_Val 100\n"));
    under.Point_At(300, 5);
    EXPECT_TRUE(under.Tells("Class: \n"));
    UpdateWindow(Panel_Of(under.window));
    const Picture panel(Panel_Of(under.window));
    EXPECT_NE(panel.At(1, 9), panel.At(2, 9)) << "a thin frame";
}

/// A move across bare ground costs nothing, and a press what the library counts meanwhile.
TEST(Inspector, Counts_What_The_Last_Event_Cost) {
    Inspected under;
    Inspect(*under.host, true);
    MSG asked;
    under.Send(WM_MOUSEMOVE, 0, {299, 100}), under.Send(WM_MOUSEMOVE, 0, {300, 100});
    EXPECT_TRUE(PeekMessageA(&asked, Panel_Of(under.window), WM_APP, WM_APP, PM_REMOVE));
    DispatchMessageA(&asked);
    EXPECT_FALSE(PeekMessageA(&asked, Panel_Of(under.window), WM_APP, WM_APP, PM_REMOVE)) << "it tells once";
    EXPECT_TRUE(under.Tells("Last event: pointer\nPaints: 0\nCopies: 0\nBytes: 0\n"));
    const RECT third = under.list.Item_Place(2);
    const POINT at{third.left + 9, third.top + 9};
    under.Point_At(at.x, at.y);
    const Paint_Count before = Tools_Paint_Count();
    under.Send(WM_LBUTTONDOWN, MK_LBUTTON, at);
    const Paint_Count after = Tools_Paint_Count();
    Pump();
    EXPECT_GT(after.paints, before.paints);
    EXPECT_TRUE(under.Tells("Last event: press\nPaints: " + std::to_string(after.paints - before.paints) +
                            "\nCopies: " + std::to_string(after.copies - before.copies) +
                            "\nBytes: " + std::to_string(after.bytes - before.bytes) + '\n'));
}

TEST(Inspector, Outline_Stays_Above_Controls_And_Leaves_No_Trace) {
    for (const bool holds : {false, true}) {
        SCOPED_TRACE(holds);
        Inspected under;
        if (holds) under.host->Hold();
        under.Send(WM_MOUSEMOVE, 0, {50, 25});
        const Picture before = under.All_Painted();
        Inspect(*under.host, true);
        Inspect(*under.host, true);
        under.Point_At(50, 25);
        EXPECT_TRUE(under.Is_Outlined(10, 10, 91, 41));
        under.button.Value = 1, under.button.Adjust();
        EXPECT_TRUE(under.Is_Outlined(10, 10, 91, 41));
        under.button.Value = 0, under.button.Adjust();
        under.All_Painted();
        EXPECT_TRUE(under.Is_Outlined(10, 10, 91, 41));
        const HWND panel = Panel_Of(under.window);
        RECT place{}, part{10, height - 40, 90, height - 10}, both{};
        GetWindowRect(panel, &place);
        MapWindowPoints(under.window, nullptr, reinterpret_cast<POINT*>(&part), 2);
        EXPECT_TRUE(IsWindowVisible(panel));
        EXPECT_FALSE(IntersectRect(&both, &place, &part));
        Inspect(*under.host, false);
        Pump();
        EXPECT_TRUE(Same(Picture(under.window), before));
        EXPECT_FALSE(IsWindow(panel));
        EXPECT_FALSE(Is_Inspected(*under.host));
        under.Send(WM_MOUSEMOVE, 0, {50, 26});
        Pump();
        EXPECT_TRUE(Same(Picture(under.window), before));
    }
}

/// The pointer does not move while the application changes its controls.
TEST(Inspector, Follows_Controls_That_Move_Hide_And_Go) {
    Inspected under;
    auto lent = std::make_unique<Boxs>();
    Place(*lent, nullptr, 230, 10, 60, 60);
    under.host->Add(*lent);
    under.host->Init_All();
    Inspect(*under.host, true);
    const auto look_again = [&] { SendMessageA(Panel_Of(under.window), WM_TIMER, 1, 0); };
    under.Point_At(240, 20);
    EXPECT_TRUE(under.Tells("Class: Boxs\n") && under.Is_Outlined(230, 10, 291, 71));
    lent->Y = 15, lent->Height = 184, lent->Init(under.window);  // up to the topmost row of the window
    look_again();
    EXPECT_TRUE(under.Is_Outlined(230, 15, 291, 200));
    under.host->Set_Shown(*lent, false);
    look_again();
    EXPECT_TRUE(under.Tells("Class: \n") && !under.Is_Outlined(230, 15, 291, 200));
    under.host->Set_Shown(*lent, true);
    look_again();
    EXPECT_TRUE(under.Tells("Class: Boxs\n"));
    under.host->Remove(*lent);
    lent.reset();
    look_again();
    EXPECT_TRUE(under.Tells("Class: \n"));
}

TEST(Inspector, Goes_With_Host_And_Window) {
    Inspected first, second;
    Inspect(*second.host, true);
    Inspect(*first.host, true);
    first.Point_At(50, 25);
    EXPECT_TRUE(first.Is_Outlined(10, 10, 91, 41));
    second.Point_At(50, 25);
    // It leaves the first window when the display says so.
    EXPECT_TRUE(Pump_Until([&] { return !first.Is_Outlined(10, 10, 91, 41); })) << "there is one pointer";
    EXPECT_TRUE(second.Is_Outlined(10, 10, 91, 41));
    second.host.reset();
    EXPECT_FALSE(Panel_Of(second.window));
    EXPECT_TRUE(Is_Inspected(*first.host));
    const HWND panel = Panel_Of(first.window);
    EXPECT_EQ(SendMessageA(panel, WM_MOUSEACTIVATE, 0, 0), MA_NOACTIVATE);
    SendMessageA(panel, WM_CLOSE, 0, 0);
    EXPECT_TRUE(IsWindow(panel)) << "it goes with the window alone";
    first.window.Close();
    EXPECT_FALSE(Is_Inspected(*first.host));
    Inspect(*first.host, true);
    EXPECT_FALSE(Is_Inspected(*first.host));
    Pump();
}

}  // namespace
}  // namespace galdren_test
