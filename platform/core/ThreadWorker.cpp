#include "platform/core/ThreadWorker.h"

#include <utility>

namespace platform {

std::unique_ptr<Worker> ThreadWorker::Start(Work work) { return std::make_unique<ThreadWorker>(std::move(work)); }

ThreadWorker::ThreadWorker(Work newWork) : work(std::move(newWork)), thread([this] { work(*this); }) {}

ThreadWorker::~ThreadWorker() {
    {
        const std::lock_guard lock(mutex);
        ended = true;
        changed.notify_all();
    }
    thread.join();
}

bool ThreadWorker::Rest(std::optional<std::chrono::nanoseconds> longest) {
    std::unique_lock lock(mutex);
    const auto mustGoOn = [this] { return woken || ended; };
    if (longest) {
        changed.wait_for(lock, *longest, mustGoOn);
    } else {
        changed.wait(lock, mustGoOn);
    }
    woken = false;
    return !ended;
}

void ThreadWorker::Wake() {
    const std::lock_guard lock(mutex);
    woken = true;
    changed.notify_all();
}

} // namespace platform
