#include "tools/area.h"

#include <algorithm>

namespace galdren {

Area Common(const Area& a, const Area& b) {
    return {std::max(a.left, b.left), std::min(a.right, b.right), std::max(a.bottom, b.bottom),
            std::min(a.top, b.top)};
}

Area Upright(const Area& area) {
    Area box = area;
    if (box.left > box.right) box = {box.right + 1, box.left + 1, box.bottom, box.top};
    if (box.bottom > box.top) box = {box.left, box.right, box.top - 1, box.bottom - 1};
    return box;
}

RECT Device_Of(const Area& area, LONG client_height) {
    return {area.left, client_height - 1 - area.top, area.right + 1, client_height - area.bottom};
}

Area Area_Of(const RECT& rect) {
    return {static_cast<int>(rect.left), static_cast<int>(rect.right) - 1, static_cast<int>(rect.top),
            static_cast<int>(rect.bottom) - 1};
}

int Offset(Place place, int room, int length) {
    switch (place) {
        case Place::Middle:
            return room / 2 - length / 2;
        case Place::End:
            return room - length;
        default:
            return 0;
    }
}

}  // namespace galdren
