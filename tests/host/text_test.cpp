// What is typed into fields of a host: languages, input methods, and what the mouse does with text.
#include <gtest/gtest.h>
#include <windows.h>

#include <imm.h>

#include <algorithm>
#include <cstring>
#include <iterator>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "Galdren_Host.h"
#include "Galdren_Util.h"
#include "tests/support/clipboard.h"
#include "tests/support/controls.h"
#include "tests/support/fonts.h"
#include "tests/support/keys.h"
#include "tests/support/languages.h"
#include "tests/support/window.h"
#include "util/wide.h"

namespace galdren_test {
namespace {

constexpr int side = 300;

/// A host with a field that reads, and one that does not, in a window of one kind or the other.
class Typing {
  public:
    explicit Typing(bool unicode, unsigned page = 65001)
        : window(unicode ? Make_Window_W() : Make_Window_A()) {
        Set_Text_Code_Page(page);
        host = std::make_unique<Host>(window);
        Place(field, nullptr, 10, 10, 200, 30, TEXT_SINGLE_LINE | TEXT_EDITING);
        Place(other, nullptr, 10, 50, 200, 30, TEXT_SINGLE_LINE | TEXT_EDITING);
        host->Add(field, [this](Texts&, const Host_Event& event) { told += event.kind == Host_Event::Key; });
        host->Add(other);
        host->Init_All();
        SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
        SetFocus(window);
        host->Focus(&field);
    }
    ~Typing() {
        SetWindowLongPtrW(window, GWLP_USERDATA, 0);
        host.reset();
        DestroyWindow(window);
        Set_Text_Code_Page(0);
        STATE_MASK(0);
    }
    Typing(const Typing&) = delete;
    Typing& operator=(const Typing&) = delete;
    void Char(WPARAM unit) { SendMessageW(window, WM_CHAR, unit, 1); }
    void Mouse(UINT message, WPARAM keys, POINT logical) {
        SendMessageW(window, message, keys, MAKELPARAM(logical.x, side - 1 - logical.y));
    }
    /// Not the second of two: there is a press elsewhere before.
    void Click(POINT logical) {
        for (const POINT place : {POINT{side - 15, logical.y}, logical})
            Mouse(WM_LBUTTONDOWN, MK_LBUTTON, place), Mouse(WM_LBUTTONUP, 0, place);
    }

    HWND window;
    std::unique_ptr<Host> host;
    Texts field, other;
    int told = 0;

