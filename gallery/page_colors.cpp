#include <cstdio>
#include <functional>
#include <memory>
#include <vector>

#include "Galdren_Util.h"
#include "gallery/pages.h"

namespace gallery {

namespace {

constexpr unsigned long first_color = 0xFFB47832;

/// What a control takes for its colour. Black would mean grey to it.
Colors Paint_Of(unsigned long value) {
    const Colors color(static_cast<unsigned int>(value));
    return (value & 0xFFFFFF) == 0 ? Colors(1, 1, 1) : color;
}

/// One colour, the editors that change it, and the controls that have it.
class Studio {
  public:
    explicit Studio(Sheet& all) : sheet(all) {}

    void Add_Editor(Color_Edit& editor) {
        color_editors.push_back(&editor);
        editor.Value = first_color;
    }
    void Add_Editor(Hue_Edit& editor) {
        hue_editors.push_back(&editor);
        editor.Value = first_color;
    }
    template <class Control>
    void Add_Sample(Control& control) {
        control.Color = Paint_Of(first_color);
        samples.push_back([this, &control](unsigned long value) {
            control.Color = Paint_Of(value);
            control.Init(control.Window);
            sheet.Refresh(control);
        });
    }
    void Set_Text(Labels& label) {
        text = &label;
        Write(first_color);
    }

    /// Shows a colour in all editors, samples and in words.
    void Show(unsigned long value) {
        for (Color_Edit* editor : color_editors) {
            editor->Value = value;
            // `Adjust` leaves a passive editor alone.
            if (editor->Flag & FLAG_PASSIVE) sheet.Refresh(*editor);
            editor->Adjust();
        }
        for (Hue_Edit* editor : hue_editors) {
            editor->Value = value;
            // `Adjust` leaves the colour of the last `Draw` alone.
            if (value == editor->Last_Value) sheet.Refresh(*editor);
            editor->Adjust();
        }
        for (const auto& paint : samples)
            paint(value);
        Write(value);
        sheet.Refresh(*text);
    }

  private:
    void Write(unsigned long value) {
        const Colors color(static_cast<unsigned int>(value));
        float h, l, s;
        RGB_to_HLS(static_cast<float>(color.Red) / 255, static_cast<float>(color.Green) / 255,
                   static_cast<float>(color.Blue) / 255, &h, &l, &s);
        text->Set_Name(
            "Red %d   Green %d   Blue %d      Hue %.2f   Light %.2f   Saturation %.2f      0x%08lX",
            color.Red, color.Green, color.Blue, double{h}, double{l}, double{s}, value);
    }

