/// @file
/// Export marks of Galdren_Tools.
#pragma once

#include "../util/api.h"

#if defined(GALDREN_STATIC)
#define GALDREN_TOOLS_API
#elif defined(GALDREN_TOOLS_BUILD)
#define GALDREN_TOOLS_API __declspec(dllexport)
#else
#define GALDREN_TOOLS_API __declspec(dllimport)
#endif
