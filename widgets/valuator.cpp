#include "widgets/valuator.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <functional>
#include <string_view>

#include "tools/dimensions.h"
#include "tools/images.h"
#include "tools/lock.h"
#include "util/error.h"
#include "util/program.h"
#include "widgets/range.h"

using namespace galdren;

namespace {

// Padlocks in grey levels, rows from the top.
// clang-format off
constexpr unsigned char Padlock_16[16 * 16] = {
    255, 255, 255, 255, 255, 255, 235, 205, 205, 235, 255, 255, 255, 255, 255, 255,
    255, 255, 255, 255, 255, 173,  17,   0,   0,  17, 173, 255, 255, 255, 255, 255,
    255, 255, 255, 255, 173,   0,   0,   0,   0,   0,   0, 173, 255, 255, 255, 255,
    255, 255, 255, 173,   0,   0,   0, 144, 144,   0,   0,   0, 173, 255, 255, 255,
    255, 255, 235,  17,   0,   0, 173, 255, 255, 173,   0,   0,  17, 235, 255, 255,
    255, 255, 205,   0,   0, 144, 255, 255, 255, 255, 144,   0,   0, 205, 255, 255,
    255, 255, 205,   0,   0, 205, 255, 255, 255, 255, 205,   0,   0, 205, 255, 255,
    255, 255,   0,   0,   0,   0,   0,   0,   0,   0,   0,   0,   0,   0, 255, 255,
    255, 255,   0,   0,   0,   0,   0, 144, 144,   0,   0,   0,   0,   0, 255, 255,
    255, 255,   0,   0,   0,   0, 144, 255, 255, 144,   0,   0,   0,   0, 255, 255,
    255, 255,   0,   0,   0,   0, 144, 255, 255, 144,   0,   0,   0,   0, 255, 255,
    255, 255,   0,   0,   0,   0,  17, 235, 235,  17,   0,   0,   0,   0, 255, 255,
    255, 255,   0,   0,   0,   0,   0, 205, 205,   0,   0,   0,   0,   0, 255, 255,
    255, 255,   0,   0,   0,   0,   0, 114, 114,   0,   0,   0,   0,   0, 255, 255,
    255, 255,   0,   0,   0,   0,   0,   0,   0,   0,   0,   0,   0,   0, 255, 255,
    255, 255, 255, 255, 255, 255, 255, 255, 255, 255, 255, 255, 255, 255, 255, 255,
};

constexpr unsigned char Padlock_10[10 * 10] = {
    255, 255, 255, 210, 137, 137, 210, 255, 255, 255,
    255, 253, 208,  49,  12,  12,  50, 208, 253, 255,
    255, 228,  47,  21, 157, 157,  21,  47, 228, 255,
    255, 194,   1, 149, 251, 251, 148,   1, 194, 255,
    255, 111,   0,  72,  95,  95,  71,   0, 112, 255,
    255,  63,   0,   0,  59,  59,   0,   0,  64, 255,
    255,  63,   0,   0, 160, 160,   0,   0,  64, 255,
    255,  63,   0,   2,  82,  82,   2,   0,  64, 255,
    255,  63,   0,   0,   0,   0,   0,   0,  64, 255,
    255, 183, 159, 159, 159, 159, 159, 159, 183, 255,
};

constexpr unsigned char Padlock_8[8 * 8] = {
    254, 251, 204, 125, 125, 205, 251, 254,
    252, 203,  80,  63,  63,  80, 203, 252,
    245, 132,  66, 190, 190,  66, 132, 245,
    229,  76,  52, 118, 118,  51,  77, 229,
    216,  37,   0,  63,  63,   0,  38, 216,
    216,  37,   0, 103, 103,   0,  38, 216,
    216,  37,   0,  26,  26,   0,  38, 216,
    235, 146, 127, 127, 127, 127, 146, 235,
};
// clang-format on

/// The scale that positions are linear in, and back.
float To_Scale(const Valuators& valuator, float value) {
    if (Has_Flag(valuator, VALUATOR_LOG_10)) return std::log10(value);
    return Has_Flag(valuator, VALUATOR_LOG_E) ? std::log(value) : value;
}

float From_Scale(const Valuators& valuator, float scaled) {
    if (Has_Flag(valuator, VALUATOR_LOG_10)) return std::pow(10.0F, scaled);
    return Has_Flag(valuator, VALUATOR_LOG_E) ? std::exp(scaled) : scaled;
}

/// Skips one conversion of a floating-point number. More digits than any field needs are refused.
bool Skip_Conversion(const char*& at) {
    const auto skip_digits = [&at] {
        constexpr std::size_t Most_Digits = 4;
        const std::size_t digits = std::strspn(at, "0123456789");
        at += digits;
        return digits <= Most_Digits;
    };
    at += std::strspn(at, "-+ #0");
    bool fits = skip_digits();
    if (*at == '.') {
        ++at;
        fits = skip_digits() && fits;
    }
    if (*at == 'l') ++at;
    return fits && *at != '\0' && std::strchr("eEfFgGaA", *at++);
}

/// Whether a printf format holds exactly one floating-point conversion and nothing else to fill in.
bool Is_Number_Format(const char* format) {
    int conversions = 0;
    while ((format = std::strchr(format, '%')) != nullptr) {
        ++format;
        if (*format == '%') {
            ++format;
        } else if (!Skip_Conversion(format)) {
            return false;
        } else {
            ++conversions;
        }
    }
    return conversions == 1;
}

bool Is_New(std::string_view format) {
    constexpr std::size_t Most_Formats = 64;
    static std::size_t met[Most_Formats];  // hashes
    static std::size_t count = 0;
    const Drawing_Lock lock;
    const std::size_t hash = std::hash<std::string_view>()(format);
    if (count == Most_Formats || std::find(met, met + count, hash) != met + count) return false;
    met[count++] = hash;
    return true;
}

/// In place of a format that cannot be used, or of none.
constexpr const char* Plain_Format = "%g";

/// Reports a format that cannot be used, once.
void Report_Format(const Valuators& valuator) {
    if (!Is_New(valuator.Format)) return;
    Error_Fct(hwnd, ERROR_LEVEL_WARNING, "Valuators: the format \"%s\" is not one number\n   name: %s",
              valuator.Format, Name_Of(valuator));
}

/// Room between the edge and the trough: the frame, and the inner frame that a number field brings.
int Trough_Inset(const Valuators& valuator, bool inner_frame) {
    const int width = inner_frame ? Scaled(valuator, 2) : 0;
    return Frame_Width(valuator) + width;
}

bool Has_Inner_Frame(const Valuators& valuator) { return valuator.Format && valuator.Border != 0; }

/// The whole but the number field.
Area Trough_Area(const Valuators& valuator) {
    Area area = Area_Of(valuator);
    area.right -= valuator.Num_Width;
    return area;
}

void Paint_Name(Canvas& canvas, const Valuators& valuator) {
    Paint_Caption(canvas, valuator.Font, valuator.Name, valuator.Flag, Trough_Area(valuator),
                  valuator.Border);
}

void Paint_Number(Canvas& canvas, const Valuators& valuator) {
    constexpr std::size_t Longest = 128;
    char text[Longest];
    valuator.Print_Number(text, sizeof text);
    const int left = valuator.X + valuator.Width - valuator.Num_Width - Frame_Width(valuator) - canvas.Line();
    const Area field{left, left + valuator.Num_Width, valuator.Y, valuator.Y + valuator.Height};
    Paint_Caption(canvas, valuator.Font, text, 0, field, valuator.Border);
}

void Clear_Number(Canvas& canvas, const Valuators& valuator) {
    const Area inner = Area_Of(valuator).Inset(Frame_Width(valuator) + canvas.Line());
    canvas.Box({inner.right - valuator.Num_Width, inner.right, inner.bottom, inner.top},
               Body_Color(canvas.Look(), valuator.Color).get());
}

/// The sunken frame around the trough, beside a number field.
void Paint_Inner_Frame(Canvas& canvas, const Valuators& valuator) {
    const int line = canvas.Line();
    Paint_Frame(canvas, valuator.Color, 0, true, line,
                Trough_Area(valuator).Inset(Frame_Width(valuator) + line));
}

void Paint_Outer_Frame(Canvas& canvas, const Valuators& valuator, int width) {
    Paint_Frame(canvas, valuator.Color, 0, true, width, Area_Of(valuator));
}

/// The inside of the trough and the name on it.
void Paint_Inside(Canvas& canvas, const Valuators& valuator, bool highlighted, const unsigned long* body,
                  const Area& area) {
    const int inset = Trough_Inset(valuator, Has_Inner_Frame(valuator)) + canvas.Line();
    Paint_Body(canvas, valuator, highlighted, body, valuator.Flag, inset, area);
    Paint_Name(canvas, valuator);
}

int Track_Length(const Valuators& valuator) {
    const int number = Is_Vertical(valuator) ? 0 : valuator.Num_Width;
    return Bar_Length(valuator) - 2 * valuator.Curs_Half - 2 * Frame_Width(valuator) - number;
}

void Fill_Table(Valuators& valuator) {
    const int positions = std::clamp(Track_Length(valuator) + 2, 1, Valuators::Most_Positions);
    valuator.Tab_Num = Low_16(positions);
    const float start = To_Scale(valuator, valuator.Start_Val);
    const float range = To_Scale(valuator, valuator.End_Val) - start;
    const float step = positions > 1 ? range / static_cast<float>(positions - 1) : 0.0F;
    float value = valuator.Start_Val;
    const bool linear = !Has_Flag(valuator, VALUATOR_LOG_10 | VALUATOR_LOG_E);
    for (int i = 0; i < positions; ++i, value += step)
        valuator.Tab[i] = linear ? value : From_Scale(valuator, static_cast<float>(i) * step + start);
}

/// A square picture of grey levels; of size 0 when there is none.
struct Padlock {
    int size;
    const unsigned char* greys;
};

/// The largest padlock that fits in `room` pixels.
Padlock Padlock_For(int room) {
    if (room >= 16) return {16, Padlock_16};
    if (room >= 10) return {10, Padlock_10};
    return room >= 8 ? Padlock{8, Padlock_8} : Padlock{0, nullptr};
}

/// Each of its pixels is a square of as many whole pixels as the scale has.
void Paint_Padlock(Canvas& canvas, const Thumb& thumb) {
    constexpr int Largest = 80;  // at the largest scale
    const int side = std::clamp(canvas.Scaled(Unscaled) / Unscaled, 1, Largest / 16);
    const Area& area = thumb.area;
    const Padlock padlock = Padlock_For((area.top - area.bottom - (thumb.vertical ? 0 : 1)) / side);
    if (padlock.size == 0) return;
    const int size = padlock.size * side;
    const int left = area.left + thumb.half - size / 2;
    const int top = (area.bottom + area.top) / 2 + size / 2 - 1;
    unsigned long pixels[Largest * Largest];
    // Its white surroundings take the colour of the locked thumb.
    const auto light = static_cast<unsigned long>(Pixel_Of(canvas.Look().Thumb_Light));
    for (int i = 0; i < size * size; ++i) {
        const unsigned char grey = padlock.greys[i / size / side * padlock.size + i % size / side];
        pixels[i] = std::min(0x010101UL * grey, light);
    }
    canvas.Pixels(pixels, size, size, 0, 0, {left, left + size - 1, top - size + 1, top});
}

/// Distance of the thumb from the start of its room.
int Thumb_Offset(const Valuators& valuator) {
    const float fraction = Fraction(To_Scale(valuator, valuator.Val), To_Scale(valuator, valuator.Start_Val),
                                    To_Scale(valuator, valuator.End_Val));
    return Round_Offset(fraction * static_cast<float>(Track_Length(valuator)));
}

void Paint_Cursor(Canvas& canvas, const Valuators& valuator) {
    if (Has_Flag(valuator, FLAG_NO_BODY)) return;
    Area room = Area_Of(valuator).Inset(Trough_Inset(valuator, valuator.Format != nullptr));
    room.right -= valuator.Num_Width;
    const bool vertical = Is_Vertical(valuator);
    const Thumb thumb(vertical, valuator.Curs_Half, room, Thumb_Offset(valuator));
    const Area& area = thumb.area;
    if (Has_Flag(valuator, VALUATOR_LOCKED)) {
        canvas.Box({area.left + 1, area.right, area.bottom, area.top - 1}, canvas.Look().Thumb_Light);
        Paint_Padlock(canvas, thumb);
        canvas.Outline(area.Inset(canvas.Line()), canvas.Look().Caption_Outline, canvas.Line());
    } else {
        thumb.Paint_Face(canvas);
        thumb.Paint_Shadow(canvas, area.top);
    }
    thumb.Paint_Light(canvas, vertical ? area.right - 1 : area.right);
    thumb.Paint_Dark(canvas);
}

/// The inside and what stands on it, as the pointer has it look.
void Paint_State(Valuators& valuator, bool highlighted) {
    Canvas canvas(valuator, Inside(valuator));
    Paint_Inside(canvas, valuator, highlighted, Body_Of(valuator, highlighted), Trough_Area(valuator));
    Paint_Cursor(canvas, valuator);
}

}  // namespace

