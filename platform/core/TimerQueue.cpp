#include "platform/core/TimerQueue.h"

#include "platform/core/TimerSchedule.h"

#include <chrono>
#include <condition_variable>
#include <mutex>
#include <optional>
#include <thread>
#include <utility>

namespace platform {

namespace {
using Entry = TimerSchedule::Entry;
} // namespace

/// What the queue, its timers and its worker share.
class TimerQueue::Calls {
public:
    explicit Calls(WorkerStarter workerStarter) : startWorker(std::move(workerStarter)) {}

    void Start(const std::shared_ptr<Entry>& entryPtr, int period) {
        const std::lock_guard lock(mutex);
        if (ended) return;
        schedule.Start(entryPtr, period, Now());
        if (workerPtr) {
            workerPtr->Wake();
        } else {
            workerPtr = startWorker([this](Worker& worker) {
                do { CallDue(); } while (worker.Rest(TimeToNextCall()));
            });
        }
    }

    void Stop(const std::shared_ptr<Entry>& entryPtr) {
        const std::lock_guard lock(mutex);
        schedule.Stop(entryPtr);
    }

    /// Stops the timer, and returns when no call of it is running on another thread.
    void StopAndWait(const std::shared_ptr<Entry>& entryPtr) {
        std::unique_lock lock(mutex);
        schedule.Stop(entryPtr);
        if (std::this_thread::get_id() == callingThread) return;
        changed.wait(lock, [this, &entryPtr] { return calledPtr != entryPtr; });
    }

    void End() {
        {
            const std::lock_guard lock(mutex);
            ended = true;
        }
        workerPtr.reset();
    }

private:
    static TimerSchedule::Time Now() { return std::chrono::steady_clock::now().time_since_epoch(); }

    void CallDue() {
        std::unique_lock lock(mutex);
        callingThread = std::this_thread::get_id();
        while (!ended && (calledPtr = schedule.TakeCall(Now()))) Call(lock);
    }

    std::optional<TimerSchedule::Time> TimeToNextCall() {
        const std::lock_guard lock(mutex);
        const auto next = schedule.NextCall();
        return next ? std::optional(*next - Now()) : std::nullopt;
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
    std::thread::id callingThread;
    bool ended = false;
    const WorkerStarter startWorker;
    std::unique_ptr<Worker> workerPtr; // last: it uses everything above
};

class TimerQueue::QueuedTimer : public PeriodicTimer {
public:
    QueuedTimer(std::shared_ptr<Calls> sharedPtr, std::function<void()> callback)
        : callsPtr(std::move(sharedPtr)), entryPtr(std::make_shared<Entry>()) {
        entryPtr->callback = std::move(callback);
    }
    ~QueuedTimer() override { callsPtr->StopAndWait(entryPtr); }

    void Start(int period) override { callsPtr->Start(entryPtr, period); }
    void Stop() override { callsPtr->Stop(entryPtr); }

private:
    std::shared_ptr<Calls> callsPtr;
    std::shared_ptr<Entry> entryPtr;
};

TimerQueue::TimerQueue(WorkerStarter startWorker) : callsPtr(std::make_shared<Calls>(std::move(startWorker))) {}

TimerQueue::~TimerQueue() { callsPtr->End(); }

std::unique_ptr<PeriodicTimer> TimerQueue::MakeTimer(std::function<void()> callback) {
    return std::make_unique<QueuedTimer>(callsPtr, std::move(callback));
}

} // namespace platform
