#include "platform/Picture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <sys/wait.h>
#include <unistd.h>

using testing::HasSubstr;
using testing::Not;

namespace {

struct Report {
    int exitCode = -1;
    std::string text;
};

/// Runs the checker on the folder that holds Resources/ and art/.
Report CheckLevel(const std::filesystem::path& folder, const std::filesystem::path& picture) {
    const std::string command =
        std::string(QUILLFEN_BUILD_DIR) + "/level_check '" + folder.string() + "' '" + picture.string() + "' 2>&1";
    Report report;
    FILE* pipePtr = popen(command.c_str(), "r");
    if (pipePtr == nullptr) return report;
    char buffer[512];
    while (std::fgets(buffer, sizeof buffer, pipePtr) != nullptr) report.text += buffer;
    const int status = pclose(pipePtr);
    report.exitCode = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    return report;
}

/// A copy of the level that a test may spoil; gone when the test ends.
class SpoiledLevel {
public:
    SpoiledLevel() : folder(std::filesystem::temp_directory_path() / ("level_check_" + std::to_string(getpid()))) {
        std::filesystem::create_directories(folder / "art");
        std::filesystem::copy("Resources", folder / "Resources", std::filesystem::copy_options::recursive);
        std::filesystem::copy("art/palette.txt", folder / "art" / "palette.txt");
    }
    ~SpoiledLevel() { std::filesystem::remove_all(folder); }
    SpoiledLevel(const SpoiledLevel&) = delete;
    SpoiledLevel& operator=(const SpoiledLevel&) = delete;

    /// Replaces the first `from` in a file, which must be there.
    void Replace(const std::string& file, const std::string& from, const std::string& to) {
        const std::filesystem::path path = folder / "Resources" / file;
        std::string text;
        {
            std::ifstream stream(path);
            text.assign(std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>());
        }
        const std::size_t at = text.find(from);
        ASSERT_NE(at, std::string::npos) << from;
        std::ofstream(path) << text.replace(at, from.size(), to);
    }

    const std::filesystem::path folder;
};

constexpr const char* outline = "Images/World1-1_Collision.svg";
constexpr const char* enemies = "Files/Data_Enemies.txt";

} // namespace

TEST(LevelCheck, FindsNothingWrongWithTheLevelThatIsPlayed) {
    const Report report = CheckLevel(".", std::filesystem::temp_directory_path() / "level_check.png");
    EXPECT_EQ(report.exitCode, 0) << report.text;
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

    const std::filesystem::path picture = level.folder / "shown.png";
    const Report report = CheckLevel(level.folder, picture);
    EXPECT_EQ(report.exitCode, 1);
    EXPECT_THAT(report.text, HasSubstr("(144, 298): coin 4 cannot be collected"));
    EXPECT_THAT(report.text, HasSubstr("(668, 140): a solid figure is traced counter-clockwise on screen"));
    EXPECT_THAT(report.text, HasSubstr("(1096, 144): outline and picture disagree about 24 pixels"));
    EXPECT_THAT(report.text, HasSubstr("(1144, 145): an edge of the outline has no length"));
    EXPECT_THAT(report.text, HasSubstr("the outline crosses or touches itself"));
    EXPECT_THAT(report.text, HasSubstr("a <rect> element, which the game ignores"));
    EXPECT_THAT(report.text, HasSubstr("enemy 0 does not stand on the ground"));
    EXPECT_THAT(report.text, HasSubstr("enemy 14 waits where the hero appears"));
    EXPECT_THAT(report.text, Not(HasSubstr("pit")));

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
    const Report report = CheckLevel(level.folder, level.folder / "shown.png");
    EXPECT_EQ(report.exitCode, 1);
    EXPECT_THAT(report.text, HasSubstr("(600, 200): the pit of 140 pixels cannot be crossed by the small hero"));
}
