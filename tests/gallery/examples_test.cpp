// The windows of the examples as the manual shows them, worked by keys. With GALDREN_RECORD set to a folder,
// such as docs/pictures, they are written there anew.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "tests/support/directories.h"
#include "tests/support/keys.h"
#include "tests/support/png.h"
#include "tests/support/program.h"

namespace galdren_test {
namespace {

/// Waits until a window shows the same for a while, or has changed for some seconds.
Picture At_Rest(HWND window) {
    constexpr DWORD interval = 150, patience = 3000;
    Picture shown = On_Screen(window);
    int same = 0;
    const auto rests = [&] {
        Sleep(interval);
        const Picture now = On_Screen(window);
        same = now.Pixels() == shown.Pixels() ? same + 1 : 0;
        shown = now;
        return same == 4;
    };
    Wait_Until(rests, patience);
    return shown;
}

/// A folder with pictures for the viewer, for as long as it lives.
class Picture_Folder {
  public:
    Picture_Folder() {
        std::filesystem::create_directories(path);
        Write("Coast.tga", 480, 320, 0.0, 20);
        Write("Hills at noon.tga", 420, 300, 2.2, 0);
        Write("Evening.tga", 400, 400, 4.1, 90);
        Write("Long valley.tga", 600, 240, 5.3, 45);
    }
    ~Picture_Folder() { Remove_Directory(path); }
    Picture_Folder(const Picture_Folder&) = delete;
    Picture_Folder& operator=(const Picture_Folder&) = delete;

    const std::filesystem::path path = "c:\\Pictures";

  private:
    /// A Targa file of hills before a sky, which is the redder the later it is.
    void Write(const char* name, int width, int height, double phase, int late) const {
        std::string bytes(18, '\0');
        bytes[2] = 2, bytes[16] = 24, bytes[17] = 0x20;
        bytes[12] = static_cast<char>(width), bytes[13] = static_cast<char>(width >> 8);
        bytes[14] = static_cast<char>(height), bytes[15] = static_cast<char>(height >> 8);
        for (int row = 0; row < height; ++row) {
            for (int column = 0; column < width; ++column) {
                const double x = double(column) / width, y = double(row) / height;
                const double hills = 0.5 + 0.1 * std::sin(5 * x + phase);
                const double meadows = 0.7 + 0.1 * std::sin(4 * x - phase);
                const double sun = 0.5 * std::hypot((x - 0.7) * width / height, y - 0.25);
                const double glow = sun < 0.04 ? 150 : 60 * std::exp(-9 * sun);
                const double grain =
                    7 * std::sin(37 * x + 3 * std::sin(11 * y)) * std::sin(29 * y + 2 * std::sin(13 * x));
                const double sky[] = {215 - 30 * y - 1.3 * late, 150 + 70 * y - late + glow / 2,
                                      95 + 100 * y + late + glow};
                const double hill[] = {75 + 60 * y + grain, 120 - 0.7 * late + grain, 60 + 40 * x + grain};
                const double meadow[] = {35 + 2 * grain, 80 + 60 * y - 0.5 * late + grain,
                                         50 + 50 * x + grain};
                const double* const color = y > meadows ? meadow : y > hills ? hill : sky;
                for (int channel = 0; channel < 3; ++channel)
                    bytes +=
                        static_cast<char>(static_cast<unsigned char>(std::clamp(color[channel], 0.0, 255.0)));
            }
        }
        std::ofstream(path / name, std::ios::binary) << bytes;
    }
};

/// An example that a user works by keys, and what it then looks like.
struct Scene {
    const char* picture;  // name of its file
    std::string command;
    std::vector<int> keys;
    bool is_alike = true;          // each time
    std::vector<int> last_keys{};  // those that end it; else it is closed
    const char* output = "";
};

TEST(Examples_Test, Look_As_In_The_Manual_When_They_Are_Worked_By_Keys) {
    constexpr int tab = VK_TAB, back = KEY_SHIFT | VK_TAB;
    const Scene scenes[] = {
        {"example-hello", "hello.exe", {tab, VK_SPACE}},
        {"example-settings",
         "settings.exe",
         {VK_HOME, 'X', KEY_ALT | 'D', KEY_ALT | 'T', tab,      VK_END, '2',   tab, VK_RIGHT, tab,
          VK_LEFT, tab, VK_DOWN,       VK_DOWN,       VK_SPACE, tab,    VK_UP, tab, VK_SPACE, KEY_ALT | 'O'}},
        {"example-color-picker",
         "color_picker.exe",
         {tab, VK_HOME, VK_DOWN, VK_END, VK_RETURN, KEY_ALT | 'R', tab, VK_SPACE}},
        {"example-directory-picker",
         "directory_picker.exe",
         {KEY_CONTROL | 'A', 'C', KEY_SHIFT | VK_OEM_1, VK_OEM_5, 'W', 'I', 'N', 'D', 'O', 'W', 'S',
          VK_RETURN},
         true,
         {KEY_ALT | 'O', 'Y'},
         "c:\\windows\\\r\n"},
        // Its worker is stopped after some lines, each time after others.
        {"example-log-console", "log_console.exe", {KEY_ALT | 'R', back, 'H', 'E', 'L', 'L', 'O'}, false},
        {"example-viewer", "viewer.exe c:\\Pictures\\Coast.tga", {}},
        {"example-viewer-dark",
         "viewer.exe c:\\Pictures\\Coast.tga",
         {KEY_CONTROL | tab, KEY_ALT | 'T', VK_RIGHT, KEY_CONTROL | VK_PRIOR, tab, tab, VK_DOWN}},
    };
    for (const Scene& scene : scenes) {
        SCOPED_TRACE(scene.picture);
        std::optional<Picture_Folder> pictures;
        if (scene.command.ends_with(".tga")) pictures.emplace();
        Program program(scene.command);
        const HWND window = program.Window();
        SetWindowPos(window, nullptr, 40, 40, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
        ASSERT_TRUE(Wait_Until([&] { return GetForegroundWindow() == window; }));
        SetCursorPos(1270, 1010);
        At_Rest(window);
        for (const int key : scene.keys)
            Type_Keys({key});
        EXPECT_TRUE(Is_Recorded(At_Rest(window), MANUAL_PICTURES, scene.picture) || !scene.is_alike);
        for (const int key : scene.last_keys) {
            Type_Keys({key});
            Wait_Until(
                [&] { return GetForegroundWindow() != window; });  // a dialog is there, or both are gone
        }
        if (scene.last_keys.empty()) PostMessageA(window, WM_CLOSE, 0, 0);
        EXPECT_EQ(program.Exit_Code(), 0u);
        EXPECT_EQ(program.Output(), scene.output);
    }
}

}  // namespace
}  // namespace galdren_test
