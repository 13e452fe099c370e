#include <array>
#include <atomic>
#include <functional>
#include <thread>

#include "Galdren_Tools.h"
#include "tests/support/controls.h"
#include "tests/support/spy.h"
#include "tests/support/window.h"

using namespace galdren_test;

namespace {

/// Fills `area` of `window` in red, in a pair of its own.
void Paint(HWND window, const Area& area) {
    Begin_Draw(window, nullptr);
    Current_Color = 0xFF;
    Draw_Box(area.left, area.top, area.right + 1, area.bottom - 1);
    End_Draw();
}

/// Whatever a test does, nothing is open afterwards, and the lock is free.
class Surface : public testing::Test {
  protected:
    void TearDown() override {
        EXPECT_EQ(Z_DC, nullptr);
        EXPECT_EQ(Z_Window, nullptr);
        bool free = false;
        std::thread([&free] {
            free = TryEnterCriticalSection(&Critical);
            if (free) LeaveCriticalSection(&Critical);
        }).join();
        EXPECT_TRUE(free) << "the lock is still held";
    }
};
struct Batch : Surface {};
struct Hold : Surface {};
struct Print : Surface {};

/// A box and a button, the pointer on the button.
struct Controls {
    explicit Controls(const Test_Window& window) {
        Place(box, "Box", 10, 10, 120, 80, FLAG_VERTICAL), Place(button, "But\tton", 150, 20, 100, 25);
        box.Init(window), button.Init(window);
        window.Point_At(160, 30);
    }
    void Draw() { box.Draw(), button.Draw(); }
    Boxs box;
    Buttons button;
};

}  // namespace

// Has to be the first test of this program: it needs a library that has not drawn yet.
TEST_F(Surface, Two_Threads_May_Draw_First) {
    ASSERT_EQ(Critical_Flag, 0) << "run this test alone";
    EXPECT_EQ(Current_Color, 0u);
    Test_Window windows[2] = {Test_Window(60, 40), Test_Window(60, 40)};
    std::atomic<int> ready = 0;
    int overlaps = 0;
    const auto draw = [&](HWND window) {
        for (++ready; ready < 2;) {
        }
        Begin_Hold(window);
        for (int i = 0; i < 300; ++i) {
            Begin_Draw(window, nullptr);
            overlaps += Z_Window != window;
            Paint(window, {10, 29, 11, 20});
            overlaps += Z_Window != window;
            End_Draw();
        }
        End_Hold(window);
    };
    std::thread other(draw, HWND{windows[0]});
    draw(windows[1]);
    other.join();
    EXPECT_EQ(overlaps, 0);
    EXPECT_EQ(Critical_Flag, 1);
    for (const Test_Window& window : windows)
        EXPECT_EQ(Picture(window).Painted(), (Area{10, 29, 11, 20}));
}

TEST_F(Surface, One_Unit_Is_One_Pixel_From_The_Bottom_Left) {
    for (const int w : {1, 240, 1100}) {
        const int h = w / 4 + 1;
        Test_Window window(w, h);
        for (const POINT p : {POINT{0, 0}, POINT{w - 1, h - 1}, POINT{w - 1, 0}, POINT{w / 2, h / 3}}) {
            const Area pixel{p.x, p.x, p.y, p.y};
            EXPECT_EQ(window.Changed([&] { Paint(window, pixel); }), pixel) << w << " x " << h;
        }
    }
}

TEST_F(Surface, Pairs_Nest) {
    Test_Window outer(100, 50), inner(80, 30);
    const Area painted = outer.Changed([&] {
        Begin_Draw(outer, nullptr);
        HDC context = Z_DC;
        Paint(outer, {1, 2, 3, 4});
        EXPECT_EQ(Z_DC, context);
        Begin_Draw(inner, nullptr);
        EXPECT_EQ(WindowFromDC(Z_DC), inner);
        Paint(outer, {1, 2, 3, 4});
        Paint(nullptr, {0, 9, 0, 9});
        EXPECT_EQ(Z_Window, inner);
        Draw_Box(5, 8, 6, 7);
        End_Draw();
        EXPECT_EQ(Z_DC, context);
        EXPECT_EQ(Z_Window, outer);
        Draw_Box(97, 49, 100, 47);
        End_Draw();
    });
    EXPECT_EQ(painted, (Area{1, 99, 3, 49}));
    EXPECT_EQ(Picture(inner).Painted(), (Area{5, 5, 8, 8}));
}

