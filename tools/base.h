/// @file
/// What every control does the same: the checks, the common part of `Init`, the pointer, the parts of a look.
#pragma once

#include <cstddef>

#include "tools/arithmetic.h"
#include "tools/canvas.h"
#include "tools/shading.h"
#include "tools/tools.h"

namespace galdren {

constexpr unsigned long Black = 0x000000;
constexpr unsigned long White = 0xFFFFFF;
constexpr unsigned long Light_Grey = 0xD8D8D8;    // the lit side of an edge
constexpr unsigned long Dark_Grey = 0x6E6E6E;     // its side in the shade
constexpr unsigned long Outline_Blue = 0xE64040;  // red 64, green 64, blue 230

/// Colour of a highlighted body.
inline Colors Highlight_Color() { return {230, 100, 100}; }

inline bool Has_Size(const Tools& control) { return control.Width >= 1 && control.Height >= 1; }

/// `Border`, or the common `BORDER` when it is 0.
int Frame_Width(const Tools& control);

/// Whether any of the bits is set.
inline bool Has_Flag(const Tools& control, unsigned long bits) { return (control.Flag & bits) != 0; }

/// Neither painted nor highlighted when the pointer moves.
inline bool Never_Highlights(const Tools& control) { return Has_Flag(control, FLAG_NO_BODY | FLAG_STATIC); }

/// The kind of an event word, without the buttons held.
inline int Event_Kind(int event) { return event & 15; }

/// Values of the controls' `Hover`.
constexpr short Hover_Unknown = 0;
constexpr short Hover_Highlighted = 1;
constexpr short Hover_Normal = 2;

/// Follows the pointer with the `Hover` of a control.
/// @return whether the control has to be painted
bool Hover_Changes(const Tools& control, short& hover, bool inside);

/// Whether the pointer is inside the control's hit rectangle.
bool Pointer_Inside(const Tools& control);

/// How a control without a value of its own answers an event, after the checks. `paint` is called with true
/// when the highlight comes and with false when it goes; for a passive control, with false every time.
template <class Control, class Paint>
int Select_By_Hover(Control& control, int event, Paint paint) {
    const bool inside = Pointer_Inside(control);
    if (Event_Kind(event) == EVENT_TEST) return inside;
    if (Has_Flag(control, FLAG_PASSIVE)) {
        if (!Never_Highlights(control)) paint(false);
        return 0;
    }
    if (Hover_Changes(control, control.Hover, inside)) paint(inside);
    return inside;
}

/// The name of a control in reports; "(null)" when it has none.
const char* Name_Of(const Tools& control);

/// Takes the name of a control away.
void Release_Name(Tools& control);

/// The head of almost every member: reports the first call on a control that `Init` did not prepare. The
/// call goes on.
/// @param label  name of the member in the report
void Check(Tools& control, const char* label);

/// The head of every `Init`: marks the control as ready and finds its window, or reports that there is none.
/// @param window  the argument of `Init`; receives the window to use
/// @return false when `Init` has to stop
bool Begin_Init(Tools& control, HWND& window, const char* label);

/// Gives a black control the common grey.
void Default_Grey(Tools& control);

/// Binds the control to the window: region and hit rectangle.
void Bind(Tools& control, HWND window);

/// Makes the font when there is none or its size changed.
void Renew_Font(Tools& control);

/// Makes the font anew, for its words may have changed too.
void Remake_Font(Tools& control);

/// Notes the size as that of the last generation of buffers.
void Note_Size(Tools& control);

/// Empties `body` when it is an image that the application has withdrawn since an `Init` took it: it may be
/// freed by now.
void Forget_If_Withdrawn(const Tools& control, unsigned long*& body);

/// Forgets the images of the last `Init` that the application has withdrawn. At the head of every `Init` that
/// takes images, for some ways through it take none.
template <class Control>
void Forget_Withdrawn_Images(Control& control) {
    Forget_If_Withdrawn(control, control.Cur_Graph_Normal);
    Forget_If_Withdrawn(control, control.Cur_Graph_Select);
    if constexpr (requires { control.Normal_Up; }) {
        Forget_If_Withdrawn(control, control.Normal_Up);
        Forget_If_Withdrawn(control, control.Normal_Down);
        Forget_If_Withdrawn(control, control.Select_Up);
        Forget_If_Withdrawn(control, control.Select_Down);
    }
}

/// Notes the application's images as those that this `Init` found.
void Note_Images(Tools& control);

/// What `Take_Images` found.
struct Images {
    bool normal_taken;   ///< `Cur_Graph_Normal` became `Graph_Normal`
    bool select_taken;   ///< `Cur_Graph_Select` became `Graph_Select`
    bool normal_needed;  ///< shading is to be generated from `Color`
    bool select_needed;  ///< shading is to be generated from the highlight colour
};

/// Takes the application's images where they changed, or the size did, and tells what is to be generated.
/// An image that the application withdrew is not used any more. Notes size and images.
Images Take_Images(Tools& control);

/// Replaces generated shading by that of `color` at the control's present size.
/// @param frame  the frame that is usually painted around it, if there is one
void Renew_Shading(const Tools& control, unsigned long*& own, const Colors& color,
                   Frame_Look frame = Frame_Look::None);

/// Paints body and frame in one copy, which costs a tenth of painting them line by line.
/// @return false, with nothing painted, when `body` was not generated for this frame, size and colour
bool Paint_Framed_Body(Canvas& canvas, const Tools& control, const unsigned long* body, Frame_Look frame);

/// Colours of one ring of a shaded frame.
struct Ring_Shades {
    Colors bottom_right;
    Colors top_left;
};

/// @param ring  1 for the outermost of `width` rings
Ring_Shades Shades_Of_Ring(Colors color, bool sunken, int width, int ring);

/// Notes one more holder of an array of bytes or pixels.
void Share_Array(const void* array);

/// Releases an array of bytes or pixels, unless a copy still shares it.
void Release_Array(const void* array);

/// The flags of a caption: it is white on a control that is down.
inline unsigned long Caption_Flags(const Tools& control, bool down) {
    const unsigned long flags = control.Flag & ~FLAG_TEXT_WHITE;
    return down ? flags | FLAG_TEXT_WHITE : flags;
}

/// Chooses the bodies that go with the control's value, up or down.
template <class Control>
void Choose_Bodies(Control& control) {
    control.Cur_Graph_Normal = control.Value ? control.Normal_Down : control.Normal_Up;
    control.Cur_Graph_Select = control.Value ? control.Select_Down : control.Select_Up;
}

/// Whether `buffer` may be read at the control's present size: generated shading was made for another one
/// when `Init` did not renew it, and an image for the size that `Init` saw.
bool Fits_Size(const Tools& control, const void* buffer);

/// The shaded frame; see `Tools::Cadre`.
void Paint_Frame(Canvas& canvas, Colors color, unsigned long flags, bool sunken, int width, const Area& area);

/// The blue outline; see `Tools::Cadre_Outline`.
void Paint_Outline(Canvas& canvas, const Area& area);

/// An embossed arrow in an area; see `Tools::Arrow`.
void Paint_Arrow(Canvas& canvas, short direction, int inset, int size, const Area& area);

/// The body; see `Tools::Fill_Select`.
void Paint_Body(Canvas& canvas, const Tools& control, bool highlighted, const void* buffer,
                unsigned long flags, int inset, const Area& area);

/// A caption; see `Tools::Text`. Null and the empty text paint nothing.
void Paint_Caption(Canvas& canvas, HFONT font, const char* text, unsigned long flags, const Area& area,
                   int border);

/// Whether all that `Paint_Caption` may paint lies in `body`, all four edges of that included.
bool Caption_Stays_Inside(Canvas& canvas, HFONT font, const char* text, unsigned long flags, const Area& area,
                          int border, const Area& body);

/// One line of text, placed in `area` by the placement bits in `flags`.
void Paint_Line(Canvas& canvas, HFONT font, const char* text, unsigned long flags, const Area& area,
                unsigned long color);

/// Text from top to bottom: its first 128 characters, one a line, in a column one average character wide
/// with another of room on either side, placed by the placement bits in `flags`.
/// @param border  margin above and below
/// @param margin  margin at the side the column stands at
/// @param format  further bits for DrawText
void Paint_Stacked(Canvas& canvas, HFONT font, const char* text, unsigned long flags, const Area& area,
                   int border, int margin, UINT format, unsigned long color);

}  // namespace galdren
