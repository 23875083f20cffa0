#pragma once

#include "engine/Caller.h"

#include <atomic>
#include <memory>
#include <mutex>

namespace platform {
class PeriodicTimer;
}

/// Calls its listeners at a fixed period, on the desktop's timer thread: they must not draw, and share what they touch
/// with the game loop. All operations may be called on any thread, and by the listeners too.
class Timer : public Caller {
public:
    /// Not started. `delay` as for SetDelay; `targetPtr` may be null.
    Timer(int delay, Callable* targetPtr);
    /// Stops. Waits for a call that is running on another thread; a listener may delete its timer.
    ~Timer() override;

    /// The first call comes after `delay` milliseconds, the others every `delay`. Nothing happens if it runs already.
    void Start();
    /// Does not wait for a call in progress.
    void Stop();
    /// In milliseconds; values below 2 become 1. A timer that runs begins anew.
    void SetDelay(int newDelay);

    bool IsRunning() const { return isRunning; }
    int GetDelay() const { return delay; }
    int GetType() const override { return callerTimer; }
    /// Both wait for a call that is running on another thread.
    bool AddActionListener(Callable* targetPtr) override;
    bool RemoveActionListener(Callable* targetPtr) override;
    bool CallListeners() override;

private:
    void HandleExpiry();

    std::atomic<bool> isRunning = false;
    std::atomic<int> delay;
    // Guards the listeners. Shared, so that it outlives a timer that is deleted by its listener.
    std::shared_ptr<std::recursive_mutex> listenersMutexPtr = std::make_shared<std::recursive_mutex>();
    std::unique_ptr<platform::PeriodicTimer> timerPtr;
};
