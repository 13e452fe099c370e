/// @file
/// The words of the menu of text fields.
#pragma once

#include "../tools/api.h"

/// The words of the menu that fields with `TEXT_EDITING` have, in the code page of texts: "&" stands before
/// the letter that chooses an entry, a tab before its key.
struct Text_Menu {
    const char* Undo = "&Undo\tCtrl+Z";              ///< undoes the last edit
    const char* Redo = "&Redo\tCtrl+Y";              ///< does it again
    const char* Cut = "Cu&t\tCtrl+X";                ///< copies what is selected, and takes it away
    const char* Copy = "&Copy\tCtrl+C";              ///< copies what is selected
    const char* Paste = "&Paste\tCtrl+V";            ///< puts the clipboard's text in its place
    const char* Delete = "&Delete\tDel";             ///< takes it away
    const char* Select_All = "Select &all\tCtrl+A";  ///< selects the line, or all output
};

/// Has the menus of all fields of the process use other words from now on.
/// @param words  texts that are the application's own and stay; none of them null
GALDREN_TOOLS_API void Set_Text_Menu(const Text_Menu& words);
