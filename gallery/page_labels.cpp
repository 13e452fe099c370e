#include "gallery/pages.h"

namespace gallery {

namespace {

constexpr int half = 368;                                         // width of each half of the page
constexpr int right_half = page_area.x + page_area.width - half;  // labels left, boxes right

struct Placement {
    const char* name;
    unsigned long flag;
};

constexpr int cell_columns = 3;
constexpr Placement horizontal[] = {
    {"top left", FLAG_TEXT_TOP | FLAG_TEXT_LEFT},
    {"top", FLAG_TEXT_TOP},
    {"top right", FLAG_TEXT_TOP | FLAG_TEXT_RIGHT},
    {"left", FLAG_TEXT_MIDDLE | FLAG_TEXT_LEFT},
    {"centred", FLAG_TEXT_MIDDLE},
    {"right", FLAG_TEXT_MIDDLE | FLAG_TEXT_RIGHT},
    {"bottom left", FLAG_TEXT_BOTTOM | FLAG_TEXT_LEFT},
    {"bottom", FLAG_TEXT_BOTTOM},
    {"bottom right", FLAG_TEXT_BOTTOM | FLAG_TEXT_RIGHT},
};

constexpr Placement vertical[] = {
    {"TOP", FLAG_VERTICAL | FLAG_TEXT_TOP},
    {"MID", FLAG_VERTICAL | FLAG_TEXT_MIDDLE},
    {"LOW", FLAG_VERTICAL | FLAG_TEXT_BOTTOM},
    {"LEFT", FLAG_VERTICAL | FLAG_TEXT_MIDDLE | FLAG_TEXT_LEFT},
    {"RIGHT", FLAG_VERTICAL | FLAG_TEXT_MIDDLE | FLAG_TEXT_RIGHT},
};

/// A label with its rectangle made visible.
Labels& Shown_Label(Sheet& sheet, const Place& place, const char* name, unsigned long flag) {
    sheet.Plate({place.x - 3, place.top - 3, place.width + 6, place.height + 6});
    return sheet.Label(place, name, flag);
}

/// A caption keeps clear of a frame that is given, but not of one that stands for 0.
void Add_Box(Sheet& sheet, const Place& place, const Placement& placement) {
    sheet.Box(place, placement.name, placement.flag).Border = BORDER;
}

Place Cell(int left, int top, int index) {
    constexpr int step = (half + 8) / cell_columns;
    return {left + index % cell_columns * step, top + index / cell_columns * 42, step - 8, 34};
}

void Add_Placements(Sheet& sheet) {
    const int top = page_area.top;
    sheet.Heading(page_area.x, top, "Labels: a bottom place exists only for vertical text");
    sheet.Heading(right_half, top, "Captions of boxes: nine places");
    for (int i = 0; i < static_cast<int>(std::size(horizontal)); ++i) {
        Place place = Cell(page_area.x, top + 22, i);
        place = {place.x + 3, place.top + 3, place.width - 6, place.height - 6};
        Shown_Label(sheet, place, horizontal[i].name, horizontal[i].flag);
        Add_Box(sheet, Cell(right_half, top + 22, i), horizontal[i]);
    }
}

void Add_Vertical(Sheet& sheet) {
    const int top = page_area.top + 158;
    constexpr int step = 75;
    sheet.Heading(page_area.x, top, "Vertical labels");
    sheet.Heading(right_half, top, "Vertical captions");
    for (int i = 0; i < static_cast<int>(std::size(vertical)); ++i) {
        const int x = i * step;
        Shown_Label(sheet, {page_area.x + x + 3, top + 25, 62, 82}, vertical[i].name, vertical[i].flag);
        Add_Box(sheet, {right_half + x, top + 22, 68, 88}, vertical[i]);
    }
}

void Add_Fonts(Sheet& sheet) {
    struct Sample {
        const char* name;
        const char* face;
        const char* weight;
        const char* style;
        short size;
    };
    const Sample samples[] = {
        {"Regular", "Arial", nullptr, nullptr, 12},
        {"Bold", "Arial", "bold", nullptr, 12},
        {"Italic", "Arial", nullptr, "i", 12},
        {"Bold italic", "Arial", "bold", "i", 12},
        {"Courier", "Courier New", nullptr, nullptr, 12},
        {"Times", "Times New Roman", nullptr, nullptr, 12},
        {"8 pt", "Arial", nullptr, nullptr, 8},
        {"10 pt", "Arial", nullptr, nullptr, 10},
        {"14 pt", "Arial", nullptr, nullptr, 14},
        {"18 pt", "Arial", nullptr, nullptr, 18},
        {"24 pt", "Arial", nullptr, nullptr, 24},
        {"Stock font", nullptr, nullptr, nullptr, 0},
    };
    constexpr int columns = 6;
    constexpr int step = page_area.width / columns;
    const int top = page_area.top + 280;
    sheet.Heading(page_area.x, top, "Faces, weights, styles and sizes");
    for (int i = 0; i < static_cast<int>(std::size(samples)); ++i) {
        const Place place{page_area.x + i % columns * step, top + 20 + i / columns * 32, step - 4, 32};
        Labels& label = sheet.Label(place, samples[i].name, FLAG_TEXT_LEFT);
        label.Font_Name = samples[i].face;
        label.Font_Weight = samples[i].weight;
        label.Font_Style = samples[i].style;
        label.Font_Size = samples[i].size;
    }
}

void Add_Colors(Sheet& sheet) {
    const int top = page_area.top + 372;
    sheet.Heading(page_area.x, top, "Colours: a black label is white");
    sheet.Heading(right_half, top, "Colours of captions");
    const Colors colors[] = {{0, 0, 0}, {240, 200, 120}, {150, 220, 160}, {150, 190, 250}, {250, 150, 150}};
    const char* names[] = {"White", "Amber", "Mint", "Sky", "Rose"};
    for (int i = 0; i < 5; ++i) {
        Labels& label = Shown_Label(sheet, {page_area.x + i * 75 + 3, top + 25, 62, 22}, names[i], 0);
        label.Color = colors[i];
        label.Font_Weight = "bold";
    }
    constexpr unsigned long middle = FLAG_TEXT_MIDDLE;
    sheet.Box({right_half, top + 22, 116, 28}, "Black", middle);
    sheet.Box({right_half + 126, top + 22, 116, 28}, "White", middle | FLAG_TEXT_WHITE).Color =
        Colors(70, 84, 110);
    const Place last{right_half + 252, top + 22, 116, 28};
    sheet.Paper(last);
    sheet.Box(last, "Blue", middle | FLAG_OUTLINE | FLAG_NO_BODY);
}

void Add_Special(Sheet& sheet) {
    const int top = page_area.top + 434;
    sheet.Heading(page_area.x, top, "Tabs, ampersands, clipping");
    Shown_Label(sheet, {page_area.x + 3, top + 25, 142, 22}, "Tab\tstops\there", FLAG_TEXT_LEFT);
    Shown_Label(sheet, {page_area.x + 160, top + 25, 92, 22}, "Fish & chips", 0);
    Labels& clipped =
        Shown_Label(sheet, {page_area.x + 267, top + 25, 98, 22}, "Clipped in the middle", FLAG_TEXT_LEFT);
    clipped.Clip_X = clipped.X;
    clipped.Clip_Y = static_cast<short>(clipped.Y - 1);
    clipped.Clip_Width = 64;
    clipped.Clip_Height = clipped.Height;
    sheet.Box({right_half, top + 22, 116, 28}, "Tab\tstops", FLAG_TEXT_MIDDLE);
    sheet.Box({right_half + 126, top + 22, 116, 28}, "R&D, Q&&A", FLAG_TEXT_MIDDLE);
    sheet.Box({right_half + 252, top + 22, 116, 28}, "Much too long to fit in",
              FLAG_TEXT_MIDDLE | FLAG_TEXT_LEFT);
}

}  // namespace

void Build_Labels(Sheet& sheet) {
    Add_Placements(sheet);
    Add_Vertical(sheet);
    Add_Fonts(sheet);
    Add_Colors(sheet);
    Add_Special(sheet);
}

}  // namespace gallery
