#include "widgets/valuator.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <functional>
#include <string_view>

#include "tools/dimensions.h"
#include "tools/sharing.h"
#include "util/error.h"
#include "util/program.h"
#include "widgets/padlock.h"
#include "widgets/range.h"

using namespace galdren;

namespace {

/// The scale that positions are linear in, and back.
float To_Scale(const Valuators& valuator, float value) {
    if (Has_Flag(valuator, VALUATOR_LOG_10)) return std::log10(value);
    return Has_Flag(valuator, VALUATOR_LOG_E) ? std::log(value) : value;
}

float From_Scale(const Valuators& valuator, float scaled) {
    if (Has_Flag(valuator, VALUATOR_LOG_10)) return std::pow(10.0F, scaled);
    return Has_Flag(valuator, VALUATOR_LOG_E) ? std::exp(scaled) : scaled;
}

bool Is_Logarithmic(const Valuators& valuator) {
    return Has_Flag(valuator, VALUATOR_LOG_10 | VALUATOR_LOG_E);
}

/// Skips the digits of a width or precision; more of them than any field needs are refused.
bool Skip_Number(const char*& at) {
    constexpr std::size_t Most_Digits = 4;
    const std::size_t digits = std::strspn(at, "0123456789");
    at += digits;
    return digits <= Most_Digits;
}

/// Skips one conversion of a floating-point number.
bool Skip_Conversion(const char*& at) {
    at += std::strspn(at, "-+ #0");
    if (!Skip_Number(at)) return false;
    if (*at == '.' && !Skip_Number(++at)) return false;
    if (*at == 'l') ++at;
    return *at != '\0' && std::strchr("eEfFgGaA", *at++);
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

/// Whether a format is met for the first time.
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

/// Reports a format that cannot be used, each once.
void Report_Format(const Valuators& valuator) {
    if (!Is_New(valuator.Format)) return;
    Error_Fct(hwnd, ERROR_LEVEL_WARNING, "Valuators: the format \"%s\" is not one number\n   name: %s",
              valuator.Format, Name_Of(valuator));
}

/// Room between the edge and the trough: the frame, and the inner frame that a number field brings.
int Trough_Inset(const Valuators& valuator, bool inner_frame) {
    constexpr int Inner_Frame = 2;
    return Frame_Width(valuator) + (inner_frame ? Inner_Frame : 0);
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

void Paint_Number(Canvas& canvas, const Valuators& valuator, const char* format) {
    constexpr std::size_t Longest = 128;
    char text[Longest];
    const int length = std::snprintf(text, sizeof text, format, double{valuator.Val});
    if (length < 0) return;
    const int left = valuator.X + valuator.Width - valuator.Num_Width - Frame_Width(valuator) - 1;
    const Area field{left, left + valuator.Num_Width, valuator.Y, valuator.Y + valuator.Height};
    Paint_Caption(canvas, valuator.Font, text, 0, field, valuator.Border);
}

/// In place of a format that is not that of one number.
constexpr char Plain_Format[] = "%g";

void Clear_Number(Canvas& canvas, const Valuators& valuator) {
    const Area inner = Area_Of(valuator).Inset(Frame_Width(valuator) + 1);
    canvas.Box({inner.right - valuator.Num_Width, inner.right, inner.bottom, inner.top},
               valuator.Color.get());
}

/// The sunken frame around the trough, beside a number field.
void Paint_Inner_Frame(Canvas& canvas, const Valuators& valuator) {
    Paint_Frame(canvas, valuator.Color, 0, true, 1, Trough_Area(valuator).Inset(Frame_Width(valuator) + 1));
}

void Paint_Outer_Frame(Canvas& canvas, const Valuators& valuator, int width) {
    Paint_Frame(canvas, valuator.Color, 0, true, width, Area_Of(valuator));
}

/// The inside of the trough and the name on it.
void Paint_Inside(Canvas& canvas, const Valuators& valuator, bool highlighted, const unsigned long* body,
                  const Area& area) {
    const int inset = Trough_Inset(valuator, Has_Inner_Frame(valuator)) + 1;
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
    for (int i = 0; i < positions; ++i, value += step) {
        valuator.Tab[i] =
            Is_Logarithmic(valuator) ? From_Scale(valuator, static_cast<float>(i) * step + start) : value;
    }
}

void Take_Given_Images(Valuators& valuator) {
    valuator.Cur_Graph_Select = valuator.Graph_Select;
    valuator.Cur_Graph_Normal = valuator.Graph_Normal;
    Note_Images(valuator);
}

void Paint_Free_Thumb(Canvas& canvas, const Area& thumb, bool vertical, int half) {
    canvas.Box({thumb.left + 1, thumb.right, thumb.bottom, vertical ? thumb.top : thumb.top - 1}, Thumb_Grey);
    if (vertical) {
        canvas.Row(thumb.left + 1, thumb.right - 1, thumb.bottom + half - 1, Thumb_Light);
        canvas.Row(thumb.left + 1, thumb.right, thumb.bottom + half, Black);
    } else {
        canvas.Column(thumb.left + half, thumb.bottom + 1, thumb.top, Thumb_Light);
        canvas.Column(thumb.left + half - 1, thumb.bottom + 1, thumb.top, Black);
    }
    Paint_Thumb_Shadow(canvas, thumb);
}

void Paint_Locked_Thumb(Canvas& canvas, const Area& thumb, bool vertical, int half) {
    canvas.Box({thumb.left + 1, thumb.right, thumb.bottom, thumb.top - 1}, Thumb_Light);
    const int room = thumb.top - thumb.bottom - (vertical ? 0 : 1);
    const Padlock padlock = Padlock_For(room);
    if (padlock.size > 0) {
        const int left = thumb.left + half - padlock.size / 2;
        const int top = (thumb.bottom + thumb.top) / 2 + padlock.size / 2 - 1;
        const Area place{left, left + padlock.size - 1, top - padlock.size + 1, top};
        canvas.Pixels(padlock.pixels, padlock.size, padlock.size, 0, 0, place);
    }
    canvas.Outline(thumb.Inset(1), Outline_Blue);
}

}  // namespace

Valuators::Valuators() = default;

Valuators::Valuators(const Valuators& other) = default;

Valuators& Valuators::operator=(const Valuators& other) { return Reassign(*this, other); }

Valuators::~Valuators() = default;

void Valuators::Init(HWND window) {
    Forget_Withdrawn_Images(*this);
    if (Num_Width < 0) {
        State |= STATE_READY;
        return;
    }
    if (!Begin_Init(*this, window, "Valuators::Init")) return;
    Curs_Half = std::max(CURSEUR, Curs_Half);
    Default_Grey(*this);
    Bind(*this, window);
    Renew_Font(*this);
    if (Is_Vertical(*this)) Format = nullptr;
    if (!Format) Num_Width = 0;
    Check_Format();
    Fill_Table(*this);
    Note_Size(*this);
    if (Never_Highlights(*this)) return;
    Take_Given_Images(*this);
    Clamp_Value(*this);
}

void Valuators::Larg_Adjust(float larg, float total) {
    Check(*this, "Valuators::Larg_Adjust");
    if (!Has_Size(*this)) return;
    const int number = Is_Vertical(*this) ? 0 : Num_Width;
    const int room = Bar_Length(*this) - number - 2 * SPACE;
    if (room > 0) Curs_Half = Thumb_For(larg, total, room);
}

void Valuators::Lock(int how) {
    constexpr int Toggle = 8;
    const bool locked = how == Toggle ? !Has_Flag(*this, VALUATOR_LOCKED) : how != 0;
    Flag = locked ? Flag | VALUATOR_LOCKED : Flag & ~VALUATOR_LOCKED;
}

float Valuators::Read() {
    Check(*this, "Valuator::Read");
    if (!Has_Size(*this) || Has_Flag(*this, FLAG_PASSIVE)) return 0.0F;
    int distance = 0;
    if (Has_Flag(*this, VALUATOR_LOCKED) || Tab_Num < 1 || !Pointer_Along(*this, distance)) return Val;
    return Value_At(*this, distance - Curs_Half - Frame_Width(*this) + 1);
}

int Valuators::Select(int event) {
    if (State == 0) return 0;
    Check(*this, "Valuator::Select");
    if (!Has_Size(*this)) return 0;
    return Select_Bar(
        *this, event, [this](bool highlighted) { Paint_State(highlighted); }, [] {});
}

void Valuators::Deselect() {
    Check(*this, "Valuator::Deselect");
    if (!Has_Size(*this)) return;
    Deselect_Bar(*this, [this](bool highlighted) { Paint_State(highlighted); });
}

void Valuators::Draw() {
    Check(*this, "Valuator::Draw");
    if (!Has_Size(*this)) return;
    Check_Format();
    Clamp_Value(*this);
    Canvas canvas(*this, Inside(*this));
    if (Has_Flag(*this, FLAG_OUTLINE)) {
        Paint_Outline(canvas, Area_Of(*this));
        Paint_Name(canvas, *this);
    }
    if (!Has_Flag(*this, FLAG_NO_BODY)) {
        if (!Has_Flag(*this, FLAG_STATIC)) canvas.Box(Area_Of(*this), Color.get());
        Paint_Outer_Frame(canvas, *this, Frame_Width(*this));
        if (Has_Inner_Frame(*this)) Paint_Inner_Frame(canvas, *this);
        if (Format) Paint_Number(canvas, *this, Number_Format ? Format : Plain_Format);
    }
    Paint_Name(canvas, *this);
    Paint_Thumb(Capture != 0);
}

void Valuators::Adjust() {
    Check(*this, "Valuator::Adjust");
    if (!Has_Size(*this)) return;
    Check_Format();
    Canvas canvas(*this, Inside(*this));
    if (Has_Flag(*this, FLAG_OUTLINE)) {
        Paint_Outline(canvas, Area_Of(*this));
        Paint_Name(canvas, *this);
    }
    if (Has_Flag(*this, FLAG_NO_BODY)) return;
    Clamp_Value(*this);
    if (Format) {
        Clear_Number(canvas, *this);
        Paint_Number(canvas, *this, Number_Format ? Format : Plain_Format);
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
    Paint_Thumb(false);
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

/// Looks at the format again when its text is another one, which may stand at the same place.
void Valuators::Check_Format() {
    if (!Format || (Checked_Format[0] && std::strcmp(Format, Checked_Format) == 0)) return;
    Number_Format = Is_Number_Format(Format);
    const std::string_view text(Format);
    const bool fits = text.size() < sizeof Checked_Format;
    Checked_Format[fits ? text.copy(Checked_Format, text.size()) : 0] = '\0';
    if (!Number_Format) Report_Format(*this);
}

/// The inside and what stands on it, as the pointer has it look.
void Valuators::Paint_State(bool highlighted) {
    Canvas canvas(*this, Inside(*this));
    Paint_Inside(canvas, *this, highlighted, highlighted ? Cur_Graph_Select : Cur_Graph_Normal,
                 Trough_Area(*this));
    Cursor();
}

int Valuators::Posit() {
    const float fraction =
        Fraction(To_Scale(*this, Val), To_Scale(*this, Start_Val), To_Scale(*this, End_Val));
    return Round_Offset(fraction * static_cast<float>(Track_Length(*this)));
}

/// The thumb; with images of the application, the inside beneath it too.
void Valuators::Paint_Thumb(bool grabbed) {
    if (!Graph_Select && !Graph_Normal && !grabbed) {
        Cursor();
    } else {
        Select_State = Hover_Unknown;
        Select(Capture);
    }
}

void Valuators::Cursor() {
    if (Has_Flag(*this, FLAG_NO_BODY)) return;
    Canvas canvas(*this, Inside(*this));
    const int inset = Trough_Inset(*this, Format != nullptr);
    const bool vertical = Is_Vertical(*this);
    Area thumb = Area_Of(*this).Inset(inset);
    (vertical ? thumb.bottom : thumb.left) += Posit();
    if (vertical) {
        thumb.right -= Num_Width;
        thumb.top = thumb.bottom + 2 * Curs_Half - 1;
    } else {
        thumb.right = thumb.left + 2 * Curs_Half - 1;
    }
    if (Has_Flag(*this, VALUATOR_LOCKED)) {
        Paint_Locked_Thumb(canvas, thumb, vertical, Curs_Half);
    } else {
        Paint_Free_Thumb(canvas, thumb, vertical, Curs_Half);
    }
    Paint_Thumb_Light(canvas, thumb, vertical ? thumb.right - 1 : thumb.right);
    Paint_Thumb_Dark(canvas, thumb);
}

void Valuators::Print_Number(char* text, std::size_t room) const {
    const bool usable = Format && Is_Number_Format(Format);
    const int length = std::snprintf(text, room, usable ? Format : Plain_Format, double{Val});
    if (length < 0 && room > 0) text[0] = '\0';
}
