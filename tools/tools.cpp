#include "tools/tools.h"

#include <algorithm>
#include <cstdarg>
#include <cstdio>
#include <cstring>
#include <new>

#include "tools/base.h"
#include "tools/code_page.h"
#include "tools/font_cache.h"
#include "tools/sharing.h"
#include "tools/stamp.h"
#include "util/error.h"
#include "util/program.h"

using namespace galdren;

namespace {

/// Reports a failed allocation. Line and file identify the place in the reports and do not follow the code.
void Report_No_Memory(int line) {
    constexpr char File[] = ".\\tools.cpp";
    Error_Fct(hwnd, ERROR_LEVEL_MEMORY, "line %-4d of %s \nmemory error in new", line, File);
}

constexpr int Line_Of_Normal = 311;
constexpr int Line_Of_Select = 336;
constexpr int Line_Of_Name = 451;

/// Formats like vsnprintf. A text that is the only argument is copied, for most names are given so.
int Format_Name(char* text, std::size_t room, const char* format, va_list arguments) {
    if (std::strcmp(format, "%s") != 0) return std::vsnprintf(text, room, format, arguments);
    const char* given = va_arg(arguments, const char*);
    if (!given) given = "(null)";
    const std::size_t length = strnlen(given, room - 1);
    std::memcpy(text, given, length);
    text[length] = '\0';
    return static_cast<int>(length);
}

/// Replaces `image` by a new one of the control's size, unless the other image is the same.
bool Renew_Image(const Tools& control, unsigned long*& image, const unsigned long* other_image,
                 Given_Image& given, unsigned long fill, int report_line) {
    given = {};  // the new one may come to stand at the same address
    if (image != other_image) Release_Array(image);
    const auto width = std::size_t(std::max<short>(control.Width, 0));
    const auto height = std::size_t(std::max<short>(control.Height, 0));
    image = new (std::nothrow) unsigned long[width * height];
    if (!image) {
        Report_No_Memory(report_line);
        return false;
    }
    std::fill_n(image, width * height, fill);
    return true;
}

void Fill_Rectangle(const Tools& control, const Colors& color, int extra_rows) {
    if (!Has_Size(control)) return;
    const Area area = Area_Of(control);
    Canvas canvas(control, Covering({area.left, area.right, area.bottom, area.top + extra_rows}));
    canvas.Box({area.left, area.right + 1, area.bottom - 1, area.top + extra_rows}, color.get());
}

/// All that a primitive may paint that stands within `margin` pixels of an area, which may be turned round.
Reach Turned(const Area& area, int margin) {
    const auto [left, right] = std::minmax(area.left, area.right);
    const auto [bottom, top] = std::minmax(area.bottom, area.top);
    return {Area{left, right, bottom, top}.Inset(-margin)};
}

void Paint_Signal(const Tools_Fields& control, const Area& area, const Colors& color) {
    Canvas canvas(control, Turned(area, 1));
    if (!Has_Flag(control, FLAG_NO_BODY)) canvas.Box(area, color.get());
}

}  // namespace

Tools::Tools() = default;

Tools::Tools(const Tools& other) : Tools_Fields(other) {
    Veil = VEIL_NONE;
    Share_Array(Owned_Name);
    Share_Region(Region);
    Share_Font(Font);
    Share_Array(Graph_Select);
    if (Graph_Normal != Graph_Select) Share_Array(Graph_Normal);
    Share_Array(Icon_Pixels);
}

Tools& Tools::operator=(const Tools& other) { return Reassign(*this, other); }

Tools::~Tools() {
    Release_Name(*this);
    Drop_Region(*this);
    Release_Font(Font);
    Release_Array(Graph_Select);
    if (Graph_Normal != Graph_Select) Release_Array(Graph_Normal);
    Release_Array(Icon_Pixels);
    State = 0;
}

void* Tools::Free(void* p) {
    for (Given_Image* given : {&Given_Normal, &Given_Select}) {
        if (p == given->Pixels) *given = {};
    }
    Release_Array(p);
    return nullptr;
}

int Tools::Alloc_Graph_Normal(unsigned long fill) {
    return Renew_Image(*this, Graph_Normal, Graph_Select, Given_Normal, fill, Line_Of_Normal);
}

int Tools::Alloc_Graph_Select(unsigned long fill) {
    return Renew_Image(*this, Graph_Select, Graph_Normal, Given_Select, fill, Line_Of_Select);
}

int Tools::Icon(const char* file) { return Read_Icon_Pixels(*this, file); }

void Tools::Clear() {
    Check(*this, "Tools::Clear");
    Fill_Rectangle(*this, Body_Color(Theme_Of(*this), Color), 0);
}

