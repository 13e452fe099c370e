#include "tools/canvas.h"

#include <algorithm>
#include <cstring>

#include "tools/back_buffer.h"
#include "tools/context.h"
#include "tools/font.h"
#include "tools/font_cache.h"
#include "tools/scopes.h"
#include "tools/surface.h"

namespace galdren {

int Offset(Place place, int room, int length) {
    switch (place) {
        case Place::Middle:
            return room / 2 - length / 2;
        case Place::End:
            return room - length;
        default:
            return 0;
    }
}

Canvas::Canvas(const View& view, bool clips)
    : dc(view.dc), mapped(view.mapped), bottom_row(view.height - 1), clipped(clips) {}

Canvas::Canvas(const View& view, const Tools& control) : Canvas(view, control.Clip_Width != 0) {
    if (!clipped) return;
    Clip({control.Clip_X, control.Clip_X + control.Clip_Width, control.Clip_Y,
          control.Clip_Y + control.Clip_Height});
}

Canvas::Canvas(HWND window) : Canvas(Take_Surface(window), false) {}

Canvas::Canvas(const Tools& control) : Canvas(Take_Surface(control.Window), control) {}

namespace {

/// The surface with a picture that covers an area. What a clip rectangle leaves out is not covered.
template <class... Picture>
View Take_Covered(const Tools& control, const Area& covered, Picture&... picture) {
    if (control.Clip_Width != 0) return Take_Surface(control.Window);
    return Take_Surface(control.Window, {covered.left, covered.bottom, covered.right, covered.top},
                        picture...);
}

}  // namespace

Canvas::Canvas(const Tools& control, const Area& covered) : Canvas(Take_Covered(control, covered), control) {}

Canvas::Canvas(const Tools& control, const Area& covered, unsigned& picture)
    : Canvas(control, covered, picture, picture) {}

Canvas::Canvas(const Tools& control, const Area& covered, unsigned& picture, unsigned before)
    : Canvas(Take_Covered(control, covered, picture), control) {
    if (clipped) picture = 0;
    kept = picture != 0 && picture == before;
}

Canvas::~Canvas() {
    if (brush_before) SelectObject(dc, brush_before);
    if (pen_before) SelectObject(dc, pen_before);
    if (clipped) Clip_Reset();
    Give_Back_Surface();
}

void Canvas::Clip(const Area& area) {
    // A region is in pixels of the context, which off screen need not begin where the window does.
    POINT corners[] = {{area.left, Y(area.bottom)}, {area.right, Y(area.top)}};
    LPtoDP(dc, corners, 2);
    const Scoped_Region region({corners[0].x, corners[0].y, corners[1].x, corners[1].y});
    SelectClipRgn(dc, region.Get());
}

void Canvas::Use_Brush(unsigned long color) {
    if (!brush_before) brush_before = SelectObject(dc, GetStockObject(DC_BRUSH));
    SetDCBrushColor(dc, color & 0xFFFFFF);
    Current_Color = color;
}

void Canvas::Use_Pen(unsigned long color) {
    if (!pen_before) pen_before = SelectObject(dc, GetStockObject(DC_PEN));
    SetDCPenColor(dc, color & 0xFFFFFF);
    Current_Color = color;
}

void Canvas::Box(const Area& area, unsigned long color) {
    Use_Brush(color);
    PatBlt(dc, area.left, Y(area.top), area.right - area.left, Down(area.top - area.bottom), PATCOPY);
}

void Canvas::Row(int x_from, int x_to, int y, unsigned long color) {
    if (x_from == x_to) return;
    const int left = x_from < x_to ? x_from : x_to + 1;
    const int right = x_from < x_to ? x_to : x_from + 1;
    Box({left, right, y - 1, y}, color);
}

void Canvas::Column(int x, int y_from, int y_to, unsigned long color) {
    if (y_from == y_to) return;
    const int bottom = y_from < y_to ? y_from : y_to + 1;
    const int top = y_from < y_to ? y_to : y_from + 1;
    Box({x, x + 1, bottom - 1, top - 1}, color);
}

void Canvas::Outline(const Area& area, unsigned long color) {
    Column(area.left, area.bottom, area.top, color);
    Row(area.left, area.right, area.top, color);
    Column(area.right, area.top, area.bottom, color);
    Row(area.right, area.left, area.bottom, color);
}

/// Calls `paint` with the points as the context takes them, and their number.
template <class Paint>
void Canvas::With_Points(std::initializer_list<POINT> points, Paint paint) const {
    constexpr std::size_t Most_Points = 6;
    POINT converted[Most_Points];
    const std::size_t count = std::min(points.size(), Most_Points);
    std::transform(points.begin(), points.begin() + count, converted, [this](const POINT& point) {
        return POINT{point.x, Y(point.y)};
    });
    paint(converted, static_cast<int>(count));
}

void Canvas::Lines(std::initializer_list<POINT> points, unsigned long color) {
    Use_Pen(color);
    With_Points(points, [this](const POINT* point, int count) { Polyline(dc, point, count); });
}

void Canvas::Polygon(std::initializer_list<POINT> corners, unsigned long color) {
    Use_Brush(color);
    Use_Pen(color);
    With_Points(corners, [this](const POINT* corner, int count) { ::Polygon(dc, corner, count); });
}

void Canvas::Stamp(const unsigned long* hole, const unsigned long* colors, int width, int height, int x,
                   int y) {
    const BITMAPINFO info = Top_Down_Info(width, height);
    const auto combine = [&](const unsigned long* pixels, DWORD operation) {
        StretchDIBits(dc, x, Y(y), width, Down(height), 0, 0, width, height, pixels, &info, DIB_RGB_COLORS,
                      operation);
    };
    combine(hole, SRCAND);
    combine(colors, SRCPAINT);
}

void Canvas::Pixels(const void* buffer, int width, int height, int column, int rows_below, const Area& area) {
    const int columns = area.right - area.left + 1;
    const int rows = area.top - area.bottom + 1;
    if (columns < 1 || rows < 1) return;
    constexpr LONG Pixels_Per_Meter = 10000;
    BITMAPINFO info{};
    info.bmiHeader = {sizeof info.bmiHeader, width, -height, 1, 32, BI_RGB, 0, Pixels_Per_Meter,
                      Pixels_Per_Meter,      0,     0};
    // The first source row is counted from the last row of the buffer, top-down or not.
    SetDIBitsToDevice(dc, area.left, Y(area.top), static_cast<DWORD>(columns), static_cast<DWORD>(rows),
                      column, rows_below, 0, static_cast<UINT>(height), buffer, &info, DIB_RGB_COLORS);
}

void Canvas::Use_Text(HFONT font, unsigned long color) {
    Use_Font(font);
    SetTextColor(dc, color & 0xFFFFFF);
    SetBkMode(dc, TRANSPARENT);
}

void Canvas::Write(HFONT font, const char* text, const Area& area, Place across, Place down,
                   unsigned long color) {
    if (!dc || area.left >= area.right || area.bottom >= area.top) return;
    Use_Text(font, color);
    if (!Write_Plain(font, text, area, across, down)) Write_Any(text, area, across, down);
}

/// The glyphs of a text that is short and of characters that the font has.
struct Canvas::Glyph_Run {
    static constexpr int Longest = 255;
    WORD glyphs[Longest];
    int count = 0;
    int width = 0;

