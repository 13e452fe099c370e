/// @file
/// Galdren_Util: the companion library of Galdren_Tools. Include this one header.
#pragma once

#include "util/code_page.h"
#include "util/color_space.h"
#include "util/directory.h"
#include "util/error.h"
#include "util/image.h"
#include "util/program.h"
