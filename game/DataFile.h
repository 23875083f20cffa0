#pragma once

#include <fstream>
#include <string>
#include <string_view>

/// One record of a data file: a place in the level and the value that closes the record.
struct DataRecord {
    int x = 0;
    int y = 0;
    int value = 0;
};

/// Reads a data file of the game: plain text, one field a line, a label of exactly 15 characters followed by a whole
/// number. Lines may end with a line feed alone or with a carriage return before it.
class DataFile {
public:
    /// `path` is relative to the working directory. Shows a message if the file is missing or cannot be read; then it
    /// has no records.
    explicit DataFile(char const* path);
    /// Takes the next record, whose last line has the label `closingLabel`; false at the end. A closing line before the
    /// record has both an x and a y other than 0 is ignored, and what was read so far belongs to the next record.
    bool ReadRecord(std::string_view closingLabel, DataRecord& record);

private:
    /// Takes the next field; false at the end. Skips lines that are not fields: shorter than a label, without a number
    /// after it, or with one that does not fit an int. Blanks before the number and anything after it do not count.
    bool ReadField();

    std::ifstream file;
    bool isReadable;
    std::string text;       // of the current line
    std::string_view label; // of the current field, padded with blanks
    int value = 0;          // of the current field
    int pendingX = 0;
    int pendingY = 0;
};
