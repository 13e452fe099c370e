/// @file
/// A sheet of controls: what one page, the header and the status line are made of.
#pragma once

#include <concepts>
#include <functional>
#include <span>
#include <string>
#include <vector>

#include "host/host.h"

namespace gallery {

/// The client area that all positions are given for; a larger window keeps them at the top, centred.
constexpr SIZE design_size{800, 600};

/// A place on the sheet in pixels of the client area of `design_size`, y downward from its top.
struct Place {
    int x, top, width, height;
};

using Names = std::span<const char* const>;

/// Gives a list, a selector or a tab set an item for each name.
/// @param flags  style of the items, see `Grow`
template <class Owner>
void Name_Items(Owner& owner, Names names, unsigned long flags = 0) {
    owner.Grow(static_cast<int>(names.size()), static_cast<int>(flags));
    for (std::size_t i = 0; i < names.size(); ++i)
        owner.Item[i]->Name = names[i];
}

/// Owns controls, knows where they stand, and says what the user did with them.
class Sheet {
  public:
    /// Receives what happened, such as `press "Plain": Value 1`.
    using Reporter = std::function<void(const std::string& text)>;

    Sheet(Host& owner, Reporter reporter);

    /// Adds a control of any class with the fields that all controls have.
    /// @param on_press   see `Host::Add`
    /// @param on_change  see `Host::Add`
    template <class Control>
    Control& Add(const Place& place, const char* name, unsigned long flag = 0,
                 std::function<void(Control&)> on_press = {}, std::function<void(Control&)> on_change = {}) {
        auto control = std::make_shared<Control>();
        Fill_In(*control, place, name, flag);
        items.push_back(
            {control,
             [this, &added = *control, on_press, on_change] { host.Add(added, on_press, on_change); },
             Move<Control>, std::same_as<Control, Labels>});
        return *control;
    }

    Boxs& Box(const Place& place, const char* name, unsigned long flag = 0);
    /// A button that toggles when it is pressed: its lamp when it has one, else its value.
    Buttons& Button(const Place& place, const char* name, unsigned long flag = 0);
    Labels& Label(const Place& place, const char* name, unsigned long flag = 0);
    /// Title of a group of controls.
    Labels& Heading(int x, int top, const char* name);
    /// A sunken plate without reaction, to put a label on.
    Boxs& Plate(const Place& place);
    /// A light plate without reaction, to put a control on whose own text is dark.
    Boxs& Paper(const Place& place);

    /// Adds the controls to the host, above those that it has. Screen readers call one without a caption
    /// after the label before it, which is mostly the title of its group.
    /// @param title  what they call those that stand before the first label
    void Show(const char* title) const;
    /// Takes the controls from the host.
    void Hide() const;
    /// Moves the controls to where they stand in a client area of this size, in pixels of the design. They
    /// need `Init` afterwards.
    void Fit(SIZE client);

    void Report(const std::string& text) const { report(text); }
    /// What the control's `Select` answered that is being reported; see `Host::Answer`.
    int Answer() const { return host.Answer(); }
    /// Has the rectangle of `control` painted anew; see `Host::Refresh`.
    void Refresh(const Tools& control) const { host.Refresh(control); }

  private:
    struct Item {
        std::shared_ptr<Tools> control;
        std::function<void()> show;
        void (*move)(Tools& control, int right, int up);
        bool is_label;
    };

    template <class Control>
    static void Move(Tools& control, int right, int up) {
        // Fields are in pixels of the scale that the control has.
        const int scale = control.Scale ? control.Scale : 100;
        right = MulDiv(right, scale, 100);
        up = MulDiv(up, scale, 100);
        control.X = static_cast<short>(control.X + right);
        control.Y = static_cast<short>(control.Y + up);
        control.Clip_X = static_cast<short>(control.Clip_X + right);
        control.Clip_Y = static_cast<short>(control.Clip_Y + up);
        if constexpr (requires(Control & list) { list.Scroll_Bar; }) {
            // The value of a list's bar is a coordinate; 0 stands for the start.
            float& value = static_cast<Control&>(control).Scroll_Bar.Val;
            const int along = control.Flag & FLAG_VERTICAL ? up : right;
            if (value != 0.0F) value += static_cast<float>(along);
        }
    }

    static void Fill_In(Tools& control, const Place& place, const char* name, unsigned long flag);
    void Press(Buttons& button) const;

    Host& host;
    Reporter report;
    std::vector<Item> items;
    SIZE fitted = design_size;
};

}  // namespace gallery
