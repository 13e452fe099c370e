// The gallery driven by the real pointer: what it says, and what the screen shows.
#include <gtest/gtest.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "tests/gallery/gallery_process.h"

namespace galdren_test {
namespace {

testing::AssertionResult Shows(POINT screen, unsigned color) {
    unsigned shown = 0;
    if (Wait_Until([&] { return (shown = Screen_Color(screen)) == color; }))
        return testing::AssertionSuccess();
    char text[64];
    std::snprintf(text, sizeof text, "the screen shows %06X, not %06X", shown, color);
    return testing::AssertionFailure() << text;
}

TEST(Gallery_Test, Bars_Follow_Drag_And_Wheel) {
    Gallery gallery("sliders");
    const char keeper[] = "Drag keeps the grab";
    const POINT far_left = gallery.Place_Of(keeper, -20, 90), far_right = gallery.Place_Of(keeper, 400, -70);
    const POINT first_thumb = gallery.Place_Of(keeper, 10, 12);
    ASSERT_TRUE(gallery.Point_At("Reversed"));
    gallery.Move_To(gallery.Place_Of(keeper, 40, 12));
    ASSERT_TRUE(gallery.Says("over \"Drag keeps the grab\""));
    gallery.Press();
    EXPECT_TRUE(gallery.Says("press \"Drag keeps the grab\": Val 11.68"));
    gallery.Move_To(far_right);
    EXPECT_TRUE(gallery.Says("drag \"Drag keeps the grab\": Val 100"));
    gallery.Move_To(far_left);
    EXPECT_TRUE(gallery.Says("drag \"Drag keeps the grab\": Val 0"));
    EXPECT_TRUE(Shows(first_thumb, 0x6E6E6E));
    gallery.Release();
    ASSERT_TRUE(gallery.Point_At("Reversed"));
    gallery.Turn_Wheel(2);
    EXPECT_TRUE(gallery.Says("wheel \"Reversed\": Val 42"));
    gallery.Turn_Wheel(-1);
    EXPECT_TRUE(gallery.Says("wheel \"Reversed\": Val 41"));
    ASSERT_TRUE(gallery.Point_At("Plain"));
    gallery.Move_To(gallery.Place_Of("Plain", 5, 8));
    gallery.Click();
    EXPECT_TRUE(gallery.Says("press \"Plain\": Val 39"));
    EXPECT_EQ(gallery.Close(), 0u);
}

TEST(Gallery_Test, Pages_Keep_Their_State_And_Move_With_The_Window) {
    Gallery gallery("buttons");
    const POINT red = gallery.Lamp_Of("Red"), corner = gallery.Place_Of("Plain", 0, 0);
    const unsigned ground = Screen_Color(gallery.Place_Of("Plain", -10, 0));
    EXPECT_TRUE(gallery.Click("Lamp on", "press \"Lamp on\": Lamp 0"));
    EXPECT_TRUE(gallery.Click("Labels", "page labels"));
    EXPECT_TRUE(gallery.Click("Buttons", "page buttons"));
    EXPECT_TRUE(Shows(gallery.Lamp_Of("Lamp on"), 0xAAAAAA));
    gallery.Resize(900, 700);
    EXPECT_TRUE(Shows({red.x + 50, red.y}, 0xFF0000)) << "at the top, centred";
    EXPECT_TRUE(Shows(corner, ground)) << "nothing is left behind";
    EXPECT_EQ(gallery.Close(), 0u);
}

TEST(Gallery_Test, Command_Line) {
    struct Case {
        const char* arguments;
        DWORD code;
        const char* says;
    };
    const Case cases[] = {
        {"--help", 0, "usage: gallery"},
        {"--colour", 2, "unknown option --colour"},
        {"--page", 2, "--page needs a value"},
        {"--page cellar", 2, "no page is called cellar"},
    };
    for (const Case& test : cases) {
        SCOPED_TRACE(test.arguments);
        Program program(test.arguments);
        EXPECT_EQ(program.Exit_Code(), test.code);
        EXPECT_NE(program.Output().find(test.says), std::string::npos) << program.Output();
    }
}

#ifdef MANUAL_PICTURES

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
    Program program(option + " \"" + target.string() + '"');
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

#endif

}  // namespace
}  // namespace galdren_test
