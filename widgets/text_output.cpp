#include "widgets/text_output.h"

#include <algorithm>
#include <cstdlib>
#include <iterator>

#include "tools/base.h"
#include "tools/canvas.h"
#include "tools/font_cache.h"
#include "tools/sharing.h"
#include "widgets/text_lines.h"
#include "widgets/text_places.h"
#include "widgets/text_selection.h"
#include "widgets/text_spans.h"

namespace galdren {

namespace {

using Look = Output_Picture::Look;

bool Same_But_Scrolled(const Look& a, const Look& b) {
    return a.x == b.x && a.color == b.color && a.single == b.single &&
           std::equal(std::begin(a.fonts), std::end(a.fonts), std::begin(b.fonts));
}

Look Look_Of(const Texts& field) {
    const POINT scrolled = Scrolled_By(field);
    return {Output_Margin(field) - static_cast<int>(scrolled.x),
            static_cast<int>(scrolled.y),
            Body_Color(Theme_Of(field), field.Color).get(),
            Has_Flag(field, TEXT_SINGLE_LINE),
            {field.Font, field.Bold_Font, field.Oblique_Font}};
}

/// Whether no font is higher than the lines stand apart.
bool Has_Even_Lines(const Texts& field) {
    return field.Line_Height > 0 && Metrics_Of(field.Bold_Font).tmHeight <= field.Line_Height &&
           Metrics_Of(field.Oblique_Font).tmHeight <= field.Line_Height;
}

unsigned long Ink(const Theme& theme, const Texts& field, const Text_Run& run) {
    if (!run.color) return theme.Caption;
    return Ink_On(theme, Body_Color(theme, field.Color).get(), theme.Codes[run.color - TEXT_BLUE]);
}

/// Writes an output line.
/// @param selected  what of it is selected
/// @return its width
int Write_Line(Canvas& canvas, const Texts& field, int line, POINT place, Text_Span selected) {
    const HFONT fonts[] = {field.Font, field.Bold_Font, field.Oblique_Font};
    const char* const text = field.Lines[line];
    const Area rows{0, 0, place.y, place.y + field.Line_Height};
    int width = 0;
    Text_Run run{};
    for (Run_Reader reader(text, Codes_In(field, field.Flag, line)); reader.Next(run);) {
        const auto begin = static_cast<int>(run.text.data() - text);
        width +=
            Write_Span(canvas, fonts[run.font], run.text, {place.x + width, place.y},
                       Ink(canvas.Look(), field, run), {selected.from - begin, selected.to - begin}, rows);
    }
    return width;
}

/// Moves the lines on the kept picture to where they stand now, if they can be.
/// @param part  the output
/// @return the part of it that has to be painted
Area Move_Kept(Canvas& canvas, const Texts& field, const Output_Picture& picture, const Look& look,
               Area part) {
    const int pitch = field.Line_Height;
    const int before = picture.painted.scrolled;
    if (look.single || !Same_But_Scrolled(look, picture.painted) || !Has_Even_Lines(field)) return part;
    // A line that the bottom edge would cut is not painted at all, so only whole lines can be moved.
    if (look.scrolled % pitch != 0 || before % pitch != 0) return part;

    const int height = part.top - part.bottom;
    const int rise = picture.appended * pitch + before - look.scrolled;
    const int from_bottom = std::max(rise, picture.renewed * pitch - look.scrolled);
    if (std::abs(rise) >= height || (rise < 0 && from_bottom > 0)) return part;
    canvas.Raise(rise);
    if (rise < 0) {
        part.bottom = part.top + rise;
    } else {
        part.top = part.bottom + std::min(from_bottom, height);
    }
    return part;
}

/// Paints the lines that meet a part of the output, and those of which the width is not known.
void Paint_Lines(Canvas& canvas, Texts& field, const Output_Picture& picture, const Area& output,
                 const Area& part) {
    const Look& look = picture.painted;
    const int pitch = field.Line_Height;
    const int count = look.single ? 1 : Texts::Most_Lines;
    // The lowest line that stands wholly above the bottom.
    const int first = look.scrolled > 0 && pitch > 0 ? (look.scrolled + pitch - 1) / pitch : 0;
    for (int k = first; k < count; ++k) {
        const int rise = k * pitch - look.scrolled;
        if (rise > field.Height) break;
        const int y = output.bottom + rise;
        const bool shows = y < part.top && y + pitch > part.bottom;
        if (!field.Lines[k] || (!shows && field.Line_Width[k] != 0)) continue;
        field.Line_Width[k] =
            Within_16(Write_Line(canvas, field, k, {output.left + look.x, y}, Selected_Of(picture, k)));
    }
}

}  // namespace

void Output_Picture::Note_New_Line() {
    appended = std::min(appended + 1, Text_Fields::Most_Lines);
    renewed = std::min(renewed + 1, Text_Fields::Most_Lines);
    if (from.line < 0) return;
    ++from.line, ++to.line;
    if (std::max(from.line, to.line) >= Text_Fields::Most_Lines) from = to = {};
}

void Output_Picture::Note_Newest() { renewed = std::max(renewed, 1); }

void Output_Picture::Note_Painted(const Look& look) {
    painted = look;
    appended = renewed = 0;
}

void Paint_Output(Texts& field, Output_Picture& picture) {
    if (Has_Flag(field, FLAG_NO_BODY) || !field.Lines || !field.Line_Width) return;
    const Area output = Output_Area(field);
    if (output.top - output.bottom < 1 || output.right - output.left < 1) return;
    const Look look = Look_Of(field);
    Canvas canvas(field, {output.left, output.right - 1, output.bottom + 1, output.top}, picture.number);
    const Area part = canvas.Kept() ? Move_Kept(canvas, field, picture, look, output) : output;
    picture.Note_Painted(look);
    canvas.Box(part, look.color);
    const Canvas::Narrow_Clip clip = canvas.Narrow(part);
    Paint_Lines(canvas, field, picture, output, part);
    // A copy may change the lines and go before the next paint.
    if (Is_Shared(Thing::Array, field.Lines)) picture.number = 0;
}

}  // namespace galdren
