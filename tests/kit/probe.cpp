// probe [PROGRAM.exe]: uses the installed library by itself; then starts the program, waits for its
// window, closes it and wants the exit code 0. The probe's own exit code is 0 when everything went well.
#include <Galdren_Tools.h>
#include <Galdren_Util.h>

#include <cstdio>
#include <cstring>

namespace {

bool Check(bool condition, const char* what) {
    if (!condition) std::fprintf(stderr, "probe: %s\n", what);
    return condition;
}

/// Functions, data and classes of both libraries, and a control that is really painted.
bool Library_Works() {
    const char* version = Get_Version_Tools(nullptr);
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

    return Check(version && std::strstr(version, "21.6"), "the version text is missing") &&
           Check(saturation == 1, "the colour conversion is wrong") &&
           Check(BORDER == 3, "BORDER is not 3") &&
           Check(GetGValue(middle) > 2 * GetRValue(middle) && GetGValue(middle) > 2 * GetBValue(middle),
                 "the box is not green");
}

/// The first visible window of a thread; null when there is none within ten seconds.
HWND Wait_For_Window(DWORD thread) {
    const auto keep_visible = [](HWND window, LPARAM found) -> BOOL {
        if (!IsWindowVisible(window)) return TRUE;
        *reinterpret_cast<HWND*>(found) = window;
        return FALSE;
    };
    HWND found = nullptr;
    for (int tries = 0; tries < 200 && !found; ++tries) {
        EnumThreadWindows(thread, keep_visible, reinterpret_cast<LPARAM>(&found));
        if (!found) Sleep(50);
    }
    return found;
}

bool Program_Works(char* command) {
    STARTUPINFOA startup{};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION process{};
    if (!Check(CreateProcessA(nullptr, command, nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup,
                              &process),
               "the program does not start")) {
        return false;
    }
    HWND window = Wait_For_Window(process.dwThreadId);
    if (window) PostMessageA(window, WM_CLOSE, 0, 0);
    const bool ended = WaitForSingleObject(process.hProcess, 10000) == WAIT_OBJECT_0;
    DWORD exit_code = 1;
    GetExitCodeProcess(process.hProcess, &exit_code);
    if (!ended) TerminateProcess(process.hProcess, 1);
    CloseHandle(process.hThread);
    CloseHandle(process.hProcess);
    return Check(window, "the program shows no window") && Check(ended, "the program does not end") &&
           Check(exit_code == 0, "the program fails");
}

}  // namespace

int main(int count, char** arguments) {
    const bool good = Library_Works() && (count < 2 || Program_Works(arguments[1]));
    return good ? 0 : 1;
}
