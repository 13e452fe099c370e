#include "widgets/input_line.h"

#include <gtest/gtest.h>

#include <numeric>
#include <random>
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
constexpr char Acute[] = "\xCC\x81";

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

/// The same line as a row of characters, of which some are marks.
struct Model {
    std::vector<std::string> characters;
    int caret = 0, other = 0;

    int Count() const { return static_cast<int>(characters.size()); }
    bool Begins(int at) const { return at <= 0 || at >= Count() || characters[std::size_t(at)] != Acute; }
    int Bytes(int from, int to) const {
        return std::accumulate(characters.begin() + from, characters.begin() + to, 0,
                               [](int sum, const std::string& each) { return sum + int(each.size()); });
    }
    void Erase(int from, int to) {
        characters.erase(characters.begin() + from, characters.begin() + to);
        caret = other = from;
    }
    bool Erase_Selection() {
        const bool any = caret != other;
        if (any) Erase(std::min(caret, other), std::max(caret, other));
        return any;
    }
    void Insert(const std::string& character) {
        const int selected = Bytes(std::min(caret, other), std::max(caret, other));
        if (Bytes(0, Count()) - selected + int(character.size()) > Text_Fields::Longest_Input) return;
        Erase_Selection();
        characters.insert(characters.begin() + caret, character);
        other = ++caret;
    }
    int Beside(int step) const {
        int at = std::clamp(caret + step, 0, Count());
        while (!Begins(at))
            at += step;
        return at;
    }
    void Act(int key) {
        if ((key == Delete || key == Backspace) && Erase_Selection()) return;
        if (key == Backspace && caret > 0) return Erase(caret - 1, caret);
        if (key == Delete) return Erase(caret, Beside(1));
        const int plain = key & ~Shift;
        const bool leaves = caret != other && !(key & Shift);
        const int before = plain == Left && leaves ? std::min(caret, other) : Beside(-1);
        const int behind = plain == Right && leaves ? std::max(caret, other) : Beside(1);
        if (plain == Left) caret = before;
        if (plain == Right) caret = behind;
        if (plain == Home) caret = 0;
        if (plain == End) caret = Count();
        if (plain != Backspace && !(key & Shift)) other = caret;
    }
};

void Walk(unsigned page, const std::vector<std::string>& letters) {
    constexpr int Keys[] = {Left,   Right,        Home,          End,         Backspace,
                            Delete, Shift | Left, Shift | Right, Shift | Home};
    Edited line(page);
    Model model;
    std::mt19937 random(page);
    for (int step = 0; step < 34'000; ++step) {
        // Now and then a line grows to its end, and shrinks again.
        const bool types = random() % 1000 < (step / 1500 % 2 ? 750U : 350U);
        const std::string& letter = letters[random() % letters.size()];
        const int key = Keys[random() % std::size(Keys)];
        if (types) {
            model.Insert(letter);
            line.Type(letter);
        } else {
            model.Act(key);
            line.Press({key});
        }
        const std::string text =
            std::accumulate(model.characters.begin(), model.characters.end(), std::string());
        ASSERT_EQ(line.Line, text) << page << " step " << step
                                   << (types ? " " + letter : " key " + std::to_string(key));
        ASSERT_EQ(line.Cursor_Pos, model.Bytes(0, model.caret)) << page << " step " << step;
        ASSERT_EQ(line.Cursor_Pos + line.Selected, model.Bytes(0, model.other)) << page << " step " << step;
    }
    std::vector<std::string> undone{line.Line};
    while (line.Input().Go(-1))
        undone.emplace_back(line.Line);
    ASSERT_GT(undone.size(), 50U);
    for (; line.Input().Go(1); undone.pop_back())
        ASSERT_EQ(line.Line, *(undone.end() - 2));
    EXPECT_EQ(undone.size(), 1U);
}

}  // namespace

TEST(Input_Line, Edits_Like_A_Row_Of_Characters) {
    Walk(1252, {"a", " ", "\xF1", "\x80", "\xC3"});
    Walk(932, {"a", " ", "\x83\x41", "\x93\xFA", "\xB1", "\x81\x5C"});
    Walk(65001, {"a", " ", "\xC3\xA9", "\xE6\x97\xA5", "\xF0\x9F\x98\x80", Acute});
}

