#include "widgets/checklist.h"

#include <algorithm>
#include <climits>
#include <new>
#include <optional>

#include "tools/dimensions.h"
#include "tools/font_cache.h"
#include "tools/sharing.h"
#include "tools/window.h"
#include "util/error.h"
#include "util/program.h"
#include "widgets/item_buttons.h"
#include "widgets/items.h"

using namespace galdren;

namespace {

constexpr unsigned long Label_Flags = FLAG_NO_BODY | FLAG_STATIC;
constexpr unsigned long Disabled_Flags = FLAG_NO_BODY | FLAG_PASSIVE | FLAG_OUTLINE;
constexpr unsigned Bits_Of_Value = 32;

bool Is_Single(const CheckLists& list) { return Has_Flag(list, CHECKLIST_SINGLE); }

/// The bit of an item; those beyond the last bit begin again with the first.
unsigned Bit_Of(int item) { return 1U << static_cast<unsigned>(item) % Bits_Of_Value; }

bool Is_Checked(const CheckLists& list, int item) {
    if (Is_Single(list)) return list.Value == item;
    return (static_cast<unsigned>(list.Value) & Bit_Of(item)) != 0;
}

/// The state of a box from `Init` to the first `Draw`, which follows a mask of its own.
bool Starts_Checked(const CheckLists& list, int item) {
    if (Is_Single(list)) return list.Value == item;
    const auto number = static_cast<unsigned>(item);
    return (static_cast<unsigned>(list.Value) & number << number % Bits_Of_Value) != 0;
}

void Set_Checks(CheckLists& list) {
    for (int item = 0; item < list.Count; ++item)
        list.Check[item].Value = Is_Checked(list, item);
}

/// A label that there was no memory for is blank.
const char* Label_Text(const CheckLists& list, int item) {
    const char* text = list.Label[item].Name;
    return text ? text : "";
}

void Paint_Label(Canvas& canvas, const CheckLists& list, int item, unsigned long color) {
    const Buttons& box = list.Check[item];
    canvas.Write_Run(list.Font, Label_Text(list, item), box.X + box.Width + Scaled(list, SPACE),
                     box.Y - Scaled(list, 1), color);
}

bool Has_Mark(const Buttons& box) { return box.Value != 0 && box.Flag == 0; }

void Paint_Mark(Canvas& canvas, const Buttons& box) {
    const int border = Frame_Width(box);
    const Area body = Area_Of(box);
    const int line = canvas.Line();
    const Area mark{body.left + border + line, body.right - border - line + 1,
                    body.bottom + border + line - 1, body.top - border - line};
    canvas.Box(mark, canvas.Look().Mark);
}

void Paint_Check(Buttons& box) {
    Canvas canvas(box, Reach_Of(box));
    box.Draw();
    if (Has_Mark(box)) Paint_Mark(canvas, box);
}

/// Of a list that is an outline, the flags of the box are gone afterwards, those of a disabled item too, and
/// its next paint is a full one.
void Paint_Item(Canvas& canvas, CheckLists& list, int item) {
    Buttons& box = list.Check[item];
    const bool outline = Has_Flag(list, FLAG_OUTLINE);
    if (outline) box.Flag = FLAG_OUTLINE;
    Paint_Label(canvas, list, item,
                Has_Flag(box, FLAG_OUTLINE) ? canvas.Look().Caption_Outline : canvas.Look().Caption);
    Paint_Check(box);
    if (!outline) return;
    box.Flag = 0;
    box.Hover = Hover_Unknown;
}

void Paint_Hover(const CheckLists& list, int item, bool highlighted) {
    const Buttons& box = list.Check[item];
    const Area row = Area_Of(list.Label[item]);
    Canvas canvas(list,
                  {Common(Area_Of(list), {row.left, list.X + list.Width, row.bottom - 2 * list.Font_Height,
                                          row.top + 2 * list.Font_Height})});
    Paint_Label(canvas, list, item, highlighted ? canvas.Look().Highlight : canvas.Look().Caption);
    if (!highlighted && Has_Mark(box)) {
        Paint_Mark(canvas, box);
    } else {
        Paint_Body(canvas, box, highlighted, Frame_Width(box) + canvas.Line(), Area_Of(box));
    }
}

/// Whether boxes lie on each other, or a label that is painted again reaches over one of the next column.
bool Is_Crowded(const CheckLists& list) {
    const Buttons& box = list.Check[0];
    const Buttons& label = list.Label[0];
    if (label.Width <= box.Width || label.Height <= box.Height) return true;
    const int room = label.Width - (box.X - label.X + box.Width + Scaled(list, SPACE));
    const short last_column = list.Label[list.Count - 1].X;
    for (int item = 0; list.Label[item].X != last_column; ++item) {
        if (Width_Of(list.Font, Label_Text(list, item)) > room) return true;
    }
    return false;
}

bool Shows_Hover(const CheckLists& list, int item) {
    return !Has_Flag(list, FLAG_NO_BODY) && !Has_Flag(list.Check[item], FLAG_OUTLINE);
}

bool Is_On_Item(const CheckLists& list, int item, const std::optional<POINT>& position) {
    return position && PtInRect(&list.Label[item].Rect, *position);
}

/// Whether a box shows on the window what painting it again would give.
bool Is_Up_To_Date(const CheckLists& list, int item, const std::optional<POINT>& pointer) {
    const Buttons& box = list.Check[item];
    const bool plain = box.Hover == Hover_Normal && list.Hover_List[item] != Hover_Highlighted;
    return plain && box.Value == box.Last_Value && !(pointer && PtInRect(&box.Rect, *pointer));
}

/// A copy that shares the items keeps them.
void Release_Items(CheckLists& list) {
    const auto release = [](auto*& array) {
        if (Let_Go(Thing::Array, array)) delete[] array;
        array = nullptr;
    };
    release(list.Hover_List);
    release(list.Check);
    release(list.Label);
    list.Count = 0;
}

short Count_Labels(const char* const* labels) {
    short count = 0;
    while (count < SHRT_MAX && labels[count] && *labels[count])
        ++count;
    return count;
}

void Make_Items(CheckLists& list) {
    const short count = Count_Labels(list.List);
    if (count == 0) return;
    const auto size = static_cast<std::size_t>(count);
    list.Hover_List = new (std::nothrow) short[size]();
    list.Check = new (std::nothrow) Buttons[size];
    list.Label = new (std::nothrow) Buttons[size];
    if (list.Hover_List && list.Check && list.Label) {
        list.Count = count;
    } else {
        Release_Items(list);
        Error_Fct(hwnd, ERROR_LEVEL_MEMORY, "CheckLists: no memory for %d items\n   name: %s", int{count},
                  Name_Of(list));
    }
}

void Init_Box(Boxs& box, const CheckLists& list) {
    constexpr unsigned long Kept_Flags = Frame_Look | FLAG_OWN_IMAGES | Caption_Places | FLAG_TEXT_WHITE;
    Take_Name(box, list);
    Copy_Frame(box, list);
    box.Font_Style = list.Font_Style;
    box.Flag = (list.Flag & Kept_Flags) | FLAG_PASSIVE;
    box.Init(list.Window);
}

struct Grid {
    int left;          ///< of the first column
    int bottom;        ///< of the first row, which is the top one
    int column_width;  ///< below 1 when there is no room
    int row_height;
    int rows;  ///< at least 1
};

/// @pre the list has items
Grid Make_Grid(const CheckLists& list) {
    const int border = Frame_Thickness(list);
    const int gap = Scaled(list, 2);
    const int row_height = list.Line_Height ? Magnitude(list.Line_Height) : list.Font_Height + gap;
    int room = list.Height - 2 * border - 2 * gap;
    if (list.Name && !Has_Flag(list, CHECKLIST_NO_TITLE_ROW)) room -= list.Font_Height + 2 * border;
    const int fitting = room / row_height;
    int rows = fitting > 1 ? std::min<int>(fitting, list.Count) : 1;
    if (Has_Flag(list, CHECKLIST_ONE_COLUMN)) rows = list.Count;
    const int columns = (list.Count - 1) / rows + 1;
    const bool name_left = list.Name && Has_Flag(list, CHECKLIST_NAME_LEFT);
    const int rest = room - row_height * rows;
    return {
        list.Box.X + border + gap + (name_left ? Width_Of(list.Font, list.Name) + Scaled(list, SPACE) : 0),
        list.Box.Y + rest / 2 + border + (rows - 1) * row_height + gap,
        (list.Width - 2 * border - 2 * gap) / columns, row_height, rows};
}

void Init_Label(const CheckLists& list, int item, const Grid& grid) {
    Buttons& label = list.Label[item];
    Copy_Face(label, list);
    Copy_Surroundings(label, list);
    label.Flag = Label_Flags;
    label.Set_Name("%s", list.List[item]);
    const int left = grid.left + item / grid.rows * grid.column_width;
    const int bottom = grid.bottom - item % grid.rows * grid.row_height;
    Set_Place(label, {left, left + grid.column_width, bottom, bottom + grid.row_height}, Within_16);
    Init_Without_Region(label, list.Window);
}

void Init_Check(const CheckLists& list, int item) {
    Buttons& box = list.Check[item];
    Copy_Face(box, list);
    Copy_Surroundings(box, list);
    box.Flag = list.Enabled && !list.Enabled[item] ? Disabled_Flags : 0;
    box.Border = Low_16(Scaled(list, 2));
    box.X = Within_16(list.Label[item].X + Scaled(list, 1));
    box.Y = Within_16(list.Label[item].Y + Scaled(list, 1));
    box.Width = box.Height = Within_16(list.Font_Height - Scaled(list, 2));
    box.Value = Starts_Checked(list, item);
    Init_Without_Region(box, list.Window);
}

void Init_Items(const CheckLists& list) {
    const Grid grid = Make_Grid(list);
    for (int item = 0; item < list.Count; ++item) {
        Init_Label(list, item, grid);
        Init_Check(list, item);
    }
}

void Report_No_List(const CheckLists& list) {
    Error_Fct(hwnd, ERROR_LEVEL_WARNING, "Problems in CheckLists::Init()");
    Error_Fct(hwnd, ERROR_LEVEL_WARNING, "device->List is empty");
    Error_Fct(hwnd, ERROR_LEVEL_WARNING, "type: %s\n  name: %s", "CheckLists", list.Name ? list.Name : "");
}

}  // namespace

