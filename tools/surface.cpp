#include "tools/surface.h"

#include "tools/view.h"
#include "tools/window.h"

HDC Z_DC = nullptr;
HWND Z_Window = nullptr;
unsigned long Current_Color = 0;

using namespace galdren;

void Begin_Draw(HWND window, HRGN) { Open_Pair(window); }

void End_Draw() { Close_Pair(); }

namespace {

/// Limits `Z_DC` to a rectangle of its pixels, in place of any clip before.
void Clip_To(const RECT& pixels) {
    const HRGN region = CreateRectRgn(pixels.left, pixels.top, pixels.right, pixels.bottom);
    SelectClipRgn(Z_DC, region);
    if (region) DeleteObject(region);
}

}  // namespace

void Clip_Rect(int x, int y, int w, int h) {
    POINT corners[2] = {{x, y}, {x + w, y + h}};
    LPtoDP(Z_DC, corners, 2);
    Clip_To({corners[0].x, corners[0].y, corners[1].x, corners[1].y});
}

void Clip_Reset() {
    const SIZE client = Client_Size(Z_Window);
    Clip_To({0, 0, client.cx, client.cy});
}

void Begin_Batch(HWND window) { Open_Batch(window, nullptr, 0); }

void Begin_Batch(HWND window, const RECT& area, unsigned long color) { Open_Batch(window, &area, color); }

void End_Batch() { Close_Batch(); }

void Begin_Hold(HWND window) { Open_Hold(window); }

void End_Hold(HWND window) { Close_Hold(window); }

int Show_Hold(HWND window, HDC target, const RECT& area) { return Show_Held(window, target, area); }
