/// @file
/// Texts that a control keeps, the newest first.
#pragma once

#include <algorithm>
#include <new>
#include <string_view>

#include "widgets/text_fields.h"

namespace galdren {

/// Makes an array of zeroed entries where there is none yet.
/// @return false when the memory cannot be had
template <class Entry>
bool Make_Array(Entry*& array, int count) {
    if (!array) array = new (std::nothrow) Entry[static_cast<std::size_t>(count)]();
    return array != nullptr;
}

/// Brings the oldest entry of an array to the front, where the newest is to be.
template <class Entry>
void Bring_Oldest(Entry* array, int count) {
    std::rotate(array, array + count - 1, array + count);
}

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

}  // namespace galdren
