#pragma once

#include <fstream>
#include <string>

/// One field of a data file: what it is called, padded with blanks to 15 characters, and its value.
struct DataLine {
    std::string label;
    int value = 0;
};

/// Reads a data file of the game: plain text, one field a line, a label of exactly 15 characters followed by a whole
/// number. Lines may end with a line feed alone or with a carriage return before it.
class DataFile {
public:
    /// `path` is relative to the working directory.
    explicit DataFile(char const* path);
    /// False if the file is missing or cannot be read; then there are no lines.
    bool IsReadable() const { return isReadable; }
    /// Takes the next field; false at the end. Passes over lines that are none: shorter than a label, without a number
    /// behind it, or with one that does not fit an int. Blanks before the number and anything after it do not count.
    bool ReadLine(DataLine& line);

private:
    std::ifstream file;
    std::string text; // of the current line
    bool isReadable;
};
