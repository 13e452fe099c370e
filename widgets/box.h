/// @file
/// Boxes: framed, shaded rectangles that light up under the pointer.
#pragma once

#include "../tools/tools.h"

/// The fields of a box, all zero at first.
struct Box_Fields {
    short Hover{};                      ///< 0 unknown, 1 painted highlighted, 2 painted normal
    void* Reserved_1{};                 ///< copied with the box; not used
    void* Reserved_2{};                 ///< copied with the box; not used
    unsigned long* Own_Graph_Normal{};  ///< shading generated from `Color`; shared by equal controls
    unsigned long* Own_Graph_Select{};  ///< shading generated from the highlight colour; shared likewise
};

/// A framed rectangle with an optional caption: panel, caption plate, backdrop, and the body of compound
/// controls. A box whose colour is black becomes grey (170, 170, 170) at `Init`.
class GALDREN_TOOLS_API Boxs : public Tools, public Box_Fields {
  public:
    /// Every field zero.
    Boxs();
    /// Copies every field; what the source owns is shared.
    Boxs(const Boxs& other);
    /// Lets go of what this box owns and copies every field.
    Boxs& operator=(const Boxs& other);
    /// Lets go of the shading, then of what every control owns.
    ~Boxs();

    /// Binds the box to a window and builds region, hit rectangle, font and shading, as far as they changed.
    /// @param window  null keeps the window of the last `Init`; without any it is reported at level 11
    void Init(HWND window);
    /// Paints the whole box, highlighted when the pointer is inside.
    void Draw();
    /// Highlights the box when the pointer enters and paints it normal when it leaves.
    /// @param event  see `Select_Event`
    /// @return 1 while the pointer is inside; 0 outside and for a passive box
    int Select(int event);
    /// A box holds no value.
    /// @return 0
    int Read();
    /// Paints a highlighted box normal. `Hover` stays, so the next `Select` outside paints once more.
    void Deselect();
    /// Forgets the highlight and looks for the pointer again.
    void Adjust();
};
