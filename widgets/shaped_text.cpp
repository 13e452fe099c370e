#include "widgets/shaped_text.h"

#include <usp10.h>

#include <algorithm>

#include "tools/code_page.h"
#include "tools/font_facts.h"
#include "util/late.h"

namespace galdren {

namespace {

/// The functions of the system's library; all null where there is none.
struct Uniscribe {
    Uniscribe() {
        const HMODULE module = LoadLibraryA("usp10.dll");
        Find_Function(module, "ScriptIsComplex", is_complex);
        Find_Function(module, "ScriptStringAnalyse", analyse);
        Find_Function(module, "ScriptStringCPtoX", place_of);
        Find_Function(module, "ScriptStringFree", free);
    }
    bool Is_There() const { return is_complex && analyse && place_of && free; }

    decltype(ScriptIsComplex)* is_complex = nullptr;
    decltype(ScriptStringAnalyse)* analyse = nullptr;
    decltype(ScriptStringCPtoX)* place_of = nullptr;
    decltype(ScriptStringFree)* free = nullptr;
};

const Uniscribe& Shaping() {
    static const Uniscribe library;
    return library;
}

/// Latin letters need nobody to place them.
bool Is_Simple(std::string_view text) {
    return std::all_of(text.begin(), text.end(),
                       [](char byte) { return static_cast<signed char>(byte) >= 0; });
}

}  // namespace

Shaped_Text::Shaped_Text(HFONT font, std::string_view text) : line(text) {
    if (Is_Simple(text) || !Shaping().Is_There()) return;
    const Wide_Line wide(text);
    const int length = wide.Length();
    if (Shaping().is_complex(wide.Units(), length, SIC_COMPLEX) != S_OK) return;
    const int glyphs = length * 3 / 2 + 16;
    const HRESULT analysed = Shaping().analyse(Measure_With(font), wide.Units(), length, glyphs, -1,
                                               SSA_GLYPHS | SSA_FALLBACK | SSA_LINK, 0, nullptr, nullptr,
                                               nullptr, nullptr, nullptr, &analysis);
    if (FAILED(analysed)) analysis = nullptr;
}

Shaped_Text::~Shaped_Text() {
    // What was analysed, was so by a library that is there.
    if (analysis) Shaping().free(&analysis);  // NOLINT(clang-analyzer-core.CallAndMessage)
}

int Shaped_Text::Edge_Of(int at, bool end) const {
    const int next = end ? Next_Character(line, at) : at;
    const int unit = Wide_Line(line.substr(0, static_cast<std::size_t>(next))).Length() - (end ? 1 : 0);
    int x = 0;
    Shaping().place_of(analysis, unit, end, &x);
    return x;
}

}  // namespace galdren
