/// @file
/// Texts as UTF-16, in strings. Not public.
#pragma once

#include <string>
#include <string_view>

#include "util/code_page.h"

namespace galdren {

/// Bytes of a character, at most.
constexpr int Longest_Character = 4;

/// A text as UTF-16; see `Text_To_Wide`.
inline std::wstring To_Wide(std::string_view text) {
    const auto length = static_cast<int>(text.size());
    std::wstring wide(text.size(), L'\0');
    wide.resize(static_cast<std::size_t>(Text_To_Wide(text.data(), length, wide.data(), length)));
    return wide;
}

/// UTF-16 as a text; see `Text_From_Wide`.
inline std::string From_Wide(std::wstring_view wide) {
    const auto length = static_cast<int>(wide.size());
    std::string text(Longest_Character * wide.size(), '\0');
    const auto room = static_cast<int>(text.size());
    text.resize(static_cast<std::size_t>(Text_From_Wide(wide.data(), length, text.data(), room)));
    return text;
}

/// UTF-16 as a text, where that is the same when it comes back.
/// @return false when it has what the code page lacks
inline bool Narrow(std::wstring_view wide, std::string& text) {
    text = From_Wide(wide);
    return To_Wide(text) == wide;
}

}  // namespace galdren
