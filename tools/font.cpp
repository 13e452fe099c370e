#include "tools/font.h"

#include <cstring>
#include <string_view>

#include "tools/code_page.h"
#include "tools/font_cache.h"
#include "tools/globals.h"

using namespace galdren;

namespace {

/// Keeps a font selected on the surface in use for a scope; null means the stock system font.
class Font_In_Use {
  public:
    explicit Font_In_Use(HFONT font)
        : dc(Z_DC), before(SelectObject(dc, font ? font : GetStockObject(SYSTEM_FONT))) {}
    ~Font_In_Use() { SelectObject(dc, before); }
    Font_In_Use(const Font_In_Use&) = delete;
    Font_In_Use& operator=(const Font_In_Use&) = delete;

  private:
    HDC dc;
    HGDIOBJ before;
};

}  // namespace

HFONT Z_Create_Font(HWND window, const char* face, const char* weight, const char* style, short points) {
    return Make_Font(window, face, weight, style, points);
}

void Z_Delete_Font(HWND, HFONT font) { Release_Font(font); }

int Text_Width(HFONT font, const char* text) {
    if (!text) return 0;
    const Font_In_Use in_use(font);
    return Extent_In_Place(Z_DC, text);
}

int Text_Height(HFONT font) {
    const Font_In_Use in_use(font);
    return Metrics_In_Place(Z_DC).tmHeight;
}

void Text_Tabbed(HFONT font, int x, int y, const char* text) {
    if (!text) return;
    const Font_In_Use in_use(font);
    const TEXTMETRICA metrics = Metrics_In_Place(Z_DC);
    Write_Tabbed(Z_DC, x, y + metrics.tmHeight, text, metrics);
}

int Text_Characters(const char* text) {
    const std::string_view whole = text ? text : "";
    int count = 0;
    for (int at = 0; at < static_cast<int>(whole.size()); at = Next_Character(whole, at))
        ++count;
    return count;
}

char* Escape_Ampersand(const char* text) {
    constexpr std::size_t Longest = 128;
    static char escaped[2 * Longest + 1];
    if (!text || !std::strchr(text, '&') || std::strlen(text) > Longest) return const_cast<char*>(text);
    char* out = escaped;
    for (; *text; ++text) {
        if (*text == '&') *out++ = '&';
        *out++ = *text;
    }
    *out = '\0';
    return escaped;
}
