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
#include <utility>
#include <vector>

#include "../Galdren_Tools.h"
#include "../parts/part_keys.h"
#include "blend.h"
#include "class_calls.h"
#include "entries.h"
#include "fade.h"
#include "handlers.h"
#include "host_event.h"
#include "host_service.h"

namespace galdren {
class Typed_Text;
}

/// Draws the controls of one window and tells them of the pointer and the keys.
///
/// The host does not own controls: each must outlive the host or be removed. They are painted in the order in
/// which they were added, and the last one added is the topmost under the pointer. A passive control hides
/// what it covers from the pointer and gets no events itself; a control without `Select`, such as a label,
/// is only drawn. One control has the keyboard focus, of those that keys can work.
/// For the thread that runs the window.
///
/// Controls and the whole host may be changed from inside every callback: `Remove`, `Clear`, `Add`.
class Host {
  public:
    /// Serves the window `served`, which has to exist already but need not be visible yet. Reports at level 2
    /// when the application was compiled with other headers than the library (`Check_Tools_Layout`).
    explicit Host(HWND served);
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

    /// Colour behind the controls while the host has no theme; grey (170, 170, 170) until it is set. Takes
    /// effect with the next paint.
    void Set_Background(Colors color);

    /// Called at every paint, and not to destroy the host, for the application's own drawing, above the
    /// background and below the controls. The surface is taken (`Z_DC` is ready) and clipped to the part that
    /// is painted anew.
    void Set_On_Paint(std::function<void()> draw);

    /// @name Controls
    /// @{

    /// Adds a control on top of those before. It is initialised by the application or by `Init_All`.
    ///
    /// Without a handler it works by itself: what a press or a drag with the left button has chosen is stored
    /// and shown, and a field of one line takes keys as soon as it has the focus. With handlers that take the
    /// control alone they store, and the host stores nothing.
    /// @param control    a control of any class
    /// @param on_press   called when the left button goes down on the control and its `Select` answers 1
    /// @param on_change  called when the control's `Select` answers 1 to the pointer dragged with the left
    ///                   button, after its `Scroll` for the wheel, and after its `Input` for a key; with
    ///                   `Button_State` 0 after wheel and keys
    template <std::derived_from<Tools> Control>
    void Add(Control& control, std::type_identity_t<std::function<void(Control&)>> on_press = {},
             std::type_identity_t<std::function<void(Control&)>> on_change = {}) {
        std::shared_ptr<const galdren::Handlers> handlers;
        if (on_press || on_change) {
            handlers =
                std::make_shared<galdren::Plain_Handlers<Control>>(std::move(on_press), std::move(on_change));
        }
        Add_Entry(control, galdren::class_calls<Control>, std::move(handlers));
    }

    /// Adds a control with a handler that is told what happened, of which there are two kinds:
    ///
    /// - One that returns nothing is told when the control has a new value, or was pressed with the left
    ///   button. The host has stored the value.
    /// - One that returns a bool is asked before the host stores anything, and of presses and drags with the
    ///   other buttons, too. After true the host stores nothing, and a right click brings no
    ///   WM_CONTEXTMENU; after false both are as without a handler.
    /// @param handler  takes the control and a `Host_Event`
    template <std::derived_from<Tools> Control, galdren::Takes_Event<Control> Handler>
    void Add(Control& control, Handler handler) {
        using Kind = galdren::Event_Handler<Control, galdren::Handler_Result<Handler, Control>>;
        std::shared_ptr<const galdren::Handlers> handlers;
        if (typename Kind::Callback callback = std::move(handler))
            handlers = std::make_shared<Kind>(std::move(callback));
        Add_Entry(control, galdren::class_calls<Control>, std::move(handlers));
    }

    /// Forgets a control; one that was never added is ignored. What it painted stays until the next paint.
    void Remove(const Tools& control);
    /// Forgets all controls.
    void Clear();

    /// `Init` of every control with the window of this host.
    void Init_All();
    /// `Init` of one control with the window of this host, such as after its place was changed. What it
    /// covered and covers now is painted anew after `Refresh`. A control that was not added is ignored.
    void Init(const Tools& control);

    /// Has the rectangle of `control` painted anew with the next WM_PAINT: background, and every control
    /// that meets it. For changes that the control cannot show alone, such as another text of a label.
    void Refresh(const Tools& control);
    /// Has the whole window painted anew with the next WM_PAINT.
    void Refresh();

