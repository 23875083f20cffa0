#include "platform/core/TimerSchedule.h"

#include <algorithm>

namespace platform {

namespace {
constexpr auto longestDelay = std::chrono::seconds(1); // calls missed for longer than this are not made up for

bool IsDueBefore(const std::shared_ptr<TimerSchedule::Entry>& a, const std::shared_ptr<TimerSchedule::Entry>& b) {
    return a->due < b->due;
}
} // namespace

void TimerSchedule::Start(const std::shared_ptr<Entry>& entryPtr, int milliseconds, Time now) {
    Stop(entryPtr);
    entryPtr->period = std::chrono::milliseconds(std::max(1, milliseconds));
    entryPtr->due = now + entryPtr->period;
    running.push_back(entryPtr);
}

void TimerSchedule::Stop(const std::shared_ptr<Entry>& entryPtr) { std::erase(running, entryPtr); }

std::optional<TimerSchedule::Time> TimerSchedule::NextCall() const {
    const auto next = std::min_element(running.begin(), running.end(), IsDueBefore);
    return next == running.end() ? std::nullopt : std::optional((*next)->due);
}

std::shared_ptr<TimerSchedule::Entry> TimerSchedule::TakeCall(Time now) {
    const auto next = std::min_element(running.begin(), running.end(), IsDueBefore);
    if (next == running.end() || (*next)->due > now) return nullptr;
    Entry& entry = **next;
    entry.due += entry.period;
    if (now - entry.due > longestDelay) entry.due = now + entry.period;
    return *next;
}

} // namespace platform
