/// @file
/// What has been painted so far, for who wants to know what something costs.
#pragma once

#include <windows.h>

#include "api.h"

/// Sums since the library was loaded, of all windows and threads.
struct Paint_Count {
    unsigned long long paints = 0;  ///< by members, each with all that the control is made of
    unsigned long long copies = 0;  ///< of what was painted to a window or to another context
    unsigned long long bytes = 0;   ///< that were copied so, four a pixel
};

/// What has been painted until now. The difference of two answers is what was painted in between. What an
/// application paints on `Z_DC` by itself, and the ring and the outline, are not counted. For every thread.
GALDREN_TOOLS_API Paint_Count Tools_Paint_Count();

namespace galdren {

/// Counts a paint, or a copy of so many pixels. The lock is held.
/// @{
void Count_Paint();
void Count_Copy(SIZE copied);
/// @}

}  // namespace galdren