    Sheet& sheet;
    std::vector<Color_Edit*> color_editors;
    std::vector<Hue_Edit*> hue_editors;
    std::vector<std::function<void(unsigned long)>> samples;
    Labels* text = nullptr;
};

using Shared_Studio = std::shared_ptr<Studio>;

template <class Editor>
Editor& Add_Editor(Sheet& sheet, const Shared_Studio& studio, const Place& place, const char* name,
                   unsigned long flag = 0) {
    const auto show = [&sheet, studio](Editor& editor, const char* action) {
        studio->Show(editor.Value);
        char text[120];
        std::snprintf(text, sizeof text, "%s \"%s\": 0x%08lX", action, editor.Name ? editor.Name : "",
                      editor.Value);
        sheet.Report(text);
    };
    const auto press = [show](Editor& editor) {
        editor.Value = editor.Read();
        show(editor, "press");
    };
    const auto change = [show](Editor& editor) {
        // After the wheel the editor has its colour already.
        if (Button_State == 0) return show(editor, "wheel");
        editor.Value = editor.Read();
        show(editor, "drag");
    };
    Editor& editor = sheet.Add<Editor>(place, name, flag | SLIDER_KEEP_GRAB, press, change);
    studio->Add_Editor(editor);
    return editor;
}

constexpr int left = page_area.x;
constexpr int gap = 16;
constexpr int half = (page_area.width - gap) / 2;
constexpr int right = left + half + gap;

void Add_Color_Editors(Sheet& sheet, const Shared_Studio& studio, int top) {
    constexpr unsigned long caption = FLAG_TEXT_RIGHT;
    constexpr unsigned long button = COLOR_EDIT_MODE_BUTTON;
    sheet.Heading(left, top, "Colour editors: drag, turn the wheel, change the mode");
    Add_Editor<Color_Edit>(sheet, studio, {left, top + 22, half, 124}, "Paint", caption | button).Border = 3;
    Color_Edit& steel =
        Add_Editor<Color_Edit>(sheet, studio, {right, top + 22, half, 124}, "In hue, light, saturation",
                               caption | button | COLOR_EDIT_HLS);
    steel.Color = Colors(120, 146, 176);
    steel.Border = 2;
}

void Add_Other_Looks(Sheet& sheet, const Shared_Studio& studio, int top) {
    const auto place = [top](int column, int height) {
        return Place{left + column * 192, top + 22, 176, height};
    };
    sheet.Heading(left, top, "Small, two without a frame, passive");
    Add_Editor<Color_Edit>(sheet, studio, place(0, 66), nullptr).Border = 1;
    Add_Editor<Color_Edit>(sheet, studio, place(1, 66), nullptr, COLOR_EDIT_HLS).Border = 0;
    Add_Editor<Hue_Edit>(sheet, studio, place(2, 66), "No frame").Border = 0;
    Add_Editor<Color_Edit>(sheet, studio, place(3, 66), "Passive", FLAG_PASSIVE).Border = 2;
}

void Add_Hue_Editors(Sheet& sheet, const Shared_Studio& studio, int top) {
    sheet.Heading(left, top, "Hue editors");
    Add_Editor<Hue_Edit>(sheet, studio, {left, top + 22, half, 36}, nullptr).Border = 3;
    Hue_Edit& thin =
        Add_Editor<Hue_Edit>(sheet, studio, {right, top + 22, half, 36}, "Thin frame", FLAG_TEXT_LEFT);
    thin.Border = 1;
    thin.Color = Colors(222, 172, 84);
}

void Add_Samples(Sheet& sheet, const Shared_Studio& studio, int top) {
    const auto place = [top](int column) { return Place{left + column * 128, top + 22, 112, 40}; };
    sheet.Heading(left, top, "In this colour");
    studio->Add_Sample(sheet.Box(place(0), "Box", FLAG_TEXT_MIDDLE | FLAG_RAISED));
    studio->Add_Sample(sheet.Button(place(1), "Button"));
    Buttons& down = sheet.Button(place(2), "Down");
    down.Value = 1;
    studio->Add_Sample(down);
    Buttons& lamp = sheet.Button(place(3), "Lamp", BUTTON_LAMP);
    lamp.Lamp = 1;
    studio->Add_Sample(lamp);
    Valuators& valuator = sheet.Add<Valuators>(place(4), "Valuator");
    valuator.End_Val = 1;
    valuator.Val = 0.75F;
    studio->Add_Sample(valuator);
    Sliders& slider = sheet.Add<Sliders>(place(5), "Slider");
    slider.End_Val = 1;
    slider.Val = 0.5F;
    slider.Border = 2;
    studio->Add_Sample(slider);
}

void Add_Text(Sheet& sheet, const Shared_Studio& studio, int top) {
    const Place place{left, top, page_area.width, 30};
    sheet.Plate(place);
    studio->Set_Text(sheet.Label(place, nullptr));
}

}  // namespace

void Build_Colors(Sheet& sheet) {
    const auto studio = std::make_shared<Studio>(sheet);
    const int top = page_area.top;
    Add_Color_Editors(sheet, studio, top);
    Add_Hue_Editors(sheet, studio, top + 170);
    Add_Other_Looks(sheet, studio, top + 252);
    Add_Samples(sheet, studio, top + 364);
    Add_Text(sheet, studio, top + 454);
}

}  // namespace gallery
