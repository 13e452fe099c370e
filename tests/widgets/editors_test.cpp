#include <array>
#include <limits>
#include <memory>
#include <sstream>
#include <string>

#include "Galdren_Util.h"
#include "tests/support/painter.h"
#include "tests/support/spy.h"
#include "tests/support/window.h"

using namespace galdren_test;

namespace {

constexpr short Left = 60, Bottom = 20;
constexpr unsigned long Steel = 0xFFB47832, HLS = COLOR_EDIT_HLS, Mode = COLOR_EDIT_MODE_BUTTON;

/// An editor ready but for `Init`.
template <class Editor>
struct Sample : Editor {
    explicit Sample(unsigned long flag = 0, int width = 300, int height = 90, int border = 3) {
        this->X = Left, this->Y = Bottom, this->Flag = flag, this->Border = static_cast<short>(border);
        this->Width = static_cast<short>(width), this->Height = static_cast<short>(height);
        this->Font_Name = "Arial", this->Font_Size = 9, this->Value = Steel;
    }
};

std::array<Valuators*, 3> Troughs(Color_Edit& e) { return {&e.Chan_1, &e.Chan_2, &e.Chan_3}; }
std::array<Valuators*, 1> Troughs(Hue_Edit& e) { return {&e.Hue}; }

template <class Editor>
constexpr bool Is_Hue = std::is_base_of_v<Hue_Edit, Editor>;

/// Puts the pointer where a trough takes its entry `k`.
void Point_In(const Test_Window& window, const Valuators& trough, int k) {
    window.Point_At(trough.X + trough.Curs_Half + trough.Border + k - 1, trough.Y + trough.Height / 2);
}

unsigned long Pack(int high, int middle, int low) {
    return 0xFF000000UL | static_cast<unsigned long>(high << 16 | middle << 8 | low);
}

/// Column `c` of a gradient over `w`: 0 rainbow, 1 to 3 red, green, blue, 4 grey, 5 white to red.
unsigned long Gradient(int kind, int c, int w) {
    const float k = 1.0F / static_cast<float>(w), at = static_cast<float>(c);
    const int up = static_cast<int>(255 * at * k), down = static_cast<int>(255 - 255 * at * k);
    float rgb[3];
    HLS_to_RGB(at * k, 0.5F, 1, &rgb[0], &rgb[1], &rgb[2]);
    if (kind == 5) return Pack(255, down, down);
    if (kind) return Pack(kind % 3 == 1 ? up : 0, kind % 2 ? 0 : up, kind > 2 ? up : 0);
    return Pack(static_cast<int>(rgb[0] * 255.0), static_cast<int>(rgb[1] * 255.0),
                static_cast<int>(rgb[2] * 255.0));
}

template <class Editor>
void Expect_Gradients(Editor& e) {
    int channel = 0;
    for (const Valuators* trough : Troughs(e)) {
        const int kind = Is_Hue<Editor> ? 0 : e.Flag & HLS ? channel + (channel ? 3 : 0) : channel + 1;
        for (int i = 0, w = trough->Width; i < w * trough->Height; ++i)
            ASSERT_EQ(trough->Graph_Normal[i], Gradient(kind, i % w, w)) << trough->Name << ' ' << i;
        ++channel;
    }
}

/// Draws a control of its own in the place and the look of a part.
template <class Control>
void Draw_Alike(const Control& part, HWND window, float value = 0) {
    Control alone;
    alone.Flag = part.Flag, alone.Name = part.Name, alone.Color = part.Color, alone.Border = part.Border;
    alone.X = part.X, alone.Y = part.Y, alone.Width = part.Width, alone.Height = part.Height;
    alone.Font_Name = part.Font_Name, alone.Font_Size = part.Font_Size;
    if (part.Graph_Normal) alone.Alloc_Graph_Normal(0);
    if (part.Graph_Normal) std::copy_n(part.Graph_Normal, part.Width * part.Height, alone.Graph_Normal);
    if constexpr (std::is_same_v<Control, Valuators>)
        alone.Graph_Select = alone.Graph_Normal, alone.End_Val = 0.99F, alone.Val = value;
    alone.Init(window), alone.Draw();
}

using Both = testing::Types<Hue_Edit, Color_Edit>;
template <class Editor>
class Any_Editor : public testing::Test {
  protected:
    Test_Window window{440, 140};
    Report_Catcher reports;
};
TYPED_TEST_SUITE(Any_Editor, Both);

}  // namespace

