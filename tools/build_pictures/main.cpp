#include "tools/build_pictures/Actors.h"
#include "tools/build_pictures/LevelPainter.h"
#include "tools/build_pictures/SpriteSource.h"
#include "tools/build_pictures/Terrain.h"

#include <filesystem>
#include <iostream>

using namespace pictures;

namespace {

constexpr int levelWidth = 3392;
constexpr int levelHeight = 448;

void Save(const std::filesystem::path& path, const platform::Picture& picture) {
    const bool saved = path.extension() == ".bmp" ? platform::SaveBmp(path.string(), picture)
                                                  : platform::SavePng(path.string(), picture);
    if (!saved) throw std::runtime_error(path.string() + ": cannot be written");
}

void Build(const std::filesystem::path& art, const std::filesystem::path& resources) {
    const Palette palette((art / "palette.txt").string());
    const std::filesystem::path images = resources / "Images";
    std::filesystem::create_directories(images);
    const std::filesystem::path files = resources / "Files";
    std::filesystem::create_directories(files);

    std::map<std::string, SpriteSource> sources;
    for (const auto& entry : std::filesystem::directory_iterator(art / "sprites")) {
        const SpriteSource& source =
            sources.emplace(entry.path().stem().string(), SpriteSource(entry.path().string(), palette)).first->second;
        for (const auto& [name, sheet] : source.Sheets()) {
            Save(name.starts_with("icon-") ? art / "icons" / name : images / name, sheet);
        }
    }

    const Terrain terrain((art / "level" / "terrain.svg").string(), levelWidth, levelHeight);
    if (!terrain.SaveOutline((images / "World1-1_Collision.svg").string())) {
        throw std::runtime_error("the outline cannot be written");
    }
    WriteActors((art / "level" / "actors.txt").string(), terrain, (files / "Data_Pelko.txt").string(),
                (files / "Data_Enemies.txt").string());
    LevelPainter painter(palette, terrain, sources.at("props"));
    painter.Read((art / "level" / "scene.txt").string());
    Save(images / "World1-1.png", painter.Level());
    Save(images / "CastleHalf.png", painter.CastleFront());
}

} // namespace

/// Makes every picture, the outline and the data files under Resources/ from the sources in art/. Runs in the root
/// folder.
int main() {
    try {
        Build("art", "Resources");
    } catch (const std::exception& fault) {
        std::cerr << fault.what() << '\n';
        return 2;
    }
    return 0;
}
