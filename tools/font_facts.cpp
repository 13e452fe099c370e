#include "tools/font_facts.h"

#include <algorithm>
#include <iterator>
#include <new>

#include "tools/code_page.h"
#include "tools/lock.h"
#include "tools/picture.h"

namespace galdren {

namespace {

constexpr unsigned Broken = 0xFFFD;

/// Texts are measured with its context, and glyphs painted on it to see what they are made of.
struct Measuring_Picture : Picture {
    static constexpr SIZE Room{96, 96};
    Measuring_Picture() : Picture(Room) {}
};

/// Whether a character looks the same beside any others. Accents combine, and in many scripts letters change
/// their place or shape.
bool Stands_Alone(unsigned code) {
    struct Range {
        unsigned first, last;
    };
    constexpr Range Ranges[] = {
        {0x0020, 0x02FF}, {0x0370, 0x0482}, {0x048A, 0x058F},  // Latin, Greek, Cyrillic, Armenian
        {0x1E00, 0x1FFF}, {0x2010, 0x2027}, {0x2030, 0x205E}, {0x2070, 0x20CF}, {0x2100, 0x2BFF},
        {0x2E80, 0x3029}, {0x3030, 0x3098}, {0x309B, 0xA4CF}, {0xAC00, 0xD7A3},  // Chinese, Japanese, Korean
        {0xF900, 0xFAFF}, {0xFF01, 0xFFEF},
    };
    return std::any_of(std::begin(Ranges), std::end(Ranges),
                       [=](const Range& range) { return code >= range.first && code <= range.last; });
}

}  // namespace

Font_Facts::Font_Facts(HFONT asked) : font(asked) {
    const HDC dc = Measure_With(font);
    GetTextMetricsA(dc, &metrics);
    for (unsigned byte = 0; byte < Block_Size; ++byte) {
        const char text = static_cast<char>(byte);
        unsigned code = 0;
        Text_Decode(&text, 1, &code);
        if (code != Broken) singles[byte] = Ask(dc, code);
    }
}

/// Every character of a font of bitmaps is left to DrawText.
Glyph Font_Facts::Ask(HDC dc, unsigned code) const {
    Glyph glyph{Glyph::None, 0};
    if (!(metrics.tmPitchAndFamily & TMPF_TRUETYPE) || !Stands_Alone(code)) return glyph;
    const auto wide = static_cast<WCHAR>(code);
    GetGlyphIndicesW(dc, &wide, 1, &glyph.index, GGI_MARK_NONEXISTING_GLYPHS);
    SIZE extent{};
    GetTextExtentPoint32W(dc, &wide, 1, &extent);
    glyph.width = extent.cx;
    return glyph;
}

Glyph& Font_Facts::Take_Coded(std::string_view& text) {
    static Glyph other;
    other = {};
    unsigned code = 0;
    text.remove_prefix(
        static_cast<std::size_t>(Text_Decode(text.data(), static_cast<int>(text.size()), &code)));
    if (code > 0xFFFF) return other;
    std::unique_ptr<Block>& block = others[code / Block_Size];
    if (!block) block.reset(new (std::nothrow) Block);
    if (!block) return other;
    Glyph& glyph = (*block)[code % Block_Size];
    if (glyph.width == Glyph::Unasked) glyph = Ask(Measure_With(font), code);
    return glyph;
}

/// Paints the glyph in black on white, and notes what is black: anything else that is not white is smoothing.
/// Letters reach beyond their place by less than they are high.
int Font_Facts::Find_Spots(Glyph& glyph) try {
    constexpr std::size_t Most_Spots = 1 << 18;
    constexpr unsigned long Black = 0, White = 0xFFFFFF, Color_Bits = 0xFFFFFF;
    auto& picture = The<Measuring_Picture>();
    const LONG around = metrics.tmHeight;
    const RECT box{0, 0, glyph.width + 2 * around, 3 * around};
    if (!picture.Usable() || !picture.Has_Room({box.right, box.bottom}) || spots.size() > Most_Spots)
        return Glyph::Left_To_GDI;
    Fill_Pixels(picture.Pixels(), box, Pixel{White});
    const HDC dc = picture.With_Text(font, Black);
    const WCHAR index = glyph.index;
    GLYPHMETRICS painted{};
    constexpr MAT2 Upright{{0, 1}, {0, 0}, {0, 0}, {0, 1}};
    if (GetGlyphOutlineW(dc, index, GGO_BITMAP | GGO_GLYPH_INDEX, &painted, 0, nullptr, &Upright) ==
        GDI_ERROR)
        return Glyph::Left_To_GDI;
    glyph.step = painted.gmCellIncX;
    ExtTextOutW(dc, around, around, ETO_GLYPH_INDEX, nullptr, &index, 1, nullptr);
    const Raster& raster = picture.Pixels();
    const std::size_t first = spots.size();
    for (LONG y = 0; y < box.bottom; ++y) {
        for (LONG x = 0; x < box.right; ++x) {
            const unsigned long pixel = *raster.At(x, y) & Color_Bits;
            if (pixel == White) continue;
            if (pixel != Black) {
                spots.resize(first);
                return Glyph::Left_To_GDI;
            }
            spots.push_back({static_cast<SHORT>(x - around), static_cast<SHORT>(y - around)});
        }
    }
    glyph.first_spot = static_cast<int>(first);
    return static_cast<int>(spots.size() - first);
} catch (const std::bad_alloc&) {
    return Glyph::Left_To_GDI;
}

HDC Measure_With(HFONT font) { return The<Measuring_Picture>().With_Font(font); }

}  // namespace galdren
