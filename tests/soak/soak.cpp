// soak [--steps N] [--seed N]: uses every class at random, as applications do and as they should not. What
// has to hold is watched all the time: nothing outside the controls is painted, nothing stays locked, nothing
// is lost. A run of 1000 steps has its own seed, the next run the next one, so that a failure can be replayed
// by itself.
#include <algorithm>
#include <atomic>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <memory>
#include <random>
#include <string>
#include <tuple>
#include <vector>

#include "Galdren_Host.h"
#include "Galdren_Tools.h"
#include "Galdren_Util.h"
#include "tests/support/spy.h"
#include "tests/support/window.h"

using namespace galdren_test;

namespace {

constexpr int Steps_Of_Run = 1000, Steps_Of_Scene = 100;
constexpr SIZE Usual_Client{260, 180};

/// Where the soak is, for who has to tell.
unsigned seed = 1;
std::atomic<int> step = 0;
const char* volatile subject = "";

[[noreturn]] void Fail(const std::string& what) {
    std::printf("%s: %s\nReplay: scripts/soak --seed %u --steps %d\n", subject, what.c_str(), seed,
                step.load());
    std::fflush(stdout);
    TerminateProcess(GetCurrentProcess(), EXIT_FAILURE);
    std::abort();
}

LONG WINAPI Tell_Of_Crash(EXCEPTION_POINTERS* crash) {
    char text[80];
    std::snprintf(text, sizeof text, "exception %lx at %p, the DLL is at %p",
                  crash->ExceptionRecord->ExceptionCode, crash->ExceptionRecord->ExceptionAddress,
                  static_cast<void*>(GetModuleHandleA("Galdren_Tools.dll")));
    Fail(text);
}

void CALLBACK Tell_Of_Hang(void*, BOOLEAN) {
    static int last = -1;
    if (std::exchange(last, step.load()) == step) Fail("hangs");
}

class Dice {
  public:
    void Start(unsigned from) { engine.seed(from); }
    unsigned Bits() { return static_cast<unsigned>(engine()); }
    int Below(int count) { return static_cast<int>(Bits() % static_cast<unsigned>(count)); }
    int Between(int least, int most) { return least + Below(most - least + 1); }
    bool One_In(int count) { return Below(count) == 0; }
    template <class Value, std::size_t Count>
    Value Any(const Value (&values)[Count]) {
        return values[Below(static_cast<int>(Count))];
    }
    /// Mostly of the range, now and then anything.
    short Length(int least, int most) {
        static constexpr short odd[] = {-32768, -1, 0, 1, 2, 5, 4095, 4096, 32767};
        return One_In(20) ? Any(odd) : static_cast<short>(Between(least, most));
    }
    float Number() {
        constexpr float huge = std::numeric_limits<float>::infinity();
        static constexpr float odd[] = {0, -1, 1e-30F, 3e38F, -3e38F, 16777216.0F, huge, -huge, NAN};
        return One_In(6) ? Any(odd) : static_cast<float>(Between(-100, 1000)) / 8;
    }
    unsigned long Flags() { return One_In(3) ? 0 : One_In(2) ? 1UL << Below(32) : Bits() & Bits() & Bits(); }
    const char* Text() {
        static const std::string longest(3000, 'm');
        static const char* const texts[] = {nullptr,
                                            "",
                                            "Name",
                                            "A&B &&\tx",
                                            "%s%n%d",
                                            "1e9",
                                            "7",
                                            "\x01 blue \xF1 bold\nnext\r\n\n",
                                            "\x80\xFF",
                                            longest.c_str(),
                                            "A caption that is wider than most controls are"};
        return Any(texts);
    }

  private:
    std::mt19937 engine;
} dice;

void Copy_To_Memory(auto copy) {
    const HDC memory = CreateCompatibleDC(nullptr);
    copy(memory, RECT{0, 0, dice.Length(0, 400), dice.Length(0, 400)});
    DeleteDC(memory);
}

/// The window of a run, and what must not change on it.
class Stage {
  public:
    Stage() : mask(Size()) { Point(nullptr); }
    ~Stage() { Close_All(); }
    Stage(const Stage&) = delete;
    Stage& operator=(const Stage&) = delete;

