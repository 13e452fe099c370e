/// @file
/// Reading image files.
#pragma once

#include "api.h"

extern "C" {

/// A picture in memory.
///
/// The bytes of a pixel lie as the screen has them: blue, green, red and, with four channels, alpha. With one
/// channel they are grey, with two grey and alpha.
typedef struct IGB_Image {
    unsigned short width;     ///< pixels per row
    unsigned short height;    ///< number of rows
    unsigned short channels;  ///< bytes per pixel, 1 to 4
    unsigned char* pixels;    ///< `width` * `height` * `channels` bytes, rows top-down without gaps
} IGB_Image;

/// Reads an SGI image: 1 to 4 channels of 8 bits, verbatim or run-length encoded.
/// @param path   name of the file
/// @param image  receives the picture, to be given back with `IGB_Free`; null on failure
/// @return 1; 0 when the file cannot be read, with the reason in errno. What is wrong with a file that can be
///         opened is reported at level 11.
GALDREN_UTIL_API int IGB_Read_Image(const char* path, IGB_Image** image);

/// Reads a Targa image: true colour of 24 or 32 bits, or 8 bits of grey, plain or run-length encoded.
/// Parameters and results are those of `IGB_Read_Image`.
GALDREN_UTIL_API int TGA_Read_Image(const char* path, IGB_Image** image);

/// Gives a picture back. Null is left alone.
GALDREN_UTIL_API void IGB_Free(IGB_Image* image);
}
