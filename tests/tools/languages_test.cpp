#include <algorithm>
#include <iterator>
#include <optional>
#include <string>
#include <vector>

#include "Galdren_Tools.h"
#include "tests/support/fonts.h"
#include "tests/support/window.h"

using namespace galdren_test;

namespace {

struct Language {
    unsigned page;
    BYTE character_set;
    const char* face;
    std::string text;
    std::wstring wide;  ///< the same
};

const Language Languages[] = {
    {1252, ANSI_CHARSET, "Arial",
     "Espa\xF1"
     "a \x80",
     L"Espa\u00F1a \u20AC"},
    {1251, RUSSIAN_CHARSET, "Arial", "\xCC\xEE\xF1\xEA\xE2\xE0", L"\u041C\u043E\u0441\u043A\u0432\u0430"},
    {1253, GREEK_CHARSET, "Arial", "\xC1\xE8\xDE\xED\xE1", L"\u0391\u03B8\u03AE\u03BD\u03B1"},
    {1255, HEBREW_CHARSET, "DejaVu Sans", "\xF9\xC8\xD1\xEC 12", L"\u05E9\u05B8\u05C1\u05DC 12"},
    {932, SHIFTJIS_CHARSET, "Droid Sans Fallback", "\x83\x41\x95\x5C \xB1", L"\u30A2\u8868 \uFF71"},
    {936, GB2312_CHARSET, "Droid Sans Fallback", "\xD6\xF0 A\xB2\xE2", L"\u9010 A\u6D4B"},
    {949, HANGUL_CHARSET, "Arial", "\xC7\xD1\xB1\xDB", L"\uD55C\uAE00"},
    {950, CHINESEBIG5_CHARSET, "Droid Sans Fallback", "\xA4\xA4\xA4\xE5", L"\u4E2D\u6587"},
    {65001, DEFAULT_CHARSET, "Arial", "\xC3\xB1 \xCE\xA9 \xD0\x96", L"\u00F1 \u03A9 \u0416"},
    {65001, DEFAULT_CHARSET, "DejaVu Sans", "e\xCC\x81 & \xE2\x82\xAC", L"e\u0301 & \u20AC"},
    {65001, DEFAULT_CHARSET, "DejaVu Sans", "\xD8\xA8\xD9\x8E\xD9\x87 abc", L"\u0628\u064E\u0647 abc"},
    {874, THAI_CHARSET, "Garuda", "\xB7\xD5\xE8\xB9\xD5\xE8", L"\u0E17\u0E35\u0E48\u0E19\u0E35\u0E48"},
    {65001, DEFAULT_CHARSET, "Lohit Devanagari", "\u0939\u093F\u0928\u094D\u0926\u0940",
     L"\u0939\u093F\u0928\u094D\u0926\u0940"},
    {65001, DEFAULT_CHARSET, "Droid Sans Fallback", "\xE6\x97\xA5\xE6\x9C\xAC\xF0\xA0\x80\x8B",
     L"\u65E5\u672C\U0002000B"},
    {65001, DEFAULT_CHARSET, "Arial",
     "A\xE2\x82\xFF"
     "B",
     L"A\uFFFD\uFFFD\uFFFD"
     L"B"},
};

/// A text with a line for each letter and its marks, one of which joins the letters beside it.
std::wstring Stacked(const std::wstring& text) {
    std::wstring lines;
    for (const wchar_t unit : text) {
        const bool joins =
            std::wstring_view(L"\u0301\u05B8\u05C1\u064E\u0E35\u0E48\u093F\u094D\u0926\u0940\xDC0B")
                .find(unit) != std::wstring::npos;
        if (!joins && !lines.empty()) lines += L'\n';
        lines += unit;
    }
    return lines;
}

/// What is not loud of a picture, cut out.
Picture Ink(const Picture& picture) {
    const Area place = picture.Painted();
    std::vector<std::uint32_t> pixels;
    for (int y = place.top; y >= place.bottom; --y) {
        for (int x = place.left; x <= place.right; ++x)
            pixels.push_back(picture.At(x, y));
    }
    return {place.right - place.left + 1, place.top - place.bottom + 1, pixels};
}

class Languages_Shown : public testing::TestWithParam<Language> {
  protected:
    static void SetUpTestSuite() { fonts.emplace(); }
    static void TearDownTestSuite() { fonts.reset(); }
    void SetUp() override {
        ASSERT_TRUE(fonts->Are_Here());
        Set_Text_Code_Page(GetParam().page);
        label.X = 10, label.Y = 60, label.Width = 300, label.Height = 60, label.Flag = FLAG_TEXT_LEFT;
        label.Font_Name = GetParam().face, label.Font_Size = 15;
        label.Name = GetParam().text.c_str();
        label.Init(window);
    }
    void TearDown() override { Set_Text_Code_Page(0); }

