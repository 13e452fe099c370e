/// @file
/// Screen readers: a window's controls, read and worked through the system's accessibility interface.
#pragma once

#include <windows.h>

#include <memory>

#include "part_window.h"

namespace galdren {
class Access_Link;
}

/// Answers screen readers for a window, and tells them what has changed.
///
/// Until the first question comes it does nothing, has no memory and loads no library.
class Access {
  public:
    /// @param window_served  has to outlive this object
    explicit Access(Part_Window& window_served) : served(window_served) {}
    /// Objects that clients still hold answer with errors from then on.
    ~Access();
    Access(const Access&) = delete;
    Access& operator=(const Access&) = delete;

    /// To be called with every message of the window: answers WM_GETOBJECT and calls from other threads.
    /// @return true when the window procedure is to return `result`
    bool Message(UINT message, WPARAM wparam, LPARAM lparam, LRESULT& result);

    /// Tells who listens that something has become of a part. A focus without a control is the window's own.
    void Tell(Part_Change change, Part_Place place) const;

  private:
    bool Hand_Out_Object(WPARAM wparam, LONG id, LRESULT& result);
    bool Knows(LONG id) const;
    void Disconnect();

    Part_Window& served;
    std::shared_ptr<galdren::Access_Link> link;  // null until somebody asks
};
