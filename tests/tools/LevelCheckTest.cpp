#include "platform/Picture.h"
#include "tests/support/Program.h"
#include "tests/support/TestFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

namespace {

using testing::HasSubstr;

/// A copy of the level that a test may spoil.
struct Level : TestFolder {
    Level() {
        Copy("Resources");
        Copy("art/palette.txt");
    }
    /// Replaces the first `from` in a file, which must be there.
    void Replace(const std::string& file, const std::string& from, const std::string& to) const {
        std::string text = Read("Resources/" + file);
        Write("Resources/" + file, text.replace(text.find(from), from.size(), to));
    }
    Ending Check() const { return RunProgram("level_check . shown.png", Root()); }

    const std::string outline = "Images/World1-1_Collision.svg";
    const std::string enemies = "Files/Data_Enemies.txt";
};

TEST(LevelCheck, FindsNothingWrongWithTheLevelThatIsPlayed) {
    const Ending report = Level().Check();
    EXPECT_EQ(report.exitCode, 0) << report.told;
}

TEST(LevelCheck, NamesEveryFaultWithItsPlaceAndShowsIt) {
    const Level level;
    // without the hanging slab of the underground room one coin is out of reach
    level.Replace(level.outline, "M 180 352 L 208 352 L 208 364 L 180 364 Z", "");
    // a platform traced the other way round, one a pixel too low, and a bow tie in the air
    level.Replace(level.outline, "M 668 140 L 716 140 L 716 156 L 668 156", "M 668 140 L 668 156 L 716 156 L 716 140");
    level.Replace(level.outline, "M 1096 144 L 1144 144", "M 1096 145 L 1144 145 L 1144 145");
    level.Replace(level.outline, "\"/>",
                  "M 1000 20 L 1020 40 L 1020 20 L 1000 40 Z\"/><rect width=\"9\" height=\"9\"/>");
    level.Replace(level.enemies, "PositionY:     192", "PositionY:     150");
    level.Replace(level.enemies, "PositionX:     2790", "PositionX:     2630");
    const Ending report = level.Check();
    EXPECT_EQ(report.exitCode, 1);
    for (const char* finding :
         {"(144, 298): coin 4 cannot be collected", "(668, 140): a solid figure is traced counter-clockwise on screen",
          "(1096, 144): outline and picture disagree about 24 pixels",
          "(1144, 145): an edge of the outline has no length", "the outline crosses or touches itself",
          "a <rect> element, which the game ignores", "enemy 0 does not stand on the ground",
          "enemy 14 waits where the hero appears"}) {
        EXPECT_THAT(report.told, HasSubstr(finding));
    }
    EXPECT_THAT(report.told, testing::Not(HasSubstr("pit")));
    const auto shown = platform::LoadPicture((level.Root() / "shown.png").string());
    ASSERT_TRUE(shown);
    EXPECT_EQ(shown->At(664, 136), 0xffff0000U); // the corner of the frame around the wrongly traced platform
}

TEST(LevelCheck, PlaysTheLevelWithTheRealHero) {
    const Level level;
    // the first pit is much wider, and the platform above it is gone
    level.Replace(level.outline, "M 668 140 L 716 140 L 716 156 L 668 156 Z", "");
    level.Replace(level.outline, "M 630 200 L 752 200", "M 740 200 L 752 200");
    level.Replace(level.outline, "L 1160 448 L 630 448 Z", "L 1160 448 L 740 448 Z");
    const Ending report = level.Check();
    EXPECT_EQ(report.exitCode, 1);
    EXPECT_THAT(report.told, HasSubstr("(600, 200): the pit of 140 pixels cannot be crossed by the small hero"));
}

} // namespace
