#include "widgets/list.h"

#include <algorithm>
#include <climits>
#include <functional>
#include <string_view>
#include <tuple>

#include "tools/arithmetic.h"
#include "tools/dimensions.h"
#include "tools/font_cache.h"
#include "tools/sharing.h"
#include "tools/window.h"
#include "widgets/item_buttons.h"
#include "widgets/items.h"
#include "widgets/scroll.h"

using namespace galdren;

namespace {

/// Frame, and space between it and the contents.
int Margin_Of(const Lists& list) { return Frame_Thickness(list) + Scaled(list, 2); }

bool Is_Column(const Lists& list) { return Has_Flag(list, FLAG_VERTICAL); }

bool Has_Bar(const Lists& list) { return list.Scroll_Bar.Width != 0; }

/// What a name takes at the top.
int Title_Height(const Lists& list) { return list.Name ? Metrics_Of(list.Font).tmHeight : 0; }

int Bar_Width(const Lists& list) {
    return list.Slider_Width ? Magnitude(list.Slider_Width) : Scaled(list, CURSEUR);
}

void Init_Frame(Lists& list) {
    Boxs& frame = list.Frame;
    Take_Name(frame, list);
    Copy_Frame(frame, list);
    frame.Flag = (list.Flag & Frame_Look) | FLAG_OWN_IMAGES | FLAG_PASSIVE;
    frame.Init(list.Window);
}

struct Item_Size {
    int width;
    int height;
};

/// A bar along the list, over the coordinates that item 0 may have; it stands at `start` first.
/// @param extent  of all items, of which `room` can be seen
void Init_Bar(Lists& list, const Area& place, short start, int room, int extent, int step) {
    const int beyond_last = Scaled(list, 5);
    const int hidden = extent - room + beyond_last;
    const int first = Is_Column(list) ? start + hidden : start;
    const Bar_Range range{static_cast<float>(first), static_cast<float>(first - hidden),
                          static_cast<float>(step)};
    Set_Bar(list.Scroll_Bar, list, place, list.Flag | SLIDER_REVERSED, range);
    Size_Thumb(list.Scroll_Bar, room, extent);
    if (list.Scroll_Bar.Val == 0.0F) list.Scroll_Bar.Val = start;
}

/// Items from the top down. Those that fit share the height evenly.
Item_Size Lay_Out_Column(Lists& list, const Area& area) {
    const int margin = Margin_Of(list);
    const int title = Title_Height(list);
    const int room = area.top - area.bottom - 2 * margin - title;
    const int wanted = list.Item_Height ? Magnitude(list.Item_Height) : Scaled(list, BUT_LIST);
    const int gap = Line_Width(list);
    const int pitch = room / list.Nb_Item;
    const bool fits = pitch >= wanted + gap;
    const int height = fits ? pitch - gap : wanted;
    const int left = area.left + margin;
    const int items_left = fits ? left : left + margin + Bar_Width(list);
    list.Item_X = Low_16(items_left);
    list.Item_Y = Low_16(area.top - margin - title - height);
    list.Item_DX = 0;
    list.Item_DY = Low_16(-(height + gap));
    if (fits) {
        list.Scroll_Bar = Sliders();
    } else {
        const int bottom = area.bottom + margin;
        Init_Bar(list, {left, left + Bar_Width(list), bottom, bottom + room}, list.Item_Y, room,
                 list.Nb_Item * (height + gap), height + gap);
    }
    return {area.right - margin - items_left, height};
}

int Widest_Name(const Lists& list) {
    int widest = list.Item[0]->Name ? 0 : 2 * Scaled(list, SPACE);
    for (Buttons** item = list.Item; *item; ++item) {
        if ((*item)->Name) widest = std::max(widest, Width_Of(list.Font, (*item)->Name));
    }
    return widest;
}

/// Items from left to right. Those that fit share the width evenly and are centred; else a whole number of
/// them fills it.
Item_Size Lay_Out_Row(Lists& list, const Area& area) {
    const int margin = Margin_Of(list);
    const int width = area.right - area.left;
    const int height = area.top - area.bottom - Title_Height(list);
    const int room = width - 2 * margin;
    const int needed = Widest_Name(list) + 2 * margin;
    const int pitch = room / list.Nb_Item;
    const int bottom = area.bottom + margin;
    const int gap = Line_Width(list);
    list.Item_DY = 0;
    if (pitch - gap >= needed) {
        list.Item_X = Low_16(area.left + (width - pitch * list.Nb_Item) / 2);
        list.Item_Y = Low_16(bottom);
        list.Item_DX = Low_16(pitch);
        list.Scroll_Bar = Sliders();
        return {pitch - gap, height - 2 * Frame_Thickness(list) - Scaled(list, 5)};
    }
    const int bar_width = Bar_Width(list);
    const int column = Scaled(list, SPACE) + needed;
    const int item_width = room > column && column > 0 ? room / (room / column) - gap : room;
    list.Item_X = Low_16(area.left + margin);
    list.Item_Y = Low_16(bottom + margin + bar_width);
    list.Item_DX = Low_16(item_width + gap);
    Init_Bar(list, {list.Item_X, list.Item_X + room, bottom, bottom + bar_width}, list.Item_X, room,
             list.Nb_Item * list.Item_DX, item_width + gap);
    return {item_width, height - 3 * margin - bar_width};
}

void Init_Items(Lists& list, const Item_Size& size) {
    const unsigned long flags = FLAG_NO_RIM | (Has_Flag(list, FLAG_STATIC) ? Inherited_Flags(list) : 0);
    for (int i = 0; i < list.Nb_Item; ++i) {
        Buttons& item = *list.Item[i];
        item.Flag |= flags;
        item.Value = i == list.Current;
        item.Width = Low_16(size.width);
        item.Height = Low_16(size.height);
        item.Border = list.Border;
        Copy_Font(item, list);
        Copy_Surroundings(item, list);
    }
    Init_Without_Regions({list.Item, std::size_t(list.Nb_Item)}, list.Window);
}

/// The part of the list that items show in.
Area Inner_Area(const Lists& list) {
    const int margin = Margin_Of(list);
    const int outer = Body_Inset(list);
    const Area all = Area_Of(list);
    Area inner{all.left + margin, all.right - outer, all.bottom + margin,
               all.top - outer - Title_Height(list)};
    if (!Has_Bar(list)) return inner;
    if (Is_Column(list)) {
        inner.left += list.Scroll_Bar.Width + margin;
    } else {
        inner.bottom += list.Scroll_Bar.Height + margin;
    }
    return inner;
}

/// Where items take events: one that reaches the outermost pixel is painted but takes none.
Area Event_Area(const Lists& list) {
    const Area inner = Inner_Area(list);
    return {inner.left, inner.right - 1, inner.bottom, inner.top - 1};
}

bool Stands_In(const Buttons& item, const Area& area) {
    return item.X >= area.left && item.Y >= area.bottom && item.X + item.Width <= area.right &&
           item.Y + item.Height <= area.top;
}

int Step_Of(const Lists& list) { return list.Item_DX ? list.Item_DX : list.Item_DY; }

void Place_Item(const Lists& list, int origin, int index) {
    const int along = origin + index * Step_Of(list);
    Buttons& item = *list.Item[index];
    item.X = list.Item_DX ? Low_16(along) : list.Item_X;
    item.Y = list.Item_DX ? list.Item_Y : Low_16(along);
}

/// Places every item of a list whose coordinates are in the range of the fields. In a longer one only those
/// that show have a place.
void Place_Items(const Lists& list, int origin) {
    const int end = origin + list.Nb_Item * Step_Of(list);
    if (end < SHRT_MIN || end > SHRT_MAX || origin < SHRT_MIN || origin > SHRT_MAX) return;
    for (int i = 0; i < list.Nb_Item; ++i)
        Place_Item(list, origin, i);
}

/// The items whose lower left corner lies in an area, as far as the direction of the list goes.
Item_Run Items_In(const Lists& list, int origin, const Area& area) {
    const int step = Step_Of(list);
    const int low = list.Item_DX ? area.left : area.bottom;
    const int high = list.Item_DX ? area.right : area.top;
    // Distances from item 0 in the direction of the items.
    const int near_end = step > 0 ? low - origin : origin - high;
    const int far_end = step > 0 ? high - origin : origin - low;
    if (step == 0 || low > high || far_end < 0) return {};
    const int pitch = std::abs(step);
    const int first = (std::max(near_end, 0) + pitch - 1) / pitch;
    const int end = std::min(far_end / pitch + 1, int{list.Nb_Item});
    return {first, std::max(first, end)};
}

/// The flat ground behind the items.
unsigned long Ground_Of(const Lists& list) { return Body_Color(Theme_Of(list), list.Color).get(); }

/// The ground behind the items, in the columns left..right-1 and the rows bottom+1..top: the frame's own
/// picture where it has one.
void Paint_Ground(Canvas& canvas, const Lists& list, const Area& area) {
    if (area.left >= area.right || area.bottom >= area.top) return;
    const Boxs& frame = list.Frame;
    const Area ground{area.left, area.right - 1, area.bottom + 1, area.top};
    const Given_Image* const zoomed = Zoomed_Image(frame, frame.Cur_Graph_Normal);
    if (frame.Cur_Graph_Normal && !zoomed && Fits_Size(frame, frame.Cur_Graph_Normal)) {
        canvas.Pixels(frame.Cur_Graph_Normal, frame.Width, frame.Height, area.left - frame.X,
                      area.bottom - frame.Y, ground);
        return;
    }
    if (!Has_Flag(list, FLAG_NO_BODY)) canvas.Box(area, Ground_Of(list));
    if (zoomed) Paint_Zoomed(canvas, frame, *zoomed, {frame.X, frame.Y + 1}, ground);
}

/// What the ground fills of the inner area, edges included.
Area Filled_By(const Area& inner) { return {inner.left, inner.right - 1, inner.bottom + 1, inner.top}; }

/// All that decides how an item looks, its place aside; of its name a hash.
auto Look_Of(const Buttons& item, bool highlighted) {
    return std::make_tuple(Body_Of(item, highlighted), item.Font,
                           item.Name ? std::hash<std::string_view>()(item.Name) : 0, item.Flag,
                           item.Color.get(), item.Width, item.Height, Frame_Thickness(item), item.Value,
                           item.Lamp, item.Look, highlighted);
}

/// What the kept picture shows of the list that painted it last. There is one such picture.
struct Kept_Items {
    static constexpr int Most = 128;
    unsigned long ground;
    int left;  ///< of the items
    int origin;
    Item_Run run;
    decltype(Look_Of(Buttons(), false)) looks[Most];  ///< that of item i at i % `Most`
};
Kept_Items The_Kept_Items;

/// Whether items can be moved as pixels: they and a flat ground leave nothing else to be seen.
bool Scroll_As_Pixels(const Lists& list, const Area& inner, const Item_Run& run) {
    const int count = run.end - run.first;
    if (list.Item_DX || list.Item_DY >= 0 || !Has_Bar(list) || count < 1 || count > Kept_Items::Most)
        return false;
    if (list.Frame.Cur_Graph_Normal || Has_Flag(list, FLAG_NO_BODY)) return false;
    return std::all_of(list.Item + run.first, list.Item + run.end, [&](const Buttons* item) {
        return item->Shown && Area_Of(*item).Holds(Covered_By(*item)) && item->Clip_Width == 0 &&
               item->Y > inner.bottom && item->X + item->Width < inner.right;
    });
}

/// Moves the items that are in view already and look as they did, and paints the others.
void Move_Items(Canvas& canvas, const Lists& list, const Area& inner, const Item_Run& run, int origin) {
    Kept_Items& kept = The_Kept_Items;
    const bool same_list = canvas.Kept() && kept.ground == Ground_Of(list) && kept.left == list.Item_X;
    const int first = std::max(run.first, kept.run.first);
    const int end = same_list ? std::min(run.end, kept.run.end) : 0;
    Area below = inner;
    if (first < end) {
        canvas.Raise(origin - kept.origin);
        const Buttons& highest = *list.Item[first];
        Paint_Ground(canvas, list, {inner.left, inner.right, highest.Y + highest.Height, inner.top});
        below.top = list.Item[end - 1]->Y - 1;
    }
    Paint_Ground(canvas, list, below);
    const std::optional<POINT> pointer = Find_Pointer(list.Window);
    for (int i = run.first; i < run.end; ++i) {
        Buttons& item = *list.Item[i];
        const auto look = Look_Of(item, Settle(item, pointer && PtInRect(&item.Rect, *pointer)));
        auto& shown = kept.looks[i % Kept_Items::Most];
        if (i < first || i >= end || shown != look) item.Draw();
        shown = look;
    }
    kept.ground = Ground_Of(list);
    kept.left = list.Item_X;
    kept.origin = origin;
    kept.run = run;
}

/// Tells an item of the pointer. One that shows already what it would then show need not hear of it.
///
/// A passive button by itself is painted at every event and notes nothing. In a list it notes that it is
/// plain, or one that became passive under the pointer would be painted at every event elsewhere.
int Tell(Buttons& item, int kind, const std::optional<POINT>& pointer, bool in_list) {
    const bool passive = Has_Flag(item, FLAG_PASSIVE);
    const bool reached = passive ? in_list : pointer && PtInRect(&item.Rect, *pointer);
    if (item.Hover == Hover_Normal && !reached) return 0;
    const int answer = item.Select(kind);
    if (passive) item.Hover = Hover_Normal;
    return answer;
}

constexpr Grow_Place Grow_In_List{".\\list.cpp", 158, 155};

}  // namespace

