/// @file
/// The lines of a text field, and its input line.
#pragma once

#include <algorithm>
#include <cstdarg>
#include <cstring>
#include <new>

#include "tools/area.h"
#include "widgets/text.h"

namespace galdren {

inline bool Is_Reading(const Text_Fields& field) { return (field.Mode & TEXT_READING) != 0; }

/// The box of the input line.
inline Area Input_Area(const Text_Fields& field) {
    return {field.Input_Box[0], field.Input_Box[1], field.Input_Box[3], field.Input_Box[2]};
}

inline bool Is_One_Of(char character, const char* set) { return character && std::strchr(set, character); }

/// Whether the field's filters let a character in.
inline bool Accepts(const Texts& field, char character) {
    if ((field.Flag & TEXT_FLOAT) && !Is_One_Of(character, "0123456789+-.e")) return false;
    if ((field.Flag & TEXT_INTEGER) && !Is_One_Of(character, "0123456789+-")) return false;
    return !(field.Flag & TEXT_HEXADECIMAL) || Is_One_Of(character, "0123456789abcdefABCDEF");
}

/// Formats into the room of one line and cuts what is too long.
/// @return false when the format fails, with an empty text
bool Format_Line(char (&text)[Text_Fields::Line_Room], const char* format, va_list arguments);

/// Makes an array of `count` zeroed entries where there is none yet.
/// @return false when the memory cannot be had
template <class Entry>
bool Ensure_Array(Entry*& array, int count) {
    if (!array) array = new (std::nothrow) Entry[static_cast<std::size_t>(count)]();
    return array != nullptr;
}

/// Moves the entries of an array `n` places towards its end; the last `n` fall out and the first `n` are
/// zero.
template <class Entry>
void Move_Entries(Entry* array, int count, int n) {
    std::move_backward(array, array + count - n, array + count);
    std::fill_n(array, n, Entry{});
}

/// Frees the texts first..end-1 of an array.
void Free_Texts(char** texts, int first, int end);

/// Lets go of what a field owns but its fonts.
void Release_Lines(Text_Fields& field);

}  // namespace galdren
