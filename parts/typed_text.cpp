#include "parts/typed_text.h"

#include <utility>

#include "util/wide.h"

namespace galdren {

namespace {

constexpr unsigned UTF_8 = 65001;
constexpr WPARAM Last_ASCII = 0x7F;
constexpr WPARAM Last_Unit = 0xFFFF;
constexpr WPARAM Last_Code = 0x10FFFF;

}  // namespace

std::optional<std::string> Typed_Text::Take(HWND window, UINT message, WPARAM wparam) {
    if (message != WM_CHAR && message != WM_UNICHAR) return {};
    if (message == WM_UNICHAR) {
        if (wparam <= Last_Unit || wparam > Last_Code) return Take_Unit(static_cast<wchar_t>(wparam));
        const auto beyond = static_cast<unsigned>(wparam) - 0x10000;
        Take_Unit(static_cast<wchar_t>(0xD800 + (beyond >> 10)));
        return Take_Unit(static_cast<wchar_t>(0xDC00 + (beyond & 0x3FF)));
    }
    const bool is_unit = wparam > 0xFF || IsWindowUnicode(window);
    return is_unit ? Take_Unit(static_cast<wchar_t>(wparam)) : Take_Byte(static_cast<char>(wparam));
}

/// Half of a pair that has lost the other is dropped.
std::optional<std::string> Typed_Text::Take_Unit(wchar_t unit) {
    const wchar_t before = std::exchange(high, IS_HIGH_SURROGATE(unit) ? unit : L'\0');
    if (unit <= Last_ASCII) return {};
    if (IS_HIGH_SURROGATE(unit)) return std::string();
    if (!IS_LOW_SURROGATE(unit)) return From_Wide({&unit, 1});
    if (!before) return std::string();
    const wchar_t pair[] = {before, unit};
    return From_Wide({pair, 2});
}

/// Of UTF-8, for which there are too few bytes in a message, the system sends what is in Latin-1.
std::optional<std::string> Typed_Text::Take_Byte(char byte) {
    const auto number = static_cast<unsigned char>(byte);
    if (GetACP() == UTF_8) return Take_Unit(number);
    if (!lead && IsDBCSLeadByte(number)) {
        lead = byte;
        return std::string();
    }
    const std::string bytes = lead ? std::string{std::exchange(lead, '\0'), byte} : std::string{byte};
    if (bytes.size() == 1 && number <= Last_ASCII) return {};
    if (Text_Code_Page() == GetACP()) return bytes;
    wchar_t wide[2];
    const int units = MultiByteToWideChar(CP_ACP, 0, bytes.data(), static_cast<int>(bytes.size()), wide, 2);
    return From_Wide({wide, static_cast<std::size_t>(units)});
}

}  // namespace galdren
