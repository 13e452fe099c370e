// Descriptions of controls with items: check lists, lists, selectors and tab sets.
#include <algorithm>
#include <cstdlib>

#include "parts/classes.h"
#include "parts/describe.h"
#include "tools/arithmetic.h"

using namespace galdren;

namespace {

class Check_List_Parts final : public Parts_For<CheckLists> {
  public:
    const char* Name() const override { return "CheckLists"; }

    int Count(const Tools& control) const override {
        const CheckLists& list = Own(control);
        return list.Check && list.Label ? std::max<int>(list.Count, 0) : 0;
    }

    Part Describe(const Tools& control, int item) const override {
        const CheckLists& list = Own(control);
        if (!Has_Part(list, item)) return Whole_Of(list, Part_Role::Group, Part_Use::None);
        const bool single = Is_Single(list);
        Part part = Button_Of(list, list.Label[item], single ? Part_Role::Radio_Button : Part_Role::Check_Box,
                              single ? Part_Use::Choose : Part_Use::Toggle);
        // Neighbours have an edge in common, which belongs to the item before.
        const RECT& cell = list.Label[item].Rect;
        Put(part, list, {cell.left + 1, cell.top, cell.right, cell.bottom - 1});
        Note(part, PART_PASSIVE, Is_Disabled(list, item));
        Note(part, PART_CHECKED, Is_Checked(list, item));
        return part;
    }

    int First(const Tools& control) const override {
        const CheckLists& list = Own(control);
        if (Is_Single(list) && Has_Part(list, list.Value)) return list.Value;
        return Class_Parts::First(control);
    }

    int Next(const Tools& control, int item, Part_Move move) const override {
        const CheckLists& list = Own(control);
        const int rows = Rows(list);
        const bool aside = move == Part_Move::Left || move == Part_Move::Right;
        if (!aside || !Has_Part(list, item) || rows == Count(list))
            return Class_Parts::Next(control, item, move);
        const int neighbour = item + (move == Part_Move::Right ? rows : -rows);
        return Has_Part(list, neighbour) ? neighbour : item;
    }

    bool Set_Value(Tools& control, int item, const char* text) const override {
        CheckLists& list = Own(control);
        const std::optional<bool> on = Parse_Switch(text);
        if (!on || !Is_Active(list) || !Has_Part(list, item) || Is_Disabled(list, item)) return false;
        if (*on == Is_Checked(list, item)) return true;
        if (Is_Single(list) && !*on) return false;  // one of them has to be chosen
        Show(list, Is_Single(list) ? item : static_cast<int>(static_cast<unsigned>(list.Value) ^ Bit(item)));
        return true;
    }

    bool Store(Tools& control, int event) const override {
        CheckLists& list = Own(control);
        if (event != EVENT_PRESS || !Is_Active(list)) return false;
        const int item = Under_Pointer(list);
        if (!Has_Part(list, item) || Is_Disabled(list, item)) return false;
        Show(list, list.Read());
        return true;
    }

    void For_Members(Tools& control, const std::function<void(Tools&)>& visit) const override {
        CheckLists& list = Own(control);
        visit(list.Box);
        for (int item = 0; item < Count(list); ++item)
            visit(list.Check[item]);
    }

  private:
    bool Has_Part(const CheckLists& list, int item) const { return item >= 0 && item < Count(list); }

    static bool Is_Single(const CheckLists& list) { return Has_Bit(list, CHECKLIST_SINGLE); }

    static bool Is_Disabled(const CheckLists& list, int item) {
        return Has_Bit(list.Check[item], FLAG_PASSIVE);
    }

    /// The bits of the value begin again with the first.
    static unsigned Bit(int item) { return 1U << static_cast<unsigned>(item) % 32; }

    static bool Is_Checked(const CheckLists& list, int item) {
        if (Is_Single(list)) return list.Value == item;
        return (static_cast<unsigned>(list.Value) & Bit(item)) != 0;
    }

    /// Items of a column.
    int Rows(const CheckLists& list) const {
        int rows = 0;
        while (rows < Count(list) && list.Label[rows].X == list.Label[0].X)
            ++rows;
        return rows;
    }

    /// The item that `Select` has found the pointer on.
    int Under_Pointer(const CheckLists& list) const {
        constexpr short Highlighted = 1;
        for (int item = 0; list.Hover_List && item < Count(list); ++item) {
            if (list.Hover_List[item] == Highlighted) return item;
        }
        return Whole;
    }

    static void Show(CheckLists& list, int value) {
        list.Value = value;
        list.Adjust();
    }
};

class List_Parts final : public Parts_For<Lists> {
  public:
    const char* Name() const override { return "Lists"; }

    int Count(const Tools& control) const override {
        const Lists& list = Own(control);
        return list.Item ? std::max<int>(list.Nb_Item, 0) : 0;
    }

