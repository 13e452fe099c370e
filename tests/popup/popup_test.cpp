#include <algorithm>
#include <functional>
#include <string>
#include <utility>

#include "Galdren_Tools.h"
#include "tests/support/clipboard.h"
#include "tests/support/code_page.h"
#include "tests/support/keys.h"
#include "tests/support/png.h"
#include "tests/support/reader.h"
#include "tests/support/spy.h"
#include "tests/support/window.h"

using namespace galdren_test;

namespace {

constexpr char Caption[] = "Caption";
constexpr const char* Dialog_Class = "#32770";

using Dialog_Function = decltype(&PopUp_Message);
using Script = std::function<void(HWND)>;

/// Opens dialogs. Once one is painted, a script acts on it. When that, and the keys that it typed, have not
/// ended the dialog, it is closed.
struct Popup_Call {
    Popup_Call() { SetCursorPos(1270, 1010); }  // or buttons that open below the pointer are lit

    Test_Window owner{200, 100};
    const char* caption = Caption;
    std::string text;
    Script script;
    bool ended = false;  // by the script or its keys

    int Run(Dialog_Function open, const std::string& message, int width, int height, Script act = {}) {
        static Popup_Call* running;
        running = this;
        text = message;
        script = std::move(act);
        ended = true;
        SetActiveWindow(owner);
        const BOOL enabled = IsWindowEnabled(owner);
        const UINT_PTR timer =
            SetTimer(nullptr, 0, USER_TIMER_MINIMUM, [](HWND, UINT, UINT_PTR, DWORD) { running->Tick(); });
        const int result = open(caption, caption, caption ? text.data() : nullptr, static_cast<short>(width),
                                static_cast<short>(height));
        KillTimer(nullptr, timer), running = nullptr;
        EXPECT_EQ(IsWindowEnabled(owner), enabled) << "as it was";
        EXPECT_EQ(GetActiveWindow(), enabled ? HWND{owner} : nullptr);
        EXPECT_FALSE(FindWindowA(Dialog_Class, nullptr));
        return result;
    }

    /// Timers come after all input.
    void Tick() {
        const HWND dialog = FindWindowA(Dialog_Class, nullptr);
        if (!IsWindowVisible(dialog)) return;
        UpdateWindow(dialog);
        if (const Script act = std::exchange(script, {})) return act(dialog);
        ended = false;
        SendMessageA(dialog, WM_CLOSE, 0, 0);
    }
};

POINT Client_Size(HWND window) {
    RECT client;
    GetClientRect(window, &client);
    return {client.right, client.bottom};
}

void Mouse(HWND dialog, UINT message, int x, int y) {
    SendMessageA(dialog, message, 0, MAKELPARAM(x, Client_Size(dialog).y - 1 - y));
}

std::string Sixty_Lines() {
    std::string lines;
    for (int i = 0; i < 60; ++i)
        lines += std::to_string(i % 10) + '\n';
    return lines;
}

testing::AssertionResult Looks(HWND dialog, const char* recorded) {
    return Is_Recorded(Picture(dialog), RECORDED_PICTURES, recorded);
}

}  // namespace

TEST(Dialogs, Look_As_Recorded_At_Every_Size_In_The_Dress_Of_Their_Owner) {
    constexpr char text[] = "100%% of %s\n50 % %n%";
    Popup_Call call;
    ZCursor_X = ZCursor_Y = -9999;
    call.Run(PopUp_Querry, text, 0, 0, [](HWND dialog) {
        EXPECT_TRUE(Looks(dialog, "dialog-question"));
        for (const int width : {420, 31}) {
            SetWindowPos(dialog, nullptr, 0, 0, width, 203, SWP_NOMOVE | SWP_NOACTIVATE);
            UpdateWindow(dialog);
            EXPECT_TRUE(Looks(dialog, width == 31 ? "dialog-narrow" : "dialog-wide"));
        }
    });
    Set_Dialog_Look(call.owner, 200, Keep_Theme(Dark_Theme()));
    call.Run(PopUp_Message, text, 200, 100, [&](HWND message) {
        EXPECT_TRUE(Looks(message, "dialog-message-dark"));
        // A question above belongs to the message, whatever is said of the owner meanwhile.
        Set_Dialog_Look(call.owner, 0, nullptr);
        SendMessageA(message, WM_KEYDOWN, VK_TAB, 0);
        const Picture ring(message);
        call.script = [&](HWND question) {
            EXPECT_TRUE(Looks(question, "dialog-question-dark"));
            UpdateWindow(message);
            EXPECT_FALSE(Same(Picture(message), ring)) << "the keyboard is with the question";
            Type_Keys({'Y'});
        };
        EXPECT_EQ(PopUp_Querry(Caption, Caption, call.text.data(), 200, 100), 1);
        EXPECT_EQ(GetFocus(), message);
        EXPECT_TRUE(Same(Picture(message), ring)) << "it is there again";
    });
    call.Run(PopUp_Querry, text, 0, 0, [](HWND dialog) { EXPECT_TRUE(Looks(dialog, "dialog-question")); });
}

