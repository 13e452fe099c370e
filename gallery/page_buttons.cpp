#include "gallery/artwork.h"
#include "gallery/pages.h"

namespace gallery {

namespace {

constexpr int columns = 6;
constexpr int button_width = 117;
constexpr int button_height = 30;
constexpr int column_step = (page_area.width - button_width) / (columns - 1);
constexpr int row_step = 40;

/// Place of a button in the group that begins at `top`.
Place Cell(int top, int index, int height = button_height) {
    return {page_area.x + index % columns * column_step,
            page_area.top + top + 22 + index / columns * row_step, button_width, height};
}

constexpr unsigned long lamp = BUTTON_LAMP;
constexpr unsigned long color_lamp = BUTTON_LAMP | BUTTON_LAMP_COLORS;

struct Sample {
    const char* name;
    unsigned long flag;
    short value;
};

void Add_Looks(Sheet& sheet, int top) {
    const Sample samples[] = {
        {"Plain", 0, 0},
        {"Down", 0, 1},
        {"Passive", FLAG_PASSIVE, 0},
        {"Passive, down", FLAG_PASSIVE, 1},
        {"Static", FLAG_STATIC, 0},
        {"Outline", FLAG_OUTLINE | FLAG_STATIC, 0},
        {"No rim", FLAG_NO_RIM, 0},
        {"Left", FLAG_TEXT_LEFT, 0},
        {"Right", FLAG_TEXT_RIGHT, 0},
        {"A caption that does not fit", 0, 0},
        {"Does not fit, from the left", FLAG_TEXT_LEFT, 0},
        {"Cut & clipped", FLAG_TEXT_LEFT, 0},
    };
    sheet.Heading(page_area.x, page_area.top + top, "Looks: a press toggles the value");
    sheet.Paper(Cell(top, 4));
    sheet.Paper(Cell(top, 5));
    Buttons* last = nullptr;
    for (int i = 0; i < static_cast<int>(std::size(samples)); ++i) {
        last = &sheet.Button(Cell(top, i), samples[i].name, samples[i].flag);
        last->Value = samples[i].value;
    }
    last->Clip_X = last->X;
    last->Clip_Y = static_cast<short>(last->Y - 1);
    last->Clip_Width = static_cast<short>(last->Width - 40);
    last->Clip_Height = static_cast<short>(last->Height + 2);
}

void Add_Lamps(Sheet& sheet, int top) {
    struct Lamp_Sample {
        const char* name;
        unsigned long flag;
        short lamp, value;
    };
    const Lamp_Sample samples[] = {
        {"Lamp off", lamp, 0, 0},
        {"Lamp on", lamp, 1, 0},
        {"On and down", lamp, 1, 1},
        {"No rim, lamp", lamp | FLAG_NO_RIM, 1, 0},
        {"Lamp, right", lamp | FLAG_TEXT_RIGHT, 1, 0},
        {"Lamp cycling", color_lamp, 0, 0},
        {"Off", color_lamp, 0, 0},
        {"Green", color_lamp, 1, 0},
        {"Blue", color_lamp, 2, 0},
        {"Yellow", color_lamp, 3, 0},
        {"Red", color_lamp, 4, 0},
        {"Red and down", color_lamp, 4, 1},
    };
    sheet.Heading(page_area.x, page_area.top + top, "Lamps: a press switches the lamp or its colour");
    for (int i = 0; i < static_cast<int>(std::size(samples)); ++i) {
        Buttons& button = sheet.Button(Cell(top, i), samples[i].name, samples[i].flag);
        button.Lamp = samples[i].lamp;
        button.Value = samples[i].value;
    }
}

void Add_Colors(Sheet& sheet, int top) {
    struct Color_Sample {
        const char* name;
        Colors color;
    };
    const Color_Sample samples[columns] = {
        {"Grey", {0, 0, 0}},       {"Ivory", {226, 220, 200}}, {"Steel", {120, 146, 176}},
        {"Moss", {118, 160, 110}}, {"Amber", {222, 172, 84}},  {"Clay", {206, 132, 104}},
    };
    sheet.Heading(page_area.x, page_area.top + top, "Colours");
    for (int i = 0; i < columns; ++i)
        sheet.Button(Cell(top, i), samples[i].name).Color = samples[i].color;
}

void Add_Borders(Sheet& sheet, int top) {
    struct Border_Sample {
        const char* name;
        short border;
    };
    const Border_Sample samples[columns] = {
        {"Border 0 (= 3)", 0}, {"Border 1", 1}, {"Border 2", 2},
        {"Border 4", 4},       {"Border 6", 6}, {"Border 8", 8},
    };
    sheet.Heading(page_area.x, page_area.top + top, "Borders");
    for (int i = 0; i < columns; ++i) {
        sheet.Button(Cell(top, i, 36), samples[i].name).Border = samples[i].border;
    }
}

void Add_Images(Sheet& sheet, int top) {
    constexpr int height = 72;
    sheet.Heading(page_area.x, page_area.top + top, "Images of the application, vertical text, other sizes");
    Buttons& own = sheet.Button(Cell(top, 0, height), "Day", FLAG_OWN_IMAGES);
    Paint_Day(own);
    Paint_Dusk(own);
    Buttons& lit = sheet.Button(Cell(top, 1, height), "Lamp on image", FLAG_OWN_IMAGES | lamp);
    Paint_Day(lit);
    Paint_Dusk(lit);
    Paint_Day(sheet.Button(Cell(top, 2, height), "Normal only"));
    Paint_Dusk(sheet.Button(Cell(top, 3, height), "Lit only"));
    Place narrow = Cell(top, 4, height);
    narrow.width = 36;
    sheet.Button(narrow, "DOWN", FLAG_VERTICAL);
    narrow.x += 44;
    sheet.Button(narrow, "LAMP", FLAG_VERTICAL | lamp);
    Place small = Cell(top, 4, BUT_DIM);
    small.x += 92;
    small.width = BUT_DIM;
    sheet.Button(small, "+");
    small.top += height - BUT_DIM;
    sheet.Button(small, "-");
    Buttons& large = sheet.Button(Cell(top, 5, height), "Large");
    large.Font_Size = 16;
    large.Font_Weight = "bold";
}

}  // namespace

void Build_Buttons(Sheet& sheet) {
    Add_Looks(sheet, 0);
    Add_Lamps(sheet, 114);
    Add_Colors(sheet, 228);
    Add_Borders(sheet, 304);
    Add_Images(sheet, 384);
}

}  // namespace gallery
