/// @file
/// Text fields: a console with an input line, or an entry field of one line.
#pragma once

#include <cstdarg>

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

/// A console: output lines that the application appends, the newest at the bottom, and below them an input
/// line while it reads. With `TEXT_SINGLE_LINE` it is an entry field.
///
/// The application starts reading with `Read`, hands every key to `Input`, and asks `Update` whether a line
/// was entered. Nothing is limited but in length: a line holds 255 bytes, the input line takes 254, and
/// of the output lines and the lines entered the oldest go when the fields are full.
class Texts : public Tools, public Text_Fields {
  public:
    /// Every field zero.
    GALDREN_TOOLS_API Texts();
    /// Copies every field; lines, history and fonts are shared with the source, in both directions.
    GALDREN_TOOLS_API Texts(const Texts& other);
    /// Lets go of what this field owns and copies every field.
    GALDREN_TOOLS_API Texts& operator=(const Texts& other);
    /// Lets go of lines, history and fonts, then of what every control owns.
    GALDREN_TOOLS_API ~Texts();

    /// Binds the field to a window, makes its fonts and places its parts. Idle, it clears the input line.
    /// @param window  null keeps the window of the last `Init`; without any it is reported at level 11
    GALDREN_TOOLS_API void Init(HWND window);
    /// Paints the whole field.
    GALDREN_TOOLS_API void Draw();
    /// Forgets all output and all entered lines and ends reading.
    GALDREN_TOOLS_API void Cleanup();
    /// Follows the pointer and the scroll bars.
    /// @param event  see `Select_Event`
    /// @return 1 when the pointer is inside; 0 elsewhere and when passive
    GALDREN_TOOLS_API int Select(int event);
    /// Takes caret and highlights away.
    GALDREN_TOOLS_API void Deselect();
    /// Scrolls by wheel steps: the bar under the pointer, else the vertical one.
    GALDREN_TOOLS_API void Scroll(int n);

    /// Starts reading, with the formatted text in the input line and the cursor at its end. A field that
    /// reports changes and reads already keeps its cursor.
    /// @param format  a printf format with its arguments; null starts with an empty line
    GALDREN_TOOLS_API void Read(const char* format, ...) GALDREN_PRINTF(2, 3);
    /// Asks whether the user entered a line or, with `TEXT_REPORT_CHANGES`, changed it. An entered line ends
    /// reading.
    /// @return `Line`; null when nothing happened
    GALDREN_TOOLS_API char* Update();
    /// Whether the filters of the field let a character in.
    GALDREN_TOOLS_API bool Accepts(char character) const;
    /// Takes one key while reading. Characters of several bytes come byte by byte.
    /// @param key  a key code as `Parse_Keyboard` gives it
    GALDREN_TOOLS_API void Input(int key);
    /// Puts a text at the caret, in place of what is selected, as one edit: what the filters let in and there
    /// is room for, without control characters.
    /// @param text  null does nothing
    GALDREN_TOOLS_API void Insert(const char* text);

    /// Whether a key of `TEXT_EDITING` would do something now, such as Ctrl+C with something selected.
    GALDREN_TOOLS_API bool Can_Take(int key);
    /// Shows the menu of `TEXT_EDITING`, in the words of `Set_Text_Menu`, and waits until it is gone.
    /// Meanwhile anything may happen to the field, which is not touched afterwards.
    /// @param screen  where, in pixels of the screen
    /// @return the key that does what was chosen, for `Input`; 0 for nothing
    GALDREN_TOOLS_API int Ask_Menu(POINT screen);
    /// Whether a place in the window is over text that `TEXT_EDITING` lets the pointer select.
    /// @param place  in logical pixels
    GALDREN_TOOLS_API bool Is_Text_At(POINT place) const;
    /// Whether the pointer selects text, from a press of `TEXT_EDITING` on until the button goes up. While it
    /// is held still beyond the edge, `Select` with the same event again goes on scrolling.
    GALDREN_TOOLS_API bool Is_Selecting() const;
    /// Finds the caret of the input line.
    /// @param area  receives its place, in logical pixels like `Rect`
    /// @return false while nothing is read
    GALDREN_TOOLS_API bool Find_Caret(RECT& area);

    /// Has the caret shown by the keyboard focus in place of the pointer, and repaints the input line while
    /// it reads.
    /// @param how  see `Text_Caret`
    GALDREN_TOOLS_API void Show_Caret(Text_Caret how);

    /// Copies an output line without its codes.
    /// @param line  its index, 0 the newest
    /// @param text  receives it, up to `Line_Room` bytes with its end
    /// @return false when there is no such line
    GALDREN_TOOLS_API bool Plain_Line(int line, char* text) const;

    /// Appends a formatted text; every line break in it begins a new line. It is cut at 255 bytes, between
    /// characters.
    /// @param format  a printf format with its arguments; null does nothing
    GALDREN_TOOLS_API void Write(const char* format, ...) GALDREN_PRINTF(2, 3);
    /// Puts a formatted text in place of the newest line.
    /// @param format  see `Write`
    GALDREN_TOOLS_API void OverWrite(const char* format, ...) GALDREN_PRINTF(2, 3);

  private:
    void Append(bool new_line, const char* format, va_list arguments);
    bool Can_Write();
    void Re_Write();
    void Fit_Bars();
    void Rescale_Cursor();
    void Release_Texts();
    bool Select_Bar(Sliders& bar, int event);
    void Paint_Input();
    void Read_Echo();
    bool Take(int key);
    void Enter();
    void Escape();
    bool Paste();
    bool Paste_As_Typed();
    bool Obey(int key);
    bool Copy();
    bool Select_Text(int event);
    bool Press_Text(POINT place);
    void Select_Input(POINT place, bool extends);
    void Drag_Output(POINT place);
    void Deselect_Output();
    void Scroll_Bar(Sliders& bar, int steps);

    galdren::Output_Picture Picture;
    galdren::Edit_State Edits;
};