    /// Nothing that was painted so far counts. What was painted in a batch shows later.
    void Begin() {
        base = Picture(window);
        mask.assign(Size(), Is_Open());
    }
    void Allow(int left, int right, int bottom, int top) {
        left = std::max(left, 0), right = std::min(right, base.Width() - 1);
        for (int y = std::max(bottom, 0); y <= std::min(top, base.Height() - 1) && left <= right; ++y) {
            const auto row = mask.begin() + (base.Height() - 1 - y) * base.Width();
            std::fill(row + left, row + right + 1, char{true});
        }
    }
    void Check_Pixels() {
        const Picture now(window);
        for (std::size_t i = 0; i < mask.size(); ++i) {
            if (mask[i] || now.Pixels()[i] == base.Pixels()[i]) continue;
            const int place = static_cast<int>(i);
            Fail("painted at column " + std::to_string(place % now.Width()) + ", row " +
                 std::to_string(place / now.Width()) + " from the top, outside of all controls");
        }
        Begin();
    }
    void Check_Locks() const {
        if (Critical_Flag && Critical.OwningThread) Fail("the lock is held");
        if (Z_DC || Z_Window) Fail("a surface is left open");
    }

    /// Opens a surface, or closes the last one.
    void Change_Surfaces() {
        if (open.size() < 4 && dice.One_In(2)) {
            static constexpr char kinds[] = {'D', 'B', 'F', 'P', 'H'};
            Open(dice.Any(kinds));
        } else {
            Close_Last();
        }
        if (open.empty() && dice.One_In(4)) Resize();
    }
    void Close_All() {
        while (!open.empty())
            Close_Last();
    }
    /// Number of sizes that the window has had; with a new one it shows nothing.
    int Sizes() const { return sizes; }
    bool Is_Open() const { return !open.empty(); }

    /// Puts the pointer somewhere, often at a control or its edge.
    void Point(const Tools* control) const {
        if (control && !dice.One_In(4)) {
            window.Point_At(control->X + dice.Between(-1, std::max(control->Width + 1, 0)),
                            control->Y + dice.Between(-1, std::max(control->Height + 1, 0)));
        } else {
            window.Point_At(dice.Between(-20, 280), dice.Between(-20, 200));
        }
    }
    // A context of its own would keep what the pairs of the application set in it.
    Test_Window window{Usual_Client.cx, Usual_Client.cy};

  private:
    std::size_t Size() const { return static_cast<std::size_t>(base.Width() * base.Height()); }
    void Open(char kind) {
        const RECT area{dice.Between(-9, 200), dice.Between(-9, 100), dice.Between(0, 300),
                        dice.Between(0, 200)};
        if (kind == 'D') Begin_Draw(window, nullptr);
        if (kind == 'B') Begin_Batch(window);
        if (kind == 'F') Begin_Batch(window, area, 0x808080), Allow(0, 9999, 0, 9999);
        if (kind == 'P' && !Begin_Print(window, 0x404040)) return;
        if (kind == 'H') Begin_Hold(window);
        open += kind;
    }
    void Close_Last() {
        if (open.empty()) return;
        const char kind = open.back();
        open.pop_back();
        if (kind == 'H') return End_Hold(window);
        if (kind == 'D') {
            if (dice.One_In(2)) Clip_Rect(dice.Between(-9, 100), 5, dice.Length(0, 200), dice.Length(0, 99));
            return End_Draw();
        }
        if (kind == 'P') Copy_To_Memory([](HDC memory, const RECT& place) { Show_Batch(memory, place); });
        End_Batch();
    }
    void Resize() {
        const bool usual = dice.One_In(2);
        window.Resize(usual ? Usual_Client.cx : dice.Between(0, 300),
                      usual ? Usual_Client.cy : dice.Between(0, 200));
        window.Refill();
        Begin();
        ++sizes;
    }

