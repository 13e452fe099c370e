#include <functional>
#include <sstream>
#include <string>

#include "Galdren_Tools.h"
#include "tests/support/code_page.h"
#include "tests/support/controls.h"
#include "tests/support/spy.h"
#include "tests/support/window.h"

using namespace galdren_test;

namespace {

constexpr bool Inside = true, Outside = false, Paints = true, Rests = false;
constexpr Area Body{54, 146, 24, 66};  // inside frame and rim

/// A control in the middle of a window.
template <class Control>
class Pointer_Protocol : public testing::Test {
  protected:
    Pointer_Protocol() {
        Place(control, nullptr, 50, 20, 100, 50);
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
    const struct {
        unsigned long flag;
        int event;
        bool inside;
        short hover;  // before
        int result;
        short hover_after;
        bool paints;
    } table[] = {
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
    for (const auto& row : table) {
        SCOPED_TRACE(&row - table);
        this->control.Flag = row.flag, this->control.Hover = row.hover;
        this->Point(row.inside);
        const Area painted = this->Changed([&] { EXPECT_EQ(this->control.Select(row.event), row.result); });
        EXPECT_EQ(this->control.Hover, row.hover_after);
        EXPECT_EQ(painted, row.paints ? Body : Nothing);
    }
}

/// A box keeps the highlight in mind, a button forgets it.
TYPED_TEST(Pointer_Protocol, Deselect_Paints_What_Is_Lit) {
    constexpr short Kept = std::is_same_v<TypeParam, Boxs> ? 1 : 0;
    const struct {
        unsigned long flag;
        short hover, hover_after;
        bool paints;
    } table[] = {{0, 1, Kept, Paints},
                 {0, 0, 0, Rests},
                 {0, 2, 2, Rests},
                 {FLAG_STATIC, 1, 1, Rests},
                 {FLAG_NO_BODY, 1, 1, Rests}};
    for (const auto& [flag, hover, hover_after, paints] : table) {
        this->control.Flag = flag, this->control.Hover = hover;
        EXPECT_EQ(this->Changed([&] { this->control.Deselect(); }), paints ? Body : Nothing) << flag;
        EXPECT_EQ(this->control.Hover, hover_after) << flag;
    }
}

TEST(Buttons_With_A_Value, Adjust_To_It_When_It_Has_Changed) {
    Test_Window window(240, 100);
    Buttons button;
    Place(button, "Name", 50, 20, 100, 50);
    button.Init(window);
    const struct {
        unsigned long flag;
        short value;
        bool paints;
    } table[] = {{0, 0, Rests},
                 {0, 1, Paints},
                 {0, -7, Paints},
                 {BUTTON_LAMP, 0, Paints},
                 {FLAG_NO_BODY, 1, Rests},
                 {FLAG_OUTLINE, 0, Rests},
                 {FLAG_NO_BODY | BUTTON_LAMP, 0, Rests}};
    for (const auto& [flag, value, paints] : table) {
        button.Flag = flag, button.Value = 0, button.Draw();
        button.Value = value;
        EXPECT_EQ(window.Changed([&] { button.Adjust(); }) != Nothing, paints) << flag << ' ' << value;
        EXPECT_EQ(button.Read(), value);
    }
}

TEST(Library, Tells_Its_Version) {
    EXPECT_STREQ(Get_Version_Tools(nullptr), "Galdren_Tools.dll 21.6 (rev-a)");
    EXPECT_STREQ(Get_Version_Tools("21.6"), "Galdren_Tools.dll 21.6 (rev-a)");
    for (const char* other : {"21.60", "21.5", "", " 21.6"})
        EXPECT_EQ(Get_Version_Tools(other), nullptr);
}

TEST(Fonts, Are_Made_From_Words_And_Points) {
    const struct {
        const char *face, *weight, *style;
        short points;
        unsigned page;
        std::string made;  // face, height, weight, whether italic, character set
    } table[] = {{nullptr, "bold", nullptr, 0, 0, "Arial -16 700 0 0"},
                 {"Arial", "Bold", "i", 10, 1251, "Arial -13 0 1 204"},
                 {"No Such Face", "medium", "o", -3, 932, "No Such Face -16 0 1 128"},
                 {nullptr, nullptr, nullptr, 7, CP_UTF8, "Arial -9 0 0 1"},
                 {"A name of more than the 31 bytes of a face", "", "I", 72, 874,
                  "A name of more than the 31 byte -96 0 0 222"}};
    Test_Window window(10, 10);
    for (const auto& row : table) {
        const Other_Page page(row.page);
        HFONT font = Z_Create_Font(window, row.face, row.weight, row.style, row.points);
        LOGFONTA made{};
        ASSERT_NE(GetObjectA(font, sizeof made, &made), 0);
        std::ostringstream told;
        told << made.lfFaceName << ' ' << made.lfHeight << ' ' << made.lfWeight << ' ' << (made.lfItalic != 0)
             << ' ' << int{made.lfCharSet};
        EXPECT_EQ(told.str(), row.made);
        EXPECT_EQ(made.lfWidth | made.lfUnderline | made.lfQuality, 0);
        Z_Delete_Font(window, font);
    }
    EXPECT_EQ(Z_Create_Font(window, nullptr, nullptr, nullptr, 0), nullptr);
    const auto stock = static_cast<HFONT>(GetStockObject(SYSTEM_FONT));
    Z_Delete_Font(window, nullptr), Z_Delete_Font(window, stock);
}

TEST(Fonts, Have_Their_Ampersands_Escaped) {
    const std::string longest(128, '&'), too_long(129, '&');
    EXPECT_STREQ(Escape_Ampersand("a&b&&"), "a&&b&&&&");
    EXPECT_EQ(Escape_Ampersand(longest.c_str()), longest + longest);
    for (const char* same : {"", "plain", too_long.c_str()})
        EXPECT_EQ(Escape_Ampersand(same), same);
}
