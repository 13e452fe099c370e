#include "tools/region.h"

#include <atomic>

#include "tools/canvas.h"
#include "tools/sharing.h"

namespace galdren {

namespace {

std::atomic<unsigned> Placements;

}  // namespace

void Renew_Region(Tools_Fields& control) {
    if (Is_Empty(control.Room)) ++Placements;  // a part moves with its owner, or within it
    const Area area = Area_Of(control);
    const bool own = control.Region && !Is_Shared(Thing::Region, control.Region);
    if (!own || !SetRectRgn(control.Region, area.left, area.bottom, area.right, area.top)) {
        Drop_Region(control);
        control.Region = CreateRectRgn(area.left, area.bottom, area.right, area.top);
    }
    control.Clip_Region = control.Region;
}

void Share_Region(HRGN region) {
    ++Placements;  // a copy stands where its source does, without an `Init`
    Share(Thing::Region, region);
}

void Drop_Region(Tools_Fields& control) {
    if (Let_Go(Thing::Region, control.Region)) DeleteObject(control.Region);
    control.Region = control.Clip_Region = nullptr;
}

}  // namespace galdren

unsigned Tools_Placements() { return galdren::Placements; }
