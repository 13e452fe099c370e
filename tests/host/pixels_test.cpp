// Pictures as pixels, and the frame that shows them.
#include <cerrno>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "tests/support/hosted.h"
#include "tests/support/spy.h"

namespace galdren_test {
namespace {

constexpr unsigned long black = 0xFF000000, white = 0xFFFFFFFF, red = 0xFFFF0000, blue = 0xFF0000FF;

const Pixels chequered{2, 2, {black, white, white, black}};

TEST(Pixels_Test, Reads_Files_Opaque_All_Over) {
    const auto path = std::filesystem::temp_directory_path() / "CLEAR.TGA";
    std::string bytes(18, '\0');  // a header for two pixels beside each other, of 32 bits
    bytes[2] = 2, bytes[12] = 2, bytes[14] = 1, bytes[16] = 32;
    std::ofstream(path, std::ios::binary) << bytes << std::string{1, 2, 3, 0, 4, 5, 6, 9};
    const Pixels picture = Read_Pixels(path.string().c_str());
    std::filesystem::remove(path);
    EXPECT_TRUE(picture.width == 2 && picture.height == 1);
    EXPECT_EQ(picture.data, (std::vector<unsigned long>{0xFF030201, 0xFF060504}));
    errno = 0;
    EXPECT_TRUE(Read_Pixels("c:\\no such file.rgb").Is_Empty());
    EXPECT_EQ(errno, ENOENT);
    EXPECT_TRUE(Read_Pixels(nullptr).Is_Empty());
}

TEST(Pixels_Test, Keeps_Proportions) {
    const struct {
        int width, height;
        SIZE room, wanted;
    } rows[] = {
        {40, 20, {100, 100}, {100, 50}}, {20, 40, {100, 100}, {50, 100}}, {400, 200, {100, 30}, {60, 30}},
        {1000, 1, {100, 100}, {100, 1}}, {0, 0, {100, 100}, {0, 0}},      {10, 10, {0, 100}, {0, 0}},
        {90, 1, {90, 1}, {90, 1}},
    };
    for (const auto& [width, height, room, wanted] : rows) {
        const std::vector<unsigned long> data(static_cast<std::size_t>(width * height));
        const SIZE size = Fit_Pixels({width, height, data}, room);
        EXPECT_TRUE(size.cx == wanted.cx && size.cy == wanted.cy) << size.cx << " x " << size.cy;
    }
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
    for (const LONG side : {1 << 24, 0x7FFFFFFF}) {
        Report_Catcher reports;
        EXPECT_TRUE(Scale_Pixels(chequered, {1, 1}, {0, 0, side, side}).Is_Empty());
        EXPECT_EQ(reports.Take().substr(0, 2), "1:");
    }
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

TEST(Pixel_Frame_Test, Shows_Just_What_Has_Room) {
    for (const int scale : {100, 200}) {
        SCOPED_TRACE(scale);
        Hosted_Window window(300, 200);
        const int inset = 4 * scale / 100;
        Corners corners;
        corners.X = 10, corners.Y = 20, corners.Width = 60, corners.Height = 40;
        window.host->Add(corners);
        window.host->Set_Background(Colors(200, 100, 0));
        window.host->Set_Scale(scale);
        window.host->Init_All();
        const Picture shown = window.All_Painted();
        const int left = corners.X + inset, right = corners.X + corners.Width - inset;
        const int bottom = corners.Y + inset, top = corners.Y + corners.Height - inset;
        EXPECT_EQ(shown.At(left, top), 0xFF0000u);
        EXPECT_EQ(shown.At(right, bottom), 0x0000FFu);
        EXPECT_EQ(shown.At(left + 1, top), 0x00FF00u);
        for (const POINT ring :
             {POINT{left - 1, top}, {left, top + 1}, {right + 1, bottom}, {right, bottom - 1}})
            EXPECT_NE(shown.At(ring.x, ring.y), 0x00FF00u);
        EXPECT_EQ(shown.At(corners.X - 1, top), 0xC86400u) << "nothing is painted beyond";
        window.Click({left + 5, top - 7});
        EXPECT_EQ(corners.pressed.x, 5);
        EXPECT_EQ(corners.pressed.y, 7);
    }
}

}  // namespace
}  // namespace galdren_test
