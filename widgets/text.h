/// @file
/// Text fields: a console with an input line, or an entry field of one line.
#pragma once

#include <cstdarg>

#include "../tools/tools.h"
#include "text_fields.h"

namespace galdren {
class Canvas;
}

/// Bits of `Flag` that text fields add. `SLIDER_KEEP_GRAB` is handed on to the scroll bars.
/// @{
constexpr unsigned long TEXT_INPUT_ROOM = 0x200000;        ///< the input line keeps its room when not reading
constexpr unsigned long TEXT_PASSWORD = 0x400000;          ///< the input line shows a "#" for every character
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

/// A console: output lines that the application appends, the newest at the bottom, and below them an input
/// line while it reads. With `TEXT_SINGLE_LINE` it is an entry field.
///
/// The application starts reading with `Read`, hands every key to `Input`, and asks `Update` whether a line
/// was entered. Nothing is limited but in length: a line holds 255 characters, the input line takes 254, and
/// of the output lines and the lines entered the oldest go when the fields are full.
class GALDREN_TOOLS_API Texts : public Tools, public Text_Fields {
  public:
    /// Every field zero.
    Texts();
    /// Copies every field; lines, history and fonts are shared with the source, in both directions.
    Texts(const Texts& other);
    /// Lets go of what this field owns and copies every field.
    Texts& operator=(const Texts& other);
    /// Lets go of lines, history and fonts, then of what every control owns.
    ~Texts();

    /// Binds the field to a window, makes its fonts and places its parts. Idle, it clears the input line.
    /// @param window  null keeps the window of the last `Init`; without any it is reported at level 11
    void Init(HWND window);
    /// Paints the whole field.
    void Draw();
    /// Forgets all output and all entered lines and ends reading.
    void Cleanup();
    /// Follows the pointer and the scroll bars.
    /// @param event  see `Select_Event`
    /// @return 1 when the pointer is inside; 0 elsewhere and when passive
    int Select(int event);
    /// Takes caret and highlights away.
    void Deselect();
    /// Scrolls by wheel steps: the bar under the pointer, else the vertical one.
    void Scroll(int n);

    /// Starts reading, with the formatted text in the input line and the cursor at its end. A field that
    /// reports changes and reads already keeps its cursor.
    /// @param format  a printf format with its arguments; null starts with an empty line
    void Read(const char* format, ...) GALDREN_PRINTF(2, 3);
    /// Asks whether the user entered a line or, with `TEXT_REPORT_CHANGES`, changed it. An entered line ends
    /// reading.
    /// @return `Line`; null when nothing happened
    char* Update();
    /// Takes one key while reading.
    /// @param key  a key code as `Parse_Keyboard` gives it
    void Input(int key);

    /// Has the caret shown by the keyboard focus in place of the pointer, and repaints the input line while
    /// it reads.
    /// @param how  see `Text_Caret`
    void Show_Caret(Text_Caret how);

    /// Appends a formatted text; every line break in it begins a new line. It is cut at 255 characters.
    /// @param format  a printf format with its arguments; null does nothing
    void Write(const char* format, ...) GALDREN_PRINTF(2, 3);
    /// Puts a formatted text in place of the newest line.
    /// @param format  see `Write`
    void OverWrite(const char* format, ...) GALDREN_PRINTF(2, 3);

  private:
    void Read_Echo(char* const text, short cursor);
    bool Scroll_1(int n);
    void Scroll_2(int n);
    void Re_Write();
    void Rescale_Cursor();
    void Paint_Contents();
    void Append(int new_lines, const char* format, va_list arguments);
    bool Select_Bar(Sliders& bar, int event);
    void Show_Pointer(short hover);
    bool Take(int key);
    void Note_Change();
    bool Enter();
    bool Escape();
    bool Insert(char character);
    bool Erase(int position);
    bool Move_To(int position);
    bool Recall_Older();
    bool Recall_Newer();
    bool Paste();

    struct Output_Look {
        unsigned long color;  ///< of the ground
        bool single;          ///< only the newest line shows
        HFONT fonts[3];
        bool operator==(const Output_Look& other) const {
            return color == other.color && single == other.single && fonts[0] == other.fonts[0] &&
                   fonts[1] == other.fonts[1] && fonts[2] == other.fonts[2];
        }
    };
    /// What the output looks like, apart from its lines.
    struct Output_View {
        int x;         ///< where lines begin, from the left edge of the output
        int scrolled;  ///< pixels that are below its bottom edge
        Output_Look look;
    };
    bool Move_Kept(galdren::Canvas& canvas, const Output_View& view, int height, int& low, int& high) const;

    unsigned Picture{};     // number of the output's kept picture, 0 when there is none
    Output_View Painted{};  // on that picture
    int Appended{};         // lines that came since
    int Renewed{};          // newest lines that are not what was painted
    bool Even_Lines{};      // no font is higher than `Line_Height`
};