    Picture base{window};
    std::vector<char> mask;
    int sizes = 0;
    std::string open;
};

/// What a control paints at most: what is not made of parts is not cut. Its frames need room, upright
/// captions may be higher, and tabs join with what is beside them.
template <class Control>
void Allow(Stage& stage, const Control& control, int beyond = 0) {
    constexpr bool is_plain = std::is_same_v<Control, Boxs> || std::is_same_v<Control, Buttons>;
    constexpr bool is_tab = std::is_same_v<Control, TabItems> || std::is_same_v<Control, Tabs>;
    const int frames = 2 * (8 + 2 + std::max(std::abs(int{control.Border}), int{BORDER}));
    int x = beyond, y = beyond;
    if (is_plain || is_tab || std::is_same_v<Control, Labels>) {
        x += control.Width > frames ? 3 : 3 + frames;
        y += control.Flag & FLAG_VERTICAL ? 9999 : control.Height > frames ? 3 : 3 + frames;
    }
    if constexpr (std::is_same_v<Control, Texts>) {
        // The output lies within the border: one below 0 puts it around the field, which has always been so.
        const int around = std::max(0, -int{control.Border});
        x += around, y += around;
    }
    if constexpr (std::is_same_v<Control, Tabs>) {
        for (TabItems** item = control.Item; item && *item; ++item)
            Allow(stage, **item, beyond);
    }
    stage.Allow(control.X - x, control.X + control.Width + x, control.Y - y, control.Y + control.Height + y);
}

void Drop_Images(Tools& control) {
    control.Graph_Normal = static_cast<unsigned long*>(control.Free(control.Graph_Normal));
    control.Graph_Select = static_cast<unsigned long*>(control.Free(control.Graph_Select));
}

/// Gives a control another place, and the images that fit it.
void Place_Anywhere(Tools& control) {
    Drop_Images(control);
    control.X = dice.Length(-30, 220), control.Y = dice.Length(-30, 150);
    control.Width = dice.Length(0, 160), control.Height = dice.Length(0, 120);
    if (control.Width > 500 && control.Height > 500) control.Height = 20;  // shading of half a gigabyte
    if (control.Width > 500 || control.Height > 500) return;
    if (dice.One_In(4)) control.Alloc_Graph_Normal(dice.Bits());
    if (dice.One_In(4)) control.Alloc_Graph_Select(dice.Bits());
}

/// Paints a control at a size for which `Init` has made nothing. Its images are too small for the next one.
template <class Control>
void Draw_Enlarged(Control& control) {
    if (control.Width < 1 || control.Height < 1) return;  // its parts are where it was before
    for (short* const length : {&control.Width, &control.Height})
        if (*length < 500) *length = static_cast<short>(*length + dice.Below(90));
    control.Draw();
    Drop_Images(control);
}

void Set_Caption(Tools& control) {
    const char* const text = dice.Text();
    dice.One_In(3) ? void(control.Set_Name(text ? "%s" : nullptr, text)) : void(control.Name = text);
}

/// Changes a field that every control has.
void Change_Common(Tools& control) {
    static constexpr const char* words[] = {nullptr, "", "Arial", "Courier New", "bold", "i", "No Such Face"};
    const int what = dice.Below(7);
    if (what == 0) control.Flag = dice.Flags();
    if (what == 1) Set_Caption(control);
    if (what == 2) control.Font_Size = dice.Length(6, 14), control.Font_Name = dice.Any(words);
    if (what == 3) control.Font_Weight = dice.Any(words), control.Font_Style = dice.Any(words);
    if (what == 4) control.Color = Colors(dice.Between(-9, 300), dice.Below(256), dice.Below(256));
    if (what == 5) control.Border = dice.Length(0, 9);
    if (what > 5) {
        control.Clip_X = dice.Length(0, 100), control.Clip_Y = dice.Length(0, 100);
        control.Clip_Width = dice.One_In(2) ? short{0} : dice.Length(0, 200);
        control.Clip_Height = dice.Length(0, 200);
    }
}

/// Changes a field that few classes have.
template <class Control>
void Change_Own(Control& control) {
    static const char* const labels[] = {"one", "two", "", "a longer label than the others", "five", nullptr};
    static const unsigned char enabled[] = {1, 0, 1, 1, 0, 1, 0};
    static const char* const formats[] = {nullptr, "%g", "%5.1f", "%s", "%n%f", "100 %%", "%.300f", "%*f"};
    if constexpr (requires { control.Start_Val; }) {
        control.Start_Val = dice.Number(), control.End_Val = dice.Number(), control.Step = dice.Number();
        control.Curs_Half = dice.Length(0, 20);
        if (dice.One_In(3)) control.Larg_Adjust(dice.Number(), dice.Number());
    }
    if constexpr (requires { control.Arrow_Dim; }) control.Arrow_Dim = dice.Length(0, 20);
    if constexpr (requires { control.Arrow_Size; }) {
        control.Arrow_Size = dice.Length(0, 20), control.Value_Width = dice.Length(0, 80);
    }
    if constexpr (requires { control.Num_Width; }) {
        control.Format = dice.Any(formats), control.Num_Width = dice.Length(0, 50);
        control.Lock(dice.Below(9));
    }
    if constexpr (requires { control.Lamp; }) control.Lamp = dice.Length(0, 4);
    if constexpr (requires { control.Slant; }) control.Slant = dice.Length(0, 20);
    if constexpr (requires { control.Shape; }) control.Shape = dice.Length(0, 17);
    if constexpr (requires { control.Tab_Height; }) control.Tab_Height = dice.Length(0, 90);
    if constexpr (requires { control.Item_Height; }) {
        control.Item_Height = dice.Length(0, 30), control.Slider_Width = dice.Length(0, 20);
    }
    if constexpr (requires { control.Bar_Dim; }) control.Bar_Dim = dice.Length(0, 20);
    if constexpr (requires { control.Enabled; }) {
        control.List = dice.One_In(9) ? nullptr : labels + dice.Below(6);
        control.Enabled = dice.One_In(2) ? nullptr : enabled;
        control.Line_Height = dice.Length(-5, 30);
    }
    if constexpr (requires { control.Grow(1, 0); }) {
        const int count = dice.One_In(9) ? dice.Between(-1, 300) : dice.Below(9);
        control.Grow(count, static_cast<int>(dice.Flags()));
        for (int i = 0; i < count && control.Item; ++i) {
            if (dice.One_In(2)) control.Item[i]->Name = dice.Text();
            if (dice.One_In(5)) Change_Common(*control.Item[i]);
        }
    }
    if constexpr (requires { control.Set("path"); }) {
        static const char* const paths[] = {nullptr, "c:\\windows", "C:\\no\\such", "", "c:\\users\\"};
        if (dice.One_In(4)) control.Set(dice.Any(paths));
    }
}

/// Gives it another value, its own or one that it cannot have.
template <class Control>
void Change_Value(Control& control) {
    const auto value = [&](auto& field) {
        using Value = std::remove_reference_t<decltype(field)>;
        if constexpr (std::is_floating_point_v<Value>)
            field = dice.One_In(2) ? control.Read() : dice.Number();
        else if (dice.One_In(2))
            field = static_cast<Value>(control.Read());
        else
            field =
                dice.One_In(9) ? static_cast<Value>(dice.Bits()) : static_cast<Value>(dice.Between(-1, 8));
    };
    if constexpr (requires { control.Val; }) value(control.Val);
    if constexpr (requires { control.Value; }) value(control.Value);
    if constexpr (requires { control.Current = short{}; }) value(control.Current);
}

void Type(Texts& field) {
    static constexpr int special[] = {8,       9,        13,        27,      VK_LEFT, VK_RIGHT, VK_UP,
                                      VK_DOWN, VK_PRIOR, VK_DELETE, VK_HOME, VK_END,  'C',      'X'};
    static constexpr int bits[] = {0, KEY_NAVIGATION, KEY_SHIFT, KEY_CONTROL, KEY_KEYPAD, KEY_ALT};
    const char* const text = dice.Text();
    const int what = dice.Below(9);
    if (what == 0) field.Read(text ? "%s" : nullptr, text);
    if (what == 1) field.Update();
    if (what == 2) field.Show_Caret(static_cast<Text_Caret>(dice.Below(3)));
    if (what == 3) field.OverWrite(text ? "%s" : nullptr, text);
    if (what == 4) field.Write("%d\n%s", step.load(), text ? text : "");
    if (what == 5) field.Input(dice.Any(special) | dice.Any(bits) | dice.Any(bits));
    if (what == 6 && dice.One_In(20)) field.Cleanup();
    if (what > 6) field.Input(dice.Below(256));
}

/// Does something with a control that an application does.
template <class Control>
void Act(Control& control, const Stage& stage) {
    static constexpr int kinds[] = {EVENT_MOVE, EVENT_DRAG, EVENT_PRESS, EVENT_TEST, 3, 8};
    const int what = dice.Below(12);
    if (what == 0 && dice.One_In(4)) return Draw_Enlarged(control);
    if (what == 0) Place_Anywhere(control), control.Init(stage.window);
    if (what == 1) Change_Common(control), control.Init(stage.window);
    if (what == 2)
        Change_Own(control), control.Init(dice.One_In(2) ? nullptr : static_cast<HWND>(stage.window));
    if (what == 3) control.Draw();
    if (what == 4) {
        if constexpr (requires { control.Adjust(); }) Change_Value(control), control.Adjust();
    }
    if (what == 5) {
        if constexpr (requires { control.Deselect(); }) control.Deselect();
    }
    if (what == 6) {
        if constexpr (requires { control.Scroll(short{}); }) control.Scroll(dice.Length(-3, 3));
    }
    if (what == 7) {
        if constexpr (requires { control.Row_Place(0); }) {
            const int row = dice.Between(-1, std::min(control.Nb_Row, 12));
            dice.One_In(8) ? void(control.Open_Row(row, dice.One_In(2))) : control.Bring_Into_View(row);
        }
        if constexpr (requires { control.Item_Place(0); }) control.Bring_Into_View(dice.Between(-1, 9));
        if constexpr (std::is_same_v<Control, Texts>) Type(control);
    }
    if (what == 8) control.Veil = static_cast<unsigned char>(dice.One_In(3) ? dice.Below(3) : 0);
    if (what > 8) {
        stage.Point(&control);
        if constexpr (requires { control.Select(0); }) {
            const int answer = control.Select(dice.Any(kinds) | (dice.Below(8) << 4));
            if constexpr (requires { control.Adjust(); }) {
                if (answer) Change_Value(control), control.Adjust();
            }
        }
    }
}

/// Two controls of a class, which become copies of each other now and then.
template <class Control>
class Pair {
  public:
    explicit Pair(Stage& where) : stage(where) {}

