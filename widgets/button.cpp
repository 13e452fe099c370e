#include "widgets/button.h"

#include <algorithm>
#include <iterator>

#include "tools/base.h"
#include "tools/dimensions.h"
#include "tools/font_cache.h"
#include "tools/images.h"
#include "tools/sharing.h"
#include "widgets/item_buttons.h"

using namespace galdren;

namespace {

int Lamp_Width(const Buttons& button) { return Scaled(button, 8); }

unsigned long Lamp_Color(const Buttons& button) {
    const Theme& theme = Theme_Of(button);
    const auto [green, blue, red] = theme.Lamps;
    const unsigned long numbered[] = {theme.Blank, green, blue, theme.Mark};
    if (button.Lamp && !Has_Flag(button, BUTTON_LAMP_COLORS)) return theme.Mark;
    return button.Lamp >= 0 && button.Lamp < int(std::size(numbered)) ? numbered[button.Lamp] : red;
}

/// The lamp stands `SPACE` pixels from the left edge, centred, as high as the body but at most as that of a
/// button of the common size.
Area Lamp_Area(const Buttons& button) {
    const int height = std::min<int>(button.Height, Scaled(button, BUT_DIM));
    const int margin = 2 * Frame_Thickness(button) + Scaled(button, 4);
    const int left = button.X + Scaled(button, SPACE);
    return {left, left + Lamp_Width(button), button.Y + ((button.Height - height + margin) >> 1),
            button.Y + ((height - margin + button.Height) >> 1)};
}

void Paint_Lamp(Canvas& canvas, const Buttons& button) {
    if (!Has_Flag(button, BUTTON_LAMP)) return;
    const int frame = std::max(Frame_Thickness(button) - canvas.Line(), 1);
    const Area lamp = Lamp_Area(button);
    canvas.Box(lamp.Inset(frame), Lamp_Color(button));
    Paint_Frame(canvas, button.Color, 0, true, frame, lamp);
}

unsigned long Caption_Flags(const Buttons& button) {
    return galdren::Caption_Flags(button, button.Value != 0);
}

void Paint_Name(Canvas& canvas, const Buttons& button, unsigned long flags) {
    Area area = Area_Of(button);
    if (Has_Flag(button, BUTTON_LAMP)) area.left += Lamp_Width(button);
    Paint_Caption(canvas, button.Font, button.Name, flags, area, button.Border);
}

void Paint_Look(Canvas& canvas, const Buttons& button, bool highlighted, bool with_lamp) {
    Paint_Body(canvas, button, highlighted, Body_Inset(button), Area_Of(button));
    if (with_lamp) Paint_Lamp(canvas, button);
    Paint_Name(canvas, button, Caption_Flags(button));
}

void Renew_Bodies(Buttons& button) {
    const Theme& theme = Theme_Of(button);
    const Images images = Take_Images(button);
    if (images.normal_taken) button.Normal_Up = button.Normal_Down = button.Graph_Normal;
    if (images.select_taken) button.Select_Up = button.Select_Down = button.Graph_Select;
    if (images.normal_needed) {
        const int darker = theme.Darker_Down;
        Colors down = button.Color;
        down -= Colors(darker, darker, darker);
        Renew_Shading(button, button.Own_Normal_Up, button.Color);
        Renew_Shading(button, button.Own_Normal_Down, down);
        button.Normal_Up = button.Own_Normal_Up;
        button.Normal_Down = button.Own_Normal_Down;
    }
    if (images.select_needed) {
        Renew_Shading(button, button.Own_Select_Up, Highlight_Color(button));
        Renew_Shading(button, button.Own_Select_Down,
                      Colors(static_cast<unsigned int>(theme.Highlight_Down)));
        button.Select_Up = button.Own_Select_Up;
        button.Select_Down = button.Own_Select_Down;
    }
    if (!Has_Flag(button, FLAG_OWN_IMAGES)) Choose_Bodies(button);
}

/// What follows in `Init` when the button is bound to its window.
void Renew_Look(Buttons& button) {
    Renew_Font(button);
    if (Has_Flag(button, FLAG_STATIC)) {
        Note_Size(button);
    } else {
        Renew_Bodies(button);
    }
    button.Last_Color = button.Color.get();
}

/// The first part of `Init`: all but region, font and bodies.
bool Begin_Button(Buttons& button, HWND& window) {
    Forget_Withdrawn_Images(button);
    if (!Begin_Init(button, window, "Buttons::Init")) return false;
    button.Hover = Hover_Unknown;
    button.Last_Value = button.Value;
    Default_Grey(button);
    return true;
}

/// Whether `Init` has a button's whole look to make.
bool Is_New(const Buttons& button) {
    return !(button.State & STATE_READY) && !button.Font && !button.Graph_Normal && !button.Graph_Select &&
           !button.Icon_Pixels && !Has_Flag(button, FLAG_STATIC | FLAG_OWN_IMAGES);
}

/// Whether a button has all that others may take over.
bool Is_Complete(const Buttons& button) {
    return button.Font && button.Own_Normal_Up && button.Own_Normal_Down && button.Own_Select_Up &&
           button.Own_Select_Down;
}

/// Gives a button the look of a complete one like it, of which it is noted as a holder later.
void Take_Look(Buttons& button, const Buttons& model) {
    button.Font = model.Font;
    button.Font_Size_Last = model.Font_Size_Last;
    button.Normal_Up = button.Own_Normal_Up = model.Own_Normal_Up;
    button.Normal_Down = button.Own_Normal_Down = model.Own_Normal_Down;
    button.Select_Up = button.Own_Select_Up = model.Own_Select_Up;
    button.Select_Down = button.Own_Select_Down = model.Own_Select_Down;
    Choose_Bodies(button);
    Note_Size(button);
    button.Last_Color = model.Last_Color;
}

/// Calls `act` with every body that a button owns.
template <class Act>
void For_Owned(const Buttons& button, Act act) {
    for (const unsigned long* array :
         {button.Own_Normal_Up, button.Own_Normal_Down, button.Own_Select_Up, button.Own_Select_Down})
        act(array);
}

bool Body_Hides_Rest(const Buttons& button) {
    return !Has_Flag(button, BUTTON_LAMP) &&
           Caption_Stays_Inside(button, Caption_Flags(button), Area_Of(button).Inset(Body_Inset(button)));
}

/// A lamp may be higher than the button.
Reach Whole_Reach(const Buttons& button) {
    return Has_Flag(button, BUTTON_LAMP) ? Around(button) : Reach_Of(button);
}

/// The whole button, highlighted when the pointer is inside. A passive one shows no lamp.
void Paint_Whole(Canvas& canvas, Buttons& button) {
    Paint_Frame(canvas, button.Color, button.Flag, button.Value != 0, Frame_Thickness(button),
                Area_Of(button));
    const bool is_static = Has_Flag(button, FLAG_STATIC);
    if (is_static || !Body_Hides_Rest(button)) {
        Paint_Lamp(canvas, button);
        Paint_Name(canvas, button, Caption_Flags(button));
    }
    if (is_static) return;
    const bool inside = Settle(button, Pointer_Inside(button));
    Paint_Look(canvas, button, inside, !Has_Flag(button, FLAG_PASSIVE));
}

}  // namespace

