#pragma once

namespace platform {

/// A short sound, decoded whole into the memory of a device, for all its sources that play it.
class SoundClip {
public:
    virtual ~SoundClip() = default;
};

/// Plays one sound on the device that made it; silent until Run.
class SoundSource {
public:
    virtual ~SoundSource() = default;
    /// Plays, or holds; to be called every few hundredths of a second, because it may also decode what is heard next.
    virtual void Run(bool run) = 0;
    virtual void SetGain(float gain) = 0;
    /// Milliseconds into the file.
    virtual double Position() const = 0;
    virtual bool HasEnded() const = 0;
};

} // namespace platform
