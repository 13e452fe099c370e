// Makes the items of layouts.
#include "host/layout.h"

#include <algorithm>
#include <utility>

namespace Layout {

namespace {

Item Made_Of(Item::Kind kind, std::vector<Item> items) {
    Item made;
    made.kind = kind;
    made.items = std::move(items);
    return made;
}

}  // namespace

Item Row(int gap, std::vector<Item> items) {
    Item row = Made_Of(Item::Kind::Row, std::move(items));
    row.gap = gap;
    return row;
}

Item Column(int gap, std::vector<Item> items) {
    Item column = Made_Of(Item::Kind::Column, std::move(items));
    column.gap = gap;
    return column;
}

Item Stretch(Item item, int weight) {
    item.weight = weight;
    return item;
}

Item Fixed(Item item, int length) {
    item.fixed = std::max(length, 0);
    return item;
}

Item Space(int weight) { return Stretch(Item(), weight); }

Item Least(Item item, int width, int height) {
    item.least = {width, height};
    return item;
}

Item If_Shown(Item item) {
    item.if_shown = true;
    return item;
}

Item Stack(std::vector<Item> items) { return Made_Of(Item::Kind::Stack, std::move(items)); }

Item Margin(int width, Item item) {
    Item margin = Made_Of(Item::Kind::Margin, {std::move(item)});
    margin.gap = width;
    return margin;
}

Item Anchors(int width, int height, std::vector<Item> items) {
    Item anchors = Made_Of(Item::Kind::Anchors, std::move(items));
    anchors.design = {width, height};
    return anchors;
}

Item Anchor(Item item, const Place& place, unsigned edges) {
    item.place = place;
    item.edges = edges;
    return item;
}

Place From_Top(int x, int y, int width, int height) { return {x, y, width, height, true}; }

Place From_Bottom(int x, int y, int width, int height) { return {x, y, width, height, false}; }

}  // namespace Layout
