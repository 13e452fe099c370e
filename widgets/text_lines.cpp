#include "widgets/text_lines.h"

#include <algorithm>
#include <utility>

#include "tools/code_page.h"
#include "tools/shading.h"

namespace galdren {

bool Output_Lines::Make() const {
    return lines.Make() && Make_Array(field.Line_Width, Text_Fields::Most_Lines) &&
           Make_Array(field.Line_Plain, Text_Fields::Most_Lines);
}

void Output_Lines::Begin() const {
    lines.Begin();
    Bring_Oldest(field.Line_Width, Text_Fields::Most_Lines);
    Bring_Oldest(field.Line_Plain, Text_Fields::Most_Lines);
    picture.Note_New_Line();
}

void Output_Lines::Put(std::string_view text, bool plain) const {
    lines.Put(text);
    field.Line_Plain[0] = plain;
    field.Line_Width[0] = 0;
    picture.Note_Newest();
}

void Output_Lines::Write(std::string_view text) const {
    for (std::size_t end; (end = text.find('\n')) != std::string_view::npos; text.remove_prefix(end + 1)) {
        Put(text.substr(0, end));
        Begin();
    }
    Put(text);
}

int Output_Lines::Longest() const {
    const short* const widths = field.Line_Width;
    return widths ? *std::max_element(widths, widths + Text_Fields::Most_Lines) : 0;
}

void Output_Lines::Release() const {
    lines.Release();
    Release_Array(std::exchange(field.Line_Width, nullptr));
    Release_Array(std::exchange(field.Line_Plain, nullptr));
    picture.number = 0;
    picture.from = picture.to = {};
}

Text_Codes Codes_In(const Text_Fields& field, unsigned long flag, int line) {
    if (field.Line_Plain && field.Line_Plain[line]) return Text_Codes::None;
    CPINFO page{};
    const bool asks = (flag & TEXT_ALL_LETTERS) != 0 && GetCPInfo(Text_Code_Page(), &page);
    return asks && page.MaxCharSize == 1 ? Text_Codes::Colors : Text_Codes::All;
}

Run_Reader::Run_Reader(std::string_view line, Text_Codes which) : rest(line), codes(which) {}

bool Run_Reader::Next(Text_Run& run) {
    while (!rest.empty()) {
        const std::size_t length = Run_Length();
        run = {rest.substr(0, length), font, color};
        rest.remove_prefix(length);
        if (length != 0) return true;
        Take_Code(static_cast<unsigned char>(rest[0]));
        rest.remove_prefix(1);
    }
    return false;
}

/// Bytes before the next code. One that is part of a character is none.
std::size_t Run_Reader::Run_Length() const {
    constexpr std::string_view Codes = "\1\2\3\4\5\6\360\361\362";
    constexpr std::size_t Color_Codes = 6;
    if (codes == Text_Codes::None) return rest.size();
    const std::string_view set = codes == Text_Codes::All ? Codes : Codes.substr(0, Color_Codes);
    if (rest.find_first_of(set) == std::string_view::npos) return rest.size();
    for (std::size_t at = 0; at < rest.size();) {
        const std::string_view left = rest.substr(at);
        const auto bytes = static_cast<std::size_t>(Character_Length(left));
        if (bytes == 1 && set.find(left[0]) != std::string_view::npos) return at;
        at += bytes;
    }
    return rest.size();
}

void Run_Reader::Take_Code(unsigned char code) {
    if (code >= TEXT_NORMAL_FONT) {
        font = code - TEXT_NORMAL_FONT;
    } else {
        color = code;
    }
}

}  // namespace galdren
