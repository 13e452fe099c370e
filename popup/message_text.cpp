#include "popup/message_text.h"

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <iterator>

#include "util/wide.h"

namespace galdren {

void Write_Text(Texts& field, const char* text) {
    char shown[Texts::Line_Room + Longest_Character];  // `Write` sees whole characters, and cuts
    char* const end = std::end(shown) - 1;
    char* out = shown;
    for (; *text && out < end; ++text) {
        if (text[0] == '%' && text[1] == '%') ++text;
        *out++ = *text;
    }
    *out = '\0';
    field.Write("%s", shown);
}

void Write_Lines(Texts& field, char* text) {
    const char* newest[Texts::Most_Lines];
    std::size_t count = 0;
    char* rest = nullptr;
    for (char* line = strtok_s(text, "\n", &rest); line; line = strtok_s(nullptr, "\n", &rest))
        newest[count++ % Texts::Most_Lines] = line;
    for (std::size_t i = count - std::min<std::size_t>(count, Texts::Most_Lines); i < count; ++i)
        Write_Text(field, newest[i % Texts::Most_Lines]);
}

}  // namespace galdren
