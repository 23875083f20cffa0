#pragma once

#include <filesystem>
#include <ostream>
#include <string>
#include <vector>

/// A case of a script: lines that say what happens and what must come of it.
struct ScriptCase {
    struct Line {
        int number;       // in the file, from 1
        std::string text; // without its comment
    };
    std::string file;
    std::string name;                     // letters, digits and '_', as a test may be named
    std::vector<std::string> values = {}; // of its row, if the case has a table
    std::vector<Line> lines = {};
    friend void PrintTo(ScriptCase const& one, std::ostream* streamPtr) { *streamPtr << one.name; }
};

/// A script is cases, each begun by `case NAME`. `each NAMES` and rows of as many values behind `|` make one case of
/// every row, in which the values stand for `$NAME`. What follows a `#` is a comment.
std::vector<ScriptCase> ReadScript(std::istream& script, std::string const& file);

/// The cases of the scripts in a folder, files *.demo.
std::vector<ScriptCase> ReadScripts(std::filesystem::path const& folder);

/// The words of a line.
std::vector<std::string> WordsOf(std::string const& text);
