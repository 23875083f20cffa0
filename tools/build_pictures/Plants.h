#pragma once

#include "platform/Picture.h"

#include <cstdint>

namespace pictures {

/// The tones of a plant or cloud, from its outline to its highlights.
struct Tones {
    std::uint32_t outline;
    std::uint32_t dark;
    std::uint32_t mid;
    std::uint32_t light;
    std::uint32_t glow;
};

/// Leaves in overlapping cushions inside an ellipse, lit from the upper left.
void PaintFoliage(platform::Picture& picture, double centreX, double centreY, double radiusX, double radiusY,
                  const Tones& tones, int seed);

/// A trunk that stands at (`x`, `footY`), `height` high and `width` wide at half its height, with roots and two boughs.
void PaintTrunk(platform::Picture& picture, int x, int footY, int height, int width, const Tones& tones, int seed);

/// Fruit or blossom spread over the ellipse, each `size` pixels wide, lit by a pixel of `light`.
void PaintFruit(platform::Picture& picture, double centreX, double centreY, double radiusX, double radiusY,
                std::uint32_t colour, std::uint32_t light, int size, int count, int seed);

/// Separate blades of grass, up to `height` high, on every column from `left` to `right` - 1 that has its foot at
/// `footY`.
void PaintTuft(platform::Picture& picture, int x, int footY, int height, std::uint32_t dark, std::uint32_t light,
               int seed);

/// A cloud with a flat shaded base.
void PaintCloud(platform::Picture& picture, int x, int y, int width, const Tones& tones, int seed);

} // namespace pictures