void Valuators::Init(HWND window) {
    Forget_Withdrawn_Images(*this);
    if (Num_Width < 0) {
        State |= STATE_READY;
        return;
    }
    if (!Begin_Init(*this, window, "Valuators::Init")) return;
    Curs_Half = std::max(Low_16(Scaled(*this, CURSEUR)), Curs_Half);
    Default_Grey(*this);
    Bind(*this, window);
    Renew_Font(*this);
    if (Is_Vertical(*this)) Format = nullptr;
    if (!Format) Num_Width = 0;
    Used_Format();  // for its report
    Fill_Table(*this);
    Note_Size(*this);
    if (Never_Highlights(*this)) return;
    Cur_Graph_Select = Graph_Select;
    Cur_Graph_Normal = Graph_Normal;
    Note_Images(*this);
    Clamp_Value(*this);
}

void Valuators::Larg_Adjust(float larg, float total) {
    Check(*this, "Valuators::Larg_Adjust");
    if (!Has_Size(*this)) return;
    const int number = Is_Vertical(*this) ? 0 : Num_Width;
    const int room = Bar_Length(*this) - number - 2 * Scaled(*this, SPACE);
    Curs_Half = Thumb_For(*this, Curs_Half, larg, total, room);
}

void Valuators::Lock(int how) {
    constexpr int Toggle = 8;
    const bool locked = how == Toggle ? !Has_Flag(*this, VALUATOR_LOCKED) : how != 0;
    Flag = locked ? Flag | VALUATOR_LOCKED : Flag & ~VALUATOR_LOCKED;
}

