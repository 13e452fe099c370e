#include <algorithm>
#include <cstring>
#include <functional>
#include <string>
#include <utility>

#include "Galdren_Tools.h"
#include "popup/template.h"
#include "tests/support/clipboard.h"
#include "tests/support/code_page.h"
#include "tests/support/keys.h"
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
        KillTimer(nullptr, timer);
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

/// How dialogs are shown.
struct Dress {
    unsigned short scale = 100;
    const Theme* look = nullptr;
};

void Set(Tools& control, int x, int y, int w, int h) {
    control.X = static_cast<short>(x), control.Y = static_cast<short>(y);
    control.Width = static_cast<short>(w), control.Height = static_cast<short>(h);
    control.Border = 1, control.Font_Name = "Arial", control.Font_Weight = "bold", control.Font_Size = 11;
}

std::string Sixty_Lines() {
    std::string lines;
    for (int i = 0; i < 60; ++i)
        lines += std::to_string(i % 10) + '\n';
    return lines;
}

/// Whether a dialog looks like controls of our own, with these lines of text.
testing::AssertionResult Looks_Right(HWND dialog, bool question, std::initializer_list<const char*> lines,
                                     const Dress& dress = {}) {
    const auto scaled = [&](int pixels) { return pixels * dress.scale / 100; };
    const int w = Client_Size(dialog).x, h = Client_Size(dialog).y;
    Test_Window window(w, h);
    Boxs ground;
    Buttons first, second;
    Texts text;
    Set(ground, 0, 0, w - 1, h - 1), ground.Flag = 66;
    const int margin = scaled(6), half = (w - 3 * margin) / 2, above = scaled(38);
    Set(first, margin, margin, question ? half : w - 2 * margin, scaled(26));
    Set(second, half + 2 * margin, margin, question ? half : 0, scaled(26));
    Set(text, margin, above, w - 2 * margin, h - above - margin);
    first.Name = question ? "Yes" : "OK", second.Name = "No";
    text.Flag = 0x20000000, text.Name = Caption;
    for (Tools* control : {static_cast<Tools*>(&ground), static_cast<Tools*>(&first),
                           static_cast<Tools*>(&second), static_cast<Tools*>(&text)}) {
        control->Scale = dress.scale, control->Look = dress.look;
        control->Font_Size = static_cast<short>(scaled(11)), control->Border = static_cast<short>(scaled(1));
    }
    ground.Init(window), first.Init(window), second.Init(window), text.Init(window);
    for (const char* line : lines)
        text.Write("%s", line);
    const auto draw = [&] { ground.Draw(), text.Draw(), first.Draw(), second.Draw(); };
    return Same(Picture(dialog), window.After(draw));
}

}  // namespace

TEST(Dialog_Templates, Hold_The_Bytes_That_The_System_Reads) {
    const int x = LOWORD(GetDialogBaseUnits()), y = HIWORD(GetDialogBaseUnits());
    const auto expect = [](std::string title, short width, short height, int cx, int cy, std::wstring shown) {
        const galdren::Dialog_Template made(title.c_str(), width, height, 0);
        WORD wanted[512] = {0x0080, 0x80C8, 0, 0, 0, 10, 10, static_cast<WORD>(cx), static_cast<WORD>(cy)};
        std::copy(shown.begin(), shown.end(), wanted + 11);
        EXPECT_EQ(std::memcmp(made.Get(), wanted, sizeof wanted), 0) << title;
    };
    expect("Title", 0, 0, 1200 / x, 1200 / y, L"Title");
    expect(std::string(200, 'x'), 32767, 77, 131068 / x, 616 / y, std::wstring(49, L'x'));
    expect("\xE9", 1, -5, 4 / x, -40 / y, L"\xE9");
    const Other_Page page(CP_UTF8);
    std::string faces;
    std::wstring faces_wide;
    for (int i = 0; i < 60; ++i) {
        faces += "\xF0\x9F\x98\x80";
        if (i < 24) faces_wide += L"\U0001F600";
    }
    expect(faces, 0, 0, 1200 / x, 1200 / y, faces_wide);
}

TEST(Dialogs, Show_The_Layout_At_Every_Size) {
    Popup_Call call;
    ZCursor_X = ZCursor_Y = -9999;
    for (const bool question : {false, true}) {
        const auto open = question ? PopUp_Querry : PopUp_Message;
        call.Run(open, "100%% of %s\n50 % %n%", 0, 0, [&](HWND dialog) {
            EXPECT_LE(std::abs(Client_Size(dialog).x - 300) + std::abs(Client_Size(dialog).y - 150), 2);
            for (const int width : {0, 420, 31, 200}) {
                SCOPED_TRACE(width);
                if (width) SetWindowPos(dialog, nullptr, 0, 0, width, 203, SWP_NOMOVE | SWP_NOACTIVATE);
                UpdateWindow(dialog);
                EXPECT_TRUE(Looks_Right(dialog, question, {"100% of %s", "50 % %n%", ""}));
            }
        });
    }
}

