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

/// Red, green and blue, or hue, lightness and saturation; each from 0 to 1.
using Channels = std::array<float, 3>;

constexpr int Channel_Count = 3;
constexpr double Widest_Byte = 255.0;
constexpr double Percent = 100.0;
constexpr float Last_Hue = 0.99F;  // the end of a trough; 1 would be the first hue again

int Byte_Of(unsigned long color, int channel) { return static_cast<int>(color >> 8 * channel & 0xFF); }

unsigned long Pack(int red, int green, int blue) {
    const auto byte = [](int value) { return static_cast<unsigned long>(std::clamp(value, 0, 255)); };
    return byte(red) | byte(green) << 8 | byte(blue) << 16 | 0xFF000000;
}

/// Where a byte lies in its channel: in the middle of its step.
float Fraction_Of(double byte) { return static_cast<float>((byte + 0.5) / Widest_Byte); }

Channels RGB_Of(unsigned long color) {
    return {Fraction_Of(Byte_Of(color, 0)), Fraction_Of(Byte_Of(color, 1)), Fraction_Of(Byte_Of(color, 2))};
}

Channels HLS_Of(unsigned long color) {
    const auto [red, green, blue] = RGB_Of(color);
    Channels hls{};
    RGB_to_HLS(red, green, blue, &hls[0], &hls[1], &hls[2]);
    return hls;
}

unsigned long From_RGB(const Channels& rgb) {
    const auto byte = [](float channel) { return Truncate(double{channel} * Widest_Byte); };
    return Pack(byte(rgb[0]), byte(rgb[1]), byte(rgb[2]));
}

unsigned long From_HLS(const Channels& hls) {
    Channels rgb{};
    HLS_to_RGB(std::min(hls[0], Last_Hue), hls[1], hls[2], &rgb[0], &rgb[1], &rgb[2]);
    return From_RGB(rgb);
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

/// Shows a colour. `Adjust` does nothing for the one that the editor has noted, whatever its thumbs show.
template <class Editor>
void Show(Editor& editor, unsigned long color) {
    editor.Value = color;
    color == editor.Last_Value ? editor.Draw() : editor.Adjust();
}

/// What a value in a trough becomes by a number of steps.
float Stepped(Valuators& trough, float value, int steps) {
    trough.Val = value;
    return trough.Scroll(-steps);
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
            Turn(editor, Stepped(editor.Hue, HLS_Of(editor.Value)[0], *steps));
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
        Channels hls = HLS_Of(editor.Value);
        hls[0] = hue;
        Show(editor, From_HLS(hls));
    }
};

class Color_Parts final : public Parts_For<Color_Edit> {
  public:
    const char* Name() const override { return "Color_Edit"; }

    /// The channels and, with one, the mode button.
    int Count(const Tools& control) const override {
        return Has_Bit(control, COLOR_EDIT_MODE_BUTTON) ? Channel_Count + 1 : Channel_Count;
    }

    Part Describe(const Tools& control, int part) const override {
        const Color_Edit& editor = Own(control);
        if (part == Channel_Count && Count(editor) > Channel_Count)
            return Button_Of(editor, editor.Mode_Button, Part_Role::Button, Part_Use::Press);
        return Is_Channel(part) ? Channel(editor, part) : All(editor);
    }

    /// Up and Down go to the next channel.
    bool Step(Tools& control, int part, Part_Move move) const override {
        Color_Edit& editor = Own(control);
        if (!Is_Active(editor) || !Is_Channel(part) || move == Part_Move::Up || move == Part_Move::Down)
            return false;
        if (const std::optional<int> steps = Steps_Of(move)) {
            const auto index = static_cast<std::size_t>(part);
            Set_Channel(editor, index, Stepped(*Troughs(editor)[index], Channels_Of(editor)[index], *steps));
        } else {
            Set_Channel(editor, static_cast<std::size_t>(part), move == Part_Move::Home ? 0.0F : 1.0F);
        }
        return true;
    }

    bool Set_Value(Tools& control, int part, const char* text) const override {
        Color_Edit& editor = Own(control);
        if (!Is_Active(editor)) return false;
        if (Is_Channel(part)) {
            const std::optional<Number_Text> number = Parse_Number(text);
            if (!number || !(number->unit.empty() || number->unit == Unit(editor))) return false;
            const double held = std::clamp(number->number, 0.0, Most(editor));
            const float fraction = Is_HLS(editor) ? static_cast<float>(held / Percent) : Fraction_Of(held);
            Set_Channel(editor, static_cast<std::size_t>(part), fraction);
            return true;
        }
        const std::optional<unsigned long> color = Parse_Color(text);
        if (!color || (part == Channel_Count && Count(editor) > Channel_Count)) return false;
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
    static bool Is_Channel(int part) { return part >= 0 && part < Channel_Count; }
    static bool Is_HLS(const Color_Edit& editor) { return Has_Bit(editor, COLOR_EDIT_HLS); }

    static Channels Channels_Of(const Color_Edit& editor) {
        return Is_HLS(editor) ? HLS_Of(editor.Value) : RGB_Of(editor.Value);
    }

    static std::array<Valuators*, Channel_Count> Troughs(Color_Edit& editor) {
        return {&editor.Chan_1, &editor.Chan_2, &editor.Chan_3};
    }

    static void Set_Channel(Color_Edit& editor, std::size_t channel, float fraction) {
        Channels channels = Channels_Of(editor);
        channels[channel] = fraction;
        Show(editor, Is_HLS(editor) ? From_HLS(channels) : From_RGB(channels));
    }

    /// Red, green and blue are told as bytes, the others in percent.
    static double Most(const Color_Edit& editor) { return Is_HLS(editor) ? Percent : Widest_Byte; }
    static const char* Unit(const Color_Edit& editor) { return Is_HLS(editor) ? "%" : ""; }

    static Part All(const Color_Edit& editor) {
        Part part = Whole_Of(editor, Part_Role::Group, Part_Use::None);
        part.value = Written(editor.Value);
        return part;
    }

    static Part Channel(const Color_Edit& editor, int channel) {
        static constexpr const char* Names[][Channel_Count] = {{"Red", "Green", "Blue"},
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
};

constexpr Hue_Parts The_Hue_Parts;
constexpr Color_Parts The_Color_Parts;

}  // namespace

const Class_Parts& Parts_Of(const Hue_Edit*) { return The_Hue_Parts; }
const Class_Parts& Parts_Of(const Color_Edit*) { return The_Color_Parts; }
