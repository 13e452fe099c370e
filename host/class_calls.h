/// @file
/// What a host can do with the controls of each class, without knowing the class: worked out once for every
/// class that an application adds.
#pragma once

#include <concepts>
#include <type_traits>

#include "../Galdren_Tools.h"
#include "../parts/classes.h"
#include "design.h"

namespace galdren {

/// What a class of controls can do; null where the class has no such member.
struct Class_Calls {
    void (*init)(Tools& control, HWND window);
    void (*draw)(Tools& control);
    int (*select)(Tools& control, int event);
    void (*scroll)(Tools& control,
                   int steps);  // by the wheel, positive when it was turned away from the user
    void (*input)(Tools& control, int key);
    const Class_Parts& (*parts)();
    Design_Fields (*design)(Tools& control);  // the fields that depend on the scale
    Texts* (*field)(Tools& control);          // the control itself, for text fields alone
    const Sliders* (*rows_bar)(const Tools& control, bool across);  // see `Rows_Bar`
    bool (*lies_across)(const Tools& control);                      // see `Lies_Across`
    int overhang;         // that it may paint beyond its rectangle, in pixels
    bool tells_of_moves;  // its `Init` is the library's, which counts the rectangles that it changes
    bool is_list;         // all that it scrolls is its row or column of items
};

/// The most that any class has as `overhang`.
constexpr int Most_Overhang = 2;

/// The bar that scrolls the rows of a control, or what lies across; null when there is none.
/// @{
const Sliders* Rows_Bar(const Lists& list, bool across);
const Sliders* Rows_Bar(const Texts& field, bool across);
const Sliders* Rows_Bar(const DirTrees& tree, bool across);
/// @}

/// Whether a bar runs from left to right.
/// @{
inline bool Lies_Across(const Sliders& bar) { return !(bar.Flag & FLAG_VERTICAL); }
inline bool Lies_Across(const Valuators& bar) { return !(bar.Flag & FLAG_VERTICAL); }
/// @}

/// Description of an application's own class that takes keys.
const Class_Parts& Own_Field_Parts();

template <class... Classes>
struct Class_List {
    template <class Class>
    static constexpr bool Has = (std::same_as<Class, Classes> || ...);
    template <class Class>
    static constexpr bool Has_Base_Of = (std::derived_from<Class, Classes> || ...);
};
using Library_Classes = Class_List<Boxs, Buttons, CheckLists, Color_Edit, DirTrees, Hue_Edit, Labels, Lists,
                                   Selects, Sliders, TabItems, Tabs, Texts, Valuators>;

template <class Result, class Class, class... Arguments>
std::type_identity<Class> Class_Of(Result (Class::*)(Arguments...));
template <class Class>
constexpr bool Is_Of_Library = false;
template <class Class>
constexpr bool Is_Of_Library<std::type_identity<Class>> = Library_Classes::Has<Class>;

template <class Result, class Control, class Steps>
Steps Argument_Of(Result (Control::*)(Steps));
/// Some classes scroll by a short, others by an int.
template <class Control>
using Scroll_Argument = decltype(Argument_Of(&Control::Scroll));

/// A bar scrolls towards its start end, which is the lower one when it stands upright; the wheel turned
/// away from the user goes up. The output of a text field starts at its bottom.
template <class Control>
int Wheel_Steps(const Tools& control, int steps) {
    if (std::derived_from<Control, Texts>) return -steps;
    constexpr bool has_bar = std::derived_from<Control, Sliders> || std::derived_from<Control, Valuators> ||
                             std::derived_from<Control, Lists>;
    return has_bar && control.Flag & FLAG_VERTICAL ? -steps : steps;
}

/// A class may describe itself, by a static member `Parts()`. One that takes keys and comes from no class of
/// the library is taken for a field.
template <class Control>
const Class_Parts& Parts_Of_Class() {
    if constexpr (requires {
                      { Control::Parts() } -> std::convertible_to<const Class_Parts&>;
                  }) {
        return Control::Parts();
    } else if constexpr (!Library_Classes::Has_Base_Of<Control> && requires(Control & c) { c.Input(0); }) {
        return Own_Field_Parts();
    } else {
        return Parts_Of(static_cast<const Control*>(nullptr));
    }
}

template <class Control>
constexpr Class_Calls Make_Calls() {
    Class_Calls calls{};
    calls.init = [](Tools& control, HWND target) { static_cast<Control&>(control).Init(target); };
    calls.draw = [](Tools& control) { static_cast<Control&>(control).Draw(); };
    calls.parts = &Parts_Of_Class<Control>;
    calls.design = [](Tools& control) {
        Design_Fields fields;
        Add_Common_Design(control, fields);
        Add_Design(static_cast<Control&>(control), fields);
        return fields;
    };
    // A tab joins with the page below and beside it.
    constexpr bool is_tab = std::derived_from<Control, Tabs> || std::derived_from<Control, TabItems>;
    calls.overhang = is_tab ? Most_Overhang : 0;
    calls.is_list = std::derived_from<Control, Lists>;
    if constexpr (requires { Class_Of(&Control::Init); })
        calls.tells_of_moves = Is_Of_Library<decltype(Class_Of(&Control::Init))>;
    if constexpr (requires(Control & c) { c.Select(0); }) {
        calls.select = [](Tools& control, int event) {
            return static_cast<int>(static_cast<Control&>(control).Select(event));
        };
    }
    if constexpr (requires(Control & c) { c.Scroll(0); }) {
        calls.scroll = [](Tools& control, int steps) {
            using Steps = Scroll_Argument<Control>;
            static_cast<Control&>(control).Scroll(static_cast<Steps>(Wheel_Steps<Control>(control, steps)));
        };
    }
    if constexpr (requires(Control & c) { c.Input(0); })
        calls.input = [](Tools& control, int key) { static_cast<Control&>(control).Input(key); };
    if constexpr (std::derived_from<Control, Texts>)
        calls.field = [](Tools& control) -> Texts* { return &static_cast<Control&>(control); };
    if constexpr (requires(const Control& c) { Rows_Bar(c, true); }) {
        calls.rows_bar = [](const Tools& control, bool across) {
            return Rows_Bar(static_cast<const Control&>(control), across);
        };
    }
    if constexpr (requires(const Control& c) { Lies_Across(c); })
        calls.lies_across = [](const Tools& control) {
            return Lies_Across(static_cast<const Control&>(control));
        };
    return calls;
}

template <class Control>
inline constexpr Class_Calls class_calls = Make_Calls<Control>();

}  // namespace galdren