    void Act_Once() {
        std::unique_ptr<Control>& one = controls[dice.Below(2)];
        const std::unique_ptr<Control>& other = controls[dice.Below(2)];
        if (!one) one = std::make_unique<Control>(), Dress(*one);
        Allow_Both();
        if (other && dice.One_In(25)) {
            dice.One_In(2) ? void(*one = *other) : void(one = std::make_unique<Control>(*other));
            copied = true;
        } else if (dice.One_In(60)) {
            one.reset();
        } else {
            Act(*one, stage);
        }
        Allow_Both();
    }

  private:
    void Dress(Control& control) const {
        if (dice.One_In(20)) return;  // is used before `Init`
        Place_Anywhere(control);
        for (int i = dice.Below(6); i > 0; --i)
            Change_Common(control);
        Change_Own(control);
        control.Init(stage.window);
    }
    void Allow_Both() {
        for (const auto& control : controls)
            if (control) Allow(stage, *control);
        // Items that copies share are where the one that was initialised last has them.
        if constexpr (requires { controls[0]->Item; })
            if (copied) stage.Allow(0, 9999, 0, 9999);
    }

    Stage& stage;
    std::unique_ptr<Control> controls[2];
    bool copied = false;
};

/// A host with a control of each class.
class Hosted {
  public:
    explicit Hosted(Stage& where) : stage(where), host(where.window) {
        if (dice.One_In(2)) host.Hold();
        Each([this](auto& control) {
            Place_Anywhere(control), Change_Own(control);
            Add(control);
        });
        host.Init_All();
        Repaint();
    }

