#include "platform/ScriptedDesktop.h"

#include "platform/Media.h"
#include "platform/Unicode.h"
#include "platform/core/TimerSchedule.h"
#include "platform/core/WorkerTurns.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace platform {

/// The timers that run, on the frames' clock.
struct ScriptedDesktop::Timers {
    /// Makes the calls that are due until `end` seconds. A call may start, stop and destroy timers.
    void RunUntil(double end) {
        const TimerSchedule::Time last(std::llround(end * 1e9));
        while (const auto next = schedule.NextCall()) {
            if (*next > last) break;
            now = *next;
            const auto entryPtr = schedule.TakeCall(now);
            entryPtr->callback();
        }
        now = last;
    }

    TimerSchedule schedule;
    TimerSchedule::Time now{}; // within a call: the time at which it is due
};

class ScriptedDesktop::FrameTimer : public PeriodicTimer {
public:
    FrameTimer(std::shared_ptr<Timers> sharedPtr, std::function<void()> callback)
        : timersPtr(std::move(sharedPtr)), entryPtr(std::make_shared<TimerSchedule::Entry>()) {
        entryPtr->callback = std::move(callback);
    }
    ~FrameTimer() override { Stop(); }

    void Start(int period) override { timersPtr->schedule.Start(entryPtr, period, timersPtr->now); }
    void Stop() override { timersPtr->schedule.Stop(entryPtr); }

private:
    std::shared_ptr<Timers> timersPtr;
    std::shared_ptr<TimerSchedule::Entry> entryPtr;
};

/// Writes down every command before the silent player carries it out.
class ScriptedDesktop::Recorder : public MediaInterface {
public:
    explicit Recorder(ScriptedDesktop& recordingDesktop)
        : desktop(recordingDesktop), playerPtr(MakeSilentMedia(recordingDesktop)) {}

    DWORD Send(std::wstring_view command, std::wstring* replyPtr, HWND notifyWindow) override {
        if (desktop.onMediaCommand) {
            desktop.onMediaCommand(command);
        } else {
            desktop.mediaCommands.push_back({desktop.frame, std::wstring(command)});
        }
        return playerPtr->Send(command, replyPtr, notifyWindow);
    }
    void Suspend(bool suspend) override { playerPtr->Suspend(suspend); }
    void Update() override { playerPtr->Update(); }

private:
    ScriptedDesktop& desktop;
    std::unique_ptr<MediaInterface> playerPtr;
};

ScriptedDesktop::ScriptedDesktop(double frameSeconds, const Backend& backend)
    : Desktop(backend), secondsPerFrame(frameSeconds), turnsPtr(std::make_unique<WorkerTurns>()),
      timersPtr(std::make_shared<Timers>()) {}

ScriptedDesktop::~ScriptedDesktop() { CloseMedia(); }

void ScriptedDesktop::At(int eventFrame, std::function<void()> action) {
    const auto position = std::upper_bound(events.begin(), events.end(), eventFrame,
                                           [](int number, const Event& event) { return number < event.frame; });
    events.insert(position, {eventFrame, std::move(action)});
}

void ScriptedDesktop::SetKey(int virtualKey, bool isDown) {
    const std::lock_guard lock(keyMutex);
    keys[virtualKey & 255] = isDown;
}

void ScriptedDesktop::PressKey(int virtualKey) {
    SetKey(virtualKey, true);
    if (MainWindow() == nullptr) return;
    const auto key = static_cast<WPARAM>(MessageKey(virtualKey));
    PostMessage(MainWindow(), WM_KEYDOWN, key, static_cast<LPARAM>(Modifiers()));
}

void ScriptedDesktop::ReleaseKey(int virtualKey) {
    SetKey(virtualKey, false);
    const auto key = static_cast<WPARAM>(MessageKey(virtualKey));
    if (MainWindow() != nullptr) PostMessage(MainWindow(), WM_KEYUP, key, 0);
}

