/// @file
/// Colour editors: three valuators for the channels of a colour.
#pragma once

#include "box.h"
#include "button.h"
#include "valuator.h"

/// Bits of `Flag` that colour editors add.
/// @{
constexpr unsigned long COLOR_EDIT_HLS = 0x80;  ///< hue, lightness and saturation; else red, green and blue
constexpr unsigned long COLOR_EDIT_MODE_BUTTON = 0x800;  ///< a button at the right changes between the two
/// @}

/// Edits a colour with three valuators, one below the other, each over a gradient of its channel, and shows
/// it in a swatch at their right, all in a frame with the editor's name unless `Border` is below 1.
///
/// The editor does not change its value with the pointer: when `Select` answers 1 with a button down, the
/// application stores what `Read` answers in `Value` and calls `Adjust`. A press on the mode button is
/// answered by the editor itself. Colours are packed as by `Colors::get`. An editor whose `Color` is black
/// becomes grey (170, 170, 170) at `Init`. Every field is zero at first; what a copy's source owns is shared.
class GALDREN_TOOLS_API Color_Edit : public Tools {
  public:
    unsigned long Value{};       ///< the colour
    void* Reserved_1{};          ///< copied with the editor; not used
    void* Reserved_2{};          ///< copied with the editor; not used
    void* Reserved_3{};          ///< copied with the editor; not used
    short Reserved_4{};          ///< copied with the editor; not used
    unsigned long Last_Value{};  ///< `Value` at the last `Init`, `Draw` or `Adjust`
    Boxs Frame;                  ///< the frame around the editor, with its name
    Boxs Swatch;                 ///< shows the colour
    Buttons Mode_Button;         ///< changes the mode, with `COLOR_EDIT_MODE_BUTTON`
    Valuators Chan_1;            ///< red or hue, at the top
    Valuators Chan_2;            ///< green or lightness
    Valuators Chan_3;            ///< blue or saturation, at the bottom

    /// Lays the parts out, binds them to a window and paints the gradients.
    /// @param window  null keeps the window of the last `Init`; without any it is reported at level 11
    void Init(HWND window);
    /// Paints the whole editor.
    void Draw();
    /// Follows the pointer; a press on the mode button changes the mode.
    /// @param event  see `Select_Event`
    /// @return 1 when the application is to take a value with `Read`
    int Select(int event);
    /// The colour with the value under the pointer for the channel that the pointer is on, and alpha 255. 0
    /// without size.
    unsigned long Read();
    /// Changes the channel under the pointer by `n` steps, down when positive, and repaints.
    /// @return the new `Value`; 0 without size
    unsigned long Scroll(int n);
    /// Ends a drag and takes the highlight away.
    void Deselect();
    /// Repaints after a change of `Value`.
    void Adjust();
};
