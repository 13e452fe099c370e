/// @file
/// Texts of controls, which are in the system's code page, and those of the system, which are UTF-16.
#pragma once

#include <string>

namespace galdren {

/// A text of a control as UTF-16.
std::wstring Wide_Of(const std::string& text);

/// A text of the system in the code page of the controls.
/// @return false when it has characters that the code page lacks
bool Narrow(const std::wstring& text, std::string& narrow);

}  // namespace galdren
