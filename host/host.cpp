// The host itself: its controls, and which part of it gets which message.
#include "host/host.h"

#include <windowsx.h>

#include <cctype>

#include "host/client.h"

namespace {

POINT Position_Of(LPARAM lparam) { return {GET_X_LPARAM(lparam), GET_Y_LPARAM(lparam)}; }

}  // namespace

void Host::Hold() {
    if (!std::exchange(holds, true)) Begin_Hold(window);
    stale = true;
}

void Host::Set_Background(Colors color) {
    background = color;
    stale = true;
}

void Host::Set_On_Paint(std::function<void()> draw) {
    stale = true;
    on_paint = std::make_shared<const std::function<void()>>(std::move(draw));
}

void Host::Add_Entry(Tools& control, const galdren::Class_Calls& calls,
                     std::shared_ptr<const galdren::Handlers> handlers) {
    entries.Add(control, calls, std::move(handlers));
    // It may come from a host that is gone: that one does not touch controls any more, for they may be gone
    // too.
    if (control.Veil != VEIL_NONE) Set_Veil(entries[entries.Count() - 1], VEIL_NONE);
    Receive(entries[entries.Count() - 1]);
    // The keyboard shows the caret of the field that has it, wherever the pointer is.
    if (calls.input) calls.parts().Show_Caret(control, CARET_AWAY);
    stale = true;
}

/// Leaves a control as it would be without a host.
void Host::Give_Back(const Entry& entry) {
    if (entry.hidden || entry.disabled) Set_Veil(entry, VEIL_NONE);
    if (entry.calls->field) entry.calls->parts().Show_Caret(*entry.control, CARET_AT_POINTER);
}

/// Forgets what points at a control that is no longer here; null means all.
void Host::Forget_Control(const Tools* control) {
    const auto is_gone = [control](const Tools* other) { return !control || other == control; };
    if (is_gone(current)) current = nullptr;
    if (is_gone(wheel_control)) wheel_control = nullptr;
    std::erase_if(pages, [&](const Page_Set& set) { return is_gone(set.tabs); });
    stale = true;
}

void Host::Remove(const Tools& control) {
    Entry* const entry = entries.Find(&control);
    if (!entry) return;
    Give_Back(*entry);
    if (entry->disabled) --disabled;
    entries.Remove(control);
    Forget_Control(&control);
    Show_Or_Hide_All();
    keys->Update();
}

void Host::Clear() {
    for (const Entry& entry : entries)
        Give_Back(entry);
    disabled = 0;
    entries.Clear();
    Forget_Control(nullptr);
    keys->Update();
}

/// `Init` of a control, which has its veil also on parts that are new.
void Host::Init_Entry(Entry& entry) {
    const unsigned serial = entry.serial;
    const galdren::Design_Fields fields = Note_Design(entry);
    entry.calls->init(*entry.control, window);
    Entry* const left = entries.With_Serial(serial);
    if (!left) return;
    left->design.Keep(fields);
    Renew_Veil(*left);
}

/// What waits for an `Init`: the keyboard, its ring and the picture.
void Host::Note_Init() {
    stale = true;
    if (const Entry* const wanted = entries.With_Serial(wanted_serial)) Focus(wanted->control);
    if (const Entry* const focused = entries.With_Serial(focus_serial)) Begin_Reading(*focused);
    keys->Update();
}

void Host::Init_All() {
    for (Entry& entry : entries)
        Init_Entry(entry);
    Note_Init();
}

void Host::Init(const Tools& control) {
    Entry* const entry = entries.Find(&control);
    if (!entry) return;
    Init_Entry(*entry);
    Note_Init();
}

void Host::Describe(const Tools& control, const char* name) {
    if (Entry* const entry = entries.Find(&control)) entry->Extras().description = name ? name : "";
}

void Host::Set_Mnemonic(const Tools& control, char key) {
    Entry* const entry = entries.Find(&control);
    if (entry) entry->Extras().mnemonic = std::toupper(static_cast<unsigned char>(key));
}

void Host::Serve(std::unique_ptr<Host_Service> service) { services.push_back(std::move(service)); }

