#include "widgets/color_edit.h"

#include "tools/dimensions.h"
#include "tools/font_cache.h"
#include "tools/sharing.h"
#include "tools/surface.h"
#include "widgets/color_value.h"
#include "widgets/editor.h"
#include "widgets/gradient.h"
#include "widgets/items.h"

using namespace galdren;

namespace {

constexpr std::size_t Channel_Count = std::tuple_size_v<Channels>;

struct Channel_Look {
    const char* name;
    Gradient gradient;
};

constexpr Channel_Look RGB_Looks[Channel_Count] = {
    {"Red", Gradient::Black_To_Red},
    {"Green", Gradient::Black_To_Green},
    {"Blue", Gradient::Black_To_Blue},
};
constexpr Channel_Look HLS_Looks[Channel_Count] = {
    {"Hue", Gradient::Rainbow},
    {"Light", Gradient::Black_To_White},
    {"Saturation", Gradient::White_To_Red},
};

using Troughs = std::array<Valuators*, Channel_Count>;

Troughs Troughs_Of(Color_Edit& editor) { return {&editor.Chan_1, &editor.Chan_2, &editor.Chan_3}; }

bool Is_HLS(const Color_Edit& editor) { return Has_Flag(editor, COLOR_EDIT_HLS); }

bool Has_Mode_Button(const Color_Edit& editor) { return Has_Flag(editor, COLOR_EDIT_MODE_BUTTON); }

bool Has_Frame(const Color_Edit& editor) { return editor.Border > 0; }

Channels Channels_Of(const Color_Edit& editor) {
    return Is_HLS(editor) ? HLS_Of(editor.Value) : RGB_Of(editor.Value);
}

unsigned long Value_Of(const Color_Edit& editor, const Channels& channels) {
    return Is_HLS(editor) ? From_HLS(channels) : From_RGB(channels);
}

int Font_Height(const Color_Edit& editor) { return Metrics_Of(editor.Font).tmHeight; }

/// What frame, caption, swatch and mode button leave for the troughs.
Area Channel_Area(const Color_Edit& editor) {
    constexpr int Below_Caption = 3;
    Area area = Area_Of(editor);
    if (Has_Frame(editor)) {
        area = Room_In_Frame(editor, Frame_Thickness(editor));
        if (editor.Name) area.top -= Below_Caption + Font_Height(editor);
    } else {
        area.right -= Part_Gap + 2 * BUT_DIM;
    }
    if (Has_Mode_Button(editor)) area.right -= Part_Gap + BUT_DIM - SPACE;
    return area;
}

/// Three rows from the top down; the first takes what cannot be shared evenly.
std::array<Area, Channel_Count> Split_In_Rows(const Area& area) {
    const int height = (area.top - area.bottom - 2 * Part_Gap) / 3;
    const int step = height + Part_Gap;
    const auto row = [&](int bottom, int top) { return Area{area.left, area.right, bottom, top}; };
    return {row(area.bottom + 2 * step, area.top), row(area.bottom + step, area.bottom + step + height),
            row(area.bottom, area.bottom + height)};
}

void Init_Frame(Color_Edit& editor) {
    Boxs& frame = editor.Frame;
    Set_Place(frame, Area_Of(editor), Within_16);
    Copy_Look(frame, editor, Frame_Thickness(editor));
    frame.Font_Style = editor.Font_Style;
    Take_Name(frame, editor);
    frame.Flag = (editor.Flag & Frame_Look) | FLAG_OWN_IMAGES | FLAG_PASSIVE;
    frame.Init(editor.Window);
    if (!Has_Frame(editor)) frame.Flag |= FLAG_NO_BODY;
}

void Init_Swatch(Color_Edit& editor, const Area& area) {
    Boxs& swatch = editor.Swatch;
    Set_Place(swatch, area, Within_16);
    swatch.Flag = editor.Frame.Flag;
    swatch.Border = editor.Frame.Border;
    swatch.Color = editor.Color;
    Copy_Clip(swatch, editor);
    if (Has_Flag(swatch, FLAG_NO_BODY)) {
        Hide_Color(swatch);
    } else {
        Show_Color(swatch, editor.Value, editor.Height != editor.Last_Height);
    }
    swatch.Init(editor.Window);
}

void Init_Mode_Button(Color_Edit& editor, const Area& swatch) {
    Buttons& button = editor.Mode_Button;
    const int left = swatch.right + Part_Gap;
    Set_Place(button, {left, left + BUT_DIM - SPACE, swatch.bottom, swatch.top}, Within_16);
    button.Flag = editor.Flag | FLAG_VERTICAL;
    button.Border = editor.Frame.Border;
    Copy_Font(button, editor);
    Copy_Clip(button, editor);
    button.Init(editor.Window);
    Name_Part(button, Is_HLS(editor) ? "HLS" : "RGB");
}

void Init_Channel(Color_Edit& editor, Valuators& trough, const Area& area, const Channel_Look& look) {
    Set_Place(trough, area, Within_16);
    Copy_Look(trough, editor, Frame_Thickness(editor));
    trough.Font_Style = editor.Font_Style;
    trough.Flag = editor.Flag;
    trough.Start_Val = Trough_Start;
    trough.End_Val = Trough_End;
    Name_Part(trough, look.name);
    if (Has_Flag(trough, FLAG_NO_BODY)) {
        Hide_Gradient(trough);
    } else {
        Show_Gradient(trough, look.gradient);
    }
    trough.Init(editor.Window);
}

void Init_Channels(Color_Edit& editor, const Area& area) {
    const Troughs troughs = Troughs_Of(editor);
    const auto rows = Split_In_Rows(area);
    const Channel_Look* looks = Is_HLS(editor) ? HLS_Looks : RGB_Looks;
    for (std::size_t i = 0; i < Channel_Count; ++i)
        Init_Channel(editor, *troughs[i], rows[i], looks[i]);
}

/// All parts but the frame.
void Draw_Parts(Color_Edit& editor) {
    for (Valuators* trough : Troughs_Of(editor))
        trough->Draw();
    editor.Swatch.Draw();
    if (Has_Mode_Button(editor)) editor.Mode_Button.Draw();
}

void Change_Mode(Color_Edit& editor) {
    editor.Flag ^= COLOR_EDIT_HLS;
    editor.Init(editor.Window);
    const Paint_Batch batch(editor.Window);
    editor.Draw();
}

}  // namespace

