#include "engine/Timer.h"

#include "platform/Desktop.h"

namespace {
int Sensible(int delay) { return delay < 2 ? 1 : delay; }
} // namespace

Timer::Timer(int newDelay, Callable* targetPtr)
    : delay(Sensible(newDelay)), timerPtr(platform::Desktop::Current().MakeTimer([this] { HandleExpiry(); })) {
    Timer::AddActionListener(targetPtr);
}

Timer::~Timer() {
    isRunning = false;
    timerPtr.reset();
}

void Timer::Start() {
    if (!isRunning.exchange(true)) timerPtr->Start(delay);
}

void Timer::Stop() {
    if (isRunning.exchange(false)) timerPtr->Stop();
}

void Timer::SetDelay(int newDelay) {
    delay = Sensible(newDelay);
    if (!isRunning) return;
    Stop();
    Start();
}

bool Timer::AddActionListener(Callable* targetPtr) {
    const std::lock_guard lock(*listenersMutexPtr);
    return Caller::AddActionListener(targetPtr);
}

bool Timer::RemoveActionListener(Callable* targetPtr) {
    const std::lock_guard lock(*listenersMutexPtr);
    return Caller::RemoveActionListener(targetPtr);
}

bool Timer::CallListeners() {
    const std::shared_ptr<std::recursive_mutex> keptMutexPtr = listenersMutexPtr;
    const std::lock_guard lock(*keptMutexPtr);
    return Caller::CallListeners();
}

void Timer::HandleExpiry() {
    if (isRunning) CallListeners();
}
