// Starts the game beside resources that are missing or damaged: what is the player told, and how does the game end?

#include "tests/support/Program.h"
#include "tests/support/TestFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <map>
#include <random>
#include <string>

namespace {

namespace fs = std::filesystem;

enum Damage { missing, empty, halved, random, damageCount };

void Spoil(const fs::path& file, int damage) {
    fs::resize_file(file, damage == empty ? 0 : damage == halved ? fs::file_size(file) / 2 : 5000);
    if (damage == missing) fs::remove(file);
    if (damage != random) return;
    std::mt19937 bytes(7);
    std::ofstream stream(file, std::ios::binary);
    for (int i = 0; i < 5000; ++i) stream.put(static_cast<char>(bytes()));
}

TEST(BadResources, APictureEndsTheGameAndOtherFilesDoNot) {
    const std::string outline = "Resources/Images/World1-1_Collision.svg";
    std::map<std::string, std::map<int, std::string>> messages = {
        {outline,
         {{missing, "Failed to load geometry from file " + outline},
          {random, "Malformed geometry information in file " + outline}}},
        {"Resources/Files/Data_Pelko.txt", {{missing, "File <Data_Pelko.txt> Could not be found!"}}},
        {"Resources/Files/Data_Enemies.txt", {{missing, "File <Data_Enemies.txt> Could not be found!"}}},
    };
    for (const auto& entry : fs::directory_iterator("Resources/Images")) messages[entry.path().string()];

    const TestFolder copy;
    copy.Copy("Resources");
    copy.Write("three-frames.demo", "end 3\n");
    for (auto& [file, expected] : messages) {
        const bool isPicture = expected.empty();
        for (int damage = missing; damage < damageCount; ++damage) {
            Spoil(copy.Root() / file, damage);
            const Ending ending = RunProgram("demo_player three-frames.demo", copy.Root());
            EXPECT_EQ(ending.exitCode, isPicture ? 255 : 0) << file << ", damage " << damage;
            const std::string message = isPicture ? "IMAGE LOADING ERROR File " + file : expected[damage];
            EXPECT_THAT(ending.told, testing::HasSubstr(message)) << "damage " << damage;
            fs::copy_file(file, copy.Root() / file, fs::copy_options::overwrite_existing);
        }
    }
}

} // namespace
