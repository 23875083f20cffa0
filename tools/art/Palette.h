#pragma once

#include <cstdint>
#include <map>
#include <set>
#include <stdexcept>
#include <string>

namespace pictures {

/// A fault in a source file; the message names file and line.
class SourceError : public std::runtime_error {
public:
    SourceError(const std::string& file, int line, const std::string& fault)
        : std::runtime_error(file + ":" + std::to_string(line) + ": " + fault) {}
};

/// The colours that every picture is made of, by name. Colours are opaque 0xAARRGGBB.
class Palette {
public:
    /// Reads `path`; throws SourceError. More than 48 colours are an error: the limit is what holds the pictures
    /// together.
    explicit Palette(const std::string& path);

    bool Has(const std::string& name) const { return colours.contains(name); }
    /// The colour called `name`; throws std::out_of_range.
    std::uint32_t operator[](const std::string& name) const { return colours.at(name); }
    /// Is this a colour that only solid things have in the level picture?
    bool IsSolid(std::uint32_t colour) const { return solid.contains(colour); }

private:
    std::map<std::string, std::uint32_t> colours;
    std::set<std::uint32_t> solid;
};

} // namespace pictures
