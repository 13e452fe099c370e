#include "dirtree/glyph.h"

#include <algorithm>
#include <span>
#include <utility>

#include "tools/base.h"
#include "tools/surface.h"
#include "tools/window.h"
#include "widgets/text.h"

namespace galdren {

namespace {

enum class Shape : unsigned char {
    Line,   ///< from one point to the other, which is not painted
    Frame,  ///< outline through both corners
    Box     ///< filled; its right column and its bottom row are not painted
};
using enum Shape;

/// What a stroke is painted with: a colour of its own, or one of the theme.
enum class Paint : unsigned long {
    // In the GDI form, blue in the highest byte.
    White = 0xFFFFFF,
    Black = 0x000000,
    Grey = 0x505050,
    Olive = 0x388E8E,
    Rose = 0x4040FF,
    // Beyond all colours.
    Mark = 0x1000000,
    No_Entry
};
using enum Paint;

/// One stroke of a glyph, in pixels at 96 dots per inch from its bottom-left corner.
struct Stroke {
    Paint paint;
    Shape shape;
    POINT from;
    POINT to;
};

// clang-format off
constexpr Stroke Minus_Box[] = {
    {Mark, Frame, {3, 0}, {11, 8}},
    {Mark, Line, {5, 4}, {10, 4}},
};

constexpr Stroke Plus_Box[] = {
    {Mark, Frame, {3, 0}, {11, 8}},
    {Mark, Line, {5, 4}, {10, 4}},
    {Mark, Line, {7, 2}, {7, 7}},
};

constexpr Stroke Crossed_Ring[] = {
    {No_Entry, Line, {5, 0}, {10, 0}},
    {No_Entry, Line, {4, 1}, {6, 1}},
    {No_Entry, Line, {9, 1}, {11, 1}},
    {No_Entry, Line, {3, 2}, {7, 2}},
    {No_Entry, Line, {10, 2}, {12, 2}},
    {No_Entry, Line, {3, 3}, {3, 6}},
    {No_Entry, Line, {11, 3}, {11, 6}},
    {No_Entry, Line, {5, 3}, {8, 3}},
    {No_Entry, Line, {6, 4}, {9, 4}},
    {No_Entry, Line, {7, 5}, {10, 5}},
    {No_Entry, Line, {3, 6}, {5, 6}},
    {No_Entry, Line, {8, 6}, {12, 6}},
    {No_Entry, Line, {4, 7}, {6, 7}},
    {No_Entry, Line, {9, 7}, {11, 7}},
    {No_Entry, Line, {5, 8}, {10, 8}},
};

constexpr Stroke Closed_Folder[] = {
    {Olive, Box, {1, 1}, {13, 9}},
    {Olive, Line, {1, 10}, {8, 10}},
    {Olive, Line, {2, 11}, {7, 11}},

    {Black, Line, {1, 0}, {15, 0}},
    {Black, Line, {14, 0}, {14, 10}},

    {Grey, Line, {0, 1}, {0, 11}},
    {Grey, Line, {0, 1}, {14, 1}},
    {Grey, Line, {13, 1}, {13, 11}},
    {Grey, Line, {8, 10}, {14, 10}},
    {Grey, Line, {1, 11}, {2, 11}},
    {Grey, Line, {7, 11}, {8, 11}},
    {Grey, Line, {2, 12}, {7, 12}},

    {White, Line, {1, 2}, {1, 10}},
    {White, Line, {1, 9}, {13, 9}},
};

constexpr Stroke Open_Folder[] = {
    {Rose, Box, {1, 1}, {13, 9}},
    {Rose, Line, {1, 10}, {8, 10}},
    {Rose, Line, {2, 11}, {7, 11}},
    {Rose, Line, {0, 5}, {1, 5}},

    {Black, Line, {1, 0}, {15, 0}},
    {Black, Line, {14, 0}, {14, 10}},
    {Black, Line, {13, 1}, {13, 3}},
    {Black, Line, {12, 3}, {12, 5}},
    {Black, Line, {11, 5}, {11, 7}},

    {Grey, Line, {13, 3}, {13, 11}},
    {Grey, Line, {8, 10}, {14, 10}},
    {Grey, Line, {7, 11}, {8, 11}},
    {Grey, Line, {2, 12}, {7, 12}},
    {Grey, Line, {1, 11}, {2, 11}},
    {Grey, Line, {0, 8}, {0, 11}},
    {Grey, Line, {0, 1}, {13, 1}},
    {Grey, Line, {12, 1}, {12, 3}},
    {Grey, Line, {11, 3}, {11, 5}},
    {Grey, Line, {10, 5}, {10, 7}},
    {Grey, Line, {-2, 7}, {11, 7}},
    {Grey, Line, {-2, 5}, {-2, 7}},
    {Grey, Line, {-1, 3}, {-1, 5}},
    {Grey, Line, {0, 1}, {0, 3}},

    {White, Line, {1, 2}, {1, 3}},
    {White, Line, {0, 3}, {0, 5}},
    {White, Line, {-1, 5}, {-1, 7}},
    {White, Line, {-1, 6}, {10, 6}},
    {White, Line, {1, 8}, {1, 11}},
    {White, Line, {2, 11}, {7, 11}},
    {White, Line, {7, 10}, {8, 10}},
    {White, Line, {8, 9}, {13, 9}},
};
// clang-format on

/// The mark of a node and where its connector lines begin and end.
struct Lead {
    std::span<const Stroke> mark;
    int up_from;      ///< y where the line up to the parent begins
    int branch_from;  ///< x where the branch to the item begins
    int branch_past;  ///< how far the branch ends beyond `x_end`
};

constexpr Lead Leaf{{}, 4, 7, 1};
constexpr Lead Expanded{Minus_Box, 9, 12, 1};
constexpr Lead Collapsed{Plus_Box, 9, 12, 1};
constexpr Lead No_Access{Crossed_Ring, 9, 12, 0};

constexpr int Stem = 7;    ///< x of the line up to the parent
constexpr int Branch = 4;  ///< y of the branch

constexpr int Glyph_Size = 16;
constexpr int Glyph_Overhang = 2;  ///< of the open folder, and of branches

unsigned short Scale_Of(const Boxs* box) { return box ? box->Scale : Unscaled; }

/// The surface in use, for what stands in an area and may overhang it.
class Glyph_Canvas {
  public:
    Glyph_Canvas(const Boxs* box, const Area& area)
        : canvas(Window_In_Use(), {area.Inset(-Scaled(Scale_Of(box), Glyph_Overhang))}, box) {}

