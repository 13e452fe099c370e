#include "widgets/slider.h"

#include <algorithm>

#include "tools/dimensions.h"
#include "tools/sharing.h"
#include "widgets/range.h"

using namespace galdren;

namespace {

/// Side of the arrow boxes.
int Arrow_Side(const Sliders& slider) {
    if (slider.Arrow_Dim != 0) return slider.Arrow_Dim;
    return std::min(Bar_Thickness(slider), Bar_Length(slider) / 2 - CURSEUR);
}

void Paint_Inside(Canvas& canvas, const Sliders& slider, bool highlighted, const unsigned long* body) {
    Paint_Body(canvas, slider, highlighted, body, slider.Flag, Frame_Width(slider) + 2, Area_Of(slider));
}

void Paint_Bevel(Canvas& canvas, const Sliders& slider) {
    const int width = slider.Border <= 1 ? 1 : 2;
    Paint_Frame(canvas, slider.Color, 0, true, width, Area_Of(slider));
}

/// One step of the value by an arrow. When reversed it is held at the bound that it moves away from, and
/// comes back into range with the owner's `Adjust`.
void Step_Value(Sliders& slider, bool at_far_end) {
    float& value = slider.Val;
    if (!Has_Flag(slider, SLIDER_REVERSED)) {
        value = at_far_end ? std::min(value + slider.Step, slider.End_Val)
                           : std::max(value - slider.Step, slider.Start_Val);
    } else {
        value = at_far_end ? std::min(value - slider.Step, slider.Start_Val)
                           : std::max(value + slider.Step, slider.End_Val);
    }
}

void Press_Arrows(Sliders& slider) {
    int distance = 0;
    if (!Pointer_Along(slider, distance)) return;
    const int side = Arrow_Side(slider);
    if (distance < side) {
        Step_Value(slider, false);
    } else if (distance > Bar_Length(slider) - side) {
        Step_Value(slider, true);
    }
}

void Fill_Table(Sliders& slider) {
    const int positions =
        Bar_Length(slider) - 2 * Bar_Thickness(slider) - 2 * slider.Curs_Half - 2 * Frame_Width(slider) + 2;
    slider.Tab_Num = Low_16(std::clamp(positions, -32768, Sliders::Most_Positions));
    if (slider.Tab_Num <= 1) return;
    const float step = (slider.End_Val - slider.Start_Val) / static_cast<float>(slider.Tab_Num - 1);
    float value = slider.Start_Val;
    for (int i = 0; i < slider.Tab_Num; ++i, value += step)
        slider.Tab[i] = value;
}

}  // namespace

Sliders::Sliders() = default;

Sliders::Sliders(const Sliders& other) = default;

Sliders& Sliders::operator=(const Sliders& other) { return Reassign(*this, other); }

Sliders::~Sliders() = default;

void Sliders::Init(HWND window) {
    Forget_Withdrawn_Images(*this);
    if (!Begin_Init(*this, window, "Sliders::Init")) return;
    Capture = 0;
    const int longest = Bar_Length(*this) / 2 - Bar_Thickness(*this);
    Curs_Half = Low_16(std::min<int>(longest, std::max(CURSEUR, Curs_Half)));
    Border = std::max<short>(Border, 1);
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
    const int room = Bar_Length(*this) - 2 * (Bar_Thickness(*this) + SPACE);
    if (room > 0) Curs_Half = Thumb_For(larg, total, room);
}

float Sliders::Read() {
    Check(*this, "Sliders::Read");
    if (!Has_Size(*this) || Has_Flag(*this, FLAG_PASSIVE)) return 0.0F;
    int distance = 0;
    const int thickness = Bar_Thickness(*this);
    const bool on_track =
        Pointer_Along(*this, distance) && thickness < distance && distance < Bar_Length(*this) - thickness;
    if (!on_track || Tab_Num <= 1) return Val;
    return Value_At(*this, distance - (thickness + Curs_Half + Frame_Width(*this) - 1));
}

int Sliders::Select(int event) {
    Check(*this, "Sliders::Select");
    if (!Has_Size(*this)) return 0;
    return Select_Bar(
        *this, event, [this](bool highlighted) { Paint_State(highlighted); },
        [this] { Press_Arrows(*this); });
}

void Sliders::Deselect() {
    Check(*this, "Sliders::Deselect");
    if (!Has_Size(*this)) return;
    Deselect_Bar(*this, [this](bool highlighted) { Paint_State(highlighted); });
}

