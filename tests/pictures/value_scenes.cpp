// What holds a value: sliders, valuators, the editors of colours, text fields.
#include "tests/pictures/looks.h"

using namespace galdren_test;

namespace {

template <class Bar>
void Across(Bar& bar) {
    (bar.Flag & SLIDER_REVERSED ? bar.Start_Val : bar.End_Val) = 100;
    bar.Val = 37.5F;
}

template <class Bar>
void Upright(Bar& bar) {
    Across(bar);
    bar.Flag |= FLAG_VERTICAL;
}

template <class Bar>
Looks<Bar> Bar_Looks() {
    return Flags<Bar>({0, FLAG_NO_BODY, FLAG_PASSIVE, FLAG_STATIC, FLAG_OUTLINE, FLAG_OUTLINE | FLAG_STATIC,
                       SLIDER_REVERSED}) +
           Colored_Looks<Bar>() +
           Looks<Bar>{
               {"thick border", 0, [](auto& b) { b.Border = 3; }},
               {"long thumb", SLIDER_KEEP_GRAB, [](auto& b) { b.Curs_Half = 22; }},
               {"at the start", 0, [](auto& b) { b.Val = 0; }},
               {"at the end", 0, [](auto& b) { b.Val = 100; }},
           };
}

/// The pointer goes on a part of the bar and holds the thumb there.
template <class Bar>
void Drag(Bar& bar, const Cell& cell, int event, int part) {
    cell.Point_At(bar, bar.Width * part / 8, bar.Height * part / 8);
    bar.Select(event | EVENT_LEFT);
    bar.Val = bar.Read();
    bar.Adjust();
}

template <class Bar>
Steps<Bar> Bar_Steps() {
    return Rest_And_Light<Bar>() +
           Steps<Bar>{
               [](auto& b, auto&) { b.Val = 80, b.Adjust(); },
               [](auto& b, auto&) { b.Scroll(-9); },
               [](auto& b, auto& at) { Drag(b, at, EVENT_PRESS, 3), Drag(b, at, EVENT_DRAG, 5); },
               [](auto& b, auto& at) { Drag(b, at, EVENT_PRESS, 0), b.Deselect(); },
           };
}

template <class Editor>
void Fill_Editor(Editor& editor) {
    editor.Value = 0xFFB47832, editor.Border = 3;
}

template <class Editor>
Looks<Editor> Editor_Looks() {
    return Flags<Editor>({0, FLAG_NO_BODY, FLAG_PASSIVE, FLAG_STATIC, FLAG_OUTLINE}) +
           Looks<Editor>{
               {"no frame", 0, [](auto& e) { e.Border = 0; }},
               {"bright", 0, [](auto& e) { e.Color = Colors(90, 200, 120); }},
               {"clipped", 0, [](auto& e) { Clip(e); }},
               {"24 points", 0, [](auto& e) { e.Font_Size = 24; }},
           };
}

template <class Editor>
Steps<Editor> Editor_Steps() {
    return {
        nullptr,
        [](auto& e, auto& at) {
            at.Point_At(e), e.Select(EVENT_MOVE), e.Select(EVENT_PRESS | EVENT_LEFT), e.Value = e.Read(),
                                                                                      e.Adjust();
        },
        [](auto& e, auto&) { e.Value = 0xFFFF8040, e.Adjust(); },
        [](auto& e, auto& at) { at.Point_At(e), e.Select(EVENT_MOVE), e.Scroll(9), e.Deselect(); },
    };
}

/// Every third line is in all colours and fonts, and the next is wider than there is room.
void Write_Lines(Texts& text, int count) {
    constexpr const char* lines[] = {"\x01%d\xF1 a\t\x04 b\xF2 c\xF0\x05 d\x06 e\x03 f",
                                     "%d, which is wider than the room", "%d"};
    for (int i = 0; i < count; ++i)
        text.Write(lines[i % 3], i);
}

/// The pointer goes on the field, which reads.
void Type(Texts& text, const Cell& cell, std::initializer_list<int> keys) {
    cell.Point_At(text), text.Read("abc"), text.Select(EVENT_MOVE);
    for (const int key : keys)
        text.Input(key);
}

constexpr int Left_Key = 2085, Backspace = 8;

}  // namespace

TEST(Pictures, Sliders) {
    Sheet sheet("sliders", 110, 28), upright("sliders-upright", 28, 110);
    sheet.Add_All<Sliders>(Across, Bar_Looks<Sliders>(), Bar_Steps<Sliders>());
    upright.Add_All<Sliders>(Upright, Bar_Looks<Sliders>(), Bar_Steps<Sliders>());
    sheet.Expect_Recorded(), upright.Expect_Recorded();
}

