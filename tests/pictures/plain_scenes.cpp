// What has no value and no parts: primitives, icons, boxes, buttons, labels, tabs.
#include <algorithm>
#include <utility>

#include "Galdren_Util.h"
#include "tests/pictures/looks.h"

using namespace galdren_test;

namespace {

using Shorts = std::initializer_list<short>;

/// A control that is not initialised but can paint, with the edges of its rectangle.
struct Bare : Tools {
    explicit Bare(const Cell& cell) {
        cell.Place(*this);
        Window = cell.window, State = STATE_READY, Color = Colors(170, 100, 240);
        x0 = X, x1 = static_cast<short>(X + Width), y0 = Y, y1 = static_cast<short>(Y + Height);
    }
    short x0, x1, y0, y1;
};

/// A scene of calls to a bare control.
template <class Paint>
Scene By_Hand(Paint paint, bool clipped = false) {
    return [=](const Cell& cell) {
        Bare control(cell);
        if (clipped) Clip(control);
        paint(control);
    };
}

/// A scene of calls that belong between `Begin_Draw` and `End_Draw`, with a place in the cell.
template <class Paint>
Scene Drawn(Paint paint) {
    return [=](const Cell& cell) {
        Begin_Draw(cell.window, nullptr);
        Current_Color = 0x4080FF;
        paint(static_cast<short>(cell.x + 6), static_cast<short>(cell.y + 6));
        End_Draw();
    };
}

}  // namespace

TEST(Pictures, Frames_And_Lines) {
    Sheet sheet("frames", 60, 44);
    for (const Colors& color : {Colors(170, 170, 170), Colors(0, 255, 30), Colors(-200, 400, 128)}) {
        for (const short width : Shorts{0, 1, 2, 3, 7, 15}) {
            for (const short look : Shorts{0, 1, 2, 3}) {
                const auto frame = [=](Bare& t) {
                    t.Color = color;
                    t.Cadre(look & 2 ? 0x400000 : 0x3FFFFF, look & 1, width, t.x0, t.x1, t.y0, t.y1);
                };
                sheet.Add("frame", By_Hand(frame, width == 7));
            }
        }
    }
    for (const bool clipped : {false, true})
        sheet.Add("outline", By_Hand([](Bare& t) { t.Cadre_Outline(t.x0, t.x1, t.y0, t.y1); }, clipped));
    for (const int width : {1, 2, 5}) {
        const auto lines = [=](short x, short y) {
            MoveToEx(Z_DC, x, y, nullptr);
            for (const POINT& to : {POINT{46, 0}, POINT{46, 29}, POINT{0, 20}, POINT{24, 12}})
                Draw_Line(x + to.x, y + to.y, width);
        };
        sheet.Add("lines", Drawn(lines));
    }
    const auto boxes = [](short x, short y) {
        Draw_Box(x, y + 25, x + 20, y), Draw_Frame(x + 25, y, x + 45, y + 30);
        Clip_Rect(x + 5, y + 5, 30, 15);
        Current_Color = 0;
        Draw_Box(x - 6, y + 38, x + 54, y - 6);
        Clip_Reset();
    };
    sheet.Add("box and frame", Drawn(boxes));
    sheet.Expect_Recorded();
}

