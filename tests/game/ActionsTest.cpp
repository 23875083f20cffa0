#include "game/Actions.h"

#include <gtest/gtest.h>

#include <fstream>
#include <map>
#include <set>
#include <string>
#include <utility>

// Rows are compared by their words, with all keys that have the same ones.
TEST(Actions, TheReadmeListsTheKeysOfTheGame) {
    std::map<std::string, std::string> keysByWords;
    std::set<std::pair<std::string, int>> listed; // a key may be watched twice
    for (const KeyBinding& binding : KeyBindings()) {
        if (!listed.emplace(binding.words, binding.key).second) continue;
        std::string& keys = keysByWords[binding.words];
        keys += (keys.empty() ? "" : ", ") + std::string(binding.keyName);
    }
    std::set<std::string> rows;
    for (const auto& [words, keys] : keysByWords) rows.insert("| " + keys + " | " + words + " |");

    std::ifstream readme("README.md");
    std::set<std::string> readmeRows;
    bool isKeyTable = false;
    for (std::string line; std::getline(readme, line);) {
        if (line == "| key | what it does |")
            isKeyTable = std::getline(readme, line) && line == "|---|---|";
        else if (line.empty())
            isKeyTable = false;
        else if (isKeyTable)
            readmeRows.insert(line);
    }
    EXPECT_EQ(readmeRows, rows);
}
