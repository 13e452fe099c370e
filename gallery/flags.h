/// @file
/// The small pictures in the manual's tables of flags.
#pragma once

#include <string>

namespace gallery {

/// Writes a picture of what each flag does to DIRECTORY\CLASS-FLAG.png: the control at rest and, at its
/// right, with the pointer on it. Throws when a picture cannot be written.
void Write_Flags(const std::string& directory);

}  // namespace gallery
