// The message dialog beside the native message box: from the call to its return, with the dialog on the
// display in between.

#include <windows.h>

#include <cstring>

#include "scene.h"

namespace {

using bench::Require;
using bench::Result;
using bench::Stage;

constexpr char Title[] = "Save";
constexpr char Text[] = "The file was saved.";

/// What the user does when the dialog shows: presses its button.
using Press = void (*)(HWND dialog);

void Press_Ours(HWND dialog) {
    RECT client{};
    GetClientRect(dialog, &client);
    constexpr int Above_Bottom = 18;
    PostMessageA(dialog, WM_LBUTTONDOWN, MK_LBUTTON,
                 MAKELPARAM(client.right / 2, client.bottom - Above_Bottom));
}

void Press_Native(HWND dialog) { PostMessageA(dialog, WM_COMMAND, IDOK, 0); }

/// Whether there is more than one colour in the middle row of a dialog.
bool Is_Painted(HWND dialog) {
    RECT client{};
    GetClientRect(dialog, &client);
    const HDC dc = GetDC(dialog);
    const COLORREF first = GetPixel(dc, 0, client.bottom / 2);
    bool painted = false;
    for (int x = 1; x < client.right && !painted; ++x)
        painted = GetPixel(dc, x, client.bottom / 2) != first;
    ReleaseDC(dialog, dc);
    return painted;
}

/// Tells the owner of a dialog when it is shown, by a message that waits until the dialog reads its own.
class Shown_Hook {
  public:
    static constexpr UINT Shown_Message = WM_APP;
    Shown_Hook() : hook(SetWindowsHookExA(WH_CBT, Procedure, nullptr, GetCurrentThreadId())) {}
    ~Shown_Hook() { UnhookWindowsHookEx(hook); }
    Shown_Hook(const Shown_Hook&) = delete;
    Shown_Hook& operator=(const Shown_Hook&) = delete;

  private:
    static LRESULT CALLBACK Procedure(int code, WPARAM wparam, LPARAM lparam) {
        const HWND activated = reinterpret_cast<HWND>(wparam);
        if (code == HCBT_ACTIVATE && GetWindow(activated, GW_OWNER)) {
            PostMessageA(GetWindow(activated, GW_OWNER), Shown_Message, 0,
                         reinterpret_cast<LPARAM>(activated));
        }
        return CallNextHookEx(nullptr, code, wparam, lparam);
    }

    HHOOK hook;
};

/// A window whose dialogs are answered as soon as they are on the display.
class Asking_Stage {
  public:
    explicit Asking_Stage(Press press_button)
        : press(press_button), stage([this](UINT message, WPARAM, LPARAM lparam, LRESULT&) {
              if (message == Shown_Hook::Shown_Message) Answer(reinterpret_cast<HWND>(lparam));
              return false;
          }) {}

    /// Makes the dialogs opened next belong to this window.
    void Begin() const {
        stage.Raise();
        SetActiveWindow(stage.Get());
    }
    HWND Window() const { return stage.Get(); }
    int Answered() const { return answered; }
    bool Saw_It_Painted() const { return painted; }

  private:
    void Answer(HWND dialog) {
        RedrawWindow(dialog, nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
        bench::Flush();
        // Only the first is looked at: asking for pixels takes time.
        if (answered == 0) painted = Is_Painted(dialog);
        ++answered;
        press(dialog);
    }

    Press press;
    int answered = 0;
    bool painted = false;
    Stage stage;
};

Result Open_And_Close() {
    const Shown_Hook hook;
    Asking_Stage ours(Press_Ours);
    Asking_Stage native(Press_Native);
    int calls = 0;
    bool answers_right = true;
    const auto open_ours = [&] {
        char message[sizeof Text];
        std::memcpy(message, Text, sizeof Text);
        answers_right = PopUp_Message(Title, nullptr, message, 0, 0) == 0 && answers_right;
        ++calls;
    };
    const auto open_native = [&] {
        answers_right = MessageBoxA(native.Window(), Text, Title, MB_OK) == IDOK && answers_right;
    };
    const Result result =
        bench::Compare({open_ours, 1, [&] { ours.Begin(); }}, {open_native, 1, [&] { native.Begin(); }});
    Require(answers_right && ours.Answered() == calls && native.Answered() == calls,
            "a dialog was not answered");
    Require(ours.Saw_It_Painted() && native.Saw_It_Painted(), "a dialog was not painted");
    return result;
}

const bench::Register rows[] = {
    bench::Register({"dialog: open, paint, answer, close", "us", bench::Of_Native(1), Open_And_Close}),
};

}  // namespace
