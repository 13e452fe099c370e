/// @file
/// What every decoder of pictures has to hold to, whatever the bytes.
#pragma once

#include <cstdint>
#include <cstdlib>

#include "util/image_decode.h"

namespace fuzz {

inline void Require(bool holds) {
    if (!holds) std::abort();
}

/// Looks at all pixels, so that a sanitizer finds those that are missing or were never written.
inline void Check_Picture(const IGB_Image& image) {
    const std::size_t count = std::size_t{image.width} * image.height;
    Require(count > 0 && count <= galdren::Most_Pixels);
    Require(image.channels >= 1 && image.channels <= 4);
    unsigned bits = 0;
    for (std::size_t i = 0; i < count * image.channels; ++i)
        bits |= image.pixels[i];
    Require(bits <= 0xFF);
}

inline int Check_Decoder(galdren::Decoder decode, const std::uint8_t* data, std::size_t size) {
    galdren::Image_Owner image;
    if (const galdren::Fault fault = decode({data, size}, image)) {
        Require(fault.error == EINVAL || fault.error == EILSEQ || fault.error == EFBIG);
        Require(*fault.text != '\0');
    } else {
        Require(image != nullptr);
        Check_Picture(*image);
    }
    return 0;
}

}  // namespace fuzz
