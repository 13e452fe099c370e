// What surrounds the controls: scale and theme.
#include <algorithm>
#include <utility>

#include "host/client.h"
#include "host/host.h"
#include "tools/arithmetic.h"
#include "tools/look.h"
#include "util/error.h"
#include "util/late.h"

using namespace galdren;

namespace {

constexpr int Least_Scale = 25;
constexpr int Most_Scale = 500;
constexpr int Design_Dpi = 96;

/// A class of the application may note no more than the window.
bool Had_Init(const Tools& control) { return control.Window || (control.State & STATE_READY) != 0; }

/// Dots per inch of the display that a window is on.
int Dpi_Of(HWND window) {
    UINT(WINAPI * get_dpi)(HWND) = nullptr;
    Find_Function(GetModuleHandleA("user32.dll"), "GetDpiForWindow", get_dpi);
    // Systems that do not know it have one resolution for all.
    if (get_dpi) return static_cast<int>(get_dpi(window));
    const HDC display = GetDC(nullptr);
    const int dpi = GetDeviceCaps(display, LOGPIXELSX);
    ReleaseDC(nullptr, display);
    return dpi;
}

/// Writes the design of a control at its scale. Images that it has before its first `Init` were made for the
/// size before.
/// @param before  the scale of that size
void Write_Design(Entry& entry, const Design_Fields& fields, unsigned short before) {
    Tools& control = *entry.control;
    const short width = control.Width;
    const short height = control.Height;
    entry.design.Write(fields, control.Scale);
    if (Had_Init(control) || (width == control.Width && height == control.Height)) return;
    const auto note = [&](const unsigned long* image, Given_Image& given) {
        if (image && image != given.Pixels)
            given = {image, width, height, before ? before : static_cast<unsigned short>(Unscaled), true};
    };
    note(control.Graph_Normal, control.Given_Normal);
    note(control.Graph_Select, control.Given_Select);
}

int Scale_Of_Dpi(int dpi) { return std::clamp(MulDiv(dpi, Unscaled, Design_Dpi), Least_Scale, Most_Scale); }

}  // namespace

/// Takes what the application has written into the design of a control. What it has written before the first
/// `Init` is of the design, and gets the scale of the host.
Design_Fields Host::Note_Design(Entry& entry) const {
    Tools& control = *entry.control;
    const Design_Fields fields = entry.calls->design(control);
    const bool is_new = !Had_Init(control);
    entry.design.Note(fields, is_new ? Unscaled : control.Scale);
    if (is_new && scale != 0) Write_Design(entry, fields, Unscaled);
    return fields;
}

/// Gives a control that was added the scale and the theme of this host. Its fields are in pixels of its own
/// scale, which it may have from another host.
void Host::Receive(Entry& entry) const {
    Tools& control = *entry.control;
    const Design_Fields fields = entry.calls->design(control);
    entry.design.Note(fields, control.Scale);
    if (look) control.Look = look;
    if (scale == 0) return;
    const unsigned short before = std::exchange(control.Scale, scale == Unscaled ? 0 : scale);
    Write_Design(entry, fields, before);
}

/// `Init` of a control that had one, when what surrounds it has changed.
void Host::Init_Again(Entry& entry) {
    Tools& control = *entry.control;
    if (!Had_Init(control)) return;
    const unsigned serial = entry.serial;
    const Design_Fields fields = entry.calls->design(control);
    {
        const Kept_In_Use in_use(fields, entry.calls->field ? entry.calls->field(control) : nullptr);
        entry.calls->init(control, window);
    }
    Entry* const left = entries.With_Serial(serial);
    if (!left) return;
    left->design.Keep(fields);
    Renew_Veil(*left);
}

void Host::Rescale(Entry& entry) {
    Tools& control = *entry.control;
    const Design_Fields fields = Note_Design(entry);
    const unsigned short before = std::exchange(control.Scale, scale == Unscaled ? 0 : scale);
    Write_Design(entry, fields, before);
    const unsigned serial = entry.serial;
    Init_Again(entry);
    if (Entry* const left = entries.With_Serial(serial)) left->design.Scroll(fields, control.Scale);
}

void Host::Set_Scale(int percent) {
    if (percent < Least_Scale || percent > Most_Scale) {
        Error_Fct(window, ERROR_LEVEL_WARNING, "Host::Set_Scale(): %d is not a scale from %d to %d percent",
                  percent, Least_Scale, Most_Scale);
        return;
    }
    if (percent == scale) return;
    scale = static_cast<unsigned short>(percent);
    if (window) Set_Dialog_Look(window, scale, look);
    for (std::size_t number = 0; number < entries.Count(); ++number)
        Rescale(entries[number]);
    Note_Init();
    Refresh();
}

void Host::Scale_Window(int percent) {
    const int before = Scale();
    Set_Scale(percent);
    const int now = Scale();
    if (!window || now == before || IsIconic(window) || IsZoomed(window)) return;
    const RECT client = Client_Area(window);
    RECT whole{};
    GetWindowRect(window, &whole);
    const int width = whole.right - whole.left - client.right + MulDiv(client.right, now, before);
    const int height = whole.bottom - whole.top - client.bottom + MulDiv(client.bottom, now, before);
    SetWindowPos(window, nullptr, 0, 0, width, height, SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
}

void Host::Follow_Dpi() {
    follows_dpi = true;
    if (window) Scale_Window(Scale_Of_Dpi(Dpi_Of(window)));
}

/// The window has got to a display of another resolution, where the system wants it at `place`.
bool Host::On_Dpi(int dpi, const RECT& place) {
    const HWND moved = window;
    const RECT wanted = place;
    Set_Scale(Scale_Of_Dpi(dpi));
    SetWindowPos(moved, nullptr, wanted.left, wanted.top, wanted.right - wanted.left,
                 wanted.bottom - wanted.top, SWP_NOZORDER | SWP_NOACTIVATE);
    return true;
}

void Host::Place(const Tools& control, int x, int y, int width, int height) {
    Entry* const entry = entries.Find(&control);
    if (!entry) return;
    Refresh_Area(Painted_Area(*entry));
    const Design_Fields fields = Note_Design(*entry);
    entry->design.Set_Place(Within_16(x), Within_16(y), Within_16(width), Within_16(height));
    entry->design.Write(fields, control.Scale);
    const unsigned serial = entry->serial;
    Init_Again(*entry);
    Note_Init();
    if (const Entry* const left = entries.With_Serial(serial)) Refresh_Area(Painted_Area(*left));
}

const Theme* Host::Look_Of(const Entry& entry) const {
    return entry.disabled && fade.look ? fade.look : look;
}

/// The colour behind the controls.
Colors Host::Ground() const { return look ? Colors(static_cast<unsigned int>(look->Window)) : background; }

void Host::Set_Theme(const Theme* theme) {
    follows_system = false;
    if (theme) return Wear(*theme);
    Dress(nullptr);
}

void Host::Follow_System_Theme() {
    follows_system = true;
    Wear(System_Theme());
}

/// Wears a theme; without the memory to keep it, nothing changes.
void Host::Wear(const Theme& theme) {
    if (const Theme* const kept = Keep_Theme(theme)) Dress(kept);
}

/// Gives all controls a theme that is kept, or takes it away with null.
void Host::Dress(const Theme* kept) {
    if (kept == look) return;
    look = kept;
    fade = Fade_In(look);
    if (window) Set_Dialog_Look(window, scale, look);
    for (std::size_t number = 0; number < entries.Count(); ++number) {
        entries[number].control->Look = Look_Of(entries[number]);
        Init_Again(entries[number]);
    }
    Note_Init();
    Refresh();
}
