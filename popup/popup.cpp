#include "popup/popup.h"

#include <windows.h>
#include <windowsx.h>

#include <algorithm>
#include <atomic>
#include <cstring>
#include <iterator>
#include <optional>
#include <span>

#include "parts/access.h"
#include "parts/classes.h"
#include "parts/key_code.h"
#include "parts/part_keys.h"
#include "popup/message_text.h"
#include "popup/owner_window.h"
#include "popup/template.h"
#include "tools/arithmetic.h"
#include "tools/cleanup.h"
#include "tools/input.h"
#include "tools/keyboard.h"
#include "tools/lock.h"
#include "tools/look.h"
#include "tools/surface.h"
#include "tools/window.h"
#include "util/error.h"
#include "util/program.h"
#include "widgets/box.h"
#include "widgets/button.h"
#include "widgets/items.h"
#include "widgets/text.h"

using namespace galdren;

namespace {

constexpr int No_Answer = -1;

/// A button of a dialog.
struct Answer {
    const char* caption;
    int value;
    char letter;  // that answers so too; 0 for none
};

constexpr Answer Message_Answers[] = {{"OK", 0, 0}};
constexpr Answer Question_Answers[] = {{"Yes", 1, 'Y'}, {"No", 0, 'N'}};
constexpr std::size_t Most_Answers = std::max(std::size(Message_Answers), std::size(Question_Answers));

/// Keeps a flag set for a scope, which only one can do at a time.
class Claim {
  public:
    explicit Claim(std::atomic<bool>& claimed) : flag(claimed), granted(!claimed.exchange(true)) {}
    ~Claim() {
        if (granted) flag = false;
    }
    Claim(const Claim&) = delete;
    Claim& operator=(const Claim&) = delete;
    bool Granted() const { return granted; }

  private:
    std::atomic<bool>& flag;
    bool granted;
};

class Window_Paint {
  public:
    explicit Window_Paint(HWND painted) : window(painted) { BeginPaint(window, &paint); }
    ~Window_Paint() { EndPaint(window, &paint); }
    Window_Paint(const Window_Paint&) = delete;
    Window_Paint& operator=(const Window_Paint&) = delete;

  private:
    HWND window;
    PAINTSTRUCT paint{};
};

void Set_Font(Tools& control) {
    control.Font_Name = "Arial";
    control.Font_Weight = "bold";
    control.Font_Size = Within_16(Scaled(control, 11));
}

void Place(Tools& control, const Dress& dress, int x, int y, int width, int height) {
    Set_Place(control, {x, x + width, y, y + height});
    control.Scale = dress.scale;
    control.Look = dress.look;
    control.Border = Within_16(Line_Width(control));
}

/// The mouse buttons that are held, as bits of an event.
int Buttons_Held() {
    return (getbutton(VK_LBUTTON) ? EVENT_LEFT : 0) | (getbutton(VK_MBUTTON) ? EVENT_MIDDLE : 0) |
           (getbutton(VK_RBUTTON) ? EVENT_RIGHT : 0);
}

/// Tells the controls where the pointer is by the position in a message.
void Note_Pointer(HWND dialog, LPARAM position) {
    POINT point{GET_X_LPARAM(position), GET_Y_LPARAM(position)};
    if (point.x == 0 && point.y == 0) {
        GetCursorPos(&point);
    } else {
        ClientToScreen(dialog, &point);
    }
    ZCursor_X = point.x;
    ZCursor_Y = point.y;
}

/// The dialogs of one kind, of which one can be open. The controls stay from one to the next. For the
/// keyboard they are the text and then the buttons.
class Popup final : public Part_Window {
  public:
    /// @param function  name of the function in reports
    Popup(const char* function, std::span<const Answer> offered) : label(function), answers(offered) {}
    int Run(const char* title, const char* caption, char* text, short width, short height);
    /// Lets go of all that the controls hold, unless the dialog is open.
    void Release();

    HWND Window() const override { return background.Window; }
    int Count() const override { return First_Button + static_cast<int>(answers.size()); }
    Part_Owner Owner(int number) const override;
    int Number_Of(unsigned serial) const override { return static_cast<int>(serial) - 1; }
    int Control_At(POINT place) const override;
    Part_Place Focus() const override { return keys ? keys->Focus() : Part_Place{}; }
    bool Set_Focus(Part_Place place) override { return keys && keys->Set_Focus(place); }
    bool Press(Part_Place place) override;
    bool Step(Part_Place place, Part_Move move) override;
    bool Set_Value(Part_Place, const char*) override { return false; }

