/// @file
/// What is selected, made, narrowed or gathered for a time, as scopes.
#pragma once

#include <windows.h>

#include "tools/surface.h"

namespace galdren {

/// Keeps an object selected for a scope.
class Selection {
  public:
    Selection(HDC context, HGDIOBJ object) : dc(context), before(SelectObject(context, object)) {}
    ~Selection() { SelectObject(dc, before); }
    Selection(const Selection&) = delete;
    Selection& operator=(const Selection&) = delete;

  private:
    HDC dc;
    HGDIOBJ before;
};

/// A rectangle region for a scope.
class Scoped_Region {
  public:
    explicit Scoped_Region(const RECT& r) : region(CreateRectRgn(r.left, r.top, r.right, r.bottom)) {}
    ~Scoped_Region() {
        if (region) DeleteObject(region);
    }
    Scoped_Region(const Scoped_Region&) = delete;
    Scoped_Region& operator=(const Scoped_Region&) = delete;
    HRGN Get() const { return region; }

  private:
    HRGN region;
};

/// Narrows the clip of a context for a scope.
class Narrow_Clip {
  public:
    Narrow_Clip(HDC context, const RECT& r) : dc(context), before({0, 0, 0, 0}) {
        had_clip = GetClipRgn(dc, before.Get()) == 1;
        IntersectClipRect(dc, r.left, r.top, r.right, r.bottom);
    }
    ~Narrow_Clip() { SelectClipRgn(dc, had_clip ? before.Get() : nullptr); }
    Narrow_Clip(const Narrow_Clip&) = delete;
    Narrow_Clip& operator=(const Narrow_Clip&) = delete;

  private:
    HDC dc;
    Scoped_Region before;
    bool had_clip;
};

/// What is painted in its scope reaches the window in one copy, so that nothing flickers.
class Paint_Batch {
  public:
    explicit Paint_Batch(HWND window) { Begin_Batch(window); }
    ~Paint_Batch() { End_Batch(); }
    Paint_Batch(const Paint_Batch&) = delete;
    Paint_Batch& operator=(const Paint_Batch&) = delete;
};

}  // namespace galdren
