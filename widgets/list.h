/// @file
/// Lists: buttons in a column or a row, with a scroll bar where they do not fit.
#pragma once

#include "box.h"
#include "button.h"
#include "slider.h"

/// The fields of a list, all zero at first.
struct List_Fields {
    short Current{};       ///< index of the item that is marked; any other value marks none
    short Item_Height{};   ///< height of an item in a column that scrolls, in pixels; 0 means `BUT_LIST`
    short Slider_Width{};  ///< thickness of the scroll bar in pixels; 0 means `CURSEUR`
    Buttons** Item{};      ///< the items, ended by null; owned, and shared by copies
    short Last_Current{};  ///< `Current` at the last `Draw` or `Adjust`
    short Nb_Item{};       ///< number of items, counted by `Grow` and `Init`
    short Item_X{};        ///< left edge of item 0; held within 16 bits in a list that is longer
    short Item_Y{};        ///< bottom edge of item 0; held within 16 bits in a list that is longer
    short Item_DX{};       ///< step to the next item in a row, else 0
    short Item_DY{};       ///< step to the next item in a column, else 0
    Boxs Frame;            ///< the framed background
    Sliders Scroll_Bar;    ///< the scroll bar; its `Width` is 0 when there is none
};

namespace galdren {
/// A run of items, by their indexes.
struct Item_Run {
    int first{};
    int end{};  ///< behind the last
    bool Has(int index) const { return index >= first && index < end; }
};

/// What a list keeps for itself.
struct List_State {
    int Origin{};          ///< coordinate of item 0 along the list, in the range of a list of any length
    Item_Run Shown_Items;  ///< those that the last `Update` showed, the only ones that take events
    unsigned Picture{};    ///< number of the kept picture of the inner area; 0 when there is none
    bool All_Left{};       ///< every item has been told that the pointer left
};
}  // namespace galdren

/// A list of push buttons in a framed box, in a row or, with `Flag` 0x4, in a column from the top down.
///
/// The application sets the number of items with `Grow` and writes each item's `Name`, then calls `Init`.
/// The list presses down the button of the current item. After a `Select` that answers 1, `Read` tells which
/// item is under the pointer; to mark it, the application writes `Current` and calls `Adjust`.
class Lists : public Tools, public List_Fields, private galdren::List_State {
  public:
    /// Every field zero.
    GALDREN_TOOLS_API Lists();
    /// Copies every field; the items are shared with the source until one of the two changes their number.
    GALDREN_TOOLS_API Lists(const Lists& other);
    /// Lets go of what this list owns and copies every field.
    GALDREN_TOOLS_API Lists& operator=(const Lists& other);
    /// Lets go of the items, then of what every control owns.
    GALDREN_TOOLS_API ~Lists();

    /// Sets the number of items; those that stay keep everything. `Init` has to follow.
    /// @param count  at most 32767; a negative count frees the array itself
    /// @param flags  style bits of new items; 0 takes those of the list
    /// @return 1; 0 when the memory cannot be had, which is reported at level 1
    GALDREN_TOOLS_API int Grow(int count, int flags);
    /// Lays the list out and binds frame, items and scroll bar to a window.
    /// @param window  null keeps the window of the last `Init`; without any it is reported at level 11
    GALDREN_TOOLS_API void Init(HWND window);
    /// Paints the whole list.
    GALDREN_TOOLS_API void Draw();
    /// Follows the pointer with scroll bar and items.
    /// @param event  see `Select_Event`
    /// @return 1 when the pointer is on an item; 0 on the scroll bar and elsewhere
    GALDREN_TOOLS_API int Select(int event);
    /// Index of the item under the pointer, passive ones excepted; -1 when there is none.
    GALDREN_TOOLS_API int Read();
    /// Scrolls by wheel steps, when the pointer is inside. A positive amount moves the items of a column up,
    /// towards the end of the list, and those of a row to the right, towards its beginning.
    GALDREN_TOOLS_API void Scroll(int amount);
    /// Takes the highlights away.
    GALDREN_TOOLS_API void Deselect();
    /// Moves the mark from `Last_Current` to `Current`.
    GALDREN_TOOLS_API void Adjust();

    /// Scrolls as little as it takes to have an item wholly in view, and repaints. Nothing happens for an
    /// index that no item has, and without a scroll bar.
    GALDREN_TOOLS_API void Bring_Into_View(int index);
    /// Where an item takes events, like `Rect`; empty for one that does not show, and for an index that no
    /// item has.
    GALDREN_TOOLS_API RECT Item_Place(int index) const;

  private:
    void Count();
    void Choose_Shown();
    void Update();
    void Follow_Bar();
    void Mark(int index, short value);
};
