#pragma once

#include <memory>
#include <string>

namespace platform {

class Desktop;
class MediaInterface;

/// A sound file that commands have opened. Sounds of the same file share it.
struct MediaFile {
    std::string path; // UTF-8
    bool isMidi = false;
    int length = 0; // milliseconds
};

/// What a sound is asked to do; the commands change it and the player follows.
struct MediaOrder {
    unsigned playback = 0; // counts the playbacks that were started
    bool playing = false;
    bool paused = false;
    int from = 0; // milliseconds into the file, 0 <= from <= to <= length
    int to = 0;
    float gain = 1.0F;
};

/// One sound of a player.
class MediaVoice {
public:
    virtual ~MediaVoice() = default;
    virtual void Follow(const MediaOrder& order) = 0;
    /// Whether the playback that was ordered last has come to its end by itself.
    virtual bool HasEnded() = 0;
};

/// Makes sounds audible, or keeps their time.
class MediaPlayer {
public:
    virtual ~MediaPlayer() = default;
    /// A silent voice at first. It must not outlive the player.
    virtual std::unique_ptr<MediaVoice> MakeVoice(std::shared_ptr<const MediaFile> filePtr) = 0;
    /// Holds all voices where they are, or lets them go on.
    virtual void Suspend(bool suspend) = 0;
};

/// The command interface on top of a player; its notices are posted through `desktop`.
std::unique_ptr<MediaInterface> MakeMedia(Desktop& desktop, std::unique_ptr<MediaPlayer> playerPtr);

/// Where a playback stands on a clock. Times are seconds of that clock.
class PlayHead {
public:
    /// Stands still at `from`, to run up to `to`; both in milliseconds.
    void Set(double from, double to) {
        end = to;
        remaining = (to - from) / 1000.0;
        running = false;
    }
    void Run(double now, bool run) {
        if (run == running) return;
        if (run) {
            endTime = now + remaining;
        } else {
            remaining = endTime - now;
        }
        running = run;
    }
    bool HasEnded(double now) const { return running && now >= endTime; }
    /// Milliseconds into the file, never beyond the end.
    double Position(double now) const {
        const double left = running ? endTime - now : remaining;
        return left > 0.0 ? end - left * 1000.0 : end;
    }

private:
    double end = 0.0;       // milliseconds
    double remaining = 0.0; // seconds, while it stands still
    double endTime = 0.0;   // while it runs
    bool running = false;
};

} // namespace platform
