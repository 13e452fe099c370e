#include <gtest/gtest.h>

#include <string>

#include "Galdren_Util.h"
#include "tests/support/code_page.h"
#include "tests/support/directories.h"
#include "util/wide.h"

namespace {

using galdren_test::Sample_Directories;

/// What a listing says of a directory: its two answers; "none" when it is not listed.
std::string Answers(const Scan_Entry* listing, const std::string& name) {
    for (; listing->name; ++listing) {
        if (name == listing->name)
            return std::to_string(listing->no_access != 0) + std::to_string(listing->is_tree != 0);
    }
    return "none";
}

}  // namespace

TEST(Directory, Is_Listed_With_What_Is_Below) {
    const std::string longest(240, 'n');
    Sample_Directories sample{"plain\\",    ".dotted\\", "tree\\",         "tree\\.dot\\",
                              "tree\\in\\", "hollow\\",  "hollow\\.dot\\", "\xC4 \x80 & %s\\"};
    sample.Add(longest + '\\'), sample.Add(longest + '\\' + longest + '\\');
    const std::string path = sample.Plain(), file = path + "file";
    CloseHandle(CreateFileA(file.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW, 0, nullptr));
    Scan_Entry* listing = Scan_Dir(path.c_str());
    ASSERT_NE(listing, nullptr);
    const std::pair<std::string, const char*> table[] = {
        {"plain", "00"}, {".dotted", "00"}, {"tree", "01"}, {"hollow", "00"}, {"\xC4 \x80 & %s", "00"},
        {longest, "01"}, {"file", "none"},  {".", "none"},  {"..", "none"}};
    for (const auto& [name, answers] : table)
        EXPECT_EQ(Answers(listing, name), answers) << name;
    Scan_Free(listing);
    EXPECT_EQ(Is_Tree((path + "tree\\").c_str()), 1);
    EXPECT_EQ(Is_Tree((path + "hollow").c_str()), 0);
    const std::string deep = path + longest + '\\' + longest;
    for (const std::string& empty : {deep, deep + '\\', path + "/tree/in"}) {
        listing = Scan_Dir(empty.c_str());
        ASSERT_NE(listing, nullptr) << empty;
        EXPECT_EQ(listing->name, nullptr);
        Scan_Free(listing);
    }
    for (const std::string& bad : {path + "gone", file, path + "*", path + "t?ee", std::string(),
                                   std::string(40000, 'x'), std::string("q:\\")})
        EXPECT_EQ(Scan_Dir(bad.c_str()), nullptr) << bad.substr(0, 99);
    EXPECT_EQ(Scan_Dir(nullptr), nullptr);
    Scan_Free(nullptr);
    DeleteFileA(file.c_str());
}

/// Every name is there, and a path leads to it; one that the code page lacks is told.
TEST(Directory, Of_All_Scripts_Is_Listed_In_UTF_8) {
    const galdren_test::Other_Page page(CP_UTF8);
    Sample_Directories sample;
    const std::string path = sample.Plain();
    const std::wstring half = galdren::To_Wide(path) + L"half \xD83D";  // no text stands for it
    const bool has_half = CreateDirectoryW(half.c_str(), nullptr) != 0;
    for (const std::string name : galdren_test::Scripts)
        sample.Add(name + '\\'), sample.Add(name + "\\in\\");
    Scan_Entry* listing = Scan_Dir(path.c_str());
    ASSERT_NE(listing, nullptr);
    for (const char* name : galdren_test::Scripts) {
        EXPECT_EQ(Answers(listing, name), "01") << name;
        EXPECT_EQ(Is_Tree((path + name).c_str()), 1) << name;
        char absolute[2 * MAX_PATH];
        strcpy(absolute, (path + ".\\" + name).c_str());
        EXPECT_EQ(Path_To_Abs(absolute, sizeof absolute), 1);
        EXPECT_EQ(absolute, path + name + "\\");
    }
    EXPECT_EQ(Answers(listing, "half \xEF\xBF\xBD"), has_half ? "10" : "none");
    Scan_Free(listing);
    RemoveDirectoryW(half.c_str());
    Set_Text_Code_Page(1252);
    listing = Scan_Dir(path.c_str());
    EXPECT_EQ(Answers(listing, "??"), "10");
    Scan_Free(listing);
    Set_Text_Code_Page(CP_UTF8);
}

TEST(Paths, Become_Absolute_And_Small) {
    char here[MAX_PATH];
    GetCurrentDirectoryA(MAX_PATH, here);
    const std::pair<std::string, std::string> table[] = {{"C:\\a", "C:\\a\\"},
                                                         {"c:/a//b/../c/", "c:\\a\\c\\"},
                                                         {"\\\\s\\share", "\\\\s\\share\\"},
                                                         {".", std::string(here) + "\\"}};
    for (const auto& [given, wanted] : table) {
        char path[MAX_PATH];
        strcpy(path, given.c_str());
        EXPECT_EQ(Path_To_Abs(path, sizeof path), 1);
        EXPECT_EQ(path, wanted);
        strcpy(path, given.c_str());
        EXPECT_EQ(Path_To_Abs(path, wanted.size()), 0);
        EXPECT_EQ(path, given);
    }
    char text[] = "C:\\A \xC4\xD6 z\xE9";
    EXPECT_STREQ(Str_To_Lower(text), "c:\\a \xE4\xF6 z\xE9");
    EXPECT_EQ(Str_To_Lower(nullptr), nullptr);
    const struct {
        unsigned page;
        std::string given, wanted;
    } letters[] = {
        {1251, "\xCC\xCE z", "\xEC\xEE z"},
        {932, "\x83\x41\x82\x60\x83", "\x83\x41\x82\x81\x83"},  // the A of the first letter is none
        {65001, "\xC3\x84\xD0\x9C \xE2\x84\xAA\xC3", "\xC3\xA4\xD0\xBC \xE2\x84\xAA\xC3"},
    };
    for (const auto& row : letters) {
        const galdren_test::Other_Page page(row.page);
        std::string changed = row.given;
        EXPECT_EQ(Str_To_Lower(changed.data()), row.wanted) << row.page;
    }
}
