/// @file
/// Fonts and measuring of text.
#pragma once

#include <windows.h>

#include "../util/code_page.h"
#include "api.h"

/// Makes a font.
/// @param window  window whose resolution counts
/// @param face    face name; null means "Arial"
/// @param weight  "bold" for bold, any other word or null for the default weight
/// @param style   "i" or "o" for italic, any other word or null for upright
/// @param points  height in points; below 1 means 12
/// @return the font, to be given back with `Z_Delete_Font`; null when all words are null and points is 0, or
///         when the font cannot be made, which is reported once at level 7
GALDREN_TOOLS_API HFONT Z_Create_Font(HWND window, const char* face, const char* weight, const char* style,
                                      short points);

/// Gives a font back. Null and the stock system font are left alone.
/// @param window  not used
GALDREN_TOOLS_API void Z_Delete_Font(HWND window, HFONT font);

/// Width of `text` in pixels on the surface in use, with 3 average characters added for every tab.
/// @param font  null means the stock system font
GALDREN_TOOLS_API int Text_Width(HFONT font, const char* text);

/// Character height of `font` in pixels on the surface in use.
/// @param font  null means the stock system font
GALDREN_TOOLS_API int Text_Height(HFONT font);

/// Characters of `text`, a letter with the marks that combine with it counted as one. Null has none.
GALDREN_TOOLS_API int Text_Characters(const char* text);

/// Writes `text`, as far as whole characters fit into 255 bytes, on the surface in use, top-left at (x, y +
/// height of the font), with a tab stop every 4 average characters.
/// @param font  null means the stock system font
GALDREN_TOOLS_API void Text_Tabbed(HFONT font, int x, int y, const char* text);

/// `text` with every '&' doubled, so that it is shown as it stands.
/// @return `text` itself when it is empty, longer than 128 bytes or without '&'; otherwise a static buffer,
///         valid until the next call under the drawing lock
GALDREN_TOOLS_API char* Escape_Ampersand(const char* text);
