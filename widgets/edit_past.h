/// @file
/// What can be undone in an input line.
#pragma once

#include <algorithm>
#include <cstring>
#include <string_view>

#include "widgets/text_fields.h"

namespace galdren {

/// What an edit did, so that letters typed one after the other are undone together.
enum class Edit_Kind : unsigned char { Typed, Erased, Other };

/// An input line at one time.
struct Line_State {
    char line[Text_Fields::Line_Room];
    short cursor, selected;

    static Line_State Of(const Text_Fields& field) {
        Line_State state{{}, field.Cursor_Pos, field.Selected};
        std::copy_n(field.Line, sizeof state.line, state.line);
        return state;
    }
    bool Has_Line(const Text_Fields& field) const { return std::strcmp(line, field.Line) == 0; }
    void Put_Into(Text_Fields& field) const {
        std::copy_n(line, sizeof line, field.Line);
        field.Cursor_Pos = cursor;
        field.Selected = selected;
    }
};

/// The states of an input line from edit to edit. A line that the application has put in place of the newest
/// one begins anew.
class Edit_Past {
  public:
    /// To be called before an edit and after it.
    /// @{
    void Begin(const Text_Fields& field) {
        if (Is_Newest_Shown(field)) return;
        states[0] = Line_State::Of(field);
        count = 1, now = 0, last = Edit_Kind::Other;
    }
    void End(const Text_Fields& field, Edit_Kind kind);
    /// @}

    /// The next edit is one by itself.
    void Break() { last = Edit_Kind::Other; }

    /// Whether there is an edit to be undone, or undone ones to be done again.
    /// @param step  -1 or 1
    bool Can_Go(const Text_Fields& field, int step) const {
        return Is_Newest_Shown(field) && now + step >= 0 && now + step < count;
    }
    void Go(Text_Fields& field, int step) {
        now += step;
        last = Edit_Kind::Other;
        states[now].Put_Into(field);
    }

  private:
    static constexpr int Most = 100;

    bool Is_Newest_Shown(const Text_Fields& field) const { return count > 0 && states[now].Has_Line(field); }

    Line_State states[Most];
    int count = 0;
    int now = 0;  // the state that shows
    Edit_Kind last = Edit_Kind::Other;
};

inline void Edit_Past::End(const Text_Fields& field, Edit_Kind kind) {
    if (Is_Newest_Shown(field)) return;
    const bool goes_on = kind != Edit_Kind::Other && kind == last && now > 0;
    last = kind;
    if (!goes_on && ++now == Most) {
        std::copy(states + 1, states + Most, states);
        --now;
    }
    states[now] = Line_State::Of(field);
    count = now + 1;
}

}  // namespace galdren
