// Buttons, beside the native push button: painting, a changed value, the pointer, `Init`, and what they hold.

#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "footprint.h"
#include "scene.h"
#include "support/call_counter.h"

namespace {

using bench::Compare;
using bench::Footprint;
using bench::Gap;
using bench::Painting;
using bench::Put_Pointer;
using bench::Require;
using bench::Result;
using bench::Stage;
using bench::Work;

constexpr int Columns = 8;
constexpr int Rows = 25;
constexpr int Count = Columns * Rows;
constexpr int Button_Width = 100;
constexpr int Button_Height = 25;
constexpr int Pitch_X = 107;
constexpr int Pitch_Y = 28;
constexpr int Middle_Button = Count / 2 + Columns / 2;

/// Top-left pixel of a button in client coordinates.
POINT Place(int index) { return {2 + Pitch_X * (index % Columns), 1 + Pitch_Y * (index / Columns)}; }

const char* Caption(int index) {
    static const std::vector<std::string> captions = [] {
        std::vector<std::string> made;
        made.reserve(Count);
        for (int i = 0; i < Count; ++i)
            made.push_back("Press " + std::to_string(100 + i));
        return made;
    }();
    return captions[static_cast<std::size_t>(index)].c_str();
}

/// Two points in the middle button, to move between.
POINT In_Middle_Button(int step) {
    const POINT corner = Place(Middle_Button);
    return {corner.x + 40 + step % 2, corner.y + 12};
}

/// Buttons with their fields filled, not yet initialised.
class Button_Set {
  public:
    explicit Button_Set(int count = Count) : buttons(static_cast<std::size_t>(count)) {
        for (int i = 0; i < count; ++i)
            Fill_Fields(buttons[static_cast<std::size_t>(i)], i);
    }
    void Init(HWND window) {
        for (Buttons& button : buttons)
            button.Init(window);
    }
    void Draw() {
        for (Buttons& button : buttons)
            button.Draw();
    }
    int Select(int event) {
        int inside = 0;
        for (Buttons& button : buttons)
            inside += button.Select(event);
        return inside;
    }
    std::vector<Buttons>& Get() { return buttons; }

  private:
    static void Fill_Fields(Buttons& button, int index) {
        const POINT corner = Place(index);
        button.Name = Caption(index);
        bench::Place(button, {corner.x, corner.y, corner.x + Button_Width, corner.y + Button_Height});
    }

    std::vector<Buttons> buttons;
};

/// Our side: a window that paints its buttons itself.
class Our_Side {
  public:
    explicit Our_Side(Painting painting)
        : way(painting),
          stage([this](UINT message, WPARAM, LPARAM, LRESULT& result) { return Handle(message, result); }),
          held(stage, painting) {
        Put_Pointer(stage, Gap);
        buttons.Init(stage.Get());
        stage.Raise();
        stage.Repaint();
    }
    const Stage& Window() const { return stage; }
    Button_Set& Set() { return buttons; }

  private:
    bool Handle(UINT message, LRESULT& result) {
        if (message == WM_PAINT) bench::Paint(stage, way, [this] { buttons.Draw(); });
        result = message == WM_ERASEBKGND;
        return message == WM_PAINT || message == WM_ERASEBKGND;
    }

    Painting way;
    Button_Set buttons;
    Stage stage;
    bench::Held_Window held;
};

std::vector<HWND> Create_Native_Buttons(HWND parent) {
    std::vector<HWND> windows;
    windows.reserve(Count);
    for (int i = 0; i < Count; ++i) {
        const POINT corner = Place(i);
        windows.push_back(CreateWindowExA(0, "BUTTON", Caption(i), WS_CHILD | WS_VISIBLE | BS_PUSHBUTTON,
                                          corner.x, corner.y, Button_Width, Button_Height, parent, nullptr,
                                          GetModuleHandleA(nullptr), nullptr));
    }
    return windows;
}

/// The native side: a window with as many push buttons in the same places. They keep the system font, which
/// is the fastest they can draw with.
class Native_Side {
  public:
    Native_Side() : windows(Create_Native_Buttons(stage.Get())) {
        stage.Raise();
        stage.Repaint();
    }
    ~Native_Side() {
        for (HWND window : windows)
            DestroyWindow(window);
    }
    Native_Side(const Native_Side&) = delete;
    Native_Side& operator=(const Native_Side&) = delete;

    const Stage& Window() const { return stage; }
    const std::vector<HWND>& Get() const { return windows; }

