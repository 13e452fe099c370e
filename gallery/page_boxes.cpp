#include "gallery/artwork.h"
#include "gallery/pages.h"

namespace gallery {

namespace {

constexpr int columns = 7;
constexpr int box_width = 98;
constexpr int box_height = 58;
constexpr int column_step = (page_area.width - box_width) / (columns - 1);
constexpr int row_step = 100;

/// Place of a box; rows are counted from the top of the page.
Place Cell(int row, int column) {
    return {page_area.x + column * column_step, page_area.top + row * row_step + 22, box_width, box_height};
}

/// A box with its caption in the middle; by itself it would be at the top.
Boxs& Add_Box(Sheet& sheet, const Place& place, const char* name, unsigned long flag = 0) {
    return sheet.Box(place, name, flag | FLAG_TEXT_MIDDLE);
}

void Add_Heading(Sheet& sheet, int row, const char* text) {
    sheet.Heading(page_area.x, page_area.top + row * row_step, text);
}

void Add_Frames(Sheet& sheet, int row) {
    struct Frame {
        const char* name;
        unsigned long flag;
    };
    const Frame frames[columns] = {
        {"Sunken", 0},
        {"Raised", FLAG_RAISED},
        {"Sunken, no rim", FLAG_NO_RIM},
        {"Raised, no rim", FLAG_RAISED | FLAG_NO_RIM},
        {"Inner frame", FLAG_INNER_FRAME},
        {"Raised, inner", FLAG_INNER_FRAME | FLAG_RAISED},
        {"Outline", FLAG_OUTLINE | FLAG_NO_BODY},
    };
    Add_Heading(sheet, row, "Frames");
    sheet.Paper(Cell(row, columns - 1));
    for (int i = 0; i < columns; ++i)
        Add_Box(sheet, Cell(row, i), frames[i].name, frames[i].flag);
}

void Add_Behaviour(Sheet& sheet, int row) {
    Add_Heading(sheet, row, "Behaviour under the pointer");
    Add_Box(sheet, Cell(row, 0), "Lights up");
    Add_Box(sheet, Cell(row, 1), "As when lit").Color = Colors(230, 100, 100);
    Add_Box(sheet, Cell(row, 2), "Passive", FLAG_PASSIVE);
    Add_Box(sheet, Cell(row, 3), "Static", FLAG_STATIC | FLAG_TEXT_WHITE);
    Add_Box(sheet, Cell(row, 4), "Outline, frame", FLAG_OUTLINE);
    sheet.Label(Cell(row, 5), "(no body)");
    Add_Box(sheet, Cell(row, 5), "No body", FLAG_NO_BODY);
    Add_Box(sheet, Cell(row, 6), "Inner, outline", FLAG_INNER_FRAME | FLAG_OUTLINE);
}

void Add_Borders(Sheet& sheet, int row) {
    struct Width {
        const char* name;
        short border;
        unsigned long flag;
    };
    const Width widths[columns] = {
        {"Border 0 (= 3)", 0, 0},
        {"Border 1", 1, 0},
        {"Border 3", 3, 0},
        {"Border 6", 6, 0},
        {"Border 10", 10, 0},
        {"6, raised", 6, FLAG_RAISED},
        {"10, raised", 10, FLAG_RAISED},
    };
    Add_Heading(sheet, row, "Borders");
    for (int i = 0; i < columns; ++i) {
        Add_Box(sheet, Cell(row, i), widths[i].name, widths[i].flag).Border = widths[i].border;
    }
}

void Add_Colors(Sheet& sheet, int row) {
    struct Sample {
        const char* name;
        Colors color;
        unsigned long flag;
    };
    const Sample samples[columns] = {
        {"Black is grey", {0, 0, 0}, 0},
        {"Ivory", {226, 220, 200}, FLAG_RAISED},
        {"Steel", {120, 146, 176}, FLAG_RAISED},
        {"Moss", {118, 160, 110}, FLAG_RAISED},
        {"Amber", {222, 172, 84}, FLAG_RAISED},
        {"Wine", {140, 44, 66}, FLAG_RAISED | FLAG_TEXT_WHITE},
        {"Night", {44, 52, 84}, FLAG_RAISED | FLAG_TEXT_WHITE},
    };
    Add_Heading(sheet, row, "Colours");
    for (int i = 0; i < columns; ++i) {
        Add_Box(sheet, Cell(row, i), samples[i].name, samples[i].flag).Color = samples[i].color;
    }
}

void Add_Images(Sheet& sheet, int row) {
    Add_Heading(sheet, row, "Images of the application");
    Boxs& own = Add_Box(sheet, Cell(row, 0), nullptr, FLAG_OWN_IMAGES);
    Paint_Day(own);
    Paint_Dusk(own);
    Boxs& caption = Add_Box(sheet, Cell(row, 1), "Caption", FLAG_OWN_IMAGES | FLAG_RAISED);
    Paint_Day(caption);
    Paint_Dusk(caption);
    Boxs& inner = Add_Box(sheet, Cell(row, 2), nullptr, FLAG_OWN_IMAGES | FLAG_INNER_FRAME);
    Paint_Day(inner);
    Paint_Dusk(inner);
    Paint_Day(Add_Box(sheet, Cell(row, 3), "Normal only", FLAG_RAISED));
    Paint_Dusk(Add_Box(sheet, Cell(row, 4), "Lit only", FLAG_RAISED));
    Place wide = Cell(row, 5);
    wide.width += column_step;
    Boxs& panorama = Add_Box(sheet, wide, "Wide, border 6", FLAG_OWN_IMAGES);
    panorama.Border = 6;
    Paint_Day(panorama);
    Paint_Dusk(panorama);
}

}  // namespace

void Build_Boxes(Sheet& sheet) {
    Add_Frames(sheet, 0);
    Add_Behaviour(sheet, 1);
    Add_Borders(sheet, 2);
    Add_Colors(sheet, 3);
    Add_Images(sheet, 4);
}

}  // namespace gallery
