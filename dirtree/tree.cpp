#include "dirtree/tree.h"

#include <windows.h>

#include <algorithm>
#include <cstddef>
#include <cstdio>
#include <cstring>
#include <memory>
#include <new>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "tools/arithmetic.h"
#include "tools/sharing.h"
#include "util/code_page.h"
#include "util/directory.h"
#include "util/error.h"
#include "util/program.h"
#include "util/silent_drives.h"

namespace galdren {

namespace {

// Lines, file and variables identify the places in reports and do not follow the code.
constexpr char Source_Name[] = ".\\dirtree.cpp";

void Report_No_Text(int line, const char* variable) {
    Error_Fct(hwnd, ERROR_LEVEL_MEMORY, "line %-4d of %s \nmemory error in strdup (var=%s)", line,
              Source_Name, variable);
}

void Report_No_Array(const char* function, int line, const char* variable, int count, std::size_t size) {
    Error_Fct(hwnd, ERROR_LEVEL_MEMORY, "line %-4d of %s \nmemory error in %s (var=%s, dim=%dx%d)", line,
              Source_Name, function, variable, count, static_cast<int>(size));
}

/// Says what a node is like.
/// @param state  one of `DIR_CLOSED`, `DIR_OPEN`, `DIR_LEAF`, `DIR_NO_ACCESS`
void Mark(Dir_Tree& node, unsigned state) {
    constexpr unsigned States = DIR_CLOSED | DIR_OPEN | DIR_LEAF | DIR_NO_ACCESS;
    node.flags = static_cast<unsigned short>((node.flags & ~States) | state);
}

/// A new array of nodes with the one that ends it.
Dir_Tree* New_Children(int count) { return new (std::nothrow) Dir_Tree[static_cast<std::size_t>(count) + 1]; }

/// Gives the last child its mark and takes it from the others.
void Mark_Last(Dir_Tree* children) {
    for (Dir_Tree* child = children; child->name; ++child)
        Set_Flag(*child, DIR_LAST, !child[1].name);
}

void Free_Texts(Dir_Tree& node) {
    delete[] node.name;
    delete[] node.path;
}

Dir_Tree* End_Of(Dir_Tree* children) {
    while (children->name)
        ++children;
    return children;
}

/// Frees an array of children and everything below. What is still to be freed hangs, array by array, on the
/// nodes that end the arrays.
void Free_Children(Dir_Tree* children) {
    while (children) {
        Dir_Tree* const end = End_Of(children);
        Dir_Tree* waiting = end->child;
        for (Dir_Tree* node = children; node != end; ++node) {
            Free_Texts(*node);
            if (node->child) End_Of(node->child)->child = std::exchange(waiting, node->child);
        }
        delete[] children;
        children = waiting;
    }
}

void Drop_Children(Dir_Tree& node) { Free_Children(std::exchange(node.child, nullptr)); }

/// Where a walk goes on after a node.
enum class Go { Into, Past, Nowhere };

/// Visits a node and what is below it, parents before children, in the order of the arrays. A visit may give
/// its node other children.
/// @param visit  called with each node and its depth below the first
template <class Node, class Visit>
void Walk(Node& first, Visit visit) {
    std::vector<Node*> next;  // the next node at each depth
    const auto visit_one = [&](Node& node) {
        const Go go = visit(node, static_cast<int>(next.size()));
        if (go == Go::Into && node.child) next.push_back(node.child);
        return go != Go::Nowhere;
    };
    bool more = visit_one(first);
    while (more && !next.empty()) {
        Node& node = *next.back();
        if (node.name) {
            ++next.back();
            more = visit_one(node);
        } else {
            next.pop_back();
        }
    }
}

/// The directories in a directory, as they are now.
class Listing {
  public:
    explicit Listing(const char* path) : entries(Scan_Dir(path), Scan_Free) {
        if (!entries) Error_Fct(hwnd, ERROR_LEVEL_WARNING, "Scan_Dir(%s) -> NULL", path);
        For_Each([this](const Scan_Entry&) { ++count; });
    }
    /// Number of those that are shown.
    int Count() const { return count; }
    /// What the directory is like while it is not open.
    unsigned State() const { return !entries ? DIR_NO_ACCESS : count == 0 ? DIR_LEAF : DIR_CLOSED; }

    /// Calls `use` with each entry that is shown.
    template <class Use>
    void For_Each(Use use) const {
        for (const Scan_Entry* entry = entries.get(); entry && entry->name; ++entry) {
            if (entry->name[0] != '.') use(*entry);
        }
    }

