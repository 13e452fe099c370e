#include <array>
#include <string>

#include "Galdren_Tools.h"
#include "Galdren_Util.h"
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

/// Puts the pointer where a trough takes its entry `k`.
void Point_In(const Test_Window& window, const Valuators& trough, int k) {
    window.Point_At(trough.X + trough.Curs_Half + trough.Border + k - 1, trough.Y + trough.Height / 2);
}

unsigned long Pack(int high, int middle, int low) {
    return 0xFF000000UL | static_cast<unsigned long>(high << 16 | middle << 8 | low);
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
        for (const int event : {EVENT_TEST, EVENT_PRESS})
            EXPECT_EQ(e.Select(event | EVENT_LEFT), 1);
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
