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

namespace {

/// A copy of the sources in a folder of its own, where the pictures can be built without touching the game's.
class Workshop {
public:
    Workshop() : folder(std::filesystem::temp_directory_path() / ("build_pictures_" + std::to_string(getpid()))) {
        std::filesystem::create_directories(folder);
        std::filesystem::copy("art", folder / "art", std::filesystem::copy_options::recursive);
    }
    ~Workshop() { std::filesystem::remove_all(folder); }
    Workshop(const Workshop&) = delete;
    Workshop& operator=(const Workshop&) = delete;

    /// Builds everything and returns the exit code; what was printed is in `output`.
    int Build() {
        const std::string command = "cd '" + folder.string() + "' && '" + QUILLFEN_BUILD_DIR + "/build_pictures' 2>&1";
        FILE* pipePtr = popen(command.c_str(), "r");
        if (pipePtr == nullptr) return -1;
        output.clear();
        char buffer[512];
        while (std::fgets(buffer, sizeof buffer, pipePtr) != nullptr) output += buffer;
        const int status = pclose(pipePtr);
        return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }

    void Append(const std::string& file, const std::string& text) const {
        std::ofstream(folder / "art" / file, std::ios::app) << text;
    }

    const std::filesystem::path folder;
    std::string output;
};

std::string TextOf(const std::filesystem::path& path) {
    std::ifstream stream(path, std::ios::binary);
    return std::string((std::istreambuf_iterator<char>(stream)), std::istreambuf_iterator<char>());
}

} // namespace

TEST(BuildPictures, MakesExactlyWhatTheGameShows) {
    Workshop workshop;
    ASSERT_EQ(workshop.Build(), 0) << workshop.output;
    int compared = 0;
    for (const char* subfolder : {"Resources/Images", "Resources/Files"}) {
        for (const auto& entry : std::filesystem::directory_iterator(workshop.folder / subfolder)) {
            SCOPED_TRACE(entry.path().filename());
            const std::filesystem::path kept = std::filesystem::path(subfolder) / entry.path().filename();
            ++compared;
            if (entry.path().extension() == ".svg" || entry.path().extension() == ".txt") {
                EXPECT_EQ(TextOf(entry.path()), TextOf(kept));
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
        workshop.Append(spoiled.file, spoiled.line);
        EXPECT_EQ(workshop.Build(), 2);
        EXPECT_THAT(workshop.output, HasSubstr(spoiled.fault));
        EXPECT_THAT(workshop.output, HasSubstr(std::string("art/") + spoiled.file + ":"));
    }
}
