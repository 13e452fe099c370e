#include <span>

#include "gallery/artwork.h"
#include "gallery/pages.h"

namespace gallery {

namespace {

constexpr const char* single[] = {"The only one"};
constexpr const char* winds[] = {"North", "East", "South", "West"};
constexpr const char* trees[] = {"Oak", "Maple", "Willow"};
constexpr const char* numbers[] = {"1",  "2",  "3",  "4",  "5",  "6",  "7",  "8",  "9",  "10",
                                   "11", "12", "13", "14", "15", "16", "17", "18", "19", "20"};

/// The page of a tab set: a control of its own, so that it is painted with what stands on it.
struct Tab_Page : Boxs {
    void Draw() { set->Page(0); }
    Tabs* set = nullptr;
};

/// A tab set with its page, which says on the status line what comes to the front.
/// @param page_height  below the tabs
/// @param item_flag    style of the tabs
Tabs& Add_Set(Sheet& sheet, const Place& place, int page_height, const char* title, unsigned long flag,
              Names names, unsigned long item_flag = 0) {
    const Place below{place.x, place.top + place.height, place.width, page_height};
    Tab_Page& page = sheet.Add<Tab_Page>(below, nullptr, FLAG_PASSIVE | FLAG_STATIC);
    const auto press = [&sheet, &page](Tabs& set) {
        const int index = set.Read();
        if (index < 0) return;
        set.Value = static_cast<short>(index);
        set.Adjust();
        sheet.Refresh(page);
        sheet.Report(std::string("press \"") + set.Name + "\": " + std::to_string(index) + ", " +
                     set.Item[index]->Name);
    };
    Tabs& set = sheet.Add<Tabs>(place, title, flag, press);
    page.set = &set;
    set.Tab_Height = static_cast<short>(place.height + page_height);
    Name_Items(set, names, item_flag);
    return set;
}

constexpr int row_height = 26;
constexpr int columns = 3;
constexpr int cell_width = 240;
constexpr int column_step = (page_area.width - cell_width) / (columns - 1);

Place Cell(int column, int top) { return {page_area.x + column * column_step, top, cell_width, row_height}; }

void Add_Sizes(Sheet& sheet, int top) {
    constexpr int page = 44;
    sheet.Heading(page_area.x, top, "One, three and twenty tabs: press one");
    Add_Set(sheet, Cell(0, top + 22), page, "One tab", 0, single);
    Tabs& colored = Add_Set(sheet, Cell(1, top + 22), page, "Three tabs", 0, trees);
    colored.Value = 1;
    colored.Item[0]->Color = Colors(150, 176, 140);
    colored.Item[1]->Color = Colors(206, 160, 110);
    colored.Item[2]->Color = Colors(140, 166, 190);
    Add_Set(sheet, Cell(2, top + 22), page, "None in front", 0, winds).Value = -1;
    Add_Set(sheet, {page_area.x, top + 110, page_area.width, row_height}, 32, "Twenty tabs", 0, numbers)
        .Value = 6;
}

void Add_Styles(Sheet& sheet, int top) {
    constexpr int page = 30;
    sheet.Heading(page_area.x, top, "Styles");
    Add_Set(sheet, Cell(0, top + 22), page, "Passive set", FLAG_PASSIVE, trees).Value = 1;
    Add_Set(sheet, Cell(1, top + 22), page, "Static set", FLAG_STATIC, trees).Value = 1;
    Tabs& odd = Add_Set(sheet, Cell(2, top + 22), page, "Passive tabs", 0, winds);
    odd.Item[1]->Flag |= FLAG_PASSIVE;
    odd.Item[3]->Flag |= FLAG_PASSIVE;

    constexpr unsigned long thin = FLAG_OUTLINE | FLAG_STATIC;
    Add_Set(sheet, Cell(0, top + 92), page, "Outline tabs", 0, trees, thin);
    Add_Set(sheet, Cell(1, top + 92), page, "Low captions", 0, trees, FLAG_TEXT_BOTTOM);
    Tabs& large = Add_Set(sheet, Cell(2, top + 92), page, "Bold", 0, trees);
    large.Font_Weight = "bold";
    large.Font_Size = 11;
    large.Color = Colors(196, 186, 220);
}

constexpr int tab_width = 88;
constexpr int tab_height = 36;
constexpr int tabs_in_row = 8;

/// A tab without a set, which goes to the front and back.
TabItems& Add_Tab(Sheet& sheet, int index, int top, const char* title, int shape, unsigned long flag = 0) {
    constexpr int step = (page_area.width - tab_width) / (tabs_in_row - 1);
    const Place place{page_area.x + index * step, top, tab_width, tab_height};
    const auto press = [&sheet](TabItems& tab) {
        tab.Value = tab.Value ? 0 : 1;
        sheet.Refresh(tab);
        sheet.Report(std::string("press \"") + tab.Name + "\": Value " + std::to_string(tab.Read()));
    };
    TabItems& tab = sheet.Add<TabItems>(place, title, flag, press);
    tab.Shape = static_cast<short>(shape);
    return tab;
}

/// Every kind of ends, with two slants.
void Add_Ends(Sheet& sheet, int top) {
    struct Ends {
        const char* title;
        int shape;
    };
    constexpr Ends ends[] = {{"Pointed", 0},
                             {"Right", TAB_RIGHT_STRAIGHT},
                             {"Left", TAB_LEFT_STRAIGHT},
                             {"Straight", TAB_LEFT_STRAIGHT | TAB_RIGHT_STRAIGHT}};
    constexpr short slants[] = {9, 21};
    sheet.Heading(page_area.x, top, "Ends of single tabs: straight at the right, at the left, at both");
    int index = 0;
    for (const short slant : slants) {
        for (const Ends& end : ends)
            Add_Tab(sheet, index++, top + 22, end.title, end.shape).Slant = slant;
    }
}

void Add_Looks(Sheet& sheet, int top) {
    constexpr int straight = TAB_LEFT_STRAIGHT | TAB_RIGHT_STRAIGHT;
    struct Look {
        const char* title;
        unsigned long flag;
    };
    constexpr Look looks[] = {{"In front", 0},
                              {"Own colour", 0},
                              {"Image", 0},
                              {"Passive", FLAG_PASSIVE},
                              {"Static", FLAG_STATIC},
                              {"Outline", FLAG_OUTLINE | FLAG_STATIC},
                              {"At the top", FLAG_TEXT_TOP},
                              {"Upright", 0}};
    TabItems* tabs[tabs_in_row];
    for (int i = 0; i < tabs_in_row; ++i) {
        tabs[i] = &Add_Tab(sheet, i, top, looks[i].title, straight, looks[i].flag);
        tabs[i]->Slant = 12;
    }
    tabs[0]->Value = 1;
    tabs[1]->Color = Colors(222, 172, 84);
    Paint_Day(*tabs[2]);
    Paint_Dusk(*tabs[2]);
    tabs[7]->Slant = 0;
}

}  // namespace

void Build_Tabs(Sheet& sheet) {
    Add_Sizes(sheet, page_area.top);
    Add_Styles(sheet, page_area.top + 192);
    Add_Ends(sheet, page_area.top + 362);
    Add_Looks(sheet, page_area.top + 446);
}

}  // namespace gallery
