#include "widgets/hue_edit.h"

#include <algorithm>

#include "tools/dimensions.h"
#include "tools/sharing.h"
#include "widgets/color_value.h"
#include "widgets/editor.h"
#include "widgets/gradient.h"
#include "widgets/items.h"

using namespace galdren;

namespace {

constexpr Channels Pure_Red{0.0F, 0.5F, 1.0F};

bool Has_Frame(const Hue_Edit& editor) { return editor.Border >= 1; }

int Part_Border(const Hue_Edit& editor) {
    constexpr int Widest = 2;
    return std::min(Frame_Thickness(editor), Widest);
}

/// Where the rainbow goes.
Area Rainbow_Area(const Hue_Edit& editor) {
    if (Has_Frame(editor)) return Room_In_Frame(editor, Part_Border(editor));
    Area area = Area_Of(editor);
    area.right -= 2 * BUT_DIM + SPACE;
    return area;
}

void Init_Frame(Hue_Edit& editor) {
    Boxs& frame = editor.Frame;
    Set_Place(frame, Area_Of(editor), Within_16);
    Copy_Look(frame, editor, Part_Border(editor));
    frame.Flag = (editor.Flag & (FLAG_OUTLINE | FLAG_OWN_IMAGES)) | FLAG_PASSIVE;
    if (!Has_Frame(editor)) frame.Flag |= FLAG_NO_BODY;
    frame.Init(editor.Window);
}

void Init_Swatch(Hue_Edit& editor) {
    Boxs& swatch = editor.Swatch;
    Set_Place(swatch, Swatch_Area(Rainbow_Area(editor)), Within_16);
    swatch.Flag = editor.Flag;
    swatch.Border = Within_16(Part_Border(editor));
    swatch.Color = editor.Color;
    Copy_Clip(swatch, editor);
    Show_Color(swatch, editor.Value, editor.Height != editor.Last_Height);
    swatch.Init(editor.Window);
}

void Init_Rainbow(Hue_Edit& editor) {
    Valuators& hue = editor.Hue;
    Set_Place(hue, Rainbow_Area(editor), Within_16);
    Copy_Look(hue, editor, Part_Border(editor));
    hue.Flag = editor.Flag;
    Take_Name(hue, editor);
    if (!hue.Name) hue.Name = "Hue";
    hue.Start_Val = Trough_Start;
    hue.End_Val = Trough_End;
    Show_Gradient(hue, Gradient::Rainbow);
    hue.Init(editor.Window);
}

}  // namespace

Hue_Edit::Hue_Edit() = default;

Hue_Edit::Hue_Edit(const Hue_Edit& other) = default;

Hue_Edit& Hue_Edit::operator=(const Hue_Edit& other) { return Reassign(*this, other); }

Hue_Edit::~Hue_Edit() = default;

void Hue_Edit::Init(HWND window) {
    if (!Begin_Compound(*this, window, "Hue_Edit::Init", Frame, Swatch, Hue)) return;
    if (Value == 0) Value = From_HLS(Pure_Red);
    Last_Value = Value;
    Bind_Editor(*this, window);
    Init_Frame(*this);
    Init_Swatch(*this);
    Init_Rainbow(*this);
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
    Hue.Val = HLS_Of(Value)[0];
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
    if (!Has_Size(*this)) return 0;
    Channels hls = HLS_Of(Value);
    if (Hue.Select(EVENT_DRAG)) hls[0] = Hue.Read();
    return From_HLS(hls);
}

unsigned long Hue_Edit::Scroll(int n) {
    Check(*this, "Hue_Edit::Scroll");
    if (!Has_Size(*this)) return 0;
    Channels hls = HLS_Of(Value);
    if (!Hue.Select(EVENT_TEST)) return Value;
    const Canvas for_all_parts(*this, Inside(*this));
    hls[0] = Hue.Scroll(n);
    Value = From_HLS(hls);
    Adjust();
    return Value;
}

void Hue_Edit::Deselect() {
    if (State != 0 && Has_Size(*this) && !Never_Highlights(*this)) Hue.Deselect();
}

/// `Last_Value` stays until the next `Draw`: the work is done again, and paints nothing.
void Hue_Edit::Adjust() {
    Check(*this, "Hue_Edit::Adjust");
    if (!Has_Size(*this) || Value == Last_Value || Has_Flag(*this, FLAG_PASSIVE)) return;
    const Canvas for_all_parts(*this, Inside(*this));
    Move_Thumb(Hue, HLS_Of(Value)[0]);
    Update();
}

void Hue_Edit::Update() {
    if (Has_Size(*this)) Update_Swatch(Swatch, Value);
}
