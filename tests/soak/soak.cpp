// soak [--steps N] [--seed N]: uses every class at random, rightly and wrongly: nothing outside the controls
// is painted, nothing stays locked, nothing is lost. Each run of 1000 steps has a seed, which replays it.
#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <memory>
#include <random>
#include <string>
#include <tuple>
#include <typeinfo>
#include <vector>

#include "Galdren_Host.h"
#include "Galdren_Tools.h"
#include "Galdren_Util.h"
#include "host/design.h"
#include "tests/support/spy.h"
#include "tests/support/window.h"

using namespace galdren_test;

namespace {

constexpr int Steps_Of_Run = 1000, Steps_Of_Scene = 100;

/// Where the soak is, for who has to tell.
unsigned seed = 1;
int step = 0;
const char* scene_name = "";

[[noreturn]] void Fail(const std::string& what) {
    std::printf("%s, step %d: %s\n", scene_name, step, what.c_str());
    std::fflush(stdout);
    std::_Exit(EXIT_FAILURE);
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
        static const char* const texts[] = {nullptr,        "",         "7",
                                            "1e9",          "Name",     "A&B &&\tx",
                                            "%s%n%d",       "\x80\xFF", "\x01 blue \xF1 bold\nnext\r\n\n",
                                            longest.c_str()};
        return Any(texts);
    }

  private:
    std::mt19937 engine;
} dice;

using Controls = std::tuple<Boxs, Buttons, CheckLists, Color_Edit, DirTrees, Hue_Edit, Labels, Lists, Selects,
                            Sliders, TabItems, Tabs, Texts, Valuators>;

/// What an application paints on.
struct Surface {
    void (*open)(HWND window);
    void (*close)(HWND window);
};

void Clip_And_End_Draw(HWND) {
    if (dice.One_In(2)) Clip_Rect(dice.Between(-9, 100), 5, dice.Length(0, 200), dice.Length(0, 99));
    End_Draw();
}

constexpr Surface surfaces[] = {
    {[](HWND window) { Begin_Draw(window, nullptr); }, Clip_And_End_Draw},
    {[](HWND window) { Begin_Batch(window); }, [](HWND) { End_Batch(); }},
    {[](HWND window) { Begin_Hold(window); }, [](HWND window) { End_Hold(window); }}};

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
    void Allow_All() { mask.assign(Size(), true); }
    /// Lets a control paint a generous way around, for frames, upright captions and what joins; a set of tabs
    /// also around each of these, which may be larger than the set.
    template <class Control>
    void Allow(const Control& control) {
        const bool upright = (control.Flag & FLAG_VERTICAL) != 0;
        const int letter = upright ? 2 * std::max(control.Font_Size, control.Font_Size_Last) : 0;
        const int x = 24 + 2 * std::abs(int{control.Border}) + letter, y = upright ? 9999 : x;
        Allow(control.X - x, control.X + control.Width + x, control.Y - y, control.Y + control.Height + y);
        if constexpr (std::is_same_v<Control, Tabs>)
            for (TabItems** item = control.Item; item && *item; ++item)
                Allow(**item);
    }
    void Check_Pixels() {
        const Picture now(window);
        const auto width = static_cast<std::size_t>(now.Width());
        for (std::size_t i = 0; i < mask.size(); ++i)
            if (!mask[i] && now.Pixels()[i] != base.Pixels()[i])
                Fail("painted far from all controls, at column " + std::to_string(i % width) + " of row " +
                     std::to_string(i / width) + " from the top");
        Begin();
    }
    void Check_Locks() const {
        if (Critical_Flag && Critical.OwningThread) Fail("the lock is held");
        if (Z_DC || Z_Window) Fail("a surface is left open");
    }

    /// Opens a surface, or closes the last one.
    void Change_Surfaces() {
        if (open.size() < 4 && dice.One_In(2)) {
            open.push_back(dice.Any(surfaces));
            open.back().open(window);
        } else if (Is_Open()) {
            open.back().close(window);
            open.pop_back();
        }
    }
    void Close_All() {
        for (; Is_Open(); open.pop_back())
            open.back().close(window);
    }
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
    Test_Window window{260, 180};

  private:
    std::size_t Size() const { return static_cast<std::size_t>(base.Width() * base.Height()); }
    void Allow(int left, int right, int bottom, int top) {
        left = std::max(left, 0), right = std::min(right, base.Width() - 1);
        for (int y = std::max(bottom, 0); y <= std::min(top, base.Height() - 1) && left <= right; ++y) {
            const auto row = mask.begin() + (base.Height() - 1 - y) * base.Width();
            std::fill(row + left, row + right + 1, char{true});
        }
    }
    Picture base{window};
    std::vector<char> mask;
    std::vector<Surface> open;
};

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

