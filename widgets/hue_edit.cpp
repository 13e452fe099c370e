#include "widgets/hue_edit.h"

#include <algorithm>

#include "tools/dimensions.h"
#include "widgets/editor.h"
#include "widgets/items.h"

using namespace galdren;

namespace {

constexpr unsigned long Pure_Red = 0xFF0000FF;

bool Has_Frame(const Hue_Edit& editor) { return editor.Border >= 1; }

int Part_Border(const Hue_Edit& editor) {
    const int widest = Scaled(editor, 2);
    return std::min(Frame_Thickness(editor), widest);
}

Area Rainbow_Area(const Hue_Edit& editor) {
    if (Has_Frame(editor)) return Room_In_Frame(editor, Part_Border(editor));
    Area area = Area_Of(editor);
    area.right -= Swatch_Width(editor) + Scaled(editor, SPACE);
    return area;
}

std::array<Valuators*, 1> Troughs_Of(Hue_Edit& editor) { return {&editor.Hue}; }

}  // namespace

void Hue_Edit::Init(HWND window) {
    if (!Begin_Compound(*this, window, "Hue_Edit::Init", Frame, Swatch, Hue)) return;
    if (Value == 0) Value = Pure_Red;
    Last_Value = Value;
    Bind_Editor(*this, window);
    const int border = Part_Border(*this);
    const Area rainbow = Rainbow_Area(*this);

    Dress_Part(Frame, *this, Area_Of(*this), border);
    Copy_Face(Frame, *this);
    Frame.Flag = (Flag & (FLAG_OUTLINE | FLAG_OWN_IMAGES)) | FLAG_PASSIVE;
    if (!Has_Frame(*this)) Frame.Flag |= FLAG_NO_BODY;
    Frame.Init(Window);

    Swatch.Flag = Flag;
    Init_Swatch(Swatch, *this, Swatch_Area(*this, rainbow), border, Value, true);

    Take_Name(Hue, *this);
    if (!Hue.Name) Hue.Name = "Hue";
    Init_Trough(Hue, *this, rainbow, border, Rainbow, true);
    Note_Size(*this);
}

void Hue_Edit::Draw() {
    Check(*this, "Hue_Edit::Draw");
    if (!Has_Size(*this)) return;
    Last_Value = Value;
    const Canvas for_all_parts(*this, Inside(*this));
    if (Has_Frame(*this)) {
        Frame.Draw();
    } else {
        Frame.Clear();
    }
    Hue.Val = Channels_Of(Value, Space::HLS)[0];
    Hue.Draw();
    // Before the swatch is painted, so that it does not show the colour before.
    if (!Has_Flag(*this, FLAG_NO_BODY)) Change_Color(Swatch, Value);
    Swatch.Draw();
}

int Hue_Edit::Select(int event) {
    Check(*this, "Hue_Edit::Select");
    if (!Has_Size(*this) || Has_Flag(*this, FLAG_PASSIVE)) return 0;
    return Hue.Select(Event_Kind(event)) != 0;
}

unsigned long Hue_Edit::Read() {
    Check(*this, "Hue_Edit::Read");
    return Has_Size(*this) ? Read_Troughs(Troughs_Of(*this), Value, Space::HLS) : 0;
}

unsigned long Hue_Edit::Scroll(int n) {
    Check(*this, "Hue_Edit::Scroll");
    if (!Has_Size(*this)) return 0;
    const Shared_Context context(Window);
    if (Scroll_Troughs(Troughs_Of(*this), Value, Space::HLS, n)) Adjust();
    return Value;
}

void Hue_Edit::Deselect() {
    if (State != 0 && Has_Size(*this) && !Never_Highlights(*this)) Hue.Deselect();
}

/// `Last_Value` stays until the next `Draw`: the work is done again, and paints nothing.
void Hue_Edit::Adjust() {
    Check(*this, "Hue_Edit::Adjust");
    if (!Has_Size(*this) || Value == Last_Value || Has_Flag(*this, FLAG_PASSIVE)) return;
    const Shared_Context context(Window);
    Move_Thumbs(Troughs_Of(*this), Value, Space::HLS);
    Update_Swatch(Swatch, Value);
}
