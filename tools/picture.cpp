#include "tools/picture.h"

#include "tools/lock.h"

namespace galdren {

namespace {

HGDIOBJ Stock_Font() { return GetStockObject(SYSTEM_FONT); }

Picture* First_Picture = nullptr;

}  // namespace

Picture::Picture(SIZE room_wanted)
    : room(room_wanted), dc(CreateCompatibleDC(nullptr)), font(Stock_Font()), next(First_Picture) {
    if (next) next->before = this;
    First_Picture = this;
    const BITMAPINFO info = Top_Down_Info(room.cx, room.cy);
    void* bits = nullptr;
    if (dc) bitmap = CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
    if (!bitmap) return;
    raster = {static_cast<unsigned long*>(bits), static_cast<int>(room.cx)};
    bitmap_before = SelectObject(dc, bitmap);
    SetBkMode(dc, TRANSPARENT);
}

Picture::~Picture() {
    (before ? before->next : First_Picture) = next;
    if (next) next->before = before;
    SelectObject(dc, Stock_Font());
    if (bitmap_before) SelectObject(dc, bitmap_before);
    if (bitmap) DeleteObject(bitmap);
    if (dc) DeleteDC(dc);
}

HDC Picture::With_Font(HFONT wanted_font) {
    const HGDIOBJ wanted = wanted_font ? wanted_font : Stock_Font();
    // Selecting takes as long as writing a caption, even for the font that is in place.
    if (font != wanted) SelectObject(dc, wanted);
    font = wanted;
    return dc;
}

HDC Picture::With_Text(HFONT wanted_font, unsigned long color) {
    if (text_color != color) SetTextColor(dc, color & 0xFFFFFF);
    text_color = color;
    With_Font(wanted_font);
    return For_GDI();
}

void Put_Away_Font(HFONT gone) {
    const Drawing_Lock lock;
    for (Picture* picture = First_Picture; picture; picture = picture->next) {
        if (picture->font == gone) picture->With_Font(nullptr);
    }
}

int Picture::Lend() {
    const int saved = SaveDC(dc);
    SelectObject(dc, Stock_Font());
    SetTextColor(dc, 0);
    SetBkMode(dc, OPAQUE);
    return saved;
}

void Picture::Take_Back(int lent) {
    RestoreDC(dc, lent);
    gdi_is_ahead = true;
}

}  // namespace galdren
