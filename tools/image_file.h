/// @file
/// Image files as pixels, for images of controls and for the host.
#pragma once

#include <cerrno>
#include <memory>

#include "util/image.h"

namespace galdren {

using Image = std::unique_ptr<IGB_Image, decltype(&IGB_Free)>;

/// Reads a Targa image, or else an SGI image; null, with a report and `errno`, when it cannot be read.
inline Image Read_Image(const char* file, bool is_targa) {
    IGB_Image* image = nullptr;
    errno = 0;
    (is_targa ? TGA_Read_Image : IGB_Read_Image)(file, &image);
    return {image, IGB_Free};
}

/// The pixel of one to four channels: grey, or blue, green and red, each with opacity or without.
/// @return in the pixel form, with the opacity in the highest byte
inline unsigned long Packed(const unsigned char* from, int channels) {
    const bool is_grey = channels <= 2;
    const bool is_opaque = channels % 2 != 0;
    const unsigned long blue = from[0];
    const unsigned long green = from[is_grey ? 0 : 1];
    const unsigned long red = from[is_grey ? 0 : 2];
    const unsigned long opacity = is_opaque ? 255 : from[channels - 1];
    return blue | green << 8 | red << 16 | opacity << 24;
}

}  // namespace galdren
