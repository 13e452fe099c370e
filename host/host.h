/// @file
/// Host: forwards the messages of one window to its controls, written once for every application.
///
/// The window procedure calls `Host::Message` with every message before it looks at the message itself. The
/// answer is true when the host took the message, and `result` is then what the window procedure returns;
/// after false the message goes on to the application and to `DefWindowProc`.
#pragma once

#if __cplusplus < 202002L && (!defined _MSVC_LANG || _MSVC_LANG < 202002L)
#error "The host needs C++20, for example -std=c++20 or /std:c++20"
#endif

#include <windows.h>

#include <concepts>
#include <functional>
#include <memory>
#include <type_traits>
#include <unordered_map>
#include <utility>
#include <vector>

#include "../Galdren_Tools.h"
#include "place_index.h"

/// Draws the controls of one window and tells them of the pointer and the keys.
///
/// The host does not own controls: each must outlive the host or be removed. They are painted in the order in
/// which they were added, and the last one added is the topmost under the pointer. A passive control hides
/// what it covers from the pointer and gets no events itself; a control without `Select`, such as a label,
/// is only drawn. A control with `Input` takes keys: one of these has the keyboard focus.
/// For the thread that runs the window.
///
/// Controls and the whole host may be changed from inside every callback: `Remove`, `Clear`, `Add`.
class Host {
  public:
    /// Serves the window `served`, which has to exist already but need not be visible yet. Reports at level 2
    /// when the application was compiled with other headers than the library (`Check_Tools_Layout`).
    explicit Host(HWND served) : window(served) { Check_Tools_Layout(); }
    ~Host();
    Host(const Host&) = delete;
    Host& operator=(const Host&) = delete;

    /// Has the library keep a picture of the window, until the host goes: from then on WM_PAINT is one copy,
    /// and only what changed is painted before. The application promises that the window changes in no other
    /// way than by members of controls, which paint into the picture, and by this host: what somebody else
    /// paints is lost, and what the application's own drawing would show otherwise now has to be told with
    /// `Refresh`. A new size, and every change of the host (another control, background or drawing), has the
    /// next WM_PAINT paint everything. Without memory for the picture the window is painted as before.
    void Hold();

    /// Colour behind the controls; grey (170, 170, 170) until it is set. Takes effect with the next paint.
    void Set_Background(Colors color);

    /// Called at every paint, and not to destroy the host, for the application's own drawing, above the
    /// background and below the controls. The surface is taken (`Z_DC` is ready) and clipped to the part that
    /// is painted anew.
    void Set_On_Paint(std::function<void()> draw);

    /// Adds a control on top of those before. It is initialised by the application or by `Init_All`.
    /// @param control    a control of any class
    /// @param on_press   called when the left button goes down on the control and its `Select` answers 1
    /// @param on_change  called when the control's `Select` answers 1 to the pointer dragged with the left
    ///                   button, after its `Scroll` for the wheel, and after its `Input` for a key
    template <std::derived_from<Tools> Control>
    void Add(Control& control, std::type_identity_t<std::function<void(Control&)>> on_press = {},
             std::type_identity_t<std::function<void(Control&)>> on_change = {}) {
        std::shared_ptr<const Handlers> handlers;
        if (on_press || on_change)
            handlers = std::make_shared<Handlers_For<Control>>(std::move(on_press), std::move(on_change));
        entries.push_back({&control, &class_calls<Control>, std::move(handlers)});
        stale = true;
    }

    /// Forgets a control; one that was never added is ignored. What it painted stays until the next paint.
    void Remove(const Tools& control);
    /// Forgets all controls.
    void Clear();

    /// `Init` of every control with the window of this host.
    void Init_All();

    /// Has the rectangle of `control` painted anew with the next WM_PAINT: background, and every control
    /// that meets it. For changes that the control cannot show alone, such as another text of a label.
    void Refresh(const Tools& control);
    /// Has the whole window painted anew with the next WM_PAINT.
    void Refresh();

    /// The control that has the pointer: the topmost one under it, or the one pressed while a button is held;
    /// null when there is none.
    const Tools* Current() const { return current; }

    /// Called with the code of a key (see `Parse_Keyboard`; Escape is 27, and nothing is closed) when no
    /// control has the keyboard focus. Commands, which are keys with Ctrl or Alt and function keys, come here
    /// before the control that has the focus gets them.
    /// @param take  answers whether it took the key; when it destroyed the host it must answer true
    void Set_On_Key(std::function<bool(int)> take);

