#include "dirtree/dirtree.h"

#include <algorithm>
#include <climits>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "dirtree/glyph.h"
#include "dirtree/icon.h"
#include "dirtree/tree.h"
#include "tools/arithmetic.h"
#include "tools/base.h"
#include "tools/dimensions.h"
#include "tools/font_cache.h"
#include "tools/sharing.h"
#include "tools/surface.h"
#include "util/directory.h"
#include "util/program.h"
#include "util/wide.h"
#include "widgets/items.h"
#include "widgets/scroll.h"

using namespace galdren;

namespace {

/// Lengths of a browser, at its scale.
struct Lengths {
    const DirTrees& tree;
    int line = Line_Width(tree);
    int row = tree.Row_Height();
    int indent = std::max(Scaled(tree, 18), 1);  // of each depth
    int name_offset = Scaled(tree, 28);
    int name_drop = Scaled(tree, 4);     // below the baseline
    int column_start = Scaled(tree, 5);  // of the columns that presses count in, each as wide as an indent
    int border = Scaled(tree, BORDER);
    int space = Scaled(tree, SPACE);
    int bar = Scaled(tree, CURSEUR);
    int button = Scaled(tree, BUT_DIM);
};

/// A press on the first column of a row is one on its mark; those that follow choose the row.
constexpr int Name_Columns = 6;

constexpr unsigned long Upright_Bar = FLAG_VERTICAL | SLIDER_REVERSED | SLIDER_KEEP_GRAB;
constexpr unsigned long Level_Bar = SLIDER_KEEP_GRAB;

void Place(Tools& part, const DirTrees& tree, int x, int y, int width, int height) {
    Set_Place(part, Not_Turned({x, x + width, y, y + height}));
    part.Color = tree.Color;
    Copy_Surroundings(part, tree);
}

void Set_Font(Tools& part, const char* weight, short size) {
    part.Font_Name = "Arial";
    part.Font_Weight = weight;
    part.Font_Size = Within_16(Scaled(part, size));
}

void Init_Boxes(DirTrees& tree) {
    const Lengths at{tree};
    Boxs& frame = tree.Frame;
    frame.Flag = FLAG_TEXT_BOTTOM | FLAG_OWN_IMAGES | FLAG_PASSIVE;
    Place(frame, tree, tree.X + at.line, tree.Y + at.line, tree.Width - 2 * at.line,
          tree.Height - 2 * at.line);
    Set_Font(frame, "bold", 14);
    frame.Init(tree.Window);

    Boxs& box = tree.Tree_Box;
    box.Flag = FLAG_OWN_IMAGES;
    Place(box, tree, frame.X + at.space, frame.Y + at.button + at.space, tree.Width - 2 * at.space,
          frame.Height - 2 * at.space - at.button);
    box.Init(tree.Window);
    box.Flag = FLAG_STATIC;

    Boxs& list = tree.List_Box;
    list.Flag = FLAG_STATIC;
    Place(list, tree, box.X + at.border + 2 * at.line, box.Y + at.border + at.bar + at.space,
          box.Width - 2 * (at.border + at.line) - at.bar - at.space,
          box.Height - 3 * at.border - at.bar - at.button - at.space - 2 * at.line);
    Set_Font(list, "regular", 10);
    list.Init(tree.Window);
}

/// What a part stands on where nothing else is painted.
Colors Ground_Of(const Tools& part) { return Body_Color(Theme_Of(part), part.Color); }

/// Binds a bar that stands where it is to stand. `Init` ends a drag and brings the value into the range, but
/// a bar that is fitted or moved while it is dragged goes on.
void Init_Bar(Sliders& bar, HWND window) {
    const short capture = bar.Capture;
    bar.Init(window);
    bar.Capture = capture;
}

void Init_Bars(DirTrees& tree) {
    const Lengths at{tree};
    const auto step = static_cast<float>(at.row);
    const Boxs& box = tree.Tree_Box;
    const int width = box.Width - 3 * at.space - at.bar;
    const int height = box.Height - 3 * at.space - at.border - at.bar - at.button;
    const int right = box.X + box.Width - at.space;
    const int bottom = box.Y + at.space;
    Sliders& upright = tree.Vertical_Bar;
    const int above = bottom + at.space + at.bar;
    Set_Bar(upright, tree, Not_Turned({right - at.bar, right, above, above + height}),
            Upright_Bar | Unused_Bar, {std::max(upright.Val, 100.0F), 0.0F, step});
    Init_Bar(upright, tree.Window);

    Sliders& level = tree.Horizontal_Bar;
    const int left = box.X + at.space;
    Set_Bar(level, tree, Not_Turned({left, left + width, bottom, bottom + at.bar}), Level_Bar | Unused_Bar,
            {0.0F, std::max(level.Val, 0.0F), step});
    Init_Bar(level, tree.Window);
}

void Init_Button(DirTrees& tree) {
    const Lengths at{tree};
    const Boxs& list = tree.List_Box;
    Buttons& button = tree.Refresh;
    button.Name = "Refresh";
    Copy_Font(button, tree);
    Place(button, tree, tree.Tree_Box.X + at.space, list.Y + list.Height + at.border,
          tree.Tree_Box.Width - 2 * at.space, at.button - Scaled(tree, 3));
    button.Init(tree.Window);
}

/// Keeps the place of a bar from one scale to another. What was a whole number of pixels comes back as one.
void Rescale(Sliders& bar, int from, int to) {
    constexpr double Nearly_Whole = 0.01;
    const double value = double{bar.Val} * to / from;
    const double whole = std::round(value);
    bar.Val = static_cast<float>(std::abs(value - whole) < Nearly_Whole ? whole : value);
}

/// What a bar shows.
struct Bar_Look {
    unsigned long flag;
    float start, end, value;
    short thumb;
    explicit Bar_Look(const Sliders& bar)
        : flag(bar.Flag), start(bar.Start_Val), end(bar.End_Val), value(bar.Val), thumb(bar.Curs_Half) {}
    bool operator==(const Bar_Look&) const = default;
};

/// Fits a bar to the room along it and to what there is to scroll, and paints it.
/// @param flag      style of the bar when it is needed
/// @param far_from  the end of its range that is not 0
/// @param anew      whether it is to be painted even when it looks as before
void Fit_Bar(Sliders& bar, unsigned long flag, int room, int extent, float& far_from, bool anew) {
    const Bar_Look before(bar);
    const bool needed = extent > room;
    bar.Flag = needed ? flag : flag | Unused_Bar;
    if (needed) {
        far_from = static_cast<float>(4 * Scaled(bar, BORDER) - room + extent);
        Size_Thumb(bar, room, extent);
    } else {
        bar.Val = 0;
    }
    Init_Bar(bar, bar.Window);
    if (!anew && Bar_Look(bar) == before) return;
    const Canvas for_both(bar, Inside(bar));
    if (!needed) bar.Clear(Ground_Of(bar));
    bar.Draw();
}

POINT Scrolled(const DirTrees& tree) {
    return {Pixels_Scrolled(tree.Horizontal_Bar), Pixels_Scrolled(tree.Vertical_Bar)};
}

const char* Icon_Of(const Dir_Tree& node) {
    struct Kind {
        unsigned flag;
        const char* icon;
    };
    static constexpr Kind Kinds[] = {{DIR_REMOVABLE, "icon_floppy.rgb"},
                                     {DIR_FIXED, "icon_fixed.rgb"},
                                     {DIR_REMOTE, "icon_remote.rgb"},
                                     {DIR_CDROM, "icon_cdrom.rgb"},
                                     {DIR_ROOT, "icon_mycomputer.rgb"}};
    for (const Kind& kind : Kinds) {
        if (Has_Flag(node, kind.flag)) return kind.icon;
    }
    return nullptr;
}

/// Reads the icons of root and drives, for no file is to be read while something is painted.
void Read_Icons(const Dir_Tree& root) {
    Icon_Read(nullptr, Icon_Of(root));
    for (const Dir_Tree* drive = root.child; drive && drive->name; ++drive) {
        if (const char* icon = Icon_Of(*drive)) Icon_Read(nullptr, icon);
    }
}

int Widest_Row(const DirTrees& tree) {
    const Lengths at{tree};
    int widest = 0;
    for (const Dir_Row* row = tree.Row; row != tree.Row + tree.Nb_Row; ++row) {
        const int before = tree.List_Box.X + at.indent * (row->depth + 1) + 2 * at.space;
        Dir_Tree& node = *row->node;
        if (node.width == 0) node.width = Within_16(Width_Of(tree.List_Box.Font, node.name));
        widest = std::max(widest, before + node.width);
    }
    return widest;
}

/// Paints rows where the bars have scrolled them to.
class Row_Painter {
  public:
    Row_Painter(Canvas& surface, DirTrees& browser)
        : canvas(surface),
          tree(browser),
          at{browser},
          first(std::max(Pixels_Scrolled(tree.Vertical_Bar) / at.row, 0)),
          left(tree.List_Box.X + 2 * at.space - Pixels_Scrolled(tree.Horizontal_Bar)),
          baseline_0(tree.List_Box.Y + tree.List_Box.Height + Pixels_Scrolled(tree.Vertical_Bar) - at.space -
                     at.row) {}

