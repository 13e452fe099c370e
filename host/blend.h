/// @file
/// What is painted, blended with what was there.
#pragma once

#include <windows.h>

namespace galdren {

/// Keeps what a window shows at a place, and blends it with what is painted there afterwards. For the
/// inside of a paint batch.
class Blend {
  public:
    Blend() = default;
    ~Blend();
    Blend(const Blend&) = delete;
    Blend& operator=(const Blend&) = delete;

    /// Keeps what is there.
    /// @param area  in logical pixels, `top` the lower y
    /// @return false without memory: there is nothing to blend with then
    bool Keep(HWND window, const RECT& area);
    /// Blends it with what is there now.
    /// @param share  of what was kept, of 255
    void Mix(HWND window, unsigned char share) const;

  private:
    bool Make_Room(int width, int height);
    void Free();

    HDC dc = nullptr;
    HBITMAP bitmap = nullptr;
    HGDIOBJ before = nullptr;
    SIZE room{};  // of the bitmap
    RECT kept{};  // the place, see `Keep`
};

}  // namespace galdren
