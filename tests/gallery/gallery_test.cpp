// The gallery driven by the real pointer: what it says, and what the screen shows.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "tests/gallery/gallery_process.h"
#include "tests/support/reader.h"

namespace galdren_test {
namespace {

constexpr unsigned grey = 0xAAAAAA;

testing::AssertionResult Shows(POINT screen, unsigned color) {
    unsigned shown = 0;
    if (Wait_Until([&] { return (shown = Screen_Color(screen)) == color; }))
        return testing::AssertionSuccess();
    char text[64];
    std::snprintf(text, sizeof text, "the screen shows %06X, not %06X", shown, color);
    return testing::AssertionFailure() << text;
}

bool Shows_Now(POINT screen, unsigned color) { return Screen_Color(screen) == color; }

/// Every channel of the grey `color` less `amount`.
unsigned Darker(unsigned color, unsigned amount) { return color - amount * 0x010101; }

/// Whether a body is lit: its red stands out from its green.
bool Is_Lit(POINT screen) {
    const unsigned color = Screen_Color(screen);
    return (color >> 16) > (color >> 8 & 0xFF) + 60;
}

testing::AssertionResult Lights_Up(POINT screen) {
    return Wait_Until([&] { return Is_Lit(screen); }) ? testing::AssertionSuccess()
                                                      : testing::AssertionFailure();
}

/// A pixel of a control's body, clear of its caption.
POINT Body_Of(const Gallery& gallery, const char* control) { return gallery.Place_Of(control, 14, 14); }

/// Moves the pointer off every control.
bool Point_Away(Gallery& gallery) {
    gallery.Move_To(gallery.Place_Of("Plain", -5, -5));
    return gallery.Says("over nothing");
}

TEST(Gallery_Test, Button_Lights_Up_And_Toggles) {
    Gallery gallery("buttons");
    const POINT body = Body_Of(gallery, "Plain");
    const unsigned plain = Screen_Color(body);
    ASSERT_TRUE(gallery.Point_At("Plain"));
    EXPECT_TRUE(Lights_Up(body));
    gallery.Press();
    gallery.Release();
    EXPECT_TRUE(gallery.Says("press \"Plain\": Value 1"));
    EXPECT_TRUE(Point_Away(gallery));
    EXPECT_TRUE(Shows(body, Darker(plain, 40))) << "the body of a button that is down";
    EXPECT_TRUE(gallery.Click("Plain", "press \"Plain\": Value 0"));
    EXPECT_TRUE(Point_Away(gallery));
    EXPECT_TRUE(Shows(body, plain));
    EXPECT_FALSE(gallery.Tells_Of_Press());
    EXPECT_EQ(gallery.Close(), 0u);
}

TEST(Gallery_Test, Bars_Follow_Drag_And_Wheel) {
    Gallery gallery("sliders");
    const char keeper[] = "Drag keeps the grab";
    const POINT far_left = gallery.Place_Of(keeper, -20, 90), far_right = gallery.Place_Of(keeper, 400, -70);
    const POINT first_thumb = gallery.Place_Of(keeper, 10, 12);
    ASSERT_TRUE(gallery.Point_At("Reversed"));
    gallery.Move_To(gallery.Place_Of(keeper, 40, 12));
    ASSERT_TRUE(gallery.Says("over \"Drag keeps the grab\""));
    gallery.Press();
    EXPECT_TRUE(gallery.Says("press \"Drag keeps the grab\": Val 11.68"));
    gallery.Move_To(far_right);
    EXPECT_TRUE(gallery.Says("drag \"Drag keeps the grab\": Val 100"));
    gallery.Move_To(far_left);
    EXPECT_TRUE(gallery.Says("drag \"Drag keeps the grab\": Val 0"));
    EXPECT_TRUE(Shows(first_thumb, 0x6E6E6E));
    gallery.Release();
    ASSERT_TRUE(gallery.Point_At("Reversed"));
    gallery.Turn_Wheel(2);
    EXPECT_TRUE(gallery.Says("wheel \"Reversed\": Val 42"));
    gallery.Turn_Wheel(-1);
    EXPECT_TRUE(gallery.Says("wheel \"Reversed\": Val 41"));
    ASSERT_TRUE(gallery.Point_At("Plain"));
    gallery.Move_To(gallery.Place_Of("Plain", 5, 8));
    gallery.Press();
    EXPECT_TRUE(gallery.Says("press \"Plain\": Val 39"));
    gallery.Release();
    EXPECT_EQ(gallery.Close(), 0u);
}

TEST(Gallery_Test, Console_Is_Typed_Into_Recalled_And_Scrolled) {
    Gallery gallery("console");
    ASSERT_TRUE(gallery.Point_At("Console"));
    gallery.Press();
    gallery.Release();
    gallery.Type("say Ab*1?\n");
    EXPECT_TRUE(gallery.Says("entered \"Console\": say Ab*1?"));
    gallery.Type("count");
    gallery.Press_Key(VK_UP);
    gallery.Press_Key(VK_LEFT);
    gallery.Press_Key(VK_BACK);
    gallery.Type("2\n");
    EXPECT_TRUE(gallery.Says("entered \"Console\": say Ab*2?"));
    ASSERT_TRUE(OpenClipboard(nullptr));
    EmptyClipboard();
    const HGLOBAL block = GlobalAlloc(GMEM_MOVEABLE, 16);
    std::strcpy(static_cast<char*>(GlobalLock(block)), "flood 200");
    GlobalUnlock(block);
    SetClipboardData(CF_TEXT, block);
    CloseClipboard();
    const POINT bar = gallery.Place_Of("Console", 14, 60);
    gallery.Press_Key('V', true);
    gallery.Type("\n");
    EXPECT_TRUE(gallery.Says("entered \"Console\": flood 200"));
    constexpr unsigned thumb = 0x6E6E6E;
    EXPECT_FALSE(Shows_Now(bar, thumb)) << "the thumb is at the bottom";
    gallery.Turn_Wheel(200);
    EXPECT_TRUE(Shows(bar, thumb)) << "and now at the top";
    gallery.Press_Key(VK_ESCAPE);
    gallery.Type("ignored\n");
    EXPECT_TRUE(gallery.Click("One line", "press \"One line\": One line more"));
    EXPECT_EQ(gallery.Close(), 0u);
}

TEST(Gallery_Test, Entry_Fields_Filter_And_Hand_On_The_Focus) {
    Gallery gallery("entries");
    gallery.Move_To(gallery.Place_Of("Integer", 200, 10));
    gallery.Press();
    gallery.Release();
    gallery.Type("x4.2\n");
    EXPECT_TRUE(gallery.Says("entered \"Integer\": 42"));
    gallery.Press_Key(VK_TAB);
    gallery.Type("7\n");
    EXPECT_TRUE(gallery.Says("entered \"Floating point\": 2.5e-37"));
    gallery.Press_Key(VK_TAB);
    gallery.Press_Key(VK_HOME);
    gallery.Press_Key(VK_DELETE);
    gallery.Type("zB\n");
    EXPECT_TRUE(gallery.Says("entered \"Hexadecimal\": B0ffee"));
    EXPECT_EQ(gallery.Close(), 0u);
}

TEST(Gallery_Test, Dialogs_Are_Answered_And_Leave_The_Gallery_Usable) {
    Gallery gallery("dialogs");
    const auto open = [&](const char* button, const char* title) {
        // A move that comes while a dialog is just closing may be lost; a hand would move on.
        POINT place = gallery.Middle_Of(button);
        EXPECT_TRUE(Wait_Until([&] {
            ++place.x;
            gallery.Move_To(place);
            return Is_Lit(Body_Of(gallery, button));
        }));
        gallery.Press();
        gallery.Release();
        HWND dialog = nullptr;
        EXPECT_TRUE(Wait_Until([&] {
            dialog = FindWindowA("#32770", title);
            return dialog && IsWindowVisible(dialog);
        }));
        return dialog;
    };
    const auto press = [&](HWND dialog, int quarter) {
        RECT client{};
        GetClientRect(dialog, &client);
        POINT button{client.right * quarter / 4 - 40, client.bottom - 18};
        ClientToScreen(dialog, &button);
        gallery.Move_To(button);
        EXPECT_TRUE(Lights_Up(button));
        gallery.Press();
        gallery.Release();
    };
    press(open("Question", "Close"), 1);
    EXPECT_TRUE(gallery.Says("press \"Question\": 1, \"Yes\""));
    press(open("Question", "Close"), 3);
    EXPECT_TRUE(gallery.Says("press \"Question\": 0, \"No\" or closed"));
    press(open("Short message", "Save"), 2);
    EXPECT_TRUE(gallery.Says("press \"Short message\": 0, \"OK\" or closed"));
    PostMessageA(open("Long message", "Lines"), WM_CLOSE, 0, 0);
    EXPECT_TRUE(gallery.Says("press \"Long message\": 0, \"OK\" or closed"));
    EXPECT_EQ(gallery.Close(), 0u);
}

TEST(Gallery_Test, Tabs_Come_To_The_Front) {
    Gallery gallery("tabs");
    const POINT page = gallery.Place_Of("Three tabs", 20, 40),
                willow = gallery.Place_Of("Three tabs", 200, 8);
    EXPECT_TRUE(Shows(page, 0xCEA06E));
    ASSERT_TRUE(gallery.Point_At("Three tabs"));
    gallery.Move_To(willow);
    ASSERT_TRUE(Lights_Up(willow));
    gallery.Press();
    gallery.Release();
    EXPECT_TRUE(gallery.Says("press \"Three tabs\": 2, Willow"));
    EXPECT_TRUE(Shows(page, 0x8CA6BE)) << "the page takes the colour of its tab";
    EXPECT_TRUE(gallery.Click("Twenty tabs", "press \"Twenty tabs\": 10, 11"));
    EXPECT_TRUE(Shows(willow, 0x8CA6BE)) << "in front";
    EXPECT_TRUE(gallery.Point_At("Boxes"));
    EXPECT_TRUE(Lights_Up(gallery.Place_Of("Boxes", 15, 20)));
    EXPECT_EQ(gallery.Close(), 0u);
}

/// A directory with one in it, which is the first on its drive.
class Sample_Tree {
  public:
    Sample_Tree() {
        Make(top);
        Make(child);
    }
    ~Sample_Tree() {
        for (const char* path : {child, other, top})
            RemoveDirectoryA(path);
    }
    Sample_Tree(const Sample_Tree&) = delete;
    Sample_Tree& operator=(const Sample_Tree&) = delete;
    /// Behind the back of whoever has looked.
    void Replace_Child() const {
        RemoveDirectoryA(child);
        Make(other);
    }

