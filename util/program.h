/// @file
/// What the libraries know of the program they run in.
#pragma once

#include <windows.h>

#include "api.h"

extern "C" {

/// The application's main window, handed to every report. Null until the application sets it.
extern GALDREN_UTIL_API HWND hwnd;

/// Directory of the installation, with a trailing backslash; "Icons\" is looked for below it. Set at load
/// to the directory that this library was loaded from. The application may point it elsewhere; it keeps
/// the text alive.
extern GALDREN_UTIL_API const char* Inst_Path;

/// Name of the program without directory and extension, shown in front of every report. Set at load; the
/// application may point it elsewhere and keeps the text alive.
extern GALDREN_UTIL_API const char* Prog_Name;
}