  private:
    Stage stage;
    std::vector<HWND> windows;
};

/// What is not painted cannot be measured: the outline of every button must show.
void Require_All_Painted(const Stage& stage) {
    stage.Raise();
    stage.Repaint();
    for (int i = 0; i < Count; ++i) {
        const POINT corner = Place(i);
        Require(stage.Pixel(corner.x, corner.y) != Stage::Background, "a button was not painted");
    }
}

/// Where a repetition ends: when the calls have returned, or when the display has what they drew, of all
/// steps together or of each.
enum class Until { Drawn, On_Display, Each_On_Display };

/// Paints `count` buttons of a stage.
Work Paint_All(const Stage& stage, Until until, int count, std::function<void()> paint) {
    return {[until, paint = std::move(paint)] {
                paint();
                if (until == Until::On_Display) bench::Flush();
            },
            count, [&stage] { stage.Raise(); }};
}

template <Painting way, Until until>
Result Repaint() {
    Our_Side ours(way);
    Require_All_Painted(ours.Window());
    Native_Side native;
    Require_All_Painted(native.Window());
    return Compare(Paint_All(ours.Window(), until, Count, [&] { ours.Window().Repaint(); }),
                   Paint_All(native.Window(), until, Count, [&] { native.Window().Repaint(); }));
}

void Follow(Until until) {
    if (until == Until::Each_On_Display) bench::Flush();
}

void Set_Values(Button_Set& set, bool down, Until until) {
    for (Buttons& button : set.Get()) {
        button.Value = down;
        button.Adjust();
        Follow(until);
    }
}

void Set_Values(const std::vector<HWND>& windows, bool down, Until until) {
    for (HWND window : windows) {
        SendMessageA(window, BM_SETSTATE, down, 0);
        Follow(until);
    }
}

/// Going down and coming up must change the frame of the last button.
template <class Side>
void Require_Visible(const Stage& stage, Side& side) {
    stage.Raise();
    const POINT corner = Place(Count - 1);
    for (bool down : {true, false}) {
        const COLORREF before = stage.Pixel(corner.x + 1, corner.y + 1);
        Set_Values(side, down, Until::Drawn);
        Require(stage.Pixel(corner.x + 1, corner.y + 1) != before, "the changed value does not show");
    }
}

/// One button after the other goes down, and then up.
template <class Side>
Work Change_All(const Stage& stage, Until until, Side& side) {
    return Paint_All(stage, until, 2 * Count, [&side, until] {
        Set_Values(side, true, until);
        Set_Values(side, false, until);
    });
}

template <Until until, Painting way = Painting::In_Batch>
Result Change_Of_Value() {
    Our_Side ours(way);
    Native_Side native;
    Require_Visible(ours.Window(), ours.Set());
    Require_Visible(native.Window(), native.Get());
    return Compare(Change_All(ours.Window(), until, ours.Set()),
                   Change_All(native.Window(), until, native.Get()));
}

/// The pointer moves inside one of the buttons and every button is asked.
Result Pointer_Move_By_Select() {
    constexpr int Moves = 50;
    Our_Side ours(Painting::In_Batch);
    const auto move = [&](int step) {
        Put_Pointer(ours.Window(), In_Middle_Button(step));
        Require(ours.Set().Select(EVENT_MOVE) == 1, "the pointer is not in one button");
    };
    return {bench::Time({[&] {
                             for (int i = 0; i < Moves; ++i)
                                 move(i);
                         },
                         Moves * Count}),
            {}};
}

Result Calls_By_Select() {
    Our_Side ours(Painting::In_Batch);
    support::Call_Counter counter(GetModuleHandleA("Galdren_Tools.dll"));
    Put_Pointer(ours.Window(), In_Middle_Button(0));
    ours.Set().Select(EVENT_MOVE);
    Require(counter.Calls() > 0, "the calls are not counted");
    const auto count_one_move = [&, step = 0]() mutable {
        Put_Pointer(ours.Window(), In_Middle_Button(++step));
        counter.Reset();
        Require(ours.Set().Select(EVENT_MOVE) == 1, "the pointer is not in one button");
        return static_cast<double>(counter.Calls());
    };
    return {bench::Repeat(count_one_move), {}};
}

Result First_Init() {
    Stage stage;
    std::unique_ptr<Button_Set> ours;
    const HWND parent = CreateWindowExA(0, "STATIC", "", WS_POPUP, 0, 0, Stage::Width, Stage::Height, nullptr,
                                        nullptr, GetModuleHandleA(nullptr), nullptr);
    std::vector<HWND> native;
    const auto destroy_native = [&] {
        for (HWND window : native)
            DestroyWindow(window);
        native.clear();
    };
    const auto make_ours = [&] {
        ours.reset();
        ours = std::make_unique<Button_Set>();
    };
    const Result result = Compare({[&] { ours->Init(stage.Get()); }, Count, make_ours},
                                  {[&] { native = Create_Native_Buttons(parent); }, Count, destroy_native});
    destroy_native();
    DestroyWindow(parent);
    return result;
}

Result Init_Again() {
    Stage stage;
    Button_Set ours;
    ours.Init(stage.Get());
    return {bench::Time({[&] { ours.Init(stage.Get()); }, Count}), {}};
}

/// What `count` equal buttons hold, themselves included, once they have been painted.
Footprint Measure_Footprint(const Stage& stage, int count) {
    Tools_Lib_Cleanup();
    const Footprint before = bench::Present_Footprint();
    Button_Set buttons(count);
    buttons.Init(stage.Get());
    buttons.Draw();
    Begin_Batch(stage.Get());
    buttons.Draw();
    End_Batch();
    return bench::Present_Footprint() - before;
}

/// The share of each of equal buttons, and what they share: what one holds above its own share.
struct Shares {
    Footprint each;
    Footprint common;
};

Shares Measure_Shares(const Stage& stage) {
    const Footprint one = Measure_Footprint(stage, 1);
    const Footprint many = Measure_Footprint(stage, Count);
    Require(many.bytes >= Count * static_cast<double>(sizeof(Buttons)), "the heap is not counted");
    const Footprint each{(many.objects - one.objects) / (Count - 1), (many.bytes - one.bytes) / (Count - 1)};
    return {each, {one.objects - each.objects, one.bytes - each.bytes}};
}

template <class Value>
Result Repeat_Shares(Value value) {
    Stage stage;
    stage.Raise();
    Put_Pointer(stage, Gap);
    return {bench::Repeat([&] { return value(Measure_Shares(stage)); }), {}};
}

Result Objects_Each() {
    return Repeat_Shares([](const Shares& shares) { return shares.each.objects; });
}
Result Objects_Common() {
    return Repeat_Shares([](const Shares& shares) { return shares.common.objects; });
}
Result Memory_Each() {
    return Repeat_Shares([](const Shares& shares) { return shares.each.bytes / 1000; });
}
Result Memory_Common() {
    return Repeat_Shares([](const Shares& shares) { return shares.common.bytes / 1000; });
}

using bench::At_Most;
using bench::No_Target;
using bench::Of_Native;

const bench::Register rows[] = {
    bench::Register({"button: repaint in a batch, on display", "us", Of_Native(0.04, 0.03),
                     Repaint<Painting::In_Batch, Until::On_Display>}),
    bench::Register({"button: repaint in a batch, calls alone", "us", No_Target(),
                     Repaint<Painting::In_Batch, Until::Drawn>}),
    bench::Register({"button: repaint without batch, on display", "us", Of_Native(0.25, 0.15),
                     Repaint<Painting::One_By_One, Until::On_Display>}),
    bench::Register({"button: repaint without batch, calls alone", "us", No_Target(),
                     Repaint<Painting::One_By_One, Until::Drawn>}),
    bench::Register(
        {"button: value changed, on display", "us", Of_Native(0.18), Change_Of_Value<Until::On_Display>}),
    bench::Register({"button: value changed, held, on display", "us", Of_Native(0.12),
                     Change_Of_Value<Until::On_Display, Painting::Held>}),
    bench::Register({"button: value changed, each on display", "us", No_Target(),
                     Change_Of_Value<Until::Each_On_Display>}),
    bench::Register({"button: value changed, calls alone", "us", No_Target(), Change_Of_Value<Until::Drawn>}),
    bench::Register({"button: pointer move, Select of one", "us", At_Most(0.5), Pointer_Move_By_Select}),
    bench::Register({"button: pointer move, paint calls of 200", "calls", At_Most(0), Calls_By_Select}),
    bench::Register({"button: first Init of 200", "us", Of_Native(0.05), First_Init}),
    bench::Register({"button: Init with nothing changed", "us", At_Most(1), Init_Again}),
    bench::Register({"button: GDI objects, each", "objects", At_Most(1), Objects_Each}),
    bench::Register({"button: GDI objects, shared by all", "objects", At_Most(20), Objects_Common}),
    bench::Register({"button: memory, each", "kB", At_Most(1), Memory_Each}),
    bench::Register({"button: memory, shared by all", "kB", At_Most(100), Memory_Common}),
};

}  // namespace
