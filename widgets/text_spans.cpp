#include "widgets/text_spans.h"

#include <algorithm>
#include <cstdlib>

#include "tools/code_page.h"
#include "tools/font_cache.h"
#include "tools/lock.h"
#include "widgets/shaped_text.h"

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

/// Where the characters of a piece of a line have their edges.
class Edges {
  public:
    Edges(HFONT written, std::string_view piece) : shaped(written, piece), font(written), text(piece) {}

    int Length() const { return static_cast<int>(text.size()); }
    int Next(int at) const { return Next_Character(text, at); }
    /// Where the character at a byte index begins; behind the last one, where that ends.
    int Begin(int at) const {
        if (!shaped.Is_Needed()) return Width_Of(font, text.substr(0, static_cast<std::size_t>(at)));
        if (at < Length()) return shaped.Edge_Of(at, false);
        return at > 0 ? shaped.Edge_Of(Previous_Character(text, at), true) : 0;
    }
    /// Where it ends.
    int End(int at) const { return shaped.Is_Needed() ? shaped.Edge_Of(at, true) : Begin(Next(at)); }
    /// Whether characters that follow each other stand so.
    bool Are_In_Order() const { return !shaped.Is_Needed(); }

  private:
    Drawing_Lock lock;
    Shaped_Text shaped;
    HFONT font;
    std::string_view text;
};

}  // namespace

int Place_Of(HFONT font, std::string_view text, int at) { return Edges(font, text).Begin(at); }

bool Runs_Back(std::string_view text) {
    const Wide_Line wide(text);
    WORD kinds[Text_Fields::Line_Room];
    const int length = std::min(wide.Length(), Text_Fields::Line_Room);
    return GetStringTypeW(CT_CTYPE2, wide.Units(), length, kinds) &&
           std::find(kinds, kinds + length, C2_RIGHTTOLEFT) != kinds + length;
}

/// Of the character at `x` the nearer edge counts; of a place beyond all, the end that is nearest.
int Nearest_To(HFONT font, std::string_view text, int x) {
    const Edges edges(font, text);
    int nearest = 0;
    int least = std::abs(x - edges.Begin(0));
    for (int at = 0; at < edges.Length();) {
        const int next = edges.Next(at);
        const int distance = std::abs(x - edges.End(at));
        if (distance < least) {
            least = distance;
            nearest = next;
        } else if (edges.Are_In_Order()) {
            break;
        }
        at = next;
    }
    return nearest;
}

int Write_Span(Canvas& canvas, HFONT font, std::string_view text, POINT place, unsigned long color,
               Text_Span selected, const Area& rows) {
    const Ended piece(text);
    const int x = place.x;
    const int width = canvas.Write_Run(font, piece.Get(), x, place.y, color);
    const Text_Span shown{std::max(selected.from, 0), std::min(selected.to, static_cast<int>(text.size()))};
    if (shown.Is_Empty()) return width;
    const auto invert = [&](int from, int to) {
        const Area ground{x + std::min(from, to), x + std::max(from, to), rows.bottom, rows.top};
        const Canvas::Narrow_Clip clip = canvas.Narrow(ground);
        canvas.Box(ground, canvas.Look().Selection);
        canvas.Write_Run(font, piece.Get(), x, place.y, canvas.Look().Caption_Selected);
    };
    const Edges edges(font, text);
    if (edges.Are_In_Order()) {
        invert(edges.Begin(shown.from), edges.Begin(shown.to));
        return width;
    }
    for (int at = shown.from; at < shown.to;) {
        const int begin = edges.Begin(at);
        int end = edges.End(at);
        while ((at = edges.Next(at)) < shown.to && edges.Begin(at) == end)
            end = edges.End(at);
        invert(begin, end);
    }
    return width;
}

}  // namespace galdren
