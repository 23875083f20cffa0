#pragma once

#include <array>
#include <cstdint>

namespace platform {

/// The first bytes of a picture file; what a shorter file lacks is 0.
using PictureHead = std::array<std::uint8_t, 26>;

/// A picture of the level's kind is a few megapixels; far beyond that a header is damaged or hostile.
bool IsSanePictureSize(std::int64_t width, std::int64_t height);

/// Whether the size that the file states can be taken seriously. A few wrong bytes in a header ask for many gigabytes,
/// and the decoder would first try to get them. Formats other than the usual two must be looked at after decoding.
bool StatesSaneSize(const PictureHead& head);

} // namespace platform