    /// Paints a part of the list, ground and all.
    void Paint(const Area& area) {
        if (area.left >= area.right || area.bottom >= area.top) return;
        const Canvas::Narrow_Clip clip = canvas.Narrow(area);
        canvas.Box(area, Ground_Of(tree.List_Box).get());
        for (int row = std::max(first - 1, 0); row < tree.Nb_Row; ++row) {
            if (Baseline(row) + Most_Rows_Up * at.row <= area.bottom) break;
            if (Baseline(row) - at.name_drop < area.top) Paint_Row(row, area);
        }
    }

  private:
    /// What a row may paint above its baseline; icons and fonts may be larger than ours.
    static constexpr int Most_Rows_Up = 3;

    int Baseline(int row) const { return baseline_0 - at.row * row; }

    void Paint_Row(int index, const Area& area) {
        const Dir_Row& row = tree.Row[index];
        const int baseline = Baseline(index);
        if (row.depth > 0) {
            Paint_Stems(row, baseline, area);
            Paint_Lead(row, baseline, area);
        }
        if (index < first) return;
        const int x = left + at.indent * row.depth;
        Paint_Picture(*row.node, x, baseline - at.line, area);
        Paint_Name(*row.node, x + at.name_offset, baseline - at.name_drop, area);
    }

    /// Lines from the ancestors that have siblings below, down to them.
    void Paint_Stems(const Dir_Row& row, int baseline, const Area& area) {
        const int stem = canvas.Scaled(7);
        for (const Dir_Row* above = tree.Row + row.parent; above->depth > 0;
             above = tree.Row + above->parent) {
            const int x = left + at.indent * (above->depth - 1) + stem;
            if (Has_Flag(*above->node, DIR_LAST) || x < area.left || x >= area.right) continue;
            canvas.Column(x, baseline, baseline + at.row + at.line, canvas.Look().Caption_Changed, at.line);
        }
    }

