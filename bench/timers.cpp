// How exactly the thread of timers keeps real time: how late its calls come, and whether lateness adds up.

#include "platform/core/TimerQueue.h"

#include <algorithm>
#include <atomic>
#include <chrono>
#include <cstdio>
#include <thread>
#include <vector>

int main() {
    using Clock = std::chrono::steady_clock;
    constexpr std::size_t calls = 400;
    std::printf("period   median lateness   worst of %zu calls   of the last call\n", calls);
    for (const int period : {1, 5, 16}) {
        platform::TimerQueue queue;
        std::vector<Clock::time_point> times;
        times.reserve(calls);
        std::atomic<bool> isDone = false;
        const auto timerPtr = queue.MakeTimer([&] {
            if (times.size() < calls) times.push_back(Clock::now());
            isDone = times.size() == calls;
        });
        const Clock::time_point start = Clock::now();
        timerPtr->Start(period);
        while (!isDone) std::this_thread::sleep_for(std::chrono::milliseconds(10));
        std::vector<double> lateness;
        for (std::size_t call = 0; call < calls; ++call) {
            const auto due = start + std::chrono::milliseconds(period) * (call + 1);
            lateness.push_back(std::chrono::duration<double, std::milli>(times[call] - due).count());
        }
        const double last = lateness.back();
        std::sort(lateness.begin(), lateness.end());
        std::printf("%3d ms   %12.2f ms   %15.2f ms   %13.2f ms\n", period, lateness[calls / 2], lateness.back(), last);
    }
}
