#include "tools/art/SourceFile.h"

#include "tools/art/Palette.h"

#include <charconv>

namespace pictures {

SourceFile::SourceFile(const std::string& sourcePath) : path(sourcePath), stream(sourcePath) {
    if (!stream) Fail("cannot be opened");
}

bool SourceFile::NextLine() {
    std::string line;
    while (std::getline(stream, line)) {
        ++lineNumber;
        words = std::istringstream(line.substr(0, line.find('#')));
        if (More()) return true;
    }
    return false;
}

std::string SourceFile::RawLine() {
    std::string line;
    if (!std::getline(stream, line)) Fail("the file ends inside a grid");
    ++lineNumber;
    if (line.ends_with('\r')) line.pop_back(); // some editors end lines with CR LF
    return line;
}

bool SourceFile::More() { return !(words >> std::ws).eof(); }

std::string SourceFile::Word(const std::string& what) {
    std::string word;
    if (!(words >> word)) Fail(what + " is missing");
    return word;
}

int SourceFile::Number(const std::string& what) {
    constexpr int farAway = 10000;
    const std::string word = Word(what);
    int value = 0;
    const auto [end, error] = std::from_chars(word.data(), word.data() + word.size(), value);
    if (error != std::errc() || end != word.data() + word.size()) Fail(what + " must be a whole number, not " + word);
    if (value < -farAway || value > farAway) Fail(what + " is far outside of the picture: " + word);
    return value;
}

int SourceFile::Size(const std::string& what) {
    const int value = Number(what);
    if (value < 1) Fail(what + " must be at least 1");
    return value;
}

void SourceFile::Fail(const std::string& fault) const { throw SourceError(path, lineNumber, fault); }

} // namespace pictures
