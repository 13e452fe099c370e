#include "widgets/text.h"

#include <algorithm>
#include <cstdarg>
#include <cstdlib>
#include <cstring>
#include <iterator>
#include <utility>

#include "tools/dimensions.h"
#include "tools/font.h"
#include "tools/font_cache.h"
#include "tools/sharing.h"
#include "tools/window.h"
#include "util/error.h"
#include "util/program.h"
#include "widgets/items.h"
#include "widgets/scroll.h"
#include "widgets/text_parts.h"

using namespace galdren;

namespace {

/// Height of the band that shows the name under the top edge.
constexpr int Title_Height = 20;

bool Has_V_Bar(const Texts& field) { return Has_Flag(field, TEXT_V_BAR); }
bool Has_H_Bar(const Texts& field) { return Has_Flag(field, TEXT_H_BAR); }
bool Has_Bars(const Texts& field) { return Has_Flag(field, TEXT_V_BAR | TEXT_H_BAR); }

/// What a bar takes away from the output.
int Bar_Room() { return SPACE + CURSEUR; }

/// Where the output lines stand: the columns left..right-1 and the rows bottom+1..top.
Area Output_Area(const Texts& field) {
    const int border = Frame_Width(field);
    const Area all = Area_Of(field);
    Area area{all.left + border + 1, all.right - border, all.bottom + border, all.top - border - 1};
    if (field.Name) area.top -= SPACE + Title_Height;
    if (Has_V_Bar(field)) area.left += Bar_Room();
    if (Has_H_Bar(field)) area.bottom += Bar_Room();
    if (Is_Reading(field) || Has_Flag(field, TEXT_INPUT_ROOM)) area.bottom += 3 * border + field.Line_Height;
    return area;
}

int Stored_Lines(const Texts& field) {
    int count = field.Lines ? Texts::Most_Lines : 0;
    while (count > 0 && !field.Lines[count - 1])
        --count;
    return count;
}

int Longest_Line(const Texts& field) {
    return field.Line_Width ? *std::max_element(field.Line_Width, field.Line_Width + Texts::Most_Lines) : 0;
}

/// How far a bar that works has scrolled, in pixels.
int Scrolled(bool configured, const Sliders& bar) {
    return configured && !Has_Flag(bar, FLAG_PASSIVE) ? Pixels_Scrolled(bar) : 0;
}

bool Stands_At(const Tools& control, const Area& place) {
    const Area now = Area_Of(control);
    return now.left == place.left && now.right == place.right && now.bottom == place.bottom &&
           now.top == place.top;
}

/// Sets a bar over `total` pixels of which `visible` show. One that is not needed is an empty outline. A bar
/// that stands so already is left alone: it may be in a drag.
void Fit_Bar(const Texts& field, Sliders& bar, unsigned long direction, const Area& place, int visible,
             int total) {
    // The bit that means hexadecimal input here would turn a bar round.
    unsigned long flag = (field.Flag & ~(SLIDER_REVERSED | FLAG_VERTICAL)) | direction;
    const bool needed = total > visible;
    if (!needed) flag |= Unused_Bar;
    const float end = needed ? static_cast<float>(total - visible) : 0.0F;
    Copy_Clip(bar, field);
    if (bar.Window == field.Window && bar.Flag == flag && bar.End_Val == end && Stands_At(bar, place)) return;
    Set_Bar(bar, field, place, flag, {0.0F, end, static_cast<float>(field.Line_Height)});
    bar.Color = Colors(170, 170, 170);
    if (needed) Size_Thumb(bar, visible, total);
    bar.Init(field.Window);
}

/// Puts the bars beside the output area as it is now.
void Place_Bars(Texts& field) {
    if (!field.Window) return;
    const Area output = Output_Area(field);
    const int thickness = field.Bar_Dim ? Magnitude(field.Bar_Dim) : CURSEUR;
    if (Has_V_Bar(field)) {
        const int left = field.X + SPACE;
        Fit_Bar(field, field.V_Slider, FLAG_VERTICAL, {left, left + thickness, output.bottom + 1, output.top},
                output.top - output.bottom, Stored_Lines(field) * field.Line_Height);
    }
    if (Has_H_Bar(field)) {
        const int bottom = output.bottom - Frame_Width(field) - CURSEUR;
        Fit_Bar(field, field.H_Slider, 0, {output.left, output.right - 1, bottom, bottom + thickness},
                output.right - output.left, Longest_Line(field));
    }
}

/// Calls `act` with every bar that is configured.
template <class Act>
void For_Bars(Texts& field, Act act) {
    if (Has_V_Bar(field)) act(field.V_Slider);
    if (Has_H_Bar(field)) act(field.H_Slider);
}

/// The look that a code in an output line switches to.
struct Look {
    unsigned long color;
    HFONT font;
};

/// Follows a byte of an output line.
/// @return false when it is text
bool Switch_Look(Look& look, const Texts& field, unsigned char byte) {
    constexpr unsigned long Code_Colors[] = {0xFF0000, Black, White, 0x0000FF, 0x00FFFF, 0x00A000};
    if (byte >= TEXT_BLUE && byte <= TEXT_GREEN) {
        look.color = Code_Colors[byte - TEXT_BLUE];
    } else if (byte == TEXT_NORMAL_FONT) {
        look.font = field.Font;
    } else if (byte == TEXT_BOLD_FONT) {
        look.font = field.Bold_Font;
    } else if (byte == TEXT_OBLIQUE_FONT) {
        look.font = field.Oblique_Font;
    } else {
        return false;
    }
    return true;
}

/// Writes an output line run by run.
/// @return its width
int Write_Line(Canvas& canvas, const Texts& field, const char* line, int x, int y) {
    Look look{Black, field.Font};
    char run[Texts::Line_Room];
    int length = 0;
    int width = 0;
    const auto end_run = [&] {
        if (length == 0) return;
        run[length] = '\0';
        width += canvas.Write_Run(look.font, run, x + width, y, look.color);
        length = 0;
    };
    for (; *line; ++line) {
        Look next = look;
        if (Switch_Look(next, field, static_cast<unsigned char>(*line))) {
            end_run();
            look = next;
        } else if (length < Texts::Line_Room - 1) {
            run[length++] = *line;
        }
    }
    end_run();
    return width;
}

/// The frame around the input line.
void Paint_Input_Frame(Canvas& canvas, const Texts& field) {
    constexpr int Rings = 2;
    const Area box = Input_Area(field);
    if (box.right < box.left) return;
    Paint_Frame(canvas, field.Color, 1, true, Rings, {box.left, box.right, box.bottom, box.top - 1});
}

void Paint_Title(Canvas& canvas, const Texts& field) {
    constexpr int Rings = 2;
    const Area all = Area_Of(field);
    const int top = all.top - SPACE;
    const int bottom = top - Title_Height;
    if (field.Width < 2 * SPACE) return;
    Paint_Frame(canvas, field.Color, 1, false, Rings, {all.left + SPACE, all.right - SPACE, bottom, top});
    Paint_Caption(canvas, field.Font, field.Name, field.Flag, {all.left, all.right, bottom, top},
                  field.Border);
}

/// A font of the field's face and size in place of one it has.
void Renew(const Texts& field, HFONT& font, const char* weight, const char* style) {
    const HFONT before = font;
    font = Acquire_Font(field.Window, field.Font_Name, weight, style, field.Font_Size);
    Z_Delete_Font(field.Window, before);
}

/// The input line is the whole field when there is nothing else, else it stands at the bottom.
void Set_Input_Box(Texts& field) {
    const Area all = Area_Of(field);
    const int border = Frame_Width(field);
    Area box = all;
    if (!Has_Flag(field, TEXT_SINGLE_LINE)) {
        box.left += 2 * border;
        box.right -= 2 * border;
        box.bottom += 2 * border;
        box.top = all.bottom + 4 * border + field.Line_Height - 1;
    }
    const int edges[] = {box.left, box.right, box.top, box.bottom};
    std::transform(std::begin(edges), std::end(edges), field.Input_Box, Low_16);
}

/// The lowest output line that stands wholly above the bottom.
int First_Shown(int scrolled, int line_height) {
    return scrolled <= 0 || line_height < 1 ? 0 : (scrolled + line_height - 1) / line_height;
}

}  // namespace

