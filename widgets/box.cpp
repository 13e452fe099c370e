#include "widgets/box.h"

#include "tools/base.h"
#include "tools/dimensions.h"
#include "tools/images.h"
#include "tools/sharing.h"

using namespace galdren;

namespace {

void Paint_Name(Canvas& canvas, const Boxs& box) {
    const bool placed = Has_Flag(box, FLAG_TEXT_MIDDLE | FLAG_TEXT_BOTTOM);
    const unsigned long flags = placed ? box.Flag : box.Flag | FLAG_TEXT_TOP;
    Paint_Caption(canvas, box.Font, box.Name, flags, Area_Of(box), box.Border);
}

void Paint_Look(Canvas& canvas, const Boxs& box, bool highlighted) {
    const Area area = Area_Of(box);
    if (Has_Flag(box, FLAG_INNER_FRAME)) {
        const Area inner = Inner_Frame_Of(box, area);
        Paint_Body(canvas, box, highlighted, Scaled(box, BORDER) + canvas.Line(),
                   {inner.left, inner.right + 1, inner.bottom + 1, inner.top + 1});
    } else {
        Paint_Body(canvas, box, highlighted, Frame_Width(box) + canvas.Line(), area);
    }
    Paint_Name(canvas, box);
}

void Paint_Frames(Canvas& canvas, const Boxs& box) {
    const bool raised = Has_Flag(box, FLAG_RAISED);
    const Area area = Area_Of(box);
    Paint_Frame(canvas, box.Color, box.Flag, !raised, Frame_Width(box), area);
    if (!Has_Flag(box, FLAG_INNER_FRAME)) return;
    Area inner = Inner_Frame_Of(box, area);
    ++(raised ? inner.left : inner.bottom);
    Paint_Frame(canvas, box.Color, 0, false, Frame_Width(box), inner);
}

/// Calls `act` with every array of shading that a box owns.
template <class Act>
void For_Owned(const Boxs& box, Act act) {
    for (const unsigned long* array : {box.Own_Graph_Normal, box.Own_Graph_Select})
        act(array);
}

}  // namespace

Boxs::Boxs() = default;

Boxs::Boxs(const Boxs& other) : Tools(other), Box_Fields(other) { For_Owned(*this, Share_Array); }

Boxs& Boxs::operator=(const Boxs& other) { return Reassign(*this, other); }

Boxs::~Boxs() { For_Owned(*this, Release_Array); }

void Boxs::Init(HWND window) {
    Forget_Withdrawn_Images(*this);
    if (!Begin_Init(*this, window, "Boxs::Init")) return;
    Hover = Hover_Unknown;
    Default_Grey(*this);
    Bind(*this, window);
    Renew_Font(*this);
    if (Has_Flag(*this, FLAG_STATIC)) {
        Note_Size(*this);
    } else {
        const Images images = Take_Images(*this);
        if (images.normal_needed) {
            Renew_Shading(*this, Own_Graph_Normal, Color);
            Cur_Graph_Normal = Own_Graph_Normal;
        }
        if (images.select_needed) {
            Renew_Shading(*this, Own_Graph_Select, Highlight_Color(*this));
            Cur_Graph_Select = Own_Graph_Select;
        }
    }
    Last_Color = Color.get();
}

void Boxs::Draw() {
    Check(*this, "Box::Draw");
    if (!Has_Size(*this)) return;
    Canvas canvas(*this, Reach_Of(*this));
    if (Has_Flag(*this, FLAG_OUTLINE)) {
        Paint_Outline(canvas, Area_Of(*this));
        Paint_Name(canvas, *this);
    }
    if (Has_Flag(*this, FLAG_NO_BODY)) return;
    Paint_Frames(canvas, *this);
    Paint_Name(canvas, *this);
    if (Has_Flag(*this, FLAG_STATIC)) return;
    Hover = Hover_Unknown;
    Select(EVENT_MOVE);
}

int Boxs::Select(int event) {
    Check(*this, "Box::Select");
    if (!Has_Size(*this)) return 0;
    return Select_By_Hover(*this, event, [this](bool highlighted) {
        Canvas canvas(*this, Around(*this));
        Paint_Look(canvas, *this, highlighted);
    });
}

int Boxs::Read() {
    Check(*this, "Box::Read");
    return 0;
}

void Boxs::Deselect() {
    if (State == 0 || !Has_Size(*this) || Never_Highlights(*this) || Hover != Hover_Highlighted) return;
    Canvas canvas(*this, Around(*this));
    Paint_Look(canvas, *this, false);
}

void Boxs::Adjust() {
    Check(*this, "Box::Adjust");
    if (!Has_Size(*this)) return;
    Hover = Hover_Unknown;
    Select(EVENT_MOVE);
}
