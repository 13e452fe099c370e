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

int WINAPI WinMain(HINSTANCE, HINSTANCE, LPSTR, int show) {
    Main_Window window("Hello", 292, 173);
    Light_Switch light(window.Handle());
    return window.Run(light.host, show);
}
