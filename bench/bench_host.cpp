// The host: what the pointer, a small repaint and a new size cost in windows of many controls, beside native
// buttons and windows that do the same.

#include "host/host.h"
#include "host/layout.h"

#include <functional>
#include <memory>
#include <utility>
#include <vector>

#include "scene.h"

namespace {

using bench::Compare;
using bench::Require;
using bench::Result;
using bench::Stage;
using bench::Work;

/// Buttons in rows and columns that fill a stage.
struct Grid {
    int columns;
    int rows;
    int overlap;  ///< pixels by which each covers the next in its row and column

    int Count() const { return columns * rows; }
    int Middle() const { return rows / 2 * columns + columns / 2; }
    /// In client coordinates.
    RECT Place(int index) const {
        const int left = Stage::Width * (index % columns) / columns;
        const int top = Stage::Height * (index / columns) / rows;
        const int gap = 2 - overlap;
        return {left, top, left + Stage::Width / columns - gap, top + Stage::Height / rows - gap};
    }
    /// Two points in the middle control, to move between.
    POINT In_Middle(int step) const {
        const RECT place = Place(Middle());
        return {place.left + step % 2, (place.top + place.bottom) / 2};
    }
};

constexpr Grid Hundreds{8, 25, 0};
constexpr Grid Thousands{50, 40, 0};
constexpr Grid Ten_Thousands{200, 100, 0};
/// Each of these covers a part of the next, from one end of the window to the other.
constexpr Grid Chain{32, 20, 4};

/// Buttons with their fields filled, not yet initialised.
std::vector<Buttons> Make_Buttons(const Grid& grid) {
    std::vector<Buttons> buttons(static_cast<std::size_t>(grid.Count()));
    for (int i = 0; i < grid.Count(); ++i) {
        Buttons& button = buttons[static_cast<std::size_t>(i)];
        bench::Place(button, grid.Place(i));
        button.Name = "Press";
    }
    return buttons;
}

void Init_All(std::vector<Buttons>& buttons, HWND window) {
    for (Buttons& button : buttons)
        button.Init(window);
}

/// A window with a host of many buttons.
class Our_Side {
  public:
    explicit Our_Side(const Grid& places)
        : grid(places),
          buttons(Make_Buttons(grid)),
          stage([this](auto... message) { return host && host->Message(message...); }) {
        host = std::make_unique<Host>(stage.Get());
        host->Set_Background(Colors(170, 170, 170));
        bench::Put_Pointer(stage, {-1, -1});
        for (Buttons& button : buttons)
            host->Add(button);
        Init_All(buttons, stage.Get());
        stage.Raise();
        stage.Repaint();
        Move(0);
        Require(buttons[static_cast<std::size_t>(grid.Middle())].Hover == 1,
                "the pointer is not in the button");
    }
    const Stage& Window() const { return stage; }
    HWND Target() const { return stage.Get(); }
    POINT Place_Of(int step) const { return grid.In_Middle(step); }

    void Move(int step) {
        const POINT client = grid.In_Middle(step);
        LRESULT result = 0;
        Require(host->Message(WM_MOUSEMOVE, 0, MAKELPARAM(client.x, client.y), result),
                "the host leaves the message to others");
    }
    /// Has the keyboard go on to the next button, with its ring.
    void Tab() {
        LRESULT result = 0;
        const Tools* const before = host->Focused();
        host->Message(WM_KEYDOWN, VK_TAB, 0, result);
        Require(host->Focused() != before, "the keyboard stays where it is");
    }
    void Get_Keyboard() {
        LRESULT result = 0;
        host->Message(WM_SETFOCUS, 0, 0, result);
    }
    void Hold() { host->Hold(); }
    /// Scales all, and has the window painted.
    void Set_Scale(int percent) {
        host->Set_Scale(percent);
        Require(buttons[0].Scale == (percent == 100 ? 0 : percent), "the buttons are not scaled");
        UpdateWindow(stage.Get());
    }
    /// Has each button go a pixel up, or back.
    void Shift(bool up) {
        for (Buttons& button : buttons)
            button.Y = static_cast<short>(button.Y + (up ? 1 : -1));
        Init_All(buttons, stage.Get());
    }

