#include <string>

#include "Galdren_Tools.h"
#include "Galdren_Util.h"
#include "tests/support/controls.h"
#include "tests/support/window.h"

using namespace galdren_test;

namespace {

constexpr short Left = 60, Bottom = 20;
constexpr unsigned long Steel = 0xFFB47832, HLS = COLOR_EDIT_HLS, Mode = COLOR_EDIT_MODE_BUTTON;

/// An editor ready but for `Init`.
template <class Editor>
struct Sample : Editor {
    explicit Sample(unsigned long flag = 0) {
        Place(*this, nullptr, Left, Bottom, 300, 90, flag);
        this->Border = 3, this->Value = Steel;
    }
};

/// Puts the pointer where a trough takes its entry `k`.
void Point_In(const Test_Window& window, const Valuators& trough, int k) {
    window.Point_At(trough.X + trough.Curs_Half + trough.Border + k - 1, trough.Y + trough.Height / 2);
}

unsigned long Pack(int high, int middle, int low) {
    return 0xFF000000UL | static_cast<unsigned long>(high << 16 | middle << 8 | low);
}

template <class Editor>
void Expect_Values_To_Come_Back(unsigned long flag) {
    const Test_Window window(440, 140);
    Sample<Editor> e(flag);
    e.Init(window);
    for (int i = 0; i < 3 * 256 * 64; ++i) {
        constexpr int Others[] = {0, 1, 100, 127, 128, 253, 254, 255};
        const int all[] = {i / 64 % 256, Others[i % 8], Others[i / 8 % 8]}, at = i / (256 * 64);
        e.Value = Pack(all[at], all[(at + 1) % 3], all[(at + 2) % 3]);
        ASSERT_EQ(e.Read(), e.Value) << std::hex << e.Value;
    }
}

}  // namespace

TEST(Editors, Bring_Every_Channel_Value_Back) {
    Expect_Values_To_Come_Back<Hue_Edit>(0);
    Expect_Values_To_Come_Back<Color_Edit>(0);
    Expect_Values_To_Come_Back<Color_Edit>(HLS);
}

TEST(Color_Editor, Scrolls_The_Channel_Under_The_Pointer) {
    Test_Window window(440, 140);
    const struct {
        Valuators Color_Edit::*trough;
        unsigned long pressed, scrolled[4];
    } rows[] = {
        {&Color_Edit::Chan_1, 0xFFB47896, {0xFFB4782D, Steel, 0xFFB4783C, 0xFFB47800}},
        {&Color_Edit::Chan_2, 0xFFB49632, {0xFFB47332, Steel, 0xFFB48232, 0xFFB40032}},
        {&Color_Edit::Chan_3, 0xFF967832, {0xFFAF7832, Steel, 0xFFBE7832, 0xFF007832}},
    };
    for (const auto& [trough, pressed, scrolled] : rows) {
        Sample<Color_Edit> e;
        e.Init(window), e.Draw();
        Point_In(window, e.*trough, 120);
        EXPECT_EQ(e.Select(EVENT_PRESS | EVENT_LEFT), 1);
        EXPECT_EQ(e.Read(), pressed);
        const unsigned long* wanted = scrolled;
        for (const int steps : {1, -1, -2, 100000})
            EXPECT_EQ(e.Scroll(steps), *wanted++) << steps;
        window.Point_At(0, 0);
        EXPECT_EQ(e.Scroll(3), e.Value) << "beside all";
    }
}

TEST(Color_Editor, Changes_The_Mode_By_Its_Button) {
    Test_Window window(440, 140);
    Sample<Color_Edit> e(Mode);
    e.Init(window), e.Draw();
    window.Point_At(e.Mode_Button.X + 5, e.Mode_Button.Y + 5);
    EXPECT_EQ(e.Select(0) + e.Select(4) + e.Select(17), 0);
    EXPECT_STREQ(e.Mode_Button.Name, "RGB");
    EXPECT_EQ(e.Select(EVENT_PRESS | EVENT_LEFT), 0);
    EXPECT_EQ(e.Chan_1.Name + std::string(e.Chan_2.Name) + e.Chan_3.Name, "HueLightSaturation");
    Point_In(window, e.Chan_3, 0);
    EXPECT_EQ(e.Read(), Pack(115, 115, 115)) << "without saturation";
    e.Flag |= FLAG_PASSIVE;
    EXPECT_EQ(e.Select(EVENT_PRESS), 0);
    EXPECT_EQ(e.Flag & HLS, HLS);
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
