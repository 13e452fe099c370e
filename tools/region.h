/// @file
/// The regions of controls, which copies share.
#pragma once

#include "tools/fields.h"

namespace galdren {

/// Makes the region of a control that of its rectangle; null when there are no more of them to be had.
void Renew_Region(Tools_Fields& control);

/// Notes one more holder of a region.
void Share_Region(HRGN region);

/// Takes the region of a control away; it goes unless a copy still holds it.
void Drop_Region(Tools_Fields& control);

}  // namespace galdren
