#include "engine/StopWatch.h"

#include "platform/Desktop.h"

namespace {
std::int64_t Now() { return platform::Desktop::Current().Counter(); }
} // namespace

StopWatch::StopWatch() : secondsPerCount(platform::Desktop::Current().SecondsPerCount()) {}

void StopWatch::Reset() {
    baseTime = Now();
    pausedTime = 0;
    stopTime = 0;
    isStopped = false;
}

void StopWatch::Start() {
    if (!isStopped) return;
    pausedTime += Now() - stopTime;
    isStopped = false;
}

void StopWatch::Stop() {
    if (isStopped) return;
    stopTime = Now();
    isStopped = true;
}

double StopWatch::GetGameTime() {
    if (!isStopped) currTime = Now();
    const std::int64_t counts = (isStopped ? stopTime : currTime) - pausedTime - baseTime;
    return static_cast<double>(counts) * secondsPerCount;
}
