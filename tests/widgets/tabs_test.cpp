#include <memory>
#include <random>
#include <string>

#include "tests/support/painter.h"
#include "tests/support/spy.h"
#include "tests/support/window.h"

using namespace galdren_test;

namespace {

constexpr COLORREF White = RGB(255, 255, 255), Light = RGB(216, 216, 216), Dark = RGB(110, 110, 110);
constexpr COLORREF Blue = RGB(64, 64, 230), Grey = RGB(170, 170, 170), Black = 0;
constexpr short Left = 30, Bottom = 25;

void Place(Tools& control, int width, int height, unsigned long flag) {
    control.X = Left, control.Y = Bottom, control.Flag = flag, control.Name = "Caption";
    control.Width = static_cast<short>(width), control.Height = static_cast<short>(height);
    control.Font_Name = "Arial", control.Font_Size = 10;
}

/// A set ready but for `Init`.
struct Row : Tabs {
    explicit Row(int count, int width = 300, int height = 40, unsigned long flag = 0) {
        Place(*this, width, height, flag);
        EXPECT_EQ(Grow(count, 0), 1);
        for (int i = 0; i < count; ++i)
            Item[i]->Name = i % 2 ? "Odd" : "Even & long";
    }
    void Turn(int front) { Value = static_cast<short>(front); }
};

void Connect(Painter& p, COLORREF color, std::initializer_list<POINT> points) {
    for (auto to = points.begin() + 1; to != points.end(); ++to)
        p.Line(color, to[-1].x, to[-1].y, to->x, to->y);
}

COLORREF Body_Color(const TabItems& t, bool lit) {
    Colors color = t.Color;
    color -= t.Value && !(t.Flag & 0x20) ? Colors() : Colors(20, 20, 20);
    return lit ? RGB(t.Value ? 230 : 210, 100, 100) : color.get() & 0xFFFFFF;
}

void Paint_Body(Painter& p, const TabItems& t, bool lit) {
    const int s = t.Slant, x0 = t.X + s, x1 = t.X + t.Width - s, y0 = t.Y, y1 = t.Y + t.Height;
    const int ym = (y0 + y1) / 2, right = t.Shape & 0xF, left = t.Shape & 0xF0;
    const COLORREF color = Body_Color(t, lit), page = t.Color.get() & 0xFFFFFF;
    const POINT right_wing{right ? x1 + s - 2 : x1 + s / 2 - 2, right ? y0 + 2 : ym};
    const POINT left_wing{left ? x0 - s + 2 : x0 - s / 2 + 2, left ? y0 + 2 : ym};
    const POINT a{left ? x0 - s : x0 - s + s / 2, left_wing.y};
    const POINT b{right ? x1 + s : x1 + s - s / 2, right_wing.y};
    p.Fill(color, x0 + 1, x1 - 1, y0 + 1, y1 - 2);
    p.Polygon_Of(color, {{x1 - 1, y1 - 2}, right_wing, {x1 - 1, y0 + 2}});
    p.Polygon_Of(color, {{x0, y0 + 2}, left_wing, {x0 + 1, y1 - 2}});
    p.Line(White, x0 + 1, y1 - 2, x1 - 1, y1 - 2);
    p.Line(Light, x0 + 1, y1 - 3, x1 - 1, y1 - 3);
    p.Polygon_Of(White, {a, {a.x + 2, left ? y0 + 1 : ym}, {x0 + 2, left ? y1 - 3 : y1 - 2}, {x0, y1 - 2}});
    p.Line(Black, a.x, a.y, x0, y1 - 1);
    p.Polygon_Of(Dark, {{x1, y1 - 2}, {x1 - 2, right ? y1 - 3 : y1 - 2}, {b.x - 2, right ? y0 + 1 : ym}, b});
    p.Line(Black, x1, y1 - 1, b.x, b.y);
    if (!t.Value) return;
    p.Line(page, x0 - s + 1, y0 + 1, x1 + s + 1, y0 + 1);
    p.Line(page, x0 - s + 1, y0, x1 + s + 2, y0);
    p.Line(page, x0 - s, y0 - 1, x1 + s + 3, y0 - 1);
    p.Line(White, x0 - s + 1, y0 + 1, x0 - s + 1, y0 - 1);
}

/// @param edged  else the body alone
void Paint_Plain(Painter& p, const TabItems& t, bool lit, bool edged = true) {
    const int s = t.Slant, x0 = t.X, x1 = t.X + t.Width, y0 = t.Y, y1 = t.Y + t.Height;
    const POINT a{x0, y0 + 1}, b{x0 + s, y1 - 1}, c{x1 - s, y1 - 1}, d{x1, y0 + 1};
    const bool outline = t.Flag & 0x20, front = t.Value && !outline;
    p.Clip(t);
    if (outline) p.Polygon_Of(Body_Color(t, false), {a, b, c, d});
    if (edged) Connect(p, outline ? Blue : Black, {a, b, c, d});
    if (edged && !front) p.Line(Black, d.x, d.y, a.x, a.y);
    if (edged) p.Line(front ? Grey : White, x1, y0, x0, y0);
    if (edged) p.Line(front ? Grey : Light, x1, y0 - 1, x0, y0 - 1);
    if (!(t.Flag & 0x30)) Paint_Body(p, t, lit && !(t.Flag & 0x2));
    const unsigned long flags = outline ? t.Flag : (t.Flag & ~0x40000UL) | (t.Value ? 0x40000 : 0);
    p.Text(t.Font, t.Name, flags, {t.X, t.Y, t.Width, t.Height}, t.Border);
}

}  // namespace

