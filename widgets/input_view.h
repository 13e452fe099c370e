/// @file
/// The input line of a text field as it is shown.
#pragma once

#include "tools/area.h"
#include "widgets/input_line.h"
#include "widgets/text.h"

namespace galdren {

class Canvas;

/// What is shown of an input line, and where.
class Input_View {
  public:
    /// @param kept  remembers the first character that is in view
    Input_View(const Texts& shown, const Input_Line& line, Edit_State& kept);

    /// Paints the text, what is selected and the caret, in the box of the input line.
    void Paint(Canvas& canvas) const;
    /// The caret: its columns and rows, edges included.
    Area Caret() const;
    /// The place in `Line` that is nearest to a column of the window.
    int Nearest(int x) const;

  private:
    std::string_view Text() const { return {text, static_cast<std::size_t>(length)}; }
    std::string_view In_View() const { return Text().substr(static_cast<std::size_t>(first)); }
    int Shown_At(int index) const;
    int First_Visible(int end) const;
    int First_To_Show(int before) const;
    int Shift_To_Show(int before) const;
    int Text_Left() const;
    int X_Of(int shown) const;

    const Texts& field;
    std::string_view line;
    Area box;
    int border;
    char text[Text_Fields::Line_Room];  // the line, or its signs when it is a password
    int length;
    int caret;  // indices in `text`, as the next
    Text_Span selected;
    int first;  // in view
    int shift;  // columns of the text that are before the view
};

}  // namespace galdren