TYPED_TEST(Any_Editor, Brings_Every_Channel_Value_Back) {
    this->window.Point_At(0, 0);
    for (const unsigned long flag : {0UL, HLS}) {
        Sample<TypeParam> e(flag);
        e.Init(this->window);
        for (int i = 0; i < 3 * 256 * 64; ++i) {
            constexpr int Others[] = {0, 1, 100, 127, 128, 253, 254, 255};
            const int all[] = {i / 64 % 256, Others[i % 8], Others[i / 8 % 8]}, at = i / (256 * 64);
            e.Value = Pack(all[at], all[(at + 1) % 3], all[(at + 2) % 3]);
            ASSERT_EQ(e.Read(), e.Value) << std::hex << e.Value;
        }
    }
}

TEST(Editors, Lay_Their_Parts_Out) {
    Test_Window window(500, 200);
    const auto places = [](std::initializer_list<const Tools*> parts) {
        std::ostringstream text;
        for (const Tools* t : parts)
            text << t->X - Left << ' ' << t->Y - Bottom << ' ' << t->Width << 'x' << t->Height << ", ";
        return text.str();
    };
    struct Row {
        unsigned long flag;
        int height, border;
        const char* places;  // of the channels from the top down and the swatch; or of rainbow and swatch
        int part_border;
    };
    const Row colors[] = {{0, 120, 3, "5 79 338x36, 5 42 338x35, 5 5 338x35, 345 5 50x110, ", 3},
                          {Mode, 74, 0, "0 50 327x24, 0 25 327x23, 0 0 327x23, 329 0 50x74, ", 3},
                          {Mode, 75, 3, "5 49 317x21, 5 27 317x20, 5 5 317x20, 324 5 50x65, ", 3},
                          {0, 12, -9, "0 8 348x4, 0 4 348x2, 0 0 348x2, 350 0 50x12, ", 9}};
    for (const Row& row : colors) {
        Sample<Color_Edit> e(row.flag, 400, row.height, row.border);
        e.Init(window);
        EXPECT_EQ(places({&e.Chan_1, &e.Chan_2, &e.Chan_3, &e.Swatch}), row.places);
        EXPECT_EQ(e.Chan_2.Border * 100 + e.Mode_Button.Width, row.part_border * 100 + (row.flag ? 19 : 0));
        EXPECT_EQ(e.Mode_Button.X, row.flag ? e.Swatch.X + 52 : 0);
        const int height = e.Swatch.Height;
        e.Name = "name", e.Init(window);
        Begin_Draw(window, nullptr);
        EXPECT_EQ(e.Swatch.Height, height - (row.border > 0 ? 3 + Text_Height(e.Font) : 0));
        End_Draw();
    }
    const Row hues[] = {{0, 40, 5, "4 4 340x32, 346 4 50x32, ", 2},
                        {0, 40, 0, "0 0 344x40, 346 0 50x40, ", 2},
                        {0, 4, -1, "0 0 344x4, 346 0 50x4, ", 1}};
    for (const Row& row : hues) {
        Sample<Hue_Edit> e(row.flag, 400, row.height, row.border);
        e.Value = 0, e.Init(window);
        EXPECT_EQ(e.Value, 0xFF0000FF);
        EXPECT_EQ(places({&e.Hue, &e.Swatch}), row.places);
        EXPECT_EQ(e.Swatch.Border * 100 + e.Hue.Border, row.part_border * 101);
    }
}

TYPED_TEST(Any_Editor, Is_Painted_As_Its_Parts_Are) {
    Test_Window& window = this->window;
    window.Point_At(0, 0);
    for (const unsigned long flag : {0x0UL, HLS | Mode, 0x20UL, 0x30UL | Mode, 0x21UL, 0x2UL}) {
        for (const int border : {0, 1, 4}) {
            SCOPED_TRACE(testing::Message() << std::hex << flag << ", " << border);
            Sample<TypeParam> e(flag, 320, 90, border);
            e.Name = "Some colour", e.Color = Colors(90, 200, 120);
            for (const int other : {80, 0}) {
                e.Width = static_cast<short>(320 - other), e.Flag = other ? flag ^ HLS : flag;
                e.Init(window);
                if (!(flag & FLAG_NO_BODY)) Expect_Gradients(e);
            }
            e.Value = 0xFF20C0E0;
            const Picture ours = window.After([&] { e.Draw(); });
            const Picture plain = window.After([&] {
                for (const bool at_start : {true, false}) {
                    constexpr bool hue = Is_Hue<TypeParam>;
                    if (at_start ? hue || !(flag & FLAG_OUTLINE) : !hue && flag & FLAG_NO_BODY) continue;
                    hue && !border ? e.Frame.Clear() : Draw_Alike(e.Frame, window);
                    for (const Valuators* trough : Troughs(e))
                        Draw_Alike(*trough, window, at_start ? 0 : trough->Val);
                    Draw_Alike(e.Swatch, window);
                    if constexpr (!hue)
                        if (flag & Mode) Draw_Alike(e.Mode_Button, window);
                }
            });
            EXPECT_TRUE(Same(ours, plain));
            const bool swatch = !(flag & 0x11) && (Is_Hue<TypeParam> || border);
            EXPECT_EQ(ours.At(e.Swatch.X + 25, e.Swatch.Y + 9) == 0xE0C020, swatch);
            if (flag & (FLAG_STATIC | FLAG_PASSIVE | FLAG_OUTLINE)) continue;
            const Picture adjusted = window.After([&] { e.Draw(), e.Value = 0xFFFF8040, e.Adjust(); });
            EXPECT_TRUE(Same(adjusted, window.After([&] { e.Draw(); })));
        }
    }
}

