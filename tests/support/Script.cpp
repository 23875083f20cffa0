#include "tests/support/Script.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <regex>
#include <sstream>

std::vector<ScriptCase> ReadScript(std::istream& script, std::string const& file) {
    std::vector<ScriptCase> cases;
    std::size_t first = 0; // of those that the last "case" makes
    std::vector<std::string> columns;
    int number = 0;
    for (std::string text; std::getline(script, text);) {
        ++number;
        text.erase(std::min(text.find('#'), text.size()));
        const std::vector<std::string> words = WordsOf(text);
        if (words.empty()) continue;
        const std::vector<std::string> rest(words.begin() + 1, words.end());
        if (words[0] == "case" || cases.empty()) {
            first = cases.size();
            const std::string name = std::filesystem::path(file).stem().string() + text.substr(words[0].size());
            cases.push_back({file, std::regex_replace(name, std::regex("[^A-Za-z0-9]+"), "_")});
        }
        if (words[0] == "case") continue;
        if (words[0] == "each") {
            columns = rest;
        } else if (words[0] == "|" && rest.size() == columns.size()) {
            if (!cases.back().values.empty())
                cases.push_back({file, cases[first].name + "_" + std::to_string(cases.size() - first + 1)});
            cases.back().values = rest;
        } else {
            for (std::size_t i = first; i < cases.size(); ++i) {
                ScriptCase::Line line{number, text};
                for (std::size_t column = 0; column < cases[i].values.size(); ++column)
                    line.text = std::regex_replace(line.text, std::regex("\\$" + columns[column] + "\\b"),
                                                   cases[i].values[column]);
                cases[i].lines.push_back(line);
            }
        }
    }
    return cases;
}

std::vector<ScriptCase> ReadScripts(std::filesystem::path const& folder) {
    std::vector<ScriptCase> cases;
    for (auto const& entry : std::filesystem::directory_iterator(folder)) {
        if (entry.path().extension() != ".demo") continue;
        std::ifstream script(entry.path());
        std::ranges::move(ReadScript(script, entry.path().string()), std::back_inserter(cases));
    }
    return cases;
}

std::vector<std::string> WordsOf(std::string const& text) {
    std::istringstream words(text);
    return {std::istream_iterator<std::string>(words), {}};
}
