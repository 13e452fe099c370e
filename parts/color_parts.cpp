// Descriptions of the hue editor and the colour editor.
#include <algorithm>
#include <array>
#include <charconv>
#include <cstdio>
#include <cstring>

#include "parts/classes.h"
#include "parts/describe.h"
#include "tools/arithmetic.h"
#include "util/color_space.h"

using namespace galdren;

namespace {

/// Hue, lightness and saturation, from 0 to 1.
using HLS = std::array<float, 3>;

constexpr float Widest_Channel = 255.0F;
constexpr double Percent = 100.0;
constexpr float Last_Hue = 0.99F;  // the end of a trough; 1 would be the first hue again

int Byte_Of(unsigned long color, int channel) { return static_cast<int>(color >> 8 * channel & 0xFF); }

unsigned long Pack(int red, int green, int blue) {
    const auto byte = [](int value) { return static_cast<unsigned long>(std::clamp(value, 0, 255)); };
    return byte(red) | byte(green) << 8 | byte(blue) << 16 | 0xFF000000;
}

/// Each byte counts as the middle of its step.
HLS HLS_Of(unsigned long color) {
    const auto channel = [&](int i) {
        return (static_cast<float>(Byte_Of(color, i)) + 0.5F) / Widest_Channel;
    };
    HLS hls{};
    RGB_to_HLS(channel(0), channel(1), channel(2), &hls[0], &hls[1], &hls[2]);
    return hls;
}

unsigned long Color_Of(const HLS& hls) {
    float red = 0, green = 0, blue = 0;
    HLS_to_RGB(hls[0], hls[1], hls[2], &red, &green, &blue);
    const auto byte = [](float channel) { return Truncate(double{channel * Widest_Channel}); };
    return Pack(byte(red), byte(green), byte(blue));
}

std::string Written(unsigned long color) {
    char text[8];
    std::snprintf(text, sizeof text, "#%02X%02X%02X", Byte_Of(color, 0), Byte_Of(color, 1),
                  Byte_Of(color, 2));
    return text;
}

/// "#RRGGBB".
std::optional<unsigned long> Parse_Color(const char* text) {
    constexpr std::size_t Digits = 6;
    if (!text || *text != '#' || strnlen(text, Digits + 2) != Digits + 1) return std::nullopt;
    int bytes = 0;
    const auto [end, error] = std::from_chars(text + 1, text + 1 + Digits, bytes, 16);
    if (error != std::errc() || end != text + 1 + Digits || bytes < 0) return std::nullopt;
    return Pack(bytes >> 16, bytes >> 8 & 0xFF, bytes & 0xFF);
}

/// Shows a colour also when the editor has noted it as one that it showed before others.
template <class Editor>
void Show(Editor& editor, unsigned long color) {
    const bool noted = color == editor.Last_Value && color != editor.Value;
    editor.Value = color;
    noted ? editor.Draw() : editor.Adjust();
}

/// Does what `Class_Parts::Store` says.
template <class Editor>
bool Store_Color(Editor& editor, int event) {
    if ((event != EVENT_PRESS && event != EVENT_DRAG) || !Is_Active(editor)) return false;
    editor.Value = editor.Read();
    editor.Adjust();
    return true;
}

class Hue_Parts final : public Parts_For<Hue_Edit> {
  public:
    const char* Name() const override { return "Hue_Edit"; }

    Part Describe(const Tools& control, int) const override {
        const Hue_Edit& editor = Own(control);
        Part part = Whole_Of(editor, Part_Role::Slider, Part_Use::Step);
        Put(part, editor, editor.Hue.Rect);
        Set_Range(part, 0, Percent, Percent * double{HLS_Of(editor.Value)[0]});
        part.value = Written(editor.Value);
        return part;
    }

    bool Step(Tools& control, int, Part_Move move) const override {
        Hue_Edit& editor = Own(control);
        if (!Is_Active(editor)) return false;
        if (const std::optional<int> steps = Steps_Of(move)) {
            editor.Scroll(-*steps);
        } else {
            Turn(editor, move == Part_Move::Home ? 0.0F : Last_Hue);
        }
        return true;
    }

    /// A colour, or a hue as a number.
    bool Set_Value(Tools& control, int, const char* text) const override {
        Hue_Edit& editor = Own(control);
        const std::optional<unsigned long> color = Parse_Color(text);
        const std::optional<Number_Text> hue = Parse_Number(text);
        if (!Is_Active(editor)) return false;
        if (color) {
            Show(editor, *color);
        } else if (hue && (hue->unit.empty() || hue->unit == "%")) {
            Turn(editor, static_cast<float>(std::clamp(hue->number, 0.0, Percent) / Percent));
        } else {
            return false;
        }
        return true;
    }

    bool Store(Tools& control, int event) const override { return Store_Color(Own(control), event); }

    void For_Members(Tools& control, const std::function<void(Tools&)>& visit) const override {
        Hue_Edit& editor = Own(control);
        visit(editor.Frame);
        visit(editor.Swatch);
        visit(editor.Hue);
    }

