/// @file
/// Parts in the words of the system's accessibility interface.
#pragma once

#include <windows.h>

#include <oleacc.h>

#include "parts/part_window.h"

namespace galdren {

/// ROLE_SYSTEM_ value of a part.
long Role_Of(const Part& part);

/// STATE_SYSTEM_ bits of a part, without those of the focus.
long State_Of(const Part& part, const Part_Owner& owner);

/// Whether a part can be worked now: neither hidden nor disabled nor passive.
bool Is_Ready(const Part& part, const Part_Owner& owner);

/// Whether one of several can be chosen: items, tabs, rows.
bool Can_Be_Chosen(const Part& part);

/// Whether the part has a value, which may be empty.
bool Has_Value(const Part& part);

/// What a press does to a part, in a word; null when it is not there to be pressed.
const wchar_t* Action_Of(const Part& part);

}  // namespace galdren
