// Fonts, texts made ready for the system, and the version of the library.
#include <sstream>
#include <string>

#include "Galdren_Tools.h"
#include "tests/support/code_page.h"
#include "tests/support/window.h"

using namespace galdren_test;

TEST(Library, Tells_Its_Version) {
    EXPECT_STREQ(Get_Version_Tools(nullptr), "Galdren_Tools.dll 21.6 (rev-a)");
    EXPECT_STREQ(Get_Version_Tools("21.6"), "Galdren_Tools.dll 21.6 (rev-a)");
    for (const char* other : {"21.60", "21.5", "", " 21.6"})
        EXPECT_EQ(Get_Version_Tools(other), nullptr);
}

TEST(Fonts, Are_Made_From_Words_And_Points) {
    const struct {
        const char *face, *weight, *style;
        short points;
        unsigned page;
        std::string made;  // face, height, weight, whether italic, character set
    } table[] = {{nullptr, "bold", nullptr, 0, 0, "Arial -16 700 0 0"},
                 {"Arial", "Bold", "i", 10, 1251, "Arial -13 0 1 204"},
                 {"No Such Face", "medium", "o", -3, 932, "No Such Face -16 0 1 128"},
                 {nullptr, nullptr, nullptr, 7, CP_UTF8, "Arial -9 0 0 1"},
                 {"A name of more than the 31 bytes of a face", "", "I", 72, 874,
                  "A name of more than the 31 byte -96 0 0 222"}};
    Test_Window window(10, 10);
    for (const auto& row : table) {
        const Other_Page page(row.page);
        HFONT font = Z_Create_Font(window, row.face, row.weight, row.style, row.points);
        LOGFONTA made{};
        ASSERT_NE(GetObjectA(font, sizeof made, &made), 0);
        std::ostringstream told;
        told << made.lfFaceName << ' ' << made.lfHeight << ' ' << made.lfWeight << ' ' << (made.lfItalic != 0)
             << ' ' << int{made.lfCharSet};
        EXPECT_EQ(told.str(), row.made);
        EXPECT_EQ(made.lfWidth | made.lfUnderline | made.lfQuality, 0);
        Z_Delete_Font(window, font);
    }
    EXPECT_EQ(Z_Create_Font(window, nullptr, nullptr, nullptr, 0), nullptr);
    const auto stock = static_cast<HFONT>(GetStockObject(SYSTEM_FONT));
    Z_Delete_Font(window, nullptr), Z_Delete_Font(window, stock);
}

TEST(Fonts, Have_Their_Ampersands_Escaped) {
    const std::string longest(128, '&'), too_long(129, '&');
    EXPECT_STREQ(Escape_Ampersand("a&b&&"), "a&&b&&&&");
    EXPECT_EQ(Escape_Ampersand(longest.c_str()), longest + longest);
    for (const char* same : {"", "plain", too_long.c_str()})
        EXPECT_EQ(Escape_Ampersand(same), same);
}
