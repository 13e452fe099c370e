#include <cstring>
#include <string>

#include "Galdren_Util.h"
#include "gallery/pages.h"

namespace gallery {

namespace {

struct Entry_Sample {
    const char* name;
    unsigned long flag;
    const char* text;
};

constexpr int row_height = 30;
constexpr int name_width = 160;
constexpr int field_width = 220;

/// Says what was entered or typed, and goes on reading.
void Take_Entry(const Sheet& sheet, Texts& field, const char* name) {
    const bool entered = field.Mode & TEXT_ENTERED;
    const char* line = field.Update();
    if (!line) return;
    sheet.Report(std::string(entered ? "entered \"" : "typed \"") + name + "\": " + line);
    if (entered) field.Read("%s", line);
}

/// An entry field with its name at the left.
Texts& Add_Entry(Sheet& sheet, const Place& place, const Entry_Sample& sample) {
    sheet.Label({place.x, place.top, name_width - 8, place.height}, sample.name, FLAG_TEXT_LEFT);
    const auto begin = [](Texts& field) {
        if (field.Mode == 0) field.Read("%s", field.Line);
    };
    const auto take = [&sheet, name = sample.name](Texts& field) { Take_Entry(sheet, field, name); };
    Texts& field = sheet.Add<Texts>({place.x + name_width, place.top, place.width - name_width, place.height},
                                    nullptr, sample.flag | TEXT_SINGLE_LINE | TEXT_EDITING, begin, take);
    field.Font_Size = 10;
    field.Border = 2;
    field.Color = Colors(222, 225, 230);
    field.Mode = TEXT_READING;
    std::strncpy(field.Line, sample.text, Texts::Longest_Input);
    field.Cursor_Pos = static_cast<short>(std::strlen(field.Line));
    return field;
}

void Add_Filters(Sheet& sheet, int top) {
    constexpr Entry_Sample samples[] = {
        {"Any text", 0, "España, Ελλάδα, Россия"}, {"Integer", TEXT_INTEGER, "0"},
        {"Floating point", TEXT_FLOAT, "2.5e-3"},  {"Hexadecimal", TEXT_HEXADECIMAL, "c0ffee"},
        {"Password", TEXT_PASSWORD, "secret"},     {"Reports every change", TEXT_REPORT_CHANGES, "type here"},
    };
    for (int i = 0; i < static_cast<int>(std::size(samples)); ++i)
        Add_Entry(sheet, {page_area.x, top + i * row_height, name_width + field_width, 24}, samples[i]);
}

void Add_Looks(Sheet& sheet, int left, int top) {
    const int width = page_area.x + page_area.width - left;
    const auto place = [&](int row, int height) {
        return Place{left, top + row * row_height, width, height};
    };
    Add_Entry(sheet, place(0, 24), {"Its own colour", 0, "amber"}).Color = Colors(222, 172, 84);
    Texts& large = Add_Entry(sheet, place(1, 34), {"Large", 0, "14 points"});
    large.Font_Size = 14;
    Add_Entry(sheet, place(2, 24), {"Passive", FLAG_PASSIVE, "cannot be typed"});
    Texts& narrow = Add_Entry(sheet, place(3, 24), {"Narrower than its text", 0, "the end stays in view"});
    narrow.Width = 90;
    Texts& wide = Add_Entry(sheet, place(4, 28), {"A frame of 4", 0, "Border 4"});
    wide.Border = 4;
    Texts& empty = Add_Entry(sheet, place(5, 24), {"Empty", 0, ""});
    empty.Placeholder = "something to be typed";
}

/// Fields of several lines, each with other parts.
void Add_Fields(Sheet& sheet, int top) {
    struct Field_Sample {
        const char* heading;
        const char* title;
        unsigned long flag;
    };
    constexpr Field_Sample samples[] = {
        {"Bare", nullptr, 0},
        {"Title and upright bar", "Messages", TEXT_V_BAR},
        {"Both bars", nullptr, TEXT_V_BAR | TEXT_H_BAR},
        {"Room for input kept", "Idle", TEXT_INPUT_ROOM | TEXT_H_BAR},
    };
    constexpr int pitch = (page_area.width + 16) / 4;
    for (int i = 0; i < static_cast<int>(std::size(samples)); ++i) {
        const int x = page_area.x + i * pitch;
        sheet.Heading(x, top, samples[i].heading).Width = pitch - 16;
        Texts& field = sheet.Add<Texts>({x, top + 24, pitch - 16, 210}, samples[i].title,
                                        samples[i].flag | SLIDER_KEEP_GRAB);
        field.Init(hwnd);
        for (int line = 1; line <= 16; ++line)
            field.Write("line %d \x01of \xF1sixteen\xF0 \x04that are wider than the field", line);
    }
}

}  // namespace

void Build_Entries(Sheet& sheet) {
    const int top = page_area.top;
    sheet.Heading(page_area.x, top, "Entry fields: click one and type; Tab goes on");
    Add_Filters(sheet, top + 26);
    sheet.Heading(page_area.x + 412, top, "Looks").Width = 300;
    Add_Looks(sheet, page_area.x + 412, top + 26);
    Add_Fields(sheet, top + 226);
}

}  // namespace gallery
