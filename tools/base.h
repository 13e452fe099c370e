/// @file
/// What every control does the same: the checks, the common part of `Init`, the pointer, the parts of a look.
#pragma once

#include <optional>

#include "tools/arithmetic.h"
#include "tools/caption.h"
#include "tools/fields.h"
#include "tools/frame.h"
#include "tools/shading.h"

namespace galdren {

inline bool Has_Size(const Tools_Fields& control) { return control.Width >= 1 && control.Height >= 1; }

/// `Border`, or the common `BORDER` when it is 0.
int Frame_Width(const Tools_Fields& control);

/// The same without its sign.
int Frame_Thickness(const Tools_Fields& control);

/// How far the body of a control stands inside of it: by the rim and the frame.
inline int Body_Inset(const Tools_Fields& control) { return Line_Width(control) + Frame_Thickness(control); }

/// Whether any of the bits is set.
inline bool Has_Flag(const Tools_Fields& control, unsigned long bits) { return (control.Flag & bits) != 0; }

/// Neither painted nor highlighted when the pointer moves.
inline bool Never_Highlights(const Tools_Fields& control) {
    return Has_Flag(control, FLAG_NO_BODY | FLAG_STATIC);
}

/// All that a control without parts may paint: frames of small ones turn inside out, and stacked text may be
/// longer than the control is high.
Reach Around(const Tools_Fields& control);

/// The kind of an event word, without the buttons held.
inline int Event_Kind(int event) { return event & 15; }

/// Values of the controls' `Hover`.
constexpr short Hover_Unknown = 0;
constexpr short Hover_Highlighted = 1;
constexpr short Hover_Normal = 2;

/// Follows the pointer with the `Hover` of a control.
/// @return whether the control has to be painted
bool Hover_Changes(const Tools_Fields& control, short& hover, bool inside);

/// Where the pointer is, when it is inside the control's hit rectangle.
std::optional<POINT> Pointer_On(const Tools_Fields& control);

inline bool Pointer_Inside(const Tools_Fields& control) { return Pointer_On(control).has_value(); }

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
const char* Name_Of(const Tools_Fields& control);

/// Takes the text away that `Set_Name` made; a name that the application has put in its place stays.
void Release_Owned_Name(Tools_Fields& control);

/// Takes the name of a control away.
void Release_Name(Tools_Fields& control);

/// The head of almost every member: reports the first call on a control that `Init` did not prepare. The
/// call goes on.
/// @param label  name of the member in the report
void Check(Tools_Fields& control, const char* label);

/// The head of every `Init`: marks the control as ready and finds its window, or reports that there is none.
/// @param window  the argument of `Init`; receives the window to use
/// @return false when `Init` has to stop
bool Begin_Init(Tools_Fields& control, HWND& window, const char* label);

/// Gives a black control the common grey.
void Default_Grey(Tools_Fields& control);

/// Notes one more holder of a region.
void Share_Region(HRGN region);

/// Takes the region of a control away; it goes unless a copy still holds it.
void Drop_Region(Tools_Fields& control);

/// Binds the control to the window: region and hit rectangle.
void Bind(Tools_Fields& control, HWND window);

/// Binds a control that needs no region; the one that it has goes.
void Bind_Without_Region(Tools_Fields& control, HWND window);

/// Makes the font when there is none or its size changed.
void Renew_Font(Tools_Fields& control);

/// Makes the font anew, for its words may have changed too.
void Remake_Font(Tools_Fields& control);

/// Where frame and body of a control leave nothing to be seen of what was there; empty where they have no
/// room, or do not fill it.
inline Area Covered_By(const Tools_Fields& control) {
    // Stacked text may be longer than the control is high.
    constexpr unsigned long Open =
        FLAG_NO_BODY | FLAG_STATIC | FLAG_OUTLINE | FLAG_VERTICAL | FLAG_INNER_FRAME;
    const int least = 2 * Body_Inset(control);
    if (Has_Flag(control, Open) || control.Width < least || control.Height < least) return Reach().covered;
    return Area_Of(control).Inset(Has_Flag(control, FLAG_NO_RIM) ? Line_Width(control) : 0);
}

/// The reach of a paint of a whole control that is frame and body.
inline Reach Reach_Of(const Tools_Fields& control) {
    const Area covered = Covered_By(control);
    return Area_Of(control).Holds(covered) ? Covering(covered) : Around(control);
}

/// Gives a part the scale and the theme of its owner.
inline void Copy_Look(Tools_Fields& part, const Tools_Fields& owner) {
    part.Scale = owner.Scale;
    part.Look = owner.Look;
}

/// Gives a part what its owner has around it: text clip rectangle, scale and theme. It is cut at the owner's
/// edges, and painted when the owner is.
inline void Copy_Surroundings(Tools_Fields& part, const Tools_Fields& owner) {
    part.Room = Is_Empty(owner.Room) ? owner.Rect : Common(owner.Rect, owner.Room);
    part.Veil = owner.Veil;
    Copy_Look(part, owner);
    part.Clip_X = owner.Clip_X;
    part.Clip_Y = owner.Clip_Y;
    part.Clip_Width = owner.Clip_Width;
    part.Clip_Height = owner.Clip_Height;
}

/// Notes size, theme and scale as those of the last generation of buffers.
void Note_Size(Tools_Fields& control);

}  // namespace galdren
