#include "tests/support/painter.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <string>

namespace galdren_test {

namespace {

constexpr COLORREF Black = 0;
constexpr COLORREF Outline_Blue = RGB(64, 64, 230);
constexpr COLORREF Highlight = RGB(230, 100, 100);

/// `control`'s colour moved by `offset`, each channel clamped, as GDI takes it.
COLORREF Shade(const Tools& control, int offset) {
    const auto channel = [offset](short value) {
        return static_cast<BYTE>(std::clamp(value + offset, 0, 255));
    };
    return RGB(channel(control.Color.Red), channel(control.Color.Green), channel(control.Color.Blue));
}

int Frame_Width(const Tools& control) { return control.Border ? std::abs(control.Border) : BORDER; }

}  // namespace

Painter::Painter(HWND window) : window_(window), context_(GetDC(window)) {
    RECT client;
    GetClientRect(window, &client);
    SetMapMode(context_, MM_ANISOTROPIC);
    SetWindowExtEx(context_, client.right, client.bottom, nullptr);
    SetViewportExtEx(context_, client.right, -client.bottom, nullptr);
    SetViewportOrgEx(context_, 0, client.bottom - 1, nullptr);
}

Painter::~Painter() { ReleaseDC(window_, context_); }

void Painter::Line(COLORREF color, int x_a, int y_a, int x_b, int y_b, int width) {
    HPEN pen = CreatePen(PS_SOLID, width, color);
    HGDIOBJ before = SelectObject(context_, pen);
    MoveToEx(context_, x_a, y_a, nullptr);
    LineTo(context_, x_b, y_b);
    SelectObject(context_, before);
    DeleteObject(pen);
}

void Painter::Fill(COLORREF color, int x0, int x1, int y0, int y1) {
    HBRUSH brush = CreateSolidBrush(color);
    const RECT place{x0, y1, x1, y0};
    FillRect(context_, &place, brush);
    DeleteObject(brush);
}

void Painter::Frame(COLORREF color, int x_a, int y_a, int x_b, int y_b) {
    Line(color, x_a, y_a, x_a, y_b);
    Line(color, x_a, y_b, x_b, y_b);
    Line(color, x_b, y_b, x_b, y_a);
    Line(color, x_b, y_a, x_a, y_a);
}

void Painter::Clip(const Tools& control) {
    if (control.Clip_Width == 0) return;
    POINT corners[] = {{control.Clip_X, control.Clip_Y},
                       {control.Clip_X + control.Clip_Width, control.Clip_Y + control.Clip_Height}};
    LPtoDP(context_, corners, 2);
    HRGN region = CreateRectRgn(corners[0].x, corners[0].y, corners[1].x, corners[1].y);
    SelectClipRgn(context_, region);
    DeleteObject(region);
}

void Painter::Cadre(const Tools& control, bool rim, bool sunken, int width, int x0, int x1, int y0, int y1) {
    if (rim) Frame(Black, x0, y1, x1, y0);
    for (int i = 1; i <= width; ++i) {
        const int step = 80 / width;
        const int offset = sunken ? step * i : 80 - step * (i - 1);
        const COLORREF first = Shade(control, sunken ? offset : -offset);
        const COLORREF second = Shade(control, sunken ? -(offset + 40) : offset);
        Line(first, x0 + i, y0 + i, x1 - i, y0 + i);
        Line(first, x1 - i, y0 + i, x1 - i, y1 - i);
        Line(second, x0 + i, y0 + i, x0 + i, y1 - i);
        Line(second, x0 + i, y1 - i, x1 - i + 1, y1 - i);
    }
}

void Painter::Outline(const Tools& c) {
    Frame(Outline_Blue, c.X + 1, c.Y + c.Height - 1, c.X + c.Width - 1, c.Y + 1);
}

void Painter::Body(const Tools& control, bool lit, const unsigned long* image, int inset, int x0, int x1,
                   int y0, int y1) {
    if (!image) {
        Fill(lit ? Highlight : Shade(control, 0), x0 + inset, x1 - inset + 1, y0 + inset - 1, y1 - inset);
        return;
    }
    const BITMAPINFO layout{
        {sizeof(BITMAPINFOHEADER), control.Width, -control.Height, 1, 32, BI_RGB, 0, 10000, 10000, 0, 0}, {}};
    SetDIBitsToDevice(context_, x0 + inset, y1 - inset, static_cast<DWORD>(x1 - x0 - 2 * inset + 1),
                      static_cast<DWORD>(y1 - y0 - 2 * inset + 1), inset, inset - 1, 0,
                      static_cast<UINT>(control.Height), image, &layout, DIB_RGB_COLORS);
}

/// Writes in `box` (left x, bottom y, width, height): one line that keeps `margin` free at the sides,
/// `border` at the top and `rise` at the bottom, shown as it stands up to 128 bytes; or at most 128 lines of
/// a character.
void Painter::Write(HFONT font, COLORREF color, const char* text, unsigned long flags, const Box_Size& box,
                    const Margins& free) {
    const auto [x, y, w, h] = box;
    HGDIOBJ before = SelectObject(context_, font ? font : GetStockObject(SYSTEM_FONT));
    TEXTMETRICA metrics;
    GetTextMetricsA(context_, &metrics);
    std::string shown = text;
    RECT place{x + free.side, y + h - free.edge, x + w - free.side, y + free.rise};
    UINT format = flags & 0x2000 ? DT_LEFT : flags & 0x4000 ? DT_RIGHT : DT_CENTER;
    format |= flags & 0x400 ? DT_BOTTOM : flags & 0x200 ? DT_TOP : DT_VCENTER;
    format |= DT_SINGLELINE | DT_EXPANDTABS | (shown.size() <= 128 ? DT_NOPREFIX : 0);
    if (flags & 0x4) {
        shown.clear();
        for (const char* c = text; *c && shown.size() < 256; ++c)
            shown.append({*c, '\n'});
        const int a = metrics.tmAveCharWidth, m = free.side;
        const int total = static_cast<int>(std::strlen(text)) * metrics.tmHeight;
        place = {x, y + h / 2 + total / 2, x + w, y + h / 2 - total / 2};
        if (flags & 0x2000) {
            place.left = x - a + m, place.right = x + 2 * a + m;
        } else if (flags & 0x4000) {
            place.left = x + w - 2 * a - m, place.right = x + w - m + a;
        }
        if (flags & 0x400) {
            place.top = y + free.edge + total, place.bottom = y + free.edge;
        } else if (flags & 0x200) {
            place.top = y + h - free.edge, place.bottom = y + free.edge;
        }
        format = DT_CENTER | (free.rise ? DT_EXPANDTABS : 0);
    }
    SetTextColor(context_, color);
    SetBkMode(context_, TRANSPARENT);
    // In device units: with y upward, not every system centres a line of text in its rectangle.
    LPtoDP(context_, reinterpret_cast<POINT*>(&place), 2);
    const int mapped = SaveDC(context_);
    SetMapMode(context_, MM_TEXT);
    SetViewportOrgEx(context_, 0, 0, nullptr);
    DrawTextA(context_, shown.c_str(), static_cast<int>(shown.size()), &place, format);
    RestoreDC(context_, mapped);
    SelectObject(context_, before);
}

void Painter::Text(HFONT font, const char* text, unsigned long flags, const Box_Size& box, int border) {
    if (!text || !*text) return;
    const int b = std::max(border, 1);
    const COLORREF color = flags & 0x20 ? Outline_Blue : flags & 0x40000 ? RGB(255, 255, 255) : Black;
    Write(font, color, text, flags, box, {std::max(2 * b, 6), b, b + 1});
}

void Painter::Tabbed(HFONT font, COLORREF color, int x, int y, const char* text) {
    HGDIOBJ before = SelectObject(context_, font ? font : GetStockObject(SYSTEM_FONT));
    TEXTMETRICA metrics;
    GetTextMetricsA(context_, &metrics);
    const int stop = 4 * metrics.tmAveCharWidth;
    SetTextColor(context_, color);
    SetBkMode(context_, TRANSPARENT);
    TabbedTextOutA(context_, x, y + metrics.tmHeight, text, static_cast<int>(std::strlen(text)), 1, &stop, 0);
    SelectObject(context_, before);
}

void Painter::Label(const Labels& label) {
    const unsigned long flags = label.Flag & 0x4 ? label.Flag : label.Flag & ~0x400UL;
    Write(label.Font, Shade(label, 0), label.Name, flags, {label.X, label.Y, label.Width, label.Height}, {});
}

void Painter::Polygon_Of(COLORREF color, std::initializer_list<POINT> points) {
    HPEN pen = CreatePen(PS_SOLID, 0, color);
    HBRUSH brush = CreateSolidBrush(color);
    HGDIOBJ old_pen = SelectObject(context_, pen), old_brush = SelectObject(context_, brush);
    Polygon(context_, points.begin(), static_cast<int>(points.size()));
    SelectObject(context_, old_pen);
    SelectObject(context_, old_brush);
    DeleteObject(pen);
    DeleteObject(brush);
}

void Painter::Arrow(int direction, int inset, int size, int x, int w, int y, int h) {
    if (size <= inset) return;
    const COLORREF dark = RGB(110, 110, 110), light = RGB(216, 216, 216);
    const bool across = direction < 2;
    const bool backward = direction == 0 || direction == 2;
    // Along the arrow's axis, measured from the end it sits at; across it, the two sides of the base.
    const int end = across ? (backward ? x : x + w) : (backward ? y : y + h), sign = backward ? 1 : -1;
    const int middle = across ? y + h / 2 : x + w / 2;
    const int side = across ? y + (h - size) / 2 : x + (w - size) / 2;
    const auto at = [&](int along, int athwart) {
        return across ? POINT{end + sign * along, athwart} : POINT{athwart, end + sign * along};
    };
    const POINT tip = at(inset, middle), inner_tip = at(inset + 3, middle);
    const POINT low = at(size, side + inset), inner_low = at(size - 1, side + inset + 2);
    const POINT high = at(size, side + size - inset), inner_high = at(size - 1, side + size - inset - 2);
    Polygon_Of(dark, {inner_tip, inner_low, inner_high});
    Polygon_Of(across ? light : Black, {tip, high, inner_high, inner_tip});
    Polygon_Of(direction == 0 ? Black : light, {low, high, inner_high, inner_low});
    Polygon_Of(across ? Black : light, {tip, low, inner_low, inner_tip});
}

void Painter::Box_Look(const Boxs& box, bool lit) {
    const int x = box.X, y = box.Y, w = box.Width, h = box.Height;
    const unsigned long* image = lit ? box.Cur_Graph_Select : box.Cur_Graph_Normal;
    if (box.Flag & 0x10000)
        Body(box, lit, image, BORDER + 1, x + 5, x + w - 5, y + 6, y + h - 5);
    else
        Body(box, lit, image, Frame_Width(box) + 1, x, x + w, y, y + h);
}

void Painter::Box(const Boxs& box, bool hovered) {
    const int x = box.X, y = box.Y, w = box.Width, h = box.Height;
    const unsigned long flags = box.Flag & 0x500 ? box.Flag : box.Flag | 0x200;
    const auto caption = [&] { Text(box.Font, box.Name, flags, {x, y, w, h}, box.Border); };
    if (box.Flag & 0x20) {
        Outline(box);
        caption();
    }
    if (box.Flag & 0x1) return;
    const bool raised = box.Flag & 0x80000;
    Cadre(box, !(box.Flag & 0x400000), !raised, Frame_Width(box), x, x + w, y, y + h);
    if (box.Flag & 0x10000) {
        Cadre(box, true, false, Frame_Width(box), raised ? x + 6 : x + 5, x + w - 6, raised ? y + 5 : y + 6,
              y + h - 6);
    }
    caption();
    if (box.Flag & 0x10) return;
    Box_Look(box, hovered && !(box.Flag & 0x2));
    caption();
}

void Painter::Lamp(const Buttons& button) {
    static constexpr COLORREF Colors_Of[] = {RGB(170, 170, 170), RGB(0, 255, 0), RGB(0, 0, 255),
                                             RGB(255, 255, 0), RGB(255, 0, 0)};
    int code = button.Lamp < 0 || button.Lamp > 3 ? 4 : button.Lamp;
    if (code && !(button.Flag & 0x200000)) code = 3;
    const int b = Frame_Width(button), d = std::min(button.Height, BUT_DIM), m = 2 * b + 4;
    const int i = std::max(b - 1, 1), left = button.X + SPACE;
    const int bottom = button.Y + ((button.Height - d + m) >> 1);
    const int top = button.Y + ((d - m + button.Height) >> 1);
    Fill(Colors_Of[code], left + i, left + 8 - i, bottom + i, top - i);
    Cadre(button, true, true, i, left, left + 8, bottom, top);
}

void Painter::Button_Caption(const Buttons& button, unsigned long flags) {
    const int shift = button.Flag & 0x100000 ? 8 : 0;
    Text(button.Font, button.Name, flags, {button.X + shift, button.Y, button.Width - shift, button.Height},
         button.Border);
}

void Painter::Button(const Buttons& button, bool hovered) {
    const int x = button.X, y = button.Y, w = button.Width, h = button.Height, b = Frame_Width(button);
    if (button.Flag & 0x20) {
        Outline(button);
        Button_Caption(button, button.Flag);
        return;
    }
    if (button.Flag & 0x1) return;
    const unsigned long flags = (button.Flag & ~0x40000UL) | (button.Value ? 0x40000 : 0);
    const bool lamp = button.Flag & 0x100000, passive = button.Flag & 0x2, lit = hovered && !passive;
    Cadre(button, !(button.Flag & 0x400000), button.Value, b, x, x + w, y, y + h);
    if (lamp) Lamp(button);
    Button_Caption(button, flags);
    if (button.Flag & 0x10) return;
    Body(button, lit, lit ? button.Cur_Graph_Select : button.Cur_Graph_Normal, b + 1, x, x + w, y, y + h);
    if (lamp && !passive) Lamp(button);
    Button_Caption(button, flags);
}

}  // namespace galdren_test
