/// @file
/// Pictures as PNG files.
#pragma once

#include <optional>
#include <string>

#include "tests/support/window.h"

namespace galdren_test {

/// @return nothing when there is no such file, or it is not a picture
std::optional<Picture> Read_Png(const std::string& path);
/// @return whether the file could be written
bool Write_Png(const Picture& picture, const std::string& path);

}  // namespace galdren_test
