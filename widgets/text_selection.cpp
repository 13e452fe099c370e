#include "widgets/text_selection.h"

#include <algorithm>
#include <cstring>
#include <iterator>
#include <utility>

#include "tools/arithmetic.h"
#include "tools/font_cache.h"
#include "widgets/text_lines.h"
#include "widgets/text_places.h"
#include "widgets/text_spans.h"

namespace galdren {

namespace {

/// Lines are counted from the newest one upward, so the one with the higher number is read first.
bool Is_Before(Output_Spot a, Output_Spot b) { return a.line > b.line || (a.line == b.line && a.at < b.at); }

std::pair<Output_Spot, Output_Spot> In_Order(const Output_Picture& output) {
    const Output_Spot& a = output.from;
    const Output_Spot& b = output.to;
    return Is_Before(b, a) ? std::pair(b, a) : std::pair(a, b);
}

int Count_Lines(const Texts& field) {
    const char* const* const lines = field.Lines;
    return lines ? static_cast<int>(std::find(lines, lines + Texts::Most_Lines, nullptr) - lines) : 0;
}

int Length_Of(const Texts& field, int line) { return static_cast<int>(std::strlen(field.Lines[line])); }

Run_Reader Runs_Of(const Texts& field, int line) {
    return {field.Lines[line], Codes_In(field, field.Flag, line)};
}

}  // namespace

Text_Span Selected_Of(const Output_Picture& output, int line) {
    const auto [first, last] = In_Order(output);
    if (line > first.line || line < last.line) return {0, 0};
    return {line == first.line ? first.at : 0, line == last.line ? last.at : Texts::Line_Room};
}

Output_Spot Nearest_Spot(const Texts& field, POINT place) {
    const int count = Count_Lines(field);
    if (count == 0 || field.Line_Height < 1) return {};
    const Area output = Output_Area(field);
    const POINT scrolled = Scrolled_By(field);
    const int rise = std::max<int>(place.y - output.bottom + scrolled.y - 1, 0);
    const int line = std::min(rise / field.Line_Height, count - 1);
    const HFONT fonts[] = {field.Font, field.Bold_Font, field.Oblique_Font};
    int x = output.left + Output_Margin(field) - scrolled.x;
    int at = 0;
    Text_Run run{};
    for (Run_Reader reader = Runs_Of(field, line); reader.Next(run);) {
        const auto begin = static_cast<int>(run.text.data() - field.Lines[line]);
        at = begin + Nearest_To(fonts[run.font], run.text, place.x - x);
        x += Width_Of(fonts[run.font], run.text);
        if (place.x < x) break;
    }
    return {line, at};
}

void Select_Output(Output_Picture& output, Output_Spot from, Output_Spot to) {
    output.from = from;
    output.to = to;
    output.renewed = Texts::Most_Lines;
}

void Select_Word(const Texts& field, Output_Picture& output, Output_Spot spot) {
    if (spot.line < 0) return;
    const Text_Span word = Word_Around(field.Lines[spot.line], spot.at);
    Select_Output(output, {spot.line, word.from}, {spot.line, word.to});
}

void Select_Line(const Texts& field, Output_Picture& output, int line) {
    if (line >= 0) Select_Output(output, {line, 0}, {line, Length_Of(field, line)});
}

void Select_All(const Texts& field, Output_Picture& output) {
    const int count = Count_Lines(field);
    if (count > 0) Select_Output(output, {count - 1, 0}, {0, Length_Of(field, 0)});
}

std::string Selected_Text(const Texts& field, const Output_Picture& output) {
    std::string text;
    if (!output.Has_Selection()) return text;
    const auto [first, last] = In_Order(output);
    for (int line = std::min(first.line, Count_Lines(field) - 1); line >= last.line; --line) {
        const Text_Span selected = Selected_Of(output, line);
        Text_Run run{};
        for (Run_Reader reader = Runs_Of(field, line); reader.Next(run);) {
            const auto begin = static_cast<int>(run.text.data() - field.Lines[line]);
            const int length = static_cast<int>(run.text.size());
            const int from = std::clamp(selected.from - begin, 0, length);
            const int to = std::clamp(selected.to - begin, from, length);
            text += run.text.substr(static_cast<std::size_t>(from), static_cast<std::size_t>(to - from));
        }
        if (line > last.line) text += "\r\n";
    }
    return text;
}

}  // namespace galdren
