/// @file
/// The directory browser.
#pragma once

#include "../widgets/box.h"
#include "../widgets/button.h"
#include "../widgets/slider.h"
#include "node.h"

/// The fields of a directory browser, all zero at first.
struct Dir_Tree_Fields {
    Boxs Frame;              ///< the frame around all, with the title
    Boxs Tree_Box;           ///< the sunken box around rows, bars and button
    Boxs List_Box;           ///< the area of the rows
    Buttons Refresh;         ///< the "Refresh" button
    Sliders Vertical_Bar;    ///< its value is the number of pixels that are above the area of the rows
    Sliders Horizontal_Bar;  ///< its value is the number of pixels that are to the left of it
    Dir_Tree* Current{};     ///< the chosen node; null when there is none
    Dir_Tree* Root{};        ///< the tree; null before `Set`; owned, and shared by copies
    Dir_Row* Row{};          ///< the rows, as they were painted last; owned, and shared by copies
    int Nb_Row{};            ///< number of rows
};

/// A browser for the drives of the computer and their directories, as a tree whose branches open and close.
///
/// The application calls `Init`, then `Set` with the directory to begin with, and asks `Read` for the one
/// that is chosen whenever `Select` answers 2. Directories whose names begin with a dot are not shown. The
/// control's `Name` stands in the title before the name of the chosen directory; its font is that of the
/// "Refresh" button.
class DirTrees : public Tools, public Dir_Tree_Fields {
  public:
    /// Every field zero.
    GALDREN_TOOLS_API DirTrees();
    /// Copies every field; the tree is shared with the source until one of the two changes it.
    GALDREN_TOOLS_API DirTrees(const DirTrees& other);
    /// Lets go of what this browser owns and copies every field.
    GALDREN_TOOLS_API DirTrees& operator=(const DirTrees& other);
    /// Lets go of the tree, then of what every control owns.
    GALDREN_TOOLS_API ~DirTrees();

    /// Lays the parts out and binds them to a window.
    /// @param window  null keeps the window of the last `Init`; without any it is reported at level 11
    GALDREN_TOOLS_API void Init(HWND window);
    /// Reads the drives and the directories on the way to `path`, in place of the tree before, and chooses
    /// that directory. `Draw` has to follow.
    /// @param path  a directory, of which the first 2048 bytes count; null reads the drives alone
    /// @return 1, also when there is no such directory
    GALDREN_TOOLS_API int Set(const char* path);
    /// Path of the chosen directory, with a trailing backslash, valid until it is chosen anew; null when
    /// there is none.
    GALDREN_TOOLS_API char* Read();
    /// Paints the whole browser.
    GALDREN_TOOLS_API void Draw();
    /// Follows the pointer; a press opens and closes branches, chooses directories, moves the bars and reads
    /// the open directories again.
    /// @param event  see `Select_Event`
    /// @return 2 when another directory may be chosen now, otherwise 1; 0 without a size; for a hit test
    ///         whether the pointer is inside
    GALDREN_TOOLS_API int Select(int event);
    /// Scrolls by wheel steps, up when positive; over the horizontal bar, to the right.
    GALDREN_TOOLS_API void Scroll(int amount);

    static constexpr int Row_Pitch = 18;  ///< height of a row in pixels when nothing is scaled
    /// Height of a row in pixels, at the scale of the browser.
    GALDREN_TOOLS_API int Row_Height() const;

    /// Where a press chooses the directory of a row, as far as it shows: its name. Like `Rect`; empty when it
    /// does not show, and for a number that no row has.
    GALDREN_TOOLS_API RECT Row_Place(int row) const;
    /// The row that shows its name at a place; -1 when there is none.
    /// @param place  in logical pixels
    GALDREN_TOOLS_API int Row_At(POINT place) const;
    /// Scrolls as little as it takes to have a row and the beginning of its name in view, and repaints.
    /// Nothing happens for a number that no row has, and along bars that there is no need for.
    GALDREN_TOOLS_API void Bring_Into_View(int row);
    /// Opens or closes the branch of a row, as a press on its mark does.
    /// @return false when it has none, or is open or closed already
    GALDREN_TOOLS_API bool Open_Row(int row, bool open);

  private:
    bool Dir_Tree_Start(const char* path);
    Dir_Tree* Dir_Tree_Current(Dir_Tree* from, const char* path);
    bool Dir_Tree_Expand(int row, int column);
    bool Dir_Tree_Select(int row, int column);
    void Dir_Tree_Update2(bool anew);
    void Dir_Tree_Draw2();

    void Change_Scale();
    void Release_Tree();
    bool Own_Tree();
    void Renew_Rows();
    bool Has_Row(int row) const { return row >= 0 && row < Nb_Row; }
    bool Follow(Sliders& bar, int kind);
    int Press_Refresh();
    int Press_Row();

    // A copy finds these anew when it is painted.
    bool Rows_Current{};  // `Row` and `Widest` are those of the tree as it is
    int Widest{};         // what the widest row takes
    unsigned Picture{};   // number of the kept picture of the rows, 0 when there is none
    POINT Painted_At{};   // how far they are scrolled on it
};
