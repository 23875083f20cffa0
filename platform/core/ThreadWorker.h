#pragma once

#include "platform/Worker.h"

#include <condition_variable>
#include <mutex>
#include <thread>

namespace platform {

/// Work on a thread of its own, in real time.
class ThreadWorker final : public Worker {
public:
    static std::unique_ptr<Worker> Start(Work work);

    explicit ThreadWorker(Work newWork);
    ~ThreadWorker() override;
    bool Rest(std::optional<std::chrono::nanoseconds> longest) override;
    void Wake() override;

private:
    const Work work;
    std::mutex mutex; // guards the two flags
    std::condition_variable changed;
    bool woken = false;
    bool ended = false;
    std::thread thread; // last: it uses everything above
};

} // namespace platform