    /// The control that has the pointer: the topmost one under it, or the one pressed while a button is held;
    /// null when there is none.
    const Tools* Current() const { return current; }

    /// What the last `Select` answered, for callbacks to which it is not all the same what it was but 0.
    int Answer() const { return answer; }

    /// Paints background, own drawing and controls on any context: a bitmap, a printer, a metafile. Nobody
    /// has to see the window. It stays as it is, and so does the context but for what is painted. Highlight,
    /// caret and the ring of the keyboard are not painted; a control on which a mouse button is held is
    /// painted as it is shown.
    /// @param target  reported at level 11 when it is none
    /// @param place   where the client area goes, in logical units of `target`, stretched if need be
    /// @return false when nothing was painted: the window is gone or minimised, nothing of `place` can be
    ///         painted on, or there is no memory, which is reported at level 1; and inside of what it calls
    bool Paint_Into(HDC target, const RECT& place);

    /// @}
    /// @name Scale
    /// A host has a scale, in percent, at which the lengths of a design at 96 dots per inch are painted:
    /// places, sizes, borders, fonts, and the lengths that each class has. Public fields always hold the
    /// pixels at which a control is painted; the host keeps the design apart.
    ///
    /// What an application writes into fields is of the design until the first `Init` of the control, and in
    /// pixels of its scale afterwards: the next `Init` by the host takes it into the design.
    /// @{

    /// Scales all controls, and those that are added later, calls `Init` of those that had one, and has the
    /// window painted anew. The window keeps its size.
    /// @param percent  from 25 to 500; another one is reported at level 11 and changes nothing
    void Set_Scale(int percent);
    /// The scale, 100 until it is set.
    int Scale() const { return scale ? scale : 100; }

    /// Sets the scale, and makes the client area larger or smaller by as much.
    void Scale_Window(int percent);

    /// Scales the window as the display wants it that it is on, now and whenever it gets to another one
    /// (WM_DPICHANGED). The system tells so of programs whose manifest says that they are aware of it.
    void Follow_Dpi();

    /// Gives a control another place, in pixels of the design, calls its `Init` if it had one, and has the
    /// window painted anew where it was and where it is.
    void Place(const Tools& control, int x, int y, int width, int height);

    /// @}
    /// @name Theme
    /// @{

    /// Has all controls, those that are added later, and the ground behind them wear a theme, and the window
    /// painted anew. The theme is copied. Captions of disabled controls keep its contrast.
    /// @param theme  null: the look without a theme
    void Set_Theme(const Theme* theme);

    /// Wears the colours of the system, and others when the user has chosen others (WM_SYSCOLORCHANGE), until
    /// `Set_Theme`.
    void Follow_System_Theme();

    /// @}
    /// @name Shown and hidden, enabled and disabled
    /// Fields of the controls stay as they are. Controls that were not added are ignored.
    /// @{

    /// Hides a control, or shows it again. A hidden one paints nothing, also from its own members, and hears
    /// of nothing; what is behind it can be pressed.
    void Set_Shown(const Tools& control, bool shown);
    /// Whether a control is neither hidden nor on a page that is not in front.
    bool Is_Shown(const Tools& control) const;

    /// Disables a control, or enables it again. A disabled one is shown blended with what is behind it,
    /// and hears of nothing, but hides what it covers from the pointer.
    void Set_Enabled(const Tools& control, bool enabled);
    /// Whether a control is not disabled.
    bool Is_Enabled(const Tools& control) const;

    /// Puts controls on a page of a tab set: they are shown while `Value` of the tabs is the number of the
    /// page, and the tabs themselves are shown. The host looks at `Value` with every message.
    /// @param tabs      a tab set that was added
    /// @param page      index of its tab
    /// @param controls  controls that were added
    template <std::derived_from<Tools>... Controls>
    void Set_Page(const Tabs& tabs, int page, const Controls&... controls) {
        (Put_On_Page(tabs, page, controls), ...);
    }

    /// @}
    /// @name Keyboard
    /// @{

    /// Called with the code of a key (see `Parse_Keyboard`; Escape is 27, and nothing is closed) when no
    /// field has the keyboard focus. Commands, which are keys with Ctrl or Alt and function keys, come here
    /// before the field that has the focus gets them.
    /// @param take  answers whether it took the key; when it destroyed the host it must answer true
    void Set_On_Key(std::function<bool(int)> take);

