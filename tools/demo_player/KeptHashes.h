#pragma once

#include <cstddef>
#include <string>
#include <vector>

/// What a play of a demo is done for, as far as its kept hashes go.
enum class HashUse { none, check, renew };

/// A file of hashes: each line is a number of the play's clock and words "NAME=HASH".
class KeptHashes {
public:
    /// To be compared with the lines of a play, the file must be there; throws DemoError if it is not.
    KeptHashes(std::string path, HashUse use);

    /// Takes the next line of a play. Answers, at the first line that is not as kept, the names of the words that
    /// differ; otherwise none.
    std::vector<std::string> Take(const std::string& line);
    /// Ends the play: writes the file if it is to be renewed, throwing DemoError if it cannot be written. False if more
    /// is kept than was played.
    bool End() const;

    const std::string& Path() const { return path; }

private:
    std::string path;
    HashUse use;
    bool differs = false;
    std::vector<std::string> lines;
    std::size_t taken = 0;
};
