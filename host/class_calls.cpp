#include "host/class_calls.h"

namespace galdren {

namespace {

class Own_Field final : public Class_Parts {
  public:
    const char* Name() const override { return "Tools"; }
    Part Describe(const Tools& control, int) const override {
        Part part;
        part.role = Part_Role::Field;
        part.use = Part_Use::Type;
        part.area = control.Rect;
        if (control.Flag & FLAG_PASSIVE) part.state = PART_PASSIVE;
        if (control.Name) part.name = control.Name;
        return part;
    }
};

}  // namespace

const Class_Parts& Own_Field_Parts() {
    static const Own_Field parts;
    return parts;
}

const Sliders* Rows_Bar(const Lists& list, bool across) {
    const bool is_row = !(list.Flag & FLAG_VERTICAL);
    return is_row || !across ? &list.Scroll_Bar : nullptr;
}

const Sliders* Rows_Bar(const Texts& field, bool across) {
    const unsigned long bar = across ? TEXT_H_BAR : TEXT_V_BAR;
    if (!(field.Flag & bar)) return nullptr;
    return across ? &field.H_Slider : &field.V_Slider;
}

const Sliders* Rows_Bar(const DirTrees& tree, bool across) {
    return across ? &tree.Horizontal_Bar : &tree.Vertical_Bar;
}

}  // namespace galdren
