/// @file
/// The drawing surface: one device context at a time, under one lock, in logical pixels.
///
/// Logical (0, 0) is the bottom-left pixel of the window's client area, y grows upward, and one logical unit
/// is one pixel. The lock is re-entrant on its thread, so members that take the surface may be called while
/// it is held.
#pragma once

#include <windows.h>

#include "api.h"
#include "globals.h"

/// Takes the lock and the surface of `window`; `Z_DC` and `Z_Window` are set until the matching `End_Draw`.
/// The context is one of the picture that a batch or a hold of the window paints on, else of the window.
/// Members called in between heed its clip and leave it as it was.
///
/// Pairs nest: an inner pair for the window that is being drawn keeps its context as it stands; for another
/// window the outer context is put aside and comes back. Without a window, or when its context cannot be
/// had, `Z_DC` is null and nothing is painted.
/// @param window  the window to paint in
/// @param region  accepted for the controls' `Clip_Region` and not used
GALDREN_TOOLS_API void Begin_Draw(HWND window, HRGN region);

/// Gives back what the matching `Begin_Draw` took. Without one it does nothing.
GALDREN_TOOLS_API void End_Draw();

/// Limits painting on `Z_DC` to the rectangle from (x, y) to (x + w, y + h), in place of any clip before.
GALDREN_TOOLS_API void Clip_Rect(int x, int y, int w, int h);

/// Limits painting on `Z_DC` to the whole client area of `Z_Window`.
GALDREN_TOOLS_API void Clip_Reset();

/// Begins a paint batch: until the matching `End_Batch` members on this thread, and every `Begin_Draw`, paint
/// on one picture of `window`, which starts with what the window shows.
///
/// The lock is held for the whole batch. Batches nest; those of one window share the picture, and the
/// outermost brings what was painted to the window.
/// @param window  the window to paint in
GALDREN_TOOLS_API void Begin_Batch(HWND window);

/// Begins a paint batch for WM_PAINT: a rectangle is filled with a colour and everything else is left as it
/// is, so that the window need not be read. What is painted outside the rectangle is lost. Inside a batch of
/// the same window it is filled there, and all of that batch counts.
/// @param area   in pixels of the client area, y downward, as in `PAINTSTRUCT::rcPaint`
/// @param color  as in `Current_Color`
GALDREN_TOOLS_API void Begin_Batch(HWND window, const RECT& area, unsigned long color);

/// Begins a paint batch that does not go to `window`, whether it is hidden, covered or held: it is a picture
/// of the client area in one colour, on which members paint, and which `Show_Batch` copies to where it is
/// wanted. `End_Batch` ends it.
/// @param color  as in `Current_Color`
/// @return 1; 0, with no batch begun, when the client area is empty, inside of a member that paints in the
///         window, and without memory, which is reported at level 1
GALDREN_TOOLS_API int Begin_Print(HWND window, unsigned long color);

/// Copies the whole picture of the innermost batch of this thread to a context of any kind, which is
/// afterwards as it was.
/// @param target  reported at level 11 when it is none
/// @param place   where the client area goes, in logical units of `target`, stretched if need be
/// @return 1; 0 when nothing was copied, or there is no picture
GALDREN_TOOLS_API int Show_Batch(HDC target, const RECT& place);

/// Ends the innermost batch of this thread and copies what was painted to its window in one go. Without a
/// batch it does nothing.
GALDREN_TOOLS_API void End_Batch();

/// What is painted in its scope reaches the window in one copy, so that nothing flickers.
class Paint_Batch {
  public:
    /// See `Begin_Batch(window)`.
    explicit Paint_Batch(HWND window) { Begin_Batch(window); }
    /// See `Begin_Batch(window, area, color)`.
    Paint_Batch(HWND window, const RECT& area, unsigned long color) { Begin_Batch(window, area, color); }
    ~Paint_Batch() { End_Batch(); }
    Paint_Batch(const Paint_Batch&) = delete;
    Paint_Batch& operator=(const Paint_Batch&) = delete;
};

/// Holds the picture of a window: from now on members paint on one picture of its client area, and what they
/// painted is copied to the window when they return, or with the end of a batch. Nothing else may paint in
/// the window; what does is painted over with what the picture has. Holds of a window are counted.
///
/// The picture follows the size of the window: at another size it starts with what the window shows, and as
/// logical coordinates begin at the bottom, everything has to be painted anew. Without memory for it the
/// window is painted like any other. It goes with the last `End_Hold`, or with its window.
GALDREN_TOOLS_API void Begin_Hold(HWND window);

/// Ends what `Begin_Hold` began. For a window that is not held it does nothing.
GALDREN_TOOLS_API void End_Hold(HWND window);

/// Copies a part of the picture of a held window to a context, for its WM_PAINT.
/// @param target  a context in pixels of the client area, y downward, such as that of `BeginPaint`
/// @param area    in pixels of the client area, y downward, as in `PAINTSTRUCT::rcPaint`
/// @return 1; 0 when there is no picture of the window at its present size, and it has to be painted anew
GALDREN_TOOLS_API int Show_Hold(HWND window, HDC target, const RECT& area);
