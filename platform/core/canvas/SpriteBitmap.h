#pragma once

#include "platform/Canvas.h"

#include <bit>
#include <cstdint>
#include <memory>
#include <vector>

namespace platform {

/// A picture with the answer, for every row, where it is transparent, opaque or in between, so that painting a cell
/// never reads what does not show and blends only what must be. The answer takes 1/16 of the pixels' memory, and none
/// for a picture that is opaque everywhere.
class SpriteBitmap : public ID2D1Bitmap {
public:
    /// Shares `sourcePtr`, which must hold width x height pixels.
    explicit SpriteBitmap(std::shared_ptr<const Picture> sourcePtr);

    POINT GetPixelSize() const override { return {picturePtr->width, picturePtr->height}; }
    const Picture& GetPicture() const { return *picturePtr; }
    const std::uint32_t* Row(int y) const {
        return picturePtr->pixels.data() + static_cast<std::size_t>(y) * static_cast<std::size_t>(picturePtr->width);
    }
    bool IsOpaque() const { return marks.empty(); }

    /// Calls `paint(column, count, isOpaque)` for the stretches of row `y` that show between the columns `from` and
    /// `to`, from left to right. Only for a bitmap that is not opaque.
    template <class Paint>
    void ForEachStretch(int y, int from, int to, const Paint& paint) const {
        const Marks* rowPtr = &marks[static_cast<std::size_t>(y) * marksPerRow];
        for (int column = from; column < to; column += 64) {
            const Marks block = MarksFrom(rowPtr, column, to - column);
            std::uint64_t left = block.visible;
            while (left != 0) {
                const int skip = std::countr_zero(left);
                const bool isOpaque = (block.opaque >> skip & 1) != 0;
                const int count = std::countr_one((isOpaque ? block.opaque : left & ~block.opaque) >> skip);
                paint(column + skip, count, isOpaque);
                left = skip + count < 64 ? left & ~std::uint64_t{0} << (skip + count) : 0;
            }
        }
    }

private:
    /// One bit for each of 64 columns.
    struct Marks {
        std::uint64_t visible = 0;
        std::uint64_t opaque = 0;
    };

    /// The marks of `count` columns, at most 64, beginning at any column.
    static Marks MarksFrom(const Marks* rowPtr, int column, int count) {
        const Marks first = rowPtr[column / 64];
        const Marks next = rowPtr[column / 64 + 1];
        const int shift = column % 64;
        const std::uint64_t wanted = count < 64 ? (std::uint64_t{1} << count) - 1 : ~std::uint64_t{0};
        // in two steps, because a shift by 64 is not defined
        return {(first.visible >> shift | next.visible << 1 << (63 - shift)) & wanted,
                (first.opaque >> shift | next.opaque << 1 << (63 - shift)) & wanted};
    }

    std::shared_ptr<const Picture> picturePtr;
    std::size_t marksPerRow = 0;
    std::vector<Marks> marks;
};

} // namespace platform
