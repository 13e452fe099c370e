/// @file
/// Parts: what the controls of a window are made of, for keys, screen readers and tests.
///
/// A part is a thing that a person can point at, name or change: a button, an item of a list, a channel of a
/// colour editor, a row of a tree. Each class of controls describes its parts once (`Class_Parts`), and
/// answers for the one that is asked for: a list of 20,000 items makes no 20,000 parts.
#pragma once

#include <windows.h>

#include <functional>
#include <string>

#include "../tools/tools.h"
#include "../widgets/text.h"

/// What a part is.
enum class Part_Role {
    Pane,          ///< a surface without a use of its own: a box
    Text,          ///< text that is only read: a label
    Button,        ///< does something when it is pressed
    Check_Box,     ///< is on or off
    Radio_Button,  ///< one of several is on
    Scroll_Bar,    ///< shows which part of something is in view
    Slider,        ///< sets a value of a range
    Selector,      ///< steps through items, and shows one of them
    Field,         ///< an entry field
    Console,       ///< lines of output, and below them perhaps a line that is typed
    Group,         ///< holds parts that belong together
    List,          ///< holds items
    List_Item,     ///< an item of a list
    Tab_Set,       ///< holds tabs
    Tab,           ///< brings a page to the front
    Tree,          ///< holds rows
    Tree_Row       ///< a row of a tree
};

/// Bits of `Part::state`.
enum Part_State : unsigned {
    PART_PASSIVE = 1,       ///< it takes no part in anything now
    PART_CHECKED = 2,       ///< a check box or radio button that is on
    PART_PRESSED = 4,       ///< a button that is down
    PART_CHOSEN = 8,        ///< the item, tab or row that is marked
    PART_OUT_OF_VIEW = 16,  ///< has to be brought into view before it can be pressed; `area` is empty
    PART_READ_ONLY = 32,    ///< shows a value that cannot be changed
    PART_PROTECTED = 64,    ///< what is typed is not shown
    PART_OPEN = 128,        ///< a branch of a tree whose rows show
    PART_CLOSED = 256       ///< a branch of a tree whose rows do not show
};

/// How the keys work a part.
enum class Part_Use {
    None,    ///< not at all
    Press,   ///< Space and Enter press it
    Toggle,  ///< Space presses it; arrows go to its neighbours
    Choose,  ///< coming to it by an arrow presses it
    Step,    ///< arrows change its value
    Type     ///< it takes what is typed
};

/// A part as it is now.
struct Part {
    Part_Role role = Part_Role::Pane;  ///< what it is
    Part_Use use = Part_Use::None;     ///< how the keys work it
    unsigned state = 0;                ///< see `Part_State`
    RECT area{};             ///< where it is pressed, like `Tools::Rect`: logical pixels, `top` the lower y
    std::string name;        ///< what it is called; empty when it has no caption
    std::string value;       ///< what it holds, as it is shown; empty without a value
    std::string selected;    ///< what of the value is selected; empty for a value that is not shown
    int caret = -1;          ///< byte index in the value of the character behind the caret; -1 without one
    bool has_range = false;  ///< `least` to `most` count
    double least = 0;        ///< smallest value of its range
    double most = 0;         ///< largest value of its range
    double number = 0;       ///< its value in that range
    int level = 0;           ///< of a row of a tree, the root being 1; else 0
};

/// Where a key takes one.
enum class Part_Move { Left, Right, Up, Down, Page_Up, Page_Down, Home, End };

/// The number of a control as a whole, where parts of it are counted from 0.
constexpr int Whole = -1;

/// Describes the controls of one class. Parts of a control have the numbers from 0 on; `Whole` is the control
/// itself, which is the only part of one that is a single thing. A number that does not exist is treated
/// like `Whole`. For the thread that runs the window.
class Class_Parts {
  public:
    /// Name of the class.
    virtual const char* Name() const = 0;

    /// Number of parts inside a control; 0 for a single thing.
    virtual int Count(const Tools& control) const;

    /// A part as it is now.
    virtual Part Describe(const Tools& control, int part) const = 0;

    /// The part at a place, in logical pixels; `Whole` where there is none.
    virtual int At(const Tools& control, POINT place) const;

    /// The part that the keys begin with: the one that is chosen, else the first; `Whole` without parts.
    virtual int First(const Tools& control) const;

    /// Where a key leads from a part, passive ones counted; the same part where it leads nowhere.
    virtual int Next(const Tools& control, int part, Part_Move move) const;

    /// Scrolls a part into view.
    virtual void Bring_Into_View(Tools& control, int part) const;

    /// Changes a part by a key, as the wheel would: steps a value, opens or closes a branch, scrolls lines.
    /// It does not matter where the pointer is.
    /// @return whether the key means anything to the part
    virtual bool Step(Tools& control, int part, Part_Move move) const;

    /// Gives a part a value that is written as text, as far as it is one of its range.
    /// @return false, with nothing changed, when it is not, and for a part without a value
    virtual bool Set_Value(Tools& control, int part, const char* text) const;

    /// Does what an application does when the left button has pressed a control or drags it, and its `Select`
    /// has answered: stores what `Read` answers and shows it with `Adjust`. The pointer is where it was.
    /// @param event  kind of the event, `EVENT_PRESS` or `EVENT_DRAG`
    /// @return whether there was anything to store
    virtual bool Store(Tools& control, int event) const;

    /// Shows the caret of a control that takes what is typed, or takes it away; nothing for any other. The
    /// control need not be initialised.
    virtual void Show_Caret(Tools& control, Text_Caret how) const;

    /// Calls `visit` for every control that this one is made of, and that paints.
    virtual void For_Members(Tools& control, const std::function<void(Tools&)>& visit) const;

  protected:
    ~Class_Parts() = default;
    /// How many parts a Page key passes.
    virtual int Page(const Tools& control) const;
};
