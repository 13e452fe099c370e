/// @file
/// Check lists: labelled check boxes in columns.
#pragma once

#include "box.h"
#include "button.h"

/// Bits of `Flag` that check lists add, or read in a way of their own.
/// @{
constexpr unsigned long CHECKLIST_ONE_COLUMN = 0x4;      ///< all items in one column, whether they fit or not
constexpr unsigned long CHECKLIST_NO_TITLE_ROW = 0x100;  ///< no height is kept free for the name
constexpr unsigned long CHECKLIST_NAME_LEFT = 0x2000;    ///< the columns start to the right of the name
constexpr unsigned long CHECKLIST_SINGLE = 0x40000000;   ///< one item is chosen, and `Value` is its index
/// @}

/// The fields of a check list, all zero at first.
struct Check_List_Fields {
    const char* const* List{};       ///< labels, ended by null or an empty text; read by `Init` only
    const unsigned char* Enabled{};  ///< a byte for each item, 0 for a disabled one; null enables all; read
                                     ///< by `Init` only. `Read` does not look at it.
    short Line_Height{};             ///< height of a row, without its sign; 0 means the font's height + 2
    int Value{};                     ///< bit k is set while item k is checked; or the index of the chosen one
    short* Hover_List{};             ///< for each item 0 not seen yet, 1 highlighted, 2 plain; owned
    short Count{};                   ///< number of items, counted by `Init`
    int Last_Value{};                ///< `Value` at the last `Init` or `Adjust`
    int H_Width{};                   ///< width of the text "H"
    int Font_Height{};               ///< character height of the font
    Buttons* Check{};                ///< the check boxes; owned
    Buttons* Label{};                ///< the labels' names and hit rectangles; owned
    Boxs Box;                        ///< the framing box
};

/// Labelled check boxes in a framing box, in columns from top to bottom and from left to right.
///
/// The list does not change its own value: when `Select` answers 1 to a press, the application stores what
/// `Read` answers in `Value` and calls `Adjust`. Any number of items can be checked, of which the first 32
/// have a bit in `Value`; with `CHECKLIST_SINGLE` one item is chosen. `Flag` 0x10 leaves out the framing box,
/// and 0x20 makes the labels blue and every check box an outline, without its mark.
class GALDREN_TOOLS_API CheckLists : public Tools, public Check_List_Fields {
  public:
    /// Every field zero.
    CheckLists();
    /// Copies every field. The items are shared with the source until one of the two is initialised again.
    CheckLists(const CheckLists& other);
    /// Lets go of what this list owns and copies every field.
    CheckLists& operator=(const CheckLists& other);
    /// Lets go of the items, then of what every control owns.
    ~CheckLists();

    /// Binds the list to a window, counts the items and lays them out. To be called again after a change of
    /// place, size, `List` or `Enabled`. Without a `List`, which is reported at level 11, the control becomes
    /// hidden and passive.
    /// @param window  null keeps the window of the last `Init`; without any it is reported at level 11
    void Init(HWND window);
    /// Paints the whole list.
    void Draw();
    /// Highlights the item under the pointer.
    /// @param event  see `Select_Event`
    /// @return 1 when the pointer is on an item; in a hit test, when it is on the list
    int Select(int event);
    /// Takes the highlight away. `Hover_List` stays.
    void Deselect();
    /// Repaints the check boxes that changed with `Value`. An index that no item has is ignored.
    void Adjust();
    /// What `Value` would become by a press at the pointer: the mask with one bit inverted, or an index.
    /// @return -1 when the pointer is on no item, and when passive
    int Read();

  private:
    bool Crowded{};  // boxes and labels reach over other boxes
};