TEST(Pictures, Fills_And_Bodies) {
    Sheet sheet("fills", 60, 44);
    for (const bool clipped : {false, true}) {
        for (const auto fill : {&Tools::Fill_Grey, &Tools::Fill_Yellow, &Tools::Fill_Red, &Tools::Fill_Green,
                                &Tools::Fill_Blue})
            sheet.Add("signal", By_Hand([=](Bare& t) { (t.*fill)(t.x0, t.x1, t.y0, t.y1); }, clipped));
        sheet.Add("fill", By_Hand([](Bare& t) { t.Fill(~0x10L, t.x0, t.x1, t.y0, t.y1); }, clipped));
        sheet.Add("clear", By_Hand([](Bare& t) { t.Clear(); }, clipped));
        sheet.Add("clear in a colour", By_Hand([](Bare& t) { t.Clear(Colors(1, 2, 300)); }, clipped));
        for (const short inset : Shorts{1, 2, 4, 9}) {
            for (const int look : {0, 1, 2, 3, 4}) {  // flat, lit, an image, a part of it, shading
                const auto body = [=](Bare& t) {
                    t.Border = static_cast<short>(inset - 1);
                    if (look == 4) t.Graph_Normal = t.Inside_3D(Colors(230, -40, 300));
                    if (look == 2 || look == 3) Give_Image(t);
                    if (look == 3) t.x1 = static_cast<short>(t.x1 - 10);
                    const auto* image = reinterpret_cast<const char*>(t.Graph_Normal);
                    t.Fill_Select(look == 1, image, 0, inset, t.x0, t.x1, t.y0, t.y1);
                };
                sheet.Add("body", By_Hand(body, clipped));
            }
        }
    }
    const auto nothing = [](Bare& t) {
        t.Fill(FLAG_STATIC, t.x0, t.x1, t.y0, t.y1);
        t.Fill_Select(1, nullptr, FLAG_STATIC, 2, t.x0, t.x1, t.y0, t.y1);
        t.Arrow(ARROW_UP, 3, 3, t.X, 40, t.Y, 30), t.Text(nullptr, "", 0, t.X, t.Y, 40, 30, 1);
        t.Flag = FLAG_NO_BODY, t.Fill(0, t.x0, t.x1, t.y0, t.y1), t.Fill_Red(t.x0, t.x1, t.y0, t.y1);
        t.Height = 0, t.Clear(), t.Clear(Colors());
    };
    sheet.Add("nothing", By_Hand(nothing));
    sheet.Expect_Recorded();
}

TEST(Pictures, Captions) {
    static const std::string rows[] = {"Caption", "A&B && C&",           "tab\tbed\t",
                                       "g",       std::string(128, '&'), std::string(130, 'i')};
    static const std::string columns[] = {"Up", "A&", "t\t"};
    Sheet sheet("captions", 60, 60);
    int turn = 0;
    for (const short points : Shorts{9, 24, 0}) {
        for (const long place :
             {0x0L, 0x100L, 0x200L, 0x400L, 0x600L, 0x4L, 0x104L, 0x204L, 0x404L, 0x604L}) {
            for (const long across : {0x0L, 0x2000L, 0x4000L, 0x6000L}) {
                ++turn;
                const long color = (turn % 2 ? 0x20 : 0) | (turn % 4 > 1 ? 0x40000 : 0);
                const std::string& text = place & 4 ? columns[turn % 3] : rows[turn % 6];
                const auto caption = [=, &text](Bare& t) {
                    if (points) t.Font = Z_Create_Font(t.Window, "Arial", "bold", nullptr, points);
                    t.Text(t.Font, text.c_str(), place | across | color, t.X, t.Y, t.Width, t.Height,
                           static_cast<short>(turn % 7 - 1));
                };
                sheet.Add("caption", By_Hand(caption, turn % 5 == 0));
            }
        }
        const auto tabbed = [=](short x, short y) {
            HFONT font = points ? Z_Create_Font(Z_Window, "Arial", nullptr, nullptr, points) : nullptr;
            SetBkMode(Z_DC, TRANSPARENT);
            Text_Tabbed(font, x - 4, y, "a\tb&c");
            Z_Delete_Font(Z_Window, font);
        };
        sheet.Add("tabbed", Drawn(tabbed));
    }
    sheet.Expect_Recorded();
}

