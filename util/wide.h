/// @file
/// Texts as UTF-16, in strings. Not public.
#pragma once

#include <string>
#include <string_view>

#include "util/code_page.h"

namespace galdren {

/// A text as UTF-16; see `Text_To_Wide`.
inline std::wstring To_Wide(std::string_view text) {
    const auto length = static_cast<int>(text.size());
    std::wstring wide(text.size(), L'\0');
    wide.resize(static_cast<std::size_t>(Text_To_Wide(text.data(), length, wide.data(), length)));
    return wide;
}

/// UTF-16 as a text; see `Text_From_Wide`.
inline std::string From_Wide(std::wstring_view wide) {
    constexpr std::size_t Most_Bytes = 4;
    const auto length = static_cast<int>(wide.size());
    std::string text(Most_Bytes * wide.size(), '\0');
    const auto room = static_cast<int>(text.size());
    text.resize(static_cast<std::size_t>(Text_From_Wide(wide.data(), length, text.data(), room)));
    return text;
}

}  // namespace galdren