TEST(Tab_Items, Look_As_Plain_Lines_Do) {
    Test_Window window(180, 90);
    constexpr short slants[] = {7, 8, 30, 0, 3, 47};
    for (const unsigned long flag : {0x0UL, 0x2UL, 0x10UL, 0x20UL, 0x40200UL}) {
        for (int i = 0; i < 30; ++i) {
            SCOPED_TRACE(testing::Message() << std::hex << flag << ' ' << i);
            const int variant = i % 6;
            TabItems t;
            Place(t, 100 - variant, 40 - 4 * variant, flag);
            t.Shape = std::initializer_list<short>{0x00, 0x01, 0x10, 0x11, 0x2F0}.begin()[i / 6];
            t.Value = static_cast<short>(variant % 2), t.Slant = slants[variant];
            if (variant == 1) t.Clip_X = 40, t.Clip_Width = 60, t.Clip_Height = 50;
            if (variant == 2) t.Color = Colors(250, 9, 90), t.Name = nullptr;
            if (flag & FLAG_OUTLINE) t.Color = Colors(15, 25, 300);
            t.Init(window);
            for (const bool lit : {false, true}) {
                const auto plain = [&](bool as_lit, bool edged = true) {
                    return window.After([&] {
                        Painter painter(window);
                        Paint_Plain(painter, t, as_lit, edged);
                    });
                };
                window.Point_At(lit ? t.X : t.X - 1, t.Y);
                EXPECT_TRUE(Same(window.After([&] { t.Draw(), t.Adjust(); }), plain(lit)));
                if (flag & 0x30) continue;
                const short hover = flag & FLAG_PASSIVE ? 0 : lit ? 1 : 2;
                EXPECT_TRUE(Same(window.After([&] { t.Last_Value = 99, t.Adjust(); }), plain(lit)));
                EXPECT_TRUE(Same(window.After([&] { t.Deselect(); }), plain(false, false)));
                EXPECT_EQ(t.Hover, hover);
                // Hover before; the event does not count.
                for (const short before : {short{0}, short{1}, short{2}}) {
                    t.Hover = before;
                    const Picture got =
                        window.After([&] { EXPECT_EQ(t.Select(EVENT_TEST), lit && !(flag & FLAG_PASSIVE)); });
                    EXPECT_TRUE(
                        Same(got, before == hover && hover ? window.After([] {}) : plain(lit, false)));
                }
            }
        }
    }
}