TEST(Dialogs, Have_The_Scale_And_The_Theme_Of_Their_Owner) {
    Popup_Call call;
    ZCursor_X = ZCursor_Y = -9999;
    const Dress dress{200, Keep_Theme(Dark_Theme())};
    Set_Dialog_Look(call.owner, dress.scale, dress.look);
    const auto look_at = [&](HWND dialog, bool question, const Dress& wanted) {
        EXPECT_LE(std::abs(Client_Size(dialog).x - 2 * wanted.scale) +
                      std::abs(Client_Size(dialog).y - wanted.scale),
                  2);
        EXPECT_TRUE(Looks_Right(dialog, question, {"text", ""}, wanted));
    };
    call.Run(PopUp_Message, "text", 200, 100, [&](HWND message) {
        look_at(message, false, dress);
        // A question above belongs to the message, whatever is said of the owner meanwhile.
        Set_Dialog_Look(call.owner, 0, nullptr);
        call.script = [&](HWND question) {
            look_at(question, true, dress);
            SendMessageA(question, WM_CLOSE, 0, 0);
        };
        PopUp_Querry(Caption, Caption, call.text.data(), 200, 100);
    });
    call.Run(PopUp_Querry, "text", 200, 100, [&](HWND question) { look_at(question, true, {}); });
}

TEST(Dialogs, Have_Their_Title_In_The_Code_Page) {
    const Other_Page page(CP_UTF8);
    Popup_Call call;
    call.caption = "\xE6\x97\xA5 \xC3\xB1";
    call.Run(PopUp_Message, "x", 0, 0, [](HWND dialog) {
        wchar_t title[16] = L"";
        GetWindowTextW(dialog, title, 16);
        EXPECT_STREQ(title, L"\u65E5 \u00F1");
    });
}