    /// Gives a control that takes keys the keyboard focus, or none with null. Another control is ignored.
    void Focus(const Tools* control);
    /// The control that has the keyboard focus, null when there is none. It keeps it while it is passive or
    /// has no size, and gets no keys meanwhile.
    const Tools* Focused() const { return focused; }
    /// What the last `Select` answered, for callbacks to which it is not all the same what it was but 0.
    int Answer() const { return answer; }

    /// Takes one message of the window.
    /// @return true when the window procedure is to return `result`, false when the message is not for the
    ///         host (`result` is then left alone)
    bool Message(UINT message, WPARAM wparam, LPARAM lparam, LRESULT& result);

  private:
    /// What a class of controls can do; null where the class has no such member.
    struct Class_Calls {
        void (*init)(Tools& control, HWND window);
        void (*draw)(Tools& control);
        int (*select)(Tools& control, int event);
        void (*scroll)(Tools& control, int steps);
        void (*input)(Tools& control, int key);
        int overhang;         // that it may paint beyond its rectangle, in pixels
        bool tells_of_moves;  // its `Init` is the library's, which counts the rectangles that it changes
    };

    struct Handlers {
        virtual ~Handlers() = default;
        virtual void Press(Tools& control) const = 0;
        virtual void Change(Tools& control) const = 0;
    };

    template <class Control>
    struct Handlers_For final : Handlers {
        using Callback = std::function<void(Control&)>;
        Handlers_For(Callback press, Callback change)
            : on_press(std::move(press)), on_change(std::move(change)) {}
        void Press(Tools& control) const override { Call(on_press, control); }
        void Change(Tools& control) const override { Call(on_change, control); }
        static void Call(const Callback& callback, Tools& control) {
            if (callback) callback(static_cast<Control&>(control));
        }
        Callback on_press;
        Callback on_change;
    };

    struct Entry {
        Tools* control;
        const Class_Calls* calls;
        std::shared_ptr<const Handlers> handlers;  // null without; kept alive by the call while one runs
    };

    static constexpr int Most_Overhang = 2;

    template <class Result, class Class, class... Arguments>
    static std::type_identity<Class> Class_Of(Result (Class::*)(Arguments...));
    template <class Class, class... Classes>
    static constexpr bool Is_One_Of = (std::same_as<Class, std::type_identity<Classes>> || ...);
    template <class Class>
    static constexpr bool Is_Of_Library =
        Is_One_Of<Class, Boxs, Buttons, CheckLists, Color_Edit, DirTrees, Hue_Edit, Labels, Lists, Selects,
                  Sliders, TabItems, Tabs, Texts, Valuators>;

    template <class Control>
    static constexpr Class_Calls Make_Calls() {
        Class_Calls calls{};
        calls.init = [](Tools& control, HWND target) { static_cast<Control&>(control).Init(target); };
        calls.draw = [](Tools& control) { static_cast<Control&>(control).Draw(); };
        // A tab joins with the page below and beside it.
        constexpr bool is_tab = std::derived_from<Control, Tabs> || std::derived_from<Control, TabItems>;
        calls.overhang = is_tab ? Most_Overhang : 0;
        if constexpr (requires { Class_Of(&Control::Init); })
            calls.tells_of_moves = Is_Of_Library<decltype(Class_Of(&Control::Init))>;
        if constexpr (requires(Control & c) { c.Select(0); }) {
            calls.select = [](Tools& control, int event) {
                return static_cast<int>(static_cast<Control&>(control).Select(event));
            };
        }
        if constexpr (requires(Control & c) { c.Scroll(0); }) {
            calls.scroll = [](Tools& control, int steps) {
                using Steps = Scroll_Argument<Control>;
                static_cast<Control&>(control).Scroll(
                    static_cast<Steps>(Wheel_Steps<Control>(control, steps)));
            };
        }
        if constexpr (requires(Control & c) { c.Input(0); }) {
            calls.input = [](Tools& control, int key) { static_cast<Control&>(control).Input(key); };
        }
        return calls;
    }

