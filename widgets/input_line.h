/// @file
/// The input line of a text field: its characters and the caret, the lines entered before, and the filters.
/// It knows of no window and paints nothing.
#pragma once

#include <string_view>

#include "widgets/text.h"

namespace galdren {

/// Whether the filters among style bits let a character in.
bool Passes_Filters(unsigned long flag, char character);

/// What keys do with the fields of an input line.
class Input_Line {
  public:
    /// @param flag  of the control: filters, and whether changes are reported
    Input_Line(Text_Fields& fields, unsigned long flag);

    std::string_view Text() const { return {field.Line, static_cast<std::size_t>(Length())}; }
    int Length() const;
    bool Is_Full() const { return Length() >= Text_Fields::Longest_Input; }
    /// Acts on a key that edits.
    /// @return whether the line has to be painted
    bool Take(int key);
    /// Puts the line among those entered.
    void Remember();
    /// Has the next `Update` answer the line, when changes are reported.
    void Note_Change();

  private:
    bool Move_To(int position);
    bool Erase(int position);
    bool Insert(char character);
    bool Recall_Older();
    bool Recall_Newer();
    void Recall(std::string_view entry);

    Text_Fields& field;
    unsigned long flag;
};

}  // namespace galdren
