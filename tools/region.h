/// @file
/// Rectangle regions, shared by controls in the same place.
#pragma once

#include <windows.h>

namespace galdren {

/// Notes one more holder of a region.
void Share_Region(HRGN region);

/// Releases a region, unless another control still holds it.
void Release_Region(HRGN region);

}  // namespace galdren
