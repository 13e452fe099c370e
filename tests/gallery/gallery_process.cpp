#include "tests/gallery/gallery_process.h"

#include <sstream>
#include <stdexcept>

namespace galdren_test {

namespace {

constexpr ULONGLONG move_interval = 200;
constexpr DWORD no_exit_code = 1000;

std::string Own_Directory() {
    char path[MAX_PATH];
    GetModuleFileNameA(nullptr, path, MAX_PATH);
    const std::string own = path;
    return own.substr(0, own.find_last_of("\\/") + 1);
}

/// The visible top-level window of a process.
HWND Window_Of(DWORD process) {
    struct Search {
        DWORD process;
        HWND found;
    } search{process, nullptr};
    const auto check = [](HWND window, LPARAM parameter) -> BOOL {
        auto& wanted = *reinterpret_cast<Search*>(parameter);
        DWORD owner = 0;
        GetWindowThreadProcessId(window, &owner);
        if (owner == wanted.process && IsWindowVisible(window)) wanted.found = window;
        return wanted.found == nullptr;
    };
    EnumWindows(check, reinterpret_cast<LPARAM>(&search));
    return search.found;
}

void Send_Mouse(DWORD flags, int data = 0) {
    INPUT input{};
    input.type = INPUT_MOUSE;
    input.mi.dwFlags = flags;
    input.mi.mouseData = static_cast<DWORD>(data);
    SendInput(1, &input, sizeof input);
}

}  // namespace

bool Wait_Until(const std::function<bool()>& done, ULONGLONG patience) {
    const ULONGLONG end = GetTickCount64() + patience;
    while (!done()) {
        if (GetTickCount64() > end) return false;
        Sleep(2);
    }
    return true;
}

Program::Program(const std::string& arguments, const std::string& name) {
    SECURITY_ATTRIBUTES inherited{sizeof inherited, nullptr, TRUE};
    HANDLE written = nullptr;
    CreatePipe(&pipe_, &written, &inherited, 0);
    SetHandleInformation(pipe_, HANDLE_FLAG_INHERIT, 0);
    STARTUPINFOA start{};
    start.cb = sizeof start;
    start.dwFlags = STARTF_USESTDHANDLES;
    start.hStdOutput = start.hStdError = written;
    std::string command = '"' + Own_Directory() + name + ".exe\" " + arguments;
    const BOOL started = CreateProcessA(nullptr, command.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr,
                                        &start, &process_);
    CloseHandle(written);
    if (!started) throw std::runtime_error("cannot start " + command);
}

Program::~Program() {
    if (WaitForSingleObject(process_.hProcess, 0) == WAIT_TIMEOUT) TerminateProcess(process_.hProcess, 1);
    CloseHandle(process_.hThread);
    CloseHandle(process_.hProcess);
    CloseHandle(pipe_);
}

HWND Program::Window() const {
    HWND window = nullptr;
    Wait_Until([&] { return (window = Window_Of(Id())) != nullptr; });
    return window;
}

const std::string& Program::Output() {
    DWORD waiting = 0;
    while (PeekNamedPipe(pipe_, nullptr, 0, nullptr, &waiting, nullptr) && waiting > 0) {
        std::string part(waiting, '\0');
        DWORD got = 0;
        if (!ReadFile(pipe_, part.data(), waiting, &got, nullptr)) break;
        output_.append(part, 0, got);
    }
    return output_;
}

DWORD Program::Exit_Code() {
    // A full pipe would keep the program from ending.
    const bool ended = Wait_Until([&] {
        Output();
        return WaitForSingleObject(process_.hProcess, 0) == WAIT_OBJECT_0;
    });
    Output();
    DWORD code = no_exit_code;
    if (ended) GetExitCodeProcess(process_.hProcess, &code);
    return code;
}

Gallery::Gallery(const std::string& page) : program_("--log --page " + page) {
    if (!Says("ready") || !Says("page " + page)) throw std::runtime_error("the gallery does not come up");
    window_ = program_.Window();
}

bool Gallery::Says(const std::string& line) {
    return Wait_Until([&] { return Heard(line); });
}

bool Gallery::Heard(const std::string& line) {
    const std::string& output = program_.Output();
    for (std::size_t end; (end = output.find('\n', read_)) != std::string::npos;) {
        std::string said = output.substr(read_, end - read_);
        if (!said.empty() && said.back() == '\r') said.pop_back();
        read_ = end + 1;
        Learn(said);
        if (said == line) return true;
    }
    return false;
}

void Gallery::Learn(const std::string& line) {
    constexpr char start[] = "control \"";
    if (line.rfind(start, 0) != 0) return;
    const std::size_t quote = line.rfind('"');
    RECT place{};
    std::istringstream(line.substr(quote + 1)) >> place.left >> place.top >> place.right >> place.bottom;
    places_[line.substr(sizeof start - 1, quote - sizeof start + 1)] = place;
}

POINT Gallery::Place_Of(const std::string& control, int x, int y) const {
    const RECT& place = places_.at(control);
    POINT screen{place.left + x, place.top + y};
    ClientToScreen(window_, &screen);
    return screen;
}

POINT Gallery::Middle_Of(const std::string& control) const {
    const RECT& place = places_.at(control);
    return Place_Of(control, (place.right - place.left) / 2, (place.bottom - place.top) / 2);
}

POINT Gallery::Lamp_Of(const std::string& button) const {
    constexpr int lamp_middle = 6 + 4;  // SPACE and half of its width
    return Place_Of(button, lamp_middle, (places_.at(button).bottom - places_.at(button).top) / 2);
}

// The display tells of a move some time after it; an older one that comes late moves the pointer back. A
// press must not come before the pointer rests.
void Gallery::Move_To(POINT screen) const {
    constexpr ULONGLONG Rest = 25;
    SetCursorPos(screen.x, screen.y);
    ULONGLONG since = GetTickCount64();
    Wait_Until([&] {
        POINT now{};
        GetCursorPos(&now);
        if (now.x == screen.x && now.y == screen.y) return GetTickCount64() - since >= Rest;
        SetCursorPos(screen.x, screen.y);
        since = GetTickCount64();
        return false;
    });
}

bool Gallery::Point_At(const std::string& control) {
    const POINT middle = Middle_Of(control);
    // A move that comes while a window is just being shown may be lost; a hand would move on.
    int moves = 0;
    ULONGLONG next_move = 0;
    return Wait_Until([&] {
        if (GetTickCount64() >= next_move) {
            Move_To({middle.x + moves++ % 2, middle.y});
            next_move = GetTickCount64() + move_interval;
        }
        return Heard("over \"" + control + '"');
    });
}

void Gallery::Press() const { Send_Mouse(MOUSEEVENTF_LEFTDOWN); }

void Gallery::Release() const { Send_Mouse(MOUSEEVENTF_LEFTUP); }

void Gallery::Click() const {
    Press();
    Release();
}

void Gallery::Turn_Wheel(int steps) const { Send_Mouse(MOUSEEVENTF_WHEEL, steps * WHEEL_DELTA); }

bool Gallery::Click(const std::string& control, const std::string& answer) {
    if (!Point_At(control)) return false;
    Click();
    return Says(answer);
}

void Gallery::Resize(int width, int height) const {
    RECT area{0, 0, width, height};
    AdjustWindowRect(&area, WS_OVERLAPPEDWINDOW, FALSE);
    SetWindowPos(window_, nullptr, 0, 0, area.right - area.left, area.bottom - area.top,
                 SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
}

DWORD Gallery::Close() {
    PostMessageA(window_, WM_CLOSE, 0, 0);
    return program_.Exit_Code();
}

unsigned Screen_Color(POINT screen) {
    const HDC dc = GetDC(nullptr);
    const COLORREF color = GetPixel(dc, screen.x, screen.y);
    ReleaseDC(nullptr, dc);
    return static_cast<unsigned>(GetRValue(color) << 16 | GetGValue(color) << 8 | GetBValue(color));
}

}  // namespace galdren_test
