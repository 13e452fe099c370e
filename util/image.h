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
///
/// What is wrong with a file that can be opened is reported at level 11, a lack of memory at level 1. More
/// than 64 M pixels, or a file of more than 512 MB, are refused.
/// @param path   name of the file
/// @param image  receives the picture, to be given back with `IGB_Free`; null on failure
/// @return 1; 0 when the file cannot be read, with the reason in errno: EINVAL for a file of another kind,
///         EILSEQ for one that is damaged or cut, EFBIG for one that is too large, ENOMEM, or what the system
///         has against opening or reading it, such as ENOENT
GALDREN_UTIL_API int IGB_Read_Image(const char* path, IGB_Image** image);

/// Reads a Targa image: true colour of 24 or 32 bits, 8 bits of grey, or 8 bits that choose from a map of
/// such colours; plain or run-length encoded. All four bytes of 32 bits are delivered, whatever the file says
/// of the fourth.
///
/// Parameters, reports and results are those of `IGB_Read_Image`.
GALDREN_UTIL_API int TGA_Read_Image(const char* path, IGB_Image** image);

/// Gives a picture back. Null is left alone.
GALDREN_UTIL_API void IGB_Free(IGB_Image* image);
}
