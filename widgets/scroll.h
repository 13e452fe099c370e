/// @file
/// Scroll bars over contents that are larger than their room.
#pragma once

#include "tools/base.h"
#include "widgets/slider.h"

namespace galdren {

/// Style of a bar for which there is no need: an empty outline.
constexpr unsigned long Unused_Bar = FLAG_NO_BODY | FLAG_PASSIVE | FLAG_OUTLINE;

/// What a bar scrolls over.
struct Bar_Range {
    float start, end, step;
};

/// Gives a bar its place, style and range, and the colour and clip of its owner. `Init` has to follow.
void Set_Bar(Sliders& bar, const Tools& owner, const Area& place, unsigned long flag, const Bar_Range& range);

/// Sizes the thumb for `visible` of `total` pixels. Before `Init`.
void Size_Thumb(Sliders& bar, int visible, int total);

/// Moves a bar to where the pointer has its thumb.
void Follow_Pointer(Sliders& bar);

bool Any_Button_Held();

/// Number of pixels that a bar scrolls by.
int Pixels_Scrolled(const Sliders& bar);

}  // namespace galdren
