// A console fed by a worker thread. Controls are for the thread of their window alone, so the worker touches
// none: it posts each line to the window, and the ownership of the line goes with the message.
#include <chrono>
#include <initializer_list>
#include <memory>
#include <string>
#include <thread>

#include "Galdren_Host.h"
#include "Galdren_Tools.h"

using Line = std::unique_ptr<std::string>;

constexpr UINT line_message = WM_APP + 1;  // its lparam owns a std::string

/// For the worker. A line that the window does not take, as when its queue is full, is dropped here.
void Hand_Over(HWND window, Line line) {
    const bool taken = PostMessageA(window, line_message, 0, reinterpret_cast<LPARAM>(line.get())) != FALSE;
    if (taken) static_cast<void>(line.release());
}

Line Take_Over(LPARAM lparam) { return Line(reinterpret_cast<std::string*>(lparam)); }

/// Stands for the work of a real program.
void Work(const std::stop_token& stop, HWND window) {
    for (int step = 1; !stop.stop_requested(); ++step) {
        auto line = std::make_unique<std::string>("Step " + std::to_string(step) + " is done");
        if (step % 8 == 0) *line = char(TEXT_RED) + *line + ", and took too long";
        Hand_Over(window, std::move(line));
        std::this_thread::sleep_for(std::chrono::milliseconds(60));
    }
}

struct Log_Window {
    HWND window;
    Texts console;
    Buttons run, clear;
    Labels count_label;
    int count = 0;
    Host host;
    std::jthread worker;

    explicit Log_Window(HWND served) : window(served), host(served) {
        console.Name = "Log", console.Flag = TEXT_V_BAR | SLIDER_KEEP_GRAB;
        console.Color = Colors(196, 200, 206);
        run.Name = "Run", run.Flag = BUTTON_LAMP, run.Value = run.Lamp = 1;
        clear.Name = "Clear";
        count_label.Flag = FLAG_TEXT_LEFT;
        Serve_Screen_Readers(host);
        host.Set_Background(Colors(76, 81, 90));
        host.Add(console, [this](Texts&, const Host_Event& event) { Note(event); });
        host.Add(run, [this](Buttons&, const Host_Event&) { run.Value ? Start() : Stop(); });
        host.Add(clear, [this](Buttons&) {
            console.Cleanup(), console.Draw(), console.Read(nullptr), Show_Count(0);
        });
        host.Add(count_label);
        host.Set_Mnemonic(run, 'R');
        host.Set_Mnemonic(clear, 'C');
        for (Tools* control : std::initializer_list<Tools*>{&console, &run, &clear, &count_label})
            control->Font_Name = "Arial", control->Font_Size = 10;
        Show_Count(0);
        host.Follow_Dpi();
        Lay_Out();
        console.Read(nullptr);
        host.Focus(&console);
        Start();
    }

    void Start() { worker = std::jthread(Work, window); }

    /// The worker waits for nothing that this thread does, so that it can be waited for here.
    void Stop() {
        worker.request_stop();
        if (worker.joinable()) worker.join();
    }

    /// Before the window is destroyed: lines that are still in its queue would be lost with it.
    void Close() {
        Stop();
        for (MSG message; PeekMessageA(&message, window, line_message, line_message, PM_REMOVE);)
            Take_Over(message.lParam);
    }

    /// A line that is typed goes to the log. After Escape keys scroll, until Enter or a click begins a line.
    void Note(const Host_Event& event) {
        const bool enters = event.key == VK_RETURN;
        if (enters && event.answer) Show_Count(count + 1);
        if (console.Mode == 0 && (enters || event.kind == Host_Event::Press)) console.Read(nullptr);
    }

    void Show_Count(int lines) {
        count = lines;
        count_label.Set_Name("%d lines", count);
        host.Refresh(count_label);
    }

    void Append(const Line& line) {
        console.Write("%s", line->c_str());
        Show_Count(count + 1);
    }

    /// The console fills the window above a row of buttons.
    void Lay_Out() {
        using namespace Layout;
        const Item buttons =
            Row(12, {Fixed(run, 100), Fixed(clear, 100), Stretch(Least(count_label, 80, 0))});
        Layout::Lay_Out(host, Margin(12, Column(10, {Stretch(Least(console, 0, 100)), Fixed(buttons, 34)})));
    }
};

int WINAPI WinMain(HINSTANCE, HINSTANCE, LPSTR, int show) {
    Set_Text_Code_Page(CP_UTF8);
    Main_Window window("Log console", 512, 333);
    Log_Window log(window.Handle());
    window.Set_On_Message([&log](UINT message, WPARAM, LPARAM lparam, LRESULT&) {
        if (message == WM_DESTROY) log.Close();
        if (message == line_message) log.Append(Take_Over(lparam));
        return message == line_message;
    });
    return window.Run(log.host, show);
}