void Tools::Clear(Colors c) {
    Check(*this, "Tools::Clear");
    Fill_Rectangle(*this, c, 1);
}

void Tools::Set_Color(unsigned char r, unsigned char g, unsigned char b) { Color = Colors(r, g, b); }

int Tools::Set_Name(const char* format, ...) {
    if (!format) {
        if (State != 0) Release_Name(*this);
        return 0;
    }
    // Formatted before the old name goes: it may be among the arguments.
    constexpr int Longest = 1023;
    char text[Longest + Longest_Character + 1];
    va_list arguments;
    va_start(arguments, format);
    const int length = Format_Name(text, sizeof text, format, arguments);
    va_end(arguments);
    Release_Owned_Name(*this);
    if (length < 0) return 0;
    char* name = Duplicate({text, static_cast<std::size_t>(Length_Within(text, Longest))});
    if (!name) {
        Report_No_Memory(Line_Of_Name);
        return 0;
    }
    Name = Owned_Name = name;
    State |= STATE_OWNS_NAME;
    return 1;
}

void Tools::Cadre(long flags, short mode, short width, short x0, short x1, short y0, short y1) {
    const Area area{x0, x1, y0, y1};
    Canvas canvas(*this, Turned(area, std::max<int>(width, 0) + 1));
    Paint_Frame(canvas, Color, static_cast<unsigned long>(flags), mode != 0, width, area);
}

void Tools::Cadre_Outline(short x0, short x1, short y0, short y1) {
    const Area area{x0, x1, y0, y1};
    Canvas canvas(*this, Turned(area, 2));
    Paint_Outline(canvas, area);
}

void Tools::Fill(long flags, short x0, short x1, short y0, short y1) {
    if (!(flags & static_cast<long>(FLAG_STATIC)))
        Paint_Signal(*this, {x0, x1, y0, y1}, Body_Color(Theme_Of(*this), Color));
}

void Tools::Fill_Grey(short x0, short x1, short y0, short y1) {
    Paint_Signal(*this, {x0, x1, y0, y1}, Colors(170, 170, 170));
}

void Tools::Fill_Yellow(short x0, short x1, short y0, short y1) {
    Paint_Signal(*this, {x0, x1, y0, y1}, Colors(255, 255, 0));
}

void Tools::Fill_Red(short x0, short x1, short y0, short y1) {
    Paint_Signal(*this, {x0, x1, y0, y1}, Colors(255, 0, 0));
}

void Tools::Fill_Green(short x0, short x1, short y0, short y1) {
    Paint_Signal(*this, {x0, x1, y0, y1}, Colors(0, 255, 0));
}

void Tools::Fill_Blue(short x0, short x1, short y0, short y1) {
    Paint_Signal(*this, {x0, x1, y0, y1}, Colors(0, 0, 255));
}

void Tools::Fill_Select(short sel, const char* buffer, long flags, short inset, short x0, short x1, short y0,
                        short y1) {
    if (flags & static_cast<long>(FLAG_STATIC)) return;
    const Area area{x0, x1, y0, y1};
    Canvas canvas(*this, Turned(area, std::max<int>(-inset, 0) + 1));
    Paint_Body(canvas, *this, sel != 0, buffer, static_cast<unsigned long>(flags), inset, area);
}

unsigned long* Tools::Inside_3D(Colors c) { return Make_Shading(*this, c); }

void Tools::Text(HFONT font, const char* text, long flags, short x, short y, short w, short h, short border) {
    if (!text || !*text) return;
    const Area area{x, x + w, y, y + h};
    Canvas canvas(*this, Caption_Reach(*this, font, text, static_cast<unsigned long>(flags), area, border));
    Paint_Caption(canvas, font, text, static_cast<unsigned long>(flags), area, border);
}

void Tools::Arrow(short direction, short inset, short size, short x, short w, short y, short h) {
    if (size <= inset) return;
    const Area area{x, x + w, y, y + h};
    Canvas canvas(*this, Turned(area, size + std::abs(inset) + 4));
    Paint_Arrow(canvas, direction, inset, size, area);
}

void Tools::Blit(const unsigned long* pixels, short width, short height, short x, short y) {
    if (!pixels || width < 1 || height < 1) return;
    const Area area{x, x + width - 1, y, y + height - 1};
    Canvas canvas(*this, Covering(area));
    canvas.Pixels(pixels, width, height, 0, 0, area);
}

bool Tools::Prepare(HWND window) {
    if (!Begin_Init(*this, window, "Tools::Prepare")) return false;
    Bind(*this, window);
    Renew_Font(*this);
    Note_Size(*this);
    return true;
}

void Tools::Adopt(Tools& part) const { Copy_Surroundings(part, *this); }

bool Tools::Is_Pointed() const { return Pointer_Inside(*this); }
