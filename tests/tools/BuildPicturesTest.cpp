#include "platform/Picture.h"
#include "tests/support/Program.h"
#include "tests/support/TestFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <tuple>

namespace {

/// Copies of the sources, where the pictures can be built without touching the game's.
struct Workshop : TestFolder {
    Workshop() { Copy("art"); }
    Ending Build() const { return RunProgram("build_pictures", Root()); }
};

TEST(BuildPictures, MakesExactlyWhatTheGameShows) {
    const Workshop workshop;
    const Ending ending = workshop.Build();
    ASSERT_EQ(ending.exitCode, 0) << ending.told;
    int compared = 0;
    for (const std::string kept : {"Resources/Images", "Resources/Files"}) {
        for (const auto& entry : std::filesystem::directory_iterator(workshop.Root() / kept)) {
            const std::string name = kept + "/" + entry.path().filename().string();
            const auto built = platform::LoadPicture(entry.path().string());
            const auto shown = platform::LoadPicture(name);
            const bool isSame = built && shown
                                    ? built->width == shown->width && built->pixels == shown->pixels
                                    : RunCommand("cmp '" + entry.path().string() + "' " + name).exitCode == 0;
            EXPECT_TRUE(isSame) << name << " was edited by hand, or not built again";
            ++compared;
        }
    }
    EXPECT_EQ(compared, 22);
}

TEST(BuildPictures, NamesFileAndLineOfAFault) {
    const std::tuple<std::string, const char*, const char*> cases[] = {
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
    for (const auto& [file, line, fault] : cases) {
        const Workshop workshop;
        workshop.Write("art/" + file, workshop.Read("art/" + file) + line);
        const Ending ending = workshop.Build();
        EXPECT_EQ(ending.exitCode, 2) << line;
        EXPECT_THAT(ending.told, testing::AllOf(testing::HasSubstr("art/" + file + ":"), testing::HasSubstr(fault)));
    }
}

} // namespace