void Sliders::Draw() {
    Check(*this, "Sliders::Draw");
    if (!Has_Size(*this)) return;
    Clamp_Value(*this);
    Canvas canvas(*this, Inside(*this));
    if (Has_Flag(*this, FLAG_OUTLINE)) Paint_Outline(canvas, Area_Of(*this));
    if (!Has_Flag(*this, FLAG_NO_BODY)) {
        if (!Has_Flag(*this, FLAG_STATIC)) canvas.Box(Area_Of(*this), Color.get());
        Paint_Bevel(canvas, *this);
    }
    Paint_Thumb();
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
    Paint_Thumb();
}

float Sliders::Scroll(int n) {
    Check(*this, "Sliders::Scroll");
    if (!Has_Size(*this)) return 0.0F;
    if (Has_Flag(*this, FLAG_PASSIVE)) return Val;
    const float change = static_cast<float>(n) * Step;
    if (Has_Flag(*this, SLIDER_REVERSED)) {
        Val += change;
        Val = n >= 1 ? std::max(Val, End_Val) : std::min(Val, Start_Val);
    } else {
        Val -= change;
        Val = n >= 1 ? std::max(Val, Start_Val) : std::min(Val, End_Val);
    }
    Adjust();
    return Val;
}

/// The inside and what stands on it, as the pointer has it look.
void Sliders::Paint_State(bool highlighted) {
    Canvas canvas(*this, Inside(*this));
    Paint_Inside(canvas, *this, highlighted, highlighted ? Cur_Graph_Select : Cur_Graph_Normal);
    Cursor();
}

int Sliders::Posit() {
    const int thickness = Bar_Thickness(*this);
    const int track = Bar_Length(*this) - 2 * Curs_Half - 2 * Frame_Width(*this) - 2 * thickness;
    const float fraction = Fraction(Val, Start_Val, End_Val);
    return Round_Offset(static_cast<float>(track) * fraction + static_cast<float>(thickness));
}

/// Arrows and thumb; with images of the application, the inside beneath them too.
void Sliders::Paint_Thumb() {
    if (!Graph_Select && !Graph_Normal) {
        Cursor();
    } else {
        Select_State = Hover_Unknown;
        Select(Capture);
    }
}

void Sliders::Cursor() {
    if (Has_Flag(*this, FLAG_NO_BODY)) return;
    Canvas canvas(*this, Inside(*this));
    const Area area = Area_Of(*this);
    const int border = Frame_Width(*this);
    const bool vertical = Is_Vertical(*this);
    Paint_Arrow(canvas, vertical ? ARROW_DOWN : ARROW_LEFT, border + 2, Arrow_Side(*this), area);
    Paint_Arrow(canvas, vertical ? ARROW_UP : ARROW_RIGHT, border + 2, Arrow_Side(*this), area);
    if (Bar_Length(*this) < 2 * Bar_Thickness(*this)) return;

    Area thumb = area.Inset(border + 2);
    const int start = border + Posit();
    const int groove_from = Curs_Half - 1;
    if (vertical) {
        thumb.bottom = area.bottom + start + 1;
        thumb.top = thumb.bottom + 2 * Curs_Half - 1;
        canvas.Box({thumb.left + 1, thumb.right, thumb.bottom, thumb.top}, Thumb_Grey);
        Paint_Thumb_Light(canvas, thumb, thumb.right - 1);
        canvas.Row(thumb.left + 1, thumb.right - 1, thumb.bottom + groove_from, Thumb_Light);
        Paint_Thumb_Dark(canvas, thumb);
        Paint_Thumb_Shadow(canvas, thumb);
        canvas.Row(thumb.left + 1, thumb.right, thumb.bottom + groove_from + 1, Black);
    } else {
        thumb.left = area.left + start;
        thumb.right = thumb.left + 2 * Curs_Half - 1;
        canvas.Box({thumb.left + 1, thumb.right, thumb.bottom, thumb.top - 1}, Thumb_Grey);
        Paint_Thumb_Light(canvas, thumb, thumb.right - 1);
        canvas.Column(thumb.left + groove_from + 1, thumb.bottom + 1, thumb.top, Thumb_Light);
        Paint_Thumb_Dark(canvas, thumb);
        Paint_Thumb_Shadow(canvas, thumb);
        canvas.Column(thumb.left + groove_from, thumb.bottom + 1, thumb.top - 1, Black);
    }
}
