#include "platform/SoundFile.h"

#include <sndfile.h>

#include <algorithm>
#include <cstdio>
#include <memory>
#include <utility>
#include <vector>

namespace platform {

namespace {

struct SoundCloser {
    void operator()(SNDFILE* filePtr) const { sf_close(filePtr); }
};
using SoundPtr = std::unique_ptr<SNDFILE, SoundCloser>;

SoundPtr Create(const std::string& path, int format, int channels, int samplesPerSecond) {
    SF_INFO info{};
    info.samplerate = samplesPerSecond;
    info.channels = channels;
    info.format = format;
    return SoundPtr(sf_open(path.c_str(), SFM_WRITE, &info));
}

/// Writes and closes; a file that came out short is removed, so that nothing takes it for a whole one.
bool Finish(SoundPtr filePtr, const std::string& path, std::span<const std::int16_t> samples) {
    // as floats: given shorts, the library's MP3 writer of some versions garbles every second frame
    std::vector<float> values(samples.size());
    std::transform(samples.begin(), samples.end(), values.begin(), [](std::int16_t s) { return s / 32768.0F; });
    const auto count = static_cast<sf_count_t>(values.size());
    const bool written = sf_write_float(filePtr.get(), values.data(), count) == count;
    const bool closed = sf_close(filePtr.release()) == 0;
    if (written && closed) return true;
    std::remove(path.c_str());
    return false;
}

} // namespace

bool SaveMp3(const std::string& path, std::span<const std::int16_t> samples, int channels, int samplesPerSecond,
             double quality) {
    SoundPtr filePtr = Create(path, SF_FORMAT_MPEG | SF_FORMAT_MPEG_LAYER_III, channels, samplesPerSecond);
    if (!filePtr) return false;
    int mode = SF_BITRATE_MODE_VARIABLE; // after the level: without one the library refuses a mode
    if (sf_command(filePtr.get(), SFC_SET_COMPRESSION_LEVEL, &quality, sizeof quality) != SF_TRUE ||
        sf_command(filePtr.get(), SFC_SET_BITRATE_MODE, &mode, sizeof mode) != SF_TRUE) {
        return false;
    }
    return Finish(std::move(filePtr), path, samples);
}

bool SaveWav(const std::string& path, std::span<const std::int16_t> samples, int channels, int samplesPerSecond) {
    SoundPtr filePtr = Create(path, SF_FORMAT_WAV | SF_FORMAT_PCM_16, channels, samplesPerSecond);
    return filePtr && Finish(std::move(filePtr), path, samples);
}

} // namespace platform
