#pragma once

#include "engine/Caller.h"
#include "engine/String.h"
#include "platform/Types.h"

#include <string>
#include <string_view>
#include <vector>

/// One sound file, opened once and played any number of times. Orders are queued as media commands, and Tick sends one
/// of them: the flags change at once, what is heard follows. A file that cannot be opened leaves an object that takes
/// every order and stays silent.
class Audio : public Caller {
public:
    /// Opens a file whose name ends in ".mp3", ".wav" or ".mid"; any other name leaves the object closed.
    explicit Audio(String const& soundFileName);
    /// Opens a sound that is stored in the program; its type is "MP3", "WAV" or "MID". It is written to a file in the
    /// folder "temp" first.
    Audio(int resourceID, String const& resourceType);
    ~Audio() override;
    Audio(Audio const&) = delete;
    Audio& operator=(Audio const&) = delete;

    /// Plays from `msecStart` to `msecStop` (-1: to the end), or goes on if it is paused. What plays already is not
    /// started again.
    void Play(int msecStart, int msecStop);
    void Pause();
    void Stop();
    /// Begin again whenever a playback ends; the listeners are then not called.
    void SetRepeat(bool newRepeat) { repeat = newRepeat; }
    /// 0 to 100; what lies outside counts as the nearer end.
    void SetVolume(int newVolume);
    /// Sends the oldest queued command. The owner calls it once a frame.
    void Tick();

    int GetType() const override { return callerAudio; }
    String const& GetName() const { return fileName; }
    /// Milliseconds; 0 if nothing could be opened.
    int GetDuration() const { return duration; }
    bool IsPlaying() const { return playing; }
    bool IsPaused() const { return paused; }
    bool GetRepeat() const { return repeat; }
    int GetVolume() const { return volume; }

private:
    static LRESULT HandleNotification(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

    struct Format;

    void TakeAlias();
    void ExtractResource(int resourceID, String const& resourceType) const;
    void Create(Format const& format);
    void HandleEnd();
    void Queue(String const& command);
    DWORD Send(String const& command, std::wstring* replyPtr = nullptr) const;

    std::vector<String> commandQueue; // oldest first
    std::size_t sentCount = 0;        // of them, that have been sent and are still in the queue
    String fileName = L"";
    String alias = L""; // under which the media interface knows the file
    bool playing = false;
    bool paused = false;
    bool repeat = false;
    HWND notifyWindow = nullptr; // hidden; told when a playback ends
    int duration = 0;
    int volume = 100;
};
