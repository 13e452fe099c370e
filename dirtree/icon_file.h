/// @file
/// The files of icons.
#pragma once

#include "dirtree/icon_entry.h"

namespace galdren {

/// Reads the file that `entry` is named after and gives it its size and pixels. When that fails it is
/// reported, and `entry` stays as it is.
void Read_Icon_File(Icon_Entry& entry);

}  // namespace galdren
