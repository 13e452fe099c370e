/// @file
/// The images of the colour editors: gradients in the troughs, one colour in the swatch.
#pragma once

#include "widgets/box.h"
#include "widgets/valuator.h"

namespace galdren {

/// What a trough shows from its left to its right end.
enum class Gradient {
    Rainbow,  ///< every hue
    Black_To_Red,
    Black_To_Green,
    Black_To_Blue,
    Black_To_White,
    White_To_Red
};

/// Gives a trough an image with a gradient for both of its looks. One that it has is painted over when it has
/// the right size and no copy shares it. Without size or memory there is none. `Init` has to follow.
void Show_Gradient(Valuators& trough, Gradient gradient);

/// Takes the images of a trough away. `Init` has to follow.
void Hide_Gradient(Valuators& trough);

/// Gives a swatch an image of one colour. `Init` has to follow.
/// @param value  the colour in the GDI form, here and below
/// @param anew   whether an image of its size that it has already is replaced
void Show_Color(Boxs& swatch, unsigned long value, bool anew);

/// Takes the image of a swatch away. `Init` has to follow.
void Hide_Color(Boxs& swatch);

/// Changes the colour of a swatch's image.
/// @return whether the swatch has to be painted
bool Change_Color(Boxs& swatch, unsigned long value);

/// Changes the colour of a swatch and paints it when it is another one than before.
void Update_Swatch(Boxs& swatch, unsigned long value);

}  // namespace galdren
