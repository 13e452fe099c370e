/// @file
/// Small pictures of single controls, for the tables of the manual.
#pragma once

#include <concepts>

#include "gallery/picture.h"
#include "gallery/sheet.h"

namespace gallery {

class Stage;

/// One picture: a control twice, at rest and with the pointer on it.
template <class Control>
struct Look {
    const char* name;                         ///< last part of the file's name
    unsigned long flag;                       ///< style of the control
    void (*dress)(Control&) = nullptr;        ///< sets what else the picture needs, before `Init`
    void (*use)(Stage&, Control&) = nullptr;  ///< uses the control at the right after it has been painted
    SIZE size{};                              ///< of the control; that of its family when it is empty
};

/// A window on which controls are shown and photographed.
class Stage {
  public:
    /// @param target  directory of the pictures, made when it is not there
    explicit Stage(std::string target);
    ~Stage();
    Stage(const Stage&) = delete;
    Stage& operator=(const Stage&) = delete;

    /// Writes FAMILY-NAME.png for every look. Throws when a picture cannot be written.
    /// @param size   of a control
    /// @param dress  sets what all pictures of the family need, before `Init`
    template <class Control>
    void Take(const char* family, SIZE size, void (*dress)(Control&),
              std::initializer_list<Look<Control>> looks) {
        for (const Look<Control>& look : looks)
            Take(std::string(family) + '-' + look.name, look.size.cx ? look.size : size, dress, look);
    }

    /// Presses the left button at one point of the window, in pixels from its top left corner, and moves the
    /// pointer to another.
    void Drag(POINT from, POINT to);

  private:
    template <class Control>
    void Take(const std::string& name, SIZE size, void (*dress)(Control&), const Look<Control>& look) {
        Sheet sheet(host, [](const std::string&) {});
        Control* control = nullptr;
        for (const Place& place : {Left_Place(size), Right_Place(size)}) {
            control = &sheet.Add<Control>(place, "Caption", look.flag, Follow<Control>, Follow<Control>);
            if (dress) dress(*control);
            if (look.dress) look.dress(*control);
        }
        sheet.Show(nullptr);
        host.Init_All();
        Paint();
        const Place right = Right_Place(size);
        Point_At({right.x + right.width * 3 / 4, right.top + right.height * 3 / 5});
        if (look.use) look.use(*this, *control);
        Photograph(name, size);
        host.Clear();
    }

    /// A bar follows the pointer that drags it.
    template <class Control>
    static void Follow(Control& control) {
        if constexpr (std::same_as<Control, Sliders>) {
            control.Val = control.Read();
            control.Adjust();
        }
    }

    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam);
    static Place Left_Place(SIZE size);
    static Place Right_Place(SIZE size);
    void Paint() const;
    void Paint_Ground() const;
    void Point_At(POINT point, WPARAM held = 0);
    void Photograph(const std::string& name, SIZE size) const;

    std::string directory;
    Picture_Writer writer;
    HWND window;
    Host host;
    POINT pointer{};
};

}  // namespace gallery
