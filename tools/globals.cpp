#include "tools/globals.h"

CRITICAL_SECTION Critical;
unsigned char Critical_Flag = 0;
HDC Z_DC = nullptr;
HWND Z_Window = nullptr;
unsigned long Current_Color = 0;
