// Items are measured from the inside outward, and then get their areas from the outside inward.
#include "host/layout_solve.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <utility>

#include "parts/part_window.h"
#include "tools/look.h"

namespace galdren {

namespace {

using Kind = Layout_Item::Kind;

constexpr int Longest = 32767;  // that the fields of a control hold

int Sum(int a, int b) { return std::clamp(a + b, 0, Longest); }
SIZE Larger(SIZE a, SIZE b) { return {std::max(a.cx, b.cx), std::max(a.cy, b.cy)}; }

/// What is long and what lies across in a row or a column.
struct Axis {
    explicit Axis(const Layout_Item& item) : is_row(item.kind == Kind::Row) {}
    int Along(SIZE size) const { return is_row ? size.cx : size.cy; }
    int Across(SIZE size) const { return is_row ? size.cy : size.cx; }
    SIZE Size(int along, int across) const { return is_row ? SIZE{along, across} : SIZE{across, along}; }
    /// The part of an area between two distances from its start.
    RECT Part(const RECT& area, int start, int end) const {
        return is_row ? RECT{area.left + start, area.top, area.left + end, area.bottom}
                      : RECT{area.left, area.top + start, area.right, area.top + end};
    }
    bool is_row;
};

/// Pixels of the window that a length of the design of an item takes. Every length of a design goes through
/// here.
int Pixels(const Layout_Item& item, int design) {
    return std::clamp(Scaled(item.scale, std::clamp(design, -Longest, Longest)), -Longest, Longest);
}

// Captions

/// A font like that of a control, which has none before its first `Init`.
class Caption_Font {
  public:
    Caption_Font(HWND window, const Tools& control)
        : font(Z_Create_Font(window, control.Font_Name, control.Font_Weight, control.Font_Style,
                             Font_Points(control))) {}
    ~Caption_Font() { Z_Delete_Font(nullptr, font); }
    Caption_Font(const Caption_Font&) = delete;
    Caption_Font& operator=(const Caption_Font&) = delete;
    HFONT Get() const { return font; }