    void Paint_Lead(const Dir_Row& row, int baseline, const Area& area) {
        const int x = left + at.indent * (row.depth - 1);
        if (!May_Show(x, area)) return;
        const char more = !Has_Flag(*row.node, DIR_LAST);
        const auto paint = Lead_Of(*row.node);
        paint(&tree.List_Box, more, Low_16(x), Low_16(x + at.indent), Low_16(baseline),
              Low_16(baseline + at.row));
    }

    static auto Lead_Of(const Dir_Tree& node) -> decltype(&Icon_Lead_Leaf) {
        if (Has_Flag(node, DIR_LEAF)) return Icon_Lead_Leaf;
        if (Has_Flag(node, DIR_NO_ACCESS)) return Icon_Lead_No_Access;
        return Has_Flag(node, DIR_OPEN) ? Icon_Lead_Expand : Icon_Lead_Collapse;
    }

    void Paint_Picture(const Dir_Tree& node, int x, int y, const Area& area) {
        if (!May_Show(x, area)) return;
        if (const char* icon = Icon_Of(node)) {
            Icon_Draw_Image(&tree.List_Box, Low_16(x), Low_16(y), Prog_Name, icon);
        } else if (Has_Flag(node, DIR_CURRENT)) {
            Icon_Dir_Open(&tree.List_Box, Low_16(x), Low_16(y));
        } else {
            Icon_Dir_Close(&tree.List_Box, Low_16(x), Low_16(y));
        }
    }