bool Host::Message(UINT message, WPARAM wparam, LPARAM lparam, LRESULT& result) {
    if (!window) return false;
    Follow_Pages();
    for (const std::unique_ptr<Host_Service>& service : services) {
        if (service->Message(message, wparam, lparam, result)) return true;
    }
    return Handle(message, wparam, lparam, result);
}

bool Host::Handle(UINT message, WPARAM wparam, LPARAM lparam, LRESULT& result) {
    // The callbacks run last in every branch, so that one of them may even destroy the host; but that of
    // `Set_On_Paint` cannot be the last.
    const auto taken = [&result](LRESULT value) {
        result = value;
        return true;
    };
    const POINT place = Position_Of(lparam);
    switch (message) {
        case WM_ERASEBKGND:
            return taken(1);
        case WM_PAINT:
            taken(0);
            Paint();
            return true;
        case WM_PRINTCLIENT:
            // The system makes it of WM_PRINT, after the frame of the window.
            return Paint_Into(reinterpret_cast<HDC>(wparam), galdren::Client_Area(window)) && taken(0);
        case WM_SIZE:
            // The origin is at the bottom: a new height moves everything.
            Refresh();
            return false;
        case WM_DISPLAYCHANGE:
        case WM_SETTINGCHANGE:
            stale = true;  // text may look otherwise from now on
            return false;
        case WM_DPICHANGED:
            return follows_dpi && taken(0) && On_Dpi(LOWORD(wparam), *reinterpret_cast<const RECT*>(lparam));
        case WM_SYSCOLORCHANGE:
            if (follows_system) Wear(System_Theme());
            return false;
        case WM_NCDESTROY:
            if (std::exchange(holds, false)) End_Hold(window);
            keys->Set_Active(false);
            window = nullptr;
            return false;
        case WM_MOUSEMOVE:
            return On_Move(wparam, place) && taken(0);
        case WM_MOUSELEAVE:
            On_Leave();
            return taken(0);
        case WM_LBUTTONDOWN:
        case WM_LBUTTONDBLCLK:
            return On_Press(1, wparam, place, message == WM_LBUTTONDBLCLK) && taken(0);
        case WM_MBUTTONDOWN:
        case WM_MBUTTONDBLCLK:
            return On_Press(2, wparam, place, message == WM_MBUTTONDBLCLK) && taken(0);
        case WM_RBUTTONDOWN:
        case WM_RBUTTONDBLCLK:
            return On_Press(3, wparam, place, message == WM_RBUTTONDBLCLK) && taken(0);
        case WM_LBUTTONUP:
            return On_Release(1, wparam, place) && taken(0);
        case WM_MBUTTONUP:
            return On_Release(2, wparam, place) && taken(0);
        case WM_RBUTTONUP:
            return On_Release(3, wparam, place) && taken(0);
        case WM_CAPTURECHANGED:
            return On_Capture_Lost(reinterpret_cast<HWND>(lparam)) && taken(0);
        case WM_MOUSEWHEEL:
        case WM_MOUSEHWHEEL:
            return On_Wheel(GET_WHEEL_DELTA_WPARAM(wparam), place, message == WM_MOUSEHWHEEL) && taken(0);
        case WM_SETFOCUS:
        case WM_KILLFOCUS:
            if (message == WM_KILLFOCUS) Finish_Composing();
            keys->Set_Active(message == WM_SETFOCUS);
            Follow_Caret();
            return false;
        case WM_KEYDOWN:
        case WM_KEYUP:
        case WM_CHAR:
        case WM_SYSKEYDOWN:
            return On_Key(message, wparam, lparam) && taken(0);
        case WM_UNICHAR:
            return On_Whole_Character(wparam, lparam, result);
        case WM_IME_STARTCOMPOSITION:
            On_Composition_Start();
            return false;
        case WM_IME_COMPOSITION:
            return On_Composition(wparam, lparam, result);
        case WM_IME_ENDCOMPOSITION:
            composing_serial = 0;
            return false;
        case WM_CONTEXTMENU:
            return On_Context_Menu(place) && taken(0);
        case WM_TIMER:
            return On_Timer(wparam) && taken(0);
        case WM_SETCURSOR:
            return On_Set_Cursor(lparam) && taken(TRUE);
        default:
            return false;
    }
}
