// Programs, from their start until they wait for input with their window shown.

#include <windows.h>

#include <optional>
#include <string>

#include "bench.h"

namespace {

/// A program beside this one that runs for a scope.
class Program {
  public:
    explicit Program(const char* name) {
        std::string line = Directory() + name;
        STARTUPINFOA start{};
        start.cb = sizeof start;
        bench::Require(CreateProcessA(nullptr, line.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr,
                                      &start, &process) != FALSE,
                       "a program does not start");
    }
    ~Program() {
        TerminateProcess(process.hProcess, 0);
        WaitForSingleObject(process.hProcess, INFINITE);
        CloseHandle(process.hThread);
        CloseHandle(process.hProcess);
    }
    Program(const Program&) = delete;
    Program& operator=(const Program&) = delete;

    void Wait_Until_Idle() const {
        constexpr DWORD Patience = 10'000;
        bench::Require(WaitForInputIdle(process.hProcess, Patience) == 0, "a program does not get ready");
    }

    bool Shows_A_Window() const {
        struct Search {
            DWORD process;
            bool found;
        } search{process.dwProcessId, false};
        const auto check = [](HWND window, LPARAM parameter) -> BOOL {
            auto& wanted = *reinterpret_cast<Search*>(parameter);
            DWORD owner = 0;
            GetWindowThreadProcessId(window, &owner);
            wanted.found = wanted.found || (owner == wanted.process && IsWindowVisible(window));
            return !wanted.found;
        };
        EnumWindows(check, reinterpret_cast<LPARAM>(&search));
        return search.found;
    }

  private:
    static std::string Directory() {
        char path[MAX_PATH] = "";
        GetModuleFileNameA(nullptr, path, MAX_PATH);
        const std::string own = path;
        return own.substr(0, own.rfind('\\') + 1);
    }

    PROCESS_INFORMATION process{};
};

void Require_Shown(const char* name) {
    const Program program(name);
    program.Wait_Until_Idle();
    bench::Require(program.Shows_A_Window(), "a program shows no window");
}

/// Starts a program; the one before is ended first, which is not measured.
bench::Work Start(const char* name, std::optional<Program>& running) {
    return {[name, &running] {
                running.emplace(name);
                running->Wait_Until_Idle();
            },
            1, [&running] { running.reset(); }};
}

bench::Result Start_Hello() {
    constexpr const char* hello = "hello.exe";
    constexpr const char* empty = "bench_empty_window.exe";
    Require_Shown(hello);
    Require_Shown(empty);
    std::optional<Program> ours;
    std::optional<Program> native;
    return bench::Compare(Start(hello, ours), Start(empty, native));
}

const bench::Register rows[] = {
    bench::Register({"start: hello, beside an empty window", "us", bench::Of_Native(2), Start_Hello}),
};

}  // namespace