    void Paint_Name(const Dir_Tree& node, int x, int y, const Area& area) {
        if (x >= area.right) return;
        const Theme& theme = canvas.Look();
        const unsigned long color = Has_Flag(node, DIR_NO_ACCESS) ? theme.Caption_Barred
                                    : Has_Flag(node, DIR_CURRENT) ? theme.Caption_Changed
                                                                  : theme.Caption;
        if (!node.name) return;
        const unsigned long ink = Ink_On(theme, Ground_Of(tree.List_Box).get(), color);
        canvas.Write_Run(tree.List_Box.Font, node.name, x, y, ink);
    }

    /// Whether something small at `x` may be in the area. In a very deep tree there are places that the
    /// coordinates of the glyphs cannot tell.
    bool May_Show(int x, const Area& area) const {
        const int widest_picture = 3 * at.indent;
        return x + widest_picture > area.left && x - at.indent < area.right;
    }

    Canvas& canvas;
    DirTrees& tree;
    Lengths at;
    int first;  // row that shows its name at the top
    int left;   // of the root
    int baseline_0;
};

/// Lower edge of the strip at the top in which a row is cut off: it shows its lead there and nothing else.
int Cut_Off_Below(const Lengths& at, const Area& list, int scrolled) {
    return std::min(list.top - at.space + scrolled % at.row - at.name_drop, list.top);
}

/// Moves the rows on the kept picture to where they are to be, and paints what that leaves open.
/// @param from  how far they were scrolled
/// @param to    how far they are now
/// @return false, with nothing changed, when everything has to be painted
bool Move_Rows(Canvas& canvas, Row_Painter& painter, const Lengths& at, const Area& list, const POINT& from,
               const POINT& to) {
    const int up = to.y - from.y;
    if (from.x != to.x || std::abs(up) >= list.top - list.bottom - 2 * at.row) return false;
    canvas.Raise(up);
    int open_below = Cut_Off_Below(at, list, to.y);
    if (up < 0) open_below = std::min({open_below, list.top + up, Cut_Off_Below(at, list, from.y) + up});
    painter.Paint({list.left, list.right, open_below, list.top});
    painter.Paint({list.left, list.right, list.bottom, list.bottom + up});
    return true;
}

/// The title: the name of the control and that of the chosen directory. Before the first choice it is left to
/// the application; when the choice is lost the name of the directory goes, for `Read` answers none either.
void Renew_Title(DirTrees& tree) {
    constexpr std::size_t Longest = 1024 + Longest_Character;  // `Set_Name` cuts
    if (!tree.Current && !tree.Frame.Owned_Name) return;
    char title[Longest];
    std::snprintf(title, sizeof title, "%s%s%s", tree.Name ? tree.Name : "",
                  tree.Name && tree.Current ? " " : "", tree.Current ? tree.Current->name : "");
    if (!tree.Frame.Name || std::strcmp(tree.Frame.Name, title) != 0) tree.Frame.Set_Name("%s", title);
}

}  // namespace

DirTrees::DirTrees() = default;

DirTrees::DirTrees(const DirTrees& other) : Tools(other), Dir_Tree_Fields(other) {
    Share(Thing::Array, Root);
    Share(Thing::Array, Row);
}

