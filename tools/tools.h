/// @file
/// The control base: the state that every control begins with.
///
/// Life of a control: construct it (every field zero), fill the public fields, `Init` it with the window to
/// paint in, `Draw` it when the window is painted, tell it of the pointer with `Select`, and let the
/// destructor give everything back. `Init` may be called again after any change of fields and rebuilds only
/// what changed. All members are for the thread that runs the window.
#pragma once

#include <windows.h>

#include "fields.h"

/// The state every control begins with, and the painting primitives that give controls their look.
///
/// A control owns its region, its font, the buffers it generates and the images assigned to it (which must
/// come from `new unsigned long[Width * Height]`), and `Name` when `Set_Name` made it. Copies share all of
/// these with their source, and the last one to let go frees them, in any order. Everything is measured in
/// logical pixels with y upward; rectangles are given as left x, right x, bottom y, top y.
class GALDREN_TOOLS_API Tools : public Tools_Fields {
  public:
    /// Every field zero.
    Tools();
    /// Copies every field; what the source owns is shared from then on.
    Tools(const Tools& other);
    /// Lets go of what this control owns and copies every field. Assignment to itself changes nothing.
    Tools& operator=(const Tools& other);
    /// Lets go of name, region, font and images; `State` becomes 0.
    ~Tools();

    /// Releases an array of bytes or pixels that came from array `new`; one that copies share is freed by
    /// the last of them.
    /// @return null, so that callers write `p = Free(p)`
    void* Free(void* p);

    /// Replaces `Graph_Normal` by a new image of `Width` x `Height` pixels of the value `fill`.
    /// @return 1; 0 when the memory cannot be had, which is reported at level 1 and leaves null
    int Alloc_Graph_Normal(unsigned long fill);
    /// Replaces `Graph_Select`; see `Alloc_Graph_Normal`.
    int Alloc_Graph_Select(unsigned long fill);

    /// Reads a picture for the body of a box or a button, in place of images that it has. The next `Init`
    /// makes `Graph_Normal` and `Graph_Select` of it, and any that changes size, colour, scale or theme makes
    /// them anew: the shading of the control and of the highlight, with the picture in the middle, blended
    /// over it. One that is too large is made smaller, its proportions kept; at a scale one that has room is
    /// enlarged by a whole factor. An image that the application puts in place of these ends that.
    /// @param file  a Targa image when the name holds ".tga", else an SGI image. The last channel of 2 or 4
    /// is
    ///              opacity in a Targa image, and its opposite in an SGI image, as in those of `Icon_Read`
    /// @return 1; 0 with nothing changed when it cannot be read (reported at level 11) or there is no memory
    ///         (reported at level 1)
    int Icon(const char* file);

    /// Fills the control's rectangle, right column and top row included, with `Color`.
    void Clear();
    /// Fills the control's rectangle with `c`, one row higher than `Clear()` does.
    void Clear(Colors c);
    /// Sets `Color`, with alpha 0.
    void Set_Color(unsigned char r, unsigned char g, unsigned char b);

    /// Replaces `Name` by a formatted text that the control owns, cut at 1023 bytes. Where that fails, a name
    /// that the application has put into `Name` itself stays, and one that the control owned is gone.
    /// @param format  a printf format with its arguments; null releases the name
    /// @return 1; 0 for a null format, a format that fails, or when the memory cannot be had (reported at
    ///         level 1)
    int Set_Name(const char* format, ...) GALDREN_PRINTF(2, 3);

    /// Paints the shaded frame in shades of `Color`.
    /// @param flags  0x400000 leaves out the black rim
    /// @param mode   0 raised, any other value sunken
    /// @param width  number of shaded rings inside the rim
    void Cadre(long flags, short mode, short width, short x0, short x1, short y0, short y1);
    /// Paints a blue outline of one pixel, one pixel inside the rectangle.
    void Cadre_Outline(short x0, short x1, short y0, short y1);
    /// Fills with `Color`, unless `Flag` has 0x1 or `flags` has 0x10. Column x1 and row y0 are not painted;
    /// the same holds for the signal colours below, which only `Flag` 0x1 suppresses.
    void Fill(long flags, short x0, short x1, short y0, short y1);
    void Fill_Grey(short x0, short x1, short y0, short y1);    ///< fills with the grey (170, 170, 170)
    void Fill_Yellow(short x0, short x1, short y0, short y1);  ///< fills with (255, 255, 0)
    void Fill_Red(short x0, short x1, short y0, short y1);     ///< fills with (255, 0, 0)
    void Fill_Green(short x0, short x1, short y0, short y1);   ///< fills with (0, 255, 0)
    void Fill_Blue(short x0, short x1, short y0, short y1);    ///< fills with (0, 0, 255)

    /// Paints the body of a control from a buffer of `Width` x `Height` pixels.
    /// @param sel     which flat colour stands in for a missing buffer: 0 `Color`, else the highlight colour
    /// @param buffer  the pixels, rows top-down; may be null
    /// @param flags   0x10 paints nothing
    /// @param inset   margin kept free on every side, normally the width of the frame + 1
    void Fill_Select(short sel, const char* buffer, long flags, short inset, short x0, short x1, short y0,
                     short y1);

    /// Makes the shading of a body in the colour `c`: a diagonal ramp inside the border of `Width` x
    /// `Height` pixels.
    /// @return pixels in the pixel form, rows top-down, owned by the caller (array `delete`); null when the
    ///         memory cannot be had
    unsigned long* Inside_3D(Colors c);

    /// Writes a text in the rectangle (x, y, w, h), placed and coloured by the style bits in `flags`.
    /// @param font    null means the stock system font
    /// @param text    null and the empty text write nothing
    /// @param border  width of the frame to keep clear of, at least 1
    void Text(HFONT font, const char* text, long flags, short x, short y, short w, short h, short border);

    /// Paints an embossed arrow in the box (x, y, w, h).
    /// @param direction  see `Arrow_Direction`; it sits at that end of the box
    /// @param inset      margin kept free
    /// @param size       length of the arrow's zone; nothing is painted unless it is above `inset`
    void Arrow(short direction, short inset, short size, short x, short w, short y, short h);

    /// Paints pixels in the pixel form, rows top-down, with their bottom-left one at (x, y).
    /// @param pixels  `width` x `height` of them; null paints nothing
    void Blit(const unsigned long* pixels, short width, short height, short x, short y);

    /// @name For the `Init` and the `Select` of an application's own controls
    /// @{

    /// Binds the control to a window: `Window`, `Rect`, `Region` and `Font` are then as in every control.
    /// @param window  null keeps the window of the last time; without any it is reported at level 11
    /// @return false when there is nothing to bind: no size, or no window
    bool Prepare(HWND window);
    /// Gives a part what the control has around it: text clip rectangle, scale and theme. It is cut at the
    /// control's edges, and hidden with it. Before the `Init` of the part.
    void Adopt(Tools& part) const;
    /// Whether the pointer is inside the hit rectangle.
    bool Is_Pointed() const;
    /// @}
};
