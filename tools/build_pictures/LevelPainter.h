#pragma once

#include "platform/Picture.h"
#include "tools/build_pictures/Palette.h"

#include <string>

namespace pictures {

class SourceFile;
class SpriteSource;
class Terrain;

/// Paints the level: backdrop and buildings as the scene file lists them, then everything solid on top.
class LevelPainter {
public:
    LevelPainter(const Palette& palette, const Terrain& terrain, const SpriteSource& props);

    /// Paints what the scene file at `path` lists, in its order; throws SourceError.
    void Read(const std::string& path);

    const platform::Picture& Level() const { return level; }
    /// The part of the castle behind which the hero disappears.
    const platform::Picture& CastleFront() const { return castleFront; }

private:
    void PaintSolids();

    const Palette& palette;
    const Terrain& terrain;
    const SpriteSource& props;
    platform::Picture level;
    platform::Picture castleFront;
};

} // namespace pictures
