#include <gtest/gtest.h>

#include <algorithm>

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
    struct Row {
        int button;
        unsigned int bit;
    };
    for (const auto& [button, bit] : {Row{1, 1}, Row{2, 4}, Row{3, 2}, Row{0, 0}, Row{4, 0}, Row{-1, 0}}) {
        STATE_MASK(0x80);
        BUTTON_PRESS(button);
        BUTTON_PRESS(button);
        EXPECT_EQ(Button_State, 0x80 | bit) << button;
        STATE_MASK(-1);
        BUTTON_RELEASE(button);
        EXPECT_EQ(Button_State, ~bit) << button;
    }
    STATE_MASK(0);
}

TEST(Buttons_Held, Are_Read_From_The_Mouse_As_It_Is_Now) {
    struct Row {
        int vk;
        DWORD down, up;
    };
    for (const Row& row : {Row{VK_LBUTTON, MOUSEEVENTF_LEFTDOWN, MOUSEEVENTF_LEFTUP},
                           Row{VK_RBUTTON, MOUSEEVENTF_RIGHTDOWN, MOUSEEVENTF_RIGHTUP},
                           Row{VK_MBUTTON, MOUSEEVENTF_MIDDLEDOWN, MOUSEEVENTF_MIDDLEUP}}) {
        mouse_event(row.down, 0, 0, 0, 0);
        for (int vk = 0; vk < 6; ++vk)
            EXPECT_EQ(getbutton(vk), vk == row.vk) << vk;
        mouse_event(row.up, 0, 0, 0, 0);
        EXPECT_EQ(getbutton(row.vk), 0);
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
    struct Row {
        void (*set)(HWND);
        const char* shown;
        int shape;
    };
    for (const Row& row :
         {Row{[](HWND w) { Set_Curs(w, Standard(IDC_HELP)); }, IDC_HELP, 1}, Row{Set_Curs_Drag, IDC_ARROW, 3},
          Row{Set_Curs_Cross, IDC_CROSS, 4}, Row{Set_Curs_Arrow, IDC_ARROW, 5}}) {
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
    Set_Curs_Cross(nullptr);
    Set_Curs_Wait(nullptr);  // undoes the cross
    Expect(IDC_WAIT, 0, 1);
    EXPECT_EQ(Cursor_Saved_Wait, Standard(IDC_IBEAM));
    SetCursor(Standard(IDC_UPARROW));
    Set_Curs_Wait(nullptr);
    Expect(IDC_WAIT, 0, 2);
    Reset_Curs_Wait(nullptr);
    Expect(IDC_WAIT, 0, 1);
    Reset_Curs_Wait(nullptr);
    Expect(IDC_IBEAM, 0, 0);
    SetCursor(Standard(IDC_UPARROW));
    Reset_Curs_Wait(nullptr);  // without a wait: the cursor before the last one once more
    Expect(IDC_IBEAM, 0, 0);
    for (int i = 0; i < 3; ++i)
        Set_Curs_Wait(nullptr);
    Reset_Curs(nullptr);  // without a shape: all levels end
    Expect(IDC_IBEAM, 0, 0);
}

TEST_F(Cursor_Test, A_Wait_Is_Counted_Without_A_Cursor) {
    galdren_test::Report_Catcher reports;
    Set_Curs_Cross(nullptr);
    Set_Wait_Flag();
    EXPECT_EQ(reports.Take(), "11:Set_Wait_Flag Wait=0 Shape=4");
    Expect(IDC_CROSS, 4, 1);
    Reset_Curs_Wait(nullptr);
    Expect(IDC_CROSS, 4, 0);
}
