#include "util/image_decode.h"

#include <new>

namespace galdren {

void Image_Deleter::operator()(IGB_Image* image) const {
    if (image) delete[] image->pixels;
    delete image;
}

Fault Check_Size(std::size_t width, std::size_t height) {
    if (width == 0 || height == 0) return Damaged("has no pixels");
    if (width > Most_Pixels / height) return {EFBIG, "has too many pixels"};
    return {};
}

Fault Make_Image(std::size_t width, std::size_t height, std::size_t channels, Image_Owner& image) {
    image.reset(new (std::nothrow) IGB_Image{
        static_cast<unsigned short>(width), static_cast<unsigned short>(height),
        static_cast<unsigned short>(channels), new (std::nothrow) unsigned char[width * height * channels]});
    if (!image || !image->pixels) return {ENOMEM, "no memory for its pixels"};
    return {};
}

}  // namespace galdren