    Part Describe(const Tools& control, int item) const override {
        const Lists& list = Own(control);
        if (!Has_Part(list, item)) {
            Part part = Whole_Of(list, Part_Role::List, Part_Use::None);
            if (Has_Part(list, list.Current)) part.value = Caption(list.Item[list.Current]->Name);
            return part;
        }
        Part part = Button_Of(list, *list.Item[item], Part_Role::List_Item, Part_Use::Choose);
        Put(part, list, list.Item_Place(item));
        Note(part, PART_CHOSEN, item == list.Current);
        return part;
    }

    /// Items stand one after the other at equal distances.
    int At(const Tools& control, POINT place) const override {
        const Lists& list = Own(control);
        const int step = Step_Of(list);
        if (step == 0 || !PtInRect(&list.Rect, place)) return Whole;
        const int nearest = ((list.Item_DX ? place.x : place.y) - Origin(list)) / step;
        for (int item = nearest - 1; item <= nearest + 1; ++item) {
            const RECT area = list.Item_Place(item);
            if (PtInRect(&area, place)) return item;
        }
        return Whole;
    }

    int First(const Tools& control) const override {
        const Lists& list = Own(control);
        return Has_Part(list, list.Current) ? list.Current : Class_Parts::First(control);
    }

    void Bring_Into_View(Tools& control, int item) const override {
        if (Has_Place(control)) Own(control).Bring_Into_View(item);
    }

    bool Set_Value(Tools& control, int item, const char* text) const override {
        Lists& list = Own(control);
        if (!Is_Active(list) || Has_Part(list, item)) return false;
        const int wanted = Find_Item(list.Item, Count(list), text);
        if (wanted == Whole) return false;
        Show(list, wanted);
        list.Bring_Into_View(wanted);
        return true;
    }

    bool Store(Tools& control, int event) const override {
        Lists& list = Own(control);
        const int item = event == EVENT_PRESS && Is_Active(list) ? list.Read() : Whole;
        if (item < 0) return false;
        Show(list, item);
        return true;
    }

    void For_Members(Tools& control, const std::function<void(Tools&)>& visit) const override {
        Lists& list = Own(control);
        visit(list.Frame);
        visit(list.Scroll_Bar);
        Visit_Items(list.Item, visit);
    }

  private:
    bool Has_Part(const Lists& list, int item) const { return item >= 0 && item < Count(list); }

    static int Step_Of(const Lists& list) { return list.Item_DX ? list.Item_DX : list.Item_DY; }

    /// Coordinate of the first item. The fields cannot tell that of one that is scrolled far away.
    static int Origin(const Lists& list) {
        constexpr int Farthest = 1 << 29;
        if (list.Scroll_Bar.Width != 0)
            return std::clamp(Truncate(double{list.Scroll_Bar.Val}), -Farthest, Farthest);
        return list.Item_DX ? list.Item_X : list.Item_Y;
    }

    /// One item of a page stays in view.
    int Page(const Tools& control) const override {
        const Lists& list = Own(control);
        const int room = list.Item_DX ? list.Scroll_Bar.Width : list.Scroll_Bar.Height;
        const int step = std::abs(Step_Of(list));
        if (list.Scroll_Bar.Width == 0 || step == 0) return Count(list);
        return std::max(room / step - 1, 1);
    }

    static void Show(Lists& list, int item) {
        list.Current = Low_16(item);
        list.Adjust();
    }
};

class Selector_Parts final : public Parts_For<Selects> {
  public:
    const char* Name() const override { return "Selects"; }

    Part Describe(const Tools& control, int) const override {
        const Selects& selector = Own(control);
        Part part = Whole_Of(selector, Part_Role::Selector, Part_Use::Step);
        if (Items(selector) > 0) part.value = Caption(selector.Item[Current(selector)]->Name);
        return part;
    }

    bool Step(Tools& control, int, Part_Move move) const override {
        Selects& selector = Own(control);
        if (!Is_Active(selector)) return false;
        switch (move) {
            case Part_Move::Right:
            case Part_Move::Down:
                Show(selector, Around(selector, 1));
                break;
            case Part_Move::Left:
            case Part_Move::Up:
                Show(selector, Around(selector, -1));
                break;
            case Part_Move::Page_Down:
                Show(selector,
                     Towards(selector, std::min(Current(selector) + Page(control), Last(selector)), -1));
                break;
            case Part_Move::Page_Up:
                Show(selector, Towards(selector, std::max(Current(selector) - Page(control), 0), 1));
                break;
            case Part_Move::Home:
                Show(selector, Towards(selector, 0, 1));
                break;
            case Part_Move::End:
                Show(selector, Towards(selector, Last(selector), -1));
                break;
        }
        return true;
    }

    bool Set_Value(Tools& control, int, const char* text) const override {
        Selects& selector = Own(control);
        const int wanted = Is_Active(selector) ? Find_Item(selector.Item, Items(selector), text) : Whole;
        if (wanted == Whole) return false;
        Show(selector, wanted);
        return true;
    }

    /// An arrow that is pressed has stepped already.
    bool Store(Tools& control, int event) const override {
        Selects& selector = Own(control);
        if (event != EVENT_PRESS || !Is_Active(selector)) return false;
        Show(selector, selector.Current);
        return true;
    }

