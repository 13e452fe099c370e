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
    // A level line has all of its columns in one row.
    if (rows == 0) x += step * std::exchange(columns_left, 0);
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

void Edge::Widen(std::span<Pixel_Run> runs) {
    const auto widen = [](Pixel_Run& run, const Pixel_Run& by) {
        run = {std::min(run.left, by.left), std::max(run.right, by.right)};
    };
    Edge here = *this;  // stays in registers
    if (columns > rows) {
        for (Pixel_Run& run : runs)
            widen(run, here.Next_Flat());
    } else {
        for (Pixel_Run& run : runs)
            widen(run, here.Next_Steep());
    }
    *this = here;
}

bool Has_Single_Runs(std::span<const POINT> corners) {
    int turns = 0;
    int last = 0;
    int first = 0;
    POINT from = corners.back();
    for (const POINT& to : corners) {
        const int direction = (to.y > from.y) - (to.y < from.y);
        from = to;
        if (direction == 0) continue;
        if (last == 0) first = direction;
        if (last == -direction) ++turns;
        last = direction;
    }
    if (last == -first) ++turns;
    return turns == 2;
}

Polygon_Rows::Polygon_Rows(std::span<const POINT> corners)
    : count(std::min(corners.size(), Most_Corners)), top(corners[0].y), bottom(top) {
    POINT from = corners[count - 1];
    for (std::size_t i = 0; i < count; ++i) {
        edges[i] = Edge(from, corners[i]);
        from = corners[i];
        top = std::min(top, edges[i].Top());
        bottom = std::max(bottom, edges[i].Bottom());
    }
    y = top;
}

void Polygon_Rows::Walk() {
    const int end = std::min(y + Rows_At_Once, bottom + 1);
    std::fill(runs, runs + (end - y),
              Pixel_Run{std::numeric_limits<int>::max(), std::numeric_limits<int>::min()});
    for (Edge* edge = edges; edge != edges + count; ++edge) {
        const int from = std::max(y, edge->Top());
        const int to = std::min(end, edge->Bottom() + 1);
        if (from < to) edge->Widen({runs + (from - y), runs + (to - y)});
    }
    y = end;
    next = 0;
}

}  // namespace galdren