TEST(Dialogs, Have_Up_To_49_Characters_Of_Their_Title) {
    const Other_Page page(CP_UTF8);
    const std::pair<std::string, std::wstring> beginnings[] = {{"\xE6\x97\xA5", L"\u65E5"},
                                                               {"\xE6\x97\xA5 ", L"\u65E5 "}};
    for (auto [title, shown] : beginnings) {
        for (int i = 0; i < 60; ++i)
            title += "\xF0\x9F\x98\x80";
        while (shown.size() < 48)
            shown += L"\U0001F600";
        wchar_t got[100] = L"";
        Popup_Call call;
        call.caption = title.c_str();
        call.Run(PopUp_Message, "x", 0, 0, [&got](HWND dialog) { GetWindowTextW(dialog, got, 100); });
        EXPECT_EQ(got, shown);
    }
}

TEST(Dialogs, Answer_To_Presses_On_Their_Buttons) {
    constexpr int Open = -2;
    Popup_Call call;
    const auto expect = [&](int answer, Dialog_Function open, int x, int y, UINT message = WM_LBUTTONDOWN) {
        const int got = call.Run(open, "?", 0, 0, [&](HWND dialog) { Mouse(dialog, message, x, y); });
        EXPECT_EQ(call.ended ? got : Open, answer) << x << ", " << y;
    };
    expect(0, PopUp_Message, 150, 20);
    expect(1, PopUp_Querry, 40, 20);
    expect(1, PopUp_Querry, 40, 20, WM_LBUTTONDBLCLK);
    expect(0, PopUp_Querry, 260, 20);
    expect(Open, PopUp_Querry, 150, 20);
    expect(Open, PopUp_Querry, 40, 90);
    expect(Open, PopUp_Querry, 40, 20, WM_LBUTTONUP);
    EXPECT_EQ(call.Run(PopUp_Querry, "?", 0, 0, [](HWND) { PostQuitMessage(0); }), -1);
    MSG message;
    EXPECT_TRUE(PeekMessageA(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE));
}

