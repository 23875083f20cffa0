#pragma once

#include "engine/DOUBLE2.h"
#include "tools/level_check/Findings.h"

#include <cstdint>
#include <string>
#include <vector>

/// The level's outline as the game reads it: closed figures of straight edges.
class Outline {
public:
    using Figure = std::vector<DOUBLE2>;

    /// Reads `path` with the game's own loader, and reports what in the file the loader takes no notice of, and edges
    /// that are not straight.
    Outline(const std::string& path, Findings& findings);

    /// Reports figures that cross themselves or each other, and figures traced the wrong way: clockwise on screen
    /// around solid, the other way around a hole in it.
    void CheckShape(Findings& findings) const;

    /// Whether the middle of each pixel is solid, row by row.
    std::vector<std::uint8_t> Fill(int width, int height) const;

private:
    void CheckText(const std::string& text, Findings& findings) const;

    std::vector<Figure> figures;
};