float Valuators::Read() {
    Check(*this, "Valuator::Read");
    if (!Has_Size(*this) || Has_Flag(*this, FLAG_PASSIVE)) return 0.0F;
    const std::optional<int> distance = Pointer_Along(*this);
    if (Has_Flag(*this, VALUATOR_LOCKED) || Tab_Num < 1 || !distance) return Val;
    return Value_At(*this, *distance - Curs_Half - Frame_Width(*this) + 1);
}

int Valuators::Select(int event) {
    if (State == 0) return 0;
    Check(*this, "Valuator::Select");
    return Has_Size(*this) ? Select_Bar(*this, event, Paint_State, [](const Valuators&) {}) : 0;
}

void Valuators::Deselect() {
    Check(*this, "Valuator::Deselect");
    if (Has_Size(*this)) Deselect_Bar(*this, Paint_State);
}

/// The format of the number field, or one in place of it that cannot be used; null when there is no such
/// field. It is looked at again when its text is another one, which may stand at the same place.
const char* Valuators::Used_Format() const {
    if (!Format) return nullptr;
    if (!Checked_Format[0] || std::strcmp(Format, Checked_Format) != 0) {
        Is_Number = Is_Number_Format(Format);
        const std::string_view text(Format);
        const bool fits = text.size() < sizeof Checked_Format;
        Checked_Format[fits ? text.copy(Checked_Format, text.size()) : 0] = '\0';
        if (!Is_Number) Report_Format(*this);
    }
    return Is_Number ? Format : Plain_Format;
}

