// Text fields with `TEXT_EDITING`: clipboard, pointer and what shows.
#include <optional>
#include <string>
#include <thread>

#include "Galdren_Tools.h"
#include "Galdren_Util.h"
#include "tests/support/clipboard.h"
#include "tests/support/fonts.h"
#include "tests/support/keys.h"
#include "tests/support/languages.h"
#include "tests/support/window.h"
#include "util/wide.h"

using namespace galdren_test;

namespace {

constexpr int Copy = KEY_CONTROL | 'C', Cut = KEY_CONTROL | 'X', Paste = KEY_CONTROL | 'V';
constexpr int All = KEY_CONTROL | 'A', Undo = KEY_CONTROL | 'Z', Redo = KEY_CONTROL | 'Y';

/// A console that reads, in a window of its own.
struct Field : Texts {
    explicit Field(unsigned page = 0, unsigned long flag = TEXT_EDITING) : window(400, 260) {
        Set_Text_Code_Page(page);
        X = 20, Y = 20, Width = 360, Height = 220;
        Flag = flag, Font_Name = "Arial", Font_Size = 10, Caret = CARET_SHOWN;
        Init(window);
        Read(nullptr);
    }
    ~Field() {
        Set_Text_Code_Page(0);
        Hold_Keys(0);
    }
    Field(const Field&) = delete;
    Field& operator=(const Field&) = delete;
    void Press(std::initializer_list<int> keys) {
        for (const int key : keys)
            Input(key);
    }
    /// Where the caret stands at a byte index.
    POINT Place_Of(int index) {
        RECT caret{};
        const short cursor = std::exchange(Cursor_Pos, static_cast<short>(index));
        const short selected = std::exchange(Selected, short{0});
        EXPECT_TRUE(Find_Caret(caret));
        Cursor_Pos = cursor, Selected = selected;
        return {caret.left, (caret.top + caret.bottom) / 2};
    }
    void Point(int event, POINT place) {
        window.Point_At(place.x, place.y);
        EXPECT_EQ(Select(event | (event ? EVENT_LEFT : 0)), 1);
    }
    /// Presses elsewhere first, so that no double click comes of it.
    void Drag(POINT from, POINT to) {
        Point(EVENT_PRESS, {300, 200}), Point(EVENT_MOVE, {300, 200});
        Point(EVENT_PRESS, from), Point(EVENT_DRAG, to), Point(EVENT_MOVE, to);
    }
    std::string Selection() const {
        const int other = Cursor_Pos + Selected;
        return std::string(Line).substr(std::size_t(std::min<int>(Cursor_Pos, other)),
                                        std::size_t(std::abs(Selected)));
    }
    Test_Window window;
};

}  // namespace

TEST(Text_Editing, Carries_Every_Language_Through_The_Clipboard) {
    for (const auto& [text, face] : Languages) {
        Field field(65001);
        ASSERT_TRUE(Set_Clipboard(text));
        field.Press({'<', Paste, '>'});
        ASSERT_TRUE(Set_Clipboard(L""));
        field.Press({All, Cut});
        EXPECT_EQ(Clipboard(), L"<" + std::wstring(text) + L">");
        EXPECT_STREQ(field.Line, "");
        field.Press({Undo, Undo, Undo});
        EXPECT_STREQ(field.Line, "<") << "a paste is one edit";
        field.Press({Redo});
        const int characters = static_cast<int>(std::strlen(field.Line));
        for (int i = 0; i < characters; ++i)
            field.Input(8);
        EXPECT_STREQ(field.Line, "");
    }
    Field latin(1252);
    ASSERT_TRUE(Set_Clipboard(L"\x20AC 日\xF1"));
    latin.Press({Paste});
    EXPECT_STREQ(latin.Line, "\x80 ?\xF1");
}

