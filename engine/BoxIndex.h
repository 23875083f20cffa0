#pragma once

#include "engine/RECT2.h"

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

/// Finds which of many boxes touch a given one, in a time that grows with the logarithm of their number.
/// A flat tree: boxes that lie together share a leaf, every node above holds the boxes around its children, and one
/// pass over a node compares all of them at once.
class BoxIndex {
public:
    BoxIndex() = default;
    /// Left <= right, top <= bottom, no number that is not finite.
    explicit BoxIndex(std::span<const RECT2> boxes);

    /// Calls `visit` with the place of every box that touches `area` (edges included) in the list, in no particular
    /// order.
    template <class Visit>
    void ForEachTouching(const RECT2& area, const Visit& visit) const {
        if (!nodes.empty()) Search(nodes.size() - 1, area, visit);
    }

private:
    static constexpr std::size_t nodeSize = 8;

    /// The boxes of up to eight children, side by side; those not used touch nothing.
    struct Node {
        Node();
        void Set(std::size_t slot, const RECT2& box);
        RECT2 Bounds() const;
        /// One bit for each child.
        unsigned Touching(const RECT2& area) const {
            unsigned bits = 0;
            for (unsigned slot = 0; slot < nodeSize; ++slot) {
                const bool touches = (left[slot] <= area.right) & (right[slot] >= area.left) &
                                     (top[slot] <= area.bottom) & (bottom[slot] >= area.top);
                bits |= touches ? 1U << slot : 0U;
            }
            return bits;
        }

        std::array<double, nodeSize> left;
        std::array<double, nodeSize> top;
        std::array<double, nodeSize> right;
        std::array<double, nodeSize> bottom;
        std::size_t firstChild = 0; ///< in `nodes`, or in `places` for a leaf
    };

    template <class Visit>
    void Search(std::size_t node, const RECT2& area, const Visit& visit) const {
        for (unsigned bits = nodes[node].Touching(area); bits != 0; bits &= bits - 1) {
            const std::size_t child = nodes[node].firstChild + static_cast<std::size_t>(std::countr_zero(bits));
            if (node < leafCount)
                visit(std::size_t{places[child]});
            else
                Search(child, area, visit);
        }
    }

    std::vector<Node> nodes; ///< leaves first, the root last
    std::size_t leafCount = 0;
    std::vector<std::uint32_t> places; ///< of the leaves' boxes, in the list
};
