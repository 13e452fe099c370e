/// @file
/// The fields of text fields.
#pragma once

#include "slider.h"

/// Bits of `Texts::Mode`.
enum Text_Mode : unsigned char {
    TEXT_READING = 1,  ///< the input line takes keys
    TEXT_ENTERED = 2,  ///< a line was entered
    TEXT_CHANGED = 4   ///< the line changed, with `TEXT_REPORT_CHANGES`
};

/// Values of `Texts::Caret`.
enum Text_Caret : unsigned char {
    CARET_AT_POINTER = 0,  ///< shown while the pointer is inside
    CARET_SHOWN = 1,       ///< shown wherever the pointer is
    CARET_AWAY = 2         ///< not shown
};

/// The fields of a text field, all zero at first.
struct Text_Fields {
    static constexpr int Most_Lines = 4096;    ///< output lines that are kept
    static constexpr int Most_History = 50;    ///< entered lines that are kept
    static constexpr int Line_Room = 256;      ///< bytes of a line with its end
    static constexpr int Longest_Input = 254;  ///< characters that can be typed

    short Bar_Dim{};         ///< thickness of the scroll bars in pixels; 0 means `CURSEUR`
    unsigned char Mode{};    ///< see `Text_Mode`; 0 while idle
    char Line[Line_Room]{};  ///< the input line
    short Select_State{};    ///< 0 unknown, 1 the pointer is inside and the caret is shown, 2 outside
    int Char_Width{};        ///< width of "H" in the normal font, in pixels
    int Line_Height{};       ///< height of the normal font and pitch of the output lines, in pixels
    HFONT Bold_Font{};       ///< font of the input line and of `TEXT_BOLD_FONT`; owned
    HFONT Oblique_Font{};    ///< font of `TEXT_OBLIQUE_FONT`; owned
    char** Lines{};          ///< `Most_Lines` output lines, the newest first, null where there is none; owned
    char** History{};        ///< `Most_History` entered lines, the newest first; owned
    short* Line_Width{};     ///< width of each output line when it was painted last, in pixels; owned
    Sliders V_Slider;      ///< vertical scroll bar; its `Val` is how far the output is scrolled up, in pixels
    Sliders H_Slider;      ///< horizontal scroll bar; its `Val` is how far it is scrolled right
    short History_Pos{};   ///< index of the entered line that Up brings next
    short Cursor_Pos{};    ///< index in `Line` of the character behind the caret
    short Input_Box[4]{};  ///< input line: left, right, top, bottom
    unsigned char Caret{};  ///< see `Text_Caret`; set by `Show_Caret`
};
