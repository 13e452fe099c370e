/// @file
/// Embossed arrows.
#pragma once

#include "tools/canvas.h"

namespace galdren {

/// An embossed arrow in an area; see `Tools::Arrow`.
void Paint_Arrow(Canvas& canvas, short direction, int inset, int size, const Area& area);

}  // namespace galdren
