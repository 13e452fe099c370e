// The pictures that the gallery writes.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>

#include "tests/support/program.h"

namespace galdren_test {
namespace {

std::string Bytes_Of(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

/// Expects that the gallery, told by `option`, writes just the pictures that are in `folder` of the manual
/// and whose names begin so. Those that differ stay.
void Expect_As_In_Manual(const std::string& option, const char* folder, const std::string& prefix) {
    namespace fs = std::filesystem;
    const fs::path target = fs::temp_directory_path() / ("galdren" + option);
    fs::remove_all(target);
    Program program("gallery.exe " + option + " \"" + target.string() + '"');
    EXPECT_EQ(program.Exit_Code(), 0u);
    int count = 0;
    for (const auto& picture : fs::directory_iterator(folder)) {
        const fs::path name = picture.path().filename();
        if (!name.string().starts_with(prefix) || name.extension() != ".png") continue;
        ++count;
        const bool same = Bytes_Of(target / name) == Bytes_Of(picture.path());
        EXPECT_TRUE(same) << picture.path() << " is not what is written now: " << target / name;
        if (same) fs::remove(target / name);
    }
    EXPECT_GT(count, 10);
    std::error_code others;
    EXPECT_TRUE(fs::remove(target, others)) << "there are others in " << target;
}

TEST(Gallery_Test, Looks_As_In_The_Manual) { Expect_As_In_Manual("--png", MANUAL_PICTURES, "gallery-"); }

TEST(Gallery_Test, Shows_Flags_As_In_The_Manual) {
    Expect_As_In_Manual("--flags", MANUAL_PICTURES "/flags", "");
}

}  // namespace
}  // namespace galdren_test
