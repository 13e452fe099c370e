#include "tools/look.h"

#include "tools/contrast.h"

namespace galdren {

const Theme Plain_Theme;

Colors Body_Color(const Theme& theme, const Colors& color) {
    const bool own = theme.Body == Theme::Own_Color;
    const Colors wanted = own ? color : Color_Of(theme.Body);
    if (theme.Least_Contrast <= 0) return wanted;
    const float least = static_cast<float>(theme.Least_Contrast) / 100;
    const float captions[] = {Luminance(Color_Of(theme.Caption)), Luminance(Color_Of(theme.Caption_Down))};
    const bool is_bright = Is_Bright(theme.Caption);
    const int farthest = Magnitude(theme.Ramp);
    const int ramp = is_bright ? farthest : -farthest;
    return Moved(wanted, is_bright ? Black : White, [&](const Colors& body) {
        const float ground = Luminance(body, ramp);
        return Contrast(captions[0], ground) >= least && Contrast(captions[1], ground) >= least;
    });
}

unsigned long Ink_On(const Theme& theme, unsigned long ground, unsigned long color) {
    return Readable_Ink(color, ground, theme.Least_Contrast);
}

}  // namespace galdren
