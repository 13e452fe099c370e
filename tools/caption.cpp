#include "tools/caption.h"

#include <algorithm>
#include <string_view>

#include "tools/code_page.h"
#include "tools/font.h"
#include "tools/font_cache.h"
#include "tools/frame.h"

namespace galdren {

namespace {

Place Across(unsigned long flags) {
    if (flags & FLAG_TEXT_LEFT) return Place::Start;
    return flags & FLAG_TEXT_RIGHT ? Place::End : Place::Middle;
}

Place Downwards(unsigned long flags) {
    if (flags & FLAG_TEXT_BOTTOM) return Place::End;
    return flags & FLAG_TEXT_TOP ? Place::Start : Place::Middle;
}

unsigned long Text_Color(const Theme& theme, unsigned long flags) {
    if (flags & FLAG_OUTLINE) return theme.Caption_Outline;
    return flags & FLAG_TEXT_WHITE ? theme.Caption_Down : theme.Caption;
}

/// Rows that stacked text of `height` takes: from the bottom upwards, over the whole area, or around its
/// middle.
void Place_Rows(Area& place, const Area& area, unsigned long flags, int border, int height) {
    place.bottom = area.bottom + border;
    place.top = area.top - border;
    if (flags & FLAG_TEXT_BOTTOM) {
        place.top = place.bottom + height;
    } else if (!(flags & FLAG_TEXT_TOP)) {
        const int middle = area.bottom + (area.top - area.bottom) / 2;
        place.bottom = middle - height / 2;
        place.top = middle + height / 2;
    }
}

int Stacked_Height(const char* text, const TEXTMETRICA& metrics) {
    constexpr int Most_Lines = 1000000;  // far outside any window, and their height is still in range
    return std::min(Text_Characters(text), Most_Lines) * static_cast<int>(metrics.tmHeight);
}

constexpr int Least_Side = 6;  // at 96 dots per inch

/// The first characters of a text, one a line.
class Stack {
  public:
    explicit Stack(std::string_view text) {
        constexpr int Most_Characters = 128;
        for (int i = 0, at = 0; i < Most_Characters && at < static_cast<int>(text.size()); ++i) {
            const int next = Next_Character(text, at);
            length += Text_To_Wide(text.data() + at, next - at, units + length, Room - 1 - length);
            units[length++] = L'\n';
            if (length == Room) break;
            at = next;
        }
    }
    std::wstring_view Lines() const { return {units, static_cast<std::size_t>(length)}; }

  private:
    static constexpr int Room = 1024;  // for letters with many marks too
    wchar_t units[Room];
    int length = 0;
};

/// How far a caption keeps clear of the edges of its area.
struct Margins {
    Margins(int border_width, int least_side)
        : border(std::max(border_width, 1)), side(std::max(2 * border, least_side)) {}
    int border;
    int side;

    Area Room(const Area& area) const {
        return {area.left + side, area.right - side, area.bottom + border + 1, area.top - border};
    }
};

}  // namespace

void Paint_Stacked(Canvas& canvas, HFONT font, const char* text, unsigned long flags, const Area& area,
                   int border, int margin, UINT format, unsigned long color) {
    const TEXTMETRICA metrics = Metrics_Of(font);
    const int character = metrics.tmAveCharWidth;
    Area place = area;
    if (flags & FLAG_TEXT_LEFT) {
        place.left = area.left - character + margin;
        place.right = area.left + 2 * character + margin;
    } else if (flags & FLAG_TEXT_RIGHT) {
        place.left = area.right - 2 * character - margin;
        place.right = area.right - margin + character;
    }
    Place_Rows(place, area, flags, border, Stacked_Height(text, metrics));

    canvas.Write_Lines(font, Stack(text).Lines(), place, format, color);
}

void Paint_Line(Canvas& canvas, HFONT font, const char* text, unsigned long flags, const Area& area,
                unsigned long color) {
    canvas.Write(font, text, area, Across(flags), Downwards(flags), color);
}

bool Caption_Stays_Inside(const Tools_Fields& control, unsigned long flags, const Area& body) {
    if (!control.Name || !*control.Name) return true;
    const Area room = Margins(control.Border, Scaled(control, Least_Side)).Room(Area_Of(control));
    if (flags & FLAG_VERTICAL || room.left < body.left || room.right > body.right + 1) return false;
    const int height = Metrics_Of(control.Font).tmHeight;
    const int top = room.top - Offset(Downwards(flags), room.top - room.bottom, height);
    return top <= body.top && top - height + 1 >= body.bottom;
}

void Paint_Caption(Canvas& canvas, HFONT font, const char* text, unsigned long flags, const Area& area,
                   int border) {
    if (!text || !*text) return;
    const Margins margins(border, canvas.Scaled(Least_Side));
    const unsigned long color = Text_Color(canvas.Look(), flags);
    if (flags & FLAG_VERTICAL) {
        Paint_Stacked(canvas, font, text, flags, area, margins.border, margins.side, DT_EXPANDTABS, color);
    } else {
        Paint_Line(canvas, font, text, flags, margins.Room(area), color);
    }
}

Reach Caption_Reach(const Tools_Fields& control, HFONT font, const char* text, unsigned long flags,
                    const Area& area, int border) {
    if (!(flags & FLAG_VERTICAL)) return {area};
    const TEXTMETRICA metrics = Metrics_Of(font);
    const int across =
        3 * static_cast<int>(metrics.tmMaxCharWidth) + Margins(border, Scaled(control, Least_Side)).side;
    const int upward = Stacked_Height(text, metrics) + border;
    return {{area.left - across, area.right + across, area.bottom - upward, area.top + upward}};
}

}  // namespace galdren
