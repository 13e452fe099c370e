// A host on other contexts than that of its window.
#include <algorithm>
#include <cstdint>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "tests/support/every_class.h"
#include "tests/support/hosted.h"
#include "tests/support/spy.h"

namespace galdren_test {
namespace {

constexpr int width = 600;
constexpr int height = 440;

/// Something loud to print on.
class Paper {
  public:
    Paper(int wide, int high) : wide_(wide), high_(high) {
        const BITMAPINFO layout{{sizeof(BITMAPINFOHEADER), wide, -high, 1, 32, BI_RGB, 0, 0, 0, 0, 0}, {}};
        void* bits = nullptr;
        bitmap_ = CreateDIBSection(nullptr, &layout, DIB_RGB_COLORS, &bits, nullptr, 0);
        before_ = SelectObject(dc_, bitmap_);
        bits_ = static_cast<std::uint32_t*>(bits);
        std::fill_n(bits_, wide * high, Loud);
    }
    ~Paper() {
        SelectObject(dc_, before_);
        DeleteDC(dc_);
        DeleteObject(bitmap_);
    }
    Paper(const Paper&) = delete;
    Paper& operator=(const Paper&) = delete;

    operator HDC() const { return dc_; }
    Picture Shown() const {
        GdiFlush();
        std::vector<std::uint32_t> pixels(bits_, bits_ + wide_ * high_);
        for (std::uint32_t& pixel : pixels)
            pixel &= 0xFFFFFF;
        return {wide_, high_, std::move(pixels)};
    }

