/// @file
/// Text on the clipboard.
#pragma once

#include <windows.h>

#include <string_view>

namespace galdren {

/// What the clipboard holds as text, for a scope; nothing when another window has it open.
class Clipboard_Text {
  public:
    explicit Clipboard_Text(HWND window);
    ~Clipboard_Text();
    Clipboard_Text(const Clipboard_Text&) = delete;
    Clipboard_Text& operator=(const Clipboard_Text&) = delete;
    std::string_view Get() const;

  private:
    bool opened;
    HGLOBAL block;
    const char* bytes;
};

}  // namespace galdren