TEST(Input_Line, Keys_Do_What_People_Expect) {
    const std::string emoji = "\xF0\x9F\x98\x80";
    struct Row {
        const char* before;
        std::vector<int> keys;
        const char* after;
        int cursor, selected;
    };
    const Row rows[] = {
        {"one  (two)", {Ctrl | Left}, "one  (two)", 9, 0},
        {"one  (two)", {Ctrl | Left, Ctrl | Left, Ctrl | Left}, "one  (two)", 5, 0},
        {"one  (two)", {Home, Ctrl | Shift | Right}, "one  (two)", 5, -5},
        {"one two", {Ctrl | Backspace, Ctrl | Backspace}, "", 0, 0},
        {"one two", {Home, Ctrl | Delete}, "two", 0, 0},
        {"abc", {Shift | Left, Shift | Left, 'x'}, "ax", 2, 0},
        {"abc", {Shift | Home, Right}, "abc", 3, 0},
        {"abc", {Shift | Home, Left}, "abc", 0, 0},
        {"abc", {Shift | Left, Backspace}, "ab", 2, 0},
        {"\xD0\xBC\xD0\xB8\xD1\x80 1", {Ctrl | Left, Ctrl | Left}, "\xD0\xBC\xD0\xB8\xD1\x80 1", 0, 0},
        {"日本語のテスト", {Ctrl | Left, Ctrl | Left}, "日本語のテスト", 9, 0},
        {"日本語のテスト", {Ctrl | Backspace, Home, Ctrl | Delete}, "の", 0, 0},
        {"ภาษา ไทย", {Home, Ctrl | Right}, "ภาษา ไทย", 13, 0},
        {"e\xCC\x81", {Backspace}, "e", 1, 0},
        {"e\xCC\x81", {Left, Delete}, "", 0, 0},
    };
    for (const Row& row : rows) {
        Edited line(65001);
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
    EXPECT_TRUE(line.Input().Go(1));
    line.Type("!");
    EXPECT_FALSE(line.Input().Can_Go(1)) << "another edit has taken its place";
    line.Put("set by the application");
    EXPECT_FALSE(line.Input().Go(-1)) << "what it wrote is not undone";
}

TEST(Input_Line, Takes_Whole_Characters_Only) {
    struct Row {
        unsigned page;
        unsigned long flag;
        const char* typed;
        const char* line;
    };
    const Row rows[] = {
        {65001, 0, "\x80\xF1z\xE6\x97z\xC0\xAF\xED\xA0\x80\xF0\x9F\x98", "zz"},
        {65001, 0, "\xE6\xE6\x97\xA5\xC3\xC3\xA9", "\xE6\x97\xA5\xC3\xA9"},
        {932, TEXT_HEXADECIMAL,
         "\x83\x41"
         "A\x83\x42"
         "B",
         "AB"},
        {932, 0, "\x81z\x83\x41", "\x81z\x83\x41"},
        {936, 0, "\xD6\xF1\xF1\xF2", "\xD6\xF1\xF1\xF2"},
        {1252, 0, "\x81\xE6\xF1", "\x81\xE6\xF1"},
    };
    for (const Row& row : rows) {
        Edited line(row.page, row.flag);
        line.Type(row.typed);
        EXPECT_STREQ(line.Line, row.line) << row.page;
    }
    Edited line(65001);
    line.Put(std::string(253, 'm'));
    line.Type(
        "\xC3\xA9"
        "m");
    EXPECT_EQ(line.Input().Text(), std::string(254, 'm')) << "there is no room for half of it";
    line.Put("\xE6\x97\xA5");
    line.Cursor_Pos = 2;
    line.Type("a");
    EXPECT_STREQ(line.Line, "a\xE6\x97\xA5") << "the application has put the cursor inside";
    EXPECT_EQ(Whole_Characters("ab\xE6\x97\xA5", 4), "ab");
    EXPECT_EQ(Whole_Characters("abe\xCC\x81", 4), "ab") << "a mark stays with its letter";
    line.Put("\xE6\x97\xA5");
    line.Input().Remember();
    line.Put("");
    line.Press({Up});
    EXPECT_STREQ(line.Line, "\xE6\x97\xA5");
}
