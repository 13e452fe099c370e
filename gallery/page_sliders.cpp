#include <cstdio>

#include "gallery/pages.h"

namespace gallery {

namespace {

template <class Bar>
void Report_Value(const Sheet& sheet, const Bar& bar, const char* action) {
    char text[160];
    std::snprintf(text, sizeof text, "%s \"%s\": Val %.4g", action, bar.Name ? bar.Name : "",
                  double{bar.Val});
    sheet.Report(text);
}

/// What every owner of a bar does: the value under the pointer becomes the bar's.
template <class Bar>
void Take_Value(const Sheet& sheet, Bar& bar, const char* action) {
    bar.Val = bar.Read();
    bar.Adjust();
    Report_Value(sheet, bar, action);
}

template <class Bar>
Bar& Add_Bar(Sheet& sheet, const Place& place, const char* name, unsigned long flag, float start, float end,
             float value) {
    const auto press = [&sheet](Bar& bar) { Take_Value(sheet, bar, "press"); };
    const auto change = [&sheet](Bar& bar) {
        // After the wheel the bar has its value already.
        if (Button_State == 0) return Report_Value(sheet, bar, "wheel");
        Take_Value(sheet, bar, "drag");
    };
    Bar& bar = sheet.Add<Bar>(place, name, flag, press, change);
    bar.Start_Val = start;
    bar.End_Val = end;
    bar.Val = value;
    return bar;
}

constexpr int slider_thickness = 16;
constexpr int slider_length = 200;

/// A slider from 0 to 100, or back, with its name beside it.
Sliders& Add_Slider(Sheet& sheet, int column, int row, const char* name, unsigned long flag = 0) {
    constexpr int name_width = 108;
    const int x = page_area.x + column * 328;
    const int top = page_area.top + 24 + row * 24;
    sheet.Label({x, top - 1, name_width, slider_thickness + 2}, name, FLAG_TEXT_LEFT);
    const bool reversed = flag & SLIDER_REVERSED;
    return Add_Bar<Sliders>(sheet, {x + name_width, top, slider_length, slider_thickness}, name, flag,
                            reversed ? 100.0F : 0.0F, reversed ? 0.0F : 100.0F, 40.0F);
}

void Add_Horizontal_Sliders(Sheet& sheet) {
    Add_Slider(sheet, 0, 0, "Plain");
    Add_Slider(sheet, 0, 1, "Reversed", SLIDER_REVERSED);
    Add_Slider(sheet, 0, 2, "Keeps the grab", SLIDER_KEEP_GRAB);
    Add_Slider(sheet, 0, 3, "Passive bar", FLAG_PASSIVE);
    Add_Slider(sheet, 0, 4, "Only an outline", FLAG_OUTLINE | FLAG_NO_BODY);
    Add_Slider(sheet, 1, 0, "Shows 10 of 100").Larg_Adjust(10, 100);
    Add_Slider(sheet, 1, 1, "Shows 50 of 100").Larg_Adjust(50, 100);
    Add_Slider(sheet, 1, 2, "Shows 90 of 100").Larg_Adjust(90, 100);
    Sliders& stepped = Add_Slider(sheet, 1, 3, "Steps of 10");
    stepped.Step = 10.0F;
    stepped.Arrow_Dim = 12;
    Sliders& amber = Add_Slider(sheet, 1, 4, "Amber, border 2");
    amber.Color = Colors(222, 172, 84);
    amber.Border = 2;
}

void Add_Vertical_Sliders(Sheet& sheet) {
    constexpr int x = page_area.x + 664;
    constexpr int top = page_area.top + 24;
    constexpr int length = 112;
    constexpr unsigned long vertical = FLAG_VERTICAL;
    Add_Bar<Sliders>(sheet, {x, top, 16, length}, "Upright", vertical, 0, 100, 40);
    Sliders& half = Add_Bar<Sliders>(sheet, {x + 28, top, 16, length}, "Upright, reversed",
                                     vertical | SLIDER_REVERSED, 100, 0, 40);
    half.Larg_Adjust(60, 100);
    Add_Bar<Sliders>(sheet, {x + 56, top, 28, length}, "Upright, wide", vertical, 0, 100, 40);
}

struct Valuator_Sample {
    const char* name;
    unsigned long flag;
    float start, end, value;
    const char* format;
};

Valuators& Add_Valuator(Sheet& sheet, const Place& place, const Valuator_Sample& sample) {
    Valuators& valuator =
        Add_Bar<Valuators>(sheet, place, sample.name, sample.flag, sample.start, sample.end, sample.value);
    valuator.Format = sample.format;
    valuator.Num_Width = NUM_DIM + 8;
    valuator.Border = 2;
    return valuator;
}

void Add_Horizontal_Valuators(Sheet& sheet, int top) {
    constexpr unsigned long left = FLAG_TEXT_LEFT;
    const Valuator_Sample samples[] = {
        {"Linear", left, 0, 100, 75, "%.0f"},
        {"Linear, reversed", left | SLIDER_REVERSED, 100, 0, 25, "%.0f"},
        {"Decimal logarithm", left | VALUATOR_LOG_10, 1, 1000, 200, "%.4g"},
        {"Logarithm, reversed", left | VALUATOR_LOG_10 | SLIDER_REVERSED, 1000, 1, 5, "%.4g"},
        {"Natural logarithm", left | VALUATOR_LOG_E, 0.1F, 10, 3, "%.2f"},
        {"Sign", left, -1, 1, 0.5F, "%+.2f"},
        {"Text around the number", left, 0, 100, 75, "%.1f %%"},
        {"Exponent", left, 0, 0.001F, 0.00075F, "%.1e"},
        {"No number field", left, 0, 100, 75, nullptr},
        {"Name in the middle", 0, 0, 100, 5, "%.0f"},
        {"Drag keeps the grab", left | SLIDER_KEEP_GRAB, 0, 100, 75, "%.0f"},
        {"Passive", left | FLAG_PASSIVE, 0, 100, 75, "%.0f"},
        {"Outline: a blue name", left | FLAG_OUTLINE, 0, 100, 75, "%.0f"},
        {nullptr, 0, 0, 100, 75, "%.0f"},
    };
    for (int i = 0; i < static_cast<int>(std::size(samples)); ++i) {
        const Place place{page_area.x + i % 2 * 300, top + i / 2 * 32, 288, VAL_DIM};
        Add_Valuator(sheet, place, samples[i]);
    }
}

void Add_Vertical_Valuators(Sheet& sheet, int top) {
    const Valuator_Sample samples[] = {
        {"LEVEL", FLAG_VERTICAL, 0, 100, 5, nullptr},
        {"DEPTH", FLAG_VERTICAL | SLIDER_REVERSED, 100, 0, 95, nullptr},
        {"GAIN", FLAG_VERTICAL | VALUATOR_LOG_10, 1, 1000, 900, nullptr},
        {"FIXED", FLAG_VERTICAL | VALUATOR_LOCKED, 0, 100, 5, nullptr},
    };
    for (int i = 0; i < static_cast<int>(std::size(samples)); ++i)
        Add_Valuator(sheet, {page_area.x + 606 + i * 38, top, 30, 218}, samples[i]);
}

void Add_Sizes(Sheet& sheet, int top) {
    struct Size_Sample {
        const char* name;
        unsigned long flag;
        int height;
        short border, half_thumb;
    };
    const Size_Sample samples[] = {
        {"Large", VALUATOR_LOCKED, 30, 2, 0},
        {"Medium", VALUATOR_LOCKED, 22, 2, 0},
        {"Small", VALUATOR_LOCKED, 18, 2, 0},
        {"Wide", 0, 30, 4, 32},
    };
    for (int i = 0; i < static_cast<int>(std::size(samples)); ++i) {
        const Size_Sample& sample = samples[i];
        const Place place{page_area.x + i * 190, top + 30 - sample.height, 182, sample.height};
        Valuators& valuator =
            Add_Valuator(sheet, place, {sample.name, sample.flag | FLAG_TEXT_RIGHT, 0, 100, 0, "%.0f"});
        valuator.Border = sample.border;
        if (sample.height < 20) valuator.Font_Size = 7;
        valuator.Curs_Half = sample.half_thumb;
    }
}

}  // namespace

void Build_Sliders(Sheet& sheet) {
    const int top = page_area.top;
    sheet.Heading(page_area.x, top, "Sliders: press an arrow, drag the thumb, turn the wheel");
    Add_Horizontal_Sliders(sheet);
    Add_Vertical_Sliders(sheet);
    sheet.Heading(page_area.x, top + 156, "Valuators: drag the thumb, turn the wheel");
    Add_Horizontal_Valuators(sheet, top + 178);
    Add_Vertical_Valuators(sheet, top + 178);
    sheet.Heading(page_area.x, top + 412, "Locked, in three sizes, and a wider thumb");
    Add_Sizes(sheet, top + 434);
}

}  // namespace gallery
