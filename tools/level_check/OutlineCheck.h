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

    /// Reads `path` with the game's own loader. Reports parts of the file that the loader ignores, and curved edges.
    Outline(const std::string& path, Findings& findings);

    /// Reports figures that cross themselves or each other, and figures traced the wrong way: clockwise on screen
    /// around solid, the other way around a hole in it.
    void CheckShape(Findings& findings) const;

    /// For each pixel, row by row: whether its middle is solid.
    std::vector<std::uint8_t> Fill(int width, int height) const;

private:
    void CheckText(const std::string& text, Findings& findings) const;

    std::vector<Figure> figures;
};
