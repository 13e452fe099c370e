#include <functional>
#include <string>

#include "Galdren_Tools.h"
#include "tests/support/spy.h"
#include "tests/support/window.h"

using namespace galdren_test;

namespace {

constexpr bool Inside = true, Outside = false, Paints = true, Rests = false;

/// A control in the middle of a window.
template <class Control>
class Pointer_Protocol : public testing::Test {
  protected:
    Pointer_Protocol() {
        control.X = 50, control.Y = 20, control.Width = 100, control.Height = 50;
        control.Name = "Name", control.Font_Name = "Arial", control.Font_Size = 10;
        control.Init(window);
    }
    void Point(bool inside) { inside ? window.Point_At(60, 30) : window.Point_At(45, 30); }
    /// What `action` does to the window; the surface is taken exactly when something is painted.
    Area Changed(const std::function<void()>& action) {
        Call_Spy spy;
        const Area area = window.Changed(action);
        EXPECT_EQ(spy.Contexts() > 0, area != Nothing);
        EXPECT_EQ(spy.Contexts(), spy.Count("ReleaseDC"));
        return area;
    }

    Test_Window window{240, 100};
    Control control;
};

using Controls = testing::Types<Boxs, Buttons>;
TYPED_TEST_SUITE(Pointer_Protocol, Controls);

}  // namespace

TYPED_TEST(Pointer_Protocol, Select_Answers_And_Paints_Changes_Only) {
    struct Row {
        unsigned long flag;
        int event;
        bool inside;
        short hover;  // before
        int result;
        short hover_after;
        bool paints;
    };
    const Row table[] = {
        {0, EVENT_MOVE, Inside, 0, 1, 1, Paints},
        {0, EVENT_MOVE, Inside, 1, 1, 1, Rests},
        {0, EVENT_MOVE, Inside, 2, 1, 1, Paints},
        {0, EVENT_MOVE, Outside, 0, 0, 2, Paints},
        {0, EVENT_MOVE, Outside, 1, 0, 2, Paints},
        {0, EVENT_MOVE, Outside, 2, 0, 2, Rests},
        {0, EVENT_PRESS | EVENT_LEFT, Inside, 2, 1, 1, Paints},
        {0, EVENT_PRESS | EVENT_LEFT, Inside, 1, 1, 1, Rests},
        {0, EVENT_DRAG | EVENT_MIDDLE | EVENT_RIGHT, Outside, 1, 0, 2, Paints},
        {0, EVENT_TEST, Inside, 0, 1, 0, Rests},
        {0, EVENT_TEST | EVENT_LEFT, Inside, 2, 1, 2, Rests},
        {0, EVENT_TEST, Outside, 1, 0, 1, Rests},
        {FLAG_STATIC, EVENT_MOVE, Inside, 0, 1, 0, Rests},
        {FLAG_STATIC, EVENT_MOVE, Outside, 1, 0, 1, Rests},
        {FLAG_NO_BODY, EVENT_PRESS, Inside, 0, 1, 0, Rests},
        {FLAG_NO_BODY, EVENT_MOVE, Outside, 0, 0, 0, Rests},
        {FLAG_PASSIVE, EVENT_MOVE, Inside, 1, 0, 1, Paints},
        {FLAG_PASSIVE, EVENT_MOVE, Inside, 0, 0, 0, Paints},
        {FLAG_PASSIVE, EVENT_PRESS | EVENT_LEFT, Outside, 2, 0, 2, Paints},
        {FLAG_PASSIVE, EVENT_TEST, Inside, 2, 1, 2, Rests},
        {FLAG_PASSIVE | FLAG_STATIC, EVENT_MOVE, Inside, 0, 0, 0, Rests},
        {FLAG_PASSIVE | FLAG_NO_BODY, EVENT_MOVE, Inside, 0, 0, 0, Rests},
    };
    for (const Row& row : table) {
        SCOPED_TRACE(&row - table);
        this->control.Flag = row.flag;
        this->control.Hover = row.hover;
        this->Point(row.inside);
        int result = -1;
        const Area painted = this->Changed([&] { result = this->control.Select(row.event); });
        EXPECT_EQ(result, row.result);
        EXPECT_EQ(this->control.Hover, row.hover_after);
        // The body lies inside frame and rim.
        EXPECT_EQ(painted, row.paints ? (Area{54, 146, 24, 66}) : Nothing);
        const std::uint32_t body = Picture(this->window).At(54, 66);
        const bool red = row.inside && !(row.flag & FLAG_PASSIVE);
        if (row.paints) {
            EXPECT_EQ(body, red ? 0x860404U : 0x4A4A4AU);
        }
    }
}

TYPED_TEST(Pointer_Protocol, Deselect_And_Adjust_Follow_The_Pointer) {
    auto& control = this->control;
    constexpr bool box = std::is_same_v<TypeParam, Boxs>;
    this->Point(Outside);
    const Picture plain = this->window.After([&] { control.Draw(); });
    this->Point(Inside);
    const auto deselected = [&] { control.Draw(), control.Deselect(); };
    EXPECT_TRUE(Same(this->window.After(deselected), plain));
    // A box keeps the highlight in mind, a button forgets it.
    EXPECT_EQ(control.Hover, box ? 1 : 0);
    EXPECT_EQ(this->Changed([&] { control.Select(EVENT_MOVE); }) != Nothing, !box);
    for (const short hover : {short{0}, short{2}}) {
        control.Hover = hover;
        EXPECT_EQ(this->Changed([&] { control.Deselect(); }), Nothing);
        EXPECT_EQ(control.Hover, hover);
    }
    for (const unsigned long flag : {FLAG_STATIC, FLAG_NO_BODY}) {
        control.Flag = flag;
        control.Hover = 1;
        EXPECT_EQ(this->Changed([&] { control.Deselect(); }), Nothing);
    }
    control.Flag = 0;
    if constexpr (box) {
        control.Hover = 1;
        EXPECT_EQ(this->Changed([&] { control.Adjust(); }), (Area{54, 146, 24, 66}));
        EXPECT_EQ(control.Hover, 1);
    }
}

