#include "gallery/pages.h"

namespace gallery {

std::span<const Page> Pages() {
    static constexpr Page pages[] = {
        {"boxes", "Boxes", Build_Boxes},
        {"labels", "Labels", Build_Labels},
        {"buttons", "Buttons", Build_Buttons},
        {"checklists", "Checks", Build_Checklists},
        {"sliders", "Sliders", Build_Sliders},
        {"selectors", "Selects", Build_Selectors},
        {"lists", "Lists", Build_Lists},
        {"tabs", "Tabs", Build_Tabs},
        {"entries", "Entries", Build_Entries},
        {"console", "Console", Build_Console},
        {"colors", "Colours", Build_Colors},
        {"icons", "Icons", Build_Icons},
        {"directories", "Drives", Build_Directories},
        {"dialogs", "Dialogs", Build_Dialogs},
        {"stress", "Stress", Build_Stress},
    };
    return pages;
}

}  // namespace gallery
