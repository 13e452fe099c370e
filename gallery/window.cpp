#include "gallery/window.h"

#include <cstdio>
#include <stdexcept>
#include <utility>

#include "Galdren_Util.h"

namespace gallery {

namespace {

constexpr char window_class[] = "Galdren_Gallery";
constexpr char window_title[] = "Galdren_Tools gallery";
constexpr DWORD window_style = WS_OVERLAPPEDWINDOW;

constexpr int header_height = 64;
constexpr int status_height = 28;
constexpr int margin = page_area.x;
constexpr int gap = 8;

const Colors ground_color{76, 81, 90};
const Colors header_color{48, 52, 59};
const Colors header_line_color{34, 37, 42};

/// Size of the whole window around a client area of `design_size`.
SIZE Window_Size() {
    RECT area{0, 0, design_size.cx, design_size.cy};
    AdjustWindowRect(&area, window_style, FALSE);
    return {area.right - area.left, area.bottom - area.top};
}

SIZE Client_Size(HWND window) {
    RECT client{};
    GetClientRect(window, &client);
    return {client.right, client.bottom};
}

/// Place of a page's button in the header: as few rows as there may be, of equal length, at the right.
Place Page_Button_Place(std::size_t index) {
    constexpr int most_in_row = 6;
    constexpr int width = 95;
    constexpr int height = 24;
    constexpr int space = 6;
    const int count = static_cast<int>(Pages().size());
    const int rows = (count + most_in_row - 1) / most_in_row;
    const int columns = (count + rows - 1) / rows;
    const int left = design_size.cx - margin - columns * width - (columns - 1) * space;
    const int top = (header_height - rows * height - (rows - 1) * space) / 2;
    const int row = static_cast<int>(index) / columns;
    const int column = static_cast<int>(index) % columns;
    return {left + column * (width + space), top + row * (height + space), width, height};
}

HWND Make_Window(HINSTANCE instance, WNDPROC procedure) {
    WNDCLASSA description{};
    description.lpfnWndProc = procedure;
    description.hInstance = instance;
    description.hCursor = LoadCursorA(nullptr, MAKEINTRESOURCEA(32512));
    description.lpszClassName = window_class;
    RegisterClassA(&description);
    const SIZE size = Window_Size();
    const HWND window = CreateWindowExA(0, window_class, window_title, window_style, 120, 80, size.cx,
                                        size.cy, nullptr, nullptr, instance, nullptr);
    if (!window) throw std::runtime_error("cannot make a window");
    return window;
}

}  // namespace

Window::Window(HINSTANCE instance, bool log)
    : window(Make_Window(instance, Procedure)),
      host(window),
      logging(log),
      header(host, [this](const std::string& text) { Report(text); }),
      sheets(Pages().size()) {
    hwnd = window;
    host.Set_Background(ground_color);
    host.Set_On_Paint([this] { Paint_Header(); });
    Build_Header();
    Build_Status();
    SetWindowLongPtrA(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    Show_Page(0);
}

Window::~Window() {
    SetWindowLongPtrA(window, GWLP_USERDATA, 0);
    hwnd = nullptr;
    if (IsWindow(window)) DestroyWindow(window);
}

void Window::Build_Header() {
    Labels& title = header.Label({margin, 20, 140, 24}, "Galdren_Tools", FLAG_TEXT_LEFT);
    title.Font_Size = 14;
    title.Font_Weight = "bold";
    for (std::size_t i = 0; i < Pages().size(); ++i) {
        const auto press = [this, i](Buttons&) {
            Report(std::string("press \"") + Pages()[i].title + "\": page " + Pages()[i].name);
            Show_Page(i);
        };
        Buttons& button = header.Add<Buttons>(Page_Button_Place(i), Pages()[i].title, 0, press);
        button.Border = 2;
        page_buttons.push_back(&button);
    }
}

void Window::Build_Status() {
    status_box.Flag = FLAG_STATIC | FLAG_PASSIVE;
    status_box.Color = ground_color;
    status_box.Border = 2;
    status_text.Flag = FLAG_TEXT_LEFT;
    status_text.Font_Name = "Arial";
    status_text.Font_Size = 9;
    status_text.Set_Name("Move over the controls and press them");
}

void Window::Show_Page(std::size_t index) {
    shown = index;
    std::unique_ptr<Sheet>& sheet = sheets[index];
    if (!sheet) {
        sheet = std::make_unique<Sheet>(host, [this](const std::string& text) { Report(text); });
        Pages()[index].build(*sheet);
    }
    for (std::size_t i = 0; i < page_buttons.size(); ++i)
        page_buttons[i]->Value = i == index;
    host.Clear();
    header.Show();
    sheet->Show();
    host.Add(status_box);
    host.Add(status_text);
    Fit();
    InvalidateRect(window, nullptr, FALSE);
    if (announced) Log_Page();
}

/// Moves everything to where it stands in the present client area.
void Window::Fit() {
    const SIZE client = Client_Size(window);
    if (client.cx == 0 || client.cy == 0) return;
    header.Fit(client);
    sheets[shown]->Fit(client);
    status_box.X = margin;
    status_box.Y = gap;
    status_box.Width = static_cast<short>(client.cx - 2 * margin);
    status_box.Height = status_height;
    status_text.X = static_cast<short>(status_box.X + 10);
    status_text.Y = status_box.Y;
    status_text.Width = static_cast<short>(status_box.Width - 20);
    status_text.Height = status_box.Height;
    host.Init_All();
}

void Window::Paint_Header() const {
    const SIZE client = Client_Size(window);
    const int bottom = client.cy - header_height;
    Current_Color = header_color.get();
    Draw_Box(0, client.cy - 1, client.cx, bottom - 1);
    Current_Color = header_line_color.get();
    Draw_Box(0, bottom - 1, client.cx, bottom - 2);
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

/// Logs when another control than before has the pointer.
void Window::Log_Pointer() {
    const Tools* now = host.Current();
    if (now == std::exchange(pointed_at, now)) return;
    Log(now && now->Name ? std::string("over \"") + now->Name + '"' : "over nothing");
}

void Window::Announce() {
    announced = true;
    Log("ready");
    Log_Controls(header);
    Log_Page();
}

void Window::Log_Page() const {
    Log_Controls(*sheets[shown]);
    Log(std::string("page ") + Pages()[shown].name);
}

/// A line for every control that has a name: where it is in the client area, y downward, with the last
/// column and row.
void Window::Log_Controls(const Sheet& sheet) const {
    const LONG height = Client_Size(window).cy;
    for (const Tools* control : sheet.Controls()) {
        if (!control->Name) continue;
        const int top = height - 1 - control->Y - control->Height;
        Log(std::string("control \"") + control->Name + "\" " + std::to_string(control->X) + ' ' +
            std::to_string(top) + ' ' + std::to_string(control->X + control->Width) + ' ' +
            std::to_string(height - 1 - control->Y));
    }
}

LRESULT CALLBACK Window::Procedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam) {
    auto* self = reinterpret_cast<Window*>(GetWindowLongPtrA(window, GWLP_USERDATA));
    if (!self) return DefWindowProcA(window, message, wparam, lparam);
    return self->On_Message(message, wparam, lparam);
}

LRESULT Window::On_Message(UINT message, WPARAM wparam, LPARAM lparam) {
    LRESULT result = 0;
    const bool taken = host.Message(message, wparam, lparam, result);
    Log_Pointer();
    if (taken) return result;
    switch (message) {
        case WM_SIZE:
            Fit();
            return 0;
        case WM_GETMINMAXINFO: {
            const SIZE least = Window_Size();
            reinterpret_cast<MINMAXINFO*>(lparam)->ptMinTrackSize = {least.cx, least.cy};
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