  private:
    static LRESULT Handle(HWND served, UINT message, WPARAM wparam, LPARAM lparam,
                          LRESULT(CALLBACK* otherwise)(HWND, UINT, WPARAM, LPARAM)) {
        auto* const typing = reinterpret_cast<Typing*>(GetWindowLongPtrW(served, GWLP_USERDATA));
        LRESULT result = 0;
        if (typing && typing->host && typing->host->Message(message, wparam, lparam, result)) return result;
        return otherwise(served, message, wparam, lparam);
    }
    static LRESULT CALLBACK Procedure_A(HWND served, UINT message, WPARAM wparam, LPARAM lparam) {
        return Handle(served, message, wparam, lparam, DefWindowProcA);
    }
    static LRESULT CALLBACK Procedure_W(HWND served, UINT message, WPARAM wparam, LPARAM lparam) {
        return Handle(served, message, wparam, lparam, DefWindowProcW);
    }
    static HWND Make_Window_A() {
        WNDCLASSA kind{};
        kind.lpfnWndProc = Procedure_A, kind.lpszClassName = "Typing_A";
        RegisterClassA(&kind);
        return CreateWindowExA(WS_EX_TOOLWINDOW, "Typing_A", "", WS_POPUP | WS_VISIBLE, 50, 50, side, side,
                               nullptr, nullptr, nullptr, nullptr);
    }
    static HWND Make_Window_W() {
        WNDCLASSW kind{};
        kind.lpfnWndProc = Procedure_W, kind.lpszClassName = L"Typing_W";
        RegisterClassW(&kind);
        return CreateWindowExW(WS_EX_TOOLWINDOW, L"Typing_W", L"", WS_POPUP | WS_VISIBLE, 50, 50, side, side,
                               nullptr, nullptr, nullptr, nullptr);
    }
};

TEST(Host_Text, Takes_Whole_Characters_Of_Other_Programs) {
    for (const auto& [text, face] : Languages) {
        Typing typing(false);
        int characters = 0;
        for (const wchar_t* unit = text; *unit; ++unit, ++characters) {
            const bool pair = IS_HIGH_SURROGATE(*unit);
            const unsigned code = pair ? 0x10000 + ((unit[0] & 0x3FFU) << 10) + (unit[1] & 0x3FFU) : *unit;
            SendMessageW(typing.window, WM_UNICHAR, code, 1);
            unit += pair ? 1 : 0;
        }
        EXPECT_EQ(galdren::To_Wide(typing.field.Line), text);
        EXPECT_EQ(typing.told, characters) << "the handler hears of each once";
    }
}

/// What is painted that was not there before, cut out.
std::string Ink(const Picture& with, const Picture& without) {
    const auto differs = [&](int x, int y) { return with.At(x, y) != without.At(x, y); };
    int left = with.Width(), right = -1, bottom = with.Height(), top = -1;
    for (int y = 0; y < with.Height(); ++y) {
        for (int x = 0; x < with.Width(); ++x) {
            if (!differs(x, y)) continue;
            left = std::min(left, x), right = std::max(right, x);
            bottom = std::min(bottom, y), top = std::max(top, y);
        }
    }
    std::string ink;
    for (int y = top; y >= bottom; --y) {
        for (int x = left; x <= right; ++x)
            ink += differs(x, y) ? '#' : '.';
        ink += '\n';
    }
    return ink;
}

/// A control of the system in the same window.
class Native {
  public:
    Native(HWND parent, const wchar_t* name, DWORD style, int top, HFONT font)
        : window(CreateWindowExW(0, name, L"", WS_CHILD | WS_VISIBLE | style, 0, top, side, 60, parent,
                                 nullptr, nullptr, nullptr)) {
        SendMessageW(window, WM_SETFONT, reinterpret_cast<WPARAM>(font), FALSE);
    }
    ~Native() { DestroyWindow(window); }
    Native(const Native&) = delete;
    Native& operator=(const Native&) = delete;
    std::wstring Text() const {
        wchar_t text[100];
        return {text, static_cast<std::size_t>(GetWindowTextW(window, text, 100))};
    }
    Picture Painted() const {
        UpdateWindow(window);
        return Picture(window);
    }
    HWND window;
};

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

void Handle_Messages() {
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE))
        TranslateMessage(&message), DispatchMessageW(&message);
}

