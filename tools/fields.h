/// @file
/// The fields that every control begins with, and what their bits mean.
#pragma once

#include <windows.h>

#include "api.h"
#include "colors.h"
#include "theme.h"

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

/// Bits of `Tools::Flag` that sliders and valuators share.
/// @{
constexpr unsigned long SLIDER_REVERSED = 0x4000000;   ///< `Start_Val` is greater than `End_Val`
constexpr unsigned long SLIDER_KEEP_GRAB = 0x8000000;  ///< a press keeps it until the release
/// @}

/// Bits of `Tools::State`.
enum Tools_State : unsigned char {
    STATE_READY = 1,      ///< `Init` ran
    STATE_WARNED = 2,     ///< a misuse was reported
    STATE_OWNS_NAME = 4,  ///< `Name` was made by `Set_Name`
};

/// Values of `Tools::Veil`, which keeps members from painting. The control is otherwise as always.
enum Tools_Veil : unsigned char {
    VEIL_NONE = 0,    ///< members paint
    VEIL_HIDDEN = 1,  ///< nothing is painted
    VEIL_LATER = 2    ///< what a member would paint is painted with the next WM_PAINT by whoever set this
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

/// At which size and scale an image of the application was given. At another scale it is painted by a whole
/// factor, for its pixels are no more than they were.
struct Given_Image {
    const unsigned long* Pixels{};  ///< the image; not owned
    short Width{};                  ///< width of the control when it was given
    short Height{};                 ///< height of the control when it was given
    unsigned short Scale{};         ///< scale of the control when it was given, in percent
    bool Is_Zoomed{};               ///< whether the control has been at another scale since
};

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
    short Font_Size_Last{};         ///< points of which `Font` was made
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
    RECT Room{};  ///< `Rect` of the control that this one is a part of, beyond which nothing of it is
                  ///< painted; empty for one that stands alone
    unsigned char Veil{};      ///< see `Tools_Veil`; kept by a host, not copied
    unsigned short Scale{};    ///< scale in percent of what has no field of its own, such as lines of one
                               ///< pixel and tree rows; 0 means 100. The fields above are pixels as painted
    const Theme* Look{};       ///< theme; null is the look without one. Not owned, see `Keep_Theme`
    const Theme* Last_Look{};  ///< `Look` when the buffers were made
    unsigned short Last_Scale{};   ///< `Scale` when buffers and font were made
    bool Icon_Is_New{};            ///< the next `Init` makes images of what `Icon` has read
    Given_Image Given_Normal;      ///< what is known of `Cur_Graph_Normal` when it is an image
    Given_Image Given_Select;      ///< what is known of `Cur_Graph_Select` when it is an image
    unsigned long* Icon_Pixels{};  ///< picture that `Icon` has read, opacity in the highest byte; owned
    unsigned short Icon_Width{};   ///< width of that picture
    unsigned short Icon_Height{};  ///< height of that picture
};

/// How often a control got another hit rectangle (`Rect`) so far, from `Init` or as a copy, in any window of
/// the process. Who has noted the rectangles need not look at them again while it stays the same. For every
/// thread.
GALDREN_TOOLS_API unsigned Tools_Placements();
