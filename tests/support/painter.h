/// @file
/// The pictures that controls should give, painted by plain GDI calls, one object and one call per line.
#pragma once

#include <initializer_list>

#include "Galdren_Tools.h"

namespace galdren_test {

/// Left edge, bottom edge, width and height in logical pixels.
struct Box_Size {
    int x, y, w, h;
};

/// Paints on a window in logical pixels, as plainly as can be. It shares no code with the library and reads
/// only the fields and images of the controls.
class Painter {
  public:
    explicit Painter(HWND window);
    ~Painter();
    Painter(const Painter&) = delete;
    Painter& operator=(const Painter&) = delete;

    void Line(COLORREF color, int x_a, int y_a, int x_b, int y_b, int width = 1);
    void Fill(COLORREF color, int x0, int x1, int y0, int y1);
    void Frame(COLORREF color, int x_a, int y_a, int x_b, int y_b);
    void Polygon_Of(COLORREF color, std::initializer_list<POINT> points);
    void Clip(const Tools& control);
    void Cadre(const Tools& control, bool rim, bool sunken, int width, int x0, int x1, int y0, int y1);
    void Body(const Tools& control, bool lit, const unsigned long* image, int inset, int x0, int x1, int y0,
              int y1);
    void Text(HFONT font, const char* text, unsigned long flags, const Box_Size& box, int border);
    /// A line from its top-left corner at (x, y + height of the font), with a stop every 4 characters.
    void Tabbed(HFONT font, COLORREF color, int x, int y, const char* text);
    void Arrow(int direction, int inset, int size, int x, int w, int y, int h);
    void Label(const Labels& label);
    void Box(const Boxs& box, bool hovered);
    void Button(const Buttons& button, bool hovered);

  private:
    struct Margins {
        int side = 0, edge = 0, rise = 0;
    };
    void Outline(const Tools& control);
    void Write(HFONT font, COLORREF color, const char* text, unsigned long flags, const Box_Size& box,
               const Margins& free);
    void Box_Look(const Boxs& box, bool lit);
    void Lamp(const Buttons& button);
    void Button_Caption(const Buttons& button, unsigned long flags);

    HWND window_;
    HDC context_;
};

}  // namespace galdren_test
