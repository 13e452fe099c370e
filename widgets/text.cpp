#include "widgets/text.h"

#include <algorithm>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <iterator>
#include <new>
#include <string_view>
#include <utility>

#include "tools/dimensions.h"
#include "tools/font.h"
#include "tools/font_cache.h"
#include "tools/sharing.h"
#include "util/error.h"
#include "util/program.h"
#include "widgets/items.h"
#include "widgets/scroll.h"

using namespace galdren;

namespace {

/// Height of the band that shows the name under the top edge.
constexpr int Title_Height = 20;

bool Has_V_Bar(const Texts& field) { return Has_Flag(field, TEXT_V_BAR); }
bool Has_H_Bar(const Texts& field) { return Has_Flag(field, TEXT_H_BAR); }

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
    const bool has_input = field.Mode & TEXT_READING || Has_Flag(field, TEXT_INPUT_ROOM);
    if (has_input) area.bottom += 3 * border + field.Line_Height;
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
    Copy_Surroundings(bar, field);
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

/// Writes an output line run by run, as its codes switch colour and font.
/// @return its width
int Write_Line(Canvas& canvas, const Texts& field, const char* line, int x, int y) {
    constexpr char Codes[] = "\1\2\3\4\5\6\360\361\362";
    const HFONT code_fonts[] = {field.Font, field.Bold_Font, field.Oblique_Font};
    unsigned long color = canvas.Look().Caption;
    HFONT font = field.Font;
    int width = 0;
    while (*line) {
        char run[Texts::Line_Room];
        const std::string_view text(line, std::strcspn(line, Codes));
        run[text.copy(run, sizeof run - 1)] = '\0';
        if (!text.empty()) width += canvas.Write_Run(font, run, x + width, y, color);
        line += text.size();
        const auto code = static_cast<unsigned char>(*line);
        if (code >= TEXT_NORMAL_FONT) {
            font = code_fonts[code - TEXT_NORMAL_FONT];
        } else if (code != 0) {
            color = canvas.Look().Codes[code - TEXT_BLUE];
        }
        if (code != 0) ++line;
    }
    return width;
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

/// Makes an array of zeroed entries where there is none yet.
/// @return false when the memory cannot be had
template <class Entry>
bool Ensure_Array(Entry*& array, std::size_t count) {
    if (!array) array = new (std::nothrow) Entry[count]();
    return array != nullptr;
}

/// Brings the oldest entry of an array to the front, where the newest is to be.
template <class Entry>
void Bring_Oldest(Entry* array, int count) {
    std::rotate(array, array + count - 1, array + count);
}

/// Puts a copy of a text in place of another one.
void Replace(char*& entry, std::string_view text) {
    delete[] entry;
    entry = Duplicate(text);
}

void Release_Texts(char**& texts, int count) {
    if (Let_Go(Thing::Array, texts)) {
        std::for_each(texts, texts + count, [](const char* text) { delete[] text; });
        delete[] texts;
    }
    texts = nullptr;
}

/// Lets go of what a field owns but its fonts.
void Release_Lines(Texts& field) {
    Release_Texts(field.Lines, Texts::Most_Lines);
    Release_Texts(field.History, Texts::Most_History);
    Release_Array(std::exchange(field.Line_Width, nullptr));
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
    Line_Height = Metrics_Of(Font).tmHeight;
    Char_Width = Width_Of(Font, "H");
    Even_Lines = Line_Height > 0 && Metrics_Of(Bold_Font).tmHeight <= Line_Height &&
                 Metrics_Of(Oblique_Font).tmHeight <= Line_Height;
    Picture = 0;
    Set_Input_Box(*this);
    if (!Has_V_Bar(*this)) V_Slider = Sliders();
    if (!Has_H_Bar(*this)) H_Slider = Sliders();
    V_Slider.Window = H_Slider.Window = nullptr;  // the bars are set anew whatever they were
    Rescale_Cursor();
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
    Re_Write();
    Paint_Input();
}

void Texts::Cleanup() {
    Check(*this, "Text::Cleanup");
    if (!Has_Size(*this)) return;
    Release_Lines(*this);
    Picture = 0;
    std::fill_n(Line, Line_Room, '\0');
    Rescale_Cursor();
    Mode = 0;
}

int Texts::Select(int event) {
    Check(*this, "Text::Select");
    if (!Has_Size(*this)) return 0;
    if (Has_Flag(*this, FLAG_PASSIVE)) {
        if (!Never_Highlights(*this)) {
            if (V_Slider.Width != 0) V_Slider.Deselect();
            Read_Echo();
        }
        return 0;
    }
    if (Event_Kind(event) == EVENT_TEST) return Pointer_Inside(*this);
    if (Has_V_Bar(*this) && Select_Bar(V_Slider, event)) return 1;
    if (Has_H_Bar(*this) && Select_Bar(H_Slider, event)) return 1;
    const bool inside = Pointer_Inside(*this);
    const short before = std::exchange(Select_State, inside ? Hover_Highlighted : Hover_Normal);
    if (Select_State != before) Read_Echo();  // the caret goes with the pointer
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

void Texts::Deselect() {
    if (State == 0 || !Has_Size(*this) || Never_Highlights(*this)) return;
    if (V_Slider.Width != 0) V_Slider.Deselect();
    Select_State = Hover_Normal;
    Read_Echo();
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
    Append(true, format, arguments);
    va_end(arguments);
}

void Texts::OverWrite(const char* format, ...) {
    if (State == 0) return;
    Check(*this, "Text::OverWrite");
    va_list arguments;
    va_start(arguments, format);
    Append(false, format, arguments);
    va_end(arguments);
}

/// Formats a text and appends it, or puts it in place of the newest line.
void Texts::Append(bool new_line, const char* format, va_list arguments) {
    if (!Has_Size(*this) || !format) return;
    char text[Line_Room];
    if (std::vsnprintf(text, sizeof text, format, arguments) < 0 || !Make_Line(new_line)) return;
    const char* begin = text;
    for (const char* end; (end = std::strchr(begin, '\n')) != nullptr; begin = end + 1) {
        Replace(Lines[0], {begin, end});
        Make_Line(true);
    }
    Replace(Lines[0], begin);

    const Shared_Context context(Window);
    Re_Write();
    Paint_Input();
    Place_Bars(*this);
    For_Bars(*this, [](Sliders& bar) {
        bar.Val = 0.0F;
        bar.Draw();
    });
}

/// Makes the newest line one that is to be written, the one before or a new one.
/// @return whether there is a place for it
bool Texts::Make_Line(bool anew) {
    if (Has_Flag(*this, FLAG_PASSIVE)) return false;
    if (!Ensure_Array(Lines, Most_Lines) || !Ensure_Array(Line_Width, Most_Lines)) {
        Error_Fct(hwnd, ERROR_LEVEL_MEMORY, "Texts: no memory for lines\n   name: %s", Name_Of(*this));
        return false;
    }
    if (anew) {
        Bring_Oldest(Lines, Most_Lines);
        Bring_Oldest(Line_Width, Most_Lines);
        Appended = std::min(Appended + 1, Most_Lines);
        Renewed = std::min(Renewed + 1, Most_Lines);
    }
    Renewed = std::max(Renewed, 1);
    Line_Width[0] = 0;
    return true;
}

/// Takes the input line over into output and history.
bool Texts::Enter() {
    const std::string_view line(Line, strnlen(Line, Line_Room - 1));
    if (!Has_Flag(*this, TEXT_SINGLE_LINE) && Make_Line(true)) Replace(Lines[0], line);
    if (Ensure_Array(History, Most_History)) {
        Bring_Oldest(History, Most_History);
        Replace(History[0], line);
    }
    Mode |= TEXT_ENTERED;
    V_Slider.Val = 0.0F;
    return false;
}

void Texts::Re_Write() {
    if (Has_Flag(*this, FLAG_NO_BODY) || !Lines || !Line_Width) return;
    const Area area = Output_Area(*this);
    if (area.top - area.bottom < 1 || area.right - area.left < 1) return;
    constexpr int Margin = 2;
    const Output_View view{Margin - Scrolled(Has_H_Bar(*this), H_Slider),
                           Scrolled(Has_V_Bar(*this), V_Slider),
                           Color.get(),
                           Has_Flag(*this, TEXT_SINGLE_LINE),
                           {Font, Bold_Font, Oblique_Font}};
    Canvas canvas(*this, {area.left, area.right - 1, area.bottom + 1, area.top}, Picture);
    Area part = area;
    if (canvas.Kept()) Move_Kept(canvas, view, part);
    Painted = view;
    Appended = Renewed = 0;

    canvas.Box(part, view.color);
    const Canvas::Narrow_Clip clip = canvas.Narrow(part);
    const int count = view.single ? 1 : Most_Lines;
    // The lowest line that stands wholly above the bottom.
    const bool is_up = view.scrolled > 0 && Line_Height > 0;
    for (int k = is_up ? (view.scrolled + Line_Height - 1) / Line_Height : 0; k < count; ++k) {
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

/// Moves the lines on the kept picture to where they stand now, if they can be.
/// @param part  the output; receives the part of it that has to be painted
void Texts::Move_Kept(Canvas& canvas, const Output_View& view, Area& part) const {
    Output_View before = Painted;
    before.scrolled = view.scrolled;
    const bool same_look = Even_Lines && view == before && !view.single;
    // A line that the bottom edge would cut is not painted at all, so only whole lines can be moved.
    if (!same_look || view.scrolled % Line_Height != 0 || Painted.scrolled % Line_Height != 0) return;

    const int height = part.top - part.bottom;
    const int rise = Appended * Line_Height + Painted.scrolled - view.scrolled;
    const int from_bottom = std::max(rise, Renewed * Line_Height - view.scrolled);
    if (std::abs(rise) >= height || (rise < 0 && from_bottom > 0)) return;
    canvas.Raise(rise);
    if (rise < 0) {
        part.bottom = part.top + rise;
    } else {
        part.top = part.bottom + std::min(from_bottom, height);
    }
}

void Texts::Rescale_Cursor() {
    Place_Bars(*this);
    For_Bars(*this, [](Sliders& bar) {
        if (Has_Flag(bar, FLAG_NO_BODY)) bar.Draw();
    });
}
