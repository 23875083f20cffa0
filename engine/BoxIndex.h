#pragma once

#include "engine/RECT2.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

/// Finds which of many boxes lie near a small area, at a cost that hardly depends on how many boxes there are.
/// A grid of square cells over all boxes; a cell holds the boxes that reach into it, eight by eight side by side, so
/// that one pass compares eight at once. All of it is in single precision: rounding never changes the order of two
/// numbers, so what touches still touches.
class BoxIndex {
public:
    BoxIndex() = default;
    /// Left <= right, top <= bottom, no number that is not finite.
    explicit BoxIndex(std::span<const RECT2> boxes);

    /// Calls `visit` with the number of every box that touches `area` (edges included), perhaps more than once, and
    /// perhaps of some that come close, in no particular order. `area` must be finite. Never costs much more than a
    /// look at every box.
    template <class Visit>
    void ForEachNear(const RECT2& area, const Visit& visit) const {
        if (boxCount == 0) return;
        const Box box(area);
        const CellRange cells = CellsOf(box);
        if (cells.Count() > boxCount) {
            for (std::uint32_t i = 0; i < boxCount; ++i) visit(i);
            return;
        }
        for (std::uint32_t row = cells.top; row <= cells.bottom; ++row) {
            const std::size_t first = std::size_t{row} * columns; // the cells of a row follow each other
            const Block* const end = blocks.data() + cellBegins[first + cells.right + 1];
            for (const Block* block = blocks.data() + cellBegins[first + cells.left]; block != end; ++block)
                for (unsigned bits = block->Touching(box); bits != 0; bits &= bits - 1)
                    visit(block->numbers[static_cast<std::size_t>(std::countr_zero(bits))]);
        }
    }

private:
    struct Box {
        explicit Box(const RECT2& rect)
            : left(static_cast<float>(rect.left)), top(static_cast<float>(rect.top)),
              right(static_cast<float>(rect.right)), bottom(static_cast<float>(rect.bottom)) {}
        float left;
        float top;
        float right;
        float bottom;
    };

    /// Eight boxes; the edges of those not used are no numbers and touch nothing.
    struct Block {
        static constexpr std::size_t size = 8;
        Block();
        void Set(std::size_t slot, const Box& box, std::uint32_t number);
        /// One bit for each box that touches.
        unsigned Touching(const Box& box) const;

        std::array<float, size> left;
        std::array<float, size> top;
        std::array<float, size> right;
        std::array<float, size> bottom;
        std::array<std::uint32_t, size> numbers{};
    };

    /// Cells from left to right and top to bottom, both ends included.
    struct CellRange {
        std::uint32_t left;
        std::uint32_t top;
        std::uint32_t right;
        std::uint32_t bottom;
        std::size_t Count() const { return std::size_t{right - left + 1} * (bottom - top + 1); }
    };

    void Lay(const Box& area, float cellSize);
    /// Beyond the grid the cells at its edge stand in, and where all is one cell, that one.
    std::uint32_t CellAt(float distance, std::uint32_t count) const {
        return static_cast<std::uint32_t>(
            std::max(0.0F, std::min(static_cast<float>(count - 1), distance * cellsPerUnit)));
    }
    CellRange CellsOf(const Box& box) const {
        return {CellAt(box.left - left, columns), CellAt(box.top - top, rows), CellAt(box.right - left, columns),
                CellAt(box.bottom - top, rows)};
    }
    template <class Visit>
    void ForEachCell(const CellRange& cells, const Visit& visit) const {
        for (std::uint32_t row = cells.top; row <= cells.bottom; ++row)
            for (std::uint32_t column = cells.left; column <= cells.right; ++column)
                visit(std::size_t{row} * columns + column);
    }

    std::size_t boxCount = 0;
    float left = 0.0F;
    float top = 0.0F;
    float cellsPerUnit = 0.0F; ///< 0 if all is one cell
    std::uint32_t columns = 1;
    std::uint32_t rows = 1;
    std::vector<std::uint32_t> cellBegins; ///< each cell's first block; one more at the end
    std::vector<Block> blocks;
};
