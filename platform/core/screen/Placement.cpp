#include "platform/core/screen/Placement.h"

#include <algorithm>
#include <cmath>

namespace platform {

namespace {
/// The largest size of the picture's proportions that fits; at least one pixel.
POINT FittedSize(POINT picture, POINT area) {
    const double factor = std::min(static_cast<double>(area.x) / picture.x, static_cast<double>(area.y) / picture.y);
    const auto scaled = [factor](int length) { return std::max(1, static_cast<int>(std::lround(length * factor))); };
    return {scaled(picture.x), scaled(picture.y)};
}

int LargestWholeFactor(POINT picture, POINT area) { return std::min(area.x / picture.x, area.y / picture.y); }
} // namespace

POINT WindowSize(POINT picture, POINT room, double scale) {
    const int factor = std::min(LargestWholeFactor(picture, room), static_cast<int>(std::max(scale, 1.0)));
    if (factor < 1) return FittedSize(picture, room);
    return {picture.x * factor, picture.y * factor};
}

RECT PlacePicture(POINT picture, POINT area, bool wholeFactors) {
    const int factor = wholeFactors ? LargestWholeFactor(picture, area) : 0;
    const POINT size = factor < 1 ? FittedSize(picture, area) : POINT{picture.x * factor, picture.y * factor};
    const int left = (area.x - size.x) / 2;
    const int top = (area.y - size.y) / 2;
    return {left, top, left + size.x, top + size.y};
}

POINT PictureFromArea(POINT point, POINT picture, RECT placement, bool mayLieOutside) {
    // The picture's pixel that the middle of the area's pixel falls into.
    const auto map = [mayLieOutside](int position, int from, int to, int length) {
        const auto twice = (2LL * (position - from) + 1) * length;
        const auto extent = 2LL * (to - from);
        if (!mayLieOutside) return static_cast<int>(std::clamp(twice, 0LL, extent * length - 1) / extent);
        return static_cast<int>((twice < 0 ? twice - extent + 1 : twice) / extent); // rounded down
    };
    return {map(point.x, placement.left, placement.right, picture.x),
            map(point.y, placement.top, placement.bottom, picture.y)};
}

} // namespace platform
