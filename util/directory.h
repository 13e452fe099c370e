/// @file
/// Listings of directories, and paths.
#pragma once

#include <stddef.h>

#include "api.h"

extern "C" {

/// One directory in a listing.
typedef struct Scan_Entry {
    char* name;     ///< without its path; null ends the listing
    int no_access;  ///< not 0 when the directory cannot be listed itself
    int is_tree;    ///< what `Is_Tree` answers for it: found out on the way, at no cost
} Scan_Entry;

/// Lists the directories in a directory, in the order in which the system has them, without "." and "..".
///
/// Texts are in the code page of `Set_Text_Code_Page`. A directory whose name is not in it is listed with
/// other characters in the place of those that are missing, and as one that cannot be listed, since no path
/// leads to it.
/// @param path  a directory, with or without a trailing backslash; may be longer than MAX_PATH
/// @return the listing, to be given back with `Scan_Free`; null when the directory cannot be listed
GALDREN_UTIL_API Scan_Entry* Scan_Dir(const char* path);

/// Gives a listing back. Null is left alone.
GALDREN_UTIL_API void Scan_Free(Scan_Entry* listing);

/// Whether a directory holds directories whose names do not begin with a dot. Links to directories count; a
/// directory that cannot be listed answers 0.
GALDREN_UTIL_API int Is_Tree(const char* path);

/// Makes a path absolute, with backslashes, a drive and a trailing backslash, in place.
/// @param path  the path
/// @param size  room at `path` in bytes
/// @return 1; 0, with `path` left as it was, when it has no absolute form or that has no room
GALDREN_UTIL_API int Path_To_Abs(char* path, size_t size);

/// Turns the capital letters of a text into small ones, in place, also those beyond ASCII. One whose small
/// letter takes another number of bytes stays.
/// @return `text`, which may be null
GALDREN_UTIL_API char* Str_To_Lower(char* text);
}
