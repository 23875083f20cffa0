#pragma once

#include "platform/Worker.h"

#include <memory>
#include <vector>

namespace platform {

/// The workers of a desktop without threads: all work has its turn when the desktop says so.
class WorkerTurns {
public:
    /// The worker may outlive this, but has no turn any more.
    std::unique_ptr<Worker> Start(Worker::Work work);
    /// Gives all work its turn, in the order in which it was started.
    void Run();

private:
    class TurnWorker;
    using Workers = std::vector<TurnWorker*>;

    std::shared_ptr<Workers> workersPtr = std::make_shared<Workers>();
};

} // namespace platform
