#pragma once

#include "platform/Picture.h"
#include "tools/art/Palette.h"
#include "tools/level_check/Findings.h"

#include <cstdint>
#include <vector>

/// Which pixels of the level are solid.
struct SolidMap {
    int width = 0;
    int height = 0;
    std::vector<std::uint8_t> solid;

    bool IsSolid(int x, int y) const {
        if (x < 0 || y < 0 || x >= width || y >= height) return false;
        return solid[static_cast<std::size_t>(y) * static_cast<std::size_t>(width) + static_cast<std::size_t>(x)] != 0;
    }
};

/// Reports where the outline and the colours of the picture do not agree on what is solid.
void CheckPicture(const SolidMap& map, const platform::Picture& picture, const pictures::Palette& palette,
                  Findings& findings);

/// Reports blocks, coins and enemies of the running game that are inside solid ground; enemies that do not stand on
/// it, or that are close to a place where the hero appears; and an enemy without a shell in the slot of the shell.
void CheckPlaces(const SolidMap& map, Findings& findings);
