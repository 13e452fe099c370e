#include "widgets/selector.h"

#include <algorithm>

#include "tools/dimensions.h"
#include "tools/font_cache.h"
#include "tools/sharing.h"
#include "widgets/items.h"
#include "widgets/range.h"

using namespace galdren;

namespace {

constexpr Grow_Place Grow_In_Selector{".\\select.cpp", 218, 215};

/// Between the outer edge, the value area and the item.
int Margin_Of(const Selects& selector) {
    return std::max(Frame_Width(selector) + Scaled(selector, 2), Scaled(selector, 4));
}

Buttons& Shown_Item(const Selects& selector) { return *selector.Item[selector.Current]; }

bool Is_Skipped(const Selects& selector) { return Has_Flag(Shown_Item(selector), FLAG_PASSIVE); }

void Init_Frame(Selects& selector) {
    constexpr unsigned long Kept_Flags = Frame_Look | FLAG_OWN_IMAGES | Caption_Places;
    Boxs& frame = selector.Frame;
    Copy_Frame(frame, selector);
    frame.Flag = (selector.Flag & Kept_Flags) | FLAG_PASSIVE;
    frame.Init(selector.Window);
}

/// What the caption leaves for arrows and item: all but a strip at its side, or above.
Area Room_Beside_Caption(const Selects& selector) {
    const int margin = Margin_Of(selector);
    Area room = Area_Of(selector).Inset(margin);
    if (selector.Value_Width != 0) {
        room.right -= margin;
        room.left = room.right - selector.Value_Width;
    } else if (selector.Name) {
        const int width = Width_Of(selector.Font, selector.Name);
        if (Has_Flag(selector, FLAG_TEXT_LEFT)) {
            room.left += width + margin;
        } else if (Has_Flag(selector, FLAG_TEXT_RIGHT)) {
            room.right -= width + margin;
        } else {
            room.top -= Metrics_Of(selector.Font).tmHeight;
        }
    }
    return room;
}

/// Between the arrows.
Area Item_Area(const Selects& selector) {
    Area area = Area_Of(selector.Value_Box);
    const int margin = selector.Arrow_Size + Margin_Of(selector);
    if (Is_Vertical(selector)) {
        area.bottom += margin;
        area.top -= margin;
    } else {
        area.left += margin;
        area.right -= margin;
    }
    return area;
}

void Init_Items(Selects& selector) {
    const Area area = Not_Turned(Item_Area(selector));
    const unsigned long flags =
        FLAG_NO_RIM | (Has_Flag(selector, FLAG_STATIC) ? Inherited_Flags(selector) : 0);
    for (int i = 0; i < selector.Nb_Item; ++i) {
        Buttons& item = *selector.Item[i];
        item.Flag |= flags;
        item.Border = Low_16(Line_Width(selector));
        item.Value = 1;
        Set_Place(item, area);
        Copy_Surroundings(item, selector);
        Copy_Font(item, selector);
        item.Init(selector.Window);
    }
}

void Note_Items(Selects& selector) { selector.Nb_Item = Low_16(Count_Items(selector.Item)); }

void Hold_In_Range(Selects& selector) {
    if (selector.Current < 0 || selector.Current >= selector.Nb_Item) selector.Current = 0;
}

/// Steps to the next item that is not to be skipped; after one pass it stays where it is.
void Step(Selects& selector, int step) {
    const int last = selector.Nb_Item - 1;
    for (int tries = 0; tries <= last; ++tries) {
        const int next = selector.Current + step;
        selector.Current = Low_16(next < 0 ? last : next > last ? 0 : next);
        if (!Is_Skipped(selector)) return;
    }
}

/// Has `Current` stand on an item that may be shown, as far as there is one.
void Settle(Selects& selector) {
    Hold_In_Range(selector);
    if (selector.Nb_Item > 0 && Is_Skipped(selector)) Step(selector, 1);
}

void Press_Arrows(Selects& selector) {
    const bool column = Is_Vertical(selector);
    const Area area = Area_Of(selector.Value_Box);
    const int arrow = Arrow_Under_Pointer(selector.Window, area, column, selector.Arrow_Size);
    if (arrow != 0) Step(selector, column ? -arrow : arrow);
}

/// What the value area takes of the caption's room, its frame included.
int Value_Room(const Selects& selector) {
    return selector.Value_Box.Width + 2 * (Frame_Width(selector.Frame) + Line_Width(selector));
}

void Paint_Name(Canvas& canvas, const Selects& selector) {
    Area area = Area_Of(selector);
    if (Has_Flag(selector, FLAG_TEXT_RIGHT)) area.right -= Value_Room(selector);
    unsigned long flags = selector.Flag & ~FLAG_VERTICAL;
    if (!Has_Flag(selector, FLAG_TEXT_MIDDLE | FLAG_TEXT_BOTTOM)) flags |= FLAG_TEXT_TOP;
    Paint_Caption(canvas, selector.Font, selector.Name, flags, area, selector.Border);
}

/// Caption, arrows and item.
void Update(Selects& selector) {
    Hold_In_Range(selector);
    Canvas canvas(selector, Inside(selector));
    Paint_Name(canvas, selector);
    Paint_Arrows(canvas, Is_Vertical(selector), 0, selector.Arrow_Size, Area_Of(selector.Value_Box));
    if (selector.Nb_Item > 0) Shown_Item(selector).Draw();
}

/// The inside and what stands on it, as the pointer has it look.
void Paint_State(Selects& selector, bool highlighted) {
    Canvas canvas(selector, Inside(selector));
    const Boxs& frame = selector.Frame;
    Paint_Body(canvas, frame, highlighted, Frame_Width(selector) + canvas.Line(), Area_Of(frame));
    Update(selector);
}

/// An outline, the caption and the item as an outline; no arrows.
void Paint_Thin(Canvas& canvas, const Selects& selector) {
    Area caption = Area_Of(selector);
    Paint_Outline(canvas, caption);
    // The width is compared with the placement bit itself; existing windows are laid out for that.
    const unsigned long right = selector.Flag & FLAG_TEXT_RIGHT;
    const bool has_room = static_cast<unsigned long>(selector.Width) != right;
    const int inner = selector.Value_Box.Width - 2 * (Frame_Width(selector.Frame) + canvas.Line());
    caption.right = caption.left + (has_room ? inner : 0);
    Paint_Caption(canvas, selector.Font, selector.Name, selector.Flag, caption, selector.Border);
    if (selector.Nb_Item == 0) return;
    Buttons& item = Shown_Item(selector);
    item.Flag |= FLAG_OUTLINE;
    item.Draw();
    item.Flag &= ~FLAG_OUTLINE;
}

}  // namespace

