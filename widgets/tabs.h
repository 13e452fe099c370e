/// @file
/// Tab sets: a row of tabs across the top of a page.
#pragma once

#include "box.h"
#include "tabitem.h"

/// The fields of a tab set, all zero at first.
struct Tab_Set_Fields {
    short Value{};       ///< index of the front tab; any other value: none is in front
    short Reserved{};    ///< copied with the set; not used
    short Tab_Height{};  ///< height of tabs and page together, for a `Page(0)`
    TabItems** Item{};   ///< the tabs, ended by null; owned, and shared by copies
    short Last_Value{};  ///< `Value` at the last `Init`, `Draw` or `Adjust`
    short Count{};       ///< number of tabs, counted by `Init`
    short First_X{};     ///< left edge of the first tab
    short Tab_Width{};   ///< width of each tab but the last, which takes what is left
    short Slant{};       ///< slant of every tab, and what neighbours overlap by: a quarter of the height
    Boxs Box;            ///< a frame around the row, ready to be painted; the set itself does not paint it
};

/// A row of tabs of equal width whose slanted ends overlap, with the front tab on top, and the page below.
///
/// The application sets the number of tabs with `Grow`, writes each tab's `Name` and perhaps `Color`, and
/// calls `Init`. After a press, `Read` tells which tab is under the pointer; to bring it to the front, the
/// application writes `Value` and calls `Adjust`.
class Tabs : public Tools, public Tab_Set_Fields {
  public:
    /// Every field zero.
    GALDREN_TOOLS_API Tabs();
    /// Copies every field; the tabs are shared with the source until one of the two changes their number.
    GALDREN_TOOLS_API Tabs(const Tabs& other);
    /// Lets go of what this set owns and copies every field.
    GALDREN_TOOLS_API Tabs& operator=(const Tabs& other);
    /// Lets go of the tabs, then of what every control owns.
    GALDREN_TOOLS_API ~Tabs();

    /// Sets the number of tabs; those that stay keep everything. `Init` has to follow.
    /// @param n      at most 32767; a negative number changes nothing and is reported at level 11
    /// @param flags  style bits of new tabs
    /// @return 1; 0 for a negative number, or when the memory cannot be had, which is reported at level 1
    GALDREN_TOOLS_API int Grow(int n, int flags);
    /// Lays the tabs out and binds them to a window.
    /// @param window  null keeps the window of the last `Init`; without any it is reported at level 11
    GALDREN_TOOLS_API void Init(HWND window);
    /// Paints the tabs, the front tab last. The page is left to `Page`.
    GALDREN_TOOLS_API void Draw();
    /// Follows the pointer with the tabs.
    /// @param event  see `Select_Event`; there is no mere hit test
    /// @return 1 when the pointer is on a tab
    GALDREN_TOOLS_API int Select(int event);
    /// Paints the tabs plain.
    GALDREN_TOOLS_API void Deselect();
    /// Brings the tab `Value` to the front.
    GALDREN_TOOLS_API void Adjust();
    /// Index of the tab under the pointer, passive ones excepted; the lower one where two overlap, -1 when
    /// there is none.
    GALDREN_TOOLS_API int Read();
    /// Paints the page below the tabs in the colour of the front tab; to be called before `Draw`.
    /// @param height  height of tabs and page together; 0 means `Tab_Height`
    GALDREN_TOOLS_API void Page(int height);

  private:
    void Update();
};
