/// @file
/// What the tree of a directory browser is made of.
#pragma once

/// Bits of `Dir_Tree::flags`. One of the first four says what the node is like.
/// @{
constexpr unsigned short DIR_CLOSED = 0x1;       ///< has directories in it that are not shown
constexpr unsigned short DIR_OPEN = 0x2;         ///< its children are read and shown
constexpr unsigned short DIR_LEAF = 0x4;         ///< has no directories in it
constexpr unsigned short DIR_NO_ACCESS = 0x8;    ///< cannot be listed, and not be chosen
constexpr unsigned short DIR_LAST = 0x10;        ///< the last child of its parent
constexpr unsigned short DIR_DRIVE = 0x20;       ///< a drive
constexpr unsigned short DIR_CURRENT = 0x80;     ///< the one that is chosen
constexpr unsigned short DIR_REMOVABLE = 0x100;  ///< a drive whose medium can be taken out
constexpr unsigned short DIR_FIXED = 0x200;      ///< a drive that stays in
constexpr unsigned short DIR_REMOTE = 0x400;     ///< a drive of another computer
constexpr unsigned short DIR_CDROM = 0x800;      ///< a drive for discs
constexpr unsigned short DIR_ROOT = 0x1000;      ///< the computer, whose children are the drives
/// @}

/// A drive or a directory.
struct Dir_Tree {
    unsigned short flags{};  ///< see the DIR_ constants
    short width{};           ///< of the name in pixels; 0 until it is measured
    char* name{};            ///< shown text; owned
    char* path{};            ///< full path with a trailing backslash; null for the root; owned
    Dir_Tree* child{};  ///< the children, ended by one without a name; null while they are not read; owned
};

/// A row of the tree as it is shown.
struct Dir_Row {
    short depth;     ///< 0 for the root
    int parent;      ///< row of the parent; -1 for the root
    Dir_Tree* node;  ///< not owned
};
