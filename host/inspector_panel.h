/// @file
/// The small window in which an inspector shows what it knows.
#pragma once

#include <functional>
#include <vector>

#include "host.h"
#include "inspector_facts.h"

namespace galdren {

/// Owned by the window that is inspected, never active, and painted by controls in a host of its own.
class Inspector_Panel {
  public:
    /// @param inspected  the window
    /// @param refresh    called a moment after `Ask`, and from time to time; it may destroy the panel
    Inspector_Panel(HWND inspected, std::function<void()> refresh);
    ~Inspector_Panel();
    Inspector_Panel(const Inspector_Panel&) = delete;
    Inspector_Panel& operator=(const Inspector_Panel&) = delete;

    /// Asks for a refresh as soon as the message that is being handled is done.
    void Ask();

    /// Shows the lines, of which there are always as many. They are the text of the window, too, for
    /// programs that want to read them.
    void Show(const std::vector<Fact>& facts);

    /// Shows the panel where it covers neither this part of the screen nor, if that can be, the window.
    void Keep_Clear_Of(const RECT& part);

  private:
    struct Line {
        Labels title, text;
    };

    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam);
    LRESULT On_Message(UINT message, WPARAM wparam, LPARAM lparam);
    void Refresh();
    void Build(const std::vector<Fact>& facts);

    HWND owner;   // the topmost window that has the inspected one inside
    HWND window;  // null when it is gone
    bool asked = false;
    std::function<void()> on_refresh;
    Boxs ground;
    std::vector<Line> lines;
    Host host;
};

}  // namespace galdren
