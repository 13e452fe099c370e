/// @file
/// What painting needs to know of a font, asked of the system once.
#pragma once

#include <windows.h>

#include <array>
#include <memory>
#include <string_view>

namespace galdren {

/// What a font has for a character.
struct Glyph {
    static constexpr WORD None = 0xFFFF;
    static constexpr int Unasked = -1;

    WORD index = None;    ///< `None` where it is left to DrawText, which knows other fonts and how to lay out
    int width = Unasked;  ///< advance in pixels
};

/// Metrics and glyphs of a font. Made and asked under the lock, for the code page that is in use when it is
/// made.
class Font_Facts {
  public:
    explicit Font_Facts(HFONT font);

    const TEXTMETRICA& Metrics() const { return metrics; }

    /// Takes the first character off a text that is not empty.
    Glyph Take(std::string_view& text) {
        const Glyph glyph = singles[static_cast<unsigned char>(text.front())];
        if (glyph.width == Glyph::Unasked) return Take_Coded(text);
        text.remove_prefix(1);
        return glyph;
    }

  private:
    static constexpr std::size_t Block_Size = 256;
    using Block = std::array<Glyph, Block_Size>;

    Glyph Take_Coded(std::string_view& text);
    Glyph Ask(HDC dc, unsigned code) const;

    HFONT font;
    TEXTMETRICA metrics{};
    Block singles;                                                    ///< of the characters of one byte
    std::array<std::unique_ptr<Block>, 0x10000 / Block_Size> others;  ///< by their codes; grows with its use
};

/// The context on which texts are measured, with the font in place; null means the stock system font.
HDC Measure_With(HFONT font);

}  // namespace galdren
