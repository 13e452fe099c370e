/// @file
/// The gallery's window: a tab for every page, the page, and a line for the last event.
#pragma once

#include <memory>
#include <span>
#include <string>
#include <vector>

#include "Galdren_Host.h"
#include "gallery/pages.h"

namespace gallery {

/// A theme that the gallery can wear.
struct Look {
    const char* name;  ///< word for the command line
    void (*wear)(Host& host);
};

/// All of them; the first is none.
std::span<const Look> Looks();

class Window {
  public:
    /// Makes the window, not yet visible.
    /// @param log  write events to standard output
    Window(HINSTANCE instance, bool log);
    ~Window();
    Window(const Window&) = delete;
    Window& operator=(const Window&) = delete;

    HWND Handle() const { return window; }
    int Scale() const { return host.Scale(); }
    /// Scales all, and the window with it.
    void Set_Scale(int percent);
    /// Has all wear one of `Looks()`.
    void Wear(std::size_t look);
    /// Puts a page on the window, in the state in which it was left.
    void Show_Page(std::size_t index);
    /// Presses the button of a name on the page.
    void Press(const char* name);
    /// Paints all that is pending now.
    void Paint_Now() const;
    /// Says on the log that the window is shown, and from now on which page it shows.
    void Announce();

  private:
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam);
    LRESULT On_Message(UINT message, WPARAM wparam, LPARAM lparam);
    LRESULT Handle(UINT message, WPARAM wparam, LPARAM lparam);
    void Show_Cost();

    void Build_Tabs_Of_Pages();
    void Build_Status();
    bool On_Key(int key);
    void Choose_Page_Of_Tab();
    SIZE Design_Of_Client() const;
    void Fit();
    void Fit_Tabs(SIZE client);
    void Fit_Status(SIZE client);
    void Paint_Page();
    void Report(const std::string& text);
    const Tools* Pointed_At();
    void Log_Pointer();
    void Log(const std::string& line) const;
    void Log_Page() const;

    HWND window;
    Host host;
    std::size_t worn = 0;  // index in `Looks()`
    bool logging;
    bool announced = false;
    const Tools* pointed_at = nullptr;  // the control or tab last logged as under the pointer
    Tabs page_tabs;
    std::vector<std::unique_ptr<Sheet>> sheets;  // null until the page is shown for the first time
    std::size_t shown = 0;
    Boxs status_box;
    Labels status_text;
    Labels status_cost;  // what the last event that painted cost
};

}  // namespace gallery
