// Descriptions of controls that are single things: boxes, labels, buttons, tabs that stand alone.
#include "parts/classes.h"
#include "parts/describe.h"

using namespace galdren;

namespace {

/// What the library knows nothing more about.
class Tools_Parts final : public Parts_For<Tools> {
  public:
    const char* Name() const override { return "Tools"; }
    Part Describe(const Tools& control, int) const override {
        return Whole_Of(control, Part_Role::Pane, Part_Use::None);
    }
};

class Box_Parts final : public Parts_For<Boxs> {
  public:
    const char* Name() const override { return "Boxs"; }
    Part Describe(const Tools& control, int) const override {
        return Whole_Of(control, Part_Role::Pane, Part_Use::None);
    }
};

class Label_Parts final : public Parts_For<Labels> {
  public:
    const char* Name() const override { return "Labels"; }
    Part Describe(const Tools& control, int) const override {
        return Whole_Of(control, Part_Role::Text, Part_Use::None);
    }
};

class Button_Parts final : public Parts_For<Buttons> {
  public:
    const char* Name() const override { return "Buttons"; }

    Part Describe(const Tools& control, int) const override {
        const Buttons& button = Own(control);
        if (Is_Switch(button)) {
            Part part = Whole_Of(button, Part_Role::Check_Box, Part_Use::Toggle);
            Note(part, PART_CHECKED, button.Value != 0);
            return part;
        }
        Part part = Whole_Of(button, Part_Role::Button, Part_Use::Press);
        Note(part, PART_PRESSED, button.Value != 0);
        return part;
    }

    bool Set_Value(Tools& control, int, const char* text) const override {
        Buttons& button = Own(control);
        const std::optional<bool> on = Parse_Switch(text);
        if (!on || !Is_Switch(button) || !Is_Active(button)) return false;
        Turn(button, *on);
        return true;
    }

    bool Store(Tools& control, int event) const override {
        Buttons& button = Own(control);
        if (event != EVENT_PRESS || !Is_Switch(button) || !Is_Active(button)) return false;
        Turn(button, button.Value == 0);
        return true;
    }

  private:
    /// A lamp of several colours tells what the application wants it to; a plain one, that the button is on.
    static bool Is_Switch(const Buttons& button) {
        return Has_Bit(button, BUTTON_LAMP) && !Has_Bit(button, BUTTON_LAMP_COLORS);
    }

    static void Turn(Buttons& button, bool on) {
        button.Value = button.Lamp = on;
        button.Adjust();
    }
};

class Tab_Item_Parts final : public Parts_For<TabItems> {
  public:
    const char* Name() const override { return "TabItems"; }
    Part Describe(const Tools& control, int) const override {
        Part part = Whole_Of(control, Part_Role::Tab, Part_Use::Press);
        Note(part, PART_CHOSEN, Own(control).Value != 0);
        return part;
    }
};

constexpr Tools_Parts The_Tools_Parts;
constexpr Box_Parts The_Box_Parts;
constexpr Label_Parts The_Label_Parts;
constexpr Button_Parts The_Button_Parts;
constexpr Tab_Item_Parts The_Tab_Item_Parts;

}  // namespace

const Class_Parts& Parts_Of(const Tools*) { return The_Tools_Parts; }
const Class_Parts& Parts_Of(const Boxs*) { return The_Box_Parts; }
const Class_Parts& Parts_Of(const Labels*) { return The_Label_Parts; }
const Class_Parts& Parts_Of(const Buttons*) { return The_Button_Parts; }
const Class_Parts& Parts_Of(const TabItems*) { return The_Tab_Item_Parts; }
