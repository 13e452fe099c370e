/// @file
/// The keyboard of a window with controls: which part has it, and what each key does there.
#pragma once

#include <functional>
#include <string>

#include "part_window.h"

/// Knows which part has the keyboard, shows that, and turns keys into calls of a `Part_Window`.
///
/// | Key | What it does |
/// |---|---|
/// | Tab, Shift+Tab | the next or the previous control that keys can work, in the order of the window, all
/// round | | arrows, Home, End, Page Up, Page Down | by `Part_Use`: go to another part, choose it, or change
/// a value | | Space, Enter | press the part; Enter where nothing takes it, the default button | | Escape |
/// the cancel button | | Ctrl+Tab, Ctrl+Page Down; with Shift, Ctrl+Page Up | the next or the previous tab |
/// | + and - | open and close a branch |
/// | characters | in lists and trees: the next item whose name begins with what is typed |
/// | Alt and a letter | the control that has the letter |
///
/// A ring around the part (`Set_Ring`) and the caret of a field show where it is. The ring shows once a key
/// has been used, and goes with the next press of the mouse.
class Part_Keys {
  public:
    /// @param repaint  has a rectangle of the window painted anew, in logical pixels: what the ring covered
    Part_Keys(Part_Window& served, std::function<void(const RECT&)> repaint);
    ~Part_Keys();
    Part_Keys(const Part_Keys&) = delete;
    Part_Keys& operator=(const Part_Keys&) = delete;

    /// The part that has the keyboard; no control, when none has.
    Part_Place Focus() const;
    /// Gives a part the keyboard, or takes it away with no control. `Whole` of a control that has parts means
    /// the one that keys begin with. It is brought into view.
    /// @return false for a part that cannot have it: of a control that is hidden, disabled or passive, or
    /// that
    ///         keys do not work
    bool Set_Focus(Part_Place place);

    /// Whether keys can work a control now.
    bool Can_Have(int control) const;

    /// To be called when the window gets the keyboard of the system and when it loses it: caret and ring show
    /// while it has it.
    void Set_Active(bool active);

    /// Takes a key.
    /// @param code  as `Parse_Keyboard` gives it; Escape is 27
    /// @return whether it meant anything
    bool Take(int code);

    /// The next control, or the previous one.
    /// @return false when there is no other to go to
    bool Go_On(bool back);

    /// Buttons that Enter and Escape press wherever the keyboard is; null for none.
    void Set_Default(const Tools* button) { default_button = button; }
    void Set_Cancel(const Tools* button) { cancel_button = button; }

    /// The ring goes until the next key, for the mouse is used.
    void Hide_Ring();

    /// Puts ring and caret where the part is now; to be called after every change of the controls.
    void Update();
};
