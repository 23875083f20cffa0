#pragma once

#include "engine/RECT2.h"
#include "platform/Picture.h"

#include <string>
#include <vector>

/// The faults of the level, with their places.
class Findings {
public:
    /// `place` is in level pixels; all zero if the finding has no place.
    void Add(const std::string& text, RECT2 place);

    bool IsEmpty() const { return findings.empty(); }
    /// Prints one line for each finding: the corner of its place, then the text.
    void Print() const;
    /// Writes the level's picture with a frame around every place. False if the file cannot be written.
    bool SavePicture(platform::Picture level, const std::string& path) const;

private:
    struct Finding {
        std::string text;
        RECT2 place;
    };
    std::vector<Finding> findings;
};
