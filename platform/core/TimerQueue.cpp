#include "platform/core/TimerQueue.h"

#include <algorithm>
#include <chrono>
#include <condition_variable>
#include <mutex>
#include <thread>
#include <utility>
#include <vector>

namespace platform {

namespace {
using Clock = std::chrono::steady_clock;

constexpr auto longestDelay = std::chrono::seconds(1); // calls missed for longer than this are not made up for

struct Entry {
    std::function<void()> callback;
    Clock::duration period{};
    Clock::time_point due; // the next call; the one after comes exactly a period later, however late this one is
};
} // namespace

/// What the queue, its timers and its thread share.
class TimerQueue::Schedule {
public:
    void Add(const std::shared_ptr<Entry>& entryPtr, int period) {
        const std::lock_guard lock(mutex);
        if (ended) return;
        entryPtr->period = std::chrono::milliseconds(std::max(1, period));
        entryPtr->due = Clock::now() + entryPtr->period;
        std::erase(entries, entryPtr);
        entries.push_back(entryPtr);
        if (!thread.joinable()) thread = std::thread([this] { Run(); });
        changed.notify_all();
    }

    void Remove(const std::shared_ptr<Entry>& entryPtr) {
        const std::lock_guard lock(mutex);
        std::erase(entries, entryPtr);
    }

    /// Removes the entry, and returns when no call of it is running on another thread.
    void RemoveAndWait(const std::shared_ptr<Entry>& entryPtr) {
        std::unique_lock lock(mutex);
        std::erase(entries, entryPtr);
        if (std::this_thread::get_id() == thread.get_id()) return;
        changed.wait(lock, [this, &entryPtr] { return calledPtr != entryPtr.get(); });
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
            const auto next = std::min_element(entries.begin(), entries.end(),
                                               [](const auto& a, const auto& b) { return a->due < b->due; });
            if (next == entries.end()) {
                changed.wait(lock);
            } else if (const Clock::time_point due = (*next)->due; Clock::now() < due) {
                changed.wait_until(lock, due);
            } else {
                Call(*next, lock);
            }
        }
    }

    /// By value: the call may remove, or destroy, its own timer.
    void Call(std::shared_ptr<Entry> entryPtr, std::unique_lock<std::mutex>& lock) {
        entryPtr->due += entryPtr->period;
        if (const auto now = Clock::now(); now - entryPtr->due > longestDelay) entryPtr->due = now + entryPtr->period;
        calledPtr = entryPtr.get();
        lock.unlock();
        entryPtr->callback();
        lock.lock();
        calledPtr = nullptr;
        changed.notify_all();
    }

    std::mutex mutex; // guards everything but the callbacks while they run
    std::condition_variable changed;
    std::vector<std::shared_ptr<Entry>> entries;
    const Entry* calledPtr = nullptr;
    bool ended = false;
    std::thread thread;
};

class TimerQueue::QueuedTimer : public PeriodicTimer {
public:
    QueuedTimer(std::shared_ptr<Schedule> sharedPtr, std::function<void()> callback)
        : schedulePtr(std::move(sharedPtr)), entryPtr(std::make_shared<Entry>()) {
        entryPtr->callback = std::move(callback);
    }
    ~QueuedTimer() override { schedulePtr->RemoveAndWait(entryPtr); }

    void Start(int period) override { schedulePtr->Add(entryPtr, period); }
    void Stop() override { schedulePtr->Remove(entryPtr); }

private:
    std::shared_ptr<Schedule> schedulePtr;
    std::shared_ptr<Entry> entryPtr;
};

TimerQueue::TimerQueue() : schedulePtr(std::make_shared<Schedule>()) {}

TimerQueue::~TimerQueue() { schedulePtr->End(); }

std::unique_ptr<PeriodicTimer> TimerQueue::MakeTimer(std::function<void()> callback) {
    return std::make_unique<QueuedTimer>(schedulePtr, std::move(callback));
}

} // namespace platform
