/// @file
/// Layouts: where the controls of a host are at every size of its window. Who does not call `Lay_Out` does
/// not link them.
///
/// A layout is an item made of items: a control, rows and columns, or controls that keep their distance to
/// edges. All lengths are in pixels of the window as it was designed, at 96 dots per inch, and count what is
/// covered: a control that is 80 long has a `Width` of 79, for its column `X + Width` is painted, too. They
/// follow the scale of the host.
#pragma once

#include <windows.h>

#include <concepts>
#include <string>
#include <vector>

#include "../Galdren_Tools.h"

class Host;

namespace galdren {

// A rectangle of the design, with the lower edge of the design or the upper one as the start of `y`.
struct Design_Place {
    int x = 0, y = 0, width = 0, height = 0;
    bool from_top = true;
};

// What a control needs beside the extent of its caption, as its fields count; nothing where that is not
// known.
// @{
inline SIZE Least_Around(const Tools&, SIZE) { return {}; }
inline SIZE Least_Around(const Labels&, SIZE caption) { return caption; }
SIZE Least_Around(const Buttons& button, SIZE caption);
// @}

// The extent of a caption, and what it was measured for.
struct Measured_Caption {
    std::string text;
    std::string font;  // its words
    short points = 0;
    unsigned long vertical = 0;
    SIZE extent{};
};

// An item of a layout with all that is in it.
struct Layout_Item {
    enum class Kind { Space, Control, Row, Column, Stack, Margin, Anchors };

    Layout_Item() = default;
    template <std::derived_from<Tools> Class>
    Layout_Item(Class& laid_out)  // not explicit: a control is an item
        : kind(Kind::Control), control(&laid_out), least_around([](const Tools& least, SIZE caption) {
              return Least_Around(static_cast<const Class&>(least), caption);
          }) {}

    Kind kind = Kind::Space;
    std::vector<Layout_Item> items;

    // As it was designed.
    int gap = 0;            // between items, or around the one of a margin
    int weight = 0;         // of its share of what is left; 0 when it takes none
    int fixed = -1;         // length in its row or column; below 0 for what it needs
    SIZE least{};           // the application's own
    SIZE design{};          // rectangle in which the items of anchors have their places
    Design_Place place;     // in that rectangle
    unsigned edges = 0;     // to which it keeps its distance
    bool if_shown = false;  // gives its room away while it is hidden

    Tools* control = nullptr;
    SIZE (*least_around)(const Tools& control, SIZE caption) = nullptr;
    unsigned serial = 0;  // of the control in its host; 0 when it was not added

    // As it was found last, in pixels of the window.
    unsigned short scale = 0;  // in percent, at which that was
    SIZE needed{};
    bool gone = false;  // takes no room, and is not laid out
    Measured_Caption caption;
};

}  // namespace galdren

/// What layouts are made of.
namespace Layout {

/// An item: a control, which stands for itself, or what the functions below make.
using Item = galdren::Layout_Item;
/// A rectangle of the design, from `From_Top` or `From_Bottom`.
using Place = galdren::Design_Place;

constexpr unsigned EDGE_LEFT = 1;    ///< the left edge of a rectangle
constexpr unsigned EDGE_RIGHT = 2;   ///< the right edge
constexpr unsigned EDGE_TOP = 4;     ///< the upper edge
constexpr unsigned EDGE_BOTTOM = 8;  ///< the lower edge
constexpr unsigned EDGE_ALL = 15;    ///< all four

/// @name Rows and columns
/// Items stand beside each other or, in a column, below each other, and are as long as they need to be: as
/// `Least` says, or as a caption takes. Across, all are as long as the row is high or the column wide.
/// @{

/// Items beside each other, from the left, with a gap between two.
Item Row(int gap, std::vector<Item> items);
/// Items below each other, from the top, with a gap between two.
Item Column(int gap, std::vector<Item> items);

/// Takes a share of the length that the others leave, in proportion to its weight, but never less than it
/// needs.
Item Stretch(Item item, int weight = 1);
/// Has this length and no other.
Item Fixed(Item item, int length);
/// Takes a share as `Stretch` does, and shows nothing.
Item Space(int weight = 1);
/// @}

/// Needs at least this much.
Item Least(Item item, int width, int height);
/// Gives its room, and the gap before it, away while it is hidden, or while all that it is made of is.
Item If_Shown(Item item);
/// All in the same rectangle, such as a frame and what is in it, or the pages of tabs.
Item Stack(std::vector<Item> items);
/// Keeps a margin free on all four sides.
Item Margin(int width, Item item);

/// @name Anchors
/// @{

/// Items with places in a rectangle that was designed `width` x `height`, such as a client area.
Item Anchors(int width, int height, std::vector<Item> items);
/// An item of `Anchors`, which keeps its distance to these edges of the rectangle. Between two it stretches;
/// with none of left and right, or of top and bottom, its middle keeps its distance to that of the rectangle.
Item Anchor(Item item, const Place& place, unsigned edges = EDGE_LEFT | EDGE_TOP);
/// A place whose upper edge is `y` below that of the design.
Place From_Top(int x, int y, int width, int height);
/// A place whose lower edge is `y` above that of the design, as fields of controls count.
Place From_Bottom(int x, int y, int width, int height);
/// @}

/// Gives the controls of a host their places now and whenever the window has another size, and calls `Init`
/// of those that have changed. The window does not become smaller by its frame than all items need; in one
/// that is smaller still they go on beyond its right and lower edge.
///
/// All controls of the layout have to be added to the host before. One that is removed gives its room away. A
/// host may have several layouts, of different controls.
/// @return the least size of the client area, in pixels
SIZE Lay_Out(Host& host, Item layout);

}  // namespace Layout
