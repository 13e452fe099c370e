#include "Galdren_Util.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <string>

#include "tests/support/code_page.h"
#include "tests/support/spy.h"

using galdren_test::Report_Catcher;

TEST(Error_Fct, Filters_Strips_And_Cuts) {
    Report_Catcher reports;
    Error_Set_Level(7);
    Error_Fct(nullptr, 7, "\xF1\x42kept\xF1\xF1 \x02once\x01 %d", 1);
    Error_Fct(nullptr, 8, "dropped");
    Error_Fct(nullptr, -1, nullptr);
    EXPECT_EQ(reports.Take(), "7:kept once 1");
    Error_Fct(nullptr, 7, "\xF1\x05%s:\x02 %s", "Espa\361a", "C:\\\001\002\\\361");
    EXPECT_EQ(reports.Take(), "7:Espa\361a: C:\\\001\002\\\361") << "names and paths stay as they are";
    {
        const galdren_test::Other_Page page(936);  // in which F1 and another byte are a letter
        Error_Fct(nullptr, 7, "\xF1\x05\xD6\xF1\xF1\xA1\x02.");
        EXPECT_EQ(reports.Take(), "7:\xD6\xF1\xF1\xA1.");
    }
    {
        const galdren_test::Other_Page page(CP_UTF8);
        Error_Fct(nullptr, 7, "%s", std::string(2046, 'x').append("\xC3\xB1").c_str());
        EXPECT_EQ(reports.Take(), "7:" + std::string(2046, 'x'));
    }
    EXPECT_EQ(Error_Set_Level(11), 7);
    Error_Fct(nullptr, 1, "its code is missing\xF1");
    EXPECT_EQ(reports.Take(), "1:its code is missing");
    Error_Fct(nullptr, 1, "%s", "");
    EXPECT_EQ(reports.Take(), "1:");
    const std::string longest(2047, 'x');
    for (const std::size_t length : {2047U, 2048U, 100000U}) {
        Error_Fct(nullptr, 1, "%s", std::string(length, 'x').c_str());
        EXPECT_EQ(reports.Take().substr(2), longest);
        const std::string format = "\xF1\x05%s" + std::string(length - 1, 'x') + "%5d";
        Error_Fct(nullptr, 1, format.c_str(), "x", 1);
        EXPECT_EQ(reports.Take().substr(2), longest);
    }
}

TEST(Error_Fct, Writes_What_Nobody_Takes_To_Standard_Error) {
    for (const char* end : {"", "\n"}) {
        EXPECT_EXIT((Error_Fct(nullptr, 1, "text%s", end), std::exit(0)), testing::ExitedWithCode(0),
                    "^util_test: text\n$");
    }
}

TEST(Program, Is_Known_By_Its_Name_And_Its_Library_By_Its_Place) {
    EXPECT_STREQ(Prog_Name, "util_test");
    char library[MAX_PATH], elsewhere[MAX_PATH];
    ASSERT_GT(GetModuleFileNameA(GetModuleHandleA("Galdren_Util.dll"), library, MAX_PATH), 0u);
    ASSERT_GT(GetTempPathA(MAX_PATH, elsewhere), 0u);
    const std::string copy = std::string(elsewhere) + "Copy_Of_Util.dll";
    ASSERT_TRUE(CopyFileA(library, copy.c_str(), FALSE));
    const HMODULE loaded = LoadLibraryA(copy.c_str());
    ASSERT_TRUE(loaded);
    EXPECT_STRCASEEQ(*reinterpret_cast<const char**>(GetProcAddress(loaded, "Inst_Path")), elsewhere);
    FreeLibrary(loaded);
    DeleteFileA(copy.c_str());
}

TEST(Color_Space, Knows_The_Corners) {
    constexpr float Third = 1.0F / 3.0F;
    const float table[][6] = {{0, 0, 0, 0, 0, 0},
                              {1, 1, 1, 0, 1, 0},
                              {1, 0, 0, 0, 0.5F, 1},
                              {0, 1, 0, Third, 0.5F, 1},
                              {0, 0, 1, 2 * Third, 0.5F, 1},
                              {1, 0, 1, 2.5F * Third, 0.5F, 1},
                              {0.5F, 0.25F, 0.25F, 0, 0.375F, Third}};
    for (const auto& row : table) {
        float hls[3];
        RGB_to_HLS(row[0], row[1], row[2], &hls[0], &hls[1], &hls[2]);
        for (int i = 0; i < 3; ++i)
            EXPECT_NEAR(hls[i], row[3 + i], 1e-6F) << &row - table << ", " << i;
    }
}
