#include <cstdint>
#include <iterator>
#include <string>

#include "Galdren_Host.h"
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

/// Shows what the dialog looked like that was opened last.
class Photo : public Pixel_Frame {
  public:
    Pixels Picture;

    void Draw() {
        constexpr unsigned long ground = 0xFF3A3E46;
        const SIZE room = Room();
        const bool has_room = Picture.width <= room.cx && Picture.height <= room.cy;
        const SIZE size = has_room ? SIZE{Picture.width, Picture.height} : Fit_Pixels(Picture, room);
        const LONG left = (size.cx - room.cx) / 2;
        const LONG top = (size.cy - room.cy) / 2;
        Paint(Scale_Pixels(Picture, size, {left, top, left + room.cx, top + room.cy}, ground));
    }
};

/// What a window shows in its client area.
Pixels Picture_Of(HWND window) {
    RECT client{};
    GetClientRect(window, &client);
    Pixels picture{client.right, client.bottom, {}};
    picture.data.resize(static_cast<std::size_t>(client.right) * static_cast<std::size_t>(client.bottom));
    const HDC source = GetDC(window);
    const HDC memory = CreateCompatibleDC(source);
    const HBITMAP bitmap = CreateCompatibleBitmap(source, client.right, client.bottom);
    const HGDIOBJ before = SelectObject(memory, bitmap);
    BitBlt(memory, 0, 0, client.right, client.bottom, source, 0, 0, SRCCOPY);
    SelectObject(memory, before);
    BITMAPINFO layout{};
    layout.bmiHeader = {sizeof layout.bmiHeader, client.right, -client.bottom, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
    GetDIBits(memory, bitmap, 0, static_cast<UINT>(client.bottom), picture.data.data(), &layout,
              DIB_RGB_COLORS);
    DeleteObject(bitmap);
    DeleteDC(memory);
    ReleaseDC(window, source);
    for (unsigned long& pixel : picture.data)
        pixel |= 0xFF000000;  // opaque
    return picture;
}

bool close_at_once = false;

/// Photographs the dialog that is open while it lives; the dialog's own loop lets the timer go on.
class Photographer {
  public:
    Photographer(Photo& target, const char* title) : photo(target), dialog_title(title) {
        working = this;
        timer = SetTimer(nullptr, 0, 50, [](HWND, UINT, UINT_PTR, DWORD) {
            if (working) working->Take();  // else it comes late
        });
    }
    ~Photographer() {
        KillTimer(nullptr, timer);
        working = nullptr;
    }
    Photographer(const Photographer&) = delete;
    Photographer& operator=(const Photographer&) = delete;

  private:
    void Take() {
        const HWND dialog = FindWindowA("#32770", dialog_title);
        if (!dialog || !IsWindowVisible(dialog)) return;
        // Nobody points at it who is not there.
        if (close_at_once) SendMessageA(dialog, WM_MOUSEMOVE, 0, MAKELPARAM(-1, -1));
        UpdateWindow(dialog);
        photo.Picture = Picture_Of(dialog);
        KillTimer(nullptr, timer);
        if (close_at_once) PostMessageA(dialog, WM_CLOSE, 0, 0);
    }

    static inline Photographer* working = nullptr;
    Photo& photo;
    const char* dialog_title;
    UINT_PTR timer = 0;
};

/// The photos of the page: of messages and of questions.
struct Photos {
    Photo* message;
    Photo* question;
};

/// What an answer means.
std::string Meaning(const Sample& sample, int answer) {
    if (answer == 0) return sample.question ? "0, \"No\" or closed" : "0, \"OK\" or closed";
    if (answer == 1 && sample.question) return "1, \"Yes\"";
    return std::to_string(answer) + ", no answer";
}

void Show_Dialog(const Sheet& sheet, const Sample& sample, Labels& answer_label, const Photos& photos) {
    std::string message = sample.message;  // the dialog may write into it
    const auto open = sample.question ? PopUp_Querry : PopUp_Message;
    Photo& photo = sample.question ? *photos.question : *photos.message;
    const Photographer photographer(photo, sample.title);
    const int answer = open(sample.title, sample.caption, message.data(), sample.width, sample.height);
    sheet.Refresh(photo);
    const std::string meaning = Meaning(sample, answer);
    answer_label.Set_Name("%s", meaning.c_str());
    sheet.Refresh(answer_label);
    sheet.Report("press \"" + std::string(sample.name) + "\": " + meaning);
}

void Add_Sample(Sheet& sheet, const Sample& sample, int top, const Photos& photos) {
    constexpr int height = 30;
    constexpr int button_width = 180;
    constexpr int plate_width = 220;
    const int about_left = page_area.x + button_width + 16;
    const int plate_left = page_area.x + page_area.width - plate_width;
    sheet.Label({about_left, top, plate_left - about_left, height}, sample.about, FLAG_TEXT_LEFT);
    sheet.Plate({plate_left, top, plate_width, height});
    Labels& answer = sheet.Label({plate_left + 10, top, plate_width - 20, height}, nullptr, FLAG_TEXT_LEFT);
    const auto press = [&sheet, &sample, &answer, photos](Buttons&) {
        Show_Dialog(sheet, sample, answer, photos);
    };
    sheet.Add<Buttons>({page_area.x, top, button_width, height}, sample.name, 0, press);
}

Photo* Add_Photo(Sheet& sheet, const char* heading, const Place& place) {
    sheet.Heading(place.x, place.top - 22, heading);
    Photo& photo = sheet.Add<Photo>(place, nullptr);
    photo.Border = 1;
    photo.Color = Colors(58, 62, 70);
    return &photo;
}

}  // namespace

void Close_Dialogs_At_Once() { close_at_once = true; }

void Build_Dialogs(Sheet& sheet) {
    static const Sample samples[] = {
        {"Short message", "at the usual size, 300 x 150", false, "Save", "Saved", plain_text, 0, 0},
        {"Long message", "60 lines and a scroll bar", false, "Lines", "Lines", Many_Lines(), 420, 260},
        {"Colours and fonts", "codes in the text", false, "Codes", "Codes", coded_text, 360, 170},
        {"Percent signs", "no caption", false, "Data", nullptr, percent_text, 0, 120},
        {"Question", "at the usual size", true, "Close", "Save?", question_text, 0, 0},
        {"Wide question", "480 x 120, no caption", true, "Close", nullptr, question_text, 480, 120},
    };
    constexpr int row_height = 37;
    constexpr int photo_width = 368;
    constexpr int photo_height = 206;
    constexpr int photo_top = page_area.top + page_area.height - photo_height;
    sheet.Heading(page_area.x, page_area.top, "Dialogs: press a button to open one");
    sheet.Heading(page_area.x + page_area.width - 220, page_area.top, "Its answer");
    const Photos photos{
        Add_Photo(sheet, "The last message", {page_area.x, photo_top, photo_width, photo_height}),
        Add_Photo(sheet, "The last question",
                  {page_area.x + page_area.width - photo_width, photo_top, photo_width, photo_height})};
    for (int i = 0; i < static_cast<int>(std::size(samples)); ++i)
        Add_Sample(sheet, samples[i], page_area.top + 26 + i * row_height, photos);
}

}  // namespace gallery