TEST(Tab_Items, Show_Images_Of_The_Size_That_Init_Saw) {
    Test_Window window(260, 90);
    window.Point_At(0, 0);
    const auto expect = [&](TabItems& t, int first) {
        const Picture shown = window.After([&] { t.Draw(); });
        for (const auto& [x, y] : {POINT{13, 33}, POINT{13, 5}, POINT{86, 33}, POINT{60, 20}})
            EXPECT_EQ(int(shown.At(Left + x, Bottom + y)), first + (36 - y) * 256 + x - t.Slant);
        EXPECT_EQ(shown.At(Left + 12, Bottom + 20), Loud);
    };
    TabItems t;
    const auto fill = [&](int first) {
        t.Alloc_Graph_Normal(0);
        for (int i = 0; i < t.Width * t.Height; ++i)
            t.Graph_Normal[i] = static_cast<unsigned long>(first + i / t.Width * 256 + i % t.Width);
    };
    Place(t, 100, 37, 0);
    t.Name = nullptr, t.Slant = 9;
    fill(0x100000), t.Init(window), expect(t, 0x100000);
    fill(0x200000), t.Init(window), expect(t, 0x100000);
    TabItems copy(t);
    t.Width = 200;
    EXPECT_EQ(window.After([&] { t.Draw(); }).At(Left + 40, Bottom + 20), 0x969696u) << "not read beyond";
    t.Flag |= FLAG_STATIC, t.Init(window), t.Flag &= ~FLAG_STATIC, t.Init(window), t.Draw();
    t.Width = 100, t.Init(window), expect(t, 0x200000);
    expect(copy, 0x100000);
}

TEST(Tab_Sets, Lay_Out_Their_Tabs) {
    // Tabs, width, height; slant, width of a tab, width and distance of the last.
    const int table[][7] = {{3, 300, 40, 10, 90, 92, 184}, {1, 300, 43, 10, 252, 252, 24},
                            {20, 800, 26, 6, 43, 49, 727}, {2, 60, 40, 10, 11, 11, 25},
                            {9, 48, 40, 10, 8, 16, 8},     {400, 300, 40, 10, 10, 252, 24}};
    Test_Window window(900, 90);
    for (const auto& [count, width, height, slant, tab_width, last_width, distance] : table) {
        SCOPED_TRACE(count);
        Row s(count, width, height, FLAG_STATIC);
        const TabItems& last = *s.Item[count - 1];
        s.Turn(count - 1), s.Item[0]->Color = Colors(1, 2, 3), s.Init(window);
        EXPECT_EQ(s.Slant * 1000 + s.Tab_Width, slant * 1000 + tab_width);
        EXPECT_EQ(last.Width * 1000 + last.X - Left, last_width * 1000 + distance);
        EXPECT_EQ(last.Value * 1000 + last.Slant, 1000 + slant);
        EXPECT_EQ(s.Item[0]->Color.get() + last.Flag + s.Box.Flag, 0x030201u + 0x50 + 0x12);
    }
}

TEST(Tab_Sets, Look_As_Plain_Lines_Do) {
    Test_Window window(420, 120);
    for (const int count : {1, 3, 7}) {
        for (int i = 0; i < 3 * (count + 2); ++i) {
            const int front = i / 3 - 1, lit = i % 3 == 2 ? -1 : i % 3 * (count / 2);
            SCOPED_TRACE(testing::Message() << count << ' ' << front << ' ' << lit);
            Row s(count, 350, 30);
            s.Clip_Width = 5;  // of the page alone
            s.Item[count - 1]->Color = Colors(10, 200, 90);
            s.Turn(front), s.Init(window);
            window.Point_At(lit < 0 ? 0 : s.Item[lit]->X + s.Tab_Width / 2, s.Y + 9);
            const Picture drawn = window.After([&] { s.Draw(); });
            const Picture plain = window.After([&] {
                Painter p(window);
                for (int k = count - 1; k >= 0; --k) {
                    const bool to_left = front < count && k == front - 1;
                    EXPECT_EQ(s.Item[k]->Shape, k == front ? 17 : (k == 0 ? 16 : 0) | (to_left ? 0 : 1));
                    EXPECT_EQ(s.Item[k]->Value, k == front);
                    EXPECT_EQ(s.Item[k]->Hover, k == front ? 0 : k == lit ? 1 : 2);
                    if (k != front) Paint_Plain(p, *s.Item[k], k == lit);
                }
                if (front >= 0 && front < count) Paint_Plain(p, *s.Item[front], front == lit);
            });
            EXPECT_TRUE(Same(drawn, plain));
            // Any other front from here: the same picture as if all were painted.
            for (int next = -1; next < count; ++next) {
                const Picture adjusted =
                    window.After([&] { s.Turn(front), s.Draw(), s.Turn(next), s.Adjust(); });
                const Picture all = window.After([&] { s.Turn(front), s.Draw(), s.Turn(next), s.Draw(); });
                EXPECT_TRUE(Same(adjusted, all)) << next;
            }
        }
    }
}

