#include "parts/wide_text.h"

#include <windows.h>

namespace galdren {

std::wstring Wide_Of(const std::string& text) {
    const int bytes = static_cast<int>(text.size());
    const int length = MultiByteToWideChar(CP_ACP, 0, text.data(), bytes, nullptr, 0);
    std::wstring wide(static_cast<std::size_t>(length), L'\0');
    MultiByteToWideChar(CP_ACP, 0, text.data(), bytes, wide.data(), length);
    return wide;
}

bool Narrow(const std::wstring& text, std::string& narrow) {
    const int length = static_cast<int>(text.size());
    const int bytes = WideCharToMultiByte(CP_ACP, 0, text.data(), length, nullptr, 0, nullptr, nullptr);
    narrow.resize(static_cast<std::size_t>(bytes));
    WideCharToMultiByte(CP_ACP, 0, text.data(), length, narrow.data(), bytes, nullptr, nullptr);
    // What the code page lacks became another character.
    return Wide_Of(narrow) == text;
}

}  // namespace galdren