TEST(Text_Editing, Takes_What_It_Can_Of_Bad_Text) {
    Field field(65001);
    field.Read("kept");
    const auto pasted = [&](const std::wstring& text) {
        EXPECT_TRUE(Set_Clipboard(text));
        field.Read(nullptr);
        field.Press({Paste});
        return std::string(field.Line);
    };
    EXPECT_EQ(pasted(L"a\xD83D z\xDE00"), "a\uFFFD z\uFFFD");
    EXPECT_EQ(pasted(std::wstring(L"one\0two", 7)), "one");
    EXPECT_EQ(pasted(L"a\tb\033c\r\nd"), "abc") << "up to the end of the line, and no key is pressed";
    EXPECT_EQ(field.Mode, TEXT_READING);
    EXPECT_EQ(pasted(std::wstring(1 << 20, L'日')).size(), 252U);
    ASSERT_TRUE(Set_Clipboard(L"held"));
    field.Read("mine");
    std::thread([&] {
        const Test_Window other(50, 50);
        ASSERT_TRUE(OpenClipboard(other));
        std::thread([&] { field.Press({Paste, All, Cut, Copy}); }).join();
        CloseClipboard();
    }).join();
    EXPECT_STREQ(field.Line, "mine") << "what could not be copied is not cut";
    EXPECT_EQ(Clipboard(), L"held");
    field.Flag |= TEXT_PASSWORD;
    field.Press({All, Cut, Copy});
    EXPECT_STREQ(field.Line, "mine");
    EXPECT_EQ(Clipboard(), L"held") << "passwords are not copied";
    field.Read("sec\xC3\xA9t");
    field.Drag(field.Place_Of(5), field.Place_Of(5));
    EXPECT_EQ(field.Cursor_Pos, 5) << "behind four marks are five bytes";
    field.Insert("i\x1B!\n"), field.Insert(nullptr);
    EXPECT_STREQ(field.Line, "sec\xC3\xA9i!t") << "no key is pressed here either";
}

TEST(Text_Editing, The_Pointer_Selects_In_The_Input_Line) {
    Field field(65001);
    field.Read("one two \xE6\x97\xA5\xE6\x9C\xAC!");
    EXPECT_FALSE(field.Can_Take(KEY_NAVIGATION | VK_DELETE)) << "the caret is at the end";
    field.Drag(field.Place_Of(1), field.Place_Of(1));
    EXPECT_EQ(field.Cursor_Pos, 1);
    EXPECT_EQ(field.Selected, 0);
    EXPECT_TRUE(field.Can_Take(KEY_NAVIGATION | VK_DELETE));
    field.Drag(field.Place_Of(11), field.Place_Of(5));
    EXPECT_EQ(field.Selection(), "wo \xE6\x97\xA5");
    EXPECT_EQ(field.Cursor_Pos, 5);
    Hold_Keys(KEY_SHIFT);
    field.Point(EVENT_PRESS, field.Place_Of(14)), field.Point(EVENT_MOVE, field.Place_Of(14));
    Hold_Keys(0);
    EXPECT_EQ(field.Selection(), "\xE6\x9C\xAC") << "from the end that stays";
    const POINT word = field.Place_Of(5);
    field.Drag(word, word);
    field.Point(EVENT_PRESS, {word.x + GetSystemMetrics(SM_CXDOUBLECLK) / 2, word.y});
    field.Point(EVENT_MOVE, word);
    EXPECT_EQ(field.Selection(), "two") << "as far off as a double click may be";
    field.Point(EVENT_PRESS, word), field.Point(EVENT_MOVE, word);
    EXPECT_EQ(field.Selection(), field.Line);

    field.Read("%s", std::string(200, 'm').c_str());
    const POINT middle = field.Place_Of(200);
    field.Point(EVENT_PRESS, {200, middle.y});
    const int pressed = field.Cursor_Pos;
    EXPECT_GT(pressed, 150);
    for (int i = 0; i < 180; ++i)
        field.Point(EVENT_DRAG, {-50, middle.y});
    EXPECT_EQ(field.Cursor_Pos, 0) << "beyond the edge the line scrolls";
    EXPECT_EQ(field.Selected, pressed);
    Field plain(0, 0);
    plain.Read("one two");
    plain.Drag(plain.Place_Of(1), plain.Place_Of(5));
    EXPECT_EQ(plain.Cursor_Pos, 7) << "without the flag the pointer does not edit";
    EXPECT_EQ(plain.Selected, 0);
}

