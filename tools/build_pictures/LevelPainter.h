#pragma once

#include "platform/Picture.h"
#include "tools/art/Palette.h"
#include "tools/build_pictures/Backdrop.h"
#include "tools/build_pictures/Ground.h"
#include "tools/build_pictures/Plants.h"

#include <map>
#include <string>

namespace pictures {

class SourceFile;
class SpriteSource;
class Terrain;

/// Paints the level: backdrop and buildings in the order of the scene file, then everything solid on top.
///
/// Lines of the scene file. Without Y the object stands on the ground in its column:
///
///     mood FROM COLOUR BOTTOM ...                        the sky from column FROM on; these lines come first
///     tones NAME OUTLINE DARK MID LIGHT GLOW             colours for plants and clouds
///     ridge SHAPE FROM TO TOP SWING PERIOD BOTTOM SEED LIGHT MID DARK
///     cloud X Y WIDTH TONES
///     tree X HEIGHT CROWN TONES TRUNK [FRUIT LIGHT]      CROWN is the crown's width
///     bush X WIDTH HEIGHT TONES [FRUIT LIGHT]
///     grass FROM TO SHARE HEIGHT DARK LIGHT              tufts on the ground
///     column X WIDTH HEIGHT, wall X WIDTH HEIGHT OPENING, tower X WIDTH HEIGHT ROOF
///     prop NAME X [Y]                                    a frame of the sprites in props, standing there
///     box LEFT TOP RIGHT BOTTOM COLOUR
///     glow X Y RADIUS PERCENT COLOUR                     light around a lamp: dots, PERCENT of them in its middle
///     cave LEFT TOP RIGHT BOTTOM                         the wall behind a room under ground
///     fort X                                             the building at the end
///     material NAME LEFT TOP RIGHT BOTTOM                what the solids there are made of
class LevelPainter {
public:
    LevelPainter(const Palette& palette, const Terrain& terrain, const SpriteSource& props);

    /// Paints what the scene file at `path` lists; throws SourceError.
    void Read(const std::string& path);

    const platform::Picture& Level() const { return level; }
    /// The part of the fort that hides the hero.
    const platform::Picture& CastleFront() const { return castleFront; }

private:
    std::uint32_t ReadColour(SourceFile& file) const;
    const Tones& ReadTones(SourceFile& file) const;
    void ReadMood(SourceFile& file);
    void ReadToneNames(SourceFile& file);
    void ReadCloud(SourceFile& file);
    void ReadColumn(SourceFile& file);
    void ReadWall(SourceFile& file);
    void ReadTower(SourceFile& file);
    void ReadBox(SourceFile& file);
    void ReadMaterial(SourceFile& file);
    void ReadRidge(SourceFile& file);
    void ReadTree(SourceFile& file);
    void ReadBush(SourceFile& file);
    void ReadGrass(SourceFile& file);
    void ReadProp(SourceFile& file);
    void ReadCave(SourceFile& file);
    void ReadGlow(SourceFile& file);
    void ReadFort(SourceFile& file);
    void PaintPits();

    const Palette& palette;
    const Terrain& terrain;
    const SpriteSource& props;
    Ground ground;
    std::vector<Mood> moods;
    std::map<std::string, Tones> tones;
    platform::Picture level;
    platform::Picture castleFront;
};

} // namespace pictures
