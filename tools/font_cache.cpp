#include "tools/font_cache.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <compare>
#include <cstdlib>
#include <cstring>
#include <map>
#include <new>
#include <string_view>

#include "tools/arithmetic.h"
#include "tools/code_page.h"
#include "tools/lock.h"
#include "tools/picture.h"
#include "tools/sharing.h"
#include "util/error.h"
#include "util/program.h"

namespace galdren {

namespace {

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

/// The character set of fonts that have the letters of the code page. For western texts and those of the
/// system's own page it is that of western fonts, which the system completes by its own.
BYTE Character_Set(unsigned page) {
    constexpr unsigned Western = 1252;
    if (page == Western || page == GetACP()) return ANSI_CHARSET;
    CHARSETINFO found{};
    const bool known =
        page != CP_UTF8 && TranslateCharsetInfo(reinterpret_cast<DWORD*>(static_cast<DWORD_PTR>(page)),
                                                &found, TCI_SRCCODEPAGE) != 0;
    return known ? static_cast<BYTE>(found.ciCharset) : BYTE{DEFAULT_CHARSET};
}

/// What a font is made from, in the form in which equal fonts are equal.
struct Font_Key {
    std::array<wchar_t, LF_FACESIZE> face{};
    int height;
    bool bold;
    bool italic;
    BYTE character_set;

    Font_Key(HWND window, const char* face_word, const char* weight, const char* style, short points)
        : height(Pixel_Height(window, points)),
          bold(weight && std::strcmp(weight, "bold") == 0),
          italic(style && (std::strcmp(style, "i") == 0 || std::strcmp(style, "o") == 0)),
          character_set(Character_Set(Text_Code_Page())) {
        const std::string_view word = face_word ? face_word : "Arial";
        Text_To_Wide(word.data(), static_cast<int>(word.size()), face.data(), LF_FACESIZE - 1);
    }

    auto operator<=>(const Font_Key&) const = default;
};

using Font_Pool = Pool<Thing::Font, Font_Key, HFONT>;

/// Facts of the fonts in the pool, and those asked for last: most paints stay with one font.
struct Facts_Cache {
    std::map<HFONT, Font_Facts> facts;
    std::pair<const HFONT, Font_Facts>* last = nullptr;
    unsigned page = 0;  ///< for which they were asked
};

void Forget_Facts(HFONT font) {
    Facts_Cache& cache = The<Facts_Cache>();
    if (cache.last && cache.last->first == font) cache.last = nullptr;
    cache.facts.erase(font);
}

/// Every failure but the first of the process is silent.
void Report_Failure(const LOGFONTW& description) {
    static std::atomic_flag reported;
    if (reported.test_and_set()) return;
    char face[4 * LF_FACESIZE]{};
    Text_From_Wide(description.lfFaceName, lstrlenW(description.lfFaceName), face, sizeof face - 1);
    Error_Fct(hwnd, ERROR_LEVEL_FONT, "WARNING: in Z_Create_Font()");
    Error_Fct(hwnd, ERROR_LEVEL_FONT, "Unable to allocate font:(name:%s height:%d weight:%d )", face,
              static_cast<int>(description.lfHeight), static_cast<int>(description.lfWeight));
}

HFONT Make_Font(const Font_Key& key) {
    LOGFONTW description{};
    description.lfHeight = -key.height;
    description.lfWeight = key.bold ? FW_BOLD : FW_DONTCARE;
    description.lfItalic = key.italic;
    description.lfCharSet = key.character_set;
    std::copy(key.face.begin(), key.face.end(), description.lfFaceName);
    const HFONT font = CreateFontIndirectW(&description);
    if (!font) Report_Failure(description);
    return font;
}

bool Asks_For_Nothing(const char* face, const char* weight, const char* style, short points) {
    return !face && !weight && !style && points == 0;
}

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

int Extent_In_Place(HDC dc, std::string_view text) {
    constexpr int Characters_Per_Tab = 3;
    const Wide_Line line(text);
    SIZE extent{};
    GetTextExtentPoint32W(dc, line.Units(), line.Length(), &extent);
    const auto tabs = static_cast<int>(std::count(text.begin(), text.end(), '\t'));
    return extent.cx + (tabs ? Characters_Per_Tab * Metrics_In_Place(dc).tmAveCharWidth * tabs : 0);
}

Font_Facts* Facts_Of(HFONT font) {
    Facts_Cache& cache = The<Facts_Cache>();
    if (const unsigned page = Text_Code_Page(); cache.page != page) cache = {{}, nullptr, page};
    if (cache.last && cache.last->first == font) return &cache.last->second;
    if (!The<Font_Pool>().Key_Of(font)) return nullptr;
    auto found = cache.facts.find(font);
    try {
        if (found == cache.facts.end()) found = cache.facts.try_emplace(font, font).first;
    } catch (const std::bad_alloc&) {
        return nullptr;
    }
    cache.last = &*found;
    return &found->second;
}

TEXTMETRICA Metrics_Of(HFONT font) {
    const Drawing_Lock lock;
    const Font_Facts* facts = Facts_Of(font);
    return facts ? facts->Metrics() : Metrics_In_Place(Measure_With(font));
}

int Width_Of(HFONT font, std::string_view text) {
    const Drawing_Lock lock;
    Font_Facts* const facts = Facts_Of(font);
    int width = 0;
    for (std::string_view rest = text; facts && !rest.empty();) {
        const Glyph glyph = facts->Take(rest);
        if (glyph.index == Glyph::None) return Extent_In_Place(Measure_With(font), text);
        width += glyph.width;
    }
    return facts ? width : Extent_In_Place(Measure_With(font), text);
}

void Write_Tabbed(HDC dc, int x, int y, std::string_view text, const TEXTMETRICA& metrics) {
    constexpr int Longest = 255;
    constexpr int Characters_Per_Stop = 4;
    const int stop = Characters_Per_Stop * metrics.tmAveCharWidth;
    const Wide_Line line(text.substr(0, static_cast<std::size_t>(Length_Within(text, Longest))));
    TabbedTextOutW(dc, x, y, line.Units(), line.Length(), 1, &stop, 0);
}

}  // namespace galdren
