#include "tools/build_pictures/LevelPainter.h"

#include "tools/build_pictures/Brush.h"
#include "tools/build_pictures/SourceFile.h"
#include "tools/build_pictures/SpriteSource.h"
#include "tools/build_pictures/Terrain.h"

namespace pictures {

LevelPainter::LevelPainter(const Palette& usedPalette, const Terrain& usedTerrain, const SpriteSource& usedProps)
    : palette(usedPalette), terrain(usedTerrain), props(usedProps), level(3392, 448), castleFront(120, 200) {}

void LevelPainter::Read(const std::string&) {
    for (int y = 0; y < level.height; ++y) {
        for (int x = 0; x < level.width; ++x) {
            std::uint32_t c = palette[y < 60 ? "sky1" : y < 110 ? "sky2" : "sky3"];
            if (y > 120 + 50 * Wave(x, 90, 1)) c = palette["sky2"];
            if (y > 150 + 40 * Wave(x, 60, 2)) c = palette["haze1"];
            if (y >= 224 || (y > 200)) c = palette["under0"];
            level.At(x, y) = c;
        }
    }
    Box(level, 3175, 40, 3177, 184, palette["wood0"]);
    Box(level, 3172, 36, 3180, 40, palette["gold2"]);
    Box(level, 3232, 96, 3272, 200, palette["mist1"]);
    Box(level, 3256, 150, 3272, 200, palette["ink1"]);
    Box(castleFront, 0, 80, 120, 200, palette["mist1"]);
    Box(castleFront, 0, 80, 120, 84, palette["mist0"]);
    PaintSolids();
}

void LevelPainter::PaintSolids() {
    for (int y = 0; y < level.height; ++y) {
        for (int x = 0; x < level.width; ++x) {
            if (!terrain.IsSolid(x, y)) continue;
            const int depth = terrain.DepthFrom(x, y, 0, -1, 8);
            const bool cave = y >= 224 && x < 256;
            const char* name = depth == 1 ? "leaf4" : depth <= 4 ? "leaf3" : depth == 5 ? "leaf2" : "earth2";
            if (cave || (y > 210 && depth < 8)) name = depth <= 2 ? "under3" : "under2";
            level.At(x, y) = palette[name];
        }
    }
}

} // namespace pictures
