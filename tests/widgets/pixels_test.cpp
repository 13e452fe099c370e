#include <algorithm>
#include <cmath>
#include <memory>
#include <string>
#include <utility>

#include "tests/support/painter.h"
#include "tests/support/spy.h"
#include "tests/support/window.h"

using namespace galdren_test;

namespace {

constexpr int Widths[] = {240, 800, 1100};  // where a mapping in millimetres goes astray
constexpr int Window_Height = 120;

/// What `ours` paints is what `theirs` paints by plain calls.
template <class Ours, class Theirs>
void Expect_Same(Test_Window& window, Ours ours, Theirs theirs) {
    EXPECT_TRUE(Same(window.After(ours), window.After([&] {
        Painter painter(window);
        theirs(painter);
    })));
}

/// A control that is not initialised but can paint, near the right edge of its window.
template <class Control>
void Place(Control& control, HWND window, int window_width) {
    control.Window = window;
    control.State = STATE_READY;
    control.X = static_cast<short>(window_width - 130);
    control.Y = 20, control.Width = 101, control.Height = 60;
    control.Color = Colors(170, 100, 240);
}

/// Runs `body(window, control)` for a bare control in windows of several widths.
template <class Body>
void For_Each_Width(Body body) {
    for (const int width : Widths) {
        SCOPED_TRACE(width);
        Test_Window window(width, Window_Height);
        Tools control;
        Place(control, window, width);
        body(window, control);
    }
}

std::string Numbered(const char* what, unsigned long flags, int extra = 0) {
    char text[80];
    std::snprintf(text, sizeof text, "%s %#lx, %d", what, flags, extra);
    return text;
}

void Set_Clip(Tools& control, bool clipped) {
    control.Clip_X = static_cast<short>(control.X + 7), control.Clip_Y = static_cast<short>(control.Y + 11);
    control.Clip_Width = clipped ? 40 : 0, control.Clip_Height = 25;
}

}  // namespace

TEST(Frames, Are_Rings_Of_Shades) {
    For_Each_Width([](Test_Window& window, Tools& t) {
        const short x0 = t.X, x1 = static_cast<short>(t.X + 90), y0 = t.Y, y1 = 75;
        for (const Colors& color : {Colors(170, 170, 170), Colors(0, 255, 30), Colors(-200, 400, 128)}) {
            for (const short width : {short{0}, short{1}, short{2}, short{3}, short{7}, short{29}}) {
                for (const int look : {0, 1, 2, 3}) {
                    SCOPED_TRACE(Numbered("look", static_cast<unsigned long>(look), width));
                    t.Color = color;
                    Set_Clip(t, width == 7);
                    const bool sunken = look & 1, rim = !(look & 2);
                    Expect_Same(
                        window, [&] { t.Cadre(rim ? 0x3FFFFF : 0x400000, sunken, width, x0, x1, y0, y1); },
                        [&](Painter& painter) {
                            painter.Clip(t);
                            painter.Cadre(t, rim, sunken, width, x0, x1, y0, y1);
                        });
                }
            }
        }
        EXPECT_EQ(window.Changed([&] { t.Cadre(0x400000, 1, 0, x0, x1, y0, y1); }), Nothing);
    });
}

