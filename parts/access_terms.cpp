#include "parts/access_terms.h"

namespace galdren {

long Role_Of(const Part& part) {
    switch (part.role) {
        case Part_Role::Pane:
            return ROLE_SYSTEM_PANE;
        case Part_Role::Text:
            return ROLE_SYSTEM_STATICTEXT;
        case Part_Role::Button:
            return ROLE_SYSTEM_PUSHBUTTON;
        case Part_Role::Check_Box:
            return ROLE_SYSTEM_CHECKBUTTON;
        case Part_Role::Radio_Button:
            return ROLE_SYSTEM_RADIOBUTTON;
        case Part_Role::Scroll_Bar:
            return ROLE_SYSTEM_SCROLLBAR;
        case Part_Role::Slider:
            return ROLE_SYSTEM_SLIDER;
        case Part_Role::Selector:
            return ROLE_SYSTEM_SPINBUTTON;
        case Part_Role::Field:
        case Part_Role::Console:
            return ROLE_SYSTEM_TEXT;
        case Part_Role::Group:
            return ROLE_SYSTEM_GROUPING;
        case Part_Role::List:
            return ROLE_SYSTEM_LIST;
        case Part_Role::List_Item:
            return ROLE_SYSTEM_LISTITEM;
        case Part_Role::Tab_Set:
            return ROLE_SYSTEM_PAGETABLIST;
        case Part_Role::Tab:
            return ROLE_SYSTEM_PAGETAB;
        case Part_Role::Tree:
            return ROLE_SYSTEM_OUTLINE;
        case Part_Role::Tree_Row:
            return ROLE_SYSTEM_OUTLINEITEM;
    }
    return ROLE_SYSTEM_CLIENT;
}

long State_Of(const Part& part, const Part_Owner& owner) {
    constexpr struct {
        unsigned ours;
        long theirs;
    } states[] = {{PART_PASSIVE, STATE_SYSTEM_UNAVAILABLE},   {PART_CHECKED, STATE_SYSTEM_CHECKED},
                  {PART_PRESSED, STATE_SYSTEM_PRESSED},       {PART_CHOSEN, STATE_SYSTEM_SELECTED},
                  {PART_OUT_OF_VIEW, STATE_SYSTEM_OFFSCREEN}, {PART_READ_ONLY, STATE_SYSTEM_READONLY},
                  {PART_PROTECTED, STATE_SYSTEM_PROTECTED},   {PART_OPEN, STATE_SYSTEM_EXPANDED},
                  {PART_CLOSED, STATE_SYSTEM_COLLAPSED}};
    long state = 0;
    for (const auto& entry : states)
        if (part.state & entry.ours) state |= entry.theirs;
    if (!owner.shown) state |= STATE_SYSTEM_INVISIBLE;
    if (!owner.enabled) state |= STATE_SYSTEM_UNAVAILABLE;
    if (part.role == Part_Role::Text) state |= STATE_SYSTEM_READONLY;
    if (Can_Be_Chosen(part) && Is_Ready(part, owner)) state |= STATE_SYSTEM_SELECTABLE;
    return state;
}

bool Is_Ready(const Part& part, const Part_Owner& owner) {
    return owner.shown && owner.enabled && !(part.state & PART_PASSIVE);
}

bool Can_Be_Chosen(const Part& part) {
    return part.role == Part_Role::List_Item || part.role == Part_Role::Tab ||
           part.role == Part_Role::Tree_Row;
}

bool Has_Value(const Part& part) {
    return !part.value.empty() || part.has_range || part.role == Part_Role::Field ||
           part.role == Part_Role::Console || part.role == Part_Role::Selector;
}

const wchar_t* Action_Of(const Part& part) {
    if (part.use == Part_Use::None || part.use == Part_Use::Step || part.use == Part_Use::Type)
        return nullptr;
    switch (part.role) {
        case Part_Role::Check_Box:
            return part.state & PART_CHECKED ? L"Uncheck" : L"Check";
        case Part_Role::Radio_Button:
            return L"Check";
        case Part_Role::Tree_Row:
            if (part.state & PART_OPEN) return L"Close";
            return part.state & PART_CLOSED ? L"Open" : L"Select";
        case Part_Role::List_Item:
        case Part_Role::Tab:
            return L"Select";
        default:
            return L"Press";
    }
}

}  // namespace galdren
