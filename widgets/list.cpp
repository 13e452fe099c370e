#include "widgets/list.h"

#include <algorithm>
#include <climits>

#include "tools/arithmetic.h"
#include "tools/dimensions.h"
#include "tools/font_cache.h"
#include "tools/region.h"
#include "tools/sharing.h"
#include "tools/window.h"
#include "widgets/button_items.h"
#include "widgets/items.h"
#include "widgets/scroll.h"

using namespace galdren;

namespace {

/// Space between frame and contents.
constexpr int Gap = 2;

/// Frame and gap together.
int Margin_Of(const Lists& list) { return Frame_Thickness(list) + Gap; }

bool Is_Column(const Lists& list) { return Has_Flag(list, FLAG_VERTICAL); }

bool Has_Bar(const Lists& list) { return list.Scroll_Bar.Width != 0; }

int Bar_Width(const Lists& list) { return list.Slider_Width ? Magnitude(list.Slider_Width) : CURSEUR; }

void Init_Frame(Lists& list) {
    Boxs& frame = list.Frame;
    Take_Name(frame, list);
    Copy_Frame(frame, list);
    frame.Flag = (list.Flag & Frame_Look) | FLAG_OWN_IMAGES | FLAG_PASSIVE;
    frame.Init(list.Window);
}

/// What the layout works out for the items.
struct Item_Size {
    int width;
    int height;
};

/// A bar along the list, over the coordinates that item 0 may have.
void Init_Bar(Lists& list, const Area& place, int first, int last, int step) {
    const Bar_Range range{static_cast<float>(first), static_cast<float>(last), static_cast<float>(step)};
    Set_Bar(list.Scroll_Bar, list, place, list.Flag | SLIDER_REVERSED, range);
}

/// Items from the top down. Those that fit share the height evenly.
Item_Size Lay_Out_Column(Lists& list, const Area& area, int title) {
    constexpr int Below_Last = 5;
    const int margin = Margin_Of(list);
    const int room = area.top - area.bottom - 2 * margin - title;
    const int wanted = list.Item_Height ? Magnitude(list.Item_Height) : BUT_LIST;
    const int pitch = room / list.Nb_Item;
    const int top = area.top - margin - title;
    list.Item_DX = 0;
    if (pitch >= wanted + 1) {
        list.Item_X = Low_16(area.left + margin);
        list.Item_Y = Low_16(top - (pitch - 1));
        list.Item_DY = Low_16(-pitch);
        list.Scroll_Bar = Sliders();
        return {area.right - area.left - 2 * margin, pitch - 1};
    }
    const int bar_width = Bar_Width(list);
    const int step = wanted + 1;
    const int extent = list.Nb_Item * step;
    list.Item_X = Low_16(area.left + 2 * margin + bar_width);
    list.Item_Y = Low_16(top - wanted);
    list.Item_DY = Low_16(-step);
    const int left = area.left + margin;
    const int bottom = area.bottom + margin;
    Init_Bar(list, {left, left + bar_width, bottom, bottom + room}, list.Item_Y + extent - room + Below_Last,
             list.Item_Y, step);
    Size_Thumb(list.Scroll_Bar, room, extent);
    if (list.Scroll_Bar.Val == 0.0F) list.Scroll_Bar.Val = list.Item_Y;
    return {area.right - area.left - 3 * margin - bar_width, wanted};
}

int Widest_Name(const Lists& list) {
    const char* first = list.Item[0]->Name;
    int widest = first ? Width_Of(list.Font, first) : 2 * SPACE;
    for (Buttons** item = list.Item; *item; ++item) {
        if ((*item)->Name) widest = std::max(widest, Width_Of(list.Font, (*item)->Name));
    }
    return widest;
}

/// Items from left to right. Those that fit share the width evenly and are centred; else a whole number of
/// them fills it.
Item_Size Lay_Out_Row(Lists& list, const Area& area, int title) {
    constexpr int Beyond_Last = 5;
    const int margin = Margin_Of(list);
    const int width = area.right - area.left;
    const int height = area.top - area.bottom;
    const int room = width - 2 * margin;
    const int needed = Widest_Name(list) + 2 * margin;
    const int pitch = room / list.Nb_Item;
    list.Item_DY = 0;
    if (pitch - 1 >= needed) {
        list.Item_X = Low_16(area.left + (width - pitch * list.Nb_Item) / 2);
        list.Item_Y = Low_16(area.bottom + margin);
        list.Item_DX = Low_16(pitch);
        list.Scroll_Bar = Sliders();
        return {pitch - 1, height - 2 * Frame_Thickness(list) - 5 - title};
    }
    const int bar_width = Bar_Width(list);
    const int column = SPACE + needed;
    const int item_width = room > column && column > 0 ? room / (room / column) - 1 : room;
    const int step = item_width + 1;
    list.Item_X = Low_16(area.left + margin);
    list.Item_Y = Low_16(area.bottom + 2 * margin + bar_width);
    list.Item_DX = Low_16(step);
    const int extent = list.Nb_Item * list.Item_DX;
    const int bottom = area.bottom + margin;
    Init_Bar(list, {list.Item_X, list.Item_X + room, bottom, bottom + bar_width}, list.Item_X,
             list.Item_X - extent + room - Beyond_Last, step);
    Size_Thumb(list.Scroll_Bar, room, extent);
    if (list.Scroll_Bar.Val == 0.0F) list.Scroll_Bar.Val = list.Item_X;
    return {item_width, height - 3 * margin - bar_width - title};
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
        Copy_Clip(item, list);
    }
    Init_Without_Regions({list.Item, std::size_t(list.Nb_Item)}, list.Window);
}