using Button_Protocol = Pointer_Protocol<Buttons>;

TEST_F(Button_Protocol, Adjust_Repaints_What_May_Have_Changed) {
    const Area all{50, 150, 20, 70};
    struct Row {
        unsigned long flag;
        short value;
        bool paints;
    };
    for (const Row& row : {Row{0, 0, Rests}, Row{0, 1, Paints}, Row{BUTTON_LAMP, 0, Paints},
                           Row{FLAG_NO_BODY, 1, Rests}, Row{FLAG_OUTLINE, 1, Paints},
                           Row{FLAG_OUTLINE, 0, Rests}, Row{0UL | FLAG_NO_BODY | BUTTON_LAMP, 0, Rests}}) {
        for (const bool inside : {Inside, Outside}) {
            SCOPED_TRACE(row.flag);
            Point(inside);
            control.Flag = row.flag, control.Value = 0;
            control.Draw();
            control.Value = row.value;
            const Area painted = Changed([&] { control.Adjust(); });
            const Picture shown(window);
            EXPECT_EQ(painted, row.paints ? all : Nothing);
            EXPECT_EQ(control.Read(), row.value);
            if (!row.paints) continue;
            control.Flag &= ~FLAG_OUTLINE;  // gets the full frame here, with its own blue caption
            if (control.Flag == row.flag) {
                EXPECT_TRUE(Same(shown, window.After([&] { control.Draw(); })));
            }
            EXPECT_EQ(shown.At(50, 20), 0U);
            EXPECT_EQ(control.Cur_Graph_Select, row.value ? control.Own_Select_Down : control.Own_Select_Up);
            EXPECT_EQ(Changed([&] { control.Adjust(); }) != Nothing, row.flag == BUTTON_LAMP);
        }
    }
    control.Value = -7;
    EXPECT_EQ(control.Read(), -7);
}

TEST(Library, Tells_Its_Version) {
    EXPECT_STREQ(Get_Version_Tools(nullptr), "Galdren_Tools.dll 21.6 (rev-a)");
    EXPECT_STREQ(Get_Version_Tools("21.6"), "Galdren_Tools.dll 21.6 (rev-a)");
    for (const char* other : {"21.60", "21.5", "", " 21.6"})
        EXPECT_EQ(Get_Version_Tools(other), nullptr);
}

TEST(Fonts, Are_Made_From_Words_And_Points) {
    struct Row {
        const char *face, *weight, *style;
        short points;
        const char* made_face;
        LONG height, made_weight;
        bool italic;
    };
    const Row table[] = {{nullptr, "bold", nullptr, 0, "Arial", -16, 700, false},
                         {"Arial", "Bold", "i", 10, "Arial", -13, 0, true},
                         {"No Such Face", "medium", "o", -3, "No Such Face", -16, 0, true},
                         {nullptr, nullptr, nullptr, 7, "Arial", -9, 0, false},
                         {"A name of more than the 31 bytes of a face", "", "I", 72,
                          "A name of more than the 31 byte", -96, 0, false}};
    Test_Window window(10, 10);
    for (const Row& row : table) {
        HFONT font = Z_Create_Font(window, row.face, row.weight, row.style, row.points);
        LOGFONTA made{};
        ASSERT_NE(GetObjectA(font, sizeof made, &made), 0);
        EXPECT_STREQ(made.lfFaceName, row.made_face);
        EXPECT_EQ(made.lfHeight, row.height);
        EXPECT_EQ(made.lfWeight, row.made_weight);
        EXPECT_EQ(made.lfItalic != 0, row.italic);
        EXPECT_EQ(made.lfWidth | made.lfUnderline | made.lfCharSet | made.lfQuality, 0);
        Z_Delete_Font(window, font);
    }
    Call_Spy spy;
    EXPECT_EQ(Z_Create_Font(window, nullptr, nullptr, nullptr, 0), nullptr);
    Z_Delete_Font(window, nullptr);
    Z_Delete_Font(window, static_cast<HFONT>(GetStockObject(SYSTEM_FONT)));
    EXPECT_EQ(spy.Contexts() + spy.Count("DeleteObject"), 0);
}

TEST(Fonts, Measure_And_Escape_Text) {
    Test_Window window(300, 50);
    HFONT font = Z_Create_Font(window, "Arial", nullptr, nullptr, 10);
    for (HFONT used : {font, HFONT{}}) {
        Begin_Draw(window, nullptr);
        SelectObject(Z_DC, used ? used : GetStockObject(SYSTEM_FONT));
        TEXTMETRICA metrics;
        GetTextMetricsA(Z_DC, &metrics);
        const std::string text = "x\tA tab stop" + std::string(300, '.');
        SIZE size;
        GetTextExtentPoint32A(Z_DC, text.c_str(), static_cast<int>(text.size()), &size);
        EXPECT_EQ(Text_Width(used, text.c_str()), size.cx + 3 * metrics.tmAveCharWidth);
        EXPECT_EQ(Text_Height(used), metrics.tmHeight);
        End_Draw();
    }
    Z_Delete_Font(window, font);
    const std::string longest(128, '&'), too_long(129, '&');
    EXPECT_STREQ(Escape_Ampersand("a&b&&"), "a&&b&&&&");
    EXPECT_EQ(Escape_Ampersand(longest.c_str()), longest + longest);
    for (const char* same : {"", "plain", too_long.c_str()})
        EXPECT_EQ(Escape_Ampersand(same), same);
}
