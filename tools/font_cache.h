/// @file
/// Fonts shared by all controls that ask for the same words and size, and what is known of them.
#pragma once

#include <windows.h>

#include <string_view>

#include "tools/font_facts.h"

namespace galdren {

/// The font that `Z_Create_Font` would make, shared with every other holder.
HFONT Acquire_Font(HWND window, const char* face, const char* weight, const char* style, short points);

/// A font for its caller alone; null when all words are null and points is 0, or when it cannot be made,
/// which is reported once at level 7.
HFONT Make_Font(HWND window, const char* face, const char* weight, const char* style, short points);

/// Notes more holders of a font.
void Share_Font(HFONT font, unsigned holders = 1);

/// Lets go of a font. Null and the stock system font are left alone.
void Release_Font(HFONT font);

/// Facts of a font from the cache; null for any other font, whose handle may stand for another one tomorrow.
/// For the thread that holds the lock.
Font_Facts* Facts_Of(HFONT font);

/// Metrics of a font; null means the stock system font.
TEXTMETRICA Metrics_Of(HFONT font);

/// Width of a text in pixels, with 3 average characters added for every tab.
int Width_Of(HFONT font, std::string_view text);

/// Writes `text`, as far as whole characters fit into 255 bytes, top-left at (x, y) of the context, with a
/// tab stop every 4 average characters.
/// @param metrics  of the font in place
void Write_Tabbed(HDC dc, int x, int y, std::string_view text, const TEXTMETRICA& metrics);

/// `Text_Width` of the font in place on `dc`.
int Extent_In_Place(HDC dc, std::string_view text);

/// Metrics of the font in place on `dc`.
TEXTMETRICA Metrics_In_Place(HDC dc);

}  // namespace galdren
