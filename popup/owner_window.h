/// @file
/// The window that a dialog belongs to, and how it wants its dialogs to look.
#pragma once

#include <windows.h>

#include "tools/theme.h"

namespace galdren {

/// The active window, to which a dialog belongs. The dialog manager disables it, and leaves it so when the
/// dialog is not ended but destroyed; at the end of the scope it is as it was.
class Owner_Window {
  public:
    Owner_Window() : window(GetActiveWindow()), enabled(IsWindowEnabled(window) != FALSE) {}
    ~Owner_Window() {
        if (!enabled) return;
        Enable();
        if (GetActiveWindow() != window) SetActiveWindow(window);
    }
    Owner_Window(const Owner_Window&) = delete;
    Owner_Window& operator=(const Owner_Window&) = delete;

    HWND Window() const { return window; }
    HINSTANCE Instance() const {
        return reinterpret_cast<HINSTANCE>(GetWindowLongPtrA(window, GWLP_HINSTANCE));
    }
    void Enable() const {
        if (enabled) EnableWindow(window, TRUE);
    }

  private:
    HWND window;
    bool enabled;
};

/// Scale and theme of dialogs.
struct Dress {
    unsigned short scale = 0;     ///< in percent; 0 means 100
    const Theme* look = nullptr;  ///< null means none
};

/// Has a window keep them for its dialogs.
void Keep_Dress(HWND window, const Dress& dress);

/// What a window keeps, or the nearest one that it belongs to and that keeps anything.
Dress Dress_Of(HWND window);

}  // namespace galdren
