#include "platform/core/WorkerTurns.h"

#include <utility>

namespace platform {

class WorkerTurns::TurnWorker final : public Worker {
public:
    TurnWorker(std::shared_ptr<Workers> sharedPtr, Work newWork)
        : workersPtr(std::move(sharedPtr)), work(std::move(newWork)) {
        workersPtr->push_back(this);
    }
    ~TurnWorker() override { std::erase(*workersPtr, this); }
    TurnWorker(const TurnWorker&) = delete;
    TurnWorker& operator=(const TurnWorker&) = delete;

    void DoRound() { work(*this); }
    bool Rest(std::optional<std::chrono::nanoseconds>) override { return false; }
    void Wake() override {} // its turn comes anyway

private:
    std::shared_ptr<Workers> workersPtr;
    const Work work;
};

std::unique_ptr<Worker> WorkerTurns::Start(Worker::Work work) {
    return std::make_unique<TurnWorker>(workersPtr, std::move(work));
}

void WorkerTurns::Run() {
    for (std::size_t index = 0; index < workersPtr->size(); ++index)
        (*workersPtr)[index]->DoRound(); // may start others
}

} // namespace platform
