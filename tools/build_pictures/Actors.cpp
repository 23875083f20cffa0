#include "tools/build_pictures/Actors.h"

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
        } else if (who == "skreel" || who == "dorvak") {
            const int type = who == "dorvak" ? 1 : 0;
            const int halfHeight = type == 1 ? 12 : 8;
            WriteField(enemies, "PositionX", x);
            WriteField(enemies, "PositionY", terrain.GroundAt(x) - halfHeight);
            WriteField(enemies, "Type", type);
            enemies << '\n';
        } else {
            file.Fail("nobody is called " + who);
        }
    }
    if (!hero.flush() || !enemies.flush()) file.Fail("the data files cannot be written");
}

} // namespace pictures