    /// @return false when the text is not of that kind
    bool Take(const Font_Facts& facts, const char* text, int longest) {
        for (; text[count]; ++count) {
            const auto byte = static_cast<unsigned char>(text[count]);
            if (count == longest || facts.glyphs[byte] == Font_Facts::No_Glyph) return false;
            glyphs[count] = facts.glyphs[byte];
            width += facts.widths[byte];
        }
        return true;
    }

    void Write(HDC dc, int x, int y, UINT options, const RECT* clip) const {
        ExtTextOutW(dc, x, y, options | ETO_GLYPH_INDEX, clip, reinterpret_cast<const WCHAR*>(glyphs),
                    static_cast<UINT>(count), nullptr);
    }
};

/// The usual caption. Its glyphs are placed by hand, for DrawText takes twice as long and, on a context with
/// y upward, may centre text one line too low.
/// @return false when the text needs DrawText
bool Canvas::Write_Plain(HFONT font, const char* text, const Area& area, Place across, Place down) {
    constexpr int Longest_Caption = 128;
    const Font_Facts* facts = Facts_Of(font, dc);
    Glyph_Run run;
    if (!facts || !run.Take(*facts, text, Longest_Caption)) return false;
    int x = area.left;
    if (across == Place::Middle) x = (area.left + area.right - run.width) / 2;
    if (across == Place::End) x = area.right - run.width;
    const int drop = Offset(down, area.top - area.bottom, facts->metrics.tmHeight);
    const RECT clip = Rectangle(area);
    run.Write(dc, x, Y(area.top) + Down(drop), ETO_CLIPPED, &clip);
    return true;
}

void Canvas::Write_Any(const char* text, const Area& area, Place across, Place down) {
    TEXTMETRICA metrics{};
    GetTextMetricsA(dc, &metrics);
    const int drop = Offset(down, area.top - area.bottom, metrics.tmHeight);
    UINT format = DT_SINGLELINE | DT_EXPANDTABS | DT_NOCLIP;
    if (across == Place::Middle) format |= DT_CENTER;
    if (across == Place::End) format |= DT_RIGHT;
    const Narrow_Clip clip(dc, Rectangle(area));
    RECT line = Rectangle({area.left, area.right, area.top - drop - metrics.tmHeight, area.top - drop});
    DrawTextA(dc, Escape_Ampersand(text), -1, &line, format);
}

void Canvas::Write_Lines(HFONT font, const char* text, int length, const Area& area, UINT format,
                         unsigned long color) {
    if (!dc || area.left >= area.right || area.bottom >= area.top) return;
    Use_Text(font, color);
    RECT rectangle = Rectangle(area);
    DrawTextA(dc, text, length, &rectangle, format | DT_CENTER);
}

void Canvas::Write_Tabbed(HFONT font, const char* text, int x, int y, unsigned long color) {
    if (!dc || !text) return;
    Use_Text(font, color);
    const TEXTMETRICA metrics = Metrics(font);
    galdren::Write_Tabbed(dc, x, Y(y + metrics.tmHeight), text, metrics);
}

int Canvas::Write_Run(HFONT font, const char* text, int x, int y, unsigned long color) {
    if (!dc) return 0;
    Use_Text(font, color);
    const Font_Facts* facts = Facts_Of(font, dc);
    Glyph_Run run;
    if (!facts || !run.Take(*facts, text, Glyph_Run::Longest)) {
        Write_Tabbed(font, text, x, y, color);
        return Width_Of(font, text);
    }
    run.Write(dc, x, Y(y + facts->metrics.tmHeight), 0, nullptr);
    return run.width;
}

int Canvas::Width_Of(HFONT font, const char* text) {
    Use_Font(font);
    const Font_Facts* facts = Facts_Of(font, dc);
    int width = 0;
    for (const char* at = text; facts && *at; ++at) {
        const auto byte = static_cast<unsigned char>(*at);
        if (facts->glyphs[byte] == Font_Facts::No_Glyph) facts = nullptr;
        if (facts) width += facts->widths[byte];
    }
    return facts ? width : Extent_In_Place(dc, text);
}

TEXTMETRICA Canvas::Metrics(HFONT font) {
    Use_Font(font);
    if (const Font_Facts* facts = Facts_Of(font, dc)) return facts->metrics;
    TEXTMETRICA metrics{};
    GetTextMetricsA(dc, &metrics);
    return metrics;
}

}  // namespace galdren