    /// A bar scrolls towards its start end, which is the lower one when it stands upright; the wheel turned
    /// away from the user goes up. The output of a text field starts at its bottom.
    template <class Control>
    static int Wheel_Steps(const Tools& control, int steps) {
        if (std::derived_from<Control, Texts>) return -steps;
        constexpr bool has_bar = std::derived_from<Control, Sliders> ||
                                 std::derived_from<Control, Valuators> || std::derived_from<Control, Lists>;
        return has_bar && control.Flag & FLAG_VERTICAL ? -steps : steps;
    }

    template <class Result, class Control, class Steps>
    static Steps Argument_Of(Result (Control::*)(Steps));
    /// Some classes scroll by a short, others by an int.
    template <class Control>
    using Scroll_Argument = decltype(Argument_Of(&Control::Scroll));

    template <class Control>
    static inline constexpr Class_Calls class_calls = Make_Calls<Control>();

    void Forget_Entries();
    void Mark(const RECT& area);
    const Entry* Find(const Tools* control) const;
    std::size_t Number_Of(const Entry& entry) const {
        return static_cast<std::size_t>(&entry - entries.data());
    }
    bool Is_As_Noted(std::size_t number) const;
    bool Are_Places_Noted() const;
    const galdren::Place_Index& Places() const;
    const Entry* At(POINT logical) const;
    static RECT Painted_Area(const Entry& entry);
    bool Is_Below(const Entry& entry, bool hidden) const;

    int Tell(const Entry& entry, int event, bool repaints);
    void Leave();
    bool Hand_Over(POINT logical);
    int Point(POINT client, int event);
    static void Notify(const Entry& entry, void (Handlers::*callback)(Tools&) const);

    bool On_Move(WPARAM keys, POINT client);
    void On_Leave();
    bool On_Press(int button, WPARAM keys, POINT client);
    bool On_Release(int button, WPARAM keys, POINT client);
    bool On_Capture_Lost(HWND now);
    bool On_Wheel(WPARAM wparam, POINT screen);

    static bool Takes_Keys(const Entry& entry);
    const Entry* Key_Taker() const;
    bool Wants_Keys() const;
    bool Move_Focus(bool back);
    bool Offer(UINT message, int code) const;
    bool On_Key(UINT message, WPARAM wparam, LPARAM lparam);

    void Paint();
    void Paint_Held(HDC target, const RECT& area);
    RECT Paint_Marked();
    RECT Paint_Area(RECT area);
    bool Grow_To_Controls(RECT& area) const;
    std::vector<std::size_t> Painted_In(const RECT& area) const;
    void Paint_Ground(const RECT& area) const;

    HWND window;
    Colors background{170, 170, 170};
    bool holds = false;        // see `Hold`
    bool stale = true;         // the picture held is to be painted anew
    RECT held_client{};        // the client area of which it is
    std::vector<RECT> marked;  // parts of it that are to be painted anew, in logical pixels
    std::shared_ptr<const std::function<void()>> on_paint;
    std::shared_ptr<const std::function<bool(int)>> on_key;
    std::vector<Entry> entries;
    // What is known of them is worked out when it is asked for: adding many should cost no more than to note
    // them.
    mutable std::unordered_map<const Tools*, std::size_t>
        numbers;                       // of the entries, the first of each control
    mutable std::size_t numbered = 0;  // entries that `numbers` has
    mutable std::vector<RECT> noted;   // the hit rectangles that `index` has
    mutable unsigned placements = 0;   // `Tools_Placements` then
    mutable galdren::Place_Index index;
    mutable std::size_t alone = 0;              // that the pointer was in last, when nothing lies above
    mutable std::vector<std::size_t> untold;    // entries of applications' classes, which move unnoticed
    mutable std::vector<std::size_t> unplaced;  // entries without an area yet
    POINT pointer{};                            // where the pointer was seen last, on the screen
    Tools* current = nullptr;                   // the control that gets the pointer's events
    int answer = 0;                             // of the last `Select`
    bool inside = false;    // whether the pointer was inside it then; while a button is held it may leave
    unsigned held = 0;      // one bit for each button that went down here; the mouse is captured while not 0
    bool tracking = false;  // WM_MOUSELEAVE has been asked for
    const Tools* focused = nullptr;
    const Tools* wheel_control = nullptr;
    int wheel_rest = 0;  // what is left of the wheel's movement after whole steps
};
