#include "gallery/picture.h"

// GDI+ wants COM's declarations first, and min and max by their plain names.
#include <objidl.h>

#include <algorithm>
namespace Gdiplus {
using std::max;
using std::min;
}  // namespace Gdiplus
#include <gdiplus.h>

#include "Galdren_Util.h"

namespace gallery {

namespace {

constexpr CLSID png_encoder{0x557CF406, 0x1A04, 0x11D3, {0x9A, 0x73, 0x00, 0x00, 0xF8, 0x1E, 0xF3, 0x2E}};

/// A picture of a part of a window's client area.
class Snapshot {
  public:
    /// What the window shows.
    Snapshot(HWND window, const RECT& area) {
        Make(window, area, [&area](HDC target, HDC source, int width, int height) {
            BitBlt(target, 0, 0, width, height, source, area.left, area.top, SRCCOPY);
        });
    }
    /// What the whole window would show, also where it reaches beyond the screen.
    explicit Snapshot(HWND window) {
        RECT client{};
        GetClientRect(window, &client);
        Make(window, client, [window](HDC target, HDC, int, int) {
            SendMessageA(window, WM_PRINTCLIENT, reinterpret_cast<WPARAM>(target), PRF_CLIENT);
        });
    }
    ~Snapshot() { DeleteObject(bitmap); }
    Snapshot(const Snapshot&) = delete;
    Snapshot& operator=(const Snapshot&) = delete;
    HBITMAP Get() const { return bitmap; }

  private:
    template <class Paint>
    void Make(HWND window, const RECT& area, Paint paint) {
        const int width = area.right - area.left;
        const int height = area.bottom - area.top;
        const HDC source = GetDC(window);
        const HDC target = CreateCompatibleDC(source);
        bitmap = CreateCompatibleBitmap(source, width, height);
        const HGDIOBJ before = SelectObject(target, bitmap);
        paint(target, source, width, height);
        SelectObject(target, before);
        DeleteDC(target);
        ReleaseDC(window, source);
    }

    HBITMAP bitmap = nullptr;
};

std::wstring Widen(const std::string& text) {
    const auto length = static_cast<int>(text.size());
    std::wstring wide(text.size(), L'\0');
    wide.resize(static_cast<std::size_t>(Text_To_Wide(text.data(), length, wide.data(), length)));
    return wide;
}

bool Save(const Snapshot& snapshot, const std::string& path) {
    Gdiplus::Bitmap picture(snapshot.Get(), nullptr);
    return picture.Save(Widen(path).c_str(), &png_encoder, nullptr) == Gdiplus::Ok;
}

}  // namespace

Picture_Writer::Picture_Writer() {
    const Gdiplus::GdiplusStartupInput input;
    if (Gdiplus::GdiplusStartup(&token, &input, nullptr) != Gdiplus::Ok) token = 0;
}

Picture_Writer::~Picture_Writer() {
    if (token) Gdiplus::GdiplusShutdown(token);
}

bool Picture_Writer::Write(HWND window, const std::string& path) const {
    return token && Save(Snapshot(window), path);
}

bool Picture_Writer::Write(HWND window, const RECT& area, const std::string& path) const {
    return token && Save(Snapshot(window, area), path);
}

}  // namespace gallery
