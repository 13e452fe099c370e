#include "tools/code_page.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <vector>

#include "Galdren_Tools.h"
#include "Galdren_Util.h"

using namespace galdren;

namespace {

std::string Report;

class Code_Page : public testing::Test {
  protected:
    void SetUp() override {
        Report.clear();
        Error_Set_Handler([](HWND, int, const char* text) { Report = text; });
    }
    void TearDown() override {
        Set_Text_Code_Page(0);
        Error_Set_Handler(nullptr);
    }
};

/// The places at which characters end.
std::vector<int> Places(std::string_view text, int (*next)(std::string_view, int)) {
    std::vector<int> places;
    for (int at = 0; at < static_cast<int>(text.size());)
        places.push_back(at = next(text, at));
    return places;
}

int Next_Code(std::string_view text, int at) {
    return at + Character_Length(text.substr(static_cast<std::size_t>(at)));
}

}  // namespace

TEST_F(Code_Page, Only_One_That_Is_There_Is_Taken) {
    EXPECT_EQ(Text_Code_Page(), GetACP());
    Set_Text_Code_Page(932);
    for (const unsigned bad : {1U, 65000U, 54936U, 4000000000U}) {
        Report.clear();
        Set_Text_Code_Page(bad);
        EXPECT_EQ(Report, "Set_Text_Code_Page(" + std::to_string(bad) + "): there is no such code page");
        EXPECT_EQ(Text_Code_Page(), 932U);
    }
    Set_Text_Code_Page(0);
    EXPECT_EQ(Text_Code_Page(), GetACP());
}

TEST_F(Code_Page, Texts_Become_UTF_16_And_Come_Back) {
    const struct {
        unsigned page;
        std::string text;
        std::wstring wide;
        bool broken = false;  // bytes that stand for themselves
    } rows[] = {
        {1252, "\xE9\x80", L"\u00E9\u20AC"},
        {1251, "\xCC\xEE", L"\u041C\u043E"},
        {1253, "\xC1\xFE", L"\u0391\u03CE"},
        {1255, "\xF9\xD1", L"\u05E9\u05C1"},
        {874, "\xA1\xD4", L"\u0E01\u0E34"},
        {932, "a\x83\x41\xB1", L"a\u30A2\uFF71"},
        {936, "\xD6\xF0\x81\x5C", L"\u9010\u4E57"},
        {949, "\xC7\xD1", L"\uD55C"},
        {950, "\xA4\xA4", L"\u4E2D"},
        {65001, "a\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80", L"a\u00E9\u20AC\U0001F600"},
        {65001, "\x80 \xC3", L"\uFFFD \uFFFD", true},
        {65001, "\xE2\x82\xF0\x9F\x98", L"\uFFFD\uFFFD\uFFFD\uFFFD\uFFFD", true},
        {65001, "\xC0\x80\xED\xA0\x80", L"\uFFFD\uFFFD\uFFFD\uFFFD\uFFFD", true},
        {65001, "\xF4\x90\x80\x80\xFF", L"\uFFFD\uFFFD\uFFFD\uFFFD\uFFFD", true},
        {65001, "\xF0\x80\x80\x80\xE0\x80\x80", L"\uFFFD\uFFFD\uFFFD\uFFFD\uFFFD\uFFFD\uFFFD", true},
        {932, "\x83 \x83", L"\uFFFD \uFFFD", true},
    };
    for (const auto& row : rows) {
        Set_Text_Code_Page(row.page);
        EXPECT_EQ(To_Wide(row.text), row.wide) << row.text;
        if (row.broken) {
            EXPECT_EQ(Places(row.text, Next_Character).size(), row.text.size());
        } else {
            EXPECT_EQ(From_Wide(row.wide), row.text) << row.page;
        }
    }
    Set_Text_Code_Page(65001);
    EXPECT_EQ(From_Wide(L"a\xD83D") + From_Wide(L"\xDE00\xD83D"), "a\xEF\xBF\xBD\xEF\xBF\xBD\xEF\xBF\xBD");
    Set_Text_Code_Page(1252);
    EXPECT_EQ(From_Wide(L"\u65E5\U0001F600\xDE00"), "???");
    EXPECT_EQ(Character_Length(""), 0);
}

TEST_F(Code_Page, Nothing_Is_Written_Beyond_The_Room) {
    Set_Text_Code_Page(65001);
    wchar_t wide[3] = L"##";
    EXPECT_EQ(Text_To_Wide("a\xF0\x9F\x98\x80", 5, wide, 2), 1);
    EXPECT_EQ(wide[1], L'#');
    char text[3] = "##";
    EXPECT_EQ(Text_From_Wide(L"\u20AC", 1, text, 2), 0);
    EXPECT_EQ(text[0], '#');
}

TEST_F(Code_Page, Marks_Stay_With_Their_Letters) {
    Set_Text_Code_Page(65001);
    const std::string text =
        "e\xCC\x81\xCC\xA3"                                             // two accents
        "\xE0\xA4\x95\xE0\xA4\xBF"                                      // ki
        "\xF0\x9F\x91\xA9\xF0\x9F\x8F\xBD\xE2\x80\x8D\xF0\x9F\x94\xA7"  // a mechanic
        "\xE2\x9D\xA4\xEF\xB8\x8F"                                      // a red heart
        "\xF0\x9F\x87\xAB\xF0\x9F\x87\xB7\xF0\x9F\x87\xAB"              // a flag and half of one
        "a";
    EXPECT_EQ(Places(text, Next_Character), (std::vector{5, 11, 26, 32, 40, 44, 45}));
    EXPECT_EQ(Places(text, Next_Code).size(), 15U);
    EXPECT_EQ(Previous_Character(text, 26), 11);
    EXPECT_EQ(Previous_Character(text, 25), 11);
    EXPECT_EQ(Previous_Character(text, 0), 0);
    EXPECT_EQ(Previous_Character(text, 99), 44);
    EXPECT_EQ(Previous_Code(text, 5), 3);
    EXPECT_EQ(Next_Character(text, 3), 5);
    EXPECT_EQ(Next_Character(text, 99), 45);

    EXPECT_EQ(Places("\u0915\u094D\u0937\u093F\u0915", Next_Character), (std::vector{12, 15})) << "kshi";
    EXPECT_EQ(Places("\u0915\u094D\u200D\u0937", Next_Character), (std::vector{12}));
    EXPECT_EQ(Places("\u0915\u094D\u200C\u0937", Next_Character), (std::vector{9, 12}));
    EXPECT_EQ(Places("\u0915\u094D\u0905", Next_Character), (std::vector{6, 9})) << "a vowel stands alone";
    EXPECT_EQ(Places("\u0B95\u0BCD\u0B95", Next_Character), (std::vector{6, 9})) << "Tamil writes both";

    Set_Text_Code_Page(932);  // the second byte of each is a letter by itself
    EXPECT_EQ(Places("\x83\x41\x83\x41x", Next_Character), (std::vector{2, 4, 5}));
    EXPECT_EQ(Previous_Character("\x83\x41\x83\x41x", 4), 2);
}
