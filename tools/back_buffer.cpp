#include "tools/back_buffer.h"

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <utility>

namespace galdren {

SIZE Client_Size(HWND window) {
    RECT client{};
    if (window) GetClientRect(window, &client);
    return {client.right, client.bottom};
}

BITMAPINFO Top_Down_Info(LONG width, LONG rows) {
    BITMAPINFO info{};
    info.bmiHeader = {sizeof info.bmiHeader, width, -rows, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
    return info;
}

void Map_Logical(HDC dc, SIZE client) {
    const int width = std::max(static_cast<int>(client.cx), 1);
    const int height = std::max(static_cast<int>(client.cy), 1);
    SetMapMode(dc, MM_ANISOTROPIC);
    SetWindowExtEx(dc, width, height, nullptr);
    SetViewportExtEx(dc, width, -height, nullptr);
    SetViewportOrgEx(dc, 0, height - 1, nullptr);
}

bool Has_Private_Context(HWND window) {
    return (GetClassLongPtrA(window, GCL_STYLE) & (CS_OWNDC | CS_CLASSDC)) != 0;
}

Window_Context::Window_Context(HWND owner) : window(owner), dc(GetDC(owner)) {
    if (!dc || !Has_Private_Context(owner)) return;
    saved = SaveDC(dc);
    SetMapMode(dc, MM_TEXT);
    SetWindowOrgEx(dc, 0, 0, nullptr);
    SetViewportOrgEx(dc, 0, 0, nullptr);
}

Window_Context::~Window_Context() {
    if (saved) RestoreDC(dc, saved);
    if (dc) ReleaseDC(window, dc);
}

Back_Buffer::Back_Buffer(SIZE pixels_wanted) : size(pixels_wanted), dc(CreateCompatibleDC(nullptr)) {
    const BITMAPINFO info = Top_Down_Info(size.cx, size.cy);
    void* bits = nullptr;
    bitmap = CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
    pixels = static_cast<unsigned long*>(bits);
    if (dc && bitmap) bitmap_before = SelectObject(dc, bitmap);
}

Back_Buffer::~Back_Buffer() {
    if (font) SelectObject(dc, GetStockObject(SYSTEM_FONT));
    if (bitmap_before) SelectObject(dc, bitmap_before);
    if (bitmap) DeleteObject(bitmap);
    if (dc) DeleteDC(dc);
}

unsigned long* Back_Buffer::Row(int row) const {
    return pixels + static_cast<std::size_t>(row) * static_cast<std::size_t>(size.cx);
}

void Back_Buffer::Copy_To(HWND window, POINT place, int left, int top, int columns, int rows) const {
    const Window_Context target(window);
    const BITMAPINFO info = Top_Down_Info(size.cx, rows);
    GdiFlush();
    SetDIBitsToDevice(target.Get(), place.x, place.y, static_cast<DWORD>(columns), static_cast<DWORD>(rows),
                      left, 0, 0, static_cast<UINT>(rows), Row(top), &info, DIB_RGB_COLORS);
}

void Back_Buffer::Copy_Rows(int from, int to, int rows) {
    GdiFlush();
    std::memmove(Row(to), Row(from), static_cast<std::size_t>(Row(rows) - pixels) * sizeof *pixels);
}

void Back_Buffer::Reset_Text() {
    if (font) SelectObject(dc, GetStockObject(SYSTEM_FONT));
    font = nullptr;
    SetTextColor(dc, 0);
    SetBkMode(dc, OPAQUE);
}

Window_Buffer::Window_Buffer(SIZE client) : Back_Buffer(client) {
    if (Usable()) Map_Logical(Context(), client);
}

void Window_Buffer::Load(HWND window) {
    const Window_Context source(window);
    const SIZE size = Size();
    StretchBlt(Context(), 0, size.cy - 1, size.cx, -size.cy, source.Get(), 0, 0, size.cx, size.cy, SRCCOPY);
    SetBoundsRect(Context(), nullptr, DCB_RESET | DCB_ENABLE);
    limit.reset();
}

void Window_Buffer::Limit(const RECT& area) { limit = area; }

RECT Window_Buffer::Painted() {
    RECT painted{};
    if (!(GetBoundsRect(Context(), &painted, DCB_RESET) & DCB_SET)) return {};
    LPtoDP(Context(), reinterpret_cast<POINT*>(&painted), 2);
    if (painted.top > painted.bottom) std::swap(painted.top, painted.bottom);
    return painted;
}

void Window_Buffer::Show(HWND window) {
    SelectClipRgn(Context(), nullptr);
    const RECT wanted = limit ? *limit : Painted();
    const RECT all{0, 0, Size().cx, Size().cy};
    RECT shown{};
    if (!IntersectRect(&shown, &wanted, &all)) return;
    Copy_To(window, {shown.left, shown.top}, shown.left, shown.top, shown.right - shown.left,
            shown.bottom - shown.top);
}

void Scratch::Stand_For(const RECT& device) {
    place = device;
    Place_Origin();
}

void Scratch::Place_Origin() const { SetViewportOrgEx(Context(), -place.left, start - place.top, nullptr); }

void Scratch::Show(HWND window) const {
    SelectClipRgn(Context(), nullptr);
    Copy_To(window, {place.left, place.top}, 0, start, place.right - place.left, place.bottom - place.top);
}

void Kept_Picture::Raise(int rows) {
    const int moved = start + rows;
    if (moved < 0) {
        Copy_Rows(start, Size().cy - height - rows, height + rows);
        start = Size().cy - height;
    } else if (moved > Size().cy - height) {
        Copy_Rows(moved, 0, height - rows);
        start = 0;
    } else {
        start = moved;
    }
    Place_Origin();
}

}  // namespace galdren