Lists::Lists() = default;

Lists::Lists(const Lists& other) : Tools(other), List_Fields(other), List_State(other) {
    Share_Array(Item);
    Picture = 0;
}

Lists& Lists::operator=(const Lists& other) { return Reassign(*this, other); }

Lists::~Lists() { Release_Items(Item); }

/// Counts the items, which may be others than before.
void Lists::Count() {
    Nb_Item = Low_16(Count_Items(Item));
    Shown_Items.end = std::clamp(int{Nb_Item}, Shown_Items.first, Shown_Items.end);
    All_Left = false;
}

int Lists::Grow(int count, int flags) {
    const int done = Grow_Items(*this, Item, count, Flags_For_New(*this, flags), Grow_In_List);
    Count();
    return done;
}

void Lists::Init(HWND window) {
    if (!Begin_Compound(*this, window, "Lists::Init", Frame, Item)) return;
    Last_Current = Current;
    Default_Grey(*this);
    Bind(*this, window);
    Renew_Font(*this);
    Init_Frame(*this);
    Scroll_Bar.Width = 0;
    Picture = 0;
    Count();
    if (Nb_Item == 0) return;

    const Area area =
        Has_Flag(*this, FLAG_INNER_FRAME) ? Inner_Frame_Of(*this, Area_Of(*this)) : Area_Of(*this);
    const Item_Size size = Is_Column(*this) ? Lay_Out_Column(*this, area) : Lay_Out_Row(*this, area);
    Origin = Is_Column(*this) ? Item_Y : Item_X;
    Init_Items(*this, size);
    if (Has_Bar(*this)) Scroll_Bar.Init(window);
    Note_Size(*this);
}

