/// @file
/// Modal dialogs: a message, or a question, in a text field with its buttons below.
///
/// The dialog belongs to the window that is active, which is usable and active again when the function
/// returns. One dialog of each kind can be open: a second call meanwhile, from a timer for instance, is
/// reported at level 11 and answers -1.
///
/// Enter and Space press the button that has the keyboard, the first one to begin with; Tab and the arrows go
/// to another; Y and N answer a question; Escape does what the close box does. Arrows up and down, Page Up,
/// Page Down, Home and End scroll the text.
///
/// A message of up to 256 bytes is shown up to its 255th. A longer one is cut into its lines, with zeros
/// written into the caller's text where they end; each line is shown up to its 255th byte, empty ones not at
/// all, and of more than 4095 the first are left out. In both, "%%" is shown as "%", and the codes of
/// `Text_Code` switch colour and font.
#pragma once

#include <windows.h>

#include "../tools/api.h"
#include "../tools/theme.h"

/// Says at which scale and in which theme dialogs are shown that belong to a window, or to a window that
/// belongs to it. They keep it until the dialog that is open is closed. A window of which nothing is said has
/// dialogs at 100 % and without a theme.
/// @param scale  in percent: widths and heights of dialogs are in pixels at 100 %; 0 means 100
/// @param look   null means none; not owned, see `Keep_Theme`
GALDREN_TOOLS_API void Set_Dialog_Look(HWND owner, unsigned short scale, const Theme* look);

/// Shows a message with the button "OK" until it is pressed or the dialog is closed.
/// @param title    text of the title bar, cut at 49 characters; may be null
/// @param caption  caption of the text field; may be null
/// @param message  the text; may be null; see above for what happens to a long one
/// @param width    width of the client area in pixels at 100 %; 0 means 300
/// @param height   height of the client area in pixels at 100 %; 0 means 150
/// @return 0 for "OK"; what the system answers when the dialog was closed otherwise; -1 when it could not be
///         opened
GALDREN_TOOLS_API int PopUp_Message(const char* title, const char* caption, char* message, short width,
                                    short height);

/// Asks a question with the buttons "Yes" and "No"; see `PopUp_Message`.
/// @return 1 for "Yes", and for nothing else; 0 for "No"; what the system answers when the dialog was closed
///         otherwise, which is never 1; -1 when it could not be opened or the application quits
GALDREN_TOOLS_API int PopUp_Querry(const char* title, const char* caption, char* message, short width,
                                   short height);
