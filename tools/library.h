/// @file
/// The library as a whole: version and shutdown.
#pragma once

#include "api.h"

/// The version of these headers, not that of a library that the linker may take it from.
static constexpr const char* Tools_Version() { return "21.6"; }

/// The version text, "Galdren_Tools.dll 21.6 (rev-a)", in a static buffer.
/// @param wanted  version the application was built for; null accepts any
/// @return null when `wanted` is another version than this one
GALDREN_TOOLS_API char* Get_Version_Tools(const char* wanted);

/// Releases what the library keeps for the whole process. The application calls it once at shutdown, when
/// no drawing is in progress; the library remains usable and builds up again what it needs.
GALDREN_TOOLS_API void Tools_Lib_Cleanup();
