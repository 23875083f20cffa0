#include "platform/core/ThreadSleeper.h"

#include <chrono>

namespace platform {

bool ThreadSleeper::Sleep(int milliseconds) {
    const auto end = std::chrono::steady_clock::now() + std::chrono::milliseconds(milliseconds);
    std::unique_lock lock(mutex);
    return !changed.wait_until(lock, end, [this] { return awake; });
}

void ThreadSleeper::Wake() {
    const std::lock_guard lock(mutex);
    awake = true;
    changed.notify_all();
}

} // namespace platform
