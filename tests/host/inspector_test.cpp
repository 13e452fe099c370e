// The inspector: what it tells, its outline, and how it ends.
#include <map>
#include <memory>
#include <string>

#include "tests/support/controls.h"
#include "tests/support/hosted.h"

namespace galdren_test {
namespace {

constexpr int width = 320;
constexpr int height = 200;
constexpr std::uint32_t red = 0xE00000;

void Pump() {
    for (MSG message; PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE);)
        DispatchMessageA(&message);
}

/// The window of the inspector of a window; null when there is none.
HWND Panel_Of(HWND inspected) {
    struct Search {
        HWND owner, found;
    } search{inspected, nullptr};
    const auto visit = [](HWND window, LPARAM data) -> BOOL {
        auto& wanted = *reinterpret_cast<Search*>(data);
        char name[32] = "";
        GetClassNameA(window, name, sizeof name);
        if (std::string(name) == "Galdren_Inspector" && GetWindow(window, GW_OWNER) == wanted.owner)
            wanted.found = window;
        return TRUE;
    };
    EnumThreadWindows(GetCurrentThreadId(), visit, reinterpret_cast<LPARAM>(&search));
    return search.found;
}

/// What the inspector of a window shows, by the titles of the lines.
std::map<std::string, std::string> Shown_About(HWND inspected) {
    std::map<std::string, std::string> shown;
    char text[2048] = "";
    const HWND panel = Panel_Of(inspected);
    if (!panel || !GetWindowTextA(panel, text, sizeof text)) return shown;
    const std::string all = text;
    for (std::size_t at = 0; at < all.size();) {
        const std::size_t colon = all.find(": ", at), end = all.find('\n', at);
        shown[all.substr(at, colon - at)] = all.substr(colon + 2, end - colon - 2);
        at = end + 1;
    }
    return shown;
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
    std::map<std::string, std::string> Point_At(int x, int y) {
        Send(WM_MOUSEMOVE, 0, {x, y});
        Pump();
        return Shown_About(window);
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
    auto shown = under.Point_At(50, 25);
    EXPECT_EQ(shown["Class"], "Buttons");
    EXPECT_EQ(shown["Name"], "Apply");
    EXPECT_EQ(shown["Role"], "button");
    EXPECT_EQ(shown["Number"], "control 0");
    EXPECT_EQ(shown["Rectangle"], "x 10, y 10, 81 x 31");
    EXPECT_EQ(shown["Flag"], "0x82000");
    EXPECT_EQ(shown["Bits"], "text left, raised");
    EXPECT_EQ(shown["Fields"], "Value 0");
    EXPECT_EQ(shown["Font"], "Arial 9");

    const RECT second = under.list.Item_Place(1);
    shown = under.Point_At(second.left + 9, second.top + 9);
    EXPECT_EQ(shown["Class"], "Lists");
    EXPECT_EQ(shown["Name"], "Row 1");
    EXPECT_EQ(shown["Role"], "list item");
    EXPECT_EQ(shown["Number"], "control 1, part 1 of 30");
    EXPECT_EQ(shown["State"], "chosen");
    EXPECT_EQ(shown["Fields"], "Current 1");

    shown = under.Point_At(150, 160);
    EXPECT_EQ(shown["Class"], "Sliders");
    EXPECT_EQ(shown["Fields"], "Val 40, Start_Val 0, End_Val 100");
    EXPECT_EQ(under.Point_At(300, 5)["Class"], "");
}

/// A move across bare ground costs nothing, and a press what the library counts meanwhile.
TEST(Inspector, Counts_What_The_Last_Event_Cost) {
    Inspected under;
    Inspect(*under.host, true);
    under.Point_At(300, 100);
    auto shown = under.Point_At(300, 101);
    EXPECT_EQ(shown["Last event"], "pointer");
    EXPECT_EQ(shown["Paints"] + shown["Copies"] + shown["Bytes"], "000");
    const RECT third = under.list.Item_Place(2);
    const int x = third.left + 9, y = third.top + 9;
    under.Point_At(x, y);
    const Paint_Count before = Tools_Paint_Count();
    under.Send(WM_LBUTTONDOWN, MK_LBUTTON, {x, y});
    const Paint_Count after = Tools_Paint_Count();
    Pump();
    shown = Shown_About(under.window);
    EXPECT_EQ(shown["Last event"], "press");
    EXPECT_GT(after.paints, before.paints);
    EXPECT_EQ(shown["Paints"], std::to_string(after.paints - before.paints));
    EXPECT_EQ(shown["Copies"], std::to_string(after.copies - before.copies));
    EXPECT_EQ(shown["Bytes"], std::to_string(after.bytes - before.bytes));
    under.Send(WM_LBUTTONUP, 0, {x, y});
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
    const auto look_again = [&] {
        SendMessageA(Panel_Of(under.window), WM_TIMER, 1, 0);
        return Shown_About(under.window)["Class"];
    };
    EXPECT_EQ(under.Point_At(240, 20)["Class"], "Boxs");
    EXPECT_TRUE(under.Is_Outlined(230, 10, 291, 71));
    lent->Y = 15, lent->Init(under.window);
    look_again();
    EXPECT_TRUE(under.Is_Outlined(230, 15, 291, 76));
    under.host->Set_Shown(*lent, false);
    EXPECT_EQ(look_again(), "");
    EXPECT_FALSE(under.Is_Outlined(230, 15, 291, 76));
    under.host->Set_Shown(*lent, true);
    EXPECT_EQ(look_again(), "Boxs");
    under.host->Remove(*lent);
    lent.reset();
    EXPECT_EQ(look_again(), "");
    under.Send(WM_MOUSELEAVE);
    Pump();
}

TEST(Inspector, Goes_With_Host_And_Window) {
    Inspected first, second;
    Inspect(*first.host, true);
    Inspect(*second.host, true);
    first.Point_At(50, 25);
    EXPECT_TRUE(first.Is_Outlined(10, 10, 91, 41));
    second.Point_At(50, 25);
    // It leaves the first window when the display says so.
    for (int tries = 0; first.Is_Outlined(10, 10, 91, 41) && tries < 200; ++tries)
        Sleep(10), Pump();
    EXPECT_TRUE(second.Is_Outlined(10, 10, 91, 41));
    EXPECT_FALSE(first.Is_Outlined(10, 10, 91, 41)) << "there is one pointer";
    second.host.reset();
    EXPECT_EQ(Panel_Of(second.window), nullptr);
    EXPECT_NE(Panel_Of(first.window), nullptr);
    second.Send(WM_MOUSEMOVE, 0, {5, 5});
    first.Point_At(50, 25);
    first.window.Close();
    EXPECT_FALSE(Is_Inspected(*first.host));
    Inspect(*first.host, true);
    EXPECT_FALSE(Is_Inspected(*first.host));
    Pump();
}

}  // namespace
}  // namespace galdren_test
