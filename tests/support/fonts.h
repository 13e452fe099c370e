/// @file
/// Fonts for languages.
#pragma once

#include <windows.h>

#include <algorithm>
#include <iterator>

namespace galdren_test {

/// Fonts for languages that those of all tests lack, for this program alone.
class Fonts_Of_Languages {
  public:
    Fonts_Of_Languages() {
        loaded = std::all_of(std::begin(Files), std::end(Files), [](const wchar_t* file) {
            return AddFontResourceExW(file, FR_PRIVATE, nullptr) > 0;
        });
    }
    ~Fonts_Of_Languages() {
        for (const wchar_t* const file : Files)
            RemoveFontResourceExW(file, FR_PRIVATE, nullptr);
    }
    Fonts_Of_Languages(const Fonts_Of_Languages&) = delete;
    Fonts_Of_Languages& operator=(const Fonts_Of_Languages&) = delete;
    /// Whether they are here. Windows has its own.
    bool Are_Here() const {
        const bool under_wine = GetProcAddress(GetModuleHandleA("ntdll.dll"), "wine_get_version") != nullptr;
        return loaded || !under_wine;
    }

  private:
    static constexpr const wchar_t* Files[] = {
        LR"(Z:\usr\share\fonts-droid-fallback\truetype\DroidSansFallback.ttf)",
        LR"(Z:\usr\share\fonts\truetype\tlwg\Garuda.ttf)",
        LR"(Z:\usr\share\fonts\truetype\lohit-devanagari\Lohit-Devanagari.ttf)",
    };
    bool loaded;
};

}  // namespace galdren_test
