#include "widgets/input_view.h"

#include <algorithm>

#include "tools/base.h"
#include "tools/canvas.h"
#include "tools/code_page.h"
#include "tools/font_cache.h"
#include "widgets/text_places.h"
#include "widgets/text_spans.h"

namespace galdren {

namespace {

/// Columns between the frame and the text.
int Text_Gap(const Texts& field) { return Scaled(field, 4); }

bool Is_Password(const Texts& field) { return Has_Flag(field, TEXT_PASSWORD); }

bool Shows_Caret(const Texts& field) {
    return field.Caret == CARET_SHOWN ||
           (field.Caret == CARET_AT_POINTER && field.Select_State == Hover_Highlighted);
}

/// Number of characters before a byte index.
int Count_Characters(std::string_view line, int end) {
    int count = 0;
    for (int at = 0; at < end; at = Next_Character(line, at))
        ++count;
    return count;
}

}  // namespace

Input_View::Input_View(const Texts& shown, const Input_Line& input, Edit_State& kept)
    : field(shown), line(input.Text()), box(Input_Area(shown)), border(Frame_Width(shown)) {
    length = Shown_At(static_cast<int>(line.size()));
    if (Is_Password(field)) {
        std::fill_n(text, length, '#');
    } else {
        line.copy(text, line.size());
    }
    caret = Shown_At(input.Cursor());
    // Where the keyboard is not, nothing shows as selected.
    const Text_Span span = field.Caret == CARET_AWAY ? Text_Span{0, 0} : input.Selection();
    selected = {Shown_At(span.from), Shown_At(span.to)};
    const bool runs_back = Runs_Back(Text());
    kept.first = Low_16(first = runs_back ? 0 : First_To_Show(kept.first));
    kept.shift = Low_16(shift = runs_back ? Shift_To_Show(kept.shift) : 0);
}

int Input_View::Shown_At(int index) const {
    return Is_Password(field) ? Count_Characters(line, index) : index;
}

/// The first character from which the text up to `end` fits into the box.
int Input_View::First_Visible(int end) const {
    const int room = box.right - box.left - 4 * border;
    const std::string_view before = Text().substr(0, static_cast<std::size_t>(end));
    const auto fits = [&](int from) {
        return Width_Of(field.Bold_Font, before.substr(static_cast<std::size_t>(from))) <= room;
    };
    if (fits(0)) return 0;
    short starts[Text_Fields::Line_Room];
    short* starts_end = starts;
    for (int at = 0; at < end; at = Next_Character(before, at))
        *starts_end++ = Low_16(at);
    const short* const found =
        std::partition_point(starts, starts_end, [&](short start) { return !fits(start); });
    return found == starts_end ? end : *found;
}

/// Without editing the caret alone says what is in view; else the text stays where it is as long as the
/// caret is in view.
/// @param before  what it was
int Input_View::First_To_Show(int before) const {
    const int least = First_Visible(caret);
    if (!Has_Flag(field, TEXT_EDITING)) return least;
    const int most = std::min(First_Visible(length), caret);
    int start = 0;
    for (int next = 0; next <= std::min(before, most); next = Next_Character(Text(), next)) {
        start = next;
        if (next == length) break;
    }
    return std::max(start, least);
}

/// How far a text is moved to the left that does not begin at its left edge. As with other texts, without
/// editing the caret alone says so.
/// @param before  what it was
int Input_View::Shift_To_Show(int before) const {
    const int room = std::max(box.right - box.left - 2 * (border + Text_Gap(field)), 0);
    const int x = X_Of(caret);
    const int most = std::max(Width_Of(field.Bold_Font, Text()) - room, 0);
    const int kept = Has_Flag(field, TEXT_EDITING) ? std::min(before, most) : 0;
    return std::clamp(kept, x - room, x);
}

/// Where the text in view begins, or would without its shift.
int Input_View::Text_Left() const { return box.left + border + Text_Gap(field); }

int Input_View::X_Of(int shown) const {
    return Place_Of(field.Bold_Font, In_View(), std::max(shown - first, 0));
}

Area Input_View::Caret() const {
    const int gap = Scaled(field, 2);
    const int x = Text_Left() - shift - Line_Width(field) + X_Of(caret);
    return {x, x + gap - 1, box.bottom + border + gap, box.top - border - gap};
}

int Input_View::Nearest(int x) const {
    const int inside = x - Text_Left();
    int shown = first + Nearest_To(field.Bold_Font, In_View(), inside + shift);
    // A drag beyond the left edge scrolls.
    if (inside < 0 && first > 0) shown = Is_Password(field) ? first - 1 : Previous_Character(Text(), first);
    if (!Is_Password(field)) return shown;
    int at = 0;
    for (; shown > 0; --shown)
        at = Next_Character(line, at);
    return at;
}

void Input_View::Paint(Canvas& canvas) const {
    const Canvas::Narrow_Clip clip = canvas.Narrow(box.Inset(border));
    if (Shows_Caret(field)) {
        const Area columns = Caret();
        for (int x = columns.left; x <= columns.right; ++x)
            canvas.Column(x, columns.bottom, columns.top, canvas.Look().Mark);
    }
    const int height = Metrics_Of(field.Bold_Font).tmHeight;
    const POINT place{Text_Left() - shift, box.bottom + (box.top - box.bottom - height) / 2};
    if (length == 0 && field.Placeholder)
        Write_Span(canvas, field.Bold_Font, field.Placeholder, place, canvas.Look().Caption_Hint, {0, 0},
                   box);
    const Area rows{0, 0, box.bottom + border + 1, box.top - border - Scaled(field, 2)};
    Write_Span(canvas, field.Bold_Font, In_View(), place, canvas.Look().Caption,
               {selected.from - first, selected.to - first}, rows);
}

}  // namespace galdren