TEST_F(Surface, Tolerates_Missing_Windows_And_Ends) {
    Test_Window window(50, 50), empty(50, 50), gone(50, 50);
    HWND destroyed = gone;
    gone.Close();
    empty.Resize(0, 0);
    for (int i = 0; i < 3; ++i)
        End_Draw(), End_Batch();
    for (HWND bad : {HWND{}, destroyed, HWND{empty}}) {
        const Area painted = window.Changed([bad] {
            Begin_Draw(bad, nullptr);
            Clip_Rect(0, 0, 9, 9);
            Draw_Line(9, 9, 1), Draw_Frame(0, 0, 9, 9), Draw_Box(0, 9, 9, 0);
            Text_Tabbed(nullptr, 0, 0, "text"), Text_Width(nullptr, "text"), Text_Height(nullptr);
            Text_Tabbed(nullptr, 0, 0, nullptr), Text_Width(nullptr, nullptr);
            Clip_Reset();
            End_Draw();
            Begin_Batch(bad);
            Paint(bad, {0, 9, 0, 9});
            End_Batch();
        });
        EXPECT_EQ(painted, Nothing);
    }
    Begin_Draw(window, nullptr);
    window.Close();
    Draw_Box(0, 9, 9, 0);
    End_Draw();
}

TEST_F(Surface, Clips_To_A_Rectangle_Until_Reset) {
    Test_Window window(240, 90);
    const Area all{0, 239, 0, 89};
    const auto clipped = [&](int width, bool reset) {
        return window.Changed([&] {
            Begin_Draw(window, nullptr);
            Clip_Rect(1, 1, 2, 2);  // the next clip takes its place
            Clip_Rect(210, 20, width, 5);
            if (reset) Clip_Reset();
            Paint(window, all);
            End_Draw();
        });
    };
    EXPECT_EQ(clipped(10, false), (Area{210, 219, 21, 25}));
    EXPECT_EQ(clipped(0, false), Nothing);
    EXPECT_EQ(clipped(0, true), all);
    clipped(10, false);
    EXPECT_EQ(window.Changed([&] { Paint(window, all); }), all) << "a clip ends with its pair";
}

TEST_F(Batch, Reaches_The_Window_At_Its_End) {
    Test_Window window(300, 120), other(60, 60);
    Controls controls(window);
    const auto batch = [&] {
        other.Refill();
        Begin_Batch(window), controls.Draw();
        Begin_Batch(other), Paint(other, {0, 9, 0, 9});
        EXPECT_EQ(Picture(other).Painted(), Nothing);
        End_Batch();
        EXPECT_EQ(Picture(other).Painted(), (Area{0, 9, 0, 9})) << "the batch of another window ends alone";
        Begin_Batch(window), controls.button.Adjust(), End_Batch();
        EXPECT_EQ(Picture(window).Painted(), Nothing);
        End_Batch();
    };
    const Picture plain = window.After([&] { controls.Draw(); });
    window.After(batch);
    const int objects = Gdi_Objects();
    EXPECT_TRUE(Same(window.After(batch), plain));
    EXPECT_EQ(Gdi_Objects(), objects);
}

