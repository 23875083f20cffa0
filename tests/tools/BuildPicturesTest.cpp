#include "platform/Picture.h"

#include "tests/support/Program.h"
#include "tests/support/TestFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <string>

using testing::HasSubstr;

namespace {

/// A copy of the sources in a folder of its own, where the pictures can be built without touching the game's.
class Workshop : public TestFolder {
public:
    Workshop() { Copy("art"); }
    Ending Build() const { return RunProgram("build_pictures", Root()); }
};

} // namespace

TEST(BuildPictures, MakesExactlyWhatTheGameShows) {
    Workshop workshop;
    const Ending ending = workshop.Build();
    ASSERT_EQ(ending.exitCode, 0) << ending.told;
    int compared = 0;
    for (const char* subfolder : {"Resources/Images", "Resources/Files"}) {
        for (const auto& entry : std::filesystem::directory_iterator(workshop.Root() / subfolder)) {
            SCOPED_TRACE(entry.path().filename());
            const std::filesystem::path kept = std::filesystem::path(subfolder) / entry.path().filename();
            ++compared;
            if (entry.path().extension() == ".svg" || entry.path().extension() == ".txt") {
                EXPECT_EQ(RunCommand("cmp '" + entry.path().string() + "' '" + kept.string() + "'").told, "");
                continue;
            }
            const auto built = platform::LoadPicture(entry.path().string());
            const auto game = platform::LoadPicture(kept.string());
            ASSERT_TRUE(built);
            ASSERT_TRUE(game);
            EXPECT_EQ(built->width, game->width);
            EXPECT_TRUE(built->pixels == game->pixels) << "edited by hand, or not built again";
        }
    }
    EXPECT_EQ(compared, 22);
}

TEST(BuildPictures, NamesFileAndLineOfAFault) {
    struct Case {
        const char* file;
        const char* line;
        const char* fault;
    };
    const Case cases[] = {
        {"palette.txt", "extra1 ffffff\n", "palette.txt:65: more than 48 colours"},
        {"level/scene.txt", "bush 100\n", "the width is missing"},
        {"level/scene.txt", "tree 100 0 20 near bark\n", "the height must be at least 1"},
        {"level/scene.txt", "mood 10 sky1 20\n", "the moods come first"},
        {"level/scene.txt", "grass 0 999999999 30 6 leaf1 haze0\n", "far outside of the picture"},
        {"level/scene.txt", "box 0 0 9 9 earth2\n", "earth2 is kept for solids"},
        {"level/actors.txt", "skreel here\n", "x must be a whole number, not here"},
        {"sprites/things.txt", "part torn\noo\n", "the file ends inside a grid"},
        {"sprites/things.txt", "row 0 0 16 : nothing\n", "no such frame"},
    };
    for (const Case& spoiled : cases) {
        SCOPED_TRACE(spoiled.line);
        Workshop workshop;
        const std::string source = std::string("art/") + spoiled.file;
        workshop.Write(source, workshop.Read(source) + spoiled.line);
        const Ending ending = workshop.Build();
        EXPECT_EQ(ending.exitCode, 2);
        EXPECT_THAT(ending.told, HasSubstr(spoiled.fault));
        EXPECT_THAT(ending.told, HasSubstr(source + ":"));
    }
}