Selects::Selects() = default;

Selects::Selects(const Selects& other) : Tools(other), Selector_Fields(other) { Share_Array(Item); }

Selects& Selects::operator=(const Selects& other) { return Reassign(*this, other); }

Selects::~Selects() { Release_Items(Item); }

int Selects::Grow(int count, int flags) {
    const int grown = Grow_Items(*this, Item, count, Flags_For_New(*this, flags), Grow_In_Selector);
    Note_Items(*this);
    return grown;
}

void Selects::Init(HWND window) {
    if (!Begin_Compound(*this, window, "Selects::Init", Frame, Value_Box, Item)) return;
    Default_Grey(*this);
    Bind(*this, window);
    Renew_Font(*this);
    Init_Frame(*this);
    if (Arrow_Size == 0) Arrow_Size = Low_16(Usual_Arrow(*this));
    Set_Place(Value_Box, Not_Turned(Room_Beside_Caption(*this)));
    Copy_Surroundings(Value_Box, *this);
    Note_Items(*this);
    Hold_In_Range(*this);
    Last_Current = Current;
    if (Nb_Item == 0) return;
    Init_Items(*this);
    Note_Size(*this);
}

void Selects::Draw() {
    Check(*this, "Selects::Draw");
    if (!Has_Size(*this)) return;
    Settle(*this);
    Last_Current = Current;
    Canvas canvas(*this, Inside(*this));
    if (Has_Flag(*this, FLAG_OUTLINE)) {
        Paint_Thin(canvas, *this);
    } else if (!Has_Flag(*this, FLAG_NO_BODY)) {
        if (!Has_Flag(*this, SELECTOR_NO_FRAME)) Frame.Draw();
        Update(*this);
    }
}

int Selects::Select(int event) {
    Check(*this, "Selects::Select");
    if (!Has_Size(*this)) return 0;
    const bool inside = Pointer_Inside(*this);
    if (Event_Kind(event) == EVENT_TEST) return inside;
    if (Has_Flag(*this, FLAG_PASSIVE)) return 0;
    if (inside && Event_Kind(event) == EVENT_PRESS) Press_Arrows(*this);
    if (Hover_Changes(*this, Hover, inside)) Paint_State(*this, inside);
    return inside;
}

int Selects::Read() {
    Check(*this, "Selects::Read");
    return Has_Size(*this) && !Has_Flag(*this, FLAG_PASSIVE) ? Current : -1;
}

int Selects::Scroll(short amount) {
    Check(*this, "Selects::Scroll");
    if (!Has_Size(*this) || Has_Flag(*this, FLAG_PASSIVE)) return Current;
    if (Nb_Item == 0) return 0;
    Step(*this, -amount);
    Update(*this);
    return Current;
}

void Selects::Adjust() {
    Check(*this, "Selects::Adjust");
    if (!Has_Size(*this)) return;
    Settle(*this);
    if (Current == Last_Current || Has_Flag(*this, FLAG_PASSIVE)) return;
    Last_Current = Current;
    if (!Has_Flag(*this, FLAG_NO_BODY)) Update(*this);
}

void Selects::Deselect() {
    if (State == 0 || !Has_Size(*this) || Never_Highlights(*this)) return;
    if (Hover == Hover_Highlighted) {
        Paint_State(*this, false);
    } else {
        Hover = Hover_Unknown;
    }
}
