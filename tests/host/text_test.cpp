// What is typed into fields of a host: languages, input methods, and what the mouse does with text.
#include <windows.h>

#include <imm.h>

#include <cstring>
#include <iterator>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "tests/support/clipboard.h"
#include "tests/support/code_page.h"
#include "tests/support/controls.h"
#include "tests/support/fonts.h"
#include "tests/support/hosted.h"
#include "tests/support/languages.h"
#include "tests/support/spy.h"
#include "util/wide.h"

namespace galdren_test {
namespace {

constexpr int side = 300;

/// A host with a field that reads, and one that does not, in a window of one kind or the other.
class Typing : public Hosted_Window {
  public:
    explicit Typing(bool unicode, unsigned page = 65001) : Hosted_Window(side, side), code_page(page) {
        Place(field, nullptr, 10, 10, 200, 30, TEXT_SINGLE_LINE | TEXT_EDITING);
        Place(other, nullptr, 10, 50, 200, 30, TEXT_SINGLE_LINE | TEXT_EDITING);
        host->Add(field, [this](Texts&, const Host_Event& event) { told += event.kind == Host_Event::Key; });
        host->Add(other);
        host->Init_All();
        Connect(unicode);
        SetForegroundWindow(window);  // so it has the keyboard
        host->Focus(&field);
    }
    void Char(WPARAM unit) { SendMessageW(window, WM_CHAR, unit, 1); }

    const Other_Page code_page;
    Texts field, other;
    int told = 0;
};

TEST(Host_Text, Takes_Whole_Characters_Of_Other_Programs) {
    Typing typing(false);
    for (const int character : {0xE9, 0x65E5, 0x1F600})
        SendMessageW(typing.window, WM_UNICHAR, static_cast<WPARAM>(character), 1);
    EXPECT_STREQ(typing.field.Line, "\xC3\xA9\xE6\x97\xA5\xF0\x9F\x98\x80");
    EXPECT_EQ(typing.told, 3) << "the handler hears of each once";
}

/// Injects UTF-16 as a keyboard would type it.
void Inject(const std::wstring& text) {
    for (const wchar_t unit : text) {
        for (const DWORD up : {0UL, DWORD{KEYEVENTF_KEYUP}}) {
            INPUT input{};
            input.type = INPUT_KEYBOARD;
            input.ki.wScan = unit;
            input.ki.dwFlags = KEYEVENTF_UNICODE | up;
            SendInput(1, &input, sizeof input);
        }
    }
}

/// A field, and an edit control of the system with the same font.
class Beside_The_System : public Typing {
  public:
    explicit Beside_The_System(const Language& language) : Typing(true) {
        host->Remove(other);
        field.Font_Name = language.face, field.Font_Size = 14, field.Width = 280, field.Height = 60;
        field.Init(window), field.Draw();
        edit = CreateWindowExW(0, L"EDIT", L"", WS_CHILD | WS_VISIBLE | ES_AUTOHSCROLL, 0, 0, side, 60,
                               window, nullptr, nullptr, nullptr);
        SendMessageW(edit, WM_SETFONT, reinterpret_cast<WPARAM>(field.Bold_Font), FALSE);
    }
    /// What is in both when a user has typed in both.
    template <class Type>
    std::wstring After(Type type) {
        for (const HWND typed_in : {edit, HWND(window)})
            SetFocus(typed_in), type(), Pump();
        wchar_t text[100];
        GetWindowTextW(edit, text, 100);
        EXPECT_EQ(text, galdren::To_Wide(field.Line));
        return text;
    }
    POINT Caret() {
        RECT caret{};
        EXPECT_TRUE(field.Find_Caret(caret));
        return {caret.left, caret.bottom - 2};
    }
    /// Where the caret is, seen from where that of the system is for the same character.
    int Distance() {
        const std::string before(field.Line, static_cast<std::size_t>(field.Cursor_Pos));
        const auto unit = galdren::To_Wide(before).size();
        return Caret().x - short(LOWORD(SendMessageW(edit, EM_POSFROMCHAR, unit, 0)));
    }
    void Click(POINT logical) {
        Hosted_Window::Click({side - 15, logical.y});  // so it is not the second of two
        Hosted_Window::Click(logical);
    }

