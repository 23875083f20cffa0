#include "platform/SoundDecoder.h"

#include <sndfile.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <filesystem>
#include <utility>

namespace platform {

namespace {
struct CloseFile {
    void operator()(SNDFILE* filePtr) const { sf_close(filePtr); }
};
using FilePtr = std::unique_ptr<SNDFILE, CloseFile>;

constexpr int maxChannels = 8;
constexpr int minSamplesPerSecond = 1000;
constexpr int maxSamplesPerSecond = 384000;

std::int16_t ToSample(float value) {
    if (!(std::abs(value) <= 1.0F)) value = value > 0.0F ? 1.0F : (value < 0.0F ? -1.0F : 0.0F); // loud, or no number
    return static_cast<std::int16_t>(std::lround(value * 32767.0F));
}

class RecordingDecoder : public SoundDecoder {
public:
    RecordingDecoder(FilePtr openedPtr, const SF_INFO& fileInfo) : filePtr(std::move(openedPtr)), info(fileInfo) {}

    int SamplesPerSecond() const override { return info.samplerate; }
    std::int64_t FrameCount() const override { return info.frames; }
    bool Seek(std::int64_t frame) override { return sf_seek(filePtr.get(), frame, SEEK_SET) == frame; }

    std::size_t Read(std::span<std::int16_t> samples) override {
        const auto channels = static_cast<std::size_t>(info.channels);
        const std::size_t right = channels > 1 ? 1 : 0; // one channel sounds on both sides, of many the first two
        const std::size_t wanted = samples.size() / 2;
        std::size_t done = 0;
        while (done < wanted) {
            const std::size_t count = std::min(wanted - done, piece.size() / channels);
            const sf_count_t read = sf_readf_float(filePtr.get(), piece.data(), static_cast<sf_count_t>(count));
            if (read <= 0) break;
            for (std::size_t index = 0; index < static_cast<std::size_t>(read); ++index) {
                samples[2 * done] = ToSample(piece[index * channels]);
                samples[2 * done + 1] = ToSample(piece[index * channels + right]);
                ++done;
            }
        }
        return done;
    }

private:
    FilePtr filePtr;
    SF_INFO info;
    std::array<float, std::size_t{512} * maxChannels> piece;
};
} // namespace

std::unique_ptr<SoundDecoder> OpenRecording(const std::string& path) {
    // A folder, a pipe or a device cannot be played, and opening one may not return.
    std::error_code error;
    if (!std::filesystem::is_regular_file(std::filesystem::path(path), error)) return nullptr;
    SF_INFO info{};
    FilePtr filePtr(sf_open(path.c_str(), SFM_READ, &info));
    const bool isPlayable = filePtr && info.frames > 0 && info.channels >= 1 && info.channels <= maxChannels &&
                            info.samplerate >= minSamplesPerSecond && info.samplerate <= maxSamplesPerSecond;
    if (!isPlayable) return nullptr;
    return std::make_unique<RecordingDecoder>(std::move(filePtr), info);
}

} // namespace platform
