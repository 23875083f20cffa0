#pragma once

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <mutex>
#include <optional>
#include <thread>

namespace platform {

/// Lets the main thread wait for the window library's events, and another thread end the wait. Works without a display
/// too.
class EventBell {
public:
    explicit EventBell(bool hasVideo) : hasDisplay(hasVideo) {}

    /// Returns when there is an event or the bell has been rung since Reset, or after `longest`; without one it waits
    /// for ever.
    void Wait(std::optional<std::chrono::milliseconds> longest);
    /// Any thread; on the main one it does nothing, as that does not wait now.
    void Ring();
    void Reset() { isRung = false; }

private:
    const bool hasDisplay;
    const std::thread::id mainThread = std::this_thread::get_id();
    std::atomic<bool> isRung{false};
    std::mutex mutex; // this pair is for waiting without a display
    std::condition_variable changed;
};

} // namespace platform
