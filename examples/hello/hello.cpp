// A window with a label and a button: a light switch.
#include "Galdren_Host.h"
#include "Galdren_Tools.h"

struct Light_Switch {
    Labels label;
    Buttons button;
    Host host;

    explicit Light_Switch(HWND window) : host(window) {
        label.Name = "The light is off";
        button.Name = "Light";
        button.Flag = BUTTON_LAMP;

        host.Add(label);
        host.Add(button, [this](Buttons&) { Toggle(); });
        host.Follow_Dpi();

        // A label above a button, which is 40 pixels high; both are as wide as the window, but for a margin.
        using namespace Layout;
        Lay_Out(host, Margin(20, Column(20, {Stretch(Least(label, 200, 20)), Fixed(button, 40)})));
    }

    void Toggle() {
        button.Value = !button.Value;
        button.Lamp = button.Value;
        button.Adjust();
        label.Name = button.Value ? "The light is on" : "The light is off";
        host.Refresh(label);
    }
};

LRESULT CALLBACK Window_Procedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam) {
    auto* light = reinterpret_cast<Light_Switch*>(GetWindowLongPtrA(window, GWLP_USERDATA));
    LRESULT result = 0;
    if (light && light->host.Message(message, wparam, lparam, result)) return result;
    if (message == WM_DESTROY) PostQuitMessage(0);
    return DefWindowProcA(window, message, wparam, lparam);
}

int WINAPI WinMain(HINSTANCE instance, HINSTANCE, LPSTR, int show) {
    Set_Text_Code_Page(CP_UTF8);
    WNDCLASSA window_class{};
    window_class.style = CS_HREDRAW | CS_VREDRAW;
    window_class.lpfnWndProc = Window_Procedure;
    window_class.hInstance = instance;
    window_class.hCursor = LoadCursorA(nullptr, IDC_ARROW);
    window_class.lpszClassName = "Hello";
    RegisterClassA(&window_class);
    HWND window = CreateWindowA("Hello", "Hello", WS_OVERLAPPEDWINDOW, CW_USEDEFAULT, CW_USEDEFAULT, 300, 200,
                                nullptr, nullptr, instance, nullptr);
    Light_Switch light(window);
    SetWindowLongPtrA(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(&light));
    ShowWindow(window, show);

    for (MSG message; GetMessageA(&message, nullptr, 0, 0) > 0;) {
        TranslateMessage(&message);
        DispatchMessageA(&message);
    }
    return 0;
}
