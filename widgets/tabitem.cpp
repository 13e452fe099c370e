#include "widgets/tabitem.h"

#include <algorithm>

#include "tools/base.h"
#include "tools/images.h"
#include "tools/sharing.h"

using namespace galdren;

namespace {

/// With this bit, `Adjust` paints without a change of the value.
constexpr unsigned long Adjusts_Always = 0x100000;

/// A longer slant would turn the ends inside out.
int Slant_Of(const TabItems& tab) { return std::clamp(int{tab.Slant}, 0, std::max(tab.Width / 2, 0)); }

bool Is_Front(const TabItems& tab) { return tab.Value != 0; }

bool Right_Is_Straight(const TabItems& tab) { return (tab.Shape & 0x0F) != 0; }
bool Left_Is_Straight(const TabItems& tab) { return (tab.Shape & 0xF0) != 0; }

Colors Shaded(Colors color) {
    color -= Colors(20, 20, 20);
    return color;
}

unsigned long Body_Color_Of(const TabItems& tab, bool highlighted) {
    const Theme& theme = Theme_Of(tab);
    const unsigned long lit = Is_Front(tab) ? theme.Highlight : theme.Highlight_Back;
    const Colors at_rest = Is_Front(tab) ? tab.Color : Shaded(tab.Color);
    return Body_Color(theme, highlighted ? Colors(static_cast<unsigned int>(lit)) : at_rest).get();
}

/// The corners of the edge around a tab.
struct Trapezoid {
    Trapezoid(const TabItems& tab, const Area& area)
        : left_foot{area.left, area.bottom + 1},
          left_top{area.left + Slant_Of(tab), area.top - 1},
          right_top{area.right - Slant_Of(tab), area.top - 1},
          right_foot{area.right, area.bottom + 1} {}
    POINT left_foot, left_top, right_top, right_foot;
};

/// The line from a foot to a peak, wider ones inward.
/// @param inward  1 at the left end, -1 at the right one
void Paint_End(Canvas& canvas, POINT from, POINT to, int inward, unsigned long color) {
    for (int i = 0; i < canvas.Line(); ++i, from.x += inward, to.x += inward)
        canvas.Lines({from, to}, color);
}

void Paint_Sides(Canvas& canvas, const Trapezoid& edge, unsigned long color) {
    Paint_End(canvas, edge.left_foot, edge.left_top, 1, color);
    canvas.Row(edge.left_top.x, edge.right_top.x, edge.left_top.y, color, -canvas.Line());
    Paint_End(canvas, edge.right_top, edge.right_foot, -1, color);
}

/// What is below a tab: its base line, and two rows of the page's edge.
void Paint_Base(Canvas& canvas, const Area& area) {
    const int line = canvas.Line();
    canvas.Row(area.right, area.left, area.bottom + 1, canvas.Look().Rim, line);
    canvas.Row(area.right, area.left, area.bottom, canvas.Look().Edge_Bright, -line);
    canvas.Row(area.right, area.left, area.bottom - line, canvas.Look().Edge_Light, -line);
}

void Paint_Edge(Canvas& canvas, const TabItems& tab, bool front, const Area& area) {
    Paint_Sides(canvas, {tab, area}, canvas.Look().Rim);
    if (!front) return Paint_Base(canvas, area);
    canvas.Row(area.right, area.left, area.bottom, canvas.Look().Blank, -2 * canvas.Line());
}

void Paint_Flat(Canvas& canvas, const TabItems& tab, const Area& area) {
    const Trapezoid edge(tab, area);
    canvas.Polygon({edge.left_foot, edge.left_top, edge.right_top, edge.right_foot},
                   Body_Color(canvas.Look(), Shaded(tab.Color)).get());
    Paint_Sides(canvas, edge, canvas.Look().Caption_Outline);
    Paint_Base(canvas, area);
}

/// The bevel along an end, from its foot to its peak.
/// @param inward  1 at the left end, -1 at the right one
void Paint_Bevel(Canvas& canvas, const POINT& foot, const POINT& peak, int inward, bool straight,
                 unsigned long color) {
    const int turn = straight ? 1 : 0;
    const int inner = 2 * canvas.Line() * inward;
    canvas.Polygon(
        {foot, {foot.x + inner, foot.y - turn}, {peak.x + inner, peak.y - 1 - turn}, {peak.x, peak.y - 1}},
        color);
}

/// Takes away the edge of the page below the front tab, so that both are one.
void Merge_With_Page(Canvas& canvas, const TabItems& tab, int left, int right, int y0) {
    const unsigned long color = Body_Color(canvas.Look(), tab.Color).get();
    const int line = canvas.Line();
    canvas.Row(left + 1, right + 1, y0 + 1, color, line);
    canvas.Row(left + 1, right + 1 + line, y0, color, -line);
    canvas.Row(left, right + 1 + 2 * line, y0 - line, color, -line);
    canvas.Column(left + 1, y0 + line, y0 - line, canvas.Look().Edge_Bright, line);
}

/// The body with a triangle at either end, its bevels and its edges, below the upper edge of `top`. A tab too
/// small for them is its edge alone.
void Paint_Shape(Canvas& canvas, const TabItems& tab, const Area& top, unsigned long color) {
    const int slant = Slant_Of(tab);
    const auto [x0, x1, y0, y1] = top;
    const int line = canvas.Line();
    if (x1 - x0 + 2 * slant < 4 * line || y1 - y0 < 4 * line) return;
    const Theme& theme = canvas.Look();
    const int base = y0 + 1 + line;
    const int below_edge = y1 - 1 - line;
    const int half = slant / 2;
    const int middle = (y0 + y1) / 2;
    const bool left = Left_Is_Straight(tab);
    const bool right = Right_Is_Straight(tab);
    const POINT left_foot = left ? POINT{x0 - slant, base} : POINT{x0 - slant + half, middle};
    const POINT right_foot = right ? POINT{x1 + slant, base} : POINT{x1 + slant - half, middle};
    // With an odd slant, the point of a wing is a pixel short of that of its bevel.
    const POINT left_wing{left ? left_foot.x + 2 * line : x0 - half + 2 * line, left_foot.y};
    const POINT right_wing{right ? right_foot.x - 2 * line : x1 + half - 2 * line, right_foot.y};

    canvas.Box({x0 + 1, x1 - 1, base - 1, below_edge}, color);
    canvas.Polygon({{x1 - 1, below_edge}, right_wing, {x1 - 1, base}}, color);
    canvas.Polygon({{x0, base}, left_wing, {x0 + 1, below_edge}}, color);
    canvas.Row(x0 + 1, x1 - 1, below_edge, theme.Edge_Bright, -line);
    canvas.Row(x0 + 1, x1 - 1, below_edge - line, theme.Edge_Light, -line);
    const POINT left_peak{x0, y1 - 1};
    const POINT right_peak{x1, y1 - 1};
    Paint_Bevel(canvas, left_foot, left_peak, 1, left, theme.Edge_Bright);
    Paint_End(canvas, left_foot, left_peak, 1, theme.Rim);
    Paint_Bevel(canvas, right_foot, right_peak, -1, right, theme.Edge_Dark);
    Paint_End(canvas, right_peak, right_foot, -1, theme.Rim);
    if (Is_Front(tab)) Merge_With_Page(canvas, tab, x0 - slant, x1 + slant, y0);
}

void Paint_Fill(Canvas& canvas, const TabItems& tab, bool highlighted, const void* image, unsigned long flags,
                int border, const Area& top) {
    if (flags & FLAG_STATIC) return;
    const int inset = std::max(border, 0);
    const Given_Image* const zoomed = Zoomed_Image(tab, image);
    if (image && !zoomed && Fits_Size(tab, image))
        return canvas.Pixels(image, tab.Width, tab.Height, inset, inset, top.Inset(inset));
    Paint_Shape(canvas, tab, top, Body_Color_Of(tab, highlighted));
    if (zoomed) Paint_Zoomed(canvas, tab, *zoomed, {top.left, top.bottom}, top.Inset(inset));
}

/// What `Paint_Fill` takes for the place of a tab: its rectangle without the slanted ends.
Area Top_Of(const TabItems& tab) {
    Area area = Area_Of(tab);
    area.left += Slant_Of(tab);
    area.right -= Slant_Of(tab);
    return area;
}

void Paint_Name(Canvas& canvas, const TabItems& tab, unsigned long flags) {
    Paint_Caption(canvas, tab.Font, tab.Name, flags, Area_Of(tab), tab.Border);
}

unsigned long Caption_Flags(const TabItems& tab) { return galdren::Caption_Flags(tab, Is_Front(tab)); }

void Paint_Look(Canvas& canvas, const TabItems& tab, bool highlighted) {
    Paint_Fill(canvas, tab, highlighted, Body_Of(tab, highlighted), tab.Flag,
               Frame_Width(tab) + canvas.Line(), Top_Of(tab));
    Paint_Name(canvas, tab, Caption_Flags(tab));
}

bool Body_Hides_Name(const TabItems& tab) {
    const Area top = Top_Of(tab);
    const int line = Line_Width(tab);
    const Area between_wings{top.left + 1, top.right - 2, top.bottom + 1 + line, top.top - 1 - line};
    return !tab.Cur_Graph_Normal && !tab.Cur_Graph_Select &&
           Caption_Stays_Inside(tab, Caption_Flags(tab), between_wings);
}

/// The whole tab, highlighted when the pointer is inside.
void Paint_Whole(Canvas& canvas, TabItems& tab) {
    Paint_Edge(canvas, tab, Is_Front(tab), Area_Of(tab));
    const bool is_static = Has_Flag(tab, FLAG_STATIC);
    if (!is_static) Choose_Bodies(tab);
    if (is_static || !Body_Hides_Name(tab)) Paint_Name(canvas, tab, Caption_Flags(tab));
    if (is_static) return;
    tab.Hover = Hover_Unknown;
    const bool passive = Has_Flag(tab, FLAG_PASSIVE);
    const bool inside = !passive && Pointer_Inside(tab);
    if (!passive) Hover_Changes(tab, tab.Hover, inside);
    Paint_Look(canvas, tab, inside);
}

/// Puts an image to use. The tab holds it like a copy does, for the application may replace it while it is
/// still the one painted.
void Take_Image(unsigned long* image, unsigned long*& up, unsigned long*& down, unsigned long*& current) {
    Share_Array(image);
    Release_Array(up);
    up = down = current = image;
}

/// An image is looked for only when the size changed; those for another size are no longer of use.
void Renew_Images(TabItems& tab) {
    if (tab.Width == tab.Last_Width && tab.Height == tab.Last_Height) return;
    const bool wanted = !Has_Flag(tab, FLAG_STATIC);
    Take_Image(wanted ? tab.Graph_Normal : nullptr, tab.Normal_Up, tab.Normal_Down, tab.Cur_Graph_Normal);
    Take_Image(wanted ? tab.Graph_Select : nullptr, tab.Select_Up, tab.Select_Down, tab.Cur_Graph_Select);
}

/// Calls `act` with every image that a tab holds.
template <class Act>
void For_Owned(const TabItems& tab, Act act) {
    for (const unsigned long* array : {tab.Normal_Up, tab.Select_Up, tab.Own_Normal_Up, tab.Own_Normal_Down,
                                       tab.Own_Select_Up, tab.Own_Select_Down})
        act(array);
}

}  // namespace

