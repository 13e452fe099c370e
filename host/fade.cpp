#include "host/fade.h"

#include <algorithm>
#include <array>
#include <iterator>

#include "../Galdren_Tools.h"

namespace galdren {

namespace {

constexpr unsigned long White = 0xFFFFFF;
constexpr int Whole_Share = 255;

/// `share` of 255 of one colour, and the rest of another one.
unsigned long Blended(unsigned long one, unsigned long other, int share) {
    const Colors first(static_cast<unsigned int>(one));
    const Colors second(static_cast<unsigned int>(other));
    const auto channel = [share](int a, int b) {
        return (a * share + b * (Whole_Share - share)) / Whole_Share;
    };
    return Colors(channel(first.Red, second.Red), channel(first.Green, second.Green),
                  channel(first.Blue, second.Blue))
               .get() &
           White;
}

/// Ink as far from the window as colours go.
unsigned long Strongest_Ink(const Theme& theme) {
    return Contrast_Of(White, theme.Window) > Contrast_Of(0, theme.Window) ? White : 0;
}

/// The body next to `color` that the theme lets bodies be: the one least far from it on which captions show.
unsigned long Readable_Body(const Theme& theme, unsigned long color) {
    const unsigned long goal = Contrast_Of(theme.Caption, 0) > Contrast_Of(theme.Caption, White) ? 0 : White;
    int share = 0;
    while (share < Whole_Share &&
           Contrast_Of(Blended(goal, color, share), theme.Caption) < theme.Least_Contrast)
        ++share;
    return Blended(goal, color, share);
}

/// What a control may stand on: the window, and bodies in the purest colours.
std::array<unsigned long, 9> Grounds(const Theme& theme) {
    std::array<unsigned long, 9> grounds{theme.Window};
    for (unsigned corner = 0; corner < 8; ++corner) {
        const auto channel = [corner](unsigned bit) { return corner & bit ? 255 : 0; };
        grounds[corner + 1] = Readable_Body(theme, Colors(channel(1), channel(2), channel(4)).get() & White);
    }
    return grounds;
}

/// Frames that are sunken are darker than their body, and captions may reach over them.
unsigned long Sunken_Frame(const Theme& theme) {
    constexpr short Darker = -40;
    Colors frame(static_cast<unsigned int>(theme.Window));
    frame += Darker;
    return frame.get() & White;
}

/// Whether ink on a body in the colour of the window has contrast when both are blended with what was there.
bool Is_Readable(const Theme& theme, unsigned long ink, unsigned long before, int share) {
    const unsigned long blended = Blended(before, ink, share);
    const auto has_contrast = [&](unsigned long body) {
        return Contrast_Of(blended, Blended(before, body, share)) >= theme.Least_Contrast;
    };
    return has_contrast(theme.Window) && has_contrast(Sunken_Frame(theme));
}

Theme Faded(Theme theme, unsigned long ink) {
    theme.Caption = theme.Caption_Down = theme.Caption_Outline = theme.Caption_Barred =
        theme.Caption_Changed = ink;
    std::fill(std::begin(theme.Codes), std::end(theme.Codes), ink);
    theme.Body = theme.Highlight = theme.Highlight_Down = theme.Highlight_Back = theme.Window;
    theme.Darker_Down = theme.Ramp = 0;
    theme.Relief = 0;
    theme.Least_Contrast = static_cast<short>(Contrast_Of(ink, theme.Window));
    return theme;
}

}  // namespace

Fade Fade_In(const Theme* theme) {
    if (!theme || theme->Least_Contrast <= 0) return {};
    const unsigned long ink = Strongest_Ink(*theme);
    const std::array<unsigned long, 9> grounds = Grounds(*theme);
    const auto is_readable = [&](int share) {
        return std::all_of(grounds.begin(), grounds.end(),
                           [&](unsigned long ground) { return Is_Readable(*theme, ink, ground, share); });
    };
    int share = Fade().share;
    while (share > 0 && !is_readable(share))
        --share;
    return {Keep_Theme(Faded(*theme, ink)), static_cast<unsigned char>(share)};
}

}  // namespace galdren
