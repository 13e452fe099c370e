#include "host/place_index.h"

#include <numeric>

namespace galdren {

namespace {

/// The bits of a 16-bit number with a gap after each.
std::uint64_t Spread(std::uint64_t bits) {
    bits = (bits | bits << 8) & 0x00FF00FF;
    bits = (bits | bits << 4) & 0x0F0F0F0F;
    bits = (bits | bits << 2) & 0x33333333;
    return (bits | bits << 1) & 0x55555555;
}

std::uint64_t Middle(LONG from, LONG to) {
    constexpr LONG Farthest = 0x8000;  // where controls can be
    return static_cast<std::uint64_t>(std::clamp(from / 2 + to / 2, -Farthest, Farthest - 1) + Farthest);
}

/// Numbers the places of the plane so that those close together have numbers close together.
std::uint64_t Curve(const RECT& place) {
    return Spread(Middle(place.left, place.right)) | Spread(Middle(place.top, place.bottom)) << 1;
}

}  // namespace

void Place_Index::Make(const std::vector<RECT>& rectangles) {
    Sort(rectangles);
    levels.resize(1);
    levels[0].resize(sorted.size());
    std::transform(sorted.begin(), sorted.end(), levels[0].begin(), [&](std::uint64_t place) {
        const auto number = static_cast<std::uint32_t>(place);
        return Node{rectangles[number], number};
    });
    while (levels.back().size() > Fan) {
        const std::vector<Node>& below = levels.back();
        std::vector<Node> boxes;
        boxes.reserve(below.size() / Fan + 1);
        for (std::size_t i = 0; i < below.size(); i += Fan)
            boxes.push_back(Around(&below[i], below.data() + std::min(i + Fan, below.size())));
        levels.push_back(std::move(boxes));
    }
}

/// By place, beginning with the order of last time: few are elsewhere now, and what is nearly sorted is
/// sorted soon.
void Place_Index::Sort(const std::vector<RECT>& rectangles) {
    if (sorted.size() != rectangles.size()) {
        sorted.resize(rectangles.size());
        std::iota(sorted.begin(), sorted.end(), 0);
    }
    for (std::uint64_t& place : sorted) {
        const auto number = static_cast<std::uint32_t>(place);
        place = Curve(rectangles[number]) << 32 | number;
    }
    std::sort(sorted.begin(), sorted.end());
}

/// Also what is turned inside out meets an area only if the box does.
Place_Index::Node Place_Index::Around(const Node* first, const Node* end) {
    Node all = *first;
    for (const Node* node = first + 1; node != end; ++node) {
        all.box.left = std::min(all.box.left, node->box.left);
        all.box.top = std::min(all.box.top, node->box.top);
        all.box.right = std::max(all.box.right, node->box.right);
        all.box.bottom = std::max(all.box.bottom, node->box.bottom);
        all.last = std::max(all.last, node->last);
    }
    return all;
}

}  // namespace galdren