    /// Gives a control that keys can work the keyboard focus, or takes it away with null. Another control is
    /// ignored.
    void Focus(const Tools* control);
    /// The control that has the keyboard focus, null when there is none. It keeps it while it is passive or
    /// has no size, and gets no keys meanwhile.
    const Tools* Focused() const;

    /// The letter or digit that gives a control the focus, and presses it, together with Alt; 0 for none.
    void Set_Mnemonic(const Tools& control, char key);
    /// The button that Enter presses wherever the focus is; null for none.
    void Set_Default(const Tools* button);
    /// The button that Escape presses wherever the focus is; null for none.
    void Set_Cancel(const Tools* button);

    /// @}
    /// @name Parts: what keys, screen readers and tests see
    /// @{

    /// The controls as parts. It lives as long as the host.
    Part_Window& Parts();

    /// Gives a control a name for those who cannot see it, in place of its caption; null or "" for none.
    void Describe(const Tools& control, const char* name);

    /// To be called after the application has changed the value of a control, for who cannot see it.
    void Tell_Changed(const Tools& control);

    /// Adds a service, which lives as long as the host.
    void Serve(std::unique_ptr<Host_Service> service);

    /// @}

    /// Takes one message of the window.
    /// @return true when the window procedure is to return `result`, false when the message is not for the
    ///         host (`result` is then left alone)
    bool Message(UINT message, WPARAM wparam, LPARAM lparam, LRESULT& result);

  private:
    class Parts_View;
    class Print_Look;
    class Watch;
    struct Page_Set {
        const Tabs* tabs;
        short shown;  // `Value` when it was looked at last
    };
    using Entry = galdren::Entry;

    // host.cpp
    void Add_Entry(Tools& control, const galdren::Class_Calls& calls,
                   std::shared_ptr<const galdren::Handlers> handlers);
    static void Give_Back(const Entry& entry);
    void Forget_Control(const Tools* control);
    void Init_Entry(Entry& entry);
    void Note_Init();
    bool Handle(UINT message, WPARAM wparam, LPARAM lparam, LRESULT& result);

    // host_surroundings.cpp
    galdren::Design_Fields Note_Design(Entry& entry) const;
    void Receive(Entry& entry) const;
    void Init_Again(Entry& entry);
    void Rescale(Entry& entry);
    bool On_Dpi(int dpi, const RECT& place);
    const Theme* Look_Of(const Entry& entry) const;
    void Wear(const Theme& theme);
    void Dress(const Theme* kept);
    Colors Ground() const;

    // host_events.cpp
    bool Notify(const Entry& told, const Host_Event& event);
    bool Store(const Entry& entry, const Host_Event& event);
    void Tell_Of_Pointed(const Entry& entry) const;
    void Tell_Services(Part_Change change, Part_Place place) const;
    void Tell_Of_Part(const Entry& entry, int part) const;

    // host_pointer.cpp
    template <class Member>
    int Beneath_Others(const Entry& entry, Member member);
    int Tell(const Entry& entry, int event, bool repaints);
    void Leave();
    bool Hand_Over(POINT logical);
    int Point(POINT client, int event);
    bool On_Move(WPARAM keys, POINT client);
    void On_Leave();
    bool On_Press(int button, WPARAM keys, POINT client, bool second);
    bool On_Release(int button, WPARAM keys, POINT client);
    bool On_Capture_Lost(HWND now);

    // host_wheel.cpp
    int Wheel_Steps(const Entry& entry, int delta, bool across);
    bool On_Wheel(int delta, POINT screen, bool across);

    // host_keys.cpp
    bool Can_Have_Keys(std::size_t number) const;
    bool Wants_Keys();
    Entry* Key_Taker();
    void Begin_Reading(const Entry& entry);
    static void Select_Line(const Entry& entry);
    void Follow_Focus(Part_Place place);
    bool Focus_By_Press(const Entry& entry, POINT logical);
    void Focus_By_Release();
    bool Offer(UINT message, int code) const;
    void Type(Entry& taker, int key);
    bool Work_Parts(UINT message, int key, bool repeated);
    bool On_Key(UINT message, WPARAM wparam, LPARAM lparam);
    void Tell_Typed(Entry& taker, int key);

