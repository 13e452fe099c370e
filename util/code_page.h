/// @file
/// The code page of texts: what the bytes of captions, lines, names of files and all other texts mean.
#pragma once

#include "api.h"

extern "C" {

/// Sets the code page of all texts of the process from now on. Choose it before the first control: fonts are
/// made for it by the `Init` that follows, and what was painted is not painted anew.
/// @param page  65001 for UTF-8, or a code page of the system with one or two bytes a character; 0 means the
///              system's own, with which a process begins. Any other is reported at level 11 and changes
///              nothing
GALDREN_UTIL_API void Set_Text_Code_Page(unsigned page);

/// The code page of texts, never 0.
GALDREN_UTIL_API unsigned Text_Code_Page();

/// Reads the first coded character of a text. A byte that belongs to no character counts as one by itself.
/// @param text    the text, which need not end with a zero
/// @param length  its bytes
/// @param code    receives the character's number in Unicode, U+FFFD for a byte that belongs to none; may be
///                null
/// @return bytes of the character; 0 for an empty text
GALDREN_UTIL_API int Text_Decode(const char* text, int length, unsigned* code);

/// Turns a text into UTF-16, character by character as `Text_Decode` reads them. There are never more units
/// than bytes. A character for which there is no room ends it.
/// @param wide  receives the text, without a zero at its end
/// @param room  units at `wide`
/// @return units written
GALDREN_UTIL_API int Text_To_Wide(const char* text, int length, wchar_t* wide, int room);

/// Turns UTF-16 into a text. What the code page lacks becomes its default character, half of a surrogate pair
/// U+FFFD. A character for which there is no room ends it; 4 bytes a unit are always enough.
/// @param text  receives the text, without a zero at its end
/// @param room  bytes at `text`
/// @return bytes written
GALDREN_UTIL_API int Text_From_Wide(const wchar_t* wide, int length, char* text, int room);
}
