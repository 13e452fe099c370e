/// @file
/// What an application sees of the drawing in progress.
#pragma once

#include <windows.h>

#include "api.h"

/// The lock that every paint holds. Ready once `Critical_Flag` is set.
extern GALDREN_TOOLS_API CRITICAL_SECTION Critical;
/// 1 once `Critical` has been made, which the first `Begin_Draw` does.
extern GALDREN_TOOLS_API unsigned char Critical_Flag;
/// Device context of the drawing in progress on the thread that holds the lock; null otherwise.
extern GALDREN_TOOLS_API HDC Z_DC;
/// Window that `Z_DC` belongs to; null when no drawing is in progress.
extern GALDREN_TOOLS_API HWND Z_Window;
/// Colour of the line, box and frame helpers, in the GDI form of `Colors::get`.
extern GALDREN_TOOLS_API unsigned long Current_Color;
