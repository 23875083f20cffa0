#pragma once

#include "platform/Desktop.h"
#include "platform/NativeBackend.h"

#include <functional>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

namespace platform {

class WorkerTurns;

/// A desktop without window, device or real time: keys come from a script, the clock counts frames, frames are handed
/// to an observer, and message boxes, debug lines and media commands are recorded. A program runs on it unchanged and
/// the same to the last bit every time.
///
/// It has no threads, so this is also how a program runs in a browser's page. A frame is: the calls of timers that have
/// become due since the last one; the script's events for it; one turn for each worker, among them the poll of the
/// keys, and time to deliver what was posted; the media notices that are due; then the program's own frame, which ends
/// with Present.
class ScriptedDesktop : public Desktop {
public:
    struct Box {
        std::wstring text;
        std::wstring caption;
    };
    struct MediaCommand {
        int frame = 0;
        std::wstring text;
    };

    explicit ScriptedDesktop(double frameSeconds = 1.0 / 60.0, const Backend& backend = NativeBackend());
    ~ScriptedDesktop() override;

    // The script; events of one frame happen in the order they are given. Keys and mouse reach the program as they do
    // from a real keyboard and mouse: as key state, and as messages to the main window or the control they are for.

    void Press(int frame, int virtualKey) {
        At(frame, [this, virtualKey] { PressKey(virtualKey); });
    }
    void Release(int frame, int virtualKey) {
        At(frame, [this, virtualKey] { ReleaseKey(virtualKey); });
    }
    /// The characters that the keyboard's layout makes of keys; also those that no key has.
    void Type(int frame, const std::wstring& text);
    /// `message` is one of the mouse messages; the position is in pixels of the frame.
    void Mouse(int frame, UINT message, POINT position) {
        At(frame, [this, message, position] { PostMouse(message, position); });
    }
    /// Runs `action` on the main thread before frame `frame`; post messages, move the mouse, look at the game.
    void At(int frame, std::function<void()> action);
    /// Frames 0 to `frame` - 1 run; then the main window is told to go away.
    void End(int frame) { endFrame = frame; }
    /// Sets a key at once, for tests that drive objects without the loop.
    void SetKey(int virtualKey, bool isDown);

    /// Called with the number of every presented frame.
    std::function<void(int frame, const FrameView& view)> onFrame;
    /// Called for every message box, besides recording it.
    std::function<void(const Box& box)> onBox;
    /// When set, called for every media command instead of recording it.
    std::function<void(std::wstring_view text)> onMediaCommand;
    /// When set, called for every debug line instead of recording it.
    std::function<void(std::wstring_view text)> onDebugString;

    // What happened

    std::vector<Box> boxes;
    std::vector<std::wstring> debugLines;
    std::vector<MediaCommand> mediaCommands;
    /// The number of the frame that runs, 0 before the first one has ended.
    int Frame() const { return frame; }
    /// The virtual time of the frame that runs.
    double Now() const { return frame * secondsPerFrame; }

    POINT ScreenSize() const override { return {1920, 1080}; }
    bool IsKeyDown(int virtualKey) const override;
    std::unique_ptr<Worker> StartWorker(Worker::Work work) override;
    std::unique_ptr<PeriodicTimer> MakeTimer(std::function<void()> callback) override;
    std::int64_t Counter() const override { return frame; }
    double SecondsPerCount() const override { return secondsPerFrame; }
    bool Present(HWND window, const FrameView& view, bool waitForBlank) override;
    void MessageBox(std::wstring_view text, std::wstring_view caption) override;
    void OutputDebugString(std::wstring_view text) override;
    void ShowMousePointer(bool) override {}
    bool SetFullscreen(bool) override { return true; }

protected:
    void PumpEvents(bool wait) override;
    void WakeEvents() override {}
    std::unique_ptr<MediaInterface> MakeMedia() override;
    void ShowMainWindow(Window& window) override;

private:
    class FrameTimer;
    struct Timers;
    class Recorder;
    struct Event {
        int frame = 0;
        std::function<void()> action;
    };
    enum class Stage { events, notices, frame };

    void PressKey(int virtualKey);
    void ReleaseKey(int virtualKey);
    void PostMouse(UINT message, POINT position);
    WPARAM Modifiers() const;
    void BeginFrame();
    void RunEvents();

    double secondsPerFrame;
    int frame = 0;
    int endFrame = -1;
    Stage stage = Stage::events;
    std::vector<Event> events;
    std::size_t nextEvent = 0;
    mutable std::mutex keyMutex;
    bool keys[256] = {};
    bool leftButtonIsDown = false;
    std::unique_ptr<WorkerTurns> turnsPtr;
    std::shared_ptr<Timers> timersPtr; // shared with the timers, which may outlive the desktop
};

} // namespace platform