TEST(Pictures, Arrows) {
    Sheet sheet("arrows", 80, 80);
    struct {
        short inset, size, w, h;
    } const table[] = {{3, 16, 16, 16}, {3, 16, 61, 19}, {2, 30, 70, 72}, {0, 9, 15, 12},
                       {3, 5, 18, 21},  {3, 4, 9, 8},    {0, 1, 6, 6},    {5, 33, 33, 40},
                       {2, 67, 70, 69}, {7, 24, 60, 50}, {-2, 20, 40, 40}};
    for (short direction = 0; direction < 4; ++direction) {
        for (const auto& row : table) {
            const auto arrow = [=](Bare& t) {
                t.Arrow(direction, row.inset, row.size, t.X, row.w, t.Y, row.h);
            };
            sheet.Add("arrow", By_Hand(arrow, row.inset == 7));
        }
    }
    sheet.Expect_Recorded();
}

TEST(Pictures, Icons_And_Glyphs) {
    Sheet sheet("icons", 44, 30);
    for (const auto lead : {Icon_Lead_Leaf, Icon_Lead_No_Access, Icon_Lead_Expand, Icon_Lead_Collapse}) {
        for (const bool more : {false, true}) {
            for (const int reach : {13, 18, 28}) {
                const auto paint = [=](short x, short y) {
                    lead(nullptr, char{more}, x, static_cast<short>(x + reach), y,
                         static_cast<short>(y + reach - 5));
                };
                sheet.Add("lead", Drawn(paint));
            }
        }
    }
    for (const auto folder : {Icon_Dir_Close, Icon_Dir_Open})
        sheet.Add("folder", Drawn([=](short x, short y) { folder(nullptr, x, y); }));
    for (const char* name : {"floppy", "fixed", "remote", "cdrom", "mycomputer"}) {
        sheet.Add(name, [=](const Cell& cell) {
            const std::string file = std::string("icon_") + name + ".rgb";
            Boxs box;
            cell.Place(box);
            box.Color = Colors(60, 1, 170), box.Init(cell.window);
            const auto x = static_cast<short>(box.X + 6), y = static_cast<short>(box.Y + 3);
            Icon_Draw_Image(&box, x, y, "", file.c_str());
            Begin_Draw(cell.window, nullptr);
            Icon_Draw_Border(&box, x, y, "", file.c_str());
            End_Draw();
        });
    }
    sheet.Expect_Recorded();
}

/// An icon stands in the middle, smaller where there is less room, and larger at a scale.
template <class Control>
void Show_Icons(Sheet& sheet) {
    const Looks<Control> looks{
        {"as it is"},
        {"150 %", 0, [](auto& c) { c.Scale = 150; }},
        {"200 %", 0, [](auto& c) { c.Scale = 200, c.Border = 2; }},
        {"narrow", 0, [](auto& c) { c.Width = 15; }},
        {"low", 0, [](auto& c) { c.Height = 14; }},
        {"no room", 0, [](auto& c) { c.Width = c.Height = 7; }},
        {"bright, thick border", 0, [](auto& c) { c.Color = Colors(240, 90, 10), c.Border = 9; }},
    };
    const Steps<Control> steps{
        [](auto& c, auto&) { c.Width = static_cast<short>(c.Width - 3), c.Init(nullptr), c.Draw(); },
        [](auto& c, auto&) { c.Set_Color(30, 200, 100), c.Init(nullptr), c.Draw(); },
    };
    const auto dress = [](Control& c) {
        const std::string folder = std::string(Inst_Path) + "Icons\\";
        EXPECT_EQ(c.Icon((folder + "icon_mycomputer.rgb").c_str()), 1);
        c.Name = nullptr;
    };
    sheet.Add_All<Control>(dress, looks, Rest_And_Light<Control>() + steps);
}

TEST(Pictures, Icons_On_Bodies) {
    Sheet sheet("icons-on-bodies", 60, 50);
    Show_Icons<Boxs>(sheet), Show_Icons<Buttons>(sheet);
    sheet.Expect_Recorded();
}