TEST(Dialogs, Answer_To_Keys) {
    constexpr int Open = -2, Alt = KEY_ALT, Control = KEY_CONTROL;
    struct Row {
        Dialog_Function open;
        std::initializer_list<int> keys;
        int answer;
        std::string text = "?";
    };
    const std::string lines = Sixty_Lines();
    const Row rows[] = {
        {PopUp_Message, {VK_RETURN}, 0},
        {PopUp_Message, {VK_ESCAPE}, 0},
        {PopUp_Message, {VK_TAB, VK_RIGHT, VK_UP, VK_RETURN}, 0},
        {PopUp_Message, {'Y', 'N', 'O', VK_F1, VK_HOME, Control | VK_RETURN, VK_BACK}, Open},
        {PopUp_Querry, {VK_SPACE}, 1},
        {PopUp_Querry, {VK_ESCAPE}, 0},
        {PopUp_Querry, {'Y'}, 1},
        {PopUp_Querry, {'N'}, 0},
        {PopUp_Querry, {Alt | 'N'}, 0},
        {PopUp_Querry, {Control | 'Y', 'X', '1', VK_OEM_PLUS}, Open},
        {PopUp_Querry, {VK_TAB, VK_RETURN}, 0},
        {PopUp_Querry, {VK_RIGHT, VK_RIGHT, VK_RETURN}, 1},
        {PopUp_Querry, {VK_LEFT, VK_RETURN}, 0},
        {PopUp_Querry, {VK_DOWN, VK_UP, VK_RETURN}, 1},
        {PopUp_Querry, {VK_TAB, VK_TAB, VK_RIGHT, VK_RIGHT, VK_RETURN}, 0, lines},  // from the text
        {PopUp_Querry, {VK_TAB, VK_TAB, VK_RETURN}, 1, lines},
        {PopUp_Querry, {VK_TAB, VK_UP, VK_PRIOR, VK_HOME, VK_RETURN}, 0, lines},
    };
    Popup_Call call;
    for (const Row& row : rows) {
        SCOPED_TRACE(&row - rows);
        const int answer = call.Run(row.open, row.text, 0, 0, [&](HWND) { Type_Keys(row.keys); });
        EXPECT_EQ(call.ended ? answer : Open, row.answer);
    }
    // A key that was down before the dialog opened.
    const auto held = [](HWND dialog) {
        for (const int key : {VK_RETURN, VK_ESCAPE}) {
            SendMessageA(dialog, WM_KEYDOWN, static_cast<WPARAM>(key), 1 << 30);
            SendMessageA(dialog, WM_CHAR, static_cast<WPARAM>(key), 1 << 30);
        }
    };
    call.Run(PopUp_Querry, "?", 0, 0, held);
    EXPECT_FALSE(call.ended);
    EXPECT_EQ(call.Run(PopUp_Querry, "?", 0, 0, [](HWND d) { SendMessageA(d, WM_COMMAND, IDOK, 0); }), 1);
    EXPECT_EQ(call.Run(PopUp_Querry, "?", 0, 0, [](HWND d) { SendMessageA(d, WM_COMMAND, IDCANCEL, 0); }), 0);
}

TEST(Dialogs, Show_The_Ring_Until_The_Mouse_Is_Used_And_Keep_The_Keyboard_On_A_Button) {
    Popup_Call call;
    const int answer = call.Run(PopUp_Querry, "?", 0, 0, [](HWND dialog) {
        const Picture plain(dialog);
        SendMessageA(dialog, WM_KEYDOWN, VK_RIGHT, 0);
        EXPECT_TRUE(Looks(dialog, "dialog-ring"));
        Mouse(dialog, WM_LBUTTONDOWN, 150, 90);
        UpdateWindow(dialog);
        EXPECT_TRUE(Same(Picture(dialog), plain)) << "the text is pressed";
        Type_Keys({VK_RETURN});
    });
    EXPECT_TRUE(call.ended);
    EXPECT_EQ(answer, 0);
}

TEST(Dialogs, Scroll_By_Whole_Steps_Of_The_Wheel_And_By_Keys) {
    Popup_Call().Run(PopUp_Message, Sixty_Lines(), 0, 0, [&](HWND dialog) {
        const auto after = [&](int delta) {
            SendMessageA(dialog, WM_MOUSEWHEEL, MAKEWPARAM(0, delta), 0);
            return Picture(dialog);
        };
        Mouse(dialog, WM_MOUSEMOVE, 150, 90);
        const Picture start(dialog);
        EXPECT_TRUE(Same(after(60), start));
        const Picture one = after(60), three = after(240);
        EXPECT_FALSE(Same(one, start));
        EXPECT_FALSE(Same(three, one));
        EXPECT_TRUE(Same(after(-300), one)) << "what is left over counts";
        EXPECT_TRUE(Same(after(-60), start));
        Mouse(dialog, WM_MOUSEMOVE, 2, 90);
        EXPECT_TRUE(Same(after(120), start)) << "beside the text";

        const auto key = [&](WPARAM pressed) {
            SendMessageA(dialog, WM_KEYDOWN, pressed, 0);
            return Picture(dialog);
        };
        const Picture end = key(VK_END);
        EXPECT_FALSE(Same(key(VK_UP), end));
        EXPECT_TRUE(Same(key(VK_DOWN), end)) << "a line, wherever the pointer is";
        EXPECT_FALSE(Same(key(VK_HOME), end));
    });
}

