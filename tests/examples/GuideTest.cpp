// The listings of the guide are the files of examples/first_game: nothing in one that the other lacks.

#include <gtest/gtest.h>

#include <fstream>
#include <sstream>
#include <string>

namespace {

std::string FileText(const std::string& path) {
    std::ostringstream text;
    text << std::ifstream(path, std::ios::binary).rdbuf();
    return text.str();
}

} // namespace

TEST(Guide, ListingsAreTheFirstGame) {
    const std::string guide = FileText("docs/engine-guide.md");
    std::string files;
    for (const char* name : {"main.cpp", "FirstGame.h", "FirstGame.cpp"}) {
        files += FileText(std::string("examples/first_game/") + name);
    }
    const std::string begin = "```cpp\n";
    std::string listings;
    for (std::size_t at = guide.find(begin); at != std::string::npos; at = guide.find(begin, at + 1)) {
        const std::size_t first = at + begin.size();
        const std::string listing = guide.substr(first, guide.find("```", first) - first);
        EXPECT_NE(files.find(listing), std::string::npos) << "the example has nothing like\n" << listing;
        listings += listing;
    }
    std::istringstream lines(files);
    for (std::string line; std::getline(lines, line);) {
        EXPECT_NE(listings.find(line + "\n"), std::string::npos) << "the guide does not show\n" << line;
    }
}