/// Changes a field that every control has.
void Change_Common(Tools& control) {
    static constexpr const char* words[] = {nullptr, "", "Arial", "Courier New", "bold", "i", "No Such Face"};
    const char* const text = dice.Text();
    const int what = dice.Below(6);
    if (what == 0) control.Flag = dice.Flags();
    if (what == 1) control.Name = text;
    if (what == 2) control.Set_Name(text ? "%s" : nullptr, text);
    if (what == 3) control.Font_Name = dice.Any(words);
    if (what == 4) control.Font_Weight = dice.Any(words), control.Font_Style = dice.Any(words);
    if (what == 5) control.Color = Colors(dice.Between(-9, 300), dice.Below(256), dice.Below(256));
}

/// Changes some of the lengths that a control has beside its place.
template <class Control>
void Change_Lengths(Control& control) {
    constexpr std::size_t Of_Place = 4;
    galdren::Design_Fields fields;
    galdren::Add_Common_Design(control, fields), galdren::Add_Design(control, fields);
    for (std::size_t i = Of_Place; i < fields.lengths.Count(); ++i)
        if (dice.One_In(4)) *fields.lengths[i] = dice.Length(0, dice.One_In(3) ? 100 : 12);
}

/// Changes a field that few classes have.
template <class Control>
void Change_Own(Control& control) {
    static const char* const labels[] = {"one", "two", "", "a longer label than the others", "five", nullptr};
    static const unsigned char enabled[] = {1, 0, 1, 1, 0, 1, 0};
    static const char* const formats[] = {nullptr, "%g", "%5.1f", "%s", "%n%f", "100 %%", "%.300f", "%*f"};
    Change_Lengths(control);
    if constexpr (requires { control.Start_Val; }) {
        control.Start_Val = dice.Number(), control.End_Val = dice.Number(), control.Step = dice.Number();
        control.Val = dice.Number();
        if (dice.One_In(3)) control.Larg_Adjust(dice.Number(), dice.Number());
    }
    if constexpr (requires { control.Format; })
        control.Format = dice.Any(formats), control.Lock(dice.Below(9));
    if constexpr (requires { control.Lamp; }) control.Lamp = dice.Length(0, 4);
    if constexpr (requires { control.Shape; }) control.Shape = dice.Length(0, 17);
    if constexpr (requires { control.Enabled; }) {
        control.List = dice.One_In(9) ? nullptr : labels + dice.Below(6);
        control.Enabled = dice.One_In(2) ? nullptr : enabled;
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
        if (dice.One_In(2))
            field = static_cast<Value>(control.Read());
        else
            field = static_cast<Value>(dice.Length(-1, 8));
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
    if (what == 4) field.Write("%d\n%s", step, text ? text : "");
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
            if (control) stage.Allow(*control);
        // Items that copies share are where the one that was initialised last has them.
        if constexpr (requires { controls[0]->Item; })
            if (copied) stage.Allow_All();
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
        Allow();
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
        Allow();
        if (Is_Inspected(host)) stage.Begin();  // its outline is where it likes
    }

  private:
    void Each(auto visit) {
        std::apply([&](auto&... all) { (visit(all), ...); }, controls);
    }
    void One(auto visit) {
        int left = dice.Below(std::tuple_size_v<Controls>);
        Each([&](auto& control) {
            if (left-- == 0) visit(control);
        });
    }
    void Allow() {
        Each([this](auto& control) { stage.Allow(control); });
    }
    void Repaint() {
        InvalidateRect(stage.window, nullptr, FALSE);
        Take(WM_PAINT, 0, 0);
        stage.Begin();
    }
    void Take(UINT message, WPARAM wparam, LPARAM lparam) {
        LRESULT result = 0;
        host.Message(message, wparam, lparam, result);
    }

    template <class Control>
    void Add(Control& control) {
        if (dice.One_In(4)) return host.Add(control);
        host.Add(control, [this](Control& told, const Host_Event& event) {
            const bool refuses = event.answer && dice.One_In(3);
            if (dice.One_In(9)) Change_Host(told);
            return refuses;
        });
    }

    template <class Control>
    void Change_Host(Control& control) {
        Tabs& tabs = std::get<Tabs>(controls);
        const bool yes = dice.One_In(2);
        const int what = dice.Below(15);
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
        if (what == 11) host.Set_Background(Colors(dice.Below(256), 99, 99)), Repaint();
        if (what == 12) Inspect(host, dice.One_In(4));
        if (const char* const name = dice.Text(); what == 13 && name) {
            Part_Window& parts = host.Parts();
            Press_Part(parts, name), Read_Part(parts, name), Write_Part(parts, name, dice.Text());
        }
        if (what > 13 && dice.One_In(30)) host.Clear();
    }
    /// Sends a message as the system does, with the pointer often on a control.
    void Send(const Tools& control) {
        static constexpr UINT messages[] = {
            WM_MOUSEMOVE,   WM_MOUSEMOVE, WM_LBUTTONDOWN, WM_LBUTTONUP,     WM_LBUTTONDBLCLK,
            WM_RBUTTONDOWN, WM_RBUTTONUP, WM_MBUTTONDOWN, WM_MBUTTONUP,     WM_MOUSEWHEEL,
            WM_MOUSEHWHEEL, WM_KEYDOWN,   WM_KEYDOWN,     WM_CHAR,          WM_KEYUP,
            WM_SYSKEYDOWN,  WM_SYSCHAR,   WM_MOUSELEAVE,  WM_KILLFOCUS,     WM_SETFOCUS,
            WM_ERASEBKGND,  WM_SIZE,      WM_TIMER,       WM_SETTINGCHANGE, WM_CAPTURECHANGED};
        static constexpr int keys[] = {VK_TAB, VK_TAB,  VK_RETURN, VK_ESCAPE, VK_SPACE, VK_LEFT, VK_DOWN,
                                       VK_END, VK_HOME, VK_NEXT,   VK_MENU,   VK_F2,    'A',     'Z'};
        stage.Point(&control);
        POINT at{ZCursor_X, ZCursor_Y};
        const UINT message = dice.Any(messages);
        if (message == WM_MOUSEWHEEL || message == WM_MOUSEHWHEEL) {
            const auto turned = static_cast<WORD>(dice.Between(-5, 5) * 60);
            Take(message, MAKEWPARAM(0, turned), MAKELPARAM(at.x, at.y));
        } else if (message >= WM_MOUSEFIRST && message <= WM_MOUSELAST) {
            ScreenToClient(stage.window, &at);
            Take(message, dice.Bits() & (MK_LBUTTON | MK_RBUTTON | MK_MBUTTON | MK_SHIFT),
                 MAKELPARAM(at.x, at.y));
        } else if (message >= WM_KEYFIRST && message <= WM_KEYLAST) {
            Take(message, static_cast<WPARAM>(dice.One_In(3) ? dice.Below(256) : dice.Any(keys)), 0);
        } else {
            Take(message, 0, 0);
        }
    }

    Stage& stage;
    Controls controls;
    Host host;
};