void Lists::Draw() {
    Check(*this, "List::Draw");
    if (!Has_Size(*this)) return;
    const Canvas for_all_parts(*this, Inside(*this));
    Picture = 0;
    Last_Current = Current;
    Frame.Draw();
    if (Has_Flag(*this, FLAG_NO_BODY)) return;
    if (Has_Bar(*this)) Scroll_Bar.Draw();
    for (int i = 0; i < Nb_Item; ++i)
        Item[i]->Value = i == Current;
    Update();
}

/// Finds the items that stand wholly in the inner area, and gets them ready.
void Lists::Choose_Shown() {
    const Area inner = Inner_Area(*this);
    for (int i = Shown_Items.first; i < Shown_Items.end; ++i)
        Item[i]->Shown = 0;
    Place_Items(*this, Origin);
    Shown_Items = Items_In(*this, Origin, inner);
    auto& [first, end] = Shown_Items;
    for (int i = first; i < end; ++i) {
        Place_Item(*this, Origin, i);
        Item[i]->Shown = Stands_In(*Item[i], inner);
        if (Item[i]->Shown) Init_Without_Region(*Item[i], Window);
    }
    while (first < end && !Item[first]->Shown)
        ++first;
    while (first < end && !Item[end - 1]->Shown)
        --end;
    All_Left = false;
}

