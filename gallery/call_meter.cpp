#include "gallery/call_meter.h"

#include "host/event_name.h"

namespace gallery {

Call_Meter& Call_Meter::Get() {
    static Call_Meter meter;
    return meter;
}

Call_Meter::Call_Meter()
    : library(GetModuleHandleA("Galdren_Tools.dll")), program(GetModuleHandleA(nullptr)) {}

void Call_Meter::Begin_Event(HWND window, UINT message) {
    const char* event = galdren::Event_Name(message);
    if (depth == 0 && !event) return;
    if (depth++ > 0) return;
    served = window;
    UpdateWindow(served);
    last.event = event;
    library.Reset();
    program.Reset();
}

void Call_Meter::End_Event() {
    if (depth == 0 || --depth > 0) return;
    depth = 1;  // for the painting that follows
    UpdateWindow(served);
    depth = 0;
    last.calls = library.Calls() + program.Calls();
    last.contexts = library.Contexts() + program.Contexts();
    if (last.calls > 0) last_paint = last;
    if (on_event) on_event();
}

std::string Call_Meter::Text_Of(const Cost& cost) {
    if (!cost.event) return "none yet";
    return std::string(cost.event) + ": " + std::to_string(cost.calls) + " calls, " +
           std::to_string(cost.contexts) + " on the window";
}

}  // namespace gallery
