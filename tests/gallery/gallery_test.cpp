// The pictures that the gallery writes.
#include <gtest/gtest.h>

#include <filesystem>

#include "tests/support/png.h"
#include "tests/support/program.h"

namespace galdren_test {
namespace {

/// Expects that the gallery, told by `option`, writes just the pictures that are in `folder` of the manual
/// and whose names begin so. What it wrote stays there to be looked at.
void Expect_As_In_Manual(const std::string& option, const char* folder, const std::string& prefix) {
    namespace fs = std::filesystem;
    const fs::path target = fs::temp_directory_path() / ("galdren" + option);
    fs::remove_all(target);
    Program program("gallery.exe " + option + " \"" + target.string() + '"');
    EXPECT_EQ(program.Exit_Code(), 0u);
    int written = 0, wanted = 0;
    for (const fs::path& picture : fs::directory_iterator(target)) {
        ++written;
        EXPECT_TRUE(Is_Recorded(Read_Png(picture.string()).value(), folder, picture.stem().string()));
    }
    for (const fs::path& picture : fs::directory_iterator(folder))
        wanted += picture.extension() == ".png" && picture.stem().string().starts_with(prefix);
    EXPECT_GT(written, 10);
    EXPECT_EQ(written, wanted);
}

TEST(Gallery_Test, Looks_As_In_The_Manual) { Expect_As_In_Manual("--png", MANUAL_PICTURES, "gallery-"); }

TEST(Gallery_Test, Shows_Flags_As_In_The_Manual) {
    Expect_As_In_Manual("--flags", MANUAL_PICTURES "/flags", "");
}

}  // namespace
}  // namespace galdren_test
