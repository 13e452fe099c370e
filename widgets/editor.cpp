#include "widgets/editor.h"

#include <algorithm>
#include <cstddef>

#include "tools/dimensions.h"
#include "tools/sharing.h"
#include "util/color_space.h"
#include "widgets/items.h"

namespace galdren {

Channels Channels_Of(unsigned long value, Space space) {
    const auto channel = [value](int shift) {
        return (static_cast<float>(value >> shift & 0xFF) + 0.5F) / 255.0F;
    };
    const Channels rgb{channel(0), channel(8), channel(16)};
    if (space == Space::RGB) return rgb;
    Channels hls{};
    RGB_to_HLS(rgb[0], rgb[1], rgb[2], &hls[0], &hls[1], &hls[2]);
    return hls;
}

unsigned long Color_Of(Channels channels, Space space) {
    if (space == Space::HLS) {
        const auto [hue, lightness, saturation] = channels;
        HLS_to_RGB(hue, lightness, saturation, &channels[0], &channels[1], &channels[2]);
    }
    const auto pack = [](float channel, int shift) {
        const int step = std::clamp(Truncate(double{channel} * 255.0), 0, 255);
        return static_cast<unsigned long>(step) << shift;
    };
    return pack(channels[0], 0) | pack(channels[1], 8) | pack(channels[2], 16) | 0xFF000000;
}

void Bind_Editor(Tools& editor, HWND window) {
    Default_Grey(editor);
    Bind(editor, window);
    Remake_Font(editor);
}

Area Room_In_Frame(const Tools& editor, int border) {
    Area room = Area_Of(editor).Inset(border + Part_Gap(editor));
    room.right -= Part_Gap(editor) + Swatch_Width(editor);
    return room;
}

int Swatch_Width(const Tools& editor) { return Scaled(editor, 2 * BUT_DIM); }

Area Swatch_Area(const Tools& editor, const Area& room) {
    const int left = room.right + Part_Gap(editor);
    return {left, left + Swatch_Width(editor), room.bottom, room.top};
}

void Dress_Part(Tools& part, const Tools& editor, const Area& place, int border) {
    Set_Place(part, place, Within_16);
    part.Border = Within_16(border);
    part.Color = editor.Color;
    Copy_Surroundings(part, editor);
}

namespace {

/// The pixel of one column; `step` is the part of the width that a column is.
unsigned long Pixel_Of(const Gradient& gradient, int column, float step) {
    const auto place = static_cast<float>(column);
    if (gradient.ground == 0) return Exchange_Red_And_Blue(Color_Of({place * step, 0.5F, 1.0F}, Space::HLS));
    const float level = 255.0F * place * step;
    return gradient.ground | gradient.rising * static_cast<unsigned long>(level) |
           gradient.falling * static_cast<unsigned long>(255.0F - level);
}

/// All rows are alike.
void Paint_Gradient(unsigned long* image, int width, int height, const Gradient& gradient) {
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
void Drop_Image(Tools& part) {
    part.Free(part.Graph_Normal);
    part.Graph_Normal = part.Cur_Graph_Normal = part.Last_Graph_Normal = nullptr;
}

/// @return whether the part has a new image, of its size
bool Renew_Image(Tools& part, unsigned long pixel) {
    Drop_Image(part);
    return Has_Size(part) && May_Generate(part) && part.Alloc_Graph_Normal(pixel);
}

/// Without size or memory there is none.
void Show_Gradient(Valuators& trough, const Gradient& gradient) {
    const auto blank = Exchange_Red_And_Blue(Theme_Of(trough).Blank);
    const bool reusable = Has_Image_Of_Its_Size(trough) && !Shares_Image(trough);
    if (!reusable && !Renew_Image(trough, blank)) return;
    Paint_Gradient(trough.Graph_Normal, trough.Width, trough.Height, gradient);
    trough.Graph_Select = trough.Graph_Normal;
}

}  // namespace

void Init_Trough(Valuators& trough, const Tools& editor, const Area& place, int border,
                 const Gradient& gradient, bool with_image) {
    Dress_Part(trough, editor, place, border);
    Copy_Face(trough, editor);
    trough.Flag = editor.Flag;
    trough.Start_Val = 0.0F;
    trough.End_Val = 0.99F;
    if (trough.Graph_Select != trough.Graph_Normal) trough.Free(trough.Graph_Select);
    trough.Graph_Select = trough.Cur_Graph_Select = nullptr;
    if (with_image) {
        Show_Gradient(trough, gradient);
    } else {
        Drop_Image(trough);
    }
    trough.Init(editor.Window);
}

void Init_Swatch(Boxs& swatch, const Tools& editor, const Area& place, int border, unsigned long value,
                 bool with_image) {
    Dress_Part(swatch, editor, place, border);
    if (!with_image) {
        Drop_Image(swatch);
    } else if (editor.Height != editor.Last_Height || !Has_Image_Of_Its_Size(swatch)) {
        Renew_Image(swatch, Exchange_Red_And_Blue(value));
    }
    swatch.Init(editor.Window);
}

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

unsigned long Read_Troughs(Troughs troughs, unsigned long value, Space space) {
    Channels channels = Channels_Of(value, space);
    for (std::size_t i = 0; i < troughs.size(); ++i) {
        if (troughs[i]->Select(EVENT_DRAG)) channels[i] = troughs[i]->Read();
    }
    return Color_Of(channels, space);
}

bool Scroll_Troughs(Troughs troughs, unsigned long& value, Space space, int n) {
    Channels channels = Channels_Of(value, space);
    bool scrolled = false;
    for (std::size_t i = 0; i < troughs.size(); ++i) {
        if (!troughs[i]->Select(EVENT_TEST)) continue;
        channels[i] = troughs[i]->Scroll(n);
        scrolled = true;
    }
    if (scrolled) value = Color_Of(channels, space);
    return scrolled;
}

void Move_Thumbs(Troughs troughs, unsigned long value, Space space) {
    const Channels channels = Channels_Of(value, space);
    for (std::size_t i = 0; i < troughs.size(); ++i) {
        if (channels[i] == troughs[i]->Val) continue;
        troughs[i]->Val = channels[i];
        troughs[i]->Adjust();
    }
}

}  // namespace galdren
