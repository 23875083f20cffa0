#include "platform/core/TimerQueue.h"

#include "platform/core/TimerSchedule.h"

#include <chrono>
#include <condition_variable>
#include <mutex>
#include <thread>
#include <utility>

namespace platform {

namespace {
using Clock = std::chrono::steady_clock;
using Entry = TimerSchedule::Entry;
} // namespace

/// What the queue, its timers and its thread share.
class TimerQueue::Worker {
public:
    void Start(const std::shared_ptr<Entry>& entryPtr, int period) {
        const std::lock_guard lock(mutex);
        if (ended) return;
        schedule.Start(entryPtr, period, Clock::now().time_since_epoch());
        if (!thread.joinable()) thread = std::thread([this] { Run(); });
        changed.notify_all();
    }

    void Stop(const std::shared_ptr<Entry>& entryPtr) {
        const std::lock_guard lock(mutex);
        schedule.Stop(entryPtr);
    }

    /// Stops the timer, and returns when no call of it is running on another thread.
    void StopAndWait(const std::shared_ptr<Entry>& entryPtr) {
        std::unique_lock lock(mutex);
        schedule.Stop(entryPtr);
        if (std::this_thread::get_id() == thread.get_id()) return;
        changed.wait(lock, [this, &entryPtr] { return calledPtr != entryPtr; });
    }

    void End() {
        {
            const std::lock_guard lock(mutex);
            ended = true;
            changed.notify_all();
        }
        if (thread.joinable()) thread.join();
    }

private:
    void Run() {
        std::unique_lock lock(mutex);
        while (!ended) {
            calledPtr = schedule.TakeCall(Clock::now().time_since_epoch());
            if (calledPtr) {
                Call(lock);
            } else if (const auto next = schedule.NextCall()) {
                changed.wait_until(lock, Clock::time_point(*next));
            } else {
                changed.wait(lock);
            }
        }
    }

    void Call(std::unique_lock<std::mutex>& lock) {
        lock.unlock();
        calledPtr->callback(); // may stop, or destroy, its own timer
        lock.lock();
        calledPtr = nullptr;
        changed.notify_all();
    }

    std::mutex mutex; // guards everything but the callbacks while they run
    std::condition_variable changed;
    TimerSchedule schedule;
    std::shared_ptr<Entry> calledPtr; // whose call is running
    bool ended = false;
    std::thread thread;
};

class TimerQueue::QueuedTimer : public PeriodicTimer {
public:
    QueuedTimer(std::shared_ptr<Worker> sharedPtr, std::function<void()> callback)
        : workerPtr(std::move(sharedPtr)), entryPtr(std::make_shared<Entry>()) {
        entryPtr->callback = std::move(callback);
    }
    ~QueuedTimer() override { workerPtr->StopAndWait(entryPtr); }

    void Start(int period) override { workerPtr->Start(entryPtr, period); }
    void Stop() override { workerPtr->Stop(entryPtr); }

private:
    std::shared_ptr<Worker> workerPtr;
    std::shared_ptr<Entry> entryPtr;
};

TimerQueue::TimerQueue() : workerPtr(std::make_shared<Worker>()) {}

TimerQueue::~TimerQueue() { workerPtr->End(); }

std::unique_ptr<PeriodicTimer> TimerQueue::MakeTimer(std::function<void()> callback) {
    return std::make_unique<QueuedTimer>(workerPtr, std::move(callback));
}

} // namespace platform
