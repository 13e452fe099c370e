// Scale and theme of a host: what fields hold and what is painted, and that all comes back.
#include <array>
#include <cmath>
#include <random>
#include <string>
#include <vector>

#include "tests/support/controls.h"
#include "tests/support/hosted.h"
#include "tests/support/spy.h"

namespace galdren_test {
namespace {

/// A control of each kind, for a client area of 600 x 400.
struct Every_Class {
    Every_Class() {
        Place(box, "Box", 10, 10, 101, 61);
        Place(label, "Label", 121, 10, 81, 21);
        Place(button, "Button", 211, 10, 91, 33, BUTTON_LAMP);
        Place(checks, "Checks", 311, 10, 121, 81);
        checks.List = checked;
        Place(list, "List", 10, 90, 101, 121, FLAG_VERTICAL);
        Name_Items(list, {"a", "b", "c", "d", "e", "f", "g", "h", "i", "j"});
        list.Item_Height = 19, list.Slider_Width = 13;
        Place(selector, "Selector", 121, 60, 181, 31, FLAG_TEXT_LEFT);
        Name_Items(selector, {"one", "two"});
        Place(bar, nullptr, 121, 100, 181, 17, SLIDER_KEEP_GRAB);
        bar.End_Val = 100;
        Place(value, "Value", 121, 130, 181, 25);
        value.End_Val = 1, value.Format = "%.2f", value.Num_Width = 51;
        Place(tabs, nullptr, 10, 340, 391, 27);
        Name_Items(tabs, {"First", "Second", "Third"});
        Place(console, "Console", 311, 110, 141, 121, TEXT_V_BAR);
        console.Bar_Dim = 15;
        Place(hue, nullptr, 10, 250, 121, 51);
        Place(color, nullptr, 150, 240, 181, 81);
    }
    void Add_To(Host& host) {
        host.Add(box), host.Add(label), host.Add(button), host.Add(checks), host.Add(list),
            host.Add(selector), host.Add(bar), host.Add(value), host.Add(tabs), host.Add(console),
            host.Add(hue), host.Add(color);
    }
    std::array<Tools*, 12> All() {
        return {&box, &label, &button, &checks,  &list, &selector,
                &bar, &value, &tabs,   &console, &hue,  &color};
    }
    /// Every field that a scale can change, of the controls and of what they are made of.
    std::vector<double> Fields() {
        std::vector<double> fields;
        const auto note = [&fields](const auto&... values) { (fields.push_back(double(values)), ...); };
        const auto note_control = [&note](const Tools& c) {
            note(c.X, c.Y, c.Width, c.Height, c.Border, c.Font_Size, c.Font_Size_Last, c.Clip_X, c.Clip_Y,
                 c.Clip_Width, c.Clip_Height, c.Rect.left, c.Rect.top, c.Rect.right, c.Rect.bottom, c.Scale,
                 c.Last_Scale, c.Last_Width, c.Last_Height);
        };
        for (const Tools* const control : All())
            note_control(*control);
        note_control(list.Frame), note_control(list.Scroll_Bar), note_control(*list.Item[3]);
        note_control(*tabs.Item[1]), note_control(color.Chan_2), note_control(color.Swatch);
        note_control(checks.Check[1]), note_control(selector.Value_Box), note_control(console.V_Slider);
        note(list.Item_Height, list.Slider_Width, list.Item_X, list.Item_Y, list.Item_DY, list.Scroll_Bar.Val,
             list.Scroll_Bar.Curs_Half, selector.Arrow_Size, bar.Curs_Half, bar.Tab_Num, value.Num_Width,
             value.Curs_Half, value.Tab_Num, tabs.Slant, tabs.Tab_Width, tabs.First_X, console.Bar_Dim,
             console.Line_Height, console.V_Slider.Curs_Half, hue.Hue.Curs_Half, color.Chan_1.Curs_Half,
             color.Chan_3.Tab_Num);
        return fields;
    }

