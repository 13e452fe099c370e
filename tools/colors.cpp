#include "tools/colors.h"

#include "tools/arithmetic.h"

using galdren::Low_16;
using galdren::Truncate;

namespace {

unsigned char Byte(unsigned long v, int index) { return static_cast<unsigned char>(v >> (8 * index)); }

unsigned char Clamp(short channel) {
    if (channel <= 0) return 0;
    return channel > 255 ? 255 : static_cast<unsigned char>(channel);
}

unsigned long Pack(short lowest, short second, short third, short highest) {
    return static_cast<unsigned long>(Clamp(lowest)) | static_cast<unsigned long>(Clamp(second)) << 8 |
           static_cast<unsigned long>(Clamp(third)) << 16 | static_cast<unsigned long>(Clamp(highest)) << 24;
}

}  // namespace

Colors::Colors(unsigned char v) : Red(v), Green(v), Blue(v) {}
Colors::Colors(short v) : Red(v), Green(v), Blue(v) {}
Colors::Colors(unsigned int v) : Red(Byte(v, 0)), Green(Byte(v, 1)), Blue(Byte(v, 2)), Alpha(Byte(v, 3)) {}
Colors::Colors(unsigned char r, unsigned char g, unsigned char b) : Red(r), Green(g), Blue(b) {}
Colors::Colors(unsigned char r, unsigned char g, unsigned char b, unsigned char a)
    : Red(r), Green(g), Blue(b), Alpha(a) {}
Colors::Colors(int r, int g, int b) : Red(Low_16(r)), Green(Low_16(g)), Blue(Low_16(b)) {}
Colors::Colors(int r, int g, int b, int a)
    : Red(Low_16(r)), Green(Low_16(g)), Blue(Low_16(b)), Alpha(Low_16(a)) {}
Colors::Colors(const unsigned char* p) { set(p); }
Colors::Colors(const int* p) { set(p); }

void Colors::set(const Colors& c) {
    Red = c.Red;
    Green = c.Green;
    Blue = c.Blue;
}

void Colors::set(unsigned char v) { Red = Green = Blue = v; }

void Colors::set(short v) { Red = Green = Blue = v; }

void Colors::set(unsigned int v) { set(Colors(v)); }

void Colors::set(const unsigned char* p) { set(Colors(p[0], p[1], p[2])); }

void Colors::set(const int* p) { set(Colors(p[0], p[1], p[2])); }

void Colors::set(unsigned char r, unsigned char g, unsigned char b, unsigned char a) {
    *this = Colors(r, g, b, a);
}

void Colors::set(int r, int g, int b, int a) { *this = Colors(r, g, b, a); }

unsigned long Colors::get() const { return Pack(Red, Green, Blue, Alpha); }

unsigned long Colors::get_invert() const { return Pack(Blue, Green, Red, Alpha); }

unsigned char Colors::operator[](int i) const { return i >= 0 && i < 4 ? Byte(get(), i) : 0; }

int Colors::operator==(const Colors& c) const { return Red == c.Red && Green == c.Green && Blue == c.Blue; }

Colors& Colors::operator=(unsigned char v) {
    set(v);
    return *this;
}

Colors& Colors::operator=(short v) {
    set(v);
    return *this;
}

Colors& Colors::operator=(unsigned int v) {
    set(v);
    return *this;
}

Colors Colors::operator-() const { return Colors(-Red, -Green, -Blue); }

Colors& Colors::operator-=(const Colors& c) {
    set(Colors(Red - c.Red, Green - c.Green, Blue - c.Blue));
    return *this;
}

Colors& Colors::operator+=(const Colors& c) {
    set(Colors(Red + c.Red, Green + c.Green, Blue + c.Blue));
    return *this;
}

Colors& Colors::operator+=(const short& s) { return *this += Colors(s); }

Colors& Colors::operator+=(const unsigned int& v) { return *this += Colors(v); }

Colors& Colors::operator+=(const float& f) { return *this += Colors(Low_16(Truncate(double{f} * 255.0))); }

Colors& Colors::operator*=(const float& f) {
    set(Colors(Truncate(Red * f), Truncate(Green * f), Truncate(Blue * f)));
    return *this;
}