    void Paint_Strokes(std::span<const Stroke> strokes, int x, int y) {
        for (const Stroke& stroke : strokes)
            Paint_Stroke(stroke, x, y);
    }

    /// From (x, y_from) towards y_to, which is not painted.
    void Paint_Stem(int x, int y_from, int y_to) {
        canvas.Column(x, y_from, y_to, Line_Color(), canvas.Line());
    }

    /// From (x_from, y) towards x_to, which is not painted.
    void Paint_Branch(int x_from, int x_to, int y) {
        canvas.Row(x_from, x_to, y, Line_Color(), canvas.Line());
    }

    unsigned long Line_Color() const { return canvas.Look().Caption_Changed; }

  private:
    unsigned long Color_Of(Paint paint) const {
        if (paint == Mark) return canvas.Look().Caption;
        return paint == No_Entry ? canvas.Look().Codes[TEXT_RED - TEXT_BLUE]
                                 : static_cast<unsigned long>(paint);
    }

    /// Strokes that stand beside each other do so at any scale: each goes on to where the next pixel begins.
    void Paint_Stroke(const Stroke& stroke, int x, int y) {
        const auto [from, to] = std::pair(stroke.from, stroke.to);
        const auto at = [this](int pixel) { return canvas.Scaled(pixel); };
        const auto thickness = [&](int pixel) { return std::max(at(pixel + 1) - at(pixel), canvas.Line()); };
        const unsigned long color = Color_Of(stroke.paint);
        switch (stroke.shape) {
            case Line:
                if (from.y == to.y)
                    return canvas.Row(x + at(from.x), x + at(to.x), y + at(from.y), color, thickness(from.y));
                return canvas.Column(x + at(from.x), y + at(from.y), y + at(to.y), color, thickness(from.x));
            case Frame:
                return canvas.Outline(
                    {x + at(from.x), x + at(to.x + 1) - 1, y + at(from.y), y + at(to.y + 1) - 1}, color,
                    canvas.Line());
            case Box:
                return canvas.Box(
                    {x + at(from.x), x + at(to.x), y + at(from.y + 1) - 1, y + at(to.y + 1) - 1}, color);
        }
    }

    Canvas canvas;
};

void Paint_Folder(const Boxs* box, std::span<const Stroke> strokes, int x, int y) {
    const int size = Scaled(Scale_Of(box), Glyph_Size);
    Glyph_Canvas canvas(box, {x, x + size, y, y + size});
    canvas.Paint_Strokes(strokes, x, y);
}

void Paint_Lead(const Boxs* box, const Lead& lead, int x, int x_end, int y, int y_top) {
    const auto at = [scale = Scale_Of(box)](int pixel) { return Scaled(scale, pixel); };
    const auto [left, right] = std::minmax({x, x_end, x + at(Glyph_Size)});
    const auto [bottom, top] = std::minmax({y, y_top, y + at(Glyph_Size)});
    Glyph_Canvas canvas(box, {left, right, bottom, top});
    canvas.Paint_Strokes(lead.mark, x, y);
    canvas.Paint_Stem(x + at(Stem), y + at(lead.up_from), y_top);
    canvas.Paint_Branch(x + at(lead.branch_from), x_end + at(lead.branch_past), y + at(Branch));
    Current_Color = canvas.Line_Color();  // also when both lines have no length
}

/// Continues the line from the parent down to the sibling below.
void Paint_Stem_Below(const Boxs* box, int x, int y) {
    const auto at = [scale = Scale_Of(box)](int pixel) { return Scaled(scale, pixel); };
    Glyph_Canvas canvas(box, {x, x + at(Glyph_Size), y, y + at(Glyph_Size)});
    canvas.Paint_Stem(x + at(Stem), y, y + at(Branch + 1));
}

}  // namespace

}  // namespace galdren

using namespace galdren;

void Icon_Lead_Leaf(Boxs* box, char more, short x, short x_end, short y, short y_top) {
    if (more) Paint_Stem_Below(box, x, y);
    Paint_Lead(box, Leaf, x, x_end, y, y_top);
}

void Icon_Lead_No_Access(Boxs* box, char, short x, short x_end, short y, short y_top) {
    Paint_Lead(box, No_Access, x, x_end, y, y_top);
}

void Icon_Lead_Expand(Boxs* box, char, short x, short x_end, short y, short y_top) {
    Paint_Lead(box, Expanded, x, x_end, y, y_top);
}

void Icon_Lead_Collapse(Boxs* box, char, short x, short x_end, short y, short y_top) {
    Paint_Lead(box, Collapsed, x, x_end, y, y_top);
}

void Icon_Dir_Close(Boxs* box, short x, short y) { Paint_Folder(box, Closed_Folder, x, y); }

void Icon_Dir_Open(Boxs* box, short x, short y) { Paint_Folder(box, Open_Folder, x, y); }
