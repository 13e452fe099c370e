/// @file
/// Sheets of scenes that are compared with recorded pictures.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "Galdren_Tools.h"
#include "tests/support/window.h"

namespace galdren_test {

/// The place of a scene in a window.
struct Cell {
    const Test_Window& window;
    int x, y;  ///< bottom-left corner
    int width, height;

    /// Has a control fill the cell but for a margin, and gives it a name and a font.
    void Place(Tools& control) const;
    /// Puts the pointer on a place of a control, counted from its bottom-left corner.
    void Point_At(const Tools& control, int right, int up) const {
        window.Point_At(control.X + right, control.Y + up);
    }
    void Point_At(const Tools& control) const { Point_At(control, control.Width / 2, control.Height / 2); }
    void Point_Away() const { window.Point_At(-10, -10); }
};

using Scene = std::function<void(const Cell&)>;

/// How a control is set up before `Init`.
template <class Control>
struct Look {
    std::string name;
    unsigned long flag = 0;
    void (*dress)(Control&) = nullptr;
};
template <class Control>
using Looks = std::vector<Look<Control>>;

/// What happens to a control that has been drawn at rest; null is nothing.
template <class Control>
using Steps = std::vector<void (*)(Control&, const Cell&)>;

/// Scenes side by side on a window with a striped ground, so that what is painted too far, or not at all,
/// shows.
class Sheet {
  public:
    /// @param name  of the recorded picture, without ".png"
    Sheet(const char* name, int cell_width, int cell_height);

    void Add(std::string name, Scene scene);
    /// Adds a scene for each look after each step.
    /// @param dress  sets what all of them need, before the look does
    template <class Control>
    void Add_All(void (*dress)(Control&), const Looks<Control>& looks, const Steps<Control>& steps) {
        for (const Look<Control>& look : looks) {
            int number = 0;
            for (const auto step : steps) {
                Add(look.name + ", step " + std::to_string(number++), [=](const Cell& cell) {
                    Control control;
                    cell.Place(control);
                    control.Flag = look.flag;
                    if (dress) dress(control);
                    if (look.dress) look.dress(control);
                    cell.Point_Away();
                    control.Init(cell.window);
                    control.Draw();
                    if (step) step(control, cell);
                });
            }
        }
    }
    /// Paints all scenes directly on a window, in batches, between `Begin_Draw` and `End_Draw`, on a window
    /// that is held, on one with a context of its own, and without memory for pictures. All have to give the
    /// recorded picture; what differs is told by scenes. With a folder in the environment variable
    /// GALDREN_RECORD the picture is written there first.
    void Expect_Recorded() const;

  private:
    struct Way;
    static const Way Ways[];
    int Columns() const;
    int Rows() const;
    Picture Paint(const Way& way) const;
    std::string Compare(const Picture& got, const Picture& wanted) const;

    std::string name_;
    int cell_width_, cell_height_;
    std::vector<std::pair<std::string, Scene>> scenes_;
};

}  // namespace galdren_test