  private:
    Grid grid;
    std::vector<Buttons> buttons;
    std::unique_ptr<Host> host;
    Stage stage;  // the last, so that its messages end before the host does
};

/// The native side: a window with as many push buttons in the same places.
class Native_Buttons {
  public:
    explicit Native_Buttons(const Grid& places) : grid(places), buttons(Create(stage.Get(), grid)) {
        stage.Raise();
        stage.Repaint();
    }
    ~Native_Buttons() { Destroy(buttons); }
    Native_Buttons(const Native_Buttons&) = delete;
    Native_Buttons& operator=(const Native_Buttons&) = delete;

    HWND Target() const { return buttons[static_cast<std::size_t>(grid.Middle())]; }
    static POINT Place_Of(int step) { return {2 + step % 2, 2}; }

    void Move(int step) const {
        const POINT place = Place_Of(step);
        SendMessageA(Target(), WM_MOUSEMOVE, 0, MAKELPARAM(place.x, place.y));
    }

    static std::vector<HWND> Create(HWND parent, const Grid& grid) {
        std::vector<HWND> windows;
        windows.reserve(static_cast<std::size_t>(grid.Count()));
        for (int i = 0; i < grid.Count(); ++i) {
            const RECT place = grid.Place(i);
            windows.push_back(CreateWindowExA(0, "BUTTON", "Press", WS_CHILD | WS_VISIBLE | BS_PUSHBUTTON,
                                              place.left, place.top, place.right - place.left,
                                              place.bottom - place.top, parent, nullptr,
                                              GetModuleHandleA(nullptr), nullptr));
        }
        return windows;
    }
    static void Destroy(std::vector<HWND>& windows) {
        for (HWND window : windows)
            DestroyWindow(window);
        windows.clear();
    }

  private:
    Grid grid;
    Stage stage;
    std::vector<HWND> buttons;
};

constexpr int Moves = 1000;

template <class Side>
Work Move_Often(Side& side, std::function<void()> prepare = {}) {
    return {[&side] {
                for (int i = 0; i < Moves; ++i)
                    side.Move(i);
            },
            Moves, std::move(prepare)};
}

/// The native button hears of the pointer without being looked for, whatever the number of its neighbours.
template <const Grid& grid>
Result Pointer_Moves() {
    Our_Side ours(grid);
    Native_Buttons native(Hundreds);
    return Compare(Move_Often(ours), Move_Often(native));
}

/// The message takes the road through the queue of the thread.
template <class Side>
void Post_Move(const Side& side, int step) {
    const POINT place = side.Place_Of(step);
    PostMessageA(side.Target(), WM_MOUSEMOVE, 0, MAKELPARAM(place.x, place.y));
    MSG message;
    Require(PeekMessageA(&message, side.Target(), WM_MOUSEMOVE, WM_MOUSEMOVE, PM_REMOVE),
            "the message is lost");
    DispatchMessageA(&message);
}

template <class Side>
Work Post_Often(const Side& side) {
    constexpr int Posted = 200;
    return {[&side] {
                for (int i = 0; i < Posted; ++i)
                    Post_Move(side, i);
            },
            Posted};
}

Result Pointer_Moves_Posted() {
    const Our_Side ours(Hundreds);
    const Native_Buttons native(Hundreds);
    return Compare(Post_Often(ours), Post_Often(native));
}

/// Before each repetition all buttons are moved and initialised, and the host has learnt of it.
template <const Grid& grid>
Result Pointer_Moves_After_Init() {
    Our_Side ours(grid);
    bool up = false;
    return {bench::Time(Move_Often(ours,
                                   [&] {
                                       ours.Shift(up = !up);
                                       ours.Move(1);
                                   })),
            {}};
}

/// Where all buttons are is learnt by the first move after they were moved and initialised.
template <const Grid& grid>
Result First_Move_After_Init() {
    Our_Side ours(grid);
    bool up = false;
    return {bench::Time({[&] { ours.Move(0); }, 1, [&] { ours.Shift(up = !up); }}), {}};
}

/// A few pixels in the middle of the window.
RECT Two_By_Two(const Grid& grid) {
    const POINT place = grid.In_Middle(0);
    return {place.x, place.y, place.x + 2, place.y + 2};
}

/// A window that is painted by a function of its own.
class Painted_Stage {
  public:
    explicit Painted_Stage(std::function<void(HDC)> paint_all)
        : paint(std::move(paint_all)),
          stage([this](UINT message, WPARAM, LPARAM, LRESULT& result) { return Handle(message, result); }) {
        stage.Raise();
        stage.Repaint();
    }
    const Stage& Window() const { return stage; }

