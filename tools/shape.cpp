#include "tools/shape.h"

#include <algorithm>
#include <cstdlib>
#include <limits>
#include <utility>

namespace galdren {

Edge::Edge(POINT from, POINT to) {
    if (from.y > to.y) std::swap(from, to);
    top = from.y;
    bottom = to.y;
    x = from.x;
    step = to.x < from.x ? -1 : 1;
    columns = std::abs(static_cast<int>(to.x - from.x));
    rows = bottom - top;
    columns_left = columns;
    error = columns > rows ? 2 * rows - columns : 2 * columns - rows;
}

Pixel_Run Edge::Next_Flat() {
    const int from = x;
    for (; columns_left > 0 && error <= 0; --columns_left) {
        x += step;
        error += 2 * rows;
    }
    const Pixel_Run run{std::min(from, x), std::max(from, x)};
    if (columns_left > 0) {
        x += step;
        error += 2 * (rows - columns);
        --columns_left;
    }
    return run;
}

bool Has_Single_Runs(std::span<const POINT> corners) {
    int turns = 0;
    int last = 0;
    int first = 0;
    for (std::size_t i = 0; i < corners.size(); ++i) {
        const LONG rise = corners[(i + 1) % corners.size()].y - corners[i].y;
        const int direction = (rise > 0) - (rise < 0);
        if (direction == 0) continue;
        if (last == 0) first = direction;
        if (last == -direction) ++turns;
        last = direction;
    }
    if (last == -first) ++turns;
    return turns == 2;
}

Polygon_Rows::Polygon_Rows(std::span<const POINT> corners)
    : count(std::min(corners.size(), Most_Corners)),
      top(std::numeric_limits<int>::max()),
      bottom(std::numeric_limits<int>::min()) {
    for (std::size_t i = 0; i < count; ++i) {
        edges[i] = Edge(corners[i], corners[(i + 1) % count]);
        top = std::min(top, edges[i].Top());
        bottom = std::max(bottom, edges[i].Bottom());
    }
    y = top;
}

Pixel_Run Polygon_Rows::Next() {
    Pixel_Run row{std::numeric_limits<int>::max(), std::numeric_limits<int>::min()};
    for (Edge* edge = edges; edge != edges + count; ++edge) {
        if (y < edge->Top() || y > edge->Bottom()) continue;
        const Pixel_Run run = edge->Next();
        row = {std::min(row.left, run.left), std::max(row.right, run.right)};
    }
    ++y;
    return row;
}

}  // namespace galdren
