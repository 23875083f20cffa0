#pragma once

#include <cstdint>

/// Measures seconds on the desktop's clock, leaving out the spans in which it was stopped. Reset it before use.
class StopWatch {
public:
    StopWatch();
    virtual ~StopWatch() = default;

    void Reset();
    /// Goes on after a Stop; nothing happens while it runs.
    void Start();
    /// Halts; nothing happens while it is stopped.
    void Stop();
    /// Seconds since the last Reset, without the stopped spans.
    double GetGameTime();

private:
    double secondsPerCount;
    std::int64_t baseTime = 0;
    std::int64_t pausedTime = 0;
    std::int64_t stopTime = 0;
    std::int64_t currTime = 0;
    bool isStopped = false;
};