TEST(Fills, Take_Their_Colour_And_Rectangle) {
    struct Row {
        void (Tools::*fill)(short, short, short, short);
        COLORREF color;
    };
    For_Each_Width([](Test_Window& window, Tools& t) {
        const short x0 = t.X, x1 = static_cast<short>(t.X + 30), y0 = 21, y1 = 60;
        for (const bool clipped : {false, true}) {
            Set_Clip(t, clipped);
            const auto fill = [&](COLORREF color, int left, int right, int bottom, int top) {
                return [&t, color, left, right, bottom, top](Painter& painter) {
                    painter.Clip(t);
                    painter.Fill(color, left, right, bottom, top);
                };
            };
            for (const Row& row :
                 {Row{&Tools::Fill_Grey, RGB(170, 170, 170)}, Row{&Tools::Fill_Yellow, RGB(255, 255, 0)},
                  Row{&Tools::Fill_Red, RGB(255, 0, 0)}, Row{&Tools::Fill_Green, RGB(0, 255, 0)},
                  Row{&Tools::Fill_Blue, RGB(0, 0, 255)}}) {
                t.Flag = 0;
                Expect_Same(
                    window, [&] { (t.*row.fill)(x0, x1, y0, y1); }, fill(row.color, x0, x1, y0, y1));
                t.Flag = FLAG_NO_BODY;
                EXPECT_EQ(window.Changed([&] { (t.*row.fill)(x0, x1, y0, y1); }), Nothing);
            }
            EXPECT_EQ(window.Changed([&] { t.Fill(0, x0, x1, y0, y1); }), Nothing);
            t.Flag = FLAG_STATIC;  // only the argument counts
            EXPECT_EQ(window.Changed([&] { t.Fill(FLAG_STATIC, x0, x1, y0, y1); }), Nothing);
            Expect_Same(
                window, [&] { t.Fill(~0x10L, x0, x1, y0, y1); }, fill(RGB(170, 100, 240), x0, x1, y0, y1));
            // The two ways to clear differ by the top row.
            Expect_Same(
                window, [&] { t.Clear(); },
                fill(RGB(170, 100, 240), t.X, t.X + t.Width + 1, t.Y - 1, t.Y + t.Height));
            Expect_Same(
                window, [&] { t.Clear(Colors(1, 2, 300)); },
                fill(RGB(1, 2, 255), t.X, t.X + t.Width + 1, t.Y - 1, t.Y + t.Height + 1));
        }
        t.Clip_Width = 0;
        EXPECT_EQ(window.Changed([&] { t.Clear(); }), (Area{t.X, t.X + t.Width, t.Y, t.Y + t.Height}));
        t.Height = 0;
        EXPECT_EQ(window.Changed([&] { t.Clear(), t.Clear(Colors()); }), Nothing);
    });
}

TEST(Bodies, Are_Blitted_Or_Flat) {
    For_Each_Width([](Test_Window& window, Tools& t) {
        const std::size_t size = static_cast<std::size_t>(t.Width * t.Height);
        const auto image = std::make_unique<unsigned long[]>(size);
        for (std::size_t i = 0; i < size; ++i)
            image[i] = 0xFF000000U + static_cast<unsigned>(i) * 2654435U;
        const auto x1 = static_cast<short>(t.X + t.Width), y1 = static_cast<short>(t.Y + t.Height);
        for (const short inset : {short{1}, short{2}, short{4}, short{9}}) {
            for (const int look : {0, 1, 2, 3, 4, 5}) {
                SCOPED_TRACE(Numbered("look", static_cast<unsigned long>(look), inset));
                const bool lit = look & 1, buffer = look & 2;
                Set_Clip(t, look & 4);
                const char* bytes = buffer ? reinterpret_cast<const char*>(image.get()) : nullptr;
                const short smaller = look == 2 ? 10 : 0;  // any rectangle, the control's own size
                Expect_Same(
                    window,
                    [&] {
                        t.Fill_Select(lit, bytes, 0, inset, t.X, static_cast<short>(x1 - smaller), t.Y, y1);
                    },
                    [&](Painter& painter) {
                        painter.Clip(t);
                        painter.Body(t, lit, buffer ? image.get() : nullptr, inset, t.X, x1 - smaller, t.Y,
                                     y1);
                    });
                EXPECT_EQ(window.Changed([&] { t.Fill_Select(lit, bytes, 0x10, inset, t.X, x1, t.Y, y1); }),
                          Nothing);
            }
        }
    });
}

TEST(Shading, Is_A_Diagonal_Ramp_Inside_The_Border) {
    for (const short border : {short{0}, short{1}, short{3}, short{-2}}) {
        for (const SIZE& size : {SIZE{10, 10}, SIZE{101, 26}, SIZE{7, 200}, SIZE{1, 1}}) {
            Tools t;
            t.Width = static_cast<short>(size.cx), t.Height = static_cast<short>(size.cy), t.Border = border;
            const Colors color(230, -40, 300, 77);
            const std::unique_ptr<unsigned long[]> pixels(t.Inside_3D(color));
            ASSERT_TRUE(pixels);
            const int b = border ? std::abs(border) : BORDER, w = size.cx - 2 * b, h = size.cy - 2 * b;
            for (int j = 0; j < h; ++j) {
                for (int i = 0; i < w; ++i) {
                    const float across = static_cast<float>(i) * (100.0F / static_cast<float>(w)) - 50.0F;
                    const float down = static_cast<float>(j) * (100.0F / static_cast<float>(h)) - 50.0F;
                    const int d = static_cast<short>(across + down);
                    const auto shade = [d](int channel) {
                        return static_cast<unsigned>(std::clamp(channel + d, 0, 255));
                    };
                    const unsigned long wanted = 77U << 24 | shade(230) << 16 | shade(0) << 8 | shade(255);
                    ASSERT_EQ(pixels[static_cast<std::size_t>((b + j) * size.cx + b + i)], wanted)
                        << i << ", " << j;
                }
            }
        }
    }
}