/// A tab that lights up paints over the end of its neighbour.
TEST(Tab_Sets, Show_The_Same_After_A_Press_As_Painted_Anew) {
    Test_Window window(420, 120);
    Row s(6, 380, 30);
    s.Init(window), s.Draw();
    std::mt19937 random(5);
    for (int i = 0; i < 300; ++i) {
        window.Point_At(Left + static_cast<int>(random() % 400), Bottom + static_cast<int>(random() % 40));
        s.Select(EVENT_MOVE);
        const int pressed = s.Read();
        if (i % 2 || pressed < 0 || pressed == s.Value) continue;
        s.Turn(pressed), s.Adjust();
        const Picture adjusted(window);
        s.Draw();
        ASSERT_TRUE(Same(adjusted, Picture(window))) << i;
    }
    s.Turn(0);
    const auto turn_to = [&](int front) { return window.Changed([&] { s.Turn(front), s.Adjust(); }); };
    EXPECT_EQ(turn_to(s.Last_Value), Nothing);
    s.Flag = FLAG_NO_BODY;
    EXPECT_EQ(turn_to(2), Nothing);
    s.Flag = FLAG_OUTLINE;
    EXPECT_EQ(window.Changed([&] { s.Draw(), s.Turn(5), s.Adjust(); }), Nothing);
    EXPECT_EQ(s.Item[5]->Shape * 2 + s.Item[5]->Value, 35);
    s.Flag = FLAG_PASSIVE;
    EXPECT_EQ(window.Changed([&] { s.Turn(0), s.Adjust(), s.Select(EVENT_PRESS); }), Nothing);
    EXPECT_EQ(s.Read(), -1);
}

TEST(Tab_Sets, Follow_The_Pointer) {
    Test_Window window(420, 120);
    Row s(3);
    s.Item[2]->Flag = FLAG_PASSIVE;
    s.Init(window);
    // Distance from the left and bottom edge; the tab that `Read` answers, the tabs that light up (bits).
    const int table[][4] = {{23, 9, -1, 0},  {24, 0, 0, 1},   {103, 40, 0, 1}, {104, 40, 0, 3},
                            {114, 9, 0, 3},  {115, 9, 1, 2},  {194, 9, 1, 2},  {195, 9, -1, 0},
                            {60, -1, -1, 0}, {60, 41, -1, 0}, {299, 9, -1, 0}, {-5, 9, -1, 0}};
    for (const auto& [x, y, index, lit] : table) {
        SCOPED_TRACE(testing::Message() << x << ' ' << y);
        s.Draw(), window.Point_At(Left + x, Bottom + y);
        EXPECT_EQ(s.Read(), index);
        EXPECT_EQ(s.Select(EVENT_PRESS | EVENT_LEFT), lit != 0);
        EXPECT_EQ((s.Item[0]->Hover == 1) + 2 * (s.Item[1]->Hover == 1), lit);
        // A passive tab is painted every time.
        const Area passive = window.Changed([&] { s.Item[2]->Select(EVENT_MOVE); });
        EXPECT_EQ(window.Changed([&] { s.Select(EVENT_MOVE); }), passive);
        window.Point_At(0, 0);
        EXPECT_EQ(window.Changed([&] { EXPECT_EQ(s.Select(EVENT_MOVE), 0); }) != passive, lit != 0);
    }
}

TEST(Tab_Sets, Paint_The_Page_Below) {
    Test_Window window(420, 160);
    Row s(3, 300, 40);
    s.Y = 90, s.Tab_Height = 110, s.Item[1]->Color = Colors(90, 300, -4), s.Init(window);
    for (const int height : {0, 70}) {
        s.Turn(height ? 7 : 1), s.Clip_X = 100, s.Clip_Width = height ? 0 : 200, s.Clip_Height = 140;
        const int x = s.X, y = s.Y, right = x + 300, top = y + 40 - (height ? height : 110), c = 24;
        const Picture wanted = window.After([&] {
            Painter p(window);
            p.Clip(s);
            p.Polygon_Of(height ? Grey : RGB(90, 255, 0),
                         {{x, y - 2}, {x, top}, {right, top}, {right, y - 2}});
            for (const int i : {1, 2, 0}) {
                const COLORREF side = i == 0 ? Black : i == 1 ? White : Light;
                Connect(p, side, {{x + c, y + 1 - i}, {x + i, y + 1 - i}, {x + i, top + i}});
                Connect(p, i ? Dark : Black, {{x + i, top + i}, {right - i, top + i}});
                Connect(p, side, {{right - i, top + i}, {right - i, y + 1 - i}, {right - c, y + 1 - i}});
            }
        });
        EXPECT_TRUE(Same(window.After([&] { s.Page(height); }), wanted));
    }
}

