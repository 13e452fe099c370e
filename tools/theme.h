/// @file
/// What is fixed in the look of controls: colours, and how strong shades are.
#pragma once

#include "api.h"

/// A look. A new one is the look of controls without a theme; change what is to be otherwise. Colours are in
/// the GDI form: red in the low byte, then green and blue.
struct Theme {
    /// @name Ink
    /// @{
    unsigned long Caption = 0x000000;           ///< captions, rows of lists and trees, values
    unsigned long Caption_Down = 0xFFFFFF;      ///< captions of what is down, and with `FLAG_TEXT_WHITE`
    unsigned long Caption_Outline = 0xE64040;   ///< outlines of one pixel, and captions inside of them
    unsigned long Caption_Barred = 0x6E6E6E;    ///< directories that cannot be entered
    unsigned long Caption_Changed = 0xFF0000;   ///< directories that are chosen
    unsigned long Caption_Selected = 0xFFFFFF;  ///< selected text
    unsigned long Caption_Hint = 0x606060;      ///< what stands in an empty field
    unsigned long Codes[6] = {0xFF0000, 0x000000, 0xFFFFFF,
                              0x0000FF, 0x00FFFF, 0x00A000};  ///< of text lines, by their colour codes
    /// @}

    /// @name Bodies
    /// @{
    static constexpr unsigned long Own_Color = 0xFF000000;  ///< for `Body`: each control has its own
    unsigned long Body = Own_Color;                         ///< of every control
    unsigned long Highlight = 0x6464E6;                     ///< under the pointer
    unsigned long Highlight_Down = 0x3C3CBE;                ///< the same, when it is down
    unsigned long Highlight_Back = 0x6464D2;                ///< tabs behind the one in front
    unsigned long Selection = 0x8C4614;                     ///< behind selected text
    /// @}

    /// @name Edges and marks
    /// @{
    unsigned long Rim = 0x000000;          ///< around frames, the dark side of arrows, tabs and thumbs
    unsigned long Edge_Bright = 0xFFFFFF;  ///< the brightest edge of tabs
    unsigned long Edge_Light = 0xD8D8D8;   ///< the lit side of arrows and tabs
    unsigned long Edge_Dark = 0x6E6E6E;    ///< their side in the shade
    unsigned long Thumb = 0x6E6E6E;        ///< thumbs of sliders and valuators
    unsigned long Thumb_Light = 0xD8D8D8;  ///< their lit side
    unsigned long Blank = 0xAAAAAA;        ///< lamps that are off, and what lies open between parts
    unsigned long Mark = 0x00FFFF;         ///< lamps that are on, check marks, carets
    unsigned long Lamps[3] = {0x00FF00, 0xFF0000, 0x0000FF};  ///< lamps 1, 2 and beyond
    /// @}

    unsigned long Window = 0xAAAAAA;  ///< behind the controls, in the window of a host

    /// @name Shades
    /// @{
    short Darker_Down = 40;  ///< what bodies that are down lose of each channel
    short Ramp = 100;        ///< strength of the shading of bodies, in percent
    short Relief = 80;       ///< how far the shades of frames are from the colour of their control

    /// The least contrast of ink to what it stands on, in hundredths: 450 is 4.5 to 1. Bodies are moved away
    /// from their captions until they have it, ramp included, and labels away from the window. 0 leaves all
    /// colours as they are.
    short Least_Contrast = 0;
    /// @}
};

/// A dark look: light captions of at least 4.5 to 1 on dark bodies, which keep their hue.
GALDREN_TOOLS_API Theme Dark_Theme();

/// The colours that the user has chosen for the system, as they are now; with high contrast those of that.
/// Captions have at least 4.5 to 1.
GALDREN_TOOLS_API Theme System_Theme();

/// A copy of a theme that lasts as long as the process, for `Tools_Fields::Look`; the same one for all equal
/// themes. For every thread.
/// @return null, the look without a theme, when there is no memory, which is reported at level 1
GALDREN_TOOLS_API const Theme* Keep_Theme(const Theme& theme);

/// Contrast of two colours in hundredths, from 100 to 2100: 450 is the least that small text is readable
/// with.
GALDREN_TOOLS_API int Contrast_Of(unsigned long color, unsigned long other);
