#include "tools/canvas.h"

#include <algorithm>
#include <string_view>

#include "tools/code_page.h"
#include "tools/font.h"
#include "tools/font_cache.h"
#include "tools/globals.h"
#include "tools/window.h"

namespace galdren {

namespace {

/// What is left of a reach inside the text clip rectangle of a control, and inside the control that it is a
/// part of.
Reach Limited(const Tools_Fields& control, Reach reach) {
    if (!Is_Empty(control.Room)) reach.area = Common(reach.area, Area_Of(control.Room));
    if (control.Clip_Width == 0) return reach;
    const auto [left, right] = std::minmax({int{control.Clip_X}, control.Clip_X + control.Clip_Width});
    const auto [bottom, top] = std::minmax({int{control.Clip_Y}, control.Clip_Y + control.Clip_Height});
    reach.area = Common(reach.area, {left, right - 1, bottom + 1, top});
    return reach;
}

/// Part of a picture is not kept.
Reach Kept_Reach(const Tools_Fields& control, const Area& covered, unsigned& picture) {
    const Reach limited = Limited(control, Covering(covered));
    if (limited.area.Holds(covered)) return {covered, covered, &picture};
    picture = 0;
    return limited;
}

/// What a control would paint that is not to paint now is painted later, or not at all.
void Leave_Out(const Tools_Fields& control, const Reach& reach) {
    if (control.Veil == VEIL_LATER) Invalidate(control.Window, reach.area);
    if (reach.picture) *reach.picture = 0;
}

/// Has a context count in pixels of the client area for a scope, and limits it to a rectangle: for what GDI
/// works out from coordinates, and does not clip by itself.
class Client_Pixels {
  public:
    Client_Pixels(HDC context, const POINT& begin, const RECT& clip, bool is_window)
        : dc(context), origin(begin), saved(is_window ? SaveDC(context) : 0) {
        OffsetViewportOrgEx(dc, -origin.x, -origin.y, nullptr);
        IntersectClipRect(dc, clip.left, clip.top, clip.right, clip.bottom);
    }
    ~Client_Pixels() {
        if (saved) {
            RestoreDC(dc, saved);
            return;
        }
        SelectClipRgn(dc, nullptr);
        OffsetViewportOrgEx(dc, origin.x, origin.y, nullptr);
    }
    Client_Pixels(const Client_Pixels&) = delete;
    Client_Pixels& operator=(const Client_Pixels&) = delete;