  private:
    int wide_, high_;
    HDC dc_ = CreateCompatibleDC(nullptr);
    HBITMAP bitmap_;
    HGDIOBJ before_;
    std::uint32_t* bits_;
};

class Print_Test : public testing::Test, protected Hosted_Window, protected Every_Class {
  protected:
    Print_Test() : Hosted_Window(width, height) {
        Connect();
        Place(off, "Off", 40, 130, 25, 40);
        host->Set_Background(Colors(60, 120, 180));
        host->Set_On_Paint([this] {
            Current_Color = Colors(10, 20, 30).get();
            Draw_Box(0, 60, 60, 0);
            if (during) during();
        });
        host->Add(off);
        Show_In(*host);
        host->Set_Enabled(off, false);
        RedrawWindow(window, nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW);
    }
    Picture Printed() {
        const Paper paper(width, height);
        EXPECT_TRUE(host->Paint_Into(paper, {0, 0, width, height}));
        return paper.Shown();
    }
    std::function<void()> during;
    Buttons off;  // disabled, and below others
};

TEST_F(Print_Test, Prints_What_The_Window_Shows_And_Lights_Nothing_Up) {
    for (const bool holds : {false, true}) {
        SCOPED_TRACE(holds);
        if (holds) host->Hold();
        Send(WM_MOUSEMOVE, 0, {-1, -1});
        const Picture plain = All_Painted();
        window.Refill();
        EXPECT_TRUE(Same(Printed(), plain));
        EXPECT_EQ(Picture(window).Painted(), Nothing) << "nothing of it goes to the window";
        All_Painted();
        int lights = 0;
        Each([&](const char* key, const Tools& control) {
            SCOPED_TRACE(key);
            const POINT at{control.X + 30, control.Y + control.Height / 2};
            Send(WM_MOUSEMOVE, 0, at);
            const Picture lit(window);
            if (!Same(lit, plain)) ++lights;
            EXPECT_TRUE(Same(Printed(), plain));
            Send(WM_MOUSEMOVE, 0, {at.x + 1, at.y});
            EXPECT_TRUE(Same(Picture(window), lit));
            if (holds) RedrawWindow(window, nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW);
            EXPECT_TRUE(Same(Picture(window), lit)) << "painted again";
            Send(WM_MOUSELEAVE);
            EXPECT_TRUE(Same(Picture(window), plain)) << "the control still knows that it was lit up";
            button.Draw();
            EXPECT_TRUE(Same(Picture(window), plain)) << "nothing lights up where the pointer has been";
        });
        EXPECT_GE(lights, 14);
    }
}

TEST_F(Print_Test, A_Drag_Goes_On_And_Caret_And_Ring_Stay_In_The_Window) {
    host->Focus(&line);  // which reads from now on
    SendMessageA(window, WM_KILLFOCUS, 0, 0);
    const Picture plain = All_Painted();
    SendMessageA(window, WM_SETFOCUS, 0, 0);
    SendMessageA(window, WM_KEYDOWN, VK_TAB, 0);
    SendMessageA(window, WM_CHAR, '\t', 0);
    host->Focus(&line);
    const Picture worked = All_Painted();
    EXPECT_FALSE(Same(worked, plain));
    EXPECT_TRUE(Same(Printed(), plain));
    EXPECT_TRUE(Same(Picture(window), worked));
    EXPECT_EQ(line.Caret, CARET_SHOWN);

    gain.Flag |= SLIDER_KEEP_GRAB;
    Send(WM_LBUTTONDOWN, MK_LBUTTON, {300, 45});
    Send(WM_MOUSEMOVE, MK_LBUTTON, {320, 45});
    UpdateWindow(window);  // the ring goes
    const float before = gain.Val;
    const Picture dragged(window);
    EXPECT_TRUE(Same(Printed(), dragged));
    Send(WM_MOUSEMOVE, MK_LBUTTON, {330, 85});
    EXPECT_GT(gain.Val, before) << "the bar still has the pointer";
}

TEST_F(Print_Test, The_System_Prints_Windows_That_Nobody_Sees) {
    Send(WM_MOUSEMOVE, 0, {-1, -1});
    const Picture shown = All_Painted();
    ShowWindow(window, SW_HIDE);
    for (const bool mirrored : {false, true}) {
        if (mirrored) SetWindowLongA(window, GWL_EXSTYLE, WS_EX_LAYOUTRTL);
        const Paper paper(width, height), direct(width, height), turned(width, height);
        EXPECT_TRUE(PrintWindow(window, paper, 0));
        EXPECT_TRUE(Same(paper.Shown(), shown)) << mirrored;
        SendMessageA(window, WM_PRINTCLIENT, reinterpret_cast<WPARAM>(static_cast<HDC>(direct)), PRF_CLIENT);
        EXPECT_TRUE(Same(direct.Shown(), shown)) << mirrored;
        SetLayout(turned, LAYOUT_RTL);
        EXPECT_TRUE(host->Paint_Into(turned, {0, 0, width, height}));
        EXPECT_TRUE(Same(turned.Shown(), shown)) << "whatever the context";
    }
}

TEST_F(Print_Test, Stretches_Into_A_Context_That_Stays_As_It_Was) {
    Send(WM_MOUSEMOVE, 0, {-1, -1});
    host->Clear();  // one square that is dark, in a corner, and no control
    const Paper paper(2 * width + 40, 2 * height + 40);
    SetMapMode(paper, MM_ANISOTROPIC);
    SetWindowExtEx(paper, 10, 10, nullptr);
    SetViewportExtEx(paper, 20, -20, nullptr);
    SetViewportOrgEx(paper, 0, 2 * height + 20, nullptr);
    IntersectClipRect(paper, 0, 5, width + 10, height + 20);
    SetStretchBltMode(paper, WHITEONBLACK);
    SetBrushOrgEx(paper, 3, 5, nullptr);
    RECT clip{}, clip_after{};
    GetClipBox(paper, &clip);
    EXPECT_TRUE(host->Paint_Into(paper, {10, height, 10 + width, 0}));

    POINT origin{}, brush{};
    SIZE extent{};
    GetClipBox(paper, &clip_after), GetBrushOrgEx(paper, &brush);
    GetViewportOrgEx(paper, &origin), GetViewportExtEx(paper, &extent);
    EXPECT_TRUE(EqualRect(&clip, &clip_after));
    EXPECT_TRUE(origin.y == 2 * height + 20 && extent.cx == 20 && extent.cy == -20);
    EXPECT_TRUE(brush.x == 3 && brush.y == 5 && GetStretchBltMode(paper) == WHITEONBLACK);

    const Picture shown = paper.Shown();
    constexpr Area inside{20, 2 * width + 19, 30, 2 * height + 19};
    EXPECT_EQ(shown.Painted(), inside) << "as far as the clip goes";
    EXPECT_EQ(shown.At(2 * width, 2 * height), 0x3C78B4u);
    EXPECT_EQ(shown.At(20 + 2 * 58, 20 + 2 * 58), 0x0A141Eu) << "upright, at twice the size";
    EXPECT_EQ(shown.At(20 + 2 * 62, 20 + 2 * 62), 0x3C78B4u);
}

TEST_F(Print_Test, Says_When_Nothing_Was_Printed) {
    const RECT all{0, 0, width, height};
    const Picture shown = All_Painted();
    const Paper paper(width, height);
    Report_Catcher reports;
    EXPECT_FALSE(host->Paint_Into(nullptr, all));
    EXPECT_EQ(reports.Take(), "11:Tools: what a window was to be printed on is no device context");
    EXPECT_FALSE(host->Paint_Into(paper, {5, 5, 5, 50})) << "no room";

    int calls = 0;
    during = [&] { EXPECT_TRUE(++calls == 1 && !host->Paint_Into(paper, all)) << "inside of itself"; };
    EXPECT_TRUE(host->Paint_Into(paper, all));
    during = nullptr;

    Tools_Lib_Cleanup();
    {
        Call_Spy spy;
        spy.Fail("CreateDIBSection");
        EXPECT_FALSE(host->Paint_Into(paper, all));
    }
    EXPECT_EQ(reports.Take(), "1:Tools: no memory to print a window of 600 x 440 pixels");
    EXPECT_TRUE(Same(Picture(window), shown)) << "the window is not what is printed on then";
    window.Resize(0, 0);
    EXPECT_FALSE(host->Paint_Into(paper, all));
    window.Close();
    EXPECT_FALSE(host->Paint_Into(paper, all));
    EXPECT_EQ(reports.Take(), "");
}

}  // namespace
}  // namespace galdren_test