    void Act_Once() {
        if (stage.Sizes() != sizes) Repaint();
        Allow_All();
        One([this](auto& control) {
            const int what = dice.Below(6);
            if (what == 0) Change_Host(control);
            if (what == 1) {
                const RECT place = control.Rect;
                Act(control, stage);
                if (EqualRect(&place, &control.Rect)) return;
                host.Focus(nullptr), host.Refresh();  // ring and picture show where it was
                Repaint();
            }
            if (what == 2) return Repaint();
            if (what > 2) Send(control);
        });
        Allow_All();
        if (Is_Inspected(host)) stage.Begin();  // its outline is where it likes
    }

  private:
    using Controls = std::tuple<Boxs, Buttons, CheckLists, Color_Edit, DirTrees, Hue_Edit, Labels, Lists,
                                Selects, Sliders, TabItems, Tabs, Texts, Valuators>;

    void Each(auto visit) {
        std::apply([&](auto&... all) { (visit(all), ...); }, controls);
    }
    void One(auto visit) {
        int left = dice.Below(std::tuple_size_v<Controls>);
        Each([&](auto& control) {
            if (left-- == 0) visit(control);
        });
    }
    void Allow_All() {
        const int ring = 2;  // around what has the keyboard
        Each([this, ring](auto& control) { Allow(stage, control, ring); });
    }
    void Repaint() {
        InvalidateRect(stage.window, nullptr, FALSE);
        Take(WM_PAINT, 0, 0);
        stage.Begin();
        sizes = stage.Sizes();
    }
    void Take(UINT message, WPARAM wparam, LPARAM lparam) {
        LRESULT result = 0;
        host.Message(message, wparam, lparam, result);
    }

