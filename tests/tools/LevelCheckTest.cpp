#include "platform/Picture.h"
#include "tests/support/Program.h"
#include "tests/support/TestFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <string>

using testing::HasSubstr;
using testing::Not;

namespace {

/// Runs the checker on the folder that holds Resources/ and art/.
Ending CheckLevel(const std::filesystem::path& folder, const std::filesystem::path& picture) {
    return RunProgram("level_check '" + folder.string() + "' '" + picture.string() + "'");
}

/// A copy of the level that a test may spoil.
class SpoiledLevel : public TestFolder {
public:
    SpoiledLevel() {
        Copy("Resources");
        Copy("art/palette.txt");
    }

    /// Replaces the first `from` in a file, which must be there.
    void Replace(const std::string& file, const std::string& from, const std::string& to) {
        std::string text = Read("Resources/" + file);
        const std::size_t at = text.find(from);
        ASSERT_NE(at, std::string::npos) << from;
        Write("Resources/" + file, text.replace(at, from.size(), to));
    }
};

constexpr const char* outline = "Images/World1-1_Collision.svg";
constexpr const char* enemies = "Files/Data_Enemies.txt";

} // namespace

TEST(LevelCheck, FindsNothingWrongWithTheLevelThatIsPlayed) {
    const TestFolder folder;
    const Ending report = CheckLevel(".", folder.Root() / "shown.png");
    EXPECT_EQ(report.exitCode, 0) << report.told;
}

TEST(LevelCheck, NamesEveryFaultWithItsPlaceAndShowsIt) {
    SpoiledLevel level;
    // the hanging slab of the underground room goes: the coin furthest from the shelf is out of reach
    level.Replace(outline, "M 180 352 L 208 352 L 208 364 L 180 364 Z", "");
    // a platform traced the other way round, one a pixel too low, and a bow tie in the air
    level.Replace(outline, "M 668 140 L 716 140 L 716 156 L 668 156 Z", "M 668 140 L 668 156 L 716 156 L 716 140 Z");
    level.Replace(outline, "M 1096 144 L 1144 144", "M 1096 145 L 1144 145 L 1144 145");
    level.Replace(outline, "\"/>", "M 1000 20 L 1020 40 L 1020 20 L 1000 40 Z\"/><rect width=\"9\" height=\"9\"/>");
    level.Replace(enemies, "PositionY:     192", "PositionY:     150");
    level.Replace(enemies, "PositionX:     2790", "PositionX:     2630");

    const std::filesystem::path picture = level.Root() / "shown.png";
    const Ending report = CheckLevel(level.Root(), picture);
    EXPECT_EQ(report.exitCode, 1);
    EXPECT_THAT(report.told, HasSubstr("(144, 298): coin 4 cannot be collected"));
    EXPECT_THAT(report.told, HasSubstr("(668, 140): a solid figure is traced counter-clockwise on screen"));
    EXPECT_THAT(report.told, HasSubstr("(1096, 144): outline and picture disagree about 24 pixels"));
    EXPECT_THAT(report.told, HasSubstr("(1144, 145): an edge of the outline has no length"));
    EXPECT_THAT(report.told, HasSubstr("the outline crosses or touches itself"));
    EXPECT_THAT(report.told, HasSubstr("a <rect> element, which the game ignores"));
    EXPECT_THAT(report.told, HasSubstr("enemy 0 does not stand on the ground"));
    EXPECT_THAT(report.told, HasSubstr("enemy 14 waits where the hero appears"));
    EXPECT_THAT(report.told, Not(HasSubstr("pit")));

    const auto shown = platform::LoadPicture(picture.string());
    ASSERT_TRUE(shown);
    EXPECT_EQ(shown->At(664, 136), 0xffff0000U); // the corner of the frame around the wrongly traced platform
}

TEST(LevelCheck, PlaysTheLevelWithTheRealHero) {
    SpoiledLevel level;
    // the first pit reaches far to the right, and the platform above it is gone
    level.Replace(outline, "M 668 140 L 716 140 L 716 156 L 668 156 Z", "");
    level.Replace(outline, "M 630 200 L 752 200", "M 740 200 L 752 200");
    level.Replace(outline, "L 1160 448 L 630 448 Z", "L 1160 448 L 740 448 Z");
    const Ending report = CheckLevel(level.Root(), level.Root() / "shown.png");
    EXPECT_EQ(report.exitCode, 1);
    EXPECT_THAT(report.told, HasSubstr("(600, 200): the pit of 140 pixels cannot be crossed by the small hero"));
}
