// The host: which control hears of which message, and what is painted.
#include "host/host.h"

#include <algorithm>
#include <deque>
#include <functional>
#include <random>
#include <string>
#include <vector>

#include "tests/support/controls.h"
#include "tests/support/hosted.h"

namespace galdren_test {
namespace {

constexpr int client_width = 200;
constexpr int client_height = 100;

/// A control that writes down what it is told: "a18+" is event 18 with the pointer inside, "a0-" event 0 with
/// the pointer elsewhere, "a draw", "a scroll 1".
class Recorder : public Tools {
  public:
    Recorder(std::string& shared_log, char letter, short x, short y, short width, short height)
        : log(shared_log), id(letter) {
        X = x, Y = y, Width = width, Height = height;
    }
    void Init(HWND window) { Prepare(window); }
    void Draw() { Note(" draw"); }
    int Select(int event) {
        const bool inside = Is_Pointed();
        Note(std::to_string(event) + (inside ? '+' : '-'));
        return inside;
    }
    void Note(const std::string& text) {
        if (!log.empty()) log += ' ';
        log += id;
        log += text;
    }

  protected:
    std::string& log;
    const char id;
};

class Scroll_Recorder : public Recorder {
  public:
    using Recorder::Recorder;
    int Scroll(short steps) {
        Note(" scroll " + std::to_string(steps));
        return 0;
    }
};

/// Writes down "a key 97".
class Key_Recorder : public Recorder {
  public:
    using Recorder::Recorder;
    void Input(int key) { Note(" key " + std::to_string(key)); }
};

class Host_Test : public testing::Test, protected Hosted_Window {
  protected:
    Host_Test() : Hosted_Window(client_width, client_height) {
        host->Add(a, Note_Press, Note_Change);
        host->Add(b, Note_Press, Note_Change);
        host->Init_All();
    }
    static void Note_Press(Recorder& control) { control.Note(" press"); }
    static void Note_Change(Recorder& control) { control.Note(" change"); }

    /// Sends a message at logical (x, y) and returns what the controls wrote down.
    std::string Send(UINT message, WPARAM keys, int x, int y) {
        log.clear();
        taken = Hosted_Window::Send(message, keys, {x, y});
        return log;
    }
    std::string Wheel(int delta, int x, int y) {
        return Send(WM_MOUSEWHEEL, MAKEWPARAM(0, static_cast<WORD>(delta)), x, y);
    }
    /// Paints the logical rectangle (left, bottom) to (right, top), both included.
    std::string Paint(int left, int bottom, int right, int top) {
        const RECT area{left, client_height - 1 - top, right + 1, client_height - bottom};
        ValidateRect(window, nullptr);
        InvalidateRect(window, &area, FALSE);
        return Send(WM_PAINT, 0, 0, 0);
    }

