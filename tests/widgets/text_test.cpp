#include <cstring>
#include <functional>
#include <random>
#include <string>

#include "Galdren_Tools.h"
#include "tests/support/clipboard.h"
#include "tests/support/window.h"

using namespace galdren_test;

namespace {

constexpr int Left_Key = 2085, Home = 2084, Up = 2086, Down = 2088;
constexpr int Delete_Key = 2094, Backspace = 8, Enter = 13, Escape_Key = 27, Paste = 598, Point_Key = 4206;

/// A field that reads, and a window for it.
struct Field : Texts {
    explicit Field(unsigned long flag = 0, int width = 200, int height = 120) : window(320, 240) {
        X = 30, Y = 40, Width = static_cast<short>(width), Height = static_cast<short>(height);
        Flag = flag, Font_Name = "Arial", Font_Size = 10, Color = Colors(190, 196, 204);
        Init(window);
        Read(nullptr);
    }
    void Type(const std::string& text) {
        for (const char c : text)
            Input(static_cast<unsigned char>(c));
    }
    int Stored() const {
        int count = 0;
        while (Lines && count < Most_Lines && Lines[count])
            ++count;
        return count;
    }
    std::string Newest() const { return Lines && Lines[0] ? Lines[0] : "none"; }
    Test_Window window;
};

}  // namespace

TEST(Texts, Edit_The_Input_Line) {
    const struct {
        unsigned long flag;
        const char* before;
        std::vector<int> keys;
        const char* after;
        int cursor;
    } rows[] = {
        {0, "abc", {4199, 4142, 4193, 4196, 4196, 4196, 4196, '1'}, "1bc", 1},
        {0, "", {Backspace, Delete_Key, Left_Key, Up, Down}, "", 0},
        {0, "a", {0, 31, 256 | 'b', 512 | 'c', 0x2000 | 97, 0xE4}, "a\xE4", 2},
        {TEXT_INTEGER, "0", {'7', 'x', '.', '-'}, "7-", 2},
        {TEXT_INTEGER, "", {'-', '5', Home, '1'}, "15", 1},
        {TEXT_FLOAT, "", {'1', Point_Key, '5', 'e', '-', '3', 'E', ','}, "1.5e-3", 6},
        {TEXT_HEXADECIMAL, "", {'f', 'G', 'A', '-', '9'}, "fA9", 3},
        {TEXT_PASSWORD, "", {'a', Left_Key, 'b'}, "ba", 1},
        {FLAG_PASSIVE, "fixed", {'a', Backspace}, "fixed", 5},
    };
    for (const auto& row : rows) {
        Field field(row.flag);
        field.Read("%s", row.before);
        for (const int key : row.keys)
            field.Input(key);
        EXPECT_STREQ(field.Line, row.after);
        EXPECT_EQ(field.Cursor_Pos, row.cursor) << row.after;
        EXPECT_EQ(field.Update(), nullptr);
    }
    Field full;
    full.Type(std::string(300, 'm') + "\033ignored");
    EXPECT_EQ(full.Mode, 0);
    EXPECT_EQ(full.Line, std::string(254, 'm'));
}

TEST(Texts, Report_Lines_And_Changes) {
    Field field(TEXT_REPORT_CHANGES);
    field.Type("ab");
    EXPECT_EQ(field.Mode, TEXT_READING | TEXT_CHANGED);
    ASSERT_EQ(field.Update(), field.Line);
    field.Input(Left_Key);
    EXPECT_EQ(field.Update(), nullptr);
    field.Read("%s", field.Line);
    EXPECT_EQ(field.Cursor_Pos, 1) << "reading goes on where it was";
    field.Input(Enter);
    EXPECT_EQ(field.Mode, TEXT_READING | TEXT_ENTERED);
    EXPECT_STREQ(field.Update(), "ab");
    EXPECT_EQ(field.Mode, 0);
    EXPECT_EQ(field.Newest(), "ab");
    Field entry(TEXT_SINGLE_LINE);
    entry.Type("x"), entry.Input(4109);
    EXPECT_STREQ(entry.Update(), "x");
    EXPECT_EQ(entry.Stored(), 0);
}

TEST(Texts, Recall_The_Last_Fifty_Lines) {
    Field field;
    for (int i = 0; i < 60; ++i) {
        field.Read("%d\t\xE4", i);
        field.Input(Enter), field.Update();
    }
    field.Read("typed");
    // What cannot be shown is a blank.
    constexpr std::pair<int, const char*> steps[] = {
        {Up, "59 \xE4"}, {Up, "58 \xE4"}, {Down, "58 \xE4"}, {Down, "59 \xE4"}, {Down, ""}};
    for (const auto& [key, line] : steps) {
        field.Input(key);
        EXPECT_STREQ(field.Line, line);
    }
    for (int i = 0; i < 70; ++i)
        field.Input(4200);
    EXPECT_STREQ(field.Line, "10 \xE4");
    EXPECT_EQ(field.History_Pos, Texts::Most_History);
}

