#include "game/ChosenLevel.h"
#include "tools/build_pictures/Actors.h"
#include "tools/build_pictures/ContactSheet.h"
#include "tools/build_pictures/LevelPainter.h"
#include "tools/build_pictures/SpriteSource.h"
#include "tools/build_pictures/Terrain.h"

#include <filesystem>
#include <iostream>

using namespace pictures;

namespace {

void Save(const std::filesystem::path& path, const platform::Picture& picture) {
    const bool saved = path.extension() == ".bmp" ? platform::SaveBmp(path.string(), picture)
                                                  : platform::SavePng(path.string(), picture);
    if (!saved) throw std::runtime_error(path.string() + ": cannot be written");
}

/// `show`: a folder for pictures of everything together; none when empty.
void Build(const std::filesystem::path& art, const std::filesystem::path& images, const std::filesystem::path& show) {
    const Palette palette((art / "palette.txt").string());
    std::filesystem::create_directories(images);
    std::filesystem::create_directories(std::filesystem::path(chosenLevel.enemyFile).parent_path());

    std::map<std::string, SpriteSource> sources;
    std::map<std::string, platform::Picture> sheets;
    for (const auto& entry : std::filesystem::directory_iterator(art / "sprites")) {
        const SpriteSource& source =
            sources.emplace(entry.path().stem().string(), SpriteSource(entry.path().string(), palette)).first->second;
        for (const auto& [name, sheet] : source.Sheets()) {
            Save(name.starts_with("icon-") ? art / "icons" / name : images / name, sheet);
            sheets[name] = sheet;
        }
    }

    const Terrain terrain((art / "level" / "terrain.svg").string());
    if (!terrain.SaveOutline(chosenLevel.outline)) { throw std::runtime_error("the outline cannot be written"); }
    WriteActors((art / "level" / "actors.txt").string(), terrain, chosenLevel.heroFile, chosenLevel.enemyFile);
    if (!sources.contains("props")) throw std::runtime_error((art / "sprites" / "props.txt").string() + ": missing");
    LevelPainter painter(palette, terrain, sources.at("props"));
    painter.Read((art / "level" / "scene.txt").string());
    Save(chosenLevel.background, painter.Level());
    Save(chosenLevel.castle.file, painter.CastleFront());

    if (show.empty()) return;
    std::filesystem::create_directories(show);
    Save(show / "level.png", ShowLevel(painter.Level(), sheets));
    Save(show / "sheets.png", ShowSheets(sheets, palette["haze1"]));
}

} // namespace

/// build_pictures [--show FOLDER]: makes every picture, the outline and the data files under Resources/ from the
/// sources in art/. Run it in the root folder. With a FOLDER it also writes overviews of the level and of all sheets
/// there.
int main(int argc, char** argv) {
    const bool shows = argc == 3 && std::string(argv[1]) == "--show";
    if (argc != 1 && !shows) {
        std::cerr << "usage: build_pictures [--show FOLDER]\n";
        return 2;
    }
    try {
        Build("art", "Resources/Images", shows ? argv[2] : "");
    } catch (const std::exception& fault) {
        std::cerr << fault.what() << '\n';
        return 2;
    }
    return 0;
}
