#include <gtest/gtest.h>

#include <algorithm>
#include <utility>

#include "Galdren_Tools.h"
#include "tests/support/spy.h"

namespace {

HCURSOR Standard(const char* name) { return LoadCursorA(nullptr, name); }

/// Starts with no shape and no wait, and leaves it so.
class Cursor_Test : public testing::Test {
  protected:
    Cursor_Test() { Start_Over(); }
    ~Cursor_Test() override { Start_Over(); }
    static void Start_Over() {
        Wait_Count = Cursor_Shape = 0;
        Cursor_Saved = Cursor_Saved_Wait = nullptr;
        SetCursor(Standard(IDC_IBEAM));
    }
    static void Expect(const char* shown, int shape, int wait) {
        EXPECT_EQ(GetCursor(), Standard(shown));
        EXPECT_EQ(Cursor_Shape, shape);
        EXPECT_EQ(Wait_Count, wait);
    }
};

}  // namespace

TEST(Buttons_Held, Follow_Press_Release_And_Mask) {
    constexpr std::pair<int, unsigned> bits[] = {{1, 1}, {2, 4}, {3, 2}, {0, 0}, {4, 0}, {-1, 0}};
    for (const auto& [button, bit] : bits) {
        STATE_MASK(0x80);
        BUTTON_PRESS(button), BUTTON_PRESS(button);
        EXPECT_EQ(Button_State, 0x80 | bit) << button;
        STATE_MASK(-1);
        BUTTON_RELEASE(button);
        EXPECT_EQ(Button_State, ~bit) << button;
    }
    STATE_MASK(0);
}

TEST(Buttons_Held, Are_Read_From_The_Mouse_As_It_Is_Now) {
    constexpr DWORD rows[][3] = {{VK_LBUTTON, MOUSEEVENTF_LEFTDOWN, MOUSEEVENTF_LEFTUP},
                                 {VK_RBUTTON, MOUSEEVENTF_RIGHTDOWN, MOUSEEVENTF_RIGHTUP},
                                 {VK_MBUTTON, MOUSEEVENTF_MIDDLEDOWN, MOUSEEVENTF_MIDDLEUP}};
    for (const auto& [held, down, up] : rows) {
        mouse_event(down, 0, 0, 0, 0);
        for (DWORD key = 0; key < 6; ++key)
            EXPECT_EQ(getbutton(static_cast<int>(key)), key == held) << key;
        mouse_event(up, 0, 0, 0, 0);
        EXPECT_EQ(getbutton(static_cast<int>(held)), 0);
    }
}

TEST(Modifier_Keys, Answer_To_Either_Side_And_Ignore_The_Toggle) {
    const int families[][5] = {
        {VK_SHIFT, 16, 64, 160, 161}, {VK_CONTROL, 17, 32, 162, 163}, {VK_MENU, 18, 164, 165, 18}};
    for (const auto& family : families) {
        for (const int state : {0x00, 0x01, 0x80, 0x81}) {
            BYTE keys[256] = {};
            keys[family[0]] = static_cast<BYTE>(state);
            SetKeyboardState(keys);
            for (int key = 0; key < 256; ++key) {
                const bool held = state & 0x80 && std::count(family + 1, family + 5, key);
                EXPECT_EQ(getkey(key) != 0, held) << key << " while " << family[0] << " is " << state;
            }
        }
    }
    BYTE released[256] = {};
    SetKeyboardState(released);
}

TEST_F(Cursor_Test, Shapes_Are_Set_And_Undone) {
    const struct {
        void (*set)(HWND);
        const char* shown;
        int shape;
    } rows[] = {{[](HWND w) { Set_Curs(w, Standard(IDC_HELP)); }, IDC_HELP, 1},
                {Set_Curs_Drag, IDC_ARROW, 3},
                {Set_Curs_Cross, IDC_CROSS, 4},
                {Set_Curs_Arrow, IDC_ARROW, 5}};
    for (const auto& row : rows) {
        row.set(nullptr);
        Expect(row.shown, row.shape, 0);
        EXPECT_EQ(Cursor_Saved, Standard(IDC_IBEAM));
        Reset_Curs(nullptr);
        Expect(IDC_IBEAM, 0, 0);
        // During a wait the shape is not taken.
        Start_Over();
        Set_Curs_Wait(nullptr);
        SetCursor(Standard(IDC_UPARROW));
        row.set(nullptr);
        Expect(IDC_WAIT, 0, 1);
        EXPECT_EQ(Cursor_Saved, nullptr);
        Start_Over();
    }
}

TEST_F(Cursor_Test, Waits_Nest) {
    const auto end_no_wait = [](HWND w) { SetCursor(Standard(IDC_UPARROW)), Reset_Curs_Wait(w); };
    const auto end_two_waits = [](HWND w) { Set_Curs_Wait(w), Set_Curs_Wait(w), Reset_Curs(w); };
    const auto count_a_wait = [](HWND w) { Start_Over(), Set_Curs_Cross(w), Set_Wait_Flag(); };
    const struct {
        void (*call)(HWND);
        const char* shown;
        int shape, wait;
    } steps[] = {
        {Set_Curs_Cross, IDC_CROSS, 4, 0},
        {Set_Curs_Wait, IDC_WAIT, 0, 1},  // undoes the cross
        {Set_Curs_Wait, IDC_WAIT, 0, 2},
        {Reset_Curs_Wait, IDC_WAIT, 0, 1},
        {Reset_Curs_Wait, IDC_IBEAM, 0, 0},
        {end_no_wait, IDC_IBEAM, 0, 0},    // the cursor before the last one once more
        {end_two_waits, IDC_IBEAM, 0, 0},  // without a shape all levels end
        {count_a_wait, IDC_CROSS, 4, 1},
        {Reset_Curs_Wait, IDC_CROSS, 4, 0},
    };
    galdren_test::Report_Catcher reports;
    for (const auto& [call, shown, shape, wait] : steps) {
        SCOPED_TRACE(testing::Message() << shape << ' ' << wait);
        call(nullptr);
        Expect(shown, shape, wait);
    }
    EXPECT_EQ(reports.Take(), "11:Set_Wait_Flag Wait=0 Shape=4");
}
