#include "engine/BoxIndex.h"

#include <cmath>
#include <limits>
#include <numeric>

namespace {

std::uint32_t BlocksFor(std::uint32_t boxes, std::size_t blockSize) {
    return static_cast<std::uint32_t>((boxes + blockSize - 1) / blockSize);
}

} // namespace

BoxIndex::BoxIndex(std::span<const RECT2> boxes) : boxCount(boxes.size()) {
    if (boxes.empty()) return;
    RECT2 around = boxes.front();
    for (const RECT2& box : boxes) {
        around = {std::min(around.left, box.left), std::min(around.top, box.top), std::max(around.right, box.right),
                  std::max(around.bottom, box.bottom)};
    }
    const Box area(around);

    // Cells that the boxes could share evenly, or larger ones where large boxes reach into many.
    constexpr float boxesPerCell = 1.0F;
    constexpr std::size_t mostCellsPerBox = 8;
    const auto cells = static_cast<float>(boxCount) / boxesPerCell;
    const float width = area.right - area.left;
    const float height = area.bottom - area.top;
    float cellSize = std::max(std::sqrt(width / cells) * std::sqrt(height), std::max(width, height) / cells);
    const auto countEntries = [&] {
        return std::accumulate(boxes.begin(), boxes.end(), std::size_t{0},
                               [&](std::size_t sum, const RECT2& box) { return sum + CellsOf(Box(box)).Count(); });
    };
    for (Lay(area, cellSize); countEntries() > mostCellsPerBox * boxCount; Lay(area, cellSize)) cellSize *= 2.0F;

    const std::size_t cellCount = std::size_t{columns} * rows;
    std::vector<std::uint32_t> counts(cellCount, 0);
    for (const RECT2& box : boxes) ForEachCell(CellsOf(Box(box)), [&](std::size_t cell) { ++counts[cell]; });
    cellBegins.assign(cellCount + 1, 0);
    for (std::size_t cell = 0; cell < cellCount; ++cell)
        cellBegins[cell + 1] = cellBegins[cell] + BlocksFor(counts[cell], Block::size);
    blocks.resize(cellBegins.back());
    for (std::size_t i = 0; i < boxes.size(); ++i) {
        const Box box(boxes[i]);
        ForEachCell(CellsOf(box), [&](std::size_t cell) {
            const std::uint32_t place = --counts[cell];
            blocks[cellBegins[cell] + place / Block::size].Set(place % Block::size, box, static_cast<std::uint32_t>(i));
        });
    }
}

BoxIndex::Block::Block() {
    for (auto* edges : {&left, &top, &right, &bottom}) edges->fill(std::numeric_limits<float>::quiet_NaN());
}

void BoxIndex::Block::Set(std::size_t slot, const Box& box, std::uint32_t number) {
    left[slot] = box.left;
    top[slot] = box.top;
    right[slot] = box.right;
    bottom[slot] = box.bottom;
    numbers[slot] = number;
}

unsigned BoxIndex::Block::Touching(const Box& box) const {
    // Two loops, in a function of their own: so compilers make the first one compare many at once.
    const float boxLeft = box.left;
    const float boxTop = box.top;
    const float boxRight = box.right;
    const float boxBottom = box.bottom;
    std::array<int, size> touches;
    for (std::size_t i = 0; i < size; ++i)
        touches[i] =
            int{left[i] <= boxRight} & int{right[i] >= boxLeft} & int{top[i] <= boxBottom} & int{bottom[i] >= boxTop};
    unsigned bits = 0;
    for (std::size_t i = 0; i < size; ++i) bits |= static_cast<unsigned>(touches[i]) << i;
    return bits;
}

void BoxIndex::Lay(const Box& area, float cellSize) {
    left = area.left;
    top = area.top;
    columns = rows = 1;
    cellsPerUnit = 0.0F;
    if (!std::isnormal(cellSize)) return; // no size, or one out of reach of the numbers
    cellsPerUnit = 1.0F / cellSize;
    columns += static_cast<std::uint32_t>((area.right - area.left) * cellsPerUnit);
    rows += static_cast<std::uint32_t>((area.bottom - area.top) * cellsPerUnit);
}