  private:
    HFONT font;
};

SIZE Extent(HWND window, const Tools& control) {
    const Caption_Font font(window, control);
    Begin_Draw(window, nullptr);
    const int height = Text_Height(font.Get());
    SIZE extent{Text_Width(font.Get(), control.Name), height};
    if (control.Flag & FLAG_VERTICAL) {
        const auto lines = std::min<int>(Text_Characters(control.Name), Longest);
        extent = {Text_Width(font.Get(), "xxx"), std::min(lines * height, Longest)};
    }
    End_Draw();
    return extent;
}

std::string Font_Words(const Tools& control) {
    std::string words;
    for (const char* const word : {control.Font_Name, control.Font_Weight, control.Font_Style}) {
        words += word ? word : "";
        words += '\n';
    }
    return words;
}

/// Measures the caption of a control unless it is as it was.
SIZE Caption_Extent(Measured_Caption& caption, HWND window, const Tools& control) {
    if (!control.Name || !*control.Name) return {};
    const unsigned long vertical = control.Flag & FLAG_VERTICAL;
    std::string font = Font_Words(control);
    if (caption.text != control.Name || caption.font != font || caption.points != Font_Points(control) ||
        caption.vertical != vertical) {
        caption = {control.Name, std::move(font), Font_Points(control), vertical, Extent(window, control)};
    }
    return caption.extent;
}

// What items need

void Measure_Control(Layout_Item& item, const Part_Window& window) {
    const int number = item.serial ? window.Number_Of(item.serial) : -1;
    item.gone = number < 0 || (item.if_shown && !window.Owner(number).shown);
    if (item.gone) return;
    constexpr SIZE Least_That_Paints{1, 1};
    const SIZE caption = Caption_Extent(item.caption, window.Window(), *item.control);
    const SIZE fields = Larger(Least_That_Paints, item.least_around(*item.control, caption));
    item.needed = {Sum(fields.cx, 1), Sum(fields.cy, 1)};
}

/// Whether a control of an item is shown.
bool Has_Shown(const Layout_Item& item, const Part_Window& window) {
    if (item.kind == Kind::Control) {
        const int number = item.serial ? window.Number_Of(item.serial) : -1;
        return number >= 0 && window.Owner(number).shown;
    }
    return std::any_of(item.items.begin(), item.items.end(),
                       [&](const Layout_Item& inner) { return Has_Shown(inner, window); });
}

/// What a rectangle needs along one axis for an anchored item.
/// @param start, length  of the item in the design
/// @param whole          of the rectangle in the design
int Needed_Around(int start, int length, int whole, int needed, bool keeps_start, bool keeps_end) {
    const int end = whole - start - length;
    if (keeps_start && keeps_end) return start + needed + end;
    const int longer = std::max(length, needed);
    if (keeps_start) return start + longer;
    if (keeps_end) return longer + end;
    return longer + std::abs(start - end);
}

/// An anchored item along one axis.
struct Span {
    int start;
    int end;
};

/// @param room  length of the rectangle now
Span Span_Of(int start, int length, int whole, int needed, bool keeps_start, bool keeps_end, int room) {
    const int grown = room - whole;
    if (keeps_start && keeps_end) return {start, start + std::max(length + grown, needed)};
    const int longer = std::max(length, needed);
    if (keeps_start) return {start, start + longer};
    if (keeps_end) return {start + length + grown - longer, start + length + grown};
    const int first = (2 * start + length + grown - longer) / 2;
    return {first, first + longer};
}

struct Anchored {
    explicit Anchored(const Layout_Item& item, const Layout_Item& around)
        : x(Pixels(item, item.place.x)),
          width(Pixels(item, item.place.width)),
          height(Pixels(item, item.place.height)),
          whole_width(Pixels(around, around.design.cx)),
          whole_height(Pixels(around, around.design.cy)),
          top(item.place.from_top ? Pixels(item, item.place.y)
                                  : whole_height - Pixels(item, item.place.y) - height) {}
    int x, width, height, whole_width, whole_height, top;
};

bool Keeps(const Layout_Item& item, unsigned edge) { return (item.edges & edge) != 0; }

SIZE Needed_By_Anchored(const Layout_Item& item, const Layout_Item& around) {
    const Anchored at(item, around);
    return {Needed_Around(at.x, at.width, at.whole_width, item.needed.cx, Keeps(item, Layout::EDGE_LEFT),
                          Keeps(item, Layout::EDGE_RIGHT)),
            Needed_Around(at.top, at.height, at.whole_height, item.needed.cy, Keeps(item, Layout::EDGE_TOP),
                          Keeps(item, Layout::EDGE_BOTTOM))};
}

SIZE Needed_In_Line(const Layout_Item& line) {
    const Axis axis(line);
    int along = 0;
    int across = 0;
    bool first = true;
    for (const Layout_Item& item : line.items) {
        if (item.gone) continue;
        if (!std::exchange(first, false)) along = Sum(along, Pixels(line, line.gap));
        along = Sum(along, item.fixed < 0 ? axis.Along(item.needed) : Pixels(item, item.fixed));
        across = std::max(across, axis.Across(item.needed));
    }
    return axis.Size(along, across);
}

SIZE Needed_Inside(const Layout_Item& item) {
    if (item.kind == Kind::Row || item.kind == Kind::Column) return Needed_In_Line(item);
    SIZE needed{};
    for (const Layout_Item& inner : item.items) {
        if (inner.gone) continue;
        const bool is_anchored = item.kind == Kind::Anchors;
        needed = Larger(needed, is_anchored ? Needed_By_Anchored(inner, item) : inner.needed);
    }
    const int margins = item.kind == Kind::Margin ? 2 * Pixels(item, item.gap) : 0;
    return {Sum(needed.cx, margins), Sum(needed.cy, margins)};
}

// Areas

/// The lengths of the items of a row or a column; 0 for those that are gone.
std::vector<int> Lengths(const Layout_Item& line, int room) {
    const Axis axis(line);
    std::vector<int> lengths;
    std::vector<const Layout_Item*> shares(line.items.size());  // null for those that take none
    long long rest = room;
    long long weights = 0;
    bool first = true;
    for (std::size_t i = 0; i < line.items.size(); ++i) {
        const Layout_Item& item = line.items[i];
        lengths.push_back(item.gone        ? 0
                          : item.fixed < 0 ? axis.Along(item.needed)
                                           : Pixels(item, item.fixed));
        if (item.gone) continue;
        if (!std::exchange(first, false)) rest -= Pixels(line, line.gap);
        if (item.weight > 0) {
            shares[i] = &item;
            weights += item.weight;
        } else {
            rest -= lengths[i];
        }
    }
    // Who needs more than a share has what it needs, which makes the shares of the others smaller.
    for (bool again = true; again;) {
        again = false;
        for (std::size_t i = 0; i < shares.size(); ++i) {
            if (!shares[i] || rest * shares[i]->weight >= lengths[i] * weights) continue;
            rest -= lengths[i];
            weights -= shares[i]->weight;
            shares[i] = nullptr;
            again = true;
        }
    }
    // Rounded are the ends, not the lengths, so that together they are as long as the room.
    long long passed = 0;
    for (std::size_t i = 0; weights > 0 && i < shares.size(); ++i) {
        if (!shares[i]) continue;
        const long long start = rest * passed / weights;
        passed += shares[i]->weight;
        lengths[i] = static_cast<int>(rest * passed / weights - start);
    }
    return lengths;
}

void Arrange_Line(const Layout_Item& line, const RECT& area, std::vector<Placed_Control>& placed) {
    const Axis axis(line);
    const SIZE size{area.right - area.left, area.bottom - area.top};
    const std::vector<int> lengths = Lengths(line, axis.Along(size));
    int start = 0;
    for (std::size_t i = 0; i < lengths.size(); ++i) {
        if (line.items[i].gone) continue;
        Arrange(line.items[i], axis.Part(area, start, start + lengths[i]), placed);
        start += lengths[i] + Pixels(line, line.gap);
    }
}

void Arrange_Anchored(const Layout_Item& item, const Layout_Item& around, const RECT& area,
                      std::vector<Placed_Control>& placed) {
    const Anchored at(item, around);
    const Span across =
        Span_Of(at.x, at.width, at.whole_width, item.needed.cx, Keeps(item, Layout::EDGE_LEFT),
                Keeps(item, Layout::EDGE_RIGHT), area.right - area.left);
    const Span down =
        Span_Of(at.top, at.height, at.whole_height, item.needed.cy, Keeps(item, Layout::EDGE_TOP),
                Keeps(item, Layout::EDGE_BOTTOM), area.bottom - area.top);
    Arrange(item,
            {area.left + across.start, area.top + down.start, area.left + across.end, area.top + down.end},
            placed);
}

}  // namespace

SIZE Least_Around(const Buttons& button, SIZE caption) {
    constexpr int Lamp_Width = 8;
    constexpr int Least_Side = 6;
    const int border = std::max<int>(button.Border, 1);
    const int side = std::max(2 * border, Scaled(button, Least_Side));
    const int frame = button.Border > 0 ? button.Border : Scaled(button, BORDER);
    const int lamp = button.Flag & BUTTON_LAMP ? Scaled(button, Lamp_Width) : 0;
    // The last stroke may reach a pixel beyond the extent.
    return {Sum(caption.cx, 2 * side + lamp + 1), Sum(caption.cy, 2 * (frame + 1))};
}

void Measure(Layout_Item& item, const Part_Window& window, int scale) {
    item.scale = static_cast<unsigned short>(scale);
    for (Layout_Item& inner : item.items)
        Measure(inner, window, scale);
    if (item.kind == Kind::Control) {
        Measure_Control(item, window);
    } else {
        item.gone = item.if_shown && !Has_Shown(item, window);
        item.needed = Needed_Inside(item);
    }
    item.needed = Larger(item.needed, {Pixels(item, item.least.cx), Pixels(item, item.least.cy)});
}

void Arrange(const Layout_Item& item, const RECT& area, std::vector<Placed_Control>& placed) {
    if (item.kind == Kind::Control) placed.push_back({item.serial, area});
    if (item.kind == Kind::Row || item.kind == Kind::Column) return Arrange_Line(item, area, placed);
    const int margin = item.kind == Kind::Margin ? Pixels(item, item.gap) : 0;
    const RECT inside{area.left + margin, area.top + margin, area.right - margin, area.bottom - margin};
    for (const Layout_Item& inner : item.items) {
        if (inner.gone) continue;
        if (item.kind == Kind::Anchors) {
            Arrange_Anchored(inner, item, area, placed);
        } else {
            Arrange(inner, inside, placed);
        }
    }
}

}  // namespace galdren