    Picture Painted() {
        return Ink(window.After([&] { label.Draw(); }));
    }
    /// What the system makes of a text in UTF-16.
    template <class Paint>
    Picture Wanted(Paint paint) {
        return Ink(window.After([&] {
            const HDC dc = GetDC(window);
            SelectObject(dc, label.Font);
            SetTextColor(dc, 0xFFFFFF);
            SetBkMode(dc, TRANSPARENT);
            paint(dc);
            ReleaseDC(window, dc);
        }));
    }
    Picture Wanted(const std::wstring& text, UINT format = 0) {
        return Wanted([&](HDC dc) {
            RECT room{20, 0, 320, 400};
            DrawTextW(dc, text.c_str(), -1, &room, format | DT_NOPREFIX);
        });
    }

    static inline std::optional<Fonts_Of_Languages> fonts;
    Test_Window window{360, 400};
    Labels label;
};

}  // namespace

TEST_P(Languages_Shown, Captions_Are_What_The_System_Writes) {
    const Language& language = GetParam();
    LOGFONTW font{};
    GetObjectW(label.Font, sizeof font, &font);
    EXPECT_EQ(font.lfCharSet, language.page == GetACP() ? ANSI_CHARSET : language.character_set);
    EXPECT_TRUE(Same(Painted(), Wanted(language.wide)));
    Wanted([&](HDC dc) {
        WORD glyph = 0;
        GetGlyphIndicesW(dc, language.wide.c_str(), 1, &glyph, GGI_MARK_NONEXISTING_GLYPHS);
        EXPECT_NE(glyph, 0xFFFF) << "a box in place of a letter";
    });

    label.Name = language.text.c_str();
    label.Y = 0, label.Height = 400, label.Flag = FLAG_VERTICAL | FLAG_TEXT_TOP;
    EXPECT_TRUE(Same(Painted(), Wanted([&](HDC dc) {
                         RECT room{20, 10, 320, 390};
                         DrawTextW(dc, Stacked(language.wide).c_str(), -1, &room, DT_CENTER);
                     })));
    label.Y = 60, label.Height = 60, label.Flag = FLAG_TEXT_LEFT;

    const std::string tabbed = language.text + '\t' + language.text;
    label.Name = tabbed.c_str();
    EXPECT_TRUE(Same(Painted(), Wanted(language.wide + L'\t' + language.wide, DT_EXPANDTABS)));

    std::string many;
    std::wstring many_wide;
    for (int i = 0; i < 60; ++i)
        many += language.text, many_wide += language.wide;
    label.Name = many.c_str();
    EXPECT_TRUE(Same(Painted(), Wanted([&](HDC dc) {
                         RECT room{20, 10, 320, 300};
                         DrawTextW(dc, many_wide.c_str(), -1, &room, 0);
                     })));
}

TEST_P(Languages_Shown, Are_Measured_And_Written_With_Tabs) {
    const Language& language = GetParam();
    SIZE wanted{};
    int width = 0;
    const Picture picture = window.After([&] {
        Begin_Draw(window, nullptr);
        SetTextColor(Z_DC, 0xFFFFFF);
        SetBkMode(Z_DC, TRANSPARENT);
        width = Text_Width(label.Font, language.text.c_str());
        Text_Tabbed(label.Font, 10, 100, language.text.c_str());
        SelectObject(Z_DC, label.Font);
        GetTextExtentPoint32W(Z_DC, language.wide.c_str(), static_cast<int>(language.wide.size()), &wanted);
        End_Draw();
    });
    EXPECT_EQ(width, wanted.cx);
    EXPECT_TRUE(Same(Ink(picture), Wanted([&](HDC dc) {
                         TextOutW(dc, 10, 10, language.wide.c_str(), static_cast<int>(language.wide.size()));
                     })));
}

INSTANTIATE_TEST_SUITE_P(All, Languages_Shown, testing::ValuesIn(Languages));
