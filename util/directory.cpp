#include "util/directory.h"

#include <windows.h>

#include <cstddef>
#include <cstdlib>
#include <cstring>
#include <new>
#include <string>
#include <vector>

#include "util/silent_drives.h"

// Everything is asked of the system in UTF-16: paths may be longer than MAX_PATH then, and what the code page
// cannot express is noticed.

namespace {

using galdren::Silent_Drives;

std::wstring Widen(const char* text) {
    const auto length = static_cast<int>(std::strlen(text));
    std::wstring wide(static_cast<std::size_t>(length), L'\0');
    const int made = MultiByteToWideChar(CP_ACP, 0, text, length, wide.data(), length);
    wide.resize(static_cast<std::size_t>(made));
    return wide;
}

/// Converts to the code page.
/// @param exact  receives whether converting back gives the same
std::string Narrow(const std::wstring& wide, bool& exact) {
    constexpr int Most_Bytes = 4;  // of a character
    const auto length = static_cast<int>(wide.size());
    std::string text(wide.size() * Most_Bytes, '\0');
    const int made = WideCharToMultiByte(CP_ACP, 0, wide.data(), length, text.data(), Most_Bytes * length,
                                         nullptr, nullptr);
    text.resize(static_cast<std::size_t>(made));
    exact = Widen(text.c_str()) == wide;
    return text;
}

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
    std::wstring full = path ? Full_Path(Widen(path)) : std::wstring();
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
    bool exact = false;
    const std::string name = Narrow(wide_name, exact);
    // No path in the code page leads to a directory whose name is not in it.
    if (!exact) return listing.Add(name, 1, 0);
    Directory_Search below(place + wide_name + L'\\');
    listing.Add(name, !below.Is_Listable(), below.Finds_Undotted());
}

void Lower_Ascii(char* text) {
    for (; *text; ++text) {
        if (*text >= 'A' && *text <= 'Z') *text = static_cast<char>(*text - 'A' + 'a');
    }
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
    std::wstring full = path ? Full_Path(Widen(path)) : std::wstring();
    End_With_Backslash(full);
    bool exact = false;
    const std::string text = Narrow(full, exact);
    if (text.empty() || !exact || text.size() >= size) return 0;
    std::memcpy(path, text.c_str(), text.size() + 1);
    return 1;
} catch (const std::bad_alloc&) {
    return 0;
}

char* Str_To_Lower(char* text) {
    const int length = text ? static_cast<int>(std::strlen(text)) : 0;
    if (length == 0) return text;
    const int made =
        LCMapStringA(LOCALE_SYSTEM_DEFAULT, LCMAP_LOWERCASE | LOCALE_USE_CP_ACP, text, length, text, length);
    if (made > 0) {
        text[made] = '\0';
    } else {
        Lower_Ascii(text);  // some letter takes more bytes when it is small
    }
    return text;
}