TEST(Color_Editor, Takes_The_Channel_Under_The_Pointer) {
    Test_Window window(440, 140);
    for (unsigned i = 0; i < 3; ++i) {
        Sample<Color_Edit> e;
        e.Init(window), e.Draw();
        const Valuators& trough = *Troughs(e)[i];
        const auto with = [&](float channel) {
            return (Steel & ~(0xFFUL << 8 * i)) | static_cast<unsigned long>(channel * 255) << 8 * i;
        };
        Point_In(window, trough, 120);
        EXPECT_EQ(e.Select(EVENT_TEST | EVENT_LEFT) * 10 + e.Select(EVENT_PRESS | EVENT_LEFT), 11);
        EXPECT_EQ(e.Read(), with(trough.Tab[120]));
        window.Point_At(0, 0);
        EXPECT_EQ(e.Select(EVENT_DRAG), 0);
        EXPECT_EQ(e.Scroll(3), Steel);
        Point_In(window, trough, 7);
        for (const int steps : {1, -1, -2, 100000}) {
            const float before = (static_cast<float>(e.Value >> 8 * i & 255) + 0.5F) / 255;
            EXPECT_EQ(e.Scroll(steps), with(std::max(before - 0.0198F * static_cast<float>(steps), 0.0F)));
            EXPECT_EQ(e.Last_Value, e.Value);
        }
    }
}

TEST(Color_Editor, Changes_The_Mode_By_Its_Button) {
    Test_Window window(440, 140);
    Sample<Color_Edit> e(Mode);
    e.Init(window), e.Draw();
    window.Point_At(e.Mode_Button.X + 5, e.Mode_Button.Y + 5);
    EXPECT_EQ(e.Select(0) + e.Select(4) + e.Select(17), 0);
    EXPECT_STREQ(e.Mode_Button.Name, "RGB");
    const Area painted = window.Changed([&] { EXPECT_EQ(e.Select(EVENT_PRESS | EVENT_LEFT), 0); });
    EXPECT_EQ(painted, (Area{Left, Left + 300, Bottom, Bottom + 90}));
    EXPECT_EQ(e.Chan_1.Name + std::string(e.Chan_2.Name) + e.Chan_3.Name, "HueLightSaturation");
    Point_In(window, e.Chan_3, 0);
    EXPECT_EQ(e.Read(), Pack(115, 115, 115)) << "without saturation";
    e.Flag |= FLAG_PASSIVE;
    EXPECT_EQ(e.Select(EVENT_PRESS), 0);
    EXPECT_EQ(e.Flag & HLS, HLS);
    Sample<Color_Edit> red;
    red.Value = 0xFFFF7832, red.Init(window), red.Draw(), red.Value = 0xFFFF7833;
    // Red is at its end, which its trough holds just below 1: it is painted again with blue.
    const Area troughs_and_swatch{red.Chan_1.X, red.Swatch.X + 46, Bottom + 5, Bottom + 85};
    EXPECT_EQ(window.Changed([&] { red.Adjust(); }), troughs_and_swatch);
}

TEST(Hue_Editor, Changes_The_Hue_Alone) {
    Test_Window window(440, 140);
    Sample<Hue_Edit> e;
    e.Init(window), e.Draw();
    const float before = e.Hue.Val;
    Point_In(window, e.Hue, 0);
    EXPECT_EQ(e.Select(EVENT_PRESS | EVENT_LEFT), 1);
    EXPECT_EQ(e.Read(), 0xFF3232B4);
    EXPECT_NE(e.Scroll(1), Steel);
    EXPECT_NEAR(e.Hue.Val, before - 0.0198F, 2e-3F);
    e.Value = Steel;
    EXPECT_EQ(window.Changed([&] { e.Adjust(); }), Nothing) << "the colour of the last Draw";
    e.Value = Pack(90, 90, 90), e.Draw();
    EXPECT_EQ(e.Read(), e.Value) << "a grey has no hue";
    window.Point_At(0, 0);
    EXPECT_EQ(e.Scroll(5), e.Value);
}