  private:
    bool Handle(UINT message, LRESULT& result) {
        result = message == WM_ERASEBKGND;
        if (message != WM_PAINT) return message == WM_ERASEBKGND;
        PAINTSTRUCT area;
        BeginPaint(stage.Get(), &area);
        paint(area.hdc);
        EndPaint(stage.Get(), &area);
        return true;
    }

    std::function<void(HDC)> paint;
    Stage stage;
};

Work Repaint_Part(const Stage& stage, const RECT& area) {
    constexpr int Times = 20;
    return {[&stage, area] {
                for (int i = 0; i < Times; ++i)
                    stage.Repaint(area);
            },
            Times, [&stage] { stage.Raise(); }};
}

/// Beside a window whose WM_PAINT paints nothing.
template <const Grid& grid>
Result Small_Repaint() {
    Our_Side ours(grid);
    Painted_Stage native([](HDC) {});
    const RECT area = Two_By_Two(grid);
    bench::Require_Repainted(ours.Window(), &area, 1);
    return Compare(Repaint_Part(ours.Window(), area), Repaint_Part(native.Window(), area));
}

/// A picture of a window with buttons, painted by its WM_PAINT in one copy.
class Native_Picture {
  public:
    explicit Native_Picture(const Stage& shown) : dc(CreateCompatibleDC(nullptr)) {
        const HDC source = GetDC(shown.Get());
        bitmap = CreateCompatibleBitmap(source, Stage::Width, Stage::Height);
        before = SelectObject(dc, bitmap);
        BitBlt(dc, 0, 0, Stage::Width, Stage::Height, source, 0, 0, SRCCOPY);
        ReleaseDC(shown.Get(), source);
    }
    ~Native_Picture() {
        SelectObject(dc, before);
        DeleteObject(bitmap);
        DeleteDC(dc);
    }
    Native_Picture(const Native_Picture&) = delete;
    Native_Picture& operator=(const Native_Picture&) = delete;

    void Show(HDC target) const { BitBlt(target, 0, 0, Stage::Width, Stage::Height, dc, 0, 0, SRCCOPY); }

