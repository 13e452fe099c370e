#include "widgets/range.h"

#include <algorithm>
#include <cmath>

#include "tools/dimensions.h"
#include "tools/window.h"

namespace galdren {

int Usual_Arrow(const Tools_Fields& bar) {
    return std::min(Bar_Thickness(bar), Bar_Length(bar) / 2 - Scaled(bar, CURSEUR));
}

int Arrow_Under_Pointer(HWND window, const Area& area, bool vertical, int size) {
    const std::optional<POINT> pointer = Find_Pointer(window);
    if (!pointer) return 0;
    const int distance = vertical ? pointer->y - area.bottom : pointer->x - area.left;
    const int length = vertical ? area.top - area.bottom : area.right - area.left;
    if (distance < size) return -1;
    return distance > length - size ? 1 : 0;
}

void Paint_Arrows(Canvas& canvas, bool vertical, int inset, int size, const Area& area) {
    Paint_Arrow(canvas, vertical ? ARROW_DOWN : ARROW_LEFT, inset, size, area);
    Paint_Arrow(canvas, vertical ? ARROW_UP : ARROW_RIGHT, inset, size, area);
}

float Fraction(float value, float start, float end) {
    const float fraction = (value - start) / (end - start);
    return std::isfinite(fraction) ? fraction : 0.0F;
}

int Round_Offset(float offset) {
    constexpr int Farthest = 32767;
    return std::clamp(Truncate(double{offset} + 0.5), -Farthest, Farthest);
}

short Thumb_For(const Tools_Fields& bar, short half, float visible, float total, int room) {
    if (room <= 0) return half;
    const float part = std::fabs(visible);
    const float whole = std::fabs(total);
    const float half_room = static_cast<float>(room) * 0.5F;
    if (part >= whole) return Low_16(Truncate(half_room));
    return Low_16(std::max(Scaled(bar, CURSEUR), Truncate(part / whole * half_room)));
}

std::optional<int> Pointer_Along(const Tools_Fields& bar) {
    const std::optional<POINT> pointer = Find_Pointer(bar.Window);
    if (!pointer) return std::nullopt;
    return static_cast<int>(Is_Vertical(bar) ? pointer->y - bar.Y : pointer->x - bar.X);
}

void Thumb::Paint_Face(Canvas& canvas) const {
    const auto [left, right, bottom, top] = area;
    const unsigned long light = canvas.Look().Thumb_Light;
    canvas.Box({left + 1, right, bottom, vertical ? top : top - 1}, canvas.Look().Thumb);
    if (vertical) {
        canvas.Row(left + 1, right - 1, bottom + half - 1, light, -canvas.Line());
    } else {
        canvas.Column(left + half, bottom + 1, top, light, canvas.Line());
    }
}

void Thumb::Paint_Light(Canvas& canvas, int end) const {
    const unsigned long light = canvas.Look().Thumb_Light;
    canvas.Column(area.left, area.bottom, area.top, light, canvas.Line());
    canvas.Row(area.left, end, area.top, light, -canvas.Line());
}

void Thumb::Paint_Dark(Canvas& canvas) const {
    const int line = canvas.Line();
    canvas.Row(area.left + line, area.right, area.bottom, canvas.Look().Rim, line);
    canvas.Column(area.right, area.bottom, area.top, canvas.Look().Rim, -line);
}

void Thumb::Paint_Shadow(Canvas& canvas, int top) const {
    const auto [left, right, bottom, end] = area;
    const unsigned long dark = canvas.Look().Rim;
    const int line = canvas.Line();
    canvas.Row(left + 2 * line, right - line, bottom + line, dark, line);
    canvas.Column(right - line, bottom + line, end - line, dark, -line);
    if (vertical) {
        canvas.Row(left + line, right, bottom + half, dark, line);
    } else {
        canvas.Column(left + half - 1, bottom + line, top, dark, -line);
    }
}

}  // namespace galdren