    void For_Members(Tools& control, const std::function<void(Tools&)>& visit) const override {
        Selects& selector = Own(control);
        visit(selector.Frame);
        Visit_Items(selector.Item, visit);
    }

  private:
    static int Items(const Selects& selector) {
        return selector.Item ? std::max<int>(selector.Nb_Item, 0) : 0;
    }

    static int Last(const Selects& selector) { return Items(selector) - 1; }

    /// The item that is shown: one that does not exist becomes the first.
    static int Current(const Selects& selector) {
        return selector.Current >= 0 && selector.Current < Items(selector) ? selector.Current : 0;
    }

    static bool Is_Passive(const Selects& selector, int item) {
        return Has_Bit(*selector.Item[item], FLAG_PASSIVE);
    }

    /// The first item from `item` on that is not passive; the one that is shown when there is none.
    static int Towards(const Selects& selector, int item, int step) {
        for (; item >= 0 && item < Items(selector); item += step) {
            if (!Is_Passive(selector, item)) return item;
        }
        return Current(selector);
    }

    /// The next item that is not passive, the ends leading to each other.
    static int Around(const Selects& selector, int step) {
        const int next = Towards(selector, Current(selector) + step, step);
        if (next != Current(selector)) return next;
        return Towards(selector, step > 0 ? 0 : Last(selector), step);
    }

    /// The wheel changes what is shown without a note in `Last_Current`.
    static void Show(Selects& selector, int item) {
        selector.Current = Low_16(item);
        selector.Last_Current = -1;
        selector.Adjust();
        // The item was painted as the pointer found it: the next `Select` has to look again.
        selector.Hover = 0;
    }
};

class Tab_Set_Parts final : public Parts_For<Tabs> {
  public:
    const char* Name() const override { return "Tabs"; }

    /// The tabs that `Init` has placed, as far as they are still there.
    int Count(const Tools& control) const override {
        const Tabs& set = Own(control);
        int count = 0;
        while (set.Item && count < set.Count && set.Item[count])
            ++count;
        return count;
    }

    Part Describe(const Tools& control, int tab) const override {
        const Tabs& set = Own(control);
        if (!Has_Part(set, tab)) {
            Part part = Whole_Of(set, Part_Role::Tab_Set, Part_Use::None);
            if (Has_Part(set, set.Value)) part.value = Caption(set.Item[set.Value]->Name);
            return part;
        }
        Part part = Button_Of(set, *set.Item[tab], Part_Role::Tab, Part_Use::Choose);
        Note(part, PART_CHOSEN, tab == set.Value);
        Put(part, set, Place(set, tab));
        return part;
    }

    int First(const Tools& control) const override {
        const Tabs& set = Own(control);
        return Has_Part(set, set.Value) ? set.Value : Class_Parts::First(control);
    }

    bool Set_Value(Tools& control, int tab, const char* text) const override {
        Tabs& set = Own(control);
        if (!Is_Active(set) || Has_Part(set, tab) || !text) return false;
        for (int i = 0; i < Count(set); ++i) {
            const TabItems& item = *set.Item[i];
            if (Has_Bit(item, FLAG_PASSIVE) || !item.Name || Caption(item.Name) != text) continue;
            Show(set, i);
            return true;
        }
        return false;
    }

    bool Store(Tools& control, int event) const override {
        Tabs& set = Own(control);
        const int tab = event == EVENT_PRESS && Is_Active(set) ? set.Read() : Whole;
        if (tab < 0) return false;
        Show(set, tab);
        return true;
    }

    void For_Members(Tools& control, const std::function<void(Tools&)>& visit) const override {
        Tabs& set = Own(control);
        visit(set.Box);
        Visit_Items(set.Item, visit);
    }

  private:
    bool Has_Part(const Tabs& set, int tab) const { return tab >= 0 && tab < Count(set); }

    /// Where two overlap, the one before is meant. Tabs that are narrower than they overlap do not show.
    static RECT Place(const Tabs& set, int tab) {
        RECT area = set.Item[tab]->Rect;
        if (set.Count > 1 && set.Tab_Width < set.Slant) return {};
        if (tab > 0) area.left = std::max(area.left, set.Item[tab - 1]->Rect.right);
        return area;
    }

    static void Show(Tabs& set, int tab) {
        set.Value = Low_16(tab);
        set.Adjust();
    }
};

constexpr Check_List_Parts The_Check_List_Parts;
constexpr List_Parts The_List_Parts;
constexpr Selector_Parts The_Selector_Parts;
constexpr Tab_Set_Parts The_Tab_Set_Parts;

}  // namespace

const Class_Parts& Parts_Of(const CheckLists*) { return The_Check_List_Parts; }
const Class_Parts& Parts_Of(const Lists*) { return The_List_Parts; }
const Class_Parts& Parts_Of(const Selects*) { return The_Selector_Parts; }
const Class_Parts& Parts_Of(const Tabs*) { return The_Tab_Set_Parts; }
