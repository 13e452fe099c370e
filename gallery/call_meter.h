/// @file
/// What the events of a window cost.
#pragma once

#include <windows.h>

#include <functional>
#include <string>
#include <utility>

#include "support/call_counter.h"

namespace gallery {

/// Counts the paint calls that library and program make for each event of pointer, wheel and keyboard: those
/// made while it is handled, and those that then paint what it made invalid. The window procedure handles
/// every message within a `Metered_Event`; what it shows of the meter, it shows outside.
class Call_Meter {
  public:
    /// The only one: it counts for the whole program.
    static Call_Meter& Get();

    /// Paints what is still pending, so that it does not count for this event. Messages that are no such
    /// events, and those that come while another is handled, are not counted by themselves.
    void Begin_Event(HWND window, UINT message);
    /// Paints what the event made invalid, and takes the count.
    void End_Event();
    /// Called after every event.
    void Set_On_Event(std::function<void()> notify) { on_event = std::move(notify); }

    /// The last event, such as "pointer: 21 calls, 2 on the window"; the second number is how often the
    /// device context of a window was taken.
    std::string Text() const { return Text_Of(last); }
    /// The last event that cost a call.
    std::string Text_Of_Last_Paint() const { return Text_Of(last_paint); }

  private:
    struct Cost {
        const char* event = nullptr;  // null while there was none
        long long calls = 0;
        long long contexts = 0;
    };

    Call_Meter();
    static std::string Text_Of(const Cost& cost);

    support::Call_Counter library, program;
    HWND served = nullptr;
    int depth = 0;  // messages that are being handled inside one another, from the event on
    Cost last, last_paint;
    std::function<void()> on_event;
};

/// An event of a window for a scope.
class Metered_Event {
  public:
    Metered_Event(HWND window, UINT message) { Call_Meter::Get().Begin_Event(window, message); }
    ~Metered_Event() { Call_Meter::Get().End_Event(); }
    Metered_Event(const Metered_Event&) = delete;
    Metered_Event& operator=(const Metered_Event&) = delete;
};

}  // namespace gallery
