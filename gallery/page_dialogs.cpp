#include <iterator>
#include <string>

#include "gallery/pages.h"

namespace gallery {

namespace {

/// A dialog and what it is there to show.
struct Sample {
    const char* name;
    const char* about;
    bool question;
    const char* title;
    const char* caption;
    std::string message;
    short width, height;
};

std::string Many_Lines() {
    std::string text;
    for (int i = 1; i <= 60; ++i)
        text += "Line " + std::to_string(i) + " of 60: turn the wheel, or drag the bar\n";
    return text;
}

constexpr char plain_text[] = "The file was saved.\nNothing else has changed.";
constexpr char coded_text[] =
    "Codes in the text switch its look:\n\1blue, \4red, \6green, \2black,\n"
    "\361bold, \362oblique, \360normal";
constexpr char percent_text[] = "The text is data: 100 %, %s, %n.\nTwo are shown as one: %%";
constexpr char question_text[] = "The file has changed.\nSave it before it is closed?";

/// What an answer means.
std::string Meaning(const Sample& sample, int answer) {
    if (answer == 0) return sample.question ? "0, \"No\" or closed" : "0, \"OK\" or closed";
    if (answer == 1 && sample.question) return "1, \"Yes\"";
    return std::to_string(answer) + ", no answer";
}

void Show_Dialog(const Sheet& sheet, const Sample& sample, Labels& answer_label) {
    std::string message = sample.message;  // the dialog may write into it
    const auto open = sample.question ? PopUp_Querry : PopUp_Message;
    const int answer = open(sample.title, sample.caption, message.data(), sample.width, sample.height);
    const std::string meaning = Meaning(sample, answer);
    answer_label.Set_Name("%s", meaning.c_str());
    sheet.Refresh(answer_label);
    sheet.Report("press \"" + std::string(sample.name) + "\": " + meaning);
}

void Add_Sample(Sheet& sheet, const Sample& sample, int top) {
    constexpr int height = 30;
    constexpr int button_width = 180;
    constexpr int plate_width = 220;
    const int about_left = page_area.x + button_width + 16;
    const int plate_left = page_area.x + page_area.width - plate_width;
    sheet.Label({about_left, top, plate_left - about_left, height}, sample.about, FLAG_TEXT_LEFT);
    sheet.Plate({plate_left, top, plate_width, height});
    Labels& answer = sheet.Label({plate_left + 10, top, plate_width - 20, height}, nullptr, FLAG_TEXT_LEFT);
    const auto press = [&sheet, &sample, &answer](Buttons&) { Show_Dialog(sheet, sample, answer); };
    sheet.Add<Buttons>({page_area.x, top, button_width, height}, sample.name, 0, press);
}

}  // namespace

void Build_Dialogs(Sheet& sheet) {
    static const Sample samples[] = {
        {"Short message", "at the usual size, 300 x 150", false, "Save", "Saved", plain_text, 0, 0},
        {"Long message", "60 lines and a scroll bar", false, "Lines", "Lines", Many_Lines(), 420, 260},
        {"Colours and fonts", "codes in the text", false, "Codes", "Codes", coded_text, 360, 170},
        {"Percent signs", "no caption", false, "Data", nullptr, percent_text, 0, 120},
        {"Question", "at the usual size", true, "Close", "Save?", question_text, 0, 0},
        {"Wide question", "480 x 120, no caption", true, "Close", nullptr, question_text, 480, 120},
    };
    constexpr int row_height = 44;
    sheet.Heading(page_area.x, page_area.top, "Dialogs: press a button to open one");
    sheet.Heading(page_area.x + page_area.width - 220, page_area.top, "Its answer");
    for (int i = 0; i < static_cast<int>(std::size(samples)); ++i)
        Add_Sample(sheet, samples[i], page_area.top + 28 + i * row_height);
}

}  // namespace gallery
