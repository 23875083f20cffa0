#pragma once

#include "platform/Types.h"

#include <memory>
#include <string>
#include <string_view>

namespace platform {

class Desktop;

/// What a media command that was not carried out answers.
enum MediaError : DWORD {
    mediaDone = 0,
    mediaBadCommand,   ///< the text is none of the commands
    mediaUnknownAlias, ///< nothing is open under this name
    mediaAliasTaken,
    mediaCannotOpen, ///< the file is missing or no sound can be read from it
    mediaOutOfRange, ///< a position behind another that it must not pass, or a volume above 1000
};

/// Plays sound files on command texts:
///
///     open "FILE" type mpegvideo|waveaudio|sequencer alias NAME
///     set NAME time format milliseconds
///     status NAME length                      replies a decimal number
///     play NAME from A [to B] [notify]
///     pause NAME, resume NAME, stop NAME
///     setaudio NAME volume to 0…1000
///     close NAME
///
/// With "notify", the natural end of the playback posts MM_MCINOTIFY with MCI_NOTIFY_SUCCESSFUL to the window given.
/// Playing a sound that plays starts it again; pausing, resuming or stopping one that does not play changes nothing.
class MediaInterface {
public:
    virtual ~MediaInterface() = default;
    /// Carries out one command. 0 if it worked, otherwise one of MediaError. `replyPtr` may be null.
    virtual DWORD Send(std::wstring_view command, std::wstring* replyPtr, HWND notifyWindow) = 0;
    /// Holds every playback where it is, or lets all go on; not visible to commands.
    virtual void Suspend(bool suspend) = 0;
    /// Posts the notices of playbacks that have ended by now; the desktop calls it whenever it lets events in.
    virtual void Update() = 0;
};

/// A player without a device: lengths, states and notices are those of the real files, on the clock of `desktop`.
std::unique_ptr<MediaInterface> MakeSilentMedia(Desktop& desktop);

/// A player on the default sound device; silent on the clock for as long as there is none. Returns at once: the device
/// is opened in the background when the first sound plays.
std::unique_ptr<MediaInterface> MakeDeviceMedia(Desktop& desktop);

} // namespace platform