void ScriptedDesktop::Type(int eventFrame, const std::wstring& text) {
    At(eventFrame, [this, text] {
        const std::string utf8 = ToUtf8(text);
        for (std::string_view rest = utf8; !rest.empty();) {
            PostMessage(MainWindow(), WM_CHAR, TakeCodePoint(rest), 0);
        }
    });
}

void ScriptedDesktop::PostMouse(UINT message, POINT position) {
    if (message == WM_LBUTTONDOWN || message == WM_LBUTTONDBLCLK) leftButtonIsDown = true;
    if (message == WM_LBUTTONUP) leftButtonIsDown = false;
    const WPARAM flags = Modifiers() | (leftButtonIsDown ? MK_LBUTTON : 0);
    PostMessage(MainWindow(), message, flags, PackPoint(position));
}

WPARAM ScriptedDesktop::Modifiers() const {
    return (IsKeyDown(VK_SHIFT) ? MK_SHIFT : 0) | (IsKeyDown(VK_CONTROL) ? MK_CONTROL : 0);
}

bool ScriptedDesktop::IsKeyDown(int virtualKey) const {
    const std::lock_guard lock(keyMutex);
    if (keys[virtualKey & 255]) return true;
    const int left = VK_LSHIFT + 2 * (virtualKey - VK_SHIFT);
    return virtualKey >= VK_SHIFT && virtualKey <= VK_MENU && (keys[left] || keys[left + 1]);
}

std::unique_ptr<Worker> ScriptedDesktop::StartWorker(Worker::Work work) { return turnsPtr->Start(std::move(work)); }

std::unique_ptr<PeriodicTimer> ScriptedDesktop::MakeTimer(std::function<void()> callback) {
    return std::make_unique<FrameTimer>(timersPtr, std::move(callback));
}

bool ScriptedDesktop::Present(HWND, const FrameView& view, bool) {
    if (onFrame) onFrame(frame, view);
    ++frame;
    stage = Stage::events;
    return true;
}

void ScriptedDesktop::MessageBox(std::wstring_view text, std::wstring_view caption) {
    boxes.push_back({std::wstring(text), std::wstring(caption)});
    if (onBox) onBox(boxes.back());
}

void ScriptedDesktop::OutputDebugString(std::wstring_view text) {
    if (onDebugString) {
        onDebugString(text);
    } else {
        debugLines.emplace_back(text);
    }
}

void ScriptedDesktop::PumpEvents(bool wait) {
    if (wait && stage == Stage::frame) {
        // The program sleeps through this frame: time goes on without it.
        ++frame;
        stage = Stage::events;
        const bool nothingWillHappen = endFrame < 0 && nextEvent == events.size() && !timersPtr->schedule.NextCall();
        if (nothingWillHappen) endFrame = frame;
    }
    if (stage == Stage::events) {
        BeginFrame();
        stage = Stage::notices;
        if (HasQueuedMessages()) return; // what the frame's events and the poll posted goes first
    }
    if (stage == Stage::notices) {
        Media().Update();
        stage = Stage::frame;
    }
}

std::unique_ptr<MediaInterface> ScriptedDesktop::MakeMedia() { return std::make_unique<Recorder>(*this); }

void ScriptedDesktop::ShowMainWindow(Window& window) {
    if (window.visible) SendMessage(&window, WM_ACTIVATE, WA_ACTIVE, 0);
}

void ScriptedDesktop::BeginFrame() {
    if (endFrame >= 0 && frame >= endFrame) {
        PostMessage(MainWindow(), WM_DESTROY, 0, 0);
        return;
    }
    timersPtr->RunUntil(Now());
    RunEvents();
    turnsPtr->Run();
}

void ScriptedDesktop::RunEvents() {
    while (nextEvent < events.size() && events[nextEvent].frame <= frame) {
        const std::function<void()> action = events[nextEvent++].action;
        action();
    }
}

} // namespace platform
