#include "tools/paint.h"

#include <windows.h>

#include "tools/globals.h"

namespace {

class Selected_Pen {
  public:
    Selected_Pen(HDC context, int width, COLORREF color)
        : dc(context), pen(CreatePen(PS_SOLID, width, color)), before(SelectObject(context, pen)) {}
    ~Selected_Pen() {
        SelectObject(dc, before);
        DeleteObject(pen);
    }
    Selected_Pen(const Selected_Pen&) = delete;
    Selected_Pen& operator=(const Selected_Pen&) = delete;

  private:
    HDC dc;
    HPEN pen;
    HGDIOBJ before;
};

COLORREF Paint_Color() { return Current_Color & 0xFFFFFF; }

}  // namespace

void Draw_Line(int x, int y, int width) {
    const Selected_Pen pen(Z_DC, width, Paint_Color());
    LineTo(Z_DC, x, y);
}

void Draw_Box(int left, int top, int right, int bottom) {
    const RECT box{left, top, right, bottom};
    SetDCBrushColor(Z_DC, Paint_Color());
    FillRect(Z_DC, &box, static_cast<HBRUSH>(GetStockObject(DC_BRUSH)));
}

void Draw_Frame(int x_a, int y_a, int x_b, int y_b) {
    const Selected_Pen pen(Z_DC, 1, Paint_Color());
    MoveToEx(Z_DC, x_a, y_a, nullptr);
    LineTo(Z_DC, x_a, y_b);
    LineTo(Z_DC, x_b, y_b);
    LineTo(Z_DC, x_b, y_a);
    LineTo(Z_DC, x_a, y_a);
}
