/// @file
/// Cursor shapes and the nesting wait cursor. For the thread that runs the windows; nothing is locked. The
/// window argument of these functions is not used.
#pragma once

#include <windows.h>

#include "api.h"

extern GALDREN_TOOLS_API unsigned char Wait_Count;    ///< nesting depth of the wait cursor
extern GALDREN_TOOLS_API unsigned char Cursor_Shape;  ///< 0 none, 1 application's, 3 drag, 4 cross, 5 arrow
extern GALDREN_TOOLS_API HCURSOR Cursor_Saved;        ///< cursor in place before the last shape
extern GALDREN_TOOLS_API HCURSOR Cursor_Saved_Wait;   ///< cursor in place before the wait cursor

/// Shows the application's own `cursor` (an HCURSOR). During a wait the wait cursor is shown instead.
GALDREN_TOOLS_API void Set_Curs(HWND window, void* cursor);
/// Shows the drag shape, which is the standard arrow. During a wait the wait cursor is shown instead.
GALDREN_TOOLS_API void Set_Curs_Drag(HWND window);
/// Shows the cross. During a wait the wait cursor is shown instead.
GALDREN_TOOLS_API void Set_Curs_Cross(HWND window);
/// Shows the arrow. During a wait the wait cursor is shown instead.
GALDREN_TOOLS_API void Set_Curs_Arrow(HWND window);
/// Undoes the last shape; without one it ends the wait, all levels at once.
GALDREN_TOOLS_API void Reset_Curs(HWND window);
/// Shows the wait cursor and goes one level deeper; a shape is undone first.
GALDREN_TOOLS_API void Set_Curs_Wait(HWND window);
/// Leaves one level of waiting; the last restores the cursor before.
GALDREN_TOOLS_API void Reset_Curs_Wait(HWND window);
/// Counts one level of waiting without changing the cursor, and reports it at level 11.
GALDREN_TOOLS_API void Set_Wait_Flag();
