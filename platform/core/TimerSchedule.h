#pragma once

#include <chrono>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace platform {

/// Which timer calls next, and when. Knows no clock: it is told the time, on one that never goes back.
class TimerSchedule {
public:
    using Time = std::chrono::nanoseconds;
    struct Entry {
        std::function<void()> callback;
        Time period{};
        Time due{};
    };

    /// The first call is due `milliseconds` (at least 1) after `now`. A timer that runs begins again.
    void Start(const std::shared_ptr<Entry>& entryPtr, int milliseconds, Time now);
    void Stop(const std::shared_ptr<Entry>& entryPtr);
    /// When the next call is due; nothing while no timer runs.
    std::optional<Time> NextCall() const;
    /// The timer whose call is due first, of several the one that was started first; null if none is due at `now`. Its
    /// next call is due exactly a period later, however late this one is, unless a whole second was missed.
    std::shared_ptr<Entry> TakeCall(Time now);

private:
    std::vector<std::shared_ptr<Entry>> running; // in the order in which they were started
};

} // namespace platform