void Valuators::Draw() {
    Check(*this, "Valuator::Draw");
    if (!Has_Size(*this)) return;
    Used_Format();  // for its report
    Clamp_Value(*this);
    Canvas canvas(*this, Whole_Bar(*this));
    if (Has_Flag(*this, FLAG_OUTLINE)) {
        Paint_Outline(canvas, Area_Of(*this));
        Paint_Name(canvas, *this);
    }
    if (!Has_Flag(*this, FLAG_NO_BODY)) {
        if (!Has_Flag(*this, FLAG_STATIC)) canvas.Box(Area_Of(*this), Body_Color(canvas.Look(), Color).get());
        Paint_Outer_Frame(canvas, *this, Frame_Width(*this));
        if (Has_Inner_Frame(*this)) Paint_Inner_Frame(canvas, *this);
        if (Format) Paint_Number(canvas, *this);
    }
    Paint_Name(canvas, *this);
    Paint_Thumb(canvas, *this, Capture != 0, Paint_Cursor);
}

void Valuators::Adjust() {
    Check(*this, "Valuator::Adjust");
    if (!Has_Size(*this)) return;
    Used_Format();  // for its report
    Canvas canvas(*this, Inside(*this));
    if (Has_Flag(*this, FLAG_OUTLINE)) {
        Paint_Outline(canvas, Area_Of(*this));
        Paint_Name(canvas, *this);
    }
    if (Has_Flag(*this, FLAG_NO_BODY)) return;
    Clamp_Value(*this);
    if (Format) {
        Clear_Number(canvas, *this);
        Paint_Number(canvas, *this);
        if (Border != 0) {
            Paint_Inner_Frame(canvas, *this);
        } else {
            Paint_Outer_Frame(canvas, *this, Frame_Width(*this));
        }
    } else {
        Paint_Outer_Frame(canvas, *this, Border);
    }
    Paint_Inside(canvas, *this, Select_State == Hover_Highlighted, Cur_Graph_Select,
                 Format ? Trough_Area(*this) : Area_Of(*this));
    Paint_Thumb(canvas, *this, false, Paint_Cursor);
}

float Valuators::Scroll(int n) {
    Check(*this, "Valuators::Scroll");
    if (!Has_Size(*this)) return 0.0F;
    if (Has_Flag(*this, FLAG_PASSIVE | VALUATOR_LOCKED)) return Val;
    constexpr float Steps_In_Range = 50.0F;
    const float range = To_Scale(*this, End_Val) - To_Scale(*this, Start_Val);
    const float step = Step != 0.0F ? Step : std::fabs(range) / Steps_In_Range;
    const float change = static_cast<float>(n) * step;
    const float scaled = To_Scale(*this, Val);
    Val = From_Scale(*this, Has_Flag(*this, SLIDER_REVERSED) ? scaled + change : scaled - change);
    Clamp_Value(*this);
    Adjust();
    return Val;
}

void Valuators::Print_Number(char* text, std::size_t room) const {
    const char* const format = Used_Format();
    const int length = std::snprintf(text, room, format ? format : Plain_Format, double{Val});
    if (length < 0 && room > 0) text[0] = '\0';
}