/// The part of the list that items show in. One that reaches the outermost pixel is painted but takes no
/// clicks, so the area for events is a pixel smaller at the right and top.
enum class Purpose { Painting, Events };

Area Inner_Area(const Lists& list, Purpose purpose, int title) {
    const int margin = Margin_Of(list);
    const int outer = Frame_Thickness(list) + (purpose == Purpose::Painting ? 1 : 2);
    const Area all = Area_Of(list);
    Area inner{all.left + margin, all.right - outer, all.bottom + margin, all.top - outer - title};
    if (!Has_Bar(list)) return inner;
    if (Is_Column(list)) {
        inner.left += list.Scroll_Bar.Width + margin;
    } else {
        inner.bottom += list.Scroll_Bar.Height + margin;
    }
    return inner;
}

/// A run of items.
struct Run {
    int first;
    int count;
};

/// Items of a row or column whose coordinate along it lies between `low` and `high`.
Run Items_Between(int origin, int step, int count, int low, int high) {
    if (step == 0 || low > high) return {0, 0};
    // Distances from item 0 in the direction of the items.
    const int near_end = step > 0 ? low - origin : origin - high;
    const int far_end = step > 0 ? high - origin : origin - low;
    const int pitch = std::abs(step);
    if (far_end < 0) return {0, 0};
    const int first = near_end <= 0 ? 0 : (near_end + pitch - 1) / pitch;
    const int last = std::min(far_end / pitch, count - 1);
    return {first, std::max(last - first + 1, 0)};
}

bool Stands_In(const Buttons& item, const Area& area) {
    return item.X >= area.left && item.Y >= area.bottom && item.X + item.Width <= area.right &&
           item.Y + item.Height <= area.top;
}

/// Step from one item to the next along the list.
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

/// The items whose lower left corner lies in an area.
Run Items_In(const Lists& list, int origin, const Area& area) {
    return list.Item_DX ? Items_Between(origin, list.Item_DX, list.Nb_Item, area.left, area.right)
                        : Items_Between(origin, list.Item_DY, list.Nb_Item, area.bottom, area.top);
}

