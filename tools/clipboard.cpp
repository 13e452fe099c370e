#include "tools/clipboard.h"

#include <cstring>

namespace galdren {

Clipboard_Text::Clipboard_Text(HWND window)
    : opened(IsClipboardFormatAvailable(CF_TEXT) && OpenClipboard(window)),
      block(opened ? GetClipboardData(CF_TEXT) : nullptr),
      bytes(block ? static_cast<const char*>(GlobalLock(block)) : nullptr) {}

Clipboard_Text::~Clipboard_Text() {
    if (bytes) GlobalUnlock(block);
    if (opened) CloseClipboard();
}

/// It may be the block that ends, and not the text.
std::string_view Clipboard_Text::Get() const {
    return {bytes, bytes ? strnlen(bytes, GlobalSize(block)) : 0};
}

}  // namespace galdren
