/// @file
/// Programs as processes of their own.
#pragma once

#include <windows.h>

#include <functional>
#include <string>

namespace galdren_test {

/// Runs until `done` answers true; false when that takes longer than `patience`, in milliseconds, which is
/// meant for what never happens unless something is wrong.
bool Wait_Until(const std::function<bool()>& done, ULONGLONG patience = 20000);

/// A program that writes to a pipe.
class Program {
  public:
    /// @param command  the program, which is looked for beside the test first, and its arguments
    explicit Program(std::string command);
    ~Program();
    Program(const Program&) = delete;
    Program& operator=(const Program&) = delete;

    DWORD Id() const { return process_.dwProcessId; }
    /// Its window, once that is shown.
    HWND Window() const;
    /// What the program has written so far, to both of its outputs.
    const std::string& Output();
    /// Waits for the end of the program; its exit code, or a number above 255 when it does not end.
    DWORD Exit_Code();

  private:
    HANDLE pipe_ = nullptr;
    PROCESS_INFORMATION process_{};
    std::string output_;
};

}  // namespace galdren_test
