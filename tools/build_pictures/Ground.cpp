#include "tools/build_pictures/Ground.h"

#include "tools/art/Palette.h"
#include "tools/build_pictures/Brush.h"
#include "tools/build_pictures/Terrain.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <map>

namespace pictures {

namespace {

constexpr int none = -1;
constexpr int leafDark = 5;
constexpr int leafMid = 6;
constexpr int leafLight = 7;
constexpr int leafGlow = 8;
constexpr int far = 28; // edges further away than this have no effect

int Round(double value) { return static_cast<int>(std::floor(value + 0.5)); }

} // namespace

bool Ground::SetMaterial(const std::string& material, int left, int top, int right, int bottom) {
    static const std::map<std::string, Material> names = {{"earth", Material::earth}, {"ruin", Material::ruin},
                                                          {"fort", Material::fort},   {"cave", Material::cave},
                                                          {"wood", Material::wood},   {"log", Material::log}};
    const auto found = names.find(material);
    if (found == names.end()) return false;
    regions.push_back({found->second, left, top, right, bottom});
    return true;
}

void Ground::Paint(platform::Picture& picture) const {
    const auto ramp = [&](std::array<const char*, 5> names) {
        std::array<std::uint32_t, 9> colours{};
        for (std::size_t i = 0; i < 5; ++i) colours[i] = palette[names[i]];
        constexpr std::array<const char*, 4> greens = {"leaf2", "leaf3", "leaf4", "leaf5"};
        for (std::size_t i = 0; i < 4; ++i) colours[5 + i] = palette[greens[i]];
        return colours;
    };
    const auto earth = ramp({"earth0", "earth1", "earth2", "earth3", "earth4"});
    const auto stone = ramp({"stone0", "stone1", "stone2", "stone3", "stone4"});
    const auto cave = ramp({"under1", "under1", "under2", "under3", "stone3"});

    for (int y = 0; y < picture.height; ++y) {
        for (int x = 0; x < picture.width; ++x) {
            if (!terrain.IsSolid(x, y)) continue;
            const Spot spot{x,
                            y,
                            DepthBelowTop(x, y),
                            terrain.DepthFrom(x, y, 0, 1, far),
                            terrain.DepthFrom(x, y, -1, 0, far),
                            terrain.DepthFrom(x, y, 1, 0, far)};
            const auto tone = [&](Tone value) { return static_cast<std::size_t>(value); };
            const Region region = RegionAt(x, y);
            switch (region.material) {
            case Material::earth: picture.At(x, y) = earth[tone(Earth(spot))]; break;
            case Material::ruin: picture.At(x, y) = stone[tone(Ruin(spot))]; break;
            case Material::fort: picture.At(x, y) = earth[tone(Fort(spot))]; break;
            case Material::cave: picture.At(x, y) = cave[tone(Cave(spot))]; break;
            case Material::wood: picture.At(x, y) = earth[tone(Wood(spot))]; break;
            case Material::log: picture.At(x, y) = earth[tone(Log(region, x, y))]; break;
            }
        }
    }
}

/// Pixels from the top of the ground down to here. Objects on the ground count as air.
int Ground::DepthBelowTop(int x, int y) const {
    int depth = terrain.DepthFrom(x, y, 0, -1, 96);
    for (const Region& region : regions) {
        const bool above = x >= region.left && x < region.right && y >= region.bottom;
        if (region.material == Material::log && above) depth = std::min(depth, y - region.bottom + 1);
    }
    return depth;
}

Ground::Region Ground::RegionAt(int x, int y) const {
    for (auto region = regions.rbegin(); region != regions.rend(); ++region) {
        if (x >= region->left && x < region->right && y >= region->top && y < region->bottom) return *region;
    }
    return {Material::earth, 0, 0, 0, 0};
}

/// A stone lying in the ground: lit from the upper left; `none` between the stones.
Ground::Tone Ground::Pebble(int x, int y, int cellWidth, int cellHeight, double share, int seed) {
    const int column = static_cast<int>(std::floor(static_cast<double>(x) / cellWidth));
    const int row = static_cast<int>(std::floor(static_cast<double>(y) / cellHeight));
    if (Chance(column, row, seed) > share) return none;
    const double radiusX = 2.0 + 3.5 * Chance(column, row, seed + 1);
    const double radiusY = 1.6 + 1.6 * Chance(column, row, seed + 2);
    const double dx =
        x - (column * cellWidth + radiusX + 1 + (cellWidth - 2 * radiusX - 2) * Chance(column, row, seed + 3));
    const double dy =
        y - (row * cellHeight + radiusY + 1 + (cellHeight - 2 * radiusY - 2) * Chance(column, row, seed + 4));
    const double distance = dx * dx / (radiusX * radiusX) + dy * dy / (radiusY * radiusY);
    if (distance > 1.0) {
        const double shadeX = dx - 1.0;
        const double shadeY = dy - 1.0;
        return shadeX * shadeX / (radiusX * radiusX) + shadeY * shadeY / (radiusY * radiusY) < 1.0 ? 0 : none;
    }
    const double light = -(0.5 * dx / radiusX + 0.9 * dy / radiusY);
    return light > 0.45 ? 3 : light > -0.35 ? 2 : 1;
}

/// The grass that hangs over the edge of earth; `none` where it ends.
Ground::Tone Ground::Turf(const Spot& spot) {
    const int x = spot.x;
    // long and short blades alternate in groups; at an edge the grass hangs over it
    const int blade = static_cast<int>(3.0 * Chance(x, 0, 11)) - (Chance(x / 3, 0, 12) < 0.35 ? 2 : 0);
    const int overEdge = std::max(0, 4 - std::min(spot.left, spot.right)) * 2;
    const int length = 5 + Round(2.5 * Wave(x, 9.0, 13)) + blade + overEdge;
    if (spot.top > length) return none;
    if (spot.top == length || (spot.left == 1 && spot.top > 2) || (spot.right == 1 && spot.top > 1)) return leafDark;
    if (spot.top == 1) return Chance(x / 2, 1, 14) < 0.7 || spot.left < 4 ? leafGlow : leafLight;
    if (spot.top == 2) return Chance(x, 2, 15) < 0.75 ? leafLight : leafMid;
    if (spot.top == 3 && Chance(x, 3, 16) < 0.3) return leafLight;
    return spot.right <= 3 && spot.top > 3 ? leafDark : leafMid;
}

Ground::Tone Ground::Earth(const Spot& spot) {
    const Tone turf = Turf(spot);
    if (turf != none) return turf;
    if (spot.left == 1 || spot.right == 1 || spot.bottom == 1) return 0;
    const auto [x, y, top, bottom, left, right] = spot;
    const int turfEnd = 7 + Round(2.5 * Wave(x, 9.0, 13));
    if (top <= turfEnd + 1) return 1; // shadow of the grass

    const Tone pebble = Pebble(x, y, 17, 12, 0.42, 21);
    if (pebble != none && left > 3 && right > 3 && bottom > 3) return pebble;
    // lit flank, shaded flank, and darker layers further down
    const double shade = 2.2 * Wave2(x, y * 1.6, 26.0, 22);
    if (right <= 3 + Round(shade) || bottom <= 2 + Round(shade)) return 1;
    if (left <= 2 + Round(0.8 * shade) && top < 70) return 3;
    const int layer = 20 + Round(9.0 * Wave(x, 31.0, 23));
    if (top > layer + 26) return Pebble(x, y, 23, 9, 0.3, 24) == 3 ? 1 : top > layer + 60 ? 0 : 1;
    if (top > layer) return Chance(x / 4, y / 2, 25) < 0.10 ? 2 : 1;
    if (top > layer - 3 && Dither(x, y, (top - layer + 3) / 4.0)) return 1;
    return Chance(x / 5, y / 2, 26) < 0.10 ? 3 : 2;
}

/// Hewn stones in courses of different heights, each stone of a different length.
Ground::Tone Ground::Masonry(const Spot& spot, int courseHeight, int blockWidth, int seed) {
    const int x = spot.x;
    const int y = spot.y;
    // courses begin at slightly uneven heights
    const auto courseTop = [&](int course) { return course * courseHeight + Round(3.0 * Chance(course, 0, seed)) - 1; };
    int course = y / courseHeight;
    if (y < courseTop(course)) --course;
    if (y >= courseTop(course + 1)) ++course;
    const auto jointAt = [&](int index) {
        return index * blockWidth + (course & 1) * blockWidth / 2 +
               Round((Chance(index, course, seed + 1) - 0.5) * blockWidth * 0.6);
    };
    int block = (x - (course & 1) * blockWidth / 2) / blockWidth;
    if (x < jointAt(block)) --block;
    if (x >= jointAt(block + 1)) ++block;

    const int fromLeft = x - jointAt(block);
    const int toRight = jointAt(block + 1) - 1 - x;
    const int fromTop = y - courseTop(course);
    const int toBottom = courseTop(course + 1) - 1 - y;
    if (fromLeft == 0 || fromTop == 0) return 0;
    const double character = Chance(block, course, seed + 2);
    const int base = character < 0.22 ? 1 : 2;
    if (fromTop == 1 && toRight > 0) return base + 1;
    if (fromLeft == 1 && toBottom > 1) return base + 1;
    if (toBottom == 0 || toRight == 0) return base - 1 + (character > 0.8 ? 1 : 0);
    // every few stones a crack runs down from the upper edge
    if (character > 0.84 && fromTop < courseHeight - 3 &&
        std::abs(fromLeft - blockWidth / 3 - fromTop / 2 - (fromTop % 3 == 0 ? 1 : 0)) == 0) {
        return 0;
    }
    if (character > 0.6 && character < 0.7 && fromLeft > 3 && toRight > 3 && fromTop == 3 && toBottom > 2)
        return base + 1;
    return base;
}

Ground::Tone Ground::Ruin(const Spot& spot) {
    const auto [x, y, top, bottom, left, right] = spot;
    // cushions of moss on the upper edge, running down here and there
    const double moss = Wave(x, 13.0, 31);
    const int mossLength = moss > 0.5 ? 1 + Round((moss - 0.5) * 7.0 + 2.0 * Chance(x, 0, 32)) : 0;
    if (top <= mossLength) {
        if (top == mossLength && mossLength > 1) return leafDark;
        return top == 1 ? (Chance(x / 2, 0, 33) < 0.6 ? leafGlow : leafLight) : leafMid;
    }
    if (left == 1 || right == 1 || bottom == 1) return 0;
    if (top == 1) return 4;
    if (top == 2) return 3;
    if (left == 2) return 3;
    const Tone stones = Masonry(spot, 11, 21, 34);
    if (right <= 3) return std::max(0, stones - 1);
    return top > 44 + 8 * Wave(x, 40.0, 35) ? std::max(0, stones - 1) : stones;
}

Ground::Tone Ground::Fort(const Spot& spot) {
    const auto [x, y, top, bottom, left, right] = spot;
    if (left == 1 || right == 1 || bottom == 1) return 0;
    // a cap of broad flags, worn at its edge, a shadow under it, then the wall
    if (top <= 6) {
        const int flag = (x + 7 * (x / 97)) % 23;
        if (top == 1) return 4;
        if (flag == 0 && top > 1) return 1;
        if (top == 6) return 0;
        if (top == 5) return 2;
        return flag == 1 || top == 2 ? 4 : 3;
    }
    if (top <= 8) return 1;
    const Tone stones = Masonry(spot, 8, 15, 41);
    if (left == 2) return 3;
    if (right <= 3) return std::max(0, stones - 1);
    return top > 52 ? std::max(0, stones - 1) : stones;
}

/// Rock: facets around scattered centres, each lit as a whole.
Ground::Tone Ground::Cave(const Spot& spot) {
    const auto [x, y, top, bottom, left, right] = spot;
    constexpr int cell = 13;
    double nearest = std::numeric_limits<double>::max();
    double second = nearest;
    double light = 0.0;
    for (int row = y / cell - 1; row <= y / cell + 1; ++row) {
        for (int column = x / cell - 1; column <= x / cell + 1; ++column) {
            const double dx = x - (column + 0.15 + 0.7 * Chance(column, row, 51)) * cell;
            const double dy = (y - (row + 0.15 + 0.7 * Chance(column, row, 52)) * cell) * 1.25;
            const double distance = dx * dx + dy * dy;
            if (distance < nearest) {
                second = nearest;
                nearest = distance;
                light = -(0.6 * dx + 0.8 * dy) / cell + 0.5 * (Chance(column, row, 53) - 0.5);
            } else if (distance < second) {
                second = distance;
            }
        }
    }
    const int toAir = std::min({top, bottom, left, right});
    if (top == 1) return 3;
    if (toAir == 1) return bottom == 1 || right == 1 ? 1 : 3;
    if (std::sqrt(second) - std::sqrt(nearest) < 1.3) return 0;
    if (toAir > 22) return light > 0.3 ? 2 : 0; // deep inside only a few facets catch light
    if (top <= 3) return light > -0.2 ? 3 : 2;
    return light > 0.28 ? 3 : light > -0.25 ? 2 : 1;
}

Ground::Tone Ground::Wood(const Spot& spot) {
    const auto [x, y, top, bottom, left, right] = spot;
    if (bottom == 1 || left == 1 || right == 1) return 0;
    if (top == 1) return 4;
    const int plank = (x + 3 * (x / 41)) % 15;
    if (top <= 5) {
        if (plank == 0) return 1;
        if (top == 5) return 1;
        if (top == 3 && (plank == 2 || plank == 13)) return 0; // nails
        return top == 2 ? 3 : Chance(x / 3, y, 61) < 0.25 ? 3 : 2;
    }
    if (top == 6) return 0;
    // the beam below
    if (bottom == 2) return 1;
    return Chance(x / 6, y, 62) < 0.3 ? 1 : 2;
}

/// A hollow log that hangs from above, its rim at the bottom.
Ground::Tone Ground::Log(const Region& region, int x, int y) {
    const int fromLeft = x - region.left;
    const int toRight = region.right - 1 - x;
    const int toRim = region.bottom - 1 - y;
    if (fromLeft == 0 || toRight == 0 || toRim == 0) return 0;
    if (toRim < 6) return toRim == 5 ? 0 : toRim == 4 || fromLeft == 1 ? 4 : toRight < 5 ? 1 : toRim == 1 ? 2 : 3;
    if (fromLeft < 2 || toRight < 2) return 0; // the rim stands out
    const double across = fromLeft / static_cast<double>(region.right - region.left);
    const int base = across < 0.3 ? 3 : across < 0.65 ? 2 : 1;
    return fromLeft % 5 == 3 && Chance(fromLeft, y / 5, 71) < 0.7 ? base - 1 : base;
}

} // namespace pictures
