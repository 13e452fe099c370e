/// @file
/// What the scenes of the controls share: places, the pointer, painting, native controls, and the proof that
/// something was painted.
#pragma once

#include <windows.h>

#include <functional>
#include <memory>
#include <span>
#include <utility>

#include "Galdren_Tools.h"
#include "bench.h"

namespace bench {

/// When the display follows the steps of a repetition: once at the end, as for messages that come together,
/// or after every step.
enum class Shown { Together, One_By_One };

/// How our side paints: in a batch, control by control, or in a batch in a window whose picture is held.
enum class Painting { In_Batch, One_By_One, Held };

/// Holds the picture of a window for a scope, if it is to be held.
class Held_Window {
  public:
    Held_Window(const Stage& stage, Painting painting)
        : window(painting == Painting::Held ? stage.Get() : nullptr) {
        if (window) Begin_Hold(window);
    }
    ~Held_Window() {
        if (window) End_Hold(window);
    }
    Held_Window(const Held_Window&) = delete;
    Held_Window& operator=(const Held_Window&) = delete;

  private:
    HWND window;
};

/// Client coordinates of a point where no scene has a control.
constexpr POINT Gap{0, 0};

/// Tells our controls that the pointer is at a point of the client area.
void Put_Pointer(const Stage& stage, POINT client);

/// Gives a selector or a tab set an item for each name.
template <class Owner>
void Name_Items(Owner& owner, std::span<const char* const> names) {
    Require(owner.Grow(static_cast<int>(names.size()), 0) == 1, "there is no memory for the items");
    for (std::size_t i = 0; i < names.size(); ++i)
        owner.Item[i]->Name = names[i];
}

/// Gives a control its place in client coordinates, and the font of all scenes.
void Place(Tools& control, const RECT& client);

/// Answers WM_PAINT: fills the background, as far as it is to be painted, and calls `draw`.
void Paint(const Stage& stage, Painting painting, const std::function<void()>& draw);

/// Our side with one control: a window that paints it. `Control` is a class of the library.
template <class Control>
class Our_Side {
  public:
    /// @param fill  fills the fields of the control
    explicit Our_Side(const std::function<void(Control&)>& fill, Painting painting = Painting::In_Batch)
        : way(painting),
          control(std::make_unique<Control>()),
          stage([this](UINT message, WPARAM, LPARAM, LRESULT& result) { return Handle(message, result); }),
          held(stage, painting) {
        Put_Pointer(stage, Gap);
        fill(*control);
        control->Init(stage.Get());
        stage.Raise();
        stage.Repaint();
    }
    const Stage& Window() const { return stage; }
    Control& Get() { return *control; }

  private:
    bool Handle(UINT message, LRESULT& result) {
        if (message == WM_PAINT) Paint(stage, way, [this] { control->Draw(); });
        result = message == WM_ERASEBKGND;
        return message == WM_PAINT || message == WM_ERASEBKGND;
    }

    Painting way;
    std::unique_ptr<Control> control;
    Stage stage;  // after the control, so that its messages end before the control does
    Held_Window held;
};

/// A native control in its fastest mode: not themed, and with the font that it has from the start.
class Native_Control {
  public:
    Native_Control(const Stage& stage, const char* window_class, const char* text, DWORD style,
                   const RECT& client);
    ~Native_Control();
    Native_Control(Native_Control&& other) noexcept : window(std::exchange(other.window, nullptr)) {}
    Native_Control(const Native_Control&) = delete;
    Native_Control& operator=(const Native_Control&) = delete;

    HWND Get() const { return window; }
    LRESULT Send(UINT message, WPARAM wparam = 0, LPARAM lparam = 0) const {
        return SendMessageA(window, message, wparam, lparam);
    }

  private:
    HWND window;
};

/// The native side with one control.
class Native_Side {
  public:
    Native_Side(const char* window_class, const char* text, DWORD style, const RECT& client)
        : control(stage, window_class, text, style, client) {
        stage.Raise();
        stage.Repaint();
    }
    const Stage& Window() const { return stage; }
    const Native_Control& Get() const { return control; }

  private:
    Stage stage;
    Native_Control control;
};

/// The class of a native control that has to be loaded first.
/// @param kind  what to load, such as ICC_BAR_CLASSES
/// @return `window_class`
const char* Common_Control(DWORD kind, const char* window_class);

/// A trackbar without ticks. It has as many positions as pixels, so that its thumb moves by one at a time.
class Native_Trackbar : public Native_Side {
  public:
    explicit Native_Trackbar(const RECT& client);
    int Positions() const { return positions; }
    void Move_To(int position) const;

  private:
    int positions = 0;
};

/// Fails when a native control is themed: a pixel of the face of its button then has another colour.
void Require_Classic(const Stage& stage, POINT face);

/// Something that is done over and over, and shows.
struct Steps {
    const Stage& stage;
    RECT area;         ///< in client coordinates, where every step shows
    int least_pixels;  ///< that every step changes there
    std::function<void(int)> step;
};

/// Fails unless each of the first `count` steps shows.
void Require_Each_Shows(const Steps& steps, int count);

/// Compares one step of each side, until it is on the display. Fails unless every step of both sides shows.
/// @param count  steps of a repetition, which begins where it ended
Result Compare_Steps(const Steps& ours, const Steps& native, int count, Shown shown);

/// Where a movement by one unit a step is, that turns back after `turn` steps and is back after two such.
constexpr int Back_And_Forth(int step, int turn) {
    const int place = step % (2 * turn);
    return place < turn ? place : 2 * turn - place;
}

/// Fails unless the stage shows something in each of the areas, and shows it again by a repaint after it was
/// painted over.
void Require_Repainted(const Stage& stage, const RECT* areas, int count);

}  // namespace bench
