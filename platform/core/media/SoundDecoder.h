#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string>

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

/// Opens a recording: MP3, WAV and what else is common. Reads no more than the headers. Null if `path` (UTF-8) is
/// missing or damaged.
std::unique_ptr<SoundDecoder> OpenRecording(const std::string& path);

/// Opens a MIDI file, played with the sound font of the system. Null if the file is missing or damaged or the system
/// has no synthesiser or no sound font. Loads both at the first call, which can take a good part of a second.
std::unique_ptr<SoundDecoder> OpenMidi(const std::string& path);

/// The length of a MIDI file in milliseconds, tempo changes included; needs no synthesiser. Negative if the file is
/// missing or damaged.
int MidiLength(const std::string& path);

} // namespace platform