TEST(Tab_Sets, Grow_And_Share_Their_Tabs) {
    Test_Window window(420, 120);
    Report_Catcher reports;
    const std::string memory = " of tabs \nmemory error in realloc (var=this->Item, dim=";
    const auto scene = [&] {
        auto first = std::make_unique<Row>(4), second = std::make_unique<Row>(1);
        first->Clip_Width = 9;
        const TabItems* kept = first->Item[1];
        EXPECT_EQ(first->Grow(6, 0x412) * 10 + first->Grow(6, 0), 11);
        EXPECT_EQ(first->Item[1], kept);
        EXPECT_EQ(first->Item[5]->Flag, 0x412u);
        EXPECT_EQ(first->Item[5]->Clip_Width + first->Count, 0);
        EXPECT_EQ(first->Grow(-1, 0), 0);
        EXPECT_EQ(reports.Take(), "11:Tabs: there cannot be -1 tabs\n   name: Caption");
        first->Init(window), first->Draw();
        *second = *first;
        Row third(*second);
        EXPECT_EQ(second->Grow(2, 0), 1);
        window.Point_At(Left + 200, Bottom + 5);
        for (Row* s : {first.get(), second.get(), &third}) {
            s->Select(EVENT_MOVE), s->Read(), s->Adjust(), s->Draw(), s->Deselect(), s->Page(9);
            EXPECT_EQ(s->Count, 6);
        }
        EXPECT_EQ(reports.Take(), "");
        second->Grow(5, 0), second->Draw();  // new tabs among those that Init saw
        EXPECT_NE(reports.Take().find("must call *_Init() first"), std::string::npos);
        second->Select(EVENT_PRESS), second->Turn(4), second->Adjust(), second->Deselect(), first.reset();
        third.Draw(), reports.Take();
        Call_Spy spy;
        spy.Fail_Allocation();
        EXPECT_EQ(second->Grow(7, 0), 0);
        EXPECT_EQ(reports.Take(), "1:line 96  " + memory + "8x8)");
        spy.Fail_Allocation();
        EXPECT_EQ(third.Grow(1, 0), 0);
        EXPECT_EQ(reports.Take(), "1:line 93  " + memory + "2x8)");
        EXPECT_EQ(third.Item, nullptr);
        third.Draw(), third.Select(EVENT_MOVE), third.Adjust(), third.Init(window), third.Draw();
    };
    scene();
    const int objects = Gdi_Objects();
    scene();
    EXPECT_EQ(Gdi_Objects(), objects);
}

TEST(Tab_Sets, Stay_In_Their_Place_With_Any_Value) {
    Test_Window window(700, 160);
    for (int i = 0; i < 60; ++i) {
        const int count = i % 4 == 3 ? 20 : i % 4, width = i / 4 % 5 * 48 + i % 3, height = i / 20 * 19 + 1;
        SCOPED_TRACE(testing::Message() << count << ' ' << width << ' ' << height);
        Row s(count, width, height);
        TabItems t;
        Place(t, width, height, 0);
        s.Init(window), t.Init(window);
        for (const int extreme : {-32768, -1, 0, 1, 30, 32767}) {
            window.Point_At(Left + width / 2, Bottom);
            t.Slant = static_cast<short>(extreme), t.Shape = static_cast<short>(extreme), t.Value ^= 1;
            const Area painted = window.Changed([&] {
                t.Draw(), s.Turn(extreme), extreme % 2 ? s.Adjust() : s.Draw();
                s.Select(EVENT_MOVE), s.Read(), window.Point_At(0, 0), s.Select(EVENT_MOVE), s.Deselect();
            });
            EXPECT_TRUE(painted == Nothing ||
                        (painted.left >= Left && painted.right <= Left + width + 2 &&
                         painted.bottom >= Bottom - 1 && painted.top <= Bottom + height));
        }
    }
    Row huge(5, 32767, 32767);
    huge.X = huge.Y = huge.Value = -32768;
    huge.Init(window), huge.Draw(), huge.Select(EVENT_MOVE), huge.Turn(4), huge.Adjust();
    for (const int height : {-2147483647 - 1, -1, 2147483647})
        huge.Page(height);
}