  private:
    HDC dc;
    HBITMAP bitmap;
    HGDIOBJ before;
};

/// Beside a window whose WM_PAINT is one copy.
Result Held_Repaint() {
    Our_Side ours(Hundreds);
    ours.Hold();
    const Native_Picture picture(ours.Window());
    Painted_Stage native([&](HDC target) { picture.Show(target); });
    const RECT all{0, 0, Stage::Width, Stage::Height};
    bench::Require_Repainted(ours.Window(), &all, 1);
    bench::Require_Repainted(native.Window(), &all, 1);
    const auto repaint = [](const Stage& stage) {
        return Work{[&stage] {
                        stage.Repaint();
                        bench::Flush();
                    },
                    1, [&stage] { stage.Raise(); }};
    };
    return Compare(repaint(ours.Window()), repaint(native.Window()));
}

/// The ring goes on to the next button, and what it covered is painted.
template <const Grid& grid>
Result Focus_Moves() {
    Our_Side ours(grid);
    ours.Get_Keyboard();
    ours.Tab();
    constexpr int Tabs = 50;
    return {bench::Time({[&ours] {
                             for (int i = 0; i < Tabs; ++i) {
                                 ours.Tab();
                                 UpdateWindow(ours.Target());
                             }
                             bench::Flush();
                         },
                         Tabs, [&ours] { ours.Window().Raise(); }}),
            {}};
}

/// Makes the window a pixel higher or as it was, and has it painted.
void Resize(const Stage& stage, bool higher) {
    SetWindowPos(stage.Get(), nullptr, 0, 0, Stage::Width, Stage::Height + higher,
                 SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
    UpdateWindow(stage.Get());
}

/// Beside an empty window that is resized, and a window with as many buttons painted once.
Result Resized() {
    Our_Side ours(Hundreds);
    Our_Side repainted(Hundreds);
    Stage empty;
    empty.Raise();
    const auto twice = [](const auto& once) {
        return [once] {
            once(true);
            once(false);
            bench::Flush();
        };
    };
    const auto resize_ours = [&](bool higher) { Resize(ours.Window(), higher); };
    const auto resize_empty = [&](bool higher) {
        Resize(empty, higher);
        repainted.Window().Repaint();
    };
    return Compare({twice(resize_ours), 2, [&] { ours.Window().Raise(); }}, {twice(resize_empty), 2, [&] {
                                                                                 empty.Raise();
                                                                                 repainted.Window().Raise();
                                                                             }});
}

/// How many pixels a drag of the window's corner is from where it began, there and back.
constexpr int Drag_Steps = 100;
int Dragged(int step) { return bench::Back_And_Forth(step, Drag_Steps / 2); }

void Resize_To(const Stage& stage, int step) {
    SetWindowPos(stage.Get(), nullptr, 0, 0, Stage::Width - Dragged(step), Stage::Height - Dragged(step),
                 SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
    UpdateWindow(stage.Get());
}

/// A button that counts how often it is painted.
class Counted_Button : public Buttons {
  public:
    void Draw() {
        ++painted;
        Buttons::Draw();
    }
    long long painted = 0;
};

/// Rows of buttons in a window, all of which grow with it.
class Our_Rows {
  public:
    Our_Rows()
        : buttons(static_cast<std::size_t>(Hundreds.Count())),
          stage([this](auto... message) { return host && host->Message(message...); }) {
        host = std::make_unique<Host>(stage.Get());
        std::vector<Layout::Item> rows;
        for (int row = 0; row < Hundreds.rows; ++row) {
            std::vector<Layout::Item> items;
            for (int column = 0; column < Hundreds.columns; ++column) {
                const int index = row * Hundreds.columns + column;
                Counted_Button& button = buttons[static_cast<std::size_t>(index)];
                bench::Place(button, Hundreds.Place(index));
                button.Name = "Press";
                host->Add(button);
                items.push_back(Layout::Stretch(button));
            }
            rows.push_back(Layout::Stretch(Layout::Row(2, std::move(items))));
        }
        Layout::Lay_Out(*host, Layout::Column(2, std::move(rows)));
        stage.Raise();
        stage.Repaint();
    }
    const Stage& Window() const { return stage; }
    long long Painted() const {
        long long painted = 0;
        for (const Counted_Button& button : buttons)
            painted += button.painted;
        return painted;
    }

  private:
    std::vector<Counted_Button> buttons;
    std::unique_ptr<Host> host;
    Stage stage;  // the last, so that its messages end before the host does
};

/// The native side: all windows are moved together.
class Native_Rows {
  public:
    Native_Rows() : buttons(Native_Buttons::Create(stage.Get(), Hundreds)) {
        stage.Raise();
        stage.Repaint();
    }
    ~Native_Rows() { Native_Buttons::Destroy(buttons); }
    Native_Rows(const Native_Rows&) = delete;
    Native_Rows& operator=(const Native_Rows&) = delete;

    const Stage& Window() const { return stage; }
    void Resize(int step) const {
        const int width = Stage::Width - Dragged(step);
        const int height = Stage::Height - Dragged(step);
        SetWindowPos(stage.Get(), nullptr, 0, 0, width, height, SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
        HDWP moved = BeginDeferWindowPos(Hundreds.Count());
        for (int i = 0; i < Hundreds.Count(); ++i) {
            const int column = i % Hundreds.columns;
            const int row = i / Hundreds.columns;
            const int left = width * column / Hundreds.columns;
            const int top = height * row / Hundreds.rows;
            moved =
                DeferWindowPos(moved, buttons[static_cast<std::size_t>(i)], nullptr, left, top,
                               width * (column + 1) / Hundreds.columns - left - 2,
                               height * (row + 1) / Hundreds.rows - top - 2, SWP_NOZORDER | SWP_NOACTIVATE);
        }
        Require(EndDeferWindowPos(moved) != 0, "the native buttons stay where they are");
        RedrawWindow(stage.Get(), nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
    }

  private:
    Stage stage;
    std::vector<HWND> buttons;
};

/// Beside native buttons that are moved and painted likewise. No button of ours is painted twice a step.
Result Dragged_By_Corner() {
    Our_Rows ours;
    const Native_Rows native;
    const long long before = ours.Painted();
    for (int step = 1; step <= Drag_Steps; ++step)
        Resize_To(ours.Window(), step);
    Require(ours.Painted() - before == static_cast<long long>(Drag_Steps) * Hundreds.Count(),
            "a button is painted more or less often than once a step");
    const auto drag = [](int steps, const auto& resize) {
        return [steps, resize] {
            for (int step = 1; step <= steps; ++step) {
                resize(step);
                bench::Flush();
            }
        };
    };
    constexpr int Native_Steps = 10;  // of the same drag, for each takes long
    const Work our_drag{drag(Drag_Steps, [&](int step) { Resize_To(ours.Window(), step); }), Drag_Steps,
                        [&] { ours.Window().Raise(); }};
    const Work native_drag{drag(Native_Steps, [&](int step) { native.Resize(step); }), Native_Steps,
                           [&] { native.Window().Raise(); }};
    return Compare(our_drag, native_drag, 5);
}

/// Made larger and as before, and painted each time.
Result Scaled() {
    Our_Side ours(Hundreds);
    const auto scale_twice = [&ours] {
        for (const int scale : {150, 100})
            ours.Set_Scale(scale);
        bench::Flush();
    };
    return {bench::Time({scale_twice, 2, [&ours] { ours.Window().Raise(); }}), {}};
}

/// Controls of which it is counted how many bytes go to the window.
class Counted_Side {
  public:
    Counted_Side() : stage([this](auto... message) { return host && host->Message(message...); }) {
        host = std::make_unique<Host>(stage.Get());
        host->Set_Background(Colors(170, 170, 170));
        bench::Place(button, {10, 10, 110, 35});
        button.Name = "Press";
        bench::Place(console, {10, 50, 410, 450});
        bench::Place(list, {420, 50, 620, 450});
        list.Flag = FLAG_VERTICAL;
        Require(list.Grow(100, 0) == 1, "there is no memory for the items");
        host->Add(button), host->Add(console), host->Add(list);
        host->Init_All();
        stage.Raise();
        stage.Repaint();
        for (int i = 0; i < 100; ++i)
            console.Write("line %d", i);
    }
    void Move_To(POINT client) { Send(WM_MOUSEMOVE, 0, client); }
    void Turn_Wheel(POINT client) {
        ClientToScreen(stage.Get(), &client);
        Send(WM_MOUSEWHEEL, MAKEWPARAM(0, static_cast<WORD>(-WHEEL_DELTA)), client);
    }
    Result Bytes_Of(const std::function<void()>& prepare, const std::function<void()>& event) {
        return {bench::Repeat([&] {
                    prepare();
                    UpdateWindow(stage.Get());
                    const unsigned long long before = Tools_Paint_Count().bytes;
                    event();
                    UpdateWindow(stage.Get());
                    const auto bytes = static_cast<double>(Tools_Paint_Count().bytes - before);
                    Require(bytes > 0, "nothing was painted");
                    return bytes;
                }),
                {}};
    }

    Buttons button;
    Texts console;
    Lists list;

  private:
    void Send(UINT message, WPARAM wparam, POINT place) {
        LRESULT result = 0;
        host->Message(message, wparam, MAKELPARAM(place.x, place.y), result);
    }

    std::unique_ptr<Host> host;
    Stage stage;  // the last, so that its messages end before the host does
};

constexpr POINT On_Button{50, 20};
constexpr POINT On_List{520, 250};
constexpr double Bytes_Of_Button = 4.0 * 101 * 26;
constexpr double Bytes_Of_Console = 4.0 * 401 * 401;
constexpr double Bytes_Of_List = 4.0 * 201 * 401;

Result Bytes_Of_Hover() {
    Counted_Side side;
    return side.Bytes_Of([&] { side.Move_To({5, 5}); }, [&] { side.Move_To(On_Button); });
}

Result Bytes_Of_Line() {
    Counted_Side side;
    return side.Bytes_Of([] {}, [&] { side.console.Write("one more"); });
}

Result Bytes_Of_Wheel() {
    Counted_Side side;
    return side.Bytes_Of([&] { side.Move_To(On_List); }, [&] { side.Turn_Wheel(On_List); });
}

/// From nothing to buttons that can be painted, beside windows of the same class.
Result Made_And_Added() {
    Stage stage;
    std::vector<Buttons> buttons;
    std::unique_ptr<Host> host;
    std::vector<HWND> native;
    const HWND parent = CreateWindowExA(0, "STATIC", "", WS_POPUP, 0, 0, Stage::Width, Stage::Height, nullptr,
                                        nullptr, GetModuleHandleA(nullptr), nullptr);
    const auto make_ours = [&] {
        buttons = Make_Buttons(Hundreds);
        for (Buttons& button : buttons) {
            host->Add(button);
            button.Init(stage.Get());
        }
    };
    const auto forget_ours = [&] {
        host = std::make_unique<Host>(stage.Get());
        buttons.clear();
    };
    const auto make_native = [&] { native = Native_Buttons::Create(parent, Hundreds); };
    const auto forget_native = [&] { Native_Buttons::Destroy(native); };
    const Result result =
        Compare({make_ours, Hundreds.Count(), forget_ours}, {make_native, Hundreds.Count(), forget_native});
    forget_native();
    DestroyWindow(parent);
    return result;
}

using bench::At_Most;
using bench::Beyond_Native;
using bench::No_Target;
using bench::Of_Native;
using bench::Register;

const Register rows[] = {
    Register({"host: pointer move among 200", "us", At_Most(0.5), Pointer_Moves<Hundreds>}),
    Register({"host: pointer move among 2,000", "us", At_Most(0.5), Pointer_Moves<Thousands>}),
    Register({"host: pointer move among 20,000", "us", At_Most(0.5), Pointer_Moves<Ten_Thousands>}),
    Register({"host: the same after Init of all 20,000", "us", At_Most(0.5),
              Pointer_Moves_After_Init<Ten_Thousands>}),
    Register({"host: first move after Init of 200", "us", No_Target(), First_Move_After_Init<Hundreds>}),
    Register(
        {"host: first move after Init of 20,000", "us", No_Target(), First_Move_After_Init<Ten_Thousands>}),
    Register({"host: pointer move, as a posted message", "us", No_Target(), Pointer_Moves_Posted}),
    Register({"host: 2 x 2 repainted among 20,000", "us", Beyond_Native(20), Small_Repaint<Ten_Thousands>}),
    Register({"host: 2 x 2 repainted in a chain of 640", "us", At_Most(1000), Small_Repaint<Chain>}),
    Register({"host: 200 repainted, held, on display", "us", Of_Native(1.3), Held_Repaint}),
    Register({"host: resized by a pixel, on display", "us", Of_Native(1.3), Resized}),
    Register({"host: 200 laid out, a step of a drag", "us", Of_Native(0.5), Dragged_By_Corner}),
    Register({"host: scale of 200 changed, on display", "us", At_Most(100'000), Scaled}),
    Register({"host: bytes to the window, a button lit", "bytes", At_Most(Bytes_Of_Button), Bytes_Of_Hover}),
    Register(
        {"host: bytes to the window, a console line", "bytes", At_Most(Bytes_Of_Console), Bytes_Of_Line}),
    Register({"host: bytes to the window, a list step", "bytes", At_Most(Bytes_Of_List), Bytes_Of_Wheel}),
    Register({"host: Tab among 200, on display", "us", At_Most(200), Focus_Moves<Hundreds>}),
    Register({"host: Tab among 20,000, on display", "us", At_Most(200), Focus_Moves<Ten_Thousands>}),
    Register({"host: a button made, added, Init", "us", At_Most(0.6), Made_And_Added}),
};

}  // namespace