Color_Edit::Color_Edit() = default;

Color_Edit::Color_Edit(const Color_Edit& other) = default;

Color_Edit& Color_Edit::operator=(const Color_Edit& other) { return Reassign(*this, other); }

Color_Edit::~Color_Edit() = default;

void Color_Edit::Init(HWND window) {
    if (!Begin_Compound(*this, window, "Color_Edit::Init", Frame, Swatch, Mode_Button, Chan_1, Chan_2,
                        Chan_3))
        return;
    Last_Value = Value;
    Bind_Editor(*this, window);
    Init_Frame(*this);
    const Area channels = Channel_Area(*this);
    const Area swatch = Swatch_Area(channels);
    Init_Swatch(*this, swatch);
    if (Has_Mode_Button(*this)) Init_Mode_Button(*this, swatch);
    Init_Channels(*this, channels);
    Note_Size(*this);
}

void Color_Edit::Draw() {
    Check(*this, "Color_Edit::Draw");
    if (!Has_Size(*this)) return;
    Last_Value = Value;
    const Canvas for_all_parts(*this, Inside(*this));
    // The outline look is painted beneath the other; parts without bodies show both.
    if (Has_Flag(*this, FLAG_OUTLINE)) {
        Frame.Draw();
        Draw_Parts(*this);
    }
    if (Has_Flag(*this, FLAG_NO_BODY)) return;
    Frame.Draw();
    const Channels channels = Channels_Of(*this);
    for (std::size_t i = 0; i < Channel_Count; ++i)
        Troughs_Of(*this)[i]->Val = channels[i];
    // Before the swatch is painted, so that it does not show the colour before.
    Change_Color(Swatch, Value);
    Draw_Parts(*this);
}

int Color_Edit::Select(int event) {
    Check(*this, "Color_Edit::Select");
    if (!Has_Size(*this) || Has_Flag(*this, FLAG_PASSIVE)) return 0;
    const int kind = Event_Kind(event);
    for (Valuators* trough : Troughs_Of(*this)) {
        if (trough->Select(kind)) return 1;
    }
    if (Has_Mode_Button(*this) && Mode_Button.Select(kind) && kind == EVENT_PRESS) Change_Mode(*this);
    return 0;
}

unsigned long Color_Edit::Read() {
    Check(*this, "Color_Edit::Read");
    if (!Has_Size(*this)) return 0;
    Channels channels = Channels_Of(*this);
    for (std::size_t i = 0; i < Channel_Count; ++i) {
        Valuators& trough = *Troughs_Of(*this)[i];
        if (trough.Select(EVENT_DRAG)) channels[i] = trough.Read();
    }
    return Value_Of(*this, channels);
}

unsigned long Color_Edit::Scroll(int n) {
    Check(*this, "Color_Edit::Scroll");
    if (!Has_Size(*this)) return 0;
    const Canvas for_all_parts(*this, Inside(*this));
    Channels channels = Channels_Of(*this);
    bool changed = false;
    for (std::size_t i = 0; i < Channel_Count; ++i) {
        Valuators& trough = *Troughs_Of(*this)[i];
        if (!trough.Select(EVENT_TEST)) continue;
        channels[i] = trough.Scroll(n);
        changed = true;
    }
    if (!changed) return Value;
    Value = Value_Of(*this, channels);
    Adjust();
    return Value;
}

void Color_Edit::Deselect() {
    if (State == 0 || !Has_Size(*this) || Never_Highlights(*this)) return;
    for (Valuators* trough : Troughs_Of(*this))
        trough->Deselect();
    if (Has_Mode_Button(*this)) Mode_Button.Deselect();
}

void Color_Edit::Adjust() {
    Check(*this, "Color_Edit::Adjust");
    if (!Has_Size(*this) || Value == Last_Value || Has_Flag(*this, FLAG_PASSIVE)) return;
    const Canvas for_all_parts(*this, Inside(*this));
    const Channels channels = Channels_Of(*this);
    for (std::size_t i = 0; i < Channel_Count; ++i)
        Move_Thumb(*Troughs_Of(*this)[i], channels[i]);
    Last_Value = Value;
    Update();
}

void Color_Edit::Update() {
    if (Has_Size(*this)) Update_Swatch(Swatch, Value);
}
