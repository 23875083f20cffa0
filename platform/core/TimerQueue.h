#pragma once

#include "platform/Desktop.h"

#include <functional>
#include <memory>

namespace platform {

/// Timers on a thread of their own, which is started with the first timer.
class TimerQueue {
public:
    TimerQueue();
    /// Ends the thread after the call it may be in; timers that are left never call again.
    ~TimerQueue();
    TimerQueue(const TimerQueue&) = delete;
    TimerQueue& operator=(const TimerQueue&) = delete;

    /// The timer may outlive the queue.
    std::unique_ptr<PeriodicTimer> MakeTimer(std::function<void()> callback);

private:
    class Worker;
    class QueuedTimer;

    std::shared_ptr<Worker> workerPtr;
};

} // namespace platform
