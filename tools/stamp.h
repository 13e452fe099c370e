/// @file
/// Pictures from files on the bodies of controls.
#pragma once

#include "tools/fields.h"

namespace galdren {

/// Reads the picture of a control; see `Tools::Icon`.
/// @return whether it was read; otherwise that is reported
bool Read_Icon_Pixels(Tools_Fields& control, const char* file);

/// Makes the images of a control that has a picture, when it is new or what they depend on has changed. Drops
/// the picture of one that has got other images.
void Renew_Icon_Images(Tools_Fields& control);

}  // namespace galdren
