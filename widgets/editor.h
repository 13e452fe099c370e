/// @file
/// What the hue editor and the colour editor share: colours as channels, the troughs with their gradients,
/// the swatch, and where these stand.
#pragma once

#include <array>
#include <span>

#include "tools/base.h"
#include "widgets/box.h"
#include "widgets/valuator.h"

namespace galdren {

/// Channels of a colour, each from 0 to 1.
using Channels = std::array<float, 3>;

/// Whether they are red, green and blue, or hue, lightness and saturation.
enum class Space { RGB, HLS };

/// Channels of a colour in the GDI form. Red, green and blue are each in the middle of their step, so that
/// truncation brings them back.
Channels Channels_Of(unsigned long value, Space space);

/// The colour in the GDI form, with alpha 255. What is out of range counts as its nearer end, NaN as 0.
unsigned long Color_Of(Channels channels, Space space);

/// What a trough shows from its left to its right end, in the pixel form.
struct Gradient {
    unsigned long ground;
    unsigned long rising;   ///< has 1 in the bytes that grow from 0
    unsigned long falling;  ///< has 1 in the bytes that fall to 0
};
constexpr Gradient Rainbow{};  ///< every hue, in place of a sum
constexpr Gradient Black_To_Red{0xFF000000, 0x010000, 0};
constexpr Gradient Black_To_Green{0xFF000000, 0x000100, 0};
constexpr Gradient Black_To_Blue{0xFF000000, 0x000001, 0};
constexpr Gradient Black_To_White{0xFF000000, 0x010101, 0};
constexpr Gradient White_To_Red{0xFFFF0000, 0, 0x000101};

/// Between the parts of an editor.
inline int Part_Gap(const Tools& editor) { return Scaled(editor, 2); }

/// Width of a swatch.
int Swatch_Width(const Tools& editor);

/// Binds an editor to its window and gives it colour and font.
void Bind_Editor(Tools& editor, HWND window);

/// What frame and swatch leave for the troughs inside a frame of this width. Its width may be negative.
Area Room_In_Frame(const Tools& editor, int border);

/// Place of the swatch, to the right of `room`.
Area Swatch_Area(const Tools& editor, const Area& room);

/// Gives a part place, frame, colour and clip of its editor.
void Dress_Part(Tools& part, const Tools& editor, const Area& place, int border);

/// Places a trough and initialises it, with an image of a gradient for both of its looks, or without images.
/// The image that it has is painted over when it has the right size and no copy shares it.
void Init_Trough(Valuators& trough, const Tools& editor, const Area& place, int border,
                 const Gradient& gradient, bool with_image);

/// Places a swatch and initialises it, with an image of one colour or without. An image of its size that it
/// has stays unless the height of the editor has changed.
/// @param value  the colour in the GDI form, here and below
void Init_Swatch(Boxs& swatch, const Tools& editor, const Area& place, int border, unsigned long value,
                 bool with_image);

/// Changes the colour of a swatch's image.
/// @return whether the swatch has to be painted
bool Change_Color(Boxs& swatch, unsigned long value);

/// Changes the colour of a swatch and paints it when it is another one than before.
void Update_Swatch(Boxs& swatch, unsigned long value);

/// The troughs of an editor, in the order of the channels, of which there may be more.
using Troughs = std::span<Valuators* const>;

/// `value` with the channel that is under the pointer.
unsigned long Read_Troughs(Troughs troughs, unsigned long value, Space space);

/// Changes the channel under the pointer by `n` steps.
/// @return whether the pointer is on one
bool Scroll_Troughs(Troughs troughs, unsigned long& value, Space space, int n);

/// Moves the thumbs to a colour where they stand elsewhere.
void Move_Thumbs(Troughs troughs, unsigned long value, Space space);

}  // namespace galdren