template <class Scene>
void Play(Stage& stage) {
    scene_name = typeid(Scene).name();
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

template <class... Control>
void Play_Any(Stage& stage, const std::tuple<Control...>*) {
    static constexpr void (*scenes[])(Stage&) = {Play<Pair<Control>>..., Play<Hosted>, Play<Hosted>};
    dice.Any(scenes)(stage);
}

struct Held {
    int blocks = Live_Blocks(), objects = Gdi_Objects();
};

/// Plays the scenes of one seed. What is left over at the end is lost only when it is left a second time,
/// too: the library and the system make some things once.
void Run(int steps) {
    std::printf("scripts/soak --seed %u --steps %d\n", seed, steps);
    std::fflush(stdout);  // also when it crashes or hangs
    Held before;
    for (const bool again : {false, true}) {
        dice.Start(seed);
        step = 0;
        {
            Stage stage;
            while (step < steps)
                Play_Any(stage, static_cast<const Controls*>(nullptr));
        }
        Tools_Lib_Cleanup();
        for (MSG message; PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE);) {
        }
        const Held after;
        if (after.blocks <= before.blocks && after.objects <= before.objects) return;
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
    Error_Set_Handler([](HWND, int, const char*) {});
    int done = 0;
    for (; done < steps; done += step, ++seed)
        Run(std::min(steps - done, Steps_Of_Run));
    std::printf("%d steps, nothing found\n", done);
}