/// A field in a language, and an edit control of the system with the same font.
class In_A_Language : public Typing {
  public:
    explicit In_A_Language(const Language& language) : Typing(true), text(language.text) {
        host->Remove(other);
        field.Font_Name = language.face, field.Font_Size = 14, field.Width = 280, field.Height = 60;
        field.Init(window), field.Draw();
        edit.emplace(window, L"EDIT", ES_AUTOHSCROLL, 0, field.Bold_Font);
    }
    bool Has_Its_Letters() const {
        WORD glyph = 0;
        const HDC dc = GetDC(window);
        SelectObject(dc, field.Bold_Font);
        GetGlyphIndicesW(dc, text.c_str(), 1, &glyph, GGI_MARK_NONEXISTING_GLYPHS);
        ReleaseDC(window, dc);
        return glyph != 0xFFFF || IS_SURROGATE_PAIR(text[0], text[1]);
    }
    /// Has a user type in both.
    /// @return what is in both then
    template <class Type>
    std::wstring After(Type type) {
        for (const HWND typed_in : {edit->window, window})
            SetFocus(typed_in), type(), Handle_Messages();
        EXPECT_EQ(edit->Text(), galdren::To_Wide(field.Line));
        return edit->Text();
    }
    /// Goes over the line, with the caret at each character.
    template <class Look>
    void Walk(Look look) {
        const std::string line = field.Line;
        field.Input(KEY_NAVIGATION | VK_HOME);
        for (int at = 0; line[std::size_t(at)]; at = field.Cursor_Pos) {
            look(at, static_cast<int>(line.size()));
            field.Cursor_Pos = static_cast<short>(at), field.Selected = 0;
            field.Input(KEY_NAVIGATION | VK_RIGHT);
        }
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
        return Caret().x - short(LOWORD(SendMessageW(edit->window, EM_POSFROMCHAR, unit, 0)));
    }
    /// The columns that show as selected when the text between two places is.
    std::vector<bool> Selected_Columns(int from, int to) {
        constexpr std::uint32_t selection = 0x14468C;
        field.Cursor_Pos = static_cast<short>(to), field.Selected = static_cast<short>(from - to);
        field.Draw();
        const Picture picture(window);
        std::vector<bool> columns;
        for (int x = 0; x < picture.Width(); ++x)
            columns.push_back(picture.At(x, field.Input_Box[3] + 6) == selection);
        return columns;
    }
    std::string Shown() {
        field.Show_Caret(CARET_AWAY);
        field.Read(nullptr);
        const Picture empty(window);
        field.Read("%s", galdren::From_Wide(text).c_str());
        return Ink(Picture(window), empty);
    }
    /// By the system. In the middle, for at its edge it cuts what stands out.
    std::string Shown_By_A_Label() const {
        const Native label(window, L"STATIC", SS_CENTER | SS_NOPREFIX, 60, field.Bold_Font);
        const Picture empty = label.Painted();
        SetWindowTextW(label.window, text.c_str());
        return Ink(label.Painted(), empty);
    }

  private:
    std::wstring text;
    std::optional<Native> edit;
};

