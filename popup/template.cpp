#include "popup/template.h"

#include <algorithm>
#include <cstddef>
#include <cstring>

#include "tools/arithmetic.h"
#include "tools/look.h"
#include "util/code_page.h"

namespace galdren {

namespace {

constexpr std::size_t Block_Size = 1024;

/// What the block begins with; the rest of it stays zero.
struct Layout {
    DLGTEMPLATE dialog;
    WORD menu;
    WORD window_class;
    wchar_t title[Dialog_Template::Longest_Title + 1];
};
static_assert(offsetof(Layout, menu) == 18 && offsetof(Layout, title) == 22, "no padding is allowed");

/// A length in dialog units, of which there are `units_per_base` in `base` pixels.
short Dialog_Units(int pixels, int units_per_base, int base) {
    return Low_16(pixels * units_per_base / std::max(base, 1));
}

/// Takes as much of the title as there is room for.
void Write_Title(wchar_t* title, const char* text) {
    constexpr int Longest = Dialog_Template::Longest_Title;
    // One byte more than it takes for the longest title: no character that is kept is one cut in two.
    constexpr int Most_Bytes_Each = 3;
    constexpr int Most_Bytes = Most_Bytes_Each * Longest + 1;
    Text_To_Wide(text, static_cast<int>(strnlen(text, Most_Bytes)), title, Longest);
}

}  // namespace

// A fixed block is used in place: its handle is its address, and it cannot be locked or move.
Dialog_Template::Dialog_Template(const char* title, short width, short height, unsigned short scale)
    : block(GlobalAlloc(GPTR, Block_Size)) {
    if (!block) return;
    constexpr int Usual_Width = 300;
    constexpr int Usual_Height = 150;
    constexpr short Position = 10;
    const LONG base = GetDialogBaseUnits();
    auto* layout = static_cast<Layout*>(block);
    layout->dialog.style = WS_POPUP | WS_CAPTION | WS_SYSMENU | DS_MODALFRAME;
    layout->dialog.x = Position;
    layout->dialog.y = Position;
    layout->dialog.cx = Dialog_Units(Scaled(scale, width ? width : Usual_Width), 4, LOWORD(base));
    layout->dialog.cy = Dialog_Units(Scaled(scale, height ? height : Usual_Height), 8, HIWORD(base));
    if (title) Write_Title(layout->title, title);
}

Dialog_Template::~Dialog_Template() {
    if (block) GlobalFree(block);
}

}  // namespace galdren