Texts::Texts() = default;

Texts::Texts(const Texts& other) : Tools(other), Text_Fields(other) {
    Share_Font(Bold_Font);
    Share_Font(Oblique_Font);
    Share_Array(Lines);
    Share_Array(History);
    Share_Array(Line_Width);
    Forget_Kept_Picture();
}

Texts& Texts::operator=(const Texts& other) { return Reassign(*this, other); }

Texts::~Texts() {
    Release_Lines(*this);
    Release_Font(Bold_Font);
    Release_Font(Oblique_Font);
}

void Texts::Init(HWND window) {
    if (!Begin_Init(*this, window, "Texts::Init")) return;
    Default_Grey(*this);
    Bind(*this, window);
    if (Mode == 0) std::fill_n(Line, Line_Room, '\0');
    Renew(*this, Font, "medium", "r");
    Renew(*this, Bold_Font, "bold", "r");
    Renew(*this, Oblique_Font, "medium", "o");
    {
        Line_Height = Metrics_Of(Font).tmHeight;
        Char_Width = Width_Of(Font, "H");
        Even_Lines = Line_Height > 0 && Metrics_Of(Bold_Font).tmHeight <= Line_Height &&
                     Metrics_Of(Oblique_Font).tmHeight <= Line_Height;
    }
    Picture = 0;
    Set_Input_Box(*this);
    if (!Has_V_Bar(*this)) V_Slider = Sliders();
    if (!Has_H_Bar(*this)) H_Slider = Sliders();
    V_Slider.Window = H_Slider.Window = nullptr;  // the bars are set anew whatever they were
    if (Has_Bars(*this)) Rescale_Cursor();
}

