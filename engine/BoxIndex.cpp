#include "engine/BoxIndex.h"

#include <algorithm>
#include <limits>
#include <numeric>

namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr RECT2 nothing{infinity, infinity, -infinity, -infinity};

RECT2 Around(const RECT2& a, const RECT2& b) {
    return {std::min(a.left, b.left), std::min(a.top, b.top), std::max(a.right, b.right), std::max(a.bottom, b.bottom)};
}

/// Brings boxes that lie together together: splits the list at its middle along the longer side of what it covers, and
/// again each half, until a part fills one leaf.
void SortByPlace(std::span<std::uint32_t> places, std::span<const RECT2> boxes, std::size_t leafSize) {
    if (places.size() <= leafSize) return;
    RECT2 centres = nothing; // twice the centres: the order is the same
    for (const std::uint32_t place : places) {
        const RECT2& box = boxes[place];
        const double x = box.left + box.right;
        const double y = box.top + box.bottom;
        centres = Around(centres, {x, y, x, y});
    }
    const bool isWide = centres.right - centres.left > centres.bottom - centres.top;
    const auto centre = [&](std::uint32_t place) {
        return isWide ? boxes[place].left + boxes[place].right : boxes[place].top + boxes[place].bottom;
    };
    const std::size_t leaves = (places.size() + leafSize - 1) / leafSize;
    const std::size_t middle = leaves / 2 * leafSize; // whole leaves on the left
    std::nth_element(places.begin(), places.begin() + static_cast<std::ptrdiff_t>(middle), places.end(),
                     [&](std::uint32_t a, std::uint32_t b) { return centre(a) < centre(b); });
    SortByPlace(places.first(middle), boxes, leafSize);
    SortByPlace(places.subspan(middle), boxes, leafSize);
}

} // namespace

BoxIndex::BoxIndex(std::span<const RECT2> boxes) : places(boxes.size()) {
    std::iota(places.begin(), places.end(), 0U);
    SortByPlace(places, boxes, nodeSize);

    for (std::size_t i = 0; i < places.size(); ++i) {
        if (i % nodeSize == 0) nodes.emplace_back().firstChild = i;
        nodes.back().Set(i % nodeSize, boxes[places[i]]);
    }
    leafCount = nodes.size();

    std::size_t levelBegin = 0;
    for (std::size_t levelEnd = nodes.size(); levelEnd - levelBegin > 1; levelEnd = nodes.size()) {
        for (std::size_t child = levelBegin; child < levelEnd; ++child) {
            const std::size_t slot = (child - levelBegin) % nodeSize;
            if (slot == 0) nodes.emplace_back().firstChild = child;
            nodes.back().Set(slot, nodes[child].Bounds());
        }
        levelBegin = levelEnd;
    }
}

BoxIndex::Node::Node() {
    for (std::size_t slot = 0; slot < nodeSize; ++slot) Set(slot, nothing);
}

void BoxIndex::Node::Set(std::size_t slot, const RECT2& box) {
    left[slot] = box.left;
    top[slot] = box.top;
    right[slot] = box.right;
    bottom[slot] = box.bottom;
}

RECT2 BoxIndex::Node::Bounds() const {
    RECT2 bounds = nothing;
    for (std::size_t slot = 0; slot < nodeSize; ++slot)
        bounds = Around(bounds, {left[slot], top[slot], right[slot], bottom[slot]});
    return bounds;
}
