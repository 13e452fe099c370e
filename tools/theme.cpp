#include "tools/theme.h"

#include <algorithm>
#include <cstring>
#include <forward_list>
#include <iterator>
#include <new>
#include <type_traits>

#include "tools/contrast.h"
#include "tools/lock.h"
#include "util/error.h"
#include "util/program.h"

namespace galdren {

namespace {

/// Themes that were kept. They are never freed, for a control may outlive all else.
using Kept_Themes = std::forward_list<Theme>;

bool Are_Equal(const Theme& one, const Theme& other) {
    static_assert(std::has_unique_object_representations_v<Theme>);
    return std::memcmp(&one, &other, sizeof one) == 0;
}

/// Readable is what is so for who sees well: the least that guidelines for accessible content ask for.
constexpr short Readable = 450;

}  // namespace

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
    const unsigned long link = Readable_Ink(GetSysColor(COLOR_HOTLIGHT), face, Readable);
    system.Caption_Outline = system.Caption_Changed = link;
    system.Caption_Barred = system.Caption_Hint = Readable_Ink(GetSysColor(COLOR_GRAYTEXT), face, Readable);
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

int Contrast_Of(unsigned long color, unsigned long other) { return Contrast_In_Hundredths(color, other); }
