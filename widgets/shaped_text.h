/// @file
/// Text whose letters change beside others or run both ways: where the system's shaping puts them.
#pragma once

#include <windows.h>

#include <string_view>

namespace galdren {

/// A line of such text, for the thread that holds the lock. Uniscribe is loaded when it is used first: most
/// programs never need it.
class Shaped_Text {
  public:
    Shaped_Text(HFONT font, std::string_view text);
    ~Shaped_Text();
    Shaped_Text(const Shaped_Text&) = delete;
    Shaped_Text& operator=(const Shaped_Text&) = delete;

    /// False when the letters simply stand side by side, or there is no telling.
    bool Is_Needed() const { return analysis != nullptr; }
    /// An edge of the character at a byte index, from the left of the line: that at which it begins, or the
    /// other one.
    int Edge_Of(int at, bool end) const;

  private:
    std::string_view line;
    void* analysis = nullptr;
};

}  // namespace galdren
