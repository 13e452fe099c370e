// Scale and theme of a host: what fields hold and what is painted, and that all comes back.
#include <algorithm>
#include <cmath>
#include <random>
#include <string>
#include <vector>

#include "tests/support/every_class.h"
#include "tests/support/hosted.h"
#include "tests/support/spy.h"

namespace galdren_test {
namespace {

constexpr int width = 600, height = 440;

/// What a design says of all controls.
std::vector<int> Design_Of(Every_Class& controls) {
    std::vector<int> fields{controls.list.Item_Height, controls.list.Slider_Width, controls.gain.Num_Width,
                            controls.output.Bar_Dim};
    controls.Each([&](const char*, const Tools& c) {
        fields.insert(fields.end(), {c.X, c.Y, c.Width, c.Height, c.Border, c.Font_Size, c.Clip_Width});
    });
    return fields;
}

TEST(Scale, Comes_Back_After_A_Hundred_Others) {
    Hosted_Window shown(width, height);
    Every_Class controls;
    Lists& list = controls.list;
    list.Item_Height = 19, list.Slider_Width = 13, controls.output.Bar_Dim = 15,
    controls.tabs.Tab_Height = 25;
    controls.row.Grow(40, 0);
    controls.Show_In(*shown.host);
    Sliders &upright = list.Scroll_Bar, &flat = controls.row.Scroll_Bar;
    list.Bring_Into_View(7), controls.row.Bring_Into_View(20);
    list.Init(shown.window), controls.row.Init(shown.window);
    const Picture before = shown.All_Painted();
    const std::vector<int> design = Design_Of(controls);
    const float down = upright.Val - upright.End_Val, aside = flat.Val - flat.Start_Val;
    EXPECT_TRUE(down != 0 && aside != 0) << down << ", " << aside;
    std::mt19937 random(5);
    for (int i = 0; i < 100; ++i) {
        const int scale = i == 0 ? 25 : i == 1 ? 500 : 25 + static_cast<int>(random() % 476);
        shown.host->Set_Scale(scale);
        EXPECT_EQ(controls.gain.Num_Width, std::lround(60 * scale / 100.0));
        EXPECT_EQ(list.Item_Height, std::lround(19 * scale / 100.0));
        EXPECT_EQ(controls.tabs.Tab_Height, std::lround(25 * scale / 100.0));
    }
    shown.host->Set_Scale(100);
    EXPECT_TRUE(Same(shown.All_Painted(), before));
    EXPECT_EQ(Design_Of(controls), design);
    shown.host->Set_Scale(200);
    EXPECT_FALSE(Same(shown.All_Painted(), before));
    EXPECT_FLOAT_EQ(upright.Val - upright.End_Val, 2 * down) << "as far scrolled as before";
    EXPECT_FLOAT_EQ(flat.Val - flat.Start_Val, 2 * aside);
}

TEST(Scale, Is_The_Same_From_The_Start_And_Later) {
    Hosted_Window early(900, 660), late(900, 660);
    Every_Class first, second;
    early.host->Set_Scale(150);
    first.Show_In(*early.host), second.Show_In(*late.host);
    late.host->Set_Scale(150);
    EXPECT_EQ(Design_Of(first), Design_Of(second));
    EXPECT_TRUE(Same(early.All_Painted(), late.All_Painted()));
}

TEST(Scale, What_Is_Written_Into_Fields_Is_Of_The_Design_First_And_Then_In_Pixels) {
    Hosted_Window shown(600, 400);
    Host& host = *shown.host;
    host.Set_Scale(200);
    Buttons button;
    host.Add(button);
    Place(button, "B", 10, 20, 50, 30);
    host.Init(button);
    EXPECT_TRUE(button.X == 20 && button.Width == 100 && button.Font_Size == 18);
    button.X = 31;
    host.Init(button);
    EXPECT_TRUE(button.X == 31 && button.Width == 100) << "pixels that were written stay";
    host.Set_Scale(100);
    EXPECT_TRUE(button.X == 16 && button.Width == 50);
    host.Place(button, 7, 8, 40, 31);
    EXPECT_TRUE(button.X == 7 && button.Rect.right == 48);
    host.Set_Scale(300);
    EXPECT_TRUE(button.X == 21 && button.Y == 24 && button.Width == 120 && button.Height == 93);
    button.Border = 1;
    host.Init(button);
    host.Set_Scale(25);
    EXPECT_EQ(button.Border, 1) << "no frame becomes that of a control that has given none";

    // A control takes its design along.
    host.Remove(button);
    host.Set_Scale(200);
    EXPECT_EQ(button.Width, 10);
    host.Add(button);
    EXPECT_TRUE(button.Width == 80 && button.Scale == 200);
}

TEST(Scale, Bad_Ones_Are_Reported_And_Change_Nothing) {
    Hosted_Window shown(100, 100);
    shown.host->Set_Scale(125);
    for (const int bad : {24, 501, 0, -100}) {
        Report_Catcher reports;
        shown.host->Set_Scale(bad);
        EXPECT_EQ(reports.Take(),
                  "11:Host::Set_Scale(): " + std::to_string(bad) + " is not a scale from 25 to 500 percent");
        EXPECT_EQ(shown.host->Scale(), 125);
    }
}

TEST(Scale, Follows_The_Display_In_The_Middle_Of_A_Drag) {
    Hosted_Window shown(300, 100);
    shown.Connect();
    Host& host = *shown.host;
    Sliders bar;
    Place(bar, nullptr, 10, 40, 200, 20, SLIDER_KEEP_GRAB);
    bar.End_Val = 100;
    host.Add(bar);
    host.Init_All();
    host.Follow_Dpi();
    ASSERT_EQ(host.Scale(), 100);
    shown.Send(WM_MOUSEMOVE, 0, {110, 50});
    shown.Send(WM_LBUTTONDOWN, MK_LBUTTON, {110, 50});
    EXPECT_NEAR(bar.Val, 50, 2);
    RECT wanted{140, 120, 740, 330};
    SendMessageA(shown.window, WM_DPICHANGED, MAKEWPARAM(192, 192), reinterpret_cast<LPARAM>(&wanted));
    RECT now{};
    GetWindowRect(shown.window, &now);
    EXPECT_TRUE(EqualRect(&now, &wanted));
    EXPECT_EQ(host.Scale(), 200);
    EXPECT_EQ(bar.Width, 400);
    EXPECT_EQ(GetCapture(), HWND(shown.window));
    // Below the bar: only who keeps it still drags it.
    shown.Send(WM_MOUSEMOVE, MK_LBUTTON, {20 + 300, 5});
    EXPECT_EQ(bar.Val, bar.Tab[300 - (40 + bar.Curs_Half + bar.Border - 1)]);
    shown.Send(WM_LBUTTONUP, 0, {320, 5});
    EXPECT_EQ(GetCapture(), nullptr);
    SendMessageA(shown.window, WM_DPICHANGED, MAKEWPARAM(96, 96), reinterpret_cast<LPARAM>(&wanted));
    EXPECT_EQ(bar.Width, 200);
}

TEST(Scale, Layouts_And_The_Window_Follow) {
    Hosted_Window shown(320, 200);
    shown.Connect();
    Buttons one, two;
    Place(one, "One", 0, 0, 1, 1), Place(two, "Another one", 0, 0, 1, 1);
    shown.host->Add(one), shown.host->Add(two);
    const SIZE least =
        Layout::Lay_Out(*shown.host, Layout::Margin(10, Layout::Row(8, {Layout::Fixed(one, 80), two})));
    const RECT before = two.Rect;
    shown.host->Scale_Window(200);
    shown.All_Painted();
    RECT client{};
    GetClientRect(shown.window, &client);
    EXPECT_EQ(client.right, 640);
    EXPECT_TRUE(one.X == 20 && one.Y == 20 && one.Width == 159) << one.X << ' ' << one.Width;
    EXPECT_EQ(two.X, 20 + 160 + 16);
    EXPECT_NEAR(two.Rect.right - two.Rect.left, 2 * (before.right - before.left), 8);
    MINMAXINFO limits{};
    SendMessageA(shown.window, WM_GETMINMAXINFO, 0, reinterpret_cast<LPARAM>(&limits));
    EXPECT_NEAR(limits.ptMinTrackSize.x, 2 * least.cx, 10);
    shown.host->Scale_Window(100);
    shown.All_Painted();
    EXPECT_TRUE(EqualRect(&two.Rect, &before));
}

TEST(Scale, Is_That_Of_Dialogs_Too) {
    Hosted_Window shown(200, 100);
    shown.host->Set_Scale(200);
    SetActiveWindow(shown.window);
    static RECT client;
    const auto close = [](HWND, UINT, UINT_PTR, DWORD) {
        const HWND dialog = FindWindowA("#32770", nullptr);
        if (!IsWindowVisible(dialog)) return;
        GetClientRect(dialog, &client);
        SendMessageA(dialog, WM_CLOSE, 0, 0);
    };
    const UINT_PTR timer = SetTimer(nullptr, 0, USER_TIMER_MINIMUM, close);
    char text[] = "text";
    PopUp_Message("Title", "Caption", text, 200, 100);
    KillTimer(nullptr, timer);
    EXPECT_NEAR(client.right, 400, 1);
    EXPECT_NEAR(client.bottom, 200, 1);
}

/// An image that was made before the control got the scale of its host is doubled, and not read as one of the
/// size that the control has now.
TEST(Scale, Knows_Images_Of_The_Design) {
    for (const bool is_scaled_first : {true, false}) {
        SCOPED_TRACE(is_scaled_first);
        Hosted_Window shown(120, 60);
        if (is_scaled_first) shown.host->Set_Scale(200);
        Buttons button;
        Place(button, nullptr, 5, 5, 40, 20);
        button.Alloc_Graph_Normal(0x112233);
        button.Graph_Normal[10 * 40 + 20] = 0xABCDEF;
        shown.host->Add(button);
        shown.host->Set_Scale(200);
        shown.host->Init_All();
        const Picture picture = shown.All_Painted();
        EXPECT_EQ(std::count(picture.Pixels().begin(), picture.Pixels().end(), 0xABCDEFU), 4);
        EXPECT_EQ(picture.At(10 + 2 * 20, 10 + 2 * 10), 0xABCDEFU);
        EXPECT_EQ(picture.At(30, 20), 0x112233U);
    }
}

// Themes

/// Contrast of two pixels in hundredths.
int Contrast(std::uint32_t one, std::uint32_t other) {
    const auto gdi = [](std::uint32_t rgb) { return (rgb & 0xFF) << 16 | (rgb & 0xFF00) | rgb >> 16; };
    return Contrast_Of(gdi(one), gdi(other));
}

constexpr int Some_Colors[][3] = {{170, 170, 170}, {255, 255, 255}, {1, 0, 0},     {255, 255, 0},
                                  {0, 0, 255},     {90, 120, 200},  {120, 60, 20}, {255, 0, 255}};

/// Writes a text wherever a control shows one.
void Caption(Every_Class& controls, const char* text) {
    static const char* rows[] = {nullptr, nullptr, nullptr, nullptr, nullptr};
    rows[0] = rows[1] = rows[2] = rows[3] = text;
    controls.checks.List = controls.single.List = rows;
    controls.Each([&](const char*, auto& control) {
        control.Name = text;
        if constexpr (requires { control.Item; }) {
            for (int item = 0; control.Item[item]; ++item)
                control.Item[item]->Name = text, control.Item[item]->Color = control.Color;
        }
    });
    controls.hue.Name = nullptr;  // its bars have what its caption leaves
}

TEST(Theme, Captions_Are_Readable_In_Every_State) {
    Hosted_Window shown(width, height);
    Host& host = *shown.host;
    Every_Class controls;
    controls.Show_In(host);
    controls.checks.Enabled = nullptr;
    controls.choice.Value_Width = 110;  // however long its caption is
    const auto painted = [&](const char* text, bool lit) {
        Caption(controls, text);
        host.Init_All();
        controls.output.Cleanup(), controls.output.Write("\x01%s", text);
        shown.All_Painted();
        controls.Each([&](const char*, auto& control) {
            if (!lit) return;
            shown.window.Point_At(control.X + control.Width / 2, control.Y + control.Height / 2);
            control.Draw();
        });
        shown.window.Point_At(-10, -10);
        return Picture(shown.window);
    };
    for (const Theme& theme : {Dark_Theme(), System_Theme()}) {
        host.Set_Theme(&theme);
        for (const auto& [red, green, blue] : Some_Colors) {
            const Colors color(red, green, blue);
            for (const std::string state :
                 {"at rest", "lit", "pressed", "pressed and lit", "passive", "disabled"}) {
                SCOPED_TRACE(testing::Message()
                             << state << ", colour " << red << ' ' << green << ' ' << blue);
                const bool is_lit = state.ends_with("lit");
                controls.Each([&](const char*, auto& control) {
                    control.Color = color;
                    control.Flag =
                        state == "passive" ? control.Flag | FLAG_PASSIVE : control.Flag & ~FLAG_PASSIVE;
                    host.Set_Enabled(control, state != "disabled");
                });
                controls.button.Value = controls.lamp.Value = state.starts_with("pressed");
                const Picture without = painted(" ", is_lit), with = painted("Hgmx", is_lit);
                int captions = 0;
                controls.Each([&](const char* key, const Tools& control) {
                    int inked = 0, least = 2100;
                    for (int x = control.Rect.left; x < control.Rect.right; ++x) {
                        for (int y = control.Rect.top; y < control.Rect.bottom; ++y) {
                            if (with.At(x, y) == without.At(x, y)) continue;
                            ++inked, least = std::min(least, Contrast(with.At(x, y), without.At(x, y)));
                        }
                    }
                    EXPECT_GE(least, 450) << key;
                    captions += inked >= 50;
                });
                EXPECT_GE(captions, 15);
            }
        }
    }
}

TEST(Theme, Is_Worn_By_All_And_Taken_Off_Without_A_Trace) {
    Hosted_Window shown(width, height);
    Host& host = *shown.host;
    Every_Class controls;
    host.Set_Background(Colors(60, 120, 180));
    controls.Show_In(host);
    host.Set_Enabled(controls.button, false);
    controls.secret.Input('\r'), controls.secret.Update();
    const Picture plain = shown.All_Painted();
    const Theme dark = Dark_Theme();
    host.Set_Theme(&dark);
    const Picture worn = shown.All_Painted();
    EXPECT_STREQ(controls.secret.Line, "hush") << "what stands in a field stays";
    EXPECT_EQ(worn.At(599, 439), 0x2A2A2Au);
    Buttons late;
    Place(late, "Late", 460, 210, 80, 30);
    host.Add(late);
    EXPECT_EQ(late.Look, controls.box.Look);
    EXPECT_EQ(controls.list.Item[2]->Look, late.Look) << "and parts do";
    EXPECT_NE(controls.button.Look, late.Look) << "who is disabled has a look of its own";
    host.Remove(late);
    host.Place(late, 1, 1, 9, 9);
    EXPECT_EQ(late.X, 460) << "who was removed stays";
    {
        const Theme other = System_Theme();
        host.Set_Theme(&other);
    }
    late.Init(shown.window);
    late.Draw();
    EXPECT_EQ(late.Look->Window, dark.Window) << "one that was removed keeps what it wears";
    host.Set_Theme(nullptr);
    EXPECT_TRUE(Same(shown.All_Painted(), plain));
}

TEST(Theme, Of_The_System_Is_Renewed) {
    Hosted_Window shown(60, 60);
    shown.host->Follow_System_Theme();
    const INT face = COLOR_BTNFACE;
    const COLORREF before = GetSysColor(face);
    const COLORREF other = RGB(12, 34, 56);
    SetSysColors(1, &face, &other);
    EXPECT_FALSE(shown.Send(WM_SYSCOLORCHANGE)) << "others hear of it too";
    const Picture changed = shown.All_Painted();
    SetSysColors(1, &face, &before);
    EXPECT_EQ(changed.At(5, 5), 0x0C2238u);
    const Theme dark = Dark_Theme();
    shown.host->Set_Theme(&dark);
    shown.Send(WM_SYSCOLORCHANGE);
    EXPECT_EQ(shown.All_Painted().At(5, 5), 0x2A2A2Au) << "until another theme is set";
}

}  // namespace
}  // namespace galdren_test
