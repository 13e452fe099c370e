#include "widgets/gradient.h"

#include <algorithm>
#include <cstddef>

#include "tools/base.h"
#include "tools/sharing.h"
#include "widgets/color_value.h"

namespace galdren {

namespace {

constexpr unsigned long Opaque = 0xFF000000;

/// The pixel of one column; `step` is the part of the width that a column is.
unsigned long Pixel_Of(Gradient gradient, int column, float step) {
    const auto place = static_cast<float>(column);
    const float level = 255.0F * place * step;
    const auto rising = static_cast<unsigned long>(level);
    const auto falling = static_cast<unsigned long>(255.0F - level);
    switch (gradient) {
        case Gradient::Rainbow:
            return Exchange_Red_And_Blue(From_HLS({place * step, 0.5F, 1.0F}));
        case Gradient::Black_To_Red:
            return Opaque | rising << 16;
        case Gradient::Black_To_Green:
            return Opaque | rising << 8;
        case Gradient::Black_To_Blue:
            return Opaque | rising;
        case Gradient::Black_To_White:
            return Opaque | rising << 16 | rising << 8 | rising;
        default:
            return Opaque | 0xFF0000 | falling << 8 | falling;
    }
}

/// All rows are alike.
void Paint_Gradient(unsigned long* image, int width, int height, Gradient gradient) {
    const float step = 1.0F / static_cast<float>(width);
    for (int column = 0; column < width; ++column)
        image[column] = Pixel_Of(gradient, column, step);
    for (int row = 1; row < height; ++row)
        std::copy_n(image, width, image + std::ptrdiff_t{row} * width);
}

/// An image was made for the size that the part's `Init` noted.
bool Has_Image_Of_Its_Size(const Tools& part) {
    return part.Graph_Normal && part.Width == part.Last_Width && part.Height == part.Last_Height;
}

bool Shares_Image(const Tools& part) { return Is_Shared(Thing::Array, part.Graph_Normal); }

/// Nothing may paint the image any more, and a new one may come to stand at its address.
void Drop_Normal_Image(Tools& part) {
    part.Free(part.Graph_Normal);
    part.Graph_Normal = part.Cur_Graph_Normal = part.Last_Graph_Normal = nullptr;
}

void Drop_Select_Image(Tools& part) {
    if (part.Graph_Select != part.Graph_Normal) part.Free(part.Graph_Select);
    part.Graph_Select = part.Cur_Graph_Select = nullptr;
}

/// @return whether the part has a new image, of its size
bool Renew_Image(Tools& part, unsigned long pixel) {
    Drop_Normal_Image(part);
    return Has_Size(part) && May_Generate(part) && part.Alloc_Graph_Normal(pixel);
}

}  // namespace

void Show_Gradient(Valuators& trough, Gradient gradient) {
    constexpr unsigned long Blank = 0xAAAAAA;
    Drop_Select_Image(trough);
    const bool reusable = Has_Image_Of_Its_Size(trough) && !Shares_Image(trough);
    if (!reusable && !Renew_Image(trough, Blank)) return;
    Paint_Gradient(trough.Graph_Normal, trough.Width, trough.Height, gradient);
    trough.Graph_Select = trough.Graph_Normal;
}

void Hide_Gradient(Valuators& trough) {
    Drop_Select_Image(trough);
    Drop_Normal_Image(trough);
}

void Show_Color(Boxs& swatch, unsigned long value, bool anew) {
    if (anew || !Has_Image_Of_Its_Size(swatch)) Renew_Image(swatch, Exchange_Red_And_Blue(value));
}

void Hide_Color(Boxs& swatch) { Drop_Normal_Image(swatch); }

bool Change_Color(Boxs& swatch, unsigned long value) {
    // Without memory for an image the swatch has shading, which is other boxes' too.
    if (!swatch.Cur_Graph_Normal || swatch.Cur_Graph_Normal != swatch.Graph_Normal) return false;
    const unsigned long pixel = Exchange_Red_And_Blue(value);
    if (swatch.Graph_Normal[0] == pixel) return false;
    if (Shares_Image(swatch)) {
        Renew_Image(swatch, pixel);
        swatch.Cur_Graph_Normal = swatch.Last_Graph_Normal = swatch.Graph_Normal;
        Note_Size(swatch);
    } else {
        std::fill_n(swatch.Graph_Normal, std::ptrdiff_t{swatch.Last_Width} * swatch.Last_Height, pixel);
    }
    return true;
}

void Update_Swatch(Boxs& swatch, unsigned long value) {
    if (!Change_Color(swatch, value)) return;
    swatch.Hover = Hover_Unknown;
    swatch.Select(EVENT_DRAG);
}

}  // namespace galdren
