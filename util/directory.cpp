#include "util/directory.h"

#include <windows.h>

#include <cstddef>
#include <cstdlib>
#include <cstring>
#include <new>
#include <string>
#include <vector>

#include "util/silent_drives.h"
#include "util/wide.h"

// Everything is asked of the system in UTF-16: paths may be longer than MAX_PATH then, and what the code page
// cannot express is noticed.

namespace {

using galdren::Narrow;
using galdren::Silent_Drives;
using galdren::To_Wide;

/// The absolute form of a path; empty when it has none.
std::wstring Full_Path(const std::wstring& path) {
    std::wstring full(GetFullPathNameW(path.c_str(), 0, nullptr, nullptr), L'\0');
    const DWORD length =
        GetFullPathNameW(path.c_str(), static_cast<DWORD>(full.size()), full.data(), nullptr);
    full.resize(length < full.size() ? length : 0);
    return full;
}

void End_With_Backslash(std::wstring& path) {
    if (!path.empty() && path.back() != L'\\') path += L'\\';
}

/// The form of a directory's path that is not bound to MAX_PATH, with a trailing backslash; empty when there
/// is none.
std::wstring Long_Form(const char* path) {
    std::wstring full = path ? Full_Path(To_Wide(path)) : std::wstring();
    End_With_Backslash(full);
    if (full.empty() || full.starts_with(L"\\\\?\\") || full.starts_with(L"\\\\.\\")) return full;
    return full.starts_with(L"\\\\") ? L"\\\\?\\UNC" + full.substr(1) : L"\\\\?\\" + full;
}

/// Goes through the directories in a directory.
class Directory_Search {
  public:
    /// @param place  path of the directory with a trailing backslash
    explicit Directory_Search(const std::wstring& place)
        : search(FindFirstFileW((place + L'*').c_str(), &found)),
          listable(search != INVALID_HANDLE_VALUE || Is_Empty(place, GetLastError())) {}
    ~Directory_Search() {
        if (search != INVALID_HANDLE_VALUE) FindClose(search);
    }
    Directory_Search(const Directory_Search&) = delete;
    Directory_Search& operator=(const Directory_Search&) = delete;

    bool Is_Listable() const { return listable; }

    /// Name of the next directory; null after the last.
    const wchar_t* Next() {
        while (Advance()) {
            const std::wstring_view name = found.cFileName;
            const bool is_directory = (found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
            if (is_directory && name != L"." && name != L"..") return found.cFileName;
        }
        return nullptr;
    }

    /// Whether there is a directory further on whose name does not begin with a dot.
    bool Finds_Undotted() {
        const wchar_t* name = Next();
        while (name && *name == L'.')
            name = Next();
        return name != nullptr;
    }

  private:
    /// Whether a search failed because there is nothing to find. Unlike others the root of a drive does not
    /// hold itself.
    static bool Is_Empty(const std::wstring& place, DWORD error) {
        if (error != ERROR_FILE_NOT_FOUND) return false;
        const DWORD attributes = GetFileAttributesW(place.c_str());
        return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY);
    }

    bool Advance() {
        if (search == INVALID_HANDLE_VALUE) return false;
        if (at_first) {
            at_first = false;
            return true;
        }
        return FindNextFileW(search, &found) != 0;
    }

    WIN32_FIND_DATAW found{};
    HANDLE search;
    bool listable;
    bool at_first = true;
};

/// A listing while it grows.
class Listing {
  public:
    void Add(const std::string& name, int no_access, int is_tree) {
        texts.append(name).push_back('\0');
        entries.push_back({nullptr, no_access, is_tree});
    }

    /// The listing as one block, entries first; null when the memory cannot be had.
    Scan_Entry* Finish() {
        entries.push_back({});
        const std::size_t entries_size = entries.size() * sizeof(Scan_Entry);
        auto* const block = static_cast<Scan_Entry*>(std::malloc(entries_size + texts.size()));
        if (!block) return nullptr;
        char* text = reinterpret_cast<char*>(block + entries.size());
        std::memcpy(text, texts.data(), texts.size());
        for (std::size_t i = 0; i + 1 < entries.size(); ++i) {
            entries[i].name = text;
            text += std::strlen(text) + 1;
        }
        std::memcpy(block, entries.data(), entries_size);
        return block;
    }

  private:
    std::vector<Scan_Entry> entries;
    std::string texts;
};

/// Adds a directory with what one look into it tells.
/// @param place  path of the directory that it is in
void Add_Entry(Listing& listing, const std::wstring& place, const wchar_t* wide_name) {
    std::string name;
    // No path in the code page leads to a directory whose name is not in it.
    if (!Narrow(wide_name, name)) return listing.Add(name, 1, 0);
    Directory_Search below(place + wide_name + L'\\');
    listing.Add(name, !below.Is_Listable(), below.Finds_Undotted());
}

/// Puts the small letter in the place of a coded character, unless it takes more or fewer bytes.
void Lower_Character(char* text, int bytes, unsigned code) {
    if (code > 0xFFFF) return;
    const auto small = static_cast<wchar_t>(
        reinterpret_cast<ULONG_PTR>(CharLowerW(reinterpret_cast<LPWSTR>(ULONG_PTR{code}))));
    char changed[4];
    if (small != code && Text_From_Wide(&small, 1, changed, sizeof changed) == bytes)
        std::memcpy(text, changed, static_cast<std::size_t>(bytes));
}

}  // namespace

Scan_Entry* Scan_Dir(const char* path) try {
    const Silent_Drives silent;
    const std::wstring place = Long_Form(path);
    if (place.empty()) return nullptr;
    Directory_Search search(place);
    if (!search.Is_Listable()) return nullptr;
    Listing listing;
    while (const wchar_t* name = search.Next())
        Add_Entry(listing, place, name);
    return listing.Finish();
} catch (const std::bad_alloc&) {
    return nullptr;
}

void Scan_Free(Scan_Entry* listing) { std::free(listing); }

int Is_Tree(const char* path) try {
    const Silent_Drives silent;
    const std::wstring place = Long_Form(path);
    return !place.empty() && Directory_Search(place).Finds_Undotted();
} catch (const std::bad_alloc&) {
    return 0;
}

int Path_To_Abs(char* path, size_t size) try {
    std::wstring full = path ? Full_Path(To_Wide(path)) : std::wstring();
    End_With_Backslash(full);
    std::string text;
    if (!Narrow(full, text) || text.empty() || text.size() >= size) return 0;
    std::memcpy(path, text.c_str(), text.size() + 1);
    return 1;
} catch (const std::bad_alloc&) {
    return 0;
}

char* Str_To_Lower(char* text) {
    const int length = text ? static_cast<int>(std::strlen(text)) : 0;
    for (int at = 0; at < length;) {
        unsigned code = 0;
        const int bytes = Text_Decode(text + at, length - at, &code);
        if (code >= 'A' && code <= 'Z') {
            text[at] = static_cast<char>(text[at] - 'A' + 'a');
        } else if (code >= 0x80) {
            Lower_Character(text + at, bytes, code);
        }
        at += bytes;
    }
    return text;
}