    std::string log;
    bool taken = false;
    Recorder a{log, 'a', 10, 10, 50, 30};
    Recorder b{log, 'b', 100, 10, 50, 30};
};

TEST_F(Host_Test, Tells_The_Controls_Concerned) {
    constexpr POINT on_a{20, 20}, on_b{120, 20}, bare{80, 80};
    constexpr WPARAM l = MK_LBUTTON, m = MK_MBUTTON, r = MK_RBUTTON;
    struct Step {
        const char* name;
        UINT message;
        WPARAM keys;
        POINT at;
        const char* told;
        bool taken, captured;
        unsigned buttons;
    };
    const Step steps[] = {
        {"over bare ground", WM_MOUSEMOVE, 0, bare, "", false, false, 0},
        {"enters a", WM_MOUSEMOVE, 0, on_a, "a0+", true, false, 0},
        {"first column of a", WM_MOUSEMOVE, 0, {10, 10}, "a0+", true, false, 0},
        {"last column and row of a", WM_MOUSEMOVE, 0, {60, 40}, "a0+", true, false, 0},
        {"one row above a", WM_MOUSEMOVE, 0, {60, 41}, "a0-", false, false, 0},
        {"enters a again", WM_MOUSEMOVE, 0, on_a, "a0+", true, false, 0},
        {"from a to b", WM_MOUSEMOVE, 0, on_b, "a0- b0+", true, false, 0},
        {"press", WM_LBUTTONDOWN, l, on_b, "b18+ b press", true, true, 1},
        {"drag inside", WM_MOUSEMOVE, l, on_b, "b17+ b change", true, true, 1},
        {"drag over a: b keeps the pointer", WM_MOUSEMOVE, l, on_a, "b17-", true, true, 1},
        {"drag far outside the window", WM_MOUSEMOVE, l, {-300, 400}, "b17-", true, true, 1},
        {"second button", WM_RBUTTONDOWN, l | r, on_b, "b82+", true, true, 3},
        {"first button up", WM_LBUTTONUP, r, on_b, "b64+", true, true, 2},
        {"drag with the right button is no change", WM_MOUSEMOVE, r, on_b, "b65+", true, true, 2},
        {"last button up over a: the system may make a context menu", WM_RBUTTONUP, 0, on_a, "b0- a0+", false,
         false, 0},
        {"middle press calls nobody", WM_MBUTTONDOWN, m, on_a, "a34+", true, true, 4},
        {"middle up", WM_MBUTTONUP, 0, on_a, "a0+", true, false, 0},
        {"second press of a double click", WM_LBUTTONDBLCLK, l, on_a, "a18+ a press", true, true, 1},
        {"up", WM_LBUTTONUP, 0, on_a, "a0+", true, false, 0},
        {"leaves the window", WM_MOUSELEAVE, 0, {0, 0}, "a0-", true, false, 0},
        {"press on bare ground", WM_LBUTTONDOWN, l, bare, "", false, true, 1},
        {"dragged from there over a", WM_MOUSEMOVE, l, on_a, "", false, true, 1},
        {"up over a", WM_LBUTTONUP, 0, on_a, "a0+", true, false, 0},
        {"press without a move before", WM_LBUTTONDOWN, l, on_b, "a0- b18+ b press", true, true, 1},
        {"up", WM_LBUTTONUP, 0, bare, "b0-", true, false, 0},
        {"a key is not for the host", WM_KEYDOWN, 'A', bare, "", false, false, 0},
    };
    for (const Step& step : steps) {
        SCOPED_TRACE(step.name);
        EXPECT_EQ(Send(step.message, step.keys, step.at.x, step.at.y), step.told);
        EXPECT_EQ(taken, step.taken);
        EXPECT_EQ(GetCapture() == window, step.captured);
        EXPECT_EQ(Button_State, step.buttons);
    }
}

TEST_F(Host_Test, Lost_Capture_Ends_The_Press) {
    Send(WM_LBUTTONDOWN, MK_LBUTTON, 20, 20);
    log.clear();
    EXPECT_FALSE(
        host->Message(WM_CAPTURECHANGED, 0, reinterpret_cast<LPARAM>(static_cast<HWND>(window)), result));
    EXPECT_EQ(log, "");
    EXPECT_TRUE(host->Message(WM_CAPTURECHANGED, 0, 0, result));
    EXPECT_EQ(log, "a0-");
    EXPECT_EQ(Button_State, 0u);
    EXPECT_EQ(Send(WM_MOUSEMOVE, 0, 120, 20), "b0+");
}

TEST_F(Host_Test, Controls_Above_Take_The_Pointer) {
    Recorder above{log, 'c', 40, 20, 40, 10};
    Labels label;
    Place(label, nullptr, 100, 10, 20, 20);
    host->Add(above), host->Add(label);
    host->Init_All();
    const struct {
        std::function<void()> change;
        int x;
        const char *told, *why;
    } rows[] = {
        {{}, 20, "a0+ a draw c draw", "whenever a changes its look, c is painted anew above it"},
        {{}, 21, "a0+", "and else not"},
        {{}, 50, "a0- a draw c draw c0+", "a is told to let go, though inside"},
        {{}, 70, "c0+", "c has it"},
        {[&] { above.Flag = FLAG_PASSIVE; }, 50, "c0-", "a passive control hides what it covers"},
        {[&] { above.Width = 0; }, 50, "a0+", "a control without a size is not there"},
        {[&] {
             a.Rect = {90, 60, 99, 99};
         },
         50, "a0-", "rectangles are read as they are now"},
        {{}, 110, "b0+ b draw", "a label is seen through"},
    };
    for (const auto& [change, x, told, why] : rows) {
        if (change) change();
        EXPECT_EQ(Send(WM_MOUSEMOVE, 0, x, x == 110 ? 20 : 25), told) << why;
    }
}

int Random(int below) {
    static std::minstd_rand numbers;
    return static_cast<int>(numbers() % static_cast<unsigned>(below));
}

// Fields are public: a control may be elsewhere, passive or a copy without the host being told.
TEST_F(Host_Test, Controls_May_Change_Behind_Its_Back) {
    std::deque<Boxs> boxes(80);
    host->Clear();
    for (Boxs& box : boxes) {
        Place(box, nullptr, Random(client_width), Random(client_height), 10, 10);
        host->Add(box);
    }
    host->Init_All();
    for (int i = 0; i < 1000; ++i) {
        Boxs& box = boxes[static_cast<std::size_t>(Random(80))];
        if (i % 3 == 0) box = boxes[0];
        const int x = Random(client_width - 20), y = Random(client_height - 20);
        Place(box, nullptr, x, y, 5 + Random(10), 5 + Random(10)), box.Init(window);
        host->Remove(box), host->Add(box);  // above all others
        Send(WM_MOUSEMOVE, 0, x + Random(5), y + Random(5));
        ASSERT_EQ(host->Current(), &box) << "step " << i;
        Place(box, nullptr, x, y, 10, 10, FLAG_PASSIVE);
        Send(WM_MOUSEMOVE, 0, x + 4, y + 4);
        ASSERT_EQ(host->Current(), nullptr) << "a passive one hides those below";
        box.Flag = 0;
    }
}

TEST_F(Host_Test, Wheel_Keeps_The_Rest_Of_Fine_Steps) {
    Scroll_Recorder c{log, 'c', 10, 50, 50, 30};
    Scroll_Recorder d{log, 'd', 100, 50, 50, 30};
    host->Add(c, {}, Note_Change);
    host->Add(d);
    host->Init_All();
    EXPECT_EQ(Wheel(40, 20, 60), "");
    EXPECT_TRUE(taken);
    EXPECT_EQ(Wheel(40, 20, 60), "");
    EXPECT_EQ(Wheel(50, 20, 60), "c scroll 1 c change");
    EXPECT_EQ(Wheel(-250, 20, 60), "c scroll -2 c change") << "10 were left";
    EXPECT_EQ(Wheel(100, 20, 60), "");
    EXPECT_EQ(Wheel(100, 120, 60), "") << "the rest of another control does not count";
    EXPECT_EQ(Wheel(-240, 120, 60), "d scroll -1");
    EXPECT_EQ(Wheel(120, 20, 20), "");
    EXPECT_FALSE(taken) << "a has no Scroll";
    Wheel(120, 20, -500);
    EXPECT_FALSE(taken) << "outside the window";
}

class Host_Keys_Test : public Host_Test {
  protected:
    Host_Keys_Test() {
        host->Clear();
        host->Add(c, {}, Note_Change);
        host->Add(a);
        host->Add(d);
        host->Init_All();
    }
    std::string Key(UINT message, WPARAM wparam, int held = 0) {
        Hold_Keys(held);
        Send(message, wparam, 0, 0);
        Hold_Keys(0);
        return log;
    }
    const Tools* After_Press(int button_down, int x, int y) {
        Send(static_cast<UINT>(button_down), 0, x, y);
        Send(static_cast<UINT>(button_down) + 1, 0, x, y);
        return host->Focused();
    }
    Key_Recorder c{log, 'c', 10, 50, 50, 30};
    Key_Recorder d{log, 'd', 100, 50, 50, 30};
};

TEST_F(Host_Keys_Test, A_Press_Gives_The_Focus) {
    EXPECT_EQ(After_Press(WM_LBUTTONDOWN, 120, 60), &d);
    EXPECT_EQ(GetFocus(), window) << "or no key would arrive";
    EXPECT_EQ(After_Press(WM_RBUTTONDOWN, 20, 60), &d) << "only the left button gives it";
    EXPECT_EQ(After_Press(WM_LBUTTONDOWN, 20, 20), &d) << "a takes no keys";
    c.Flag = FLAG_PASSIVE;
    EXPECT_EQ(Key(WM_KEYDOWN, VK_TAB), "d key 9") << "nowhere else to go";
    c.Flag = 0, d.Width = 0;
    EXPECT_EQ(Key(WM_CHAR, 'x'), "") << "d is hidden";
    Key(WM_KEYDOWN, VK_TAB);
    host->Focus(&a);
    EXPECT_EQ(host->Focused(), &c) << "after the last comes the first, and a takes no keys";
    host->Remove(c);
    EXPECT_EQ(host->Focused(), nullptr);
}

TEST_F(Host_Keys_Test, Keys_Go_To_The_Focus_And_Commands_To_The_Application_First) {
    constexpr int alt_gr = KEY_CONTROL | KEY_ALT;
    struct Row {
        UINT message;
        WPARAM key;
        int held, offered, given;
        bool is_command = false;
    };
    // Digits count when they have become characters, wherever on the keyboard they are.
    const Row rows[] = {{WM_KEYDOWN, 'A', 0, 0, 0},
                        {WM_CHAR, 'a', 0, 97, 97},
                        {WM_CHAR, 27, 0, 27, 27},
                        {WM_KEYDOWN, VK_LEFT, 0, 4196, 4196},
                        {WM_KEYDOWN, 'V', KEY_CONTROL, 598, 598, true},
                        {WM_CHAR, 22, KEY_CONTROL, 0, 0},
                        {WM_KEYDOWN, VK_F5, 0, 2164, 2164, true},
                        {WM_SYSKEYDOWN, VK_F4, KEY_ALT, 3187, 3187, true},
                        {WM_KEYDOWN, '7', 0, 55, 0},
                        {WM_CHAR, '7', 0, 0, 55},
                        {WM_KEYDOWN, VK_NUMPAD7, 0, 8295, 0},
                        {WM_KEYDOWN, VK_DIVIDE, 0, 4207, '/'},
                        {WM_CHAR, '/', 0, 0, 0},
                        {WM_KEYDOWN, 'Q', alt_gr, 1617, 1617, true},
                        {WM_CHAR, '@', alt_gr, 0, '@'}};
    int offered = 0;
    MSG waiting;
    for (const bool focus : {false, true}) {
        for (const bool takes : {false, true}) {
            host->Focus(focus ? &c : nullptr);
            host->Set_On_Key([&, takes](int code) { return offered = code, takes; });
            for (const auto& [message, key, held, code, given, is_command] : rows) {
                SCOPED_TRACE(testing::Message() << message << ' ' << key << ' ' << focus << takes);
                PostMessageA(window, WM_SYSCHAR, 's', 0);
                const bool offers = code && (!focus || is_command);
                const bool gives = focus && given && !(offers && takes);
                const std::string told = "c key " + std::to_string(given) + " c change";
                offered = 0;
                EXPECT_EQ(Key(message, key, held), gives ? told : "");
                EXPECT_EQ(offered, offers ? code : 0);
                // Alt and F4 must close the window unless the application has taken it, and then not beep.
                const bool is_system = message == WM_SYSKEYDOWN;
                EXPECT_EQ(taken, (offers && takes) || (gives && !is_system));
                const bool beeps = PeekMessageA(&waiting, window, WM_SYSCHAR, WM_SYSCHAR, PM_REMOVE);
                EXPECT_EQ(beeps, !(is_system && takes));
            }
        }
    }
    EXPECT_FALSE(PeekMessageA(&waiting, window, WM_CLOSE, WM_CLOSE, PM_NOREMOVE)) << "Escape closes nothing";
    host->Set_On_Key([this](int) { return host.reset(), true; });
    EXPECT_EQ(Key(WM_KEYDOWN, VK_F1), "");
}

TEST_F(Host_Test, Paints_What_Meets_The_Update_Rectangle) {
    Send(WM_ERASEBKGND, 0, 0, 0);
    EXPECT_TRUE(taken && result == 1);
    EXPECT_EQ(Paint(0, 0, client_width - 1, client_height - 1), "a draw b draw");
    EXPECT_EQ(Paint(60, 40, 70, 50), "a draw") << "its last column and row";
    EXPECT_EQ(Paint(61, 10, 99, 40), "") << "between the two";
    EXPECT_EQ(Paint(10, 41, 60, 60), "");
    EXPECT_EQ(Paint(10, 0, 60, 9), "");
    EXPECT_EQ(Paint(10, 0, 60, 10), "a draw");
    // What is drawn may cover others, so these are drawn anew with it.
    Recorder c{log, 'c', 50, 30, 60, 30};
    host->Add(c);
    c.Init(window);
    EXPECT_EQ(Paint(12, 12, 12, 12), "a draw b draw c draw");
}

TEST_F(Host_Test, Own_Drawing_Is_Cut_To_What_Is_Painted_Anew) {
    host->Set_Background(Colors(0x20, 0x40, 0x60));
    host->Set_On_Paint([] {
        Current_Color = Colors(0xFF, 0xEE, 0x00).get();
        Draw_Box(0, client_height, client_width, 60);
    });
    window.Refill();
    Paint(70, 50, 89, 69);
    const Picture picture(window);
    EXPECT_EQ(picture.Painted(), (Area{70, 89, 50, 69}));
    EXPECT_EQ(picture.At(70, 60), 0x204060u);
    EXPECT_EQ(picture.At(89, 61), 0xFFEE00u);
}

// What is painted twice, or over others, would show.
TEST(Host_Paint_Test, A_Part_Painted_Anew_Looks_As_Before) {
    constexpr int side = 400;
    Hosted_Window shown(side, side);
    Host& host = *shown.host;
    Boxs panel;
    Place(panel, "Text", 0, 0, side - 1, side - 1);
    host.Add(panel);
    std::deque<Buttons> buttons(60);
    for (int i = 0; i < 60; ++i) {
        Buttons& button = buttons[static_cast<std::size_t>(i)];
        Place(button, "Text", 10 + i % 6 * 55, 10 + i / 6 * 30, 60, 40);
        host.Add(button);
    }
    buttons[20].Clip_X = buttons[20].X, buttons[20].Clip_Y = buttons[20].Y;
    buttons[20].Clip_Width = buttons[20].Clip_Height = 50;
    Lists list;
    Place(list, "Text", 300, 200, 90, 150, FLAG_VERTICAL);
    list.Grow(20, 0);
    host.Add(list);
    host.Init_All();
    const Picture whole = shown.All_Painted();
    for (const std::string where : {"window", "batch", "picture held"}) {
        if (where == "picture held") host.Hold();
        for (int i = 0; i < 100; ++i) {
            const int left = Random(side), top = Random(side);
            const RECT area{left, top, left + 1 + Random(30), top + 1 + Random(30)};
            // In a batch and in a picture that is held all counts that anybody paints.
            if (where == "batch") Begin_Batch(shown.window);
            host.Refresh(buttons[static_cast<std::size_t>(Random(60))]);
            ValidateRect(shown.window, nullptr), InvalidateRect(shown.window, &area, FALSE);
            shown.Send(WM_PAINT);
            if (where == "batch") End_Batch();
        }
        EXPECT_TRUE(Same(Picture(shown.window), whole)) << where;
    }
}

TEST_F(Host_Test, A_Picture_Held_Is_Painted_Where_It_Changed) {
    constexpr std::uint32_t other_ground = 0x204060;
    const std::string all = "a draw b draw";
    const auto paint_all = [this] { return Paint(0, 0, client_width - 1, client_height - 1); };
    paint_all();
    host->Hold();
    EXPECT_EQ(Paint(0, 0, 1, 1), all) << "the first picture";
    window.Refill();
    EXPECT_EQ(Paint(0, 0, 70, 70), "");
    const Area copied{0, 70, 0, 70};
    EXPECT_EQ(Picture(window).Painted(), copied) << "copied, as far as it was to be painted";
    host->Refresh(a);
    EXPECT_EQ(Paint(150, 80, 151, 81), "a draw") << "wherever the update rectangle is";
    EXPECT_EQ(Paint(150, 80, 151, 81), "");
    host->Refresh(a), host->Refresh(b), host->Refresh(a);
    EXPECT_EQ(paint_all(), all);
    EXPECT_EQ(Send(WM_MOUSEMOVE, 0, 20, 20) + Paint(0, 0, 9, 9), "a0+") << "members paint into the picture";

    Recorder c{log, 'c', 10, 50, 50, 30};
    const auto remove_c = [&] { host->Remove(c); };
    const std::function<void()> changes[] = {
        [&] { host->Refresh(a), host->Refresh(); },
        [&] { host->Set_Background(Colors(0x20, 0x40, 0x60)); },
        [&] { host->Set_On_Paint({}); },
        [&] { host->Add(c), host->Init_All(), Paint(0, 0, 1, 1), remove_c(); },
        [&] { host->Message(WM_SIZE, 0, 0, result); },
        [&] { host->Message(WM_DISPLAYCHANGE, 32, 0, result); },
        [&] { window.Resize(client_width + 10, client_height); },
        [&] { host->Set_On_Paint([this] { host->Set_On_Paint({}); }), Paint(0, 0, 1, 1); }};
    for (const auto& change : changes) {
        change();
        EXPECT_EQ(Paint(0, 0, 1, 1), all) << &change - changes;
        EXPECT_EQ(Paint(0, 0, 1, 1), "") << &change - changes;
    }
    EXPECT_EQ(Picture(window).At(150, 90), other_ground);
    host->Remove(c);
    EXPECT_EQ(Paint(0, 0, 1, 1), "") << "it was gone before";

    host.reset();
    EXPECT_EQ(Show_Hold(window, nullptr, {}), 0) << "nobody holds it any more";
}

/// In a window that runs from right to left, the control that is seen is the one that is pressed and painted.
TEST(Host_Paint_Test, Is_Never_Mirrored) {
    for (const bool held : {false, true}) {
        Hosted_Window shown(200, 100, WS_EX_LAYOUTRTL);
        Buttons left, right;
        const Tools* pressed = nullptr;
        if (held) shown.host->Hold();
        for (Buttons* button : {&left, &right}) {
            Place(*button, nullptr, button == &left ? 10 : 110, 20, 60, 25);
            shown.host->Add(*button, [&](Buttons& hit) { pressed = &hit; });
        }
        shown.host->Init_All();
        shown.Click({199 - 20, 30});  // the system counts the columns of this window from the right
        EXPECT_EQ(pressed, &left);
        shown.All_Painted();
        shown.window.Refill();
        shown.host->Refresh(left);
        // A picture of this window is read from the right, too.
        EXPECT_EQ(shown.Painted().Painted(), (Area{199 - 70, 199 - 10, 20, 45})) << held;
    }
}

/// An application's own control: its pixels stand where it says, its part is cut, hidden and scaled.
TEST_F(Host_Test, Helps_Controls_Of_The_Application) {
    struct Stamp : Tools {
        Buttons part;
        void Init(HWND window) {
            if (!Prepare(window)) return;
            Adopt(part);
            part.Init(window);
        }
        void Draw() {
            const unsigned long pixels[] = {0x112233, 0x445566, 0x778899, 0xAABBCC};
            Blit(pixels, 2, 2, static_cast<short>(X + 1), static_cast<short>(Y + 1));
            Blit(nullptr, 2, 2, X, Y);
            part.Draw();
        }
    } stamp;
    Place(stamp, nullptr, 150, 60, 20, 20), Place(stamp.part, "Part", 155, 65, 40, 10);
    stamp.Scale = 200;
    host->Clear();
    host->Add(stamp);
    host->Init_All();
    const Picture shown = All_Painted();
    EXPECT_EQ(shown.At(151, 62), 0x112233U);
    EXPECT_EQ(shown.At(152, 61), 0xAABBCCU);
    EXPECT_NE(shown.At(170, 70), shown.At(5, 5)) << "the part goes on to the edge";
    EXPECT_EQ(shown.At(171, 70), shown.At(5, 5)) << "and no farther";
    EXPECT_EQ(stamp.part.Scale, 200);
}

}  // namespace
}  // namespace galdren_test
