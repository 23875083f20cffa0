#include "platform/core/canvas/SpriteBitmap.h"

namespace platform {

SpriteBitmap::SpriteBitmap(std::shared_ptr<const Picture> sourcePtr) : picturePtr(std::move(sourcePtr)) {
    std::uint32_t alphaOfAll = 0xFF000000U;
    for (const std::uint32_t pixel : picturePtr->pixels) alphaOfAll &= pixel;
    if (alphaOfAll == 0xFF000000U) return;

    // one more than the columns need: a cell's marks are read from two neighbours
    marksPerRow = static_cast<std::size_t>(picturePtr->width) / 64 + 2;
    marks.resize(marksPerRow * static_cast<std::size_t>(picturePtr->height));
    for (int y = 0; y < picturePtr->height; ++y) {
        Marks* rowPtr = &marks[static_cast<std::size_t>(y) * marksPerRow];
        for (int x = 0; x < picturePtr->width; ++x) {
            const std::uint32_t pixel = picturePtr->At(x, y);
            rowPtr[x / 64].visible |= std::uint64_t{pixel != 0} << x % 64;
            rowPtr[x / 64].opaque |= std::uint64_t{pixel >> 24 == 255} << x % 64;
        }
    }
}

} // namespace platform
