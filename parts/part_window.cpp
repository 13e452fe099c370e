#include "parts/part_window.h"

namespace {

/// Buttons are left out: their captions stand on them, and one without has a picture.
bool Is_Named_By_Label(Part_Role role) {
    switch (role) {
        case Part_Role::Scroll_Bar:
        case Part_Role::Slider:
        case Part_Role::Selector:
        case Part_Role::Field:
        case Part_Role::Console:
        case Part_Role::List:
        case Part_Role::Tree:
            return true;
        default:
            return false;
    }
}

std::string Label_Before(const Part_Window& window, int control) {
    if (control == 0) return {};
    const Part_Owner before = window.Owner(control - 1);
    const Part label = before.parts->Describe(*before.control, Whole);
    return label.role == Part_Role::Text ? label.name : std::string();
}

}  // namespace

std::string Spoken_Name(const Part_Window& window, Part_Place place) {
    const Part_Owner owner = window.Owner(place.control);
    if (place.part == Whole && owner.description) return owner.description;
    const Part part = owner.parts->Describe(*owner.control, place.part);
    const bool by_label = place.part == Whole && part.name.empty() && Is_Named_By_Label(part.role);
    return by_label ? Label_Before(window, place.control) : part.name;
}
