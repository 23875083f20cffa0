#pragma once

#include <fstream>
#include <sstream>
#include <string>

namespace pictures {

/// Reads a text source line by line and word by word; # begins a comment. Every fault throws SourceError.
class SourceFile {
public:
    explicit SourceFile(const std::string& path);

    /// Goes to the next line that holds words; false at the end.
    bool NextLine();
    /// The next line unchanged, with its comment characters and blanks; for character grids.
    std::string RawLine();
    bool More();
    /// The next word of the line. `what` names it in the fault if it is missing.
    std::string Word(const std::string& what);
    /// A whole number. A number far outside of any picture is a fault.
    int Number(const std::string& what);
    /// A width, height or distance in pixels: at least 1.
    int Size(const std::string& what);
    [[noreturn]] void Fail(const std::string& fault) const;

private:
    std::string path;
    std::ifstream stream;
    std::istringstream words;
    int lineNumber = 0;
};

} // namespace pictures
