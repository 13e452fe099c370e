// A text field in its window: fonts, title and scroll bars, and the output that goes with them.
#include <algorithm>
#include <cstdarg>
#include <cstdio>
#include <utility>

#include "tools/canvas.h"
#include "tools/dimensions.h"
#include "tools/font.h"
#include "tools/font_cache.h"
#include "widgets/input_line.h"
#include "widgets/scroll.h"
#include "widgets/text.h"
#include "widgets/text_lines.h"
#include "widgets/text_output.h"
#include "widgets/text_places.h"

using namespace galdren;

namespace {

void Paint_Title(Canvas& canvas, const Texts& field) {
    if (field.Width < 2 * Scaled(field, SPACE)) return;
    const Area all = Area_Of(field);
    const Area band = Title_Area(field);
    Paint_Frame(canvas, field.Color, 1, false, canvas.Scaled(2), band);
    Paint_Caption(canvas, field.Font, field.Name, field.Flag, {all.left, all.right, band.bottom, band.top},
                  field.Border);
}

/// A font of the field's face and size in place of one it has.
void Renew(const Texts& field, HFONT& font, const char* weight, const char* style) {
    const HFONT before = font;
    font = Acquire_Font(field.Window, field.Font_Name, weight, style, Font_Points(field));
    Z_Delete_Font(field.Window, before);
}

}  // namespace

void Texts::Init(HWND window) {
    if (!Begin_Init(*this, window, "Texts::Init")) return;
    Default_Grey(*this);
    Bind(*this, window);
    if (Mode == 0) std::fill_n(Line, Line_Room, '\0');
    Renew(*this, Font, "medium", "r");
    Renew(*this, Bold_Font, "bold", "r");
    Renew(*this, Oblique_Font, "medium", "o");
    Line_Height = Metrics_Of(Font).tmHeight;
    Char_Width = Width_Of(Font, "H");
    Picture.number = 0;
    Set_Input_Box(*this);
    if (!Has_V_Bar(*this)) V_Slider = Sliders();
    if (!Has_H_Bar(*this)) H_Slider = Sliders();
    V_Slider.Window = H_Slider.Window = nullptr;  // the bars are set anew whatever they were
    Rescale_Cursor();
}

void Texts::Draw() {
    Check(*this, "Text::Draw");
    if (!Has_Size(*this)) return;
    Canvas canvas(*this, Inside(*this));
    const Area all = Area_Of(*this);
    if (Has_Flag(*this, FLAG_OUTLINE)) Paint_Outline(canvas, all);
    if (Has_Flag(*this, FLAG_NO_BODY)) return;
    if (!Has_Flag(*this, FLAG_STATIC)) canvas.Box(all, Body_Color(canvas.Look(), Color).get());
    Paint_Frame(canvas, Color, 1, true, Frame_Width(*this), all);
    if (Name) Paint_Title(canvas, *this);
    Fit_Bars();
    For_Bars(*this, [](Sliders& bar) { bar.Draw(); });
    Re_Write();
    Paint_Input();
}

int Texts::Select(int event) {
    Check(*this, "Text::Select");
    if (!Has_Size(*this)) return 0;
    if (Has_Flag(*this, FLAG_PASSIVE)) {
        if (!Never_Highlights(*this)) {
            if (V_Slider.Width != 0) V_Slider.Deselect();
            Read_Echo();
        }
        return 0;
    }
    if (Event_Kind(event) == EVENT_TEST) return Pointer_Inside(*this);
    if (Edits.dragged != Edit_State::Nothing && Select_Text(event)) return 1;
    if (Has_V_Bar(*this) && Select_Bar(V_Slider, event)) return 1;
    if (Has_H_Bar(*this) && Select_Bar(H_Slider, event)) return 1;
    const bool inside = Pointer_Inside(*this);
    const short before = std::exchange(Select_State, inside ? Hover_Highlighted : Hover_Normal);
    if (Select_State != before) Read_Echo();  // the caret goes with the pointer
    return Select_Text(event) || inside;
}

/// Offers an event to a bar. With a button held the output follows it.
bool Texts::Select_Bar(Sliders& bar, int event) {
    if (bar.Select(Event_Kind(event)) != 1) return false;
    if (Any_Button_Held()) {
        Follow_Pointer(bar);
        Re_Write();
    }
    return true;
}

void Texts::Deselect() {
    if (State == 0 || !Has_Size(*this) || Never_Highlights(*this)) return;
    if (V_Slider.Width != 0) V_Slider.Deselect();
    Select_State = Hover_Normal;
    Read_Echo();
}

void Texts::Scroll(int n) {
    Check(*this, "Text::Select");
    if (!Has_Size(*this) || Has_Flag(*this, FLAG_PASSIVE)) return;
    const bool across = Has_H_Bar(*this) && H_Slider.Select(EVENT_TEST);
    if (!across && !Has_V_Bar(*this)) return;
    Scroll_Bar(across ? H_Slider : V_Slider, n);
}

/// Scrolls the output by the steps of a bar.
void Texts::Scroll_Bar(Sliders& bar, int steps) {
    const Shared_Context context(Window);
    bar.Scroll(steps);
    if (Has_Flag(bar, FLAG_PASSIVE)) bar.Adjust();  // else it has painted itself
    Re_Write();
}

/// Formats a text and appends it, or puts it in place of the newest line.
void Texts::Append(bool new_line, const char* format, va_list arguments) {
    if (!Has_Size(*this) || !format) return;
    char text[Formatted_Room];
    if (std::vsnprintf(text, sizeof text, format, arguments) < 0 || !Can_Write()) return;
    const Output_Lines output(*this, Picture);
    if (new_line) output.Begin();
    output.Write(Whole_Characters(text, Line_Room - 1));

    const Shared_Context context(Window);
    Re_Write();
    Paint_Input();
    Fit_Bars();
    For_Bars(*this, [](Sliders& bar) {
        bar.Val = 0.0F;
        bar.Draw();
    });
}

void Texts::Re_Write() { Paint_Output(*this, Picture); }

/// Has the bars show how much output there is.
void Texts::Fit_Bars() {
    const Output_Lines output(*this, Picture);
    Place_Bars(*this, Has_V_Bar(*this) ? output.Count() : 0, Has_H_Bar(*this) ? output.Longest() : 0);
}

void Texts::Rescale_Cursor() {
    Fit_Bars();
    For_Bars(*this, [](Sliders& bar) {
        if (Has_Flag(bar, FLAG_NO_BODY)) bar.Draw();
    });
}