  private:
    static void Make(const char* path) { CreateDirectoryA(path, nullptr); }
    static constexpr const char* top = "C:\\!galdren";
    static constexpr const char* child = "C:\\!galdren\\one";
    static constexpr const char* other = "C:\\!galdren\\two & more";
};

TEST(Gallery_Test, Directories_Are_Opened_Chosen_And_Refreshed) {
    const Sample_Tree tree;
    Gallery gallery("directories");
    constexpr int first_row = 58, row = 18, indent = 18, mark = 30;
    const auto press = [&](int x, int y) {
        gallery.Move_To(gallery.Place_Of("Chosen", x, y));
        gallery.Press();
        gallery.Release();
    };
    press(mark, first_row + row);
    EXPECT_TRUE(gallery.Says("press \"Chosen\""));
    press(mark + indent, first_row + 2 * row);
    EXPECT_TRUE(gallery.Says("press \"Chosen\""));
    constexpr int name = mark + 3 * indent + 16;
    press(name, first_row + 3 * row);
    EXPECT_TRUE(gallery.Says("press \"Chosen\": Read answers c:\\!galdren\\one\\"));
    tree.Replace_Child();
    press(100, 24);
    EXPECT_TRUE(gallery.Says("press \"Chosen\": Read answers (null)"));
    press(name, first_row + 3 * row);
    EXPECT_TRUE(gallery.Says("press \"Chosen\": Read answers c:\\!galdren\\two & more\\"));
    gallery.Turn_Wheel(-1);
    EXPECT_TRUE(gallery.Says("wheel \"Chosen\": row 3"));
    EXPECT_EQ(gallery.Close(), 0u);
}

TEST(Gallery_Test, Pages_Change_And_Keep_Their_State) {
    Gallery gallery("buttons");
    EXPECT_TRUE(gallery.Click("Lamp on", "press \"Lamp on\": Lamp 0"));
    EXPECT_TRUE(gallery.Click("Labels", "page labels"));
    EXPECT_TRUE(gallery.Click("Buttons", "page buttons"));
    EXPECT_TRUE(Shows(gallery.Lamp_Of("Lamp on"), grey));
    EXPECT_EQ(gallery.Close(), 0u);
}

/// What a screen reader could not use: parts that can be worked and have no name, and such as are not where
/// they say they are.
std::string Faults_Of(const Spoken& parent, const Spoken& part) {
    const long state = part.State();
    if (!(state & STATE_SYSTEM_FOCUSABLE) || state & STATE_SYSTEM_OFFSCREEN) return {};
    const RECT place = part.Place(), outer = parent.Place();
    std::string faults;
    if (part.Name() == "(none)") faults += " name";
    if (place.left < outer.left || place.right > outer.right || place.top < outer.top ||
        place.bottom > outer.bottom)
        faults += " place";
    if (part.Count() == 0 && parent.At(part.Middle()).Name() != part.Name()) faults += " hit";
    return faults.empty() ? faults : part.Line() + ':' + faults + '\n';
}

TEST(Gallery_Test, Every_Page_Is_Read_By_Screen_Readers) {
    // A question takes milliseconds, and some lists are long.
    constexpr long most_controls = 60, most_parts = 12;
    constexpr std::array pages = {"boxes",     "labels", "buttons",     "checklists", "sliders",
                                  "selectors", "lists",  "tabs",        "entries",    "console",
                                  "colors",    "icons",  "directories", "dialogs",    "stress"};
    CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
    Gallery gallery("boxes");
    const Spoken root(gallery.Window());
    ASSERT_EQ(root.Child(1).Count(), static_cast<long>(pages.size()));
    for (std::size_t i = 0; i < pages.size(); ++i) {
        const long page = static_cast<long>(i) + 1;
        const std::string title = root.Child(1).Child(page).Name();
        SCOPED_TRACE(title);
        EXPECT_EQ(root.Child(1).Child(page).Act(), S_OK);
        EXPECT_TRUE(gallery.Says("press \"" + title + "\": page " + pages[i]));
        std::string faults;
        for (long number = 1; number <= std::min(root.Count(), most_controls); ++number) {
            const Spoken control = root.Child(number);
            faults += Faults_Of(root, control);
            for (long part = 1; part <= std::min(control.Count(), most_parts); ++part)
                faults += Faults_Of(control, control.Child(part));
        }
        EXPECT_EQ(faults, "");
    }
    EXPECT_EQ(gallery.Close(), 0u);
}

TEST(Gallery_Test, Resized_Window_Moves_The_Page) {
    Gallery gallery("buttons");
    const POINT lamp = gallery.Lamp_Of("Red");
    const POINT corner = gallery.Place_Of("Plain", 0, 0);
    const unsigned ground = Screen_Color(gallery.Place_Of("Plain", -10, 0));
    EXPECT_TRUE(Shows(lamp, 0xFF0000));
    gallery.Resize(900, 700);
    EXPECT_TRUE(Shows({lamp.x + 50, lamp.y}, 0xFF0000)) << "at the top, centred";
    EXPECT_TRUE(Shows(corner, ground)) << "nothing is left behind";
    gallery.Resize(800, 600);
    EXPECT_TRUE(Shows(lamp, 0xFF0000));
    EXPECT_TRUE(gallery.Click("Red", "press \"Red\": Lamp 0"));
    EXPECT_EQ(gallery.Close(), 0u);
}

TEST(Gallery_Test, Command_Line) {
    struct Case {
        const char* arguments;
        DWORD code;
        const char* says;
    };
    const Case cases[] = {
        {"--help", 0, "usage: gallery"},
        {"--colour", 2, "unknown option --colour"},
        {"--page", 2, "--page needs a value"},
        {"--page cellar", 2, "no page is called cellar"},
    };
    for (const Case& test : cases) {
        SCOPED_TRACE(test.arguments);
        Program program(test.arguments);
        EXPECT_EQ(program.Exit_Code(), test.code);
        EXPECT_NE(program.Output().find(test.says), std::string::npos) << program.Output();
    }
}

#ifdef MANUAL_PICTURES

std::string Bytes_Of(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

/// Expects that the gallery, told by `option`, writes just the pictures that are in `folder` of the manual
/// and whose names begin so. Those that differ stay.
void Expect_As_In_Manual(const std::string& option, const char* folder, const std::string& prefix) {
    namespace fs = std::filesystem;
    const fs::path target = fs::temp_directory_path() / ("galdren" + option);
    fs::remove_all(target);
    Program program(option + " \"" + target.string() + '"');
    EXPECT_EQ(program.Exit_Code(), 0u);
    int count = 0;
    for (const auto& picture : fs::directory_iterator(folder)) {
        const fs::path name = picture.path().filename();
        if (!name.string().starts_with(prefix) || name.extension() != ".png") continue;
        ++count;
        const bool same = Bytes_Of(target / name) == Bytes_Of(picture.path());
        EXPECT_TRUE(same) << picture.path() << " is not what is written now: " << target / name;
        if (same) fs::remove(target / name);
    }
    EXPECT_GT(count, 10);
    std::error_code others;
    EXPECT_TRUE(fs::remove(target, others)) << "there are others in " << target;
}

TEST(Gallery_Test, Looks_As_In_The_Manual) { Expect_As_In_Manual("--png", MANUAL_PICTURES, "gallery-"); }

TEST(Gallery_Test, Shows_Flags_As_In_The_Manual) {
    Expect_As_In_Manual("--flags", MANUAL_PICTURES "/flags", "");
}

#endif

}  // namespace
}  // namespace galdren_test
