// Where controls answer what: each pixel of a sheet tells of the pointer there.
#include "tests/pictures/looks.h"
#include "tests/support/controls.h"

using namespace galdren_test;

namespace {

/// Part of a colour that stands for what a control reads.
int Shade(float value) { return static_cast<int>(value * 2) & 255; }
int Shade(unsigned long value) { return static_cast<int>(value ^ value >> 8 ^ value >> 16) & 255; }
int Shade(int value) { return value * 24 & 255; }

/// A colour for what a control answers and reads now.
template <class Control>
COLORREF Answers_Of(Control& control) {
    int answers = 0;
    for (const int event :
         {int{EVENT_TEST}, int{EVENT_MOVE}, EVENT_DRAG | EVENT_LEFT, EVENT_PRESS | EVENT_LEFT}) {
        // A list asks the system whether the button is held on its bar, and a test beside this one may hold
        // it.
        const bool unsure = event == (EVENT_PRESS | EVENT_LEFT) && requires { control.Scroll_Bar; };
        answers = 2 * answers + (!unsure && control.Select(event) != 0);
    }
    int read = 0, hover = 0;
    if constexpr (requires { control.Read(); }) read = Shade(control.Read());
    if constexpr (requires { control.Hover; }) hover = control.Hover;
    return RGB(answers * 17, read, hover * 100);
}

/// A scene of the answers of a control all over its cell, which it gives in a window of its own.
template <class Control>
Scene Answers(int width, int height, unsigned long flag) {
    Test_Window window(width, height);
    Control control;
    const Cell whole{window, 0, 0, width, height};
    whole.Place(control);
    control.Flag = flag;
    Furnish(control, 5);
    control.Init(window), control.Draw();
    std::vector<COLORREF> answers;
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x)
            window.Point_At(x, y), answers.push_back(Answers_Of(control));
    }
    return [=](const Cell& cell) {
        Begin_Draw(cell.window, nullptr);
        for (int i = 0; i < width * height; ++i)
            SetPixelV(Z_DC, cell.x + i % width, cell.y + i / width, answers[static_cast<std::size_t>(i)]);
        End_Draw();
    };
}

}  // namespace

TEST(Pictures, Answers) {
    constexpr int Width = 90, Height = 58;
    Sheet sheet("answers", Width, Height);
    For_Each_Class([&]<class Control>(const char* name) {
        if constexpr (requires(Control & control) { control.Select(0); } &&
                      !std::is_same_v<Control, DirTrees>) {
            for (const unsigned long flag : {0UL, FLAG_VERTICAL, FLAG_NO_BODY, FLAG_PASSIVE})
                sheet.Add(name, Answers<Control>(Width, Height, flag));
        }
    });
    sheet.Add("check list, single", Answers<CheckLists>(Width, Height, CHECKLIST_SINGLE));
    sheet.Expect_Recorded();
}
