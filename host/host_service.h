/// @file
/// What can be added to a host: screen readers, an inspector.
#pragma once

#include <windows.h>

#include "../parts/part_window.h"

/// Sees the messages of a host's window, and hears of what becomes of its controls. It lives in a unit of its
/// own, which only those link that use it. It changes the host by `Host::Parts`, `Init` and
/// `Refresh` alone.
class Host_Service {
  public:
    virtual ~Host_Service() = default;

    /// Sees a message before the host does.
    /// @return true when the window procedure is to return `result`, and the host is not to see the message
    virtual bool Message(UINT message, WPARAM wparam, LPARAM lparam, LRESULT& result) = 0;

    /// Told of a change, after it.
    /// @param place  the part that has changed; with `Part_Change::Focus` no control when none has the
    /// keyboard
    virtual void Changed(Part_Change change, Part_Place place) = 0;
};
