#include <span>

#include "gallery/pages.h"

namespace gallery {

namespace {

constexpr const char* months[] = {"January", "February", "March",     "April",   "May",      "June",
                                  "July",    "August",   "September", "October", "November", "December"};
constexpr const char* speeds[] = {"Stop", "Slow", "Half", "Full"};
constexpr const char* single[] = {"The only one"};

void Report_Item(const Sheet& sheet, const Selects& selector, const char* action, const char* title) {
    const int shown = selector.Current;
    const char* item = selector.Nb_Item > 0 ? selector.Item[shown]->Name : "no item";
    sheet.Report(std::string(action) + " \"" + title + "\": " + std::to_string(shown) + ", " + item);
}

/// A selector that says on the status line what it shows.
/// @param title    how the status line calls it
/// @param caption  shown on the selector; may be null
Selects& Add_Selector(Sheet& sheet, const Place& place, const char* title, const char* caption,
                      unsigned long flag, Names names) {
    const auto show = [&sheet, title](Selects& selector, const char* action) {
        // Without a body of its own the item would be written over the one before.
        if (selector.Flag & FLAG_STATIC) sheet.Refresh(selector);
        Report_Item(sheet, selector, action, title);
    };
    const auto press = [show](Selects& selector) {
        selector.Adjust();
        show(selector, "press");
    };
    const auto change = [show](Selects& selector) {
        if (Button_State == 0) show(selector, "wheel");
    };
    Selects& selector = sheet.Add<Selects>(place, caption, flag, press, change);
    Name_Items(selector, names);
    selector.Border = BORDER;  // 0 would be the same frame, but the caption would not keep clear of it
    return selector;
}

constexpr int columns = 3;
constexpr int cell_width = 240;
constexpr int column_step = (page_area.width - cell_width) / (columns - 1);

int Left_Of(int column) { return page_area.x + column * column_step; }

struct Sample {
    const char* title;
    const char* caption;
    unsigned long flag;
    short value_width, arrow_size;
    Names names;
};

void Add_Sample(Sheet& sheet, const Place& place, const Sample& sample) {
    Selects& selector = Add_Selector(sheet, place, sample.title, sample.caption, sample.flag, sample.names);
    selector.Value_Width = sample.value_width;
    selector.Arrow_Size = sample.arrow_size;
}

constexpr unsigned long left = FLAG_TEXT_MIDDLE | FLAG_TEXT_LEFT;
constexpr unsigned long right = FLAG_TEXT_MIDDLE | FLAG_TEXT_RIGHT;

void Add_Rows(Sheet& sheet, int top) {
    const Sample high[columns] = {
        {"Caption above", "Caption above", 0, 0, 25, months},
        {"Fixed width", "Fixed width", left, 150, 30, months},
        {"At the value", "At the value", right, 150, 30, months},
    };
    const Sample low[columns] = {
        {"Left", "Left", left, 0, 0, months},
        {"No caption", nullptr, 0, 0, 0, months},
        {"Short arrows", nullptr, 0, 0, 12, months},
    };
    sheet.Heading(page_area.x, top, "Rows: press an arrow or turn the wheel");
    for (int i = 0; i < columns; ++i) {
        Add_Sample(sheet, {Left_Of(i), top + 22, cell_width, 50}, high[i]);
        Add_Sample(sheet, {Left_Of(i), top + 82, cell_width, 32}, low[i]);
    }
}

void Add_Columns(Sheet& sheet, int top) {
    constexpr unsigned long column = FLAG_VERTICAL;
    const Sample samples[] = {
        {"Column", nullptr, column, 0, 30, months},
        {"Column, caption", "Month", column, 0, 24, months},
        {"Column, left", "Gear", column | left, 0, 30, speeds},
        {"Column, right", "Gear", column | right, 60, 30, speeds},
        {"Column, small arrows", nullptr, column, 0, 14, months},
    };
    constexpr int count = static_cast<int>(std::size(samples));
    constexpr int width = 116;
    constexpr int step = (page_area.width - width) / (count - 1);
    sheet.Heading(page_area.x, top, "Columns: the lower arrow steps forwards");
    for (int i = 0; i < count; ++i)
        Add_Sample(sheet, {page_area.x + i * step, top + 22, width, 118}, samples[i]);
}

void Add_Items(Sheet& sheet, int top) {
    const auto place = [top](int column) { return Place{Left_Of(column), top + 22, cell_width, 32}; };
    sheet.Heading(page_area.x, top, "Items: some skipped, one, none");
    Selects& odd = Add_Selector(sheet, place(0), "Every other", "Every other", left, months);
    for (int i = 1; i < static_cast<int>(std::size(months)); i += 2)
        odd.Item[i]->Flag |= FLAG_PASSIVE;
    Add_Selector(sheet, place(1), "One item", "One item", left, single);
    Add_Selector(sheet, place(2), "No items", "No items", left, {});
}

void Add_Looks(Sheet& sheet, int top) {
    const auto place = [top](int index) {
        return Place{Left_Of(index % columns), top + 22 + index / columns * 42, cell_width, 32};
    };
    sheet.Heading(page_area.x, top, "Looks");
    sheet.Paper(place(0));
    Add_Selector(sheet, place(0), "Outline", nullptr, FLAG_OUTLINE | FLAG_STATIC, months);
    Add_Selector(sheet, place(1), "No frame", nullptr, SELECTOR_NO_FRAME | FLAG_STATIC, months);
    Add_Selector(sheet, place(2), "Passive", "Passive", left | FLAG_PASSIVE, months).Current = 4;
    Add_Selector(sheet, place(3), "Steel", "Steel", left, months).Color = Colors(120, 146, 176);
    Selects& item_color = Add_Selector(sheet, place(4), "Amber items", "Amber items", left, speeds);
    for (Buttons** item = item_color.Item; *item; ++item)
        (*item)->Color = Colors(222, 172, 84);
    Add_Selector(sheet, place(5), "Border 6", "Border 6", left, months).Border = 6;
}

}  // namespace

void Build_Selectors(Sheet& sheet) {
    Add_Rows(sheet, page_area.top);
    Add_Columns(sheet, page_area.top + 134);
    Add_Items(sheet, page_area.top + 292);
    Add_Looks(sheet, page_area.top + 366);
}

}  // namespace gallery
