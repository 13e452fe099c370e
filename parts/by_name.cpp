#include "parts/by_name.h"

namespace {

Part Describe(const Part_Window& window, Part_Place place) {
    const Part_Owner owner = window.Owner(place.control);
    return owner.parts->Describe(*owner.control, place.part);
}

bool Has_Label(Part_Role role) {
    return role == Part_Role::Field || role == Part_Role::Console || role == Part_Role::Slider ||
           role == Part_Role::Selector || role == Part_Role::List;
}

bool Is_On_Or_Off(Part_Role role) { return role == Part_Role::Check_Box || role == Part_Role::Radio_Button; }

}  // namespace

std::string Name_Of_Control(const Part_Window& window, int control) {
    const Part_Owner owner = window.Owner(control);
    if (owner.description) return owner.description;
    const Part whole = Describe(window, {control, Whole});
    if (!whole.name.empty() || control == 0 || !Has_Label(whole.role)) return whole.name;
    const Part before = Describe(window, {control - 1, Whole});
    return before.role == Part_Role::Text ? before.name : std::string();
}

std::string Name_Of_Part(const Part_Window& window, Part_Place place) {
    return place.part == Whole ? Name_Of_Control(window, place.control) : Describe(window, place).name;
}

std::optional<Part_Place> Find_Part(const Part_Window& window, const char* name) {
    for (int control = 0; control < window.Count(); ++control) {
        const Part_Owner owner = window.Owner(control);
        if (!owner.shown || Describe(window, {control, Whole}).role == Part_Role::Text) continue;
        const int count = owner.parts->Count(*owner.control);
        for (int part = Whole; part < count; ++part) {
            if (Name_Of_Part(window, {control, part}) == name) return Part_Place{control, part};
        }
    }
    return std::nullopt;
}

bool Press_Part(Part_Window& window, const char* name) {
    const std::optional<Part_Place> place = Find_Part(window, name);
    return place && window.Press(*place);
}

std::optional<std::string> Read_Part(const Part_Window& window, const char* name) {
    const std::optional<Part_Place> place = Find_Part(window, name);
    if (!place) return std::nullopt;
    const Part part = Describe(window, *place);
    if (Is_On_Or_Off(part.role)) return std::string(part.state & PART_CHECKED ? "1" : "0");
    return part.value;
}

bool Write_Part(Part_Window& window, const char* name, const char* value) {
    const std::optional<Part_Place> place = Find_Part(window, name);
    return place && window.Set_Value(*place, value);
}
