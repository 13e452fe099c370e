// What is typed into fields of a host: languages, input methods, and what the mouse does with text.
#include <gtest/gtest.h>
#include <windows.h>

#include <imm.h>

#include <cstring>
#include <memory>
#include <string>

#include "Galdren_Host.h"
#include "Galdren_Util.h"
#include "tests/support/clipboard.h"
#include "tests/support/controls.h"
#include "tests/support/keys.h"
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

TEST(Host_Text, Takes_Every_Language_From_The_Keyboard) {
    for (const std::wstring text : Languages) {
        Typing typing(true);
        for (const wchar_t unit : text)
            typing.Char(unit);
        EXPECT_EQ(galdren::To_Wide(typing.field.Line), text);
        Typing whole(false);
        int characters = 0;
        for (std::size_t i = 0; i < text.size(); ++i, ++characters) {
            const bool pair = IS_HIGH_SURROGATE(text[i]);
            const unsigned code =
                pair ? 0x10000 + ((text[i] & 0x3FFU) << 10) + (text[i + 1] & 0x3FFU) : text[i];
            SendMessageW(whole.window, WM_UNICHAR, code, 1);
            i += pair ? 1 : 0;
        }
        EXPECT_EQ(galdren::To_Wide(whole.field.Line), text);
        EXPECT_EQ(whole.told, characters) << "the handler hears of each once";
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
    const auto send = [&](UINT message, WPARAM wparam, POINT logical) {
        return SendMessageW(typing.window, message, wparam, MAKELPARAM(logical.x, side - 1 - logical.y));
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
    // The menu waits for a key. What cannot be done is grey.
    static UINT undo_state;
    SetTimer(typing.window, 1, 20, [](HWND window, UINT, UINT_PTR timer, DWORD) {
        KillTimer(window, timer);
        const auto menu =
            reinterpret_cast<HMENU>(SendMessageW(FindWindowW(L"#32768", nullptr), MN_GETHMENU, 0, 0));
        undo_state = GetMenuState(menu, 0, MF_BYPOSITION);
        PostMessageW(window, WM_KEYDOWN, 'A', 1);
    });
    typing.other.Selected = 0;
    SendMessageW(typing.window, WM_CONTEXTMENU, reinterpret_cast<WPARAM>(typing.window),
                 MAKELPARAM(at.x, at.y));
    EXPECT_EQ(typing.other.Selected, -7) << "Select all";
    EXPECT_TRUE(undo_state & MF_GRAYED) << "nothing was typed";
    SetCursorPos(before.x, before.y);
}

}  // namespace
}  // namespace galdren_test
