/// @file
/// Error reports: one function that everything reports through, filtered by level.
#pragma once

#include <windows.h>

#include "api.h"

/// How serious a report is; a lower level is more serious.
enum Error_Level {
    ERROR_LEVEL_MEMORY = 1,    ///< an allocation failed
    ERROR_LEVEL_FAILURE = 2,   ///< a failure that the user should see
    ERROR_LEVEL_FONT = 7,      ///< a font could not be made
    ERROR_LEVEL_WARNING = 11,  ///< the application misuses a control
    ERROR_LEVEL_TRACE = 15     ///< a trace
};

extern "C" {

/// Receives the reports that pass the level filter, in place of the standard output of reports.
///
/// The thread that reports may hold the drawing lock: a handler that waits for another thread to paint would
/// wait for ever, and one that shows a window keeps others from painting.
/// @param window  the window that `Error_Fct` was given
/// @param level   level of the report
/// @param text    the formatted text without the format's style bytes, valid during the call
typedef void (*Error_Handler)(HWND window, int level, const char* text);

/// Reports a text. Without a handler it goes to standard error and to the debugger, headed by `Prog_Name`.
///
/// The format may carry style bytes, made for reports in colour: 0xF1 followed by a style code, and the bytes
/// 0x01 and 0x02. They are taken out of it; what the arguments hold is shown as it is. A text of more than
/// 2047 bytes is cut.
/// May be called on any thread.
/// @param window  the application's main window, usually `hwnd`
/// @param level   see `Error_Level`; the report is dropped when it is above the level that was set
/// @param format  a printf format with its arguments; null reports nothing
GALDREN_UTIL_API void Error_Fct(HWND window, int level, const char* format, ...) GALDREN_PRINTF(3, 4);

/// The system's text for the errno value `error`, valid until the thread's next call.
GALDREN_UTIL_API const char* Error_Perror(int error);

/// Drops reports above `level` from now on. At load the level is that of the environment variable
/// GALDREN_ERROR_LEVEL, or 11 without one.
/// @return the level before
GALDREN_UTIL_API int Error_Set_Level(int level);

/// Sends reports to `handler` from now on; null goes back to standard error and the debugger.
/// @return the handler before, null for the standard one
GALDREN_UTIL_API Error_Handler Error_Set_Handler(Error_Handler handler);
}
