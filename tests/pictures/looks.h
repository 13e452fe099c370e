/// @file
/// Looks and steps that many controls share.
#pragma once

#include <initializer_list>

#include "tests/pictures/sheet.h"

namespace galdren_test {

template <class Element>
std::vector<Element> operator+(std::vector<Element> list, const std::vector<Element>& more) {
    list.insert(list.end(), more.begin(), more.end());
    return list;
}

/// Leaves the middle half of a control.
inline void Clip(Tools& control) {
    control.Clip_X = static_cast<short>(control.X + control.Width / 4);
    control.Clip_Y = static_cast<short>(control.Y + control.Height / 4);
    control.Clip_Width = static_cast<short>(control.Width / 2);
    control.Clip_Height = static_cast<short>(control.Height / 2);
}

/// Gives a control an image for the normal state in which no pixel is like its neighbours.
inline void Give_Image(Tools& control) {
    control.Alloc_Graph_Normal(0);
    for (int i = 0; i < control.Width * control.Height; ++i)
        control.Graph_Normal[i] =
            static_cast<unsigned long>(i % control.Width * 0x301 + i / control.Width * 0x70000);
}

template <class Control>
Looks<Control> Flags(std::initializer_list<unsigned long> flags) {
    Looks<Control> looks;
    for (const unsigned long flag : flags)
        looks.push_back({(std::ostringstream() << "flag " << std::hex << std::showbase << flag).str(), flag});
    return looks;
}

/// The system smooths letters of 24, 15 and 6 points, and not those of 9.
template <class Control>
Looks<Control> Fonts() {
    return {
        {"24 points", 0, [](auto& c) { c.Font_Size = 24, c.Name = "Ag"; }},
        {"15 points", 0, [](auto& c) { c.Font_Size = 15, c.Font_Weight = "bold", c.Font_Style = "i"; }},
        {"6 points", 0, [](auto& c) { c.Font_Size = 6; }},
        {"font of the system", 0, [](auto& c) { c.Font_Name = nullptr, c.Font_Size = 0; }},
    };
}

template <class Control>
Looks<Control> Colored_Looks() {
    return {
        {"clipped", 0, [](auto& c) { Clip(c); }},
        {"image", 0, [](auto& c) { Give_Image(c); }},
        {"clipped image", 0, [](auto& c) { Clip(c), Give_Image(c); }},
        {"bright", 0, [](auto& c) { c.Color = Colors(240, 90, 10); }},
        {"beyond black and white", 0, [](auto& c) { c.Color = Colors(-30, 300, 128); }},
    };
}

/// What simple controls look like by their flags, captions and colours.
template <class Control>
Looks<Control> Common_Looks() {
    constexpr unsigned long Top_Left = FLAG_TEXT_TOP | FLAG_TEXT_LEFT,
                            Bottom_Right = FLAG_TEXT_BOTTOM | FLAG_TEXT_RIGHT;
    return Flags<Control>({0, FLAG_NO_BODY, FLAG_PASSIVE, FLAG_STATIC, FLAG_OUTLINE,
                           FLAG_OUTLINE | FLAG_STATIC, FLAG_OWN_IMAGES, Top_Left, Bottom_Right,
                           FLAG_TEXT_MIDDLE, FLAG_INNER_FRAME, FLAG_TEXT_WHITE, FLAG_RAISED,
                           FLAG_RAISED | FLAG_INNER_FRAME, FLAG_NO_RIM}) +
           Colored_Looks<Control>() + Fonts<Control>() +
           Looks<Control>{
               {"upright", FLAG_VERTICAL, [](auto& c) { c.Name = "Up"; }},
               {"upright at a corner", FLAG_VERTICAL | Top_Left, [](auto& c) { c.Name = "Up"; }},
               {"ampersand and tab", 0, [](auto& c) { c.Name = "A&B &&\tx"; }},
               {"too long", 0, [](auto& c) { c.Name = "A caption that is wider than the control"; }},
               {"no name, thin border", 0, [](auto& c) { c.Name = nullptr, c.Border = 1; }},
           };
}

template <class Control>
Steps<Control> Rest_And_Light() {
    return {
        nullptr,
        [](auto& c, auto& at) { at.Point_At(c), c.Select(EVENT_MOVE); },
    };
}

/// Lit by `Draw`, then not any more.
template <class Control>
Steps<Control> Leave() {
    return {
        [](auto& c, auto& at) { at.Point_At(c), c.Draw(), at.Point_Away(), c.Select(EVENT_MOVE); },
        [](auto& c, auto& at) { at.Point_At(c), c.Draw(), c.Deselect(); },
    };
}

}  // namespace galdren_test
