/// @file
/// The keyboard of a window with controls: which part has it, and what each key does there.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <utility>

#include "part_window.h"

/// Knows which part has the keyboard, shows that, and turns keys into calls of a `Part_Window`.
///
/// - Tab, Shift+Tab: the next or the previous control that keys can work, in the order of the window, all
///   round
/// - arrows, Home, End, Page Up, Page Down: change a value, or go to another part of the control and choose
///   it, by `Part_Use`; passive parts are passed over
/// - Space: presses the part
/// - Enter: presses the part when it is for pressing, else the default button, else an item that is chosen
/// - Escape: presses the cancel button
/// - Ctrl+Tab, Ctrl+Page Down; Ctrl+Shift+Tab, Ctrl+Page Up: the next or the previous tab, all round, of the
///   set that has the keyboard, else of the first one that keys can work
/// - "+" and "-": open and close a branch
/// - characters: in lists and trees, the next item whose name begins with what was typed without a pause of a
///   second; the same letter again goes on to the next item
/// - Alt and a letter: presses a button, a check box or a radio button that has it, gives the keyboard to any
///   other control, and for a label to the next control that keys can work
///
/// A ring around the part (`Set_Ring`) and the caret of a field show where the keyboard is. The ring shows
/// once a key has been used, and goes with the next press of the mouse.
///
/// A control that is hidden, disabled or passive for a while gets the keyboard back afterwards, when it has
/// gone nowhere else. After one that was removed, Tab goes on where it was. Whatever is called may change the
/// controls, and a key may even destroy the window and this object with it.
class Part_Keys {
  public:
    /// @param served   has to outlive this object
    /// @param repaint  has a rectangle of the window painted anew, in logical pixels: what the ring covered,
    ///                 after it has gone on. It must not change the controls
    Part_Keys(Part_Window& served, std::function<void(const RECT&)> repaint);
    ~Part_Keys();
    Part_Keys(const Part_Keys&) = delete;
    Part_Keys& operator=(const Part_Keys&) = delete;

    /// Called with the part that has got the keyboard, before it is pressed; no control, when none has it any
    /// more, be it for a while. It must not change the controls.
    void Set_On_Focus(std::function<void(Part_Place)> tell) { on_focus = std::move(tell); }

    /// Whether it is a key that leads to the part that is told of just now: Tab, or a letter with Alt.
    bool Is_Led_By_Key() const { return led; }

    /// The part that has the keyboard; no control, when none has.
    Part_Place Focus() const;
    /// Gives a part the keyboard and brings it into view, or takes the keyboard away with no control. `Whole`
    /// of a control that has parts means the part that has the keyboard already, else the one that keys begin
    /// with; then nothing is scrolled.
    /// @return false for a part that cannot have it: of a control that is hidden, disabled or passive, or
    ///         that keys do not work
    bool Set_Focus(Part_Place place);

    /// Whether keys can work a control now.
    bool Can_Have(int control) const;

    /// To be called when the window gets the keyboard of the system and when it loses it: caret and ring show
    /// while it has it.
    void Set_Active(bool now_active);

    /// Takes a key.
    /// @param code      as `galdren::Typed_Key` gives it; Escape is 27
    /// @param repeated  the key is held down: it moves and changes values, but presses no button again
    /// @return whether it meant anything; true when it destroyed the window
    bool Take(int code, bool repeated = false);

    /// The next control, or the previous one.
    /// @return false when there is no other to go to
    bool Go_On(bool back);

    /// The button that Enter presses wherever the keyboard is; null for none. One that is removed is never
    /// touched.
    void Set_Default(const Tools* button) { default_button = button; }
    /// The same for Escape.
    void Set_Cancel(const Tools* button) { cancel_button = button; }

    /// The ring goes until the next key, for the mouse is used.
    void Hide_Ring();
    /// The ring may show, for a key was used that this object has not taken.
    void Show_Ring();

    /// Puts ring and caret where the part is now; to be called after every change of the controls.
    void Update();

  private:
    void Place_Caret(int control);
    void Place_Ring(Part_Place place);
    void Tell_Focus(Part_Place place);
    bool Go_To(Part_Place place, bool into_view);
    bool Lead_To(int control);
    void Remember(Part_Place place);
    bool Act(int code);
    Part_Use Use_Of(Part_Place place) const;
    bool Press(Part_Place place);
    bool Press_Button(const Tools* button);
    bool Enter(Part_Place place);
    bool Move(Part_Place place, Part_Move move);
    bool Choose(Part_Place place);
    bool Type(Part_Place place, char character);
    bool Search(Part_Place place, char character);
    bool Go_To_Mnemonic(int letter);
    int Behind(int control) const;
    int Tab_Set() const;
    bool Turn_Tab(bool back);

    Part_Window& window;
    std::function<void(const RECT&)> repaint;
    std::function<void(Part_Place)> on_focus;
    std::shared_ptr<const bool> life = std::make_shared<bool>();  // ends with this object

    unsigned serial = 0;  // of the control that has the keyboard
    int number = -1;      // that it had when it was seen last; -1 while none has
    int part = Whole;     // of it

    /// What `on_focus` was told last, with the serial number of the control in place of its number; 0 for
    /// none.
    Part_Place told{0, Whole};

    bool led = false;                       // see `Is_Led_By_Key`
    bool repeats = false;                   // the key that is taken; see `Take`
    bool active = false;                    // see `Set_Active`
    bool uses_keys = false;                 // since the mouse was pressed
    std::optional<RECT> ring;               // that is shown
    int ring_line = 1;                      // thickness of its lines
    HWND ring_window = nullptr;             // where
    std::optional<unsigned> caret;          // serial number of the control that shows it
    std::string typed;                      // of the name of an item
    DWORD typed_at = 0;                     // when, in milliseconds
    const Tools* default_button = nullptr;  // compared, never touched
    const Tools* cancel_button = nullptr;   // the same
};