/// The ground behind the items, in the columns left..right-1 and the rows bottom+1..top: the frame's own
/// picture where it has one.
void Paint_Ground(Canvas& canvas, const Lists& list, const Area& area) {
    if (area.left >= area.right || area.bottom >= area.top) return;
    const Boxs& frame = list.Frame;
    if (frame.Cur_Graph_Normal) {
        canvas.Pixels(frame.Cur_Graph_Normal, frame.Width, frame.Height, area.left - frame.X,
                      area.bottom - frame.Y, {area.left, area.right - 1, area.bottom + 1, area.top});
    } else if (!Has_Flag(list, FLAG_NO_BODY)) {
        canvas.Box(area, list.Color.get());
    }
}

/// What the ground fills of the inner area, edges included.
Area Filled_By(const Area& inner) { return {inner.left, inner.right - 1, inner.bottom + 1, inner.top}; }

/// Whether painting an item leaves nothing to be seen of what was there, from one pixel inside its edges.
bool Covers_Its_Place(const Buttons& item) {
    return !Has_Flag(item, FLAG_NO_BODY | FLAG_STATIC | FLAG_OUTLINE) && item.Clip_Width == 0 &&
           2 * Frame_Thickness(item) + 2 <= std::min(item.Width, item.Height);
}

/// What the kept picture shows of the list that painted it last. There is one such picture.
struct Kept_Items {
    static constexpr int Most = 128;
    unsigned long ground;
    int left;  ///< of the items
    int origin;
    Run run;
    Look_Of_Button looks[Most];
};
Kept_Items The_Kept_Items;

/// The rows that items take, from the lower edge of the lowest to the upper edge of the highest.
Area Rows_Of(const Lists& list, const Area& inner, const Run& run) {
    const Buttons& first = *list.Item[run.first];
    const Buttons& last = *list.Item[run.first + run.count - 1];
    return {inner.left, inner.right, std::min(first.Y, last.Y) - 1, std::max(first.Y, last.Y) + first.Height};
}

/// The items in view, without those at the ends that do not stand wholly in the inner area.
Run Shown_Run(const Lists& list, Run run) {
    while (run.count > 0 && !list.Item[run.first]->Shown)
        ++run.first, --run.count;
    while (run.count > 0 && !list.Item[run.first + run.count - 1]->Shown)
        --run.count;
    return run;
}

/// Whether items can be moved as pixels: they and a flat ground leave nothing else to be seen.
bool Scroll_As_Pixels(const Lists& list, const Area& inner, const Run& run) {
    if (!Is_Column(list) || !Has_Bar(list) || run.count < 1 || run.count > Kept_Items::Most) return false;
    if (list.Frame.Cur_Graph_Normal || Has_Flag(list, FLAG_NO_BODY)) return false;
    return std::all_of(list.Item + run.first, list.Item + run.first + run.count, [&](const Buttons* item) {
        return item->Shown && Covers_Its_Place(*item) && item->Y > inner.bottom &&
               item->X + item->Width < inner.right;
    });
}

/// Moves the items that are in view already and look as they did, and paints the others.
/// @param keeps  whether the canvas is on the kept picture at all
void Move_Items(Canvas& canvas, const Lists& list, const Area& inner, const Run& run, int origin,
                bool keeps) {
    Kept_Items& kept = The_Kept_Items;
    const int rise = origin - kept.origin;
    const bool same_list = canvas.Kept() && kept.ground == list.Color.get() && kept.left == list.Item_X;
    const bool moves = same_list && std::abs(rise) < inner.top - inner.bottom;
    const Run before = moves ? kept.run : Run{0, 0};
    Area open = inner;
    if (moves) {
        canvas.Raise(rise);
        const Area rows = Rows_Of(list, inner, run);
        Paint_Ground(canvas, list,
                     {inner.left, inner.right, std::min(rows.top, inner.top + rise), inner.top});
        open.top = std::max(rows.bottom, inner.bottom + rise);
    }
    Paint_Ground(canvas, list, open);
    POINT pointer{};
    const bool pointed = Find_Pointer(list.Window, pointer);
    Look_Of_Button looks[Kept_Items::Most];
    for (int i = 0; i < run.count; ++i) {
        Buttons& item = *list.Item[run.first + i];
        looks[i] = Settle_Look(item, pointed && PtInRect(&item.Rect, pointer));
        const int place = run.first + i - before.first;
        if (place < 0 || place >= before.count || !(kept.looks[place] == looks[i])) item.Draw();
    }
    if (!keeps) return;
    kept = {list.Color.get(), list.Item_X, origin, run, {}};
    std::copy_n(looks, run.count, kept.looks);
}

