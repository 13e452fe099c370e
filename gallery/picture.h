/// @file
/// Pictures of a window as PNG files.
#pragma once

#include <windows.h>

#include <string>

namespace gallery {

/// Writes PNG files while it lives.
class Picture_Writer {
  public:
    Picture_Writer();
    ~Picture_Writer();
    Picture_Writer(const Picture_Writer&) = delete;
    Picture_Writer& operator=(const Picture_Writer&) = delete;

    /// Writes what the client area of `window` would show, also where it reaches beyond the screen.
    /// @return false when there is no encoder or the file cannot be written
    bool Write(HWND window, const std::string& path) const;
    /// Writes what a part of the client area shows.
    bool Write(HWND window, const RECT& area, const std::string& path) const;

  private:
    ULONG_PTR token = 0;
};

}  // namespace gallery