/// Paints the inner area and the items in it.
void Lists::Update() {
    const Area inner = Inner_Area(*this);
    short& first = Item_DX ? Item_X : Item_Y;
    if (Has_Bar(*this)) {
        Origin = Truncate(double{Scroll_Bar.Val});
        first = Within_16(Origin);
    } else if (first != Within_16(Origin)) {
        Origin = first;  // the application has moved the items
    }
    const bool with_items = !Has_Flag(*this, FLAG_OUTLINE) && Item;
    if (with_items) Choose_Shown();
    if (with_items && Scroll_As_Pixels(*this, inner, Shown_Items)) {
        Canvas canvas(*this, Filled_By(inner), Picture);
        if (Picture) return Move_Items(canvas, *this, inner, Shown_Items, Origin);
    }
    // Items without room turn their frames inside out, beyond the inner area.
    Reach reach = Inside(*this);
    if (!Has_Flag(*this, FLAG_NO_BODY)) reach.covered = Filled_By(inner);
    Canvas canvas(*this, reach);
    Paint_Ground(canvas, *this, inner);
    for (int i = Shown_Items.first; with_items && i < Shown_Items.end; ++i) {
        if (Item[i]->Shown) Item[i]->Draw();
    }
}

int Lists::Select(int event) {
    Check(*this, "List::Select");
    if (!Has_Size(*this) || Has_Flag(*this, FLAG_PASSIVE)) return 0;
    const int kind = Event_Kind(event);
    const std::optional<POINT> pointer = Find_Pointer(Window);
    const bool inside = pointer && PtInRect(&Rect, *pointer);
    if (kind == EVENT_TEST) return inside;
    if (Has_Bar(*this) && Scroll_Bar.Select(kind)) {
        if (Any_Button_Held()) Follow_Bar();
        return 0;
    }
    const Area area = Event_Area(*this);
    const auto takes_events = [&](int i) { return Item[i]->Shown && Stands_In(*Item[i], area); };
    int result = 0;
    for (int i = Shown_Items.first; i < Shown_Items.end; ++i) {
        Place_Item(*this, Origin, i);
        if (takes_events(i) && Tell(*Item[i], kind, pointer, inside)) result = 1;
    }
    for (int i = 0; i < Nb_Item && !inside && !All_Left; ++i) {
        // Those in view have been told; a static one notes nothing.
        if (!Shown_Items.Has(i) || !takes_events(i)) Item[i]->Hover = Hover_Normal;
    }
    All_Left = !inside;
    return inside ? result : 0;
}

