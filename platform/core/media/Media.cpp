#include "platform/Media.h"

#include "platform/Desktop.h"
#include "platform/FilePath.h"
#include "platform/core/Backend.h"
#include "platform/core/media/MediaCommand.h"
#include "platform/core/media/MediaPlayer.h"
#include "platform/core/media/MidiLength.h"
#include "platform/core/media/SoundDecoder.h"

#include <algorithm>
#include <cmath>
#include <utility>
#include <vector>

namespace platform {

namespace {
using Verb = MediaCommand::Verb;
using FileType = MediaCommand::FileType;

constexpr int fullVolume = 1000;

/// The table of open sounds and what the commands do to it.
class CommandMedia : public MediaInterface {
public:
    CommandMedia(Desktop& postingDesktop, std::unique_ptr<MediaPlayer> soundPlayerPtr)
        : desktop(postingDesktop), playerPtr(std::move(soundPlayerPtr)) {}

    DWORD Send(std::wstring_view text, std::wstring* replyPtr, HWND notifyWindow) override {
        const std::optional<MediaCommand> command = ParseMediaCommand(text);
        if (!command) return mediaBadCommand;
        if (command->verb == Verb::open) return Open(*command);
        const auto position = Find(command->alias);
        if (position == sounds.end()) return mediaUnknownAlias;
        Sound& sound = *position;
        switch (command->verb) {
        case Verb::open:
        case Verb::setTimeFormat: break; // milliseconds is all there is
        case Verb::statusLength:
            if (replyPtr != nullptr) *replyPtr = std::to_wstring(sound.filePtr->length);
            break;
        case Verb::play: return Play(sound, *command, notifyWindow);
        case Verb::pause: SetPaused(sound, true); break;
        case Verb::resume: SetPaused(sound, false); break;
        case Verb::stop: Stop(sound); break;
        case Verb::setVolume: return SetVolume(sound, command->volume);
        case Verb::close: sounds.erase(position); break;
        }
        return mediaDone;
    }

    void Suspend(bool suspend) override { playerPtr->Suspend(suspend); }

    void Update() override {
        for (Sound& sound : sounds) {
            if (!sound.order.playing || !sound.voicePtr->HasEnded()) continue;
            Stop(sound);
            if (sound.notify) desktop.PostMessage(sound.notifyWindow, MM_MCINOTIFY, MCI_NOTIFY_SUCCESSFUL, 0);
        }
    }

private:
    struct Sound {
        std::wstring alias;
        std::wstring fileName;
        FileType fileType = FileType::mpegVideo;
        std::shared_ptr<const MediaFile> filePtr;
        std::unique_ptr<MediaVoice> voicePtr;
        MediaOrder order;
        bool notify = false;
        HWND notifyWindow = nullptr;
    };

    std::vector<Sound>::iterator Find(std::wstring_view alias) {
        return std::find_if(sounds.begin(), sounds.end(), [alias](const Sound& sound) { return sound.alias == alias; });
    }

    DWORD Open(const MediaCommand& command) {
        if (Find(command.alias) != sounds.end()) return mediaAliasTaken;
        Sound sound;
        sound.alias = command.alias;
        sound.fileName = command.fileName;
        sound.fileType = command.fileType;
        sound.filePtr = OpenFile(command.fileName, command.fileType);
        if (!sound.filePtr) return mediaCannotOpen;
        sound.voicePtr = playerPtr->MakeVoice(sound.filePtr);
        sounds.push_back(std::move(sound));
        return mediaDone;
    }

    /// The file of a sound that is open already, or else the one on disk.
    std::shared_ptr<const MediaFile> OpenFile(std::wstring_view fileName, FileType fileType) const {
        for (const Sound& sound : sounds) {
            if (sound.fileType == fileType && sound.fileName == fileName) return sound.filePtr;
        }
        MediaFile file;
        file.path = ToFilePath(fileName);
        file.isMidi = fileType == FileType::sequencer;
        file.length = file.isMidi ? MidiLength(file.path) : RecordingLength(file.path);
        return file.length < 0 ? nullptr : std::make_shared<const MediaFile>(std::move(file));
    }

    /// The length in milliseconds of the recording at `path`, negative if nothing can be read from it.
    int RecordingLength(const std::string& path) const {
        const std::unique_ptr<SoundDecoder> decoderPtr = desktop.GetBackend().openRecording(path);
        if (!decoderPtr) return -1;
        const double seconds = static_cast<double>(decoderPtr->FrameCount()) / decoderPtr->SamplesPerSecond();
        return static_cast<int>(std::lround(std::min(seconds, 1e6) * 1000.0));
    }

    DWORD Play(Sound& sound, const MediaCommand& command, HWND notifyWindow) {
        const int length = sound.filePtr->length;
        const int to = std::min(command.to.value_or(length), length);
        if (command.from > to) return mediaOutOfRange;
        sound.notify = command.notify;
        sound.notifyWindow = notifyWindow;
        MediaOrder& order = sound.order;
        order = {order.playback + 1, true, false, command.from, to, order.gain};
        sound.voicePtr->Follow(order);
        return mediaDone;
    }

    void SetPaused(Sound& sound, bool paused) {
        sound.order.paused = paused;
        sound.voicePtr->Follow(sound.order);
    }

    void Stop(Sound& sound) {
        sound.order.playing = false;
        sound.voicePtr->Follow(sound.order);
    }

    DWORD SetVolume(Sound& sound, int volume) {
        if (volume > fullVolume) return mediaOutOfRange;
        sound.order.gain = static_cast<float>(volume) / fullVolume;
        sound.voicePtr->Follow(sound.order);
        return mediaDone;
    }

    Desktop& desktop;
    std::unique_ptr<MediaPlayer> playerPtr; // lends itself to the voices below
    std::vector<Sound> sounds;              // in the order of opening
};
} // namespace

std::unique_ptr<MediaInterface> MakeMedia(Desktop& desktop, std::unique_ptr<MediaPlayer> playerPtr) {
    return std::make_unique<CommandMedia>(desktop, std::move(playerPtr));
}

} // namespace platform
