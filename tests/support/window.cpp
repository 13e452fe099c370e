#include "tests/support/window.h"

#include <algorithm>
#include <string>

#include "Galdren_Tools.h"

namespace galdren_test {

namespace {

RECT Client(HWND window) {
    RECT client;
    GetClientRect(window, &client);
    return client;
}

/// The context of a window for the time of a call.
struct Window_Context {
    explicit Window_Context(HWND its_window) : window(its_window), dc(GetDCEx(window, nullptr, DCX_CACHE)) {}
    ~Window_Context() { ReleaseDC(window, dc); }
    Window_Context(const Window_Context&) = delete;
    Window_Context& operator=(const Window_Context&) = delete;
    operator HDC() const { return dc; }
    const HWND window;
    const HDC dc;
};

HWND Make_Window(int width, int height, UINT class_style) {
    const std::string name = "Galdren_Test_Window_" + std::to_string(class_style);
    WNDCLASSA description{};
    description.style = class_style;
    description.lpfnWndProc = DefWindowProcA;
    description.hInstance = GetModuleHandleA(nullptr);
    description.lpszClassName = name.c_str();
    RegisterClassA(&description);  // fails when it is registered already
    return CreateWindowExA(WS_EX_TOOLWINDOW | WS_EX_NOACTIVATE, name.c_str(), "", WS_POPUP, 40, 40, width,
                           height, nullptr, nullptr, description.hInstance, nullptr);
}

}  // namespace

void PrintTo(const Area& area, std::ostream* out) {
    *out << "x " << area.left << ".." << area.right << ", y " << area.bottom << ".." << area.top;
}

Picture::Picture(HDC source, const RECT& area)
    : width_(area.right - area.left), height_(area.bottom - area.top) {
    const BITMAPINFO layout{{sizeof(BITMAPINFOHEADER), width_, -height_, 1, 32, BI_RGB, 0, 0, 0, 0, 0}, {}};
    void* bits = nullptr;
    HDC memory = CreateCompatibleDC(source);
    HBITMAP bitmap = CreateDIBSection(source, &layout, DIB_RGB_COLORS, &bits, nullptr, 0);
    HGDIOBJ before = SelectObject(memory, bitmap);
    BitBlt(memory, 0, 0, width_, height_, source, area.left, area.top, SRCCOPY);
    GdiFlush();
    const auto* first = static_cast<const std::uint32_t*>(bits);
    pixels_.assign(first, first + width_ * height_);
    for (std::uint32_t& pixel : pixels_)
        pixel &= 0xFFFFFF;
    SelectObject(memory, before);
    DeleteObject(bitmap);
    DeleteDC(memory);
}

Picture::Picture(HWND window) : Picture(Window_Context(window), Client(window)) {}

std::uint32_t Picture::At(int x, int y) const {
    return pixels_.at(static_cast<std::size_t>((height_ - 1 - y) * width_ + x));
}

Area Picture::Painted() const {
    Area area{width_, -1, height_, -1};
    for (int y = 0; y < height_; ++y) {
        for (int x = 0; x < width_; ++x) {
            if (At(x, y) == Loud) continue;
            area = {std::min(area.left, x), std::max(area.right, x), std::min(area.bottom, y), y};
        }
    }
    return area.right < 0 ? Nothing : area;
}

Picture On_Screen(HWND window) {
    RECT area = Client(window);
    MapWindowPoints(window, nullptr, reinterpret_cast<POINT*>(&area), 2);
    return {Window_Context(nullptr), area};
}

testing::AssertionResult Same(const Picture& got, const Picture& wanted) {
    if (got.width_ != wanted.width_ || got.height_ != wanted.height_) {
        return testing::AssertionFailure() << "sizes differ";
    }
    std::size_t count = 0, first = 0;
    for (std::size_t i = got.pixels_.size(); i-- > 0;) {
        if (got.pixels_[i] != wanted.pixels_[i]) ++count, first = i;
    }
    if (count == 0) return testing::AssertionSuccess();
    const int index = static_cast<int>(first);
    return testing::AssertionFailure()
           << count << " pixels differ, the topmost at (" << index % got.width_ << ", "
           << got.height_ - 1 - index / got.width_ << "): got " << std::hex << got.pixels_[first]
           << ", wanted " << wanted.pixels_[first];
}

Test_Window::Test_Window(int width, int height, UINT class_style)
    : window_(Make_Window(width, height, class_style)) {
    ShowWindow(window_, SW_SHOWNOACTIVATE);
    Refill();
    Point_At(-10, -10);
}

void Test_Window::Resize(int width, int height) {
    SetWindowPos(window_, nullptr, 0, 0, width, height, SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
}

void Test_Window::Close() {
    if (window_) DestroyWindow(window_);
    window_ = nullptr;
}

void Test_Window::Refill() {
    const RECT all = Client(window_);
    HBRUSH brush = CreateSolidBrush(RGB(Loud >> 16, Loud >> 8, Loud));
    FillRect(Window_Context(window_), &all, brush);
    DeleteObject(brush);
}

void Test_Window::Point_At(int x, int y) const {
    POINT point{x, Client(window_).bottom - 1 - y};
    ClientToScreen(window_, &point);
    ZCursor_X = point.x;
    ZCursor_Y = point.y;
}

void Pump() {
    for (MSG message; PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE);) {
        TranslateMessage(&message);
        if (message.hwnd) DispatchMessageW(&message);  // else it is a timer of the test itself
    }
}

bool Pump_Until(const std::function<bool()>& done) {
    for (const ULONGLONG begin = GetTickCount64(); !done() && GetTickCount64() - begin < 10'000; Pump())
        MsgWaitForMultipleObjects(0, nullptr, FALSE, 100, QS_ALLINPUT);
    return done();
}

}  // namespace galdren_test
