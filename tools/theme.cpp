#include "tools/theme.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>
#include <forward_list>
#include <iterator>
#include <new>
#include <type_traits>

#include "tools/arithmetic.h"
#include "tools/lock.h"
#include "tools/look.h"
#include "util/error.h"
#include "util/program.h"

namespace galdren {

const Theme Plain_Theme;

namespace {

constexpr unsigned long Black = 0x000000;
constexpr unsigned long White = 0xFFFFFF;

/// Light that each level of a channel gives, 1 for the brightest.
struct Light_Of_Levels {
    std::array<float, 256> light;
    Light_Of_Levels() {
        for (std::size_t level = 0; level < light.size(); ++level) {
            const float share = static_cast<float>(level) / 255;
            light[level] = share <= 0.03928F ? share / 12.92F : std::pow((share + 0.055F) / 1.055F, 2.4F);
        }
    }
};

/// Relative luminance of a colour, with `offset` added to each channel.
float Luminance(const Colors& color, int offset = 0) {
    static const Light_Of_Levels levels;
    const auto light = [offset](int channel) {
        return levels.light[static_cast<std::size_t>(std::clamp(channel + offset, 0, 255))];
    };
    return 0.2126F * light(color.Red) + 0.7152F * light(color.Green) + 0.0722F * light(color.Blue);
}

float Contrast(float one, float other) {
    return (std::max(one, other) + 0.05F) / (std::min(one, other) + 0.05F);
}

Colors Color_Of(unsigned long gdi_color) { return Colors(static_cast<unsigned int>(gdi_color)); }

Colors Mixed(const Colors& from, const Colors& to, int part, int whole) {
    const auto channel = [&](int one, int other) { return one + (other - one) * part / whole; };
    Colors mixed(channel(from.Red, to.Red), channel(from.Green, to.Green), channel(from.Blue, to.Blue));
    mixed.Alpha = from.Alpha;
    return mixed;
}

/// The colour nearest to `color`, on its way to black or to white, that satisfies `is_readable`.
template <class Is_Readable>
Colors Moved(const Colors& color, unsigned long goal, Is_Readable is_readable) {
    constexpr int Steps = 64;
    const Colors end = Color_Of(goal);
    int least = 0;
    for (int most = Steps; least < most;) {
        const int middle = (least + most) / 2;
        if (is_readable(Mixed(color, end, middle, Steps))) {
            most = middle;
        } else {
            least = middle + 1;
        }
    }
    return Mixed(color, end, least, Steps);
}

bool Is_Bright(unsigned long color) { return Contrast_Of(color, Black) > Contrast_Of(color, White); }

/// Themes that were kept. They are never freed, for a control may outlive all else.
using Kept_Themes = std::forward_list<Theme>;

bool Are_Equal(const Theme& one, const Theme& other) {
    static_assert(std::has_unique_object_representations_v<Theme>);
    return std::memcmp(&one, &other, sizeof one) == 0;
}

/// Readable is what is so for who sees well: the least that guidelines for accessible content ask for.
constexpr short Readable = 450;

}  // namespace

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
    const auto is_readable = [&](unsigned long ink) {
        return Contrast_Of(ink, ground) >= theme.Least_Contrast;
    };
    if (theme.Least_Contrast <= 0 || is_readable(color)) return color;
    const Colors ink = Moved(Color_Of(color), Is_Bright(ground) ? Black : White,
                             [&](const Colors& moved) { return is_readable(moved.get()); });
    return ink.get();
}

}  // namespace galdren

using namespace galdren;

Theme Dark_Theme() {
    Theme dark;
    dark.Caption = 0xE8E8E8;
    dark.Caption_Down = 0xFFFFFF;
    dark.Caption_Outline = 0xFFB478;
    dark.Caption_Barred = 0xA8A8A8;
    dark.Caption_Changed = 0xFFC080;
    dark.Caption_Hint = 0xA8A8A8;
    const unsigned long codes[] = {0xFFB478, 0xE8E8E8, 0xFFFFFF, 0x8C8CFF, 0x60E0E0, 0x70D070};
    std::copy(std::begin(codes), std::end(codes), dark.Codes);
    dark.Highlight = 0x32329B;
    dark.Highlight_Down = 0x28287D;
    dark.Highlight_Back = 0x2D2D8C;
    dark.Darker_Down = 20;
    dark.Ramp = 16;
    dark.Relief = 40;
    dark.Edge_Bright = 0x909090;
    dark.Edge_Light = 0x787878;
    dark.Edge_Dark = 0x303030;
    dark.Thumb = 0x606060;
    dark.Thumb_Light = 0x989898;
    dark.Blank = 0x484848;
    dark.Mark = 0x30D0F0;
    dark.Window = 0x2A2A2A;
    dark.Least_Contrast = Readable;
    return dark;
}

Theme System_Theme() {
    Theme system;
    const unsigned long text = GetSysColor(COLOR_BTNTEXT);
    const unsigned long face = GetSysColor(COLOR_BTNFACE);
    system.Caption = system.Caption_Down = text;
    for (unsigned long& code : system.Codes)
        code = text;
    system.Body = system.Blank = system.Window = face;
    system.Highlight = system.Highlight_Down = system.Highlight_Back = GetSysColor(COLOR_HIGHLIGHT);
    system.Selection = GetSysColor(COLOR_HIGHLIGHT);
    system.Caption_Selected = GetSysColor(COLOR_HIGHLIGHTTEXT);
    system.Darker_Down = 0;
    system.Ramp = 0;
    system.Rim = GetSysColor(COLOR_WINDOWFRAME);
    system.Edge_Bright = GetSysColor(COLOR_3DHILIGHT);
    system.Edge_Light = GetSysColor(COLOR_3DLIGHT);
    system.Edge_Dark = GetSysColor(COLOR_3DSHADOW);
    system.Thumb = GetSysColor(COLOR_3DSHADOW);
    system.Thumb_Light = GetSysColor(COLOR_3DHILIGHT);
    system.Mark = GetSysColor(COLOR_HIGHLIGHT);
    system.Least_Contrast = Readable;
    const unsigned long link = Ink_On(system, face, GetSysColor(COLOR_HOTLIGHT));
    system.Caption_Outline = system.Caption_Changed = link;
    system.Caption_Barred = system.Caption_Hint = Ink_On(system, face, GetSysColor(COLOR_GRAYTEXT));
    return system;
}

const Theme* Keep_Theme(const Theme& theme) try {
    const Drawing_Lock lock;
    Kept_Themes& kept = The<Kept_Themes>();
    const auto found =
        std::find_if(kept.begin(), kept.end(), [&](const Theme& other) { return Are_Equal(theme, other); });
    return found != kept.end() ? &*found : &kept.emplace_front(theme);
} catch (const std::bad_alloc&) {
    Error_Fct(hwnd, ERROR_LEVEL_MEMORY, "Keep_Theme(): no memory, the look stays as it is without a theme");
    return nullptr;
}

int Contrast_Of(unsigned long color, unsigned long other) {
    return static_cast<int>(Contrast(Luminance(Color_Of(color)), Luminance(Color_Of(other))) * 100);
}
