#include "widgets/range.h"

#include <algorithm>
#include <cmath>

#include "tools/dimensions.h"
#include "tools/window.h"

namespace galdren {

float Clamp_Value(float value, float start, float end, bool reversed) {
    const float low = reversed ? end : start;
    const float high = reversed ? start : end;
    if (low >= value) return low;
    return value >= high ? high : value;
}

float Fraction(float value, float start, float end) {
    const float fraction = (value - start) / (end - start);
    return std::isfinite(fraction) ? fraction : 0.0F;
}

int Round_Offset(float offset) {
    constexpr int Farthest = 32767;
    return std::clamp(Truncate(double{offset} + 0.5), -Farthest, Farthest);
}

short Thumb_For(float visible, float total, int room) {
    const float part = std::fabs(visible);
    const float whole = std::fabs(total);
    const float half_room = static_cast<float>(room) * 0.5F;
    if (part >= whole) return Low_16(Truncate(half_room));
    return Low_16(std::max(int{CURSEUR}, Truncate(part / whole * half_room)));
}

bool Pointer_Along(const Tools_Fields& bar, int& distance) {
    POINT position{};
    if (!Find_Pointer(bar.Window, position)) return false;
    distance = Is_Vertical(bar) ? position.y - bar.Y : position.x - bar.X;
    return true;
}

void Paint_Thumb_Light(Canvas& canvas, const Area& thumb, int top_end) {
    canvas.Column(thumb.left, thumb.bottom, thumb.top, Thumb_Light);
    canvas.Row(thumb.left, top_end, thumb.top, Thumb_Light);
}

void Paint_Thumb_Dark(Canvas& canvas, const Area& thumb) {
    canvas.Row(thumb.left + 1, thumb.right, thumb.bottom, Black);
    canvas.Column(thumb.right, thumb.bottom, thumb.top, Black);
}

void Paint_Thumb_Shadow(Canvas& canvas, const Area& thumb) {
    canvas.Row(thumb.left + 2, thumb.right - 1, thumb.bottom + 1, Black);
    canvas.Column(thumb.right - 1, thumb.bottom + 1, thumb.top - 1, Black);
}

}  // namespace galdren
