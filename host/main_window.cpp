#include "host/main_window.h"

#include <utility>

#include "Galdren_Util.h"
#include "host/host.h"
#include "util/wide.h"

namespace {

constexpr wchar_t class_name[] = L"Galdren_Main_Window";
constexpr DWORD style = WS_OVERLAPPEDWINDOW;

void Register_Class(WNDPROC procedure) {
    WNDCLASSW description{};
    description.style = CS_DBLCLKS;
    description.lpfnWndProc = procedure;
    description.hInstance = GetModuleHandleW(nullptr);
    description.hCursor = LoadCursorW(nullptr, MAKEINTRESOURCEW(32512));
    description.hIcon = LoadIconW(nullptr, MAKEINTRESOURCEW(32512));
    description.lpszClassName = class_name;
    RegisterClassW(&description);  // again for a second window, which changes nothing
}

}  // namespace

Main_Window::Main_Window(const char* title, int width, int height) {
    Register_Class(Procedure);
    RECT area{0, 0, width, height};
    AdjustWindowRect(&area, style, FALSE);
    window = CreateWindowExW(0, class_name, galdren::To_Wide(title).c_str(), style, CW_USEDEFAULT,
                             CW_USEDEFAULT, area.right - area.left, area.bottom - area.top, nullptr, nullptr,
                             GetModuleHandleW(nullptr), nullptr);
    if (!window)
        Error_Fct(nullptr, ERROR_LEVEL_FAILURE, "Main_Window: there is no window (%lu)", GetLastError());
    SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
}

Main_Window::~Main_Window() {
    host = nullptr;
    take = {};
    if (window) DestroyWindow(window);
}

void Main_Window::Set_Title(const char* title) const {
    SetWindowTextW(window, galdren::To_Wide(title).c_str());
}

void Main_Window::Set_On_Message(Message_Taker taker) { take = std::move(taker); }

int Main_Window::Run(Host& served, int show) {
    if (!window) return 1;
    host = &served;
    ShowWindow(window, show);
    MSG message{};
    while (GetMessageW(&message, nullptr, 0, 0) > 0) {
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
    host = nullptr;
    return static_cast<int>(message.wParam);
}

bool Main_Window::Handle_Message(UINT message, WPARAM wparam, LPARAM lparam, LRESULT& result) {
    if (host && host->Message(message, wparam, lparam, result)) return true;
    return host && take && take(message, wparam, lparam, result);
}

LRESULT CALLBACK Main_Window::Procedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam) {
    auto* const self = reinterpret_cast<Main_Window*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    LRESULT result = 0;
    const bool taken = self && self->Handle_Message(message, wparam, lparam, result);
    if (self && self->host && message == WM_DESTROY) PostQuitMessage(0);
    if (self && message == WM_NCDESTROY) {
        self->window = nullptr;
        SetWindowLongPtrW(window, GWLP_USERDATA, 0);
    }
    return taken ? result : DefWindowProcW(window, message, wparam, lparam);
}