    template <class Control>
    void Add(Control& control) {
        const int what = dice.Below(4);
        if (what == 0) host.Add(control);
        if (what == 1) {
            host.Add(control, [this](Control& told) {
                if (dice.One_In(9)) host.Remove(told);
            });
        }
        if (what == 2) {
            host.Add(control, [this](Control& told, const Host_Event&) {
                if (dice.One_In(9)) Change_Host(told);
            });
        }
        if (what > 2) {
            host.Add(control,
                     [](Control&, const Host_Event& event) { return event.answer && dice.One_In(2); });
        }
    }

    template <class Control>
    void Change_Host(Control& control) {
        Tabs& tabs = std::get<Tabs>(controls);
        const bool yes = dice.One_In(2);
        const int what = dice.Below(16);
        if (what == 0) host.Remove(control);
        if (what == 1) Add(control), host.Init(control);
        if (what == 2) host.Set_Shown(control, yes);
        if (what == 3) host.Set_Enabled(control, yes);
        if (what == 4) host.Set_Page(tabs, dice.Below(4), control);
        if (what == 5) host.Focus(yes ? &control : nullptr);
        if (what == 6) host.Refresh(control);
        if (what == 7) host.Set_Mnemonic(control, dice.Any("AZ09"));
        if (what == 8) yes ? host.Set_Default(&control) : host.Set_Cancel(&control);
        if (what == 9) host.Describe(control, dice.Text());
        if (what == 10) host.Tell_Changed(control);
        if (what == 11 && !stage.Is_Open()) {  // else it might be painted for a printer alone
            host.Set_Background(Colors(dice.Below(256), 99, 99)), Repaint();
        }
        if (what == 12) Inspect(host, dice.One_In(4));
        if (what == 13) Work_Parts();
        if (what == 14) {
            Copy_To_Memory([this](HDC memory, const RECT& place) { host.Paint_Into(memory, place); });
        }
        if (what > 14 && dice.One_In(30)) host.Clear();
    }
    void Work_Parts() {
        Part_Window& parts = host.Parts();
        const char* const name = dice.Text();
        if (!name) return;
        Press_Part(parts, name), Read_Part(parts, name), Write_Part(parts, name, dice.Text());
    }
    /// Sends a message as the system does, with the pointer often on a control.
    void Send(const Tools& control) {
        static constexpr UINT pointer[] = {WM_MOUSEMOVE, WM_MOUSEMOVE,     WM_LBUTTONDOWN,
                                           WM_LBUTTONUP, WM_LBUTTONDBLCLK, WM_RBUTTONDOWN,
                                           WM_RBUTTONUP, WM_MBUTTONDOWN,   WM_MBUTTONUP};
        static constexpr UINT keys[] = {WM_KEYDOWN, WM_KEYDOWN, WM_CHAR, WM_KEYUP, WM_SYSKEYDOWN, WM_SYSCHAR};
        static constexpr UINT others[] = {WM_MOUSELEAVE, WM_CAPTURECHANGED, WM_SETFOCUS, WM_KILLFOCUS,
                                          WM_ERASEBKGND, WM_SIZE,           WM_TIMER,    WM_SETTINGCHANGE};
        static constexpr int special[] = {VK_TAB, VK_TAB,  VK_RETURN, VK_ESCAPE, VK_SPACE, VK_LEFT, VK_DOWN,
                                          VK_END, VK_HOME, VK_NEXT,   VK_MENU,   VK_F2,    'A',     'Z'};
        stage.Point(&control);
        POINT at{ZCursor_X, ZCursor_Y};
        const LPARAM screen = MAKELPARAM(at.x, at.y);
        ScreenToClient(stage.window, &at);
        const LPARAM client = MAKELPARAM(at.x, at.y);
        const int what = dice.Below(8);
        if (what == 0)
            Take(dice.One_In(2) ? WM_MOUSEWHEEL : WM_MOUSEHWHEEL,
                 MAKEWPARAM(0, static_cast<WORD>(dice.Between(-5, 5) * 60)), screen);
        if (what == 1 || what == 2)
            Take(dice.Any(keys), static_cast<WPARAM>(dice.One_In(3) ? dice.Below(256) : dice.Any(special)),
                 0);
        if (what == 3) Take(dice.Any(others), 0, 0);
        if (what > 3)
            Take(dice.Any(pointer), dice.Bits() & (MK_LBUTTON | MK_RBUTTON | MK_MBUTTON | MK_SHIFT), client);
    }

