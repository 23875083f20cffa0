#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

namespace platform {

/// Reads a sound file piece by piece, as stereo whatever the file holds.
class SoundDecoder {
public:
    virtual ~SoundDecoder() = default;
    virtual int SamplesPerSecond() const = 0;
    /// How many frames (a left and a right sample) the file says it has.
    virtual std::int64_t FrameCount() const = 0;
    /// Fills `samples` (left, right, left, …) with what comes next and returns the frames read; fewer than fit only at
    /// the end of the sound.
    virtual std::size_t Read(std::span<std::int16_t> samples) = 0;
    /// The next Read starts at `frame`; false if that is not possible.
    virtual bool Seek(std::int64_t frame) = 0;
};

} // namespace platform
