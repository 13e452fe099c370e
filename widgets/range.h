/// @file
/// A range of values along a bar, and how the bar follows the pointer: what sliders and valuators share.
#pragma once

#include "tools/base.h"

namespace galdren {

constexpr unsigned long Thumb_Grey = Dark_Grey;
constexpr unsigned long Thumb_Light = Light_Grey;

inline bool Is_Vertical(const Tools_Fields& bar) { return Has_Flag(bar, FLAG_VERTICAL); }

/// Along the bar: its width, or its height when vertical.
inline int Bar_Length(const Tools_Fields& bar) { return Is_Vertical(bar) ? bar.Height : bar.Width; }

/// Across the bar.
inline int Bar_Thickness(const Tools_Fields& bar) { return Is_Vertical(bar) ? bar.Width : bar.Height; }

/// `value` held between the two ends. What is not a number stays as it is.
float Clamp_Value(float value, float start, float end, bool reversed);

/// Where `value` lies between the ends, as a fraction; the start end where that is not defined.
float Fraction(float value, float start, float end);

/// An offset in pixels, rounded and held within the range of coordinates.
int Round_Offset(float offset);

/// Half the length of a thumb that shows `visible` of `total` on a track of `room` pixels.
short Thumb_For(float visible, float total, int room);

/// Distance of the pointer from the start end of a bar.
/// @return false when there is no pointer to be had
bool Pointer_Along(const Tools_Fields& bar, int& distance);

/// The value that the thumb has at a position of its track.
template <class Bar>
float Value_At(const Bar& bar, int position) {
    if (position <= 0) return bar.Tab[0];
    const int last = bar.Tab_Num - 1;
    return bar.Tab[position < last ? position : last];
}

template <class Bar>
void Clamp_Value(Bar& bar) {
    bar.Val = Clamp_Value(bar.Val, bar.Start_Val, bar.End_Val, Has_Flag(bar, SLIDER_REVERSED));
}

/// How a bar answers an event, after the checks:
///
/// | Kind     | Pointer outside        | Inside, or the press is kept                           |
/// |----------|------------------------|--------------------------------------------------------|
/// | test     | 0                      | 1 (only inside)                                        |
/// | move     | the press ends, 0      | the press ends, 0                                      |
/// | drag     | 0                      | 1; with `SLIDER_KEEP_GRAB` 1 if the press began here   |
/// | press    | 0                      | `press` is called, 1                                   |
///
/// `paint` is called with true when the highlight comes and with false when it goes.
template <class Bar, class Paint, class Press>
int Select_Bar(Bar& bar, int event, Paint paint, Press press) {
    const int kind = Event_Kind(event);
    const bool inside = Pointer_Inside(bar);
    if (kind == EVENT_TEST) return inside;
    if (kind == EVENT_MOVE) bar.Capture = 0;
    if (Has_Flag(bar, FLAG_PASSIVE)) {
        if (!Never_Highlights(bar)) paint(false);
        return 0;
    }
    const bool keeps_grab = Has_Flag(bar, SLIDER_KEEP_GRAB);
    if (!inside && !(keeps_grab && bar.Capture == 1)) {
        if (Hover_Changes(bar, bar.Select_State, false)) paint(false);
        return 0;
    }
    if (kind == EVENT_PRESS) {
        press();
        if (keeps_grab) bar.Capture = 1;
    }
    const int taken = keeps_grab ? bar.Capture : kind == EVENT_PRESS || kind == EVENT_DRAG;
    if (Hover_Changes(bar, bar.Select_State, true)) paint(true);
    return taken;
}

/// Ends a drag and takes the highlight away; the state stays, so that the next `Select` outside paints again.
template <class Bar, class Paint>
void Deselect_Bar(Bar& bar, Paint paint) {
    bar.Capture = 0;
    if (!Never_Highlights(bar) && bar.Select_State == Hover_Highlighted) paint(false);
}

/// Lit edges at the left and top of a thumb, the top one towards `top_end`.
void Paint_Thumb_Light(Canvas& canvas, const Area& thumb, int top_end);

/// Dark edges at the bottom and right of a thumb.
void Paint_Thumb_Dark(Canvas& canvas, const Area& thumb);

/// The shadow one pixel inside the dark edges.
void Paint_Thumb_Shadow(Canvas& canvas, const Area& thumb);

}  // namespace galdren
