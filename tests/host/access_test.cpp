// Screen readers in a host: what they do is what the mouse does, and they hear of it.
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "Galdren_Host.h"
#include "tests/support/controls.h"
#include "tests/support/reader.h"
#include "tests/support/window.h"

namespace galdren_test {
namespace {

constexpr int Width = 600;
constexpr int Height = 400;

/// A window with a control of every class that can be worked, and a host that works them.
class Scene {
  public:
    Scene() {
        SetWindowTextA(window, "Scene");
        SetWindowLongPtrA(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
        SetWindowLongPtrA(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&Receive));
        Serve_Screen_Readers(*host);
        Place(apply, "Apply", 10, 10, 80, 24);
        host->Add(apply, [this](Buttons&, const Host_Event&) { log += "apply "; });
        Place(keep, "Keep", 100, 10, 80, 24, BUTTON_LAMP);
        host->Add(keep);
        many.List = many_names;
        Place(many, "Many", 10, 50, 100, 60);
        host->Add(many);
        one.List = one_names;
        Place(one, "One", 120, 50, 100, 60, CHECKLIST_SINGLE);
        host->Add(one);
        Name_Items(list, {"PNG", "GIF", "BMP", "TIFF", "JPEG", "Targa"});
        list.Item_Height = 24;
        Place(list, "List", 230, 10, 100, 100, FLAG_VERTICAL);
        host->Add(list);
        Name_Items(tabs, {"General", "Page", "Print"});
        Place(tabs, nullptr, 340, 10, 240, 100);
        host->Add(tabs);
        color.Value = 0xFF4080C0;
        Place(color, "Color", 10, 130, 200, 160);
        host->Add(color);
        depth.End_Val = 100, depth.Val = 40, depth.Format = "%.0f", depth.Num_Width = 40;
        Place(depth, "Depth", 230, 130, 120, 24);
        host->Add(depth);
        host->Init_All();
        UpdateWindow(window);
    }
    ~Scene() { window.Close(); }

    /// What the application sees of it.
    std::string Values() const {
        return log + std::to_string(keep.Value) + std::to_string(many.Value) + std::to_string(one.Value) +
               ' ' + std::to_string(list.Current) + std::to_string(tabs.Value) + ' ' +
               std::to_string(color.Value) + ' ' + std::to_string(depth.Val);
    }

    void Click(POINT screen) {
        ScreenToClient(window, &screen);
        const LPARAM place = MAKELPARAM(screen.x, screen.y);
        SendMessageA(window, WM_MOUSEMOVE, 0, place);
        SendMessageA(window, WM_LBUTTONDOWN, MK_LBUTTON, place);
        SendMessageA(window, WM_LBUTTONUP, 0, place);
    }

    const char* many_names[3] = {"Grid", "Ruler", nullptr};
    const char* one_names[4] = {"Left", "Middle", "Right", nullptr};
    std::string log;
    Buttons apply, keep;
    CheckLists many, one;
    Lists list;
    Tabs tabs;
    Color_Edit color;
    Valuators depth;
    Test_Window window{Width, Height};
    std::unique_ptr<Host> host = std::make_unique<Host>(window);

  private:
    static LRESULT CALLBACK Receive(HWND window, UINT message, WPARAM wparam, LPARAM lparam) {
        auto& self = *reinterpret_cast<Scene*>(GetWindowLongPtrA(window, GWLP_USERDATA));
        LRESULT result = 0;
        if (self.host && self.host->Message(message, wparam, lparam, result)) return result;
        return DefWindowProcA(window, message, wparam, lparam);
    }
};

/// The parts of a scene that can be pressed: the number of the control, and that of the part inside or 0.
std::vector<std::pair<long, long>> Pressable() {
    Scene scene;
    const Spoken root(scene.window);
    std::vector<std::pair<long, long>> found;
    const auto note = [&](const Spoken& part, long control, long inside) {
        if (part.Action() != "80020003" && !(part.State() & STATE_SYSTEM_OFFSCREEN))
            found.emplace_back(control, inside);
    };
    for (long control = 1; control <= root.Count(); ++control) {
        const Spoken child = root.Child(control);
        note(child, control, 0);
        for (long inside = 1; inside <= child.Count(); ++inside)
            note(child.Child(inside), control, inside);
    }
    return found;
}

TEST(Host_Access, Actions_Do_What_Clicks_Do) {
    const std::string before = Scene().Values();
    int changed = 0;
    const auto parts = Pressable();
    for (const auto& [control, inside] : parts) {
        std::string values[2];
        for (const bool by_mouse : {false, true}) {
            Scene scene;
            SetFocus(scene.window);
            const Spoken owner = Spoken(scene.window).Child(control);
            const Spoken part = inside ? owner.Child(inside) : owner;
            SCOPED_TRACE(part.Line());
            by_mouse ? scene.Click(part.Middle()) : static_cast<void>(part.Act());
            Pump();
            values[by_mouse] = part.Line() + scene.Values();
            EXPECT_EQ(Button_State, 0U);
        }
        EXPECT_EQ(values[0], values[1]);
        changed += values[0].find(before) == std::string::npos;
    }
    EXPECT_EQ(parts.size(), 13U);
    EXPECT_EQ(changed, 9) << "all but the push button and what was chosen already";
}

TEST(Host_Access, Tells_Of_What_Changes) {
    Scene scene;
    const Spoken root(scene.window);
    Listener listener;
    const struct {
        const char* what;
        std::function<void()> act;
        const char* heard;
    } rows[] = {
        {"pressed", [&] { root.Child(1).Act(); }, "focus Apply, state Apply"},
        {"item", [&] { root.Child(5).Child(2).Act(); }, "focus GIF, chosen GIF"},
        {"item by mouse", [&] { scene.Click(root.Child(5).Child(1).Middle()); },
         "focus GIF, chosen PNG, focus PNG"},
        {"value", [&] { root.Child(8).Set_Value(L"50"); }, "value Depth"},
        {"focus", [&] { scene.host->Focus(&scene.keep); }, "focus Keep"},
        {"hidden", [&] { scene.host->Set_Shown(scene.apply, false); }, "hidden Apply"},
        {"shown", [&] { scene.host->Set_Shown(scene.apply, true); }, "shown Apply"},
        {"disabled", [&] { scene.host->Set_Enabled(scene.apply, false); }, "state Apply"},
        {"by the application",
         [&] { scene.depth.Val = 10, scene.depth.Adjust(), scene.host->Tell_Changed(scene.depth); },
         "value Depth"},
    };
    for (const auto& [what, act, heard] : rows) {
        listener.Take();
        act();
        Pump();
        EXPECT_EQ(listener.Take(), heard) << what;
    }
}

}  // namespace
}  // namespace galdren_test
