/// @file
/// Controls by their names, for tests of applications: press "Apply", read "Volume".
#pragma once

#include <optional>
#include <string>

#include "part_window.h"

/// What a control is called: by the application's description, by its caption, or for a field by the label
/// that stands before it in the window. Empty when it has no name.
std::string Name_Of_Control(const Part_Window& window, int control);

/// What a part is called; for `Whole`, what its control is.
std::string Name_Of_Part(const Part_Window& window, Part_Place place);

/// The first part that is shown and has a name, whole controls and parts inside them; captions count letter
/// by letter. Labels name what comes after them and are not found themselves.
std::optional<Part_Place> Find_Part(const Part_Window& window, const char* name);

/// Presses the part of a name as a click would.
/// @return false when there is none, or it cannot be pressed
bool Press_Part(Part_Window& window, const char* name);

/// What the part of a name holds, as it is shown; for what is on or off "1" or "0". Nothing when there is no
/// such part.
std::optional<std::string> Read_Part(const Part_Window& window, const char* name);

/// Gives the part of a name a value, see `Class_Parts::Set_Value`.
/// @return false when there is none, or it does not take the value
bool Write_Part(Part_Window& window, const char* name, const char* value);
