#include "gallery/stage.h"

#include <cstdio>
#include <stdexcept>

#include "Galdren_Util.h"

namespace gallery {

namespace {

constexpr int margin = 10;
constexpr char stage_class[] = "Galdren_Gallery_Stage";

HWND Make_Window(WNDPROC procedure, Stage* stage) {
    WNDCLASSA description{};
    description.lpfnWndProc = procedure;
    description.hInstance = GetModuleHandleA(nullptr);
    description.lpszClassName = stage_class;
    RegisterClassA(&description);
    const HWND window = CreateWindowExA(WS_EX_TOOLWINDOW, stage_class, "", WS_POPUP, 0, 0, design_size.cx,
                                        design_size.cy, nullptr, nullptr, description.hInstance, nullptr);
    if (!window) throw std::runtime_error("cannot make a window");
    SetWindowLongPtrA(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(stage));
    return window;
}

}  // namespace

Stage::Stage(std::string target)
    : directory(std::move(target)), window(Make_Window(Procedure, this)), host(window) {
    hwnd = window;
    CreateDirectoryA(directory.c_str(), nullptr);
    host.Set_On_Paint([this] { Paint_Ground(); });
    ShowWindow(window, SW_SHOWNOACTIVATE);
}

Stage::~Stage() {
    SetWindowLongPtrA(window, GWLP_USERDATA, 0);
    DestroyWindow(window);
    UnregisterClassA(stage_class, GetModuleHandleA(nullptr));
}

LRESULT CALLBACK Stage::Procedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam) {
    auto* stage = reinterpret_cast<Stage*>(GetWindowLongPtrA(window, GWLP_USERDATA));
    LRESULT result = 0;
    if (stage && stage->host.Message(message, wparam, lparam, result)) return result;
    return DefWindowProcA(window, message, wparam, lparam);
}

Place Stage::Left_Place(SIZE size) { return {margin, margin, size.cx, size.cy}; }

Place Stage::Right_Place(SIZE size) { return {2 * margin + size.cx, margin, size.cx, size.cy}; }

void Stage::Paint() const { RedrawWindow(window, nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW); }

/// Stripes, so that it shows where a control leaves out its body.
void Stage::Paint_Ground() const {
    constexpr int stripe = 6;
    Colors colors[] = {{132, 140, 152}, {124, 132, 144}};
    for (int row = 0; row < design_size.cy / stripe; ++row) {
        Current_Color = colors[row % 2].get();
        Draw_Box(0, row * stripe, design_size.cx, (row + 1) * stripe);
    }
}

void Stage::Point_At(POINT point, WPARAM held) {
    pointer = point;
    SendMessageA(window, WM_MOUSEMOVE, held, MAKELPARAM(point.x, point.y));
}

void Stage::Drag(POINT from, POINT to) {
    Point_At(from);
    SendMessageA(window, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(from.x, from.y));
    Point_At(to, MK_LBUTTON);
    SendMessageA(window, WM_LBUTTONUP, 0, MAKELPARAM(to.x, to.y));
}

void Stage::Photograph(const std::string& name, SIZE size) const {
    const HDC context = GetDC(window);
    DrawIconEx(context, pointer.x, pointer.y, LoadCursorA(nullptr, MAKEINTRESOURCEA(32512)), 0, 0, 0, nullptr,
               DI_NORMAL);
    ReleaseDC(window, context);
    const std::string path = directory + '\\' + name + ".png";
    const RECT area{0, 0, 3 * margin + 2 * size.cx, 2 * margin + size.cy};
    if (!writer.Write(window, area, path)) throw std::runtime_error("cannot write " + path);
    std::puts(path.c_str());
}

}  // namespace gallery
