#include "gallery/sheet.h"

#include <algorithm>

namespace gallery {

namespace {

constexpr int lamp_codes = 5;  // off, green, blue, yellow, red

/// Left edge of the sheet in a client area of this size.
int Left_Edge(SIZE client) { return std::max(static_cast<int>(client.cx - design_size.cx) / 2, 0); }

std::string Quote(const Tools& control) { return '"' + std::string(control.Name ? control.Name : "") + '"'; }

}  // namespace

Sheet::Sheet(Host& owner, Reporter reporter) : host(owner), report(std::move(reporter)) {}

void Sheet::Fill_In(Tools& control, const Place& place, const char* name, unsigned long flag) {
    control.X = static_cast<short>(place.x);
    control.Y = static_cast<short>(design_size.cy - place.top - place.height);
    control.Width = static_cast<short>(place.width);
    control.Height = static_cast<short>(place.height);
    control.Name = name;
    control.Font_Name = "Arial";
    control.Font_Size = 9;
    control.Flag = flag;
}

Boxs& Sheet::Box(const Place& place, const char* name, unsigned long flag) {
    return Add<Boxs>(place, name, flag,
                     [this](Boxs& box) { Report("press " + Quote(box) + ": a box holds no value"); });
}

Buttons& Sheet::Button(const Place& place, const char* name, unsigned long flag) {
    return Add<Buttons>(place, name, flag, [this](Buttons& button) { Press(button); });
}

Labels& Sheet::Label(const Place& place, const char* name, unsigned long flag) {
    return Add<Labels>(place, name, flag);
}

Labels& Sheet::Heading(int x, int top, const char* name) {
    Labels& label = Label({x, top, 360, 18}, name, FLAG_TEXT_LEFT);
    label.Font_Weight = "bold";
    label.Color = Colors(214, 220, 230);
    return label;
}

Boxs& Sheet::Plate(const Place& place) {
    Boxs& plate = Box(place, nullptr, FLAG_PASSIVE | FLAG_STATIC | FLAG_NO_RIM);
    plate.Border = 1;
    plate.Color = Colors(58, 62, 70);
    return plate;
}

Boxs& Sheet::Paper(const Place& place) {
    Boxs& paper = Box(place, nullptr, FLAG_PASSIVE | FLAG_NO_RIM);
    paper.Border = 1;
    paper.Color = Colors(222, 225, 230);
    return paper;
}

void Sheet::Press(Buttons& button) const {
    if (button.Flag & BUTTON_LAMP) {
        const int codes = button.Flag & BUTTON_LAMP_COLORS ? lamp_codes : 2;
        button.Lamp = static_cast<short>((button.Lamp + 1) % codes);
        if (codes == 2) button.Value = button.Lamp;
    } else {
        button.Value = button.Value ? 0 : 1;
    }
    if (button.Flag & FLAG_OUTLINE) {
        // `Adjust` would give an outline button a full frame.
        host.Refresh(button);
    } else {
        button.Adjust();
    }
    Report("press " + Quote(button) + (button.Flag & BUTTON_LAMP ? ": Lamp " : ": Value ") +
           std::to_string(button.Flag & BUTTON_LAMP ? button.Lamp : button.Read()));
}

void Sheet::Show(const char* title) const {
    const char* label = title;
    for (const Item& item : items) {
        item.show();
        const bool has_caption = item.control->Name && *item.control->Name;
        if (item.is_label && has_caption) label = item.control->Name;
        if (!has_caption) host.Describe(*item.control, label);
    }
}

void Sheet::Hide() const {
    for (const Item& item : items)
        host.Remove(*item.control);
}

void Sheet::Fit(SIZE client) {
    const int right = Left_Edge(client) - Left_Edge(fitted);
    const int up = client.cy - fitted.cy;
    fitted = client;
    for (const Item& item : items)
        item.move(*item.control, right, up);
}

}  // namespace gallery