DirTrees& DirTrees::operator=(const DirTrees& other) { return Reassign(*this, other); }

DirTrees::~DirTrees() { Release_Tree(); }

void DirTrees::Init(HWND window) {
    if (!Begin_Compound(*this, window, "DirTrees::Init", Frame, Tree_Box, List_Box, Refresh, Vertical_Bar,
                        Horizontal_Bar))
        return;
    Bind(*this, window);
    if (Scale != Last_Scale) Change_Scale();
    Init_Boxes(*this);
    Init_Bars(*this);
    Init_Button(*this);
    Rows_Current = false;
    Picture = 0;
}

int DirTrees::Row_Height() const { return std::max(Scaled(*this, Row_Pitch), 1); }

int DirTrees::Set(const char* path) {
    // The old tree goes last: the path may come from it.
    constexpr std::size_t Longest = 2048;
    char target[2 * Longest] = "";
    if (path) {
        std::strncpy(target, path, Longest);
        Path_To_Abs(target, sizeof target);
        Str_To_Lower(target);
    }
    Release_Tree();
    Dir_Tree_Start(path ? target : nullptr);
    Current = Dir_Tree_Current(Root, target);
    return 1;
}

char* DirTrees::Read() { return Current ? Current->path : nullptr; }

void DirTrees::Draw() {
    Check(*this, "DirTrees::Draw");
    if (!Has_Size(*this)) return;
    if (Root) Read_Icons(*Root);
    const Canvas for_all_parts(*this, Inside(*this));
    Renew_Title(*this);
    Frame.Draw();
    Tree_Box.Flag = FLAG_PASSIVE;
    Tree_Box.Draw();
    Tree_Box.Flag = FLAG_STATIC;
    Refresh.Draw();
    Dir_Tree_Update2(true);
    Dir_Tree_Draw2();
}

int DirTrees::Select(int event) {
    Check(*this, "DirTrees::Select");
    if (!Has_Size(*this)) return 0;
    const int kind = Event_Kind(event);
    if (kind == EVENT_TEST) return Pointer_Inside(*this);
    const bool pressed = kind == EVENT_PRESS;
    if (Refresh.Select(kind) && pressed) return Press_Refresh();
    if (Follow(Vertical_Bar, kind) || Follow(Horizontal_Bar, kind) || !pressed) return 1;
    return Press_Row();
}

void DirTrees::Scroll(int amount) {
    Check(*this, "DirTrees::Scroll");
    if (!Has_Size(*this)) return;
    const Shared_Context context(Window);
    Sliders& bar = Horizontal_Bar.Select(EVENT_TEST) ? Horizontal_Bar : Vertical_Bar;
    bar.Scroll(-std::max(amount, -INT_MAX));
    Dir_Tree_Draw2();
}

/// Builds the tree, open down to a directory.
bool DirTrees::Dir_Tree_Start(const char* path) {
    Root = Make_Tree(path);
    return Root != nullptr;
}

/// Makes the node with a path the current one, if there is one.
Dir_Tree* DirTrees::Dir_Tree_Current(Dir_Tree* from, const char* path) {
    Dir_Tree* const node = from ? Find_Path(*from, path) : nullptr;
    if (!node) return nullptr;
    Set_Flag(*node, DIR_CURRENT, true);
    Str_To_Lower(node->path);
    return node;
}

/// Opens or closes the node of a row when `column` is that of its mark.
/// @return whether it did
bool DirTrees::Dir_Tree_Expand(int row, int column) {
    if (!Has_Row(row) || column != Row[row].depth - 1 || !Own_Tree()) return false;
    if (!Toggle(*Row[row].node)) return false;
    Rows_Current = false;
    return true;
}