TEST_F(Batch, Fills_A_Rectangle_And_Leaves_The_Rest_Alone) {
    Test_Window window(100, 80);
    const auto filled = [&](const RECT& device, bool nested) {
        return window.Changed([&] {
            if (nested) Begin_Batch(window), Paint(window, {0, 3, 0, 3});
            Begin_Batch(window, device, 0x112233);
            Paint(window, {0, 15, 0, 55});
            End_Batch();
            if (nested) End_Batch();
        });
    };
    const RECT device{10, 20, 40, 30};  // rows 50 to 59 from the bottom
    EXPECT_EQ(filled(device, false), (Area{10, 39, 50, 59}));
    EXPECT_EQ(Picture(window).At(39, 59), 0x332211u);
    EXPECT_EQ(Picture(window).At(10, 50), 0xFF0000u);
    EXPECT_EQ(filled(device, true), (Area{0, 39, 0, 59}));
    for (const RECT& bad : {RECT{5, 5, 5, 9}, RECT{200, 0, 300, 50}, RECT{-9, -9, 0, 0}})
        EXPECT_EQ(filled(bad, false), Nothing);
    EXPECT_EQ(filled({-9, -9, 999, 999}, false), (Area{0, 99, 0, 79}));
}

/// What an application selects in a batch is gone with its pair, as it is on a window.
TEST_F(Batch, Forgets_What_An_Application_Set) {
    Test_Window window(100, 80);
    const auto shown = [&](bool set) {
        return window.After([&] {
            const Paint_Batch batch(window);
            Begin_Draw(window, nullptr);
            Text_Tabbed(nullptr, 40, 40, "text");
            if (set) {
                SetTextAlign(Z_DC, TA_RIGHT), SetROP2(Z_DC, R2_NOT),
                    SelectObject(Z_DC, GetStockObject(BLACK_BRUSH));
                Clip_Rect(0, 0, 5, 5);
            }
            End_Draw();
        });
    };
    const Picture before = shown(false);
    shown(true);
    EXPECT_TRUE(Same(shown(false), before));
}

TEST_F(Batch, May_Outlive_Its_Window) {
    Test_Window window(100, 80), other(50, 50);
    Begin_Batch(window);
    window.Close();
    Begin_Batch(other);  // buffers of windows that are gone go now, but for one in use
    End_Batch(), End_Batch();
}

/// What an open pair paints is not lost when the batch ends around it, at another size or not.
TEST_F(Batch, May_End_Before_A_Pair_That_It_Began_With) {
    for (const bool resized : {false, true}) {
        Test_Window window(100, 80);
        const Area painted = window.Changed([&] {
            Begin_Batch(window);
            Begin_Draw(window, nullptr);
            Current_Color = 0xFF;
            Draw_Box(10, 20, 20, 10);
            End_Batch();
            if (resized) window.Resize(90, 100), window.Refill();
            Begin_Batch(window);
            Paint(window, {40, 49, 11, 20});
            End_Batch();
            Draw_Box(60, 20, 70, 10);
            End_Draw();
        });
        const int raised = resized ? 20 : 0;  // the pair counts from the bottom that the window had
        EXPECT_EQ(painted, (Area{resized ? 40 : 10, 69, 11, 20 + raised})) << resized;
    }
}

/// A member leaves the application's context as it is, whatever it has to clip for itself.
TEST_F(Surface, Comes_Back_From_Members_As_It_Was) {
    Test_Window window(300, 120);
    Controls controls(window);
    controls.box.Clip_X = 20, controls.box.Clip_Y = 20, controls.box.Clip_Width = 30,
    controls.box.Clip_Height = 40;
    const Area painted = window.Changed([&] {
        Begin_Draw(window, nullptr);
        Clip_Rect(10, 10, 60, 50);
        SetTextColor(Z_DC, 0x123456), SetBkMode(Z_DC, OPAQUE);
        const HGDIOBJ font = GetCurrentObject(Z_DC, OBJ_FONT);
        Text_Width(controls.box.Font, "text"), Text_Tabbed(controls.box.Font, 20, 30, "text");
        controls.Draw();
        EXPECT_EQ(GetCurrentObject(Z_DC, OBJ_FONT), font);
        EXPECT_EQ(GetTextColor(Z_DC), 0x123456u);
        EXPECT_EQ(GetBkMode(Z_DC), OPAQUE);
        Current_Color = 0xFF;
        Draw_Box(0, 119, 300, 0);
        End_Draw();
    });
    EXPECT_EQ(painted, (Area{10, 69, 11, 60}));
}

