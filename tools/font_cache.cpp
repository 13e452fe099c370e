#include "tools/font_cache.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <compare>
#include <cstdlib>
#include <cstring>
#include <map>
#include <new>

#include "tools/arithmetic.h"
#include "tools/lock.h"
#include "tools/picture.h"
#include "tools/sharing.h"
#include "util/error.h"
#include "util/program.h"

namespace galdren {

namespace {

struct Measuring_Picture : Picture {
    Measuring_Picture() : Picture({1, 1}) {}
};

/// Resolution of the display in pixels per inch. It is fixed for the life of a process, and asking for it is
/// slow.
struct Resolution {
    int x = 0;
    int y = 0;
    explicit Resolution(HWND window) {
        if (const HDC dc = GetDC(window)) {
            x = GetDeviceCaps(dc, LOGPIXELSX);
            y = GetDeviceCaps(dc, LOGPIXELSY);
            ReleaseDC(window, dc);
        }
        if (x < 1 || y < 1) x = y = USER_DEFAULT_SCREEN_DPI;
    }
};

int Pixel_Height(HWND window, short points) {
    static const Resolution resolution(window);
    constexpr short Default_Points = 12;
    const float pixels_per_point_base = static_cast<float>(resolution.x) / 96.0F * 72.0F;
    const int scaled = (points < 1 ? Default_Points : points) * resolution.y;
    return std::abs(Truncate(static_cast<float>(scaled) / pixels_per_point_base));
}

/// What a font is made from, in the form in which equal fonts are equal.
struct Font_Key {
    std::array<char, LF_FACESIZE> face{};
    int height;
    bool bold;
    bool italic;

    Font_Key(HWND window, const char* face_word, const char* weight, const char* style, short points)
        : height(Pixel_Height(window, points)),
          bold(weight && std::strcmp(weight, "bold") == 0),
          italic(style && (std::strcmp(style, "i") == 0 || std::strcmp(style, "o") == 0)) {
        std::strncpy(face.data(), face_word ? face_word : "Arial", LF_FACESIZE - 1);
    }

