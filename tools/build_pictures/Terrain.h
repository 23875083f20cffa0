#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace pictures {

constexpr int levelWidth = 3392;
constexpr int levelHeight = 448;
constexpr int overworldBottom = 224; // the underground room lies below

/// What is solid in the level, read from a drawing whose first path has only straight edges.
class Terrain {
public:
    /// Reads the outline of `path`; throws SourceError.
    explicit Terrain(const std::string& path);

    /// Is the pixel in column `x`, row `y` solid? Beyond the level's edges the nearest pixel answers.
    bool IsSolid(int x, int y) const;
    /// The row of the ground under the open sky in column `x`, beneath floating platforms; the overworld's bottom in a
    /// pit.
    int GroundAt(int x) const;
    /// Pixels from (x, y), which must be solid, to the nearest air straight that way, 1 if it is the next one; at most
    /// `limit`.
    int DepthFrom(int x, int y, int stepX, int stepY, int limit) const;
    /// Writes the outline alone, as the game reads it. False if the file cannot be written.
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
