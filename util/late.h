/// @file
/// Functions of the system that a program does without where they are missing. Not public.
#pragma once

#include <windows.h>

namespace galdren {

/// Finds a function of a library of the system; it is left as it is where there is none.
template <class Function>
void Find_Function(HMODULE library, const char* name, Function*& function) {
    if (void* const found = library ? reinterpret_cast<void*>(GetProcAddress(library, name)) : nullptr)
        function = reinterpret_cast<Function*>(found);
}

}  // namespace galdren
