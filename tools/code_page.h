/// @file
/// Characters in texts of the code page in use. Broken text is taken as it comes: a byte that belongs to no
/// character is one by itself, and nothing is read beyond the end.
#pragma once

#include <memory>
#include <string_view>

#include "util/code_page.h"
#include "util/wide.h"

namespace galdren {

/// Bytes of the first coded character; 0 when nothing is left.
int Character_Length(std::string_view rest);

/// The place behind the character at a byte index: a letter with the marks that combine with it, and what is
/// joined to one picture. Behind the end it is the end.
int Next_Character(std::string_view text, int at);

/// The last place before a byte index at which a character begins, counted from the start of the text; 0 at
/// its start.
int Previous_Character(std::string_view text, int at);

/// The same, with each mark as a character of its own.
int Previous_Code(std::string_view text, int at);

/// Bytes of as many whole characters as fit into `most`; where not one does, of as many coded ones.
int Length_Within(std::string_view text, int most);

/// A text as UTF-16 for one call of the system. It takes memory only for long ones, and is cut without.
class Wide_Line {
  public:
    explicit Wide_Line(std::string_view text);

    const wchar_t* Units() const { return longer ? longer.get() : room; }
    int Length() const { return length; }

  private:
    static constexpr int Room = 512;
    wchar_t room[Room];
    std::unique_ptr<wchar_t[]> longer;
    int length;
};

}  // namespace galdren
