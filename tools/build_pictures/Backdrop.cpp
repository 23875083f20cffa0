#include "tools/build_pictures/Backdrop.h"

#include "tools/build_pictures/Brush.h"

#include <algorithm>
#include <cmath>

namespace pictures {

using platform::Picture;

namespace {

/// True for this share (0 to 1) of the pixels of a row, in dashes like thin streaks of cloud.
bool Streak(int x, int y, double share) {
    const double dash = 0.62 * Wave(x + 31.0 * y, 17.0, 301 + y / 2) + 0.38 * Wave(x, 5.0, 302 + y);
    return dash < 0.5 + (share - 0.5) * 1.1;
}

/// The colour of one mood; the seam between two flat colours is a few rows of streaks.
std::uint32_t SkyAt(const Mood& mood, int x, int y) {
    constexpr int half = 4;
    for (std::size_t i = 0; i + 1 < mood.bands.size(); ++i) {
        const int over = mood.bands[i].bottom - y;
        if (over > half || (over > -half && Streak(x, y, (over + half) / (2.0 * half)))) return mood.bands[i].colour;
    }
    return mood.bands.back().colour;
}

/// The large forms of peaks alone: folded waves, sharp where two slopes meet; 0 (highest) to 1.
double CrestAt(const Ridge& ridge, double x) {
    const double large = std::abs(2.0 * Wave(x, ridge.period, ridge.seed) - 1.0);
    const double small = std::abs(2.0 * Wave(x, ridge.period * 0.43, ridge.seed + 1) - 1.0);
    return 0.7 * large + 0.3 * small;
}

/// The far edge in column `x`, 0 (at its highest) to 1.
double EdgeAt(const Ridge& ridge, double x) {
    const double large = Wave(x, ridge.period, ridge.seed);
    const double small = Wave(x, ridge.period * 0.37, ridge.seed + 1);
    // a ridge slopes down at its ends
    const double toEnd = std::min(ridge.from == 0 ? 1000.0 : x - ridge.from, ridge.to - x);
    const double sunk = std::max(0.0, 1.0 - toEnd / 110.0);
    const double low = 2.0 * sunk * sunk;
    if (ridge.shape == Ridge::Shape::hills) return low + 0.75 * large + 0.25 * small;
    return low + 0.88 * CrestAt(ridge, x) + 0.12 * Wave(x, 7.0, ridge.seed + 2);
}

/// Small round trees and their shadows, scattered over far hills. False outside of them.
bool PaintHedge(Picture& picture, const Ridge& ridge, int x, int y) {
    constexpr int cellWidth = 19;
    constexpr int cellHeight = 11;
    const int column = x / cellWidth;
    const int row = y / cellHeight;
    // they grow in groves
    if (Chance(column, row, ridge.seed + 6) > 1.3 * Wave2(column, row, 2.4, ridge.seed + 7) - 0.25) return false;
    const double radius = 1.6 + 1.6 * Chance(column, row, ridge.seed + 8);
    const double dx = x - (column + 0.25 + 0.5 * Chance(column, row, ridge.seed + 9)) * cellWidth;
    const double dy = y - (row + 0.35 + 0.3 * Chance(column, row, ridge.seed + 10)) * cellHeight;
    if (dx * dx + dy * dy < radius * radius) {
        Dot(picture, x, y, 0.6 * dx + 0.8 * dy < -0.3 * radius ? ridge.light : ridge.dark);
        return true;
    }
    const double shadow = (dx - 1.5) * (dx - 1.5) / 2.2 + (dy - radius) * (dy - radius) * 2.0;
    if (shadow >= radius * radius) return false;
    Dot(picture, x, y, ridge.dark);
    return true;
}

void PaintSlope(Picture& picture, const Ridge& ridge, int x) {
    const int edge = ridge.top + static_cast<int>(ridge.swing * EdgeAt(ridge, x));
    for (int y = std::max(0, edge); y < ridge.bottom; ++y) {
        const int depth = y - edge;
        if (ridge.shape == Ridge::Shape::peaks) {
            // the crest throws its light and shadow side down the slope, to the lower right
            const double at = x - depth * 0.45 + 5.0 * (Wave(y, 9.0, ridge.seed + 3) - 0.5);
            const bool lit = CrestAt(ridge, at - 7.0) > CrestAt(ridge, at + 7.0);
            Dot(picture, x, y, depth > ridge.swing + 14 ? ridge.dark : lit ? ridge.light : ridge.mid);
        } else {
            if (depth > 5 && PaintHedge(picture, ridge, x, y)) continue;
            const double field = Wave2(x, y * 2.6, ridge.period * 0.3, ridge.seed + 4) - depth * 0.012;
            Dot(picture, x, y,
                depth < 1 || (depth < 3 && Chance(x / 3, 0, ridge.seed + 5) < 0.4) ? ridge.light
                : field > 0.55                                                     ? ridge.light
                : field > 0.16                                                     ? ridge.mid
                                                                                   : ridge.dark);
        }
    }
}

/// One round tree of a wood, and the dark of the wood below it down to row `bottom`.
void PaintCrown(Picture& picture, const Ridge& ridge, double middle, double top, double radius) {
    const int left = std::max(ridge.from, static_cast<int>(std::ceil(middle - radius)));
    const int right = std::min(ridge.to - 1, static_cast<int>(std::floor(middle + radius)));
    for (int x = left; x <= right; ++x) {
        const double dx = (x - middle) / radius;
        for (int y = static_cast<int>(std::ceil(top - radius)); y < ridge.bottom; ++y) {
            const double dy = (y - top) / radius;
            const double frayed = 0.93 + 0.14 * Chance(x / 2, y / 2, ridge.seed + 4);
            if (dx * dx + dy * dy < frayed * frayed) {
                const double leaf = Chance(x / 2 + y / 2 % 2, y / 2, ridge.seed + 5) - 0.5;
                const double light = -(0.6 * dx + 0.8 * dy) + 0.3 * leaf;
                Dot(picture, x, y, light > 0.5 ? ridge.light : light > -0.3 ? ridge.mid : ridge.dark);
            } else if (dy > 0.0 && std::abs(dx) < 0.8) {
                Dot(picture, x, y, Dither(x, y, 0.35) ? ridge.mid : ridge.dark);
            }
        }
    }
}

/// Trees in rows; lower rows are in front, and in a row every other tree is in front of its neighbours.
void PaintWoods(Picture& picture, const Ridge& ridge) {
    constexpr int step = 13;
    for (int row = 0; row < 4; ++row) {
        for (int parity = 0; parity < 2; ++parity) {
            for (int cell = ridge.from / step - 1; cell * step < ridge.to + step; ++cell) {
                if ((cell & 1) != parity) continue;
                const double radius = 7.0 + 5.0 * Chance(cell, row, ridge.seed + 1);
                const double middle = cell * step + row * 5 + 6.0 * (Chance(cell, row, ridge.seed + 2) - 0.5);
                const double top = ridge.top + ridge.swing * Wave(middle, ridge.period, ridge.seed + 3) + row * 11 +
                                   7.0 * Chance(cell, row, ridge.seed) + parity * 3 + radius;
                PaintCrown(picture, ridge, middle, top, radius);
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
                if (share > 0.0 && Streak(x, y, share)) ++index;
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
