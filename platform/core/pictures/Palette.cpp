#include "platform/core/pictures/Palette.h"

#include <algorithm>

namespace platform {

std::optional<std::vector<std::uint32_t>> PaletteOf(const Picture& picture) {
    constexpr std::size_t largestPalette = 256;
    std::vector<std::uint32_t> colours;
    for (const std::uint32_t pixel : picture.pixels) {
        if (pixel >> 24 != 255) return std::nullopt;
        const auto place = std::lower_bound(colours.begin(), colours.end(), pixel);
        if (place != colours.end() && *place == pixel) continue;
        if (colours.size() == largestPalette) return std::nullopt;
        colours.insert(place, pixel);
    }
    return colours;
}

} // namespace platform
