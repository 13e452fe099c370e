#include "tools/cursor.h"

#include "util/error.h"
#include "util/program.h"

unsigned char Wait_Count = 0;
unsigned char Cursor_Shape = 0;
HCURSOR Cursor_Saved = nullptr;
HCURSOR Cursor_Saved_Wait = nullptr;

namespace {

enum Shape : unsigned char {
    Shape_None = 0,
    Shape_Own = 1,
    Shape_Drag = 3,
    Shape_Cross = 4,
    Shape_Arrow = 5
};

HCURSOR Wait_Cursor() { return LoadCursorA(nullptr, IDC_WAIT); }

void Set_Shape(Shape shape, HCURSOR cursor) {
    if (Wait_Count != 0) {
        SetCursor(Wait_Cursor());
        return;
    }
    Cursor_Saved = SetCursor(cursor);
    Cursor_Shape = shape;
}

}  // namespace

void Set_Curs(HWND, void* cursor) { Set_Shape(Shape_Own, static_cast<HCURSOR>(cursor)); }

void Set_Curs_Drag(HWND) { Set_Shape(Shape_Drag, LoadCursorA(nullptr, IDC_ARROW)); }

void Set_Curs_Cross(HWND) { Set_Shape(Shape_Cross, LoadCursorA(nullptr, IDC_CROSS)); }

void Set_Curs_Arrow(HWND) { Set_Shape(Shape_Arrow, LoadCursorA(nullptr, IDC_ARROW)); }

void Reset_Curs(HWND) {
    if (Cursor_Saved && Cursor_Shape != Shape_None) {
        SetCursor(Cursor_Saved);
        Cursor_Shape = Shape_None;
    } else if (Wait_Count != 0) {
        if (Cursor_Saved_Wait) SetCursor(Cursor_Saved_Wait);
        Wait_Count = 0;
    }
}

void Set_Curs_Wait(HWND window) {
    if (Wait_Count != 0) {
        SetCursor(Wait_Cursor());
        ++Wait_Count;
        return;
    }
    if (Cursor_Shape != Shape_None) Reset_Curs(window);
    Cursor_Saved_Wait = SetCursor(Wait_Cursor());
    ++Wait_Count;
}

void Reset_Curs_Wait(HWND) {
    if (Wait_Count != 0) --Wait_Count;
    if (Wait_Count == 0 && Cursor_Saved_Wait) SetCursor(Cursor_Saved_Wait);
}

void Set_Wait_Flag() {
    Error_Fct(hwnd, ERROR_LEVEL_WARNING, "Set_Wait_Flag Wait=%d Shape=%d", Wait_Count, Cursor_Shape);
    ++Wait_Count;
}