/// Tells an item of the pointer. One that shows already what it would then show need not hear of it.
///
/// A passive button by itself is painted at every event and notes nothing. In a list it notes that it is
/// plain, or one that became passive under the pointer would be painted at every event elsewhere.
int Tell(Buttons& item, int kind, const POINT& pointer, bool in_list) {
    const bool passive = Has_Flag(item, FLAG_PASSIVE);
    const bool reached = passive ? in_list : PtInRect(&item.Rect, pointer) != 0;
    if (item.Hover == Hover_Normal && !reached) return 0;
    const int answer = item.Select(kind);
    if (passive) item.Hover = Hover_Normal;
    return answer;
}

/// Takes an item out of view. It keeps no region: thousands of items could each have been seen last at a
/// place of its own.
void Hide(Buttons& item) {
    item.Shown = 0;
    Drop_Region(item);
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

int Lists::Grow(int count, int flags) {
    const int done = Grow_Items(*this, Item, count, Flags_For_New(*this, flags), Grow_In_List);
    Nb_Item = Low_16(Count_Items(Item));
    Shown_Count = std::clamp(Nb_Item - Shown_First, 0, Shown_Count);
    All_Left = false;
    return done;
}

void Lists::Init(HWND window) {
    if (!Begin_Compound(*this, window, "Lists::Init", Frame, Item)) return;
    Last_Current = Current;
    Default_Grey(*this);
    Bind(*this, window);
    Renew_Font(*this);
    Title_Height = Metrics_Of(Font).tmHeight;
    Init_Frame(*this);
    Scroll_Bar.Width = 0;
    Picture = 0;
    Nb_Item = Low_16(Count_Items(Item));
    Shown_Count = std::clamp(Nb_Item - Shown_First, 0, Shown_Count);
    All_Left = false;
    if (Nb_Item == 0) return;

    const Area area = Has_Flag(*this, FLAG_INNER_FRAME) ? Inner_Frame_Of(Area_Of(*this)) : Area_Of(*this);
    const Item_Size size =
        Is_Column(*this) ? Lay_Out_Column(*this, area, Title()) : Lay_Out_Row(*this, area, Title());
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

int Lists::Title() const { return Name ? Title_Height : 0; }

bool Lists::Shows(int index) const {
    return index >= Shown_First && index < Shown_First + Shown_Count && Item[index]->Shown;
}

/// Finds the items that stand wholly in the inner area, and gets them ready.
void Lists::Choose_Shown() {
    const Area inner = Inner_Area(*this, Purpose::Painting, Title());
    const Run before{Shown_First, Shown_Count};
    Place_Items(*this, Origin);
    const Run run = Items_In(*this, Origin, inner);
    for (int i = before.first; i < before.first + before.count; ++i) {
        if (i < run.first || i >= run.first + run.count) Hide(*Item[i]);
    }
    Shown_First = run.first;
    Shown_Count = run.count;
    for (int i = run.first; i < run.first + run.count; ++i) {
        Place_Item(*this, Origin, i);
        Buttons& item = *Item[i];
        item.Shown = Stands_In(item, inner);
        if (item.Shown) {
            item.Init(Window);
        } else {
            Hide(item);
        }
    }
    All_Left = false;
}

/// Paints the inner area and the items in it.
void Lists::Update() {
    if (!Has_Size(*this)) return;
    const Area inner = Inner_Area(*this, Purpose::Painting, Title());
    short& first = Item_DX ? Item_X : Item_Y;
    if (Has_Bar(*this)) {
        Origin = Truncate(double{Scroll_Bar.Val});
        first = Within_16(Origin);
    } else if (first != Within_16(Origin)) {
        Origin = first;  // the application has moved the items
    }
    if (Has_Flag(*this, FLAG_OUTLINE) || !Item) {
        Canvas canvas(*this, Inside(*this));
        return Paint_Ground(canvas, *this, inner);
    }
    Choose_Shown();
    const Run run = Shown_Run(*this, {Shown_First, Shown_Count});
    if (Scroll_As_Pixels(*this, inner, run)) {
        Canvas canvas(*this, Filled_By(inner), Picture);
        return Move_Items(canvas, *this, inner, run, Origin, Picture != 0);
    }
    // Items without room turn their frames inside out, beyond the inner area.
    Reach reach = Inside(*this);
    if (!Has_Flag(*this, FLAG_NO_BODY)) reach.covered = Filled_By(inner);
    Canvas canvas(*this, reach);
    Paint_Ground(canvas, *this, inner);
    for (int i = Shown_First; i < Shown_First + Shown_Count; ++i) {
        if (Item[i]->Shown) Item[i]->Draw();
    }
}

int Lists::Select(int event) {
    Check(*this, "List::Select");
    if (!Has_Size(*this) || Has_Flag(*this, FLAG_PASSIVE)) return 0;
    const int kind = Event_Kind(event);
    POINT pointer{};
    const bool inside = Find_Pointer(Window, pointer) && PtInRect(&Rect, pointer);
    if (kind == EVENT_TEST) return inside;
    if (Has_Bar(*this) && Scroll_Bar.Select(kind)) {
        if (Any_Button_Held()) Follow_Bar();
        return 0;
    }
    const Area inner = Inner_Area(*this, Purpose::Events, Title());
    int result = 0;
    for (int i = Shown_First; i < Shown_First + Shown_Count; ++i) {
        Place_Item(*this, Origin, i);
        Buttons& item = *Item[i];
        if (item.Shown && Stands_In(item, inner) && Tell(item, kind, pointer, inside)) result = 1;
    }
    if (inside) {
        All_Left = false;
        return result;
    }
    for (int i = 0; i < Nb_Item && !All_Left; ++i) {
        // Those in view have been told; a static one notes nothing.
        const bool told =
            i >= Shown_First && i < Shown_First + Shown_Count && Item[i]->Shown && Stands_In(*Item[i], inner);
        if (!told) Item[i]->Hover = Hover_Normal;
    }
    All_Left = true;
    return 0;
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
    const Run run = Items_In(*this, Origin, before);
    for (int i = run.first; i < run.first + run.count; ++i) {
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
    for (int i = Shown_First; i < Shown_First + Shown_Count; ++i) {
        if (Item[i]->Shown) Item[i]->Deselect();
    }
}

/// Marks an item or takes the mark away, with the repaint that it needs. No item has an index out of range.
void Lists::Mark(int index, short value) {
    if (index < 0 || index >= Nb_Item) return;
    Buttons& item = *Item[index];
    item.Value = value;
    if (Has_Flag(*this, FLAG_NO_BODY) || !Shows(index)) return;
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
    const Area inner = Inner_Area(*this, Purpose::Events, Title());
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
    if (index < 0 || index >= Nb_Item || !Shows(index)) return {};
    Place_Item(*this, Origin, index);
    const Buttons& item = *Item[index];
    if (!Has_Size(item) || !Stands_In(item, Inner_Area(*this, Purpose::Events, Title()))) return {};
    const Area area = Area_Of(item);
    return {area.left, area.bottom, area.right + 1, area.top + 1};
}
