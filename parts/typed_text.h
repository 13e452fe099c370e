/// @file
/// Characters that the keyboard's messages bring, in the code page of texts.
#pragma once

#include <windows.h>

#include <optional>
#include <string>

namespace galdren {

/// Puts characters together that come in several messages: surrogate pairs, and characters of two bytes.
class Typed_Text {
  public:
    /// @param message  WM_CHAR, or WM_UNICHAR with a character
    /// @return the character beyond ASCII that is complete now; empty while another message belongs to it;
    ///         nothing for other messages and for ASCII, which has key codes
    std::optional<std::string> Take(HWND window, UINT message, WPARAM wparam);

  private:
    std::optional<std::string> Take_Unit(wchar_t unit);
    std::optional<std::string> Take_Byte(char byte);

    wchar_t high = 0;  // first half of a pair
    char lead = 0;     // first byte of two
};

}  // namespace galdren
