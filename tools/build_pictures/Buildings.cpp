#include "tools/build_pictures/Buildings.h"

#include "tools/build_pictures/Brush.h"

#include <algorithm>
#include <cmath>

namespace pictures {

using platform::Picture;

namespace {

/// Hewn stones in the backdrop's cool tones. `shade` 0 in the light to 1 in the dark.
std::uint32_t StoneAt(const Palette& palette, int x, int y, double shade, int seed) {
    constexpr int course = 9;
    constexpr int length = 17;
    const int row = y / course;
    const int shifted = x + (row & 1) * length / 2 + static_cast<int>(5.0 * Chance(row, 0, seed));
    const int inX = shifted % length;
    const int inY = y % course;
    const double own = Chance(shifted / length, row, seed + 1);
    const double dark = shade + 0.35 * (own - 0.5);
    if (inX == 0 || inY == 0) return palette[dark > 0.55 ? "sky0" : "mist0"];
    if ((inX == 1 || inY == 1) && dark < 0.4) return palette["sky3"];
    return palette[dark > 0.62 ? "mist0" : dark > 0.22 ? "mist1" : "sky3"];
}

/// Smooth plaster with a stone showing here and there.
std::uint32_t PlasterAt(const Palette& palette, int x, int y, double shade, int seed) {
    const int row = y / 7;
    const int shifted = x + (row & 1) * 6;
    const bool showing = Chance(shifted / 12, row, seed) < 0.16;
    if (showing && (y % 7 == 6 || shifted % 12 == 11)) return palette[shade > 0.6 ? "sky0" : "mist0"];
    if (showing && y % 7 == 0) return palette[shade > 0.6 ? "mist1" : "sky4"];
    const double dithered = shade + (Dither(x, y, 0.5) ? 0.05 : -0.05);
    return palette[dithered > 0.78 ? "mist0" : dithered > 0.46 ? "mist1" : dithered > 0.2 ? "sky3" : "sky4"];
}

void Outline(Picture& picture, int left, int top, int right, int bottom, std::uint32_t colour) {
    Box(picture, left, top, right, top + 1, colour);
    Box(picture, left, top, left + 1, bottom, colour);
    Box(picture, right - 1, top, right, bottom, colour);
}

void PaintWindow(Picture& picture, const Palette& palette, int x, int y) {
    Box(picture, x + 1, y, x + 4, y + 1, palette["ink1"]);
    Box(picture, x, y + 1, x + 5, y + 8, palette["ink1"]);
    Box(picture, x + 1, y + 2, x + 4, y + 7, palette["warm4"]);
    Box(picture, x + 1, y + 1, x + 3, y + 4, palette["warm5"]);
    Box(picture, x + 2, y + 1, x + 3, y + 7, palette["gold0"]);
    Box(picture, x - 1, y + 8, x + 6, y + 9, palette["wood0"]);
}

/// A hanging banner, swallow-tailed.
void PaintBanner(Picture& picture, const Palette& palette, int x, int y, int length) {
    for (int i = 0; i < length; ++i) {
        for (int dx = 0; dx < 9; ++dx) {
            if (i >= length - 4 && std::abs(dx - 4) < i - (length - 5)) continue;
            const bool edge = dx == 0 || dx == 8;
            Dot(picture, x + dx, y + i, palette[edge ? "water0" : dx < 3 ? "water2" : "water1"]);
        }
    }
    Box(picture, x - 1, y - 1, x + 10, y, palette["gold0"]);
    // the feather of the coat of arms
    for (int i = 0; i < 7; ++i)
        Box(picture, x + 6 - i / 2 - (i > 4), y + 3 + i, x + 7 - i / 2 + (i < 4), y + 4 + i, palette["sky4"]);
}

} // namespace

void PaintColumn(Picture& picture, const Palette& palette, int x, int footY, int width, int height, int seed) {
    const int left = x - width / 2;
    for (int px = left; px < left + width; ++px) {
        const double across = (px - left + 0.5) / width;
        const int top = footY - height + static_cast<int>(5.0 * Wave(px, 4.0, seed));
        for (int y = top; y < footY; ++y) {
            const bool flute = (px - left) % 3 == 2;
            const bool drum = (footY - y) % 19 == 0;
            const char* tone = drum                     ? "mist0"
                               : y == top               ? "sky3"
                               : px == left             ? "mist0"
                               : px == left + width - 1 ? "sky0"
                               : flute                  ? "mist0"
                               : across < 0.42          ? "sky3"
                               : across < 0.72          ? "mist1"
                                                        : "mist0";
            Dot(picture, px, y, palette[tone]);
        }
    }
    // plinth
    Box(picture, left - 3, footY - 6, left + width + 3, footY, palette["mist0"]);
    Box(picture, left - 2, footY - 5, left + width, footY - 1, palette["mist1"]);
    Box(picture, left - 2, footY - 5, left + width + 1, footY - 4, palette["sky3"]);
}

void PaintWall(Picture& picture, const Palette& palette, int left, int footY, int width, int height, int opening,
               int seed) {
    const double middle = left + width / 2.0 - 0.5;
    const double archY = footY - height * 0.42;
    for (int x = left; x < left + width; ++x) {
        const double ragged = Wave(x, 11.0, seed) * 0.6 + Wave(x, 4.0, seed + 1) * 0.25;
        const int top = footY - height + static_cast<int>(height * 0.35 * ragged) / 3 * 3;
        const double dx = std::abs(x - middle);
        for (int y = top; y < footY; ++y) {
            const double half = opening / 2.0;
            const double reach = y >= archY ? dx : std::hypot(dx, y - archY);
            if (opening > 0 && reach < half) continue;
            if (opening > 0 && reach < half + 4) {
                // the arch's own stones
                const double turn = y >= archY ? (y - archY) / 6.0 : std::atan2(y - archY, x - middle) * 5.0;
                const bool joint = turn - std::floor(turn) < 0.16;
                Dot(picture, x, y, palette[joint || reach < half + 1 ? "wood0" : x < middle ? "sky3" : "mist1"]);
                continue;
            }
            const double across = (x - left) / static_cast<double>(width);
            Dot(picture, x, y,
                y == top || x == left || x == left + width - 1 ? palette["mist0"]
                : y == top + 1                                 ? palette["sky4"]
                                                               : StoneAt(palette, x, y, 0.15 + 0.55 * across, seed));
        }
    }
}

void PaintTower(Picture& picture, const Palette& palette, int left, int footY, int width, int height, int roof,
                int seed) {
    const int top = footY - height;
    for (int x = left; x < left + width; ++x) {
        const double across = (x - left + 0.5) / width;
        for (int y = top; y < footY; ++y) {
            Dot(picture, x, y,
                PlasterAt(palette, x - left, y, across * across * 0.95 + (y < top + 5 ? 0.25 : 0.0), seed));
        }
    }
    Outline(picture, left, top, left + width, footY, palette["ink1"]);
    // roof of shingles, a little wider than the tower
    for (int i = 0; i < roof; ++i) {
        const int y = top - roof + i;
        const double half = (width / 2.0 + 4.0) * std::pow((i + 1.0) / roof, 1.25);
        const double middle = left + width / 2.0 - 0.5;
        const int from = static_cast<int>(std::ceil(middle - half));
        const int to = static_cast<int>(std::floor(middle + half));
        for (int x = from; x <= to; ++x) {
            const double across = (x - from) / std::max(1.0, static_cast<double>(to - from));
            const bool seam = i % 5 == 4 || (x + (i / 5 % 2) * 3) % 6 == 0;
            const char* tone = x == from || x == to ? "warm0"
                               : across < 0.38      ? (seam ? "warm2" : "warm3")
                               : across < 0.7       ? (seam ? "warm1" : "warm2")
                                                    : (seam ? "warm0" : "warm1");
            Dot(picture, x, y, palette[tone]);
        }
    }
    if (roof > 0) {
        const int middle = left + width / 2;
        Box(picture, left - 4, top - 1, left + width + 4, top, palette["warm0"]);
        Box(picture, left + 1, top, left + width - 1, top + 2, palette["mist0"]);
        Box(picture, middle - 1, top - roof - 3, middle + 1, top - roof + 2, palette["gold1"]);
        Dot(picture, middle - 1, top - roof - 3, palette["warm5"]);
    }
}

void PaintFort(Picture& picture, const Palette& palette, int left, int footY) {
    const int gate = left + 72;
    // behind: the keep and its towers
    PaintTower(picture, palette, left + 60, footY, 50, 120, 0, 71);
    for (int i = 0; i < 4; ++i) {
        const int x = left + 58 + i * 14;
        Box(picture, x, footY - 128, x + 10, footY - 118, palette["ink1"]);
        Box(picture, x + 1, footY - 127, x + 9, footY - 118, palette[i < 2 ? "sky3" : "mist1"]);
    }
    PaintWindow(picture, palette, left + 70, footY - 108);
    PaintWindow(picture, palette, left + 84, footY - 108);
    PaintTower(picture, palette, left + 10, footY, 30, 92, 46, 72);
    PaintTower(picture, palette, left + 112, footY, 40, 118, 58, 73);
    PaintTower(picture, palette, left + 160, footY, 34, 84, 44, 74);
    PaintWindow(picture, palette, left + 20, footY - 78);
    PaintWindow(picture, palette, left + 128, footY - 102);
    PaintWindow(picture, palette, left + 172, footY - 68);
    PaintBanner(picture, palette, left + 125, footY - 84, 26);

    // before them: the wall with the gate
    const int wallTop = footY - 58;
    for (int x = left + 28; x < left + 192; ++x) {
        const double across = std::abs(x - gate) / 120.0;
        const bool merlon = (x - left - 28) % 14 < 9;
        for (int y = wallTop - (merlon ? 7 : 0); y < footY; ++y) {
            const bool edge = y == wallTop - (merlon ? 7 : 0) || ((x - left - 28) % 14 == 0 && y < wallTop) ||
                              ((x - left - 28) % 14 == 8 && y < wallTop) || x == left + 28;
            const double low = std::max(0.0, (y - footY + 16) / 40.0);
            Dot(picture, x, y,
                edge          ? palette["ink1"]
                : y < wallTop ? palette["sky3"]
                              : StoneAt(palette, x, y, 0.12 + 0.5 * across + low, 75));
        }
        if (!merlon) Dot(picture, x, wallTop, palette["ink1"]);
    }
    Box(picture, left + 29, wallTop + 4, left + 192, wallTop + 6, palette["mist0"]);

    // the gate is open; the hero walks into its dark
    constexpr int half = 16;
    const int archY = footY - 26;
    for (int y = footY - 50; y < footY; ++y) {
        for (int x = gate - half - 6; x < gate + half + 6; ++x) {
            const double dx = std::abs(x - gate + 0.5);
            const double reach = y >= archY ? dx : std::hypot(dx, y - archY);
            if (reach >= half + 5) continue;
            const double turn = y >= archY ? (y - archY) / 6.0 : std::atan2(y - archY, x - gate) * 5.0;
            const bool joint = turn - std::floor(turn) < 0.18;
            const bool portcullis = y < archY + 4 && (x - gate + half) % 6 < 2 && (y > archY - 8 || dx < half);
            const char* tone = reach >= half + 4  ? "ink1"
                               : reach >= half    ? (joint      ? "wood0"
                                                     : x < gate ? "sky4"
                                                                : "mist1")
                               : portcullis       ? "wood0"
                               : reach > half - 3 ? "ink1"
                                                  : "ink0";
            Dot(picture, x, y, palette[tone]);
        }
    }
    // lamps beside it
    for (const int x : {gate - 30, gate + 29}) {
        Box(picture, x - 2, footY - 34, x + 3, footY - 33, palette["ink1"]);
        Box(picture, x - 1, footY - 33, x + 2, footY - 28, palette["warm4"]);
        Box(picture, x, footY - 33, x + 1, footY - 29, palette["warm5"]);
        Box(picture, x - 2, footY - 28, x + 3, footY - 27, palette["ink1"]);
    }
    PaintBanner(picture, palette, gate - 48, footY - 50, 22);
    PaintBanner(picture, palette, gate + 40, footY - 50, 22);
}

} // namespace pictures