  private:
    std::unique_ptr<Scan_Entry, decltype(&Scan_Free)> entries;
    int count = 0;
};

/// What a directory is like that a listing names.
unsigned State_Of(const Scan_Entry& entry) {
    if (entry.no_access) return DIR_NO_ACCESS;
    return entry.is_tree ? DIR_CLOSED : DIR_LEAF;
}

/// Path of a directory in `parent`; null when the memory cannot be had.
char* Path_Below(const char* parent, const char* name) {
    const std::size_t parent_length = std::strlen(parent);
    const std::size_t name_length = std::strlen(name);
    char* path = new (std::nothrow) char[parent_length + name_length + 2];
    if (!path) return nullptr;
    std::memcpy(path, parent, parent_length);
    std::memcpy(path + parent_length, name, name_length);
    std::memcpy(path + parent_length + name_length, "\\", 2);
    return path;
}

/// Lines of the reports about the texts of a new node.
struct Text_Lines {
    int path;
    int name;
};

/// Makes an empty node that of a directory in `parent`.
/// @return false, with the node still empty, when the memory cannot be had
bool Fill_Node(Dir_Tree& node, const Dir_Tree& parent, const Scan_Entry& entry, const Text_Lines& lines) {
    char* path = Path_Below(parent.path, entry.name);
    if (!path) {
        Report_No_Text(lines.path, "tree->child[j].path");
        return false;
    }
    char* name = Duplicate(entry.name);
    if (!name) {
        Report_No_Text(lines.name, "tree->child[j].name");
        delete[] path;
        return false;
    }
    node.name = name;
    node.path = path;
    Mark(node, State_Of(entry));
    return true;
}

void Read_Children(Dir_Tree& node) {
    const Listing listing(node.path);
    if (listing.Count() == 0) return Mark(node, listing.State());
    Mark(node, DIR_OPEN);
    node.child = New_Children(listing.Count());
    if (!node.child) {
        Report_No_Array("calloc", 958, "tree->child", listing.Count() + 1, sizeof(Dir_Tree));
        return;
    }
    Dir_Tree* next = node.child;
    listing.For_Each([&](const Scan_Entry& entry) { next += Fill_Node(*next, node, entry, {973, 974}); });
    Mark_Last(node.child);
}

/// A path in small letters.
std::string Lowered(const char* path) {
    std::string lower(path);
    Str_To_Lower(lower.data());
    lower.resize(std::strlen(lower.c_str()));
    return lower;
}

/// Reads the way from a drive to a directory. Where names differ by case alone there may be several; a way
/// that goes on and on through links ends when the path could not have named more directories.
void Open_Way(Dir_Tree& drive, std::string_view target) try {
    std::size_t reads_left = target.size();
    Walk(drive, [&](Dir_Tree& node, int) {
        if (reads_left == 0 || !target.starts_with(Lowered(node.path))) return Go::Past;
        --reads_left;
        Read_Children(node);
        return Go::Into;
    });
} catch (const std::bad_alloc&) {
    return;  // open as far as the memory went
}

unsigned Drive_Kind(const char* path) {
    switch (GetDriveTypeA(path)) {
        case DRIVE_REMOVABLE:
            return DIR_REMOVABLE;
        case DRIVE_FIXED:
            return DIR_FIXED;
        case DRIVE_REMOTE:
            return DIR_REMOTE;
        case DRIVE_CDROM:
            return DIR_CDROM;
        default:
            return 0;
    }
}

/// Shown name of a drive: its label, where it can be had, and its letter. The drives that were for diskettes
/// are not asked, which would take seconds.
/// @param line  receives the line of the report if there is no memory for it
char* Drive_Name(const char* path, int& line) {
    constexpr int Longest_Label = 80;
    wchar_t label[Longest_Label] = L"";
    const char letter = path[0];
    const wchar_t root[] = {static_cast<wchar_t>(letter), L':', L'\\', L'\0'};
    line = 790;
    if (letter > 'B') {
        const bool answered =
            GetVolumeInformationW(root, label, Longest_Label, nullptr, nullptr, nullptr, nullptr, 0) != 0;
        line = answered ? 783 : 786;
        if (!answered) label[0] = L'\0';
    }
    char name[4 * Longest_Label + 8];
    const int length = Text_From_Wide(label, lstrlenW(label), name, 4 * Longest_Label);
    std::snprintf(name + length, sizeof name - static_cast<std::size_t>(length), "%s(%c:)", length ? " " : "",
                  letter);
    return Duplicate(name);
}

/// @return false, with the node still empty, when the memory cannot be had
bool Fill_Drive(Dir_Tree& node, char letter) {
    const char root[] = {letter, ':', '\\', '\0'};
    char* path = Duplicate(root);
    if (!path) {
        Report_No_Text(754, "Tree->child[j].path");
        return false;
    }
    int name_line = 0;
    char* name = Drive_Name(root, name_line);
    if (!name) {
        Report_No_Text(name_line, "Tree->child[j].name");
        delete[] path;
        return false;
    }
    node.flags = static_cast<unsigned short>(DIR_DRIVE | DIR_CLOSED | Drive_Kind(root));
    node.name = name;
    node.path = Str_To_Lower(path);
    return true;
}

constexpr int Most_Drives = 24;

void Fill_Drives(Dir_Tree* drives) {
    const Silent_Drives silent;
    const DWORD present = GetLogicalDrives();
    Dir_Tree* next = drives;
    for (int i = 0; i < Most_Drives; ++i) {
        if (present & 1UL << i) next += Fill_Drive(*next, static_cast<char>('A' + i));
    }
    Mark_Last(drives);
}

/// Fills in the root.
/// @return false when the memory cannot be had
bool Fill_Root(Dir_Tree& root) {
    root.flags = DIR_ROOT | DIR_OPEN;
    root.name = Duplicate("My Computer");
    if (!root.name) {
        Report_No_Text(732, "Tree->name");
        return false;
    }
    root.child = New_Children(Most_Drives);
    if (!root.child) {
        Report_No_Array("calloc", 736, "Tree->child", Most_Drives, sizeof(Dir_Tree));
        return false;
    }
    Fill_Drives(root.child);
    return true;
}

/// The children that a node had before, by name.
class Known_Children {
  public:
    explicit Known_Children(Dir_Tree* known) : children(known), count(known ? End_Of(known) - known : 0) {
        by_name.reserve(static_cast<std::size_t>(count));
        for (Dir_Tree* child = children; child != children + count; ++child)
            by_name.push_back({child->name, child});
        std::sort(by_name.begin(), by_name.end());
    }
    std::ptrdiff_t Count() const { return count; }

