/// @file
/// What the descriptions of the classes have in common.
#pragma once

#include <optional>
#include <string>

#include "parts/part.h"
#include "tools/area.h"
#include "widgets/button.h"

namespace galdren {

/// A description that knows the class of its controls.
template <class Control>
class Parts_For : public Class_Parts {
  protected:
    constexpr Parts_For() = default;
    ~Parts_For() = default;
    static const Control& Own(const Tools& control) { return static_cast<const Control&>(control); }
    static Control& Own(Tools& control) { return static_cast<Control&>(control); }
};

inline bool Has_Bit(const Tools& control, unsigned long bits) { return (control.Flag & bits) != 0; }

/// Whether `Init` has given a control a place in a window.
inline bool Has_Place(const Tools& control) {
    return (control.State & STATE_READY) && control.Window && control.Width >= 1 && control.Height >= 1;
}

/// Whether a control can be worked.
inline bool Is_Active(const Tools& control) { return Has_Place(control) && !Has_Bit(control, FLAG_PASSIVE); }

/// Sets a bit of a part's state, or leaves it.
inline void Note(Part& part, unsigned bit, bool is_so) { part.state |= is_so ? bit : 0U; }

/// A text of an application, cut after a few hundred bytes; null is an empty one.
std::string Caption(const char* text);

/// Gives a part its place: what a control leaves of an area. A part that has none is out of view.
void Put(Part& part, const Tools& control, const RECT& area);

/// A control as a whole.
Part Whole_Of(const Tools& control, Part_Role role, Part_Use use);

/// A button, which is perhaps a part of `control`.
Part Button_Of(const Tools& control, const Tools& button, Part_Role role, Part_Use use);

/// Gives a part a range and a value in it. The ends come in any order.
void Set_Range(Part& part, double end, double other_end, double number);

/// How far a key moves a value, in steps: above 0 towards the end of its range. Home and End have no number.
std::optional<int> Steps_Of(Part_Move move);

/// A number at the beginning of a text, and what stands behind it, without blanks around.
struct Number_Text {
    double number;
    std::string unit;
};

/// Nothing for a text that does not begin with a number, and for one that is not finite.
std::optional<Number_Text> Parse_Number(const char* text);

/// "1" or "0".
std::optional<bool> Parse_Switch(const char* text);

/// Index of the item with a name; `Whole` when there is none that can be chosen.
int Find_Item(Buttons* const* items, int count, const char* name);

/// Visits the items of an array that null ends, which itself may be null.
template <class Item>
void Visit_Items(Item* const* items, const std::function<void(Tools&)>& visit) {
    for (; items && *items; ++items)
        visit(**items);
}

}  // namespace galdren