TEST(Text_Editing, The_Pointer_Selects_Output_Lines) {
    Field field(1252, TEXT_EDITING | TEXT_V_BAR);
    for (int i = 0; i < 40; ++i)
        field.Write("\x04line\xF1 %d", i);
    const Picture before(field.window);
    const int bottom = field.Input_Box[2] + 1;  // above the input line
    const int left = field.V_Slider.X + field.V_Slider.Width + 4;
    const auto row = [&](int line, int x) {
        return POINT{x, bottom + line * field.Line_Height + field.Line_Height / 2};
    };
    const POINT begin = row(2, left), end = row(1, field.X + 350);
    for (const auto& [from, to] : {std::pair(end, begin), std::pair(begin, end)}) {
        field.Drag(from, to);
        field.Press({Copy});
        EXPECT_EQ(Clipboard(), L"line 37\r\nline 38") << "without codes, whatever way";
    }
    const Picture selected(field.window);
    EXPECT_FALSE(Same(before, selected));
    field.Draw();
    EXPECT_TRUE(Same(Picture(field.window), selected));
    field.Write("more");
    field.Press({Copy});
    EXPECT_EQ(Clipboard(), L"line 37\r\nline 38") << "it goes up with its lines";
    const POINT word = row(1, left + 2);
    field.Drag(word, word);
    for (const wchar_t* wanted : {L"line", L"line 39"}) {
        field.Point(EVENT_PRESS, word), field.Point(EVENT_MOVE, word), field.Press({Copy});
        EXPECT_EQ(Clipboard(), wanted) << "pressed again";
    }
    field.Point(EVENT_PRESS, field.Place_Of(0)), field.Point(EVENT_MOVE, word);
    EXPECT_FALSE(field.Can_Take(Copy)) << "a press in the input line takes it from the output";
    field.Point(EVENT_PRESS, row(0, field.X + 200));
    for (int i = 0; i < 60; ++i)
        field.Point(EVENT_DRAG, {field.X + 200, 259});
    EXPECT_EQ(field.V_Slider.Val, field.V_Slider.End_Val) << "beyond the edge the output scrolls";
    field.Point(EVENT_MOVE, {field.X + 200, 200});
    field.Press({27, All, Copy});
    EXPECT_EQ(Clipboard().substr(0, 8), L"line 0\r\n") << "also while nothing is read";
    field.Point(EVENT_PRESS, row(1, field.X + 100));
    EXPECT_FALSE(field.Can_Take(Copy));
}

/// Where text runs from right to left the caret moves the other way, and the line scrolls under it.
TEST(Text_Editing, The_Caret_Stays_In_View_Whichever_Way_Text_Runs) {
    const Fonts_Of_Languages fonts;
    const std::pair<std::string, const char*> rows[] = {
        {Repeated("\u05D0", 60), "DejaVu Sans"},
        {Repeated("\u05D0", 30) + Repeated("m", 30), "DejaVu Sans"},
        {Repeated("m \u05D0\u05D1 ", 20), "DejaVu Sans"},
        {Repeated("\u0E17\u0E35", 40), "Garuda"}};
    for (const auto& [line, face] : rows) {
        for (const unsigned long flag : {0UL, TEXT_EDITING}) {
            Field field(65001, flag);
            field.Font_Name = face;
            field.Init(field.window);
            field.Read("%s", line.c_str());
            for (const int key : {VK_LEFT, VK_HOME, VK_RIGHT, VK_END, VK_HOME}) {
                const bool walks = key == VK_LEFT || key == VK_RIGHT;
                for (int steps = walks ? 50 : 1; steps > 0; --steps)
                    field.Input(KEY_NAVIGATION | key);
                RECT caret{};
                ASSERT_TRUE(field.Find_Caret(caret));
                EXPECT_GT(caret.left, field.Input_Box[0]) << line << " at " << field.Cursor_Pos;
                EXPECT_LT(caret.right, field.Input_Box[1]) << line << " at " << field.Cursor_Pos;
            }
        }
    }
}

/// What is typed never acts as a code, and letters need not.
TEST(Text_Editing, Letters_Are_Told_From_Codes) {
    const auto shown = [](unsigned page, unsigned long flag, const char* text, bool typed = false) {
        Field field(page, flag);
        if (typed) {
            field.Read("%s", text);
            field.Input(13), field.Update();
        }
        field.Mode = 0;
        if (!typed) field.Write("%s", text);
        EXPECT_STREQ(field.Lines[0], text) << "an exact copy";
        field.Draw();
        return Picture(field.window);
    };
    const Picture wanted = shown(65001, 0, "Espa\303\261a");
    EXPECT_TRUE(Same(shown(1252, TEXT_ALL_LETTERS, "Espa\361a"), wanted));
    EXPECT_TRUE(Same(shown(1252, 0, "Espa\361a", true), wanted));
    EXPECT_TRUE(Same(shown(65001, TEXT_ALL_LETTERS, "\361bold"), shown(1252, 0, "\361bold")));
    Field field(65001);
    field.Write("%s", (std::string(254, 'x') + "\xC3\xA9").c_str());
    EXPECT_EQ(field.Lines[0], std::string(254, 'x')) << "half a character is cut away";
}
