#include "platform/core/media/MidiLength.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <span>
#include <vector>

namespace platform {

namespace {
/// Reads the big-endian numbers of a MIDI file; reading beyond the end gives zeros and is remembered.
class MidiReader {
public:
    explicit MidiReader(std::span<const unsigned char> fileBytes) : bytes(fileBytes) {}

    bool AtEnd() const { return position >= bytes.size(); }
    bool IsCut() const { return cut; }

    unsigned Byte() {
        if (AtEnd()) {
            cut = true;
            return 0;
        }
        return bytes[position++];
    }
    unsigned Peek() const { return AtEnd() ? 0 : bytes[position]; }

    std::uint32_t Number(int byteCount) {
        std::uint32_t value = 0;
        for (int index = 0; index < byteCount; ++index) value = value << 8 | Byte();
        return value;
    }

    /// A number of at most four bytes, seven bits in each.
    std::uint32_t VariableNumber() {
        std::uint32_t value = 0;
        for (int index = 0; index < 4; ++index) {
            const unsigned byte = Byte();
            value = value << 7 | (byte & 0x7F);
            if ((byte & 0x80) == 0) break;
        }
        return value;
    }

    /// Takes off the next `count` bytes, as a reader of their own.
    MidiReader Part(std::size_t count) {
        const std::size_t available = bytes.size() - std::min(position, bytes.size());
        if (count > available) cut = true;
        const MidiReader part(bytes.subspan(std::min(position, bytes.size()), std::min(count, available)));
        position += std::min(count, available);
        return part;
    }

private:
    std::span<const unsigned char> bytes;
    std::size_t position = 0;
    bool cut = false;
};

struct TempoChange {
    std::int64_t tick = 0;
    std::uint32_t microsecondsPerBeat = 500000;
};

/// Reads one track: collects its tempo changes and returns the tick on which it ends.
std::int64_t ReadTrack(MidiReader track, std::vector<TempoChange>& tempoChanges) {
    std::int64_t tick = 0;
    unsigned status = 0;
    while (!track.AtEnd()) {
        tick += track.VariableNumber();
        if ((track.Peek() & 0x80) != 0) status = track.Byte(); // otherwise the last one goes on
        if (status == 0xFF) {
            const unsigned kind = track.Byte();
            MidiReader content = track.Part(track.VariableNumber());
            if (kind == 0x2F) break; // end of track
            if (kind == 0x51) tempoChanges.push_back({tick, content.Number(3)});
        } else if (status == 0xF0 || status == 0xF7) {
            track.Part(track.VariableNumber());
        } else if (status >= 0xF0) {
            break; // not allowed in a file
        } else {
            const bool hasOneByte = status >= 0xC0 && status < 0xE0;
            track.Number(hasOneByte ? 1 : 2);
        }
    }
    return tick;
}

std::vector<unsigned char> ReadFile(const std::string& path) {
    constexpr std::uintmax_t maxSize = 16U << 20;
    std::error_code error;
    const std::filesystem::path filePath(std::u8string(path.begin(), path.end()));
    if (!std::filesystem::is_regular_file(filePath, error) || std::filesystem::file_size(filePath, error) > maxSize) {
        return {};
    }
    std::ifstream file(filePath, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

/// Seconds from the start to `endTick`.
double SecondsUntil(std::int64_t endTick, std::vector<TempoChange> tempoChanges, unsigned ticksPerBeat) {
    std::stable_sort(tempoChanges.begin(), tempoChanges.end(),
                     [](const TempoChange& a, const TempoChange& b) { return a.tick < b.tick; });
    tempoChanges.push_back({endTick, 0});
    double seconds = 0.0;
    TempoChange current;
    for (const TempoChange& next : tempoChanges) {
        const std::int64_t ticks = std::min(next.tick, endTick) - current.tick;
        seconds += static_cast<double>(ticks) * current.microsecondsPerBeat / 1e6 / ticksPerBeat;
        current = {std::min(next.tick, endTick), next.microsecondsPerBeat};
    }
    return seconds;
}
} // namespace

int MidiLength(const std::string& path) {
    const std::vector<unsigned char> bytes = ReadFile(path);
    MidiReader reader(bytes);
    if (reader.Number(4) != 0x4D546864) return -1; // "MThd"
    MidiReader header = reader.Part(reader.Number(4));
    header.Number(2); // all formats are read alike: their tracks sound together
    const std::uint32_t trackCount = header.Number(2);
    const std::uint32_t division = header.Number(2);
    if (reader.IsCut() || header.IsCut() || division == 0) return -1;

    std::int64_t endTick = 0;
    std::vector<TempoChange> tempoChanges;
    for (std::uint32_t track = 0; track < trackCount && !reader.AtEnd();) {
        const bool isTrack = reader.Number(4) == 0x4D54726B; // "MTrk"
        const MidiReader part = reader.Part(reader.Number(4));
        if (!isTrack) continue;
        endTick = std::max(endTick, ReadTrack(part, tempoChanges));
        ++track;
    }
    if (endTick == 0) return -1; // nothing to play
    double seconds = 0.0;
    if ((division & 0x8000) != 0) { // ticks of a film frame, whatever the tempo; 29 stands for 30 with dropped numbers
        const unsigned framesPerSecond = 256 - (division >> 8);
        const double perSecond = (framesPerSecond == 29 ? 30000.0 / 1001.0 : framesPerSecond) * (division & 0xFF);
        if (perSecond <= 0.0) return -1;
        seconds = static_cast<double>(endTick) / perSecond;
    } else {
        seconds = SecondsUntil(endTick, std::move(tempoChanges), division);
    }
    return static_cast<int>(std::lround(std::min(seconds, 1e6) * 1000.0));
}

} // namespace platform
