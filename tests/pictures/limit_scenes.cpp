// Controls that have little room, odd borders, or hang over the edge of their window. These sheets stand
// apart, for what should be seen there may change while the others stay.
#include "tests/pictures/looks.h"
#include "tests/support/controls.h"

using namespace galdren_test;

namespace {

/// Furnishes a control, but for what needs more room, and goes through the usual calls.
template <class Control>
void Use(Control& control, const Cell& cell) {
    Furnish(control);
    if constexpr (requires { control.Enabled; }) control.Value = 0;
    if constexpr (requires { control.Format; }) control.Format = nullptr;
    control.Name = "Cap";
    cell.Point_Away();
    control.Init(cell.window);
    control.Draw();
    if constexpr (requires { control.Page(0); }) control.Page(control.Height + 20);
    if constexpr (requires { control.Write("line"); }) control.Write("line\nnext");
    if constexpr (requires { control.Start_Val; }) control.Val = 70;
    if constexpr (requires { control.Adjust(); }) control.Adjust();
    cell.Point_At(control);
    if constexpr (requires { control.Select(0); }) control.Select(EVENT_MOVE);
}

/// A scene of a control with these fields; a width of 0 lets it fill its cell.
template <class Control>
Scene Shown(unsigned long flag, short border, SIZE size = {}) {
    return [=](const Cell& cell) {
        Control control;
        cell.Place(control);
        control.Flag = flag, control.Border = border;
        if (size.cx)
            control.Width = static_cast<short>(size.cx), control.Height = static_cast<short>(size.cy);
        Use(control, cell);
    };
}

}  // namespace

TEST(Pictures, Small_Controls) {
    Sheet sheet("small", 60, 48);
    For_Each_Class([&]<class Control>(const std::string& name) {
        for (const SIZE& size : {SIZE{1, 1}, SIZE{3, 2}, SIZE{7, 7}, SIZE{12, 12}, SIZE{20, 20}, SIZE{50, 6},
                                 SIZE{50, 13}, SIZE{9, 40}, SIZE{16, 40}, SIZE{50, 40}}) {
            sheet.Add(name + ' ' + std::to_string(size.cx) + " x " + std::to_string(size.cy),
                      Shown<Control>(size.cy > size.cx ? FLAG_VERTICAL : 0, 0, size));
        }
    });
    sheet.Expect_Recorded();
}

TEST(Pictures, Odd_Borders) {
    Sheet sheet("odd-borders", 60, 44);
    For_Each_Class([&]<class Control>(const std::string& name) {
        for (const short border : std::initializer_list<short>{-5, 1, 9, 40}) {
            for (const unsigned long flag : {0UL, FLAG_INNER_FRAME})
                sheet.Add(name + ", border " + std::to_string(border), Shown<Control>(flag, border));
        }
    });
    sheet.Expect_Recorded();
}

TEST(Pictures, Edges_Of_The_Window) {
    Sheet sheet("edges", 700, 420);
    sheet.Add("all", [](const Cell& cell) {
        int count = 0;
        For_Each_Class([&]<class Control>(const char*) {
            const int step = count / 2 * 100 - 40;
            const bool odd = count++ % 2;
            for (const POINT& at : {POINT{step, odd ? -30 : 390}, POINT{odd ? -45 : 655, step / 2 + 60}})
                Shown<Control>(0, 0)({cell.window, at.x, at.y, 90, 60});
        });
    });
    sheet.Expect_Recorded();
}
