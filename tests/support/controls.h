/// @file
/// Controls as tests fill them in.
#pragma once

#include <initializer_list>

#include "Galdren_Tools.h"

namespace galdren_test {

/// Gives a control all that it needs to be shown but its items.
inline void Place(Tools& control, const char* name, int x, int y, int width, int height,
                  unsigned long flag = 0) {
    control.Name = name, control.Flag = flag;
    control.X = static_cast<short>(x), control.Y = static_cast<short>(y);
    control.Width = static_cast<short>(width), control.Height = static_cast<short>(height);
    control.Font_Name = "Arial", control.Font_Size = 9;
}

/// Gives a list, a selector or a set of tabs items with these names.
inline void Name_Items(auto& list, std::initializer_list<const char*> names) {
    if (list.Grow(static_cast<int>(names.size()), 0) != 1) return;  // no memory
    int index = 0;
    for (const char* name : names)
        list.Item[index++]->Name = name;
}

/// Gives a control of any class what it needs to show all that it can.
/// @param items  of a list, a selector or a set of tabs
template <class Control>
void Furnish(Control& control, int items = 3) {
    static constexpr const char* names[] = {"one", "two", "three", nullptr};
    if constexpr (requires { control.Grow(items, 0); }) {
        const bool grown = control.Grow(items, 0) == 1;
        for (int i = 0; grown && i < items; ++i)
            control.Item[i]->Name = names[i % 3];
    }
    if constexpr (requires { control.Enabled; }) control.List = names, control.Value = 5;
    if constexpr (requires { control.End_Val; }) control.End_Val = 100, control.Val = 40;
    if constexpr (requires { control.Format; }) control.Format = "%.1f", control.Num_Width = 40;
    if constexpr (requires { control.Chan_1; }) control.Flag |= COLOR_EDIT_MODE_BUTTON;
    if constexpr (requires { control.Lamp; }) control.Flag |= BUTTON_LAMP;
}

/// Calls `visit.operator()<Control>(name)` for every class of control.
template <class Visit>
void For_Each_Class(Visit visit) {
    const auto pass = [&]<class... Controls>(std::initializer_list<const char*> names) {
        auto name = names.begin();
        (visit.template operator()<Controls>(*name++), ...);
    };
    pass.template operator()<Boxs, Buttons, Labels, Sliders, Valuators, Texts, Hue_Edit, Color_Edit,
                             CheckLists, Lists, Selects, TabItems, Tabs, DirTrees>(
        {"box", "button", "label", "slider", "valuator", "text", "hue editor", "color editor", "check list",
         "list", "selector", "tab", "tabs", "browser"});
}

}  // namespace galdren_test
