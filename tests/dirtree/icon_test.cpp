#include "dirtree/icon.h"
#include "Galdren_Tools.h"

#include <fstream>
#include <string>
#include <vector>

#include "Galdren_Util.h"
#include "tests/support/controls.h"
#include "tests/support/spy.h"
#include "tests/support/window.h"

using namespace galdren_test;
using galdren::Icon_Entry;

namespace {

const std::string Icons = std::string(Inst_Path) + "Icons\\";

/// A file below the folder of the icons, which goes with the test.
class Icon_File {
  public:
    Icon_File(const char* its_name, const std::string& bytes) : name(Folder + std::string("\\") + its_name) {
        CreateDirectoryA((Icons + Folder).c_str(), nullptr);
        std::ofstream(Icons + name, std::ios::binary) << bytes;
    }
    ~Icon_File() {
        EXPECT_TRUE(DeleteFileA((Icons + name).c_str())) << name << " was left open";
        RemoveDirectoryA((Icons + Folder).c_str());
    }
    const std::string name;

  private:
    static constexpr const char* Folder = "icon_test";
};

/// A Targa file, with a type, a place and a colour map in its header that do not count.
std::string Targa(int width, int height, int depth, const std::string& pixels) {
    std::string bytes("\x09\x01\x0A\0\0\0\x01\x18\0\0\0\0", 12);
    for (const int byte : {width, width >> 8, height, height >> 8, depth, 0x20})
        bytes += static_cast<char>(byte);
    return bytes + pixels;
}

/// An SGI file, not packed. Its planes are red, green, blue and the clearness, its rows bottom-up.
std::string Sgi(char width, char height, char channels, const std::string& planes) {
    std::string bytes{1, '\xDA', 0, 1, 0, 3, 0, width, 0, height, 0, channels};
    bytes.resize(512, '\0');
    return bytes + planes;
}

const Icon_Entry* Read(const std::string& name) {
    return static_cast<const Icon_Entry*>(Icon_Read(nullptr, name.c_str()));
}

void Expect_Pixels(const Icon_Entry* icon, int width, int height, const std::vector<unsigned long>& pixels) {
    ASSERT_TRUE(icon && icon->width == width && icon->height == height);
    for (std::size_t i = 0; i < pixels.size(); ++i) {
        const unsigned long pixel = pixels[i];
        EXPECT_EQ(icon->pixels[i], pixel) << i;
        EXPECT_EQ(icon->swapped[i], (pixel & 0xFF00FF00) | (pixel >> 16 & 0xFF) | (pixel & 0xFF) << 16) << i;
    }
}

/// A part of a window for icons.
struct Ground : Boxs {
    Ground(HWND window, Colors color) {
        X = 10, Y = 10, Width = 60, Height = 40, Flag = FLAG_NO_BODY | FLAG_STATIC;
        Init(window);
        Color = color;
    }
};

}  // namespace

TEST(Icons, Report_What_They_Cannot_Read) {
    const Icon_File rgb("rgb.rgb", Sgi(1, 1, 3, "abc")), deep("deep.tga", Targa(1, 1, 32, "abcd"));
    const std::string missing = "|2: No such file or directory", opening = "|2:WARNING: Unable to open ";
    const std::string rgb_head = "11:Icon_Read_RGB() File:.\\icon.cpp Line:";
    const std::string tga_head = "11:Icon_Read_TGA() File:.\\icon.cpp Line:";
    const struct {
        std::string name, reports;
    } table[] = {
        {"first.rgb", rgb_head + "604 " + opening + Icons + "first.rgb" + missing},
        {"second.rgb", ""},  // the SGI reader tells of one file only
        {"", ""},
        {std::string(300, 'n'), ""},
        {rgb.name, rgb_head + "613|11:" + Icons + rgb.name + " should be RGBA"},
        {deep.name, tga_head + "721|11:" + Icons + deep.name + " should be RGB"},
        {"none.tga", tga_head + "703 " + opening + Icons + "none.tga" + missing},
        {"..\\..\\none.tga.rgb", tga_head + "703 " + opening + Icons + "..\\..\\none.tga.rgb" + missing},
    };
    Report_Catcher reports;
    for (const auto& [name, wanted] : table) {
        EXPECT_EQ(Read(name), nullptr);
        const bool sgi = name.find(".tga") == std::string::npos;
        const std::string trace = sgi ? "15:Icon_Read_RGB(" + Icons + name + ")" : "";
        EXPECT_EQ(reports.Take(), trace + (sgi && !wanted.empty() ? "|" : "") + wanted);
        EXPECT_EQ(Read(name), nullptr);
        EXPECT_EQ(reports.Take(), "") << name << " is not tried again";
    }
    EXPECT_EQ(Read(std::string(5000, 'n') + ".tga"), nullptr);
    EXPECT_EQ(Icon_Read(nullptr, nullptr), nullptr);
}