TEST(Dialogs, Scroll_By_Their_Bar_With_Any_Button_Held) {
    constexpr std::pair<int, DWORD> rows[] = {{VK_LBUTTON, MOUSEEVENTF_LEFTDOWN},
                                              {VK_MBUTTON, MOUSEEVENTF_MIDDLEDOWN},
                                              {VK_RBUTTON, MOUSEEVENTF_RIGHTDOWN}};
    for (const auto& row : rows) {
        Popup_Call().Run(PopUp_Message, Sixty_Lines(), 0, 0, [&](HWND dialog) {
            Mouse(dialog, WM_MOUSEMOVE, 17, 60);
            const Picture start(dialog);
            Mouse(dialog, WM_MOUSEMOVE, 17, 84);
            EXPECT_TRUE(Same(Picture(dialog), start)) << "no button is held";
            mouse_event(row.second, 0, 0, 0, 0);
            while (!getbutton(row.first))
                Sleep(1);
            Mouse(dialog, WM_MOUSEMOVE, 17, 85);
            EXPECT_FALSE(Same(Picture(dialog), start)) << row.first;
        });
        mouse_event(row.second << 1, 0, 0, 0, 0);  // up again
    }
}

TEST(Dialogs, Let_Their_Text_Be_Copied) {
    constexpr int Control = KEY_CONTROL;
    Popup_Call call;
    ASSERT_TRUE(Set_Clipboard(L""));
    const auto point = [](HWND dialog, int x, int y) {
        POINT place{x, Client_Size(dialog).y - 1 - y};
        ClientToScreen(dialog, &place);
        SetCursorPos(place.x, place.y);
    };
    call.Run(PopUp_Message, "\xF1one %%\ntwo", 0, 0, [&](HWND dialog) {
        const auto menu = [&] { SendMessageA(dialog, WM_CONTEXTMENU, 0, MAKELPARAM(-1, -1)); };
        PostMessageA(dialog, WM_KEYDOWN, 'A', 1);
        menu();
        Type_Keys({Control | 'C'});
        EXPECT_TRUE(Pump_Until([] { return Clipboard() == L"one %\r\ntwo\r\n"; }));
        menu();
        EXPECT_FALSE(IsWindow(dialog)) << "closed while the menu was open";
    });
    call.Run(PopUp_Message, Sixty_Lines(), 0, 0, [&](HWND dialog) {
        point(dialog, 250, 60);
        EXPECT_TRUE(Pump_Until([] { return GetCursor() == LoadCursorA(nullptr, IDC_IBEAM); }));
        mouse_event(MOUSEEVENTF_LEFTDOWN, 0, 0, 0, 0);
        EXPECT_TRUE(Pump_Until([&] { return GetCapture() == dialog; }));
        point(dialog, 10, 300);
        EXPECT_TRUE(Pump_Until([] {  // held still above the text, which scrolls to its beginning
            Type_Keys({Control | 'C'});
            return Clipboard().starts_with(L"0\r\n1\r\n2");
        }));
        mouse_event(MOUSEEVENTF_LEFTUP, 0, 0, 0, 0);
        EXPECT_TRUE(Pump_Until([&] { return GetCapture() != dialog; }));
    });
}

TEST(Dialogs, Cut_Long_Messages_At_Their_Breaks) {
    const std::string line(127, 'x'), whole = line + '\n' + line + '\n';
    std::string huge;
    while (huge.size() < (1 << 20))
        huge += "%n%s\n";
    Popup_Call call;
    call.Run(PopUp_Message, whole, 0, 0);
    EXPECT_EQ(call.text, whole) << "256 bytes";
    call.Run(PopUp_Message, '\n' + whole + "\n", 0, 0,
             [](HWND dialog) { EXPECT_TRUE(Looks(dialog, "dialog-message-cut")); });
    EXPECT_EQ(call.text, '\n' + line + '\0' + line + '\0' + '\n');
    call.Run(PopUp_Message, huge, 0, 0);
    EXPECT_EQ(std::count(call.text.begin(), call.text.end(), '\n'), 0);
}

