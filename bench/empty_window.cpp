// The least that a program with a window can be: what hello is measured beside.
#include <windows.h>

int WINAPI WinMain(HINSTANCE instance, HINSTANCE, LPSTR, int show) {
    WNDCLASSA window_class{};
    window_class.lpfnWndProc = [](HWND window, UINT message, WPARAM wparam, LPARAM lparam) -> LRESULT {
        if (message == WM_DESTROY) PostQuitMessage(0);
        return DefWindowProcA(window, message, wparam, lparam);
    };
    window_class.hInstance = instance;
    window_class.hCursor = LoadCursorA(nullptr, MAKEINTRESOURCEA(32512));
    window_class.lpszClassName = "Empty";
    RegisterClassA(&window_class);
    const HWND window = CreateWindowA("Empty", "Empty", WS_OVERLAPPEDWINDOW, CW_USEDEFAULT, CW_USEDEFAULT,
                                      300, 200, nullptr, nullptr, instance, nullptr);
    ShowWindow(window, show);
    UpdateWindow(window);
    for (MSG message; GetMessageA(&message, nullptr, 0, 0) > 0;)
        DispatchMessageA(&message);
    return 0;
}