  private:
    static constexpr int Text_Number = 0;
    static constexpr int First_Button = 1;
    static constexpr UINT_PTR Select_Timer = 1;

    static INT_PTR CALLBACK Procedure(HWND dialog, UINT message, WPARAM wparam, LPARAM lparam);
    bool On_Message(HWND dialog, UINT message, WPARAM wparam, LPARAM lparam);

    /// Whether there is more text than shows.
    bool Scrolls() const { return field.V_Slider.End_Val > 0; }
    std::span<Buttons> Shown_Buttons() { return {buttons, answers.size()}; }
    void Lay_Out(HWND dialog, int width, int height);
    void Fill();
    void On_Open(HWND dialog);
    void Repaint(const RECT& area);
    void On_Paint(HWND dialog);
    void On_Close(HWND dialog);
    void On_Destroy();
    void On_Move(HWND dialog, LPARAM position);
    bool On_Button(HWND dialog, int kind, LPARAM position);
    void Begin_Selecting(HWND dialog);
    void End_Selecting(HWND dialog);
    bool Is_Over_Text(POINT screen);
    bool On_Set_Cursor(HWND dialog, LPARAM lparam);
    bool On_Context_Menu(HWND dialog, POINT screen);
    void On_Wheel(HWND dialog, int delta);
    bool On_Key(HWND dialog, UINT message, WPARAM wparam, LPARAM lparam);
    bool Take(HWND dialog, int key, bool repeated);
    bool Use_Text(int key);
    void Go_Aside(bool back);
    void Tell(int event);
    void End(std::size_t button);

