/// @file
/// The fields of text fields: bits, codes, lines, and what editing and painting remember.
#pragma once

#include "../tools/tools.h"
#include "slider.h"

/// Bits of `Flag` that text fields add. `SLIDER_KEEP_GRAB` is handed on to the scroll bars.
/// @{
constexpr unsigned long TEXT_ALL_LETTERS =
    0x100000;  ///< in output lines no letter of a one-byte page is a code
constexpr unsigned long TEXT_INPUT_ROOM = 0x200000;  ///< the input line keeps its room when not reading
constexpr unsigned long TEXT_PASSWORD = 0x400000;    ///< the input line shows a "#" for every character
constexpr unsigned long TEXT_EDITING =
    0x800000;  ///< selection, clipboard, undo and the pointer work as elsewhere
constexpr unsigned long TEXT_INTEGER = 0x1000000;          ///< takes digits, "+" and "-" only
constexpr unsigned long TEXT_FLOAT = 0x2000000;            ///< takes digits, "+", "-", "." and "e" only
constexpr unsigned long TEXT_HEXADECIMAL = 0x4000000;      ///< takes hexadecimal digits only
constexpr unsigned long TEXT_H_BAR = 0x10000000;           ///< horizontal scroll bar
constexpr unsigned long TEXT_V_BAR = 0x20000000;           ///< vertical scroll bar
constexpr unsigned long TEXT_REPORT_CHANGES = 0x40000000;  ///< `Update` answers after every edit
constexpr unsigned long TEXT_SINGLE_LINE = 0x80000000;     ///< an entry field: the input line is all there is
/// @}

/// Bytes in output lines that switch the look of what follows. A line starts in black and the normal font.
enum Text_Code : unsigned char {
    TEXT_BLUE = 1,
    TEXT_BLACK = 2,
    TEXT_WHITE = 3,
    TEXT_RED = 4,
    TEXT_YELLOW = 5,
    TEXT_GREEN = 6,
    TEXT_NORMAL_FONT = 240,
    TEXT_BOLD_FONT = 241,
    TEXT_OBLIQUE_FONT = 242
};

/// Bits of `Texts::Mode`.
enum Text_Mode : unsigned char {
    TEXT_READING = 1,  ///< the input line takes keys
    TEXT_ENTERED = 2,  ///< a line was entered
    TEXT_CHANGED = 4   ///< the line changed, with `TEXT_REPORT_CHANGES`
};

/// Values of `Texts::Caret`.
enum Text_Caret : unsigned char {
    CARET_AT_POINTER = 0,  ///< shown while the pointer is inside
    CARET_SHOWN = 1,       ///< shown wherever the pointer is
    CARET_AWAY = 2         ///< not shown
};

/// The fields of a text field, all zero at first.
struct Text_Fields {
    static constexpr int Most_Lines = 4096;    ///< output lines that are kept
    static constexpr int Most_History = 50;    ///< entered lines that are kept
    static constexpr int Line_Room = 256;      ///< bytes of a line with its end
    static constexpr int Longest_Input = 254;  ///< bytes that can be typed
    static constexpr int Scroll_Pause = 50;  ///< milliseconds between two steps of a text that scrolls below
                                             ///< a pointer held still; see `Texts::Is_Selecting`

    short Bar_Dim{};         ///< thickness of the scroll bars in pixels; 0 means `CURSEUR`
    unsigned char Mode{};    ///< see `Text_Mode`; 0 while idle
    char Line[Line_Room]{};  ///< the input line
    short Select_State{};    ///< 0 unknown, 1 the pointer is inside and the caret is shown, 2 outside
    int Char_Width{};        ///< width of "H" in the normal font, in pixels
    int Line_Height{};       ///< height of the normal font and pitch of the output lines, in pixels
    HFONT Bold_Font{};       ///< font of the input line and of `TEXT_BOLD_FONT`; owned
    HFONT Oblique_Font{};    ///< font of `TEXT_OBLIQUE_FONT`; owned
    char** Lines{};          ///< `Most_Lines` output lines, the newest first, null where there is none; owned
    char** History{};        ///< `Most_History` entered lines, the newest first; owned
    short* Line_Width{};     ///< width of each output line when it was painted last, in pixels; owned
    Sliders V_Slider;      ///< vertical scroll bar; its `Val` is how far the output is scrolled up, in pixels
    Sliders H_Slider;      ///< horizontal scroll bar; its `Val` is how far it is scrolled right
    short History_Pos{};   ///< index of the entered line that Up brings next
    short Cursor_Pos{};    ///< index in `Line` of the character behind the caret
    short Input_Box[4]{};  ///< input line: left, right, top, bottom
    unsigned char Caret{};  ///< see `Text_Caret`; set by `Show_Caret`
    short Selected{};       ///< bytes selected in `Line`, from the caret on, or before it when negative; with
                            ///< `TEXT_EDITING`
    const char* Placeholder{};  ///< text in grey while the input line is empty; null for none
    bool* Line_Plain{};         ///< of each output line whether it is text alone, without codes; owned
};

namespace galdren {

/// A place in the output.
struct Output_Spot {
    int line{-1};  ///< index of the line; -1 for none
    int at{};      ///< byte index in it
};

/// What the kept picture of an output shows, what has changed since it was painted, and what is selected.
struct Output_Picture {
    /// What the output looks like, apart from its lines.
    struct Look {
        int x;                ///< where lines begin, from the left edge of the output
        int scrolled;         ///< pixels that are below its bottom edge
        unsigned long color;  ///< of the ground
        bool single;          ///< only the newest line shows
        HFONT fonts[3];       ///< normal, bold and oblique
    };

    unsigned number{};  ///< of the picture; 0 when there is none
    Look painted{};     ///< on it
    int appended{};     ///< lines that came since
    int renewed{};      ///< newest lines that are not what was painted
    Output_Spot from;   ///< where the selection began
    Output_Spot to;     ///< its other end

    bool Has_Selection() const { return from.line >= 0 && (from.line != to.line || from.at != to.at); }
    /// A line has begun.
    void Note_New_Line();
    /// The newest line is another one.
    void Note_Newest();
    /// The lines were painted as they are.
    void Note_Painted(const Look& look);
};

class Edit_Past;

/// What editing remembers between keys and presses.
struct Edit_State {
    /// What a press has begun to select.
    enum Dragged : unsigned char { Nothing, Input_Text, Output_Text };

    short first{};               ///< index of the first character that is in view
    short shift{};               ///< pixels before the view, of text that runs both ways
    char begun[5]{};             ///< bytes of a character that are there, while others are still to come
    Dragged dragged{Nothing};    ///< until the button goes up
    int presses{};               ///< that followed each other quickly
    unsigned long pressed_at{};  ///< time of the last of them
    POINT pressed{};             ///< its place
    Edit_Past* past{};           ///< what can be undone; owned, null while there is nothing
};

}  // namespace galdren
