/// @file
/// A window with controls, as keys, screen readers and tests see it. Hosts and dialogs are such windows.
#pragma once

#include "part.h"

/// A part of a window.
struct Part_Place {
    int control = -1;  ///< number of the control in its window; -1 for none
    int part = Whole;  ///< number of the part in the control

    /// Whether both are the same part.
    bool operator==(const Part_Place&) const = default;
};

/// A control of a window.
struct Part_Owner {
    Tools* control = nullptr;            ///< where its fields are
    const Class_Parts* parts = nullptr;  ///< how its class is described
    const char* description = nullptr;   ///< name that the application gave it; null without one
    int mnemonic = 0;                    ///< capital letter or digit that goes with Alt; 0 without one
    unsigned serial = 0;                 ///< from 1 on, of this control alone, as long as the window lives
    bool shown = true;                   ///< it is painted
    bool enabled = true;                 ///< it takes events
    bool takes_focus = true;             ///< it can have the keyboard, if its parts are worked by keys
};

/// What has become of a part.
enum class Part_Change { Focus, Value, State, Chosen, Shown, Hidden, Text_Selection };

/// The controls of a window, in the order of the Tab key. For the thread that runs the window; a call may
/// change or remove controls, so numbers are asked for anew after it.
class Part_Window {
  public:
    /// The window; null when it is gone.
    virtual HWND Window() const = 0;

    /// Number of controls, hidden ones counted.
    virtual int Count() const = 0;
    /// A control by its number, which has to exist.
    virtual Part_Owner Owner(int number) const = 0;
    /// Number of the control with a serial number; -1 when it has been removed.
    virtual int Number_Of(unsigned serial) const = 0;
    /// The topmost control that is shown at a place, in logical pixels; -1 when there is none.
    virtual int Control_At(POINT place) const = 0;

    /// The part that has the keyboard; no control, when none has.
    virtual Part_Place Focus() const = 0;
    /// Gives a part the keyboard, or takes it away with no control. A part that is named by its number is
    /// brought into view.
    /// @return false for a part that cannot have it
    virtual bool Set_Focus(Part_Place place) = 0;

    /// Does what a click on the middle of the part does, after bringing it into view.
    /// @return false when it cannot be pressed
    virtual bool Press(Part_Place place) = 0;
    /// Changes the part by a key, and tells the application; see `Class_Parts::Step`.
    virtual bool Step(Part_Place place, Part_Move move) = 0;
    /// Gives the part a value, and tells the application; see `Class_Parts::Set_Value`.
    virtual bool Set_Value(Part_Place place, const char* text) = 0;

  protected:
    ~Part_Window() = default;
};
