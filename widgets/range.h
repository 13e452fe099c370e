/// @file
/// A range of values along a bar, and how the bar follows the pointer: what sliders and valuators share.
#pragma once

#include <algorithm>
#include <utility>

#include "tools/base.h"

namespace galdren {

inline bool Is_Vertical(const Tools_Fields& bar) { return Has_Flag(bar, FLAG_VERTICAL); }

/// Along the bar: its width, or its height when vertical.
inline int Bar_Length(const Tools_Fields& bar) { return Is_Vertical(bar) ? bar.Height : bar.Width; }

/// Across the bar.
inline int Bar_Thickness(const Tools_Fields& bar) { return Is_Vertical(bar) ? bar.Width : bar.Height; }

/// What a bar paints as a whole: every pixel where it has a ground.
inline Reach Whole_Bar(const Tools_Fields& bar) {
    return Has_Flag(bar, FLAG_NO_BODY | FLAG_STATIC) ? Inside(bar) : Covering(Area_Of(bar));
}

/// Side of the arrow boxes at the ends of a bar that gives them no size.
int Usual_Arrow(const Tools_Fields& bar);

/// Which arrow the pointer is on: -1 for that at the start of an area, 1 for that at its end, 0 for none.
int Arrow_Under_Pointer(HWND window, const Area& area, bool vertical, int size);

/// The arrows at both ends of an area; see `Paint_Arrow`.
void Paint_Arrows(Canvas& canvas, bool vertical, int inset, int size, const Area& area);

/// Where `value` lies between the ends, as a fraction; the start end where that is not defined.
float Fraction(float value, float start, float end);

/// An offset in pixels, rounded and held within the range of coordinates.
int Round_Offset(float offset);

/// Half the length of the thumb of a bar that shows `visible` of `total` on a track of `room` pixels; `half`
/// as it is when there is no room.
short Thumb_For(const Tools_Fields& bar, short half, float visible, float total, int room);

/// Distance of the pointer from the start end of a bar; none when there is no pointer to be had.
std::optional<int> Pointer_Along(const Tools_Fields& bar);

/// The value that the thumb has at a position of its track.
template <class Bar>
float Value_At(const Bar& bar, int position) {
    return bar.Tab[std::clamp(position, 0, bar.Tab_Num - 1)];
}

/// The lower and the upper end of a bar's values.
template <class Bar>
std::pair<float, float> Bounds_Of(const Bar& bar) {
    if (Has_Flag(bar, SLIDER_REVERSED)) return {bar.End_Val, bar.Start_Val};
    return {bar.Start_Val, bar.End_Val};
}

/// Holds the value between the two ends. What is not a number stays as it is.
template <class Bar>
void Clamp_Value(Bar& bar) {
    const auto [low, high] = Bounds_Of(bar);
    if (low >= bar.Val) {
        bar.Val = low;
    } else if (bar.Val >= high) {
        bar.Val = high;
    }
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
/// `paint` is called with the bar, and with true when the highlight comes and false when it goes.
template <class Bar, class Paint, class Press>
int Select_Bar(Bar& bar, int event, Paint paint, Press press) {
    const int kind = Event_Kind(event);
    const bool inside = Pointer_Inside(bar);
    if (kind == EVENT_TEST) return inside;
    if (kind == EVENT_MOVE) bar.Capture = 0;
    if (Has_Flag(bar, FLAG_PASSIVE)) {
        if (!Never_Highlights(bar)) paint(bar, false);
        return 0;
    }
    const bool keeps_grab = Has_Flag(bar, SLIDER_KEEP_GRAB);
    if (!inside && !(keeps_grab && bar.Capture == 1)) {
        if (Hover_Changes(bar, bar.Select_State, false)) paint(bar, false);
        return 0;
    }
    if (kind == EVENT_PRESS) {
        press(bar);
        if (keeps_grab) bar.Capture = 1;
    }
    const int taken = keeps_grab ? bar.Capture : kind == EVENT_PRESS || kind == EVENT_DRAG;
    if (Hover_Changes(bar, bar.Select_State, true)) paint(bar, true);
    return taken;
}

/// Ends a drag and takes the highlight away; the state stays, so that the next `Select` outside paints again.
template <class Bar, class Paint>
void Deselect_Bar(Bar& bar, Paint paint) {
    bar.Capture = 0;
    if (!Never_Highlights(bar) && bar.Select_State == Hover_Highlighted) paint(bar, false);
}

/// Paints arrows and thumb. With images of the application, or while the bar is held, it has the inside
/// beneath them painted too, as the pointer wants it.
template <class Bar, class Paint>
void Paint_Thumb(Canvas& canvas, Bar& bar, bool grabbed, Paint paint) {
    if (!bar.Graph_Select && !bar.Graph_Normal && !grabbed) return paint(canvas, bar);
    bar.Select_State = Hover_Unknown;
    bar.Select(bar.Capture);
}

/// A thumb and how it is painted.
struct Thumb {
    bool vertical;
    int half;  ///< of its length
    Area area;

    /// @param room    what thumbs stand in
    /// @param offset  from the start of that
    Thumb(bool upright, short half_length, const Area& room, int offset)
        : vertical(upright), half(half_length), area(room) {
        int& start = vertical ? area.bottom : area.left;
        start += offset;
        (vertical ? area.top : area.right) = start + 2 * half - 1;
    }

    /// The face, with the lit side of its groove.
    void Paint_Face(Canvas& canvas) const;
    /// Lit edges at the left and top, the top one towards `end`.
    void Paint_Light(Canvas& canvas, int end) const;
    /// Dark edges at the bottom and right.
    void Paint_Dark(Canvas& canvas) const;
    /// The shadow inside the dark edges, and in the groove; that of one across ends before `top`.
    void Paint_Shadow(Canvas& canvas, int top) const;
};

}  // namespace galdren
