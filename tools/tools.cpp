#include "tools/tools.h"

#include <algorithm>
#include <cstdarg>
#include <cstdio>
#include <cstring>
#include <new>

#include "tools/base.h"
#include "tools/font.h"
#include "tools/font_cache.h"
#include "tools/region.h"
#include "tools/sharing.h"
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

/// Replaces `image` by a new one of the control's size, unless the other image is the same.
bool Renew_Image(const Tools& control, unsigned long*& image, const unsigned long* other_image,
                 unsigned long fill, int report_line) {
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

/// Takes the text away that `Set_Name` made; a name that the application has put in its place stays.
void Release_Owned_Name(Tools& control) {
    if (control.Name == control.Owned_Name) control.Name = nullptr;
    Release_Array(control.Owned_Name);
    control.Owned_Name = nullptr;
    control.State &= static_cast<unsigned char>(~STATE_OWNS_NAME);
}

void Fill_Rectangle(const Tools& control, const Colors& color, int extra_rows) {
    if (!Has_Size(control)) return;
    const Area area = Area_Of(control);
    Canvas canvas(control);
    canvas.Box({area.left, area.right + 1, area.bottom - 1, area.top + extra_rows}, color.get());
}

}  // namespace

namespace galdren {

void Release_Name(Tools& control) {
    Release_Owned_Name(control);
    control.Name = nullptr;
}

}  // namespace galdren

Tools::Tools() = default;

Tools::Tools(const Tools& other) : Tools_Fields(other) {
    Share_Array(Owned_Name);
    Share_Region(Region);
    Share_Font(Font);
    Share_Array(Graph_Select);
    if (Graph_Normal != Graph_Select) Share_Array(Graph_Normal);
}

Tools& Tools::operator=(const Tools& other) { return Reassign(*this, other); }

Tools::~Tools() {
    Release_Name(*this);
    Release_Region(Region);
    Z_Delete_Font(Window, Font);
    Release_Array(Graph_Select);
    if (Graph_Normal != Graph_Select) Release_Array(Graph_Normal);
    State = 0;
}

void* Tools::Free(void* p) {
    Release_Array(p);
    return nullptr;
}

int Tools::Alloc_Graph_Normal(unsigned long fill) {
    return Renew_Image(*this, Graph_Normal, Graph_Select, fill, Line_Of_Normal);
}

int Tools::Alloc_Graph_Select(unsigned long fill) {
    return Renew_Image(*this, Graph_Select, Graph_Normal, fill, Line_Of_Select);
}

void Tools::Clear() {
    Check(*this, "Tools::Clear");
    Fill_Rectangle(*this, Color, 0);
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
    constexpr std::size_t Longest = 1024;
    char text[Longest];
    va_list arguments;
    va_start(arguments, format);
    const int length = std::vsnprintf(text, sizeof text, format, arguments);
    va_end(arguments);
    Release_Owned_Name(*this);
    if (length < 0) return 0;
    char* name = Duplicate(text);
    if (!name) {
        Report_No_Memory(Line_Of_Name);
        return 0;
    }
    Name = Owned_Name = name;
    State |= STATE_OWNS_NAME;
    return 1;
}