TabItems::TabItems() = default;

TabItems::TabItems(const TabItems& other) : Tools(other), Tab_Item_Fields(other) {
    For_Owned(*this, Share_Array);
}

TabItems& TabItems::operator=(const TabItems& other) { return Reassign(*this, other); }

TabItems::~TabItems() { For_Owned(*this, Release_Array); }

void TabItems::Init(HWND window) {
    if (!Begin_Init(*this, window, "TabItems::Init")) return;
    Hover = Hover_Unknown;
    Last_Value = Value;
    Default_Grey(*this);
    Bind(*this, window);
    Renew_Font(*this);
    Flag |= FLAG_OWN_IMAGES;
    Renew_Images(*this);
    if (!Has_Flag(*this, FLAG_STATIC)) Note_Images(*this);
    Note_Size(*this);
    Last_Color = Color.get();
}

void TabItems::Draw() {
    Check(*this, "TabItems::Draw");
    if (!Has_Size(*this)) return;
    Last_Value = Value;
    Canvas canvas(*this, Around(*this));
    if (Has_Flag(*this, FLAG_OUTLINE)) {
        Paint_Flat(canvas, *this, Area_Of(*this));
        Paint_Name(canvas, *this, Flag);
    } else if (!Has_Flag(*this, FLAG_NO_BODY)) {
        Paint_Whole(canvas, *this);
    }
}

