#pragma once

#include <cstddef>
#include <span>
#include <string_view>

namespace platform {

/// A file compiled into the program by the build function quillfen_embed_resources; registers itself before main runs.
class ResourceEntry {
public:
    template <std::size_t size>
    ResourceEntry(int number, std::string_view typeName, const unsigned char (&data)[size])
        : ResourceEntry(number, typeName, std::span<const unsigned char>(data, size)) {}
    ResourceEntry(int number, std::string_view typeName, std::span<const unsigned char> data);
    ResourceEntry(const ResourceEntry&) = delete;
    ResourceEntry& operator=(const ResourceEntry&) = delete;

private:
    friend std::span<const unsigned char> FindResource(int id, std::string_view type);
    int id;
    std::string_view type;
    std::span<const unsigned char> bytes;
    const ResourceEntry* nextPtr;
};

/// The bytes of the program's resource with this number and type ("ICON", "IMAGE", "MP3", "WAV", "MID"); empty if none.
std::span<const unsigned char> FindResource(int id, std::string_view type);

} // namespace platform