TEST(Host_Text, Works_In_Every_Language_As_The_Controls_Of_The_System) {
    const Fonts_Of_Languages fonts;
    ASSERT_TRUE(fonts.Are_Here());
    for (const Language& language : Languages) {
        SCOPED_TRACE(galdren::From_Wide(language.text));
        In_A_Language both(language);
        EXPECT_TRUE(both.Has_Its_Letters());
        EXPECT_EQ(both.After([&] { Inject(language.text); }), language.text);
        const auto cut = [] { Type_Keys({VK_HOME, KEY_SHIFT | VK_END, KEY_CONTROL | 'X'}); };
        EXPECT_EQ(both.After(cut), L"");
        EXPECT_EQ(Clipboard(), language.text);
        EXPECT_EQ(both.After([] { Type_Keys({KEY_CONTROL | 'V'}); }), language.text);

        std::optional<int> apart;  // both begin at a column of their own
        both.Walk([&](int at, int end) {
            // At its first character the control of the system always says 0, wherever that stands.
            if (at > 0 && !apart) apart = both.Distance();
            EXPECT_TRUE(at == 0 || both.Distance() == apart) << at << ": " << both.Distance();
            both.Click(both.Caret());
            EXPECT_EQ(both.field.Cursor_Pos, at) << "clicked";
            const std::vector<bool> before = both.Selected_Columns(0, at);
            const std::vector<bool> behind = both.Selected_Columns(at, end);
            const std::vector<bool> all = both.Selected_Columns(0, end);
            EXPECT_GT(std::count(all.begin(), all.end(), true), 20);
            for (std::size_t x = 0; x < all.size(); ++x)
                EXPECT_EQ(before[x] + behind[x], all[x]) << at << " column " << x;
        });
        const std::string shown = both.Shown(), wanted = both.Shown_By_A_Label();
        EXPECT_TRUE(shown == wanted) << shown << '\n' << wanted;
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
    typing.host->Focus(&typing.other);
    ImmReleaseContext(typing.window, context);
    EXPECT_STREQ(typing.field.Line, "ab\xE6\x97\xA5\xE6\x9C\xAC")
        << "nothing is lost where the keyboard goes elsewhere";
    EXPECT_STREQ(typing.other.Line, "");
}

TEST(Host_Text, The_Mouse_Works_On_Text) {
    Typing typing(true);
    std::strcpy(typing.other.Line, "one two");
    const auto send = [&](UINT message, WPARAM wparam, POINT logical) {
        typing.Mouse(message, wparam, logical);
    };
    send(WM_LBUTTONDOWN, MK_LBUTTON, {20, 60});
    send(WM_LBUTTONUP, 0, {20, 60});
    EXPECT_EQ(typing.host->Focused(), &typing.other);
    EXPECT_LT(typing.other.Cursor_Pos, 2) << "the first press places the caret";
    send(WM_LBUTTONDOWN, MK_LBUTTON, {22, 60});
    send(WM_MOUSEMOVE, MK_LBUTTON, {200, 60});
    send(WM_LBUTTONUP, 0, {200, 60});
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
    SendMessageW(typing.window, WM_SETCURSOR, reinterpret_cast<WPARAM>(typing.window), HTCLIENT);
    EXPECT_EQ(GetCursor(), LoadCursorA(nullptr, IDC_IBEAM));
    // The menu waits for a key.
    Text_Menu words;
    words.Select_All = "\xD0\x92\xD1\x81\xD1\x91 (&W)\tCtrl+A";
    Set_Text_Menu(words);
    static wchar_t shown[30];
    SetTimer(typing.window, 1, 20, [](HWND window, UINT, UINT_PTR timer, DWORD) {
        KillTimer(window, timer);
        const LRESULT menu = SendMessageW(FindWindowA("#32768", nullptr), MN_GETHMENU, 0, 0);
        GetMenuStringW(reinterpret_cast<HMENU>(menu), 8, shown, static_cast<int>(std::size(shown)),
                       MF_BYPOSITION);
        PostMessageW(window, WM_KEYDOWN, 'W', 1);
    });
    typing.other.Selected = 0;
    SendMessageW(typing.window, WM_CONTEXTMENU, reinterpret_cast<WPARAM>(typing.window),
                 MAKELPARAM(at.x, at.y));
    Set_Text_Menu({});
    EXPECT_EQ(typing.other.Selected, -7) << "Select all";
    EXPECT_EQ(shown, std::wstring(L"Всё (&W)\tCtrl+A"));
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
        typing.Mouse(WM_LBUTTONDOWN, MK_LBUTTON, from);
        typing.Mouse(WM_MOUSEMOVE, MK_LBUTTON, to);
        EXPECT_FALSE(done()) << "by one move";
        MSG message;
        for (const ULONGLONG begin = GetTickCount64(); !done() && GetTickCount64() - begin < 10'000;) {
            MsgWaitForMultipleObjects(0, nullptr, FALSE, 100, QS_TIMER);
            while (PeekMessageW(&message, nullptr, WM_TIMER, WM_TIMER, PM_REMOVE))
                DispatchMessageW(&message);
        }
        EXPECT_TRUE(done());
        typing.Mouse(WM_LBUTTONUP, 0, to);
    };
    held({100, 20}, {-20, 20}, [&] { return typing.field.Cursor_Pos == 0; });
    EXPECT_GT(typing.field.Selected, 10);
    held({100, 100}, {100, 290}, [&] { return console.V_Slider.Val == console.V_Slider.End_Val; });
    held({100, 100}, {100, -20}, [&] { return console.V_Slider.Val == 0; });
    EXPECT_FALSE(console.Is_Selecting()) << "and the timer ends with it";
}

}  // namespace
}  // namespace galdren_test
