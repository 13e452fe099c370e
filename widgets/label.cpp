#include "widgets/label.h"

#include "tools/base.h"
#include "tools/sharing.h"

using namespace galdren;

Labels::Labels() = default;

Labels::Labels(const Labels& other) = default;

Labels& Labels::operator=(const Labels& other) { return Reassign(*this, other); }

Labels::~Labels() = default;

void Labels::Init(HWND window) {
    if (!Begin_Init(*this, window, "Labels::Init")) return;
    if (Color == Colors(0, 0, 0)) Color = Colors(255, 255, 255);
    Bind(*this, window);
    Remake_Font(*this);
}

void Labels::Draw() {
    Check(*this, "Labels::Draw");
    if (!Has_Size(*this) || !Name) return;
    Canvas canvas(*this, Around(*this));
    const unsigned long ink = Ink_On(canvas.Look(), canvas.Look().Window, Color.get());
    if (Has_Flag(*this, FLAG_VERTICAL)) {
        Paint_Stacked(canvas, Font, Name, Flag, Area_Of(*this), 0, 0, 0, ink);
    } else {
        Paint_Line(canvas, Font, Name, Flag & ~FLAG_TEXT_BOTTOM, Area_Of(*this), ink);
    }
}
