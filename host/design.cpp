#include "host/design.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "tools/arithmetic.h"
#include "tools/look.h"

namespace galdren {

namespace {

float Factor(unsigned short scale) { return static_cast<float>(scale ? scale : Unscaled) / Unscaled; }

/// What has become of a length. None vanishes, for 0 often means that a length is not given.
short Not_Vanished(int length, short before) {
    return Within_16(length == 0 ? std::clamp(int{before}, -1, 1) : length);
}

short At_Scale(short length, unsigned short scale) { return Not_Vanished(Scaled(scale, length), length); }

/// What a length was designed as that is this long at a scale: exact for what `At_Scale` gives from 100 on.
short Designed(short length, unsigned short scale) {
    if (scale == 0 || scale == Unscaled) return length;  // as for nearly all that are added
    const int half = length < 0 ? -scale / 2 : scale / 2;
    return Not_Vanished((length * Unscaled + half) / scale, length);
}

float Distance(const Scrolled& scrolled) {
    return *scrolled.value - (scrolled.start ? *scrolled.start : 0.0F);
}

/// The value of a list's bar when item 0 is in view.
const float& Start_Of(const Lists& list) {
    return list.Flag & FLAG_VERTICAL ? list.Scroll_Bar.End_Val : list.Scroll_Bar.Start_Val;
}

}  // namespace

void Add_Common_Design(Tools& control, Design_Fields& fields) {
    fields.lengths.Add(control.X, control.Y, control.Width, control.Height, control.Border, control.Font_Size,
                       control.Clip_X, control.Clip_Y, control.Clip_Width, control.Clip_Height);
}

void Add_Design(CheckLists& list, Design_Fields& fields) { fields.lengths.Add(list.Line_Height); }

void Add_Design(Color_Edit& editor, Design_Fields& fields) {
    fields.lengths.Add(editor.Chan_1.Curs_Half, editor.Chan_2.Curs_Half, editor.Chan_3.Curs_Half);
    fields.grabs.Add(editor.Chan_1.Capture, editor.Chan_2.Capture, editor.Chan_3.Capture);
}

void Add_Design(DirTrees& tree, Design_Fields& fields) {
    fields.lengths.Add(tree.Vertical_Bar.Curs_Half, tree.Horizontal_Bar.Curs_Half);
    fields.scrolled.Add(tree.Vertical_Bar.Val, tree.Horizontal_Bar.Val);
    fields.grabs.Add(tree.Vertical_Bar.Capture, tree.Horizontal_Bar.Capture);
}

void Add_Design(Hue_Edit& editor, Design_Fields& fields) {
    fields.lengths.Add(editor.Hue.Curs_Half);
    fields.grabs.Add(editor.Hue.Capture);
}

void Add_Design(Lists& list, Design_Fields& fields) {
    fields.lengths.Add(list.Item_Height, list.Slider_Width, list.Scroll_Bar.Curs_Half);
    fields.scrolled.Add_One({&list.Scroll_Bar.Val, &Start_Of(list)});
    fields.grabs.Add(list.Scroll_Bar.Capture);
}

void Add_Design(Selects& selector, Design_Fields& fields) {
    fields.lengths.Add(selector.Arrow_Size, selector.Value_Width);
}

void Add_Design(Sliders& slider, Design_Fields& fields) {
    fields.lengths.Add(slider.Curs_Half, slider.Arrow_Dim);
    fields.grabs.Add(slider.Capture);
}

void Add_Design(TabItems& tab, Design_Fields& fields) { fields.lengths.Add(tab.Slant); }

void Add_Design(Tabs& set, Design_Fields& fields) { fields.lengths.Add(set.Tab_Height); }

void Add_Design(Texts& field, Design_Fields& fields) {
    fields.lengths.Add(field.Bar_Dim, field.V_Slider.Curs_Half, field.H_Slider.Curs_Half);
    fields.scrolled.Add(field.V_Slider.Val, field.H_Slider.Val);
    fields.grabs.Add(field.V_Slider.Capture, field.H_Slider.Capture);
}

void Add_Design(Valuators& valuator, Design_Fields& fields) {
    fields.lengths.Add(valuator.Num_Width, valuator.Curs_Half);
    fields.grabs.Add(valuator.Capture);
}

void Design::Note(const Design_Fields& fields, unsigned short scale) {
    for (std::size_t i = 0; i < fields.lengths.Count(); ++i) {
        const short now = *fields.lengths[i];
        if (now != std::exchange(lengths[i].written, now)) lengths[i].designed = Designed(now, scale);
    }
    for (std::size_t i = 0; i < fields.scrolled.Count(); ++i) {
        const float now = Distance(fields.scrolled[i]);
        if (now != std::exchange(scrolled[i].written, now)) scrolled[i].designed = now / Factor(scale);
    }
}

void Design::Set_Place(short x, short y, short width, short height) {
    lengths[0].designed = x;
    lengths[1].designed = y;
    lengths[2].designed = width;
    lengths[3].designed = height;
}

void Design::Write(const Design_Fields& fields, unsigned short scale) {
    for (std::size_t i = 0; i < fields.lengths.Count(); ++i)
        *fields.lengths[i] = lengths[i].written = At_Scale(lengths[i].designed, scale);
}

void Design::Scroll(const Design_Fields& fields, unsigned short scale) {
    for (std::size_t i = 0; i < fields.scrolled.Count(); ++i) {
        const Scrolled& now = fields.scrolled[i];
        *now.value += scrolled[i].designed * Factor(scale) - Distance(now);
    }
    Keep(fields);
}

void Design::Keep(const Design_Fields& fields) {
    for (std::size_t i = 0; i < fields.lengths.Count(); ++i)
        lengths[i].written = *fields.lengths[i];
    for (std::size_t i = 0; i < fields.scrolled.Count(); ++i)
        scrolled[i].written = Distance(fields.scrolled[i]);
}

Kept_In_Use::Kept_In_Use(const Design_Fields& fields, Texts* text) : used(fields), field(text) {
    for (std::size_t i = 0; i < used.grabs.Count(); ++i)
        grabs[i] = *used.grabs[i];
    if (!field) return;
    std::copy(std::begin(field->Line), std::end(field->Line), line.begin());
    cursor = field->Cursor_Pos;
}

Kept_In_Use::~Kept_In_Use() {
    for (std::size_t i = 0; i < used.grabs.Count(); ++i)
        *used.grabs[i] = grabs[i];
    if (!field || field->Mode != 0) return;
    std::copy(line.begin(), line.end(), field->Line);
    field->Cursor_Pos = cursor;
}

}  // namespace galdren
