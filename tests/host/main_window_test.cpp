// The window that an application need not make itself.
#include <string>
#include <vector>

#include "tests/support/controls.h"
#include "tests/support/hosted.h"

namespace galdren_test {
namespace {

TEST(Main_Window_Test, Serves_The_Host_First_And_Then_The_Application) {
    Set_Text_Code_Page(CP_UTF8);
    Main_Window window("Gr\xC3\xBC\xC3\x9F\x65", 300, 200);
    const HWND handle = window.Handle();
    ASSERT_TRUE(handle);
    wchar_t title[64] = L"";
    GetWindowTextW(handle, title, 64);
    EXPECT_STREQ(title, L"Gr\u00FC\u00DFe");
    EXPECT_FALSE(IsWindowVisible(handle));
    RECT client{};
    GetClientRect(handle, &client);
    EXPECT_TRUE(client.right == 300 && client.bottom == 200);

    Host host(handle);
    Buttons button;
    Place(button, "Press", 10, 10, 100, 30);
    std::vector<std::string> heard;
    host.Add(button, [&](Buttons&) { heard.push_back("pressed"); });
    host.Init_All();
    window.Set_On_Message([&](UINT message, WPARAM wparam, LPARAM, LRESULT& result) {
        if (message == WM_LBUTTONDOWN) heard.push_back("a press that the host took");
        if (message == WM_DESTROY) heard.push_back("destroyed");
        if (message != WM_APP) return false;
        heard.push_back("message " + std::to_string(wparam));
        window.Set_Title("\xE6\xB5\xB7");
        result = 7;
        EXPECT_EQ(SendMessageW(handle, WM_ERASEBKGND, 0, 0), 1) << "as the host answers";
        EXPECT_TRUE(wparam == 2 || SendMessageW(handle, WM_APP, 2, 0) == 7);
        return true;
    });
    PostMessageW(handle, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(50, 180));
    PostMessageW(handle, WM_LBUTTONUP, 0, MAKELPARAM(50, 180));
    PostMessageW(handle, WM_APP, 1, 0);
    PostMessageW(handle, WM_CLOSE, 0, 0);
    EXPECT_EQ(window.Run(host, SW_SHOWNOACTIVATE), 0);
    const std::vector<std::string> wanted{"pressed", "message 1", "message 2", "destroyed"};
    EXPECT_EQ(heard, wanted);
    EXPECT_FALSE(window.Handle());
    EXPECT_FALSE(IsWindow(handle));
    EXPECT_EQ(window.Run(host), 1) << "there is none any more";
    Set_Text_Code_Page(CP_ACP);
}

}  // namespace
}  // namespace galdren_test
