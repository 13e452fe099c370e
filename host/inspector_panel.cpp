#include "host/inspector_panel.h"

#include <string>
#include <utility>

#include "host/client.h"
#include "util/wide.h"

// Of the program or library that this is linked into; the linker gives it this name.
extern "C" IMAGE_DOS_HEADER __ImageBase;  // NOLINT(bugprone-reserved-identifier)

namespace galdren {

namespace {

constexpr wchar_t Class_Name[] = L"Galdren_Inspector";
constexpr UINT Refresh_Message = WM_APP;
constexpr UINT Refresh_Pause = 200;  // milliseconds; changes by the application cause no message

constexpr int Width = 360;
constexpr int Margin = 8;
constexpr int Title_Width = 76;
constexpr int Line_Height = 16;
const Colors Ground_Color{40, 44, 50};
const Colors Title_Color{150, 160, 175};
const Colors Text_Color{235, 235, 235};

HINSTANCE Module() { return reinterpret_cast<HINSTANCE>(&__ImageBase); }

HWND Make_Window(HWND owner, WNDPROC procedure) {
    WNDCLASSW description{};
    description.lpfnWndProc = procedure;
    description.hInstance = Module();
    description.hCursor = LoadCursorA(nullptr, MAKEINTRESOURCEA(32512));
    description.lpszClassName = Class_Name;
    RegisterClassW(&description);
    return CreateWindowExW(WS_EX_TOOLWINDOW | WS_EX_NOACTIVATE, Class_Name, L"Inspector", WS_POPUP, 0, 0,
                           Width, Line_Height, owner, nullptr, Module(), nullptr);
}

void Dress(Labels& label, int x, int y, int width, const Colors& color) {
    label.X = label.Clip_X = static_cast<short>(x);
    label.Y = label.Clip_Y = static_cast<short>(y);
    label.Width = label.Clip_Width = static_cast<short>(width);
    label.Height = label.Clip_Height = Line_Height;
    label.Flag = FLAG_TEXT_LEFT | FLAG_TEXT_MIDDLE;
    label.Font_Name = "Arial";
    label.Font_Size = 8;
    label.Color = color;
}

RECT Work_Area(HWND window) {
    MONITORINFO monitor{};
    monitor.cbSize = sizeof monitor;
    GetMonitorInfoA(MonitorFromWindow(window, MONITOR_DEFAULTTONEAREST), &monitor);
    return monitor.rcWork;
}

/// The first place for a window of this size that is on the screen and clear of the part: beside the window,
/// else in a corner.
POINT Find_Place(SIZE size, const RECT& window, const RECT& part, const RECT& screen) {
    const POINT places[] = {{window.right, window.top},
                            {window.left - size.cx, window.top},
                            {window.left, window.bottom},
                            {window.left, window.top - size.cy},
                            {screen.right - size.cx, screen.top},
                            {screen.right - size.cx, screen.bottom - size.cy},
                            {screen.left, screen.bottom - size.cy},
                            {screen.left, screen.top}};
    for (const POINT& place : places) {
        const RECT taken{place.x, place.y, place.x + size.cx, place.y + size.cy};
        RECT common{};
        IntersectRect(&common, &taken, &screen);
        if (Same(common, taken) && !IntersectRect(&common, &taken, &part)) return place;
    }
    return places[4];
}

std::string Text_Of(const std::vector<Fact>& facts) {
    std::string text;
    for (const Fact& fact : facts)
        text += fact.title + (": " + fact.text) + '\n';
    return text;
}

}  // namespace

Inspector_Panel::Inspector_Panel(HWND inspected, std::function<void()> refresh)
    : owner(GetAncestor(inspected, GA_ROOT)),
      window(Make_Window(owner, Procedure)),
      on_refresh(std::move(refresh)),
      host(window) {
    ground.Flag = FLAG_PASSIVE | FLAG_STATIC;
    ground.Border = 1;
    ground.Color = Ground_Color;
    host.Set_Background(Ground_Color);
    if (!window) return;
    SetWindowLongPtrA(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    SetTimer(window, 1, Refresh_Pause, nullptr);
}

Inspector_Panel::~Inspector_Panel() {
    if (window) {
        SetWindowLongPtrA(window, GWLP_USERDATA, 0);
        DestroyWindow(window);
    }
    UnregisterClassW(Class_Name, Module());  // fails as long as there is another panel
}

void Inspector_Panel::Ask() {
    if (window && !asked) asked = PostMessageA(window, Refresh_Message, 0, 0) != 0;
}

void Inspector_Panel::Refresh() {
    asked = false;
    const std::function<void()> call = on_refresh;  // it may outlive the panel
    call();
}

/// Makes the lines and the room for them.
void Inspector_Panel::Build(const std::vector<Fact>& facts) {
    lines.resize(facts.size());
    const int height = static_cast<int>(facts.size()) * Line_Height + 2 * Margin;
    ground.Width = Width;
    ground.Height = static_cast<short>(height);
    host.Add(ground);
    int y = height - Margin;
    for (std::size_t i = 0; i < facts.size(); ++i) {
        auto& [title, text] = lines[i];
        y -= Line_Height;
        Dress(title, Margin, y, Title_Width, Title_Color);
        Dress(text, Margin + Title_Width, y, Width - 2 * Margin - Title_Width, Text_Color);
        title.Name = facts[i].title;
        host.Add(title);
        host.Add(text);
    }
    SetWindowPos(window, nullptr, 0, 0, Width, height, SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
    host.Init_All();
}

void Inspector_Panel::Show(const std::vector<Fact>& facts) {
    if (!window) return;
    if (lines.empty()) Build(facts);
    SetWindowTextW(window, To_Wide(Text_Of(facts)).c_str());
    for (std::size_t i = 0; i < lines.size(); ++i) {
        Labels& shown = lines[i].text;
        if (shown.Name && shown.Name == facts[i].text) continue;
        shown.Set_Name("%s", facts[i].text.c_str());
        host.Refresh(shown);
    }
}

void Inspector_Panel::Keep_Clear_Of(const RECT& part) {
    if (!window) return;
    RECT inspected{}, now{};
    GetWindowRect(owner, &inspected);
    GetWindowRect(window, &now);
    const SIZE size{now.right - now.left, now.bottom - now.top};
    const POINT place = Find_Place(size, inspected, part, Work_Area(owner));
    if (IsWindowVisible(window) && place.x == now.left && place.y == now.top) return;
    SetWindowPos(window, nullptr, place.x, place.y, 0, 0,
                 SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE | SWP_SHOWWINDOW);
}

LRESULT CALLBACK Inspector_Panel::Procedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam) {
    auto* const self = reinterpret_cast<Inspector_Panel*>(GetWindowLongPtrA(window, GWLP_USERDATA));
    if (!self) return DefWindowProcW(window, message, wparam, lparam);
    return self->On_Message(message, wparam, lparam);
}

LRESULT Inspector_Panel::On_Message(UINT message, WPARAM wparam, LPARAM lparam) {
    const HWND here = window;
    LRESULT result = 0;
    if (host.Message(message, wparam, lparam, result)) return result;
    switch (message) {
        case Refresh_Message:
        case WM_TIMER:
            Refresh();
            return 0;
        case WM_MOUSEACTIVATE:
            return MA_NOACTIVATE;
        case WM_CLOSE:  // it closes with the window that it belongs to
            return 0;
        case WM_NCDESTROY:
            window = nullptr;
            break;
        default:
            break;
    }
    return DefWindowProcW(here, message, wparam, lparam);
}

}  // namespace galdren