/// What an application paints in a window that runs from right to left stands as in any other.
TEST_F(Surface, Is_Never_Mirrored) {
    Test_Window window(300, 120);
    SetWindowLongA(window, GWL_EXSTYLE, GetWindowLongA(window, GWL_EXSTYLE) | WS_EX_LAYOUTRTL);
    // A picture of this window is read from the right.
    EXPECT_EQ(window.Changed([&] { Paint(window, {10, 29, 11, 20}); }), (Area{299 - 29, 299 - 10, 11, 20}));
}

/// Each member paints once and is copied once, but those of a batch are copied together; what is hidden costs
/// nothing.
TEST_F(Surface, Counts_What_Members_Cost) {
    Test_Window window(300, 120);
    Boxs box;
    Place(box, "Usual", 10, 10, 50, 40);
    box.Init(window);
    const auto cost_of = [](const auto& use) {
        const Paint_Count before = Tools_Paint_Count();
        use();
        const Paint_Count after = Tools_Paint_Count();
        return std::array{after.paints - before.paints, after.copies - before.copies,
                          after.bytes - before.bytes};
    };
    const auto [paints, copies, bytes] = cost_of([&] { box.Draw(); });
    EXPECT_TRUE(paints == 1 && copies == 1 && bytes >= 4 * 50 * 40 && bytes <= 4 * 56 * 46) << bytes;
    const auto three = cost_of([&] {
        const Paint_Batch batch(window);
        box.Draw(), box.Draw(), box.Draw();
    });
    EXPECT_EQ(three, (std::array{3 * paints, copies, bytes}));
    box.Veil = VEIL_HIDDEN;
    EXPECT_EQ(cost_of([&] { box.Draw(); }), (std::array<unsigned long long, 3>{}));
    Texts console;
    Place(console, nullptr, 5, 5, 200, 100);
    console.Font_Size = 6;  // smoothed, so GDI writes it
    console.Init(window), console.Write("line\nline");
    const Call_Spy spy;
    console.Write("line");
    EXPECT_EQ(spy.Count("ExtTextOutW"), 1) << "the other lines are moved";
}

TEST_F(Surface, Spares_Windows_Inside_When_The_Window_Asks_For_It) {
    Test_Window window(100, 80);
    const HWND inside =
        CreateWindowA("STATIC", "", WS_CHILD | WS_VISIBLE, 20, 20, 30, 30, window, nullptr, nullptr, nullptr);
    UpdateWindow(inside);
    Boxs box;
    box.Width = 90, box.Height = 70, box.Color = Colors(10, 200, 30);
    box.Init(window);
    for (const LONG style : {LONG{WS_CLIPCHILDREN}, 0L}) {
        SetWindowLongA(window, GWL_STYLE, (GetWindowLongA(window, GWL_STYLE) & ~WS_CLIPCHILDREN) | style);
        const std::uint32_t before = Picture(window).At(35, 45);
        box.Draw();
        EXPECT_EQ(Picture(window).At(35, 45) == before, style != 0);
    }
}

/// A held window follows its size, and shows its picture again on demand.
TEST_F(Hold, Shows_What_Was_Painted) {
    Test_Window window(300, 120);
    Begin_Hold(window);
    Controls controls(window);
    controls.Draw();
    {
        const Call_Spy spy;
        controls.Draw();
        EXPECT_EQ(spy.Contexts(), 0) << "the library keeps one for a held window";
    }
    const Picture picture(window);
    window.Refill();
    const HDC dc = GetDC(window);
    EXPECT_EQ(Show_Hold(window, dc, {0, 0, 300, 120}), 1);
    EXPECT_TRUE(Same(Picture(window), picture));
    window.Resize(200, 150);
    EXPECT_EQ(Show_Hold(window, dc, {0, 0, 200, 150}), 0);
    ReleaseDC(window, dc);
    EXPECT_EQ(window.Changed([&] { Paint(window, {190, 199, 140, 149}); }), (Area{190, 199, 140, 149}));
    Begin_Hold(window), End_Hold(window), End_Hold(window), End_Hold(window);
    EXPECT_EQ(Show_Hold(window, nullptr, {0, 0, 9, 9}), 0);
}

