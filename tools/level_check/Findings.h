#pragma once

#include "engine/RECT2.h"
#include "platform/Picture.h"

#include <string>
#include <vector>

/// What is wrong with the level, and where.
class Findings {
public:
    /// `place` is in level pixels; an all-zero one means that the finding has no place.
    void Add(const std::string& text, RECT2 place);

    bool IsEmpty() const { return findings.empty(); }
    /// One line for each: the corner of its place, then the text.
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