/// Makes the node of a row the current one when `column` is one of its picture and its name.
/// @return whether it did
bool DirTrees::Dir_Tree_Select(int row, int column) {
    if (!Has_Row(row) || Has_Flag(*Row[row].node, DIR_NO_ACCESS)) return false;
    if (column < Row[row].depth || column >= Row[row].depth + Name_Columns || !Own_Tree()) return false;
    if (Current) Set_Flag(*Current, DIR_CURRENT, false);
    Current = Row[row].node;
    Set_Flag(*Current, DIR_CURRENT, true);
    return true;
}

/// Brings the rows up to date, and the bars with them.
/// @param anew  whether bars that look as before are painted
void DirTrees::Dir_Tree_Update2(bool anew) {
    Picture = 0;
    if (!Rows_Current) {
        Renew_Rows();
        Widest = Widest_Row(*this);
        Rows_Current = true;
    }
    Fit_Bar(Horizontal_Bar, Level_Bar, Horizontal_Bar.Width, Widest, Horizontal_Bar.End_Val, anew);
    Fit_Bar(Vertical_Bar, Upright_Bar, Vertical_Bar.Height, Nb_Row * Row_Height(), Vertical_Bar.Start_Val,
            anew);
}

/// Shows the rows where the bars have scrolled them to.
void DirTrees::Dir_Tree_Draw2() {
    const Area list = Area_Of(List_Box);
    const POINT to = Scrolled(*this);
    Canvas canvas(List_Box, {list.left, list.right - 1, list.bottom + 1, list.top}, Picture);
    Row_Painter painter(canvas, *this);
    if (!canvas.Kept() || !Move_Rows(canvas, painter, Lengths{*this}, list, Painted_At, to))
        painter.Paint(list);
    Painted_At = to;
}

void DirTrees::Release_Tree() {
    if (Let_Go(Thing::Array, Row)) delete[] Row;
    if (Let_Go(Thing::Array, Root)) Free_Tree(Root);
    Row = nullptr;
    Nb_Row = 0;
    Root = Current = nullptr;
    Rows_Current = false;
    Picture = 0;
}

/// Names are as wide as the scale has them, also in a tree that copies share.
void DirTrees::Change_Scale() {
    const int from = Scaled(Last_Scale, Unscaled);
    const int to = Scaled(Scale, Unscaled);
    Rescale(Vertical_Bar, from, to);
    Rescale(Horizontal_Bar, from, to);
    Last_Scale = Scale;
    if (from != to && Own_Tree()) Forget_Widths(*Root);
}

/// Gives a browser that shares its tree with a copy one of its own, before it changes.
/// @return false when there is none, or no memory for it
bool DirTrees::Own_Tree() {
    if (!Root || !Is_Shared(Thing::Array, Root)) return Root != nullptr;
    Dir_Tree* const own = Copy_Tree(*Root);
    if (!own) return false;
    const bool had_current = Current != nullptr;
    Release_Tree();
    Root = own;
    Current = had_current ? Find_Current(*own) : nullptr;
    Renew_Rows();
    return Row != nullptr;
}

void DirTrees::Renew_Rows() {
    if (Let_Go(Thing::Array, Row)) delete[] Row;
    Nb_Row = 0;
    Row = Root ? List_Rows(*Root, Nb_Row) : nullptr;
}

/// Lets a bar follow the pointer, and the rows the bar.
/// @return whether the bar has taken the event
bool DirTrees::Follow(Sliders& bar, int kind) {
    if (!bar.Select(kind)) return false;
    Follow_Pointer(bar);
    Dir_Tree_Draw2();
    return true;
}

int DirTrees::Press_Refresh() {
    Refresh.Value = 1;
    Refresh.Adjust();
    if (Own_Tree()) {
        Rescan(*Root);
        Current = Find_Current(*Root);
        Rows_Current = false;
    }
    const Paint_Batch batch(Window);
    Draw();
    Refresh.Value = 0;
    Refresh.Adjust();
    return 2;
}

