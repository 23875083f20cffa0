#pragma once

#include "platform/core/media/SoundDecoder.h"

#include <array>
#include <cstdint>
#include <memory>
#include <vector>

namespace platform {

/// A short sound, decoded whole into the memory of the current device; for all sources that play it.
class SoundClip {
public:
    explicit SoundClip(SoundDecoder& decoder);
    ~SoundClip();
    SoundClip(const SoundClip&) = delete;
    SoundClip& operator=(const SoundClip&) = delete;

private:
    friend class SoundSource;
    unsigned buffer = 0;
    int samplesPerSecond;
};

/// Plays one sound on the current device: a clip, or a stream that is decoded a little ahead of what is heard.
class SoundSource {
public:
    SoundSource();
    ~SoundSource();
    SoundSource(const SoundSource&) = delete;
    SoundSource& operator=(const SoundSource&) = delete;

    // What to play; silent until Run. Positions are milliseconds into the file.

    void SetClip(std::shared_ptr<const SoundClip> playedClipPtr, double from);
    /// False if the decoder cannot go to `from`.
    bool SetStream(std::unique_ptr<SoundDecoder> playedDecoderPtr, double from, double to);

    /// Plays, or holds; to be called every few hundredths of a second, because it also decodes what is heard next.
    void Run(bool run);
    void SetGain(float gain);
    void Stop();
    /// False when it is stopped, or its device had no room for it.
    bool IsSet() const { return clipPtr || decoderPtr; }
    bool HasEnded() const { return ended; }
    /// Milliseconds into the file.
    double Position() const;

private:
    // Four pieces of a tenth of a second: so long the thread that decodes may be late.
    static constexpr std::size_t pieceCount = 4;
    static constexpr int piecesPerSecond = 10;

    void Refill();
    bool QueuePiece(unsigned buffer);

    unsigned source = 0;
    bool hasBegun = false;
    bool ended = false;
    std::shared_ptr<const SoundClip> clipPtr;
    std::unique_ptr<SoundDecoder> decoderPtr;
    std::array<unsigned, pieceCount> buffers{};
    std::vector<unsigned> freeBuffers;
    std::vector<std::int16_t> piece;
    std::int64_t heardFrames = 0; // of the file, before the oldest piece that is queued
    std::int64_t framesLeft = 0;  // to decode
};

} // namespace platform
