#include <algorithm>
#include <cstdlib>
#include <string>

#include "Galdren_Util.h"
#include "gallery/pages.h"

namespace gallery {

namespace {

/// Bytes that change the look of what follows in an output line.
namespace look {
constexpr const char* blue = "\x01";
constexpr const char* black = "\x02";
constexpr const char* red = "\x04";
constexpr const char* green = "\x06";
constexpr const char* bold = "\xF1";
constexpr const char* normal = "\xF0";
}  // namespace look

void Say_Help(Texts& console, const std::string&) {
    console.Write(
        "%shelp%s    colors    fonts    flood 4000    say TEXT    again TEXT    count    clear\n"
        "Up and Down recall lines, Ctrl+V pastes, Escape ends reading, a click begins anew.",
        look::bold, look::normal);
}

void Show_Colors(Texts& console, const std::string&) {
    console.Write("\x01 blue \x02 black \x03 white \x04 red \x05 yellow \x06 green");
}

void Show_Fonts(Texts& console, const std::string&) {
    console.Write(
        "\xF0normal  \xF1"
        "bold  \xF2oblique  \xF0"
        "and normal again");
}

void Flood(Texts& console, const std::string& words) {
    constexpr int least = 1;
    constexpr int most = 100000;
    const int count = std::clamp(std::atoi(words.c_str()), least, most);
    for (int i = 1; i <= count; ++i)
        console.Write("%s%6d%s of %d lines", look::blue, i, look::black, count);
}

void Say(Texts& console, const std::string& words) { console.Write("%s", words.c_str()); }

void Say_Again(Texts& console, const std::string& words) { console.OverWrite("%s", words.c_str()); }

void Count(Texts& console, const std::string&) {
    int lines = 0;
    while (lines < Texts::Most_Lines && console.Lines && console.Lines[lines])
        ++lines;
    console.Write("%s%d%s output lines", look::green, lines, look::black);
}

void Clear(Texts& console, const std::string&) { console.Cleanup(); }

struct Command {
    const char* word;
    void (*run)(Texts& console, const std::string& words);
};

constexpr Command commands[] = {
    {"help", Say_Help}, {"colors", Show_Colors}, {"fonts", Show_Fonts}, {"flood", Flood},
    {"say", Say},       {"again", Say_Again},    {"count", Count},      {"clear", Clear},
};

void Run(Texts& console, const std::string& line) {
    const std::size_t space = std::min(line.find(' '), line.size());
    const std::string word = line.substr(0, space);
    const std::string words = line.substr(std::min(space + 1, line.size()));
    for (const Command& command : commands) {
        if (word == command.word) return command.run(console, words);
    }
    if (!word.empty()) console.Write("%sno command is called \"%s\"", look::red, word.c_str());
}

/// Runs the line when one was entered.
void Take_Line(const Sheet& sheet, Texts& console) {
    const char* entered = console.Update();
    if (!entered) return;
    const std::string line = entered;
    sheet.Report("entered \"Console\": " + line);
    Run(console, line);
    console.Read(nullptr);
}

void Add_Console(Sheet& sheet, const Place& place) {
    const auto begin = [](Texts& console) {
        if (console.Mode == 0) console.Read(nullptr);
    };
    const auto take = [&sheet](Texts& console) { Take_Line(sheet, console); };
    Texts& console =
        sheet.Add<Texts>(place, "Console", TEXT_V_BAR | TEXT_H_BAR | SLIDER_KEEP_GRAB, begin, take);
    console.Font_Size = 10;
    console.Color = Colors(196, 200, 206);
    console.Init(hwnd);
    console.Write("%sA console.%s Type a command and press Enter.", look::bold, look::normal);
    Say_Help(console, {});
    console.Read(nullptr);
}

/// A narrow log without input, fed by buttons.
void Add_Log(Sheet& sheet, const Place& place) {
    Texts& log = sheet.Add<Texts>(place, "Log", TEXT_V_BAR | SLIDER_KEEP_GRAB);
    log.Init(hwnd);
    log.Write("Lines come from the buttons below.");
    const auto add_button = [&](int row, const char* name, std::function<void(Texts&)> act) {
        const Place button_place{place.x, place.top + place.height + 8 + row * 28, place.width, 24};
        sheet.Add<Buttons>(button_place, name, 0, [&sheet, &log, act, name](Buttons&) {
            act(log);
            sheet.Report(std::string("press \"") + name + "\": " + (log.Lines[0] ? log.Lines[0] : ""));
        });
    };
    add_button(0, "One line", [](Texts& field) { field.Write("One line more"); });
    add_button(1, "Three lines", [](Texts& field) { field.Write("First\nSecond\n%sThird", look::red); });
    add_button(2, "Overwrite", [](Texts& field) { field.OverWrite("%sOverwritten", look::green); });
}

}  // namespace

void Build_Console(Sheet& sheet) {
    constexpr int log_width = 176;
    constexpr int log_height = 250;
    const int top = page_area.top + 24;
    const int width = page_area.width - log_width - 16;
    sheet.Heading(page_area.x, page_area.top, "Console: type, recall, paste, scroll");
    Add_Console(sheet, {page_area.x, top, width, page_area.height - 24});
    sheet.Heading(page_area.x + width + 16, page_area.top, "Log: output only").Width = log_width;
    Add_Log(sheet, {page_area.x + width + 16, top, log_width, log_height});
}

}  // namespace gallery
