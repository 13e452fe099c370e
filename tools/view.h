/// @file
/// Where members paint: in memory, as long as there is any, and what was painted goes to the window in one
/// copy. Everything nests in any way on one thread, under the lock.
#pragma once

#include <windows.h>

#include "tools/area.h"
#include "tools/sheet.h"

namespace galdren {

/// What to paint on.
struct View {
    Sheet* sheet = nullptr;  ///< pixels and a context for text; null without memory
    HDC dc = nullptr;   ///< without a sheet, for everything, in pixels of the client area; null, for nothing
    POINT origin{};     ///< where the sheet begins in the client area
    RECT clip{};        ///< what may be painted of the client area, y downward
    SIZE client{};      ///< size of the client area
    bool kept = false;  ///< the sheet still holds what was painted on it
};

/// What a member is about to paint.
struct Reach {
    Area area;                    ///< all that it may paint, edges included
    Area covered{0, -1, 0, -1};   ///< where it leaves nothing to be seen of what is there
    unsigned* picture = nullptr;  ///< see `Take_View`
    bool is_part = false;         ///< of whatever is being painted
};

/// Takes the surface for a member. It paints where the control that it is a part of paints, in the batch that
/// is open or the picture that is held, or else on a sheet of its own, which starts with what the window
/// shows, where that is not covered.
///
/// A member that repaints only what changed gives the number of the picture that it painted last. The library
/// keeps that of the last one that asked. The number becomes that of the picture in use; 0, none is kept.
View Take_View(HWND window, const Reach& reach);

/// Takes a context of the window for several paints beside each other, which then need not take one each.
/// Given back like a view.
void Take_Context(HWND window);

/// Gives back what `Take_View` took.
/// @param painted  what was painted of the client area
void Give_Back_View(const RECT& painted);

/// Limits what is painted inside the innermost view; at first that is its clip.
void Limit_Nested(const RECT& clip);

/// Makes the kept picture hold nothing, for a control that does not know any more what is on it.
void Forget_Kept_Picture();

/// The window that this thread is painting in; null when it paints in none.
HWND Window_In_Use();

/// A pair of `Begin_Draw` and `End_Draw`.
void Open_Pair(HWND window);
void Close_Pair();

/// A batch.
/// @param area  what it fills with `color`, and all that counts then; null, it starts with what the window
/// shows
void Open_Batch(HWND window, const RECT* area, unsigned long color);
void Close_Batch();

/// A window whose picture is held.
void Open_Hold(HWND window);
void Close_Hold(HWND window);
bool Show_Held(HWND window, HDC target, const RECT& area);

}  // namespace galdren
