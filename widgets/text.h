/// @file
/// Text fields: a console with an input line, or an entry field of one line.
#pragma once

#include <cstdarg>

#include "text_fields.h"

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
