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

}  // namespace galdren_test