    /// Takes a child out; one without a name when there is none called `name`.
    Dir_Tree Take(std::string_view name) {
        const auto called_so = [&](const Entry& entry) { return entry.first < name; };
        auto found = std::partition_point(by_name.begin(), by_name.end(), called_so);
        while (found != by_name.end() && found->first == name && !found->second)
            ++found;
        if (found == by_name.end() || found->first != name) return {};
        return std::exchange(*std::exchange(found->second, nullptr), {});
    }

    /// Frees those that were not taken.
    void Free_Rest() {
        Dir_Tree* const end = children + count;
        Dir_Tree* left = std::remove_if(children, end, [](const Dir_Tree& child) { return !child.name; });
        std::fill(left, end, Dir_Tree{});
        Free_Children(children);
    }

  private:
    using Entry = std::pair<std::string_view, Dir_Tree*>;  // null when it was taken

    Dir_Tree* children;
    std::ptrdiff_t count;
    std::vector<Entry> by_name;
};

/// Brings a node in line with what a new listing says of its directory.
void Renew_State(Dir_Tree& node, const Scan_Entry& entry) {
    const unsigned state = State_Of(entry);
    if (state == DIR_CLOSED && Has_Flag(node, DIR_OPEN)) return;
    if (state != DIR_CLOSED) Drop_Children(node);
    Mark(node, state);
}

/// Gives an open node the children that its directory has now.
void Rescan_Children(Dir_Tree& node) {
    const Listing listing(node.path);
    if (listing.Count() == 0) {
        Drop_Children(node);
        return Mark(node, listing.State());
    }
    Known_Children known(node.child);
    Dir_Tree* const children = New_Children(listing.Count());
    if (!children) {
        const int line = listing.Count() > known.Count() ? 1099 : 1109;
        Report_No_Array("realloc", line, "tree->child", listing.Count() + 1, sizeof(Dir_Tree));
        return;
    }
    Dir_Tree* next = children;
    listing.For_Each([&](const Scan_Entry& entry) {
        *next = known.Take(entry.name);
        if (next->name) {
            Renew_State(*next, entry);
            ++next;
        } else {
            next += Fill_Node(*next, node, entry, {1116, 1117});
        }
    });
    Mark_Last(children);
    known.Free_Rest();
    node.child = children;
}

/// Whether a node is a drive that could not be opened. No listing of another directory tells when that
/// changes, as it does for directories.
bool Is_Unopened_Drive(const Dir_Tree& node) {
    return Has_Flag(node, DIR_DRIVE) && Has_Flag(node, DIR_LEAF | DIR_NO_ACCESS);
}

/// Copies a node without its children.
/// @return false, with the copy left empty, when the memory cannot be had
bool Copy_Node(Dir_Tree& copy, const Dir_Tree& node) {
    std::unique_ptr<char[]> name(Duplicate(node.name));
    std::unique_ptr<char[]> path(node.path ? Duplicate(node.path) : nullptr);
    if (!name || (node.path && !path)) return false;
    copy = {node.flags, node.width, name.release(), path.release(), nullptr};
    return true;
}

}  // namespace

Dir_Tree* Make_Tree(const char* target) {
    std::unique_ptr<Dir_Tree, decltype(&Free_Tree)> root(new (std::nothrow) Dir_Tree, Free_Tree);
    if (!root) {
        Report_No_Array("calloc", 730, "Tree", 1, sizeof(Dir_Tree));
        return nullptr;
    }
    if (!Fill_Root(*root)) return nullptr;
    for (Dir_Tree* drive = root->child; target && drive->name; ++drive)
        Open_Way(*drive, target);
    return root.release();
}

Dir_Tree* Copy_Tree(const Dir_Tree& root) try {
    std::unique_ptr<Dir_Tree, decltype(&Free_Tree)> copy(new Dir_Tree, Free_Tree);
    bool complete = Copy_Node(*copy, root);
    std::vector<std::pair<Dir_Tree*, const Dir_Tree*>> parents{{copy.get(), &root}};  // without children yet
    while (complete && !parents.empty()) {
        const auto [parent, original] = parents.back();
        parents.pop_back();
        if (!original->child) continue;
        const std::ptrdiff_t count = End_Of(original->child) - original->child;
        parent->child = New_Children(static_cast<int>(count));
        complete = parent->child != nullptr;
        for (std::ptrdiff_t i = 0; i < count && complete; ++i) {
            complete = Copy_Node(parent->child[i], original->child[i]);
            if (original->child[i].child) parents.push_back({parent->child + i, original->child + i});
        }
    }
    return complete ? copy.release() : nullptr;
} catch (const std::bad_alloc&) {
    return nullptr;
}

void Free_Tree(Dir_Tree* root) {
    if (!root) return;
    Drop_Children(*root);
    Free_Texts(*root);
    delete root;
}

Dir_Tree* Find_Path(Dir_Tree& root, const char* path) try {
    const std::string_view wanted = path;
    Dir_Tree* found = nullptr;
    Walk(root, [&](Dir_Tree& node, int) {
        const std::string lower = node.path ? Lowered(node.path) : "";
        if (node.path && wanted == lower) found = &node;
        if (found) return Go::Nowhere;
        return wanted.starts_with(lower) ? Go::Into : Go::Past;
    });
    return found;
} catch (const std::bad_alloc&) {
    return nullptr;
}

Dir_Tree* Find_Current(Dir_Tree& root) try {
    Dir_Tree* found = nullptr;
    Walk(root, [&](Dir_Tree& node, int) {
        if (Has_Flag(node, DIR_CURRENT)) found = &node;
        return found ? Go::Nowhere : Go::Into;
    });
    return found;
} catch (const std::bad_alloc&) {
    return nullptr;
}

void Forget_Widths(Dir_Tree& root) try {
    Walk(root, [](Dir_Tree& node, int) {
        node.width = 0;
        return Go::Into;
    });
} catch (const std::bad_alloc&) {
    return;
}

bool Toggle(Dir_Tree& node) {
    if (Has_Flag(node, DIR_OPEN)) {
        Mark(node, DIR_CLOSED);
    } else if (!Has_Flag(node, DIR_CLOSED)) {
        return false;
    } else if (node.child) {
        Mark(node, DIR_OPEN);
    } else {
        Read_Children(node);
    }
    return true;
}

void Rescan(Dir_Tree& root) try {
    Walk(root, [](Dir_Tree& node, int) {
        if (Is_Unopened_Drive(node)) Mark(node, Listing(node.path).State());
        if (!Has_Flag(node, DIR_OPEN)) return Go::Past;
        if (node.path) Rescan_Children(node);
        return Go::Into;
    });
} catch (const std::bad_alloc&) {
    return;  // renewed as far as the memory went
}

Dir_Row* List_Rows(Dir_Tree& root, int& count) try {
    count = 0;
    const auto after = [](const Dir_Tree& node) { return Has_Flag(node, DIR_OPEN) ? Go::Into : Go::Past; };
    Walk(root, [&](Dir_Tree& node, int) {
        ++count;
        return after(node);
    });
    std::unique_ptr<Dir_Row[]> rows(new Dir_Row[static_cast<std::size_t>(count)]);
    std::vector<int> last{-1};  // the last row of each depth, after what stands for the parent of the root
    int row = 0;
    Walk(root, [&](Dir_Tree& node, int depth) {
        const auto level = static_cast<std::size_t>(depth);
        last.resize(level + 1);
        last.push_back(row);
        rows[static_cast<std::size_t>(row++)] = {Low_16(depth), last[level], &node};
        return after(node);
    });
    return rows.release();
} catch (const std::bad_alloc&) {
    Report_No_Array("calloc", 652, "List", count, sizeof(Dir_Row));
    count = 0;
    return nullptr;
}

}  // namespace galdren
