/// @file
/// The images of a control: the application's, those that are generated, and which of them it is painted
/// with.
#pragma once

#include "tools/fields.h"

namespace galdren {

/// Empties `body` when it is an image that the application has withdrawn since an `Init` took it: it may be
/// freed by now.
void Forget_If_Withdrawn(const Tools_Fields& control, unsigned long*& body);

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

/// Notes the application's images as those that this `Init` found, and at which size and scale those that are
/// painted were given.
void Note_Images(Tools_Fields& control);

/// What `Take_Images` found.
struct Images {
    bool normal_taken;   ///< `Cur_Graph_Normal` became `Graph_Normal`
    bool select_taken;   ///< `Cur_Graph_Select` became `Graph_Select`
    bool normal_needed;  ///< shading is to be generated from `Color`
    bool select_needed;  ///< shading is to be generated from the highlight colour
};

/// Takes the application's images where they changed, or the size did, and tells what is to be generated.
/// An image that the application withdrew is not used any more. Notes size and images.
Images Take_Images(Tools_Fields& control);

/// Chooses the bodies that go with the control's value, up or down.
template <class Control>
void Choose_Bodies(Control& control) {
    control.Cur_Graph_Normal = control.Value ? control.Normal_Down : control.Normal_Up;
    control.Cur_Graph_Select = control.Value ? control.Select_Down : control.Select_Up;
}

}  // namespace galdren
