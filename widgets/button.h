/// @file
/// Push buttons with optional lamps.
#pragma once

#include "../tools/tools.h"

/// Bits of `Flag` that buttons add.
/// @{
constexpr unsigned long BUTTON_LAMP = 0x100000;  ///< the button has a lamp; the caption moves 8 pixels right
constexpr unsigned long BUTTON_LAMP_COLORS = 0x200000;  ///< the lamp knows several colours
/// @}

/// The fields of a button, all zero at first.
struct Button_Fields {
    short Value{};                 ///< 0 up, any other value down; set by the application
    short Lamp{};                  ///< 0 off; with `BUTTON_LAMP_COLORS` 1 green, 2 blue, 3 yellow, else red;
                                   ///< without, any other value is yellow
    short Shown{};                 ///< set by the list that holds the button; not used by the button
    short Hover{};                 ///< 0 not painted since the last full draw, 1 highlighted, 2 plain
    unsigned long* Normal_Up{};    ///< body when plain and up; not owned through this field
    unsigned long* Normal_Down{};  ///< body when plain and down; not owned through this field
    unsigned long* Select_Up{};    ///< body when highlighted and up; not owned through this field
    unsigned long* Select_Down{};  ///< body when highlighted and down; not owned through this field
    unsigned long* Own_Normal_Up{};    ///< generated body; owned
    unsigned long* Own_Normal_Down{};  ///< generated body; owned
    unsigned long* Own_Select_Up{};    ///< generated body; owned
    unsigned long* Own_Select_Down{};  ///< generated body; owned
    short Last_Value{};                ///< `Value` at the last `Init`, `Draw` or `Adjust`
};

/// A push button: frame, shaded body, caption and lamp.
///
/// The button never changes its own value: on a click the application sets `Value` (and `Lamp`) and calls
/// `Adjust`. A button whose colour is black becomes grey (170, 170, 170) at `Init`.
class GALDREN_TOOLS_API Buttons : public Tools, public Button_Fields {
  public:
    /// Every field zero.
    Buttons();
    /// Copies every field; what the source owns is shared.
    Buttons(const Buttons& other);
    /// Lets go of what this button owns and copies every field.
    Buttons& operator=(const Buttons& other);
    /// Lets go of the bodies, then of what every control owns.
    ~Buttons();

    /// Binds the button to a window and builds region, hit rectangle, font and bodies, as far as they
    /// changed.
    /// @param window  null keeps the window of the last `Init`; without any it is reported at level 11
    void Init(HWND window);
    /// Paints the whole button, highlighted when the pointer is inside.
    void Draw();
    /// Highlights the button when the pointer enters and paints it plain when it leaves.
    /// @param event  see `Select_Event`
    /// @return 1 while the pointer is inside; 0 outside and for a passive button
    int Select(int event);
    /// Takes the highlight away.
    void Deselect();
    /// Repaints after `Value` or `Lamp` changed; without a lamp only when `Value` did change.
    void Adjust();
    /// The button's value.
    int Read();
};
