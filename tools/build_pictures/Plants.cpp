#include "tools/build_pictures/Plants.h"

#include "tools/build_pictures/Brush.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace pictures {

using platform::Picture;

namespace {

struct Cushion {
    double x;
    double y;
    double radius;
};

/// The cushion in front at a pixel, its edge frayed into leaves; null outside.
const Cushion* FrontAt(const std::vector<Cushion>& cushions, int x, int y, int seed) {
    for (auto cushion = cushions.rbegin(); cushion != cushions.rend(); ++cushion) {
        const double dx = x - cushion->x;
        const double dy = y - cushion->y;
        const double reach = cushion->radius * (0.94 + 0.14 * Chance(x / 2, y / 2, seed));
        if (dx * dx + dy * dy < reach * reach) return &*cushion;
    }
    return nullptr;
}

} // namespace

void PaintFoliage(Picture& picture, double centreX, double centreY, double radiusX, double radiusY, const Tones& tones,
                  int seed) {
    const double size = std::min(radiusX, radiusY);
    const int count = std::max(4, static_cast<int>(radiusX * radiusY / (size * size) * 9.0));
    std::vector<Cushion> cushions;
    for (int i = 0; i < count; ++i) {
        const double angle = 6.2832 * (i + 0.7 * Chance(i, 0, seed)) / count * 2.0;
        const double out = i < 2 ? 0.0 : 0.45 + 0.3 * Chance(i, 1, seed);
        cushions.push_back({centreX + radiusX * out * std::cos(angle), centreY + radiusY * out * std::sin(angle),
                            size * (0.36 + 0.14 * Chance(i, 2, seed))});
    }
    std::sort(cushions.begin(), cushions.end(), [](const Cushion& a, const Cushion& b) { return a.y < b.y; });
    cushions.insert(cushions.begin(), {centreX, centreY, size * 0.62});

    for (int y = static_cast<int>(centreY - radiusY * 1.5); y <= centreY + radiusY * 1.5; ++y) {
        for (int x = static_cast<int>(centreX - radiusX * 1.5); x <= centreX + radiusX * 1.5; ++x) {
            const Cushion* front = FrontAt(cushions, x, y, seed);
            if (front == nullptr) continue;
            const bool atEdge =
                FrontAt(cushions, x + 1, y, seed) == nullptr || FrontAt(cushions, x, y + 1, seed) == nullptr ||
                FrontAt(cushions, x - 1, y, seed) == nullptr || FrontAt(cushions, x, y - 1, seed) == nullptr;
            if (atEdge) {
                Dot(picture, x, y, tones.outline);
                continue;
            }
            // a cushion casts a small shadow on the one behind it
            const Cushion* belowPtr = FrontAt(cushions, x + 1, y + 2, seed);
            if (belowPtr > front && Chance(x, y, seed + 2) < 0.8) {
                Dot(picture, x, y, tones.dark);
                continue;
            }
            const double own = -(0.6 * (x - front->x) + 0.8 * (y - front->y)) / front->radius;
            const double whole = -(0.45 * (x - centreX) / radiusX + 0.65 * (y - centreY) / radiusY);
            const double leaf = Chance(x / 2 + (y / 2) % 2, y / 2, seed + 1) - 0.5;
            const double light = 0.9 * own + 0.6 * whole + 0.5 * leaf;
            Dot(picture, x, y,
                light > 0.95    ? tones.glow
                : light > 0.35  ? tones.light
                : light > -0.42 ? tones.mid
                                : tones.dark);
        }
    }
}

void PaintTrunk(Picture& picture, int x, int footY, int height, int width, const Tones& tones, int seed) {
    for (int i = 0; i < height; ++i) {
        const int y = footY - 1 - i;
        const double up = static_cast<double>(i) / height;
        const double flare = i < 5 ? (5 - i) * 0.7 : 0.0;
        const double half = width * (0.62 - 0.24 * up) + flare;
        const double middle = x + (Wave(i, 14.0, seed) - 0.5) * width * 0.7 * std::min(1.0, up * 3);
        const int left = static_cast<int>(std::floor(middle - half));
        const int right = static_cast<int>(std::ceil(middle + half));
        for (int px = left; px <= right; ++px) {
            const double across = (px - left) / static_cast<double>(right - left);
            const bool bark = Chance(px, y / 4, seed) < 0.22;
            Dot(picture, px, y,
                px == left || px == right ? tones.outline
                : across < 0.35           ? (bark ? tones.mid : tones.light)
                : across < 0.7            ? (bark ? tones.dark : tones.mid)
                                          : tones.dark);
        }
    }
}

void PaintFruit(Picture& picture, double centreX, double centreY, double radiusX, double radiusY, std::uint32_t colour,
                std::uint32_t light, int size, int count, int seed) {
    for (int i = 0; i < count; ++i) {
        // spread like the seeds of a sunflower: even, but never in rows
        const double angle = 2.39996 * i + 6.28 * Chance(0, 0, seed);
        const double out = std::sqrt((i + 0.5) / count) * 0.82;
        const int x = static_cast<int>(centreX + radiusX * out * std::cos(angle) + 3.0 * (Chance(i, 1, seed) - 0.5));
        const int y = static_cast<int>(centreY + radiusY * out * std::sin(angle) + 3.0 * (Chance(i, 2, seed) - 0.5));
        Box(picture, x, y, x + size, y + size, colour);
        Dot(picture, x, y, light);
    }
}

void PaintTuft(Picture& picture, int x, int footY, int height, std::uint32_t dark, std::uint32_t light, int seed) {
    for (int blade = -2; blade <= 2; ++blade) {
        const int length = height - std::abs(blade) - static_cast<int>(2.5 * Chance(x, blade, seed));
        for (int i = 0; i < length; ++i) {
            const int lean = blade * i * 2 / std::max(1, height * 2 - 4);
            Dot(picture, x + blade + lean, footY - 1 - i, i * 2 >= length ? light : dark);
        }
    }
}

void PaintCloud(Picture& picture, int x, int y, int width, const Tones& tones, int seed) {
    std::vector<Cushion> puffs;
    const int count = 3 + width / 16;
    for (int i = 0; i < count; ++i) {
        const double along = (i + 0.5) / count;
        const double bulge = std::sin(3.1416 * along);
        const double radius = width * (0.07 + 0.10 * bulge * (0.6 + 0.6 * Chance(i, 0, seed)));
        puffs.push_back({x + width * along, y - radius * 0.55, radius});
    }
    for (int py = y - width; py <= y; ++py) {
        for (int px = x - 4; px < x + width + 4; ++px) {
            const Cushion* bestPtr = nullptr;
            double best = -9.0;
            for (const Cushion& puff : puffs) {
                const double dx = (px - puff.x) / puff.radius;
                const double dy = (py - puff.y) / puff.radius;
                if (dx * dx + dy * dy > 1.0) continue;
                const double light = -(0.5 * dx + 0.85 * dy);
                if (light > best) {
                    best = light;
                    bestPtr = &puff;
                }
            }
            if (bestPtr == nullptr) continue;
            const int toBase = y - py;
            Dot(picture, px, py,
                toBase < 2                        ? tones.dark
                : best > 0.12 && toBase > 3       ? tones.glow
                : best > -0.12 && toBase > 3      ? tones.light
                : toBase < 4 || (px + py / 2) % 3 ? tones.mid
                                                  : tones.light);
        }
    }
}

} // namespace pictures
