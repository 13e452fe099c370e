/// @file
/// Hue editors: a rainbow to pick the hue of a colour from.
#pragma once

#include "box.h"
#include "valuator.h"

/// Changes the hue of a colour and keeps its lightness and saturation: a valuator over a rainbow, and beside
/// it a swatch that shows the colour, both in a framing box unless `Border` is below 1.
///
/// The editor does not change its value with the pointer: when `Select` answers 1 with a button down, the
/// application stores what `Read` answers in `Value` and calls `Adjust`. Colours are packed as by
/// `Colors::get`. An editor whose `Color` is black becomes grey (170, 170, 170) at `Init`. Every field is
/// zero at first; what a copy's source owns is shared.
class GALDREN_TOOLS_API Hue_Edit : public Tools {
  public:
    unsigned long Value{};       ///< the colour; 0 has `Init` make it pure red
    void* Reserved_1{};          ///< copied with the editor; not used
    void* Reserved_2{};          ///< copied with the editor; not used
    void* Reserved_3{};          ///< copied with the editor; not used
    short Reserved_4{};          ///< copied with the editor; not used
    unsigned long Last_Value{};  ///< `Value` at the last `Init` or `Draw`
    Boxs Frame;                  ///< the frame around the editor
    Boxs Swatch;                 ///< shows the colour
    Valuators Hue;               ///< the hue, from 0 to 0.99

    /// Lays the parts out, binds them to a window and paints the rainbow.
    /// @param window  null keeps the window of the last `Init`; without any it is reported at level 11
    void Init(HWND window);
    /// Paints the whole editor.
    void Draw();
    /// Follows the pointer.
    /// @param event  see `Select_Event`
    /// @return 1 when the application is to take a value with `Read`
    int Select(int event);
    /// The colour with the hue under the pointer; `Value`, with alpha 255, when the pointer is not on the
    /// rainbow. 0 without size.
    unsigned long Read();
    /// Changes the hue under the pointer by `n` steps, down when positive, and repaints.
    /// @return the new `Value`; 0 without size
    unsigned long Scroll(int n);
    /// Ends a drag and takes the highlight away.
    void Deselect();
    /// Repaints after a change of `Value`.
    void Adjust();
};
