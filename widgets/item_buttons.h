/// @file
/// Buttons that are the items of others, of which there may be thousands.
#pragma once

#include <windows.h>

#include <span>

class Buttons;

namespace galdren {

/// Initialises buttons that their owner has made equal in size, border and font. They get no regions: nobody
/// reads those of items, and Windows gives a process no more than 10,000 handles.
void Init_Without_Regions(std::span<Buttons* const> buttons, HWND window);
inline void Init_Without_Region(Buttons& button, HWND window) {
    Buttons* const buttons[] = {&button};
    Init_Without_Regions(buttons, window);
}

/// Has a button follow value and pointer as a paint does, for one that need not be painted.
/// @param inside  whether the pointer is inside it
/// @return whether it is highlighted
bool Settle(Buttons& button, bool inside);

}  // namespace galdren
