#pragma once

#include <string>

namespace pictures {

class Terrain;

/// Writes the game's two data files from the list at `path`: "hero X Y FORM", "skreel X", "dorvak X".
/// Enemies are placed on the ground of their column. Throws SourceError.
void WriteActors(const std::string& path, const Terrain& terrain, const std::string& heroFile,
                 const std::string& enemyFile);

} // namespace pictures
