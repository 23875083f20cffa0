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

/// All colours that the pictures use, by name, as opaque 0xAARRGGBB.
class Palette {
public:
    /// Reads `path`; throws SourceError. More than 48 colours are an error: few colours make the pictures match.
    explicit Palette(const std::string& path);

    bool Has(const std::string& name) const { return colours.contains(name); }
    /// The colour called `name`; throws std::out_of_range.
    std::uint32_t operator[](const std::string& name) const { return colours.at(name); }
    /// Whether only solid ground has this colour in the level picture.
    bool IsSolid(std::uint32_t colour) const { return solid.contains(colour); }

private:
    std::map<std::string, std::uint32_t> colours;
    std::set<std::uint32_t> solid;
};

} // namespace pictures
