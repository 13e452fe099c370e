#include <gtest/gtest.h>

#include <memory>

#include "Galdren_Tools.h"

namespace {

void Expect_Channels(const Colors& color, int red, int green, int blue, int alpha) {
    EXPECT_TRUE(color.Red == red && color.Green == green && color.Blue == blue && color.Alpha == alpha)
        << color.Red << ", " << color.Green << ", " << color.Blue << ", " << color.Alpha << " instead of "
        << red << ", " << green << ", " << blue << ", " << alpha;
}

using Byte = unsigned char;
constexpr Byte Bytes[] = {1, 2, 255};
constexpr int Numbers[] = {-1, 300, 65536 + 7};

}  // namespace

TEST(Colors, Are_Made_And_Set_From_Every_Source) {
    Expect_Channels(Colors(Byte{200}), 200, 200, 200, 0);
    Expect_Channels(Colors(short{-5}), -5, -5, -5, 0);
    Expect_Channels(Colors(0xFF030201U), 1, 2, 3, 255);
    Expect_Channels(Colors(Byte{1}, Byte{2}, Byte{3}), 1, 2, 3, 0);
    Expect_Channels(Colors(Byte{1}, Byte{2}, Byte{3}, Byte{4}), 1, 2, 3, 4);
    Expect_Channels(Colors(1, 2, 65539, 0x18000), 1, 2, 3, -32768);
    Expect_Channels(Colors(Bytes), 1, 2, 255, 0);
    Expect_Channels(Colors(Numbers), -1, 300, 7, 0);
    Colors c(9, 9, 9, 77);  // alpha stays unless given
    c.set(Colors(1, 2, 3, 4)), Expect_Channels(c, 1, 2, 3, 77);
    c.set(short{-8}), Expect_Channels(c, -8, -8, -8, 77);
    c.set(0xFF030201U), Expect_Channels(c, 1, 2, 3, 77);
    c.set(Bytes), Expect_Channels(c, 1, 2, 255, 77);
    c.set(Numbers), Expect_Channels(c, -1, 300, 7, 77);
    c = Byte{6}, Expect_Channels(c, 6, 6, 6, 77);
    c = 0xFF030201U, Expect_Channels(c, 1, 2, 3, 77);
    c = short{-8}, Expect_Channels(c, -8, -8, -8, 77);
    c.set(Byte{5}, Byte{6}, Byte{7}, Byte{8}), Expect_Channels(c, 5, 6, 7, 8);
    c.set(-1, 2, 3, 65536), Expect_Channels(c, -1, 2, 3, 0);
}

TEST(Colors, Pack_With_Clamping) {
    EXPECT_EQ(Colors(300, -5, 128).get(), 0x008000FFU);
    EXPECT_EQ(Colors(255, 256, 1, -32768).get(), 0x0001FFFFU);
    EXPECT_EQ(Colors(1, 2, 3, 4).get_invert(), 0x04010203U);
    const Colors c(300, -1, 254, 255);
    const int wanted[] = {0, 255, 0, 254, 255, 0};
    for (int i = -1; i < 5; ++i)
        EXPECT_EQ(c[i], wanted[i + 1]) << i;
    EXPECT_EQ(c == Colors(300, -1, 254, 0), 1);
    EXPECT_EQ(c == Colors(255, -1, 254, 255), 0);
}

TEST(Colors, Arithmetic_Wraps_And_Truncates) {
    const Colors start(10, 20, 30, 40);
    Expect_Channels(-start, -10, -20, -30, 0);
    Expect_Channels(Colors(start) -= Colors(11, 1, -32768, 9), -1, 19, -32738, 40);
    Expect_Channels(Colors(start) += Colors(32767, 1, 2, 9), -32759, 21, 32, 40);
    Expect_Channels(Colors(start) += short{-15}, -5, 5, 15, 40);
    Expect_Channels(Colors(start) += 0xFF030201U, 11, 22, 33, 40);
    Expect_Channels(Colors(start) += 0.5F, 137, 147, 157, 40);
    Expect_Channels(Colors(start) += -0.5F, -117, -107, -97, 40);
    Expect_Channels(Colors(start) *= -0.19F, -1, -3, -5, 40);
}

TEST(Shading, Keeps_The_Alpha_Of_Its_Colour) {
    Tools control;
    control.Width = control.Height = 10, control.Border = 2;
    const std::unique_ptr<unsigned long[]> pixels(control.Inside_3D(Colors(230, -40, 300, 77)));
    ASSERT_TRUE(pixels);
    EXPECT_EQ(pixels[22], 0x4D82009BUL) << "the darkest, at the top left within the border";
}
