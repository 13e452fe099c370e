/// @file
/// Tab items: the tabs of a tab set.
#pragma once

#include "../tools/tools.h"

/// Ends of a tab in the low byte of `TabItems::Shape`. An end that is not straight is pointed.
/// @{
constexpr short TAB_RIGHT_STRAIGHT = 0x1;  ///< the right end slants all the way down
constexpr short TAB_LEFT_STRAIGHT = 0x10;  ///< the left end slants all the way down
/// @}

/// The fields of a tab, all zero at first.
struct Tab_Item_Fields {
    short Value{};                     ///< 0 at the back, any other value at the front
    short Hover{};                     ///< 0 not painted since the last full draw, 1 highlighted, 2 plain
    short Slant{};                     ///< run of each slanted end in pixels; at most half the width counts
    short Shape{};                     ///< low byte: `TAB_RIGHT_STRAIGHT`, `TAB_LEFT_STRAIGHT`
    unsigned long* Normal_Up{};        ///< image when plain and at the back: the application's, or null
    unsigned long* Normal_Down{};      ///< image when plain and at the front: the application's, or null
    unsigned long* Select_Up{};        ///< image when highlighted and at the back: the application's, or null
    unsigned long* Select_Down{};      ///< image when highlighted and in front: the application's, or null
    unsigned long* Own_Normal_Up{};    ///< not used by tabs; owned
    unsigned long* Own_Normal_Down{};  ///< not used by tabs; owned
    unsigned long* Own_Select_Up{};    ///< not used by tabs; owned
    unsigned long* Own_Select_Down{};  ///< not used by tabs; owned
    short Last_Value{};                ///< `Value` at the last `Init`, `Draw` or `Adjust`
};

/// One tab: a button in the shape of a trapezoid. A pointed end stops half-way down, where it goes beneath a
/// neighbour that is painted over it.
///
/// A tab is painted from its fields: a change of `Color`, `Slant`, `Shape` or `Value` shows with the next
/// paint. One whose colour is black becomes grey (170, 170, 170) at `Init`.
class GALDREN_TOOLS_API TabItems : public Tools, public Tab_Item_Fields {
  public:
    /// Every field zero.
    TabItems();
    /// Copies every field; what the source owns is shared.
    TabItems(const TabItems& other);
    /// Lets go of what this tab owns and copies every field.
    TabItems& operator=(const TabItems& other);
    /// Lets go of the images, then of what every control owns.
    ~TabItems();

    /// Binds the tab to a window. Images of the application are taken when the size is another one than at
    /// the last `Init`; `Flag` gets 0x40, for nothing is ever generated.
    /// @param window  null keeps the window of the last `Init`; without any it is reported at level 11
    void Init(HWND window);
    /// Paints the whole tab, highlighted when the pointer is inside.
    void Draw();
    /// Highlights the tab when the pointer enters its rectangle and paints it plain when it leaves.
    /// @param event  not looked at: there is no mere hit test
    /// @return 1 while the pointer is inside; 0 outside and for a passive tab
    int Select(int event);
    /// Paints the tab plain. `Hover` stays.
    void Deselect();
    /// Repaints after `Value` changed; with `Flag` 0x100000 in any case.
    void Adjust();
    /// The tab's value.
    int Read();

    /// Paints the black edge and the two lines of the page below it.
    /// @param flags   not looked at
    /// @param value   0 closes the edge at the bottom
    /// @param border  not looked at
    void Cadre(long flags, short value, short border, short x0, short x1, short y0, short y1);
    /// Paints the tab flat with a blue edge.
    void Cadre_Outline(short x0, short x1, short y0, short y1);
    /// Paints the body and its slanted ends.
    /// @param selected  whether in the highlight colour
    /// @param image     `Width` x `Height` pixels to paint instead; may be null
    /// @param flags     0x10 paints nothing
    /// @param border    margin around the image
    /// @param x0        left end of the upper edge; the slanted ends lie beyond x0 and x1
    void Fill_Select(short selected, const char* image, long flags, short border, short x0, short x1,
                     short y0, short y1);
};