void Texts::Draw() {
    Check(*this, "Text::Draw");
    if (!Has_Size(*this)) return;
    Canvas canvas(*this, Inside(*this));
    const Area all = Area_Of(*this);
    if (Has_Flag(*this, FLAG_OUTLINE)) Paint_Outline(canvas, all);
    if (Has_Flag(*this, FLAG_NO_BODY)) return;
    if (!Has_Flag(*this, FLAG_STATIC)) canvas.Box(all, Color.get());
    Paint_Frame(canvas, Color, 1, true, Frame_Width(*this), all);
    if (Name) Paint_Title(canvas, *this);
    Place_Bars(*this);
    For_Bars(*this, [](Sliders& bar) { bar.Draw(); });
    Paint_Contents();
}

/// The output and, while reading, the input line.
void Texts::Paint_Contents() {
    Re_Write();
    if (!Is_Reading(*this)) return;
    Canvas canvas(*this, {Common(Area_Of(*this), Input_Area(*this))});
    Paint_Input_Frame(canvas, *this);
    Read_Echo(Line, Cursor_Pos);
}

void Texts::Cleanup() {
    Check(*this, "Text::Cleanup");
    if (!Has_Size(*this)) return;
    Release_Lines(*this);
    Picture = 0;
    std::fill_n(Line, Line_Room, '\0');
    if (Has_Bars(*this)) Rescale_Cursor();
    Mode = 0;
}

int Texts::Select(int event) {
    Check(*this, "Text::Select");
    if (!Has_Size(*this)) return 0;
    if (Has_Flag(*this, FLAG_PASSIVE)) {
        if (!Never_Highlights(*this)) {
            if (V_Slider.Width != 0) V_Slider.Deselect();
            // A console that never reads has no input line, and its box would stand on the output.
            if (Is_Reading(*this)) Read_Echo(Line, Cursor_Pos);
        }
        return 0;
    }
    if (Event_Kind(event) == EVENT_TEST) return Pointer_Inside(*this);
    if (Has_V_Bar(*this) && Select_Bar(V_Slider, event)) return 1;
    if (Has_H_Bar(*this) && Select_Bar(H_Slider, event)) return 1;
    const bool inside = Pointer_Inside(*this);
    Show_Pointer(inside ? Hover_Highlighted : Hover_Normal);
    return inside;
}

/// Offers an event to a bar. With a button held the output follows it.
bool Texts::Select_Bar(Sliders& bar, int event) {
    if (bar.Select(Event_Kind(event)) != 1) return false;
    if (Any_Button_Held()) {
        Follow_Pointer(bar);
        Re_Write();
    }
    return true;
}

/// Notes where the pointer is; the caret goes with it.
void Texts::Show_Pointer(short hover) {
    if (std::exchange(Select_State, hover) != hover && Is_Reading(*this)) Read_Echo(Line, Cursor_Pos);
}

void Texts::Deselect() {
    if (State == 0 || !Has_Size(*this) || Never_Highlights(*this)) return;
    if (V_Slider.Width != 0) V_Slider.Deselect();
    Select_State = Hover_Normal;
    if (Is_Reading(*this)) Read_Echo(Line, Cursor_Pos);
}

void Texts::Scroll(int n) {
    Check(*this, "Text::Select");
    if (!Has_Size(*this) || Has_Flag(*this, FLAG_PASSIVE)) return;
    const bool across = Has_H_Bar(*this) && H_Slider.Select(EVENT_TEST);
    if (!across && !Has_V_Bar(*this)) return;
    Sliders& bar = across ? H_Slider : V_Slider;
    const Shared_Context context(Window);
    bar.Scroll(n);
    if (Has_Flag(bar, FLAG_PASSIVE)) bar.Adjust();  // else it has painted itself
    Re_Write();
}

void Texts::Write(const char* format, ...) {
    if (State == 0) return;
    Check(*this, "Text::Write");
    va_list arguments;
    va_start(arguments, format);
    Append(1, format, arguments);
    va_end(arguments);
}

void Texts::OverWrite(const char* format, ...) {
    if (State == 0) return;
    Check(*this, "Text::OverWrite");
    va_list arguments;
    va_start(arguments, format);
    Append(0, format, arguments);
    va_end(arguments);
}

