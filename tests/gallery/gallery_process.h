/// @file
/// The gallery as a process of its own, driven like by a user.
#pragma once

#include <windows.h>

#include <functional>
#include <map>
#include <string>

namespace galdren_test {

/// Runs until `done` answers true; false when that takes longer than `patience`, in milliseconds, which is
/// meant for what never happens unless something is wrong.
bool Wait_Until(const std::function<bool()>& done, ULONGLONG patience = 20000);

/// A program that writes to a pipe.
class Program {
  public:
    /// @param name  of the program, which stands beside the test
    explicit Program(const std::string& arguments, const std::string& name = "gallery");
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

/// A gallery that is shown, and the user before it.
class Gallery {
  public:
    explicit Gallery(const std::string& page);

    HWND Window() const { return window_; }
    /// All that the gallery has said so far.
    const std::string& Output() { return program_.Output(); }

    /// Waits until the gallery says this line, after all those that were waited for before.
    bool Says(const std::string& line);

    /// Puts the pointer on a place of the screen.
    void Move_To(POINT screen) const;
    /// Puts the pointer on the middle of a control and waits until the gallery knows.
    bool Point_At(const std::string& control);
    void Press() const;
    void Release() const;
    void Click() const;
    /// Turns the wheel, away from the user when positive.
    void Turn_Wheel(int steps) const;
    /// Points at a control, presses and releases, and waits until the gallery says `answer`.
    bool Click(const std::string& control, const std::string& answer);
    void Resize(int width, int height) const;

    /// Place of a control's pixel on the screen, counted from its top-left corner.
    POINT Place_Of(const std::string& control, int x, int y) const;
    /// Place of the middle of a control on the screen.
    POINT Middle_Of(const std::string& control) const;
    /// Place of the middle of a button's lamp on the screen.
    POINT Lamp_Of(const std::string& button) const;
    /// Asks the gallery to end; its exit code.
    DWORD Close();

  private:
    /// Whether the line is among those that have come since the last one waited for.
    bool Heard(const std::string& line);
    void Learn(const std::string& line);

    Program program_;
    HWND window_ = nullptr;
    std::size_t read_ = 0;
    std::map<std::string, RECT> places_;  // on the client area, the last column and row included
};

/// The colour that the screen shows, as 0xRRGGBB.
unsigned Screen_Color(POINT screen);

}  // namespace galdren_test
