/// @file
/// The input line of a text field: its characters, the caret and the selection, what can be undone, the lines
/// entered before, and the filters. It knows of no window and paints nothing.
#pragma once

#include <optional>
#include <string_view>

#include "widgets/edit_past.h"
#include "widgets/text_fields.h"

namespace galdren {

/// Whether the filters among style bits let a character in.
bool Passes_Filters(unsigned long flag, std::string_view character);

/// Bytes of a buffer for a text that is then cut between characters: what is beyond a line says where the
/// last one ends.
constexpr int Formatted_Room = 2 * Text_Fields::Line_Room;

/// A text up to `most` bytes, without cutting a character.
std::string_view Whole_Characters(std::string_view text, int most);

/// A piece of a text, by byte indices.
struct Text_Span {
    int from, to;
    bool Is_Empty() const { return from >= to; }
    int Length() const { return to - from; }
};

/// The word, the blanks or the signs around a place.
Text_Span Word_Around(std::string_view text, int at);

/// What keys do with the fields of an input line. All places are byte indices at which a character begins.
class Input_Line {
  public:
    /// @param flag  of the control: filters, `TEXT_EDITING`, and whether changes are reported
    Input_Line(Text_Fields& fields, unsigned long flag, Edit_State& state);

    std::string_view Text() const { return {field.Line, static_cast<std::size_t>(Length())}; }
    int Length() const;
    int Cursor() const { return field.Cursor_Pos; }
    /// What is selected; empty without `TEXT_EDITING`.
    Text_Span Selection() const;
    bool Is_Full() const { return Length() - Selection().Length() >= Text_Fields::Longest_Input; }

    /// Acts on a key that edits. A byte that begins a character waits for the others.
    /// @return whether the line has to be painted
    bool Take(int key);
    /// Puts a text in place of what is selected, as one edit: what the filters let in, and as much as there
    /// is room for.
    bool Insert_All(std::string_view text);
    /// Takes what is selected away.
    bool Erase_Selection();
    /// Selects from one place to another, where the caret goes.
    void Select(int from, int to);

    /// Undoes the last edit, or does it again.
    /// @param step  -1 or 1
    /// @{
    bool Can_Go(int step) const;
    bool Go(int step);
    /// @}

    /// Puts the line among those entered.
    void Remember();
    /// Has the next `Update` answer the line, when changes are reported.
    void Note_Change();

  private:
    class Edit;

    bool Edits() const { return (flag & TEXT_EDITING) != 0; }
    int Word_End() const;
    int Word_Begin() const;
    std::optional<int> Place_Of(int key) const;
    bool Move(int key, int place);
    bool Erase(Text_Span span, Edit_Kind kind);
    void Remove(Text_Span span);
    bool Type(char byte);
    bool Insert(std::string_view character);
    bool Lets_In(std::string_view character) const;
    void Put(std::string_view character);
    bool Recall_Older();
    bool Recall_Newer();
    void Recall(std::string_view entry);

    Text_Fields& field;
    unsigned long flag;
    Edit_State& state;
};

}  // namespace galdren
