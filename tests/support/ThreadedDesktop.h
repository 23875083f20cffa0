#pragma once

#include "platform/ScriptedDesktop.h"
#include "platform/core/ThreadWorker.h"

/// A scripted desktop with threads, for what must be right however they meet.
class ThreadedDesktop : public platform::ScriptedDesktop {
public:
    using ScriptedDesktop::ScriptedDesktop;
    std::unique_ptr<platform::Worker> StartWorker(platform::Worker::Work work) override {
        return platform::ThreadWorker::Start(std::move(work));
    }
};
