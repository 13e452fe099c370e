/// @file
/// Selectors: one item out of several, between two arrows.
#pragma once

#include "box.h"
#include "button.h"

/// Bits of `Flag` that selectors add.
/// @{
constexpr unsigned long SELECTOR_NO_FRAME = 0x8;  ///< `Draw` leaves out frame and body
/// @}

/// The fields of a selector, all zero at first.
struct Selector_Fields {
    short Current{};       ///< index of the item that is shown; one that does not exist becomes 0
    short Arrow_Size{};    ///< length of the zone at each end that is an arrow; 0 has `Init` work it out
    short Value_Width{};   ///< width of the value area beside the caption; 0 means as the caption leaves room
    Buttons** Item{};      ///< the items, ended by null; owned, and shared by copies
    short Nb_Item{};       ///< number of items, counted by `Grow` and `Init`
    short Hover{};         ///< 0 unknown, 1 painted highlighted, 2 painted normal
    short Last_Current{};  ///< `Current` at the last `Init`, `Draw` or `Adjust`
    Boxs Frame;            ///< the framed background
    Boxs Value_Box;        ///< place of arrows and item; never painted
};

/// Shows one of its items in a framed box, pressed down, between two arrows that step to its neighbours. It
/// is a row, or with `Flag` 0x4 a column, whose lower arrow steps forwards. Both ends lead to each other.
///
/// The application sets the number of items with `Grow` and writes each item's `Name`, then calls `Init`. A
/// press on an arrow steps `Current` at once and is shown by the `Adjust` that the application calls when
/// `Select` answers 1. Stepping skips items whose own `Flag` has 0x2.
class GALDREN_TOOLS_API Selects : public Tools, public Selector_Fields {
  public:
    /// Every field zero.
    Selects();
    /// Copies every field; the items are shared with the source until one of the two changes their number.
    Selects(const Selects& other);
    /// Lets go of what this selector owns and copies every field.
    Selects& operator=(const Selects& other);
    /// Lets go of the items, then of what every control owns.
    ~Selects();

    /// Sets the number of items; those that stay keep everything. `Init` has to follow.
    /// @param count  at most 32767; a negative count frees the array itself
    /// @param flags  style bits of new items; 0 takes those of the selector
    /// @return 1; 0 when the memory cannot be had, which is reported at level 1
    int Grow(int count, int flags);
    /// Lays caption, arrows and items out and binds all to a window.
    /// @param window  null keeps the window of the last `Init`; without any it is reported at level 11
    void Init(HWND window);
    /// Paints the whole selector.
    void Draw();
    /// Follows the pointer; an arrow that is pressed steps `Current`.
    /// @param event  see `Select_Event`
    /// @return 1 while the pointer is inside; 0 outside and for a passive selector
    int Select(int event);
    /// Index of the item that is shown; -1 for a passive selector and one without size.
    int Read();
    /// Steps by the wheel, back when positive, and repaints. A step beyond an end leads to the other end,
    /// however far it would go.
    /// @return the new `Current`; 0 without items
    int Scroll(short amount);
    /// Takes the highlight away.
    void Deselect();
    /// Repaints after `Current` changed.
    void Adjust();
};
