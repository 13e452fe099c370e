#include "dirtree/glyph.h"

#include <algorithm>
#include <span>

#include "tools/base.h"
#include "tools/surface.h"
#include "tools/window.h"

namespace galdren {

namespace {

enum class Shape : unsigned char {
    Line,   ///< from one point to the other, which is not painted
    Frame,  ///< outline through both corners
    Box     ///< filled; its right column and its bottom row are not painted
};
using enum Shape;

/// One stroke of a glyph, relative to its bottom-left corner.
struct Stroke {
    unsigned long color;
    Shape shape;
    POINT from;
    POINT to;
};

// In the GDI form, blue in the highest byte.
constexpr unsigned long Black = 0x000000;
constexpr unsigned long White = 0xFFFFFF;
constexpr unsigned long Grey = 0x505050;
constexpr unsigned long Olive = 0x388E8E;
constexpr unsigned long Rose = 0x4040FF;
constexpr unsigned long Red = 0x0000FF;
constexpr unsigned long Blue = 0xFF0000;

// clang-format off
constexpr Stroke Minus_Box[] = {
    {Black, Frame, {3, 0}, {11, 8}},
    {Black, Line, {5, 4}, {10, 4}},
};

constexpr Stroke Plus_Box[] = {
    {Black, Frame, {3, 0}, {11, 8}},
    {Black, Line, {5, 4}, {10, 4}},
    {Black, Line, {7, 2}, {7, 7}},
};

constexpr Stroke Crossed_Ring[] = {
    {Red, Line, {5, 0}, {10, 0}},
    {Red, Line, {4, 1}, {6, 1}},
    {Red, Line, {9, 1}, {11, 1}},
    {Red, Line, {3, 2}, {7, 2}},
    {Red, Line, {10, 2}, {12, 2}},
    {Red, Line, {3, 3}, {3, 6}},
    {Red, Line, {11, 3}, {11, 6}},
    {Red, Line, {5, 3}, {8, 3}},
    {Red, Line, {6, 4}, {9, 4}},
    {Red, Line, {7, 5}, {10, 5}},
    {Red, Line, {3, 6}, {5, 6}},
    {Red, Line, {8, 6}, {12, 6}},
    {Red, Line, {4, 7}, {6, 7}},
    {Red, Line, {9, 7}, {11, 7}},
    {Red, Line, {5, 8}, {10, 8}},
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

void Paint_Stroke(Canvas& canvas, const Stroke& stroke, int x, int y) {
    const Area area{x + stroke.from.x, x + stroke.to.x, y + stroke.from.y, y + stroke.to.y};
    switch (stroke.shape) {
        case Line:
            if (area.bottom == area.top) return canvas.Row(area.left, area.right, area.top, stroke.color);
            return canvas.Column(area.left, area.bottom, area.top, stroke.color);
        case Frame:
            return canvas.Outline(area, stroke.color);
        case Box:
            return canvas.Box(area, stroke.color);
    }
}

void Paint_Strokes(Canvas& canvas, std::span<const Stroke> strokes, int x, int y) {
    for (const Stroke& stroke : strokes)
        Paint_Stroke(canvas, stroke, x, y);
}

void Paint_Folder(std::span<const Stroke> strokes, int x, int y) {
    Canvas canvas(Window_In_Use(), {Area{x, x + Glyph_Size, y, y + Glyph_Size}.Inset(-Glyph_Overhang)});
    Paint_Strokes(canvas, strokes, x, y);
}

void Paint_Lead(const Lead& lead, int x, int x_end, int y, int y_top) {
    const auto [left, right] = std::minmax({x, x_end, x + Glyph_Size});
    const auto [bottom, top] = std::minmax({y, y_top, y + Glyph_Size});
    Canvas canvas(Window_In_Use(), {Area{left, right, bottom, top}.Inset(-Glyph_Overhang)});
    Paint_Strokes(canvas, lead.mark, x, y);
    canvas.Column(x + Stem, y + lead.up_from, y_top, Blue);
    canvas.Row(x + lead.branch_from, x_end + lead.branch_past, y + Branch, Blue);
    Current_Color = Blue;  // also when both lines have no length
}

/// Continues the line from the parent down to the sibling below.
void Paint_Stem_Below(int x, int y) {
    Canvas canvas(Window_In_Use(), {{x, x + Glyph_Size, y, y + Glyph_Size}});
    canvas.Column(x + Stem, y, y + Branch + 1, Blue);
}

}  // namespace

}  // namespace galdren

using namespace galdren;

void Icon_Lead_Leaf(Boxs*, char more, short x, short x_end, short y, short y_top) {
    if (more) Paint_Stem_Below(x, y);
    Paint_Lead(Leaf, x, x_end, y, y_top);
}

void Icon_Lead_No_Access(Boxs*, char, short x, short x_end, short y, short y_top) {
    Paint_Lead(No_Access, x, x_end, y, y_top);
}

void Icon_Lead_Expand(Boxs*, char, short x, short x_end, short y, short y_top) {
    Paint_Lead(Expanded, x, x_end, y, y_top);
}

void Icon_Lead_Collapse(Boxs*, char, short x, short x_end, short y, short y_top) {
    Paint_Lead(Collapsed, x, x_end, y, y_top);
}

void Icon_Dir_Close(Boxs*, short x, short y) { Paint_Folder(Closed_Folder, x, y); }

void Icon_Dir_Open(Boxs*, short x, short y) { Paint_Folder(Open_Folder, x, y); }
