/// @file
/// What the keys that all text fields have in common mean, with `TEXT_EDITING`.
#pragma once

#include "tools/keyboard.h"

namespace galdren {

enum class Text_Command { None, Copy, Cut, Paste, Undo, Redo, Select_All };

inline Text_Command Command_Of(int key) {
    switch (key) {
        case KEY_CONTROL | 'C':
        case KEY_CONTROL | KEY_NAVIGATION | VK_INSERT:
            return Text_Command::Copy;
        case KEY_CONTROL | 'X':
        case KEY_SHIFT | KEY_NAVIGATION | VK_DELETE:
            return Text_Command::Cut;
        case KEY_CONTROL | 'V':
        case KEY_SHIFT | KEY_NAVIGATION | VK_INSERT:
            return Text_Command::Paste;
        case KEY_CONTROL | 'Z':
            return Text_Command::Undo;
        case KEY_CONTROL | 'Y':
        case KEY_CONTROL | KEY_SHIFT | 'Z':
            return Text_Command::Redo;
        case KEY_CONTROL | 'A':
            return Text_Command::Select_All;
        default:
            return Text_Command::None;
    }
}

}  // namespace galdren
