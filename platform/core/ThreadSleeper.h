#pragma once

#include "platform/Desktop.h"

#include <condition_variable>
#include <mutex>

namespace platform {

/// Sleeps in real time; Wake ends a sleep at once.
class ThreadSleeper : public Sleeper {
public:
    bool Sleep(int milliseconds) override;
    void Wake() override;

private:
    std::mutex mutex;
    std::condition_variable changed;
    bool awake = false;
};

} // namespace platform
