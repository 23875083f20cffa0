#include "platform/sndfile/RecordingDecoder.h"

#include <sndfile.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <utility>

namespace platform {

namespace {
/// Lets the library read a stream that has no name: it then goes by what is in the file, never by its ending, and does
/// not complain aloud about a text that calls itself music.
struct StreamAccess {
    static std::istream& Stream(void* dataPtr) {
        auto& stream = *static_cast<std::istream*>(dataPtr);
        stream.clear(); // of the end that the last read met
        return stream;
    }
    static sf_count_t Tell(void* dataPtr) { return Stream(dataPtr).tellg(); }
    static sf_count_t Seek(sf_count_t offset, int whence, void* dataPtr) {
        const auto base = whence == SEEK_SET ? std::ios::beg : whence == SEEK_CUR ? std::ios::cur : std::ios::end;
        Stream(dataPtr).seekg(offset, base);
        return Tell(dataPtr);
    }
    static sf_count_t Read(void* bytesPtr, sf_count_t count, void* dataPtr) {
        return Stream(dataPtr).read(static_cast<char*>(bytesPtr), count).gcount();
    }
    static sf_count_t Size(void* dataPtr) {
        const sf_count_t position = Tell(dataPtr);
        const sf_count_t size = Seek(0, SEEK_END, dataPtr);
        Seek(position, SEEK_SET, dataPtr);
        return size;
    }
    static sf_count_t Write(const void*, sf_count_t, void*) { return 0; }

    static SF_VIRTUAL_IO* Functions() {
        static SF_VIRTUAL_IO functions{Size, Seek, Read, Write, Tell};
        return &functions;
    }
};

constexpr int maxChannels = 8;
constexpr int minSamplesPerSecond = 1000;
constexpr int maxSamplesPerSecond = 384000;

std::int16_t ToSample(float value) {
    if (!(std::abs(value) <= 1.0F)) value = value > 0.0F ? 1.0F : (value < 0.0F ? -1.0F : 0.0F); // loud, or no number
    return static_cast<std::int16_t>(std::lround(value * 32767.0F));
}

class RecordingDecoder : public SoundDecoder {
public:
    explicit RecordingDecoder(const std::filesystem::path& path)
        : stream(path, std::ios::binary),
          filePtr(sf_open_virtual(StreamAccess::Functions(), SFM_READ, &info, &stream)) {}
    ~RecordingDecoder() override { sf_close(filePtr); }

    bool IsPlayable() const {
        return filePtr != nullptr && info.frames > 0 && info.channels >= 1 && info.channels <= maxChannels &&
               info.samplerate >= minSamplesPerSecond && info.samplerate <= maxSamplesPerSecond;
    }

    int SamplesPerSecond() const override { return info.samplerate; }
    std::int64_t FrameCount() const override { return info.frames; }
    bool Seek(std::int64_t frame) override { return sf_seek(filePtr, frame, SEEK_SET) == frame; }

    std::size_t Read(std::span<std::int16_t> samples) override {
        const auto channels = static_cast<std::size_t>(info.channels);
        const std::size_t right = channels > 1 ? 1 : 0; // one channel sounds on both sides, of many the first two
        const std::size_t wanted = samples.size() / 2;
        std::size_t done = 0;
        while (done < wanted) {
            const std::size_t count = std::min(wanted - done, piece.size() / channels);
            const sf_count_t read = sf_readf_float(filePtr, piece.data(), static_cast<sf_count_t>(count));
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
    std::ifstream stream;
    SF_INFO info{};
    SNDFILE* filePtr;
    std::array<float, std::size_t{512} * maxChannels> piece;
};
} // namespace

std::unique_ptr<SoundDecoder> OpenRecording(const std::string& path) {
    // A folder, a pipe or a device cannot be played, and opening one may not return.
    const std::filesystem::path filePath(std::u8string(path.begin(), path.end()));
    std::error_code error;
    if (!std::filesystem::is_regular_file(filePath, error)) return nullptr;
    auto decoderPtr = std::make_unique<RecordingDecoder>(filePath);
    if (!decoderPtr->IsPlayable()) return nullptr;
    return decoderPtr;
}

} // namespace platform
