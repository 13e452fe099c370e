#include "widgets/tabs.h"

#include <algorithm>
#include <climits>
#include <span>
#include <utility>

#include "tools/dimensions.h"
#include "tools/sharing.h"
#include "widgets/items.h"

using namespace galdren;

namespace {

constexpr Grow_Place Grow_In_Tabs{"tabs", 96, 93};

/// What the row paints beyond the set, where it joins with the page.
int Overhang_Of(const Tabs& set) { return Scaled(set, 3); }

/// Free on either side of the row.
int Row_Margin(const Tabs& set) { return Scaled(set, 4 * SPACE); }

/// The tabs that `Init` placed, as far as they are still there.
std::span<TabItems* const> Row_Of(const Tabs& set) {
    const int count = std::clamp(int{set.Count}, 0, Count_Items(set.Item));
    return {set.Item, static_cast<std::size_t>(count)};
}

/// Null when there is no such tab.
TabItems* Tab_At(const Tabs& set, int index) {
    const auto row = Row_Of(set);
    return index >= 0 && index < static_cast<int>(row.size()) ? row[static_cast<std::size_t>(index)]
                                                              : nullptr;
}

TabItems* Front_Of(const Tabs& set) { return Tab_At(set, set.Value); }

/// Tabs that are narrower than their slant would step backwards, out of the set.
bool Has_Room(const Tabs& set) { return set.Count < 2 || set.Tab_Width >= set.Slant; }

void Init_Box(Tabs& set) {
    Copy_Place(set.Box, set);
    set.Box.Flag = (set.Flag & (Frame_Look | FLAG_OWN_IMAGES)) | FLAG_PASSIVE;
    set.Box.Init(set.Window);
}

void Init_Tabs(Tabs& set) {
    const int total = (set.Count - 1) * set.Slant - 2 * Row_Margin(set) + set.Width;
    const unsigned long flags = Has_Flag(set, FLAG_STATIC) ? set.Flag & (FLAG_STATIC | FLAG_OWN_IMAGES) : 0;
    set.Tab_Width = Low_16(total / set.Count);
    const int rest = total - set.Tab_Width * set.Count;
    for (int i = 0; i < set.Count; ++i) {
        TabItems& tab = *set.Item[i];
        const bool last = i == set.Count - 1;
        tab.Flag |= flags;
        tab.Value = i == set.Value;
        tab.X = Low_16((set.Tab_Width - set.Slant) * i + set.First_X);
        tab.Y = set.Y;
        tab.Width = Low_16(set.Tab_Width + (last ? rest : 0));
        tab.Height = set.Height;
        tab.Slant = set.Slant;
        Copy_Font(tab, set);
        Copy_Look(tab, set);
        if (tab.Color.get() == 0) tab.Color = set.Color;
        tab.Init(set.Window);
    }
}

/// Gives every tab the ends that fit its place in the row. Each lies on the left end of the next; the front
/// tab lies on both its neighbours.
void Choose_Ends(const Tabs& set) {
    const int front = Front_Of(set) ? set.Value : INT_MIN / 2;
    int index = 0;
    for (TabItems* tab : Row_Of(set)) {
        const int right = index == front - 1 ? 0 : TAB_RIGHT_STRAIGHT;
        const int ends = index == 0 || index == front ? right | TAB_LEFT_STRAIGHT : right;
        tab->Shape = Low_16((tab->Shape & ~0xFF) | ends);
        ++index;
    }
}

/// Visits the tabs from the last to the first, and the front tab after all others.
template <class Visit>
void From_Back_To_Front(const Tabs& set, Visit visit) {
    const auto row = Row_Of(set);
    TabItems* const front = Front_Of(set);
    std::for_each(row.rbegin(), row.rend(), [&](TabItems* tab) {
        if (tab != front) visit(*tab);
    });
    if (front) visit(*front);
}

/// One of the three lines around a page, the outermost one being line 0: from the end of the row down the
/// left side, along the bottom and up the right side.
/// @param row  between whose ends it is open
void Paint_Page_Line(Canvas& canvas, const Area& page, int number, const Pixel_Run& row, unsigned long side,
                     unsigned long below) {
    const int width = canvas.Line();
    for (int inset = number * width; inset < (number + 1) * width; ++inset) {
        const auto [left, right, bottom, top] = page.Inset(inset);
        canvas.Lines({{row.left, top}, {left, top}, {left, bottom}}, side);
        canvas.Lines({{left, bottom}, {right, bottom}}, below);
        canvas.Lines({{right, bottom}, {right, top}, {row.right, top}}, side);
    }
}

}  // namespace

Tabs::Tabs() = default;

Tabs::Tabs(const Tabs& other) : Tools(other), Tab_Set_Fields(other) { Share_Array(Item); }

Tabs& Tabs::operator=(const Tabs& other) { return Reassign(*this, other); }

Tabs::~Tabs() { Release_Items(Item); }