    const char* label;
    std::span<const Answer> answers;
    std::atomic<bool> open{};
    std::optional<Owner_Window> owner;
    Dress dress;
    std::optional<Part_Keys> keys;  // while the dialog is open, as the next
    std::optional<Access> access;
    char* message{};
    bool answered{};  // by a button
    int wheel{};      // what is left of the wheel's movement after whole steps
    Boxs background;
    Buttons buttons[Most_Answers];
    Texts field;
    Tools* const controls[First_Button + Most_Answers] = {&field, &buttons[0], &buttons[1]};
};

bool Application_Quits() {
    MSG waiting{};
    return PeekMessageA(&waiting, nullptr, WM_QUIT, WM_QUIT, PM_NOREMOVE) != 0;
}

int Popup::Run(const char* title, const char* caption, char* text, short width, short height) {
    const Claim claim(open);
    if (!claim.Granted()) {
        Error_Fct(hwnd, ERROR_LEVEL_WARNING, "%s: another dialog of this kind is open", label);
        return No_Answer;
    }
    dress = Dress_Of(GetActiveWindow());
    const Dialog_Template dialog(title, width, height, dress.scale);
    if (!dialog.Get()) return No_Answer;
    field.Name = caption;
    message = text;
    answered = false;
    owner.emplace();
    const INT_PTR result = DialogBoxIndirectParamW(owner->Instance(), dialog.Get(), owner->Window(),
                                                   Procedure, reinterpret_cast<LPARAM>(this));
    access.reset();
    keys.reset();
    owner.reset();
    field.Name = nullptr;
    message = nullptr;
    // When the application quits, the system's result can be that of a button which nobody pressed.
    return answered || !Application_Quits() ? static_cast<int>(result) : No_Answer;
}

void Popup::Release() {
    const Claim claim(open);
    if (!claim.Granted()) return;
    background = Boxs();
    std::fill(std::begin(buttons), std::end(buttons), Buttons());
    field = Texts();
}

INT_PTR CALLBACK Popup::Procedure(HWND dialog, UINT message, WPARAM wparam, LPARAM lparam) {
    if (message == WM_INITDIALOG) SetWindowLongPtrA(dialog, DWLP_USER, lparam);
    auto* popup = reinterpret_cast<Popup*>(GetWindowLongPtrA(dialog, DWLP_USER));
    return popup && popup->On_Message(dialog, message, wparam, lparam);
}

/// @return whether the dialog manager has nothing more to do
bool Popup::On_Message(HWND dialog, UINT message, WPARAM wparam, LPARAM lparam) {
    LRESULT result = 0;
    if (access && access->Message(message, wparam, lparam, result)) {
        SetWindowLongPtrA(dialog, DWLP_MSGRESULT, result);
        return true;
    }
    switch (message) {
        case WM_INITDIALOG:
            On_Open(dialog);
            return false;
        case WM_SIZE:
            Lay_Out(dialog, LOWORD(lparam), HIWORD(lparam));
            // The origin is at the bottom: a new height moves everything.
            InvalidateRect(dialog, nullptr, FALSE);
            if (keys) keys->Update();
            return false;
        case WM_ERASEBKGND:
            // The background covers everything.
            SetWindowLongPtrA(dialog, DWLP_MSGRESULT, TRUE);
            return true;
        case WM_PAINT:
            On_Paint(dialog);
            return true;
        case WM_CLOSE:
            On_Close(dialog);
            return true;
        case WM_DESTROY:
            On_Destroy();
            return false;
        case WM_MOUSEMOVE:
            On_Move(dialog, lparam);
            return false;
        case WM_LBUTTONDOWN:
        case WM_LBUTTONDBLCLK:  // the second of two quick presses
            return On_Button(dialog, EVENT_PRESS, lparam);
        case WM_LBUTTONUP:
            return On_Button(dialog, EVENT_MOVE, lparam);
        case WM_CAPTURECHANGED:
            if (reinterpret_cast<HWND>(lparam) != dialog) End_Selecting(dialog);
            return true;
        case WM_TIMER:
            if (field.Is_Selecting()) field.Select(EVENT_DRAG | EVENT_LEFT);
            return true;
        case WM_SETCURSOR:
            return On_Set_Cursor(dialog, lparam);
        case WM_CONTEXTMENU:
            return On_Context_Menu(dialog, {GET_X_LPARAM(lparam), GET_Y_LPARAM(lparam)});
        case WM_MOUSEWHEEL:
            On_Wheel(dialog, GET_WHEEL_DELTA_WPARAM(wparam));
            return false;
        case WM_ACTIVATE:
            if (keys) keys->Set_Active(LOWORD(wparam) != WA_INACTIVE);
            return false;
        case WM_GETDLGCODE:
            // Or the dialog manager would keep Tab, Enter, Escape and the arrows to itself.
            SetWindowLongPtrA(dialog, DWLP_MSGRESULT,
                              DLGC_WANTALLKEYS | DLGC_WANTARROWS | DLGC_WANTCHARS | DLGC_WANTTAB);
            return true;
        case WM_KEYDOWN:
        case WM_KEYUP:
        case WM_CHAR:
        case WM_SYSKEYDOWN:
            return On_Key(dialog, message, wparam, lparam);
        case WM_COMMAND:
            // What other programs send in place of Enter and Escape.
            if (wparam == IDOK) return Take(dialog, VK_RETURN, false);
            return wparam == IDCANCEL && Take(dialog, VK_ESCAPE, false);
        default:
            return false;
    }
}

/// The buttons share a row at the bottom; the text has the rest.
void Popup::Lay_Out(HWND dialog, int width, int height) {
    const int margin = Scaled(dress.scale, 6);
    const int button_height = Scaled(dress.scale, 26);
    const int text_bottom = margin + button_height + margin;

    Place(background, dress, 0, 0, width - 1, height - 1);
    background.Flag = FLAG_PASSIVE | FLAG_OWN_IMAGES;
    background.Init(dialog);

    const auto count = static_cast<int>(answers.size());
    const int button_width = (width - margin * (count + 1)) / count;
    for (int i = 0; i < count; ++i) {
        Place(buttons[i], dress, margin + i * (button_width + margin), margin, button_width, button_height);
        Set_Font(buttons[i]);
        buttons[i].Name = answers[static_cast<std::size_t>(i)].caption;
        buttons[i].Init(dialog);
    }

    Place(field, dress, margin, text_bottom, width - 2 * margin, height - text_bottom - margin);
    Set_Font(field);
    field.Flag = TEXT_V_BAR | TEXT_EDITING;
    field.Init(dialog);
}

void Popup::Fill() {
    constexpr std::size_t Longest_Whole = 256;
    field.Cleanup();
    field.Flag |= FLAG_NO_BODY;  // nothing shows yet, and thousands of lines need not be painted one by one
    if (message && std::strlen(message) > Longest_Whole) {
        Write_Lines(field, message);
    } else if (message) {
        Write_Text(field, message);
    }
    Write_Text(field, "");
    field.Flag &= ~FLAG_NO_BODY;
}

void Popup::On_Open(HWND dialog) {
    Set_Dialog_Look(dialog, dress.scale, dress.look);  // for a dialog that opens above this one
    RECT client{};
    GetClientRect(dialog, &client);
    Lay_Out(dialog, client.right, client.bottom);
    Fill();
    access.emplace(*this);
    keys.emplace(*this, [this](const RECT& area) { Repaint(area); });
    keys->Set_On_Focus([this](Part_Place place) { access->Tell(Part_Change::Focus, place); });
    keys->Set_Default(&buttons[0]);
    keys->Set_Focus({First_Button, Whole});
}

/// @param area  in logical pixels
void Popup::Repaint(const RECT& area) {
    RECT client{};
    GetClientRect(Window(), &client);
    const RECT turned{area.left, client.bottom - area.bottom, area.right, client.bottom - area.top};
    InvalidateRect(Window(), &turned, FALSE);
}

void Popup::On_Paint(HWND dialog) {
    const Window_Paint paint(dialog);
    const Paint_Batch batch(dialog);
    background.Draw();
    field.Draw();
    for (Buttons& button : Shown_Buttons())
        button.Draw();
}

/// The owner comes first: while it is disabled, the system would hand its place to another application.
void Popup::On_Close(HWND dialog) {
    owner->Enable();
    DestroyWindow(dialog);
}

void Popup::On_Destroy() {
    Set_Dialog_Look(Window(), 0, nullptr);
    keys->Set_Active(false);
    End_Selecting(Window());
    field.Cleanup();
    background.Window = nullptr;
}

void Popup::Tell(int event) {
    field.Select(event);
    for (Buttons& button : Shown_Buttons())
        button.Select(event);
}

void Popup::On_Move(HWND dialog, LPARAM position) {
    Note_Pointer(dialog, position);
    const int held = Buttons_Held();
    if (!held) return Tell(EVENT_MOVE);
    const Paint_Batch batch(dialog);  // the text follows its scroll bar
    if (field.Is_Selecting()) {
        field.Select(EVENT_DRAG | held);
    } else {
        Tell(EVENT_DRAG | held);
    }
}

/// @return whether the dialog was ended
bool Popup::On_Button(HWND dialog, int kind, LPARAM position) {
    Note_Pointer(dialog, position);
    const int event = kind | Buttons_Held();
    if (kind == EVENT_MOVE) End_Selecting(dialog);
    if (event == 0) return false;
    if (kind == EVENT_PRESS) keys->Hide_Ring();
    for (std::size_t i = 0; i < answers.size(); ++i) {
        if (buttons[i].Select(event) != 1) continue;
        End(i);
        return true;
    }
    const Paint_Batch batch(dialog);
    field.Select(event);
    if (field.Is_Selecting()) Begin_Selecting(dialog);
    return false;
}

/// While the text is being selected, the dialog has the mouse wherever that is. It repeats what it has told
/// the text of it, so that this goes on scrolling below a pointer held still.
void Popup::Begin_Selecting(HWND dialog) {
    SetCapture(dialog);
    SetTimer(dialog, Select_Timer, Texts::Scroll_Pause, nullptr);
}

void Popup::End_Selecting(HWND dialog) {
    if (!field.Is_Selecting()) return;
    field.Select(EVENT_MOVE);
    KillTimer(dialog, Select_Timer);
    ReleaseCapture();
}

/// Whether a place on the screen is over text that can be copied.
bool Popup::Is_Over_Text(POINT screen) {
    ZCursor_X = screen.x;
    ZCursor_Y = screen.y;
    const std::optional<POINT> place = Find_Pointer(Window());
    return place && field.Is_Text_At(*place);
}

/// The I-beam over the text.
bool Popup::On_Set_Cursor(HWND dialog, LPARAM lparam) {
    POINT screen{};
    GetCursorPos(&screen);
    if (LOWORD(lparam) != HTCLIENT || !Is_Over_Text(screen)) return false;
    SetCursor(LoadCursorA(nullptr, IDC_IBEAM));
    SetWindowLongPtrA(dialog, DWLP_MSGRESULT, TRUE);
    return true;
}

/// The menu of the text.
/// @param screen  (-1, -1) for the keyboard
bool Popup::On_Context_Menu(HWND dialog, POINT screen) {
    if (screen.x == -1 && screen.y == -1) {
        screen = {field.Rect.left, Client_Size(dialog).cy - field.Rect.bottom};
        ClientToScreen(dialog, &screen);
    } else if (!Is_Over_Text(screen)) {
        return false;
    }
    const int key = field.Ask_Menu(screen);
    if (Window() == dialog) Use_Text(key);  // it may be gone by now
    return true;
}

void Popup::On_Wheel(HWND dialog, int delta) {
    wheel += delta;
    const int steps = wheel / WHEEL_DELTA;
    wheel -= steps * WHEEL_DELTA;
    if (steps == 0 || !field.Select(EVENT_TEST)) return;
    const Paint_Batch batch(dialog);
    field.Scroll(-steps);
}

void Popup::End(std::size_t button) {
    answered = true;
    EndDialog(Window(), answers[button].value);
}

Part_Owner Popup::Owner(int number) const {
    Part_Owner owned;
    owned.serial = static_cast<unsigned>(number) + 1;
    owned.control = controls[number];
    if (number == Text_Number) {
        owned.parts = &Parts_Of(&field);
        owned.takes_focus = Scrolls();  // copying takes no focus
    } else {
        owned.parts = &Parts_Of(&buttons[0]);
        owned.mnemonic = answers[static_cast<std::size_t>(number - First_Button)].letter;
    }
    return owned;
}

int Popup::Control_At(POINT place) const {
    for (int number = Count() - 1; number >= 0; --number) {
        if (PtInRect(&controls[number]->Rect, place)) return number;
    }
    return -1;
}

bool Popup::Press(Part_Place place) {
    if (place.control < First_Button || !Window()) return false;
    End(static_cast<std::size_t>(place.control - First_Button));
    return true;
}

bool Popup::Step(Part_Place place, Part_Move move) {
    if (place.control != Text_Number || !Window() || !Scrolls()) return false;
    const Paint_Batch batch(Window());
    return Parts_Of(&field).Step(field, place.part, move);
}

/// @return whether the key meant anything
bool Popup::On_Key(HWND dialog, UINT message, WPARAM wparam, LPARAM lparam) {
    const int key = Typed_Key(message, wparam, Key_Code(dialog, message, wparam, lparam));
    return key != 0 && Take(dialog, key, Is_Repeated(lparam));
}

/// What the button that has the keyboard makes nothing of scrolls the text, or goes to a button beside.
/// @param repeated  a key that is held, perhaps since before the dialog opened, answers nothing
bool Popup::Take(HWND dialog, int key, bool repeated) {
    if (key == VK_ESCAPE) {
        if (!repeated) On_Close(dialog);
        return true;
    }
    if (keys->Take(key, repeated) || Use_Text(key)) return true;
    if (const std::optional<Part_Move> move = Move_Of(key)) {
        keys->Show_Ring();
        const bool back = *move == Part_Move::Left || *move == Part_Move::Up;
        const bool on = *move == Part_Move::Right || *move == Part_Move::Down;
        if (!Step({Text_Number, Whole}, *move) && (back || on)) Go_Aside(back);
        return true;
    }
    const int letter = key >= 'a' && key <= 'z' ? key - 'a' + 'A' : key;
    return keys->Take(KEY_ALT | letter, repeated);
}

/// Has the text take a key that copies, or selects what is to be copied.
bool Popup::Use_Text(int key) {
    if (!key || !field.Can_Take(key)) return false;
    const Paint_Batch batch(Window());
    field.Input(key);
    return true;
}

/// Goes to the button beside, all round.
void Popup::Go_Aside(bool back) {
    const auto count = static_cast<int>(answers.size());
    const int now = Focus().control - First_Button;  // below 0 on the text
    const int next = back ? std::max(now, 0) + count - 1 : std::max(now, -1) + 1;
    Set_Focus({First_Button + next % count, Whole});
}

struct Kinds {
    Popup message{"PopUp_Message", Message_Answers};
    Popup question{"PopUp_Querry", Question_Answers};
};

const Cleanup Controls_Cleanup([] {
    The<Kinds>().message.Release();
    The<Kinds>().question.Release();
});

}  // namespace

void Set_Dialog_Look(HWND owner, unsigned short scale, const Theme* look) {
    Keep_Dress(owner, {scale, look});
}

int PopUp_Message(const char* title, const char* caption, char* message, short width, short height) {
    return The<Kinds>().message.Run(title, caption, message, width, height);
}

int PopUp_Querry(const char* title, const char* caption, char* message, short width, short height) {
    return The<Kinds>().question.Run(title, caption, message, width, height);
}