/// Takes the value under the pointer from the scroll bar.
void Lists::Follow_Bar() {
    const Shared_Context context(Window);
    Follow_Pointer(Scroll_Bar);
    if (Truncate(double{Scroll_Bar.Val}) != Origin) Update();
}

int Lists::Read() {
    Check(*this, "List::Read");
    if (!Has_Size(*this) || Has_Flag(*this, FLAG_PASSIVE) || Nb_Item == 0) return -1;
    const std::optional<POINT> pointer = Pointer_On(*this);
    if (!pointer) return -1;
    // An item under the pointer begins at most its own size before it.
    const Area before{pointer->x - Item[0]->Width, pointer->x, pointer->y - Item[0]->Height, pointer->y};
    const Item_Run run = Items_In(*this, Origin, before);
    for (int i = run.first; i < run.end; ++i) {
        Place_Item(*this, Origin, i);
        const Buttons& item = *Item[i];
        if (!Has_Flag(item, FLAG_PASSIVE) && Area_Of(item).Holds(*pointer)) return i;
    }
    return -1;
}

void Lists::Scroll(int amount) {
    Check(*this, "Lists::Scroll");
    if (!Has_Size(*this) || Has_Flag(*this, FLAG_PASSIVE) || !Pointer_Inside(*this) || !Has_Bar(*this))
        return;
    const Shared_Context context(Window);
    Scroll_Bar.Scroll(amount);
    if (Truncate(double{Scroll_Bar.Val}) != Origin) Update();
}