int DirTrees::Press_Row() {
    const std::optional<POINT> pointer = Pointer_On(List_Box);
    if (!pointer) return 1;
    const POINT scrolled = Scrolled(*this);
    const Lengths at{*this};
    const int top = scrolled.y + List_Box.Y + List_Box.Height - at.space - at.name_drop;
    const int row = (top - pointer->y) / at.row;
    const int column = (pointer->x + scrolled.x - List_Box.X - 2 * at.space - at.column_start) / at.indent;
    if (Dir_Tree_Expand(row, column)) {
        const Shared_Context context(Window);
        Dir_Tree_Update2(false);
        Dir_Tree_Draw2();
        return 1;
    }
    if (!Dir_Tree_Select(row, column)) return 1;
    const Paint_Batch batch(Window);
    Draw();
    return 2;
}

namespace {

/// What of a control's height is above the rows.
int Above_Rows(const Lengths& at) { return at.space + at.name_drop; }

/// Where the name of a row begins, and the lowest pixels of it.
POINT Name_Start(const DirTrees& tree, int row) {
    const Lengths at{tree};
    const POINT scrolled = Scrolled(tree);
    const Boxs& list = tree.List_Box;
    return {list.X + 2 * at.space - scrolled.x + at.indent * tree.Row[row].depth + at.name_offset,
            list.Y + list.Height + scrolled.y - Above_Rows(at) - at.row * (row + 1) + 1};
}

/// How much of a name can be pressed.
int Pressed_Width(const Lengths& at, const Dir_Row& row) {
    return std::min<int>(row.node->width, at.column_start + Name_Columns * at.indent - at.name_offset);
}

/// Moves a bar that is needed, by so many pixels as its contents are to move.
void Move_Bar(Sliders& bar, int pixels) {
    if (pixels == 0 || Has_Flag(bar, FLAG_PASSIVE)) return;
    bar.Val += static_cast<float>(pixels);
    bar.Adjust();
}

/// How far something from `low` to `high` has to move to be between two ends, its lower end before all.
int Way_Between(int low, int high, int low_end, int high_end) {
    if (low < low_end) return low_end - low;
    return high > high_end ? std::max(high_end - high, low_end - low) : 0;
}

}  // namespace

RECT DirTrees::Row_Place(int row) const {
    if (!Has_Row(row) || row < Pixels_Scrolled(Vertical_Bar) / Row_Height()) return {};
    const POINT start = Name_Start(*this, row);
    const RECT name{start.x, start.y, start.x + Pressed_Width(Lengths{*this}, Row[row]),
                    start.y + Row_Height()};
    const RECT shown = Common(name, List_Box.Rect);
    return Is_Empty(shown) ? RECT{} : shown;
}

int DirTrees::Row_At(POINT place) const {
    if (!PtInRect(&List_Box.Rect, place)) return -1;
    const int top = Pixels_Scrolled(Vertical_Bar) + List_Box.Y + List_Box.Height - Above_Rows(Lengths{*this});
    const int row = (top - place.y) / Row_Height();
    const RECT area = Row_Place(row);
    return PtInRect(&area, place) ? row : -1;
}

void DirTrees::Bring_Into_View(int row) {
    if (!Has_Size(*this) || !Has_Row(row)) return;
    const POINT start = Name_Start(*this, row);
    const RECT& list = List_Box.Rect;
    const POINT before = Scrolled(*this);
    Move_Bar(Vertical_Bar, Way_Between(start.y, start.y + Row_Height(), list.top, list.bottom));
    Move_Bar(Horizontal_Bar, -Way_Between(start.x, start.x + Row[row].node->width, list.left, list.right));
    const POINT after = Scrolled(*this);
    if (before.x != after.x || before.y != after.y) Dir_Tree_Draw2();
}

bool DirTrees::Open_Row(int row, bool open) {
    const unsigned from = open ? DIR_CLOSED : DIR_OPEN;
    if (!Has_Size(*this) || !Has_Row(row) || Row[row].depth == 0 || !Has_Flag(*Row[row].node, from))
        return false;
    if (!Dir_Tree_Expand(row, Row[row].depth - 1)) return false;
    Dir_Tree_Update2(false);
    Dir_Tree_Draw2();
    return true;
}
