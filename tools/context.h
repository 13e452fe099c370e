/// @file
/// The library's own side of the surface: what its members use instead of `Begin_Draw` and `End_Draw`.
#pragma once

#include <windows.h>

namespace galdren {

/// The context in use and how to paint on it.
struct View {
    HDC dc;       ///< null when there is nothing to paint on
    LONG height;  ///< of the client area
    bool mapped;  ///< logical coordinates, y upward; otherwise device coordinates, y downward
};

/// Takes the surface of `window` for a member. It differs from an application's `Begin_Draw` in two ways that
/// save most of the time: the context need not be mapped, and the font that is selected may stay for the next
/// member, as long as no application draws in between.
View Take_Surface(HWND window);

/// Takes the surface for a member that covers a rectangle of logical pixels completely, edges included
/// (`top` holds the lower y). As far as it is not held already, the rectangle is composed off screen, where
/// the font of the last member is still in place, and goes to the window in one copy.
View Take_Surface(HWND window, const RECT& covered);

/// The same for a member that paints anew only what changed. The library keeps one such picture, that of the
/// last control that asked.
/// @param picture  number of the picture that the control painted last. Receives the number of the one in
///                 use: unchanged, that picture still holds what was painted; another, it holds nothing; 0,
///                 the member paints on whatever the window shows.
View Take_Surface(HWND window, const RECT& covered, unsigned& picture);

/// Makes the kept picture hold nothing, for a control that does not know any more what is on it.
void Forget_Kept_Picture();

/// Moves what the kept picture in use holds up by `rows`, or down when negative, by less than its height. The
/// rows that come in hold anything.
void Raise_Kept_Picture(int rows);

/// Gives back what `Take_Surface` took.
void Give_Back_Surface();

/// The window that this thread is drawing in; null when it draws in none.
HWND Window_In_Use();

/// Selects `font`, or the stock system font when null, on the surface in use, unless it is in place already.
/// The surface restores the font before as soon as somebody else may draw on it.
void Use_Font(HFONT font);

/// Pointer position in the logical coordinates of `window`.
/// @return false when there is no such window or its client area is empty
bool Find_Pointer(HWND window, POINT& position);

/// Takes a font off all off-screen contexts before it is deleted.
void Put_Away_Font(HFONT font);

/// Frees the off-screen contexts of all batches. No batch may be open on any thread.
void Free_Back_Buffers();

}  // namespace galdren
