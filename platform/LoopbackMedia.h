#pragma once

#include "platform/Media.h"

#include <memory>
#include <span>

namespace platform {

/// A player whose device mixes into memory, as fast as it is asked to and on the calling thread alone.
class LoopbackMedia : public MediaInterface {
public:
    static constexpr int samplesPerSecond = 44100;

    /// Mixes what is heard next: left and right in turn, from -1 to 1.
    virtual void Render(std::span<float> samples) = 0;
    /// Takes the device away, as a headset that is pulled out, or gives it back. Sounds then play on the clock of the
    /// desktop. A device that is given back is found within a few seconds of that clock.
    virtual void PlugIn(bool pluggedIn) = 0;
};

std::unique_ptr<LoopbackMedia> MakeLoopbackMedia(Desktop& desktop);

} // namespace platform
