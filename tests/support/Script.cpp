#include "tests/support/Script.h"

#include <algorithm>
#include <cctype>
#include <fstream>
#include <iterator>
#include <sstream>

namespace {
bool IsLetterOrDigit(char c) { return std::isalnum(static_cast<unsigned char>(c)) != 0; }

/// Letters, digits and underscores only, as the name of a test must be.
std::string TestName(std::string const& text) {
    std::string name;
    for (const char c : text) {
        if (IsLetterOrDigit(c)) {
            name += c;
        } else if (!name.ends_with('_')) {
            name += '_';
        }
    }
    return name;
}

/// Puts `value` in the place of every `$column`, but not of a longer name that begins with it.
void Fill(std::string& text, std::string const& column, std::string const& value) {
    const std::string place = "$" + column;
    for (std::size_t at = text.find(place); at != std::string::npos; at = text.find(place, at)) {
        const std::size_t end = at + place.size();
        const bool isLonger = end < text.size() && (IsLetterOrDigit(text[end]) || text[end] == '_');
        if (!isLonger) text.replace(at, place.size(), value);
        at = isLonger ? end : at + value.size();
    }
}
} // namespace

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
            cases.push_back({file, TestName(name)});
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
                    Fill(line.text, columns[column], cases[i].values[column]);
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
