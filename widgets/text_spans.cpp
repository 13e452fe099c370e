#include "widgets/text_spans.h"

#include "tools/code_page.h"
#include "tools/font_cache.h"

namespace galdren {

namespace {

/// A piece of a line with a zero at its end.
class Ended {
  public:
    explicit Ended(std::string_view piece) { text[piece.copy(text, sizeof text - 1)] = '\0'; }
    const char* Get() const { return text; }

  private:
    char text[Text_Fields::Line_Room];
};

std::string_view Before(std::string_view text, int at) {
    return text.substr(0, static_cast<std::size_t>(at));
}

}  // namespace

int Width_Of(HFONT font, std::string_view text) { return Width_Of(font, Ended(text).Get()); }

int Place_Of(HFONT font, std::string_view text, int at) { return Width_Of(font, Before(text, at)); }

int Nearest_To(HFONT font, std::string_view text, int x) {
    const auto length = static_cast<int>(text.size());
    int at = 0;
    int begin = 0;
    while (at < length) {
        const int next = Next_Character(text, at);
        const int end = Place_Of(font, text, next);
        if (x < (begin + end) / 2) break;
        at = next;
        begin = end;
    }
    return at;
}

int Write_Span(Canvas& canvas, HFONT font, std::string_view text, POINT place, unsigned long color,
               Text_Span selected, const Area& rows) {
    const Ended piece(text);
    const int x = place.x;
    const int width = canvas.Write_Run(font, piece.Get(), x, place.y, color);
    const auto length = static_cast<int>(text.size());
    const Text_Span shown{std::max(selected.from, 0), std::min(selected.to, length)};
    if (shown.Is_Empty()) return width;
    const Area ground{x + Place_Of(font, text, shown.from), x + Place_Of(font, text, shown.to), rows.bottom,
                      rows.top};
    const Canvas::Narrow_Clip clip = canvas.Narrow(ground);
    canvas.Box(ground, canvas.Look().Selection);
    canvas.Write_Run(font, piece.Get(), x, place.y, canvas.Look().Caption_Selected);
    return width;
}

}  // namespace galdren