  private:
    HDC dc;
    POINT origin;
    int saved;
};

}  // namespace

Canvas::Canvas(const Tools_Fields& control, const Reach& reach)
    : theme(Theme_Of(control)),
      scale(control.Scale),
      view(control.Veil ? nullptr : control.Window, Limited(control, reach)) {
    if (control.Veil) Leave_Out(control, reach);
}

Canvas::Canvas(const Tools_Fields& control, const Area& covered, unsigned& picture)
    : Canvas(control, Kept_Reach(control, covered, picture)) {}

Canvas::Canvas(HWND window, const Reach& reach, const Tools_Fields* like)
    : theme(like ? Theme_Of(*like) : Plain_Theme),
      scale(like ? like->Scale : Unscaled),
      view(window, {reach.area, reach.covered, nullptr, true}) {}

void Canvas::Raise(int rows) {
    view.sheet->Raise(rows);
    view.origin = view.sheet->Origin();
    view.painted = view.clip;
}

RECT Canvas::On_Sheet(const RECT& device) const {
    return {device.left - view.origin.x, device.top - view.origin.y, device.right - view.origin.x,
            device.bottom - view.origin.y};
}

void Canvas::Box(const Area& area, unsigned long color) {
    Current_Color = color;
    Fill(Device(Upright(area)), color);
}

void Canvas::Row(int x_from, int x_to, int y, unsigned long color, int width) {
    if (x_from == x_to) return;
    const int left = x_from < x_to ? x_from : x_to + 1;
    const int right = x_from < x_to ? x_to : x_from + 1;
    Box(width > 0 ? Area{left, right, y - 1, y + width - 1} : Area{left, right, y + width, y}, color);
}

void Canvas::Column(int x, int y_from, int y_to, unsigned long color, int width) {
    if (y_from == y_to) return;
    const int bottom = y_from < y_to ? y_from : y_to + 1;
    const int top = y_from < y_to ? y_to : y_from + 1;
    Box(width > 0 ? Area{x, x + width, bottom - 1, top - 1} : Area{x + width + 1, x + 1, bottom - 1, top - 1},
        color);
}

void Canvas::Outline(const Area& area, unsigned long color, int width) {
    Column(area.left, area.bottom, area.top, color, width);
    Row(area.left, area.right, area.top, color, -width);
    Column(area.right, area.top, area.bottom, color, -width);
    Row(area.right, area.left, area.bottom, color, width);
}

/// Fills the rows from `top` to `bottom`, of which `next` gives the pixels in turn. Most runs are a few
/// pixels long: what one costs besides them counts.
template <class Next>
void Canvas::Fill_Rows(int top, int bottom, unsigned long color, Next next) {
    if (!view.sheet) {
        for (int y = top; y <= bottom; ++y) {
            const Pixel_Run run = next();
            Fill({run.left, y, run.right + 1, y + 1}, color);
        }
        return;
    }
    const RECT clip = view.clip;
    if (Is_Empty(clip)) return;
    for (; top <= bottom && top < clip.top; ++top)
        next();
    const int end = std::min<int>(bottom + 1, clip.bottom);
    if (top >= end) return;  // there is no pointer to a row that far away
    const Raster& raster = view.sheet->Pixels();
    const auto pixel = static_cast<unsigned long>(Pixel_Of(color));
    const POINT origin = view.origin;
    unsigned long* row = raster.At(0, top - origin.y);
    RECT filled{clip.right, top, clip.left, end};
    for (int y = top; y < end; ++y, row += raster.pitch) {
        const Pixel_Run run = next();
        const LONG left = std::max<LONG>(run.left, clip.left);
        const LONG right = std::min<LONG>(run.right + 1, clip.right);
        if (left >= right) continue;
        std::fill_n(row + (left - origin.x), right - left, pixel);
        filled.left = std::min(filled.left, left);
        filled.right = std::max(filled.right, right);
    }
    if (!Is_Empty(filled)) Include(view.painted, filled);
}

void Canvas::Lines(std::initializer_list<POINT> points, unsigned long color) {
    Current_Color = color;
    for (const POINT* point = points.begin(); point + 1 < points.end(); ++point) {
        const POINT end{point[1].x, Y(point[1].y)};
        const bool last = point + 2 == points.end();
        Edge edge({point->x, Y(point->y)}, end);
        int y = edge.Top();
        Fill_Rows(edge.Top(), edge.Bottom(), color, [&] {
            Pixel_Run run = edge.Next();
            if (!last || y++ != end.y) return run;
            if (run.right == end.x) return Pixel_Run{run.left, run.right - 1};
            if (run.left == end.x) ++run.left;
            return run;
        });
    }
}

void Canvas::Polygon(std::initializer_list<POINT> points, unsigned long color) {
    Current_Color = color;
    POINT corners[Most_Corners];
    const std::size_t count = std::min(points.size(), Most_Corners);
    std::transform(points.begin(), points.begin() + count, corners, [this](const POINT& point) {
        return POINT{point.x, Y(point.y)};
    });
    const std::span<const POINT> outline(corners, count);
    if (!Has_Single_Runs(outline)) return Polygon_By_GDI(outline, color);
    Polygon_Rows rows(outline);
    Fill_Rows(rows.Top(), rows.Bottom(), color, [&] { return rows.Next(); });
}

void Canvas::Pixels(const void* buffer, int width, int height, int column, int rows_below, const Area& area) {
    // Where the first pixel of the buffer would come to stand.
    const int left = area.left - column;
    const int top = Y(area.bottom) + 1 + rows_below - height;
    const RECT image{left, top, left + width, top + height};
    const RECT wanted{area.left, Y(area.top), area.right + 1, Y(area.bottom) + 1};
    const RECT shown = Clipped(Common(image, wanted));
    if (Is_Empty(shown)) return;
    Include(view.painted, shown);
    const Raster source{static_cast<unsigned long*>(const_cast<void*>(buffer)), width};
    const SIZE size{shown.right - shown.left, shown.bottom - shown.top};
    const int from_x = static_cast<int>(shown.left) - left;
    const int from_y = static_cast<int>(shown.top) - top;
    if (view.sheet) {
        const RECT to = On_Sheet(shown);
        const Raster& target = view.sheet->Pixels();
        Copy_Pixels(source.At(from_x, from_y), width, target.At(to.left, to.top), target.pitch, size.cx,
                    size.cy);
    } else if (view.dc) {
        Put_Pixels(view.dc, {shown.left, shown.top}, source, from_x, from_y, size);
    }
}

void Canvas::Zoomed_Pixels(const void* buffer, SIZE size, const Zoom& zoom, POINT corner, const Area& area) {
    const int width = static_cast<int>(size.cx);
    const int height = static_cast<int>(size.cy);
    if (zoom.times == zoom.part)
        return Pixels(buffer, width, height, area.left - corner.x, area.bottom - corner.y, area);
    const int left = corner.x;
    const int top = Y(corner.y) + 1 - zoom.Of(height);
    const RECT image{left, top, left + zoom.Of(width), top + zoom.Of(height)};
    const RECT wanted{area.left, Y(area.top), area.right + 1, Y(area.bottom) + 1};
    const RECT shown = Clipped(Common(image, wanted));
    const Raster source{static_cast<unsigned long*>(const_cast<void*>(buffer)), width};
    RECT block = shown;
    for (; block.top < shown.bottom; block.top = block.bottom) {
        const int row = zoom.From(static_cast<int>(block.top) - top);
        block.bottom = std::min<LONG>(top + zoom.End_Of(row), shown.bottom);
        for (block.left = shown.left; block.left < shown.right; block.left = block.right) {
            const int column = zoom.From(static_cast<int>(block.left) - left);
            block.right = std::min<LONG>(left + zoom.End_Of(column), shown.right);
            Fill(block, Exchange_Red_And_Blue(*source.At(column, row)) & 0xFFFFFF);
        }
    }
}

/// The context for a text, wherever it is.
HDC Canvas::With_Text(HFONT font, unsigned long color) {
    if (view.sheet) return view.sheet->With_Text(font, color);
    SelectObject(view.dc, font ? font : GetStockObject(SYSTEM_FONT));
    SetTextColor(view.dc, color & 0xFFFFFF);
    SetBkMode(view.dc, TRANSPARENT);
    return view.dc;
}

/// Calls `paint` with a context for the text, in pixels of the client area and limited to what may be painted
/// of `reach`; unless that is nothing.
template <class Paint>
void Canvas::Write_By_GDI(HFONT font, const RECT& reach, unsigned long color, Paint paint) {
    const RECT clip = Clipped(reach);
    if (Is_Empty(clip) || !(view.sheet || view.dc)) return;
    Include(view.painted, clip);
    const HDC dc = With_Text(font, color);
    {
        const Client_Pixels pixels(dc, view.origin, clip, !view.sheet);
        paint(dc);
    }
    // A font that is not ours may be gone tomorrow, and another one have its handle.
    if (view.sheet && font && !Facts_Of(font)) view.sheet->With_Font(nullptr);
}

void Canvas::Polygon_By_GDI(std::span<const POINT> corners, unsigned long color) {
    const HDC dc = view.sheet ? view.sheet->For_GDI() : view.dc;
    if (!dc || Is_Empty(view.clip)) return;
    view.painted = view.clip;
    const Client_Pixels pixels(dc, view.origin, view.clip, !view.sheet);
    const HGDIOBJ brush = SelectObject(dc, GetStockObject(DC_BRUSH));
    const HGDIOBJ pen = SelectObject(dc, GetStockObject(DC_PEN));
    SetDCBrushColor(dc, color & 0xFFFFFF);
    SetDCPenColor(dc, color & 0xFFFFFF);
    ::Polygon(dc, corners.data(), static_cast<int>(corners.size()));
    SelectObject(dc, pen);
    SelectObject(dc, brush);
}

/// The glyphs of a text that is short and of characters that the font has.
struct Canvas::Glyph_Run {
    static constexpr std::size_t Longest = 255;
    Font_Facts* facts;  ///< null for a font that nothing is known of
    Glyph* glyphs[Longest];
    int count = 0;
    int width = 0;
    bool of_spots = true;