namespace galdren {

void Init_Without_Regions(std::span<Buttons* const> buttons, HWND window) {
    const Buttons* model = nullptr;
    unsigned alike = 0;
    for (Buttons* const button : buttons) {
        const bool is_new = Is_New(*button);
        HWND own_window = window;
        if (!Begin_Button(*button, own_window)) continue;
        Bind_Without_Region(*button, own_window);
        if (model && is_new && button->Color == model->Color && button->Color.Alpha == model->Color.Alpha) {
            Take_Look(*button, *model);
            ++alike;
            continue;
        }
        Renew_Look(*button);
        if (!model && is_new && Is_Complete(*button)) model = button;
    }
    if (!model) return;
    Share_Font(model->Font, alike);
    For_Owned(*model, [alike](const unsigned long* body) { Share_Among(body, alike); });
}

bool Settle(Buttons& button, bool inside) {
    Choose_Bodies(button);
    button.Last_Value = button.Value;
    button.Hover = Hover_Unknown;
    if (Has_Flag(button, FLAG_PASSIVE)) return false;
    Hover_Changes(button, button.Hover, inside);
    return inside;
}

}  // namespace galdren

Buttons::Buttons() = default;

Buttons::Buttons(const Buttons& other) : Tools(other), Button_Fields(other) { For_Owned(*this, Share_Array); }

Buttons& Buttons::operator=(const Buttons& other) { return Reassign(*this, other); }

Buttons::~Buttons() { For_Owned(*this, Release_Array); }

void Buttons::Init(HWND window) {
    if (!Begin_Button(*this, window)) return;
    Bind(*this, window);
    Renew_Look(*this);
}

void Buttons::Draw() {
    Check(*this, "Button::Draw");
    if (!Has_Size(*this)) return;
    Last_Value = Value;
    Canvas canvas(*this, Whole_Reach(*this));
    if (Has_Flag(*this, FLAG_OUTLINE)) {
        Paint_Outline(canvas, Area_Of(*this));
        Paint_Name(canvas, *this, Flag);
    } else if (!Has_Flag(*this, FLAG_NO_BODY)) {
        Paint_Whole(canvas, *this);
    }
}

int Buttons::Select(int event) {
    Check(*this, "Button::Select");
    if (!Has_Size(*this)) return 0;
    return Select_By_Hover(*this, event, [this](bool highlighted) {
        Canvas canvas(*this, Around(*this));
        Paint_Look(canvas, *this, highlighted, !Has_Flag(*this, FLAG_PASSIVE));
    });
}

void Buttons::Deselect() {
    if (State == 0 || !Has_Size(*this) || Never_Highlights(*this)) return;
    if (Hover == Hover_Unknown || Hover == Hover_Normal) return;
    Hover = Hover_Unknown;
    Canvas canvas(*this, Around(*this));
    Paint_Look(canvas, *this, false, true);
}

void Buttons::Adjust() {
    Check(*this, "Button::Adjust");
    if (!Has_Size(*this) || Has_Flag(*this, FLAG_NO_BODY)) return;
    if (!Has_Flag(*this, BUTTON_LAMP) && Value == Last_Value) return;
    Last_Value = Value;
    Canvas canvas(*this, Whole_Reach(*this));
    Paint_Whole(canvas, *this);
}

int Buttons::Read() {
    Check(*this, "Button::Read");
    return Value;
}
