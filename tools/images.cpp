#include "tools/images.h"

#include "tools/base.h"
#include "tools/stamp.h"

namespace galdren {

namespace {

/// @param body   what is painted
/// @param image  the application's
/// @param given  what is known of the body
void Note_Given(const Tools_Fields& control, const unsigned long* body, const unsigned long* image,
                Given_Image& given) {
    const auto scale = static_cast<unsigned short>(Scaled(control, Unscaled));
    const bool is_known = body && body == given.Pixels;
    if (!body || body != image) {
        if (!is_known) given = {};
    } else if (is_known && (given.Is_Zoomed || given.Scale != scale)) {
        given.Is_Zoomed = true;
    } else {
        given = {body, control.Width, control.Height, scale, false};
    }
}

}  // namespace

void Note_Images(Tools_Fields& control) {
    Note_Given(control, control.Cur_Graph_Normal, control.Graph_Normal, control.Given_Normal);
    Note_Given(control, control.Cur_Graph_Select, control.Graph_Select, control.Given_Select);
    control.Last_Graph_Normal = control.Graph_Normal;
    control.Last_Graph_Select = control.Graph_Select;
}

void Forget_If_Withdrawn(const Tools_Fields& control, unsigned long*& body) {
    const bool was_taken = body == control.Last_Graph_Normal || body == control.Last_Graph_Select;
    if (was_taken && body != control.Graph_Normal && body != control.Graph_Select) body = nullptr;
}

Images Take_Images(Tools_Fields& control) {
    Renew_Icon_Images(control);
    const bool resized = control.Width != control.Last_Width || control.Height != control.Last_Height;
    const bool recolored = control.Color.get() != control.Last_Color;
    const bool generate = !Has_Flag(control, FLAG_OWN_IMAGES);

    Images images{};
    // A new image may stand where a forgotten one stood.
    images.normal_taken = (control.Graph_Normal && (resized || !control.Cur_Graph_Normal)) ||
                          control.Graph_Normal != control.Last_Graph_Normal;
    images.select_taken = (control.Graph_Select && (resized || !control.Cur_Graph_Select)) ||
                          control.Graph_Select != control.Last_Graph_Select;
    if (images.normal_taken) control.Cur_Graph_Normal = control.Graph_Normal;
    if (images.select_taken) control.Cur_Graph_Select = control.Graph_Select;
    // The highlight colour is fixed, so a new colour of the control leaves its shading alone.
    const bool anew = resized || Is_Redressed(control);
    images.normal_needed = generate && !control.Graph_Normal && (anew || recolored || images.normal_taken);
    images.select_needed = generate && !control.Graph_Select && (anew || images.select_taken);
    if ((images.normal_needed || images.select_needed) && !May_Generate(control))
        images.normal_needed = images.select_needed = false;

    Note_Size(control);
    Note_Images(control);
    return images;
}

}  // namespace galdren
