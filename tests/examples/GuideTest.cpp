// Every line of examples/first_game is in a listing of the guide, and every listing is in the example.

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <sstream>
#include <string>

namespace {

std::string FileText(const std::string& path) {
    std::ifstream file(path);
    return std::string(std::istreambuf_iterator<char>(file), {});
}

TEST(Guide, ListingsAreTheFirstGame) {
    const std::string guide = FileText("docs/engine-guide.md");
    const std::string folder = "examples/first_game/";
    const std::string files =
        FileText(folder + "main.cpp") + FileText(folder + "FirstGame.h") + FileText(folder + "FirstGame.cpp");
    const std::string begin = "```cpp\n";
    std::string listings;
    for (std::size_t at = guide.find(begin); at != std::string::npos; at = guide.find(begin, at + 1)) {
        const std::size_t first = at + begin.size();
        const std::string listing = guide.substr(first, guide.find("```", first) - first);
        EXPECT_NE(files.find(listing), std::string::npos) << "the example has nothing like\n" << listing;
        listings += listing;
    }
    std::istringstream lines(files);
    for (std::string line; std::getline(lines, line);)
        EXPECT_NE(listings.find(line + "\n"), std::string::npos) << "the guide does not show\n" << line;
}

} // namespace
