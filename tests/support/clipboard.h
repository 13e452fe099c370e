/// @file
/// The clipboard for tests.
#pragma once

#include <windows.h>

#include <cstring>
#include <string>

namespace galdren_test {

/// Puts bytes on the clipboard, and nothing else.
inline bool Set_Clipboard_Bytes(UINT format, const void* bytes, std::size_t size) {
    if (!OpenClipboard(nullptr)) return false;
    EmptyClipboard();
    const HGLOBAL block = GlobalAlloc(GMEM_MOVEABLE, size);
    std::memcpy(GlobalLock(block), bytes, size);
    GlobalUnlock(block);
    const bool set = SetClipboardData(format, block) != nullptr;
    return CloseClipboard() && set;
}

inline bool Set_Clipboard(UINT format, const std::string& text) {
    return Set_Clipboard_Bytes(format, text.c_str(), text.size() + 1);
}

inline bool Set_Clipboard(const std::wstring& text) {
    return Set_Clipboard_Bytes(CF_UNICODETEXT, text.c_str(), (text.size() + 1) * sizeof(wchar_t));
}

/// What the clipboard has as UTF-16; empty when it has none.
inline std::wstring Clipboard() {
    std::wstring text;
    if (!OpenClipboard(nullptr)) return text;
    if (const HGLOBAL block = GetClipboardData(CF_UNICODETEXT)) {
        if (const auto* const units = static_cast<const wchar_t*>(GlobalLock(block))) text = units;
        GlobalUnlock(block);
    }
    CloseClipboard();
    return text;
}

}  // namespace galdren_test