TEST(Captions, Stand_Where_The_Bits_Say) {
    const std::string texts[] = {
        "Caption", "A&B && C&",           "tab\tbed\t",
        "g",       std::string(128, '&'), std::string(64, 'i') + '&' + std::string(64, 'l')};
    For_Each_Width([&](Test_Window& window, Tools& t) {
        HFONT fonts[] = {Z_Create_Font(window, "Arial", "bold", nullptr, 10), nullptr};
        int turn = 0;
        for (const unsigned long way : {0x0UL, 0x4UL}) {
            for (const unsigned long up : {0x0UL, 0x100UL, 0x200UL, 0x400UL, 0x600UL}) {
                for (const unsigned long across : {0x0UL, 0x2000UL, 0x4000UL, 0x6000UL}) {
                    for (const std::string& text : texts) {
                        const unsigned long color = (turn % 2 ? 0x20U : 0U) | (turn % 4 > 1 ? 0x40000U : 0U);
                        const unsigned long flags = way | up | across | color;
                        const auto border = static_cast<short>(turn % 7 - 1);
                        ++turn;
                        SCOPED_TRACE(Numbered(text.c_str(), flags, border));
                        Set_Clip(t, turn % 3 == 0);
                        HFONT font = fonts[turn % 5 == 0];
                        const auto x = static_cast<short>(t.X + 3);
                        Expect_Same(
                            window,
                            [&] {
                                t.Text(font, text.c_str(), static_cast<long>(flags), x, 24, 90, 55, border);
                            },
                            [&](Painter& painter) {
                                painter.Clip(t);
                                painter.Text(font, text.c_str(), flags, {x, 24, 90, 55}, border);
                            });
                    }
                }
            }
        }
        EXPECT_EQ(window.Changed([&] { t.Text(nullptr, "", 0, 0, 0, 50, 50, 1); }), Nothing);
        Z_Delete_Font(window, fonts[0]);
    });
}

TEST(Labels, Are_Text_In_Their_Colour) {
    for (const int width : Widths) {
        Test_Window window(width, Window_Height);
        Labels label;
        Place(label, window, width);
        label.Font_Name = "Arial", label.Font_Size = 10;
        for (const char* name : {"Label & co\tend", "gap"}) {
            for (unsigned long bits = 0; bits < 64; ++bits) {
                label.Flag = (bits & 1 ? 0x4U : 0U) | (bits >> 1 & 3) << 9 | (bits >> 3 & 3) << 13 |
                             (bits & 32 ? 0x60U : 0U);
                label.Name = name;
                label.Color = bits % 3 ? Colors(200, 30, 300) : Colors();
                label.Init(window);
                Set_Clip(label, bits % 5 == 0);
                SCOPED_TRACE(Numbered(name, label.Flag));
                EXPECT_EQ(label.Color == (bits % 3 ? Colors(200, 30, 300) : Colors(255, 255, 255)), 1);
                Expect_Same(
                    window, [&] { label.Draw(); },
                    [&](Painter& painter) {
                        painter.Clip(label);
                        painter.Label(label);
                    });
            }
        }
        label.Name = nullptr;
        EXPECT_EQ(window.Changed([&] { label.Draw(); }), Nothing);
    }
}

