#include "tools/build_pictures/Actors.h"

#include "game/entities/EnemyKinds.h"
#include "tools/art/SourceFile.h"
#include "tools/build_pictures/Terrain.h"

#include <fstream>
#include <iomanip>

namespace pictures {

namespace {

/// One line of a data file: a label padded to fifteen characters, then the value.
void WriteField(std::ostream& stream, const std::string& label, int value) {
    stream << std::left << std::setw(15) << label + ":" << value << '\n';
}

/// Null if no enemy has the name.
const EnemyKind* FindKind(const std::string& name) {
    for (const EnemyMaker& maker : EnemyMakers()) {
        if (name == maker.kindPtr->name) return maker.kindPtr;
    }
    return nullptr;
}

} // namespace

void WriteActors(const std::string& path, const Terrain& terrain, const std::string& heroFile,
                 const std::string& enemyFile) {
    SourceFile file(path);
    std::ofstream hero(heroFile);
    std::ofstream enemies(enemyFile);
    while (file.NextLine()) {
        const std::string who = file.Word("who");
        const int x = file.Number("x");
        if (who == "hero") {
            WriteField(hero, "PositionX", x);
            WriteField(hero, "PositionY", file.Number("y"));
            WriteField(hero, "FormState", file.Number("the form"));
        } else {
            const EnemyKind* const kindPtr = FindKind(who);
            if (kindPtr == nullptr) file.Fail("nobody is called " + who);
            WriteField(enemies, "PositionX", x);
            WriteField(enemies, "PositionY", terrain.GroundAt(x) - kindPtr->height / 2);
            WriteField(enemies, "Type", kindPtr->type);
            enemies << '\n';
        }
    }
    if (!hero.flush() || !enemies.flush()) file.Fail("the data files cannot be written");
}

} // namespace pictures
