// Descriptions of controls that set a value in a range: sliders and valuators.
#include <algorithm>
#include <cstdio>

#include "parts/classes.h"
#include "parts/describe.h"

using namespace galdren;

namespace {

/// What scroll bars and valuators have in common.
template <class Bar>
class Bar_Parts : public Parts_For<Bar> {
  public:
    Part Describe(const Tools& control, int) const override {
        const Bar& bar = this->Own(control);
        Part part = Whole_Of(bar, Role(), Part_Use::Step);
        Put(part, bar, Trough(bar));
        Set_Range(part, double{bar.Start_Val}, double{bar.End_Val}, double{bar.Val});
        part.value = Shown(bar);
        Note(part, PART_READ_ONLY, Is_Locked(bar));
        return part;
    }

    bool Step(Tools& control, int, Part_Move move) const override {
        Bar& bar = this->Own(control);
        if (!Can_Change(bar)) return false;
        if (const std::optional<int> steps = Steps_Of(move)) {
            bar.Scroll(-*steps);
        } else {
            Move_To(bar, move == Part_Move::Home ? bar.Start_Val : bar.End_Val);
        }
        return true;
    }

    bool Set_Value(Tools& control, int, const char* text) const override {
        Bar& bar = this->Own(control);
        const std::optional<Number_Text> wanted = Parse_Number(text);
        if (!wanted || !Can_Change(bar) || !Is_Unit(bar, wanted->unit)) return false;
        const double least = double{std::min(bar.Start_Val, bar.End_Val)};
        const double most = double{std::max(bar.Start_Val, bar.End_Val)};
        Move_To(bar, static_cast<float>(std::max(least, std::min(wanted->number, most))));
        return true;
    }

    bool Store(Tools& control, int event) const override {
        Bar& bar = this->Own(control);
        if ((event != EVENT_PRESS && event != EVENT_DRAG) || !Can_Change(bar)) return false;
        Move_To(bar, bar.Read());
        return true;
    }

  protected:
    constexpr Bar_Parts() = default;
    ~Bar_Parts() = default;
    virtual Part_Role Role() const = 0;
    virtual bool Is_Locked(const Bar&) const { return false; }
    virtual RECT Trough(const Bar& bar) const { return bar.Rect; }
    /// The value as it is shown.
    virtual std::string Shown(const Bar& bar) const = 0;

  private:
    bool Can_Change(const Bar& bar) const { return Is_Active(bar) && !Is_Locked(bar); }

    static void Move_To(Bar& bar, float value) {
        bar.Val = value;
        bar.Adjust();
    }

    /// Whether a number with this behind it is one of the bar: as it shows its own.
    bool Is_Unit(const Bar& bar, const std::string& unit) const {
        if (unit.empty() || unit == "%") return true;
        const std::optional<Number_Text> shown = Parse_Number(Shown(bar).c_str());
        return shown && shown->unit == unit;
    }
};

class Slider_Parts final : public Bar_Parts<Sliders> {
  public:
    const char* Name() const override { return "Sliders"; }

  private:
    Part_Role Role() const override { return Part_Role::Scroll_Bar; }
    std::string Shown(const Sliders& slider) const override {
        char text[32];
        std::snprintf(text, sizeof text, "%g", double{slider.Val});
        return text;
    }
};

class Valuator_Parts final : public Bar_Parts<Valuators> {
  public:
    const char* Name() const override { return "Valuators"; }

  private:
    Part_Role Role() const override { return Part_Role::Slider; }
    bool Is_Locked(const Valuators& valuator) const override { return Has_Bit(valuator, VALUATOR_LOCKED); }
    RECT Trough(const Valuators& valuator) const override {
        RECT area = valuator.Rect;
        area.right -= std::max<int>(valuator.Num_Width, 0);
        return area;
    }
    std::string Shown(const Valuators& valuator) const override {
        char text[128];
        valuator.Print_Number(text, sizeof text);
        return text;
    }
};

constexpr Slider_Parts The_Slider_Parts;
constexpr Valuator_Parts The_Valuator_Parts;

}  // namespace

const Class_Parts& Parts_Of(const Sliders*) { return The_Slider_Parts; }
const Class_Parts& Parts_Of(const Valuators*) { return The_Valuator_Parts; }
