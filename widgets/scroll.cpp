#include "widgets/scroll.h"

#include <algorithm>

#include "tools/input.h"
#include "widgets/items.h"

namespace galdren {

void Set_Bar(Sliders& bar, const Tools& owner, const Area& place, unsigned long flag,
             const Bar_Range& range) {
    Set_Place(bar, place);
    Copy_Surroundings(bar, owner);
    bar.Flag = flag;
    bar.Border = 1;
    bar.Color = owner.Color;
    bar.Start_Val = range.start;
    bar.End_Val = range.end;
    bar.Step = range.step;
}

void Size_Thumb(Sliders& bar, int visible, int total) {
    bar.Larg_Adjust(static_cast<float>(visible), static_cast<float>(total));
}

void Follow_Pointer(Sliders& bar) {
    bar.Val = bar.Read();
    bar.Adjust();
}

bool Any_Button_Held() { return getbutton(VK_LBUTTON) || getbutton(VK_MBUTTON) || getbutton(VK_RBUTTON); }

int Pixels_Scrolled(const Sliders& bar) {
    constexpr int Farthest = 1 << 29;  // twice that has room in the arithmetic of its owners
    return std::clamp(Truncate(double{bar.Val}), -Farthest, Farthest);
}

}  // namespace galdren
