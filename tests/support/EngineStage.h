#pragma once

#include "engine/GameEngine.h"
#include "tests/support/Stage.h"

#include <gtest/gtest.h>

/// The engine on a scripted desktop, without a window: for classes that make shapes and show messages.
class EngineStage : public testing::Test {
protected:
    EngineStage() { GameEngine::GetSingleton(); }
    ~EngineStage() override { delete GameEngine::GetSingleton(); }

    static ID2D1Factory& Factory() { return *GameEngine::GetSingleton()->GetD2DFactory(); }

    /// The texts of the boxes that were shown since the last call.
    std::vector<std::wstring> TakeMessages() { return stage.TakeMessages(); }

    Stage stage;
};