  private:
    HWND edit;
};

TEST(Host_Text, Works_In_Every_Language_As_The_Controls_Of_The_System) {
    const Fonts_Of_Languages fonts;
    ASSERT_TRUE(fonts.Are_Here());
    for (const Language& language : Languages) {
        SCOPED_TRACE(galdren::From_Wide(language.text));
        Beside_The_System both(language);
        Texts& field = both.field;
        EXPECT_EQ(both.After([&] { Inject(language.text); }), language.text);
        const auto cut = [] { Type_Keys({VK_HOME, KEY_SHIFT | VK_END, KEY_CONTROL | 'X'}); };
        EXPECT_EQ(both.After(cut), L"");
        EXPECT_EQ(Clipboard(), language.text);
        EXPECT_EQ(both.After([] { Type_Keys({KEY_CONTROL | 'V'}); }), language.text);

        // Both begin at a column of their own. At its first character that of the system says 0, wherever
        // that stands.
        std::optional<int> apart;
        field.Input(KEY_NAVIGATION | VK_HOME);
        for (int at = 0; field.Line[at]; at = field.Cursor_Pos) {
            if (at > 0 && !apart) apart = both.Distance();
            EXPECT_TRUE(at == 0 || both.Distance() == apart) << at << ": " << both.Distance();
            both.Click(both.Caret());
            EXPECT_EQ(field.Cursor_Pos, at) << "clicked";
            field.Input(KEY_NAVIGATION | VK_RIGHT);
        }
    }
}

TEST(Host_Text, Takes_What_The_Page_Of_A_Window_Has) {
    const struct {
        bool unicode;
        unsigned page;
        std::wstring units;
        const char* line;
    } rows[] = {
        {false, 65001, L"\xE9\x80", "\xC3\xA9\xE2\x82\xAC"},
        {false, 1252, L"\xE9\x80", "\xE9\x80"},
        {true, 1252, L"\xE9\x20AC", "\xE9\x80"},
        {true, 932, L"\x30A2x", "\x83\x41x"},
        {true, 65001,
         L"\xDE00"
         L"a\xD83D"
         L"b\xD83D\xD83D\xDE00",
         "ab\xF0\x9F\x98\x80"},
    };
    for (const auto& row : rows) {
        Typing typing(row.unicode, row.page);
        for (const wchar_t unit : row.units)
            SendMessageA(typing.window, WM_CHAR, unit, 1);
        if (row.unicode) typing.field.Read(nullptr);
        for (const wchar_t unit : row.units)
            if (row.unicode) typing.Char(unit);
        EXPECT_STREQ(typing.field.Line, row.line) << row.page;
    }
    {
        Typing typing(false, 1252);
        Call_Spy system(nullptr, true);  // whose page has characters of two bytes
        system.Set_Answer("IsDBCSLeadByte", 1), system.Fail("IsDBCSLeadByte");
        typing.Send(WM_CHAR, 0x83), typing.Send(WM_CHAR, 0x41);
        typing.Key(WM_CHAR, 0x7F, KEY_CONTROL);  // what Ctrl and Backspace type is a key
        EXPECT_STREQ(typing.field.Line, "\x83\x41");
    }
    Typing typing(true);
    EXPECT_EQ(SendMessageW(typing.window, WM_UNICHAR, UNICODE_NOCHAR, 0), TRUE);
    typing.host->Focus(nullptr);
    EXPECT_EQ(SendMessageW(typing.window, WM_UNICHAR, UNICODE_NOCHAR, 0), FALSE);
}

/// Keys as the layouts of other countries have them.
TEST(Host_Text, Dead_Keys_And_AltGr_Type_And_Command_Nothing) {
    constexpr int alt_gr = KEY_CONTROL | KEY_ALT;
    using Messages = std::vector<std::pair<UINT, WPARAM>>;
    struct Row {
        int held;
        Messages messages;
        const wchar_t* line;
        int commands = 0;
    };
    const Row rows[] = {
        {alt_gr, {{WM_KEYDOWN, 'A'}, {WM_CHAR, L'ą'}}, L"xyą"},
        {alt_gr, {{WM_KEYDOWN, 'Z'}, {WM_CHAR, L'ż'}}, L"xyż"},
        {alt_gr, {{WM_KEYDOWN, 'Q'}, {WM_CHAR, L'@'}}, L"xy@"},
        {alt_gr, {{WM_KEYDOWN, '7'}, {WM_CHAR, L'{'}}, L"xy{"},
        {alt_gr, {{WM_KEYDOWN, VK_OEM_MINUS}, {WM_CHAR, L'\\'}}, L"xy\\"},
        {alt_gr | KEY_SHIFT, {{WM_KEYDOWN, 'V'}, {WM_CHAR, L'‘'}}, L"xy‘"},
        {alt_gr, {{WM_KEYDOWN, '7'}, {WM_DEADCHAR, L'`'}}, L"xy"},
        {0, {{WM_KEYDOWN, VK_OEM_6}, {WM_DEADCHAR, L'´'}, {WM_KEYDOWN, 'E'}, {WM_CHAR, L'é'}}, L"xyé"},
        {0, {{WM_KEYDOWN, 'X'}, {WM_CHAR, L'´'}, {WM_CHAR, 'x'}}, L"xy´x"},
        {0, {{WM_KEYDOWN, VK_SPACE}, {WM_CHAR, L'^'}}, L"xy^"},
        {alt_gr, {{WM_KEYDOWN, 'A'}}, L"xy", 1},
        {KEY_CONTROL, {{WM_KEYDOWN, 'X'}, {WM_CHAR, 'X' - '@'}}, L"xy", 1},
        {KEY_CONTROL, {{WM_KEYDOWN, VK_BACK}, {WM_CHAR, 0x7F}}, L"xy", 1},
    };
    for (const Row& row : rows) {
        Typing typing(true);
        typing.field.Read("xy");
        int commands = 0;
        typing.host->Set_On_Key([&](int) { return ++commands > 0; });
        Hold_Keys(row.held);
        for (const auto& [message, wparam] : row.messages)
            PostMessageW(typing.window, message, wparam, 1);
        MSG message;
        while (PeekMessageW(&message, typing.window, WM_KEYFIRST, WM_KEYLAST, PM_REMOVE))
            DispatchMessageW(&message);
        Hold_Keys(0);
        EXPECT_EQ(galdren::To_Wide(typing.field.Line), row.line);
        EXPECT_EQ(commands, row.commands) << typing.field.Line;
        EXPECT_EQ(typing.field.Selected, 0);
    }
}

TEST(Host_Text, An_Input_Method_Writes_Once_Into_The_Field_Where_It_Began) {
    Typing typing(true);
    typing.field.Read("ab");
    const HIMC context = ImmGetContext(typing.window);
    ASSERT_TRUE(context);
    wchar_t composed[] = L"日本";
    ASSERT_TRUE(ImmSetCompositionStringW(context, SCS_SETSTR, composed, sizeof composed - sizeof *composed,
                                         nullptr, 0));
    COMPOSITIONFORM form{};
    RECT caret{};
    EXPECT_TRUE(typing.field.Find_Caret(caret));
    EXPECT_TRUE(ImmGetCompositionWindow(context, &form));
    EXPECT_EQ(form.ptCurrentPos.x, caret.left);
    EXPECT_EQ(form.ptCurrentPos.y, side - caret.bottom);
    LOGFONTW words{};
    EXPECT_TRUE(ImmGetCompositionFontW(context, &words));
    EXPECT_NE(words.lfHeight, 0) << "in the font of the line";
    typing.host->Focus(&typing.other);
    ImmReleaseContext(typing.window, context);
    EXPECT_STREQ(typing.field.Line, "ab\xE6\x97\xA5\xE6\x9C\xAC")
        << "nothing is lost where the keyboard goes elsewhere";
    EXPECT_STREQ(typing.other.Line, "");
}

TEST(Host_Text, The_Mouse_Works_On_Text) {
    Typing typing(true);
    std::strcpy(typing.other.Line, "one two");
    typing.Click({20, 60});
    EXPECT_EQ(typing.host->Focused(), &typing.other);
    EXPECT_LT(typing.other.Cursor_Pos, 2) << "the first press places the caret";
    typing.Send(WM_LBUTTONDOWN, MK_LBUTTON, {22, 60});
    typing.Send(WM_MOUSEMOVE, MK_LBUTTON, {200, 60});
    typing.Send(WM_LBUTTONUP, 0, {200, 60});
    const Part part = typing.host->Parts().Owner(1).parts->Describe(typing.other, Whole);
    EXPECT_EQ(part.caret, 7);
    EXPECT_EQ(part.selected, std::string("one two").substr(7 - part.selected.size()));
    EXPECT_GT(part.selected.size(), 4U);
    GUITHREADINFO info{};
    info.cbSize = sizeof info;
    RECT caret{};
    EXPECT_TRUE(GetGUIThreadInfo(GetCurrentThreadId(), &info) && typing.other.Find_Caret(caret));
    EXPECT_EQ(info.rcCaret.left, caret.left) << "the system's caret is there too";

    POINT before{}, at{20, side - 1 - 60};
    GetCursorPos(&before);
    ClientToScreen(typing.window, &at);
    SetCursorPos(at.x, at.y);
    SendMessageW(typing.window, WM_SETCURSOR, reinterpret_cast<WPARAM>(HWND(typing.window)), HTCLIENT);
    EXPECT_EQ(GetCursor(), LoadCursorA(nullptr, IDC_IBEAM));
    // The menu waits for a key. What cannot be done is grey.
    Text_Menu words;
    words.Select_All = "\xD0\x92\xD1\x81\xD1\x91 (&W)\tCtrl+A";
    Set_Text_Menu(words);
    static wchar_t shown[30];
    static UINT undo_state;
    static RECT menu_place;
    const TIMERPROC choose = [](HWND window, UINT, UINT_PTR timer, DWORD) {
        KillTimer(window, timer);
        const HWND shows = FindWindowW(L"#32768", nullptr);
        GetWindowRect(shows, &menu_place);
        const auto menu = reinterpret_cast<HMENU>(SendMessageW(shows, MN_GETHMENU, 0, 0));
        GetMenuStringW(menu, 8, shown, static_cast<int>(std::size(shown)), MF_BYPOSITION);
        undo_state = GetMenuState(menu, 0, MF_BYPOSITION);
        PostMessageW(window, WM_KEYDOWN, 'W', 1);
    };
    POINT at_caret{caret.left, side - 1 - caret.top};
    ClientToScreen(typing.window, &at_caret);
    for (const bool by_keys : {false, true}) {
        typing.other.Selected = 0;
        SetTimer(typing.window, 1, 20, choose);
        SendMessageW(typing.window, WM_CONTEXTMENU, reinterpret_cast<WPARAM>(HWND(typing.window)),
                     by_keys ? MAKELPARAM(-1, -1) : MAKELPARAM(at.x, at.y));
        EXPECT_EQ(typing.other.Selected, -7) << "Select all";
        EXPECT_EQ(menu_place.left, by_keys ? at_caret.x : at.x);
    }
    Set_Text_Menu({});
    EXPECT_EQ(shown, std::wstring(L"Всё (&W)\tCtrl+A"));
    EXPECT_TRUE(undo_state & MF_GRAYED) << "nothing was typed";
    SetCursorPos(before.x, before.y);
}

TEST(Host_Text, A_Key_That_Leads_To_A_Field_Selects_All) {
    Typing typing(true);
    const auto press_tab = [&] {
        SendMessageW(typing.window, WM_KEYDOWN, VK_TAB, 1);
        typing.Char(VK_TAB);
    };
    typing.field.Read("one");
    std::strcpy(typing.other.Line, "two \xC3\xB1");
    press_tab();
    EXPECT_EQ(typing.other.Cursor_Pos, 6);
    EXPECT_EQ(typing.other.Selected, -6);
    typing.Char('x');
    EXPECT_STREQ(typing.other.Line, "x");
    press_tab();
    EXPECT_EQ(typing.field.Selected, -3) << "also in one that reads already";
    typing.host->Focus(&typing.other);
    EXPECT_EQ(typing.other.Selected, 0) << "no key has led there";
    typing.host->Set_Mnemonic(typing.field, 'F');
    typing.field.Selected = 0;
    Hold_Keys(KEY_ALT);
    SendMessageW(typing.window, WM_SYSKEYDOWN, 'F', 1 << 29);
    Hold_Keys(0);
    EXPECT_EQ(typing.field.Selected, -3);
    typing.field.Flag &= ~TEXT_EDITING, typing.field.Selected = 0;
    press_tab(), press_tab();
    EXPECT_EQ(typing.field.Selected, 0);
}

TEST(Host_Text, Goes_On_Scrolling_While_The_Pointer_Is_Held_Beyond_The_Edge) {
    Typing typing(true);
    Texts console;
    Place(console, nullptr, 10, 90, 200, 150, TEXT_EDITING | TEXT_V_BAR);
    typing.host->Add(console);
    typing.host->Init(console);
    for (int i = 0; i < 14; ++i)
        console.Write("%d", i);
    typing.field.Read("%s", std::string(25, 'm').c_str());
    const auto held = [&](POINT from, POINT to, auto done) {
        typing.Send(WM_LBUTTONDOWN, MK_LBUTTON, from);
        typing.Send(WM_MOUSEMOVE, MK_LBUTTON, to);
        EXPECT_FALSE(done()) << "by one move";
        MSG message;
        for (const ULONGLONG begin = GetTickCount64(); !done() && GetTickCount64() - begin < 10'000;) {
            MsgWaitForMultipleObjects(0, nullptr, FALSE, 100, QS_TIMER);
            while (PeekMessageW(&message, nullptr, WM_TIMER, WM_TIMER, PM_REMOVE))
                DispatchMessageW(&message);
        }
        EXPECT_TRUE(done());
        typing.Send(WM_LBUTTONUP, 0, to);
    };
    held({100, 20}, {-20, 20}, [&] { return typing.field.Cursor_Pos == 0; });
    EXPECT_GT(typing.field.Selected, 10);
    held({100, 100}, {100, 290}, [&] { return console.V_Slider.Val == console.V_Slider.End_Val; });
    held({100, 100}, {100, -20}, [&] { return console.V_Slider.Val == 0; });
    EXPECT_FALSE(console.Is_Selecting()) << "and the timer ends with it";
}

}  // namespace
}  // namespace galdren_test
