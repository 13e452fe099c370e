/// @file
/// The surface of one control for the time of one paint.
#pragma once

#include <windows.h>

#include <initializer_list>
#include <span>
#include <string_view>

#include "tools/area.h"
#include "tools/fields.h"
#include "tools/look.h"
#include "tools/shape.h"
#include "tools/view.h"

namespace galdren {

/// `X`, `X` + `Width`, `Y`, `Y` + `Height`, in the range of int.
inline Area Area_Of(const Tools_Fields& control) {
    return {control.X, control.X + control.Width, control.Y, control.Y + control.Height};
}

/// The rectangle of a control, right column and top row included: what is made of parts is cut there.
inline Reach Inside(const Tools_Fields& control) { return {Area_Of(control)}; }

/// An area, edges included, of which the paint leaves nothing that was there before.
inline Reach Covering(const Area& area) { return {area, area}; }

/// Takes the surface for a paint and gives it back. Nothing is painted outside its reach, the text clip
/// rectangle of the control, and the control that it is a part of. Every call carries its colour, so there is
/// nothing to set up or to restore.
///
/// All coordinates are logical, y upward.
class Canvas {
  public:
    Canvas(const Tools_Fields& control, const Reach& reach);
    /// On a picture that is kept from paint to paint, for a paint that covers an area; see `View`.
    Canvas(const Tools_Fields& control, const Area& covered, unsigned& picture);
    /// For a paint that belongs to no control.
    /// @param like  whose scale and theme it has; null for neither
    Canvas(HWND window, const Reach& reach, const Tools_Fields* like = nullptr);
    /// The theme of the control.
    const Theme& Look() const { return theme; }
    /// A length at the scale of the control.
    int Scaled(int pixels) const { return galdren::Scaled(scale, pixels); }
    /// The thickness of lines of one pixel at the scale of the control.
    int Line() const { return std::max(Scaled(1), 1); }

    /// Whether it paints on a kept picture that still holds what the control painted.
    bool Kept() const { return view.kept; }

    /// Moves what the kept picture holds up, or down when negative, by less than its height. The rows that
    /// come in hold anything.
    void Raise(int rows);

    /// Fills the columns left..right-1 and the rows bottom+1..top. One that is turned round, as those of
    /// controls without room are, ends a pixel further.
    void Box(const Area& area, unsigned long color);

    /// Horizontal line from x_from towards x_to, which is not painted.
    /// @param width  of a thicker one, the rest of it above; below when negative
    void Row(int x_from, int x_to, int y, unsigned long color, int width = 1);
    /// Vertical line from y_from towards y_to, which is not painted.
    /// @param width  of a thicker one, the rest of it to the right; to the left when negative
    void Column(int x, int y_from, int y_to, unsigned long color, int width = 1);
    /// Outline along all four edges.
    /// @param width  of a thicker one, the rest of it inside
    void Outline(const Area& area, unsigned long color, int width = 1);

    /// Lines of one pixel through up to six points in turn; the last point is not painted.
    void Lines(std::initializer_list<POINT> points, unsigned long color);

    /// Polygon of up to six corners, filled and outlined.
    void Polygon(std::initializer_list<POINT> corners, unsigned long color);

    /// Pixels of a buffer of `width` x `height`, rows top-down, from its column `column` and `rows_below`
    /// rows above its last, to `area`, all four edges included. Where there are none nothing is painted.
    void Pixels(const void* buffer, int width, int height, int column, int rows_below, const Area& area);

    /// A whole buffer of `size`, rows top-down, zoomed, with its bottom-left corner at a place. What lies
    /// beyond `area`, all four edges included, is left out.
    void Zoomed_Pixels(const void* buffer, SIZE size, const Zoom& zoom, POINT corner, const Area& area);

    /// One line of text with its tabs expanded, clipped to the columns left..right-1 and the rows
    /// bottom+1..top.
    /// @param font  null means the stock system font
    void Write(HFONT font, const char* text, const Area& area, Place across, Place down, unsigned long color);

    /// Lines of text, centred, from the top of the area downwards, clipped to it as above.
    /// @param font    null means the stock system font
    /// @param format  further bits for DrawText
    void Write_Lines(HFONT font, std::wstring_view text, const Area& area, UINT format, unsigned long color);

    /// A piece of a line as `Text_Tabbed` writes it, not clipped.
    /// @param font  null means the stock system font
    /// @return its width as `Width_Of` gives it
    int Write_Run(HFONT font, const char* text, int x, int y, unsigned long color);

    /// Narrows the clip of a canvas, and of the paints inside it, for a scope.
    class Narrow_Clip {
      public:
        Narrow_Clip(Canvas& narrowed, const RECT& clip) : canvas(narrowed), before(narrowed.view.clip) {
            canvas.Set_Clip(clip);
        }
        ~Narrow_Clip() { canvas.Set_Clip(before); }
        Narrow_Clip(const Narrow_Clip&) = delete;
        Narrow_Clip& operator=(const Narrow_Clip&) = delete;

      private:
        Canvas& canvas;
        RECT before;
    };

    /// Narrows it to the columns left..right-1 and the rows bottom+1..top.
    Narrow_Clip Narrow(const Area& area) { return Narrow_Clip(*this, Clipped(Device(area))); }

  private:
    int Y(int y) const { return static_cast<int>(view.client.cy) - 1 - y; }
    /// Half open, as `Box` takes it, in pixels of the client area.
    RECT Device(const Area& area) const { return {area.left, Y(area.top), area.right, Y(area.bottom)}; }
    /// What may be painted of a rectangle; empty when there is nothing.
    RECT Clipped(const RECT& device) const { return Common(device, view.clip); }
    RECT On_Sheet(const RECT& device) const;
    void Set_Clip(const RECT& clip) { view.clip = view.nested_clip = clip; }
    void Fill(const RECT& device, unsigned long color) { view.Fill(Clipped(device), color); }
    template <class Next>
    void Fill_Rows(int top, int bottom, unsigned long color, Next next);
    void Polygon_By_GDI(std::span<const POINT> corners, unsigned long color);
    struct Glyph_Run;
    HDC With_Text(HFONT font, unsigned long color);
    template <class Paint>
    void Write_By_GDI(HFONT font, const RECT& reach, unsigned long color, Paint paint);
    void Write_Glyphs(HFONT font, const Glyph_Run& run, int x, int y, const RECT& reach, unsigned long color);
    void Write_Spots(const Glyph_Run& run, int x, int y, const RECT& clip, unsigned long color);
    void Write_Any(HFONT font, const char* text, const Area& area, Place across, Place down,
                   unsigned long color);

    const Theme& theme;
    unsigned short scale;
    View view;
};

}  // namespace galdren
