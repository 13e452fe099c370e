/// @file
/// Sliders: scroll bars.
#pragma once

#include "../tools/tools.h"

/// A scroll bar: an arrow box at each end and a thumb between them, over a range of values. It is vertical
/// with `Flag` 0x4.
///
/// The slider steps its value when an arrow is pressed, and else leaves it alone: when `Select` answers 1
/// with a button down, the owner stores what `Read` answers in `Val` and calls `Adjust`. The value of every
/// position of the thumb is worked out by `Init`, so that dragging computes nothing. Every field is zero at
/// first; copies take all of them, the table included.
class GALDREN_TOOLS_API Sliders : public Tools {
  public:
    static constexpr int Most_Positions = 4096;  ///< entries of `Tab`

    float Val{};        ///< current value
    float Start_Val{};  ///< value at the left or bottom end
    float End_Val{};    ///< value at the right or top end
    short
        Curs_Half{};  ///< half the length of the thumb in pixels; at least `CURSEUR`, as far as there is room
    short Arrow_Dim{};            ///< side of the arrow boxes in pixels; 0 means by the size of the bar
    float Step{};                 ///< change of the value by an arrow or one step of `Scroll`; 0 means 1
    float Tab[Most_Positions]{};  ///< value of each position of the thumb, made by `Init`
    short Select_State{};         ///< 0 unknown, 1 painted highlighted, 2 painted normal
    short Capture{};              ///< 1 while a press that began here goes on, with `SLIDER_KEEP_GRAB`
    short Tab_Num{};              ///< entries of `Tab` that count

    /// Binds the slider to a window and works out its table. To be called again after a change of place,
    /// size, range or `Curs_Half`.
    /// @param window  null keeps the window of the last `Init`; without any it is reported at level 11
    void Init(HWND window);
    /// Sizes the thumb as the visible part of a document. To be called before `Init`.
    /// @param larg   extent of the visible part; its sign does not count
    /// @param total  extent of the whole; its sign does not count
    void Larg_Adjust(float larg, float total);
    /// The value under the pointer; `Val` when the pointer is not on the track, 0 when passive.
    float Read();
    /// Follows the pointer; an arrow that is pressed steps the value.
    /// @param event  see `Select_Event`
    /// @return 1 when the owner is to take a value with `Read`
    int Select(int event);
    /// Ends a drag and paints the inside normal.
    void Deselect();
    /// Paints the whole slider.
    void Draw();
    /// Repaints after a change of `Val`.
    void Adjust();
    /// Moves the value by `n` steps, towards the start end when positive, and repaints.
    /// @return the new value
    float Scroll(int n);
};
