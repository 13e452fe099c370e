#include "tools/base.h"

#include <atomic>
#include <tuple>

#include "tools/context.h"
#include "tools/dimensions.h"
#include "tools/font.h"
#include "tools/font_cache.h"
#include "tools/placements.h"
#include "tools/region.h"
#include "tools/sharing.h"
#include "util/error.h"
#include "util/program.h"

namespace galdren {

namespace {

struct Corners {
    int left, bottom, right, top;
    bool operator<(const Corners& other) const {
        return std::tie(left, bottom, right, top) <
               std::tie(other.left, other.bottom, other.right, other.top);
    }
    bool operator==(const Corners& other) const { return !(*this < other) && !(other < *this); }
};

using Region_Pool = Pool<Thing::Region, Corners, HRGN>;

Region_Pool& Regions() {
    static Immortal<Region_Pool> regions;
    return *regions;
}

std::atomic<unsigned> Placements{0};

void Renew_Region(Tools& control) {
    const Area area = Area_Of(control);
    const Corners wanted{area.left, area.bottom, area.right, area.top};
    const Corners* present = Regions().Key_Of(control.Region);
    if (!present || !(*present == wanted)) {
        Release_Region(control.Region);
        control.Region = Regions().Acquire(
            wanted, [&] { return CreateRectRgn(wanted.left, wanted.bottom, wanted.right, wanted.top); });
    }
    control.Clip_Region = control.Region;
}

}  // namespace

const char* Name_Of(const Tools& control) { return control.Name ? control.Name : "(null)"; }

void Share_Region(HRGN region) {
    Share(Thing::Region, region);
    ++Placements;  // a copy has its rectangle without `Bind`
}

void Release_Region(HRGN region) {
    if (Regions().Release(region)) DeleteObject(region);
}

int Frame_Width(const Tools& control) { return control.Border ? control.Border : BORDER; }

void Check(Tools& control, const char* label) {
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

bool Begin_Init(Tools& control, HWND& window, const char* label) {
    control.State |= STATE_READY;
    if (!Has_Size(control)) return false;
    if (!window) window = control.Window;
    if (window) return true;
    Error_Fct(hwnd, ERROR_LEVEL_WARNING, "Tools: WARNING ! ");
    Error_Fct(hwnd, ERROR_LEVEL_WARNING, "   you must provide a window");
    Error_Fct(hwnd, ERROR_LEVEL_WARNING, "   type: %s   name: %s", label, Name_Of(control));
    return false;
}

void Default_Grey(Tools& control) {
    if (control.Color == Colors(0, 0, 0)) control.Color = Colors(170, 170, 170);
}

void Bind(Tools& control, HWND window) {
    control.Window = window;
    Renew_Region(control);
    const Area area = Area_Of(control);
    const RECT before = control.Rect;
    control.Rect = {area.left, area.bottom, area.right + 1, area.top + 1};
    if (!EqualRect(&control.Rect, &before)) ++Placements;
}

void Renew_Font(Tools& control) {
    if (control.Font && control.Font_Size == control.Font_Size_Last) return;
    control.Font_Size_Last = control.Font_Size;
    Remake_Font(control);
}

void Remake_Font(Tools& control) {
    Z_Delete_Font(control.Window, control.Font);
    control.Font = Acquire_Font(control.Window, control.Font_Name, control.Font_Weight, control.Font_Style,
                                control.Font_Size);
}

bool Hover_Changes(const Tools& control, short& hover, bool inside) {
    const short wanted = inside ? Hover_Highlighted : Hover_Normal;
    if (Never_Highlights(control) || hover == wanted) return false;
    hover = wanted;
    return true;
}

void Note_Size(Tools& control) {
    control.Last_Width = control.Width;
    control.Last_Height = control.Height;
}

Images Take_Images(Tools& control) {
    const bool resized = control.Width != control.Last_Width || control.Height != control.Last_Height;
    const bool recolored = control.Color.get() != control.Last_Color;
    const bool generate = !Has_Flag(control, FLAG_OWN_IMAGES);

    Images images{};
    images.normal_taken =
        (control.Graph_Normal && resized) || control.Graph_Normal != control.Last_Graph_Normal;
    images.select_taken =
        (control.Graph_Select && resized) || control.Graph_Select != control.Last_Graph_Select;
    if (images.normal_taken) control.Cur_Graph_Normal = control.Graph_Normal;
    if (images.select_taken) control.Cur_Graph_Select = control.Graph_Select;
    // The highlight colour is fixed, so a new colour of the control leaves its shading alone.
    images.normal_needed = generate && !control.Graph_Normal && (resized || recolored || images.normal_taken);
    images.select_needed = generate && !control.Graph_Select && (resized || images.select_taken);

    Note_Size(control);
    control.Last_Graph_Normal = control.Graph_Normal;
    control.Last_Graph_Select = control.Graph_Select;
    return images;
}

bool Pointer_Inside(const Tools& control) {
    POINT position{};
    return Find_Pointer(control.Window, position) && PtInRect(&control.Rect, position);
}

}  // namespace galdren

unsigned Tools_Placements() { return galdren::Placements; }
