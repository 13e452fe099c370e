// A thousand small controls on one page, all alive: how long they take to paint, and what an event costs.
#include <windows.h>

#include <concepts>
#include <functional>
#include <iterator>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "Galdren_Util.h"
#include "gallery/call_meter.h"
#include "gallery/pages.h"

namespace gallery {

namespace {

constexpr Place field{page_area.x, page_area.top + 68, page_area.width, page_area.height - 68};
constexpr int margin = 4;
constexpr int gap = 2;

constexpr const char* levels[] = {"low", "mid", "high"};
constexpr const char* choices[] = {"one", "two", nullptr};

/// What every kind of control needs beside its place and colour.
/// @{
void Prepare(Buttons& button, int index) { button.Flag = index % 3 ? 0 : BUTTON_LAMP; }
void Prepare(Boxs& box, int index) { box.Flag = index % 2 ? FLAG_RAISED : 0; }
void Prepare(Labels& label, int index) { label.Set_Name("%c", 'A' + index % 26); }
void Prepare(CheckLists& list, int index) {
    list.Flag = CHECKLIST_ONE_COLUMN;
    list.List = choices;
    list.Value = index % 4;
}
void Prepare(Selects& selector, int index) {
    selector.Grow(static_cast<int>(std::size(levels)), 0);
    for (std::size_t i = 0; i < std::size(levels); ++i)
        selector.Item[i]->Name = levels[i];
    selector.Current = static_cast<short>(index % 3);
}
void Prepare(Hue_Edit& editor, int) { editor.Value = editor.Color.get() | 0xFF000000; }
template <class Bar>
void Prepare(Bar& bar, int index) {
    bar.Flag = SLIDER_KEEP_GRAB | (std::derived_from<Bar, Sliders> ? FLAG_VERTICAL : 0);
    bar.End_Val = 100;
    bar.Val = static_cast<float>(index * 37 % 101);
}
/// @}

/// What the host would do only to a button with a lamp.
void Toggle(Buttons& button) {
    button.Value = !button.Value;
    if (button.Flag & BUTTON_LAMP) button.Lamp = button.Value;
    button.Adjust();
}

/// A colour of the rainbow, by a fraction of it.
Colors Rainbow(float hue) {
    float red = 0, green = 0, blue = 0;
    HLS_to_RGB(hue, 0.68F, 0.35F, &red, &green, &blue);
    const auto channel = [](float value) { return static_cast<int>(value * 255); };
    return {channel(red), channel(green), channel(blue)};
}

class Batch {
  public:
    explicit Batch(HWND window) { Begin_Batch(window); }
    ~Batch() { End_Batch(); }
    Batch(const Batch&) = delete;
    Batch& operator=(const Batch&) = delete;
};

double Milliseconds_Now() {
    LARGE_INTEGER now, frequency;
    QueryPerformanceCounter(&now);
    QueryPerformanceFrequency(&frequency);
    return 1000.0 * static_cast<double>(now.QuadPart) / static_cast<double>(frequency.QuadPart);
}

/// The controls of the field, from the top down.
class Crowd {
  public:
    explicit Crowd(Sheet& owner) : sheet(owner) {
        Boxs& ground = sheet.Plate(field);
        draws.push_back([&ground] { ground.Draw(); });
    }

    /// Rows of controls of one class across the field.
    template <class Control>
    void Add_Rows(int columns, int rows, int height) {
        const int width = field.width - 2 * margin + gap;
        for (int row = 0; row < rows; ++row, top += height + gap) {
            for (int column = 0; column < columns; ++column) {
                const int left = column * width / columns, right = (column + 1) * width / columns - gap;
                const float hue = static_cast<float>(column) / static_cast<float>(columns);
                Add<Control>({field.x + margin + left, field.top + top, right - left, height}, Rainbow(hue),
                             row * columns + column);
            }
        }
    }

    /// Paints all, in a batch or one after the other.
    /// @return how long it took, in milliseconds
    double Paint(bool in_batch) const {
        const double start = Milliseconds_Now();
        std::optional<Batch> batch;
        if (in_batch) batch.emplace(hwnd);
        for (const auto& draw : draws)
            draw();
        batch.reset();
        GdiFlush();
        return Milliseconds_Now() - start;
    }