TEST(Icons, Read_Both_Kinds_Once) {
    Report_Catcher reports;
    const Icon_File sgi("two.rgb", Sgi(2, 2, 4, "\x01\x02\x03\x04\x11\x12\x13\x14!\"#$\x31\xFF\x33\x34"));
    Expect_Pixels(Read(sgi.name), 2, 2, {0xCC031323, 0xCB041424, 0xCE011121, 0x00021222});
    Inst_Path = "Z:\\elsewhere\\";  // too late
    const Icon_File tga("three.tga",
                        Targa(3, 2, 24, {20, 0, 10, -1, 0, 0, 100, 0, 0, 0, 0, 10, 1, 2, 3, 0, 5, 0}));
    Expect_Pixels(Read(tga.name), 3, 2, {0xFF0A0000, 0xFF030201, 0xFF000500, 0xFF0A0014, 0, 0x9B000000});
    EXPECT_EQ(Read(sgi.name), Read(sgi.name));
    EXPECT_EQ(reports.Take(), "15:Icon_Read_RGB(" + Icons + sgi.name + ")");
}

TEST(Icons, Refuse_Every_File_That_Is_Cut) {
    Report_Catcher reports;
    const std::pair<const char*, std::string> table[] = {{"cut.tga", Targa(2, 2, 24, std::string(12, 'x'))},
                                                         {"huge.tga", Targa(0xFFFF, 0xFFFF, 24, "")},
                                                         {"cut.rgb", Sgi(2, 2, 4, std::string(16, 'x'))}};
    for (const auto& [name, whole] : table) {
        for (std::size_t length = 0; length <= whole.size(); ++length) {
            Icon_Cleanup();
            const Icon_File file(name, whole.substr(0, length));
            EXPECT_EQ(Read(file.name) != nullptr, length == whole.size() && whole.back() == 'x') << length;
        }
    }
}

TEST(Icons, Keep_255_Names) {
    Report_Catcher reports;
    Icon_Cleanup();
    const Icon_File first("first.tga", Targa(1, 1, 24, "abc")), last("last.tga", Targa(1, 1, 24, "abc"));
    const Icon_Entry* icon = Read(first.name);
    for (int i = 1; i < 255; ++i)
        EXPECT_FALSE(Read("none" + std::to_string(i)));
    reports.Take();
    EXPECT_EQ(Read(last.name), nullptr);
    EXPECT_EQ(Read(first.name), icon);
    EXPECT_EQ(reports.Take(), "");
    Tools_Lib_Cleanup();
    EXPECT_TRUE(Read(last.name));
}

TEST(Icons, Are_Painted_Where_They_Touch_The_Box) {
    Test_Window window(100, 60);
    Ground box(window, Colors(1, 1, 1));
    const Icon_File file("spot.tga", Targa(3, 2, 24, std::string(18, 'x')));
    const char* name = file.name.c_str();
    const int table[][3] = {{20, 20, 1}, {7, 20, 1}, {6, 20, 0},  {70, 20, 1}, {71, 20, 0},
                            {20, 8, 1},  {20, 7, 0}, {20, 50, 1}, {20, 51, 0}};
    for (const auto& [x, y, shows] : table) {
        const auto left = static_cast<short>(x), bottom = static_cast<short>(y);
        const Area place{x, x + 2, y, y + 1};
        const auto image = [&] { Icon_Draw_Image(&box, left, bottom, "", name); };
        EXPECT_EQ(window.Changed(image), shows ? place : Nothing);
        const auto border = [&] {
            Begin_Draw(window, nullptr);
            Icon_Draw_Border(&box, left, bottom, "", name);
            End_Draw();
        };
        EXPECT_EQ(window.Changed(border), shows ? (Area{x - 1, x + 3, y - 1, y + 2}) : Nothing);
    }
    Icon_Draw_Image(nullptr, 0, 0, "", name);
    Icon_Draw_Image(&box, 32767, -32768, nullptr, nullptr);
    Ground black(window, Colors(0, 0, 0));
    const Icon_File clear("clear.rgb", Sgi(1, 1, 4, "\x09\x09\x09\xFF"));
    const auto draw = [&] { Icon_Draw_Image(&black, 20, 30, nullptr, clear.name.c_str()); };
    EXPECT_EQ(window.After(draw).At(20, 30), 0x090909U) << "as it is, whatever its weight";
}

