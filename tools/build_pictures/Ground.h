#pragma once

#include "platform/Picture.h"

#include <string>
#include <vector>

namespace pictures {

class Palette;
class Terrain;

/// Paints all solid ground, each region in its material: lit or overgrown tops, outlined edges, few large details
/// inside.
class Ground {
public:
    Ground(const Palette& usedPalette, const Terrain& usedTerrain) : palette(usedPalette), terrain(usedTerrain) {}

    /// Solids in columns `left` to `right` - 1 of rows `top` to `bottom` - 1 are of `material`; later regions win.
    /// False if there is no such material ("earth", "ruin", "fort", "cave", "wood", "log").
    bool SetMaterial(const std::string& material, int left, int top, int right, int bottom);
    void Paint(platform::Picture& picture) const;

private:
    enum class Material { earth, ruin, fort, cave, wood, log };
    struct Region {
        Material material;
        int left;
        int top;
        int right;
        int bottom;
    };
    /// A solid pixel: its place, and how many pixels it is from the air on each side.
    struct Spot {
        int x;
        int y;
        int top;
        int bottom;
        int left;
        int right;
    };
    /// A tone from 0, the darkest of the material, to 4; or one of the greens 5 (dark) to 8 (light).
    using Tone = int;

    int DepthBelowTop(int x, int y) const;
    /// The material of a pixel; earth outside of all regions.
    Region RegionAt(int x, int y) const;
    static Tone Earth(const Spot& spot);
    static Tone Turf(const Spot& spot);
    static Tone Masonry(const Spot& spot, int courseHeight, int blockWidth, int seed);
    static Tone Ruin(const Spot& spot);
    static Tone Fort(const Spot& spot);
    static Tone Cave(const Spot& spot);
    static Tone Wood(const Spot& spot);
    static Tone Log(const Region& region, int x, int y);
    static Tone Pebble(int x, int y, int cellWidth, int cellHeight, double share, int seed);

    const Palette& palette;
    const Terrain& terrain;
    std::vector<Region> regions;
};

} // namespace pictures
