#pragma once

#include <chrono>
#include <functional>
#include <memory>
#include <optional>

namespace platform {

/// Work that goes on beside the program's loop: on a thread of its own, or, on a desktop without threads, in turns that
/// it gets between two frames.
class Worker {
public:
    /// What is to be done; it is called with its worker. It works in rounds and rests after each one, for as long as
    /// Rest allows. So it does one round in each of its turns, and all rounds in one call where it has a thread.
    using Work = std::function<void(Worker&)>;

    /// Ends the work, and returns when it has returned. The work itself must not destroy its worker.
    virtual ~Worker() = default;
    /// For the work: rests for `longest`, or until Wake if that is nothing. False: the work must return.
    virtual bool Rest(std::optional<std::chrono::nanoseconds> longest) = 0;
    /// Ends the rest that is going on, or else the next one. Any thread.
    virtual void Wake() = 0;
};

/// Begins work, as Desktop::StartWorker does.
using WorkerStarter = std::function<std::unique_ptr<Worker>(Worker::Work work)>;

} // namespace platform