int TabItems::Select(int) {
    Check(*this, "TabItems::Select");
    if (!Has_Size(*this)) return 0;
    return Select_By_Hover(*this, EVENT_MOVE, [this](bool highlighted) {
        Canvas canvas(*this, Around(*this));
        Paint_Look(canvas, *this, highlighted);
    });
}

void TabItems::Deselect() {
    if (State == 0 || !Has_Size(*this) || Never_Highlights(*this)) return;
    Canvas canvas(*this, Around(*this));
    Paint_Look(canvas, *this, false);
}

void TabItems::Adjust() {
    Check(*this, "TabItems::Adjust");
    if (!Has_Size(*this) || Has_Flag(*this, FLAG_NO_BODY)) return;
    if (!Has_Flag(*this, Adjusts_Always) && Value == Last_Value) return;
    Last_Value = Value;
    Canvas canvas(*this, Around(*this));
    Paint_Whole(canvas, *this);
}

int TabItems::Read() {
    Check(*this, "TabItems::Read");
    return Value;
}

void TabItems::Cadre(long, short value, short, short x0, short x1, short y0, short y1) {
    Canvas canvas(*this, Around(*this));
    Paint_Edge(canvas, *this, value != 0, {x0, x1, y0, y1});
}

void TabItems::Cadre_Outline(short x0, short x1, short y0, short y1) {
    Canvas canvas(*this, Around(*this));
    Paint_Flat(canvas, *this, {x0, x1, y0, y1});
}

void TabItems::Fill_Select(short selected, const char* image, long flags, short border, short x0, short x1,
                           short y0, short y1) {
    Canvas canvas(*this, Around(*this));
    Paint_Fill(canvas, *this, selected != 0, image, static_cast<unsigned long>(flags), border,
               {x0, x1, y0, y1});
}