TEST(Arrows, Are_Embossed_Triangles) {
    For_Each_Width([](Test_Window& window, Tools& t) {
        for (short direction = 0; direction < 4; ++direction) {
            struct Variant {
                int inset, size, w, h;
            };
            for (const Variant& v : {Variant{3, 16, 16, 16}, Variant{3, 16, 61, 19}, Variant{2, 30, 77, 80},
                                     Variant{0, 9, 15, 12}, Variant{3, 5, 18, 21}, Variant{3, 4, 9, 8}}) {
                SCOPED_TRACE(Numbered("direction", static_cast<unsigned long>(direction), v.size));
                Set_Clip(t, v.inset == 2);
                const auto narrow = [](int value) { return static_cast<short>(value); };
                Expect_Same(
                    window,
                    [&] {
                        t.Arrow(direction, narrow(v.inset), narrow(v.size), t.X, narrow(v.w), t.Y,
                                narrow(v.h));
                    },
                    [&](Painter& painter) {
                        painter.Clip(t);
                        painter.Arrow(direction, v.inset, v.size, t.X, v.w, t.Y, v.h);
                    });
            }
            EXPECT_EQ(window.Changed([&] { t.Arrow(direction, 3, 3, t.X, 40, t.Y, 40); }), Nothing);
        }
    });
}

TEST(Boxes, Look_As_Their_Bits_Say) {
    Test_Window windows[] = {Test_Window(240, 120), Test_Window(800, 120), Test_Window(1100, 120)};
    int turn = 0;
    for (const unsigned long flags :
         {0x0UL,     0x1UL,     0x2UL,     0x4UL,     0x10UL,     0x20UL,     0x21UL,     0x22UL,
          0x30UL,    0x40UL,    0x100UL,   0x400UL,   0x2000UL,   0x4600UL,   0x10000UL,  0x40000UL,
          0x80000UL, 0x90000UL, 0x90002UL, 0x10010UL, 0x400000UL, 0x410000UL, 0x4C0000UL, 0x480024UL}) {
        for (const int variant : {0, 1, 2, 3}) {
            SCOPED_TRACE(Numbered("flags", flags, variant));
            const int width = ++turn % 3;
            Test_Window& window = windows[width];
            const short usual = std::exchange(BORDER, variant == 3 ? short{6} : BORDER);
            Boxs box;
            Place(box, window, Widths[width]);
            box.Flag = flags;
            box.Name = variant == 2 ? nullptr : "Box & caption";
            box.Font_Name = "Arial", box.Font_Size = 10;
            if (variant == 1) box.Alloc_Graph_Normal(0x00204060);
            if (variant == 2) box.Border = 1;
            box.Init(window);
            for (const bool hovered : {false, true}) {
                window.Point_At(box.X + box.Width + !hovered, box.Y);
                Expect_Same(
                    window, [&] { box.Draw(); }, [&](Painter& painter) { painter.Box(box, hovered); });
                EXPECT_EQ(Picture(window).Painted() != Nothing, !(flags & 0x1) || flags & 0x20);
            }
            BORDER = usual;
        }
    }
}

TEST(Buttons, Look_As_Their_Bits_And_Values_Say) {
    constexpr unsigned long Lamp = BUTTON_LAMP, Colored = Lamp | BUTTON_LAMP_COLORS;
    struct Variant {
        short lamp, value, border, height;
    };
    Test_Window windows[] = {Test_Window(240, 120), Test_Window(800, 120), Test_Window(1100, 120)};
    int turn = 0;
    for (const unsigned long flags :
         {0x0UL, 0x1UL, 0x2UL, 0x10UL, 0x20UL, 0x21UL, 0x40UL, 0x400000UL, 0x42000UL, 0x480200UL, Lamp,
          Lamp | 0x2UL, Lamp | 0x10UL, Lamp | 0x20UL, Lamp | 0x40004UL, Colored, Colored | 0x2400UL}) {
        for (const Variant& variant : {Variant{0, 0, 0, 40}, Variant{1, -1, 0, 22}, Variant{2, 1, 5, 40},
                                       Variant{3, 0, -2, 25}, Variant{4, 0, 1, 26}, Variant{-1, 5, 3, 60}}) {
            SCOPED_TRACE(Numbered("flags", flags, variant.lamp));
            const int width = ++turn % 3;
            Test_Window& window = windows[width];
            Buttons button;
            Place(button, window, Widths[width]);
            button.Flag = flags, button.Lamp = variant.lamp, button.Value = variant.value;
            button.Border = variant.border, button.Height = variant.height;
            button.Color = variant.lamp == 3 ? Colors(10, 255, 60) : Colors();
            button.Name = "Push\t&me", button.Font_Name = "Arial", button.Font_Size = 10;
            if (variant.lamp == 4) button.Alloc_Graph_Select(0x00204060);
            button.Init(window);
            for (const bool hovered : {false, true}) {
                window.Point_At(button.X - !hovered, button.Y + button.Height);
                Expect_Same(
                    window, [&] { button.Draw(); },
                    [&](Painter& painter) { painter.Button(button, hovered); });
            }
        }
    }
}

