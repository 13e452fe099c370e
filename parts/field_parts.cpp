// Description of text fields.
#include <algorithm>
#include <cstring>

#include "parts/classes.h"
#include "parts/describe.h"
#include "util/code_page.h"
#include "widgets/text.h"

using namespace galdren;

namespace {

bool Is_Line(const Texts& field) { return Has_Bit(field, TEXT_SINGLE_LINE); }

bool Is_Reading(const Texts& field) { return (field.Mode & TEXT_READING) != 0; }

bool Takes_Keys(const Texts& field) { return Is_Line(field) || Is_Reading(field); }

std::string Input_Of(const Texts& field) {
    if (Has_Bit(field, TEXT_PASSWORD)) return {};
    return std::string(field.Line, strnlen(field.Line, Texts::Line_Room));
}

/// What is selected in the input line, of the part of it that may be seen.
std::string Selected_In(const Texts& field, const std::string& value) {
    if (!Is_Reading(field) || !Has_Bit(field, TEXT_EDITING) || value.empty()) return {};
    const int length = static_cast<int>(value.size());
    const int caret = std::clamp<int>(field.Cursor_Pos, 0, length);
    const int other = std::clamp(caret + field.Selected, 0, length);
    return value.substr(static_cast<std::size_t>(std::min(caret, other)),
                        static_cast<std::size_t>(std::abs(caret - other)));
}

/// The newest output lines, the newest one last.
std::string Output_Of(const Texts& field) {
    constexpr int Most_Lines = 8;
    std::string output;
    char text[Texts::Line_Room];
    for (int line = 0; line < Most_Lines && field.Plain_Line(line, text); ++line)
        output.insert(0, text + std::string(line ? "\n" : ""));
    return output;
}

/// Whether the keys that write a text would all be taken.
bool Can_Be_Typed(const Texts& field, std::string_view text) {
    if (text.size() > std::size_t{Texts::Longest_Input}) return false;
    while (!text.empty()) {
        // A filter that lets no byte beyond ASCII in lets no character in that begins with one.
        if (static_cast<unsigned char>(text[0]) < ' ' || !field.Accepts(text[0])) return false;
        const auto bytes = Text_Decode(text.data(), static_cast<int>(text.size()), nullptr);
        text.remove_prefix(static_cast<std::size_t>(bytes));
    }
    return true;
}

class Field_Parts final : public Parts_For<Texts> {
  public:
    const char* Name() const override { return "Texts"; }

    Part Describe(const Tools& control, int) const override {
        const Texts& field = Own(control);
        Part part = Whole_Of(field, Is_Line(field) ? Part_Role::Field : Part_Role::Console, Use_Of(field));
        part.value = Takes_Keys(field) ? Input_Of(field) : Output_Of(field);
        if (Is_Reading(field)) part.caret = field.Cursor_Pos;
        part.selected = Selected_In(field, part.value);
        Note(part, PART_PROTECTED, Takes_Keys(field) && Has_Bit(field, TEXT_PASSWORD));
        Note(part, PART_READ_ONLY, !Is_Reading(field));
        return part;
    }

    /// Scrolls the output. What a field takes by the keyboard is not for this.
    bool Step(Tools& control, int, Part_Move move) const override {
        Texts& field = Own(control);
        if (!Is_Active(field) || Use_Of(field) != Part_Use::Step) return false;
        switch (move) {
            case Part_Move::Left:
                return Scroll(field, TEXT_H_BAR, field.H_Slider, 1);
            case Part_Move::Right:
                return Scroll(field, TEXT_H_BAR, field.H_Slider, -1);
            case Part_Move::Up:
                return Scroll(field, TEXT_V_BAR, field.V_Slider, -1);
            case Part_Move::Down:
                return Scroll(field, TEXT_V_BAR, field.V_Slider, 1);
            case Part_Move::Page_Up:
                return Scroll(field, TEXT_V_BAR, field.V_Slider, -Page(field));
            case Part_Move::Page_Down:
                return Scroll(field, TEXT_V_BAR, field.V_Slider, Page(field));
            case Part_Move::Home:
                return Scroll(field, TEXT_V_BAR, field.V_Slider, -Texts::Most_Lines);
            case Part_Move::End:
                return Scroll(field, TEXT_V_BAR, field.V_Slider, Texts::Most_Lines);
        }
        return false;
    }

    bool Set_Value(Tools& control, int, const char* text) const override {
        Texts& field = Own(control);
        if (!text || !Is_Active(field) || Has_Bit(field, FLAG_NO_BODY) || !Is_Reading(field)) return false;
        if (!Can_Be_Typed(field, text)) return false;
        field.Read("%s", text);
        if (Has_Bit(field, TEXT_REPORT_CHANGES)) field.Mode |= TEXT_CHANGED;
        return true;
    }

    void Show_Caret(Tools& control, Text_Caret how) const override {
        Texts& field = Own(control);
        if (Has_Place(field)) {
            field.Show_Caret(how);
        } else {
            field.Caret = how;
        }
    }

    void For_Members(Tools& control, const std::function<void(Tools&)>& visit) const override {
        Texts& field = Own(control);
        visit(field.V_Slider);
        visit(field.H_Slider);
    }

  private:
    static Part_Use Use_Of(const Texts& field) {
        if (Takes_Keys(field)) return Part_Use::Type;
        if (Has_Bit(field, TEXT_EDITING)) return Part_Use::Step;  // its lines can be copied
        return field.V_Slider.End_Val > 0 || field.H_Slider.End_Val > 0 ? Part_Use::Step : Part_Use::None;
    }

    /// Lines that show at a time but one.
    int Page(const Tools& control) const override {
        const Texts& field = Own(control);
        return field.Line_Height > 0 ? std::max(field.V_Slider.Height / field.Line_Height - 1, 1) : 1;
    }

    /// Scrolls by the steps of a bar; those above 0 lead to the newest line, or to the left.
    /// @return whether the field has the bar
    static bool Scroll(Texts& field, unsigned long bit, Sliders& bar, int steps) {
        if (!Has_Bit(field, bit)) return false;
        const float before = bar.Val;
        if (bar.Scroll(steps) != before) field.Draw();
        return true;
    }
};

constexpr Field_Parts The_Field_Parts;

}  // namespace

const Class_Parts& Parts_Of(const Texts*) { return The_Field_Parts; }