    auto operator<=>(const Font_Key&) const = default;
};

using Font_Pool = Pool<Thing::Font, Font_Key, HFONT>;

/// Facts of the fonts in the pool, and those asked for last: most paints stay with one font.
struct Facts_Cache {
    std::map<HFONT, Font_Facts> facts;
    const std::pair<const HFONT, Font_Facts>* last = nullptr;
};

/// Accents that combine, and scripts whose letters change their place or shape beside others.
bool Needs_Layout(WCHAR character) {
    return (character >= 0x0300 && character <= 0x036F) || (character >= 0x0590 && character <= 0x10FF);
}

/// Glyphs are looked up byte by byte, which is right in the code pages of one byte a character. A character
/// without one, and every one of a font of bitmaps, is left to DrawText.
Font_Facts Ask_Facts(HDC dc) {
    Font_Facts facts{};
    GetTextMetricsA(dc, &facts.metrics);
    CPINFO code_page{};
    const bool scalable = (facts.metrics.tmPitchAndFamily & TMPF_TRUETYPE) != 0;
    const bool by_glyph = scalable && GetCPInfo(CP_ACP, &code_page) && code_page.MaxCharSize == 1;
    for (int byte = 0; byte < 256; ++byte) {
        WORD& glyph = facts.glyphs[byte];
        glyph = Font_Facts::No_Glyph;
        const char text = static_cast<char>(byte);
        WCHAR wide = 0;
        if (!by_glyph || byte < ' ' || MultiByteToWideChar(CP_ACP, 0, &text, 1, &wide, 1) != 1) continue;
        if (Needs_Layout(wide)) continue;
        GetGlyphIndicesW(dc, &wide, 1, &glyph, GGI_MARK_NONEXISTING_GLYPHS);
        SIZE extent{};
        GetTextExtentPoint32W(dc, &wide, 1, &extent);
        facts.widths[byte] = extent.cx;
    }
    return facts;
}

void Forget_Facts(HFONT font) {
    Facts_Cache& cache = The<Facts_Cache>();
    if (cache.last && cache.last->first == font) cache.last = nullptr;
    cache.facts.erase(font);
}

/// Every failure but the first of the process is silent.
void Report_Failure(const LOGFONTA& description) {
    static std::atomic_flag reported;
    if (reported.test_and_set()) return;
    Error_Fct(hwnd, ERROR_LEVEL_FONT, "WARNING: in Z_Create_Font()");
    Error_Fct(hwnd, ERROR_LEVEL_FONT, "Unable to allocate font:(name:%s height:%d weight:%d )",
              description.lfFaceName, static_cast<int>(description.lfHeight),
              static_cast<int>(description.lfWeight));
}

HFONT Make_Font(const Font_Key& key) {
    LOGFONTA description{};
    description.lfHeight = -key.height;
    description.lfWeight = key.bold ? FW_BOLD : FW_DONTCARE;
    description.lfItalic = key.italic;
    std::memcpy(description.lfFaceName, key.face.data(), key.face.size());
    const HFONT font = CreateFontIndirectA(&description);
    if (!font) Report_Failure(description);
    return font;
}

bool Asks_For_Nothing(const char* face, const char* weight, const char* style, short points) {
    return !face && !weight && !style && points == 0;
}

/// The context on which texts are measured, with the font in place.
HDC Measure_With(HFONT font) { return The<Measuring_Picture>().With_Font(font); }

}  // namespace

HFONT Make_Font(HWND window, const char* face, const char* weight, const char* style, short points) {
    if (Asks_For_Nothing(face, weight, style, points)) return nullptr;
    return Make_Font(Font_Key(window, face, weight, style, points));
}

HFONT Acquire_Font(HWND window, const char* face, const char* weight, const char* style, short points) {
    if (Asks_For_Nothing(face, weight, style, points)) return nullptr;
    const Font_Key key(window, face, weight, style, points);
    return The<Font_Pool>().Acquire(key, [&] {
        const HFONT font = Make_Font(key);
        Forget_Facts(font);  // the handle may have been that of a font which an application deleted
        return font;
    });
}

void Share_Font(HFONT font, unsigned holders) { Share(Thing::Font, font, holders); }

void Release_Font(HFONT font) {
    if (!font || font == GetStockObject(SYSTEM_FONT)) return;
    const Drawing_Lock lock;
    if (!The<Font_Pool>().Release(font)) return;
    Forget_Facts(font);
    Put_Away_Font(font);
    DeleteObject(font);
}

TEXTMETRICA Metrics_In_Place(HDC dc) {
    TEXTMETRICA metrics{};
    GetTextMetricsA(dc, &metrics);
    return metrics;
}

int Extent_In_Place(HDC dc, const char* text) {
    constexpr int Characters_Per_Tab = 3;
    const std::size_t length = std::strlen(text);
    SIZE extent{};
    GetTextExtentPoint32A(dc, text, static_cast<int>(length), &extent);
    const auto tabs = static_cast<int>(std::count(text, text + length, '\t'));
    return extent.cx + (tabs ? Characters_Per_Tab * Metrics_In_Place(dc).tmAveCharWidth * tabs : 0);
}

const Font_Facts* Facts_Of(HFONT font) {
    Facts_Cache& cache = The<Facts_Cache>();
    if (cache.last && cache.last->first == font) return &cache.last->second;
    if (!The<Font_Pool>().Key_Of(font)) return nullptr;
    auto found = cache.facts.find(font);
    try {
        if (found == cache.facts.end())
            found = cache.facts.emplace(font, Ask_Facts(Measure_With(font))).first;
    } catch (const std::bad_alloc&) {
        return nullptr;
    }
    cache.last = &*found;
    return &found->second;
}

TEXTMETRICA Metrics_Of(HFONT font) {
    const Drawing_Lock lock;
    const Font_Facts* facts = Facts_Of(font);
    return facts ? facts->metrics : Metrics_In_Place(Measure_With(font));
}

int Width_Of(HFONT font, const char* text) {
    const Drawing_Lock lock;
    const Font_Facts* facts = Facts_Of(font);
    int width = 0;
    for (const char* at = text; facts && *at; ++at) {
        const auto byte = static_cast<unsigned char>(*at);
        if (facts->glyphs[byte] == Font_Facts::No_Glyph) facts = nullptr;
        if (facts) width += facts->widths[byte];
    }
    return facts ? width : Extent_In_Place(Measure_With(font), text);
}

void Write_Tabbed(HDC dc, int x, int y, const char* text, const TEXTMETRICA& metrics) {
    constexpr int Longest = 255;
    constexpr int Characters_Per_Stop = 4;
    const int stop = Characters_Per_Stop * metrics.tmAveCharWidth;
    const auto length = static_cast<int>(std::find(text, text + Longest, '\0') - text);
    TabbedTextOutA(dc, x, y, text, length, 1, &stop, 0);
}

}  // namespace galdren
