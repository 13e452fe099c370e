/// @file
/// The surface of one control for the time of one paint.
#pragma once

#include <windows.h>

#include <initializer_list>

#include "tools/context.h"
#include "tools/scopes.h"
#include "tools/tools.h"

namespace galdren {

/// A rectangle in logical pixels, edges as the controls give them.
struct Area {
    int left;
    int right;
    int bottom;
    int top;

    /// Whether `inner`, which has to be a proper rectangle, lies inside; common edges count.
    bool Holds(const Area& inner) const {
        return left <= inner.left && inner.left <= inner.right && inner.right <= right &&
               bottom <= inner.bottom && inner.bottom <= inner.top && inner.top <= top;
    }
    Area Inset(int margin) const { return {left + margin, right - margin, bottom + margin, top - margin}; }
};

/// `X`, `X` + `Width`, `Y`, `Y` + `Height`, in the range of int.
inline Area Area_Of(const Tools& control) {
    return {control.X, control.X + control.Width, control.Y, control.Y + control.Height};
}

/// Where text goes in its area, in either direction; the start is left or top.
enum class Place { Start, Middle, End };

/// Distance of something `length` long from the start of a `room`.
int Offset(Place place, int room, int length);

/// Takes the surface for a control and clips to its text clip rectangle; at its end it resets the clip and
/// gives the surface back. Every call carries its colour, so there is nothing to set up or to restore.
///
/// All coordinates are logical, y upward, whatever the context underneath.
class Canvas {
  public:
    explicit Canvas(const Tools& control);
    /// For a paint that covers an area completely, edges included, before it puts anything on it.
    Canvas(const Tools& control, const Area& covered);
    /// The same on a picture that is kept from paint to paint; see `Take_Surface`.
    Canvas(const Tools& control, const Area& covered, unsigned& picture);
    /// For a paint that belongs to no control: leaves the clip as it stands.
    explicit Canvas(HWND window);
    ~Canvas();
    Canvas(const Canvas&) = delete;
    Canvas& operator=(const Canvas&) = delete;

    /// Whether it paints on a kept picture that still holds what the control painted.
    bool Kept() const { return kept; }

    /// Limits painting to the columns left..right-1 and the rows bottom+1..top in place of any clip before,
    /// until somebody sets another.
    void Clip(const Area& area);

    /// Fills the columns left..right-1 and the rows bottom+1..top.
    void Box(const Area& area, unsigned long color);

    /// Horizontal line from x_from towards x_to, which is not painted.
    void Row(int x_from, int x_to, int y, unsigned long color);
    /// Vertical line from y_from towards y_to, which is not painted.
    void Column(int x, int y_from, int y_to, unsigned long color);
    /// Outline of one pixel along all four edges.
    void Outline(const Area& area, unsigned long color);

    /// Lines of one pixel through up to six points in turn; the last point is not painted.
    void Lines(std::initializer_list<POINT> points, unsigned long color);

    /// Polygon of up to six corners, filled and outlined.
    void Polygon(std::initializer_list<POINT> corners, unsigned long color);

    /// Puts a shape of pixels on what is there, top-left at (x, y). Rows are top-down.
    /// @param hole    0 where the shape is, all ones around it
    /// @param colors  pixel forms, 0 around the shape
    void Stamp(const unsigned long* hole, const unsigned long* colors, int width, int height, int x, int y);

    /// Pixels of a buffer of `width` x `height`, rows top-down, from its column `column` and `rows_below`
    /// rows above its last, to `area`, all four edges included.
    void Pixels(const void* buffer, int width, int height, int column, int rows_below, const Area& area);

    /// One line of text with its tabs expanded, clipped to the columns left..right-1 and the rows
    /// bottom+1..top.
    /// @param font  null means the stock system font
    void Write(HFONT font, const char* text, const Area& area, Place across, Place down, unsigned long color);

    /// Lines of text, centred, from the top of the area downwards, clipped to it as above.
    /// @param font    null means the stock system font
    /// @param length  number of bytes
    /// @param format  further bits for DrawText
    void Write_Lines(HFONT font, const char* text, int length, const Area& area, UINT format,
                     unsigned long color);

    /// A text as `Text_Tabbed` writes it, not clipped.
    /// @param font  null means the stock system font
    /// @param text  null writes nothing
    void Write_Tabbed(HFONT font, const char* text, int x, int y, unsigned long color);

    /// A piece of a line as `Text_Tabbed` writes it, not clipped, in the color given.
    /// @return its width as `Width_Of` gives it
    int Write_Run(HFONT font, const char* text, int x, int y, unsigned long color);

    /// Narrows the clip for a scope to the columns left..right-1 and the rows bottom+1..top.
    Narrow_Clip Narrow(const Area& area) { return Narrow_Clip(dc, Rectangle(area)); }

    /// Width of a text in pixels, with 3 average characters added for every tab.
    int Width_Of(HFONT font, const char* text);

    /// Metrics of `font`, which is in place afterwards.
    TEXTMETRICA Metrics(HFONT font);

  private:
    Canvas(const View& view, bool clips);
    Canvas(const Tools& control, const Area& covered, unsigned& picture, unsigned before);
    Canvas(const View& view, const Tools& control);
    int Device_Y(int y) const { return bottom_row - y; }
    int Y(int y) const { return mapped ? y : Device_Y(y); }
    int Down(int rows) const { return mapped ? -rows : rows; }
    RECT Rectangle(const Area& area) const { return {area.left, Y(area.top), area.right, Y(area.bottom)}; }
    void Use_Brush(unsigned long color);
    void Use_Pen(unsigned long color);
    template <class Paint>
    void With_Points(std::initializer_list<POINT> points, Paint paint) const;
    void Use_Text(HFONT font, unsigned long color);
    struct Glyph_Run;
    bool Write_Plain(HFONT font, const char* text, const Area& area, Place across, Place down);
    void Write_Any(const char* text, const Area& area, Place across, Place down);

    HDC dc;
    bool mapped;
    int bottom_row;
    bool clipped;
    bool kept = false;
    HGDIOBJ brush_before = nullptr;
    HGDIOBJ pen_before = nullptr;
};

}  // namespace galdren
