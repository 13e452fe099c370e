/// @file
/// A number that tells whether controls have moved.
#pragma once

#include "api.h"

/// How often a control got another hit rectangle (`Tools::Rect`) so far, from `Init` or as a copy, in any
/// window of the process. Who has noted the rectangles need not look at them again while it stays the same.
/// For every thread.
GALDREN_TOOLS_API unsigned Tools_Placements();