    // host_text.cpp
    Entry* Text_Taker();
    static Texts* Edited_Field(const Entry* entry);
    bool On_Character(UINT message, WPARAM wparam);
    bool On_Whole_Character(WPARAM wparam, LPARAM lparam, LRESULT& result);
    void Type_Text(Entry& taker, const std::string& text);
    void On_Composition_Start();
    bool On_Composition(WPARAM wparam, LPARAM lparam, LRESULT& result);
    void Finish_Composing();
    bool On_Context_Menu(POINT screen);
    bool On_Set_Cursor(LPARAM lparam);
    void Follow_Caret();
    void Go_On_Selecting();
    bool On_Timer(UINT_PTR timer);
    UINT_PTR Timer() const { return reinterpret_cast<UINT_PTR>(this); }  // applications number theirs

    // host_parts.cpp
    Entry* Workable(Part_Place place);
    bool Press_Part(Part_Place place);
    bool Change_Part(Part_Place place, const Host_Event& event,
                     const std::function<bool(const Class_Parts&, Tools&)>& change);
    void Let_Go(const Entry& entry);
    void Point_Again();

    // host_visibility.cpp
    void Put_On_Page(const Tabs& tabs, int page, const Tools& control);
    bool Is_On_Hidden_Page(const Entry& entry) const;
    void Follow_Pages();
    void Show_Or_Hide(Entry& entry);
    void Show_Or_Hide_All();
    static void Set_Veil(const Entry& entry, unsigned char veil);
    static void Renew_Veil(const Entry& entry);

    // host_paint.cpp
    void Refresh_Area(const RECT& area);
    void Uncover(const RECT& area);
    void Mark(const RECT& area);
    void Mark_Disabled(const RECT& area);
    void Paint();
    void Paint_Held(HDC target, const RECT& area);
    RECT Paint_Marked();
    RECT Paint_Area(RECT area);
    bool Grow_To_Controls(RECT& area) const;
    void Paint_Ground(const RECT& area) const;
    void Draw(const Entry& entry);
    void Draw_Disabled(const Entry& entry);

    HWND window;
    galdren::Entries entries;
    std::shared_ptr<const int> life;  // gone with the host
    std::shared_ptr<const std::function<void()>> on_paint;
    std::shared_ptr<const std::function<bool(int)>> on_key;

    Colors background{170, 170, 170};
    bool printing = false;     // see `Paint_Into`
    bool holds = false;        // see `Hold`
    bool stale = true;         // the picture held is to be painted anew
    RECT held_client{};        // the client area of which it is
    std::vector<RECT> marked;  // parts of it that are to be painted anew, in logical pixels
    galdren::Blend blend;      // for controls that are disabled
    std::size_t disabled = 0;  // their number

    unsigned short scale = 0;  // in percent; 0 until it is set, and controls are left alone
    bool follows_dpi = false;
    const Theme* look = nullptr;
    galdren::Fade fade;  // of controls that are disabled
    bool follows_system = false;

    POINT pointer{};           // where the pointer was seen last, on the screen
    Tools* current = nullptr;  // the control that gets the pointer's events
    int answer = 0;            // of the last `Select`
    bool inside = false;       // whether the pointer was inside it then; while a button is held it may leave
    bool right_taken = false;  // the application took the right button when it went down
    unsigned held = 0;         // one bit for each button that went down here; captures the mouse if not 0
    bool tracking = false;     // WM_MOUSELEAVE has been asked for
    const Tools* wheel_control = nullptr;
    int wheel_rest = 0;         // what is left of the wheel's movement after whole steps
    bool wheel_across = false;  // which wheel that was

    std::vector<Page_Set> pages;
    std::vector<std::unique_ptr<Host_Service>> services;
    std::unique_ptr<Parts_View> parts;
    std::unique_ptr<Part_Keys> keys;
    bool takes_tab = false;    // Tab is being taken, of which the application hears nothing
    std::size_t key_user = 0;  // number of a control that could have the keyboard; see `Wants_Keys`
    std::unique_ptr<galdren::Typed_Text> typed;  // characters of which a part is still to come
    unsigned composing_serial = 0;  // of the control in which the input method composes; 0 for none
    int caret_height = 0;           // of the system's caret; 0 while the window has none
    POINT told_caret{};             // caret and selection of the field, of which the services know
    unsigned focus_serial = 0;      // of the control that got the keyboard last; 0 for none
    unsigned wanted_serial = 0;     // of the control that is to have it once it can; 0 for none
    unsigned pressed_serial = 0;    // of the control that gets it when the left button goes up; 0 for none
    int pressed_part = Whole;       // and its part
};