    explicit Glyph_Run(HFONT font) : facts(Facts_Of(font)) {}

    /// @param longest  bytes that are still short
    /// @return false when the text is not of that kind
    bool Take(std::string_view text, std::size_t longest) {
        if (!facts || text.size() > longest) return false;
        while (!text.empty()) {
            Glyph& glyph = facts->Take(text);
            if (glyph.index == Glyph::None) return false;
            glyphs[count++] = &glyph;
            width += glyph.width;
            of_spots = of_spots && facts->Has_Spots(glyph);
        }
        return true;
    }
};

/// Writes glyphs of a font with its top left corner at a pixel of the client area, clipped to `reach`.
void Canvas::Write_Glyphs(HFONT font, const Glyph_Run& run, int x, int y, const RECT& reach,
                          unsigned long color) {
    const RECT clip = Clipped(reach);
    if (Is_Empty(clip) || !(view.sheet || view.dc)) return;
    Include(view.painted, clip);
    if (view.sheet && run.of_spots) return Write_Spots(run, x, y, clip, color);
    WORD indices[Glyph_Run::Longest];
    std::transform(run.glyphs, run.glyphs + run.count, indices,
                   [](const Glyph* glyph) { return glyph->index; });
    const RECT limits = On_Sheet(clip);
    ExtTextOutW(With_Text(font, color), x - view.origin.x, y - view.origin.y, ETO_CLIPPED | ETO_GLYPH_INDEX,
                &limits, reinterpret_cast<const WCHAR*>(indices), static_cast<UINT>(run.count), nullptr);
}

/// With this loop in place of GDI a label takes half the time.
void Canvas::Write_Spots(const Glyph_Run& run, int x, int y, const RECT& clip, unsigned long color) {
    const Raster& raster = view.sheet->Pixels();
    const auto pixel = static_cast<unsigned long>(Pixel_Of(color));
    const auto columns = static_cast<unsigned long>(clip.right - clip.left);
    const auto rows = static_cast<unsigned long>(clip.bottom - clip.top);
    unsigned long* const corner = raster.At(clip.left - view.origin.x, clip.top - view.origin.y);
    for (int i = 0; i < run.count; ++i) {
        for (const POINTS& spot : run.facts->Spots(*run.glyphs[i])) {
            const auto column = static_cast<unsigned long>(x + spot.x - clip.left);
            const auto row = static_cast<unsigned long>(y + spot.y - clip.top);
            if (column < columns && row < rows)
                corner[static_cast<std::ptrdiff_t>(row) * raster.pitch +
                       static_cast<std::ptrdiff_t>(column)] = pixel;
        }
        x += run.glyphs[i]->step;
    }
}

/// The glyphs of the usual caption are placed by hand, for DrawText takes twice as long.
void Canvas::Write(HFONT font, const char* text, const Area& area, Place across, Place down,
                   unsigned long color) {
    constexpr std::size_t Longest_Caption = 128;
    if (area.left >= area.right || area.bottom >= area.top) return;
    Glyph_Run run(font);
    if (!run.Take(text, Longest_Caption)) return Write_Any(font, text, area, across, down, color);
    int x = area.left;
    if (across == Place::Middle) x = (area.left + area.right - run.width) / 2;
    if (across == Place::End) x = area.right - run.width;
    const int y = Y(area.top) + Offset(down, area.top - area.bottom, run.facts->Metrics().tmHeight);
    Write_Glyphs(font, run, x, y, Device(area), color);
}

void Canvas::Write_Any(HFONT font, const char* text, const Area& area, Place across, Place down,
                       unsigned long color) {
    const int height = Metrics_Of(font).tmHeight;
    const int top = area.top - Offset(down, area.top - area.bottom, height);
    UINT format = DT_SINGLELINE | DT_EXPANDTABS | DT_NOCLIP;
    if (across == Place::Middle) format |= DT_CENTER;
    if (across == Place::End) format |= DT_RIGHT;
    Write_By_GDI(font, Device(area), color, [&](HDC dc) {
        RECT line = Device({area.left, area.right, top - height, top});
        const Wide_Line written(Escape_Ampersand(text));
        DrawTextW(dc, written.Units(), written.Length(), &line, format);
    });
}

void Canvas::Write_Lines(HFONT font, std::wstring_view text, const Area& area, UINT format,
                         unsigned long color) {
    if (area.left >= area.right || area.bottom >= area.top) return;
    Write_By_GDI(font, Device(area), color, [&](HDC dc) {
        RECT rectangle = Device(area);
        DrawTextW(dc, text.data(), static_cast<int>(text.size()), &rectangle, format | DT_CENTER);
    });
}

int Canvas::Write_Run(HFONT font, const char* text, int x, int y, unsigned long color) {
    Glyph_Run run(font);
    const bool plain = run.Take(text, Glyph_Run::Longest);
    const TEXTMETRICA metrics = run.facts ? run.facts->Metrics() : Metrics_Of(font);
    const int height = static_cast<int>(metrics.tmHeight);
    const int top = Y(y + height);
    if (!plain) {
        Write_By_GDI(font, view.clip, color, [&](HDC dc) { Write_Tabbed(dc, x, top, text, metrics); });
        return Width_Of(font, text);
    }
    // Slanted letters reach beyond their place, by less than they are high.
    Write_Glyphs(font, run, x, top, {x - height, top, x + run.width + height, top + height}, color);
    return run.width;
}

}  // namespace galdren
