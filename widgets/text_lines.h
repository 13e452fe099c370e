/// @file
/// Lines that a text field keeps, and what the codes in its output lines mean.
#pragma once

#include <string_view>

#include "widgets/text.h"

namespace galdren {

/// Texts that are kept, the newest first. A new one takes the place of the oldest. The array belongs to a
/// control, and copies of the control may share it.
class Kept_Texts {
  public:
    /// @param array  of the control; null until the first text
    /// @param most   texts that it has room for
    Kept_Texts(char**& array, int most) : texts(array), room(most) {}

    /// Makes the array when there is none yet.
    /// @return false when the memory cannot be had
    bool Make() const;
    /// Makes the oldest place the newest one, for a text that is to be put there.
    void Begin() const;
    /// Puts a copy of a text into the newest place.
    void Put(std::string_view text) const;
    /// The text at an index, 0 the newest; null where there is none.
    const char* At(int index) const;
    int Count() const;
    /// Lets go of the array and, as its last holder, of the texts.
    void Release() const;

  private:
    char**& texts;
    int room;
};

inline Kept_Texts History_Of(Text_Fields& field) { return {field.History, Text_Fields::Most_History}; }

/// The output lines of a text field, with the widths that they were painted with.
class Output_Lines {
  public:
    /// @param noted  what the kept picture shows, which is told of every change
    Output_Lines(Text_Fields& control, Output_Picture& noted)
        : field(control), lines(control.Lines, Text_Fields::Most_Lines), picture(noted) {}

    /// See `Kept_Texts::Make`.
    bool Make() const;
    /// Begins a new line.
    void Begin() const;
    /// Puts a text in place of the newest line.
    void Put(std::string_view text) const;
    /// The same, but every line break in it begins a new line.
    void Write(std::string_view text) const;
    int Count() const { return lines.Count(); }
    /// The largest of the widths.
    int Longest() const;
    void Release() const;

  private:
    Text_Fields& field;
    Kept_Texts lines;
    Output_Picture& picture;
};

/// A piece of an output line that has one look.
struct Text_Run {
    std::string_view text;
    int font;             ///< 0 the normal font, 1 the bold and 2 the oblique one
    unsigned long color;  ///< a COLORREF
};

/// Takes an output line apart, as its codes switch colour and font.
class Run_Reader {
  public:
    explicit Run_Reader(std::string_view line) : rest(line) {}
    /// The next piece, which is not empty.
    /// @return false at the end of the line
    bool Next(Text_Run& run);

  private:
    void Take_Code(unsigned char code);

    std::string_view rest;
    int font = 0;
    unsigned long color = 0;
};

}  // namespace galdren
