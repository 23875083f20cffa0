// Starts the game beside resources that are missing or damaged and looks at what a player is told and how the game
// ends.

#include "tests/support/Program.h"
#include "tests/support/TestFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <functional>
#include <random>
#include <string>

namespace {

namespace fs = std::filesystem;
using testing::HasSubstr;

constexpr int fatalExitCode = 255; // -1, as the system reports it

/// A copy of the game's resources to spoil, and the game run beside it.
class BadResources : public testing::Test {
protected:
    BadResources() {
        copy.Copy("Resources");
        copy.Write("three-frames.demo", "end 3\n");
    }

    Ending Play() const { return RunProgram("demo_player three-frames.demo", folder); }

    TestFolder copy;
    const fs::path& folder = copy.Root();
};

struct Damage {
    const char* name;
    std::function<void(const fs::path& file)> apply;
};

const Damage damages[] = {
    {"missing", [](const fs::path& file) { fs::remove(file); }},
    {"empty", [](const fs::path& file) { fs::resize_file(file, 0); }},
    {"cut in half", [](const fs::path& file) { fs::resize_file(file, fs::file_size(file) / 2); }},
    {"random bytes",
     [](const fs::path& file) {
         std::mt19937 random(7);
         std::ofstream stream(file, std::ios::binary);
         for (int i = 0; i < 5000; ++i) stream.put(static_cast<char>(random()));
     }},
};

TEST_F(BadResources, APictureThatCannotBeReadEndsTheGameWithItsName) {
    for (const fs::directory_entry& entry : fs::directory_iterator("Resources/Images")) {
        if (entry.path().extension() == ".svg") continue;
        const fs::path file = folder / entry.path();
        for (const Damage& damage : damages) {
            damage.apply(file);
            const Ending ending = Play();
            EXPECT_EQ(ending.exitCode, fatalExitCode) << entry.path() << " " << damage.name;
            EXPECT_THAT(ending.told, HasSubstr("IMAGE LOADING ERROR File " + entry.path().string())) << damage.name;
            fs::copy_file(entry.path(), file, fs::copy_options::overwrite_existing);
        }
    }
}

TEST_F(BadResources, TheGameGoesOnWithoutOutlineAndDataFiles) {
    const struct {
        const char* file;
        const char* messageWhenMissing;
        const char* messageWhenRandom;
    } cases[] = {
        {"Resources/Images/World1-1_Collision.svg",
         "Failed to load geometry from file Resources/Images/World1-1_Collision.svg",
         "Malformed geometry information in file Resources/Images/World1-1_Collision.svg"},
        {"Resources/Files/Data_Pelko.txt", "File <Data_Pelko.txt> Could not be found!", ""},
        {"Resources/Files/Data_Enemies.txt", "File <Data_Enemies.txt> Could not be found!", ""},
    };
    for (const auto& [name, messageWhenMissing, messageWhenRandom] : cases) {
        for (const Damage& damage : damages) {
            damage.apply(folder / name);
            const Ending ending = Play();
            EXPECT_EQ(ending.exitCode, 0) << name << " " << damage.name;
            const std::string kind = damage.name;
            if (kind == "missing") { EXPECT_THAT(ending.told, HasSubstr(messageWhenMissing)); }
            if (kind == "random bytes") { EXPECT_THAT(ending.told, HasSubstr(messageWhenRandom)); }
            fs::copy_file(name, folder / name, fs::copy_options::overwrite_existing);
        }
    }
}

} // namespace
