#include "widgets/input_line.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "Galdren_Tools.h"
#include "Galdren_Util.h"

using namespace galdren;

namespace {

constexpr int Left = KEY_NAVIGATION | VK_LEFT, Right = KEY_NAVIGATION | VK_RIGHT;
constexpr int Home = KEY_NAVIGATION | VK_HOME, End = KEY_NAVIGATION | VK_END;
constexpr int Up = KEY_NAVIGATION | VK_UP, Delete = KEY_NAVIGATION | VK_DELETE, Backspace = 8;
constexpr int Shift = KEY_SHIFT, Ctrl = KEY_CONTROL;

/// The fields of an input line without a control.
struct Edited : Text_Fields {
    explicit Edited(unsigned page = 0, unsigned long with = TEXT_EDITING) : flag(with) {
        Set_Text_Code_Page(page);
    }
    ~Edited() {
        delete state.past;
        Input().Remember();
        for (char** entry = History; *entry; ++entry)
            delete[] * entry;
        delete[] History;
        Set_Text_Code_Page(0);
    }
    Edited(const Edited&) = delete;
    Edited& operator=(const Edited&) = delete;
    Input_Line Input() { return {*this, flag, state}; }
    void Put(std::string_view text) {
        Line[text.copy(Line, Line_Room - 1)] = '\0';
        Cursor_Pos = static_cast<short>(text.size()), Selected = 0;
    }
    void Type(std::string_view text) {
        for (const char byte : text)
            Input().Take(static_cast<unsigned char>(byte));
    }
    void Press(const std::vector<int>& keys) {
        for (const int key : keys)
            Input().Take(key);
    }
    unsigned long flag;
    Edit_State state;
};

}  // namespace

TEST(Input_Line, Keys_Do_What_People_Expect) {
    const struct {
        unsigned page;
        const char* before;
        std::vector<int> keys;
        const char* after;
        int cursor, selected;
    } rows[] = {
        {1252, "abc", {Home, Left, Backspace, End, Right, Delete}, "abc", 3, 0},
        {1252, "abcd", {Left, Left, Delete, 'x', Home, Delete}, "bxd", 0, 0},
        {1252, "abc", {Shift | Left, Shift | Left, 'x'}, "ax", 2, 0},
        {1252, "abcd", {Shift | Left, Shift | Left, Shift | Right}, "abcd", 3, 1},
        {1252, "abc", {Shift | Home, Right}, "abc", 3, 0},
        {1252, "abc", {Shift | Home, Left}, "abc", 0, 0},
        {1252, "abc", {Home, Shift | End, Delete}, "", 0, 0},
        {1252, "abc", {Shift | Left, Backspace}, "ab", 2, 0},
        {1252, "\xF1\x80\xC3", {Left, Backspace, Shift | Left}, "\xF1\xC3", 0, 1},
        {932, "\x83\x41\x93\xFA", {Left, Backspace, 0x81, 0x5C}, "\x81\x5C\x93\xFA", 2, 0},
        {932, "\xB1\x83\x41", {Home, Delete, Shift | Right}, "\x83\x41", 2, -2},
        {65001, "é日\xF0\x9F\x98\x80", {Left, Left, Shift | Right, Delete}, "é\xF0\x9F\x98\x80", 2, 0},
        {65001, "é日", {Home, Right, 0xC3, 0xB1, Delete}, "éñ", 4, 0},
        {65001, "e\xCC\x81", {Backspace}, "e", 1, 0},
        {65001, "e\xCC\x81z", {Home, Right, 'x', Left, Left, Delete}, "xz", 0, 0},
        {65001, "one  (two)", {Ctrl | Left}, "one  (two)", 9, 0},
        {65001, "one  (two)", {Ctrl | Left, Ctrl | Left, Ctrl | Left}, "one  (two)", 5, 0},
        {65001, "one  (two)", {Home, Ctrl | Shift | Right}, "one  (two)", 5, -5},
        {65001, "one two", {Ctrl | Backspace, Ctrl | Backspace}, "", 0, 0},
        {65001, "one two", {Home, Ctrl | Delete}, "two", 0, 0},
        {65001, "мир 1", {Ctrl | Left, Ctrl | Left}, "мир 1", 0, 0},
        {65001, "日本語のテスト", {Ctrl | Left, Ctrl | Left}, "日本語のテスト", 9, 0},
        {65001, "日本語のテスト", {Ctrl | Backspace, Home, Ctrl | Delete}, "の", 0, 0},
        {65001, "ภาษา ไทย", {Home, Ctrl | Right}, "ภาษา ไทย", 13, 0},
    };
    for (const auto& row : rows) {
        Edited line(row.page);
        line.Put(row.before);
        line.Press(row.keys);
        EXPECT_STREQ(line.Line, row.after);
        EXPECT_EQ(line.Cursor_Pos, row.cursor) << row.before;
        EXPECT_EQ(line.Selected, row.selected) << row.before;
    }
    Edited without(65001, 0);
    without.Put("one two");
    without.Press({Ctrl | Left, Shift | Left, Ctrl | Backspace});
    EXPECT_EQ(without.Cursor_Pos, 7) << "these keys mean nothing without editing";
    EXPECT_STREQ(without.Line, "one two");
}

