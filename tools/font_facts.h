/// @file
/// What painting needs to know of a font, asked of the system once.
#pragma once

#include <windows.h>

#include <array>
#include <memory>
#include <span>
#include <string_view>
#include <vector>

namespace galdren {

/// What a font has for a character.
struct Glyph {
    static constexpr WORD None = 0xFFFF;
    static constexpr int Unasked = -1;
    static constexpr int Left_To_GDI = -2;

    WORD index = None;    ///< `None` where it is left to DrawText, which knows other fonts and how to lay out
    int width = Unasked;  ///< advance in pixels, as it is measured
    int spots = Unasked;  ///< see `Font_Facts::Has_Spots`
    int first_spot = 0;
    int step = 0;  ///< advance as it is painted, which Wine works out in another way
};

/// Metrics and glyphs of a font. Made and asked under the lock, for the code page that is in use when it is
/// made.
class Font_Facts {
  public:
    explicit Font_Facts(HFONT font);

    const TEXTMETRICA& Metrics() const { return metrics; }

    /// Takes the first character off a text that is not empty.
    Glyph& Take(std::string_view& text) {
        Glyph& glyph = singles[static_cast<unsigned char>(text.front())];
        if (glyph.width == Glyph::Unasked) return Take_Coded(text);
        text.remove_prefix(1);
        return glyph;
    }

    /// Whether all that a glyph paints is a number of pixels in the colour of the text, as without smoothing.
    bool Has_Spots(Glyph& glyph) {
        if (glyph.spots == Glyph::Unasked) glyph.spots = Find_Spots(glyph);
        return glyph.spots != Glyph::Left_To_GDI;
    }
    /// These pixels, counted from the top left corner of its place.
    std::span<const POINTS> Spots(const Glyph& glyph) const {
        return {spots.data() + glyph.first_spot, static_cast<std::size_t>(glyph.spots)};
    }

  private:
    static constexpr std::size_t Block_Size = 256;
    using Block = std::array<Glyph, Block_Size>;

    Glyph& Take_Coded(std::string_view& text);
    Glyph Ask(HDC dc, unsigned code) const;
    int Find_Spots(Glyph& glyph);

    HFONT font;
    TEXTMETRICA metrics{};
    Block singles;                                                    ///< of the characters of one byte
    std::array<std::unique_ptr<Block>, 0x10000 / Block_Size> others;  ///< by their codes; grows with its use
    std::vector<POINTS> spots;                                        ///< of all glyphs; likewise
};

/// The context on which texts are measured, with the font in place; null means the stock system font.
HDC Measure_With(HFONT font);

}  // namespace galdren