  private:
    static void Turn(Hue_Edit& editor, float hue) {
        HLS hls = HLS_Of(editor.Value);
        hls[0] = std::min(hue, Last_Hue);
        Show(editor, Color_Of(hls));
    }
};

class Color_Parts final : public Parts_For<Color_Edit> {
  public:
    const char* Name() const override { return "Color_Edit"; }

    /// The channels and, with one, the mode button.
    int Count(const Tools& control) const override {
        return Has_Bit(control, COLOR_EDIT_MODE_BUTTON) ? Channels + 1 : Channels;
    }

    Part Describe(const Tools& control, int part) const override {
        const Color_Edit& editor = Own(control);
        if (part == Channels && Count(editor) > Channels)
            return Button_Of(editor, editor.Mode_Button, Part_Role::Button, Part_Use::Press);
        return Is_Channel(part) ? Channel(editor, part) : All(editor);
    }

    /// Up and Down go to the next channel.
    bool Step(Tools& control, int part, Part_Move move) const override {
        Color_Edit& editor = Own(control);
        if (!Is_Active(editor) || !Is_Channel(part) || move == Part_Move::Up || move == Part_Move::Down)
            return false;
        if (const std::optional<int> steps = Steps_Of(move)) {
            editor.Scroll(-*steps);
        } else {
            Set_Channel(editor, part, move == Part_Move::Home ? 0 : Most(editor));
        }
        return true;
    }

    bool Set_Value(Tools& control, int part, const char* text) const override {
        Color_Edit& editor = Own(control);
        if (!Is_Active(editor)) return false;
        if (Is_Channel(part)) {
            const std::optional<Number_Text> number = Parse_Number(text);
            if (!number || !(number->unit.empty() || number->unit == Unit(editor))) return false;
            Set_Channel(editor, part, std::clamp(number->number, 0.0, Most(editor)));
            return true;
        }
        const std::optional<unsigned long> color = Parse_Color(text);
        if (!color || (part == Channels && Count(editor) > Channels)) return false;
        Show(editor, *color);
        return true;
    }

    bool Store(Tools& control, int event) const override { return Store_Color(Own(control), event); }

    void For_Members(Tools& control, const std::function<void(Tools&)>& visit) const override {
        Color_Edit& editor = Own(control);
        visit(editor.Frame);
        visit(editor.Swatch);
        visit(editor.Mode_Button);
        visit(editor.Chan_1);
        visit(editor.Chan_2);
        visit(editor.Chan_3);
    }

  private:
    static constexpr int Channels = 3;

    static bool Is_Channel(int part) { return part >= 0 && part < Channels; }
    static bool Is_HLS(const Color_Edit& editor) { return Has_Bit(editor, COLOR_EDIT_HLS); }

    /// Red, green and blue are told as bytes, the others in percent.
    static double Most(const Color_Edit& editor) { return Is_HLS(editor) ? Percent : double{Widest_Channel}; }
    static const char* Unit(const Color_Edit& editor) { return Is_HLS(editor) ? "%" : ""; }

    static Part All(const Color_Edit& editor) {
        Part part = Whole_Of(editor, Part_Role::Group, Part_Use::None);
        part.value = Written(editor.Value);
        return part;
    }

    static Part Channel(const Color_Edit& editor, int channel) {
        static constexpr const char* Names[][Channels] = {{"Red", "Green", "Blue"},
                                                          {"Hue", "Lightness", "Saturation"}};
        const Valuators* const troughs[] = {&editor.Chan_1, &editor.Chan_2, &editor.Chan_3};
        const auto index = static_cast<std::size_t>(channel);
        Part part = Button_Of(editor, *troughs[index], Part_Role::Slider, Part_Use::Step);
        part.name = Names[Is_HLS(editor)][index];
        const double number =
            Is_HLS(editor) ? Percent * double{HLS_Of(editor.Value)[index]} : Byte_Of(editor.Value, channel);
        Set_Range(part, 0, Most(editor), number);
        char text[32];
        std::snprintf(text, sizeof text, Is_HLS(editor) ? "%.0f %%" : "%.0f", number);
        part.value = text;
        return part;
    }

    static void Set_Channel(Color_Edit& editor, int channel, double number) {
        const auto index = static_cast<std::size_t>(channel);
        if (Is_HLS(editor)) {
            HLS hls = HLS_Of(editor.Value);
            hls[index] = static_cast<float>(number / Percent);
            if (index == 0) hls[index] = std::min(hls[index], Last_Hue);
            Show(editor, Color_Of(hls));
        } else {
            int bytes[] = {Byte_Of(editor.Value, 0), Byte_Of(editor.Value, 1), Byte_Of(editor.Value, 2)};
            bytes[index] = Truncate(number + 0.5);
            Show(editor, Pack(bytes[0], bytes[1], bytes[2]));
        }
    }
};

constexpr Hue_Parts The_Hue_Parts;
constexpr Color_Parts The_Color_Parts;

}  // namespace

const Class_Parts& Parts_Of(const Hue_Edit*) { return The_Hue_Parts; }
const Class_Parts& Parts_Of(const Color_Edit*) { return The_Color_Parts; }
