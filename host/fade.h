/// @file
/// How controls that are disabled look.
#pragma once

#include "../tools/theme.h"

namespace galdren {

/// How a control that is disabled is painted: in a theme of its own, and then blended with what was there.
struct Fade {
    const Theme* look = nullptr;  // null for the one that it has
    unsigned char share = 128;    // of what was there, of 255
};

/// Half of both, unless a theme asks for contrast. Then bodies are flat and in the colour of the window, and
/// what stands on them in the strongest ink: blended, it keeps the contrast that the theme asks for, with as
/// large a share of what was there as leaves it that.
Fade Fade_In(const Theme* theme);

}  // namespace galdren
