#include "tools/demo_player/KeptHashes.h"

#include "tools/demo/Demo.h"

#include <fstream>
#include <sstream>
#include <utility>

namespace {

/// The names of the words that differ, of the played line where it has a word.
std::vector<std::string> DifferingNames(const std::string& kept, const std::string& played) {
    std::istringstream keptWords(kept);
    std::istringstream playedWords(played);
    std::vector<std::string> names;
    while (true) {
        std::string keptWord;
        std::string word;
        keptWords >> keptWord;
        playedWords >> word;
        if (word.empty() && keptWord.empty()) return names;
        if (word == keptWord) continue;
        const std::string& shown = word.empty() ? keptWord : word;
        names.push_back(shown.substr(0, shown.find('=')));
    }
}

} // namespace

KeptHashes::KeptHashes(std::string filePath, HashUse hashUse) : path(std::move(filePath)), use(hashUse) {
    if (use != HashUse::check) return;
    std::ifstream file(path);
    if (!file) throw DemoError(path + ": cannot be opened");
    for (std::string line; std::getline(file, line);) lines.push_back(line);
}

std::vector<std::string> KeptHashes::Take(const std::string& line) {
    if (use == HashUse::renew) lines.push_back(line);
    const std::string kept = taken < lines.size() ? lines[taken] : "";
    ++taken;
    if (use != HashUse::check || differs || kept == line) return {};
    differs = true;
    return DifferingNames(kept, line);
}

bool KeptHashes::End() const {
    if (use == HashUse::renew) {
        std::ofstream file(path);
        for (const std::string& line : lines) file << line << '\n';
        if (!file.flush()) throw DemoError(path + ": cannot be written");
    }
    return differs || taken == lines.size();
}
