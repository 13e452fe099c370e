// probe [PROGRAM.exe...]: uses the installed library by itself; then starts each program, waits until its
// window shows controls, closes it and wants the exit code 0. The probe's own exit code is 0 when all went
// well.
#include <Galdren_Tools.h>
#include <Galdren_Util.h>

#include <cstdio>
#include <cstring>
#include <set>

#include "tests/support/program.h"

namespace {

bool Check(bool condition, const char* what) {
    if (!condition) std::fprintf(stderr, "probe: %s\n", what);
    return condition;
}

/// Functions, data and classes of both libraries, and a control that is really painted.
bool Library_Works() {
    const char* version = Get_Version_Tools(Tools_Version());
    float hue = 0, lightness = 0, saturation = 0;
    RGB_to_HLS(0, 1, 0, &hue, &lightness, &saturation);

    HWND window = CreateWindowA("STATIC", "", WS_POPUP | WS_VISIBLE, 200, 200, 100, 50, nullptr, nullptr,
                                nullptr, nullptr);
    Boxs box;
    box.Flag = FLAG_PASSIVE;
    box.Set_Color(10, 200, 30);
    box.Width = 100, box.Height = 50;
    box.Init(window);
    box.Draw();
    HDC context = GetDC(window);
    const COLORREF middle = GetPixel(context, 50, 25);
    ReleaseDC(window, context);
    DestroyWindow(window);
    Tools_Lib_Cleanup();

    return Check(version && std::strstr(version, Tools_Version()), "the version text is missing") &&
           Check(saturation == 1, "the colour conversion is wrong") &&
           Check(Check_Tools_Layout(), "program and library differ") &&
           Check(BORDER == 3, "BORDER is not 3") &&
           Check(GetGValue(middle) > 2 * GetRValue(middle) && GetGValue(middle) > 2 * GetBValue(middle),
                 "the box is not green");
}

/// Whether the screen shows controls in the client area: frames and captions have many colours, also in
/// the flat theme of the system.
bool Shows_Controls(HWND window) {
    RECT area{};
    GetClientRect(window, &area);
    MapWindowPoints(window, nullptr, reinterpret_cast<POINT*>(&area), 2);
    HDC screen = GetDC(nullptr);
    std::set<COLORREF> colors;
    for (LONG y = area.top; y < area.bottom; y += 3) {
        for (LONG x = area.left; x < area.right; x += 3)
            colors.insert(GetPixel(screen, x, y));
    }
    ReleaseDC(nullptr, screen);
    return colors.size() > 16;
}

bool Program_Works(const char* command) {
    std::printf("%s\n", command);
    galdren_test::Program program(command);
    const HWND window = program.Window();
    const bool shows = window && galdren_test::Wait_Until([&] { return Shows_Controls(window); });
    if (window) PostMessageA(window, WM_CLOSE, 0, 0);
    return Check(window, "the program shows no window") && Check(shows, "the program shows no controls") &&
           Check(program.Exit_Code() == 0, "the program fails or does not end");
}

}  // namespace

int main(int count, char** arguments) {
    bool good = Library_Works();
    for (int i = 1; i < count; ++i)
        good = Program_Works(arguments[i]) && good;
    return good ? 0 : 1;
}
