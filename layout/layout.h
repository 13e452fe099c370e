/// @file
/// A check at start-up: whether application and library agree on what the public classes look like.
///
/// Controls are plain objects: the application makes them, and the library reads and writes their fields.
/// An application that was compiled with the headers of another version, or with another packing of
/// structures, finds its fields in other places than the library does.
#pragma once

#include <array>
#include <cstddef>

#include "../dirtree/dirtree.h"
#include "../tools/colors.h"
#include "../tools/library.h"
#include "../tools/tools.h"
#include "../widgets/box.h"
#include "../widgets/button.h"
#include "../widgets/checklist.h"
#include "../widgets/color_edit.h"
#include "../widgets/hue_edit.h"
#include "../widgets/label.h"
#include "../widgets/list.h"
#include "../widgets/selector.h"
#include "../widgets/slider.h"
#include "../widgets/tabitem.h"
#include "../widgets/tabs.h"
#include "../widgets/text.h"
#include "../widgets/valuator.h"

/// The size of a class, as one compiler sees it.
struct Class_Size {
    const char* name;  ///< of the class
    std::size_t size;  ///< of an object, in bytes
};

namespace galdren {

/// A row for each public class. The compiler alone evaluates it, so that a linker cannot make one table of
/// the application's and a static library's.
consteval auto Class_Sizes() {
    return std::to_array<Class_Size>({
        {"Boxs", sizeof(Boxs)},
        {"Buttons", sizeof(Buttons)},
        {"CheckLists", sizeof(CheckLists)},
        {"Color_Edit", sizeof(Color_Edit)},
        {"Colors", sizeof(Colors)},
        {"DirTrees", sizeof(DirTrees)},
        {"Hue_Edit", sizeof(Hue_Edit)},
        {"Labels", sizeof(Labels)},
        {"Lists", sizeof(Lists)},
        {"Selects", sizeof(Selects)},
        {"Sliders", sizeof(Sliders)},
        {"TabItems", sizeof(TabItems)},
        {"Tabs", sizeof(Tabs)},
        {"Texts", sizeof(Texts)},
        {"Tools", sizeof(Tools)},
        {"Valuators", sizeof(Valuators)},
    });
}

}  // namespace galdren

extern "C" {

/// Compares the classes of an application with those of the library; `Check_Tools_Layout` calls it. A
/// difference is reported at level 2.
/// @param version  version of the headers that the application was compiled with
/// @param classes  `count` classes in the order of those headers
/// @return whether there is no difference
GALDREN_TOOLS_API bool Compare_Tools_Layout(const char* version, const Class_Size* classes,
                                            std::size_t count);
}

/// Whether this program was compiled with the headers and settings of the library that it runs with; what
/// differs is reported at level 2. To be called once, before the first control is made; it compares a number
/// for each class. An application with a `Host` need not call it, for the host does.
inline bool Check_Tools_Layout() {
    constexpr auto classes = galdren::Class_Sizes();
    return Compare_Tools_Layout(Tools_Version(), classes.data(), classes.size());
}
