/// @file
/// A window with a host, and what a user does there.
#pragma once

#include <memory>

#include "Galdren_Host.h"
#include "tests/support/keys.h"
#include "tests/support/window.h"

namespace galdren_test {

/// The host hears of what a test sends, and, once connected, of all that comes to the window.
class Hosted_Window {
  public:
    Hosted_Window(int width, int height, LONG_PTR extended_style = 0) : window(width, height) {
        SetWindowLongPtrA(window, GWL_EXSTYLE, GetWindowLongPtrA(window, GWL_EXSTYLE) | extended_style);
        SetWindowLongPtrA(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    }
    virtual ~Hosted_Window() {
        ReleaseCapture();
        STATE_MASK(0);
        host.reset();  // before the window, to which its messages go
        if (IsWindow(window)) SetWindowLongPtrA(window, GWLP_USERDATA, 0);
    }
    Hosted_Window(const Hosted_Window&) = delete;
    Hosted_Window& operator=(const Hosted_Window&) = delete;

    /// From now on the messages of the window go to the host first, as in an application.
    /// @param unicode  what is typed comes in UTF-16
    void Connect(bool unicode = false) {
        const auto set = unicode ? SetWindowLongPtrW : SetWindowLongPtrA;
        set(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&Procedure));
    }

    /// Hands the host a message, with a logical place on the window.
    /// @return whether the host took it; false without a host
    bool Send(UINT message, WPARAM wparam = 0, POINT logical = {}) {
        RECT client{};
        GetClientRect(window, &client);
        POINT place{logical.x, client.bottom - 1 - logical.y};
        if (message == WM_MOUSEWHEEL || message == WM_MOUSEHWHEEL) ClientToScreen(window, &place);
        return host && host->Message(message, wparam, MAKELPARAM(place.x, place.y), result);
    }
    void Click(POINT at) {
        Send(WM_LBUTTONDOWN, MK_LBUTTON, at);
        Send(WM_LBUTTONUP, 0, at);
    }
    bool Wheel(UINT message, int delta, POINT at) {
        return Send(message, MAKEWPARAM(0, static_cast<WORD>(delta)), at);
    }
    /// Sends a key while modifiers (KEY_SHIFT and its like) are held.
    bool Key(UINT message, WPARAM key, int held = 0) {
        Hold_Keys(held);
        const bool taken = Send(message, key);
        Hold_Keys(0);
        return taken;
    }
    /// What the window shows once all is painted that is to be painted.
    Picture Painted() {
        Send(WM_PAINT);
        return Picture(window);
    }
    /// What it shows when everything is painted anew.
    Picture All_Painted() {
        host->Refresh();
        return Painted();
    }

    Test_Window window;
    LRESULT result = -1;  ///< what the host answered last
    std::unique_ptr<Host> host = std::make_unique<Host>(window);

  private:
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam) {
        const auto* self = reinterpret_cast<Hosted_Window*>(GetWindowLongPtrA(window, GWLP_USERDATA));
        LRESULT result = 0;
        if (self && self->host && self->host->Message(message, wparam, lparam, result)) return result;
        const auto otherwise = IsWindowUnicode(window) ? DefWindowProcW : DefWindowProcA;
        return otherwise(window, message, wparam, lparam);
    }
};

}  // namespace galdren_test
