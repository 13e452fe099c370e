// The gallery: every control of Galdren_Tools in all its styles, alive.
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <exception>
#include <optional>
#include <stdexcept>
#include <string>

#include "gallery/flags.h"
#include "gallery/picture.h"
#include "gallery/window.h"

namespace {

using gallery::Page;
using gallery::Pages;

constexpr int exit_failed = 1;
constexpr int exit_usage = 2;

struct Options {
    std::size_t page = 0;
    std::size_t look = 0;
    int scale = 100;
    std::string png_directory;
    std::string flags_directory;
    bool log = false;
    bool help = false;
};

void Print_Help() {
    std::puts(
        "gallery: every control of Galdren_Tools in all its styles\n"
        "\n"
        "usage: gallery [--page NAME] [--scale PERCENT] [--theme NAME] [--log]\n"
        "       gallery --png DIR [--scale PERCENT] [--theme NAME]\n"
        "       gallery --flags DIR\n"
        "\n"
        "  --page NAME  begin with this page\n"
        "  --png DIR    write a picture of every page, and of the focus ring, to DIR\\gallery-NAME.png and "
        "exit\n"
        "  --scale PERCENT  scale all, from 25 to 500 percent\n"
        "  --theme NAME  wear plain, dark or system\n"
        "  --flags DIR  write a small picture of what each flag does to DIR\\CLASS-FLAG.png and exit\n"
        "  --log        write events to standard output, one per line; the first line is \"ready\"\n"
        "  --help       show this text\n"
        "\n"
        "F7 goes on to the next theme and F8 to the next scale. F12 switches the inspector, which tells\n"
        "about the control under the pointer.\n"
        "\n"
        "pages:");
    for (const Page& page : Pages())
        std::printf("  %s\n", page.name);
}

std::nullopt_t Usage_Error(const std::string& text) {
    std::fprintf(stderr, "gallery: %s\nTry gallery --help.\n", text.c_str());
    return std::nullopt;
}

std::optional<std::size_t> Find_Page(const char* name) {
    for (std::size_t i = 0; i < Pages().size(); ++i) {
        if (std::strcmp(Pages()[i].name, name) == 0) return i;
    }
    return Usage_Error(std::string("no page is called ") + name);
}

std::optional<std::size_t> Find_Look(const char* name) {
    for (std::size_t i = 0; i < gallery::Looks().size(); ++i) {
        if (std::strcmp(gallery::Looks()[i].name, name) == 0) return i;
    }
    return Usage_Error(std::string("no theme is called ") + name);
}

std::optional<std::size_t> Read_Scale(const char* word) {
    const int scale = std::atoi(word);
    if (scale >= 25 && scale <= 500) return static_cast<std::size_t>(scale);
    return Usage_Error(std::string("no scale from 25 to 500 is ") + word);
}

/// Reads the command line; what is wrong with it has been said when there is no answer.
std::optional<Options> Read_Options(int count, char** words) {
    Options options;
    for (int i = 1; i < count; ++i) {
        const std::string word = words[i];
        const bool has_value = i + 1 < count;
        if (word == "--help") {
            options.help = true;
        } else if (word == "--log") {
            options.log = true;
        } else if (word != "--page" && word != "--png" && word != "--flags" && word != "--scale" &&
                   word != "--theme") {
            return Usage_Error("unknown option " + word);
        } else if (!has_value) {
            return Usage_Error(word + " needs a value");
        } else if (word == "--png") {
            options.png_directory = words[++i];
        } else if (word == "--flags") {
            options.flags_directory = words[++i];
        } else {
            const char* const value = words[++i];
            const std::optional<std::size_t> number = word == "--page"    ? Find_Page(value)
                                                      : word == "--theme" ? Find_Look(value)
                                                                          : Read_Scale(value);
            if (!number) return std::nullopt;
            if (word == "--page") options.page = *number;
            if (word == "--theme") options.look = *number;
            if (word == "--scale") options.scale = static_cast<int>(*number);
        }
    }
    return options;
}

/// Goes to an item of the first check list by keys, and writes a picture of it with the ring.
bool Write_Ring(gallery::Window& window, const gallery::Picture_Writer& writer, const std::string& path) {
    constexpr RECT first_list{16, 52, 400, 216};
    const HWND handle = window.Handle();
    window.Show_Page(*Find_Page("checklists"));
    SendMessageA(handle, WM_SETFOCUS, 0, 0);
    window.Paint_Now();
    for (const WPARAM key : {WPARAM{VK_TAB}, WPARAM{VK_TAB}, WPARAM{VK_RIGHT}})
        SendMessageA(handle, WM_KEYDOWN, key, 1);
    return writer.Write(handle, first_list, path);
}

/// Opens a message and a question, so that the page of dialogs shows them, far from the pointer.
void Open_Dialogs(gallery::Window& window) {
    POINT pointer{};
    GetCursorPos(&pointer);
    SetCursorPos(GetSystemMetrics(SM_CXSCREEN) - 1, GetSystemMetrics(SM_CYSCREEN) - 1);
    SetActiveWindow(window.Handle());
    gallery::Close_Dialogs_At_Once();
    for (const char* button : {"Colours and fonts", "Question"})
        window.Press(button);
    SetCursorPos(pointer.x, pointer.y);
}

void Write_Page(gallery::Window& window, const gallery::Picture_Writer& writer, const std::string& directory,
                std::size_t page) {
    window.Show_Page(page);
    window.Paint_Now();
    if (page == Find_Page("dialogs")) Open_Dialogs(window);
    const std::string path = directory + "\\gallery-" + Pages()[page].name + ".png";
    if (!writer.Write(window.Handle(), path)) throw std::runtime_error("cannot write " + path);
    std::puts(path.c_str());
}

void Write_Pictures(gallery::Window& window, const std::string& directory) {
    const gallery::Picture_Writer writer;
    CreateDirectoryA(directory.c_str(), nullptr);
    ShowWindow(window.Handle(), SW_SHOWNOACTIVATE);
    const std::size_t dialogs = *Find_Page("dialogs");
    for (std::size_t i = 0; i < Pages().size(); ++i)
        if (i != dialogs) Write_Page(window, writer, directory, i);
    // The ring is shown where it stands in the design.
    if (window.Scale() == 100 && !Write_Ring(window, writer, directory + "\\gallery-ring.png"))
        throw std::runtime_error("cannot write the picture of the ring");
    // Last, for the status line tells of what was pressed.
    Write_Page(window, writer, directory, dialogs);
}

int Run(gallery::Window& window, std::size_t page) {
    window.Show_Page(page);
    ShowWindow(window.Handle(), SW_SHOW);
    window.Paint_Now();
    window.Announce();
    MSG message;
    while (GetMessageA(&message, nullptr, 0, 0) > 0) {
        TranslateMessage(&message);
        DispatchMessageA(&message);
    }
    return static_cast<int>(message.wParam);
}

}  // namespace

int main(int count, char** words) try {
    Set_Text_Code_Page(CP_UTF8);
    const std::optional<Options> options = Read_Options(count, words);
    if (!options) return exit_usage;
    if (options->help) {
        Print_Help();
        return 0;
    }
    int code = 0;
    if (!options->flags_directory.empty()) {
        gallery::Write_Flags(options->flags_directory);
    } else {
        gallery::Window window(GetModuleHandleA(nullptr), options->log);
        window.Set_Scale(options->scale);
        window.Wear(options->look);
        if (options->png_directory.empty()) {
            code = Run(window, options->page);
        } else {
            Write_Pictures(window, options->png_directory);
        }
    }
    Tools_Lib_Cleanup();
    return code;
} catch (const std::exception& error) {
    std::fprintf(stderr, "gallery: %s\n", error.what());
    return exit_failed;
}
