#include "tools/base.h"

#include <algorithm>
#include <atomic>
#include <cstdlib>

#include "tools/dimensions.h"
#include "tools/font_cache.h"
#include "tools/sharing.h"
#include "tools/view.h"
#include "util/error.h"
#include "util/program.h"

namespace galdren {

namespace {

std::atomic<unsigned> Placements;

RECT Hit_Rectangle(const Tools_Fields& control) {
    const Area area = Area_Of(control);
    return {area.left, area.bottom, area.right + 1, area.top + 1};
}

void Renew_Region(Tools_Fields& control) {
    if (Is_Empty(control.Room)) ++Placements;  // a part moves with its owner, or within it
    const Area area = Area_Of(control);
    const bool own = control.Region && !Is_Shared(Thing::Region, control.Region);
    if (!own || !SetRectRgn(control.Region, area.left, area.bottom, area.right, area.top)) {
        Drop_Region(control);
        control.Region = CreateRectRgn(area.left, area.bottom, area.right, area.top);
    }
}

}  // namespace

const char* Name_Of(const Tools_Fields& control) { return control.Name ? control.Name : "(null)"; }

int Frame_Width(const Tools_Fields& control) {
    return control.Border ? control.Border : Scaled(control, BORDER);
}

int Frame_Thickness(const Tools_Fields& control) { return std::abs(Frame_Width(control)); }

Reach Around(const Tools_Fields& control) {
    const int overhang = Scaled(control, 3);     // a tab joins with the page beside and below it
    const int inner_frame = Scaled(control, 8);  // where that of a box begins, at most
    const int frames = 2 * (Frame_Thickness(control) + inner_frame);
    const int across = overhang + std::max(frames - control.Width, 0);
    const int upward = overhang + std::max(frames - control.Height, 0);
    const Area area = Area_Of(control);
    const Area around{area.left - across, area.right + across, area.bottom - upward, area.top + upward};
    if (!control.Name) return {around};
    return Caption_Reach(control, control.Font, control.Name, control.Flag, around, frames);
}

void Check(Tools_Fields& control, const char* label) {
    if (control.State & (STATE_READY | STATE_WARNED)) return;
    Error_Fct(hwnd, ERROR_LEVEL_WARNING, "Tools: WARNING ! ");
    if (control.State == 0) {
        Error_Fct(hwnd, ERROR_LEVEL_WARNING, "   you must call *_Init() first");
    } else {
        Error_Fct(hwnd, ERROR_LEVEL_WARNING, "   bad data in device's structure");
    }
    Error_Fct(hwnd, ERROR_LEVEL_WARNING, "   type: %s   name: %s\n", label, Name_Of(control));
    control.State = STATE_WARNED;
}

void Release_Owned_Name(Tools_Fields& control) {
    if (control.Name == control.Owned_Name) control.Name = nullptr;
    Release_Array(control.Owned_Name);
    control.Owned_Name = nullptr;
    control.State &= static_cast<unsigned char>(~STATE_OWNS_NAME);
}

void Release_Name(Tools_Fields& control) {
    Release_Owned_Name(control);
    control.Name = nullptr;
}

bool Begin_Init(Tools_Fields& control, HWND& window, const char* label) {
    control.State |= STATE_READY;
    if (Is_Empty(control.Room)) Expect_Other_Control();
    if (!Has_Size(control)) return false;
    if (!window) window = control.Window;
    if (window) return true;
    Error_Fct(hwnd, ERROR_LEVEL_WARNING, "Tools: WARNING ! ");
    Error_Fct(hwnd, ERROR_LEVEL_WARNING, "   you must provide a window");
    Error_Fct(hwnd, ERROR_LEVEL_WARNING, "   type: %s   name: %s", label, Name_Of(control));
    return false;
}

void Default_Grey(Tools_Fields& control) {
    if (control.Color == Colors(0, 0, 0)) control.Color = Colors(170, 170, 170);
}

void Share_Region(HRGN region) {
    ++Placements;  // a copy stands where its source does, without an `Init`
    Share(Thing::Region, region);
}

void Drop_Region(Tools_Fields& control) {
    if (Let_Go(Thing::Region, control.Region)) DeleteObject(control.Region);
    control.Region = control.Clip_Region = nullptr;
}

void Bind(Tools_Fields& control, HWND window) {
    control.Window = window;
    const RECT rect = Hit_Rectangle(control);
    if (!control.Region || !EqualRect(&rect, &control.Rect)) Renew_Region(control);
    control.Clip_Region = control.Region;
    control.Rect = rect;
}

void Bind_Without_Region(Tools_Fields& control, HWND window) {
    control.Window = window;
    control.Rect = Hit_Rectangle(control);
    Drop_Region(control);
}

void Renew_Font(Tools_Fields& control) {
    if (control.Font && Font_Points(control) == control.Font_Size_Last) return;
    control.Font_Size_Last = Font_Points(control);
    Remake_Font(control);
}

void Remake_Font(Tools_Fields& control) {
    Release_Font(control.Font);
    control.Font = Acquire_Font(control.Window, control.Font_Name, control.Font_Weight, control.Font_Style,
                                Font_Points(control));
}

bool Hover_Changes(const Tools_Fields& control, short& hover, bool inside) {
    const short wanted = inside ? Hover_Highlighted : Hover_Normal;
    if (Never_Highlights(control) || hover == wanted) return false;
    hover = wanted;
    return true;
}

void Note_Size(Tools_Fields& control) {
    control.Last_Width = control.Width;
    control.Last_Height = control.Height;
    control.Last_Look = control.Look;
    control.Last_Scale = control.Scale;
}

std::optional<POINT> Pointer_On(const Tools_Fields& control) {
    const std::optional<POINT> pointer = Pointer_In_Paint(control.Window);
    return pointer && PtInRect(&control.Rect, *pointer) ? pointer : std::nullopt;
}

}  // namespace galdren

unsigned Tools_Placements() { return galdren::Placements; }