TEST(Icons, Are_Read_Outside_The_Lock_And_Leave_The_Box_As_Clip) {
    static bool drawing;
    Test_Window window(100, 60);
    Ground box(window, Colors(1, 1, 1));
    const Icon_File file("late.rgb", Sgi(1, 1, 4, "abcd"));
    const auto fill = [] { Draw_Box(0, 59, 100, -1); };
    Report_Catcher reports;
    Error_Set_Handler([](HWND, int, const char*) { drawing = Z_Window != nullptr; });
    for (const bool batch : {false, true}) {
        Icon_Cleanup();
        const Picture shown = window.After([&] {
            if (batch) Begin_Batch(window);
            Begin_Draw(window, nullptr);
            EXPECT_TRUE(Icon_Read(&box, file.name.c_str()));
            EXPECT_EQ(drawing, batch) << "only a sole holder can give the surface back";
            Current_Color = 0x111111, fill();
            End_Draw();
            if (batch) Begin_Draw(window, nullptr), fill(), End_Draw(), End_Batch();
        });
        // Nothing limits what is painted after the pair, which only a batch can show.
        EXPECT_EQ(shown.Painted(), batch ? (Area{0, 99, 0, 59}) : (Area{10, 69, 11, 50}));
    }
}

TEST(Icons, Go_Without_Memory) {
    const Icon_File sgi("lack.rgb", Sgi(1, 1, 4, "abcd"));
    const Icon_File tga("lack.tga", Targa(40, 30, 24, std::string(3600, 'x')));
    Test_Window window(100, 60);
    Ground box(window, Colors(1, 1, 1));
    const auto draw = [&] { Icon_Draw_Image(&box, 20, 20, "", tga.name.c_str()); };
    Report_Catcher reports;
    Call_Spy spy;
    for (const auto& [name, allocations] : {std::pair(sgi.name, 3), std::pair(tga.name, 5)}) {
        for (int passed = 0; passed < allocations; ++passed) {
            Icon_Cleanup();
            spy.Fail_Allocation(passed);
            EXPECT_EQ(Read(name), nullptr) << name << ' ' << passed;
        }
        Icon_Cleanup();
        EXPECT_TRUE(Read(name));
    }
    spy.Fail_Allocation();
    EXPECT_EQ(window.Changed(draw), Nothing);
    EXPECT_TRUE(reports.Take().ends_with("|11:draw_image() failed in new"));
    EXPECT_EQ(window.Changed(draw), (Area{20, 59, 20, 49}));
}

TEST(Icons_Of_Bodies, Leave_A_Control_As_It_Is_Or_To_The_Application) {
    Test_Window window(200, 150);
    const Icon_File file("small.rgb", Sgi(1, 1, 4, "abcd"));
    const std::string path = Icons + file.name;
    Report_Catcher reports;
    Boxs box;
    Place(box, nullptr, 10, 10, 41, 31);
    ASSERT_EQ(box.Icon(path.c_str()), 1);
    box.Init(window);
    const unsigned long* const image = box.Graph_Normal;
    Boxs copy(box);
    EXPECT_EQ(copy.Graph_Normal, image);
    ++copy.Width, copy.Init(nullptr);
    EXPECT_NE(copy.Graph_Normal, image) << "of another size";
    EXPECT_EQ(box.Icon("none.rgb"), 0);
    EXPECT_EQ(box.Icon(nullptr), 0);
    EXPECT_EQ(
        reports.Take(),
        "11:Tools::Icon(none.rgb): No such file or directory\n   name: (null)|11:Tools::Icon((null)): no "
        "file\n   name: (null)");
    Call_Spy spy;
    spy.Fail_Allocation();
    EXPECT_EQ(box.Icon(path.c_str()), 0);
    reports.Take();
    box.Init(nullptr);
    EXPECT_EQ(box.Graph_Normal, image);
    // Without memory for the images the box has its shading.
    box.Width = 50;
    spy.Fail_Allocation();
    box.Init(nullptr);
    EXPECT_EQ(reports.Take(), "1:Tools::Icon: no memory for an image\n   name: (null)");
    EXPECT_TRUE(!box.Graph_Normal && box.Cur_Graph_Normal);

    ASSERT_TRUE(box.Alloc_Graph_Normal(0x123456));
    const unsigned long* const own = box.Graph_Normal;
    for (const int width : {50, 60}) {
        box.Width = static_cast<short>(width), box.Height = static_cast<short>(width == 60 ? 20 : 31);
        box.Init(nullptr);
        EXPECT_EQ(box.Graph_Normal, own) << "the application's image stays";
    }
}