TEST(Dialogs, Answer_To_Presses_On_Their_Buttons) {
    constexpr int Open = -2;
    Popup_Call call;
    const auto expect = [&](int answer, Dialog_Function open, int x, int y, UINT message = WM_LBUTTONDOWN) {
        const int got = call.Run(open, "?", 0, 0, [&](HWND dialog) {
            Mouse(dialog, message, x, y);
            EXPECT_EQ(IsWindowVisible(dialog) != 0, answer == Open) << x << ", " << y;
        });
        EXPECT_EQ(answer == Open ? Open : got, answer) << x << ", " << y;
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
    constexpr int Open = -2, Shift = KEY_SHIFT, Alt = KEY_ALT, Control = KEY_CONTROL;
    struct Row {
        Dialog_Function open;
        std::initializer_list<int> keys;
        int answer;
        std::string text = "?";
    };
    const std::string lines = Sixty_Lines();
    const Row rows[] = {
        {PopUp_Message, {VK_RETURN}, 0},
        {PopUp_Message, {VK_SPACE}, 0},
        {PopUp_Message, {VK_ESCAPE}, 0},
        {PopUp_Message, {VK_TAB, VK_RIGHT, VK_UP, VK_RETURN}, 0},
        {PopUp_Message, {'Y', 'N', 'O', VK_F1, VK_HOME, Control | VK_RETURN, VK_BACK}, Open},
        {PopUp_Querry, {VK_RETURN}, 1},
        {PopUp_Querry, {VK_SPACE}, 1},
        {PopUp_Querry, {VK_ESCAPE}, 0},
        {PopUp_Querry, {'Y'}, 1},
        {PopUp_Querry, {'N'}, 0},
        {PopUp_Querry, {Shift | 'Y'}, 1},
        {PopUp_Querry, {Alt | 'N'}, 0},
        {PopUp_Querry, {Alt | 'Y'}, 1},
        {PopUp_Querry, {Control | 'Y', 'X', '1', VK_OEM_PLUS}, Open},
        {PopUp_Querry, {VK_TAB, VK_RETURN}, 0},
        {PopUp_Querry, {VK_TAB, VK_TAB, VK_SPACE}, 1},
        {PopUp_Querry, {Shift | VK_TAB, VK_SPACE}, 0},
        {PopUp_Querry, {VK_RIGHT, VK_RETURN}, 0},
        {PopUp_Querry, {VK_RIGHT, VK_RIGHT, VK_RETURN}, 1},
        {PopUp_Querry, {VK_LEFT, VK_RETURN}, 0},
        {PopUp_Querry, {VK_DOWN, VK_RETURN}, 0},
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

TEST(Dialogs, Of_Two_Kinds_Are_Worked_By_Keys_One_In_The_Other) {
    Popup_Call call;
    const auto ask = [&](HWND message) {
        SendMessageA(message, WM_KEYDOWN, VK_TAB, 0);
        const Picture ring(message);
        call.script = [&](HWND) {
            UpdateWindow(message);
            EXPECT_FALSE(Same(Picture(message), ring));
            Type_Keys({VK_TAB, VK_TAB, VK_RETURN});
        };
        EXPECT_EQ(PopUp_Querry(Caption, Caption, call.text.data(), 0, 0), 1);
        EXPECT_EQ(GetFocus(), message);
        EXPECT_TRUE(Same(Picture(message), ring)) << "it is there again";
        call.script = [](HWND) { Type_Keys({VK_RETURN}); };
    };
    call.Run(PopUp_Message, "first", 0, 0, ask);
    EXPECT_TRUE(call.ended);
}

TEST(Dialogs, Show_The_Ring_Once_Keys_Are_Used) {
    constexpr std::uint32_t White = 0xFFFFFF, Black = 0;
    Popup_Call call;
    call.Run(PopUp_Querry, "?", 0, 0, [&](HWND dialog) {
        const int left = (Client_Size(dialog).x - 18) / 2 + 12;  // of "No"
        SendMessageA(dialog, WM_KEYDOWN, VK_RIGHT, 0);
        const Picture ring(dialog);
        EXPECT_EQ(ring.At(left - 1, 20), White);
        EXPECT_EQ(ring.At(left - 2, 20), Black);
        Mouse(dialog, WM_LBUTTONDOWN, 150, 90);
        UpdateWindow(dialog);
        EXPECT_TRUE(Looks_Right(dialog, true, {"?", ""}));
        EXPECT_TRUE(IsWindowVisible(dialog));
    });
}

TEST(Dialogs, Leave_The_Keyboard_On_A_Button_When_The_Text_Is_Pressed) {
    Popup_Call call;
    const int answer = call.Run(PopUp_Querry, "?", 0, 0, [](HWND dialog) {
        RECT place;
        GetWindowRect(dialog, &place);
        SetCursorPos((place.left + place.right) / 2, (place.top + place.bottom) / 2);
        mouse_event(MOUSEEVENTF_LEFTDOWN, 0, 0, 0, 0);
        Type_Keys({VK_RETURN});
    });
    mouse_event(MOUSEEVENTF_LEFTUP, 0, 0, 0, 0);
    EXPECT_TRUE(call.ended) << "with the button held";
    EXPECT_EQ(answer, 1);
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
        const Picture end = key(VK_END), up = key(VK_UP), home = key(VK_HOME);
        EXPECT_FALSE(Same(up, end));
        EXPECT_FALSE(Same(home, up));
        EXPECT_TRUE(Same(key(VK_PRIOR), home));
        key(VK_END), key(VK_NEXT);
        EXPECT_TRUE(Same(key(VK_UP), up)) << "a line, wherever the pointer is";
        EXPECT_TRUE(Same(key(VK_DOWN), end));
    });
}

TEST(Dialogs, Scroll_By_Their_Bar_With_Any_Button_Held) {
    struct Row {
        int button;
        DWORD down, up;
    };
    for (const Row& row : {Row{VK_LBUTTON, MOUSEEVENTF_LEFTDOWN, MOUSEEVENTF_LEFTUP},
                           Row{VK_MBUTTON, MOUSEEVENTF_MIDDLEDOWN, MOUSEEVENTF_MIDDLEUP},
                           Row{VK_RBUTTON, MOUSEEVENTF_RIGHTDOWN, MOUSEEVENTF_RIGHTUP}}) {
        Popup_Call().Run(PopUp_Message, Sixty_Lines(), 0, 0, [&](HWND dialog) {
            Mouse(dialog, WM_MOUSEMOVE, 17, 60);
            const Picture start(dialog);
            Mouse(dialog, WM_MOUSEMOVE, 17, 84);
            EXPECT_TRUE(Same(Picture(dialog), start)) << "no button is held";
            mouse_event(row.down, 0, 0, 0, 0);
            while (!getbutton(row.button))
                Sleep(1);
            Mouse(dialog, WM_MOUSEMOVE, 17, 85);
            EXPECT_FALSE(Same(Picture(dialog), start)) << row.button;
        });
        mouse_event(row.up, 0, 0, 0, 0);
    }
}

TEST(Dialogs, Let_Their_Text_Be_Copied) {
    constexpr int Control = KEY_CONTROL;
    const auto pump_until = [](auto done) {
        MSG message;
        for (const ULONGLONG begin = GetTickCount64(); !done() && GetTickCount64() - begin < 10'000;) {
            MsgWaitForMultipleObjects(0, nullptr, FALSE, 100, QS_ALLINPUT);
            while (PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE)) {
                TranslateMessage(&message);
                if (message.hwnd) DispatchMessageA(&message);  // else it is the timer that closes the dialog
            }
        }
        return done();
    };
    Popup_Call call;
    ASSERT_TRUE(Set_Clipboard(L""));
    call.Run(PopUp_Querry, "\xF1one %%\ntwo", 0, 0, [&](HWND) {
        Type_Keys({Control | 'C', Control | 'A', Control | 'C'});
        EXPECT_TRUE(pump_until([] { return Clipboard() == L"one %\r\ntwo\r\n"; }));
    });
    std::string lines;
    for (int i = 10; i < 30; ++i)
        lines += std::to_string(i) + '\n';
    const auto point = [](HWND dialog, int x, int y) {
        POINT place{x, Client_Size(dialog).y - 1 - y};
        ClientToScreen(dialog, &place);
        SetCursorPos(place.x, place.y);
    };
    call.Run(PopUp_Message, "one", 0, 0, [&](HWND dialog) {
        const auto menu = [&] { SendMessageA(dialog, WM_CONTEXTMENU, 0, MAKELPARAM(-1, -1)); };
        PostMessageA(dialog, WM_KEYDOWN, 'A', 1);
        menu();
        Type_Keys({Control | 'C'});
        EXPECT_TRUE(pump_until([] { return Clipboard() == L"one\r\n"; }));
        menu();
        EXPECT_FALSE(IsWindow(dialog)) << "closed while the menu was open";
    });
    call.Run(PopUp_Message, lines, 0, 0, [&](HWND dialog) {
        point(dialog, 250, 60);
        EXPECT_TRUE(pump_until([] { return GetCursor() == LoadCursorA(nullptr, IDC_IBEAM); }));
        mouse_event(MOUSEEVENTF_LEFTDOWN, 0, 0, 0, 0);
        EXPECT_TRUE(pump_until([&] { return GetCapture() == dialog; }));
        point(dialog, 10, 300);
        EXPECT_TRUE(pump_until([] {  // held still above the text, which scrolls to its beginning
            Type_Keys({Control | 'C'});
            return Clipboard().starts_with(L"10\r\n11");
        }));
        mouse_event(MOUSEEVENTF_LEFTUP, 0, 0, 0, 0);
        EXPECT_TRUE(pump_until([&] { return GetCapture() != dialog; }));
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
    call.Run(PopUp_Message, '\n' + whole + "\n", 0, 0, [&](HWND dialog) {
        EXPECT_TRUE(Looks_Right(dialog, false, {line.c_str(), line.c_str(), ""}));
    });
    EXPECT_EQ(call.text, '\n' + line + '\0' + line + '\0' + '\n');
    call.Run(PopUp_Message, huge, 0, 0);
    EXPECT_EQ(std::count(call.text.begin(), call.text.end(), '\n'), 0);
}

TEST(Dialogs, Survive_Misuse_And_Failures) {
    Popup_Call call;
    Report_Catcher reports;
    for (const int width : {1, -300, 32767})
        call.Run(PopUp_Querry, "text", width, width < 0 ? width : 40);
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
    // The library keeps a picture for small controls and one for large ones, from when each is first painted:
    // for the buttons that is when the pointer happens to come over one.
    Boxs small, large;
    Set(small, 0, 0, 20, 20), Set(large, 0, 0, 150, 90);
    small.Init(call.owner), large.Init(call.owner);
    const auto open_both = [&] {
        for (const Dialog_Function open : {PopUp_Message, PopUp_Querry})
            call.Run(open, "a\nb\nc", 0, 0, [](HWND dialog) { Mouse(dialog, WM_LBUTTONDOWN, 40, 20); });
        small.Draw(), large.Draw();
    };
    open_both();  // what the system keeps
    Tools_Lib_Cleanup();
    const int at_first = Gdi_Objects();
    open_both();
    const int with_controls = Gdi_Objects();
    EXPECT_GT(with_controls, at_first + 6) << "fonts and regions are there";
    for (int i = 0; i < 50; ++i)
        open_both();
    EXPECT_EQ(Gdi_Objects(), with_controls);
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
                           EXPECT_EQ(root.Child(2).Act(), S_OK);
                       }),
              1);
    EXPECT_TRUE(call.ended);
}
