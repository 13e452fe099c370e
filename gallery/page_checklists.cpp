#include <bit>

#include "gallery/pages.h"

namespace gallery {

namespace {

constexpr const char* toppings[] = {"Basil",    "Capers", "Chilli", "Garlic",  "Ham",  "Mozzarella",
                                    "Mushroom", "Olives", "Onion",  "Peppers", nullptr};
constexpr const char* layers[] = {"Walls", "Pipes & ducts", "Wires", "Labels", nullptr};
constexpr const char* speeds[] = {"Slow", "Medium", "Fast", "Very fast", "As fast as it can", nullptr};
constexpr unsigned char speeds_enabled[] = {1, 1, 1, 0, 0};
constexpr const char* days[] = {"Mo", "Tu", "We", "Th", "Fr", "Sa", "Su", nullptr};
constexpr unsigned char days_enabled[] = {1, 1, 1, 1, 1, 0, 0};
constexpr const char* prices[] = {"A4\t210 x 297", "A5\t148 x 210", "B5\t176 x 250", "C6\t114 x 162",
                                  nullptr};

/// The item that a press would change.
int Pressed_Item(const CheckLists& list, int new_value) {
    if (list.Flag & CHECKLIST_SINGLE) return new_value;
    return std::countr_zero(static_cast<unsigned>(list.Value ^ new_value));
}

/// A list answers for disabled items too: whether to take the press is up to the application.
void Press(const Sheet& sheet, CheckLists& list) {
    const int value = list.Read();
    const std::string press = "press \"" + std::string(list.Name ? list.Name : "") + "\": ";
    if (list.Enabled && !list.Enabled[Pressed_Item(list, value)]) {
        sheet.Report(press + "this item is disabled");
        return;
    }
    list.Value = value;
    list.Adjust();
    sheet.Report(press + "Value " + std::to_string(list.Value));
}

/// Place of a list in one of four columns, with room for a heading above it.
Place Cell(int column, int top, int height, int columns = 1) {
    constexpr int pitch = (page_area.width + 16) / 4;
    return {page_area.x + column * pitch, page_area.top + top + 22, columns * pitch - 16, height};
}

CheckLists& Add_List(Sheet& sheet, const char* heading, const Place& place, const char* name,
                     const char* const* items, unsigned long flag) {
    sheet.Heading(place.x, place.top - 22, heading).Width = static_cast<short>(place.width);
    CheckLists& list =
        sheet.Add<CheckLists>(place, name, flag, [&sheet](CheckLists& pressed) { Press(sheet, pressed); });
    list.List = items;
    list.Border = BORDER;  // 0 would be the same frame, but the name would not keep clear of it
    return list;
}

void Add_Columns(Sheet& sheet, int top) {
    constexpr int height = 128;
    Add_List(sheet, "As many columns as it takes", Cell(0, top, height, 2), "Toppings", toppings, 0).Value =
        0x0A9;
    CheckLists& single = Add_List(sheet, "Single choice", Cell(2, top, height), "Speed", speeds,
                                  CHECKLIST_SINGLE | CHECKLIST_ONE_COLUMN);
    single.Enabled = speeds_enabled;
    single.Value = 1;
    CheckLists& week = Add_List(sheet, "Items disabled", Cell(3, top, height), "Days", days, 0);
    week.Enabled = days_enabled;
    week.Value = 0x15;
}

void Add_Looks(Sheet& sheet, int top) {
    constexpr int height = 112;
    Add_List(sheet, "One column", Cell(0, top, height), "Layers", layers, CHECKLIST_ONE_COLUMN).Value = 5;
    Add_List(sheet, "Name at the left", Cell(1, top, height), "Show", layers,
             CHECKLIST_NAME_LEFT | CHECKLIST_NO_TITLE_ROW)
        .Value = 6;
    sheet.Paper(Cell(2, top, height));
    Add_List(sheet, "Without frame", Cell(2, top, height), nullptr, layers, FLAG_STATIC).Value = 9;
    sheet.Paper(Cell(3, top, height));
    Add_List(sheet, "Outline", Cell(3, top, height), "Outlined", layers, FLAG_OUTLINE | FLAG_STATIC);
}

void Add_Variants(Sheet& sheet, int top) {
    constexpr int height = 112;
    CheckLists& table =
        Add_List(sheet, "Tabs, higher rows", Cell(0, top, height), "Paper", prices, CHECKLIST_ONE_COLUMN);
    table.Line_Height = 21;
    table.Value = 1;
    CheckLists& large = Add_List(sheet, "Font, colour, border", Cell(1, top, height), "Large", days, 0);
    large.Font_Size = 12;
    large.Font_Style = "i";
    large.Color = Colors(226, 214, 188);
    large.Border = 5;
    large.Value = 3;
    Add_List(sheet, "Passive", Cell(2, top, height), "Cannot be changed", layers,
             CHECKLIST_SINGLE | FLAG_PASSIVE)
        .Value = 2;
    CheckLists& clipped = Add_List(sheet, "Labels clipped", Cell(3, top, height), "Clipped", speeds, 0);
    clipped.Clip_X = static_cast<short>(clipped.X + 6);
    clipped.Clip_Y = clipped.Y;
    clipped.Clip_Width = static_cast<short>(clipped.Width - 60);
    clipped.Clip_Height = clipped.Height;
}

}  // namespace

void Build_Checklists(Sheet& sheet) {
    Add_Columns(sheet, 0);
    Add_Looks(sheet, 172);
    Add_Variants(sheet, 328);
}

}  // namespace gallery
