/// @file
/// Decoding of pictures, from the bytes of a file to pixels. Knows neither files nor the system.
#pragma once

#include <cerrno>
#include <cstddef>
#include <memory>
#include <span>

#include "util/image.h"

namespace galdren {

using Bytes = std::span<const unsigned char>;

/// A few packed bytes may claim any number of pixels. Larger pictures are refused.
constexpr std::size_t Most_Pixels = std::size_t{1} << 26;

/// Why there is no picture. Without a fault the error is 0.
struct Fault {
    int error = 0;          ///< for errno
    const char* text = "";  ///< for the report; what is wrong with the file

    explicit operator bool() const { return error != 0; }
};

/// The file is of a kind that is not read.
constexpr Fault Unsupported(const char* text) { return {EINVAL, text}; }

/// The file is of the right kind, but what it says cannot be.
constexpr Fault Damaged(const char* text) { return {EILSEQ, text}; }

struct Image_Deleter {
    void operator()(IGB_Image* image) const;
};
using Image_Owner = std::unique_ptr<IGB_Image, Image_Deleter>;

/// Refuses pictures without pixels and those with too many.
Fault Check_Size(std::size_t width, std::size_t height);

/// Makes a picture of a size that was checked. Its pixels are not written yet.
Fault Make_Image(std::size_t width, std::size_t height, std::size_t channels, Image_Owner& image);

/// Decodes the contents of a file. With a fault `image` may hold a picture, which is not complete.
using Decoder = Fault (*)(Bytes file, Image_Owner& image);

Fault Decode_SGI(Bytes file, Image_Owner& image);
Fault Decode_Targa(Bytes file, Image_Owner& image);

}  // namespace galdren
