/// @file
/// Finds those of many rectangles that meet another without looking at each.
#pragma once

#include <windows.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace galdren {

/// Whether two rectangles have a pixel in common; right and bottom edges do not belong to them.
inline bool Meet(const RECT& a, const RECT& b) {
    return a.left < b.right && b.left < a.right && a.top < b.bottom && b.top < a.bottom;
}

/// A tree of boxes around rectangles that lie close together. To make it takes a sort; what a search takes
/// grows with what it finds.
class Place_Index {
  public:
    /// Takes rectangles, which have the numbers from 0 on, in place of those before.
    void Make(const std::vector<RECT>& rectangles);

    /// Calls `visit(number)` for rectangles that meet `area`, in no order, but high numbers tend to come
    /// first.
    /// @param least  lower numbers are left out; `visit` may raise it
    template <class Visit>
    void Search(const RECT& area, std::size_t& least, Visit visit) const {
        if (!levels.empty()) Search_Below(levels.size() - 1, 0, area, least, visit);
    }

  private:
    static constexpr std::size_t Fan = 8;  // boxes within a box

    struct Node {
        RECT box;            // around all below
        std::uint32_t last;  // highest number below
    };

    template <class Visit>
    void Search_Below(std::size_t level, std::size_t first, const RECT& area, std::size_t& least,
                      Visit& visit) const {
        const std::vector<Node>& nodes = levels[level];
        // In brackets, for applications of Visual C++ have a macro of that name.
        for (std::size_t i = (std::min)(first + Fan, nodes.size()); i-- > first;) {
            if (nodes[i].last < least || !Meet(nodes[i].box, area)) continue;
            if (level == 0) {
                visit(std::size_t{nodes[i].last});
            } else {
                Search_Below(level - 1, i * Fan, area, least, visit);
            }
        }
    }

    void Sort(const std::vector<RECT>& rectangles);
    static Node Around(const Node* first, const Node* end);

    std::vector<std::uint64_t> sorted;  // places and numbers
    std::vector<std::vector<Node>>
        levels;  // the rectangles themselves, then boxes around `Fan` of those before
};

}  // namespace galdren