TYPED_TEST(Any_Editor, Shares_With_Copies_But_Not_Their_Changes) {
    Test_Window& window = this->window;
    const auto scene = [&](int first_gone) {
        auto e = std::make_unique<Sample<TypeParam>>(Mode);
        e->Set_Name("%s", "own"), e->Init(window), e->Draw();
        auto copy = std::make_unique<TypeParam>(*e), other = std::make_unique<TypeParam>();
        other->Width = other->Height = 200, other->Init(window);
        *other = *copy, *other = *other;
        EXPECT_EQ(other->Swatch.Graph_Normal, e->Swatch.Graph_Normal);
        EXPECT_EQ(Troughs(*other)[0]->Graph_Select, Troughs(*e)[0]->Graph_Normal);
        const Picture before = window.After([&] { e->Draw(); });
        copy->Value = 0xFF00FF00, copy->Draw();
        copy->Flag ^= HLS, copy->Init(window), copy->Draw();
        EXPECT_EQ(e->Swatch.Graph_Normal[0], 0xFF3278B4);
        EXPECT_TRUE(Same(before, window.After([&] { e->Draw(); })));
        if (first_gone == 0) e.reset();
        if (first_gone == 1) copy.reset();
        other->Draw(), other->Value = 0xFF112233, other->Adjust(), other->Init(window);
    };
    scene(0);
    const int objects = Gdi_Objects();
    for (int i = 0; i < 9; ++i)
        scene(i % 3);
    EXPECT_EQ(Gdi_Objects(), objects);
}

TYPED_TEST(Any_Editor, Survives_Any_Fields) {
    const short but_dim = BUT_DIM;
    Sample<TypeParam> e;
    for (const int hidden : {0, 1, 0}) {  // grows while it is hidden
        e.Flag = hidden ? FLAG_NO_BODY : 0;
        if (hidden) e.Width = e.Height = 1000, e.Value = 5;
        e.Init(this->window), e.Draw();
    }
    unsigned random = 1;
    const auto pick = [&](std::initializer_list<int> values) {
        random = random * 1103515245 + 12345;
        return *(values.begin() + (random >> 16) % values.size());
    };
    const auto low = [&](std::initializer_list<int> list) { return static_cast<short>(pick(list)); };
    for (int round = 0; round < 250; ++round) {
        e.Width = low({-5, 0, 1, 40, 66, 100, 300, 300, 2000});
        e.Height = low({-1, 1, 5, 12, 40, 90, 90});
        e.Border = low({0, 1, 3, 3, 3, 3, 20, -7, 32767, -32768});
        e.Flag = static_cast<unsigned>(pick({0, 0, 0x800, 0x880, 1, 0x10, 0x31, 2, 4, 0x4000000, 0x1100000}));
        e.Color = Colors(pick({300, 0}), pick({-5, 0}), 128), e.Name = pick({0, 1}) ? "Name" : nullptr;
        BUT_DIM = low({25, 25, 40, 0, -9, 32767});
        Call_Spy spy;
        if (pick({0, 0, 1})) spy.Fail_Allocation(pick({0, 1, 2, 3, 4, 5, 6}));
        if (pick({0, 1, 1})) e.Init(this->window);
        this->window.Point_At(Left + pick({20, 50, 200}), Bottom + pick({5, 40, 80}));
        e.Value = static_cast<unsigned>(pick({0, 0x12345678, 0x00FFFFFF, 0x00FEFEFF}));
        e.Draw(), e.Select(EVENT_PRESS), e.Value = e.Read() ^ 0x30, e.Adjust();
        if (round % 7 == 0) Troughs(e)[0]->Val = std::numeric_limits<float>::quiet_NaN();
        e.Scroll(pick({1, -2147483647, 2147483647})), e.Deselect();
        TypeParam copy(e);
        copy.Value = 5, copy.Adjust();
    }
    BUT_DIM = but_dim;
}

TYPED_TEST(Any_Editor, Reports_Misuse_Once) {
    const std::string type = Is_Hue<TypeParam> ? "Hue_Edit::" : "Color_Edit::";
    const std::string start = "11:Tools: WARNING ! |11:   you must ";
    const auto check = [&](const char* name, auto call) {
        TypeParam e;
        e.Name = "n", e.Deselect(), call(e), call(e);
        EXPECT_EQ(this->reports.Take(),
                  start + "call *_Init() first|11:   type: " + type + name + "   name: n\n");
    };
    check("Draw", [](auto& e) { e.Draw(); }), check("Select", [](auto& e) { e.Select(0); });
    check("Read", [](auto& e) { e.Read(); }), check("Scroll", [](auto& e) { e.Scroll(1); });
    check("Adjust", [](auto& e) { e.Adjust(); });
    Sample<TypeParam> e;
    e.Name = "n", e.Init(nullptr);
    EXPECT_EQ(this->reports.Take(), start + "provide a window|11:   type: " + type + "Init   name: n");
}
