/// @file
/// Small images for controls that show their own.
#pragma once

#include "Galdren_Tools.h"

namespace gallery {

/// Gives `control` an image for its normal look: a landscape by day.
void Paint_Day(Tools& control);
/// Gives `control` an image for its highlighted look: the same landscape at dusk.
void Paint_Dusk(Tools& control);

}  // namespace gallery