/// Formats a text and appends it.
/// @param new_lines  1 begins a new line, 0 replaces the newest
void Texts::Append(int new_lines, const char* format, va_list arguments) {
    if (!Has_Size(*this) || !format) return;
    char text[Line_Room];
    if (!Format_Line(text, format, arguments) || Has_Flag(*this, FLAG_PASSIVE)) return;
    if (!Scroll_1(new_lines)) return;
    const char* begin = text;
    for (const char* end; (end = std::strchr(begin, '\n')) != nullptr; begin = end + 1) {
        Lines[0] = Duplicate({begin, end});
        Scroll_1(1);
    }
    Lines[0] = Duplicate(begin);

    const Shared_Context context(Window);
    Paint_Contents();
    Place_Bars(*this);
    For_Bars(*this, [](Sliders& bar) {
        bar.Val = 0.0F;
        bar.Draw();
    });
}

/// @return whether there is a place for a line
bool Texts::Scroll_1(int n) {
    if (Has_Flag(*this, FLAG_PASSIVE)) return false;
    if (!Ensure_Array(Lines, Most_Lines) || !Ensure_Array(Line_Width, Most_Lines)) {
        Error_Fct(hwnd, ERROR_LEVEL_MEMORY, "Texts: no memory for lines\n   name: %s", Name_Of(*this));
        return false;
    }
    Appended = std::min(Appended + n, Most_Lines);
    Renewed = std::max(std::min(Renewed + n, Most_Lines), 1);
    if (n == 0) {
        Free_Texts(Lines, 0, 1);
        Line_Width[0] = 0;
        return true;
    }
    Free_Texts(Lines, Most_Lines - n, Most_Lines);
    Move_Entries(Lines, Most_Lines, n);
    Move_Entries(Line_Width, Most_Lines, n);
    return true;
}

void Texts::Re_Write() {
    if (Has_Flag(*this, FLAG_NO_BODY) || !Lines || !Line_Width) return;
    const Area area = Output_Area(*this);
    if (area.top - area.bottom < 1 || area.right - area.left < 1) return;
    constexpr int Margin = 2;
    const Output_View view{Margin - Scrolled(Has_H_Bar(*this), H_Slider),
                           Scrolled(Has_V_Bar(*this), V_Slider),
                           {Color.get(), Has_Flag(*this, TEXT_SINGLE_LINE), {Font, Bold_Font, Oblique_Font}}};
    Canvas canvas(*this, {area.left, area.right - 1, area.bottom + 1, area.top}, Picture);
    Area part = area;
    int low = 0;
    int high = 0;
    if (canvas.Kept() && Move_Kept(canvas, view, area.top - area.bottom, low, high)) {
        part.bottom = area.bottom + low;
        part.top = area.bottom + high;
    }
    Painted = view;
    Appended = Renewed = 0;

    canvas.Box(part, view.look.color);
    const Canvas::Narrow_Clip clip = canvas.Narrow(part);
    const int count = view.look.single ? 1 : Most_Lines;
    for (int k = First_Shown(view.scrolled, Line_Height); k < count; ++k) {
        const int rise = k * Line_Height - view.scrolled;
        if (rise > Height) break;
        const int y = area.bottom + rise;
        const bool shows = y < part.top && y + Line_Height > part.bottom;
        if (!Lines[k] || (!shows && Line_Width[k] != 0)) continue;
        Line_Width[k] = Within_16(Write_Line(canvas, *this, Lines[k], area.left + view.x, y));
    }
    // A copy may change the lines and go before the next paint.
    if (Is_Shared(Thing::Array, Lines)) Picture = 0;
}

/// Moves the lines on the kept picture to where they stand now.
/// @param height     of the output
/// @param low, high  receive between which heights the output has to be painted
/// @return false, with nothing moved, when all of it has to be painted
bool Texts::Move_Kept(galdren::Canvas& canvas, const Output_View& view, int height, int& low,
                      int& high) const {
    const bool same_look =
        Even_Lines && view.x == Painted.x && view.look == Painted.look && !view.look.single;
    // A line that the bottom edge would cut is not painted at all, so only whole lines can be moved.
    if (!same_look || view.scrolled % Line_Height != 0 || Painted.scrolled % Line_Height != 0) return false;

    const int rise = Appended * Line_Height + Painted.scrolled - view.scrolled;
    const int from_bottom = std::max(rise, Renewed * Line_Height - view.scrolled);
    if (std::abs(rise) >= height || (rise < 0 && from_bottom > 0)) return false;
    canvas.Raise(rise);
    low = rise < 0 ? height + rise : 0;
    high = rise < 0 ? height : std::min(from_bottom, height);
    return true;
}

void Texts::Rescale_Cursor() {
    Place_Bars(*this);
    For_Bars(*this, [](Sliders& bar) {
        if (Has_Flag(bar, FLAG_NO_BODY)) bar.Draw();
    });
}
