#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace pictures {

constexpr int levelWidth = 3392;
constexpr int levelHeight = 448;
constexpr int overworldBottom = 224; // the underground room lies below

/// The solid pixels of the level, read from a drawing whose first path has only straight edges.
class Terrain {
public:
    /// Reads the outline of `path`; throws SourceError.
    explicit Terrain(const std::string& path);

    /// Whether the pixel in column `x`, row `y` is solid. Outside of the level the nearest pixel counts.
    bool IsSolid(int x, int y) const;
    /// The row of the ground in column `x` of the overworld, below floating platforms; its bottom row in a pit.
    int GroundAt(int x) const;
    /// Pixels from (x, y), which must be solid, to the nearest air in this direction: 1 if the next pixel is air, at
    /// most `limit`.
    int DepthFrom(int x, int y, int stepX, int stepY, int limit) const;
    /// Writes only the outline, in the form that the game reads. False if the file cannot be written.
    bool SaveOutline(const std::string& path) const;

private:
    struct Corner {
        int x;
        int y;
    };

    void Fill();

    std::vector<std::vector<Corner>> figures;
    std::vector<std::uint8_t> solid;
};

} // namespace pictures
