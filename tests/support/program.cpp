#include "tests/support/program.h"

#include <stdexcept>

namespace galdren_test {

namespace {

constexpr DWORD no_exit_code = 1000;

/// The visible top-level window of a process.
HWND Window_Of(DWORD process) {
    for (HWND window = nullptr; (window = FindWindowExA(nullptr, window, nullptr, nullptr));) {
        DWORD owner = 0;
        GetWindowThreadProcessId(window, &owner);
        if (owner == process && IsWindowVisible(window)) return window;
    }
    return nullptr;
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

Program::Program(std::string command) {
    SECURITY_ATTRIBUTES inherited{sizeof inherited, nullptr, TRUE};
    HANDLE written = nullptr;
    CreatePipe(&pipe_, &written, &inherited, 0);
    SetHandleInformation(pipe_, HANDLE_FLAG_INHERIT, 0);
    STARTUPINFOA start{};
    start.cb = sizeof start;
    start.dwFlags = STARTF_USESTDHANDLES;
    start.hStdOutput = start.hStdError = written;
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

}  // namespace galdren_test
