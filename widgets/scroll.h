/// @file
/// Scroll bars over contents that are larger than their room.
#pragma once

#include "tools/base.h"
#include "widgets/slider.h"

namespace galdren {

/// Number of pixels that a bar scrolls by.
inline int Pixels_Scrolled(const Sliders& bar) {
    constexpr int Farthest = 1 << 29;  // twice that has room in the arithmetic of its owners
    return std::clamp(Truncate(double{bar.Val}), -Farthest, Farthest);
}

}  // namespace galdren
