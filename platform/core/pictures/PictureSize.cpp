#include "platform/core/pictures/PictureSize.h"

#include <cstddef>
#include <cstdlib>

namespace platform {

bool IsSanePictureSize(std::int64_t width, std::int64_t height) {
    constexpr int maxSide = 16384;
    constexpr std::int64_t maxPixels = 64LL * 1024 * 1024;
    return width > 0 && height > 0 && width <= maxSide && height <= maxSide && width * height <= maxPixels;
}

bool StatesSaneSize(const PictureHead& head) {
    const auto number = [&](std::size_t at, int bytes, bool bigEndian) {
        std::uint32_t value = 0;
        for (int index = 0; index < bytes; ++index) {
            const auto place = static_cast<std::size_t>(bigEndian ? index : bytes - 1 - index);
            value = value << 8 | head[at + place];
        }
        return static_cast<std::int32_t>(value);
    };
    if (head[0] == 'B' && head[1] == 'M') {
        constexpr int oldHeader = 12; // its sizes have two bytes; later ones four, and a negative height counts down
        if (number(14, 4, false) == oldHeader) return IsSanePictureSize(number(18, 2, false), number(20, 2, false));
        return IsSanePictureSize(number(18, 4, false), std::abs(static_cast<std::int64_t>(number(22, 4, false))));
    }
    if (head[0] == 0x89 && head[1] == 'P') return IsSanePictureSize(number(16, 4, true), number(20, 4, true));
    return true;
}

} // namespace platform
