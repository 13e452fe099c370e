// Pictures as pixels, and the frame that shows them.
#include <cerrno>
#include <filesystem>
#include <fstream>
#include <string>
#include <utility>

#include "Galdren_Util.h"
#include "tests/support/hosted.h"

namespace galdren_test {
namespace {

constexpr unsigned long black = 0xFF000000, white = 0xFFFFFFFF, red = 0xFFFF0000, blue = 0xFF0000FF;

const Pixels chequered{2, 2, {black, white, white, black}};

/// Writes a Targa file of two pixels beside each other.
void Write_Targa(const std::filesystem::path& path, char kind, char bits, const std::string& pixels) {
    std::string bytes(18, '\0');
    bytes[2] = kind, bytes[12] = 2, bytes[14] = 1, bytes[16] = bits;
    std::ofstream(path, std::ios::binary) << bytes << pixels;
}

/// Writes an SGI file of two pixels beside each other, of these channels one after the other.
void Write_Sgi(const std::filesystem::path& path, const std::string& planes) {
    std::string bytes(512, '\0');
    bytes[0] = 1, bytes[1] = '\xDA', bytes[3] = 1, bytes[5] = 3;
    bytes[7] = 2, bytes[9] = 1, bytes[11] = static_cast<char>(planes.size() / 2);
    std::ofstream(path, std::ios::binary) << bytes << planes;
}

TEST(Pixels_Test, Reads_Files_Opaque_All_Over) {
    struct Case {
        const char* name;
        char kind, bits;
        std::string pixels;
        std::vector<unsigned long> data;
    };
    const Case cases[] = {{"three.tga", 2, 24, {1, 2, 3, 4, 5, 6}, {0xFF030201, 0xFF060504}},
                          {"CLEAR.TGA", 2, 32, {1, 2, 3, 0, 4, 5, 6, 9}, {0xFF030201, 0xFF060504}},
                          {"grey.tga", 3, 8, "\x07\xF0", {0xFF070707, 0xFFF0F0F0}},
                          {"grey.sgi", 0, 0, {7, 8, 1, 2}, {0xFF070707, 0xFF080808}}};
    for (const Case& test : cases) {
        SCOPED_TRACE(test.name);
        const auto path = std::filesystem::temp_directory_path() / test.name;
        if (test.kind) {
            Write_Targa(path, test.kind, test.bits, test.pixels);
        } else {
            Write_Sgi(path, test.pixels);
        }
        const Pixels picture = Read_Pixels(path.string().c_str());
        EXPECT_EQ(picture.width, 2);
        EXPECT_EQ(picture.height, 1);
        EXPECT_EQ(picture.data, test.data);
        std::filesystem::remove(path);
    }
    errno = 0;
    EXPECT_TRUE(Read_Pixels("c:\\no such file.rgb").Is_Empty());
    EXPECT_EQ(errno, ENOENT);
    EXPECT_TRUE(Read_Pixels(nullptr).Is_Empty());
}

TEST(Pixels_Test, Keeps_Proportions) {
    const auto fitted = [](int width, int height, SIZE room) {
        const SIZE size = Fit_Pixels(
            {width, height, std::vector<unsigned long>(static_cast<std::size_t>(width * height))}, room);
        return std::pair(size.cx, size.cy);
    };
    using Size = std::pair<LONG, LONG>;
    EXPECT_EQ(fitted(40, 20, {100, 100}), Size(100, 50));
    EXPECT_EQ(fitted(20, 40, {100, 100}), Size(50, 100));
    EXPECT_EQ(fitted(400, 200, {100, 30}), Size(60, 30));
    EXPECT_EQ(fitted(1000, 1, {100, 100}), Size(100, 1));
    EXPECT_EQ(fitted(0, 0, {100, 100}), Size(0, 0));
    EXPECT_EQ(fitted(10, 10, {0, 100}), Size(0, 0));
}

TEST(Pixels_Test, Scales_By_Area_And_Leaves_The_Ground_Beyond) {
    EXPECT_EQ(Scale_Pixels(chequered, {1, 1}).data, std::vector<unsigned long>{0xFF808080});
    const std::vector<unsigned long> large{black, black, white, white, black, black, white, white,
                                           white, white, black, black, white, white, black, black};
    EXPECT_EQ(Scale_Pixels(chequered, {4, 4}).data, large);
    // A third of the middle one is of each neighbour.
    EXPECT_EQ(Scale_Pixels({2, 1, {black, white}}, {3, 1}).data,
              (std::vector<unsigned long>{black, 0xFF808080, white}));
    // A part that begins in the second column, and reaches beyond the right edge and the lower one.
    const Pixels part = Scale_Pixels(chequered, {2, 2}, {1, 0, 3, 3}, red);
    EXPECT_EQ(part.width, 2);
    EXPECT_EQ(part.data, (std::vector<unsigned long>{white, red, black, red, red, red}));
    EXPECT_EQ(Scale_Pixels(chequered, {2, 2}, {-1, 1, 1, 2}, blue).data,
              (std::vector<unsigned long>{blue, white}));
    EXPECT_EQ(Scale_Pixels({}, {5, 5}, {0, 0, 1, 1}, red).data, std::vector<unsigned long>{red});
    for (const SIZE none : {SIZE{0, 5}, {5, 0}, {5, -1}})
        EXPECT_EQ(Scale_Pixels(chequered, none).width, 0);
}

TEST(Pixels_Test, Without_Memory_A_Picture_Is_Empty) {
    static int reports = 0;
    const Error_Handler before = Error_Set_Handler([](HWND, int level, const char*) { reports += level; });
    for (const LONG side : {1 << 24, 0x7FFFFFFF}) {
        reports = 0;
        EXPECT_TRUE(Scale_Pixels(chequered, {1, 1}, {0, 0, side, side}).Is_Empty());
        EXPECT_EQ(reports, ERROR_LEVEL_MEMORY);
    }
    Error_Set_Handler(before);
}

/// Shows corners in colours, and notes where the pointer was at a press.
class Corners : public Pixel_Frame {
  public:
    void Draw() {
        const SIZE room = Room();
        Pixels picture = Scale_Pixels({}, {}, {0, 0, room.cx, room.cy}, 0xFF00FF00);
        picture.data.front() = red, picture.data.back() = blue;
        Paint(picture);
    }
    int Select(int event) {
        if ((event & 15) == EVENT_PRESS) pressed = Pointer();
        return Is_Pointed();
    }
    POINT pressed{};
};

class Pixel_Frame_Test : public testing::TestWithParam<int>, protected Hosted_Window {
  protected:
    Pixel_Frame_Test() : Hosted_Window(300, 200) {}
};

TEST_P(Pixel_Frame_Test, Shows_Just_What_Has_Room) {
    const int scale = GetParam(), line = scale / 100, inset = 3 * line + line;
    Corners corners;
    corners.X = 10, corners.Y = 20, corners.Width = 60, corners.Height = 40;
    host->Add(corners);
    host->Set_Background(Colors(200, 100, 0));
    host->Set_Scale(scale);
    host->Init_All();
    const Picture shown = All_Painted();
    const int left = corners.X + inset, right = corners.X + corners.Width - inset;
    const int bottom = corners.Y + inset, top = corners.Y + corners.Height - inset;
    EXPECT_EQ(shown.At(left, top), 0xFF0000u);
    EXPECT_EQ(shown.At(right, bottom), 0x0000FFu);
    EXPECT_EQ(shown.At(left + 1, top), 0x00FF00u);
    for (const POINT ring : {POINT{left - 1, top}, {left, top + 1}, {right + 1, bottom}, {right, bottom - 1}})
        EXPECT_NE(shown.At(ring.x, ring.y), 0x00FF00u);
    EXPECT_EQ(shown.At(corners.X - 1, top), 0xC86400u) << "nothing is painted beyond";
    Click({left + 5, top - 7});
    EXPECT_EQ(corners.pressed.x, 5);
    EXPECT_EQ(corners.pressed.y, 7);
}

INSTANTIATE_TEST_SUITE_P(, Pixel_Frame_Test, testing::Values(100, 200));

}  // namespace
}  // namespace galdren_test
