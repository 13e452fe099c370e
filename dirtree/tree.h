/// @file
/// Reading the tree of a directory browser, and going through it. Nothing here paints, and nothing is as deep
/// in calls as the tree is in directories.
///
/// Memory that cannot be had is reported at level 1 and leaves the tree partly built; a directory that cannot
/// be listed is reported at level 11 and marked.
#pragma once

#include "dirtree/node.h"

namespace galdren {

inline bool Has_Flag(const Dir_Tree& node, unsigned bits) { return (node.flags & bits) != 0; }

inline void Set_Flag(Dir_Tree& node, unsigned bit, bool on) {
    node.flags = static_cast<unsigned short>(on ? node.flags | bit : node.flags & ~bit);
}

/// Makes a tree of the drives A: to X:, in which the way to a directory is open.
/// @param target  path of the directory in small letters, with a trailing backslash; null opens nothing
/// @return null when the memory cannot be had
Dir_Tree* Make_Tree(const char* target);

/// A copy of everything that is read.
/// @return null when the memory cannot be had, without a report
Dir_Tree* Copy_Tree(const Dir_Tree& root);

/// Null is left alone.
void Free_Tree(Dir_Tree* root);

/// The first node, among those that are read, with a path, whatever its case; null when there is none.
/// @param path  in small letters
Dir_Tree* Find_Path(Dir_Tree& root, const char* path);

/// The node that is marked as the current one; null when there is none.
Dir_Tree* Find_Current(Dir_Tree& root);

/// Has all names measured anew.
void Forget_Widths(Dir_Tree& root);

/// Opens a closed node, reading it the first time, or closes an open one.
/// @return false when it is neither
bool Toggle(Dir_Tree& node);

/// Lists all open directories again. Nodes of directories that are still there stay, in the order of the new
/// listing; those of others go, with all below them. The drives stay, and those that could not be opened are
/// looked at again.
void Rescan(Dir_Tree& root);

/// The rows that show: the root, and the children of open nodes.
/// @param count  receives their number
/// @return an array; null when the memory cannot be had
Dir_Row* List_Rows(Dir_Tree& root, int& count);

}  // namespace galdren
