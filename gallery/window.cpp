#include "gallery/window.h"

#include <algorithm>
#include <cstdio>
#include <iterator>
#include <stdexcept>
#include <utility>

#include "Galdren_Util.h"
#include "gallery/call_meter.h"

namespace gallery {

namespace {

constexpr char window_class[] = "Galdren_Gallery";
constexpr char window_title[] = "Galdren_Tools gallery";
constexpr DWORD window_style = WS_OVERLAPPEDWINDOW;

constexpr int margin = 8;
constexpr int gap = 6;
constexpr int tabs_top = 14;
constexpr int tabs_height = 28;
constexpr int status_height = 26;
constexpr int page_bottom = status_height + 2 * gap;  // y upward

const Colors page_color{76, 81, 90};
const Colors ground_color{48, 52, 59};
const Colors back_tab_color{188, 193, 202};

constexpr Look looks[] = {
    {"plain", [](Host& host) { host.Set_Theme(nullptr); }},
    {"dark",
     [](Host& host) {
         const Theme dark = Dark_Theme();
         host.Set_Theme(&dark);
     }},
    {"system", [](Host& host) { host.Follow_System_Theme(); }},
};

constexpr int scales[] = {100, 125, 150, 200};

/// Size of the whole window around a client area of `design_size`.
SIZE Window_Size(int scale) {
    RECT area{0, 0, MulDiv(design_size.cx, scale, 100), MulDiv(design_size.cy, scale, 100)};
    AdjustWindowRect(&area, window_style, FALSE);
    return {area.right - area.left, area.bottom - area.top};
}

/// The first of `scales` that is larger, or the smallest.
int Next_Scale(int scale) {
    const auto* const next = std::upper_bound(std::begin(scales), std::end(scales), scale);
    return next == std::end(scales) ? scales[0] : *next;
}

SIZE Client_Size(HWND window) {
    RECT client{};
    GetClientRect(window, &client);
    return {client.right, client.bottom};
}

HWND Make_Window(HINSTANCE instance, WNDPROC procedure) {
    WNDCLASSA description{};
    description.lpfnWndProc = procedure;
    description.hInstance = instance;
    description.hCursor = LoadCursorA(nullptr, MAKEINTRESOURCEA(32512));
    description.lpszClassName = window_class;
    RegisterClassA(&description);
    const SIZE size = Window_Size(100);
    const HWND window = CreateWindowExA(0, window_class, window_title, window_style, 120, 80, size.cx,
                                        size.cy, nullptr, nullptr, instance, nullptr);
    if (!window) throw std::runtime_error("cannot make a window");
    return window;
}

}  // namespace

std::span<const Look> Looks() { return looks; }

Window::Window(HINSTANCE instance, bool log)
    : window(Make_Window(instance, Procedure)), host(window), logging(log), sheets(Pages().size()) {
    hwnd = window;
    host.Set_Background(ground_color);
    host.Set_On_Paint([this] { Paint_Page(); });
    host.Set_On_Key([this](int key) { return On_Key(key); });
    Serve_Screen_Readers(host);
    Build_Tabs_Of_Pages();
    Build_Status();
    host.Add(page_tabs, [this](Tabs&) { Choose_Page_Of_Tab(); });
    host.Describe(page_tabs, "Pages");
    host.Add(status_box);
    host.Add(status_text);
    host.Add(status_cost);
    SetWindowLongPtrA(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    Show_Page(0);
}

Window::~Window() {
    SetWindowLongPtrA(window, GWLP_USERDATA, 0);
    hwnd = nullptr;
    if (IsWindow(window)) DestroyWindow(window);
}

void Window::Build_Tabs_Of_Pages() {
    page_tabs.Font_Name = "Arial";
    page_tabs.Font_Size = 8;
    page_tabs.Grow(static_cast<int>(Pages().size()), 0);
    for (std::size_t i = 0; i < Pages().size(); ++i)
        page_tabs.Item[i]->Name = Pages()[i].title;
}

void Window::Build_Status() {
    status_box.Flag = FLAG_STATIC | FLAG_PASSIVE;
    status_box.Color = ground_color;
    status_box.Border = 1;
    status_text.Flag = FLAG_TEXT_LEFT;
    status_text.Font_Name = "Arial";
    status_text.Font_Size = 9;
    status_text.Set_Name("Move over the controls and press them");
    status_cost.Flag = FLAG_TEXT_RIGHT;
    status_cost.Font_Name = "Arial";
    status_cost.Font_Size = 9;
}

/// F7 goes on to the next theme, F8 to the next scale, and F12 switches the inspector.
bool Window::On_Key(int key) {
    switch (key) {
        case KEY_NAVIGATION | VK_F7:
            Wear((worn + 1) % std::size(looks));
            Report(std::string("theme ") + looks[worn].name);
            return true;
        case KEY_NAVIGATION | VK_F8:
            Set_Scale(Next_Scale(host.Scale()));
            Report("scale " + std::to_string(host.Scale()));
            return true;
        case KEY_NAVIGATION | VK_F12:
            Inspect(host, !Is_Inspected(host));
            Report(Is_Inspected(host) ? "inspector on" : "inspector off");
            return true;
        default:
            return false;
    }
}

void Window::Set_Scale(int percent) { host.Scale_Window(percent); }

void Window::Wear(std::size_t look) {
    worn = look;
    looks[worn].wear(host);
}

/// Shows the page whose tab was pressed.
void Window::Choose_Page_Of_Tab() {
    const int index = page_tabs.Read();
    if (index < 0) return;
    const Page& page = Pages()[static_cast<std::size_t>(index)];
    Report(std::string("press \"") + page.title + "\": page " + page.name);
    Show_Page(static_cast<std::size_t>(index));
}

void Window::Show_Page(std::size_t index) {
    if (sheets[shown]) sheets[shown]->Hide();
    shown = index;
    std::unique_ptr<Sheet>& sheet = sheets[index];
    if (!sheet) {
        sheet = std::make_unique<Sheet>(host, [this](const std::string& text) { Report(text); });
        Pages()[index].build(*sheet);
    }
    page_tabs.Value = static_cast<short>(index);
    for (std::size_t i = 0; i < Pages().size(); ++i)
        page_tabs.Item[i]->Color = i == index ? page_color : back_tab_color;
    sheet->Fit(Design_Of_Client());
    sheet->Show(Pages()[index].title);
    Fit();
    InvalidateRect(window, nullptr, FALSE);
    if (announced) Log_Page();
}

/// The client area in pixels of the design.
SIZE Window::Design_Of_Client() const {
    const SIZE client = Client_Size(window);
    return {MulDiv(client.cx, 100, host.Scale()), MulDiv(client.cy, 100, host.Scale())};
}

/// Moves everything to where it stands in the present client area.
void Window::Fit() {
    const SIZE client = Design_Of_Client();
    if (client.cx == 0 || client.cy == 0) return;
    sheets[shown]->Fit(client);
    Fit_Tabs(client);
    Fit_Status(client);
    host.Init_All();
}

/// The page of the tabs fills the window, but for the status line.
void Window::Fit_Tabs(SIZE client) {
    host.Place(page_tabs, margin, client.cy - tabs_top - tabs_height, client.cx - 2 * margin, tabs_height);
}

void Window::Fit_Status(SIZE client) {
    const int width = client.cx - 2 * margin;
    host.Place(status_box, margin, gap, width, status_height);
    for (const Labels* const label : {&status_text, &status_cost})
        host.Place(*label, margin + 10, gap, width - 20, status_height);
}

void Window::Paint_Page() {
    page_tabs.Page(page_tabs.Y + page_tabs.Height - MulDiv(page_bottom, host.Scale(), 100));
}

void Window::Press(const char* name) {
    if (!Press_Part(host.Parts(), name)) throw std::runtime_error(std::string("no button is called ") + name);
}

void Window::Paint_Now() const { RedrawWindow(window, nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW); }

void Window::Report(const std::string& text) {
    status_text.Set_Name("%s", text.c_str());
    host.Refresh(status_box);
    Log(text);
}

void Window::Log(const std::string& line) const {
    if (!logging) return;
    std::puts(line.c_str());
    std::fflush(stdout);
}

/// The control under the pointer; of the pages' tabs the one under it.
const Tools* Window::Pointed_At() {
    const Tools* control = host.Current();
    if (control != &page_tabs) return control;
    const int index = page_tabs.Read();
    return index < 0 ? nullptr : page_tabs.Item[index];
}

/// Logs when another control than before has the pointer.
void Window::Log_Pointer() {
    const Tools* now = Pointed_At();
    if (now == std::exchange(pointed_at, now)) return;
    Log(now && now->Name ? std::string("over \"") + now->Name + '"' : "over nothing");
}

void Window::Announce() {
    announced = true;
    Log("ready");
    Log_Page();
}

void Window::Log_Page() const { Log(std::string("page ") + Pages()[shown].name); }

LRESULT CALLBACK Window::Procedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam) {
    auto* self = reinterpret_cast<Window*>(GetWindowLongPtrA(window, GWLP_USERDATA));
    if (!self) return DefWindowProcA(window, message, wparam, lparam);
    return self->On_Message(message, wparam, lparam);
}

LRESULT Window::On_Message(UINT message, WPARAM wparam, LPARAM lparam) {
    LRESULT result = 0;
    {
        const Metered_Event event(window, message);
        result = Handle(message, wparam, lparam);
    }
    // The gallery is gone after the last message.
    if (message != WM_NCDESTROY && message != WM_DESTROY) Show_Cost();
    return result;
}

/// Shows what the last event that painted cost, when it is another one than is shown.
void Window::Show_Cost() {
    const std::string cost = "Last paint: " + Call_Meter::Get().Text_Of_Last_Paint();
    if (status_cost.Name && cost == status_cost.Name) return;
    status_cost.Set_Name("%s", cost.c_str());
    host.Refresh(status_box);
}

LRESULT Window::Handle(UINT message, WPARAM wparam, LPARAM lparam) {
    LRESULT result = 0;
    const bool taken = host.Message(message, wparam, lparam, result);
    Log_Pointer();
    if (taken) return result;
    switch (message) {
        case WM_SIZE:
            Fit();
            return 0;
        case WM_GETMINMAXINFO: {
            const SIZE least = Window_Size(host.Scale());
            MINMAXINFO& limits = *reinterpret_cast<MINMAXINFO*>(lparam);
            limits.ptMinTrackSize = {least.cx, least.cy};
            limits.ptMaxTrackSize = {std::max(limits.ptMaxTrackSize.x, least.cx),
                                     std::max(limits.ptMaxTrackSize.y, least.cy)};
            return 0;
        }
        case WM_DESTROY:
            PostQuitMessage(0);
            return 0;
        default:
            return DefWindowProcA(window, message, wparam, lparam);
    }
}

}  // namespace gallery