  private:
    template <class Control>
    void Add(const Place& place, const Colors& color, int index) {
        std::function<void(Control&)> press;
        if constexpr (std::same_as<Control, Buttons>) press = Toggle;
        Control& control = sheet.Add<Control>(place, nullptr, 0, press);
        control.Font_Size = 6;
        control.Border = 1;
        control.Color = color;
        Prepare(control, index);
        draws.push_back([&control] { control.Draw(); });
    }

    Sheet& sheet;
    std::vector<std::function<void()>> draws;
    int top = margin;
};

/// A line that shows what the meter says, from one paint to the next.
class Meter_Line : public Labels {
  public:
    std::string (Call_Meter::*source)() const = nullptr;
    const char* title = "";

    void Draw() {
        text = title + (Call_Meter::Get().*source)();
        Name = text.c_str();
        stale = false;
        Labels::Draw();
    }
    /// While its page is not shown it is not painted, and asks for that no second time.
    void Follow(const Sheet& sheet) {
        if (stale || text == title + (Call_Meter::Get().*source)()) return;
        stale = true;
        sheet.Refresh(*this);
    }

  private:
    std::string text;
    bool stale = false;
};

Meter_Line& Add_Meter_Line(Sheet& sheet, int top, const char* title,
                           std::string (Call_Meter::*source)() const) {
    Meter_Line& line = sheet.Add<Meter_Line>({page_area.x + 420, top, 326, 24}, nullptr, FLAG_TEXT_LEFT);
    line.title = title;
    line.source = source;
    return line;
}

void Add_Meter(Sheet& sheet) {
    sheet.Plate({page_area.x + 410, page_area.top, page_area.width - 410, 62});
    Meter_Line& last = Add_Meter_Line(sheet, page_area.top + 4, "Last event: ", &Call_Meter::Text);
    Meter_Line& paint =
        Add_Meter_Line(sheet, page_area.top + 32, "Last that painted: ", &Call_Meter::Text_Of_Last_Paint);
    Call_Meter::Get().Set_On_Event([&] {
        last.Follow(sheet);
        paint.Follow(sheet);
    });
}

/// The switch, and how long each way took when it was used last.
class Repaint_Clock {
  public:
    Repaint_Clock(Sheet& owner, std::shared_ptr<Crowd> painted) : sheet(owner), crowd(std::move(painted)) {
        sheet.Plate({page_area.x + 146, page_area.top, 252, 62});
        lines[1] = Add_Line(4, "In a batch: not used yet");
        lines[0] = Add_Line(32, "One by one: not used yet");
    }

    void Use(Buttons& lamp) {
        lamp.Value = lamp.Lamp = !lamp.Lamp;
        lamp.Adjust();
        const bool in_batch = lamp.Lamp;
        lines[in_batch]->Set_Name("%s: %.2f ms", in_batch ? "In a batch" : "One by one",
                                  crowd->Paint(in_batch));
        sheet.Refresh(*lines[in_batch]);
        sheet.Report(in_batch ? "press \"Paint batch\": Lamp 1" : "press \"Paint batch\": Lamp 0");
    }

  private:
    Labels* Add_Line(int top, const char* text) {
        return &sheet.Label({page_area.x + 156, page_area.top + top, 232, 24}, text, FLAG_TEXT_LEFT);
    }

    Sheet& sheet;
    std::shared_ptr<Crowd> crowd;
    Labels* lines[2]{};  // one by one, in a batch
};

}  // namespace

void Build_Stress(Sheet& sheet) {
    const auto crowd = std::make_shared<Crowd>(sheet);
    crowd->Add_Rows<Buttons>(40, 8, 10);
    crowd->Add_Rows<Boxs>(74, 4, 9);
    crowd->Add_Rows<Labels>(84, 1, 9);
    crowd->Add_Rows<Valuators>(12, 8, 8);
    crowd->Add_Rows<Sliders>(56, 2, 28);
    crowd->Add_Rows<Selects>(16, 3, 16);
    crowd->Add_Rows<CheckLists>(20, 2, 24);
    crowd->Add_Rows<Hue_Edit>(4, 1, 20);

    const auto clock = std::make_shared<Repaint_Clock>(sheet, crowd);
    sheet
        .Add<Buttons>({page_area.x, page_area.top, 134, 62}, "Paint batch", BUTTON_LAMP,
                      [clock](Buttons& lamp) { clock->Use(lamp); })
        .Lamp = 1;
    Add_Meter(sheet);
}

}  // namespace gallery
