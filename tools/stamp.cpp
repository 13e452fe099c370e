#include "tools/stamp.h"

#include <algorithm>
#include <cerrno>
#include <cstddef>
#include <cstring>
#include <memory>
#include <new>

#include "tools/area_mean.h"
#include "tools/base.h"
#include "tools/image_file.h"
#include "util/error.h"
#include "util/program.h"

namespace galdren {

namespace {

using Pixels = std::unique_ptr<unsigned long[]>;

Pixels New_Pixels(std::size_t count) { return Pixels(new (std::nothrow) unsigned long[count]); }

bool Is_Targa(const char* file) { return std::strstr(file, ".tga") != nullptr; }

struct Size {
    int width;
    int height;
};

/// How large a picture is in a room: enlarged by the scale as far as it fits, or made smaller.
Size Size_In(const Tools_Fields& control, const Size& room) {
    const Size icon{control.Icon_Width, control.Icon_Height};
    for (int times = Zoom_Between(Unscaled, control.Scale).times; times > 0; --times) {
        if (icon.width * times <= room.width && icon.height * times <= room.height)
            return {icon.width * times, icon.height * times};
    }
    if (icon.width * room.height > icon.height * room.width)
        return {room.width, std::max(icon.height * room.width / icon.width, 1)};
    return {std::max(icon.width * room.height / icon.height, 1), room.height};
}

/// @param over  its highest byte is its opacity
unsigned long Blended(unsigned long over, unsigned long under) {
    const unsigned long weight = over >> 24;
    unsigned long pixel = under & 0xFF000000;
    for (const int shift : {0, 8, 16}) {
        const unsigned long sum = (over >> shift & 0xFF) * weight + (under >> shift & 0xFF) * (255 - weight);
        pixel |= (sum + 127) / 255 << shift;
    }
    return pixel;
}

/// The body that the control has without images.
unsigned long* Make_Ground(const Tools_Fields& control, const Colors& color) {
    if (!Has_Flag(control, FLAG_OWN_IMAGES)) return Make_Shading(control, color);
    const auto count = std::size_t(control.Width) * std::size_t(control.Height);
    unsigned long* const pixels = New_Pixels(count).release();
    if (pixels) std::fill_n(pixels, count, Body_Color(Theme_Of(control), color).get_invert());
    return pixels;
}

/// Blends the picture over the middle of a body.
void Stamp(const Tools_Fields& control, unsigned long* body) {
    const int inset = Body_Inset(control);
    const Size room{control.Width - 2 * inset + 1, control.Height - 2 * inset + 1};
    if (room.width < 1 || room.height < 1) return;
    const Size size = Size_In(control, room);
    const int left = inset + Offset(Place::Middle, room.width, size.width);
    const int top = inset + Offset(Place::Middle, room.height, size.height);
    for (int y = 0; y < size.height; ++y) {
        const Stretch down(y, size.height, control.Icon_Height);
        unsigned long* const row = body + std::ptrdiff_t{top + y} * control.Width + left;
        for (int x = 0; x < size.width; ++x) {
            const Stretch across(x, size.width, control.Icon_Width);
            row[x] = Blended(Area_Mean(control.Icon_Pixels, control.Icon_Width, across, down), row[x]);
        }
    }
}

/// Without memory there is no image, and the control has its own body.
unsigned long* Make_Image(const Tools_Fields& control, const Colors& color) {
    unsigned long* const body = Make_Ground(control, color);
    if (body) {
        Stamp(control, body);
    } else {
        Error_Fct(hwnd, ERROR_LEVEL_MEMORY, "Tools::Icon: no memory for an image\n   name: %s",
                  Name_Of(control));
    }
    return body;
}

void Drop_Icon(Tools_Fields& control) {
    Release_Array(control.Icon_Pixels);
    control.Icon_Pixels = nullptr;
}

bool Has_Other_Images(const Tools_Fields& control) {
    return control.Graph_Normal != control.Last_Graph_Normal ||
           control.Graph_Select != control.Last_Graph_Select;
}

bool Is_Changed(const Tools_Fields& control) {
    return control.Width != control.Last_Width || control.Height != control.Last_Height ||
           control.Color.get() != control.Last_Color || Is_Redressed(control);
}

}  // namespace

bool Read_Icon_Pixels(Tools_Fields& control, const char* file) {
    const Image image = file ? Read_Image(file, Is_Targa(file)) : Image(nullptr, IGB_Free);
    if (!image) {
        Error_Fct(hwnd, ERROR_LEVEL_WARNING, "Tools::Icon(%s): %s\n   name: %s", file ? file : "(null)",
                  file ? Error_Perror(errno) : "no file", Name_Of(control));
        return false;
    }
    const std::size_t count = std::size_t{image->width} * image->height;
    Pixels pixels = New_Pixels(count);
    if (!pixels) {
        Error_Fct(hwnd, ERROR_LEVEL_MEMORY, "Tools::Icon(%s): no memory\n   name: %s", file,
                  Name_Of(control));
        return false;
    }
    // The last of several channels says how clear a pixel of an SGI image is.
    const bool has_clearness = image->channels % 2 == 0 && !Is_Targa(file);
    const unsigned long turned = has_clearness ? 0xFF000000 : 0;
    for (std::size_t i = 0; i < count; ++i)
        pixels[i] = Packed(image->pixels + i * image->channels, image->channels) ^ turned;
    Drop_Icon(control);
    control.Icon_Pixels = pixels.release();
    control.Icon_Width = image->width;
    control.Icon_Height = image->height;
    control.Icon_Is_New = true;
    return true;
}

void Renew_Icon_Images(Tools_Fields& control) {
    if (!control.Icon_Pixels) return;
    const bool is_new = control.Icon_Is_New;
    if (!is_new && Has_Other_Images(control)) return Drop_Icon(control);
    if (!is_new && !Is_Changed(control)) return;
    control.Icon_Is_New = false;
    if (control.Graph_Select != control.Graph_Normal) Release_Array(control.Graph_Select);
    Release_Array(control.Graph_Normal);
    control.Given_Normal = control.Given_Select = {};
    control.Graph_Normal = Make_Image(control, control.Color);
    control.Graph_Select = Make_Image(control, Highlight_Color(control));
}

}  // namespace galdren