CheckLists::CheckLists() = default;

CheckLists::CheckLists(const CheckLists& other)
    : Tools(other), Check_List_Fields(other), Crowded(other.Crowded) {
    Share(Thing::Array, Hover_List);
    Share(Thing::Array, Check);
    Share(Thing::Array, Label);
}

CheckLists& CheckLists::operator=(const CheckLists& other) { return Reassign(*this, other); }

CheckLists::~CheckLists() { Release_Items(*this); }

void CheckLists::Init(HWND window) {
    if (!Begin_Compound(*this, window, "CheckLists::Init", Box)) return;
    Default_Grey(*this);
    Release_Items(*this);
    Bind(*this, window);
    Note_Size(*this);
    Renew_Font(*this);
    Font_Height = Low_16(Metrics_Of(Font).tmHeight);
    H_Width = Low_16(Width_Of(Font, "H"));
    Init_Box(Box, *this);
    if (!List) {
        Report_No_List(*this);
        Flag = FLAG_NO_BODY | FLAG_PASSIVE;
        return;
    }
    Make_Items(*this);
    if (Count > 0) Init_Items(*this);
    Crowded = Count > 0 && Is_Crowded(*this);
    Last_Value = Value;
}

void CheckLists::Draw() {
    galdren::Check(*this, "CheckList::Draw");
    if (!Has_Size(*this)) return;
    if (!Has_Flag(*this, FLAG_PASSIVE)) Set_Checks(*this);
    if (Has_Flag(*this, FLAG_NO_BODY) && !Has_Flag(*this, FLAG_OUTLINE)) return;
    const bool with_box = !Has_Flag(*this, FLAG_STATIC);
    Canvas canvas(*this, {Area_Of(*this), with_box ? Covered_By(Box) : Reach().covered});
    if (with_box) Box.Draw();
    for (int item = 0; item < Count; ++item)
        Paint_Item(canvas, *this, item);
}

