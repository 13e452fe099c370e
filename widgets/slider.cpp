#include "widgets/slider.h"

#include <algorithm>

#include "tools/dimensions.h"
#include "tools/images.h"
#include "widgets/range.h"

using namespace galdren;

namespace {

int Arrow_Side(const Sliders& slider) { return slider.Arrow_Dim ? slider.Arrow_Dim : Usual_Arrow(slider); }

int Track_Length(const Sliders& slider) {
    return Bar_Length(slider) - 2 * (Bar_Thickness(slider) + slider.Curs_Half + Frame_Width(slider));
}

void Fill_Table(Sliders& slider) {
    slider.Tab_Num = Low_16(std::clamp(Track_Length(slider) + 2, -32768, Sliders::Most_Positions));
    if (slider.Tab_Num <= 1) return;
    const float step = (slider.End_Val - slider.Start_Val) / static_cast<float>(slider.Tab_Num - 1);
    float value = slider.Start_Val;
    for (int i = 0; i < slider.Tab_Num; ++i, value += step)
        slider.Tab[i] = value;
}

/// Moves the value by `n` steps, towards the start end when positive. When reversed it is held at the bound
/// that it moves away from, and comes back into range with the next `Adjust`.
void Step_Value(Sliders& slider, int n) {
    const auto [low, high] = Bounds_Of(slider);
    const float change = static_cast<float>(n) * slider.Step;
    const float moved = Has_Flag(slider, SLIDER_REVERSED) ? slider.Val + change : slider.Val - change;
    slider.Val = n >= 1 ? std::max(moved, low) : std::min(moved, high);
}

void Press_Arrows(Sliders& slider) {
    const int arrow =
        Arrow_Under_Pointer(slider.Window, Area_Of(slider), Is_Vertical(slider), Arrow_Side(slider));
    if (arrow != 0) Step_Value(slider, -arrow);
}

/// Distance of the thumb from the start end, less the frame.
int Thumb_Offset(const Sliders& slider) {
    const float fraction = Fraction(slider.Val, slider.Start_Val, slider.End_Val);
    const auto start = static_cast<float>(Bar_Thickness(slider));
    return Round_Offset(static_cast<float>(Track_Length(slider)) * fraction + start);
}

/// Room between the edge and the inside: the border, the rim and a line more.
int Inset_Of(const Sliders& slider) { return Frame_Width(slider) + Scaled(slider, 2); }

void Paint_Inside(Canvas& canvas, const Sliders& slider, bool highlighted, const unsigned long* body) {
    Paint_Body(canvas, slider, highlighted, body, slider.Flag, Inset_Of(slider), Area_Of(slider));
}

void Paint_Bevel(Canvas& canvas, const Sliders& slider) {
    const int line = canvas.Line();
    Paint_Frame(canvas, slider.Color, 0, true, slider.Border <= line ? line : 2 * line, Area_Of(slider));
}

void Paint_Cursor(Canvas& canvas, const Sliders& slider) {
    if (Has_Flag(slider, FLAG_NO_BODY)) return;
    const Area area = Area_Of(slider);
    const int inset = Inset_Of(slider);
    const bool vertical = Is_Vertical(slider);
    Paint_Arrows(canvas, vertical, inset, Arrow_Side(slider), area);
    if (Bar_Length(slider) < 2 * Bar_Thickness(slider)) return;

    const int offset = Thumb_Offset(slider) - Scaled(slider, vertical ? 1 : 2);
    const Thumb thumb(vertical, slider.Curs_Half, area.Inset(inset), offset);
    thumb.Paint_Face(canvas);
    thumb.Paint_Light(canvas, thumb.area.right - 1);
    thumb.Paint_Dark(canvas);
    thumb.Paint_Shadow(canvas, thumb.area.top - 1);
}

/// The inside and what stands on it, as the pointer has it look.
void Paint_State(Sliders& slider, bool highlighted) {
    Canvas canvas(slider, Inside(slider));
    Paint_Inside(canvas, slider, highlighted, Body_Of(slider, highlighted));
    Paint_Cursor(canvas, slider);
}

}  // namespace

void Sliders::Init(HWND window) {
    Forget_Withdrawn_Images(*this);
    if (!Begin_Init(*this, window, "Sliders::Init")) return;
    Capture = 0;
    const int longest = Bar_Length(*this) / 2 - Bar_Thickness(*this);
    Curs_Half = Low_16(std::min<int>(longest, std::max<int>(Scaled(*this, CURSEUR), Curs_Half)));
    Border = std::max(Border, Low_16(Line_Width(*this)));
    Default_Grey(*this);
    if (Step == 0.0F) Step = 1.0F;
    Bind(*this, window);
    Fill_Table(*this);
    Clamp_Value(*this);
    Note_Size(*this);
    Note_Images(*this);
}

void Sliders::Larg_Adjust(float larg, float total) {
    if (!Has_Size(*this)) return;
    const int room = Bar_Length(*this) - 2 * (Bar_Thickness(*this) + Scaled(*this, SPACE));
    Curs_Half = Thumb_For(*this, Curs_Half, larg, total, room);
}

float Sliders::Read() {
    Check(*this, "Sliders::Read");
    if (!Has_Size(*this) || Has_Flag(*this, FLAG_PASSIVE)) return 0.0F;
    const std::optional<int> distance = Pointer_Along(*this);
    const int thickness = Bar_Thickness(*this);
    if (!distance || *distance <= thickness || *distance >= Bar_Length(*this) - thickness || Tab_Num <= 1)
        return Val;
    return Value_At(*this, *distance - (thickness + Curs_Half + Frame_Width(*this) - 1));
}

int Sliders::Select(int event) {
    Check(*this, "Sliders::Select");
    return Has_Size(*this) ? Select_Bar(*this, event, Paint_State, Press_Arrows) : 0;
}

void Sliders::Deselect() {
    Check(*this, "Sliders::Deselect");
    if (Has_Size(*this)) Deselect_Bar(*this, Paint_State);
}

void Sliders::Draw() {
    Check(*this, "Sliders::Draw");
    if (!Has_Size(*this)) return;
    Clamp_Value(*this);
    Canvas canvas(*this, Whole_Bar(*this));
    if (Has_Flag(*this, FLAG_OUTLINE)) Paint_Outline(canvas, Area_Of(*this));
    if (!Has_Flag(*this, FLAG_NO_BODY)) {
        if (!Has_Flag(*this, FLAG_STATIC)) canvas.Box(Area_Of(*this), Body_Color(canvas.Look(), Color).get());
        Paint_Bevel(canvas, *this);
    }
    Paint_Thumb(canvas, *this, false, Paint_Cursor);
}

void Sliders::Adjust() {
    Check(*this, "Sliders::Adjust");
    if (!Has_Size(*this)) return;
    Canvas canvas(*this, Inside(*this));
    if (Has_Flag(*this, FLAG_OUTLINE)) Paint_Outline(canvas, Area_Of(*this));
    if (Has_Flag(*this, FLAG_NO_BODY)) return;
    Clamp_Value(*this);
    Paint_Inside(canvas, *this, Select_State == Hover_Highlighted, Cur_Graph_Select);
    Paint_Bevel(canvas, *this);
    Paint_Thumb(canvas, *this, false, Paint_Cursor);
}

float Sliders::Scroll(int n) {
    Check(*this, "Sliders::Scroll");
    if (!Has_Size(*this)) return 0.0F;
    if (Has_Flag(*this, FLAG_PASSIVE)) return Val;
    Step_Value(*this, n);
    Adjust();
    return Val;
}