TEST(Texts, Keep_The_Newest_Lines) {
    Field field(TEXT_V_BAR | TEXT_H_BAR);
    field.Write("a\nb");
    field.OverWrite("c\n");
    EXPECT_EQ(field.Newest(), "");
    EXPECT_STREQ(field.Lines[1], "c");
    EXPECT_STREQ(field.Lines[2], "a");
    field.Write("%s", std::string(1'000'000, 'w').c_str());
    EXPECT_EQ(field.Newest(), std::string(255, 'w'));
    for (int byte = 1; byte < 256; ++byte)
        field.Write("%c%s", byte, "\004text\tbehind\361bold");
    field.Write("%s", std::string(255, '\n').c_str());
    for (int i = 0; i < Texts::Most_Lines; ++i)
        field.Write("line %d", i);
    EXPECT_EQ(field.Stored(), Texts::Most_Lines);
    field.V_Slider.Val = 60;
    field.Input(Enter);
    EXPECT_EQ(field.V_Slider.Val, 0) << "what is entered is in view";
    field.Cleanup();
    EXPECT_EQ(field.Stored(), 0);
    EXPECT_EQ(field.V_Slider.End_Val, 0);
    EXPECT_TRUE(field.V_Slider.Flag & FLAG_PASSIVE);
    field.Write(nullptr);
    EXPECT_EQ(field.Stored(), 0);
}

/// Lines that move by themselves must end up as a repaint of the whole field shows them.
TEST(Texts, Show_The_Same_Whether_Moved_Or_Painted_Anew) {
    for (const unsigned long flag :
         {0UL, TEXT_V_BAR, TEXT_V_BAR | TEXT_H_BAR, TEXT_H_BAR | TEXT_INPUT_ROOM, TEXT_SINGLE_LINE}) {
        Field field(flag);
        std::mt19937 random(7);
        const auto chance = [&](unsigned below) { return static_cast<int>(random() % below); };
        const std::function<void(int)> steps[] = {
            [&](int i) { field.OverWrite("over %d", i); },
            [&](int i) { field.Write("two\n\006ends %d", i); },
            [&](int) { field.Scroll(-1 - chance(4)); },
            [&](int) { field.Scroll(1); },
            [&](int i) { field.Input(i % 3 ? 'k' : Enter); },
            [&](int) { field.V_Slider.Val = static_cast<float>(chance(90)); },
            [&](int) { field.Color = Colors(chance(256), 190, 190), field.Draw(); },
            [&](int i) { field.Write("\xF1line\xF2 %d\xF0 %s", i, std::string(random() % 60, 'x').c_str()); },
        };
        for (int i = 0; i < 120; ++i) {
            if (i == 60) field.Input(Escape_Key);  // from then on the output is all there is
            steps[random() % std::size(steps)](i);
            // The first line that is appended to scrolled output leaves it scrolled and the bar at its start.
            field.Write("last %d", i);
            if (field.V_Slider.Val == 0) field.Write("and %d", i);
            const Picture moved(field.window);
            field.Draw();
            ASSERT_TRUE(Same(moved, Picture(field.window))) << "step " << i << " of flags " << flag;
        }
    }
}

/// A copy shares the lines, so what it does to them unseen has to show at the next paint of the source.
TEST(Texts, Show_What_A_Copy_Did_To_Their_Lines) {
    Field field;
    for (int i = 0; i < 9; ++i)
        field.Write("line %d", i);
    {
        Texts copy(field);
        copy.Flag |= FLAG_NO_BODY;
        copy.Write("unseen");
    }
    EXPECT_STREQ(field.Lines[0], "unseen");
    field.Write("seen");
    const Picture shown(field.window);
    field.Draw();
    EXPECT_TRUE(Same(shown, Picture(field.window)));
}

TEST(Texts, Go_On_With_A_Drag_After_A_Repaint) {
    Field field(TEXT_V_BAR | SLIDER_KEEP_GRAB);
    for (int i = 0; i < 60; ++i)
        field.Write("line %d", i);
    field.window.Point_At(field.V_Slider.X + 5, field.V_Slider.Y + field.V_Slider.Height / 2);
    field.Select(EVENT_PRESS | EVENT_LEFT);
    field.Draw();
    field.window.Point_At(5, 235);
    EXPECT_EQ(field.Select(EVENT_DRAG | EVENT_LEFT), 1) << "the bar has kept the pointer";
}

TEST(Texts, Paste_From_The_Clipboard) {
    const std::string full(254, 'm');
    const struct {
        std::string before, pasted, newest, line;
    } rows[] = {
        {"", "one\r\ntwo", "one", "onetwo"},  // the line that was entered stays in the input line
        {"", "a\tb\x80", "none", "ab\x80"},
        {"", std::string(1 << 20, 'p'), "none", std::string(254, 'p')},
        {full, "no\bxno\r\b\bzz\033a", full.substr(1) + 'x', full.substr(2) + "zz"},
    };
    for (const auto& [before, pasted, newest, line] : rows) {
        Field field;
        field.Read("%s", before.c_str());
        ASSERT_TRUE(Set_Clipboard(CF_TEXT, pasted));
        field.Input(Paste);
        EXPECT_EQ(field.Newest(), newest);
        EXPECT_EQ(field.Line, line);
    }
    ASSERT_TRUE(Set_Clipboard(CF_PRIVATEFIRST, "no text"));
    Field field;
    field.Read("kept");
    field.Input(Paste);
    EXPECT_STREQ(field.Line, "kept");
    EXPECT_EQ(field.Mode, TEXT_READING);
    EXPECT_TRUE(OpenClipboard(nullptr)) << "the field has closed it";
    CloseClipboard();
}
