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

/// Reads a data file of the game. It is plain text with one field per line: a label of exactly 15 characters, then a
/// whole number. A line may end with a line feed, or with a carriage return and a line feed.
class DataFile {
public:
    /// `path` is relative to the working directory. Shows a message if the file is missing or cannot be read; such a
    /// file has no records.
    explicit DataFile(char const* path);
    /// Takes the next record; false at the end of the file. A line with the label `closingLabel` ends a record, which
    /// needs an x and a y other than 0. Without them the closing line is ignored, and an x or y that was read already
    /// belongs to the next record.
    bool ReadRecord(std::string_view closingLabel, DataRecord& record);

private:
    /// Takes the next field; false at the end. Skips lines that are not fields: lines shorter than a label, without a
    /// number after it, or with a number that does not fit an int. Ignores blanks before the number and anything after
    /// it.
    bool ReadField();

    std::ifstream file;
    bool isReadable;
    std::string text;       // of the current line
    std::string_view label; // of the current field, padded with blanks
    int value = 0;          // of the current field
    int pendingX = 0;
    int pendingY = 0;
};