TEST(Input_Line, Undoes_Words_And_Other_Edits_One_By_One) {
    Edited line;
    line.Type("one two");
    line.Press({Backspace, Backspace, Home, 'x'});
    const char* const states[] = {"xone t", "one t", "one two", "one", ""};
    for (const char* const state : states) {
        EXPECT_STREQ(line.Line, state);
        EXPECT_EQ(line.Input().Go(-1), *state != '\0');
    }
    for (int i = 3; i >= 0; --i) {
        EXPECT_TRUE(line.Input().Go(1));
        EXPECT_STREQ(line.Line, states[i]);
    }
    EXPECT_TRUE(line.Input().Go(-1));
    line.Type("!");
    EXPECT_FALSE(line.Input().Can_Go(1)) << "another edit has taken its place";
    line.Put("set by the application");
    EXPECT_FALSE(line.Input().Go(-1)) << "what it wrote is not undone";
}

TEST(Input_Line, Takes_Whole_Characters_Only) {
    const struct {
        unsigned page;
        unsigned long flag;
        const char *typed, *line;
    } rows[] = {
        {65001, 0, "\200\361z\346\227z\300\257\355\240\200\360\237\230", "zz"},
        {65001, 0, "\346\346\227\245\303\303\251", "日é"},
        {932, TEXT_HEXADECIMAL, "\203\101A\203\102B", "AB"},
        {932, 0, "\201z\203\101", "\201z\203\101"},
        {936, 0, "\326\361\361\362", "\326\361\361\362"},
        {1252, 0, "\201\346\361", "\201\346\361"},
    };
    for (const auto& row : rows) {
        Edited line(row.page, row.flag);
        line.Type(row.typed);
        EXPECT_STREQ(line.Line, row.line) << row.page;
    }
    Edited line(65001);
    line.Put(std::string(253, 'm'));
    line.Type("ém");
    EXPECT_EQ(line.Input().Text(), std::string(254, 'm')) << "there is no room for half of it";
    line.Press({Shift | Left, 0xC3, 0xA9, 'x'});
    EXPECT_EQ(line.Input().Text(), std::string(253, 'm') + 'x') << "but for what is selected";
    line.Put("日");
    line.Cursor_Pos = 2;
    line.Type("a");
    EXPECT_STREQ(line.Line, "a日") << "the application has put the cursor inside";
    EXPECT_EQ(Whole_Characters("ab日", 4), "ab");
    EXPECT_EQ(Whole_Characters("abe\xCC\x81", 4), "ab") << "a mark stays with its letter";
    line.Put("日");
    line.Input().Remember();
    line.Put("");
    line.Press({Up});
    EXPECT_STREQ(line.Line, "日");
}
