/// @file
/// Windows as the surface sees them: their size, their contexts, and where the pointer is on them.
#pragma once

#include <windows.h>

#include <optional>

#include "tools/area.h"

namespace galdren {

SIZE Client_Size(HWND window);

/// Logical (0, 0) becomes the bottom-left pixel, y grows upward, one unit is one pixel. An isotropic mapping
/// would be off by a pixel at many sizes, for the display's millimetres are rounded.
void Map_Logical(HDC dc, SIZE client);

/// A context of a window, in pixels from the top left corner of its client area. Never mirrored: our
/// coordinates run to the right in every window.
class Window_Context {
  public:
    explicit Window_Context(HWND owner);
    ~Window_Context();
    Window_Context(const Window_Context&) = delete;
    Window_Context& operator=(const Window_Context&) = delete;
    /// Null when there is none to be had.
    HDC Get() const { return dc; }
    /// Whether it belongs to its window or class, and the application has it too.
    bool Is_Private() const { return saved != 0; }

  private:
    HWND window;
    HDC dc = nullptr;
    int saved = 0;  // state of a context that belongs to its window or class, and is not ours to change
};

/// Has an area painted by the next WM_PAINT.
void Invalidate(HWND window, const Area& area);

/// Pointer position in the logical coordinates of `window`; none when there is no such window or its client
/// area is empty.
std::optional<POINT> Find_Pointer(HWND window);

}  // namespace galdren