TEST(Dialogs, Survive_Misuse_And_Failures) {
    Popup_Call call;
    Report_Catcher reports;
    for (const int width : {1, -300, 32767})
        call.Run(PopUp_Querry, "text", width, width < 0 ? width : 40);
    // A text without room is not there for the next dialog either.
    call.Run(PopUp_Message, "before", 0, 0,
             [](HWND dialog) { SetWindowPos(dialog, nullptr, 0, 0, 120, 20, SWP_NOMOVE); });
    call.Run(PopUp_Message, "after", 0, 0,
             [](HWND dialog) { EXPECT_EQ(Spoken(dialog).Child(1).Value(), "after\n"); });
    call.Run(PopUp_Message, "first", 0, 0, [&](HWND dialog) {
        EXPECT_EQ(PopUp_Message(Caption, Caption, call.text.data(), 0, 0), -1);
        EXPECT_EQ(reports.Take(), "11:PopUp_Message: another dialog of this kind is open");
        Tools_Lib_Cleanup();
        EXPECT_TRUE(IsWindow(dialog));
    });
    EnableWindow(call.owner, FALSE);
    call.Run(PopUp_Message, "of a disabled window", 0, 0);
    EnableWindow(call.owner, TRUE);
    Call_Spy spy;
    spy.Fail("GlobalAlloc");
    EXPECT_EQ(PopUp_Message(nullptr, nullptr, nullptr, 0, 0), -1);
    EXPECT_EQ(spy.Count("DialogBoxIndirectParamW"), 0);
    spy.Fail("DialogBoxIndirectParamW");
    EXPECT_EQ(PopUp_Message("\xFF\xFE", nullptr, nullptr, 0, 0), 0);
    call.owner.Close(), call.caption = nullptr;
    call.Run(PopUp_Message, "", 0, 0, [](HWND dialog) { EXPECT_FALSE(GetWindow(dialog, GW_OWNER)); });
}

TEST(Dialogs, Leave_Nothing_Behind) {
    Popup_Call call;
    const auto open_both = [&] {
        for (const Dialog_Function open : {PopUp_Message, PopUp_Querry})
            call.Run(open, "a\nb\nc", 0, 0, [](HWND dialog) { Mouse(dialog, WM_LBUTTONDOWN, 40, 20); });
    };
    call.Run(PopUp_Message, "?", 0, 0);  // what the system keeps
    Tools_Lib_Cleanup();
    const int at_first = Gdi_Objects();
    open_both(), open_both();
    const int held = Gdi_Objects();
    EXPECT_GT(held, at_first + 14) << "fonts and regions come and go";
    const Call_Spy spy("Galdren_Tools.dll", true);
    for (int i = 0; i < 20; ++i)
        open_both();
    EXPECT_EQ(Gdi_Objects(), held);
    EXPECT_EQ(spy.Count("GlobalAlloc"), 40) << "a template each";
    EXPECT_EQ(spy.Count("GlobalFree"), 40);
    Tools_Lib_Cleanup();
    EXPECT_EQ(Gdi_Objects(), at_first);
}

TEST(Dialogs, Are_Read_And_Answered_By_Screen_Readers) {
    Popup_Call call;
    EXPECT_EQ(call.Run(PopUp_Querry, "Save it?", 0, 0,
                       [](HWND dialog) {
                           const Spoken root(dialog);
                           EXPECT_EQ(Read_Aloud(root),
                                     "Caption: dialog, focusable\n"
                                     "  Caption: text, read only = Save it?\n\n"
                                     "  Yes: push button, focused, focusable (Press)\n"
                                     "  No: push button, focusable (Press)\n");
                           EXPECT_EQ(root.Child(2).Shortcut(), "Alt+Y");
                           EXPECT_EQ(root.At(root.Child(3).Middle()).Name(), "No");
                           const RECT all = root.Place();
                           EXPECT_EQ(root.At({all.left + 2, all.top + 2}).Role(), ROLE_SYSTEM_DIALOG);
                           EXPECT_EQ(root.Child(2).Act(), S_OK);
                       }),
              1);
    EXPECT_TRUE(call.ended);
}