int CheckLists::Select(int event) {
    galdren::Check(*this, "CheckList::Select");
    if (!Has_Size(*this)) return 0;
    const std::optional<POINT> position = Pointer_On(*this);
    if (Event_Kind(event) == EVENT_TEST) return position.has_value();
    if (Has_Flag(*this, FLAG_PASSIVE)) return 0;
    int result = 0;
    for (int item = 0; item < Count; ++item) {
        const bool under_pointer = Is_On_Item(*this, item, position);
        if (under_pointer) result = 1;
        if (under_pointer == (Hover_List[item] == Hover_Highlighted)) continue;
        Hover_List[item] = under_pointer ? Hover_Highlighted : Hover_Normal;
        if (Shows_Hover(*this, item)) Paint_Hover(*this, item, under_pointer);
    }
    return result;
}

void CheckLists::Deselect() {
    if (State == 0 || !Has_Size(*this) || Has_Flag(*this, FLAG_NO_BODY)) return;
    for (int item = 0; item < Count; ++item) {
        const bool seen = Hover_List[item] != Hover_Unknown && Hover_List[item] != Hover_Normal;
        if (seen && Shows_Hover(*this, item)) Paint_Hover(*this, item, false);
    }
}

void CheckLists::Adjust() {
    galdren::Check(*this, "CheckList::Adjust");
    if (!Has_Size(*this) || Value == Last_Value || Has_Flag(*this, FLAG_PASSIVE)) return;
    if (Is_Single(*this) && (Value < 0 || Value >= Count)) return;
    Set_Checks(*this);
    Last_Value = Value;
    if (Has_Flag(*this, FLAG_NO_BODY)) return;
    const std::optional<POINT> pointer = Find_Pointer(Window);
    for (int item = 0; item < Count; ++item) {
        if (Crowded || !Is_Up_To_Date(*this, item, pointer)) Paint_Check(Check[item]);
    }
}

int CheckLists::Read() {
    galdren::Check(*this, "CheckList::Read");
    if (!Has_Size(*this) || Has_Flag(*this, FLAG_PASSIVE)) return -1;
    const std::optional<POINT> position = Pointer_On(*this);
    for (int item = 0; item < Count; ++item) {
        if (!Is_On_Item(*this, item, position)) continue;
        return Is_Single(*this) ? item : static_cast<int>(static_cast<unsigned>(Value) ^ Bit_Of(item));
    }
    return -1;
}
