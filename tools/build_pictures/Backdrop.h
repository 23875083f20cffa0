#pragma once

#include "platform/Picture.h"

#include <cstdint>
#include <vector>

namespace pictures {

/// The sky from column `from` on: flat colours from top to bottom, each ending at its row.
struct Mood {
    struct Band {
        std::uint32_t colour;
        int bottom;
    };
    int from;
    std::vector<Band> bands;
};

/// Fills the rows above `bottom` with the moods, which must be sorted. Neighbours blend over about 240 pixels.
void PaintSky(platform::Picture& picture, const std::vector<Mood>& moods, int bottom);

/// Distant land. Its upper edge varies within `swing` pixels below row `top`, its body reaches row `bottom`.
struct Ridge {
    enum class Shape { hills, peaks, woods };
    Shape shape;
    int from;
    int to;
    int top;
    int swing;
    int period;
    int bottom;
    int seed;
    std::uint32_t light;
    std::uint32_t mid;
    std::uint32_t dark;
};

void PaintRidge(platform::Picture& picture, const Ridge& ridge);

} // namespace pictures