void Lists::Deselect() {
    if (State == 0 || !Has_Size(*this) || Never_Highlights(*this)) return;
    if (Has_Bar(*this)) Scroll_Bar.Deselect();
    for (int i = Shown_Items.first; i < Shown_Items.end; ++i) {
        if (Item[i]->Shown) Item[i]->Deselect();
    }
}

/// Marks an item or takes the mark away, with the repaint that it needs. No item has an index out of range.
void Lists::Mark(int index, short value) {
    if (index < 0 || index >= Nb_Item) return;
    Buttons& item = *Item[index];
    item.Value = value;
    if (Has_Flag(*this, FLAG_NO_BODY) || !Shown_Items.Has(index) || !item.Shown) return;
    Place_Item(*this, Origin, index);
    item.Adjust();
}

void Lists::Adjust() {
    Check(*this, "List::Adjust");
    if (!Has_Size(*this) || Current == Last_Current || Has_Flag(*this, FLAG_PASSIVE)) return;
    const Shared_Context context(Window);
    Mark(Last_Current, 0);
    Mark(Current, 1);
    Last_Current = Current;
}

void Lists::Bring_Into_View(int index) {
    Check(*this, "Lists::Bring_Into_View");
    if (!Has_Size(*this) || !Has_Bar(*this) || index < 0 || index >= Nb_Item) return;
    const Area inner = Event_Area(*this);
    const Buttons& item = *Item[index];
    const int low = Item_DX ? inner.left : inner.bottom;
    const int high = Item_DX ? inner.right - item.Width : inner.top - item.Height;
    const int way = index * Step_Of(*this);  // from item 0
    const int origin = Truncate(double{Scroll_Bar.Val});
    const int in_view = std::max(low - way, std::min(origin, high - way));
    const Shared_Context context(Window);
    if (origin != in_view) {
        Scroll_Bar.Val = static_cast<float>(in_view);
        Scroll_Bar.Adjust();
    }
    if (Truncate(double{Scroll_Bar.Val}) != Origin) Update();
}

RECT Lists::Item_Place(int index) const {
    if (index < 0 || index >= Nb_Item || !Shown_Items.Has(index) || !Item[index]->Shown) return {};
    Place_Item(*this, Origin, index);
    const Buttons& item = *Item[index];
    if (!Has_Size(item) || !Stands_In(item, Event_Area(*this))) return {};
    const Area area = Area_Of(item);
    return {area.left, area.bottom, area.right + 1, area.top + 1};
}
