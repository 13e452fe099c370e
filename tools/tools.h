/// @file
/// The control base: the state that every control begins with.
///
/// Life of a control: construct it (every field zero), fill the public fields, `Init` it with the window to
/// paint in, `Draw` it when the window is painted, tell it of the pointer with `Select`, and let the
/// destructor give everything back. `Init` may be called again after any change of fields and rebuilds only
/// what changed. All members are for the thread that runs the window.
#pragma once

#include <windows.h>

#include "api.h"
#include "colors.h"

/// Bits of `Tools::Flag` that controls share.
/// @{
constexpr unsigned long FLAG_NO_BODY = 0x1;        ///< no frame, no text, no highlight
constexpr unsigned long FLAG_PASSIVE = 0x2;        ///< `Select` never highlights and returns 0
constexpr unsigned long FLAG_VERTICAL = 0x4;       ///< text written from top to bottom, one character a line
constexpr unsigned long FLAG_STATIC = 0x10;        ///< no shading, no highlight
constexpr unsigned long FLAG_OUTLINE = 0x20;       ///< an outline of one pixel, and blue text
constexpr unsigned long FLAG_OWN_IMAGES = 0x40;    ///< the images are used as given; nothing is generated
constexpr unsigned long FLAG_TEXT_MIDDLE = 0x100;  ///< text centred vertically
constexpr unsigned long FLAG_TEXT_TOP = 0x200;     ///< text at the top
constexpr unsigned long FLAG_TEXT_BOTTOM = 0x400;  ///< text at the bottom
constexpr unsigned long FLAG_TEXT_LEFT = 0x2000;   ///< text at the left
constexpr unsigned long FLAG_TEXT_RIGHT = 0x4000;  ///< text at the right
constexpr unsigned long FLAG_INNER_FRAME = 0x10000;  ///< a second, inset frame
constexpr unsigned long FLAG_TEXT_WHITE = 0x40000;   ///< text in white
constexpr unsigned long FLAG_RAISED = 0x80000;       ///< raised frame instead of a sunken one
constexpr unsigned long FLAG_NO_RIM = 0x400000;      ///< no black rim around the frame
/// @}

/// Bits of `Tools::State`.
enum Tools_State : unsigned char {
    STATE_READY = 1,      ///< `Init` ran
    STATE_WARNED = 2,     ///< a misuse was reported
    STATE_OWNS_NAME = 4,  ///< `Name` was made by `Set_Name`
};

/// Kinds of event in the low four bits of the word given to `Select`.
enum Select_Event : int {
    EVENT_MOVE = 0,     ///< the pointer moved with no button held, or a button was released
    EVENT_DRAG = 1,     ///< the pointer moved with a button held
    EVENT_PRESS = 2,    ///< a button was pressed
    EVENT_TEST = 4,     ///< hit test: nothing is painted or changed
    EVENT_LEFT = 16,    ///< the left button is held
    EVENT_MIDDLE = 32,  ///< the middle button is held
    EVENT_RIGHT = 64    ///< the right button is held
};

/// Directions of `Tools::Arrow`.
enum Arrow_Direction : short { ARROW_LEFT, ARROW_RIGHT, ARROW_DOWN, ARROW_UP };

/// The fields that every control begins with, all zero at first. The application fills in those up to
/// `Border`; `Init` and the other members keep the rest.
struct Tools_Fields {
    unsigned long Flag{};           ///< style bits, see the FLAG_ constants
    const char* Name{};             ///< caption, also used in reports; not owned unless made by `Set_Name`
    short X{};                      ///< left edge
    short Y{};                      ///< bottom edge
    short Width{};                  ///< width in pixels; below 1 the control is inert
    short Height{};                 ///< height in pixels; below 1 the control is inert
    const char* Font_Name{};        ///< face, e.g. "Arial"; not owned
    const char* Font_Weight{};      ///< "bold" or any other word; not owned
    const char* Font_Style{};       ///< "i" or "o" for italic, or any other word; not owned
    short Font_Size{};              ///< height of the font in points
    short Font_Size_Last{};         ///< `Font_Size` when `Font` was made
    Colors Color;                   ///< background colour
    short Clip_X{};                 ///< left edge of the text clip rectangle
    short Clip_Y{};                 ///< bottom edge of the text clip rectangle
    short Clip_Height{};            ///< height of the text clip rectangle
    short Clip_Width{};             ///< width of the text clip rectangle; 0 means no clipping
    unsigned long* Graph_Select{};  ///< image for the highlighted state, pixel form, rows top-down; owned
    unsigned long* Graph_Normal{};  ///< image for the normal state, pixel form, rows top-down; owned
    short Border{};                 ///< width of the frame in pixels; 0 means `BORDER`
    HFONT Font{};                   ///< font made by `Init`; owned
    HWND Window{};                  ///< window the control paints in, set by `Init`
    HRGN Clip_Region{};             ///< region handed to `Begin_Draw`; the same handle as `Region`
    unsigned long* Cur_Graph_Select{};   ///< buffer painted when highlighted; not owned through this field
    unsigned long* Cur_Graph_Normal{};   ///< buffer painted when normal; not owned through this field
    HRGN Region{};                       ///< rectangle of the control; owned
    RECT Rect{};                         ///< hit rectangle; `top` holds the lower y
    unsigned char State{};               ///< see `Tools_State`
    unsigned long Last_Color{};          ///< `Color` in the GDI form at the last `Init`
    short Last_Width{};                  ///< `Width` when the buffers were made
    short Last_Height{};                 ///< `Height` when the buffers were made
    unsigned long* Last_Graph_Select{};  ///< `Graph_Select` at the last `Init`
    unsigned long* Last_Graph_Normal{};  ///< `Graph_Normal` at the last `Init`
    const char* Owned_Name{};            ///< text made by `Set_Name`, whatever `Name` is now; owned
};

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
};
