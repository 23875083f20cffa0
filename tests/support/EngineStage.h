#pragma once

#include "engine/GameEngine.h"
#include "platform/ScriptedDesktop.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <utility>
#include <vector>

/// The engine on a scripted desktop, without a window: for classes that make shapes and show messages.
class EngineStage : public testing::Test {
protected:
    EngineStage() {
        auto newDesktopPtr = std::make_unique<platform::ScriptedDesktop>();
        desktopPtr = newDesktopPtr.get();
        platform::Desktop::Use(std::move(newDesktopPtr));
        GameEngine::GetSingleton();
    }
    ~EngineStage() override {
        delete GameEngine::GetSingleton();
        platform::Desktop::Use(nullptr);
    }

    static ID2D1Factory& Factory() { return *GameEngine::GetSingleton()->GetD2DFactory(); }

    /// The texts of the boxes that were shown since the last call.
    std::vector<std::wstring> TakeMessages() {
        std::vector<std::wstring> texts;
        for (const auto& box : std::exchange(desktopPtr->boxes, {})) texts.push_back(box.text);
        return texts;
    }

    platform::ScriptedDesktop* desktopPtr = nullptr;
};