TEST(Pictures, Valuators) {
    const Looks<Valuators> more =
        Flags<Valuators>({VALUATOR_LOCKED, FLAG_TEXT_LEFT, FLAG_TEXT_WHITE}) + Fonts<Valuators>() +
        Looks<Valuators>{
            {"number", 0, [](auto& v) { v.Format = "%.1f m", v.Num_Width = 40; }},
            {"number, clipped", 0,
             [](auto& v) { v.Format = "%.1f", v.Num_Width = 40, v.Border = 2, Clip(v); }},
            {"logarithmic", VALUATOR_LOG_10, [](auto& v) { v.Start_Val = 1, v.End_Val = 1000; }},
        };
    Sheet sheet("valuators", 120, 34), upright("valuators-upright", 32, 110);
    sheet.Add_All<Valuators>(Across, Bar_Looks<Valuators>() + more, Bar_Steps<Valuators>());
    upright.Add_All<Valuators>(Upright, Bar_Looks<Valuators>() + Flags<Valuators>({VALUATOR_LOCKED}),
                               Bar_Steps<Valuators>());
    // Room for a padlock of 16, 10, 8 and 0 pixels.
    for (const short height : std::initializer_list<short>{19, 18, 13, 12, 11, 10}) {
        sheet.Add("padlock in " + std::to_string(height), [=](const Cell& cell) {
            Valuators v;
            cell.Place(v);
            v.Height = height, v.Border = 1, v.Flag = VALUATOR_LOCKED;
            Across(v), v.Init(cell.window), v.Draw();
        });
    }
    sheet.Expect_Recorded(), upright.Expect_Recorded();
}

TEST(Pictures, Editors_Of_Colours) {
    constexpr unsigned long Mode = COLOR_EDIT_MODE_BUTTON, HLS = COLOR_EDIT_HLS;
    Sheet hue("hue-editors", 170, 46), color("color-editors", 200, 90);
    hue.Add_All<Hue_Edit>(Fill_Editor, Editor_Looks<Hue_Edit>(), Editor_Steps<Hue_Edit>());
    color.Add_All<Color_Edit>(
        Fill_Editor, Editor_Looks<Color_Edit>() + Flags<Color_Edit>({HLS, Mode, HLS | Mode | FLAG_OUTLINE}),
        Editor_Steps<Color_Edit>());
    hue.Expect_Recorded(), color.Expect_Recorded();
}

TEST(Pictures, Consoles) {
    const Steps<Texts> steps{
        nullptr,
        [](auto& t, auto&) { Write_Lines(t, 4); },
        [](auto& t, auto&) { Write_Lines(t, 14), t.OverWrite("over\nand on"); },
        [](auto& t, auto& at) { Write_Lines(t, 14), at.Point_At(t), t.Scroll(-2), t.Write("new"); },
        [](auto& t, auto& at) {
            Write_Lines(t, 6), Type(t, at, {'d', 'e', Left_Key});
        },
        [](auto& t, auto& at) {
            Write_Lines(t, 14), Type(t, at, {}), t.Draw(), at.Point_Away(), t.Select(EVENT_MOVE);
        },
    };
    Sheet sheet("consoles", 150, 96);
    sheet.Add_All<Texts>(
        nullptr,
        Flags<Texts>({0, FLAG_NO_BODY, FLAG_STATIC, FLAG_OUTLINE, TEXT_V_BAR, TEXT_V_BAR | TEXT_H_BAR,
                      TEXT_INPUT_ROOM}) +
            Fonts<Texts>() +
            Looks<Texts>{{"clipped", TEXT_V_BAR, [](auto& t) { Clip(t); }},
                         {"no title", FLAG_PASSIVE,
                          [](auto& t) { t.Name = nullptr, t.Border = 1, t.Color = Colors(190, 196, 204); }}},
        steps);
    sheet.Expect_Recorded();
}

TEST(Pictures, Entries) {
    const Steps<Texts> steps{
        nullptr,
        [](auto& t, auto&) { t.Read("some text"); },
        [](auto& t, auto& at) {
            Type(t, at, {'d', 'e', Left_Key, Backspace});
        },
        [](auto& t, auto& at) {
            t.Read("text that is wider than the field"), at.Point_At(t), t.Select(EVENT_MOVE);
        },
        [](auto& t, auto& at) { Type(t, at, {}), at.Point_Away(), t.Select(EVENT_MOVE); },
    };
    Sheet sheet("entries", 110, 36);
    sheet.Add_All<Texts>(
        [](auto& t) { t.Flag |= TEXT_SINGLE_LINE; },
        Flags<Texts>({0, FLAG_NO_BODY, FLAG_PASSIVE, FLAG_STATIC, FLAG_OUTLINE, TEXT_PASSWORD}) +
            Colored_Looks<Texts>() + Fonts<Texts>(),
        steps);
    sheet.Expect_Recorded();
}
