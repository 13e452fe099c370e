#include "host/pixels.h"

#include <algorithm>
#include <cstddef>
#include <exception>
#include <string>

#include "Galdren_Util.h"
#include "host/client.h"
#include "tools/area_mean.h"
#include "tools/dimensions.h"
#include "tools/image_file.h"
#include "tools/look.h"
#include "tools/surface.h"

using namespace galdren;

namespace {

constexpr unsigned long opaque = 0xFF000000;

bool Is_Targa(const std::string& file) {
    std::string end = file.substr(file.size() - std::min<std::size_t>(file.size(), 4));
    return Str_To_Lower(end.data()) == std::string(".tga");
}

/// A picture with room for its pixels; an empty one when it has none.
Pixels Make_Pixels(int width, int height, unsigned long pixel) {
    if (width < 1 || height < 1) return {};
    try {
        return {width, height,
                std::vector<unsigned long>(static_cast<std::size_t>(width) * static_cast<std::size_t>(height),
                                           pixel)};
    } catch (const std::exception&) {  // or the number is beyond what a vector can have
        Error_Fct(nullptr, ERROR_LEVEL_MEMORY, "Pixels: no memory for %d x %d", width, height);
        return {};
    }
}

}  // namespace

Pixels Read_Pixels(const char* file) {
    const Image image = Read_Image(file, file && Is_Targa(file));
    if (!image) return {};
    Pixels picture = Make_Pixels(image->width, image->height, 0);
    const unsigned char* from = image->pixels;
    for (unsigned long& pixel : picture.data) {
        pixel = opaque | Packed(from, image->channels);
        from += image->channels;
    }
    return picture;
}

SIZE Fit_Pixels(const Pixels& picture, SIZE room) {
    if (picture.Is_Empty() || room.cx < 1 || room.cy < 1) return {};
    const bool is_wide =
        static_cast<long long>(picture.width) * room.cy > static_cast<long long>(picture.height) * room.cx;
    if (is_wide) return {room.cx, std::max(MulDiv(picture.height, room.cx, picture.width), 1)};
    return {std::max(MulDiv(picture.width, room.cy, picture.height), 1), room.cy};
}

Pixels Scale_Pixels(const Pixels& picture, SIZE size, const RECT& part, unsigned long ground) {
    Pixels scaled = Make_Pixels(part.right - part.left, part.bottom - part.top, ground);
    if (picture.Is_Empty() || scaled.Is_Empty()) return scaled;
    const RECT whole{0, 0, size.cx, size.cy};
    RECT seen;
    IntersectRect(&seen, &whole, &part);
    for (int y = seen.top; y < seen.bottom; ++y) {
        const Stretch down(y, size.cy, picture.height);
        unsigned long* const row =
            &scaled.data[static_cast<std::size_t>(y - part.top) * static_cast<std::size_t>(scaled.width)];
        for (int x = seen.left; x < seen.right; ++x)
            row[x - part.left] =
                Area_Mean(picture.data.data(), picture.width, Stretch(x, size.cx, picture.width), down);
    }
    return scaled;
}

Pixels Scale_Pixels(const Pixels& picture, SIZE size) {
    return Scale_Pixels(picture, size, {0, 0, size.cx, size.cy});
}

int Pixel_Frame::Rings() const { return Border > 0 ? Border : Scaled(*this, BORDER); }

int Pixel_Frame::Inset() const { return Line_Width(*this) + Rings(); }

SIZE Pixel_Frame::Room() const {
    return {std::max(Width + 1 - 2 * Inset(), 1), std::max(Height + 1 - 2 * Inset(), 1)};
}

POINT Pixel_Frame::Pointer() const {
    const POINT place = From_Screen(Window, {ZCursor_X, ZCursor_Y});
    return {place.x - X - Inset(), Y + Height - Inset() - place.y};
}

void Pixel_Frame::Paint(const Pixels& picture) {
    const Paint_Batch batch(Window);  // both in one copy
    const int left = X + Inset(), top = Y + Height + 1 - Inset();
    Cadre(0, 1, static_cast<short>(Rings()), X, static_cast<short>(X + Width), Y,
          static_cast<short>(Y + Height));
    Blit(picture.data.data(), static_cast<short>(picture.width), static_cast<short>(picture.height),
         static_cast<short>(left), static_cast<short>(top - picture.height));
}
