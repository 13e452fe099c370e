#include <string>
#include <vector>

#include "gallery/pages.h"

namespace gallery {

namespace {

constexpr const char* days[] = {"Monday", "Tuesday", "Wednesday", "Thursday", "Friday", "Saturday", "Sunday"};
constexpr const char* months[] = {"January", "February", "March",     "April",   "May",      "June",
                                  "July",    "August",   "September", "October", "November", "December"};
constexpr const char* gears[] = {"Reverse", "Neutral", "First", "Second", "Third"};
constexpr const char* views[] = {"Plan", "Front", "Side", "Section"};

void Report_Item(const Sheet& sheet, const Lists& list, const char* action, int item) {
    const std::string title = list.Name ? list.Name : "";
    const std::string name = item < 0 ? "no item" : list.Item[item]->Name;
    sheet.Report(std::string(action) + " \"" + title + "\": " + std::to_string(item) + ", " + name);
}

/// A click marks the item.
void Press(const Sheet& sheet, Lists& list) {
    const int item = list.Read();
    list.Current = static_cast<short>(item);
    list.Adjust();
    Report_Item(sheet, list, "press", item);
}

int First_Shown(const Lists& list) {
    for (int i = 0; i < list.Nb_Item; ++i) {
        if (list.Item[i]->Shown) return i;
    }
    return -1;
}

/// A list that says on the status line what became of it. Its bar keeps the pointer while it is dragged.
Lists& Add_List(Sheet& sheet, const char* heading, const Place& place, const char* title,
                unsigned long flag) {
    sheet.Heading(place.x, place.top - 22, heading).Width = static_cast<short>(place.width);
    const auto press = [&sheet](Lists& list) { Press(sheet, list); };
    const auto change = [&sheet](Lists& list) {
        if (Button_State == 0) Report_Item(sheet, list, "wheel", First_Shown(list));
    };
    Lists& list = sheet.Add<Lists>(place, title, flag | SLIDER_KEEP_GRAB, press, change);
    list.Border = BORDER;  // 0 would be the same frame, but the title would not keep clear of it
    return list;
}

const std::vector<std::string>& Many_Names() {
    static const std::vector<std::string> names = [] {
        constexpr int many = 20000;
        std::vector<std::string> made;
        made.reserve(many);
        for (int i = 0; i < many; ++i)
            made.push_back("Item " + std::to_string(i));
        return made;
    }();
    return names;
}

/// Place of a list in one of four columns, with room for a heading above it.
Place Cell(int column, int top, int height, int columns = 1) {
    constexpr int pitch = (page_area.width + 16) / 4;
    return {page_area.x + column * pitch, page_area.top + top + 22, columns * pitch - 16, height};
}

constexpr unsigned long upright = FLAG_VERTICAL;

void Add_Columns(Sheet& sheet, int top) {
    constexpr int height = 208;
    Name_Items(Add_List(sheet, "Items share the height", Cell(0, top, height), nullptr, upright), days);
    Lists& scrolled = Add_List(sheet, "A bar, if they do not fit", Cell(1, top, height), "Months", upright);
    Name_Items(scrolled, months);
    scrolled.Current = 2;
    Lists& low = Add_List(sheet, "Inset, low items", Cell(2, top, height), "Low",
                          upright | FLAG_INNER_FRAME | FLAG_TEXT_LEFT);
    Name_Items(low, months);
    low.Item_Height = 18;
    low.Slider_Width = 12;
    const std::vector<std::string>& names = Many_Names();
    Lists& large = Add_List(sheet, "20,000 items", Cell(3, top, height), "Long", upright);
    large.Grow(static_cast<int>(names.size()), 0);
    for (std::size_t i = 0; i < names.size(); ++i)
        large.Item[i]->Name = names[i].c_str();
}

void Add_Looks(Sheet& sheet, int top) {
    constexpr int height = 114;
    Lists& passive = Add_List(sheet, "Every other passive", Cell(0, top, height), "Passive", upright);
    Name_Items(passive, gears);
    for (int i = 1; i < passive.Nb_Item; i += 2)
        passive.Item[i]->Flag |= FLAG_PASSIVE;
    Lists& lamps = Add_List(sheet, "Lamps", Cell(1, top, height), nullptr, upright | BUTTON_LAMP);
    Name_Items(lamps, views);
    for (int i = 0; i < lamps.Nb_Item; ++i) {
        lamps.Item[i]->Flag |= BUTTON_LAMP_COLORS;
        lamps.Item[i]->Lamp = static_cast<short>(i + 1);
    }
    sheet.Paper(Cell(2, top, height));
    Lists& still = Add_List(sheet, "Static", Cell(2, top, height), "Static", upright | FLAG_STATIC);
    Name_Items(still, views);
    still.Item_Height = 18;
    Lists& amber = Add_List(sheet, "Colour, font, border", Cell(3, top, height), "Amber", upright);
    Name_Items(amber, gears);
    amber.Color = Colors(222, 172, 84);
    amber.Border = 6;
    amber.Font_Size = 11;
    amber.Font_Style = "i";
    for (int i = 0; i < amber.Nb_Item; ++i)
        amber.Item[i]->Color = Colors(236, 212, 160);
}

void Add_Rows(Sheet& sheet, int top) {
    constexpr int height = 60;
    Name_Items(Add_List(sheet, "A row: items share the width", Cell(0, top, height, 2), "View", 0), views);
    Name_Items(Add_List(sheet, "A row with a bar", Cell(2, top, height, 2), nullptr, 0), months);
}

}  // namespace

void Build_Lists(Sheet& sheet) {
    Add_Columns(sheet, 0);
    Add_Looks(sheet, 250);
    Add_Rows(sheet, 408);
}

}  // namespace gallery
