#include <gtest/gtest.h>

#include <string>

#include "Galdren_Util.h"

namespace {

std::wstring Sample_Place() {
    wchar_t temporary[MAX_PATH] = L"";
    GetTempPathW(MAX_PATH, temporary);
    return L"\\\\?\\" + (temporary + (L"galdren_scan_" + std::to_wstring(GetCurrentProcessId())));
}

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
    const std::wstring place = Sample_Place();
    const std::wstring longest(240, L'n');
    const std::wstring made[] = {L"",
                                 L"\\plain",
                                 L"\\.dotted",
                                 L"\\tree",
                                 L"\\tree\\.dot",
                                 L"\\tree\\in",
                                 L"\\hollow",
                                 L"\\hollow\\.dot",
                                 L"\\\x00C4 \x20AC & %s",
                                 L"\\\x65E5\x672C",
                                 L"\\" + longest,
                                 L"\\" + longest + L"\\" + longest};
    for (const std::wstring& name : made)
        EXPECT_TRUE(CreateDirectoryW((place + name).c_str(), nullptr)) << GetLastError();
    CloseHandle(CreateFileW((place + L"\\file").c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW, 0, nullptr));
    std::string path(place.begin() + 4, place.end());
    Scan_Entry* listing = Scan_Dir(path.c_str());
    ASSERT_NE(listing, nullptr);
    const std::string long_name(longest.begin(), longest.end());
    const std::pair<std::string, const char*> table[] = {
        {"plain", "00"}, {".dotted", "00"}, {"tree", "01"},   {"hollow", "00"}, {"\xC4 \x80 & %s", "00"},
        {"??", "10"},    {long_name, "01"}, {"file", "none"}, {".", "none"},    {"..", "none"}};
    for (const auto& [name, answers] : table)
        EXPECT_EQ(Answers(listing, name), answers) << name;
    Scan_Free(listing);
    EXPECT_EQ(Is_Tree((path + "\\tree\\").c_str()), 1);
    EXPECT_EQ(Is_Tree((path + "\\hollow").c_str()), 0);
    const std::string deep = path + '\\' + long_name + '\\' + long_name;
    for (const std::string& empty : {deep, deep + '\\', path + "/tree/in"}) {
        listing = Scan_Dir(empty.c_str());
        ASSERT_NE(listing, nullptr) << empty;
        EXPECT_EQ(listing->name, nullptr);
        Scan_Free(listing);
    }
    for (const std::string& bad : {path + "\\gone", path + "\\file", path + "\\*", path + "\\t?ee",
                                   std::string(), std::string(40000, 'x'), std::string("q:\\")})
        EXPECT_EQ(Scan_Dir(bad.c_str()), nullptr) << bad.substr(0, 99);
    EXPECT_EQ(Scan_Dir(nullptr), nullptr);
    Scan_Free(nullptr);
    DeleteFileW((place + L"\\file").c_str());
    for (auto name = std::rbegin(made); name != std::rend(made); ++name)
        RemoveDirectoryW((place + *name).c_str());
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
}
