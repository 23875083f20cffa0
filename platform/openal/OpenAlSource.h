#pragma once

#include "platform/core/media/SoundDecoder.h"
#include "platform/core/media/SoundSource.h"

#include <array>
#include <cstdint>
#include <memory>
#include <vector>

namespace platform {

/// A clip in the memory of the current device.
class OpenAlClip final : public SoundClip {
public:
    explicit OpenAlClip(SoundDecoder& decoder);
    ~OpenAlClip() override;
    OpenAlClip(const OpenAlClip&) = delete;
    OpenAlClip& operator=(const OpenAlClip&) = delete;

private:
    friend class OpenAlSource;
    unsigned buffer = 0;
    int samplesPerSecond;
};

/// Plays one sound on the current device: a clip, or a stream that is decoded a little ahead of what is heard.
class OpenAlSource final : public SoundSource {
public:
    // Positions are milliseconds into the file.

    OpenAlSource(std::shared_ptr<const OpenAlClip> playedClipPtr, double from);
    OpenAlSource(std::unique_ptr<SoundDecoder> playedDecoderPtr, double from, double to);
    ~OpenAlSource() override;
    OpenAlSource(const OpenAlSource&) = delete;
    OpenAlSource& operator=(const OpenAlSource&) = delete;

    /// False if its device has no room for it, or its decoder could not go to where it was to begin.
    bool IsSet() const { return clipPtr || decoderPtr; }
    void Run(bool run) override;
    void SetGain(float gain) override;
    double Position() const override;
    bool HasEnded() const override { return ended; }

private:
    // Four pieces of a tenth of a second: so long the thread that decodes may be late.
    static constexpr std::size_t pieceCount = 4;
    static constexpr int piecesPerSecond = 10;

    OpenAlSource();
    void Refill();
    bool QueuePiece(unsigned buffer);

    unsigned source = 0;
    bool hasBegun = false;
    bool ended = false;
    std::shared_ptr<const OpenAlClip> clipPtr;
    std::unique_ptr<SoundDecoder> decoderPtr;
    std::array<unsigned, pieceCount> buffers{};
    std::vector<unsigned> freeBuffers;
    std::vector<std::int16_t> piece;
    std::int64_t heardFrames = 0; // of the file, before the oldest piece that is queued
    std::int64_t framesLeft = 0;  // to decode
};

} // namespace platform