namespace {

/// A scale, and the size of a control at 100 %.
struct Sized {
    int scale, width, height;
};
constexpr Sized Sizes[] = {{100, 30, 20}, {200, 30, 20}, {150, 30, 20}, {399, 30, 20},
                           {200, 45, 30}, {100, 45, 30}, {50, 80, 60},  {90, 45, 30}};

Tools& Body_Of(Tools& control) { return control; }
Tools& Body_Of(Lists& list) { return list.Frame; }

/// A scene of a control that gets an image of 30 x 20 pixels at 100 %, and then other sizes and scales.
template <class Control>
Scene Rescaled(const Sized& last, bool another_image = false) {
    return [=](const Cell& cell) {
        Control control;
        Tools& body = Body_Of(control);
        cell.Place(control);
        control.Name = nullptr, control.Set_Color(0x33, 0xAA, 0x55);
        control.Width = body.Width = 30, control.Height = body.Height = 20;
        Give_Image(body);
        cell.Point_Away();
        control.Init(cell.window);
        for (const Sized& size : {Sized{120, 30, 20}, last}) {
            const auto scaled = [&](int length) { return static_cast<short>(length * size.scale / 100); };
            control.Scale = static_cast<unsigned short>(size.scale), control.Border = scaled(3);
            control.Width = scaled(size.width), control.Height = scaled(size.height);
            if constexpr (requires { control.Slant; }) control.Slant = scaled(6);
            control.Init(nullptr);
        }
        if (another_image) Give_Image(body), control.Init(nullptr);
        control.Draw();
    };
}

/// An image keeps the pixels of its own size: enlarged by whole factors, or every second left out.
template <class Control>
void Show_Images(Sheet& sheet) {
    for (const Sized& size : Sizes)
        sheet.Add("image at " + std::to_string(size.scale), Rescaled<Control>(size));
    sheet.Add("image given at 200", Rescaled<Control>({200, 15, 10}, true));
}

/// What the fields point at is what is shown.
void Paint_Over(Buttons& button) {
    std::fill_n(button.Cur_Graph_Normal, button.Width * button.Height, 0x123456UL);
}

}  // namespace

TEST(Pictures, Images_And_Borders_That_Change) {
    Sheet sheet("images", 130, 92);
    Show_Images<Boxs>(sheet), Show_Images<Buttons>(sheet);
    Show_Images<TabItems>(sheet), Show_Images<Lists>(sheet);
    // Shading that was made for another border leaves no gap.
    const Steps<Boxs> thinner{
        [](auto& b, auto&) { b.Border = 8, b.Init(nullptr), b.Border = 2, b.Init(nullptr), b.Draw(); },
        [](auto& b, auto&) {
            const short usual = std::exchange(BORDER, short{1});
            b.Draw();
            BORDER = usual;
        },
    };
    const Steps<Buttons> painted_over{
        [](auto& b, auto&) { Paint_Over(b), b.Draw(); },
        [](auto& b, auto& at) {
            Paint_Over(b), at.Point_At(b), b.Select(EVENT_MOVE), at.Point_Away(), b.Select(EVENT_MOVE);
        },
    };
    // The edge of a tab that an application paints joins what the tab has painted.
    const auto edge = [](auto& t, auto&) {
        t.Cadre(0, t.Value, 1, t.X, static_cast<short>(t.X + t.Width), t.Y,
                static_cast<short>(t.Y + t.Height));
    };
    sheet.Add_All<TabItems>(
        nullptr, Looks<TabItems>{{"edge"}, {"edge in front", 0, [](auto& t) { t.Value = 1; }}}, {edge});
    sheet.Add_All<Boxs>(nullptr, Flags<Boxs>({FLAG_NO_RIM}), thinner);
    sheet.Add_All<Buttons>(nullptr, Flags<Buttons>({0}), painted_over);
    sheet.Expect_Recorded();
}

TEST(Pictures, Boxes) {
    Sheet sheet("boxes", 66, 36);
    const Steps<Boxs> steps{
        [](auto& b, auto& at) { at.Point_At(b), b.Select(EVENT_MOVE), b.Adjust(); },
        [](auto& b, auto&) { b.Set_Color(30, 200, 100), b.Init(nullptr), b.Draw(); },
    };
    sheet.Add_All<Boxs>(nullptr, Common_Looks<Boxs>(), Rest_And_Light<Boxs>());
    sheet.Add_All<Boxs>(nullptr,
                        Flags<Boxs>({0, FLAG_PASSIVE, FLAG_OUTLINE, FLAG_INNER_FRAME}) + Fonts<Boxs>(),
                        Leave<Boxs>() + steps);
    sheet.Expect_Recorded();
}

