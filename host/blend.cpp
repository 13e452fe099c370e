#include "host/blend.h"

#include <algorithm>

#include "../Galdren_Tools.h"

namespace galdren {

namespace {

/// The surface of a window for a scope, in its own pixels in place of logical ones.
class Pixel_Surface {
  public:
    explicit Pixel_Surface(HWND window) {
        Begin_Draw(window, nullptr);
        dc = Z_DC;
    }
    ~Pixel_Surface() {
        if (saved) RestoreDC(dc, saved);
        End_Draw();
    }
    Pixel_Surface(const Pixel_Surface&) = delete;
    Pixel_Surface& operator=(const Pixel_Surface&) = delete;

    HDC Context() const { return dc; }

    /// Turns logical pixels into those of the surface, which has a y that goes down. To be called once.
    POINT Unmap(const RECT& area) {
        POINT corner{area.left, area.bottom - 1};
        LPtoDP(dc, &corner, 1);
        saved = SaveDC(dc);
        SetMapMode(dc, MM_TEXT);
        SetWindowOrgEx(dc, 0, 0, nullptr);
        SetViewportOrgEx(dc, 0, 0, nullptr);
        return corner;
    }

  private:
    HDC dc;
    int saved = 0;
};

}  // namespace

Blend::~Blend() { Free(); }

void Blend::Free() {
    if (dc) SelectObject(dc, before), DeleteDC(dc);
    if (bitmap) DeleteObject(bitmap);
    dc = nullptr;
    bitmap = nullptr;
    room = {};
}

/// Sees to a bitmap of at least this size.
bool Blend::Make_Room(int width, int height) {
    if (width <= room.cx && height <= room.cy) return true;
    const SIZE wanted{std::max<LONG>(width, room.cx), std::max<LONG>(height, room.cy)};
    Free();
    BITMAPINFO form{};
    form.bmiHeader = {sizeof form.bmiHeader, wanted.cx, wanted.cy, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
    void* pixels = nullptr;
    bitmap = CreateDIBSection(nullptr, &form, DIB_RGB_COLORS, &pixels, nullptr, 0);
    dc = bitmap ? CreateCompatibleDC(nullptr) : nullptr;
    if (!dc) return Free(), false;
    before = SelectObject(dc, bitmap);
    room = wanted;
    return true;
}

bool Blend::Keep(HWND window, const RECT& area) {
    kept = area;
    const int width = area.right - area.left;
    const int height = area.bottom - area.top;
    if (width <= 0 || height <= 0 || !Make_Room(width, height)) return false;
    Pixel_Surface surface(window);
    const POINT from = surface.Unmap(area);
    return BitBlt(dc, 0, 0, width, height, surface.Context(), from.x, from.y, SRCCOPY) != 0;
}

void Blend::Mix(HWND window, unsigned char share) const {
    const BLENDFUNCTION blended{AC_SRC_OVER, 0, share, 0};
    const int width = kept.right - kept.left;
    const int height = kept.bottom - kept.top;
    Pixel_Surface surface(window);
    const POINT to = surface.Unmap(kept);
    GdiAlphaBlend(surface.Context(), to.x, to.y, width, height, dc, 0, 0, width, height, blended);
}

}  // namespace galdren
