#pragma once

#include "platform/Desktop.h"
#include "platform/core/ThreadWorker.h"

#include <functional>
#include <memory>

namespace platform {

/// Timers in real time, called by one worker for all, which begins with the first of them.
class TimerQueue {
public:
    explicit TimerQueue(WorkerStarter startWorker = ThreadWorker::Start);
    /// Ends the work after the call that it may be in; timers that are left never call again.
    ~TimerQueue();
    TimerQueue(const TimerQueue&) = delete;
    TimerQueue& operator=(const TimerQueue&) = delete;

    /// The timer may outlive the queue.
    std::unique_ptr<PeriodicTimer> MakeTimer(std::function<void()> callback);

private:
    class Calls;
    class QueuedTimer;

    std::shared_ptr<Calls> callsPtr;
};

} // namespace platform
