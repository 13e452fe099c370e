/// @file
/// The output lines that a text field keeps, and what the codes in them mean.
#pragma once

#include <string_view>

#include "widgets/kept_texts.h"

namespace galdren {

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
    /// @param plain  no byte of it is a code
    void Put(std::string_view text, bool plain = false) const;
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
    unsigned char color;  ///< the code of its colour; 0 for none
};

/// Which bytes of an output line are codes.
enum class Text_Codes {
    None,    ///< none: it is what a user has typed
    Colors,  ///< those of colours: the others are letters of a page with one byte a character
    All      ///< all that are no part of a character
};

/// The codes in the output line of an index.
Text_Codes Codes_In(const Text_Fields& field, unsigned long flag, int line);

/// Takes an output line apart, as its codes switch colour and font.
class Run_Reader {
  public:
    Run_Reader(std::string_view line, Text_Codes codes);
    /// The next piece, which is not empty.
    /// @return false at the end of the line
    bool Next(Text_Run& run);

  private:
    std::size_t Run_Length() const;
    void Take_Code(unsigned char code);

    std::string_view rest;
    Text_Codes codes;
    int font = 0;
    unsigned char color = 0;
};

}  // namespace galdren
