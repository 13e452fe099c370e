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
/// Passes when a picture is that in NAME.png of a directory. With a directory in the environment variable
/// GALDREN_RECORD it is written there first, and compared with that.
testing::AssertionResult Is_Recorded(const Picture& picture, const std::string& directory,
                                     const std::string& name);

}  // namespace galdren_test
