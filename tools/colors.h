/// @file
/// Colour values.
#pragma once

#include "api.h"

/// A colour of four signed 16-bit channels.
///
/// The channels are wider than a byte so that shading arithmetic may run past 0 or 255 without wrapping;
/// they are clamped only when the colour is packed or read channel by channel. Arithmetic works on the raw
/// channels and wraps at 16 bits.
class GALDREN_TOOLS_API Colors {
  public:
    short Red = 0;    ///< nominally 0..255, may hold any 16-bit value between operations
    short Green = 0;  ///< see `Red`
    short Blue = 0;   ///< see `Red`
    short Alpha = 0;  ///< opacity or extra channel; most operations leave it alone

    /// Black, alpha 0.
    Colors() = default;
    /// The grey `v`, alpha 0.
    Colors(unsigned char v);
    /// The grey `v`, alpha 0.
    Colors(short v);
    /// Red, green, blue, alpha from the bytes of `v`, lowest first.
    Colors(unsigned int v);
    /// The given channels, alpha 0.
    Colors(unsigned char r, unsigned char g, unsigned char b);
    /// The given channels.
    Colors(unsigned char r, unsigned char g, unsigned char b, unsigned char a);
    /// The low 16 bits of each channel, alpha 0.
    Colors(int r, int g, int b);
    /// The low 16 bits of each channel.
    Colors(int r, int g, int b, int a);
    /// Red, green, blue from three bytes; alpha is not part of the array and stays 0.
    Colors(const unsigned char* p);
    /// Red, green, blue from the low 16 bits of three integers; alpha stays 0.
    Colors(const int* p);

    /// Takes red, green, blue of `c`; alpha stays.
    void set(const Colors& c);
    /// Becomes the grey `v`; alpha stays.
    void set(unsigned char v);
    /// Becomes the grey `v`; alpha stays.
    void set(short v);
    /// Takes red, green, blue from the three low bytes of `v`; alpha stays.
    void set(unsigned int v);
    /// Takes red, green, blue from three bytes; alpha stays.
    void set(const unsigned char* p);
    /// Takes red, green, blue from the low 16 bits of three integers; alpha stays.
    void set(const int* p);
    /// Sets all four channels.
    void set(unsigned char r, unsigned char g, unsigned char b, unsigned char a);
    /// Sets all four channels to the low 16 bits given.
    void set(int r, int g, int b, int a);

    /// The GDI form: red in the low byte, then green, blue, alpha, each clamped to 0..255.
    unsigned long get() const;
    /// The pixel form, that of a 32-bit bitmap: blue in the low byte, then green, red, alpha, each clamped.
    unsigned long get_invert() const;
    /// Channel `i` (0 red, 1 green, 2 blue, 3 alpha) clamped to 0..255; 0 for any other `i`.
    unsigned char operator[](int i) const;
    /// 1 when red, green and blue are equal; alpha is not compared.
    int operator==(const Colors& c) const;

    /// Becomes the grey `v`; alpha stays.
    Colors& operator=(unsigned char v);
    /// Becomes the grey `v`; alpha stays.
    Colors& operator=(short v);
    /// Takes red, green, blue from the three low bytes of `v`; alpha stays.
    Colors& operator=(unsigned int v);
    /// Red, green, blue negated, alpha 0.
    Colors operator-() const;
    /// Subtracts red, green, blue.
    Colors& operator-=(const Colors& c);
    /// Adds red, green, blue.
    Colors& operator+=(const Colors& c);
    /// Adds `s` to red, green, blue.
    Colors& operator+=(const short& s);
    /// Adds the three low bytes of `v` to red, green, blue.
    Colors& operator+=(const unsigned int& v);
    /// Adds `f` x 255, truncated toward zero, to red, green, blue; `f` is a fraction of full scale.
    Colors& operator+=(const float& f);
    /// Multiplies red, green, blue by `f`, truncated toward zero.
    Colors& operator*=(const float& f);
};