TEST(Pictures, Buttons) {
    constexpr unsigned long Lamp = BUTTON_LAMP, Colored = Lamp | BUTTON_LAMP_COLORS;
    const Looks<Buttons> lamps =
        Flags<Buttons>({Lamp, Lamp | FLAG_PASSIVE, Lamp | FLAG_STATIC, Lamp | FLAG_OUTLINE,
                        Lamp | FLAG_TEXT_WHITE | FLAG_TEXT_LEFT}) +
        Looks<Buttons>{
            {"yellow", Lamp, [](auto& b) { b.Lamp = 1; }},
            {"green", Colored, [](auto& b) { b.Lamp = 1; }},
            {"blue", Colored, [](auto& b) { b.Lamp = 2, b.Border = 5; }},
            {"yellow, low", Colored, [](auto& b) { b.Lamp = 3, b.Height = 18; }},
            {"red", Colored, [](auto& b) { b.Lamp = -1; }},
        };
    const Steps<Buttons> steps{
        [](auto& b, auto&) { b.Value = 1, b.Adjust(); },
        [](auto& b, auto& at) { b.Value = -1, at.Point_At(b), b.Draw(); },
        [](auto& b, auto&) { b.Value = 1, b.Draw(), b.Value = 0, b.Lamp ^= 1, b.Adjust(); },
        [](auto& b, auto&) { b.Value = 1, b.Set_Color(30, 200, 100), b.Init(nullptr), b.Draw(); },
    };
    Sheet sheet("buttons", 66, 36);
    sheet.Add_All<Buttons>(nullptr, Common_Looks<Buttons>(), Rest_And_Light<Buttons>());
    sheet.Add_All<Buttons>(nullptr, lamps, Rest_And_Light<Buttons>() + steps);
    sheet.Add_All<Buttons>(nullptr, Flags<Buttons>({0, FLAG_PASSIVE, FLAG_OUTLINE}),
                           Leave<Buttons>() + steps);
    sheet.Expect_Recorded();
}

TEST(Pictures, Labels) {
    Sheet sheet("labels", 90, 50);
    sheet.Add_All<Labels>(nullptr, Common_Looks<Labels>(), {nullptr, [](auto& l, auto&) { l.Draw(); }});
    sheet.Expect_Recorded();
}

TEST(Pictures, Tab_Items) {
    Sheet sheet("tab-items", 90, 36);
    const Looks<TabItems> shapes{
        {"slant 0", 0, [](auto& t) { t.Slant = 0; }},
        {"slant 3, straight", 0, [](auto& t) { t.Slant = 3, t.Shape = 0x11; }},
        {"slant 8, left", 0, [](auto& t) { t.Slant = 8, t.Shape = 0x10; }},
        {"slant 7, right", 0, [](auto& t) { t.Slant = 7, t.Shape = 0x01; }},
        {"slant 30", 0, [](auto& t) { t.Slant = 30; }},
        {"slant 45, straight", 0, [](auto& t) { t.Slant = 45, t.Shape = 0x2F0, --t.Height; }},
    };
    const auto dress = [](auto& t) { t.Slant = 10; };
    const Steps<TabItems> front{
        [](auto& t, auto&) { t.Value = 1, t.Adjust(); },
        [](auto& t, auto& at) { t.Value = 1, at.Point_At(t), t.Draw(); },
    };
    sheet.Add_All<TabItems>(dress, Common_Looks<TabItems>() + shapes, Rest_And_Light<TabItems>() + front);
    sheet.Add_All<TabItems>(dress, Flags<TabItems>({0, FLAG_PASSIVE}), Leave<TabItems>());
    sheet.Expect_Recorded();
}
