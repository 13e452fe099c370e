/// @file
/// Texts in many languages.
#pragma once

#include <string>

namespace galdren_test {

/// A text several times, one behind the other.
inline std::string Repeated(const std::string& text, int times) {
    std::string all;
    for (; times > 0; --times)
        all += text;
    return all;
}

/// A text in a language, and a face that has its letters.
struct Language {
    const wchar_t* text;
    const char* face;
};

/// Some have marks, joiners and characters beyond 16 bits.
constexpr Language Languages[] = {
    {L"España, Ærø, naïve", "Arial"},
    {L"Ελληνικά ά", "Arial"},
    {L"Привет, мир", "Arial"},
    {L"שלום עולם", "DejaVu Sans"},
    {L"مرحبا بالعالم", "DejaVu Sans"},
    {L"ภาษาไทยที่นี่", "Garuda"},
    {L"नमस्ते हिन्दी", "Lohit Devanagari"},
    {L"中文输入", "Droid Sans Fallback"},
    {L"日本語 カタカナ", "Droid Sans Fallback"},
    {L"한국어 입력", "Droid Sans Fallback"},
    {L"\xD83D\xDE00 \xD83D\xDC68\x200D\xD83D\xDC69\x200D\xD83D\xDC67 \xD83C\xDDE9\xD83C\xDDEA",
     "DejaVu Sans"},
    {L"e\x301 mixed שלום 日 \xD83D\xDE00", "DejaVu Sans"},
};

}  // namespace galdren_test
