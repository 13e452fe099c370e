#include "tools/region.h"

#include "tools/canvas.h"
#include "tools/sharing.h"

namespace galdren {

void Renew_Region(Tools_Fields& control) {
    const Area area = Area_Of(control);
    const bool own = control.Region && !Is_Shared(Thing::Region, control.Region);
    if (!own || !SetRectRgn(control.Region, area.left, area.bottom, area.right, area.top)) {
        Drop_Region(control);
        control.Region = CreateRectRgn(area.left, area.bottom, area.right, area.top);
    }
    control.Clip_Region = control.Region;
}

void Share_Region(HRGN region) { Share(Thing::Region, region); }

void Drop_Region(Tools_Fields& control) {
    if (Let_Go(Thing::Region, control.Region)) DeleteObject(control.Region);
    control.Region = control.Clip_Region = nullptr;
}

}  // namespace galdren
