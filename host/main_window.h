/// @file
/// The window of an application whose all it is to hold controls: made, shown and served in three calls.
#pragma once

#include <windows.h>

#include <functional>

class Host;

/// A window that can be resized, with its message loop. The program ends with it.
///
/// For the thread that made it.
class Main_Window {
  public:
    /// Takes a message that the host has left; see `Set_On_Message`.
    using Message_Taker = std::function<bool(UINT message, WPARAM wparam, LPARAM lparam, LRESULT& result)>;

    /// Makes the window, which `Run` shows. When the system has none to give, that is reported at level 2.
    /// @param title   in the code page of texts
    /// @param width   of the client area, in pixels
    /// @param height  of the client area, in pixels
    Main_Window(const char* title, int width, int height);
    /// Destroys the window unless it was closed.
    ~Main_Window();
    Main_Window(const Main_Window&) = delete;
    Main_Window& operator=(const Main_Window&) = delete;

    /// The window, for the host; null once it is gone.
    HWND Handle() const { return window; }

    /// Gives it another title, in the code page of texts.
    void Set_Title(const char* title) const;

    /// Called with each message that the host does not take, in `Run`, such as those of timers. It answers
    /// whether it took the message, and what the window procedure returns in `result`. What it leaves goes to
    /// the system.
    void Set_On_Message(Message_Taker take);

    /// Shows the window, gives its messages to `host`, and returns when the window was closed.
    /// @param show  how it is shown, as `WinMain` is told
    /// @return the exit code for the program; 1 when there was no window
    int Run(Host& host, int show = SW_SHOWDEFAULT);

  private:
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam);
    bool Handle_Message(UINT message, WPARAM wparam, LPARAM lparam, LRESULT& result);

    HWND window = nullptr;
    Host* host = nullptr;  // while `Run` is going on
    Message_Taker take;
};