/// The picture of a held window goes with it, also when nobody ends the hold.
TEST_F(Hold, Ends_With_The_Window) {
    Test_Window other(60, 60);
    Controls controls(other);
    const auto hold_and_go = [] {
        Test_Window window(300, 120);
        Begin_Hold(window);
        Controls(window).Draw();
        Begin_Draw(window, nullptr);
        window.Close();
        Paint(window, {0, 9, 0, 9});
        End_Draw();
    };
    const std::function<void()> ways_to_go_on[] = {[&] { Begin_Hold(other), End_Hold(other); },
                                                   [&] { Begin_Batch(other), End_Batch(); },
                                                   [&] { controls.Draw(); }, Tools_Lib_Cleanup};
    for (const auto& go_on : ways_to_go_on) {
        hold_and_go(), ways_to_go_on[0](), go_on();
        const int objects = Gdi_Objects();
        for (int i = 0; i < 20; ++i)
            hold_and_go();
        go_on();
        EXPECT_EQ(Gdi_Objects(), objects) << &go_on - ways_to_go_on;
    }
}

TEST_F(Print, Tells_What_Fails) {
    const Test_Window window(100, 50);
    ASSERT_EQ(Begin_Print(window, 0), 1);
    const HDC dc = GetDC(window);
    for (const char* function : {"SetStretchBltMode", "StretchDIBits"}) {
        Call_Spy spy;
        spy.Fail(function);
        EXPECT_EQ(Show_Batch(dc, {0, 0, 10, 10}), 0) << function;
    }
    EXPECT_EQ(Show_Batch(dc, {0, 0, 10, 10}), 1);
    ReleaseDC(window, dc);
    End_Batch();
}

/// Held or not, windows of any kind show what a plain one does, whatever happens to them meanwhile.
TEST_F(Hold, Is_For_Windows_Of_Any_Kind) {
    const auto shown_by = [](bool held, LONG extended, UINT class_style) {
        Test_Window window(300, 120, class_style);
        SetWindowLongA(window, GWL_EXSTYLE, GetWindowLongA(window, GWL_EXSTYLE) | extended);
        if (extended == WS_EX_LAYERED) SetLayeredWindowAttributes(window, 0, 255, LWA_ALPHA);
        Controls controls(window);
        window.Point_At(0, 0);
        if (held) Begin_Hold(window);
        ShowWindow(window, SW_HIDE);
        controls.Draw();
        ShowWindow(window, SW_SHOWNA);
        window.Resize(3000, 2200), controls.Draw();
        Begin_Batch(window);
        for (const SIZE size : {SIZE{3400, 2600}, SIZE{200, 60}, SIZE{300, 120}})
            window.Resize(size.cx, size.cy), controls.Draw();
        End_Batch();
        return window.After([&] { controls.Draw(); });
    };
    Test_Window plain(300, 120);
    Controls controls(plain);
    plain.Point_At(0, 0);
    const Picture picture = plain.After([&] { controls.Draw(); });
    for (const bool held : {false, true}) {
        for (const LONG extended : {0L, LONG{WS_EX_LAYERED}, LONG{WS_EX_COMPOSITED}}) {
            for (const UINT class_style : {0U, UINT{CS_OWNDC}, UINT{CS_HREDRAW | CS_VREDRAW}})
                EXPECT_TRUE(Same(shown_by(held, extended, class_style), picture))
                    << held << ' ' << extended << ' ' << class_style;
        }
    }
}