/// A body is painted from shading that was made for another border, without a gap.
TEST(Bodies, Have_No_Bands_At_Another_Border) {
    Test_Window window(300, 200);
    const auto black_inside = [&](auto&& change, unsigned long flag, short border) {
        Boxs box;
        box.X = 20, box.Y = 20, box.Width = 200, box.Height = 120, box.Flag = flag | FLAG_NO_RIM,
        box.Border = border;
        box.Init(window);
        change(box);
        window.Point_At(0, 0);
        const Picture picture = window.After([&] { box.Draw(); });
        int black = 0;
        for (int x = 20; x <= 220; ++x) {
            for (int y = 20; y <= 140; ++y)
                black += picture.At(x, y) == 0;
        }
        return black;
    };
    const auto nothing = [](Boxs&) {};
    const short usual = BORDER;
    EXPECT_EQ(black_inside([&](Boxs& box) { box.Border = 2, box.Init(window); }, 0, 8), 0);
    EXPECT_EQ(black_inside([&](Boxs&) { BORDER = 1; }, 0, 0), 0);
    BORDER = usual;
    EXPECT_EQ(black_inside(nothing, 0, -2), 0);
    // The inner frame has a black rim of its own.
    const int rim = black_inside(nothing, FLAG_INNER_FRAME, 0);
    EXPECT_EQ(black_inside(nothing, FLAG_INNER_FRAME, 8), rim);

    Tools tools;
    tools.Width = 40, tools.Height = 30, tools.Border = 5;
    const std::unique_ptr<unsigned long[]> shading(tools.Inside_3D(Colors(200, 200, 200)));
    EXPECT_EQ(shading[0], 0u) << "what an application asks for stays black outside the border";
    EXPECT_EQ(shading[4 * 40 + 20], 0u);
    EXPECT_NE(shading[5 * 40 + 5], 0u);
}

/// `Draw` and `Select` show the pixels that the fields point at.
TEST(Bodies, Are_The_Pixels_Of_Their_Buffers) {
    Test_Window window(300, 200);
    Buttons button;
    button.X = 20, button.Y = 20, button.Width = 100, button.Height = 25;
    button.Init(window);
    window.Point_At(0, 0);
    button.Draw();
    std::fill_n(button.Cur_Graph_Normal, 100 * 25, 0x123456UL);
    EXPECT_EQ(window.After([&] { button.Draw(); }).At(60, 30), 0x123456u);
    window.Point_At(60, 30), button.Select(EVENT_MOVE);
    window.Point_At(0, 0), button.Select(EVENT_MOVE);
    EXPECT_EQ(Picture(window).At(60, 30), 0x123456u);
}

/// Generated pictures have one limit, which counts pixels, and one report for a control with its parts.
TEST(Bodies, Are_Flat_Where_A_Picture_Would_Be_Too_Large) {
    Test_Window window(300, 200);
    Report_Catcher reports;
    const auto reported = [&](auto&& control, int width, int height) {
        control.Width = static_cast<short>(width), control.Height = static_cast<short>(height);
        control.Color = Colors(10, 200, 30);
        control.Init(window), control.Draw();
        const std::string text = reports.Take();
        return std::count(text.begin(), text.end(), '|') + !text.empty();
    };
    EXPECT_EQ(reported(Buttons(), 32767, 30), 0);
    EXPECT_EQ(reported(Buttons(), 24000, 24000), 1);
    EXPECT_EQ(reported(Boxs(), 24000, 24000), 1);
    EXPECT_EQ(reported(Hue_Edit(), 24000, 24000), 1);
    EXPECT_EQ(reported(Color_Edit(), 24000, 24000), 1);
    window.Point_At(0, 0);
    Buttons button;
    button.X = 50, button.Width = button.Height = 24000, button.Color = Colors(10, 200, 30), button.Init(window);
    EXPECT_EQ(window.After([&] { button.Draw(); }).At(100, 100), 0x0AC81Eu);
}
