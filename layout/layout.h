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

/// A row for each public class. It belongs to the source that includes it, so that a linker cannot make one
/// table of the application's and a static library's.
constexpr std::array Class_Sizes{
    Class_Size{"Boxs", sizeof(Boxs)},
    Class_Size{"Buttons", sizeof(Buttons)},
    Class_Size{"CheckLists", sizeof(CheckLists)},
    Class_Size{"Color_Edit", sizeof(Color_Edit)},
    Class_Size{"Colors", sizeof(Colors)},
    Class_Size{"DirTrees", sizeof(DirTrees)},
    Class_Size{"Hue_Edit", sizeof(Hue_Edit)},
    Class_Size{"Labels", sizeof(Labels)},
    Class_Size{"Lists", sizeof(Lists)},
    Class_Size{"Selects", sizeof(Selects)},
    Class_Size{"Sliders", sizeof(Sliders)},
    Class_Size{"TabItems", sizeof(TabItems)},
    Class_Size{"Tabs", sizeof(Tabs)},
    Class_Size{"Texts", sizeof(Texts)},
    Class_Size{"Tools", sizeof(Tools)},
    Class_Size{"Valuators", sizeof(Valuators)},
};

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
static inline bool Check_Tools_Layout() {
    return Compare_Tools_Layout(Tools_Version(), galdren::Class_Sizes.data(), galdren::Class_Sizes.size());
}
