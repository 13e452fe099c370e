/// @file
/// Fonts shared by all controls that ask for the same words and size.
#pragma once

#include <windows.h>

namespace galdren {

/// The font that `Z_Create_Font` would make, shared with every other holder.
HFONT Acquire_Font(HWND window, const char* face, const char* weight, const char* style, short points);

/// Notes one more holder of a font, made by either function.
void Share_Font(HFONT font);

/// What painting needs to know of a font, asked of the system once.
struct Font_Facts {
    static constexpr WORD No_Glyph = 0xFFFF;

    TEXTMETRICA metrics;
    WORD glyphs[256];  ///< of each byte in the system's code page; `No_Glyph` where the font has none
    int widths[256];   ///< advance of each glyph in pixels
};

/// Facts of a font from the cache; null for any other font, whose handle may stand for another one tomorrow.
/// @param dc  a context that has the font in place, one unit a pixel
const Font_Facts* Facts_Of(HFONT font, HDC dc);

/// Writes the first 255 bytes of `text`, top-left at (x, y) of the context, with a tab stop every 4 average
/// characters.
/// @param metrics  of the font in place
void Write_Tabbed(HDC dc, int x, int y, const char* text, const TEXTMETRICA& metrics);

/// `Text_Width` of the font in place on `dc`.
int Extent_In_Place(HDC dc, const char* text);

}  // namespace galdren