    const char* const checked[4] = {"one", "two", "three", nullptr};
    Boxs box;
    Labels label;
    Buttons button;
    CheckLists checks;
    Lists list;
    Selects selector;
    Sliders bar;
    Valuators value;
    Tabs tabs;
    Texts console;
    Hue_Edit hue;
    Color_Edit color;
};

TEST(Scale, Comes_Back_After_A_Hundred_Others) {
    Hosted_Window shown(600, 400);
    Every_Class controls;
    controls.Add_To(*shown.host);
    shown.host->Init_All();
    for (int i = 0; i < 30; ++i)
        controls.console.Write("line %d", i);
    controls.list.Bring_Into_View(7);
    controls.list.Init(shown.window);
    const Picture before = shown.All_Painted();
    const float scrolled = controls.list.Scroll_Bar.Val - controls.list.Scroll_Bar.End_Val;
    const std::vector<double> fields = controls.Fields();
    std::mt19937 random(5);
    for (int i = 0; i < 100; ++i) {
        const int scale = i == 0 ? 25 : i == 1 ? 500 : 25 + static_cast<int>(random() % 476);
        shown.host->Set_Scale(scale);
        EXPECT_EQ(controls.button.Width, std::lround(91 * scale / 100.0));
        EXPECT_EQ(controls.list.Item_Height, std::lround(19 * scale / 100.0));
    }
    shown.host->Set_Scale(100);
    EXPECT_TRUE(Same(shown.All_Painted(), before));
    const std::vector<double> after = controls.Fields();
    for (std::size_t i = 0; i < fields.size(); ++i)
        EXPECT_EQ(after[i], fields[i]) << "field " << i;
    shown.host->Set_Scale(200);
    EXPECT_FALSE(Same(shown.All_Painted(), before));
    EXPECT_FLOAT_EQ(controls.list.Scroll_Bar.Val - controls.list.Scroll_Bar.End_Val, 2 * scrolled)
        << "as far scrolled as before";
}

TEST(Scale, Is_The_Same_From_The_Start_And_Later) {
    Hosted_Window early(900, 600);
    Hosted_Window late(900, 600);
    Every_Class first;
    Every_Class second;
    early.host->Set_Scale(150);
    first.Add_To(*early.host);
    early.host->Init_All();
    second.Add_To(*late.host);
    late.host->Init_All();
    late.host->Set_Scale(150);
    EXPECT_EQ(first.Fields(), second.Fields());
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

TEST(Scale, The_Ring_Of_The_Keyboard_Follows) {
    Hosted_Window shown(200, 160);
    Buttons button;
    Place(button, "B", 20, 20, 40, 30);
    shown.host->Add(button);
    shown.host->Set_Scale(200);
    shown.host->Init_All();
    const Picture before = shown.All_Painted();
    shown.Send(WM_SETFOCUS);
    shown.Key(WM_KEYDOWN, VK_TAB);
    const Picture ringed = shown.Painted();
    const std::uint32_t wanted[] = {0xFFFFFF, 0xFFFFFF, 0x000000, 0x000000, before.At(35, 60)};
    for (int i = 0; i < 5; ++i)
        EXPECT_EQ(ringed.At(39 - i, 60), wanted[i]) << i;
    shown.host->Focus(nullptr);
    EXPECT_TRUE(Same(shown.Painted(), before)) << "what it covered is painted";
}

TEST(Scale, Layouts_And_The_Window_Follow) {
    Hosted_Window shown(320, 200);
    shown.Connect();
    Buttons one, two;
    Texts entry;
    Place(one, "One", 0, 0, 1, 1);
    Place(two, "Another one", 0, 0, 1, 1);
    Place(entry, nullptr, 0, 0, 1, 1, TEXT_SINGLE_LINE);
    shown.host->Add(one), shown.host->Add(two), shown.host->Add(entry);
    const SIZE least = Layout::Lay_Out(
        *shown.host, Layout::Margin(10, Layout::Column(6, {Layout::Stretch(entry),
                                                           Layout::Row(8, {Layout::Fixed(one, 80), two})})));
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
        Hosted_Window shown(120, 60);
        if (is_scaled_first) shown.host->Set_Scale(200);
        Buttons button;
        Place(button, nullptr, 5, 5, 40, 20);
        button.Alloc_Graph_Normal(0x112233);
        button.Graph_Normal[10 * 40 + 20] = 0xABCDEF;
        shown.host->Add(button);
        if (!is_scaled_first) shown.host->Set_Scale(200);
        shown.host->Init_All();
        const Picture picture = shown.All_Painted();
        int lit = 0;
        for (const std::uint32_t pixel : picture.Pixels())
            lit += pixel == 0xABCDEF;
        EXPECT_EQ(lit, 4) << is_scaled_first;
        EXPECT_EQ(picture.At(10 + 2 * 20, 10 + 2 * 10), 0xABCDEFU) << is_scaled_first;
        EXPECT_EQ(picture.At(30, 20), 0x112233U);
    }
}

// Themes

/// Contrast of two pixels in hundredths.
int Contrast(std::uint32_t one, std::uint32_t other) {
    const auto gdi = [](std::uint32_t rgb) { return (rgb & 0xFF) << 16 | (rgb & 0xFF00) | rgb >> 16; };
    return Contrast_Of(gdi(one), gdi(other));
}

constexpr std::uint32_t Some_Colors[][3] = {{170, 170, 170}, {255, 255, 255}, {1, 0, 0},    {200, 30, 30},
                                            {255, 255, 0},   {0, 255, 0},     {0, 0, 255},  {90, 120, 200},
                                            {255, 0, 255},   {120, 60, 20},   {70, 75, 80}, {0, 255, 255}};

/// Puts a text wherever a control shows one.
template <class Control>
void Caption(Control& control, const char* text) {
    static const char* rows[2];
    rows[0] = text;
    if constexpr (requires { control.Enabled; }) {
        control.List = rows;
    } else if constexpr (requires { control.Item; }) {
        control.Grow(1, 0), control.Item[0]->Name = text, control.Item[0]->Color = control.Color;
    } else if constexpr (requires { control.Row; }) {
        if (!control.Root) control.Set("c:\\");
        if (control.Current) control.Current->name[0] = *text;
    } else {
        control.Name = text;
    }
    if constexpr (requires { control.Line; }) {
        if (control.Window) control.Cleanup(), control.Write("\x01%s", text);
    }
}

/// A control on the ground, and one on a panel in another colour.
template <class Control>
void Expect_Readable(const char* what, const Theme& theme, SIZE size = {98, 40}) {
    const int width = static_cast<int>(size.cx), height = static_cast<int>(size.cy);
    // Letters as small as those of directories have smooth edges. One of them changes.
    constexpr bool is_smooth = std::is_same_v<Control, DirTrees>;
    constexpr std::size_t enough = is_smooth ? 10 : 60;
    Hosted_Window shown(2 * width + 24, height + 50);
    Host& host = *shown.host;
    host.Set_Theme(&theme);
    Boxs panel;
    Place(panel, nullptr, width + 12, 0, width + 11, height + 49, FLAG_PASSIVE);
    std::array<Control, 2> controls;
    if (!std::is_same_v<Control, Labels>) host.Add(panel);
    Place(controls[0], nullptr, 5, 5, width, height);
    Place(controls[1], nullptr, width + 17, 5, width, height);
    host.Add(controls[0]), host.Add(controls[1]);
    const auto caption = [&](const char* name) {
        for (Control& control : controls)
            Caption(control, name);
        host.Init_All();
        return shown.All_Painted();
    };
    for (const auto& [red, green, blue] : Some_Colors) {
        for (const char* const state :
             {"at rest", "highlighted", "pressed", "pressed and highlighted", "passive", "disabled"}) {
            const std::string in(state);
            for (Control& control : controls) {
                control.Color = panel.Color =
                    Colors(static_cast<int>(red), static_cast<int>(green), static_cast<int>(blue));
                control.Flag = in == "passive" ? FLAG_PASSIVE : 0;
                if constexpr (requires { control.Value; }) control.Value = in.starts_with("pressed");
                host.Set_Enabled(control, in != "disabled");
            }
            shown.Send(WM_MOUSEMOVE, 0, {in.ends_with("highlighted") ? 50 : 1, 25});
            const Picture without = caption(" ");
            const Picture with = caption("Hgmx");
            std::vector<int> contrasts;
            for (std::size_t i = 0; i < with.Pixels().size(); ++i) {
                if (with.Pixels()[i] != without.Pixels()[i])
                    contrasts.push_back(Contrast(with.Pixels()[i], without.Pixels()[i]));
            }
            ASSERT_GE(contrasts.size(), enough) << what << ' ' << in;
            const auto [least, most] = std::minmax_element(contrasts.begin(), contrasts.end());
            EXPECT_GE(is_smooth ? *most : *least, 450)
                << what << ' ' << in << ", colour " << red << ' ' << green << ' ' << blue;
        }
    }
}

TEST(Theme, Captions_Are_Readable_In_Every_State) {
    for (const Theme& theme : {Dark_Theme(), System_Theme()}) {
        SCOPED_TRACE(theme.Window);
        Expect_Readable<Buttons>("button", theme);
        Expect_Readable<Boxs>("box", theme);
        Expect_Readable<Labels>("label", theme);
        Expect_Readable<Valuators>("valuator", theme);
        Expect_Readable<TabItems>("tab", theme);
        Expect_Readable<CheckLists>("check list", theme);
        Expect_Readable<Lists>("list", theme);
        Expect_Readable<Selects>("selector", theme, {160, 50});
        Expect_Readable<Texts>("text field", theme, {98, 80});
        Expect_Readable<DirTrees>("directory browser", theme, {140, 140});
    }
}

TEST(Theme, Is_Worn_By_All_And_Taken_Off_Without_A_Trace) {
    Hosted_Window shown(600, 400);
    Host& host = *shown.host;
    Every_Class controls;
    controls.Add_To(host);
    host.Set_Background(Colors(60, 120, 180));
    host.Init_All();
    host.Set_Enabled(controls.button, false);
    controls.console.Read("typed"), controls.console.Input('\r'), controls.console.Update();
    const Picture plain = shown.All_Painted();
    const Theme dark = Dark_Theme();
    host.Set_Theme(&dark);
    const Picture worn = shown.All_Painted();
    EXPECT_STREQ(controls.console.Line, "typed") << "what stands in a field stays";
    EXPECT_EQ(worn.At(599, 399), 0x2A2A2Au);
    Buttons late;
    Place(late, "Late", 460, 10, 80, 30);
    host.Add(late);
    EXPECT_EQ(late.Look, controls.box.Look);
    EXPECT_EQ(controls.list.Item[2]->Look, late.Look) << "and parts do";
    EXPECT_NE(controls.button.Look, late.Look) << "who is disabled has a look of its own";
    host.Remove(late);
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

TEST(Theme, May_Be_Changed_By_A_Handler) {
    Hosted_Window shown(100, 60);
    Host& host = *shown.host;
    const Theme dark = Dark_Theme();
    Buttons button;
    Place(button, "B", 10, 10, 70, 40);
    host.Add(button, [&](Buttons& pressed) {
        host.Set_Theme(pressed.Look ? nullptr : &dark);
        host.Set_Scale(pressed.Look ? 125 : 100);
    });
    host.Init_All();
    const Picture plain = shown.All_Painted();
    for (const int times : {1, 2}) {
        shown.Send(WM_MOUSEMOVE, 0, {30, 30});
        shown.Click({30, 30});
        EXPECT_EQ(button.Look != nullptr, times == 1);
    }
    button.Value = 0;
    shown.Send(WM_MOUSEMOVE, 0, {99, 59});
    EXPECT_TRUE(Same(shown.All_Painted(), plain));
}

TEST(Theme, Of_The_System_Is_Renewed) {
    Hosted_Window shown(60, 60);
    shown.host->Follow_System_Theme();
    const INT face = COLOR_BTNFACE;
    const COLORREF before = GetSysColor(face);
    const COLORREF other = RGB(12, 34, 56);
    SetSysColors(1, &face, &other);
    shown.Send(WM_SYSCOLORCHANGE);
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