    Stage& stage;
    int sizes = 0;  // those that the window has had when it was painted
    Controls controls;
    Host host;
};

template <class Scene>
void Play(const char* name, Stage& stage) {
    subject = name;
    stage.Begin();
    {
        Scene scene(stage);
        for (int i = 1; i <= Steps_Of_Scene; ++i) {
            ++step;
            if (dice.One_In(12)) stage.Change_Surfaces();
            scene.Act_Once();
            if (stage.Is_Open()) continue;
            stage.Check_Locks();
            if (i % 10 == 0) stage.Check_Pixels();
        }
    }
    stage.Close_All();
    stage.Check_Locks();
}

void Play_Any(Stage& stage) {
    using Scene = void (*)(const char*, Stage&);
    static constexpr std::pair<const char*, Scene> scenes[] = {
        {"Boxs", Play<Pair<Boxs>>},
        {"Buttons", Play<Pair<Buttons>>},
        {"CheckLists", Play<Pair<CheckLists>>},
        {"Color_Edit", Play<Pair<Color_Edit>>},
        {"DirTrees", Play<Pair<DirTrees>>},
        {"Hue_Edit", Play<Pair<Hue_Edit>>},
        {"Labels", Play<Pair<Labels>>},
        {"Lists", Play<Pair<Lists>>},
        {"Selects", Play<Pair<Selects>>},
        {"Sliders", Play<Pair<Sliders>>},
        {"TabItems", Play<Pair<TabItems>>},
        {"Tabs", Play<Pair<Tabs>>},
        {"Texts", Play<Pair<Texts>>},
        {"Valuators", Play<Pair<Valuators>>},
        {"Host", Play<Hosted>},
        {"Host", Play<Hosted>},
    };
    const auto& [name, play] = dice.Any(scenes);
    play(name, stage);
}

struct Held {
    int blocks = Live_Blocks(), objects = Gdi_Objects();
    bool Has_More_Than(const Held& before) const {
        return blocks > before.blocks || objects > before.objects;
    }
};

/// Plays the scenes of one seed. What is left over at the end is lost only when it is left a second time,
/// too: the library and the system make some things once.
void Run(int steps) {
    Held before;
    for (const bool again : {false, true}) {
        dice.Start(seed);
        step = 0;
        {
            Stage stage;
            while (step < steps)
                Play_Any(stage);
        }
        Tools_Lib_Cleanup();
        for (MSG message; PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE);) {
        }
        const Held after;
        if (!after.Has_More_Than(before)) return;
        if (again)
            Fail(std::to_string(after.blocks - before.blocks) + " blocks and " +
                 std::to_string(after.objects - before.objects) + " handles are left over");
        before = after;
    }
}

}  // namespace

int main(int count, char** arguments) {
    int steps = 2000;
    for (int i = 1; i + 1 < count; i += 2) {
        if (std::strcmp(arguments[i], "--steps") == 0) steps = std::atoi(arguments[i + 1]);
        if (std::strcmp(arguments[i], "--seed") == 0)
            seed = static_cast<unsigned>(std::atoi(arguments[i + 1]));
    }
    SetUnhandledExceptionFilter(Tell_Of_Crash);
    HANDLE timer;
    constexpr DWORD Longest = 60'000;
    CreateTimerQueueTimer(&timer, nullptr, Tell_Of_Hang, nullptr, Longest, Longest, WT_EXECUTEDEFAULT);
    Error_Set_Handler([](HWND, int, const char*) {});
    int done = 0;
    for (; done < steps; done += step, ++seed)
        Run(std::min(steps - done, Steps_Of_Run));
    std::printf("%d steps, nothing found\n", done);
}