int Tabs::Grow(int n, int flags) {
    if (n < 0) {
        Error_Fct(hwnd, ERROR_LEVEL_WARNING, "Tabs: there cannot be %d tabs\n   name: %s", n, Name_Of(*this));
        return 0;
    }
    // New tabs are blank but for their style: the clip of the set is for its page.
    return Grow_Items(Tools(), Item, n, static_cast<unsigned long>(flags), Grow_In_Tabs);
}

void Tabs::Init(HWND window) {
    if (!Begin_Compound(*this, window, "Tabs::Init", Box)) return;
    Last_Value = Value;
    Default_Grey(*this);
    Bind(*this, window);
    Renew_Font(*this);
    Init_Box(*this);
    Count = Low_16(Count_Items(Item));
    if (Count == 0) return;
    Slant = Low_16(Height / 4);
    First_X = Low_16(X + Row_Margin(*this));
    Init_Tabs(*this);
    Note_Size(*this);
}

/// Paints all tabs. The front tab has the next `Select` paint it, on top of neighbours that light up beside
/// it.
void Tabs::Update() {
    Choose_Ends(*this);
    if (!Has_Flag(*this, FLAG_OUTLINE) && Has_Room(*this)) {
        const Canvas for_all_tabs(Window, {Area_Of(*this).Inset(-Overhang_Of(*this))});
        From_Back_To_Front(*this, [](TabItems& tab) { tab.Draw(); });
    }
    if (TabItems* front = Front_Of(*this)) front->Hover = Hover_Unknown;
}

void Tabs::Draw() {
    Check(*this, "Tabs::Draw");
    if (!Has_Size(*this)) return;
    Last_Value = Value;
    if (Has_Flag(*this, FLAG_NO_BODY)) return;
    const TabItems* front = Front_Of(*this);
    for (TabItems* tab : Row_Of(*this))
        tab->Value = tab == front;
    Update();
}

void Tabs::Adjust() {
    Check(*this, "Tabs::Adjust");
    if (!Has_Size(*this) || Value == Last_Value || Has_Flag(*this, FLAG_PASSIVE)) return;
    TabItems* const before = Tab_At(*this, std::exchange(Last_Value, Value));
    TabItems* const now = Front_Of(*this);
    if (before) before->Value = 0;
    if (now) now->Value = 1;
    if (Has_Flag(*this, FLAG_NO_BODY)) return;
    // All of them: a neighbour that lights up has painted over the end of the next one.
    Update();
}

int Tabs::Select(int event) {
    Check(*this, "Tabs::Select");
    if (!Has_Size(*this) || Has_Flag(*this, FLAG_PASSIVE) || !Has_Room(*this)) return 0;
    const bool inside = Pointer_Inside(*this);
    int answer = 0;
    for (TabItems* tab : Row_Of(*this)) {
        if ((inside || tab->Hover != Hover_Normal) && tab->Select(Event_Kind(event))) answer = 1;
    }
    return inside ? answer : 0;
}

void Tabs::Deselect() {
    if (State == 0 || !Has_Size(*this) || Never_Highlights(*this) || !Has_Room(*this)) return;
    const Canvas for_all_tabs(Window, {Area_Of(*this).Inset(-Overhang_Of(*this))});
    From_Back_To_Front(*this, [](TabItems& tab) { tab.Deselect(); });
}

int Tabs::Read() {
    Check(*this, "Tabs::Read");
    if (!Has_Size(*this) || Has_Flag(*this, FLAG_PASSIVE)) return -1;
    const std::optional<POINT> pointer = Pointer_On(*this);
    if (!pointer) return -1;
    const auto row = Row_Of(*this);
    const auto found = std::find_if(row.begin(), row.end(), [&](const TabItems* tab) {
        return Has_Size(*tab) && !Has_Flag(*tab, FLAG_PASSIVE) && Area_Of(*tab).Holds(*pointer);
    });
    return found == row.end() ? -1 : static_cast<int>(found - row.begin());
}

void Tabs::Page(int height) {
    if (!Has_Size(*this)) return;
    const TabItems* front = Front_Of(*this);
    const Area row = Area_Of(*this);
    const int bottom = row.top - std::clamp(height ? height : Tab_Height, SHRT_MIN, SHRT_MAX);
    const int top = row.bottom;
    const int left = row.left + Row_Margin(*this);
    const int right = row.right - Row_Margin(*this);
    Canvas canvas(*this, {Area{row.left, row.right, std::min(bottom, top), std::max(bottom, top)}.Inset(-2)});
    const Theme& theme = canvas.Look();
    canvas.Polygon({{row.left, top - 2}, {row.left, bottom}, {row.right, bottom}, {row.right, top - 2}},
                   Body_Color(theme, front ? front->Color : Color).get());
    const Area page{row.left, row.right, bottom, top + 1};
    Paint_Page_Line(canvas, page, 1, {left, right}, theme.Edge_Bright, theme.Edge_Dark);
    Paint_Page_Line(canvas, page, 2, {left, right}, theme.Edge_Light, theme.Edge_Dark);
    Paint_Page_Line(canvas, page, 0, {left, right}, theme.Rim, theme.Rim);
}
