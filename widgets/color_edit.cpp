#include "widgets/color_edit.h"

#include "tools/dimensions.h"
#include "tools/font_cache.h"
#include "tools/surface.h"
#include "widgets/editor.h"
#include "widgets/items.h"

using namespace galdren;

namespace {

struct Channel_Look {
    const char* name;
    Gradient gradient;
};

constexpr Channel_Look RGB_Looks[] = {
    {"Red", Black_To_Red},
    {"Green", Black_To_Green},
    {"Blue", Black_To_Blue},
};
constexpr Channel_Look HLS_Looks[] = {
    {"Hue", Rainbow},
    {"Light", Black_To_White},
    {"Saturation", White_To_Red},
};

std::array<Valuators*, 3> Troughs_Of(Color_Edit& editor) {
    return {&editor.Chan_1, &editor.Chan_2, &editor.Chan_3};
}

Space Space_Of(const Color_Edit& editor) {
    return Has_Flag(editor, COLOR_EDIT_HLS) ? Space::HLS : Space::RGB;
}

bool Has_Mode_Button(const Color_Edit& editor) { return Has_Flag(editor, COLOR_EDIT_MODE_BUTTON); }

int Button_Width(const Color_Edit& editor) { return Scaled(editor, BUT_DIM - SPACE); }

bool Has_Frame(const Color_Edit& editor) { return editor.Border > 0; }

/// What frame, caption, swatch and mode button leave for the troughs.
Area Channel_Area(const Color_Edit& editor) {
    const int below_caption = Scaled(editor, 3);
    Area area = Area_Of(editor);
    if (Has_Frame(editor)) {
        area = Room_In_Frame(editor, Frame_Thickness(editor));
        if (editor.Name) area.top -= below_caption + Metrics_Of(editor.Font).tmHeight;
    } else {
        area.right -= Part_Gap(editor) + Swatch_Width(editor);
    }
    if (Has_Mode_Button(editor)) area.right -= Part_Gap(editor) + Button_Width(editor);
    return area;
}

/// Three rows from the top down; the first takes what cannot be shared evenly.
std::array<Area, 3> Split_In_Rows(const Area& area, int gap) {
    const int height = (area.top - area.bottom - 2 * gap) / 3;
    const int step = height + gap;
    const auto row = [&](int bottom, int top) { return Area{area.left, area.right, bottom, top}; };
    return {row(area.bottom + 2 * step, area.top), row(area.bottom + step, area.bottom + step + height),
            row(area.bottom, area.bottom + height)};
}

/// Gives a part a name that outlives it.
void Name_Part(Tools& part, const char* name) {
    Release_Name(part);
    part.Name = name;
}

void Init_Frame(Color_Edit& editor) {
    Boxs& frame = editor.Frame;
    Dress_Part(frame, editor, Area_Of(editor), Frame_Thickness(editor));
    Copy_Font(frame, editor);
    Take_Name(frame, editor);
    frame.Flag = (editor.Flag & Frame_Look) | FLAG_OWN_IMAGES | FLAG_PASSIVE;
    frame.Init(editor.Window);
    if (!Has_Frame(editor)) frame.Flag |= FLAG_NO_BODY;
}

void Init_Mode_Button(Color_Edit& editor, const Area& swatch) {
    Buttons& button = editor.Mode_Button;
    const int left = swatch.right + Part_Gap(editor);
    Set_Place(button, {left, left + Button_Width(editor), swatch.bottom, swatch.top}, Within_16);
    button.Flag = editor.Flag | FLAG_VERTICAL;
    button.Border = editor.Frame.Border;
    Copy_Font(button, editor);
    Copy_Surroundings(button, editor);
    button.Init(editor.Window);
    Name_Part(button, Has_Flag(editor, COLOR_EDIT_HLS) ? "HLS" : "RGB");
}

void Init_Channels(Color_Edit& editor, const Area& area) {
    const auto troughs = Troughs_Of(editor);
    const auto rows = Split_In_Rows(area, Part_Gap(editor));
    const Channel_Look* looks = Has_Flag(editor, COLOR_EDIT_HLS) ? HLS_Looks : RGB_Looks;
    for (std::size_t i = 0; i < troughs.size(); ++i) {
        troughs[i]->Font_Style = editor.Font_Style;
        Name_Part(*troughs[i], looks[i].name);
        Init_Trough(*troughs[i], editor, rows[i], editor.Frame.Border, looks[i].gradient,
                    !Has_Flag(editor, FLAG_NO_BODY));
    }
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

void Color_Edit::Init(HWND window) {
    if (!Begin_Compound(*this, window, "Color_Edit::Init", Frame, Swatch, Mode_Button, Chan_1, Chan_2,
                        Chan_3))
        return;
    Last_Value = Value;
    Bind_Editor(*this, window);
    Init_Frame(*this);
    const Area channels = Channel_Area(*this);
    const Area swatch = Swatch_Area(*this, channels);
    Swatch.Flag = Frame.Flag;
    Init_Swatch(Swatch, *this, swatch, Frame.Border, Value, !Has_Flag(Frame, FLAG_NO_BODY));
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
    const Channels channels = Channels_Of(Value, Space_Of(*this));
    for (std::size_t i = 0; i < channels.size(); ++i)
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
    return Has_Size(*this) ? Read_Troughs(Troughs_Of(*this), Value, Space_Of(*this)) : 0;
}

unsigned long Color_Edit::Scroll(int n) {
    Check(*this, "Color_Edit::Scroll");
    if (!Has_Size(*this)) return 0;
    const Shared_Context context(Window);
    if (Scroll_Troughs(Troughs_Of(*this), Value, Space_Of(*this), n)) Adjust();
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
    const Shared_Context context(Window);
    Move_Thumbs(Troughs_Of(*this), Value, Space_Of(*this));
    Last_Value = Value;
    Update_Swatch(Swatch, Value);
}
