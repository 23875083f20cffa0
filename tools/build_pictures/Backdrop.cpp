#include "tools/build_pictures/Backdrop.h"

#include "tools/build_pictures/Brush.h"

#include <algorithm>
#include <cmath>

namespace pictures {

using platform::Picture;

namespace {

/// The colour of one mood; the seam between two flat colours is ten rows of ordered dots.
std::uint32_t SkyAt(const Mood& mood, int x, int y) {
    for (std::size_t i = 0; i + 1 < mood.bands.size(); ++i) {
        const int over = mood.bands[i].bottom - y;
        if (over > 5 || (over > -5 && Dither(x, y, (over + 5) / 10.0))) return mood.bands[i].colour;
    }
    return mood.bands.back().colour;
}

/// The far edge in column `x`, 0 (at its highest) to 1.
double EdgeAt(const Ridge& ridge, double x) {
    const double large = Wave(x, ridge.period, ridge.seed);
    const double small = Wave(x, ridge.period * 0.37, ridge.seed + 1);
    if (ridge.shape == Ridge::Shape::hills) return 0.75 * large + 0.25 * small;
    // peaks are folded waves: sharp where two slopes meet
    const double fold = std::abs(2.0 * large - 1.0);
    return 0.62 * fold + 0.25 * std::abs(2.0 * small - 1.0) + 0.13 * Wave(x, 7.0, ridge.seed + 2);
}

void PaintSlope(Picture& picture, const Ridge& ridge, int x) {
    const int edge = ridge.top + static_cast<int>(ridge.swing * EdgeAt(ridge, x));
    for (int y = std::max(0, edge); y < ridge.bottom; ++y) {
        const int depth = y - edge;
        if (ridge.shape == Ridge::Shape::peaks) {
            // the crest throws its light and shadow side down the slope, to the lower right
            const double at = x - depth * 0.45 + 5.0 * (Wave(y, 9.0, ridge.seed + 3) - 0.5);
            const bool lit = EdgeAt(ridge, at - 5.0) > EdgeAt(ridge, at + 5.0);
            Dot(picture, x, y, depth > ridge.swing + 14 ? ridge.dark : lit ? ridge.light : ridge.mid);
        } else {
            const double field = Wave2(x, y * 2.6, ridge.period * 0.3, ridge.seed + 4) - depth * 0.012;
            Dot(picture, x, y,
                depth < 1 || (depth < 3 && Chance(x / 3, 0, ridge.seed + 5) < 0.4) ? ridge.light
                : field > 0.55                                                     ? ridge.light
                : field > 0.16                                                     ? ridge.mid
                                                                                   : ridge.dark);
        }
    }
}

/// Tree tops in rows, those further down in front.
void PaintWoods(Picture& picture, const Ridge& ridge) {
    constexpr int step = 9;
    for (int row = 0; row < 4; ++row) {
        for (int x = ridge.from - step; x < ridge.to + step; x += step) {
            const int cell = x / step;
            const double lift = Chance(cell, row, ridge.seed);
            const double radius = 6.0 + 4.5 * Chance(cell, row, ridge.seed + 1) + row;
            const double middle = x + row * 4 + 5.0 * (Chance(cell, row, ridge.seed + 2) - 0.5);
            const double top =
                ridge.top + ridge.swing * Wave(x, ridge.period, ridge.seed + 3) + row * 9 + 5.0 * lift + radius;
            for (int px = std::max(ridge.from, static_cast<int>(middle - radius));
                 px <= std::min(ridge.to - 1.0, middle + radius); ++px) {
                const double dx = (px - middle) / radius;
                const double half = radius * 1.15 * std::sqrt(std::max(0.0, 1.0 - dx * dx));
                for (int y = static_cast<int>(top - half); y < ridge.bottom; ++y) {
                    const double dy = (y - top) / (radius * 1.15);
                    const double light = -(0.6 * dx + 0.8 * dy) + 0.5 * (Chance(px / 2, y / 2, ridge.seed + 4) - 0.5);
                    Dot(picture, px, y, light > 0.55 ? ridge.light : light > -0.35 ? ridge.mid : ridge.dark);
                }
            }
        }
    }
}

} // namespace

void PaintSky(Picture& picture, const std::vector<Mood>& moods, int bottom) {
    constexpr int melt = 240;
    for (int y = 0; y < bottom; ++y) {
        for (int x = 0; x < picture.width; ++x) {
            std::size_t index = 0;
            while (index + 1 < moods.size() && x >= moods[index + 1].from + melt / 2) ++index;
            if (index + 1 < moods.size()) {
                const double share = (x - moods[index + 1].from + melt / 2) / static_cast<double>(melt);
                if (share > 0.0 && Dither(x, y, share)) ++index;
            }
            picture.At(x, y) = SkyAt(moods[index], x, y);
        }
    }
}

void PaintRidge(Picture& picture, const Ridge& ridge) {
    if (ridge.shape == Ridge::Shape::woods) {
        PaintWoods(picture, ridge);
        return;
    }
    for (int x = ridge.from; x < ridge.to; ++x) PaintSlope(picture, ridge, x);
}

} // namespace pictures
