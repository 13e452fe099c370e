#include "widgets/range.h"

#include <algorithm>
#include <cmath>

#include "tools/dimensions.h"
#include "tools/window.h"

namespace galdren {

int Usual_Arrow(const Tools_Fields& bar) {
    return std::min(Bar_Thickness(bar), Bar_Length(bar) / 2 - CURSEUR);
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

void Size_Thumb(short& half, float visible, float total, int room) {
    if (room <= 0) return;
    const float part = std::fabs(visible);
    const float whole = std::fabs(total);
    const float half_room = static_cast<float>(room) * 0.5F;
    half = Low_16(part >= whole ? Truncate(half_room)
                                : std::max(int{CURSEUR}, Truncate(part / whole * half_room)));
}

std::optional<int> Pointer_Along(const Tools_Fields& bar) {
    const std::optional<POINT> pointer = Find_Pointer(bar.Window);
    if (!pointer) return std::nullopt;
    return static_cast<int>(Is_Vertical(bar) ? pointer->y - bar.Y : pointer->x - bar.X);
}

void Thumb::Paint_Face(Canvas& canvas) const {
    const auto [left, right, bottom, top] = area;
    canvas.Box({left + 1, right, bottom, vertical ? top : top - 1}, canvas.Look().Thumb);
    if (vertical) {
        canvas.Row(left + 1, right - 1, bottom + half - 1, canvas.Look().Thumb_Light);
    } else {
        canvas.Column(left + half, bottom + 1, top, canvas.Look().Thumb_Light);
    }
}

void Thumb::Paint_Light(Canvas& canvas, int end) const {
    canvas.Column(area.left, area.bottom, area.top, canvas.Look().Thumb_Light);
    canvas.Row(area.left, end, area.top, canvas.Look().Thumb_Light);
}

void Thumb::Paint_Dark(Canvas& canvas) const {
    canvas.Row(area.left + 1, area.right, area.bottom, canvas.Look().Rim);
    canvas.Column(area.right, area.bottom, area.top, canvas.Look().Rim);
}

void Thumb::Paint_Shadow(Canvas& canvas, int top) const {
    const auto [left, right, bottom, end] = area;
    canvas.Row(left + 2, right - 1, bottom + 1, canvas.Look().Rim);
    canvas.Column(right - 1, bottom + 1, end - 1, canvas.Look().Rim);
    if (vertical) {
        canvas.Row(left + 1, right, bottom + half, canvas.Look().Rim);
    } else {
        canvas.Column(left + half - 1, bottom + 1, top, canvas.Look().Rim);
    }
}

}  // namespace galdren
