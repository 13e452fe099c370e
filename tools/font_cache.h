/// @file
/// Fonts shared by all controls that ask for the same words and size, and what is known of them.
#pragma once

#include <windows.h>

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

/// What painting needs to know of a font, asked of the system once.
struct Font_Facts {
    static constexpr WORD No_Glyph = 0xFFFF;

    TEXTMETRICA metrics;
    WORD glyphs[256];  ///< of each byte in the system's code page; `No_Glyph` where the font has none
    int widths[256];   ///< advance of each glyph in pixels
};

/// Facts of a font from the cache; null for any other font, whose handle may stand for another one tomorrow.
/// For the thread that holds the lock.
const Font_Facts* Facts_Of(HFONT font);

/// Metrics of a font; null means the stock system font.
TEXTMETRICA Metrics_Of(HFONT font);

/// Width of a text in pixels, with 3 average characters added for every tab.
int Width_Of(HFONT font, const char* text);

/// Writes the first 255 bytes of `text`, top-left at (x, y) of the context, with a tab stop every 4 average
/// characters.
/// @param metrics  of the font in place
void Write_Tabbed(HDC dc, int x, int y, const char* text, const TEXTMETRICA& metrics);

/// `Text_Width` of the font in place on `dc`.
int Extent_In_Place(HDC dc, const char* text);

/// Metrics of the font in place on `dc`.
TEXTMETRICA Metrics_In_Place(HDC dc);

}  // namespace galdren
