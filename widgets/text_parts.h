/// @file
/// What the output and the input line of a text field share.
#pragma once

#include "tools/base.h"
#include "widgets/text.h"

namespace galdren {

inline bool Is_Reading(const Texts& field) { return (field.Mode & TEXT_READING) != 0; }

/// The box of the input line.
inline Area Input_Area(const Texts& field) {
    return {field.Input_Box[0], field.Input_Box[1], field.Input_Box[3], field.Input_Box[2]};
}

/// What is painted of the input line.
inline Reach Input_Reach(const Texts& field) { return {Common(Area_Of(field), Input_Area(field))}; }

/// Formats into the room of one line and cuts what is too long.
/// @return false when the format fails, with an empty text
bool Format_Line(char (&text)[Texts::Line_Room], const char* format, va_list arguments);

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

}  // namespace galdren
